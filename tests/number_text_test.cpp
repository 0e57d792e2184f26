#include "corvex/common/number_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>
#include <random>
#include <string>

#include "corvex/common/text.h"

namespace corvex {
namespace {

std::string fmt(double d) {
    return toUtf8(formatDouble(d));
}
std::string fmtSingle(float f) {
    return toUtf8(formatSingle(f));
}
std::string fmtSigned(double d) {
    return toUtf8(formatDoubleWithSign(d));
}
ParsedNumber parse(std::string_view ascii) {
    return parseDouble(u16(ascii));
}

// The value rounded to 15 significant digits, worked out independently of the code
// under test by the C library; nothing when that rounding is beyond the largest Double.
std::optional<double> roundedTo15(double d) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.14e", d);
    errno = 0;
    const double back = std::strtod(buf, nullptr);
    if (errno == ERANGE && std::isinf(back)) return std::nullopt;
    return back;
}

// The decimal exponent of the 15-digit rounding of d, again by the C library.
int roundedExponent(double d) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.14e", d);
    return std::atoi(std::strchr(buf, 'e') + 1);
}

// ---------------------------------------------------------------------------------
// Double to text

TEST(NumberText, shouldWriteWholeNumbersWithoutDecimalPoint) {
    EXPECT_EQ(fmt(12), "12");
    EXPECT_EQ(fmt(100), "100");
    EXPECT_EQ(fmt(-7), "-7");
    EXPECT_EQ(fmt(999999999999999.0), "999999999999999");
}

TEST(NumberText, shouldWriteLargeMagnitudesInExponentForm) {
    EXPECT_EQ(fmt(1E15), "1E+15");
    EXPECT_EQ(fmt(-1E15), "-1E+15");
    EXPECT_EQ(fmt(123456789012345678.0), "1.23456789012346E+17");
    EXPECT_EQ(fmt(1.7976931348623157E308), "1.79769313486232E+308");
    EXPECT_EQ(fmt(2.5E100), "2.5E+100");
}

TEST(NumberText, shouldWriteTheSmallestSubnormalInExponentForm) {
    EXPECT_EQ(fmt(4.9406564584124654E-324), "4.94065645841247E-324");
    EXPECT_EQ(fmt(std::numeric_limits<double>::denorm_min()), "4.94065645841247E-324");
}

TEST(NumberText, shouldKeepFixedFormDownToOneHundredThousandth) {
    EXPECT_EQ(fmt(0.00001), "0.00001");
    EXPECT_EQ(fmt(0.000012345), "0.000012345");
    EXPECT_EQ(fmt(0.000001), "1E-06");
    EXPECT_EQ(fmt(1.5E-7), "1.5E-07");
    EXPECT_EQ(fmt(-1.5E-7), "-1.5E-07");
}

TEST(NumberText, shouldWriteFractionsWithLeadingZero) {
    EXPECT_EQ(fmt(0.1), "0.1");
    EXPECT_EQ(fmt(0.5), "0.5");
    EXPECT_EQ(fmt(-0.5), "-0.5");
    EXPECT_EQ(fmt(3.25), "3.25");
}

TEST(NumberText, shouldRoundToFifteenSignificantDigits) {
    EXPECT_EQ(fmt(0.1 + 0.2), "0.3");
    EXPECT_EQ(fmt(1.0 / 3.0), "0.333333333333333");
    EXPECT_EQ(fmt(2.0 / 3.0), "0.666666666666667");
    EXPECT_EQ(fmt(3.14159265358979323846), "3.14159265358979");
    EXPECT_EQ(fmt(123456.7890123456789), "123456.789012346");
}

TEST(NumberText, shouldChooseLayoutByTheExponentAfterRounding) {
    // Both round up into the next decade, which changes the form they are written in.
    EXPECT_EQ(fmt(999999999999999.9), "1E+15");
    EXPECT_EQ(fmt(9.9999999999999991E-6), "0.00001");
}

TEST(NumberText, shouldWriteNegativeZeroAsZero) {
    EXPECT_EQ(fmt(-0.0), "0");
    EXPECT_EQ(fmt(0.0), "0");
}

TEST(NumberText, shouldNameNonFiniteValues) {
    EXPECT_EQ(fmt(std::numeric_limits<double>::quiet_NaN()), "NaN");
    EXPECT_EQ(fmt(std::numeric_limits<double>::infinity()), "Infinity");
    EXPECT_EQ(fmt(-std::numeric_limits<double>::infinity()), "-Infinity");
}

