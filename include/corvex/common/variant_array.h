// A one-dimensional array of Variants with its own lower bound, as the host passes arrays
// to members: by reference, so that the member sees (and may change) the caller's array.
#pragma once

#include <cstdint>
#include <vector>

#include "corvex/common/object.h"

namespace corvex {

/// An array of Variants indexed from LBound to UBound (UBound is LBound - 1 when empty).
class VariantArray : public Object {
public:
    /// An array holding elements, the first at index lowerBound.
    explicit VariantArray(std::vector<Variant> elements = {}, std::int32_t lowerBound = 0);
    /// A new shared array.
    static std::shared_ptr<VariantArray> make(std::vector<Variant> elements,
                                              std::int32_t lowerBound = 0);
    /// The table of the array class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }

    /// The lowest index.
    std::int32_t lBound() const { return lowerBound_; }
    /// The highest index.
    std::int32_t uBound() const;
    /// The element at index i; raises 9 (subscript out of range) outside the bounds.
    Variant item(std::int32_t i) const;
    /// Replaces the element at index i; raises 9 outside the bounds.
    void setItem(std::int32_t i, Variant v);

private:
    std::size_t slot(std::int32_t i) const;
    std::vector<Variant> elements_;
    std::int32_t lowerBound_;
};

}  // namespace corvex
