// MemoBox: multi-line text whose scroll-bar style can change at run time.
#pragma once

#include <memory>

#include "corvex/common/control.h"
#include "corvex/common/font.h"
#include "corvex/library/enums.h"

namespace corvex {

/// A multi-line text control. A text box's scroll bars are fixed once it exists, so the
/// control holds four stacked boxes txtMemo(0..3), one per ScrollBarsMode, always
/// holding the same text; only the one whose index equals ScrollBars is visible.
class MemoBox : public Control {
public:
    /// A MemoBox on a host site; creates txtMemo(0) to txtMemo(3).
    explicit MemoBox(ControlSite& site);
    ~MemoBox() override;
    /// The table of the MemoBox class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }

    void initProperties() override;
    void readProperties(PropertyBag& bag) override;
    void writeProperties(PropertyBag& bag) override;
    void resize() override;

    /// Empties all four boxes.
    void cls();
    /// Puts the stored text into all four boxes (nothing stored empties them).
    void restore();
    /// Puts DefaultValue into all four boxes, signalling nothing.
    void restoreDefault();
    /// Stores the visible box's text.
    void store();
    /// Does nothing and returns False, whatever the property name.
    bool canPropertyChange(Variant& propertyName);

    /// Background colour of the visible box.
    std::int32_t backColor() const;
    /// Sets the background colour of all four boxes.
    void setBackColor(std::int32_t c);
    /// The design-time default text.
    std::u16string defaultValue() const;
    /// Sets the default (design time only: 382 at run time), then Value to it.
    void setDefaultValue(std::u16string v);
    /// Whether the visible box is enabled.
    bool enabled() const;
    /// Enables or disables all four boxes.
    void setEnabled(bool v);
    /// The visible box's font.
    std::shared_ptr<Font> font() const;
    /// Sets the font of all four boxes.
    void setFont(std::shared_ptr<Font> f);
    /// Text colour of the visible box.
    std::int32_t foreColor() const;
    /// Sets the text colour of all four boxes.
    void setForeColor(std::int32_t c);
    /// The visible box's input-method mode.
    CorvexIMEMode imeMode() const;
    /// Sets the input-method mode of all four boxes.
    void setImeMode(CorvexIMEMode m);
    /// The key under which the settings control saves Value.
    std::u16string keyName() const;
    /// Sets the key name.
    void setKeyName(std::u16string v);
    /// Which box (scroll-bar style) is visible.
    ScrollBarsMode scrollBars() const;
    /// Shows the box of that style; a value outside 0 to 3 is kept and hides all four.
    void setScrollBars(ScrollBarsMode m);
    /// The section under which the settings control saves Value.
    std::u16string sectionName() const;
    /// Sets the section name.
    void setSectionName(std::u16string v);
    /// Selection length in the visible box.
    std::int32_t selLength() const;
    /// Sets the selection length in all four boxes.
    void setSelLength(std::int32_t n);
    /// Caret in the visible box.
    std::int32_t selStart() const;
    /// Moves the caret in all four boxes.
    void setSelStart(std::int32_t n);
    /// Selected text of the visible box.
    std::u16string selText() const;
    /// Replaces the visible box's selection; the other boxes follow its Change.
    void setSelText(std::u16string t);
    /// The visible box's text.
    std::u16string text() const;
    /// Sets the text of all four boxes.
    void setText(std::u16string t);
    /// The value: the text.
    std::u16string value() const;
    /// Sets the text of all four boxes as the value.
    void setValue(std::u16string v);

protected:
    void widgetEvent(Widget& source, WidgetEvent& event) override;
    void releaseWidgets() override;

private:
    TextBox& visibleBox() const;
    void showBoxOf(std::int32_t mode);
    template <class F>
    void forEachBox(F f);

    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex
