// In-memory captions and drop-down lists of the headless host.
#pragma once

#include <utility>
#include <vector>

#include "corvex/headless/widgets.h"
#include "corvex/platform/page_widgets.h"

namespace corvex::headless {

/// A caption.
class HeadlessTextLabel : public HeadlessWidget, public TextLabel {
public:
    /// A caption of a site.
    HeadlessTextLabel(Site& site, const WidgetSpec& spec) : HeadlessWidget(site, spec) {}
    std::u16string caption() const override { return caption_; }
    void setCaption(const std::u16string& c) override { caption_ = c; }

private:
    std::u16string caption_;
};

/// A drop-down list: a click opens it without choosing; pick chooses an entry as the
/// user does with the mouse.
class HeadlessItemList : public HeadlessWidget, public ItemList {
public:
    /// A list of a site.
    HeadlessItemList(Site& site, const WidgetSpec& spec) : HeadlessWidget(site, spec) {}
    void addItem(const std::u16string& text, std::int32_t itemData) override;
    void clear() override;
    std::int32_t listCount() const override;
    std::u16string list(std::int32_t i) const override;
    std::int32_t itemData(std::int32_t i) const override;
    std::int32_t listIndex() const override { return listIndex_; }
    void setListIndex(std::int32_t i) override;

    /// The user chooses entry i: nothing happens on a disabled or hidden list.
    void pick(std::int32_t i);

private:
    const std::pair<std::u16string, std::int32_t>& entry(std::int32_t i) const;
    std::vector<std::pair<std::u16string, std::int32_t>> entries_;
    std::int32_t listIndex_ = -1;
};

}  // namespace corvex::headless
