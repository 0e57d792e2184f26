// The host's conversions between numbers and text, shared by the Variant and by the
// numeric controls' validation.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvex {

/// A Double as text: at most 15 significant digits, "." as decimal point, exponent form
/// ("1E+15", "4.94065645841247E-324") outside the fixed-form range; no leading blank.
std::u16string formatDouble(double value);
/// A Single as text: as formatDouble with at most 7 significant digits.
std::u16string formatSingle(float value);
/// As formatDouble, with a leading blank for a non-negative number (" 5", "-5").
std::u16string formatDoubleWithSign(double value);

/// The outcome of reading a number from text.
enum class ParseStatus { Ok, TypeMismatch, Overflow };

/// A number read from text, or why it could not be read.
struct ParsedNumber {
    ParseStatus status = ParseStatus::TypeMismatch;  ///< Ok, or the failure
    double value = 0;                                ///< the number when status is Ok
};

/// Reads a Double from text: blanks around it allowed, an optional sign, digits with an
/// optional "." and an optional exponent introduced by "E", "e", "D" or "d".
/// Non-numeric text gives TypeMismatch, a magnitude beyond a Double gives Overflow.
ParsedNumber parseDouble(std::u16string_view text);

/// Rounds to the nearest whole number, halves to the even neighbour (2.5 -> 2, 3.5 -> 4).
double roundHalfEven(double value);

}  // namespace corvex
