// What the list controls' tests read back and compare: the items, their data, the last
// message box and the error number a call fails with.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "corvex/common/error.h"
#include "support/harness.h"

namespace corvex::testing {

/// The texts of a list control's items, in order.
template <class List>
std::vector<std::u16string> itemsOf(const List& c) {
    std::vector<std::u16string> out;
    for (std::int16_t i = 0; i < c.listCount(); ++i) out.push_back(c.list(i));
    return out;
}

/// The item data of a list control's items, in order.
template <class List>
std::vector<std::int32_t> itemDataOf(const List& c) {
    std::vector<std::int32_t> out;
    for (std::int16_t i = 0; i < c.listCount(); ++i) out.push_back(c.itemData(i));
    return out;
}

/// The text of the last message box the host showed; empty when it showed none.
inline std::u16string lastMessageOf(Harness& h) {
    const auto boxes = h.messageBoxes();
    return boxes.empty() ? u"" : boxes.back().text;
}

/// The number of the library error f fails with; 0 when it does not fail.
inline std::int32_t errorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const Error& e) {
        return e.number();
    }
    return 0;
}

}  // namespace corvex::testing
