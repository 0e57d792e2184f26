// The literal syntax shared by the script host and the form file.
#include "corvex/library/literals.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

#include "corvex/common/font.h"
#include "corvex/common/text.h"

using namespace corvex;

namespace {

std::u16string unquote(std::string_view literal) {
    std::size_t pos = 0;
    std::u16string s = readQuoted(literal, pos);
    EXPECT_EQ(pos, literal.size());
    return s;
}

TEST(LiteralsTest, shouldQuoteEveryNamedEscape) {
    EXPECT_EQ(quoteString(u"a\"b\\c\rd\ne\tf"), R"("a\"b\\c\rd\ne\tf")");
    EXPECT_EQ(quoteString(std::u16string(u"x\0y", 3)), R"("x\0y")");
}

TEST(LiteralsTest, shouldQuoteOtherControlCharactersAsUnicodeEscapes) {
    EXPECT_EQ(quoteString(u"\u0001\u001B\u007F"), R"("\u0001\u001B\u007F")");
}

TEST(LiteralsTest, shouldWriteOtherCharactersAsUtf8) {
    EXPECT_EQ(quoteString(u"日本語 é \U0001F600"), "\"日本語 é \U0001F600\"");
    EXPECT_EQ(quoteString(u"\u0080\u009F"), "\"\u0080\u009F\"") << "C1 characters travel as UTF-8";
}

TEST(LiteralsTest, shouldWriteUnpairedSurrogatesAsTheirCodeUnits) {
    const std::u16string lone = {u'a', char16_t(0xD800), u'b', char16_t(0xDC00)};
    EXPECT_EQ(quoteString(lone), R"("a\uD800b\uDC00")");
    const std::u16string reversed = {char16_t(0xDC00), char16_t(0xD800)};
    EXPECT_EQ(quoteString(reversed), R"("\uDC00\uD800")");
}

TEST(LiteralsTest, shouldReadBackEveryCodeUnit) {
    std::u16string all;
    for (char32_t c = 0; c < 0x10000; ++c) all += static_cast<char16_t>(c);
    EXPECT_EQ(unquote(quoteString(all)), all);
}

TEST(LiteralsTest, shouldReadEscapesInEitherHexCase) {
    EXPECT_EQ(unquote(R"("\u00e9\u00E9\ud83d\ude00")"), u"éé\U0001F600");
}

TEST(LiteralsTest, shouldRefuseMalformedStrings) {
    const char* bad[] = {
        R"("open)",
        R"("ends in backslash\)",
        R"("\q")",
        R"("\u12")",
        R"("\u12G4")",
        "\"raw\ttab\"",
        "\"raw\x01\"",
        "\"bad \xC3\x28 utf8\"",
        "\"overlong \xC0\xAF\"",
        "\"surrogate \xED\xA0\x80\"",
        "no quote",
    };
    for (const char* text : bad) {
        std::size_t pos = 0;
        EXPECT_THROW(readQuoted(text, pos), LiteralError) << text;
    }
}

TEST(LiteralsTest, shouldParseIntegersByTheirSize) {
    EXPECT_EQ(parseLiteral("-12"), Variant(std::int16_t{-12}));
    EXPECT_EQ(parseLiteral("32767"), Variant(std::int16_t{32767}));
    EXPECT_EQ(parseLiteral("-32768"), Variant(std::int16_t{-32768}));
    EXPECT_EQ(parseLiteral("32768"), Variant(std::int32_t{32768}));
    EXPECT_EQ(parseLiteral("-2147483648"), Variant(std::int32_t{-2147483647 - 1}));
    EXPECT_EQ(parseLiteral("2147483648"), Variant(2147483648.0));
    EXPECT_EQ(parseLiteral("123456789012345678901234567890"), Variant(1.2345678901234568e29));
}

TEST(LiteralsTest, shouldParseDecimalsAsDouble) {
    EXPECT_EQ(parseLiteral("0.5"), Variant(0.5));
    EXPECT_EQ(parseLiteral("1E+20"), Variant(1e20));
    EXPECT_EQ(parseLiteral("-3.25e-2"), Variant(-0.0325));
    EXPECT_EQ(parseLiteral("0.1"), Variant(0.1)) << "correctly rounded";
    EXPECT_EQ(parseLiteral("2e0"), Variant(2.0)) << "an exponent makes a Double";
}

TEST(LiteralsTest, shouldParseWordsWithoutRegardToCase) {
    EXPECT_EQ(parseLiteral("True"), Variant(true));
    EXPECT_EQ(parseLiteral("false"), Variant(false));
    EXPECT_TRUE(parseLiteral("Empty").isEmpty());
    const Variant nothing = parseLiteral("Nothing");
    ASSERT_EQ(nothing.type(), VarType::Object);
    EXPECT_EQ(nothing.asObject(), nullptr);
}

TEST(LiteralsTest, shouldParseQuotedStrings) {
    EXPECT_EQ(parseLiteral(R"("a b\tc")"), Variant(u"a b\tc"));
    EXPECT_EQ(parseLiteral(R"("")"), Variant(u""));
}

TEST(LiteralsTest, shouldRefuseMalformedTokens) {
    const char* bad[] = {"",
                         "12abc",
                         "+5",
                         "1.",
                         ".5",
                         "1e",
                         "1e+",
                         "--1",
                         "0x10",
                         "abc",
                         "1E999",
                         "\"a\"b",
                         "Font()",
                         "Font(1)",
                         "Font(\"a\", \"b\")",
                         "Font(\"a\", 9, 1)",
                         "Font(\"a\", 9, False, False, False, False, 99999)",
                         "Font(\"a\",, 9)",
                         "Font(\"a\") x"};
    for (const char* token : bad) EXPECT_THROW(parseLiteral(token), LiteralError) << token;
}

