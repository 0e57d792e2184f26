// Command buttons of the Qt host on QPushButton.
#include "corvex/qt/command_button.h"

#include <QPushButton>

#include "corvex/common/error.h"
#include "corvex/platform/widget_array.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"

namespace corvex::qt {

QtCommandButton::QtCommandButton(QtControlHost& host, const WidgetSpec& design)
    : QtWidget(host, new QPushButton(&host), design, color::ButtonFace, color::ButtonText) {
    pushButton()->setAutoDefault(false);
    QObject::connect(pushButton(), &QPushButton::clicked, pushButton(), [this] {
        WidgetEvent e;
        e.type = WidgetEventType::Click;
        notifyFromQt(e);
    });
}

QtCommandButton::~QtCommandButton() = default;

QPushButton* QtCommandButton::pushButton() const {
    return static_cast<QPushButton*>(qtWidget());
}

std::u16string QtCommandButton::caption() const {
    return pushButton() ? fromQString(pushButton()->text()) : std::u16string();
}

void QtCommandButton::setCaption(const std::u16string& c) {
    if (pushButton()) pushButton()->setText(toQString(c));
}

// --- factory -------------------------------------------------------------------------

std::unique_ptr<CommandButton> QtControlHost::createCommandButton(const WidgetSpec& design) {
    return std::make_unique<QtCommandButton>(*this, design);
}

std::unique_ptr<ControlArray<CommandButton>> QtControlHost::createCommandButtonArray(
    const WidgetSpec& design) {
    return std::make_unique<WidgetArray<CommandButton, WidgetSpec>>(
        design, [this](const WidgetSpec& s) { return createCommandButton(s); });
}

}  // namespace corvex::qt
