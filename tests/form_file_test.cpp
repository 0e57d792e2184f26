// Form files: exact round trips of every value kind, line-numbered errors for malformed
// input, and headless forms saved and loaded through the file.
#include "corvex/library/form_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

#include "corvex/common/boolean_box.h"
#include "corvex/common/font.h"
#include "corvex/common/text.h"
#include "corvex/headless/form_loader.h"
#include "corvex/library/literals.h"

using namespace corvex;

namespace {

void expectSameDocument(const FormDocument& a, const FormDocument& b) {
    EXPECT_EQ(a.name, b.name);
    EXPECT_EQ(a.caption, b.caption);
    ASSERT_EQ(a.controls.size(), b.controls.size());
    for (std::size_t i = 0; i < a.controls.size(); ++i) {
        const SavedControl& x = a.controls[i];
        const SavedControl& y = b.controls[i];
        EXPECT_EQ(x.className, y.className);
        EXPECT_EQ(x.name, y.name);
        ASSERT_EQ(x.properties.size(), y.properties.size()) << toUtf8(x.name);
        for (std::size_t k = 0; k < x.properties.size(); ++k) {
            EXPECT_EQ(x.properties[k].first, y.properties[k].first);
            EXPECT_TRUE(identicalValues(x.properties[k].second, y.properties[k].second))
                << toUtf8(x.name) << "." << toUtf8(x.properties[k].first);
        }
    }
}

FormDocument roundTrip(const FormDocument& doc) {
    return parseFormFile(writeFormFile(doc));
}

FormDocument oneControl(std::vector<MemoryBag::Entry> entries) {
    FormDocument doc;
    doc.name = u"frmMain";
    doc.caption = u"Main window";
    doc.controls.push_back({u"BooleanBox", u"chkAgree", std::move(entries)});
    return doc;
}

// The 1-based line parseFormFile blames for text, or 0 when it reads without error.
int errorLine(std::string_view text) {
    try {
        parseFormFile(text);
    } catch (const FormFileError& e) {
        EXPECT_NE(std::string(e.what()).find("line " + std::to_string(e.line()) + ": "),
                  std::string::npos)
            << "the message names the line";
        return e.line();
    }
    return 0;
}

const std::string kHead = "CorvexForm 1\nBegin Form f\n";

ObjectRef font(FontDesc d) {
    return Font::make(std::move(d));
}

TEST(FormFileTest, shouldWriteTheDocumentedLayout) {
    FontDesc f;
    f.name = u"IPAGothic";
    f.charset = 128;
    FormDocument doc = oneControl({
        {u"Caption", Variant(u"I agree")},
        {u"DefaultValue", Variant(true)},
        {u"BackColor", Variant(std::int32_t{-2147483633})},
        {u"LowerLimit", Variant(0.1)},
        {u"Font", Variant(font(f))},
    });
    EXPECT_EQ(writeFormFile(doc),
              "CorvexForm 1\n"
              "Begin Form frmMain\n"
              "  Caption = \"Main window\"\n"
              "  Begin BooleanBox chkAgree\n"
              "    Caption = String \"I agree\"\n"
              "    DefaultValue = Boolean True\n"
              "    BackColor = Long -2147483633\n"
              "    LowerLimit = Double 0.1\n"
              "    Font = Font Name=\"IPAGothic\" Size=9 Bold=False Italic=False Underline=False "
              "Strikethrough=False Weight=400 Charset=128\n"
              "  End\n"
              "End\n");
}

TEST(FormFileTest, shouldRoundTripStringsWithEveryCharacterKind) {
    std::u16string controls;
    for (char16_t c = 0; c < 0x20; ++c) controls += c;
    controls += u'\u007F';
    const std::u16string lone = {char16_t(0xD800), u'x', char16_t(0xDFFF), char16_t(0xDBFF)};
    FormDocument doc = oneControl({
        {u"Escapes", Variant(u"quote \" backslash \\ cr \r lf \n tab \t")},
        {u"Nul", Variant(std::u16string(u"a\0b", 3))},
        {u"Controls", Variant(controls)},
        {u"CrLf", Variant(u"line one\r\nline two\r\n")},
        {u"Japanese", Variant(u"日本語のテキスト、半角ｶﾀｶﾅ")},
        {u"Pair", Variant(u"emoji \U0001F600 and \U00020BB7")},
        {u"Lone", Variant(lone)},
        {u"Empty", Variant(u"")},
        {u"Hash", Variant(u"# not a comment")},
        {u"Spaces", Variant(u"  lead and trail  ")},
    });
    doc.caption = u"Caption with \"quotes\" and\r\nbreaks 日本";
    const std::string text = writeFormFile(doc);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 16)
        << "one line per entry, whatever it holds";
    expectSameDocument(parseFormFile(text), doc);
}