TEST(NumberText, shouldPrefixNonNegativeNumbersWithABlankWhenAskedForASign) {
    EXPECT_EQ(fmtSigned(5), " 5");
    EXPECT_EQ(fmtSigned(0), " 0");
    EXPECT_EQ(fmtSigned(-0.0), " 0");
    EXPECT_EQ(fmtSigned(-5), "-5");
    EXPECT_EQ(fmtSigned(0.5), " 0.5");
    EXPECT_EQ(fmtSigned(1E20), " 1E+20");
}

// ---------------------------------------------------------------------------------
// Single to text

TEST(NumberText, shouldWriteSinglesWithSevenSignificantDigits) {
    EXPECT_EQ(fmtSingle(1234567.0f), "1234567");
    EXPECT_EQ(fmtSingle(12345678.0f), "1.234568E+07");
    EXPECT_EQ(fmtSingle(0.1f), "0.1");
    EXPECT_EQ(fmtSingle(3.4028235E38f), "3.402823E+38");
    EXPECT_EQ(fmtSingle(-2.5f), "-2.5");
    EXPECT_EQ(fmtSingle(1.0f / 3.0f), "0.3333333");
    EXPECT_EQ(fmtSingle(0.00001f), "0.00001");
    EXPECT_EQ(fmtSingle(0.000001f), "1E-06");
    EXPECT_EQ(fmtSingle(-0.0f), "0");
}

TEST(NumberText, shouldChooseSingleLayoutByTheExponentAfterRounding) {
    EXPECT_EQ(fmtSingle(9999999.0f), "9999999");
    EXPECT_EQ(fmtSingle(9999999.5f), "1E+07");
}

// ---------------------------------------------------------------------------------
// Text to Double

TEST(NumberText, shouldReadPlainNumbers) {
    const struct {
        const char* text;
        double value;
    } cases[] = {
        {"12", 12},
        {"-0.5", -0.5},
        {"+3", 3},
        {"5.", 5},
        {".5", 0.5},
        {"-.5", -0.5},
        {"0", 0},
        {"007", 7},
        {"1.5e-3", 1.5e-3},
        {"1E+20", 1e20},
        {"2e3", 2000},
        {"0.1", 0.1},
        {"3.14159265358979", 3.14159265358979},
        {"1.7976931348623157e308", std::numeric_limits<double>::max()},
    };
    for (const auto& c : cases) {
        const ParsedNumber p = parse(c.text);
        EXPECT_EQ(p.status, ParseStatus::Ok) << c.text;
        EXPECT_EQ(p.value, c.value) << c.text;
    }
}

TEST(NumberText, shouldAcceptDAsExponentMarkerInEitherCase) {
    EXPECT_EQ(parse("1D2").value, 100);
    EXPECT_EQ(parse("1d2").value, 100);
    EXPECT_EQ(parse("1.5D-1").value, 0.15);
    EXPECT_EQ(parse("1e2").value, 100);
    EXPECT_EQ(parse("1E2").value, 100);
    EXPECT_EQ(parse("1d2").status, ParseStatus::Ok);
}

TEST(NumberText, shouldIgnoreBlanksAroundTheNumber) {
    for (const char* text : {" 42", "42 ", " 42 ", "\t42\t", " \t 42 \t "}) {
        const ParsedNumber p = parse(text);
        EXPECT_EQ(p.status, ParseStatus::Ok) << '[' << text << ']';
        EXPECT_EQ(p.value, 42) << '[' << text << ']';
    }
}

TEST(NumberText, shouldRejectTextThatIsNotANumber) {
    for (const char* text :
         {"",         " ",    ".",    "-",     "+",     "-.",    "e5",    "E5",   ".e5",
          "1e",       "1e-",  "1e+",  "1D",    "abc",   "12abc", "1 2",   "1,5",  "1.000,5",
          "- 5",      "1 e5", "1e 5", "1.2.3", "--1",   "+-1",   "1e5.5", "0x10", "inf",
          "Infinity", "nan",  "1f",   "&H10",  "1e5e5", "$5"}) {
        EXPECT_EQ(parse(text).status, ParseStatus::TypeMismatch) << '[' << text << ']';
    }
}

TEST(NumberText, shouldRejectBlanksOtherThanSpaceAndTab) {
    EXPECT_EQ(parseDouble(u"\u00A05").status, ParseStatus::TypeMismatch);
    EXPECT_EQ(parseDouble(u"5\n").status, ParseStatus::TypeMismatch);
    EXPECT_EQ(parseDouble(u"\u30005").status, ParseStatus::TypeMismatch);
}

