// The inner widgets of controls in the Qt host: a check box and a text box made of Qt
// widgets that sit on a QtControlHost. Controls see only the corvex::Widget interfaces.
#pragma once

#include <QString>
#include <cstdint>
#include <memory>
#include <string>

#include "corvex/platform/widgets.h"

class QCheckBox;
class QContextMenuEvent;
class QEvent;
class QInputMethodEvent;
class QInputMethodQueryEvent;
class QKeyEvent;
class QLineEdit;
class QMenu;
class QMouseEvent;
class QObject;
class QPlainTextEdit;
class QWidget;

namespace corvex::qt {

class QtControlHost;

/// What every Qt inner widget shares: geometry in twips on the surface, colours, font,
/// focus, and the translation of Qt's mouse, key and focus events into WidgetEvents. The
/// Qt widget is a child of the surface whose object name is the design name (with
/// "(index)" for an array element); it goes when this object goes. A scroll area (the
/// multi-line text box) gets its mouse input through its viewport, the rest itself.
class QtWidget : public virtual Widget {
public:
    /// Takes the Qt widget off the surface (deleted once Qt is done with its events).
    ~QtWidget() override;
    QtWidget(const QtWidget&) = delete;
    QtWidget& operator=(const QtWidget&) = delete;

    /// The Qt widget shown on the surface.
    QWidget* qtWidget() const;
    /// The Qt widget that receives the mouse: the viewport of a scroll area, else qtWidget().
    QWidget* mouseWidget() const;
    /// The surface the widget sits on.
    QtControlHost& surfaceHost() const;

    /// The design name ("chkBooleanBox").
    const std::u16string& name() const override;
    /// The element index in a control array; -1 for a single widget.
    std::int16_t index() const override;
    /// Left edge, twips.
    float left() const override;
    /// Top edge, twips.
    float top() const override;
    /// Width, twips.
    float width() const override;
    /// Height, twips.
    float height() const override;
    /// Moves and sizes the widget (twips, rounded to pixels).
    void move(float left, float top, float width, float height) override;
    /// Whether the widget itself is shown (whether or not its window is).
    bool visible() const override;
    /// Shows or hides the widget.
    void setVisible(bool v) override;
    /// Whether the widget itself takes input (whatever its parents say).
    bool enabled() const override;
    /// Enables or disables input.
    void setEnabled(bool v) override;
    /// The background colour number as it was set.
    std::int32_t backColor() const override;
    /// Paints the background role with a colour number.
    void setBackColor(std::int32_t c) override;
    /// The text colour number as it was set.
    std::int32_t foreColor() const override;
    /// Paints the foreground role with a colour number.
    void setForeColor(std::int32_t c) override;
    /// The font description as it was set (the Qt font before any was).
    FontDesc font() const override;
    /// Sets the Qt font from a description.
    void setFont(const FontDesc& f) override;
    /// Gives the Qt widget the keyboard focus.
    void setFocus() override;
    /// Whether the Qt widget has the keyboard focus.
    bool hasFocus() const override;
    /// Schedules a repaint of the widget.
    void refresh() override;

protected:
    /// Takes over a Qt widget (already a child of host) made as design describes.
    QtWidget(QtControlHost& host, QWidget* widget, const WidgetSpec& design, std::int32_t backColor,
             std::int32_t foreColor);
    /// Sends an event to the control's listener; returns false when there is none.
    bool notify(WidgetEvent& event);
    /// A flag that turns false when this widget goes (a handler may unload the control
    /// while Qt is still delivering one of its events).
    std::shared_ptr<const bool> aliveFlag() const;
    /// Sends an event that came from Qt's event loop: errors go to the host, not to Qt.
    void notifyFromQt(WidgetEvent& event);
    /// A key the user pressed, after its KeyDown and KeyPress handlers ran.
    struct TypedKey {
        bool keyCodeCleared = false;  ///< a KeyDown handler set KeyCode to 0
        bool hasPress = false;        ///< the key typed a character, so KeyPress was raised
        char16_t original = 0;        ///< the character the key typed
        char16_t keyAscii = 0;        ///< the character as the KeyPress handlers left it
    };
    /// Does what the widget does with a pressed key. Returns true when the key was dealt
    /// with and the Qt widget must not see it; the default gives every key to the Qt
    /// widget unless KeyDown's handlers cleared its KeyCode.
    virtual bool keyTyped(QKeyEvent* event, const TypedKey& key);
    /// Handles text an input method commits; returns true when Qt must not see the event.
    /// The default lets Qt commit it.
    virtual bool inputMethodCommitted(QInputMethodEvent* event);
    /// Answers the input method's questions; returns false to leave them to Qt.
    virtual bool inputMethodQueried(QInputMethodQueryEvent*) { return false; }
    /// Whether a left-button release inside the widget raises Click after MouseUp.
    virtual bool clicksOnRelease() const { return false; }
    /// Whether the Qt widget must not see a mouse event (after its WidgetEvent was sent).
    virtual bool keepsMouseFromQt(QMouseEvent*) { return false; }
    /// Shows the widget's own context menu; returns false to leave it to Qt.
    virtual bool showContextMenu(QContextMenuEvent*) { return false; }

private:
    friend class EventBridge;
    bool filter(QObject* watched, QEvent* event);
    bool focusChanged(QEvent* event);
    struct Private;
    std::unique_ptr<Private> d;
};

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

/// A text box: a QLineEdit, or a QPlainTextEdit when the design is multi-line. Typing,
/// and what an input method commits, goes through KeyPress: the character the handlers
/// leave is inserted (none for 0; 13 is a line break in a multi-line box), limited by
/// MaxLength (0: none); text set by code is never cut. Every change of the text raises
/// Change.
///
/// A multi-line box's text has CR LF line breaks, as files and the other hosts keep them;
/// the QPlainTextEdit holds one block break per line, so the box converts at its edge and
/// counts each line break as two units in SelStart, SelLength and MaxLength. A lone CR or
/// LF set by code becomes a line break too, and reads back as CR LF.
///
/// Without native clipboard keys (TextBoxSpec::nativeClipboard false) the box never copies,
/// cuts or pastes by itself: Ctrl+C/X/V, Ctrl+Insert, Shift+Insert, Shift+Delete and Qt's
/// Copy/Cut/Paste sequences reach the control as KeyDown (and KeyPress) and nothing more;
/// the context menu's Cut, Copy and Paste press Ctrl+X, Ctrl+C and Ctrl+V on the box; drops
/// and the middle-button paste are refused.
class QtTextBox : public QtWidget, public TextBox {
public:
    /// A text box on host made as design describes (alignment 0 left, 1 right, 2 centre).
    QtTextBox(QtControlHost& host, const TextBoxSpec& design);
    ~QtTextBox() override;

