// The headless host's list box: the core list-box rules on an in-memory widget, with the
// user's clicks on items simulated.
#pragma once

#include "corvex/common/list_box_model.h"
#include "corvex/headless/widgets.h"
#include "corvex/platform/list_box.h"

namespace corvex::headless {

/// A list box. Its horizontal extent is only kept: a headless list has no scroll bar to
/// show, so hasHorizontalScrollBar tells what a window would show.
class HeadlessListBox : public HeadlessWidget, public ListBox {
public:
    /// A list of a site.
    HeadlessListBox(Site& site, const ListBoxSpec& spec);
    void addItem(const std::u16string& text, std::int32_t index = -1) override;
    void removeItem(std::int32_t i) override;
    void clear() override;
    std::int32_t listCount() const override { return model_.count(); }
    std::u16string list(std::int32_t i) const override { return model_.text(i); }
    void setList(std::int32_t i, const std::u16string& text) override { model_.setText(i, text); }
    std::int32_t itemData(std::int32_t i) const override { return model_.data(i); }
    void setItemData(std::int32_t i, std::int32_t v) override { model_.setData(i, v); }
    std::int32_t listIndex() const override { return model_.current(); }
    void setListIndex(std::int32_t i) override;
    std::int32_t newIndex() const override { return model_.newIndex(); }
    bool sorted() const override { return model_.sorted(); }
    std::int16_t multiSelect() const override { return model_.multiSelect(); }
    bool selected(std::int32_t i) const override { return model_.selected(i); }
    void setSelected(std::int32_t i, bool on) override;
    std::int32_t selCount() const override { return model_.selCount(); }
    std::int32_t topIndex() const override { return model_.topIndex(); }
    void setTopIndex(std::int32_t i) override { model_.setTopIndex(i); }
    std::int16_t columns() const override { return columns_; }
    void setColumns(std::int16_t n) override;
    bool integralHeight() const override { return integralHeight_; }
    std::u16string text() const override;
    void setText(const std::u16string& t) override;
    std::int16_t imeMode() const override { return imeMode_; }
    void setImeMode(std::int16_t m) override { imeMode_ = m; }
    std::int32_t horizontalExtent() const override { return extent_; }
    void setHorizontalExtent(std::int32_t pixels) override;

    /// Whether a window of this list would show a horizontal scroll bar: its extent is
    /// wider than the list (the width in pixels at the host's twips per pixel).
    bool hasHorizontalScrollBar() const;
    /// The user clicks item i with shift bits held (key::CtrlMask, key::ShiftMask):
    /// MouseDown, the selection changes as the mode says, MouseUp, Click. Nothing happens
    /// on a disabled or hidden list; raises 381 outside the list.
    void clickItem(std::int32_t i, std::int16_t shift = 0);

private:
    void changedByCode(bool changed);
    ListBoxModel model_;
    std::int16_t columns_ = 0;
    bool integralHeight_;
    std::int16_t imeMode_ = 0;
    std::int32_t extent_ = 0;
};

}  // namespace corvex::headless