TEST(NumberText, shouldRejectDigitsOutsideAscii) {
    EXPECT_EQ(parseDouble(u"\uFF11\uFF12").status, ParseStatus::TypeMismatch);  // full width
    EXPECT_EQ(parseDouble(u"\u0661").status, ParseStatus::TypeMismatch);        // Arabic-Indic
    EXPECT_EQ(parseDouble(u"1\uFF10").status, ParseStatus::TypeMismatch);
}

TEST(NumberText, shouldReportOverflowBeyondTheLargestDouble) {
    EXPECT_EQ(parse("1E309").status, ParseStatus::Overflow);
    EXPECT_EQ(parse("-1e400").status, ParseStatus::Overflow);
    EXPECT_EQ(parse("1.7976931348623159e308").status, ParseStatus::Overflow);
    EXPECT_EQ(parse("1e99999999999999999999").status, ParseStatus::Overflow);
    EXPECT_EQ(parse("1000e306").status, ParseStatus::Overflow);
}

TEST(NumberText, shouldUnderflowToZeroOrSubnormalWithoutError) {
    const ParsedNumber tiny = parse("1e-400");
    EXPECT_EQ(tiny.status, ParseStatus::Ok);
    EXPECT_EQ(tiny.value, 0);

    const ParsedNumber sub = parse("4.9406564584124654E-324");
    EXPECT_EQ(sub.status, ParseStatus::Ok);
    EXPECT_EQ(sub.value, std::numeric_limits<double>::denorm_min());

    const ParsedNumber below = parse("2e-324");
    EXPECT_EQ(below.status, ParseStatus::Ok);
    EXPECT_EQ(below.value, 0);

    const ParsedNumber far = parse("-1e-99999999999999999999");
    EXPECT_EQ(far.status, ParseStatus::Ok);
    EXPECT_EQ(far.value, 0);
}

TEST(NumberText, shouldTreatZeroWithAnyExponentAsZero) {
    for (const char* text : {"0e999999", "-0", "0.000", "000.000e-5000", ".0"}) {
        const ParsedNumber p = parse(text);
        EXPECT_EQ(p.status, ParseStatus::Ok) << text;
        EXPECT_EQ(p.value, 0) << text;
    }
}

TEST(NumberText, shouldRoundHalfwayDecimalsCorrectlyEvenPastManyDigits) {
    // 1 + 2^-53 lies exactly between 1 and the next Double; a tie goes to the even one.
    const std::string half = "1.00000000000000011102230246251565404236316680908203125";
    EXPECT_EQ(parse(half).value, 1.0);
    // Any non-zero digit after the tie, however far out, tips it upwards.
    const std::string above = half + std::string(2000, '0') + "1";
    EXPECT_EQ(parse(above).value, std::nextafter(1.0, 2.0));
    const std::string exactTie = half + std::string(2000, '0');
    EXPECT_EQ(parse(exactTie).value, 1.0);
}

TEST(NumberText, shouldReadAMillionDigitsWithoutTrouble) {
    const std::string ones(1'000'000, '1');
    EXPECT_EQ(parse(ones).status, ParseStatus::Overflow);

    const std::string scaledBack = "1" + std::string(1'000'000, '0') + "e-1000000";
    const ParsedNumber one = parse(scaledBack);
    EXPECT_EQ(one.status, ParseStatus::Ok);
    EXPECT_EQ(one.value, 1.0);

    const std::string smallFraction = "0." + std::string(1'000'000, '0') + "5e1000000";
    const ParsedNumber half = parse(smallFraction);
    EXPECT_EQ(half.status, ParseStatus::Ok);
    EXPECT_EQ(half.value, 0.5);

    const std::string junkAtEnd = std::string(1'000'000, '7') + "x";
    EXPECT_EQ(parse(junkAtEnd).status, ParseStatus::TypeMismatch);
}

// ---------------------------------------------------------------------------------
// Round trips

TEST(NumberText, shouldReadBackItsOwnTextAsTheValueRoundedToFifteenDigits) {
    std::mt19937_64 rng(20240607);
    int checked = 0;
    while (checked < 20000) {
        const double d = std::bit_cast<double>(rng());
        if (!std::isfinite(d)) continue;
        ++checked;
        const std::u16string text = formatDouble(d);
        const ParsedNumber p = parseDouble(text);
        const std::optional<double> expected = roundedTo15(d);
        if (!expected) {
            ASSERT_EQ(p.status, ParseStatus::Overflow) << toUtf8(text);
            continue;
        }
        ASSERT_EQ(p.status, ParseStatus::Ok) << toUtf8(text);
        ASSERT_EQ(p.value, *expected) << toUtf8(text) << " from " << d;
    }
}

