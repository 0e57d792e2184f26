// BooleanBox: a check box whose value is a Boolean.
#pragma once

#include <memory>

#include "corvex/common/common_members.h"

namespace corvex {

/// A check box (inner widget chkBooleanBox) whose Value is True or False. Its Value is
/// saved and restored by the settings control under SectionName and KeyName.
class BooleanBox : public CommonControl {
public:
    /// A BooleanBox on a host site; creates chkBooleanBox.
    explicit BooleanBox(ControlSite& site);
    ~BooleanBox() override;
    /// The table of the BooleanBox class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }

    void initProperties() override;
    void readProperties(PropertyBag& bag) override;
    void writeProperties(PropertyBag& bag) override;
    void resize() override;

    /// Sets Value to False.
    void cls();
    /// Puts the stored check state back (nothing when nothing was stored on a new control).
    void restore();
    /// Sets Value to DefaultValue.
    void restoreDefault();
    /// Stores the check state as text ("0", "1" or "2").
    void store();

    /// The check box's caption.
    std::u16string caption() const;
    /// Sets the caption.
    void setCaption(std::u16string c);
    /// The design-time default value.
    Boolean defaultValue() const;
    /// Sets the default (design time only: 382 at run time), then Value to it.
    void setDefaultValue(Boolean v);
    /// True only when the box is checked (and enabled, with AlwaysFalseWhenNotEnabled).
    Boolean value() const;
    /// Checks (-1) or unchecks (0) the box; any other raw value changes nothing.
    void setValue(Boolean v);
    /// Whether a disabled box always reads False.
    Boolean alwaysFalseWhenNotEnabled() const;
    /// Sets whether a disabled box always reads False.
    void setAlwaysFalseWhenNotEnabled(Boolean v);

protected:
    void widgetEvent(Widget& source, WidgetEvent& event) override;
    void releaseWidgets() override;
    Widget& commonWidget() const override;

private:
    CheckBox& chk() const;
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex
