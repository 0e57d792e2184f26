// The base of every Qt inner widget: geometry, colours, font, focus, and the bridge that
// turns Qt's mouse, key and focus events into the controls' widget events.
#include "corvex/qt/widget.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QInputMethodQueryEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <algorithm>
#include <cmath>
#include <exception>
#include <optional>

#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"
#include "corvex/qt/host.h"

namespace corvex::qt {

// Hands the Qt widget's events (and its viewport's, for a scroll area) to the QtWidget
// that owns it before Qt handles them.
class EventBridge : public QObject {
public:
    explicit EventBridge(QtWidget& owner) : owner_(owner) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == owner_.qtWidget() || watched == owner_.mouseWidget()) {
            return owner_.filter(watched, event);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QtWidget& owner_;
};

// Applies MaxLength to what a QLineEdit inserts on its own (a drop, the middle button):
// the text may not grow past the limit. Text set by code is never validated, so it is

namespace {

// The widget whose LostFocus handlers run right now. While they run, the widget Qt is
// moving the focus to is not told it has it: a handler may take the focus back, and a
// message box it shows makes the window give the focus away and back meanwhile.
const QtWidget* g_leaving = nullptr;

// The shift bit of a modifier key itself, which Qt reports only after the key went down.
std::int16_t ownShiftBit(int qtKey) {
    switch (qtKey) {
        case Qt::Key_Shift:
            return key::ShiftMask;
        case Qt::Key_Control:
            return key::CtrlMask;
        case Qt::Key_Alt:
            return key::AltMask;
        default:
            return 0;
    }
}

QString objectNameFor(const WidgetSpec& design) {
    QString name = toQString(design.name);
    if (design.index >= 0) name += QStringLiteral("(%1)").arg(design.index);
    return name;
}

// The character a key types even where the platform leaves its text empty.
QString textOfKey(const QKeyEvent* event) {
    if (!event->text().isEmpty()) return event->text();
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return QStringLiteral("\r");
        case Qt::Key_Backspace:
            return QStringLiteral("\b");
        case Qt::Key_Escape:
            return QStringLiteral("\x1b");
        default:
            return QString();
    }
}
}  // namespace

// --- every widget ---------------------------------------------------------------------

struct QtWidget::Private {
    QtControlHost& host;
    QPointer<QWidget> widget;
    QPointer<QWidget> mouseWidget;
    std::u16string name;
    std::int16_t index = -1;
    WidgetListener* listener = nullptr;
    std::int32_t backColor = 0;
    std::int32_t foreColor = 0;
    std::optional<FontDesc> font;
    std::unique_ptr<EventBridge> bridge;
    // False once the widget is gone: a handler may unload the control while Qt delivers
    // one of its events, and the filter must not touch it afterwards.
    std::shared_ptr<bool> alive = std::make_shared<bool>(true);
    bool afterDoubleClick = false;
    // The control was told GotFocus and not yet LostFocus.
    bool focusReported = false;
    // The focus went to another window; it comes back without events.
    bool awayInOtherWindow = false;

    Private(QtControlHost& h, QWidget* w) : host(h), widget(w) {}

    int toPixelsX(float twips) const {
        return static_cast<int>(std::lround(twips / host.twipsPerPixelX()));
    }
    int toPixelsY(float twips) const {
        return static_cast<int>(std::lround(twips / host.twipsPerPixelY()));
    }

    void applyColor(QPalette::ColorRole role, std::int32_t color) {
        if (!widget) return;
        const QColor c = toQColor(color, QApplication::palette(widget));
        QPalette p = widget->palette();
        // The disabled group keeps Qt's own greyed look.
        p.setColor(QPalette::Active, role, c);
        p.setColor(QPalette::Inactive, role, c);
        widget->setPalette(p);
    }
};

QtWidget::QtWidget(QtControlHost& host, QWidget* widget, const WidgetSpec& design,
                   std::int32_t backColor, std::int32_t foreColor)
    : d(std::make_unique<Private>(host, widget)) {
    d->name = design.name;
    d->index = design.index;
    d->listener = design.listener;
    d->backColor = backColor;
    d->foreColor = foreColor;
    widget->setObjectName(objectNameFor(design));
    // A scroll area's text lies on its viewport, which receives the mouse.
    auto* area = qobject_cast<QAbstractScrollArea*>(widget);
    d->mouseWidget = area ? area->viewport() : widget;
    // MouseMove comes whenever the pointer moves over the widget, not only while dragging.
    widget->setMouseTracking(true);
    d->mouseWidget->setMouseTracking(true);
    d->bridge = std::make_unique<EventBridge>(*this);
    widget->installEventFilter(d->bridge.get());
    if (d->mouseWidget != widget) d->mouseWidget->installEventFilter(d->bridge.get());
    move(design.left, design.top, design.width, design.height);
    widget->setVisible(design.visible);
    host.widgetMade(this);
}

QtWidget::~QtWidget() {
    *d->alive = false;
    d->host.widgetGone(this);
    if (g_leaving == this) g_leaving = nullptr;
    if (QWidget* m = d->mouseWidget) m->removeEventFilter(d->bridge.get());
    if (QWidget* w = d->widget) {
        w->removeEventFilter(d->bridge.get());
        w->disconnect();
        w->hide();
        w->setObjectName(QString());
        // The control may go while Qt is still delivering one of this widget's events.
        w->deleteLater();
    }
}

QWidget* QtWidget::qtWidget() const {
    return d->widget;
}

QWidget* QtWidget::mouseWidget() const {
    return d->mouseWidget;
}

QtControlHost& QtWidget::surfaceHost() const {
    return d->host;
}

const std::u16string& QtWidget::name() const {
    return d->name;
}

std::int16_t QtWidget::index() const {
    return d->index;
}

float QtWidget::left() const {
    return d->widget ? static_cast<float>(d->widget->x() * d->host.twipsPerPixelX()) : 0.f;
}

float QtWidget::top() const {
    return d->widget ? static_cast<float>(d->widget->y() * d->host.twipsPerPixelY()) : 0.f;
}

float QtWidget::width() const {
    return d->widget ? static_cast<float>(d->widget->width() * d->host.twipsPerPixelX()) : 0.f;
}

float QtWidget::height() const {
    return d->widget ? static_cast<float>(d->widget->height() * d->host.twipsPerPixelY()) : 0.f;
}

void QtWidget::move(float left, float top, float width, float height) {
    if (!d->widget) return;
    d->widget->setGeometry(d->toPixelsX(left), d->toPixelsY(top), std::max(0, d->toPixelsX(width)),
                           std::max(0, d->toPixelsY(height)));
}

bool QtWidget::visible() const {
    // The widget's own Visible, whether or not the window is on the screen yet.
    return d->widget && d->widget->isVisibleTo(d->widget->parentWidget());
}

void QtWidget::setVisible(bool v) {
    if (d->widget) d->widget->setVisible(v);
}

bool QtWidget::enabled() const {
    return d->widget && d->widget->isEnabledTo(d->widget->parentWidget());
}

void QtWidget::setEnabled(bool v) {
    if (d->widget) d->widget->setEnabled(v);
}

std::int32_t QtWidget::backColor() const {
    return d->backColor;
}

void QtWidget::setBackColor(std::int32_t c) {
    d->backColor = c;
    if (!d->widget) return;
    d->widget->setAutoFillBackground(true);
    d->applyColor(d->widget->backgroundRole(), c);
}

std::int32_t QtWidget::foreColor() const {
    return d->foreColor;
}

void QtWidget::setForeColor(std::int32_t c) {
    d->foreColor = c;
    if (d->widget) d->applyColor(d->widget->foregroundRole(), c);
}

FontDesc QtWidget::font() const {
    // The description as it was given, so that what Qt cannot express (the character
    // set) comes back unchanged.
    if (d->font) return *d->font;
    return d->widget ? fromQFont(d->widget->font()) : FontDesc{};
}

void QtWidget::setFont(const FontDesc& f) {
    d->font = f;
    if (d->widget) d->widget->setFont(toQFont(f));
}

void QtWidget::setFocus() {
    if (d->widget) d->widget->setFocus(Qt::OtherFocusReason);
}

bool QtWidget::hasFocus() const {
    return d->widget && d->widget->hasFocus();
}

void QtWidget::refresh() {
    if (d->widget) d->widget->update();
}

std::shared_ptr<const bool> QtWidget::aliveFlag() const {
    return d->alive;
}

bool QtWidget::notify(WidgetEvent& event) {
    if (!d->listener) return false;
    d->listener->widgetEvent(*this, event);
    return true;
}

void QtWidget::notifyFromQt(WidgetEvent& event) {
    // Qt's event loop cannot carry an error back to anyone; the host reports it.
    try {
        notify(event);
    } catch (const std::exception& e) {
        d->host.host().reportError(e);
    }
}

bool QtWidget::keyTyped(QKeyEvent*, const TypedKey& key) {
    return key.keyCodeCleared;
}

bool QtWidget::focusChanged(QEvent* event) {
    const bool in = event->type() == QEvent::FocusIn;
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    // A menu popping up and going again moves no focus on the form.
    if (reason == Qt::PopupFocusReason) return false;
    if (in) {
        if (reason == Qt::ActiveWindowFocusReason) {
            // The window coming back after another window had it: the widget had the
            // focus all along. Or coming back after a message box that a LostFocus handler
            // showed: the focus move under way decides who has the focus.
            if (d->awayInOtherWindow) {
                d->awayInOtherWindow = false;
                return false;
            }
            if (g_leaving) return false;
        }
        d->awayInOtherWindow = false;
        if (d->focusReported) return false;
        d->focusReported = true;
        WidgetEvent e;
        e.type = WidgetEventType::GotFocus;
        notifyFromQt(e);
        return false;
    }
    if (reason == Qt::ActiveWindowFocusReason) {
        // Another window coming forward takes no focus from the form.
        if (d->focusReported) d->awayInOtherWindow = true;
        return false;
    }
    d->awayInOtherWindow = false;
    // Only a widget that was told it had the focus hears that it lost it: one that Qt gave
    // the focus while a LostFocus handler took it back never had it as far as the form knows.
    if (!d->focusReported) return false;
    d->focusReported = false;
    const auto alive = d->alive;
    const QtWidget* outer = g_leaving;
    g_leaving = this;
    WidgetEvent e;
    e.type = WidgetEventType::LostFocus;
    notifyFromQt(e);
    g_leaving = outer;
    if (!*alive) return true;
    // A handler gave the focus back (a failed check): the Qt widget stays as focused as it
    // is now instead of acting on the stale focus-out.
    return d->widget && d->widget->hasFocus();
}