TEST(LiteralsTest, shouldParseAFontLiteralWithEveryField) {
    const Variant v =
        parseLiteral(R"(Font("MS Gothic", 10.5, True, False, True, False, 600, 128))");
    const FontDesc f = fontFromVariant(v);
    EXPECT_EQ(f.name, u"MS Gothic");
    EXPECT_EQ(f.size, 10.5);
    EXPECT_TRUE(f.bold);
    EXPECT_FALSE(f.italic);
    EXPECT_TRUE(f.underline);
    EXPECT_FALSE(f.strikethrough);
    EXPECT_EQ(f.weight, 600);
    EXPECT_EQ(f.charset, 128);
}

TEST(LiteralsTest, shouldGiveLeftOffFontFieldsTheirDefaults) {
    const FontDesc bold = fontFromVariant(parseLiteral(R"(Font("A", 12, True))"));
    EXPECT_EQ(bold.weight, 700) << "the weight follows Bold";
    EXPECT_EQ(bold.charset, 0);
    const FontDesc plain = fontFromVariant(parseLiteral(R"(Font("A"))"));
    EXPECT_EQ(plain.size, FontDesc{}.size);
    EXPECT_EQ(plain.weight, 400);
}

TEST(LiteralsTest, shouldPrintAFontAsItsLiteral) {
    FontDesc f;
    f.name = u"IPAGothic";
    f.size = 9;
    f.charset = 128;
    EXPECT_EQ(formatFont(f), R"(Font("IPAGothic", 9, False, False, False, False, 400, 128))");
    const std::string text = formatFont(f);
    EXPECT_EQ(fontFromVariant(parseLiteral(text)), f) << "a printed font reads back";
}

TEST(LiteralsTest, shouldMeasureTokensAcrossBlanksInsideQuotesAndFonts) {
    EXPECT_EQ(literalTokenLength(R"("a b" rest)"), 5u);
    EXPECT_EQ(literalTokenLength(R"("a\" b" rest)"), 7u);
    EXPECT_EQ(literalTokenLength(R"x(Font("A )", 9, True) rest)x"), 20u);
    EXPECT_EQ(literalTokenLength("b.Value = 5"), 7u);
    EXPECT_EQ(literalTokenLength(R"("a"b c)"), 4u) << "text glued to a quote stays in the token";
    EXPECT_THROW(literalTokenLength(R"("open)"), LiteralError);
    EXPECT_THROW(literalTokenLength(R"(Font("A", 9)"), LiteralError);
}

TEST(LiteralsTest, shouldPrintValuesAsAScriptDoes) {
    EXPECT_EQ(formatValue(Variant()), "Empty");
    EXPECT_EQ(formatValue(Variant(true)), "True");
    EXPECT_EQ(formatValue(Variant(false)), "False");
    EXPECT_EQ(formatValue(Variant(Boolean::fromRaw(5))), "5");
    EXPECT_EQ(formatValue(Variant(std::int16_t{-7})), "-7");
    EXPECT_EQ(formatValue(Variant(std::int32_t{-2147483633})), "-2147483633");
    EXPECT_EQ(formatValue(Variant(0.1f)), "0.1") << "Single by the host's conversion";
    EXPECT_EQ(formatValue(Variant(1e20)), "1E+20");
    EXPECT_EQ(formatValue(Variant(u"say \"hi\"")), R"("say \"hi\"")");
    EXPECT_EQ(formatValue(Variant(ObjectRef())), "Nothing");
}

TEST(LiteralsTest, shouldNameTypes) {
    EXPECT_EQ(typeWord(VarType::Integer), "Integer");
    EXPECT_EQ(typeWord(VarType::Object), "Object");
}

TEST(LiteralsTest, shouldTellNamesFromLiteralWords) {
    EXPECT_TRUE(isName("chk_Agree2"));
    EXPECT_TRUE(isName("_x"));
    EXPECT_FALSE(isName("2x"));
    EXPECT_FALSE(isName("a.b"));
    EXPECT_FALSE(isName(""));
    EXPECT_TRUE(isLiteralWord("TRUE"));
    EXPECT_TRUE(isLiteralWord("nothing"));
    EXPECT_FALSE(isLiteralWord("Font"));
}

TEST(LiteralsTest, shouldCompareValuesBitForBit) {
    const double nan1 = std::bit_cast<double>(0x7FF8000000000001ull);
    const double nan2 = std::bit_cast<double>(0x7FF8000000000002ull);
    EXPECT_TRUE(identicalValues(Variant(nan1), Variant(nan1)));
    EXPECT_FALSE(identicalValues(Variant(nan1), Variant(nan2)));
    EXPECT_FALSE(identicalValues(Variant(0.0), Variant(-0.0)));
    EXPECT_FALSE(identicalValues(Variant(std::int16_t{1}), Variant(std::int32_t{1})));
    EXPECT_FALSE(identicalValues(Variant(Boolean::fromRaw(1)), Variant(true)));
    FontDesc a;
    FontDesc b;
    b.size = -0.0;
    a.size = 0.0;
    EXPECT_FALSE(
        identicalValues(Variant(ObjectRef(Font::make(a))), Variant(ObjectRef(Font::make(b)))));
    EXPECT_TRUE(
        identicalValues(Variant(ObjectRef(Font::make(a))), Variant(ObjectRef(Font::make(a)))));
}

}  // namespace
