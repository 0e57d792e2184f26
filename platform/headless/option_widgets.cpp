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

}  // namespace corvex::headless
