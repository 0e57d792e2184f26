#include "corvex/common/number_text.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace corvex {

namespace {

// Decimal digits of a rounded, non-zero, finite magnitude: "d[ddd...]" without trailing
// zeros, and the exponent e of d.ddd x 10^e.
struct Decimal {
    std::string digits;
    int exponent = 0;
};

// <charconv> rounds the exact binary value correctly (ties to even) and carries a
// round-up into the exponent ("9.99..." -> "1.00...e+N+1"), so the exponent we get is
// that of the rounded value, which is the one that picks the layout. Unlike printf it
// ignores the process locale, whose decimal point need not be ".".
Decimal roundToDigits(double magnitude, int significantDigits) {
    char buf[64];
    const auto r = std::to_chars(buf, buf + sizeof buf, magnitude, std::chars_format::scientific,
                                 significantDigits - 1);
    Decimal d;
    const char* p = buf;
    for (; p != r.ptr && *p != 'e'; ++p) {
        if (*p >= '0' && *p <= '9') d.digits += *p;
    }
    // What follows 'e' is a sign and at least two digits.
    const bool negative = p + 1 < r.ptr && p[1] == '-';
    int e = 0;
    std::from_chars(p + 2, r.ptr, e);
    d.exponent = negative ? -e : e;
    while (d.digits.size() > 1 && d.digits.back() == '0') d.digits.pop_back();
    return d;
}

std::u16string widen(const std::string& ascii) {
    return std::u16string(ascii.begin(), ascii.end());
}

// The shared layout of Double and Single: fixed form for exponents in
// [-5, fixedLimit), exponent form with a signed exponent of two or more digits otherwise.
std::u16string formatNumber(double value, int significantDigits, int fixedLimit) {
    if (std::isnan(value)) return u"NaN";
    if (std::isinf(value)) return value < 0 ? u"-Infinity" : u"Infinity";
    // Negative zero prints as plain zero: a sign on nothing is only noise to the user.
    if (value == 0) return u"0";

    const Decimal d = roundToDigits(std::fabs(value), significantDigits);
    std::string out;
    if (value < 0) out += '-';

    const int e = d.exponent;
    if (e >= -5 && e < fixedLimit) {
        if (e < 0) {
            out += "0.";
            out.append(static_cast<std::size_t>(-e - 1), '0');
            out += d.digits;
        } else {
            const auto intLen = static_cast<std::size_t>(e) + 1;
            if (d.digits.size() <= intLen) {
                out += d.digits;
                out.append(intLen - d.digits.size(), '0');
            } else {
                out.append(d.digits, 0, intLen);
                out += '.';
                out.append(d.digits, intLen, std::string::npos);
            }
        }
    } else {
        out += d.digits[0];
        if (d.digits.size() > 1) {
            out += '.';
            out.append(d.digits, 1, std::string::npos);
        }
        out += 'E';
        out += e < 0 ? '-' : '+';
        const int mag = e < 0 ? -e : e;
        if (mag < 10) out += '0';
        out += std::to_string(mag);
    }
    return widen(out);
}

bool isBlank(char16_t c) {
    return c == u' ' || c == u'\t';
}
bool isDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

// Enough significant digits to decide the correctly rounded Double of any decimal:
// a Double's halfway points need at most 767 of them. Digits beyond these only
// matter by whether any is non-zero, which one extra "1" stands in for.
constexpr std::size_t kKeptDigits = 800;
// Past these decimal exponents (of 0.ddd x 10^E) the value is certainly beyond the
// largest Double or certainly below half the smallest subnormal.
constexpr std::int64_t kOverflowExponent = 310;
constexpr std::int64_t kUnderflowExponent = -330;
// Exponents are read saturating here; anything this large is decided above anyway.
constexpr std::int64_t kExponentCap = 1'000'000'000;

}  // namespace

std::u16string formatDouble(double value) {
    return formatNumber(value, 15, 15);
}

std::u16string formatSingle(float value) {
    // float -> double is exact, so the rounding to 7 digits is from the Single's own value.
    return formatNumber(static_cast<double>(value), 7, 7);
}

