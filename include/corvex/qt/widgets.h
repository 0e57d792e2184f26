// The inner widgets of controls in the Qt host: a check box and a text box made of Qt
// widgets that sit on a QtControlHost. Controls see only the corvex::Widget interfaces.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "corvex/platform/widgets.h"

class QCheckBox;
class QEvent;
class QInputMethodEvent;
class QKeyEvent;
class QLineEdit;
class QWidget;

namespace corvex::qt {

class QtControlHost;

/// What every Qt inner widget shares: geometry in twips on the surface, colours, font,
/// focus, and the translation of Qt's mouse, key and focus events into WidgetEvents. The
/// Qt widget is a child of the surface whose object name is the design name (with
/// "(index)" for an array element); it goes when this object goes.
class QtWidget : public virtual Widget {
public:
    /// Takes the Qt widget off the surface (deleted once Qt is done with its events).
    ~QtWidget() override;
    QtWidget(const QtWidget&) = delete;
    QtWidget& operator=(const QtWidget&) = delete;

    /// The Qt widget shown on the surface.
    QWidget* qtWidget() const;
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
    /// Whether a left-button release inside the widget raises Click after MouseUp.
    virtual bool clicksOnRelease() const { return false; }

private:
    friend class EventBridge;
    bool filter(QEvent* event);
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

/// A single-line text box over a QLineEdit. Typing, and what an input method commits,
/// goes through KeyPress: the character the handlers leave is inserted (none for 0),
/// limited by MaxLength (0: none); text set by code is never cut. Every change of the
/// text raises Change.
class QtTextBox : public QtWidget, public TextBox {
public:
    /// A text box on host made as design describes (alignment 0 left, 1 right, 2 centre).
    QtTextBox(QtControlHost& host, const TextBoxSpec& design);
    ~QtTextBox() override;

    /// The QLineEdit shown.
    QLineEdit* lineEdit() const;

    /// The text.
    std::u16string text() const override;
    /// Replaces the text, never cut (caret to the start); raises Change when it differs.
    void setText(const std::u16string& t) override;
    /// Caret position (start of the selection), in UTF-16 units.
    std::int32_t selStart() const override;
    /// Moves the caret, clearing the selection.
    void setSelStart(std::int32_t s) override;
    /// Length of the selection.
    std::int32_t selLength() const override;
    /// Selects n units from the caret (clamped to the text).
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
    /// Keeps the input-method mode (Qt's input method is not steered by it yet).
    void setImeMode(std::int16_t m) override;
    /// Whether the user cannot edit (the QLineEdit is read-only).
    bool locked() const override;
    /// Locks or unlocks editing by the user; code may still change the text.
    void setLocked(bool v) override;

protected:
    bool keyTyped(QKeyEvent* event, const TypedKey& key) override;
    bool inputMethodCommitted(QInputMethodEvent* event) override;
    bool clicksOnRelease() const override { return true; }

private:
    friend class LengthLimit;
    void typeCharacter(char16_t ch);
    void replaceSelection(std::u16string insert, bool limited, bool byCode);
    void textChangedByQt();
    std::int32_t maxLength_ = 0;
    std::int16_t imeMode_ = 0;
    bool updating_ = false;
    bool forwarding_ = false;
};

}  // namespace corvex::qt
