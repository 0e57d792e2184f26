// The rules of a list box, kept once for every host: items with their data, the current
// item, the selection in each mode, NewIndex and TopIndex. A host keeps its widget in
// step with them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvex {

/// The items, current item and selection of one list box. Mutators that can change the
/// current item or the selection return whether they did (the widget raises Click then).
class ListBoxModel {
public:
    /// An empty list that sorts or not, in a selection mode (multiselect::None ...).
    ListBoxModel(bool sorted, std::int16_t multiSelect);

    /// Adds an item at index (0..count), or at the end / its sorted place when index is
    /// -1; returns where it went. Raises 5 for any other index.
    std::int32_t add(const std::u16string& text, std::int32_t index);
    /// Removes item i; raises 5 outside the list. Returns whether the current item or the
    /// selection changed.
    bool remove(std::int32_t i);
    /// Removes every item; returns whether something was current or selected.
    bool clear();

    /// The number of items.
    std::int32_t count() const { return static_cast<std::int32_t>(items_.size()); }
    /// The text of item i; raises 381 outside.
    const std::u16string& text(std::int32_t i) const;
    /// Replaces the text of item i; raises 381 outside.
    void setText(std::int32_t i, const std::u16string& t);
    /// The datum of item i; raises 381 outside.
    std::int32_t data(std::int32_t i) const;
    /// Sets the datum of item i; raises 381 outside.
    void setData(std::int32_t i, std::int32_t v);

    /// The current item, -1 for none.
    std::int32_t current() const { return current_; }
    /// Makes item i current (-1: none) by code; raises 380 outside -1..count-1.
    bool setCurrent(std::int32_t i);
    /// Whether item i is selected; raises 381 outside.
    bool selected(std::int32_t i) const;
    /// Selects or clears item i by code; raises 381 outside.
    bool setSelected(std::int32_t i, bool on);
    /// The number of selected items.
    std::int32_t selCount() const;
    /// The user clicks item i with the shift bits held (key::CtrlMask, ShiftMask);
    /// raises 381 outside.
    bool click(std::int32_t i, std::int16_t shift);
    /// Takes the current item and the selection as a toolkit reports them after the
    /// user's input (one flag per item); returns whether they changed.
    bool adopt(std::int32_t current, const std::vector<bool>& selection);

    /// The last added item's index, -1 after a removal or clear.
    std::int32_t newIndex() const { return newIndex_; }
    /// The first item shown.
    std::int32_t topIndex() const { return topIndex_; }
    /// Scrolls item i to the top; raises 380 outside 0..count-1 (0 in an empty list).
    void setTopIndex(std::int32_t i);
    /// The first item whose text equals t, ASCII case ignored; -1 when none does.
    std::int32_t find(const std::u16string& t) const;

    /// Whether the list sorts.
    bool sorted() const { return sorted_; }
    /// The selection mode.
    std::int16_t multiSelect() const { return multiSelect_; }

private:
    struct Item {
        std::u16string text;
        std::int32_t data = 0;
        bool selected = false;
    };
    const Item& item(std::int32_t i) const;
    Item& item(std::int32_t i);
    bool selectOnly(std::int32_t i);

    bool sorted_;
    std::int16_t multiSelect_;
    std::vector<Item> items_;
    std::int32_t current_ = -1;
    std::int32_t anchor_ = -1;  // where an extended Shift+click range starts
    std::int32_t newIndex_ = -1;
    std::int32_t topIndex_ = 0;
};

}  // namespace corvex
