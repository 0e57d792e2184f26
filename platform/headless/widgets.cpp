#include "corvex/headless/widgets.h"

#include <algorithm>

#include "corvex/headless/host.h"

namespace corvex::headless {

HeadlessWidget::HeadlessWidget(Site& site, const WidgetSpec& spec)
    : site_(site),
      name_(spec.name),
      index_(spec.index),
      listener_(spec.listener),
      left_(spec.left),
      top_(spec.top),
      width_(spec.width),
      height_(spec.height),
      visible_(spec.visible),
      font_(site.host().font()) {}

HeadlessWidget::~HeadlessWidget() {
    site_.forget(this);
}

void HeadlessWidget::move(float left, float top, float width, float height) {
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
}

void HeadlessWidget::setFocus() {
    // Called by a control's code: the host tells who took the focus, so that a box
    // that keeps the focus after a failed check shows in a script's output.
    site_.form().focus(this);
    if (auto* o = site_.host().observer()) o->focusTaken(site_);
}

bool HeadlessWidget::hasFocus() const {
    return site_.form().focused() == this;
}

void HeadlessWidget::emit(WidgetEvent& event) {
    if (listener_) listener_->widgetEvent(*this, event);
}

void HeadlessWidget::mouse(WidgetEventType type, std::int16_t button, std::int16_t shift, float x,
                           float y) {
    WidgetEvent e;
    e.type = type;
    e.button = button;
    e.shift = shift;
    e.x = x;
    e.y = y;
    emit(e);
}

void HeadlessWidget::click() {
    if (!enabled_ || !visible_) return;
    const ScaleMode mode = site_.scaleMode();
    const float x = site_.scaleX(left_ + width_ / 2, ScaleMode::Twips, mode);
    const float y = site_.scaleY(top_ + height_ / 2, ScaleMode::Twips, mode);
    site_.form().focus(this);
    mouse(WidgetEventType::MouseDown, mouse::Left, 0, x, y);
    mouse(WidgetEventType::MouseUp, mouse::Left, 0, x, y);
    if (!clicked()) {
        WidgetEvent e;
        e.type = WidgetEventType::Click;
        emit(e);
    }
}

void HeadlessWidget::doubleClick() {
    if (!enabled_ || !visible_) return;
    click();
    WidgetEvent e;
    e.type = WidgetEventType::DblClick;
    emit(e);
}

void HeadlessWidget::type(char16_t ch) {
    if (!enabled_) return;
    const KeyStroke k = keyStrokeFor(ch);
    WidgetEvent down;
    down.type = WidgetEventType::KeyDown;
    down.keyCode = k.keyCode;
    down.shift = k.shift;
    emit(down);
    WidgetEvent press;
    press.type = WidgetEventType::KeyPress;
    press.keyAscii = static_cast<std::int16_t>(ch);
    emit(press);
    // A handler that set KeyAscii to 0 swallowed the key; one that changed it typed another.
    if (press.keyAscii != 0) characterTyped(static_cast<char16_t>(press.keyAscii));
    WidgetEvent up;
    up.type = WidgetEventType::KeyUp;
    up.keyCode = k.keyCode;
    up.shift = k.shift;
    emit(up);
    keyReleased(up.keyCode);
}

void HeadlessWidget::pressKey(std::int16_t keyCode, std::int16_t shift) {
    if (!enabled_) return;
    WidgetEvent down;
    down.type = WidgetEventType::KeyDown;
    down.keyCode = keyCode;
    down.shift = shift;
    emit(down);
    keyPressedDown(down.keyCode, down.shift);
    WidgetEvent up;
    up.type = WidgetEventType::KeyUp;
    up.keyCode = keyCode;
    up.shift = shift;
    emit(up);
    keyReleased(up.keyCode);
}

// --- check box ---------------------------------------------------------------------

void HeadlessCheckBox::setValue(std::int16_t v) {
    if (v == value_) return;
    value_ = v;
    WidgetEvent e;
    e.type = WidgetEventType::Click;
    emit(e);
}

void HeadlessCheckBox::toggle() {
    setValue(value_ == 1 ? 0 : 1);
}

bool HeadlessCheckBox::clicked() {
    toggle();  // raises Click through setValue
    return true;
}

void HeadlessCheckBox::keyReleased(std::int16_t keyCode) {
    if (keyCode == key::Space) toggle();
}

// --- text box ----------------------------------------------------------------------

HeadlessTextBox::HeadlessTextBox(Site& site, const TextBoxSpec& spec)
    : HeadlessWidget(site, spec),
      alignment_(spec.alignment),
      multiLine_(spec.multiLine),
      scrollBars_(spec.scrollBars),
      nativeClipboard_(spec.nativeClipboard) {}

void HeadlessTextBox::keyPressedDown(std::int16_t keyCode, std::int16_t shift) {
    if (!nativeClipboard_ || (shift & key::CtrlMask) == 0) return;
    Clipboard& clipboard = site().host();
    if (keyCode == 'C' || keyCode == 'X') {
        if (selLength_ > 0) clipboard.setText(selText());
        if (keyCode == 'X' && !locked_) replaceSelection(u"", false);
    } else if (keyCode == 'V' && !locked_) {
        replaceSelection(clipboard.text(), true);
    }
}

void HeadlessTextBox::changed(const std::u16string& before) {
    if (text_ == before) return;
    WidgetEvent e;
    e.type = WidgetEventType::Change;
    emit(e);
}

void HeadlessTextBox::setText(const std::u16string& t) {
    const std::u16string before = text_;
    text_ = t;
    selStart_ = 0;
    selLength_ = 0;
    changed(before);
}

void HeadlessTextBox::setSelStart(std::int32_t s) {
    const auto len = static_cast<std::int32_t>(text_.size());
    selStart_ = std::clamp(s, 0, len);
    selLength_ = 0;
}

void HeadlessTextBox::setSelLength(std::int32_t n) {
    const auto len = static_cast<std::int32_t>(text_.size());
    selLength_ = std::clamp(n, 0, len - selStart_);
}

std::u16string HeadlessTextBox::selText() const {
    return text_.substr(static_cast<std::size_t>(selStart_), static_cast<std::size_t>(selLength_));
}

void HeadlessTextBox::replaceSelection(std::u16string insert, bool limited) {
    if (limited && maxLength_ > 0 && !insert.empty()) {
        // What would not fit is cut off; a single typed character is refused whole, and so
        // is a line break that would lose its line feed.
        const auto room = static_cast<std::int64_t>(maxLength_) -
                          (static_cast<std::int64_t>(text_.size()) - selLength_);
        if (room <= 0) return;
        if (static_cast<std::int64_t>(insert.size()) > room && room >= 1 &&
            insert[static_cast<std::size_t>(room - 1)] == u'\r' &&
            insert[static_cast<std::size_t>(room)] == u'\n') {
            insert.resize(static_cast<std::size_t>(room - 1));
            if (insert.empty()) return;
        }
        if (static_cast<std::int64_t>(insert.size()) > room) {
            insert.resize(static_cast<std::size_t>(room));
            // Never leave half of a surrogate pair behind.
            if (!insert.empty() && insert.back() >= 0xD800 && insert.back() <= 0xDBFF) {
                insert.pop_back();
            }
        }
    }
    const std::u16string before = text_;
    text_.replace(static_cast<std::size_t>(selStart_), static_cast<std::size_t>(selLength_),
                  insert);
    selStart_ += static_cast<std::int32_t>(insert.size());
    selLength_ = 0;
    changed(before);
}

void HeadlessTextBox::setSelText(const std::u16string& t) {
    replaceSelection(t, true);
}

void HeadlessTextBox::characterTyped(char16_t ch) {
    if (locked_) return;
    if (ch == u'\b') {
        if (selLength_ == 0) {
            if (selStart_ == 0) return;
            --selStart_;
            selLength_ = 1;
            // Backspace removes a whole surrogate pair.
            if (selStart_ > 0 && text_[selStart_] >= 0xDC00 && text_[selStart_] <= 0xDFFF &&
                text_[selStart_ - 1] >= 0xD800 && text_[selStart_ - 1] <= 0xDBFF) {
                --selStart_;
                selLength_ = 2;
            }
        }
        replaceSelection(u"", false);
        return;
    }
    if (ch == u'\r') {
        if (multiLine_) replaceSelection(u"\r\n", true);
        return;
    }
    if (ch < 0x20 || ch == 0x7F) return;  // other control characters insert nothing
    replaceSelection(std::u16string(1, ch), true);
}

}  // namespace corvex::headless
