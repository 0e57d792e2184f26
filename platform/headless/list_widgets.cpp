#include "corvex/headless/list_widgets.h"

#include "corvex/headless/host.h"

namespace corvex::headless {

HeadlessComboBox::HeadlessComboBox(Site& site, const ComboBoxSpec& spec)
    : HeadlessWidget(site, spec),
      model_(spec.style == ComboStyle::DropDownList, spec.sorted),
      style_(spec.style) {}

void HeadlessComboBox::report(const lists::ComboOutcome& outcome) {
    WidgetEvent e;
    if (outcome.change) {
        e.type = WidgetEventType::Change;
        emit(e);
    }
    if (outcome.click) {
        e = WidgetEvent{};
        e.type = WidgetEventType::Click;
        emit(e);
    }
}

void HeadlessComboBox::addItem(const std::u16string& text, std::int32_t index) {
    model_.add(text, index);
}

void HeadlessComboBox::removeItem(std::int32_t i) {
    model_.remove(i);
}

void HeadlessComboBox::clear() {
    report(model_.clear());
}

void HeadlessComboBox::setList(std::int32_t i, const std::u16string& text) {
    model_.setItem(i, text);
}

void HeadlessComboBox::setItemData(std::int32_t i, std::int32_t data) {
    model_.setItemData(i, data);
}

void HeadlessComboBox::setListIndex(std::int32_t i) {
    report(model_.select(i));
}

void HeadlessComboBox::setText(const std::u16string& text) {
    report(model_.setText(text));
}

void HeadlessComboBox::setSelText(const std::u16string& text) {
    report(model_.setSelText(text));
}

void HeadlessComboBox::pick(std::int32_t i) {
    if (!enabled() || !visible()) return;
    report(model_.pick(i));
}

void HeadlessComboBox::scrollList() {
    if (!enabled() || !visible()) return;
    WidgetEvent e;
    e.type = WidgetEventType::Scroll;
    emit(e);
}

void HeadlessComboBox::characterTyped(char16_t ch) {
    report(model_.type(ch));
}

std::unique_ptr<ComboBox> Site::createComboBox(const ComboBoxSpec& spec) {
    auto w = std::make_unique<HeadlessComboBox>(*this, spec);
    widgets_.push_back(w.get());
    return w;
}

}  // namespace corvex::headless
