#include "corvex/headless/widgets.h"

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

void HeadlessWidget::dropFiles(std::vector<std::u16string> files) {
    if (!enabled_ || !visible_) return;
    WidgetEvent e;
    e.type = WidgetEventType::FilesDropped;
    e.files = std::move(files);
    emit(e);
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
    PressedKey pressed;
    pressed.pressedCode = keyCode;
    pressed.pressedShift = shift;
    pressed.keyCode = down.keyCode;
    pressed.keyCodeCleared = keyCode != 0 && down.keyCode == 0;
    // Ctrl with a letter types its control character, which KeyPress reports.
    if (const char16_t ch = controlCharacterOf(keyCode, shift); ch != 0) {
        WidgetEvent press;
        press.type = WidgetEventType::KeyPress;
        press.keyAscii = static_cast<std::int16_t>(ch);
        emit(press);
        pressed.hasPress = true;
        pressed.original = ch;
        pressed.keyAscii = static_cast<char16_t>(press.keyAscii);
    }
    keyPressedDown(pressed);
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
      model_(spec.multiLine),
      alignment_(spec.alignment),
      scrollBars_(spec.scrollBars),
      nativeClipboard_(spec.nativeClipboard) {}

void HeadlessTextBox::keyPressedDown(const PressedKey& key) {
    const ClipboardKey clip = clipboardKeyOf(key.pressedCode, key.pressedShift);
    if (clip == ClipboardKey::None) {
        // A KeyPress handler that turned a Ctrl+letter into another character typed it.
        if (key.hasPress && key.keyAscii != key.original && key.keyAscii != 0) {
            characterTyped(key.keyAscii);
        }
        return;
    }
    switch (clipboardKeyEffect(nativeClipboard_, key.keyCodeCleared, key.hasPress, key.original,
                               key.keyAscii)) {
        case ClipboardKeyEffect::Nothing:
            return;
        case ClipboardKeyEffect::TypeInstead:
            if (key.keyAscii != 0) characterTyped(key.keyAscii);
            return;
        case ClipboardKeyEffect::Act:
            break;
    }
    Clipboard& clipboard = site().host();
    if (clip == ClipboardKey::Paste) {
        changed(model_.paste(clipboard.text()));
        return;
    }
    if (model_.selLength() > 0) clipboard.setText(model_.selText());
    if (clip == ClipboardKey::Cut) changed(model_.deleteSelection());
}

void HeadlessTextBox::changed(bool textChanged) {
    if (!textChanged) return;
    WidgetEvent e;
    e.type = WidgetEventType::Change;
    emit(e);
}

void HeadlessTextBox::setText(const std::u16string& t) {
    changed(model_.setText(t));
}

void HeadlessTextBox::setSelStart(std::int32_t s) {
    model_.setSelStart(s);
}

void HeadlessTextBox::setSelLength(std::int32_t n) {
    model_.setSelLength(n);
}

void HeadlessTextBox::setSelText(const std::u16string& t) {
    changed(model_.replaceSelection(t, true));
}

void HeadlessTextBox::characterTyped(char16_t ch) {
    changed(model_.type(ch));
}

}  // namespace corvex::headless
