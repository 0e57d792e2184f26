#include "corvex/headless/command_button.h"

#include "corvex/common/error.h"
#include "corvex/headless/host.h"
#include "corvex/platform/widget_array.h"

namespace corvex::headless {

void HeadlessCommandButton::keyReleased(std::int16_t keyCode) {
    if (keyCode != key::Space) return;
    WidgetEvent e;
    e.type = WidgetEventType::Click;
    emit(e);
}

// --- factory -------------------------------------------------------------------------

std::unique_ptr<CommandButton> Site::createCommandButton(const WidgetSpec& spec) {
    auto w = std::make_unique<HeadlessCommandButton>(*this, spec);
    widgets_.push_back(w.get());
    return w;
}

std::unique_ptr<ControlArray<CommandButton>> Site::createCommandButtonArray(
    const WidgetSpec& spec) {
    return std::make_unique<WidgetArray<CommandButton, WidgetSpec>>(
        spec, [this](const WidgetSpec& s) { return createCommandButton(s); });
}

}  // namespace corvex::headless
