// The combo box inner widget of the list controls: a list of items, each with a 32-bit
// item datum, and an edit part that is free text or only ever one of the items.
#pragma once

#include <cstdint>
#include <string>

#include "corvex/platform/widgets.h"

namespace corvex {

/// A combo box's style, fixed when it is made.
enum class ComboStyle : std::int16_t {
    DropDownCombo = 0,  ///< an edit part the user types into, and a drop-down list
    DropDownList = 2,   ///< the user only picks one of the items
};

/// How a combo box is made, beyond a widget's spec.
struct ComboBoxSpec : WidgetSpec {
    ComboStyle style = ComboStyle::DropDownCombo;  ///< edit part free or pick-only
    bool sorted = false;                           ///< whether added items are placed in order
};

/// A combo box. Picking an item (by the user or by setting ListIndex) raises Click; a
/// change of the edit part's text raises Change in the drop-down combo style only. Bad
/// indexes raise the host's errors: 381 for items, 380 for ListIndex, 5 for RemoveItem.
class ComboBox : public virtual Widget {
public:
    /// The style the box was made with.
    virtual ComboStyle style() const = 0;
    /// Whether added items are placed in order (ASCII case ignored).
    virtual bool sorted() const = 0;
    /// Adds an item at index (-1: at the end, or in order when sorted), item datum 0.
    virtual void addItem(const std::u16string& text, std::int32_t index) = 0;
    /// Removes item i.
    virtual void removeItem(std::int32_t i) = 0;
    /// Removes every item and empties the edit part; nothing is selected.
    virtual void clear() = 0;
    /// The number of items.
    virtual std::int32_t listCount() const = 0;
    /// The text of item i.
    virtual std::u16string list(std::int32_t i) const = 0;
    /// Replaces the text of item i.
    virtual void setList(std::int32_t i, const std::u16string& text) = 0;
    /// The item datum of item i.
    virtual std::int32_t itemData(std::int32_t i) const = 0;
    /// Sets the item datum of item i.
    virtual void setItemData(std::int32_t i, std::int32_t data) = 0;
    /// The selected item, or -1.
    virtual std::int32_t listIndex() const = 0;
    /// Selects item i (-1: none), its text into the edit part; Click when it changes.
    virtual void setListIndex(std::int32_t i) = 0;
    /// Where the item added last went (-1 before any).
    virtual std::int32_t newIndex() const = 0;
    /// The edit part's text.
    virtual std::u16string text() const = 0;
    /// Sets the edit part's text; a pick-only box refuses (383) a text that is no item.
    virtual void setText(const std::u16string& text) = 0;
    /// Caret position in the edit part.
    virtual std::int32_t selStart() const = 0;
    /// Moves the caret, clearing the selection.
    virtual void setSelStart(std::int32_t s) = 0;
    /// Length of the edit part's selection.
    virtual std::int32_t selLength() const = 0;
    /// Sets the selection's length.
    virtual void setSelLength(std::int32_t n) = 0;
    /// The selected text of the edit part.
    virtual std::u16string selText() const = 0;
    /// Replaces the selection of the edit part (not in a pick-only box).
    virtual void setSelText(const std::u16string& text) = 0;
    /// Whether the user cannot change the text or the selection.
    virtual bool locked() const = 0;
    /// Locks or unlocks the box for the user.
    virtual void setLocked(bool v) = 0;
    /// The input-method mode.
    virtual std::int16_t imeMode() const = 0;
    /// Sets the input-method mode.
    virtual void setImeMode(std::int16_t m) = 0;
};

}  // namespace corvex
