// The base of the Qt host's inner widgets: a Qt widget on a control's surface, seen by
// the controls through the corvex::Widget interface.
#pragma once

#include <QString>
#include <cstdint>
#include <memory>
#include <string>

#include "corvex/platform/widgets.h"

class QContextMenuEvent;
class QEvent;
class QInputMethodEvent;
class QInputMethodQueryEvent;
class QKeyEvent;
class QMouseEvent;
class QObject;
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
    std::unique_ptr<Private> const d;
};

}  // namespace corvex::qt
