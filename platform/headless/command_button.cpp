#include "corvex/headless/command_button.h"

#include "corvex/common/error.h"
#include "corvex/headless/host.h"

namespace corvex::headless {

void HeadlessCommandButton::keyReleased(std::int16_t keyCode) {
    if (keyCode != key::Space) return;
    WidgetEvent e;
    e.type = WidgetEventType::Click;
    emit(e);
}

// --- array ---------------------------------------------------------------------------

HeadlessCommandButtonArray::HeadlessCommandButtonArray(Site& site, const WidgetSpec& spec)
    : site_(site), spec_(spec) {
    spec_.index = 0;
    elements_[0] = std::make_unique<HeadlessCommandButton>(site_, spec_);
    site_.adopt(elements_[0].get());
}

HeadlessCommandButtonArray::~HeadlessCommandButtonArray() {
    // Later elements go first, element 0 last.
    while (!elements_.empty()) elements_.erase(std::prev(elements_.end()));
}

CommandButton& HeadlessCommandButtonArray::element(std::int16_t index) const {
    const auto it = elements_.find(index);
    if (it == elements_.end()) throw Error(err::ControlArrayElementMissing);
    return *it->second;
}

CommandButton& HeadlessCommandButtonArray::create(std::int16_t index) {
    if (index < 0) throw Error(err::ControlArrayElementMissing);
    if (exists(index)) throw Error(err::ElementAlreadyLoaded, u"Object already loaded");
    // A new element is hidden and copies element 0's place, size, look and caption.
    const HeadlessCommandButton& first = *elements_.at(0);
    WidgetSpec spec = spec_;
    spec.index = index;
    spec.visible = false;
    spec.left = first.left();
    spec.top = first.top();
    spec.width = first.width();
    spec.height = first.height();
    auto b = std::make_unique<HeadlessCommandButton>(site_, spec);
    b->setBackColor(first.backColor());
    b->setForeColor(first.foreColor());
    b->setFont(first.font());
    b->setEnabled(first.enabled());
    b->setCaption(first.caption());
    site_.adopt(b.get());
    return *(elements_[index] = std::move(b));
}

void HeadlessCommandButtonArray::remove(std::int16_t index) {
    if (index == 0) {
        throw Error(err::CannotUnloadElement, u"Can't unload controls created at design time");
    }
    if (elements_.erase(index) == 0) throw Error(err::ControlArrayElementMissing);
}

// --- factory -------------------------------------------------------------------------

std::unique_ptr<CommandButton> Site::createCommandButton(const WidgetSpec& spec) {
    auto w = std::make_unique<HeadlessCommandButton>(*this, spec);
    widgets_.push_back(w.get());
    return w;
}

std::unique_ptr<ControlArray<CommandButton>> Site::createCommandButtonArray(
    const WidgetSpec& spec) {
    return std::make_unique<HeadlessCommandButtonArray>(*this, spec);
}

}  // namespace corvex::headless
