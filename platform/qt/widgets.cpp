#include "corvex/qt/widgets.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QValidator>
#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>
#include <optional>

#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"
#include "corvex/qt/host.h"

namespace corvex::qt {

// Hands the Qt widget's events to the QtWidget that owns it before Qt handles them.
class EventBridge : public QObject {
public:
    explicit EventBridge(QtWidget& owner) : owner_(owner) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == owner_.qtWidget()) return owner_.filter(event);
        return QObject::eventFilter(watched, event);
    }

private:
    QtWidget& owner_;
};

// Applies MaxLength to what Qt inserts on its own (a drop, the context menu's Paste):
// the text may not grow past the limit. Text set by code is never validated, so it is
// never cut.
class LengthLimit : public QValidator {
public:
    LengthLimit(QtTextBox& box, QObject* parent) : QValidator(parent), box_(box) {}

    State validate(QString& input, int&) const override {
        const std::int32_t max = box_.maxLength_;
        if (max <= 0 || input.size() <= max) return Acceptable;
        // A text already longer than the limit (set by code) may still shrink.
        return input.size() <= box_.lineEdit()->text().size() ? Acceptable : Invalid;
    }

private:
    QtTextBox& box_;
};

namespace {

// Unchecked and checked swap on a user click; grayed (and any other state) turns checked.
class CheckButton : public QCheckBox {
public:
    using QCheckBox::QCheckBox;

protected:
    void nextCheckState() override {
        setCheckState(checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    }
};

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

}  // namespace

// --- every widget ---------------------------------------------------------------------

struct QtWidget::Private {
    QtControlHost& host;
    QPointer<QWidget> widget;
    std::u16string name;
    std::int16_t index = -1;
    WidgetListener* listener = nullptr;
    std::int32_t backColor = 0;
    std::int32_t foreColor = 0;
    std::optional<FontDesc> font;
    std::unique_ptr<EventBridge> bridge;
    bool afterDoubleClick = false;
    bool lostToOtherWindow = false;

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
    // MouseMove comes whenever the pointer moves over the widget, not only while dragging.
    widget->setMouseTracking(true);
    d->bridge = std::make_unique<EventBridge>(*this);
    widget->installEventFilter(d->bridge.get());
    move(design.left, design.top, design.width, design.height);
    widget->setVisible(design.visible);
}

QtWidget::~QtWidget() {
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

bool QtWidget::filter(QEvent* event) {
    QWidget* w = d->widget;
    if (!w) return false;
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove: {
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
            // Relative to the widget, in the surface's scale units.
            const Surface& s = d->host.surface();
            const QPointF pos = me->position();
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
            notifyFromQt(e);
            if (event->type() == QEvent::MouseButtonRelease && d->widget) {
                const bool second = d->afterDoubleClick;
                d->afterDoubleClick = false;
                if (clicksOnRelease() && !second && me->button() == Qt::LeftButton &&
                    w->rect().contains(me->position().toPoint())) {
                    WidgetEvent click;
                    click.type = WidgetEventType::Click;
                    notifyFromQt(click);
                }
            }
            return false;
        }
        case QEvent::KeyPress: {
            if (!w->isEnabled()) return false;
            auto* ke = static_cast<QKeyEvent*>(event);
            WidgetEvent down;
            down.type = WidgetEventType::KeyDown;
            down.keyCode = virtualKeyCode(ke->key(), ke->modifiers());
            down.shift =
                static_cast<std::int16_t>(shiftBits(ke->modifiers()) | ownShiftBit(ke->key()));
            const std::int16_t originalCode = down.keyCode;
            notifyFromQt(down);
            if (!d->widget) return true;  // a handler took the control away

            TypedKey typed;
            typed.keyCodeCleared = originalCode != 0 && down.keyCode == 0;
            const QString text = ke->text();
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
                if (!d->widget) return true;
                typed.hasPress = true;
                typed.original = ch;
                typed.keyAscii = static_cast<char16_t>(press.keyAscii);
            }
            return keyTyped(ke, typed);
        }
        case QEvent::KeyRelease: {
            if (!w->isEnabled()) return false;
            auto* ke = static_cast<QKeyEvent*>(event);
            if (ke->isAutoRepeat()) return false;  // one KeyUp when the key really goes up
            WidgetEvent up;
            up.type = WidgetEventType::KeyUp;
            up.keyCode = virtualKeyCode(ke->key(), ke->modifiers());
            up.shift =
                static_cast<std::int16_t>(shiftBits(ke->modifiers()) & ~ownShiftBit(ke->key()));
            const std::int16_t originalCode = up.keyCode;
            notifyFromQt(up);
            if (!d->widget) return true;
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
        case QEvent::FocusOut: {
            // A menu popping up, or another window coming forward and going again, moves
            // no focus on the form; the focus a window gives when it first opens does.
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            if (reason == Qt::PopupFocusReason) return false;
            if (reason == Qt::ActiveWindowFocusReason) {
                const bool back = d->lostToOtherWindow;
                d->lostToOtherWindow = event->type() == QEvent::FocusOut;
                if (back || event->type() == QEvent::FocusOut) return false;
            } else {
                d->lostToOtherWindow = false;
            }
            WidgetEvent e;
            e.type = event->type() == QEvent::FocusIn ? WidgetEventType::GotFocus
                                                      : WidgetEventType::LostFocus;
            notifyFromQt(e);
            return false;
        }
        case QEvent::InputMethod:
            if (!w->isEnabled()) return false;
            return inputMethodCommitted(static_cast<QInputMethodEvent*>(event));
        default:
            return false;
    }
}

bool QtWidget::inputMethodCommitted(QInputMethodEvent*) {
    return false;
}

// --- check box ------------------------------------------------------------------------

QtCheckBox::QtCheckBox(QtControlHost& host, const WidgetSpec& design)
    : QtWidget(host, new CheckButton(&host), design, color::ButtonFace, color::ButtonText) {
    QObject::connect(checkBox(), &QCheckBox::stateChanged, checkBox(),
                     [this](int state) { stateChangedByQt(state); });
}

QtCheckBox::~QtCheckBox() = default;

QCheckBox* QtCheckBox::checkBox() const {
    return static_cast<QCheckBox*>(qtWidget());
}

std::u16string QtCheckBox::caption() const {
    return checkBox() ? fromQString(checkBox()->text()) : std::u16string();
}

void QtCheckBox::setCaption(const std::u16string& c) {
    if (checkBox()) checkBox()->setText(toQString(c));
}

std::int16_t QtCheckBox::value() const {
    return value_;
}

void QtCheckBox::show(std::int16_t v) {
    QCheckBox* box = checkBox();
    if (!box) return;
    updating_ = true;
    if (v == 2) {
        box->setCheckState(Qt::PartiallyChecked);
    } else {
        // Only 1 shows a tick; any other value the box was given shows empty.
        box->setCheckState(v == 1 ? Qt::Checked : Qt::Unchecked);
        box->setTristate(false);
    }
    updating_ = false;
}

void QtCheckBox::setValue(std::int16_t v) {
    if (v == value_) return;
    value_ = v;
    show(v);
    // Set by code, the change raises Click as a user's click does.
    WidgetEvent e;
    e.type = WidgetEventType::Click;
    notify(e);
}

void QtCheckBox::stateChangedByQt(int state) {
    if (updating_) return;
    value_ = state == Qt::Checked ? 1 : state == Qt::PartiallyChecked ? 2 : 0;
    if (value_ != 2) checkBox()->setTristate(false);
    WidgetEvent e;
    e.type = WidgetEventType::Click;
    notifyFromQt(e);
}

// --- text box -------------------------------------------------------------------------

QtTextBox::QtTextBox(QtControlHost& host, const TextBoxSpec& design)
    : QtWidget(host, new QLineEdit(&host), design, color::WindowBackground, color::WindowText) {
    QLineEdit* edit = lineEdit();
    // MaxLength is ours to apply: Qt's own limit would also cut text set by code.
    edit->setMaxLength(std::numeric_limits<int>::max());
    edit->setValidator(new LengthLimit(*this, edit));
    switch (design.alignment) {
        case 1:
            edit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            break;
        case 2:
            edit->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
            break;
        default:
            edit->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
            break;
    }
    QObject::connect(edit, &QLineEdit::textChanged, edit, [this] { textChangedByQt(); });
}

QtTextBox::~QtTextBox() = default;

QLineEdit* QtTextBox::lineEdit() const {
    return static_cast<QLineEdit*>(qtWidget());
}

std::u16string QtTextBox::text() const {
    return lineEdit() ? fromQString(lineEdit()->text()) : std::u16string();
}

void QtTextBox::setText(const std::u16string& t) {
    QLineEdit* edit = lineEdit();
    if (!edit) return;
    const QString before = edit->text();
    updating_ = true;
    edit->setText(toQString(t));
    edit->setCursorPosition(0);
    updating_ = false;
    if (edit->text() != before) {
        WidgetEvent e;
        e.type = WidgetEventType::Change;
        notify(e);
    }
}

std::int32_t QtTextBox::selStart() const {
    QLineEdit* edit = lineEdit();
    if (!edit) return 0;
    return edit->hasSelectedText() ? edit->selectionStart() : edit->cursorPosition();
}

void QtTextBox::setSelStart(std::int32_t s) {
    QLineEdit* edit = lineEdit();
    if (!edit) return;
    edit->setCursorPosition(std::clamp(s, 0, static_cast<std::int32_t>(edit->text().size())));
}

std::int32_t QtTextBox::selLength() const {
    QLineEdit* edit = lineEdit();
    return edit ? static_cast<std::int32_t>(edit->selectedText().size()) : 0;
}

void QtTextBox::setSelLength(std::int32_t n) {
    QLineEdit* edit = lineEdit();
    if (!edit) return;
    const std::int32_t start = selStart();
    const auto len = static_cast<std::int32_t>(edit->text().size());
    const std::int32_t count = std::clamp(n, 0, len - start);
    if (count == 0) {
        edit->setCursorPosition(start);
    } else {
        edit->setSelection(start, count);
    }
}

std::u16string QtTextBox::selText() const {
    return lineEdit() ? fromQString(lineEdit()->selectedText()) : std::u16string();
}

void QtTextBox::setSelText(const std::u16string& t) {
    replaceSelection(t, true, true);
}

std::int32_t QtTextBox::maxLength() const {
    return maxLength_;
}

void QtTextBox::setMaxLength(std::int32_t n) {
    maxLength_ = std::max(0, n);
}

std::int16_t QtTextBox::imeMode() const {
    return imeMode_;
}

void QtTextBox::setImeMode(std::int16_t m) {
    imeMode_ = m;
}

bool QtTextBox::locked() const {
    return lineEdit() && lineEdit()->isReadOnly();
}

void QtTextBox::setLocked(bool v) {
    if (lineEdit()) lineEdit()->setReadOnly(v);
}

void QtTextBox::replaceSelection(std::u16string insert, bool limited, bool byCode) {
    QLineEdit* edit = lineEdit();
    if (!edit) return;
    const QString before = edit->text();
    const std::int32_t start = selStart();
    const std::int32_t length = selLength();
    if (limited && maxLength_ > 0) {
        // What would not fit is cut off; a single typed character is refused whole.
        const std::int64_t room = static_cast<std::int64_t>(maxLength_) -
                                  (static_cast<std::int64_t>(before.size()) - length);
        if (room <= 0) return;
        if (static_cast<std::int64_t>(insert.size()) > room) {
            insert.resize(static_cast<std::size_t>(room));
            // Never leave half of a surrogate pair behind.
            if (!insert.empty() && insert.back() >= 0xD800 && insert.back() <= 0xDBFF) {
                insert.pop_back();
            }
        }
    }
    QString after = before;
    after.replace(start, length, toQString(insert));
    if (byCode) updating_ = true;
    if (byCode) {
        edit->setText(after);
    } else {
        // Typing keeps Qt's undo history.
        edit->insert(toQString(insert));
        if (edit->text() != after) edit->setText(after);
    }
    edit->setCursorPosition(start + static_cast<std::int32_t>(insert.size()));
    if (byCode) {
        updating_ = false;
        if (edit->text() != before) {
            WidgetEvent e;
            e.type = WidgetEventType::Change;
            notify(e);
        }
    }
}

void QtTextBox::typeCharacter(char16_t ch) {
    QLineEdit* edit = lineEdit();
    if (!edit || locked()) return;
    if (ch == u'\b') {
        if (edit->hasSelectedText() || edit->cursorPosition() > 0) edit->backspace();
        return;
    }
    // A single line has no line breaks; other control characters insert nothing.
    if (ch < 0x20 || ch == 0x7F) return;
    replaceSelection(std::u16string(1, ch), true, false);
}

bool QtTextBox::keyTyped(QKeyEvent* event, const TypedKey& key) {
    if (!key.hasPress) return key.keyCodeCleared;  // navigation and deletion keys
    if (key.keyAscii == 0) return true;            // swallowed by a KeyPress handler
    QLineEdit* edit = lineEdit();
    if (!edit) return true;
    if (key.keyAscii == key.original) {
        if (event->matches(QKeySequence::Paste)) {
            // Pasted text is cut to MaxLength, as typing is refused past it.
            if (!locked()) {
                replaceSelection(fromQString(QGuiApplication::clipboard()->text()), true, false);
            }
            return true;
        }
        // Backspace, Enter, Escape and the Ctrl shortcuts keep their Qt meaning.
        if (key.original < 0x20) return false;
        if (locked()) return true;
        // The whole text of the key: a character beyond the first plane is two units.
        const QString text = event->text();
        if (text.size() > 1) {
            replaceSelection(fromQString(text), true, false);
        } else {
            typeCharacter(key.original);
        }
        return true;
    }
    typeCharacter(key.keyAscii);
    return true;
}

bool QtTextBox::inputMethodCommitted(QInputMethodEvent* event) {
    QLineEdit* edit = lineEdit();
    const QString commit = event->commitString();
    if (forwarding_ || !edit || commit.isEmpty()) return false;
    // What an input method commits is typed too: one KeyPress per code unit, each of
    // which its handlers may swallow or replace.
    QString accepted;
    for (const QChar c : commit) {
        WidgetEvent press;
        press.type = WidgetEventType::KeyPress;
        press.keyAscii = static_cast<std::int16_t>(c.unicode());
        notifyFromQt(press);
        if (!lineEdit()) return true;
        const auto ch = static_cast<char16_t>(press.keyAscii);
        if (ch >= 0x20 && ch != 0x7F) accepted += QChar(ch);
    }
    if (locked()) accepted.clear();
    if (maxLength_ > 0) {
        const qsizetype room = maxLength_ - (edit->text().size() - edit->selectedText().size());
        if (accepted.size() > room) {
            accepted.truncate(std::max<qsizetype>(0, room));
            if (!accepted.isEmpty() && accepted.back().isHighSurrogate()) accepted.chop(1);
        }
    }
    if (accepted == commit) return false;  // Qt commits it as it is
    QInputMethodEvent changed(event->preeditString(), event->attributes());
    changed.setCommitString(accepted, event->replacementStart(), event->replacementLength());
    forwarding_ = true;
    QApplication::sendEvent(edit, &changed);
    forwarding_ = false;
    return true;
}

void QtTextBox::textChangedByQt() {
    if (updating_) return;
    WidgetEvent e;
    e.type = WidgetEventType::Change;
    notifyFromQt(e);
}

}  // namespace corvex::qt
