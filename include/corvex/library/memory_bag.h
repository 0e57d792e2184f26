// A property bag kept in memory, in write order.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "corvex/platform/property_bag.h"

namespace corvex {

/// A property bag held in memory. Entries keep their write order; names match without
/// regard to ASCII case; a write equal to its default removes the entry.
class MemoryBag : public PropertyBag {
public:
    /// One saved entry: the name as written and its value.
    using Entry = std::pair<std::u16string, Variant>;

    /// An empty bag.
    MemoryBag() = default;
    /// A bag holding entries (as read from a form file).
    explicit MemoryBag(std::vector<Entry> entries) : entries_(std::move(entries)) {}

    Variant read(std::u16string_view name, const Variant& def) override;
    void write(std::u16string_view name, const Variant& value, const Variant& def) override;

    /// The entries in write order.
    const std::vector<Entry>& entries() const { return entries_; }

private:
    std::vector<Entry> entries_;
};

}  // namespace corvex
