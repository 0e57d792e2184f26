// The inner widgets of controls in the Qt host: a check box and a text box made of Qt
// widgets that sit on a QtControlHost. Controls see only the corvex::Widget interfaces.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "corvex/platform/widgets.h"

class QCheckBox;
class QEvent;
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
    ~QtWidget() override;
    QtWidget(const QtWidget&) = delete;
    QtWidget& operator=(const QtWidget&) = delete;

    /// The Qt widget shown on the surface.
    QWidget* qtWidget() const;
    /// The surface the widget sits on.
    QtControlHost& surfaceHost() const;

    const std::u16string& name() const override;
    std::int16_t index() const override;
    float left() const override;
    float top() const override;
    float width() const override;
    float height() const override;
    void move(float left, float top, float width, float height) override;
    bool visible() const override;
    void setVisible(bool v) override;
    bool enabled() const override;
    void setEnabled(bool v) override;
    std::int32_t backColor() const override;
    void setBackColor(std::int32_t c) override;
    std::int32_t foreColor() const override;
    void setForeColor(std::int32_t c) override;
    FontDesc font() const override;
    void setFont(const FontDesc& f) override;
    void setFocus() override;
    bool hasFocus() const override;
    void refresh() override;

protected:
    /// Takes over a Qt widget (already a child of host) made from spec.
    QtWidget(QtControlHost& host, QWidget* widget, const WidgetSpec& spec,
             std::int32_t backColor, std::int32_t foreColor);
    /// Sends an event to the control's listener; returns false when there is none.
    bool notify(WidgetEvent& event);
    /// Sends an event that came from Qt's event loop: errors go to the host, not to Qt.
    void notifyFromQt(WidgetEvent& event);
    /// Handles a key the user pressed after KeyDown (and KeyPress when it has text, with
    /// keyAscii as the handlers left it). Returns true when the key was dealt with and Qt
    /// must not see it; the default passes every key on to the Qt widget.
    virtual bool keyTyped(QKeyEvent* event, bool hasPress, char16_t original, char16_t keyAscii);
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
    /// A check box on host made from spec.
    QtCheckBox(QtControlHost& host, const WidgetSpec& spec);
    ~QtCheckBox() override;

    /// The QCheckBox shown.
    QCheckBox* checkBox() const;

    std::u16string caption() const override;
    void setCaption(const std::u16string& c) override;
    std::int16_t value() const override;
    void setValue(std::int16_t v) override;

private:
    void stateChangedByQt(int state);
    void show(std::int16_t v);
    std::int16_t value_ = 0;
    bool updating_ = false;
};

/// A single-line text box over a QLineEdit. Typing goes through KeyPress: the character
/// the handlers leave is inserted (none for 0), limited by MaxLength (0: none); text set
/// by code is never cut. Every change of the text raises Change.
class QtTextBox : public QtWidget, public TextBox {
public:
    /// A text box on host made from spec (alignment 0 left, 1 right, 2 centre).
    QtTextBox(QtControlHost& host, const TextBoxSpec& spec);
    ~QtTextBox() override;

    /// The QLineEdit shown.
    QLineEdit* lineEdit() const;

    std::u16string text() const override;
    void setText(const std::u16string& t) override;
    std::int32_t selStart() const override;
    void setSelStart(std::int32_t s) override;
    std::int32_t selLength() const override;
    void setSelLength(std::int32_t n) override;
    std::u16string selText() const override;
    void setSelText(const std::u16string& t) override;
    std::int32_t maxLength() const override;
    void setMaxLength(std::int32_t n) override;
    std::int16_t imeMode() const override;
    void setImeMode(std::int16_t m) override;
    bool locked() const override;
    void setLocked(bool v) override;

protected:
    bool keyTyped(QKeyEvent* event, bool hasPress, char16_t original, char16_t keyAscii) override;
    bool clicksOnRelease() const override { return true; }

private:
    friend class LengthLimit;
    void typeCharacter(char16_t ch);
    void replaceSelection(const std::u16string& insert, bool limited);
    void textChangedByQt();
    std::int32_t maxLength_ = 0;
    std::int16_t imeMode_ = 0;
    bool updating_ = false;
};

}  // namespace corvex::qt