TEST(NumberText, shouldUseFixedFormExactlyForExponentsFromMinusFiveToFourteen) {
    std::mt19937_64 rng(77);
    std::uniform_real_distribution<double> decade(-9, 19);
    std::uniform_real_distribution<double> mantissa(1, 10);
    for (int i = 0; i < 20000; ++i) {
        const double d = mantissa(rng) * std::pow(10.0, std::floor(decade(rng)));
        const int e = roundedExponent(d);
        const std::string text = fmt(d);
        const bool exponentForm = text.find('E') != std::string::npos;
        ASSERT_EQ(exponentForm, e < -5 || e >= 15) << text;
        ASSERT_EQ(parse(text).value, roundedTo15(d).value()) << text;
        if (exponentForm) {
            // A signed exponent of at least two digits.
            const auto at = text.find('E');
            ASSERT_TRUE(text[at + 1] == '+' || text[at + 1] == '-') << text;
            ASSERT_GE(text.size() - at - 2, 2u) << text;
        }
        ASSERT_EQ(text.find(' '), std::string::npos) << text;
    }
}

TEST(NumberText, shouldReadBackSinglesAsTheSameSingle) {
    // Seven digits do not always single out a Single, but they come within half a unit
    // of the seventh digit of it.
    std::mt19937 rng(5);
    int checked = 0;
    while (checked < 20000) {
        const float f = std::bit_cast<float>(static_cast<std::uint32_t>(rng()));
        if (!std::isfinite(f) || f == 0) continue;
        ++checked;
        const std::string text = fmtSingle(f);
        const ParsedNumber p = parse(text);
        ASSERT_EQ(p.status, ParseStatus::Ok) << text;
        const double rel = std::fabs(p.value - f) / std::fabs(static_cast<double>(f));
        ASSERT_LE(rel, 5.0000001e-7) << text << " from " << f;
    }
}

TEST(NumberText, shouldReadTheTopmostDoublesTextAsOverflow) {
    // Fifteen digits of the largest Double round up past it, so its text names a number
    // that no Double holds.
    const std::string text = fmt(std::numeric_limits<double>::max());
    EXPECT_EQ(text, "1.79769313486232E+308");
    EXPECT_EQ(parse(text).status, ParseStatus::Overflow);
    // One step down in the 15th digit reads back fine.
    const ParsedNumber below = parse("1.79769313486231E+308");
    EXPECT_EQ(below.status, ParseStatus::Ok);
    EXPECT_EQ(fmt(below.value), "1.79769313486231E+308");
}

// ---------------------------------------------------------------------------------
// Rounding

TEST(NumberText, shouldRoundHalvesToTheEvenNeighbour) {
    EXPECT_EQ(roundHalfEven(2.5), 2);
    EXPECT_EQ(roundHalfEven(3.5), 4);
    EXPECT_EQ(roundHalfEven(-2.5), -2);
    EXPECT_EQ(roundHalfEven(-3.5), -4);
    EXPECT_EQ(roundHalfEven(0.5), 0);
    EXPECT_EQ(roundHalfEven(-0.5), 0);
    EXPECT_EQ(roundHalfEven(1.5), 2);
    EXPECT_EQ(roundHalfEven(32767.5), 32768);
    EXPECT_EQ(roundHalfEven(-32768.5), -32768);
}

TEST(NumberText, shouldRoundOtherValuesToTheNearestWholeNumber) {
    EXPECT_EQ(roundHalfEven(2.4999), 2);
    EXPECT_EQ(roundHalfEven(2.5000001), 3);
    EXPECT_EQ(roundHalfEven(-2.5000001), -3);
    EXPECT_EQ(roundHalfEven(0.49999999999999994), 0);
    EXPECT_EQ(roundHalfEven(-0.49999999999999994), 0);
    EXPECT_EQ(roundHalfEven(7), 7);
    EXPECT_EQ(roundHalfEven(1e300), 1e300);
    EXPECT_EQ(roundHalfEven(4503599627370497.0), 4503599627370497.0);
    EXPECT_EQ(roundHalfEven(2251799813685248.5), 2251799813685248.0);
    EXPECT_EQ(roundHalfEven(2251799813685249.5), 2251799813685250.0);
}

}  // namespace
}  // namespace corvex
