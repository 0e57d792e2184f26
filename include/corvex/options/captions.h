// The captions of a group of option buttons, given as one "|"-delimited text, and their
// arrangement in rows.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvex {

/// The captions named in an option group's captions text: "|" ends a caption, but leading,
/// repeated and trailing bars name none, so no caption is ever an empty one made by a bar.
/// (The list controls' rule differs: there a trailing bar makes a last, empty element.)
std::vector<std::u16string> parseOptionCaptions(std::u16string_view text);

/// The captions of count buttons: the named ones, then empty ones; at least count + 1
/// entries, so that every button, and one past the last, has an entry.
std::vector<std::u16string> captionsForButtons(std::u16string_view text, std::int32_t count);

/// The layout properties of an option group, in twips.
struct OptionLayout {
    double left = 120;         ///< button 0's left
    double top = 240;          ///< button 0's top
    double width = 1300;       ///< every button's width
    double height = 250;       ///< every button's height
    double horiSpace = 0;      ///< space between buttons of a row
    double vartSpace = 0;      ///< space added between rows
    std::int32_t perLine = 0;  ///< buttons per row; below 1, one row
};

/// Where one button stands, in twips (single precision, as the host keeps positions).
struct OptionPlace {
    float left = 0;  ///< left edge
    float top = 0;   ///< top edge
};

/// The place of button i (from 1) from that of button i - 1 (prev, whose height is
/// prevHeight): beside it in the same row, or at the start of the next row, which stands
/// the previous button's height plus the button height plus the row space lower. Computed
/// in double precision and stored as single; raises 6 when the result exceeds a Single.
OptionPlace nextOptionPlace(const OptionLayout& layout, std::int32_t i, OptionPlace first,
                            OptionPlace prev, double prevHeight);

}  // namespace corvex
