#include "corvex/library/memory_bag.h"

#include <algorithm>

#include "corvex/common/text.h"

namespace corvex {

Variant MemoryBag::read(std::u16string_view name, const Variant& def) {
    for (const auto& [n, v] : entries_) {
        if (equalsIgnoringCase(n, name)) return v;
    }
    return def;
}

void MemoryBag::write(std::u16string_view name, const Variant& value, const Variant& def) {
    auto it = std::find_if(entries_.begin(), entries_.end(),
                           [&](const Entry& e) { return equalsIgnoringCase(e.first, name); });
    if (sameBagValue(value, def)) {
        // A default leaves no entry, and takes back what an earlier write of the name left.
        if (it != entries_.end()) entries_.erase(it);
        return;
    }
    if (it != entries_.end()) {
        it->second = value;
    } else {
        entries_.emplace_back(std::u16string(name), value);
    }
}

}  // namespace corvex