TEST(FormFileTest, shouldRoundTripDoublesBitForBit) {
    using L = std::numeric_limits<double>;
    const double values[] = {0.0,
                             -0.0,
                             0.1,
                             1.0 / 3,
                             1e20,
                             -3.25e-2,
                             L::max(),
                             L::lowest(),
                             L::min(),
                             L::denorm_min(),
                             -L::denorm_min(),
                             L::infinity(),
                             -L::infinity(),
                             L::quiet_NaN(),
                             -L::quiet_NaN(),
                             L::signaling_NaN(),
                             std::bit_cast<double>(0xFFF0000000000123ull),
                             std::bit_cast<double>(0x7FFFFFFFFFFFFFFFull),
                             123456789012345678.0};
    std::vector<MemoryBag::Entry> entries;
    for (double d : values)
        entries.emplace_back(u"D" + fromUtf8(std::to_string(entries.size())), Variant(d));
    const FormDocument doc = oneControl(entries);
    expectSameDocument(roundTrip(doc), doc);
}

TEST(FormFileTest, shouldRoundTripSinglesBitForBit) {
    using L = std::numeric_limits<float>;
    const float values[] = {0.0f,
                            -0.0f,
                            0.1f,
                            1.0f / 3,
                            16777217.0f,
                            L::max(),
                            L::lowest(),
                            L::min(),
                            L::denorm_min(),
                            L::infinity(),
                            -L::infinity(),
                            L::quiet_NaN(),
                            -L::quiet_NaN(),
                            L::signaling_NaN(),
                            std::bit_cast<float>(0xFF800001u)};
    std::vector<MemoryBag::Entry> entries;
    for (float f : values)
        entries.emplace_back(u"S" + fromUtf8(std::to_string(entries.size())), Variant(f));
    const FormDocument doc = oneControl(entries);
    expectSameDocument(roundTrip(doc), doc);
}

TEST(FormFileTest, shouldWriteSpecialNumbersReadably) {
    const std::string text = writeFormFile(oneControl({
        {u"A", Variant(std::numeric_limits<double>::infinity())},
        {u"B", Variant(-std::numeric_limits<double>::infinity())},
        {u"C", Variant(std::numeric_limits<double>::quiet_NaN())},
        {u"D", Variant(std::bit_cast<double>(0x7FF0000000000001ull))},
        {u"E", Variant(std::bit_cast<float>(0x7F800001u))},
        {u"F", Variant(-0.0)},
    }));
    EXPECT_NE(text.find("A = Double inf\n"), std::string::npos);
    EXPECT_NE(text.find("B = Double -inf\n"), std::string::npos);
    EXPECT_NE(text.find("C = Double nan\n"), std::string::npos);
    EXPECT_NE(text.find("D = Double nan(0x7ff0000000000001)\n"), std::string::npos);
    EXPECT_NE(text.find("E = Single nan(0x7f800001)\n"), std::string::npos);
    EXPECT_NE(text.find("F = Double -0\n"), std::string::npos);
}

TEST(FormFileTest, shouldRoundTripIntegersLongsBooleansEmptyAndNothing) {
    const FormDocument doc = oneControl({
        {u"I1", Variant(std::int16_t{-32768})},
        {u"I2", Variant(std::int16_t{32767})},
        {u"I3", Variant(std::int16_t{0})},
        {u"L1", Variant(std::int32_t{-2147483647 - 1})},
        {u"L2", Variant(std::int32_t{2147483647})},
        {u"B1", Variant(true)},
        {u"B2", Variant(false)},
        {u"B3", Variant(Boolean::fromRaw(1))},
        {u"B4", Variant(Boolean::fromRaw(-32768))},
        {u"B5", Variant(Boolean::fromRaw(32767))},
        {u"E", Variant()},
        {u"N", Variant(ObjectRef())},
    });
    const std::string text = writeFormFile(doc);
    EXPECT_NE(text.find("B3 = Boolean 1\n"), std::string::npos) << text;
    EXPECT_NE(text.find("E = Empty\n"), std::string::npos);
    EXPECT_NE(text.find("N = Nothing\n"), std::string::npos);
    expectSameDocument(parseFormFile(text), doc);
}

