// The store of a control's saved design-time properties.
#pragma once

#include <string_view>

#include "corvex/common/variant.h"

namespace corvex {

/// A property bag: named values written when the designer saves a form and read when a
/// form is loaded. Names match without regard to ASCII case. A write of a value equal to
/// its default leaves no entry (and removes an earlier entry of the same name); a write of
/// a name already present replaces its value in place.
class PropertyBag {
public:
    virtual ~PropertyBag() = default;
    /// The value saved under name, or def when there is none.
    virtual Variant read(std::u16string_view name, const Variant& def) = 0;
    /// Saves value under name unless it equals def.
    virtual void write(std::u16string_view name, const Variant& value, const Variant& def) = 0;
};

}  // namespace corvex
