// The Qt host's command buttons (QPushButton; arrays of them are WidgetArray).
#pragma once

#include "corvex/platform/command_button.h"
#include "corvex/qt/widget.h"

class QPushButton;

namespace corvex::qt {

/// A command button over a QPushButton; the button's clicked signal (mouse or space bar)
/// raises Click.
class QtCommandButton : public QtWidget, public CommandButton {
public:
    /// A button on host made as design describes.
    QtCommandButton(QtControlHost& host, const WidgetSpec& design);
    ~QtCommandButton() override;
    /// The QPushButton shown.
    QPushButton* pushButton() const;
    /// The button text.
    std::u16string caption() const override;
    /// Sets the button text.
    void setCaption(const std::u16string& c) override;
};

}  // namespace corvex::qt