TEST(FormFileTest, shouldRoundTripFontsWithEveryField) {
    FontDesc a;
    a.name = u"ＭＳ ゴシック \"quoted\"";
    a.size = 10.35;
    a.bold = true;
    a.italic = true;
    a.underline = true;
    a.strikethrough = true;
    a.weight = 400;  // a weight that disagrees with Bold is kept as it is
    a.charset = -1;
    FontDesc b;
    b.size = std::numeric_limits<double>::denorm_min();
    b.weight = -32768;
    b.charset = 32767;
    const FormDocument doc =
        oneControl({{u"Font", Variant(font(a))}, {u"Other", Variant(font(b))}});
    expectSameDocument(roundTrip(doc), doc);
}

TEST(FormFileTest, shouldKeepPropertyOrderAndNameSpelling) {
    const FormDocument doc = oneControl({{u"zeta", Variant(std::int16_t{1})},
                                         {u"Alpha", Variant(std::int16_t{2})},
                                         {u"MIDDLE_1", Variant(std::int16_t{3})}});
    const FormDocument back = roundTrip(doc);
    ASSERT_EQ(back.controls.at(0).properties.size(), 3u);
    EXPECT_EQ(back.controls[0].properties[0].first, u"zeta");
    EXPECT_EQ(back.controls[0].properties[1].first, u"Alpha");
    EXPECT_EQ(back.controls[0].properties[2].first, u"MIDDLE_1");
}

TEST(FormFileTest, shouldRoundTripAFormWithoutControlsAndSeveralControls) {
    FormDocument empty;
    empty.name = u"f";
    expectSameDocument(roundTrip(empty), empty);

    FormDocument doc = oneControl({});
    doc.controls.push_back({u"NumInputBox", u"txtAmount", {{u"LowerLimit", Variant(-1.5)}}});
    doc.controls.push_back({u"BooleanBox", u"chk2", {}});
    expectSameDocument(roundTrip(doc), doc);
}

TEST(FormFileTest, shouldIgnoreCommentsBlankLinesIndentationAndCrLf) {
    const std::string text =
        "\xEF\xBB\xBF# a form\r\n"
        "\r\n"
        "CorvexForm   1\r\n"
        "Begin Form frm\r\n"
        "\t# the caption\r\n"
        "Caption=\"C\"\r\n"
        "      Begin BooleanBox b\r\n"
        "Value=Boolean    True   \r\n"
        "  Font = Font   Size=12 Name=\"A\"\r\n"
        "  End\r\n"
        "End\r\n"
        "   \r\n"
        "# done\r\n";
    const FormDocument doc = parseFormFile(text);
    EXPECT_EQ(doc.name, u"frm");
    EXPECT_EQ(doc.caption, u"C");
    ASSERT_EQ(doc.controls.size(), 1u);
    ASSERT_EQ(doc.controls[0].properties.size(), 2u);
    EXPECT_EQ(doc.controls[0].properties[0].second, Variant(true));
    const FontDesc f = fontFromVariant(doc.controls[0].properties[1].second);
    EXPECT_EQ(f.name, u"A");
    EXPECT_EQ(f.size, 12);
    EXPECT_EQ(f.weight, 400) << "left-off fields take their defaults";
}

TEST(FormFileTest, shouldAllowPropertiesNamedLikeKeywords) {
    const FormDocument doc =
        oneControl({{u"End", Variant(std::int16_t{1})}, {u"Begin", Variant(std::int16_t{2})}});
    expectSameDocument(roundTrip(doc), doc);
}

TEST(FormFileTest, shouldAcceptEveryNumberSpellingItDocuments) {
    const FormDocument doc = parseFormFile(kHead +
                                           "Begin X y\n"
                                           "a = Double 1E+20\n"
                                           "b = Double -3.25e-2\n"
                                           "c = Single 0.1\n"
                                           "d = Double -inf\n"
                                           "e = Single -nan\n"
                                           "f = Boolean -1\n"
                                           "g = Integer 007\n"
                                           "End\nEnd\n");
    const auto& p = doc.controls.at(0).properties;
    EXPECT_EQ(p[0].second, Variant(1e20));
    EXPECT_EQ(p[1].second, Variant(-0.0325));
    EXPECT_EQ(p[2].second, Variant(0.1f)) << "read as a Single directly, not through a Double";
    EXPECT_EQ(p[3].second, Variant(-std::numeric_limits<double>::infinity()));
    EXPECT_TRUE(std::isnan(p[4].second.asSingle()));
    EXPECT_TRUE(std::signbit(p[4].second.asSingle()));
    EXPECT_EQ(p[5].second, Variant(true));
    EXPECT_EQ(p[6].second, Variant(std::int16_t{7}));
}

struct BadCase {
    const char* what;
    std::string text;
    int line;
};

TEST(FormFileTest, shouldBlameTheRightLineForEveryMalformedInput) {
    const BadCase cases[] = {
        {"empty file", "", 1},
        {"only comments", "# a\n\n# b\n", 3},
        {"wrong header", "CorvexFormX 1\n", 1},
        {"wrong version", "CorvexForm 2\n", 1},
        {"header garbage", "CorvexForm 1 x\n", 1},
        {"missing Begin Form", "CorvexForm 1\n", 1},
        {"not Begin Form", "CorvexForm 1\nBegin Forms f\n", 2},
        {"bad form name", "CorvexForm 1\nBegin Form f-1\n", 2},
        {"form without End", kHead + "Caption = \"x\"\n", 2},
        {"control without End", kHead + "Begin BooleanBox b\nValue = Boolean True\n\n", 3},
        {"nested Begin", kHead + "Begin BooleanBox b\nBegin BooleanBox c\n", 4},
        {"duplicate control", kHead + "Begin BooleanBox b\nEnd\nBegin BooleanBox B\nEnd\nEnd\n", 5},
        {"duplicate property", kHead + "Begin X b\nv = Integer 1\nV = Integer 2\nEnd\nEnd\n", 5},
        {"duplicate caption", kHead + "Caption = \"a\"\nCaption = \"b\"\nEnd\n", 4},
        {"unknown form entry", kHead + "Width = Long 5\nEnd\n", 3},
        {"unknown type word", kHead + "Begin X b\nv = Currency 5\nEnd\nEnd\n", 4},
        {"type word in lower case", kHead + "Begin X b\nv = integer 5\nEnd\nEnd\n", 4},
        {"missing type word", kHead + "Begin X b\nv =\nEnd\nEnd\n", 4},
        {"missing =", kHead + "Begin X b\nv Integer 5\nEnd\nEnd\n", 4},
        {"bad property name", kHead + "Begin X b\n1v = Integer 5\nEnd\nEnd\n", 4},
        {"bad Integer", kHead + "Begin X b\nv = Integer 5x\nEnd\nEnd\n", 4},
        {"Integer out of range", kHead + "Begin X b\nv = Integer 32768\nEnd\nEnd\n", 4},
        {"Long out of range", kHead + "Begin X b\nv = Long 2147483648\nEnd\nEnd\n", 4},
        {"Long with plus", kHead + "Begin X b\nv = Long +5\nEnd\nEnd\n", 4},
        {"missing Long", kHead + "Begin X b\nv = Long\nEnd\nEnd\n", 4},
        {"Boolean word", kHead + "Begin X b\nv = Boolean true\nEnd\nEnd\n", 4},
        {"Boolean out of range", kHead + "Begin X b\nv = Boolean 40000\nEnd\nEnd\n", 4},
        {"bad Double", kHead + "Begin X b\nv = Double 1.2.3\nEnd\nEnd\n", 4},
        {"Double without digits", kHead + "Begin X b\nv = Double .5\nEnd\nEnd\n", 4},
        {"Double overflow", kHead + "Begin X b\nv = Double 1e400\nEnd\nEnd\n", 4},
        {"Single overflow", kHead + "Begin X b\nv = Single 1e39\nEnd\nEnd\n", 4},
        {"NaN bits of a number",
         kHead + "Begin X b\nv = Double nan(0x3ff0000000000000)\nEnd\nEnd\n", 4},
        {"short NaN bits", kHead + "Begin X b\nv = Double nan(0x7ff8)\nEnd\nEnd\n", 4},
        {"infinity spelled out", kHead + "Begin X b\nv = Double infinity\nEnd\nEnd\n", 4},
        {"unterminated string", kHead + "Begin X b\nv = String \"abc\nEnd\nEnd\n", 4},
        {"unknown escape", kHead + "Begin X b\nv = String \"a\\qb\"\nEnd\nEnd\n", 4},
        {"short \\u escape", kHead + "Begin X b\nv = String \"\\u12\"\nEnd\nEnd\n", 4},
        {"raw control character", kHead + "Begin X b\nv = String \"a\x01\"\nEnd\nEnd\n", 4},
        {"invalid UTF-8", kHead + "Begin X b\nv = String \"\xFF\"\nEnd\nEnd\n", 4},
        {"text after a string", kHead + "Begin X b\nv = String \"a\" \"b\"\nEnd\nEnd\n", 4},
        {"text after a number", kHead + "Begin X b\nv = Integer 5 6\nEnd\nEnd\n", 4},
        {"text after Empty", kHead + "Begin X b\nv = Empty 0\nEnd\nEnd\n", 4},
        {"unknown font field", kHead + "Begin X b\nv = Font Color=5\nEnd\nEnd\n", 4},
        {"font field twice", kHead + "Begin X b\nv = Font Size=5 Size=6\nEnd\nEnd\n", 4},
        {"font flag", kHead + "Begin X b\nv = Font Bold=1\nEnd\nEnd\n", 4},
        {"font weight range", kHead + "Begin X b\nv = Font Weight=70000\nEnd\nEnd\n", 4},
        {"font name unquoted", kHead + "Begin X b\nv = Font Name=Arial\nEnd\nEnd\n", 4},
        {"font fields glued", kHead + "Begin X b\nv = Font Name=\"A\"Size=5\nEnd\nEnd\n", 4},
        {"End with garbage", kHead + "Begin X b\nEnd now\nEnd\n", 4},
        {"trailing garbage", kHead + "End\nBegin Form g\n", 4},
        {"text after form End", kHead + "End\n\n# fine\nstray\n", 6},
        {"comment after a value", kHead + "Begin X b\nv = Integer 5 # five\nEnd\nEnd\n", 4},
    };
    for (const BadCase& c : cases) {
        EXPECT_EQ(errorLine(c.text), c.line) << c.what;
    }
}

