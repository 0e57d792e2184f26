// NumInputBox and NumInputBoxR: one-line boxes for numbers, with input modes, limits and
// typed values. The two are one implementation; only their class and alignment differ.
#pragma once

#include <memory>

#include "corvex/common/common_members.h"

namespace corvex {

/// What NumInputBox and NumInputBoxR share: the inner text box txtInput, the key filter,
/// validation, typed readers and MustEnter colouring.
class NumericInputBox : public TextControl {
public:
    ~NumericInputBox() override;

    void initProperties() override;
    void readProperties(PropertyBag& bag) override;
    void writeProperties(PropertyBag& bag) override;
    void resize() override;

    /// Empties the box (DefaultValue is not used).
    void cls();
    /// Sets Value to DefaultValue.
    void restoreDefault();
    /// The negation of the validation, for a host's Validate handler.
    bool cancel();
    /// Validates (and normalises) the text; shows a message on failure.
    bool validateValue();

    /// True once any conversion failed; never reset.
    bool errFlag() const;
    /// Whether validation checks the limits.
    bool limitCheck() const;
    /// Sets whether validation checks the limits.
    void setLimitCheck(bool v);
    /// The lower limit.
    double lowerLimit() const;
    /// Sets the lower limit; refused above UpperLimit (3001 at run time).
    void setLowerLimit(double v);
    /// The maximum length (0: none).
    std::int16_t maxLength() const;
    /// Sets the maximum length.
    void setMaxLength(std::int16_t n);
    /// The input mode.
    InputMode mode() const;
    /// Sets the input mode; refused outside 0 to 4 (3000 at run time).
    void setMode(InputMode m);
    /// Whether an empty box is coloured MustEnterColor.
    bool mustEnter() const;
    /// Sets MustEnter; the colour changes at the next text change.
    void setMustEnter(bool v);
    /// The colour of an empty MustEnter box.
    std::int32_t mustEnterColor() const;
    /// Sets the colour of an empty MustEnter box.
    void setMustEnterColor(std::int32_t c);
    /// The upper limit.
    double upperLimit() const;
    /// Sets the upper limit; refused below LowerLimit (3001 at run time).
    void setUpperLimit(double v);
    /// The text as a Double (ErrBase + 3011 on overflow).
    double valDbl();
    /// Whether leaving the box validates it.
    bool validateAtLostFocus() const;
    /// Sets whether leaving the box validates it.
    void setValidateAtLostFocus(bool v);
    /// The text as an Integer, through a Single (ErrBase + 3012 on overflow).
    std::int16_t valInt();
    /// The text as a Long (ErrBase + 3013 on overflow).
    std::int32_t valLng();
    /// The text as a Single (ErrBase + 3010 on overflow).
    float valSng();
    /// The value: the text.
    std::u16string value() const;
    /// Sets the text as the value.
    void setValue(std::u16string v) override;
    /// The base added to processing error numbers.
    std::int32_t errBase() const;
    /// Sets the error base.
    void setErrBase(std::int32_t v);

protected:
    /// A numeric box whose text box aligns its text (0 left, 1 right).
    NumericInputBox(ControlSite& site, std::int16_t alignment);
    /// The members of both classes, in interface order.
    template <class C>
    static std::vector<MemberInfo> members();
    /// The events of both classes, in declaration order.
    static std::vector<EventInfo> eventList();

    const MessageTable& messageTable() const override;
    void widgetEvent(Widget& source, WidgetEvent& event) override;
    void releaseWidgets() override;
    TextBox& textWidget() const override;
    /// Repaints after a colour or font let.
    void lookChanged() override;
    /// A new section name does not mark the control as changed, unlike KeyName.
    bool sectionNameSignals() const override { return false; }

private:
    TextBox& txt() const;
    void updateMustEnterColor();
    bool validateInput();
    void refuse(std::int32_t number, int code);
    template <class T, class Read>
    T typedRead(T& last, Read read);

    struct Private;
    std::unique_ptr<Private> const d;
};

/// A one-line numeric box with left-aligned text.
class NumInputBox final : public NumericInputBox {
public:
    /// A NumInputBox on a host site.
    explicit NumInputBox(ControlSite& site) : NumericInputBox(site, 0) {}
    /// The table of the NumInputBox class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }
};

/// The same numeric box with right-aligned text, a class of its own.
class NumInputBoxR final : public NumericInputBox {
public:
    /// A NumInputBoxR on a host site.
    explicit NumInputBoxR(ControlSite& site) : NumericInputBox(site, 1) {}
    /// The table of the NumInputBoxR class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }
};

}  // namespace corvex
