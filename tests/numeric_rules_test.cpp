// The numeric rules on their own: key filter, validation and its wording, typed readers.
#include "corvex/entry/numeric_rules.h"

#include <gtest/gtest.h>

using namespace corvex;
using namespace corvex::numeric;

namespace {

constexpr std::int32_t PM_decimal = 0, P_decimal = 1, PM_Integer = 2, P_Integer = 3, Free = 4;

bool accepts(std::int32_t mode, char16_t ch, std::int32_t caret, std::u16string_view text) {
    return filterKey(mode, static_cast<std::int16_t>(ch), caret, text) != 0;
}

// Types text character by character at the end, as a user does; refused keys are dropped.
std::u16string typeAtEnd(std::int32_t mode, std::u16string_view keys) {
    std::u16string text;
    for (char16_t c : keys) {
        const std::int16_t k = filterKey(mode, static_cast<std::int16_t>(c),
                                         static_cast<std::int32_t>(text.size()), text);
        if (k != 0) text += static_cast<char16_t>(k);
    }
    return text;
}

MessageLookup english() {
    return [](int code) { return messages().text(code, false); };
}
MessageLookup japanese() {
    return [](int code) { return messages().text(code, true); };
}

Validation check(const std::u16string& text, std::int32_t mode = PM_decimal, Limits limits = {},
                 std::int32_t maxLength = 0, const MessageLookup& m = english()) {
    return validate(mode, text, limits, maxLength, m);
}

// --- key filter ----------------------------------------------------------------------

TEST(KeyFilter, shouldRefuseAMinusAtTheStartInMode1) {
    EXPECT_FALSE(accepts(P_decimal, u'-', 0, u""));
    EXPECT_FALSE(accepts(P_Integer, u'-', 0, u"5"));
    EXPECT_TRUE(accepts(PM_decimal, u'-', 0, u"5"));
    EXPECT_TRUE(accepts(PM_Integer, u'-', 0, u""));
}

TEST(KeyFilter, shouldAcceptAMinusRightAfterAnExponentLetterInMode1) {
    EXPECT_EQ(typeAtEnd(P_decimal, u"1e-"), u"1e-");
}

TEST(KeyFilter, shouldRefuseASecondMinusBeforeAnExistingOneAfterTheExponent) {
    // Caret between "e" and its "-".
    EXPECT_FALSE(accepts(P_decimal, u'-', 2, u"1e-"));
}

TEST(KeyFilter, shouldRefuseAMinusAnywhereElse) {
    EXPECT_FALSE(accepts(PM_decimal, u'-', 1, u"12"));
    EXPECT_FALSE(accepts(PM_decimal, u'-', 2, u"1.5"));
}

TEST(KeyFilter, shouldRefuseAPointAfterAnExponentLetter) {
    EXPECT_FALSE(accepts(PM_decimal, u'.', 2, u"1e"));
    EXPECT_FALSE(accepts(PM_decimal, u'.', 3, u"1E5"));
    EXPECT_FALSE(accepts(PM_decimal, u'.', 3, u"1d5"));
}

TEST(KeyFilter, shouldRefuseASecondPoint) {
    EXPECT_FALSE(accepts(PM_decimal, u'.', 0, u"1.5"));
    EXPECT_FALSE(accepts(P_decimal, u'.', 3, u"1.5"));
}

TEST(KeyFilter, shouldRefuseAnExponentLetterBeforeAnExistingPoint) {
    EXPECT_FALSE(accepts(PM_decimal, u'e', 1, u"1.5"));
}

TEST(KeyFilter, shouldRefuseAnExponentLetterAtTheStart) {
    EXPECT_FALSE(accepts(PM_decimal, u'e', 0, u"15"));
    EXPECT_FALSE(accepts(PM_decimal, u'E', 0, u""));
}

TEST(KeyFilter, shouldRefuseAnExponentLetterAfterAPointOrAMinus) {
    EXPECT_FALSE(accepts(PM_decimal, u'e', 2, u"1."));
    EXPECT_FALSE(accepts(PM_decimal, u'e', 1, u"-"));
}

TEST(KeyFilter, shouldRefuseASecondExponentLetter) {
    EXPECT_FALSE(accepts(PM_decimal, u'D', 3, u"1e5"));
}

TEST(KeyFilter, shouldAcceptAllFourExponentLettersInDecimalModes) {
    for (char16_t c : std::u16string(u"EeDd")) {
        EXPECT_TRUE(accepts(PM_decimal, c, 1, u"1"));
        EXPECT_TRUE(accepts(P_decimal, c, 1, u"1"));
        EXPECT_FALSE(accepts(PM_Integer, c, 1, u"1"));
        EXPECT_FALSE(accepts(P_Integer, c, 1, u"1"));
    }
}

TEST(KeyFilter, shouldRefuseAPointInIntegerModes) {
    EXPECT_FALSE(accepts(PM_Integer, u'.', 1, u"1"));
    EXPECT_FALSE(accepts(P_Integer, u'.', 1, u"1"));
}

TEST(KeyFilter, shouldRefuseAnythingInFrontOfALeadingMinusEvenBackspace) {
    EXPECT_FALSE(accepts(PM_decimal, u'5', 0, u"-1"));
    EXPECT_FALSE(accepts(PM_decimal, u'\b', 0, u"-1"));
    EXPECT_TRUE(accepts(PM_decimal, u'\b', 1, u"-1"));
}

TEST(KeyFilter, shouldAcceptBackspaceAndDigitsAndRefuseEnterAndLetters) {
    EXPECT_TRUE(accepts(P_Integer, u'\b', 1, u"1"));
    for (char16_t c = u'0'; c <= u'9'; ++c) EXPECT_TRUE(accepts(P_Integer, c, 0, u""));
    EXPECT_FALSE(accepts(PM_decimal, u'\r', 1, u"1"));
    EXPECT_FALSE(accepts(PM_decimal, u'x', 1, u"1"));
    EXPECT_FALSE(accepts(PM_decimal, u' ', 1, u"1"));
    EXPECT_FALSE(accepts(PM_decimal, u'+', 0, u""));
    EXPECT_FALSE(accepts(PM_decimal, static_cast<char16_t>(3), 0, u"")) << "Ctrl+C's character";
    EXPECT_FALSE(accepts(PM_decimal, u'５', 0, u"")) << "full-width digits are not digits";
}

TEST(KeyFilter, shouldLetEverythingThroughInFreeMode) {
    EXPECT_TRUE(accepts(Free, u'x', 0, u"-1"));
    EXPECT_EQ(filterKey(Free, 13, 0, u""), 13);
}

TEST(KeyFilter, shouldRefusePointsAndExponentsInAModeOutsideTheRange) {
    EXPECT_FALSE(accepts(7, u'.', 1, u"1"));
    EXPECT_FALSE(accepts(7, u'e', 1, u"1"));
    EXPECT_FALSE(accepts(7, u'-', 0, u""));
    EXPECT_TRUE(accepts(7, u'5', 0, u""));
}

TEST(KeyFilter, shouldTypeOnePointFiveEMinusThreeInEachMode) {
    EXPECT_EQ(typeAtEnd(PM_decimal, u"1.5e-3"), u"1.5e-3");
    EXPECT_EQ(typeAtEnd(P_decimal, u"1.5e-3"), u"1.5e-3");
    EXPECT_EQ(typeAtEnd(PM_Integer, u"1.5e-3"), u"153");
    EXPECT_EQ(typeAtEnd(P_Integer, u"1.5e-3"), u"153");
    EXPECT_EQ(typeAtEnd(Free, u"1.5e-3"), u"1.5e-3");
}

TEST(KeyFilter, shouldJudgeByTheCaretInTheMiddleOfTheText) {
    // "12|34": a point and an exponent both fit at the caret.
    EXPECT_TRUE(accepts(PM_decimal, u'.', 2, u"1234"));
    EXPECT_TRUE(accepts(PM_decimal, u'e', 2, u"1234"));
    EXPECT_FALSE(accepts(PM_decimal, u'.', 3, u"12e34")) << "the exponent lies before the caret";
    EXPECT_TRUE(accepts(PM_decimal, u'.', 2, u"12e34")) << "the exponent lies after the caret";
}

TEST(KeyFilter, shouldIgnoreTheSelectionThatATypedCharacterWouldReplace) {
    // With "1.5" all selected the point still counts as present.
    EXPECT_FALSE(accepts(PM_decimal, u'.', 0, u"1.5"));
}

// --- validation ------------------------------------------------------------------------

TEST(Validate, shouldTreatADanglingExponentAsExponentZero) {
    const Validation v = check(u"12e");
    EXPECT_TRUE(v.ok);
    EXPECT_EQ(v.text, u"12");
    EXPECT_EQ(check(u"12E-").text, u"12");
    EXPECT_EQ(check(u"3d").text, u"3");
}

TEST(Validate, shouldPutAZeroBeforeALeadingPoint) {
    EXPECT_EQ(check(u"-.5").text, u"-0.5");
    EXPECT_EQ(check(u".5").text, u"0.5");
}

TEST(Validate, shouldNormaliseTheNumber) {
    EXPECT_EQ(check(u"1.50").text, u"1.5");
    EXPECT_EQ(check(u"1e3").text, u"1000");
    EXPECT_EQ(check(u"1D3").text, u"1000");
    EXPECT_EQ(check(u"1.5e-3").text, u"0.0015");
    EXPECT_EQ(check(u"1e20").text, u"1E+20");
    EXPECT_EQ(check(u"007").text, u"7");
}

TEST(Validate, shouldLeaveAnEmptyTextEmptyAndValidWithoutLimits) {
    const Validation v = check(u"");
    EXPECT_TRUE(v.ok);
    EXPECT_EQ(v.text, u"");
    EXPECT_FALSE(v.message);
}

TEST(Validate, shouldCheckAnEmptyTextAsZeroAgainstTheLimits) {
    const Validation v = check(u"", PM_decimal, {true, 1, 10});
    EXPECT_FALSE(v.ok);
    EXPECT_EQ(v.text, u"") << "its text stays empty";
    ASSERT_TRUE(v.message);
}

TEST(Validate, shouldMeanNoLimitWhenBothLimitsAreEqual) {
    EXPECT_TRUE(check(u"1000", PM_decimal, {true, 5, 5}).ok);
    EXPECT_TRUE(check(u"-3", PM_decimal, {true, 5, 5}).ok);
}

TEST(Validate, shouldIncludeBothLimits) {
    EXPECT_TRUE(check(u"0", PM_decimal, {true, 0, 100}).ok);
    EXPECT_TRUE(check(u"100", PM_decimal, {true, 0, 100}).ok);
    EXPECT_FALSE(check(u"100.5", PM_decimal, {true, 0, 100}).ok);
}

TEST(Validate, shouldShowTheLimitsWithTheirLeadingBlanks) {
    const Validation v = check(u"150", PM_decimal, {true, 0, 100});
    EXPECT_FALSE(v.ok);
    EXPECT_EQ(v.text, u"150");
    EXPECT_EQ(*v.message, u"Input value out of defined range.\r 0≦ Input ≦ 100");
    const Validation n = check(u"-50", PM_decimal, {true, -10, 2.5});
    EXPECT_EQ(*n.message, u"Input value out of defined range.\r-10≦ Input ≦ 2.5");
}

TEST(Validate, shouldWordTheRangeMessageInJapanese) {
    const Validation v = check(u"150", PM_decimal, {true, 0, 100}, 0, japanese());
    EXPECT_EQ(*v.message, u"入力が制限範囲を越えています\r 0≦ Input ≦ 100");
}

TEST(Validate, shouldRefuseLimitsTheWrongWayRoundAlone) {
    const Validation v = check(u"5", PM_decimal, {true, 10, 1});
    EXPECT_FALSE(v.ok);
    EXPECT_EQ(*v.message, u"Irregal limitation for input.");
    EXPECT_EQ(*check(u"5", PM_decimal, {true, 10, 1}, 0, japanese()).message,
              u"入力制限値の設定が不正です");
}

TEST(Validate, shouldIgnoreTheLimitsWithoutLimitCheck) {
    EXPECT_TRUE(check(u"150", PM_decimal, {false, 0, 100}).ok);
}

TEST(Validate, shouldRefuseATooLongNormalisedTextAndKeepIt) {
    const Validation v = check(u"1234", PM_decimal, {}, 3);
    EXPECT_FALSE(v.ok);
    EXPECT_EQ(v.text, u"1234");
    EXPECT_EQ(*v.message,
              u"The character number of converted value\rovered the defined maximum "
              u"limitation.\r")
        << "the empty third English line leaves a trailing carriage return";
    EXPECT_EQ(*check(u"1234", PM_decimal, {}, 3, japanese()).message,
              u"変換後の文字数が\r入力を許可されている\r最大値を越えました");
}

TEST(Validate, shouldMeasureTheNormalisedTextAgainstMaxLength) {
    EXPECT_TRUE(check(u"1.50", PM_decimal, {}, 3).ok) << "\"1.5\" fits in 3";
}

TEST(Validate, shouldKeepThePreparedTextWhenRefused) {
    const Validation v = check(u"12e", PM_decimal, {true, 0, 5});
    EXPECT_FALSE(v.ok);
    EXPECT_EQ(v.text, u"12e0") << "the prepared text, with its dangling exponent completed";
}

TEST(Validate, shouldWordAConversionFailureWithTheRangesOfADouble) {
    const Validation v = check(u"1-2");
    EXPECT_FALSE(v.ok);
    EXPECT_TRUE(v.conversionFailed);
    EXPECT_EQ(v.text, u"1-2");
    EXPECT_EQ(*v.message,
              u"Conversion error.\rCorrect input value.\rEffective input value：\r"
              u"Negative value -1.79769313486232E308 ～ -4.94065645841247E-324\r"
              u"Positive value  4.94065645841247E-324 ～  1.79769313486232E308");
    EXPECT_EQ(*check(u"1-2", PM_decimal, {}, 0, japanese()).message,
              u"変換エラーが生じました\r入力を修正してください\r入力可能な数値：\r"
              u"負の値は -1.79769313486232E308 ～ -4.94065645841247E-324\r"
              u"正の値は  4.94065645841247E-324 ～  1.79769313486232E308");
}

TEST(Validate, shouldTreatAnOverflowAsAConversionFailure) {
    const Validation v = check(u"1e999");
    EXPECT_FALSE(v.ok);
    EXPECT_TRUE(v.conversionFailed);
}

TEST(Validate, shouldFailAPastedTextThatTheFilterWouldHaveRefused) {
    const Validation v = check(u"12abc", P_Integer);
    EXPECT_FALSE(v.ok);
    EXPECT_TRUE(v.conversionFailed);
    EXPECT_EQ(v.text, u"12abc");
}

TEST(Validate, shouldAlwaysSucceedInFreeModeAndLeaveTheText) {
    const Validation v = check(u"anything at all", Free, {true, 0, 1}, 2);
    EXPECT_TRUE(v.ok);
    EXPECT_EQ(v.text, u"anything at all");
    EXPECT_FALSE(v.message);
}

// --- typed readers ---------------------------------------------------------------------

ReaderContext context(std::int32_t base = err::ObjectErrorBase) {
    return {base, english(), u"App"};
}

int errorOf(const std::function<void()>& f, std::u16string* description = nullptr,
            std::u16string* source = nullptr) {
    try {
        f();
    } catch (const Error& e) {
        if (description) *description = e.description();
        if (source) *source = e.source();
        return e.number();
    }
    return 0;
}

TEST(Readers, shouldReadAnEmptyTextAsZero) {
    EXPECT_EQ(valInt(u"", context()), 0);
    EXPECT_EQ(valLng(u"", context()), 0);
    EXPECT_EQ(valSng(u"", context()), 0.0f);
    EXPECT_EQ(valDbl(u"", context()), 0.0);
}

TEST(Readers, shouldReadTheTextAsItStands) {
    EXPECT_EQ(valDbl(u"1.5e-3", context()), 0.0015);
    EXPECT_EQ(valDbl(u" 12 ", context()), 12.0);
    EXPECT_EQ(valSng(u"0.1", context()), 0.1f);
    EXPECT_EQ(valInt(u"12", context()), 12);
}

TEST(Readers, shouldRoundHalfToEven) {
    EXPECT_EQ(valLng(u"2.5", context()), 2);
    EXPECT_EQ(valLng(u"3.5", context()), 4);
    EXPECT_EQ(valLng(u"-2.5", context()), -2);
    EXPECT_EQ(valInt(u"2.5", context()), 2);
    EXPECT_EQ(valInt(u"-3.5", context()), -4);
}

TEST(Readers, shouldRaise3012PlusErrBaseForIntegerOverflow) {
    std::u16string description, source;
    EXPECT_EQ(errorOf([] { valInt(u"40000", context()); }, &description, &source),
              err::ObjectErrorBase + 3012);
    EXPECT_EQ(description, u"Conversion to integer type error.");
    EXPECT_EQ(source, u"App");
}

TEST(Readers, shouldRaiseTypeMismatchPlusErrBaseForNonNumericText) {
    std::u16string description;
    EXPECT_EQ(errorOf([] { valInt(u"abc", context()); }, &description), err::ObjectErrorBase + 13);
    EXPECT_EQ(description, u"Type mismatch");
    EXPECT_EQ(errorOf([] { valDbl(u"1e", context()); }), err::ObjectErrorBase + 13);
}

TEST(Readers, shouldRaiseEachReadersOwnOverflowNumber) {
    std::u16string d;
    EXPECT_EQ(errorOf([] { valSng(u"1e39", context()); }, &d), err::ObjectErrorBase + 3010);
    EXPECT_EQ(d, u"Conversion to single type error.");
    EXPECT_EQ(errorOf([] { valDbl(u"1e309", context()); }, &d), err::ObjectErrorBase + 3011);
    EXPECT_EQ(d, u"Conversion to double type error.");
    EXPECT_EQ(errorOf([] { valLng(u"3000000000", context()); }, &d), err::ObjectErrorBase + 3013);
    EXPECT_EQ(d, u"Conversion to long integer type error.");
}

TEST(Readers, shouldGoThroughSinglePrecisionForValInt) {
    // 32767.5 rounds to 32768 as a Double; as a Single it is 32767.5 too, so both overflow,
    // but 32767.49 becomes 32767.490234375 as a Single and reads 32767.
    EXPECT_EQ(valInt(u"32767.49", context()), 32767);
    EXPECT_EQ(errorOf([] { valInt(u"32767.5", context()); }), err::ObjectErrorBase + 3012);
}

TEST(Readers, shouldAddACustomErrBase) {
    EXPECT_EQ(errorOf([] { valInt(u"40000", context(1000)); }), 4012);
}

TEST(Readers, shouldWordTheOverflowInJapanese) {
    std::u16string d;
    ReaderContext ctx{err::ObjectErrorBase, japanese(), u"App"};
    errorOf([&] { valInt(u"40000", ctx); }, &d);
    EXPECT_EQ(d, u"整数への変換エラーが生じました。");
}

TEST(Messages, shouldFallBackToUndefinedWithAStop) {
    EXPECT_EQ(messages().text(2999, false), u"Undefined.");
    EXPECT_EQ(messages().text(2999, true), u"未定義");
    EXPECT_EQ(messages().text(2006, false), u"Irregal limitation for input.");
}

}  // namespace
