// The Qt host's command buttons (QPushButton) and arrays of them.
#pragma once

#include <map>
#include <memory>

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

/// An array of Qt command buttons, element 0 made with it.
class QtCommandButtonArray : public CommandButtonArray {
public:
    /// An array on host whose element 0 is made from design.
    QtCommandButtonArray(QtControlHost& host, const WidgetSpec& design);
    ~QtCommandButtonArray() override;
    std::int16_t count() const override { return static_cast<std::int16_t>(elements_.size()); }
    bool exists(std::int16_t index) const override { return elements_.count(index) != 0; }
    CommandButton& element(std::int16_t index) const override;
    CommandButton& create(std::int16_t index) override;
    void remove(std::int16_t index) override;

private:
    QtControlHost& host_;
    WidgetSpec design_;
    std::map<std::int16_t, std::unique_ptr<QtCommandButton>> elements_;
};

}  // namespace corvex::qt
