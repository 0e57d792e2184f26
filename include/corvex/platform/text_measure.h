// Measuring text in pixels as a list draws it, for the list controls' horizontal extent.
#pragma once

#include <cstdint>
#include <string_view>

#include "corvex/common/font.h"

namespace corvex {

/// Measures the width of a text drawn in a font, in pixels.
class TextMeasurer {
public:
    virtual ~TextMeasurer() = default;
    /// The advance of text drawn in font, pixels; a NUL unit counts as one character (the
    /// terminating character a list measures after each item).
    virtual std::int32_t textWidth(std::u16string_view text, const FontDesc& font) const = 0;
};

/// The advance of every UTF-16 unit under the deterministic measurer.
inline constexpr std::int32_t kFixedAdvance = 7;

/// A measurer that gives every UTF-16 unit kFixedAdvance pixels whatever the font, so
/// that widths are the same on every machine (the headless host's).
TextMeasurer& fixedAdvanceMeasurer();

}  // namespace corvex
