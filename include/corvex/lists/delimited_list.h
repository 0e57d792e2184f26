// The rules of a list given as one delimited string ("a|b|c") with its item data beside
// it, shared by the list controls: how the string splits, how the list is rebuilt from it,
// how the item data text is checked and applied, and which default index is accepted.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvex::lists {

/// The one delimiter of list and item data texts; there is no quoting or escape.
inline constexpr char16_t kDelimiter = u'|';
/// The longest text the splitting walks (its length is held in a 16-bit count).
inline constexpr std::size_t kMaxTextLength = 32767;

/// Message codes of the list controls.
namespace msg {
inline constexpr int IrregularString = 3001;  ///< "Irregal string."
inline constexpr int BelowMinusOne = 3002;    ///< "Enter not less than -1 ."
inline constexpr int BeyondLastItem = 3003;   ///< "Out of now maximum list number."
}  // namespace msg

/// The inner list as the rules change it.
class ListTarget {
public:
    virtual ~ListTarget() = default;
    /// Removes every item; nothing is selected and all item data is gone.
    virtual void clear() = 0;
    /// Adds an item (a sorted list places it itself).
    virtual void addItem(const std::u16string& text) = 0;
    /// The number of items.
    virtual std::int32_t listCount() const = 0;
    /// Sets the item data of item i.
    virtual void setItemData(std::int32_t i, std::int32_t data) = 0;
    /// Sets the text of item i (the inner widget's own errors pass on).
    virtual void setListText(std::int32_t i, const std::u16string& text) = 0;
};

/// Splits text at "|": leading and repeated delimiters collapse, one trailing delimiter
/// leaves an empty last element, "" and "|" give one empty element. Raises overflow (6)
/// for a text longer than 32767 units.
std::vector<std::u16string> split(std::u16string_view text);

/// Clears the list, then adds the elements of listTexts in order (nothing for "").
/// Item data is not applied. Raises overflow (6) after clearing for a too long text.
void rebuild(ListTarget& list, std::u16string_view listTexts);

/// Whether the item data text holds only "0" to "9" and "|" (the check of its let).
bool itemDataCharactersAllowed(std::u16string_view text);

/// Applies an item data text to the items in order: nothing for "", 0 when every item got
/// its datum, msg::IrregularString when an element is not numeric (earlier items keep
/// theirs). Raises 9 when elements run out and 6 for a value beyond 32 bits or a too
/// long text; the items before keep their new data.
int applyItemData(ListTarget& list, std::u16string_view itemDataNums);

/// Which message refuses defaultValue for a list of listCount items: 0 when accepted
/// (-1 always is), msg::BelowMinusOne below -1, msg::BeyondLastItem past the last item.
int checkDefaultValue(std::int32_t defaultValue, std::int32_t listCount);

/// The List(Index) let: sets the text of item index, then rebuilds the whole list from
/// listTexts, which discards that assignment (on purpose: the list follows its text).
void setListEntry(ListTarget& list, std::int32_t index, const std::u16string& text,
                  std::u16string_view listTexts);

}  // namespace corvex::lists
