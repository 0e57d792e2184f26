// The rules of a combo box, kept once for every host: items with item data, sorted
// insertion, the selection, NewIndex, and the edit part (free text or pick-only).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "corvex/common/text_editing.h"

namespace corvex::lists {

/// What an operation did that a widget reports as events.
struct ComboOutcome {
    bool click = false;   ///< the selection changed (Click)
    bool change = false;  ///< the edit part's text changed (Change, free-text style only)
};

/// Where text goes in a list sorted without regard to ASCII case: after the items that
/// sort before it or equal it, so that equal items keep the order they came in.
std::int32_t sortedPosition(const std::vector<std::u16string>& texts, std::u16string_view text);

/// The content and rules of one combo box. Errors: 381 for an item index outside the
/// list, 380 for a ListIndex outside it, 5 for RemoveItem or AddItem outside it, 383 for
/// a Text of a pick-only box that is no item.
class ComboModel {
public:
    /// An empty box; pickOnly forbids free text in the edit part.
    ComboModel(bool pickOnly, bool sorted);

    /// Whether only items can be in the edit part.
    bool pickOnly() const { return pickOnly_; }
    /// Whether items are placed in order.
    bool sorted() const { return sorted_; }
    /// The texts of the items.
    const std::vector<std::u16string>& texts() const { return texts_; }
    /// The number of items.
    std::int32_t count() const { return static_cast<std::int32_t>(texts_.size()); }
    /// The text of item i.
    const std::u16string& item(std::int32_t i) const;
    /// The item datum of item i.
    std::int32_t itemData(std::int32_t i) const;
    /// The selected item, or -1.
    std::int32_t listIndex() const { return listIndex_; }
    /// Where the item added last went, or -1.
    std::int32_t newIndex() const { return newIndex_; }
    /// The edit part.
    const TextEditModel& edit() const { return edit_; }

    /// Adds an item at index (-1: the end, or its sorted place); returns where it went.
    std::int32_t add(const std::u16string& text, std::int32_t index);
    /// Removes item i; the selection follows, and is lost when item i was selected.
    void remove(std::int32_t i);
    /// Removes every item and empties the edit part.
    ComboOutcome clear();
    /// Replaces the text of item i (the edit part shows it when it is selected).
    void setItem(std::int32_t i, const std::u16string& text);
    /// Sets the item datum of item i.
    void setItemData(std::int32_t i, std::int32_t data);
    /// Selects item i (-1: none); its text fills the edit part.
    ComboOutcome select(std::int32_t i);
    /// Sets the edit part's text as code does: it selects the item with that very text,
    /// if any; a pick-only box refuses a text that is no item (383).
    ComboOutcome setText(std::u16string_view text);
    /// Moves the caret.
    void setSelStart(std::int32_t s) { edit_.setSelStart(s); }
    /// Sets the selection length.
    void setSelLength(std::int32_t n) { edit_.setSelLength(n); }
    /// Replaces the selection as code does (nothing in a pick-only box).
    ComboOutcome setSelText(std::u16string_view text);
    /// Whether the user is kept out.
    bool locked() const { return edit_.locked(); }
    /// Locks or unlocks the box for the user.
    void setLocked(bool v) { edit_.setLocked(v); }

    /// The user types ch: free text edits the edit part; a pick-only box selects the next
    /// item that starts with ch (ASCII case ignored). Nothing when locked.
    ComboOutcome type(char16_t ch);
    /// The user picks item i from the drop-down list. Nothing when locked.
    ComboOutcome pick(std::int32_t i);

private:
    void checkItem(std::int32_t i) const;
    ComboOutcome editChanged(bool changed);
    std::int32_t find(std::u16string_view text) const;

    std::vector<std::u16string> texts_;
    std::vector<std::int32_t> data_;
    std::int32_t listIndex_ = -1;
    std::int32_t newIndex_ = -1;
    TextEditModel edit_;
    bool pickOnly_;
    bool sorted_;
};

}  // namespace corvex::lists
