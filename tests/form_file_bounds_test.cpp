// Form files beyond the basics: control arrays, what a reader accepts at most, CR-only
// line ends, and writer errors that name the control and the property.
#include <gtest/gtest.h>

#include "corvex/common/boolean_box.h"
#include "corvex/common/text.h"
#include "corvex/headless/form_loader.h"
#include "corvex/library/form_file.h"

using namespace corvex;

namespace {

const std::string kHead = "CorvexForm 1\nBegin Form f\n";

// The message of the error parseFormFile raises for text ("" when it reads).
std::string readError(std::string_view text, int* line = nullptr) {
    try {
        parseFormFile(text);
    } catch (const FormFileError& e) {
        if (line) *line = e.line();
        return e.what();
    }
    return "";
}

std::string writeError(const FormDocument& doc) {
    try {
        writeFormFile(doc);
    } catch (const FormFileError& e) {
        return e.what();
    }
    return "";
}

bool contains(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
}

TEST(FormFileArrays, shouldReadAndWriteTheIndexOfAnArrayElement) {
    const FormDocument doc =
        parseFormFile(kHead +
                      "  Begin BooleanBox opt(0)\n  End\n  Begin BooleanBox opt(12)\n  End\n"
                      "  Begin BooleanBox chk\n  End\nEnd\n");
    ASSERT_EQ(doc.controls.size(), 3u);
    EXPECT_EQ(doc.controls[0].name, u"opt");
    EXPECT_EQ(doc.controls[0].index, 0);
    EXPECT_EQ(doc.controls[1].index, 12);
    EXPECT_EQ(doc.controls[2].index, NoIndex);
    const std::string written = writeFormFile(doc);
    EXPECT_TRUE(contains(written, "  Begin BooleanBox opt(12)\n"));
    EXPECT_TRUE(contains(written, "  Begin BooleanBox chk\n"));
    EXPECT_EQ(parseFormFile(written).controls[1].index, 12);
}

TEST(FormFileArrays, shouldRefuseBadIndices) {
    for (const char* name :
         {"opt()", "opt(32768)", "opt(-1)", "opt(01)", "opt(1", "opt(a)", "(1)", "opt(1)x"}) {
        int line = 0;
        const std::string error =
            readError(kHead + "  Begin BooleanBox " + name + "\n  End\nEnd\n", &line);
        EXPECT_EQ(line, 3) << name;
        EXPECT_TRUE(contains(error, "bad control name")) << name << ": " << error;
    }
    EXPECT_EQ(readError(kHead + "  Begin BooleanBox opt(32767)\n  End\nEnd\n"), "");
}

TEST(FormFileArrays, shouldRefuseAnElementTwiceOrANameUsedBothWays) {
    int line = 0;
    EXPECT_TRUE(
        contains(readError(kHead + "Begin X opt(1)\nEnd\nBegin X OPT(1)\nEnd\nEnd\n", &line),
                 "duplicate control name OPT(1)"));
    EXPECT_EQ(line, 5);
    EXPECT_NE(readError(kHead + "Begin X opt(1)\nEnd\nBegin X opt\nEnd\nEnd\n"), "");
    EXPECT_NE(readError(kHead + "Begin X opt\nEnd\nBegin X opt(0)\nEnd\nEnd\n"), "");
    FormDocument doc;
    doc.name = u"f";
    doc.controls.push_back({u"BooleanBox", u"opt", {}, 0});
    doc.controls.push_back({u"BooleanBox", u"Opt", {}, 0});
    EXPECT_TRUE(contains(writeError(doc), "cannot write two controls named Opt(0)"));
}

TEST(FormFileArrays, shouldLoadAndSaveControlArraysOnAHeadlessForm) {
    const FormDocument doc =
        parseFormFile(kHead +
                      "  Begin BooleanBox opt(1)\n    Caption = String \"one\"\n  End\n"
                      "  Begin BooleanBox opt(0)\n  End\nEnd\n");
    headless::Host host;
    headless::HeadlessForm form(host);
    headless::loadForm(doc, form);
    ASSERT_NE(form.find(u"OPT", 1), nullptr);
    EXPECT_EQ(getProperty(form.find(u"opt", 1)->control(), u"Caption").asString(), u"one");
    const FormDocument saved = headless::saveForm(form, u"f", u"");
    ASSERT_EQ(saved.controls.size(), 2u);
    EXPECT_EQ(saved.controls[0].index, 1);
    EXPECT_EQ(saved.controls[1].index, 0);
}

TEST(FormFileArrays, shouldRefuseToLoadAnElementTheFormHoldsInAnotherCase) {
    headless::Host host;
    headless::HeadlessForm form(host);
    form.add(BooleanBox::staticClassInfo(), u"opt", 0);
    FormDocument doc;
    doc.controls.push_back({u"BooleanBox", u"OPT", {}, 0});
    try {
        headless::loadForm(doc, form);
        ADD_FAILURE() << "loaded a second OPT(0)";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), err::WrongArguments);
    }
    EXPECT_EQ(form.sites().size(), 1u);
}

TEST(FormFileBounds, shouldSayWhenLinesEndWithCrAlone) {
    int line = 0;
    const std::string error = readError("CorvexForm 1\rBegin Form f\rEnd\r", &line);
    EXPECT_EQ(line, 1);
    EXPECT_TRUE(contains(error, "CR alone")) << error;
    // However long the file, the fault is named as such rather than as a long line.
    std::string big = "CorvexForm 1\r";
    big.append(2u << 20, '#');
    EXPECT_TRUE(contains(readError(big), "CR alone"));
}

TEST(FormFileBounds, shouldRefuseMorePropertiesThanAControlHolds) {
    std::string text = kHead + "Begin BooleanBox b\n";
    for (int i = 0; i <= 65536; ++i) text += "p" + std::to_string(i) + " = Integer 1\n";
    text += "End\nEnd\n";
    int line = 0;
    const std::string error = readError(text, &line);
    EXPECT_TRUE(contains(error, "at most 65536 properties")) << error;
    EXPECT_EQ(line, 4 + 65536);
}

TEST(FormFileBounds, shouldReadTheMostPropertiesAControlHolds) {
    std::string text = kHead + "Begin BooleanBox b\n";
    for (int i = 0; i < 65536; ++i) text += "p" + std::to_string(i) + " = Integer 1\n";
    text += "End\nEnd\n";
    EXPECT_EQ(parseFormFile(text).controls[0].properties.size(), 65536u);
}

TEST(FormFileBounds, shouldRefuseMoreControlsThanAFormHolds) {
    std::string text = kHead;
    for (int i = 0; i <= 65536; ++i) text += "Begin X c" + std::to_string(i) + "\nEnd\n";
    text += "End\n";
    EXPECT_TRUE(contains(readError(text), "at most 65536 controls"));
}

TEST(FormFileBounds, shouldRefuseAFileLargerThan64MiB) {
    std::string text = kHead;
    const std::string comment = "#" + std::string(1000, 'x') + "\n";
    while (text.size() <= (64u << 20)) text += comment;
    text += "End\n";
    EXPECT_TRUE(contains(readError(text), "larger than 64 MiB"));
}

TEST(FormFileBounds, shouldNameTheControlAndPropertyOfAValueTooLongToWrite) {
    FormDocument doc;
    doc.name = u"gallery";
    doc.controls.push_back(
        {u"MemoBox", u"txtMemo", {{u"Value", Variant(std::u16string(1u << 20, u'x'))}}});
    const std::string error = writeError(doc);
    EXPECT_TRUE(contains(error, "property Value of control txtMemo")) << error;
    EXPECT_TRUE(contains(error, "1048576")) << error;
}

TEST(FormFileBounds, shouldNameTheControlAndPropertyOfAnObjectItCannotWrite) {
    headless::Host host;
    headless::HeadlessForm form(host);
    FormDocument doc;
    doc.name = u"f";
    doc.controls.push_back(
        {u"BooleanBox",
         u"chk",
         {{u"Other",
           Variant(ObjectRef(form.add(BooleanBox::staticClassInfo(), u"x").controlRef()))}},
         3});
    const std::string error = writeError(doc);
    EXPECT_TRUE(contains(error, "property Other of control chk(3)")) << error;
}

}  // namespace
