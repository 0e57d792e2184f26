// Conversions between the core's UTF-16 text and UTF-8 at the edges (files, console).
#pragma once

#include <string>
#include <string_view>

namespace corvex {

/// UTF-16 to UTF-8; an unpaired surrogate becomes U+FFFD.
std::string toUtf8(std::u16string_view text);
/// UTF-8 to UTF-16; an invalid byte sequence becomes U+FFFD.
std::u16string fromUtf8(std::string_view text);
/// ASCII-only case folding, for names that the host matches without regard to case.
bool equalsIgnoringCase(std::u16string_view a, std::u16string_view b);
/// ASCII-only upper-casing of a name.
std::u16string asciiUpper(std::u16string_view text);

/// Shorthand for writing UTF-16 literals from plain ASCII in tests and tools.
inline std::u16string u16(std::string_view ascii) {
    return fromUtf8(ascii);
}

}  // namespace corvex
