#include "corvex/lists/combo_model.h"

#include <algorithm>

#include "corvex/common/error.h"
#include "corvex/common/text.h"

namespace corvex::lists {

namespace {
constexpr std::int32_t kInvalidArrayIndex = 381;

char16_t folded(char16_t c) {
    return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c;
}

bool sortsBefore(std::u16string_view a, std::u16string_view b) {
    return std::lexicographical_compare(
        a.begin(), a.end(), b.begin(), b.end(),
        [](char16_t x, char16_t y) { return folded(x) < folded(y); });
}
}  // namespace

std::int32_t sortedPosition(const std::vector<std::u16string>& texts, std::u16string_view text) {
    const auto at = std::upper_bound(
        texts.begin(), texts.end(), text,
        [](std::u16string_view t, const std::u16string& item) { return sortsBefore(t, item); });
    return static_cast<std::int32_t>(at - texts.begin());
}

ComboModel::ComboModel(bool pickOnly, bool sorted) : pickOnly_(pickOnly), sorted_(sorted) {}

void ComboModel::checkItem(std::int32_t i) const {
    if (i < 0 || i >= count()) throw Error(kInvalidArrayIndex, u"Invalid property array index");
}

const std::u16string& ComboModel::item(std::int32_t i) const {
    checkItem(i);
    return texts_[static_cast<std::size_t>(i)];
}

std::int32_t ComboModel::itemData(std::int32_t i) const {
    checkItem(i);
    return data_[static_cast<std::size_t>(i)];
}

std::int32_t ComboModel::add(const std::u16string& text, std::int32_t index) {
    if (index < -1 || index > count()) throw Error(err::InvalidProcedureCall);
    if (index == -1) index = sorted_ ? sortedPosition(texts_, text) : count();
    texts_.insert(texts_.begin() + index, text);
    data_.insert(data_.begin() + index, 0);
    if (listIndex_ >= index) ++listIndex_;
    newIndex_ = index;
    return index;
}

void ComboModel::remove(std::int32_t i) {
    if (i < 0 || i >= count()) throw Error(err::InvalidProcedureCall);
    texts_.erase(texts_.begin() + i);
    data_.erase(data_.begin() + i);
    if (listIndex_ == i) {
        listIndex_ = -1;
        if (pickOnly_) edit_.setText(u"");
    } else if (listIndex_ > i) {
        --listIndex_;
    }
    newIndex_ = -1;
}

ComboOutcome ComboModel::clear() {
    texts_.clear();
    data_.clear();
    listIndex_ = -1;
    newIndex_ = -1;
    return editChanged(edit_.setText(u""));
}

void ComboModel::setItem(std::int32_t i, const std::u16string& text) {
    checkItem(i);
    texts_[static_cast<std::size_t>(i)] = text;
    if (i == listIndex_) edit_.setText(text);
}

void ComboModel::setItemData(std::int32_t i, std::int32_t data) {
    checkItem(i);
    data_[static_cast<std::size_t>(i)] = data;
}

ComboOutcome ComboModel::editChanged(bool changed) {
    ComboOutcome out;
    out.change = changed && !pickOnly_;
    return out;
}

ComboOutcome ComboModel::select(std::int32_t i) {
    if (i < -1 || i >= count()) throw Error(err::InvalidPropertyValue);
    if (i == listIndex_) return {};
    listIndex_ = i;
    // Choosing an item fills the edit part but raises Click alone, as the host's combo
    // box does: Change stays for what the user types.
    edit_.setText(i == -1 ? u"" : item(i));
    // The chosen item's text stands selected, so that typing replaces it.
    edit_.select(0, static_cast<std::int32_t>(edit_.text().size()));
    ComboOutcome out;
    out.click = true;
    return out;
}

std::int32_t ComboModel::find(std::u16string_view text) const {
    const auto at = std::find(texts_.begin(), texts_.end(), text);
    return at == texts_.end() ? -1 : static_cast<std::int32_t>(at - texts_.begin());
}

ComboOutcome ComboModel::setText(std::u16string_view text) {
    if (pickOnly_) {
        std::int32_t at = find(text);
        for (std::int32_t i = 0; at == -1 && i < count(); ++i) {
            if (equalsIgnoringCase(texts_[static_cast<std::size_t>(i)], text)) at = i;
        }
        if (at == -1) throw Error(err::SetNotSupported, u"'Text' property is read-only");
        return select(at);
    }
    ComboOutcome out = editChanged(edit_.setText(text));
    listIndex_ = find(text);
    return out;
}

ComboOutcome ComboModel::setSelText(std::u16string_view text) {
    if (pickOnly_) return {};
    ComboOutcome out = editChanged(edit_.replaceSelection(text, false));
    if (out.change) listIndex_ = find(edit_.text());
    return out;
}

ComboOutcome ComboModel::type(char16_t ch) {
    if (locked()) return {};
    if (!pickOnly_) {
        ComboOutcome out = editChanged(edit_.type(ch));
        if (out.change) listIndex_ = find(edit_.text());
        return out;
    }
    // A pick-only box jumps to the next item starting with the character, wrapping round.
    for (std::int32_t step = 1; step <= count(); ++step) {
        const std::int32_t i = (listIndex_ + step) % count();
        const std::u16string& t = texts_[static_cast<std::size_t>(i)];
        if (!t.empty() && folded(t[0]) == folded(ch)) return select(i);
    }
    return {};
}

ComboOutcome ComboModel::pick(std::int32_t i) {
    if (locked()) return {};
    return select(i);
}

}  // namespace corvex::lists
