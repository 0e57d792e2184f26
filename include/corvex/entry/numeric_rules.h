// The rules by which the numeric boxes admit keys, check and normalise their text,
// convert it to typed values and word their complaints. They need no host beyond the
// text and caret, MaxLength, the clipboard, the message texts and the application title.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "corvex/common/error.h"
#include "corvex/common/messages.h"
#include "corvex/library/enums.h"

namespace corvex {

class Clipboard;
class TextBox;

namespace numeric {

/// Message codes of the numeric boxes.
namespace code {
inline constexpr int ConversionError = 2001;  ///< conversion failure, line 1
inline constexpr int CorrectInput = 2002;     ///< conversion failure, line 2
inline constexpr int EffectiveInput = 2003;   ///< conversion failure, line 3
inline constexpr int NegativeValue = 2004;    ///< prefix of the negative range line
inline constexpr int PositiveValue = 2005;    ///< prefix of the positive range line
inline constexpr int BadLimits = 2006;        ///< LowerLimit above UpperLimit
inline constexpr int OutOfRange = 2007;       ///< value outside the limits
inline constexpr int TooLong1 = 2008;         ///< too long, line 1
inline constexpr int TooLong2 = 2009;         ///< too long, line 2
inline constexpr int TooLong3 = 2010;         ///< too long, line 3
inline constexpr int BadMode = 2011;          ///< Mode outside 0 to 4
inline constexpr int BadLowerLimit = 2012;    ///< LowerLimit above UpperLimit
inline constexpr int BadUpperLimit = 2013;    ///< UpperLimit below LowerLimit
inline constexpr int SingleOverflow = 2014;   ///< ValSng overflow
inline constexpr int DoubleOverflow = 2015;   ///< ValDbl overflow
inline constexpr int IntegerOverflow = 2016;  ///< ValInt overflow
inline constexpr int LongOverflow = 2017;     ///< ValLng overflow
}  // namespace code

/// Error numbers of the property checks (not added to ErrBase).
inline constexpr std::int32_t ModeError = 3000;
/// LowerLimit and UpperLimit share one number.
inline constexpr std::int32_t LimitError = 3001;

/// The message table of the numeric boxes.
const MessageTable& messages();

/// Looks up a message text in the language in force.
using MessageLookup = std::function<std::u16string(int code)>;

/// The key filter: the character to insert for a typed character at caret in text, or 0
/// to refuse it. Mode Free is not filtered (its caller raises no KeyPress at all).
std::int16_t filterKey(std::int32_t mode, std::int16_t keyAscii, std::int32_t caret,
                       std::u16string_view text);

/// The clipboard keys, in every mode: with Ctrl held, C copies the selection, X copies and
/// deletes it, V replaces it by the clipboard's text unfiltered. Returns whether the key
/// was one of them.
bool clipboardKey(std::int16_t keyCode, std::int16_t shift, TextBox& box, Clipboard& clipboard);

/// The limits a numeric box checks.
struct Limits {
    bool limitCheck = false;  ///< whether to check at all
    double lower = 0;         ///< LowerLimit
    double upper = 0;         ///< UpperLimit
};

/// The outcome of a validation.
struct Validation {
    bool ok = true;                         ///< whether the text is valid
    std::u16string text;                    ///< the text to write back into the box
    std::optional<std::u16string> message;  ///< the one message box to show, if any
    bool conversionFailed = false;          ///< the text is no number (ErrFlag is set)
};

/// Checks and normalises text ("12e" becomes "12", ".5" becomes "0.5"), checks the limits
/// and the length, and words the complaint. Free mode is always valid and untouched.
Validation validate(std::int32_t mode, const std::u16string& text, const Limits& limits,
                    std::int32_t maxLength, const MessageLookup& message);

/// The context of a typed reader: the box's ErrBase, the message texts, the error source.
struct ReaderContext {
    std::int32_t errBase = err::ObjectErrorBase;  ///< added to the error numbers
    MessageLookup message;                        ///< message texts
    std::u16string source;                        ///< the application title
};

/// The text as a Single ("" is 0); raises ErrBase + 3010 on overflow, ErrBase + the
/// conversion's own number otherwise.
float valSng(const std::u16string& text, const ReaderContext& ctx);
/// The text as a Double; raises ErrBase + 3011 on overflow.
double valDbl(const std::u16string& text, const ReaderContext& ctx);
/// The text as a Single, then rounded half to even to an Integer; raises ErrBase + 3012.
std::int16_t valInt(const std::u16string& text, const ReaderContext& ctx);
/// The text as a Long, rounded half to even; raises ErrBase + 3013 on overflow.
std::int32_t valLng(const std::u16string& text, const ReaderContext& ctx);

/// Whether a Mode value is accepted (0 to 4).
bool modeAccepted(std::int32_t mode);

}  // namespace numeric
}  // namespace corvex
