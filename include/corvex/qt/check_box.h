// The Qt host's check box.
#pragma once

#include "corvex/qt/widget.h"

class QCheckBox;

namespace corvex::qt {

/// A check box over a QCheckBox: 0 unchecked, 1 checked, 2 grayed (Qt::PartiallyChecked).
/// A user click toggles checked and unchecked and turns grayed into checked; every change
/// of the value, by the user or by code, raises Click.
class QtCheckBox : public QtWidget, public CheckBox {
public:
    /// A check box on host made as design describes.
    QtCheckBox(QtControlHost& host, const WidgetSpec& design);
    ~QtCheckBox() override;

    /// The QCheckBox shown.
    QCheckBox* checkBox() const;

    /// The check box text.
    std::u16string caption() const override;
    /// Sets the check box text ("&" marks the mnemonic).
    void setCaption(const std::u16string& c) override;
    /// The check state: 0, 1, 2 or any value it was given.
    std::int16_t value() const override;
    /// Sets the check state; raises Click when it changes.
    void setValue(std::int16_t v) override;

private:
    void stateChangedByQt(int state);
    void show(std::int16_t v);
    std::int16_t value_ = 0;
    bool updating_ = false;
};

}  // namespace corvex::qt
