#include "corvex/headless/page_widgets.h"

#include "corvex/common/error.h"
#include "corvex/headless/host.h"

namespace corvex::headless {

namespace {
// The host's error for an entry index outside a list.
constexpr std::int32_t kInvalidArrayIndex = 381;
}  // namespace

void HeadlessItemList::addItem(const std::u16string& text, std::int32_t itemData) {
    entries_.emplace_back(text, itemData);
}

void HeadlessItemList::clear() {
    entries_.clear();
    listIndex_ = -1;
}

std::int32_t HeadlessItemList::listCount() const {
    return static_cast<std::int32_t>(entries_.size());
}

const std::pair<std::u16string, std::int32_t>& HeadlessItemList::entry(std::int32_t i) const {
    if (i < 0 || i >= listCount()) {
        throw Error(kInvalidArrayIndex, u"Invalid property array index");
    }
    return entries_[static_cast<std::size_t>(i)];
}

std::u16string HeadlessItemList::list(std::int32_t i) const {
    return entry(i).first;
}

std::int32_t HeadlessItemList::itemData(std::int32_t i) const {
    return entry(i).second;
}

void HeadlessItemList::setListIndex(std::int32_t i) {
    if (i < -1 || i >= listCount()) throw Error(err::InvalidPropertyValue);
    if (i == listIndex_) return;
    listIndex_ = i;
    WidgetEvent e;
    e.type = WidgetEventType::Click;
    emit(e);
}

void HeadlessItemList::pick(std::int32_t i) {
    if (!enabled() || !visible()) return;
    setListIndex(i);
}

// --- factory -------------------------------------------------------------------------

std::unique_ptr<TextLabel> Site::createTextLabel(const WidgetSpec& spec) {
    auto w = std::make_unique<HeadlessTextLabel>(*this, spec);
    widgets_.push_back(w.get());
    return w;
}

std::unique_ptr<ItemList> Site::createItemList(const WidgetSpec& spec) {
    auto w = std::make_unique<HeadlessItemList>(*this, spec);
    widgets_.push_back(w.get());
    return w;
}

}  // namespace corvex::headless
