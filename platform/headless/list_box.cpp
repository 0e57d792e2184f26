#include "corvex/headless/list_box.h"

#include <algorithm>

#include "corvex/common/error.h"
#include "corvex/headless/host.h"

namespace corvex::headless {

namespace {
// The height of one item row in twips (13 pixels of a 96 dpi screen), where a simulated
// click on an item lands.
constexpr float kItemHeight = 195;
}  // namespace

HeadlessListBox::HeadlessListBox(Site& site, const ListBoxSpec& spec)
    : HeadlessWidget(site, spec),
      model_(spec.sorted, spec.multiSelect),
      integralHeight_(spec.integralHeight) {}

void HeadlessListBox::changedByCode(bool changed) {
    if (!changed) return;
    WidgetEvent e;
    e.type = WidgetEventType::Click;
    emit(e);
}

void HeadlessListBox::addItem(const std::u16string& text, std::int32_t index) {
    model_.add(text, index);
}

void HeadlessListBox::removeItem(std::int32_t i) {
    model_.remove(i);
}

void HeadlessListBox::clear() {
    model_.clear();
}

void HeadlessListBox::setListIndex(std::int32_t i) {
    changedByCode(model_.setCurrent(i));
}

void HeadlessListBox::setSelected(std::int32_t i, bool on) {
    changedByCode(model_.setSelected(i, on));
}

void HeadlessListBox::setColumns(std::int16_t n) {
    if (n < 0) throw Error(err::InvalidPropertyValue);
    columns_ = n;
}

std::u16string HeadlessListBox::text() const {
    const std::int32_t i = model_.current();
    return i < 0 ? std::u16string() : model_.text(i);
}

void HeadlessListBox::setText(const std::u16string& t) {
    const std::int32_t i = model_.find(t);
    if (i >= 0) setListIndex(i);
}

void HeadlessListBox::setHorizontalExtent(std::int32_t pixels) {
    extent_ = std::max(pixels, 0);
}

bool HeadlessListBox::hasHorizontalScrollBar() const {
    return extent_ > width() / static_cast<float>(site().host().twipsPerPixel());
}

void HeadlessListBox::clickItem(std::int32_t i, std::int16_t shift) {
    if (!enabled() || !visible()) return;
    if (i < 0 || i >= listCount())
        throw Error(err::InvalidPropertyArrayIndex, u"Invalid property array index");
    const ScaleMode mode = site().scaleMode();
    const float row = top() + (static_cast<float>(i - topIndex()) + 0.5f) * kItemHeight;
    const float x = site().scaleX(left() + width() / 2, ScaleMode::Twips, mode);
    const float y = site().scaleY(row, ScaleMode::Twips, mode);
    site().form().focus(this);
    mouse(WidgetEventType::MouseDown, mouse::Left, shift, x, y);
    model_.click(i, shift);
    mouse(WidgetEventType::MouseUp, mouse::Left, shift, x, y);
    WidgetEvent e;
    e.type = WidgetEventType::Click;
    emit(e);
}

// --- factory -------------------------------------------------------------------------

std::unique_ptr<ListBox> Site::createListBox(const ListBoxSpec& spec) {
    auto w = std::make_unique<HeadlessListBox>(*this, spec);
    widgets_.push_back(w.get());
    return w;
}

}  // namespace corvex::headless