    /// The QLineEdit of a single-line box; null for a multi-line one.
    QLineEdit* lineEdit() const;
    /// The QPlainTextEdit of a multi-line box; null for a single-line one.
    QPlainTextEdit* plainTextEdit() const;
    /// Whether the box holds several lines.
    bool multiLine() const { return multiLine_; }
    /// The scroll bars it was made with (0 none, 1 horizontal, 2 vertical, 3 both).
    std::int16_t scrollBars() const { return scrollBars_; }
    /// Whether the clipboard keys act by themselves.
    bool nativeClipboard() const { return nativeClipboard_; }
    /// A new context menu for the box (Undo ... Select All), owned by the caller.
    QMenu* createContextMenu(QWidget* parent = nullptr);

    /// The text (CR LF line breaks in a multi-line box).
    std::u16string text() const override;
    /// Replaces the text, never cut (caret to the start); raises Change when it differs.
    void setText(const std::u16string& t) override;
    /// Caret position (start of the selection), in UTF-16 units.
    std::int32_t selStart() const override;
    /// Moves the caret, clearing the selection (a position inside a line break goes before it).
    void setSelStart(std::int32_t s) override;
    /// Length of the selection.
    std::int32_t selLength() const override;
    /// Selects n units from the caret (clamped to the text; a line break is taken whole).
    void setSelLength(std::int32_t n) override;
    /// The selected text.
    std::u16string selText() const override;
    /// Replaces the selection, cut to MaxLength; raises Change.
    void setSelText(const std::u16string& t) override;
    /// The longest text typing may make (0: no limit).
    std::int32_t maxLength() const override;
    /// Sets MaxLength; the text already there is kept.
    void setMaxLength(std::int32_t n) override;
    /// The input-method mode as it was set.
    std::int16_t imeMode() const override;
    /// Sets the input-method mode and steers Qt's input method by it (inputMethodSetting()).
    void setImeMode(std::int16_t m) override;
    /// Whether the user cannot edit (the Qt widget is read-only).
    bool locked() const override;
    /// Locks or unlocks editing by the user; code may still change the text.
    void setLocked(bool v) override;

protected:
    bool keyTyped(QKeyEvent* event, const TypedKey& key) override;
    bool inputMethodCommitted(QInputMethodEvent* event) override;
    bool inputMethodQueried(QInputMethodQueryEvent* query) override;
    bool clicksOnRelease() const override { return true; }
    bool keepsMouseFromQt(QMouseEvent* event) override;
    bool showContextMenu(QContextMenuEvent* event) override;

private:
    friend class LengthLimit;
    friend class MemoEdit;
    struct Editor;
    template <class W>
    class ForwardingEditor;
    class LineEditor;
    class PlainEditor;
    void typeCharacter(char16_t ch);
    void replaceSelection(std::u16string insert, bool limited, bool byCode);
    void pasteFromClipboard();
    void pressOnBox(int qtKey, char16_t ch);
    void textChangedByQt();
    void raiseChange();
    void applyInputMethod();
    std::int32_t boxLength() const;
    std::unique_ptr<Editor> editor_;
    bool multiLine_ = false;
    std::int16_t scrollBars_ = 0;
    bool nativeClipboard_ = true;
    std::int32_t maxLength_ = 0;
    std::int16_t imeMode_ = 0;
    bool updating_ = false;
    bool forwarding_ = false;
    bool changedByCode_ = false;
};

}  // namespace corvex::qt
