// The inner standard widgets that controls are built from, as the controls see them.
// Every host (headless, Qt) implements these; the controls never see a host's widgets.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "corvex/common/font.h"

namespace corvex {

class Frame;
class OptionButton;
class LineShape;
template <class W>
class ControlArray;
struct OptionButtonSpec;
struct LineSpec;

/// Key codes and shift bits as the host reports them in KeyDown and KeyUp.
namespace key {
inline constexpr std::int16_t Back = 8;         ///< Backspace
inline constexpr std::int16_t Tab = 9;          ///< Tab
inline constexpr std::int16_t Return = 13;      ///< Enter
inline constexpr std::int16_t ShiftKey = 16;    ///< a Shift key
inline constexpr std::int16_t ControlKey = 17;  ///< a Ctrl key
inline constexpr std::int16_t Space = 32;       ///< space bar
inline constexpr std::int16_t Insert = 45;      ///< Insert
inline constexpr std::int16_t Delete = 46;      ///< Delete
inline constexpr std::int16_t ShiftMask = 1;    ///< Shift held
inline constexpr std::int16_t CtrlMask = 2;     ///< Ctrl held
inline constexpr std::int16_t AltMask = 4;      ///< Alt held
}  // namespace key

/// The key a character is typed with on a US keyboard: its key code and shift state.
struct KeyStroke {
    std::int16_t keyCode = 0;  ///< the host's key code (0 when no key types it)
    std::int16_t shift = 0;    ///< shift bits held while typing it
};

/// The key code and shift state that type ch (letters by their upper-case code, Shift
/// for capitals and shifted punctuation; 229, the input-method key, beyond ASCII). Every
/// host reads its key codes from this one table: the headless host to type characters,
/// the Qt host to name the keys Qt reports.
KeyStroke keyStrokeFor(char16_t ch);

/// The character a key types with Ctrl held and Alt not: Ctrl+A to Ctrl+Z type 1 to 26,
/// as every keyboard does (Ctrl+V is 22). 0 for any other key or shift state.
char16_t controlCharacterOf(std::int16_t keyCode, std::int16_t shift);

/// Mouse buttons as the host reports them.
namespace mouse {
inline constexpr std::int16_t Left = 1;    ///< left button
inline constexpr std::int16_t Right = 2;   ///< right button
inline constexpr std::int16_t Middle = 4;  ///< middle button
}  // namespace mouse

/// Colours: system colours have the high bit set, the others are RGB (0x00BBGGRR).
namespace color {
inline constexpr std::int32_t WindowBackground = static_cast<std::int32_t>(0x80000005u);
inline constexpr std::int32_t WindowText = static_cast<std::int32_t>(0x80000008u);
inline constexpr std::int32_t ButtonFace = static_cast<std::int32_t>(0x8000000Fu);
inline constexpr std::int32_t ButtonText = static_cast<std::int32_t>(0x80000012u);
inline constexpr std::int32_t Red = 255;
}  // namespace color

/// What happened on a widget.
enum class WidgetEventType {
    Click,
    DblClick,
    KeyDown,
    KeyPress,
    KeyUp,
    MouseDown,
    MouseMove,
    MouseUp,
    Change,
    GotFocus,
    LostFocus,
    Scroll,
    ItemCheck,
    FilesDropped,
};

/// One widget event. Key fields are by reference: a listener that changes keyAscii
/// (0 swallows the key) or keyCode changes what the widget does with the key.
struct WidgetEvent {
    WidgetEventType type = WidgetEventType::Click;  ///< what happened
    std::int16_t keyCode = 0;                       ///< KeyDown, KeyUp
    std::int16_t shift = 0;                         ///< KeyDown, KeyUp, mouse events
    std::int16_t keyAscii = 0;                      ///< KeyPress: the character (UTF-16 unit)
    std::int16_t button = 0;                        ///< mouse events
    float x = 0;                                    ///< mouse events, surface scale units
    float y = 0;                                    ///< mouse events, surface scale units
    std::int16_t item = 0;                          ///< ItemCheck
    std::vector<std::u16string> files;              ///< FilesDropped: full paths
};

class Widget;

/// Receives the events of the widgets a control owns.
class WidgetListener {
public:
    virtual ~WidgetListener() = default;
    /// An event of source; by-reference fields may be changed.
    virtual void widgetEvent(Widget& source, WidgetEvent& event) = 0;
};

/// What every inner widget has. Positions and sizes are in twips on the surface.
class Widget {
public:
    virtual ~Widget() = default;
    /// The design name ("chkBooleanBox", "txtInput").
    virtual const std::u16string& name() const = 0;
    /// The element index in a control array; -1 for a single widget.
    virtual std::int16_t index() const = 0;
    /// Left edge.
    virtual float left() const = 0;
    /// Top edge.
    virtual float top() const = 0;
    /// Width.
    virtual float width() const = 0;
    /// Height.
    virtual float height() const = 0;
    /// Moves and sizes the widget at once.
    virtual void move(float left, float top, float width, float height) = 0;
    /// Sets the width, keeping the rest.
    void setWidth(float w) { move(left(), top(), w, height()); }
    /// Sets the height, keeping the rest.
    void setHeight(float h) { move(left(), top(), width(), h); }
    /// Whether shown.
    virtual bool visible() const = 0;
    /// Shows or hides the widget.
    virtual void setVisible(bool v) = 0;
    /// Whether it takes input.
    virtual bool enabled() const = 0;
    /// Enables or disables input.
    virtual void setEnabled(bool v) = 0;
    /// Background colour (system colours keep their high bit).
    virtual std::int32_t backColor() const = 0;
    /// Sets the background colour.
    virtual void setBackColor(std::int32_t c) = 0;
    /// Text colour.
    virtual std::int32_t foreColor() const = 0;
    /// Sets the text colour.
    virtual void setForeColor(std::int32_t c) = 0;
    /// The font.
    virtual FontDesc font() const = 0;
    /// Sets the font.
    virtual void setFont(const FontDesc& f) = 0;
    /// Gives the widget the keyboard focus.
    virtual void setFocus() = 0;
    /// Whether the widget has the keyboard focus.
    virtual bool hasFocus() const = 0;
    /// Repaints the widget.
    virtual void refresh() = 0;
};

/// A check box holding 0 (unchecked), 1 (checked) or 2 (grayed). A change of the value,
/// by the user or by code, raises Click, as the host's check box does.
class CheckBox : public virtual Widget {
public:
    /// The caption.
    virtual std::u16string caption() const = 0;
    /// Sets the caption.
    virtual void setCaption(const std::u16string& c) = 0;
    /// The check state (0, 1, 2; a host may hold any 16-bit value it was given).
    virtual std::int16_t value() const = 0;
    /// Sets the check state; raises Click when it changes.
    virtual void setValue(std::int16_t v) = 0;
};

/// A text box. Text, caret and MaxLength count UTF-16 code units. Change is raised on
/// every change of the text, by typing or by code; typing inserts at the caret and
/// replaces the selection, and MaxLength (0: none) refuses characters beyond it. With
/// its native clipboard keys on, Ctrl+C, Ctrl+X and Ctrl+V copy, cut and paste after
/// KeyDown (unless a KeyDown handler set the key code to 0); control characters typed
/// never insert anything.
class TextBox : public virtual Widget {
public:
    /// The text.
    virtual std::u16string text() const = 0;
    /// Replaces the text (caret to the start); raises Change when it differs.
    virtual void setText(const std::u16string& t) = 0;
    /// Caret position (start of the selection).
    virtual std::int32_t selStart() const = 0;
    /// Moves the caret, clearing the selection; clamped to the text.
    virtual void setSelStart(std::int32_t s) = 0;
    /// Length of the selection.
    virtual std::int32_t selLength() const = 0;
    /// Sets the selection length; clamped to the text.
    virtual void setSelLength(std::int32_t n) = 0;
    /// The selected text.
    virtual std::u16string selText() const = 0;
    /// Replaces the selection (caret after the new text); raises Change when the text changes.
    virtual void setSelText(const std::u16string& t) = 0;
    /// The maximum length in code units (0: no limit).
    virtual std::int32_t maxLength() const = 0;
    /// Sets the maximum length; existing text is kept.
    virtual void setMaxLength(std::int32_t n) = 0;
    /// The input-method mode (the library's CorvexIMEMode value).
    virtual std::int16_t imeMode() const = 0;
    /// Sets the input-method mode.
    virtual void setImeMode(std::int16_t m) = 0;
    /// Whether the user cannot edit the text.
    virtual bool locked() const = 0;
    /// Locks or unlocks editing.
    virtual void setLocked(bool v) = 0;
};

/// How a widget is made: its design name, array index, listener and place.
struct WidgetSpec {
    std::u16string name;                 ///< design name
    std::int16_t index = -1;             ///< array element index, -1 for none
    WidgetListener* listener = nullptr;  ///< who receives its events
    float left = 0;                      ///< left edge, twips
    float top = 0;                       ///< top edge, twips
    float width = 1215;                  ///< width, twips
    float height = 255;                  ///< height, twips
    bool visible = true;                 ///< shown at creation
};

/// How a text box is made, beyond a widget's spec.
struct TextBoxSpec : WidgetSpec {
    std::int16_t alignment = 0;   ///< 0 left, 1 right, 2 centre
    bool multiLine = false;       ///< several lines
    std::int16_t scrollBars = 0;  ///< 0 none, 1 horizontal, 2 vertical, 3 both
    /// Whether Ctrl+C, Ctrl+X and Ctrl+V act on the clipboard by themselves. A control that
    /// handles the clipboard keys in KeyDown turns this off, so that nothing happens twice.
    bool nativeClipboard = true;
    /// Whether files dropped on it (from a file manager) arrive as one FilesDropped with
    /// their Windows names, instead of whatever the toolkit would insert.
    bool acceptsFiles = false;
};

class TextLabel;
class ItemList;
class ListBox;
struct ListBoxSpec;
class CommandButton;
class ComboBox;
struct ComboBoxSpec;

/// Creates the inner widgets of one control on its surface.
class WidgetFactory {
public:
    virtual ~WidgetFactory() = default;
    /// A check box.
    virtual std::unique_ptr<CheckBox> createCheckBox(const WidgetSpec& spec) = 0;
    /// A text box.
    virtual std::unique_ptr<TextBox> createTextBox(const TextBoxSpec& spec) = 0;
    /// A caption (see corvex/platform/page_widgets.h).
    virtual std::unique_ptr<TextLabel> createTextLabel(const WidgetSpec& spec) = 0;
    /// A drop-down list with item data (see corvex/platform/page_widgets.h).
    virtual std::unique_ptr<ItemList> createItemList(const WidgetSpec& spec) = 0;
    /// A frame (corvex/platform/option_widgets.h).
    virtual std::unique_ptr<Frame> createFrame(const WidgetSpec& spec) = 0;
    /// A single option button.
    virtual std::unique_ptr<OptionButton> createOptionButton(const OptionButtonSpec& spec) = 0;
    /// An array of option buttons whose element 0 is made from spec (its index is 0).
    virtual std::unique_ptr<ControlArray<OptionButton>> createOptionButtonArray(
        const OptionButtonSpec& spec) = 0;
    /// A line shape.
    virtual std::unique_ptr<LineShape> createLine(const LineSpec& spec) = 0;
    /// A list box (corvex/platform/list_box.h).
    virtual std::unique_ptr<ListBox> createListBox(const ListBoxSpec& spec) = 0;
    /// A command button (corvex/platform/command_button.h).
    virtual std::unique_ptr<CommandButton> createCommandButton(const WidgetSpec& spec) = 0;
    /// An array of command buttons whose element 0 is made from spec (its index is 0).
    virtual std::unique_ptr<ControlArray<CommandButton>> createCommandButtonArray(
        const WidgetSpec& spec) = 0;
    /// A combo box of the list controls (see corvex/platform/list_widgets.h).
    virtual std::unique_ptr<ComboBox> createComboBox(const ComboBoxSpec& spec) = 0;
};

}  // namespace corvex
