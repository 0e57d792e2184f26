// What every control shares with its host: lifecycle, property-changed notification,
// events passed on from the inner widgets, design-time checks and message language.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "corvex/common/messages.h"
#include "corvex/common/object.h"
#include "corvex/platform/property_bag.h"
#include "corvex/platform/site.h"

namespace corvex {

/// The base of every control. The host creates a control on a site, then calls either
/// initProperties (placed new in the designer) or readProperties (every later load),
/// then resize and show; writeProperties when the designer saves the form.
class Control : public Object, protected WidgetListener {
public:
    /// A control on its host site; the site outlives the control.
    explicit Control(ControlSite& site);
    ~Control() override;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    /// The host side of this control; raises 398 once the control is detached.
    ControlSite& site() const;

    /// Cuts the control off its site, which is about to go: the inner widgets are
    /// released now, while the site still exists, and every later access by member name
    /// raises 398. A reference kept elsewhere (a Variant, a script name) then holds an
    /// object that refuses to work instead of one that reaches a destroyed site.
    void detach();
    /// Whether the control's site has gone.
    bool detached() const { return site_ == nullptr; }
    /// Raises 398 (client site not available) once the control is detached.
    void checkAvailable() const override;
    /// Raises 382 at run time, for properties that may be set only at design time.
    void requireDesignTime() const override;

    /// Sets the properties to their defaults (a control newly placed in the designer).
    virtual void initProperties() = 0;
    /// Reads the saved properties from a bag, then runs the control's finishing steps.
    virtual void readProperties(PropertyBag& bag) = 0;
    /// Writes the saved properties into a bag, each with its default.
    virtual void writeProperties(PropertyBag& bag) = 0;
    /// Lays the inner widgets out after the surface changed size.
    virtual void resize() {}
    /// Called when the control is first shown.
    virtual void show() {}
    /// Repaints the control surface (the Refresh method of every control).
    void refresh();
    /// The host reports a mouse event on the surface itself, outside every inner widget
    /// (x and y in the surface's scale units); nothing by default.
    virtual void surfaceMouse(const WidgetEvent&) {}

protected:
    /// Releases the inner widgets; called once, by detach, while the site still exists.
    /// Afterwards the control must not touch a widget: its accessors of them call
    /// checkAvailable first.
    virtual void releaseWidgets() = 0;
    /// Signals the host's property-changed notification under a saved name.
    void propertyChanged(std::u16string_view name);
    /// Raises an event of this class's event table; args are by reference.
    void raiseEvent(std::u16string_view name, std::span<Variant> args = {});
    /// The surface's inner width in twips, the unit of inner widget geometry (the
    /// surface's own scale width, converted from its scale mode).
    float innerWidth() const;
    /// The surface's inner height in twips.
    float innerHeight() const;
    /// The ambient UserMode: True at run time.
    bool userMode() const;
    /// The ambient font.
    FontDesc ambientFont() const;
    /// The control's message table (the common codes only, unless overridden).
    virtual const MessageTable& messageTable() const;
    /// A message text in the locale's language, read at this moment.
    std::u16string getMessageText(int code) const;
    /// Shows the refusal box made of the texts of codes.
    void showRefusal(std::initializer_list<int> codes) const;
    /// Passes on the standard widget events (Click, DblClick, KeyDown, KeyPress, KeyUp and
    /// the mouse events, converted to container units) under the same names. By-reference
    /// key arguments changed by the host's handler are written back into event. Returns
    /// false for other event types.
    bool passOn(WidgetEvent& event);
    /// Passes on one key event only (KeyDown, KeyPress or KeyUp).
    void passOnKey(WidgetEvent& event);
    /// Passes on one mouse event only, converting X and Y to container units.
    void passOnMouse(const WidgetEvent& event);

private:
    ControlSite* site_;
};

/// Reads a saved property and converts it, naming the property in the error raised when
/// the bag holds a value of the wrong kind.
template <class Convert>
auto readSaved(PropertyBag& bag, std::u16string_view name, const Variant& def, Convert convert) {
    Variant v = bag.read(name, def);
    try {
        return convert(v);
    } catch (const Error& e) {
        throw Error(e.number(),
                    e.description() + u" (saved property \"" + std::u16string(name) + u"\")",
                    e.source());
    }
}

/// Reads a saved property as T, converted as a member of type T converts its argument.
template <class T>
T readSaved(PropertyBag& bag, std::u16string_view name, const Variant& def) {
    return readSaved(bag, name, def,
                     [](const Variant& v) { return detail::ArgTraits<T>::from(v); });
}

/// The names and help strings of the members that several classes share, declared once.
/// Each class's table lists them with its own accessors (and its own saved defaults).
namespace common {
inline constexpr MemberDoc Refresh{u"Refresh", u"コントロールを再描画します。",
                                   u"Redraws the control."};
inline constexpr MemberDoc BackColor{u"BackColor", u"背景色を設定します。",
                                     u"Sets the background colour."};
inline constexpr MemberDoc Caption{u"Caption", u"表示文字列を設定します。", u"Sets the caption."};
inline constexpr MemberDoc DefaultValue{u"DefaultValue", u"既定値を設定します。（デザイン時のみ）",
                                        u"Sets the default value (design time only)."};
inline constexpr MemberDoc Enabled{u"Enabled", u"入力の可否を設定します。",
                                   u"Sets whether the control accepts input."};
inline constexpr MemberDoc Font{u"Font", u"フォントを設定します。", u"Sets the font."};
inline constexpr MemberDoc ForeColor{u"ForeColor", u"文字色を設定します。",
                                     u"Sets the text colour."};
inline constexpr MemberDoc IMEMode{u"IMEMode", u"IMEのモードを設定します。", u"Sets the IME mode."};
inline constexpr MemberDoc KeyName{u"KeyName", u"値を保存するキー名を設定します。",
                                   u"Sets the key under which the value is saved."};
inline constexpr MemberDoc SectionName{u"SectionName", u"値を保存するセクション名を設定します。",
                                       u"Sets the section under which the value is saved."};
inline constexpr MemberDoc SelLength{u"SelLength", u"選択文字数を設定します。",
                                     u"Sets the number of selected characters."};
inline constexpr MemberDoc SelStart{u"SelStart", u"選択開始位置を設定します。",
                                    u"Sets where the selection starts."};
inline constexpr MemberDoc SelText{u"SelText", u"選択文字列を設定します。",
                                   u"Sets the selected text."};
inline constexpr MemberDoc Text{u"Text", u"テキストを設定します。", u"Sets the text."};
inline constexpr MemberDoc ErrBase{u"ErrBase", u"エラー番号の基数を設定します。",
                                   u"Sets the base of the error numbers."};
}  // namespace common

/// The event tables' entries shared by the controls that pass on widget events.
namespace events {
/// KeyDown(KeyCode, Shift) / KeyUp(KeyCode, Shift), by reference.
std::vector<ParamInfo> keyCodeShift();
/// KeyPress(KeyAscii), by reference.
std::vector<ParamInfo> keyAscii();
/// MouseDown/MouseMove/MouseUp(Button, Shift, X, Y).
std::vector<ParamInfo> mouse();
/// Adds Change, Click, DblClick, KeyDown, KeyPress, KeyUp, MouseDown, MouseMove and
/// MouseUp, in that order: the events a text control passes on from its widgets.
void addTextEvents(EventTable& table);
/// Adds the three declared, never raised events every event interface ends with.
void addDeclaredLifecycle(EventTable& table);
}  // namespace events

}  // namespace corvex
