// MemoBox: multi-line text whose scroll-bar style can change at run time.
#pragma once

#include <memory>

#include "corvex/common/common_members.h"

namespace corvex {

/// A multi-line text control. A text box's scroll bars are fixed once it exists, so the
/// control holds four stacked boxes txtMemo(0..3), one per ScrollBarsMode, always
/// holding the same text; only the one whose index equals ScrollBars is visible.
class MemoBox : public TextControl {
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
    /// Puts DefaultValue into all four boxes, signalling nothing.
    void restoreDefault();
    /// Does nothing and returns False, whatever the property name.
    bool canPropertyChange(Variant& propertyName);

    /// Which box (scroll-bar style) is visible.
    ScrollBarsMode scrollBars() const;
    /// Shows the box of that style; a value outside 0 to 3 is kept and hides all four.
    void setScrollBars(ScrollBarsMode m);
    /// The value: the text.
    std::u16string value() const;
    /// Sets the text of all four boxes as the value.
    void setValue(std::u16string v) override;

protected:
    void widgetEvent(Widget& source, WidgetEvent& event) override;
    void releaseWidgets() override;
    /// The visible box (340 while ScrollBars is outside 0 to 3).
    TextBox& textWidget() const override;
    void forEachTextWidget(const std::function<void(TextBox&)>& f) override;

private:
    void showBoxOf(std::int32_t mode);
    template <class F>
    void forEachBox(F f);

    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex
