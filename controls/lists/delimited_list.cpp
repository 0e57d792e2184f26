#include "corvex/lists/delimited_list.h"

#include <cmath>

#include "corvex/common/error.h"
#include "corvex/common/number_text.h"

namespace corvex::lists {

namespace {

// The walk over a text counts in 16 bits, so a longer text overflows that count.
void requireWalkable(std::u16string_view text) {
    if (text.size() > kMaxTextLength) throw Error(err::Overflow);
}

// An element converted as the host converts a numeric text to a 32-bit integer (rounding
// half to even); nothing when the element is not numeric, overflow beyond 32 bits.
bool toItemData(const std::u16string& element, std::int32_t& out) {
    if (element.empty()) return false;
    const ParsedNumber p = parseDouble(element);
    if (p.status == ParseStatus::TypeMismatch) return false;
    if (p.status == ParseStatus::Overflow) throw Error(err::Overflow);
    const double r = roundHalfEven(p.value);
    if (r < -2147483648.0 || r > 2147483647.0) throw Error(err::Overflow);
    out = static_cast<std::int32_t>(r);
    return true;
}

}  // namespace

std::vector<std::u16string> split(std::u16string_view text) {
    requireWalkable(text);
    std::vector<std::u16string> elements(1);
    for (const char16_t c : text) {
        if (c != kDelimiter) {
            elements.back().push_back(c);
        } else if (!elements.back().empty()) {
            elements.emplace_back();
        }
    }
    return elements;
}

void rebuild(ListTarget& list, std::u16string_view listTexts) {
    list.clear();
    if (listTexts.empty()) return;
    for (const std::u16string& element : split(listTexts)) list.addItem(element);
}

bool itemDataCharactersAllowed(std::u16string_view text) {
    requireWalkable(text);
    for (const char16_t c : text) {
        if (c != kDelimiter && (c < u'0' || c > u'9')) return false;
    }
    return true;
}

int applyItemData(ListTarget& list, std::u16string_view itemDataNums) {
    if (itemDataNums.empty()) return 0;
    const std::vector<std::u16string> elements = split(itemDataNums);
    for (std::int32_t i = 0; i < list.listCount(); ++i) {
        if (static_cast<std::size_t>(i) >= elements.size()) {
            throw Error(err::SubscriptOutOfRange);
        }
        std::int32_t data = 0;
        if (!toItemData(elements[static_cast<std::size_t>(i)], data)) {
            return msg::IrregularString;
        }
        list.setItemData(i, data);
    }
    return 0;
}

int checkDefaultValue(std::int32_t defaultValue, std::int32_t listCount) {
    if (defaultValue < -1) return msg::BelowMinusOne;
    if (defaultValue > listCount - 1) return msg::BeyondLastItem;
    return 0;
}

void setListEntry(ListTarget& list, std::int32_t index, const std::u16string& text,
                  std::u16string_view listTexts) {
    list.setListText(index, text);
    rebuild(list, listTexts);
}

}  // namespace corvex::lists
