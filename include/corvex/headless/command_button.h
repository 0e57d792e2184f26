// The headless host's command buttons and arrays of them.
#pragma once

#include <map>
#include <memory>

#include "corvex/headless/widgets.h"
#include "corvex/platform/command_button.h"

namespace corvex::headless {

/// A command button: a click or the space bar raises Click.
class HeadlessCommandButton : public HeadlessWidget, public CommandButton {
public:
    /// A button of a site.
    HeadlessCommandButton(Site& site, const WidgetSpec& spec) : HeadlessWidget(site, spec) {}
    std::u16string caption() const override { return caption_; }
    void setCaption(const std::u16string& c) override { caption_ = c; }

protected:
    void keyReleased(std::int16_t keyCode) override;

private:
    std::u16string caption_;
};

/// An array of headless command buttons, element 0 made with it.
class HeadlessCommandButtonArray : public CommandButtonArray {
public:
    /// An array of a site whose element 0 is made from spec.
    HeadlessCommandButtonArray(Site& site, const WidgetSpec& spec);
    ~HeadlessCommandButtonArray() override;
    std::int16_t count() const override { return static_cast<std::int16_t>(elements_.size()); }
    bool exists(std::int16_t index) const override { return elements_.count(index) != 0; }
    CommandButton& element(std::int16_t index) const override;
    CommandButton& create(std::int16_t index) override;
    void remove(std::int16_t index) override;

private:
    Site& site_;
    WidgetSpec spec_;
    std::map<std::int16_t, std::unique_ptr<HeadlessCommandButton>> elements_;
};

}  // namespace corvex::headless
