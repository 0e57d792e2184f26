// The literal syntax shared by the script host and the form file: quoted strings with
// escapes, numbers, True/False/Empty/Nothing and font literals, read from and written to
// UTF-8 text.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

#include "corvex/common/font.h"
#include "corvex/common/variant.h"

namespace corvex {

/// Text that is not a well-formed literal; the message says what is wrong.
class LiteralError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Whether text is a name: ASCII letters, digits and underscores, not starting with a digit.
bool isName(std::string_view text);

/// Whether text is one of the literal words True, False, Empty and Nothing (ASCII case
/// ignored), which are therefore no names of controls.
bool isLiteralWord(std::string_view text);

/// A string as a quoted literal in UTF-8: \" \\ \r \n \t \0 for those characters,
/// \uXXXX for every other control character (below U+0020, and U+007F) and for every
/// unpaired surrogate, every other character as itself.
std::string quoteString(std::u16string_view text);

/// Reads the quoted literal that starts at text[pos] (which must be '"') and moves pos
/// past its closing quote. Escapes: \" \\ \r \n \t \0 and \uXXXX (exactly four hex
/// digits, one UTF-16 code unit). Raises LiteralError for an unterminated literal, an
/// unknown escape, a raw control character, or bytes that are not UTF-8.
std::u16string readQuoted(std::string_view text, std::size_t& pos);

/// The length of the literal token at the start of text: a quoted string through its
/// closing quote, a Font(...) literal through its closing parenthesis, anything else up
/// to the next blank (space or tab); characters that follow a quote or parenthesis up
/// to the next blank belong to the token too (and make it malformed). Raises
/// LiteralError when a quoted string or a Font( is not closed.
std::size_t literalTokenLength(std::string_view text);

/// Reads one literal token: a quoted string; an integer (Integer when it fits 16 bits,
/// else Long when it fits 32 bits, else Double); a decimal with a point or an exponent
/// (Double); True; False; Empty; Nothing (the null object); or a font literal
/// Font("Name", Size, Bold, Italic, Underline, Strikethrough, Weight, Charset) of which
/// trailing arguments may be left off. Raises LiteralError for anything else.
Variant parseLiteral(std::string_view token);

/// A font as a script prints it:
/// Font("IPAGothic", 9, False, False, False, False, 400, 128).
std::string formatFont(const FontDesc& font);

/// A value as a script prints it: Empty, True/False (another raw Boolean as its number),
/// Integer and Long in decimal, Single and Double by the host's number-to-text
/// conversion, strings quoted, fonts as formatFont, the null object as Nothing and any
/// other object as its class name.
std::string formatValue(const Variant& value);

/// The name of a value kind in UTF-8 ("Boolean", "String").
std::string typeWord(VarType type);

/// Whether two values are the very same: same kind, Booleans by raw value, Single and
/// Double bit for bit (NaNs included), strings by code unit, fonts by every field (the
/// size bit for bit), other objects by identity.
bool identicalValues(const Variant& a, const Variant& b);

}  // namespace corvex
