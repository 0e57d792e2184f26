// The headless host's command buttons (arrays of them are WidgetArray).
#pragma once

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

}  // namespace corvex::headless
