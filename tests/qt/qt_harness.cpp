#include "qt_harness.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QPointer>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>
#include <cmath>
#include <stdexcept>

#include "corvex/qt/convert.h"
#include "corvex/qt/form_window.h"
#include "corvex/qt/widgets.h"

namespace corvex::testing {

using qt::fromQString;
using qt::toQString;

std::vector<std::u16string> eventNames(const std::vector<SeenEvent>& events) {
    std::vector<std::u16string> names;
    for (const auto& e : events) names.push_back(e.name);
    return names;
}

std::vector<HarnessMaker> availableHarnesses() {
    return {{"Qt", [] { return std::make_unique<QtHarness>(); }}};
}

namespace {

// The Qt key of a host key code (the inverse of qt::virtualKeyCode), with the keypad
// modifier for the keypad's own keys.
std::pair<int, Qt::KeyboardModifiers> qtKeyOf(std::int16_t code) {
    if (code >= 'A' && code <= 'Z') return {Qt::Key_A + (code - 'A'), Qt::NoModifier};
    if (code >= '0' && code <= '9') return {Qt::Key_0 + (code - '0'), Qt::NoModifier};
    if (code >= 96 && code <= 105) return {Qt::Key_0 + (code - 96), Qt::KeypadModifier};
    if (code >= 112 && code <= 135) return {Qt::Key_F1 + (code - 112), Qt::NoModifier};
    switch (code) {
        case 8:
            return {Qt::Key_Backspace, Qt::NoModifier};
        case 9:
            return {Qt::Key_Tab, Qt::NoModifier};
        case 13:
            return {Qt::Key_Return, Qt::NoModifier};
        case 16:
            return {Qt::Key_Shift, Qt::NoModifier};
        case 17:
            return {Qt::Key_Control, Qt::NoModifier};
        case 18:
            return {Qt::Key_Alt, Qt::NoModifier};
        case 19:
            return {Qt::Key_Pause, Qt::NoModifier};
        case 20:
            return {Qt::Key_CapsLock, Qt::NoModifier};
        case 27:
            return {Qt::Key_Escape, Qt::NoModifier};
        case 32:
            return {Qt::Key_Space, Qt::NoModifier};
        case 33:
            return {Qt::Key_PageUp, Qt::NoModifier};
        case 34:
            return {Qt::Key_PageDown, Qt::NoModifier};
        case 35:
            return {Qt::Key_End, Qt::NoModifier};
        case 36:
            return {Qt::Key_Home, Qt::NoModifier};
        case 37:
            return {Qt::Key_Left, Qt::NoModifier};
        case 38:
            return {Qt::Key_Up, Qt::NoModifier};
        case 39:
            return {Qt::Key_Right, Qt::NoModifier};
        case 40:
            return {Qt::Key_Down, Qt::NoModifier};
        case 45:
            return {Qt::Key_Insert, Qt::NoModifier};
        case 46:
            return {Qt::Key_Delete, Qt::NoModifier};
        case 106:
            return {Qt::Key_Asterisk, Qt::KeypadModifier};
        case 107:
            return {Qt::Key_Plus, Qt::KeypadModifier};
        case 109:
            return {Qt::Key_Minus, Qt::KeypadModifier};
        case 110:
            return {Qt::Key_Period, Qt::KeypadModifier};
        case 111:
            return {Qt::Key_Slash, Qt::KeypadModifier};
        case 186:
            return {Qt::Key_Semicolon, Qt::NoModifier};
        case 187:
            return {Qt::Key_Equal, Qt::NoModifier};
        case 188:
            return {Qt::Key_Comma, Qt::NoModifier};
        case 189:
            return {Qt::Key_Minus, Qt::NoModifier};
        case 190:
            return {Qt::Key_Period, Qt::NoModifier};
        case 191:
            return {Qt::Key_Slash, Qt::NoModifier};
        case 192:
            return {Qt::Key_QuoteLeft, Qt::NoModifier};
        case 219:
            return {Qt::Key_BracketLeft, Qt::NoModifier};
        case 220:
            return {Qt::Key_Backslash, Qt::NoModifier};
        case 221:
            return {Qt::Key_BracketRight, Qt::NoModifier};
        case 222:
            return {Qt::Key_Apostrophe, Qt::NoModifier};
        default:
            throw std::invalid_argument("no Qt key for this key code");
    }
}

Qt::KeyboardModifiers modifiersOf(std::int16_t shift) {
    Qt::KeyboardModifiers m;
    if (shift & key::ShiftMask) m |= Qt::ShiftModifier;
    if (shift & key::CtrlMask) m |= Qt::ControlModifier;
    if (shift & key::AltMask) m |= Qt::AltModifier;
    return m;
}

// Whether an ASCII character is typed with Shift on a US keyboard.
bool shifted(char16_t ch) {
    if (ch >= u'A' && ch <= u'Z') return true;
    return std::u16string_view(u")!@#$%^&*(:+<_>?~{|}\"").find(ch) != std::u16string_view::npos;
}

// One key going down and up, delivered as the window system delivers it (QTest's
// spontaneous key events, shortcut override first). The modifiers travel on the key
// itself: the modifier keys' own KeyDown and KeyUp are no part of a keystroke here, as in
// the other hosts.
void keyStroke(QWidget* target, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    QPointer<QWidget> w = target;
    QTest::simulateEvent(w, true, key, modifiers, text, false);
    if (w) QTest::simulateEvent(w, false, key, modifiers, text, false);
}

}  // namespace

QtHarness::QtHarness() : window_(std::make_unique<QWidget>()) {
    window_->setWindowTitle(QStringLiteral("Corvex harness"));
    window_->resize(420, 300);
    form_ = std::make_unique<qt::QtForm>(host_, window_.get());
    host_.setMessageBoxHandler([this](const MessageBoxRequest& request) {
        boxes_.push_back(request);
        if (answers_.empty()) return std::int32_t{1};  // OK, as a user dismissing it would
        const std::int32_t answer = answers_.front();
        answers_.pop_front();
        return answer;
    });
    // Shown and active, so that a click moves the focus as it does for a user.
    window_->show();
    [[maybe_unused]] const bool exposed = QTest::qWaitForWindowExposed(window_.get());
    QApplication::setActiveWindow(window_.get());
    window_->activateWindow();
    [[maybe_unused]] const bool active = QTest::qWaitForWindowActive(window_.get());
}

QtHarness::~QtHarness() {
    // The controls go first, while the records they may still write to exist.
    form_.reset();
    window_.reset();
    host_.setMessageBoxHandler({});
}

qt::QtControlHost& QtHarness::surface(const std::u16string& control) const {
    qt::QtControlHost* s = form_->find(toQString(control));
    if (!s) throw std::runtime_error("no such control on the form");
    return *s;
}

qt::QtWidget& QtHarness::innerWidget(const std::u16string& control, const std::u16string& name,
                                     std::int16_t index) const {
    qt::QtWidget* w = surface(control).findInnerWidget(name, index);
    if (!w) throw std::runtime_error("no such widget");
    return *w;
}

QtHarness::Records& QtHarness::records(const std::u16string& control) {
    surface(control);  // throws for an unknown control
    return records_[control];
}

qt::QtControlHost& QtHarness::place(const ClassInfo& cls, const std::u16string& name) {
    qt::QtControlHost* s = form_->addControl(cls, toQString(name), window_.get());
    records_[name] = Records{};
    QObject::connect(s, &qt::QtControlHost::eventRaised, s,
                     [this, name](const QString&, qt::EventArgs& args) {
                         Records& r = records_[name];
                         const std::u16string event = args.event().name;
                         if (r.handler) r.handler(event, args.variants());
                         const std::span<Variant> values = args.variants();
                         r.events.push_back({event, {values.begin(), values.end()}});
                     });
    QObject::connect(s, &qt::QtControlHost::propertyChanged, s,
                     [this, name](const QString& property) {
                         records_[name].changes.push_back(fromQString(property));
                     });
    return *s;
}

void QtHarness::showPlaced(qt::QtControlHost& s) {
    // One control under the other, at the class's default size.
    s.move(8, nextTop_);
    nextTop_ += s.height() + 8;
    window_->resize(std::max(window_->width(), s.width() + 16),
                    std::max(window_->height(), nextTop_));
    s.show();
}

Control& QtHarness::add(const ClassInfo& cls, const std::u16string& name) {
    qt::QtControlHost& s = place(cls, name);
    s.initNew();
    showPlaced(s);
    return s.control();
}

Control& QtHarness::load(const ClassInfo& cls, const std::u16string& name, PropertyBag& bag) {
    qt::QtControlHost& s = place(cls, name);
    try {
        s.load(bag);
    } catch (...) {
        // A control that fails to load is not placed on the form.
        delete &s;
        records_.erase(name);
        throw;
    }
    showPlaced(s);
    return s.control();
}

Widget& QtHarness::widget(const std::u16string& control, const std::u16string& name,
                          std::int16_t index) {
    return innerWidget(control, name, index);
}

// Where a user clicks a widget: its middle, unless that misses what takes the click (a
// check or option box takes it on its box and caption only, and a wide box with a short
// caption has nothing in its middle).
static QPoint clickPoint(const QWidget& target) {
    const QPoint middle = target.rect().center();
    const bool check = qobject_cast<const QCheckBox*>(&target) != nullptr;
    if (!check && !qobject_cast<const QRadioButton*>(&target)) return middle;
    QStyleOptionButton option;
    option.initFrom(&target);
    const auto& button = static_cast<const QAbstractButton&>(target);
    option.text = button.text();
    option.icon = button.icon();
    option.iconSize = button.iconSize();
    const QRect hit = target.style()->subElementRect(
        check ? QStyle::SE_CheckBoxClickRect : QStyle::SE_RadioButtonClickRect, &option, &target);
    return hit.isEmpty() || hit.contains(middle) ? middle : hit.center();
}

void QtHarness::click(const std::u16string& control, const std::u16string& name,
                      std::int16_t index) {
    QWidget* target = innerWidget(control, name, index).mouseWidget();
    if (!target) throw std::runtime_error("the widget is gone");
    // Nobody can click what is not on the screen.
    if (!target->isVisible()) return;
    if (QApplication::activeWindow() != window_.get()) {
        QApplication::setActiveWindow(window_.get());
        [[maybe_unused]] const bool active = QTest::qWaitForWindowActive(window_.get());
    }
    QTest::mouseClick(target, Qt::LeftButton, Qt::NoModifier, clickPoint(*target));
}

qt::QtWidget& QtHarness::keyTarget(const std::u16string& control) const {
    const std::vector<qt::QtWidget*> widgets = surface(control).innerWidgets();
    for (qt::QtWidget* w : widgets) {
        if (w->hasFocus()) return *w;
    }
    for (qt::QtWidget* w : widgets) {
        if (dynamic_cast<qt::QtTextBox*>(w)) return *w;
    }
    if (widgets.empty()) throw std::runtime_error("the control has no widget to type into");
    return *widgets.front();
}

void QtHarness::typeText(const std::u16string& control, const std::u16string& text) {
    typeInto(keyTarget(control), text);
}

void QtHarness::typeInto(Widget& widget, const std::u16string& text) {
    QPointer<QWidget> target = dynamic_cast<qt::QtWidget&>(widget).qtWidget();
    for (std::size_t i = 0; i < text.size() && target; ++i) {
        const char16_t ch = text[i];
        if (ch >= 0x80) {
            // Beyond the keyboard's own characters, text comes from the input method.
            std::size_t end = i + 1;
            while (end < text.size() && text[end] >= 0x80) ++end;
            QInputMethodEvent commit;
            commit.setCommitString(toQString(std::u16string_view(text).substr(i, end - i)));
            QApplication::sendEvent(target, &commit);
            i = end - 1;
            continue;
        }
        int key = 0;
        Qt::KeyboardModifiers modifiers;
        switch (ch) {
            case u'\b':
                key = Qt::Key_Backspace;
                break;
            case u'\r':
                key = Qt::Key_Return;
                break;
            case u'\n':
                // The Enter key typing a line feed, as some platforms have Ctrl+Enter do;
                // the other hosts type it with no modifier held.
                key = Qt::Key_Return;
                break;
            case u'\t':
                key = Qt::Key_Tab;
                break;
            default:
                // Qt's key for a printable ASCII character is its (upper-case) code.
                key = (ch >= u'a' && ch <= u'z') ? ch - 32 : ch;
                if (shifted(ch)) modifiers = Qt::ShiftModifier;
                break;
        }
        keyStroke(target, key, modifiers, QString(QChar(ch)));
    }
}

void QtHarness::pressKey(const std::u16string& control, std::int16_t keyCode, std::int16_t shift) {
    pressKeyOn(keyTarget(control), keyCode, shift);
}

FormWindow* QtHarness::formWindow(const std::u16string& name) {
    return host_.formWindows().find(name);
}

bool QtHarness::windowShown(FormWindow& window) {
    return dynamic_cast<qt::QtFormWindow&>(window).surface().isVisible();
}

void QtHarness::userResize(FormWindow& window, float width, float height) {
    qt::QtControlHost& w = dynamic_cast<qt::QtFormWindow&>(window).surface();
    const QSize size(static_cast<int>(std::lround(width / w.twipsPerPixelX())),
                     static_cast<int>(std::lround(height / w.twipsPerPixelY())));
    // As a drag of the frame: the window system gives the new size to the widget.
    w.resize(size);
    if (!QTest::qWaitFor([&] { return w.size() == size; }, 10000))
        throw std::runtime_error("the window did not take its new size");
}

void QtHarness::userClose(FormWindow& window) {
    // The close box sends the window a close event, as QWidget::close does; the Qt window
    // goes once that event is delivered.
    QPointer<QWidget> closed(&dynamic_cast<qt::QtFormWindow&>(window).surface());
    closed->close();
    if (!QTest::qWaitFor([&] { return closed.isNull(); }, 10000))
        throw std::runtime_error("the closed window was not deleted");
}

void QtHarness::pressKeyOn(Widget& widget, std::int16_t keyCode, std::int16_t shift) {
    QWidget* target = dynamic_cast<qt::QtWidget&>(widget).qtWidget();
    auto [key, keypad] = qtKeyOf(keyCode);
    const Qt::KeyboardModifiers modifiers = modifiersOf(shift) | keypad;
    // The one character a key without its own carries: Ctrl with a letter gives its
    // control character, as the window systems deliver it.
    QString text;
    if ((modifiers & Qt::ControlModifier) && !(modifiers & Qt::AltModifier) && key >= Qt::Key_A &&
        key <= Qt::Key_Z) {
        text = QChar(static_cast<char16_t>(key - Qt::Key_A + 1));
    }
    keyStroke(target, key, modifiers, text);
}

void QtHarness::setClipboardText(const std::u16string& text) {
    QGuiApplication::clipboard()->setText(toQString(text));
}

std::u16string QtHarness::clipboardText() {
    return fromQString(QGuiApplication::clipboard()->text());
}

void QtHarness::resize(const std::u16string& control, float width, float height) {
    qt::QtControlHost& s = surface(control);
    s.resize(static_cast<int>(std::lround(width / s.twipsPerPixelX())),
             static_cast<int>(std::lround(height / s.twipsPerPixelY())));
}

void QtHarness::setScaleMode(const std::u16string& control, ScaleMode mode) {
    surface(control).setScaleMode(mode);
}

std::vector<std::u16string> QtHarness::changes(const std::u16string& control) {
    return records(control).changes;
}

std::vector<SeenEvent> QtHarness::events(const std::u16string& control) {
    return records(control).events;
}

void QtHarness::clearRecords(const std::u16string& control) {
    Records& r = records(control);
    r.changes.clear();
    r.events.clear();
}

void QtHarness::setEventHandler(const std::u16string& control,
                                std::function<void(const std::u16string&, std::span<Variant>)> h) {
    records(control).handler = std::move(h);
}

std::vector<MessageBoxRequest> QtHarness::messageBoxes() {
    return boxes_;
}

void QtHarness::queueAnswer(std::int32_t answer) {
    answers_.push_back(answer);
}

}  // namespace corvex::testing
