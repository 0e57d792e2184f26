// Inner widgets of property pages beyond the check box and the text box: captions beside
// the fields and drop-down lists whose entries carry a number of their own.
#pragma once

#include <cstdint>
#include <string>

#include "corvex/platform/widgets.h"

namespace corvex {

/// A caption that the user reads and does not edit.
class TextLabel : public virtual Widget {
public:
    /// The caption.
    virtual std::u16string caption() const = 0;
    /// Sets the caption.
    virtual void setCaption(const std::u16string& c) = 0;
};

/// A drop-down list: the user picks one of its entries, each of which carries a 32-bit
/// item datum of its own. A change of the selected entry, by the user or by code, raises
/// Click, as the host's combo box does.
class ItemList : public virtual Widget {
public:
    /// Appends an entry with its item datum.
    virtual void addItem(const std::u16string& text, std::int32_t itemData) = 0;
    /// Removes every entry; nothing is selected afterwards.
    virtual void clear() = 0;
    /// The number of entries.
    virtual std::int32_t listCount() const = 0;
    /// The text of entry i (from 0); raises 381 for an index outside the list.
    virtual std::u16string list(std::int32_t i) const = 0;
    /// The item datum of entry i; raises 381 for an index outside the list.
    virtual std::int32_t itemData(std::int32_t i) const = 0;
    /// The selected entry, or -1 when none is.
    virtual std::int32_t listIndex() const = 0;
    /// Selects entry i (-1: none); raises 380 for an index outside the list and Click
    /// when the selection changes.
    virtual void setListIndex(std::int32_t i) = 0;
};

}  // namespace corvex
