// The list box widget kind: a list of texts, each with a 32-bit item datum, with one
// current item and, in the multi-selection modes, any number of selected items.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "corvex/platform/widgets.h"

namespace corvex {

/// How many items the user can select in a list box.
namespace multiselect {
inline constexpr std::int16_t None = 0;      ///< one item: the current item is the selection
inline constexpr std::int16_t Simple = 1;    ///< a click toggles the item it lands on
inline constexpr std::int16_t Extended = 2;  ///< a click selects one item; Ctrl, Shift extend
}  // namespace multiselect

/// The host's error for an item index outside a list.
namespace err {
inline constexpr std::int32_t InvalidPropertyArrayIndex = 381;  ///< no such item
}  // namespace err

/// How a list box is made, beyond a widget's spec. These are fixed for its life.
struct ListBoxSpec : WidgetSpec {
    bool sorted = false;                           ///< items without an index go to their place
    std::int16_t multiSelect = multiselect::None;  ///< selection mode
    bool integralHeight = true;                    ///< shows whole items only
};

/// A list box. Item indexes count from 0. Sorted lists order their texts case-blind (see
/// listSortsBefore). The current item (ListIndex, -1 for none) and the selection move
/// with the items as items are inserted and removed. Click is raised when the user clicks
/// an item and when code changes ListIndex or a selection; DblClick, key and mouse events
/// are passed on as every widget's are.
class ListBox : public virtual Widget {
public:
    /// Adds an item: at index when it is given (0 to ListCount), else at the end, or at its
    /// sorted place when the list sorts; raises 5 for an index outside 0..ListCount.
    virtual void addItem(const std::u16string& text, std::int32_t index = -1) = 0;
    /// Removes item i; raises 5 for an index outside the list.
    virtual void removeItem(std::int32_t i) = 0;
    /// Removes every item; nothing is current or selected afterwards.
    virtual void clear() = 0;
    /// The number of items.
    virtual std::int32_t listCount() const = 0;
    /// The text of item i; raises 381 outside the list.
    virtual std::u16string list(std::int32_t i) const = 0;
    /// Replaces the text of item i (its datum and selection stay); raises 381 outside.
    virtual void setList(std::int32_t i, const std::u16string& text) = 0;
    /// The item datum of item i; raises 381 outside the list.
    virtual std::int32_t itemData(std::int32_t i) const = 0;
    /// Sets the item datum of item i; raises 381 outside the list.
    virtual void setItemData(std::int32_t i, std::int32_t v) = 0;
    /// The current item, or -1 when there is none.
    virtual std::int32_t listIndex() const = 0;
    /// Makes item i current (-1: none); raises 380 outside -1..ListCount-1. Without
    /// multi-selection and in extended mode the item becomes the only selected one (-1
    /// clears the selection); in simple mode the selection stays. Raises Click on a change.
    virtual void setListIndex(std::int32_t i) = 0;
    /// The index of the item added last; -1 when none was, or after a removal or clear.
    virtual std::int32_t newIndex() const = 0;
    /// Whether the list sorts its texts.
    virtual bool sorted() const = 0;
    /// The selection mode (multiselect::None, Simple, Extended).
    virtual std::int16_t multiSelect() const = 0;
    /// Whether item i is selected; raises 381 outside the list.
    virtual bool selected(std::int32_t i) const = 0;
    /// Selects or clears item i (without multi-selection, selecting makes it current and
    /// clearing the current item leaves none); raises 381 outside. Raises Click on a change.
    virtual void setSelected(std::int32_t i, bool on) = 0;
    /// The number of selected items (0 or 1 without multi-selection).
    virtual std::int32_t selCount() const = 0;
    /// The first item shown.
    virtual std::int32_t topIndex() const = 0;
    /// Scrolls item i to the top; raises 380 outside 0..ListCount-1 (0 in an empty list).
    virtual void setTopIndex(std::int32_t i) = 0;
    /// The number of columns items wrap into (0: one column, scrolled vertically).
    virtual std::int16_t columns() const = 0;
    /// Sets the number of columns; raises 380 below 0.
    virtual void setColumns(std::int16_t n) = 0;
    /// Whether the list shows whole items only.
    virtual bool integralHeight() const = 0;
    /// The current item's text; "" when none is current.
    virtual std::u16string text() const = 0;
    /// Makes current the first item whose text equals t (ASCII case ignored); leaves the
    /// list as it is when no item does.
    virtual void setText(const std::u16string& t) = 0;
    /// The input-method mode (the library's CorvexIMEMode value).
    virtual std::int16_t imeMode() const = 0;
    /// Sets the input-method mode.
    virtual void setImeMode(std::int16_t m) = 0;
    /// The width in pixels the list can scroll horizontally over; 0: no horizontal scroll
    /// bar. A bar appears when the extent is wider than the list's visible area.
    virtual std::int32_t horizontalExtent() const = 0;
    /// Sets the horizontal scrolling extent in pixels (below 0 counts as 0).
    virtual void setHorizontalExtent(std::int32_t pixels) = 0;
};

/// Whether a sorted list box places text a before text b: compared by UTF-16 unit with
/// ASCII letters folded to lower case. Equal texts keep their order of arrival.
bool listSortsBefore(std::u16string_view a, std::u16string_view b);

}  // namespace corvex
