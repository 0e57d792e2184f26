#include "corvex/headless/option_widgets.h"

#include <algorithm>

#include "corvex/headless/host.h"

namespace corvex::headless {

// --- option button -----------------------------------------------------------------

HeadlessOptionButton::HeadlessOptionButton(Site& site, const OptionButtonSpec& spec)
    : HeadlessWidget(site, spec), container_(spec.container) {}

void HeadlessOptionButton::setValue(bool v) {
    if (v == value_) return;
    value_ = v;
    if (!v) return;
    // The group's other buttons go off silently, as the host's grouping does.
    for (HeadlessWidget* w : site().widgetList()) {
        auto* other = dynamic_cast<HeadlessOptionButton*>(w);
        if (other && other != this && other->container_ == container_) other->value_ = false;
    }
    WidgetEvent e;
    e.type = WidgetEventType::Click;
    emit(e);
}

bool HeadlessOptionButton::clicked() {
    setValue(true);  // raises Click when the button was not selected yet
    return true;
}

void HeadlessOptionButton::keyReleased(std::int16_t keyCode) {
    if (keyCode == key::Space) setValue(true);
}

// --- line ----------------------------------------------------------------------------

HeadlessLine::HeadlessLine(Site& site, const LineSpec& spec)
    : HeadlessWidget(site,
                     [&] {
                         WidgetSpec w;
                         w.name = spec.name;
                         return w;
                     }()),
      x1_(spec.x1),
      y1_(spec.y1),
      x2_(spec.x2),
      y2_(spec.y2),
      borderWidth_(spec.width) {
    setForeColor(spec.color);
    setEnds(x1_, y1_, x2_, y2_);
}

void HeadlessLine::setEnds(float x1, float y1, float x2, float y2) {
    x1_ = x1;
    y1_ = y1;
    x2_ = x2;
    y2_ = y2;
    HeadlessWidget::move(std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1), std::abs(y2 - y1));
}

void HeadlessLine::move(float left, float top, float width, float height) {
    setEnds(left, top, left + width, top + height);
}

// --- option-button array ------------------------------------------------------------

HeadlessOptionButtonArray::HeadlessOptionButtonArray(Site& site, const OptionButtonSpec& spec)
    : site_(site), spec_(spec) {
    spec_.index = 0;
    elements_[0] = std::make_unique<HeadlessOptionButton>(site_, spec_);
    site_.adopt(elements_[0].get());
}

HeadlessOptionButtonArray::~HeadlessOptionButtonArray() {
    // Later elements go first, element 0 last.
    while (!elements_.empty()) elements_.erase(std::prev(elements_.end()));
}

OptionButton& HeadlessOptionButtonArray::element(std::int16_t index) const {
    const auto it = elements_.find(index);
    if (it == elements_.end()) throw Error(err::ControlArrayElementMissing);
    return *it->second;
}

OptionButton& HeadlessOptionButtonArray::create(std::int16_t index) {
    if (index < 0) throw Error(err::ControlArrayElementMissing);
    if (exists(index)) throw Error(err::ElementAlreadyLoaded, u"Object already loaded");
    // A new element is hidden and copies element 0's place, size, look and caption.
    const HeadlessOptionButton& first = *elements_.at(0);
    OptionButtonSpec spec = spec_;
    spec.index = index;
    spec.visible = false;
    spec.left = first.left();
    spec.top = first.top();
    spec.width = first.width();
    spec.height = first.height();
    auto b = std::make_unique<HeadlessOptionButton>(site_, spec);
    b->setBackColor(first.backColor());
    b->setForeColor(first.foreColor());
    b->setFont(first.font());
    b->setEnabled(first.enabled());
    b->setCaption(first.caption());
    site_.adopt(b.get());
    return *(elements_[index] = std::move(b));
}

void HeadlessOptionButtonArray::remove(std::int16_t index) {
    if (index == 0) {
        throw Error(err::CannotUnloadElement, u"Can't unload controls created at design time");
    }
    if (elements_.erase(index) == 0) throw Error(err::ControlArrayElementMissing);
}

}  // namespace corvex::headless