bool QtWidget::filter(QObject* watched, QEvent* event) {
    QWidget* w = d->widget;
    if (!w) return false;
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove: {
            // A scroll area's mouse input is its viewport's; what reaches the area itself
            // is a click on its frame or an event its viewport passed up.
            if (watched != d->mouseWidget.data()) return false;
            if (!w->isEnabled()) return false;
            auto* me = static_cast<QMouseEvent*>(event);
            WidgetEvent e;
            switch (event->type()) {
                case QEvent::MouseButtonPress:
                    e.type = WidgetEventType::MouseDown;
                    break;
                case QEvent::MouseButtonRelease:
                    e.type = WidgetEventType::MouseUp;
                    break;
                case QEvent::MouseButtonDblClick:
                    e.type = WidgetEventType::DblClick;
                    break;
                default:
                    e.type = WidgetEventType::MouseMove;
                    break;
            }
            // A move reports the buttons held; a press or release the button that acted.
            e.button = event->type() == QEvent::MouseMove ? mouseButtons(me->buttons())
                                                          : mouseButtons(me->button());
            e.shift = shiftBits(me->modifiers());
            // Relative to the widget (not its viewport), in the surface's scale units.
            QPointF pos = me->position();
            if (watched != w) pos = static_cast<QWidget*>(watched)->mapTo(w, pos);
            const Surface& s = d->host.surface();
            e.x = s.scaleX(static_cast<float>(pos.x() * d->host.twipsPerPixelX()), ScaleMode::Twips,
                           s.scaleMode());
            e.y = s.scaleY(static_cast<float>(pos.y() * d->host.twipsPerPixelY()), ScaleMode::Twips,
                           s.scaleMode());
            // Qt's second press of a double click is the host's DblClick alone.
            if (event->type() == QEvent::MouseButtonDblClick) {
                e.button = 0;
                e.shift = 0;
                e.x = e.y = 0;
                d->afterDoubleClick = true;
            }
            const auto alive = d->alive;
            notifyFromQt(e);
            if (!*alive || !d->widget) return true;
            if (event->type() == QEvent::MouseButtonRelease) {
                const bool second = d->afterDoubleClick;
                d->afterDoubleClick = false;
                if (clicksOnRelease() && !second && me->button() == Qt::LeftButton &&
                    w->rect().contains(pos.toPoint())) {
                    WidgetEvent click;
                    click.type = WidgetEventType::Click;
                    notifyFromQt(click);
                    if (!*alive || !d->widget) return true;
                }
            }
            return keepsMouseFromQt(me);
        }
        case QEvent::KeyPress: {
            if (watched != w || !w->isEnabled()) return false;
            auto* ke = static_cast<QKeyEvent*>(event);
            const auto alive = d->alive;
            WidgetEvent down;
            down.type = WidgetEventType::KeyDown;
            down.keyCode = virtualKeyCode(ke->key(), ke->modifiers());
            down.shift =
                static_cast<std::int16_t>(shiftBits(ke->modifiers()) | ownShiftBit(ke->key()));
            const std::int16_t originalCode = down.keyCode;
            notifyFromQt(down);
            if (!*alive || !d->widget) return true;  // a handler took the control away

            TypedKey typed;
            typed.keyCodeCleared = originalCode != 0 && down.keyCode == 0;
            const QString text = textOfKey(ke);
            // Tab moves the focus and Delete deletes: neither types a character.
            const bool types = !text.isEmpty() && ke->key() != Qt::Key_Tab &&
                               ke->key() != Qt::Key_Backtab && ke->key() != Qt::Key_Delete &&
                               text[0].unicode() != 0x7F;
            if (types) {
                char16_t ch = text[0].unicode();
                // Ctrl with a letter types its control character on every platform.
                const bool ctrlOnly =
                    (ke->modifiers() & Qt::ControlModifier) && !(ke->modifiers() & Qt::AltModifier);
                if (ctrlOnly && ((ch >= u'a' && ch <= u'z') || (ch >= u'@' && ch <= u'_'))) {
                    ch = static_cast<char16_t>(ch & 0x1F);
                }
                WidgetEvent press;
                press.type = WidgetEventType::KeyPress;
                press.keyAscii = static_cast<std::int16_t>(ch);
                notifyFromQt(press);
                if (!*alive || !d->widget) return true;
                typed.hasPress = true;
                typed.original = ch;
                typed.keyAscii = static_cast<char16_t>(press.keyAscii);
            }
            return keyTyped(ke, typed);
        }
        case QEvent::KeyRelease: {
            if (watched != w || !w->isEnabled()) return false;
            auto* ke = static_cast<QKeyEvent*>(event);
            if (ke->isAutoRepeat()) return false;  // one KeyUp when the key really goes up
            const auto alive = d->alive;
            WidgetEvent up;
            up.type = WidgetEventType::KeyUp;
            up.keyCode = virtualKeyCode(ke->key(), ke->modifiers());
            up.shift =
                static_cast<std::int16_t>(shiftBits(ke->modifiers()) & ~ownShiftBit(ke->key()));
            const std::int16_t originalCode = up.keyCode;
            notifyFromQt(up);
            if (!*alive || !d->widget) return true;
            if (originalCode != 0 && up.keyCode == 0) {
                // The handler took the key away: a button pressed by it comes up unclicked.
                if (auto* button = qobject_cast<QAbstractButton*>(d->widget.data())) {
                    button->setDown(false);
                }
                return true;
            }
            return false;
        }
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            if (watched != w) return false;
            return focusChanged(event);
        case QEvent::ContextMenu:
            if (watched != d->mouseWidget.data() || !w->isEnabled()) return false;
            return showContextMenu(static_cast<QContextMenuEvent*>(event));
        case QEvent::InputMethod:
            if (watched != w || !w->isEnabled()) return false;
            return inputMethodCommitted(static_cast<QInputMethodEvent*>(event));
        case QEvent::InputMethodQuery:
            if (watched != w) return false;
            return inputMethodQueried(static_cast<QInputMethodQueryEvent*>(event));
        default:
            return false;
    }
}

bool QtWidget::inputMethodCommitted(QInputMethodEvent*) {
    return false;
}
}  // namespace corvex::qt
