// The members most controls share, forwarded once: the look held by the inner widgets
// (BackColor, ForeColor, Enabled, Font), the text of text controls, and the KeyName and
// SectionName the settings control saves a value under.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "corvex/common/control.h"
#include "corvex/common/font.h"
#include "corvex/library/enums.h"

namespace corvex {

/// A control whose inner widgets hold the common look members. A let applies the value to
/// every widget that holds it and signals the change; a get reads the one widget the
/// control names (its only widget, or the visible one of several).
class CommonControl : public Control {
public:
    /// Background colour of the read widget.
    std::int32_t backColor() const;
    /// Sets the background colour of every holding widget.
    void setBackColor(std::int32_t c);
    /// Whether the read widget is enabled.
    bool enabled() const;
    /// Enables or disables every holding widget.
    void setEnabled(bool v);
    /// The read widget's font.
    std::shared_ptr<Font> font() const;
    /// Sets the font of every holding widget; Nothing raises 424.
    void setFont(std::shared_ptr<Font> f);
    /// Text colour of the read widget.
    std::int32_t foreColor() const;
    /// Sets the text colour of every holding widget.
    void setForeColor(std::int32_t c);
    /// The key under which the settings control saves Value.
    std::u16string keyName() const;
    /// Sets the key name.
    void setKeyName(std::u16string v);
    /// The section under which the settings control saves Value.
    std::u16string sectionName() const;
    /// Sets the section name.
    void setSectionName(std::u16string v);

protected:
    using Control::Control;
    /// The widget the common members read (raises as the control's own access does).
    virtual Widget& commonWidget() const = 0;
    /// Calls f on every widget holding the common members: the read widget alone unless
    /// the control holds them in several.
    virtual void forEachCommonWidget(const std::function<void(Widget&)>& f) { f(commonWidget()); }
    /// Runs after a colour or font let has signalled its change; nothing by default.
    virtual void lookChanged() {}
    /// Whether a SectionName let signals a property change; it does by default.
    virtual bool sectionNameSignals() const { return true; }
    /// Keeps a loaded key name, signalling nothing.
    void loadKeyName(std::u16string v) { keyName_ = std::move(v); }
    /// Keeps a loaded section name, signalling nothing.
    void loadSectionName(std::u16string v) { sectionName_ = std::move(v); }

private:
    /// Lets value into every holding widget through set, then signals name.
    template <class P, class V>
    void letEach(void (Widget::*set)(P), const V& value, std::u16string_view name);

    std::u16string keyName_;
    std::u16string sectionName_;
};

/// A control whose inner text boxes hold its text, selection and input-method mode as
/// well as its look. A let applies to every box (a SelText let replaces the selection of
/// the read box only); a get reads the read box.
class TextControl : public CommonControl {
public:
    /// The read box's input-method mode.
    CorvexIMEMode imeMode() const;
    /// Sets the input-method mode of every box (kept as a 16-bit value).
    void setImeMode(CorvexIMEMode m);
    /// Selection length in the read box.
    std::int32_t selLength() const;
    /// Sets the selection length in every box.
    void setSelLength(std::int32_t n);
    /// Start of the selection (the caret) in the read box.
    std::int32_t selStart() const;
    /// Moves the caret in every box.
    void setSelStart(std::int32_t n);
    /// The read box's selected text.
    std::u16string selText() const;
    /// Replaces the read box's selection once.
    void setSelText(std::u16string t);
    /// The read box's text.
    std::u16string text() const;
    /// Sets the text of every box.
    void setText(std::u16string t);

    /// Puts the stored text back into every box; with nothing stored they are emptied.
    void restore();
    /// Stores the read box's text.
    void store();
    /// The design-time default text.
    std::u16string defaultValue() const;
    /// Sets the default (design time only: 382 at run time), then Value to it.
    void setDefaultValue(std::u16string v);
    /// Sets the control's value, the text of its boxes, as the control defines it.
    virtual void setValue(std::u16string v) = 0;

protected:
    using CommonControl::CommonControl;
    /// Sets the default text as loaded or initialised, signalling nothing.
    void loadDefaultValue(std::u16string v) { defaultValue_ = std::move(v); }
    /// The text box the members read.
    virtual TextBox& textWidget() const = 0;
    /// Calls f on every text box of the control: the read box alone unless it has several.
    virtual void forEachTextWidget(const std::function<void(TextBox&)>& f) { f(textWidget()); }
    Widget& commonWidget() const override { return textWidget(); }
    void forEachCommonWidget(const std::function<void(Widget&)>& f) override;

private:
    /// Lets value into every text box through set, then signals name.
    template <class P, class V>
    void letEach(void (TextBox::*set)(P), const V& value, std::u16string_view name);

    std::u16string defaultValue_;
    Variant storedValue_;  // Empty until the first Store
};

}  // namespace corvex
