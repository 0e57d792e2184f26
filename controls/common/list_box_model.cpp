#include "corvex/common/list_box_model.h"

#include <algorithm>

#include "corvex/common/error.h"
#include "corvex/common/text.h"
#include "corvex/platform/list_box.h"

namespace corvex {

namespace {
char16_t folded(char16_t c) {
    return (c >= u'A' && c <= u'Z') ? static_cast<char16_t>(c - u'A' + u'a') : c;
}

Error badIndex() {
    return Error(err::InvalidPropertyArrayIndex, u"Invalid property array index");
}
}  // namespace

bool listSortsBefore(std::u16string_view a, std::u16string_view b) {
    return std::lexicographical_compare(
        a.begin(), a.end(), b.begin(), b.end(),
        [](char16_t x, char16_t y) { return folded(x) < folded(y); });
}

ListBoxModel::ListBoxModel(bool sorted, std::int16_t multiSelect)
    : sorted_(sorted), multiSelect_(multiSelect) {}

const ListBoxModel::Item& ListBoxModel::item(std::int32_t i) const {
    if (i < 0 || i >= count()) throw badIndex();
    return items_[static_cast<std::size_t>(i)];
}

ListBoxModel::Item& ListBoxModel::item(std::int32_t i) {
    if (i < 0 || i >= count()) throw badIndex();
    return items_[static_cast<std::size_t>(i)];
}

std::int32_t ListBoxModel::add(const std::u16string& text, std::int32_t index) {
    if (index < -1 || index > count()) throw Error(err::InvalidProcedureCall);
    std::int32_t at = index;
    if (at == -1) {
        // A sorted list puts the text after every text that does not sort after it.
        const auto it = sorted_ ? std::upper_bound(items_.begin(), items_.end(), text,
                                                   [](const std::u16string& t, const Item& x) {
                                                       return listSortsBefore(t, x.text);
                                                   })
                                : items_.end();
        at = static_cast<std::int32_t>(it - items_.begin());
    }
    items_.insert(items_.begin() + at, Item{text, 0, false});
    if (current_ >= at) ++current_;
    if (anchor_ >= at) ++anchor_;
    newIndex_ = at;
    return at;
}

bool ListBoxModel::remove(std::int32_t i) {
    if (i < 0 || i >= count()) throw Error(err::InvalidProcedureCall);
    const bool wasSelected = items_[static_cast<std::size_t>(i)].selected;
    items_.erase(items_.begin() + i);
    newIndex_ = -1;
    bool changed = wasSelected;
    if (current_ == i) {
        current_ = -1;
        changed = true;
    } else if (current_ > i) {
        --current_;
    }
    if (anchor_ == i) anchor_ = -1;
    if (anchor_ > i) --anchor_;
    if (topIndex_ >= count()) topIndex_ = std::max(count() - 1, 0);
    return changed;
}

bool ListBoxModel::clear() {
    const bool changed = current_ != -1 || selCount() != 0;
    items_.clear();
    current_ = anchor_ = newIndex_ = -1;
    topIndex_ = 0;
    return changed;
}

const std::u16string& ListBoxModel::text(std::int32_t i) const {
    return item(i).text;
}

void ListBoxModel::setText(std::int32_t i, const std::u16string& t) {
    item(i).text = t;
}

std::int32_t ListBoxModel::data(std::int32_t i) const {
    return item(i).data;
}

void ListBoxModel::setData(std::int32_t i, std::int32_t v) {
    item(i).data = v;
}

bool ListBoxModel::selectOnly(std::int32_t i) {
    bool changed = current_ != i;
    for (std::int32_t k = 0; k < count(); ++k) {
        Item& x = items_[static_cast<std::size_t>(k)];
        if (x.selected != (k == i)) changed = true;
        x.selected = k == i;
    }
    current_ = anchor_ = i;
    return changed;
}

bool ListBoxModel::setCurrent(std::int32_t i) {
    if (i < -1 || i >= count()) throw Error(err::InvalidPropertyValue);
    if (multiSelect_ != multiselect::Simple) return selectOnly(i);
    // Simple mode moves the focus only: the selection is the user's to toggle.
    const bool changed = current_ != i;
    current_ = anchor_ = i;
    return changed;
}

bool ListBoxModel::selected(std::int32_t i) const {
    return item(i).selected;
}

bool ListBoxModel::setSelected(std::int32_t i, bool on) {
    Item& x = item(i);
    if (multiSelect_ == multiselect::None) {
        if (on) return selectOnly(i);
        if (!x.selected) return false;
        return selectOnly(-1);
    }
    if (x.selected == on) return false;
    x.selected = on;
    return true;
}

std::int32_t ListBoxModel::selCount() const {
    return static_cast<std::int32_t>(
        std::count_if(items_.begin(), items_.end(), [](const Item& x) { return x.selected; }));
}

bool ListBoxModel::click(std::int32_t i, std::int16_t shift) {
    Item& x = item(i);
    if (multiSelect_ == multiselect::None) return selectOnly(i);
    if (multiSelect_ == multiselect::Simple) {
        x.selected = !x.selected;
        current_ = anchor_ = i;
        return true;
    }
    // Extended: Ctrl toggles one item, Shift selects the range from the anchor.
    if (shift & key::CtrlMask) {
        x.selected = !x.selected;
        current_ = anchor_ = i;
        return true;
    }
    if ((shift & key::ShiftMask) && anchor_ >= 0) {
        const auto [lo, hi] = std::minmax(anchor_, i);
        bool changed = current_ != i;
        for (std::int32_t k = 0; k < count(); ++k) {
            Item& y = items_[static_cast<std::size_t>(k)];
            const bool on = k >= lo && k <= hi;
            if (y.selected != on) changed = true;
            y.selected = on;
        }
        current_ = i;
        return changed;
    }
    return selectOnly(i);
}

bool ListBoxModel::adopt(std::int32_t current, const std::vector<bool>& selection) {
    bool changed = current != current_;
    current_ = current;
    for (std::size_t k = 0; k < items_.size() && k < selection.size(); ++k) {
        if (items_[k].selected != selection[k]) changed = true;
        items_[k].selected = selection[k];
    }
    return changed;
}

void ListBoxModel::setTopIndex(std::int32_t i) {
    if (i < 0 || (i >= count() && i != 0)) throw Error(err::InvalidPropertyValue);
    topIndex_ = i;
}

std::int32_t ListBoxModel::find(const std::u16string& t) const {
    for (std::int32_t k = 0; k < count(); ++k) {
        if (equalsIgnoringCase(items_[static_cast<std::size_t>(k)].text, t)) return k;
    }
    return -1;
}

}  // namespace corvex
