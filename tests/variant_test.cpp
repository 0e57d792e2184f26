#include "corvex/common/variant.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <string>

#include "corvex/common/error.h"
#include "corvex/common/font.h"
#include "corvex/common/text.h"

namespace corvex {
namespace {

// The number of the Error that f raises, or 0 when it raises none.
std::int32_t raised(const std::function<void()>& f) {
    try {
        f();
    } catch (const Error& e) {
        return e.number();
    }
    return 0;
}

std::string str(const Variant& v) {
    return toUtf8(v.toString());
}

Variant integer(int i) {
    return Variant(static_cast<std::int16_t>(i));
}
Variant longValue(std::int32_t l) {
    return Variant(l);
}
Variant text(std::string_view ascii) {
    return Variant(u16(ascii));
}
Variant anObject() {
    return Variant(ObjectRef(Font::make(FontDesc{})));
}

// ---------------------------------------------------------------------------------
// toString

TEST(Variant, shouldWriteBooleansAsTrueAndFalse) {
    EXPECT_EQ(str(Variant(true)), "True");
    EXPECT_EQ(str(Variant(false)), "False");
}

TEST(Variant, shouldWriteWholeNumbersInDecimal) {
    EXPECT_EQ(str(integer(-32768)), "-32768");
    EXPECT_EQ(str(integer(42)), "42");
    EXPECT_EQ(str(longValue(std::numeric_limits<std::int32_t>::max())), "2147483647");
    EXPECT_EQ(str(longValue(std::numeric_limits<std::int32_t>::min())), "-2147483648");
}

TEST(Variant, shouldWriteFractionalNumbersByTheirOwnPrecision) {
    EXPECT_EQ(str(Variant(0.1f)), "0.1");
    EXPECT_EQ(str(Variant(12345678.0f)), "1.234568E+07");
    EXPECT_EQ(str(Variant(0.1 + 0.2)), "0.3");
    EXPECT_EQ(str(Variant(1E15)), "1E+15");
    EXPECT_EQ(str(Variant(1.0 / 3.0)), "0.333333333333333");
}

TEST(Variant, shouldWriteEmptyAsEmptyTextAndTextAsItself) {
    EXPECT_EQ(str(Variant()), "");
    EXPECT_EQ(str(text(" a b ")), " a b ");
}

TEST(Variant, shouldRaiseTypeMismatchWhenWritingAnObjectAsText) {
    EXPECT_EQ(raised([] { (void)anObject().toString(); }), err::TypeMismatch);
}

// ---------------------------------------------------------------------------------
// Numbers from other kinds

TEST(Variant, shouldReadNumbersFromText) {
    EXPECT_EQ(text(" 1.5 ").toDouble(), 1.5);
    EXPECT_EQ(text("1D2").toDouble(), 100);
    EXPECT_EQ(text("-2e-1").toSingle(), -0.2f);
    EXPECT_EQ(text("\t70000 ").toLong(), 70000);
    EXPECT_EQ(text("123").toInteger(), 123);
}

TEST(Variant, shouldRaiseTypeMismatchForTextThatIsNoNumber) {
    EXPECT_EQ(raised([] { (void)text("abc").toDouble(); }), err::TypeMismatch);
    EXPECT_EQ(raised([] { (void)text("").toDouble(); }), err::TypeMismatch);
    EXPECT_EQ(raised([] { (void)text("1,5").toSingle(); }), err::TypeMismatch);
    EXPECT_EQ(raised([] { (void)text("12x").toLong(); }), err::TypeMismatch);
    EXPECT_EQ(raised([] { (void)text("1 2").toInteger(); }), err::TypeMismatch);
}

TEST(Variant, shouldRaiseOverflowForTextBeyondADouble) {
    EXPECT_EQ(raised([] { (void)text("1E309").toDouble(); }), err::Overflow);
    EXPECT_EQ(raised([] { (void)text("-1e400").toInteger(); }), err::Overflow);
}

TEST(Variant, shouldRaiseTypeMismatchWhenReadingANumberFromAnObject) {
    EXPECT_EQ(raised([] { (void)anObject().toDouble(); }), err::TypeMismatch);
    EXPECT_EQ(raised([] { (void)anObject().toInteger(); }), err::TypeMismatch);
}

TEST(Variant, shouldTurnBooleansIntoMinusOneAndZero) {
    EXPECT_EQ(Variant(true).toInteger(), -1);
    EXPECT_EQ(Variant(false).toInteger(), 0);
    EXPECT_EQ(Variant(true).toLong(), -1);
    EXPECT_EQ(Variant(true).toDouble(), -1.0);
    EXPECT_EQ(Variant(true).toSingle(), -1.0f);
}

TEST(Variant, shouldTurnEmptyIntoZero) {
    EXPECT_EQ(Variant().toInteger(), 0);
    EXPECT_EQ(Variant().toLong(), 0);
    EXPECT_EQ(Variant().toSingle(), 0.0f);
    EXPECT_EQ(Variant().toDouble(), 0.0);
}

TEST(Variant, shouldRoundToWholeNumbersHalfToEven) {
    EXPECT_EQ(Variant(2.5).toInteger(), 2);
    EXPECT_EQ(Variant(3.5).toInteger(), 4);
    EXPECT_EQ(Variant(-2.5).toInteger(), -2);
    EXPECT_EQ(Variant(2.6).toInteger(), 3);
    EXPECT_EQ(Variant(2.5f).toLong(), 2);
    EXPECT_EQ(Variant(-3.5).toLong(), -4);
    EXPECT_EQ(text("2.5").toInteger(), 2);
    EXPECT_EQ(text("3.5").toLong(), 4);
}

TEST(Variant, shouldKeepIntegersInTheirSixteenBitRange) {
    EXPECT_EQ(Variant(32767.4).toInteger(), 32767);
    EXPECT_EQ(raised([] { (void)Variant(32767.5).toInteger(); }), err::Overflow);
    EXPECT_EQ(Variant(-32768.5).toInteger(), -32768);
    EXPECT_EQ(raised([] { (void)Variant(-32769.0).toInteger(); }), err::Overflow);
    EXPECT_EQ(raised([] { (void)longValue(40000).toInteger(); }), err::Overflow);
    EXPECT_EQ(raised([] { (void)text("40000").toInteger(); }), err::Overflow);
    EXPECT_EQ(longValue(-32768).toInteger(), -32768);
}

TEST(Variant, shouldKeepLongsInTheirThirtyTwoBitRange) {
    EXPECT_EQ(Variant(2147483647.4).toLong(), 2147483647);
    EXPECT_EQ(raised([] { (void)Variant(2147483647.5).toLong(); }), err::Overflow);
    EXPECT_EQ(Variant(-2147483648.5).toLong(), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(raised([] { (void)Variant(-2147483649.0).toLong(); }), err::Overflow);
    EXPECT_EQ(raised([] { (void)Variant(1e300).toLong(); }), err::Overflow);
}

TEST(Variant, shouldRaiseOverflowForSinglesBeyondTheirRange) {
    EXPECT_EQ(raised([] { (void)Variant(1E39).toSingle(); }), err::Overflow);
    EXPECT_EQ(raised([] { (void)text("-1E39").toSingle(); }), err::Overflow);
    EXPECT_EQ(Variant(1E38).toSingle(), 1E38f);
}

TEST(Variant, shouldWidenWholeNumbersExactly) {
    EXPECT_EQ(integer(-7).toDouble(), -7.0);
    EXPECT_EQ(longValue(2147483647).toDouble(), 2147483647.0);
    EXPECT_EQ(integer(300).toLong(), 300);
    EXPECT_EQ(Variant(0.1f).toDouble(), static_cast<double>(0.1f));
}

// ---------------------------------------------------------------------------------
// toBoolean

TEST(Variant, shouldTreatAnyNonZeroNumberAsTrue) {
    EXPECT_TRUE(integer(5).toBoolean().isTrue());
    EXPECT_TRUE(longValue(-1).toBoolean().isTrue());
    EXPECT_TRUE(Variant(0.001).toBoolean().isTrue());
    EXPECT_EQ(Variant(0.5f).toBoolean().raw, -1);
    EXPECT_TRUE(integer(0).toBoolean().isFalse());
    EXPECT_TRUE(Variant(0.0).toBoolean().isFalse());
}

TEST(Variant, shouldReadTrueAndFalseInAnyLetterCase) {
    for (const char* t : {"True", "TRUE", "true", "tRuE"}) {
        EXPECT_TRUE(text(t).toBoolean().isTrue()) << t;
    }
    for (const char* f : {"False", "FALSE", "false", "fAlSe"}) {
        EXPECT_TRUE(text(f).toBoolean().isFalse()) << f;
    }
}

TEST(Variant, shouldReadNumericTextAsABoolean) {
    EXPECT_TRUE(text("5").toBoolean().isTrue());
    EXPECT_TRUE(text("-1").toBoolean().isTrue());
    EXPECT_TRUE(text("0").toBoolean().isFalse());
    EXPECT_TRUE(text(" 0.0 ").toBoolean().isFalse());
}

TEST(Variant, shouldRaiseTypeMismatchForOtherTextAsABoolean) {
    EXPECT_EQ(raised([] { (void)text("yes").toBoolean(); }), err::TypeMismatch);
    EXPECT_EQ(raised([] { (void)text("").toBoolean(); }), err::TypeMismatch);
    EXPECT_EQ(raised([] { (void)text(" True").toBoolean(); }), err::TypeMismatch);
    EXPECT_EQ(raised([] { (void)anObject().toBoolean(); }), err::TypeMismatch);
}

TEST(Variant, shouldTreatEmptyAsFalse) {
    EXPECT_TRUE(Variant().toBoolean().isFalse());
}

// ---------------------------------------------------------------------------------
// The host's "="

TEST(Variant, shouldEquateEmptyWithEmptyTextZeroAndFalse) {
    EXPECT_TRUE(hostEquals(Variant(), text("")));
    EXPECT_TRUE(hostEquals(Variant(), integer(0)));
    EXPECT_TRUE(hostEquals(Variant(), Variant(0.0)));
    EXPECT_TRUE(hostEquals(Variant(), Variant(false)));
    EXPECT_TRUE(hostEquals(Variant(), Variant()));
    EXPECT_TRUE(hostEquals(text(""), Variant()));
    EXPECT_FALSE(hostEquals(Variant(), integer(1)));
    EXPECT_FALSE(hostEquals(Variant(), text("0")));
    EXPECT_FALSE(hostEquals(Variant(), Variant(true)));
}

TEST(Variant, shouldNotEquateZeroWithEmptyText) {
    EXPECT_FALSE(hostEquals(integer(0), text("")));
    EXPECT_FALSE(hostEquals(text(""), Variant(0.0)));
}

TEST(Variant, shouldEquateNumbersWithTextThatReadsAsThem) {
    EXPECT_TRUE(hostEquals(text("5"), integer(5)));
    EXPECT_TRUE(hostEquals(integer(5), text(" 5.0 ")));
    EXPECT_TRUE(hostEquals(Variant(100.0), text("1D2")));
    EXPECT_TRUE(hostEquals(Variant(true), text("-1")));
    EXPECT_FALSE(hostEquals(text("6"), integer(5)));
}

TEST(Variant, shouldAnswerFalseRatherThanRaiseForTextThatIsNoNumber) {
    EXPECT_FALSE(hostEquals(text("abc"), integer(5)));
    EXPECT_FALSE(hostEquals(integer(5), text("abc")));
    EXPECT_FALSE(hostEquals(Variant(1.0), text("1E999")));
}

TEST(Variant, shouldCompareTextsCodeUnitByCodeUnit) {
    EXPECT_TRUE(hostEquals(text("abc"), text("abc")));
    EXPECT_FALSE(hostEquals(text("abc"), text("ABC")));
    EXPECT_FALSE(hostEquals(text("5"), text("5.0")));
    EXPECT_FALSE(hostEquals(text("abc"), text("abc ")));
    EXPECT_FALSE(hostEquals(Variant(u"\u00E9"), Variant(u"e\u0301")));
}

TEST(Variant, shouldCompareNumbersOfDifferentKindsByValue) {
    EXPECT_TRUE(hostEquals(integer(3), longValue(3)));
    EXPECT_TRUE(hostEquals(Variant(2.5f), Variant(2.5)));
    EXPECT_TRUE(hostEquals(Variant(true), integer(-1)));
    EXPECT_FALSE(hostEquals(integer(3), Variant(3.1)));
}

// ---------------------------------------------------------------------------------
// Property-bag sameness

TEST(Variant, shouldCountEqualNumbersOfAnyKindAsTheSameBagValue) {
    EXPECT_TRUE(sameBagValue(longValue(0), integer(0)));
    EXPECT_TRUE(sameBagValue(Variant(1.5), Variant(1.5f)));
    EXPECT_TRUE(sameBagValue(Variant(false), integer(0)));
    EXPECT_FALSE(sameBagValue(longValue(1), integer(0)));
}

TEST(Variant, shouldNotCountTextAsTheSameBagValueAsANumber) {
    EXPECT_FALSE(sameBagValue(text("0"), integer(0)));
    EXPECT_FALSE(sameBagValue(integer(0), text("0")));
}

TEST(Variant, shouldCountOnlyEmptyAsTheSameBagValueAsEmpty) {
    EXPECT_TRUE(sameBagValue(Variant(), Variant()));
    EXPECT_FALSE(sameBagValue(Variant(), integer(0)));
    EXPECT_FALSE(sameBagValue(Variant(), text("")));
}

TEST(Variant, shouldCountEqualTextsAsTheSameBagValue) {
    EXPECT_TRUE(sameBagValue(text("x"), text("x")));
    EXPECT_FALSE(sameBagValue(text("x"), text("X")));
}

// ---------------------------------------------------------------------------------
// Exact equality

TEST(Variant, shouldBeExactlyEqualOnlyForTheSameKindAndValue) {
    EXPECT_TRUE(integer(0) == integer(0));
    EXPECT_FALSE(integer(0) == longValue(0));
    EXPECT_FALSE(Variant(1.0) == Variant(1.0f));
    EXPECT_FALSE(integer(1) == integer(2));
    EXPECT_TRUE(text("a") == text("a"));
    EXPECT_FALSE(text("0") == integer(0));
    EXPECT_TRUE(Variant() == Variant());
    EXPECT_FALSE(Variant() == text(""));
    EXPECT_TRUE(Variant(true) == Variant(Boolean::fromRaw(-1)));
    EXPECT_FALSE(Variant(true) == Variant(Boolean::fromRaw(1)));
}

TEST(Variant, shouldReportItsKind) {
    EXPECT_EQ(Variant().type(), VarType::Empty);
    EXPECT_EQ(Variant(true).type(), VarType::Boolean);
    EXPECT_EQ(integer(1).type(), VarType::Integer);
    EXPECT_EQ(longValue(1).type(), VarType::Long);
    EXPECT_EQ(Variant(1.0f).type(), VarType::Single);
    EXPECT_EQ(Variant(1.0).type(), VarType::Double);
    EXPECT_EQ(text("1").type(), VarType::String);
    EXPECT_EQ(anObject().type(), VarType::Object);
}

// ---------------------------------------------------------------------------------
// Errors

TEST(Error, shouldDescribeStandardNumbersInTheHostsWords) {
    EXPECT_EQ(toUtf8(Error(6).description()), "Overflow");
    EXPECT_EQ(toUtf8(Error(13).description()), "Type mismatch");
    EXPECT_EQ(toUtf8(Error(9).description()), "Subscript out of range");
    EXPECT_FALSE(Error(382).description().empty());
    EXPECT_NE(Error(382).description(), Error(6).description());
}

TEST(Error, shouldCarryItsNumberSourceAndDescription) {
    const Error e(5000, u"Bad thing", u"MyApp");
    EXPECT_EQ(e.number(), 5000);
    EXPECT_EQ(toUtf8(e.source()), "MyApp");
    EXPECT_EQ(toUtf8(e.description()), "Bad thing");
    EXPECT_STREQ(e.what(), "Bad thing");
    EXPECT_TRUE(Error(6).source().empty());
    EXPECT_STREQ(Error(13).what(), "Type mismatch");
}

TEST(Error, shouldAddCodesToTheErrorBase) {
    EXPECT_EQ(errBasePlus(-2147221504, 3012), -2147218492);
    EXPECT_EQ(errBasePlus(err::ObjectErrorBase, 0), err::ObjectErrorBase);
    EXPECT_EQ(errBasePlus(std::numeric_limits<std::int32_t>::min(), 0),
              std::numeric_limits<std::int32_t>::min());
}

TEST(Error, shouldRaiseFiveInsteadOfErrorZero) {
    EXPECT_EQ(raised([] { (void)errBasePlus(-3012, 3012); }), err::InvalidProcedureCall);
    EXPECT_EQ(raised([] { (void)errBasePlus(0, 0); }), err::InvalidProcedureCall);
    EXPECT_EQ(toUtf8(Error(err::InvalidProcedureCall).description()),
              "Invalid procedure call or argument");
    EXPECT_EQ(errBasePlus(-3012, 3013), 1);
}

TEST(Error, shouldRaiseOverflowWhenTheErrorNumberLeavesThirtyTwoBits) {
    EXPECT_EQ(raised([] { (void)errBasePlus(std::numeric_limits<std::int32_t>::max(), 1); }),
              err::Overflow);
    EXPECT_EQ(raised([] { (void)errBasePlus(std::numeric_limits<std::int32_t>::min(), -1); }),
              err::Overflow);
}

}  // namespace
}  // namespace corvex