std::u16string formatDoubleWithSign(double value) {
    std::u16string text = formatDouble(value);
    if (!(value < 0)) text.insert(text.begin(), u' ');
    return text;
}

ParsedNumber parseDouble(std::u16string_view text) {
    ParsedNumber bad;  // TypeMismatch
    std::size_t i = 0;
    const std::size_t n = text.size();
    while (i < n && isBlank(text[i])) ++i;

    bool negative = false;
    if (i < n && (text[i] == u'+' || text[i] == u'-')) {
        negative = text[i] == u'-';
        ++i;
    }

    // Significant digits without leading zeros, and where the decimal point falls
    // relative to them: value = 0.<digits> x 10^pointPos.
    std::string digits;
    bool sticky = false;  // a non-zero digit was dropped past kKeptDigits
    std::int64_t pointPos = 0;
    std::size_t digitCount = 0;

    const auto takeDigit = [&](char16_t c, bool afterPoint) {
        ++digitCount;
        if (digits.empty() && c == u'0') {
            if (afterPoint) --pointPos;
            return;
        }
        if (!afterPoint) ++pointPos;
        if (digits.size() < kKeptDigits) {
            digits += static_cast<char>(c);
        } else if (c != u'0') {
            sticky = true;
        }
    };

    while (i < n && isDigit(text[i])) takeDigit(text[i++], false);
    if (i < n && text[i] == u'.') {
        ++i;
        while (i < n && isDigit(text[i])) takeDigit(text[i++], true);
    }
    if (digitCount == 0) return bad;

    std::int64_t exponent = 0;
    if (i < n && (text[i] == u'E' || text[i] == u'e' || text[i] == u'D' || text[i] == u'd')) {
        ++i;
        bool expNegative = false;
        if (i < n && (text[i] == u'+' || text[i] == u'-')) {
            expNegative = text[i] == u'-';
            ++i;
        }
        if (i >= n || !isDigit(text[i])) return bad;
        while (i < n && isDigit(text[i])) {
            if (exponent < kExponentCap) exponent = exponent * 10 + (text[i] - u'0');
            ++i;
        }
        if (expNegative) exponent = -exponent;
    }

    while (i < n && isBlank(text[i])) ++i;
    if (i != n) return bad;

    ParsedNumber result;
    result.status = ParseStatus::Ok;
    const double zero = negative ? -0.0 : 0.0;
    if (digits.empty()) {
        result.value = zero;
        return result;
    }
    const std::int64_t scale = pointPos + exponent;
    if (scale > kOverflowExponent) {
        result.status = ParseStatus::Overflow;
        return result;
    }
    if (scale < kUnderflowExponent) {
        result.value = zero;
        return result;
    }

    // from_chars rather than strtod: strtod follows the process locale's decimal
    // point, and a host application may well have set one that is not ".".
    std::string ascii = "0.";
    ascii += digits;
    if (sticky) ascii += '1';
    ascii += 'e';
    ascii += std::to_string(scale);
    double value = 0;
    const auto [end, ec] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
    (void)end;
    if (ec == std::errc::result_out_of_range) {
        if (scale > 0) {
            result.status = ParseStatus::Overflow;
            return result;
        }
        value = 0;  // below the smallest subnormal: rounds to zero
    } else if (ec != std::errc()) {
        return bad;  // cannot happen for the text built above
    }
    if (std::isinf(value)) {
        result.status = ParseStatus::Overflow;
        return result;
    }
    result.value = negative ? -value : value;
    return result;
}

double roundHalfEven(double value) {
    if (!std::isfinite(value)) return value;
    const double magnitude = std::fabs(value);
    // From 2^52 up every Double is a whole number.
    if (magnitude >= 4503599627370496.0) return value;
    const double whole = std::floor(magnitude);
    // Exact: both are Doubles of the same binade or the whole part is zero.
    const double fraction = magnitude - whole;
    double rounded = whole;
    if (fraction > 0.5 || (fraction == 0.5 && std::fmod(whole, 2.0) != 0)) rounded += 1;
    return std::copysign(rounded, value);
}

}  // namespace corvex