TEST(FormFileTest, shouldRefuseAHundredMegabyteLineWithoutReadingIt) {
    std::string text = kHead + "  Caption = \"";
    text.append(100u << 20, 'a');
    text += "\"\nEnd\n";
    EXPECT_EQ(errorLine(text), 3);
}

TEST(FormFileTest, shouldReadTheLongestLineItAllows) {
    // A string just under the line limit still round-trips.
    FormDocument doc = oneControl({{u"Long", Variant(std::u16string((1u << 20) - 40, u'x'))}});
    expectSameDocument(roundTrip(doc), doc);
}

TEST(FormFileTest, shouldRefuseToWriteWhatItCouldNotReadBack) {
    const auto writeError = [](const FormDocument& doc) {
        try {
            writeFormFile(doc);
        } catch (const FormFileError& e) {
            return e.line();
        }
        return 0;
    };
    FormDocument badName = oneControl({{u"bad name", Variant(std::int16_t{1})}});
    EXPECT_EQ(writeError(badName), 5);
    FormDocument twice =
        oneControl({{u"A", Variant(std::int16_t{1})}, {u"a", Variant(std::int16_t{2})}});
    EXPECT_EQ(writeError(twice), 6);
    FormDocument badForm;
    badForm.name = u"";
    EXPECT_EQ(writeError(badForm), 2);
    FormDocument twoControls = oneControl({});
    twoControls.controls.push_back({u"BooleanBox", u"CHKAGREE", {}});
    EXPECT_EQ(writeError(twoControls), 6);
    FormDocument tooLong = oneControl({{u"Long", Variant(std::u16string(1u << 20, u'x'))}});
    EXPECT_EQ(writeError(tooLong), 5);
}

TEST(FormFileTest, shouldRefuseToWriteObjectsOtherThanFonts) {
    headless::Host host;
    headless::HeadlessForm form(host);
    headless::Site& s = form.add(BooleanBox::staticClassInfo(), u"b");
    FormDocument doc = oneControl({{u"Other", Variant(ObjectRef(s.controlRef()))}});
    EXPECT_THROW(writeFormFile(doc), FormFileError);
}

// --- headless forms through the file -------------------------------------------------

