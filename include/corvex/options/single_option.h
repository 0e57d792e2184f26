// SingleOption: one option button wrapped as a control, with a Boolean Value.
#pragma once

#include <memory>

#include "corvex/common/common_members.h"

namespace corvex {

class OptionButton;

/// One option button (optSingleOption) filling the control. Grouping with other option
/// buttons is its container's business. Its Value is saved and restored by the settings
/// control under SectionName and KeyName.
class SingleOption : public CommonControl {
public:
    /// A SingleOption on a host site; creates optSingleOption.
    explicit SingleOption(ControlSite& site);
    ~SingleOption() override;
    /// The table of the SingleOption class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }

    void initProperties() override;
    void readProperties(PropertyBag& bag) override;
    void writeProperties(PropertyBag& bag) override;
    void resize() override;

    /// Clears the button.
    void cls();
    /// Sets the button to the stored value as a Boolean (cleared before any Store).
    void restore();
    /// Sets Value to DefaultValue.
    void restoreDefault();
    /// Keeps the button's current value.
    void store();

    /// The button's caption.
    std::u16string caption() const;
    /// Sets the caption.
    void setCaption(std::u16string c);
    /// The design-time default value.
    Boolean defaultValue() const;
    /// Sets the default (design time only: 382 at run time), then Value to it.
    void setDefaultValue(Boolean v);
    /// Whether the button is selected.
    Boolean value() const;
    /// Selects or clears the button.
    void setValue(Boolean v);

protected:
    void widgetEvent(Widget& source, WidgetEvent& event) override;
    void releaseWidgets() override;
    Widget& commonWidget() const override;

private:
    OptionButton& opt() const;
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex
