// The library's public enumerations (all 32-bit signed values).
#pragma once

#include <cstdint>
#include <vector>

#include "corvex/common/object.h"

namespace corvex {

/// Input-method modes of the text-entry and list controls.
enum class CorvexIMEMode : std::int32_t {
    IMENone = 0,          ///< no input-method control
    IMEON = 1,            ///< input method on
    IMEOFF = 2,           ///< input method off
    IMEDisable = 3,       ///< input method disabled
    IMEHiragana = 4,      ///< full-width hiragana
    IMEKatakana = 5,      ///< full-width katakana
    IMEKatakanaHalf = 6,  ///< half-width katakana
    IMEAlphaFull = 7,     ///< full-width alphanumerics
    IMEAlpha = 8,         ///< half-width alphanumerics
};

/// What a numeric box admits (the value of its Mode).
enum class InputMode : std::int32_t {
    PM_decimal = 0,  ///< signed decimal numbers with an optional exponent
    P_decimal = 1,   ///< decimal numbers with an optional exponent, no leading minus
    PM_Integer = 2,  ///< signed integers
    P_Integer = 3,   ///< unsigned integers
    Free = 4,        ///< anything: no key filtering and no validation
};

/// Which of MemoBox's scroll-bar styles is shown.
enum class ScrollBarsMode : std::int32_t {
    barNone = 0,        ///< no scroll bars
    barHorizontal = 1,  ///< a horizontal scroll bar
    barVertical = 2,    ///< a vertical scroll bar
    barBoth = 3,        ///< both scroll bars
};

/// Which kind of entry a FileNameBox requires to exist (the value of its Mode).
enum class CheckExistsMode : std::int32_t {
    NoCheck = 0,        ///< only the syntax is checked
    FileOnly = 1,       ///< an existing file
    FolderOnly = 2,     ///< an existing folder
    FileAndFolder = 3,  ///< an existing file or folder
};

/// The border of a MultiOption's frame (the value of its BorderStyle).
enum class MultiOptionBorder : std::int32_t {
    None = 0,         ///< no border
    FixedSingle = 1,  ///< a single line
};

/// How a ShadowedLine runs (the value of its Mode); the first name is published so spelled.
enum class ShadowedLine_Mode : std::int32_t {
    Horizonrtal = 0,  ///< a horizontal line with its shadow below
    Vertical = 1,     ///< a vertical line with its shadow to the right
};

/// The table-side description of CorvexIMEMode.
template <>
const EnumInfo& enumInfo<CorvexIMEMode>();
/// The table-side description of InputMode.
template <>
const EnumInfo& enumInfo<InputMode>();
/// The table-side description of ScrollBarsMode.
template <>
const EnumInfo& enumInfo<ScrollBarsMode>();

/// The table-side description of CheckExistsMode.
template <>
const EnumInfo& enumInfo<CheckExistsMode>();
/// The table-side description of MultiOptionBorder.
template <>
const EnumInfo& enumInfo<MultiOptionBorder>();
/// The table-side description of ShadowedLine_Mode.
template <>
const EnumInfo& enumInfo<ShadowedLine_Mode>();

/// Every public enumeration, in the order the library publishes them.
const std::vector<const EnumInfo*>& publicEnumerations();

}  // namespace corvex