TEST(FormFileTest, shouldSaveAndLoadAHeadlessFormThroughTheFile) {
    headless::Host host;
    host.setUserMode(false);  // DefaultValue is set in the designer
    headless::HeadlessForm form(host);
    auto& a =
        static_cast<BooleanBox&>(form.add(BooleanBox::staticClassInfo(), u"chkAgree").control());
    a.setCaption(u"I agree\r\n同意します");
    a.setDefaultValue(true);
    a.setBackColor(0x00FF00);
    FontDesc f = host.font();
    f.name = u"Noto Sans CJK JP";
    f.size = 10.5;
    f.italic = true;
    a.setFont(Font::make(f));
    auto& b =
        static_cast<BooleanBox&>(form.add(BooleanBox::staticClassInfo(), u"chkPlain").control());
    b.setKeyName(u"plain");
    b.setAlwaysFalseWhenNotEnabled(Boolean::fromRaw(3));
    form.add(BooleanBox::staticClassInfo(), u"chkDefault");

    const FormDocument saved = headless::saveForm(form, u"frmMain", u"Main");
    ASSERT_EQ(saved.controls.size(), 3u);
    EXPECT_TRUE(saved.controls[2].properties.empty()) << "defaults leave no entry";
    const std::string text = writeFormFile(saved);

    headless::Host host2;
    headless::HeadlessForm form2(host2);
    const FormDocument read = parseFormFile(text);
    headless::loadForm(read, form2);
    ASSERT_EQ(form2.sites().size(), 3u);
    auto& a2 = static_cast<BooleanBox&>(form2.find(u"chkAgree")->control());
    EXPECT_EQ(a2.caption(), u"I agree\r\n同意します");
    EXPECT_EQ(a2.value(), Boolean(true)) << "loaded from DefaultValue";
    EXPECT_EQ(a2.backColor(), 0x00FF00);
    EXPECT_EQ(a2.font()->desc(), f);
    auto& b2 = static_cast<BooleanBox&>(form2.find(u"chkPlain")->control());
    EXPECT_EQ(b2.keyName(), u"plain");
    EXPECT_EQ(b2.alwaysFalseWhenNotEnabled().raw, 3) << "a raw Boolean survives the file";

    expectSameDocument(headless::saveForm(form2, u"frmMain", u"Main"), saved);
    EXPECT_EQ(writeFormFile(headless::saveForm(form2, u"frmMain", u"Main")), text)
        << "saving what was loaded writes the same file";
}

TEST(FormFileTest, shouldRefuseAnUnknownClassBeforeCreatingAnyControl) {
    const FormDocument doc = parseFormFile(kHead +
                                           "Begin BooleanBox first\nEnd\n"
                                           "Begin Gizmo gadget\nEnd\nEnd\n");
    headless::Host host;
    headless::HeadlessForm form(host);
    try {
        headless::loadForm(doc, form);
        FAIL() << "an unknown class must be refused";
    } catch (const Error& e) {
        const std::string message = toUtf8(e.description());
        EXPECT_NE(message.find("Gizmo"), std::string::npos) << message;
        EXPECT_NE(message.find("gadget"), std::string::npos) << message;
    }
    EXPECT_TRUE(form.sites().empty());
}

TEST(FormFileTest, shouldNameTheControlWhoseSavedValueIsWrong) {
    const FormDocument doc = parseFormFile(kHead +
                                           "Begin BooleanBox good\nEnd\n"
                                           "Begin BooleanBox bad\nFont = String \"x\"\nEnd\nEnd\n");
    headless::Host host;
    headless::HeadlessForm form(host);
    try {
        headless::loadForm(doc, form);
        FAIL() << "a text where a font is saved must be refused";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), err::TypeMismatch);
        EXPECT_NE(toUtf8(e.description()).find("bad"), std::string::npos);
    }
    ASSERT_EQ(form.sites().size(), 1u);
    EXPECT_EQ(form.sites()[0]->name(), u"good");
}

TEST(FormFileTest, shouldRefuseANameAlreadyOnTheForm) {
    headless::Host host;
    headless::HeadlessForm form(host);
    form.add(BooleanBox::staticClassInfo(), u"b");
    const FormDocument doc = parseFormFile(kHead + "Begin BooleanBox B\nEnd\nEnd\n");
    EXPECT_THROW(headless::loadForm(doc, form), Error);
    EXPECT_EQ(form.sites().size(), 1u);
}

}  // namespace
