// FileNameBox on the headless host: the typing filter, validation when the box is left,
// dropped files, saved properties and the decomposition members, with names looked up in
// a real folder tree (drive T:) in English and in Japanese.
#include "corvex/files/file_name_box.h"

#include <gtest/gtest.h>

#include "corvex/common/text.h"
#include "corvex/files/file_name_rules.h"
#include "corvex/library/memory_bag.h"
#include "corvex/posix/file_system.h"
#include "support/headless_fixture.h"
#include "support/temp_tree.h"

using namespace corvex;

namespace {

class FileNameBoxTest : public ::testing::TestWithParam<bool> {
protected:
    FileNameBoxTest() : fs(mapped()) {
        h.host().setFileSystem(&fs);
        h.setLocaleId(GetParam() ? LocaleJapanese : LocaleEnglishUS);
    }
    posix::DriveMap mapped() {
        posix::DriveMap map;
        map.map(u"T:", tree.root());
        return map;
    }
    // A box that has read its (empty) saved properties, as every loaded form's box has.
    FileNameBox& loaded(const std::u16string& name = u"f") {
        MemoryBag bag;
        return static_cast<FileNameBox&>(h.load(FileNameBox::staticClassInfo(), name, bag));
    }
    // A box just placed in the designer: initialised as new, nothing read.
    FileNameBox& placed(const std::u16string& name = u"f") {
        return static_cast<FileNameBox&>(h.add(FileNameBox::staticClassInfo(), name));
    }
    headless::HeadlessWidget& txt(const std::u16string& name = u"f") {
        return h.headlessWidget(name, u"txtInput");
    }
    std::u16string text(int code) const { return files::messages().text(code, GetParam()); }
    std::vector<std::u16string> shownTexts() {
        std::vector<std::u16string> out;
        for (const MessageBoxRequest& r : h.messageBoxes()) out.push_back(r.text);
        return out;
    }
    std::vector<Variant> keyPressArgs(const std::u16string& name = u"f") {
        std::vector<Variant> out;
        for (const auto& e : h.events(name))
            if (e.name == u"KeyPress") out.push_back(e.args.at(0));
        return out;
    }

    corvex::testing::TempTree tree;
    posix::PosixFileSystem fs;
    corvex::testing::HeadlessHarness h;
};

// --- typing -----------------------------------------------------------------------------

TEST_P(FileNameBoxTest, shouldInsertNothingForABarOrADoubleQuoteButTakeColonAndBackslash) {
    FileNameBox& f = loaded();
    h.typeText(u"f", u"C|:\"\\a/<>?*'b");
    EXPECT_EQ(f.text(), u"C:\\ab");
    const std::vector<Variant> keys = keyPressArgs();
    ASSERT_EQ(keys.size(), 13u);
    EXPECT_EQ(keys[1].toInteger(), 0) << "the host's KeyPress sees the swallowed key as 0";
    EXPECT_EQ(keys[2].toInteger(), u':');
}

TEST_P(FileNameBoxTest, shouldSwallowEnterAndRaiseKeyPressWithZero) {
    FileNameBox& f = loaded();
    h.typeText(u"f", u"a\rb");
    EXPECT_EQ(f.text(), u"ab");
    EXPECT_EQ(keyPressArgs()[1].toInteger(), 0);
}

TEST_P(FileNameBoxTest, shouldLetAPasteBypassTheFilterAndRefuseItAtTheNextValidation) {
    FileNameBox& f = loaded();
    h.setClipboardText(u"C:\\a|b");
    h.pressKey(u"f", u'V', key::CtrlMask);
    EXPECT_EQ(f.text(), u"C:\\a|b");
    EXPECT_FALSE(f.validateValue());
    ASSERT_EQ(h.messageBoxes().size(), 1u);
    EXPECT_EQ(h.messageBoxes()[0].text.substr(0, text(1002).size()), text(1002));
}

TEST_P(FileNameBoxTest, shouldFilterOnlyEnterBeforeItsPropertiesAreRead) {
    FileNameBox& f = placed();
    h.typeText(u"f", u"a|\"\r");
    EXPECT_EQ(f.text(), u"a|\"");
    EXPECT_TRUE(f.validateValue()) << "no character counts as invalid yet";
}

// --- leaving the box ------------------------------------------------------------------------

TEST_P(FileNameBoxTest, shouldWarnAndTakeTheFocusBackWhenLeftWithAnInvalidName) {
    FileNameBox& f = loaded();
    loaded(u"other");
    f.setText(u"C:");
    h.form().focus(&txt());
    h.form().focus(&txt(u"other"));
    EXPECT_EQ(shownTexts(), std::vector<std::u16string>{text(1006)});
    EXPECT_EQ(h.form().focused(), &txt());
}

TEST_P(FileNameBoxTest, shouldTakeTheFocusBackSilentlyWithoutMessageShow) {
    FileNameBox& f = loaded();
    loaded(u"other");
    f.setMessageShow(false);
    f.setText(u"T:\\absent.txt");
    f.setMode(CheckExistsMode::FileOnly);
    h.form().focus(&txt());
    h.form().focus(&txt(u"other"));
    EXPECT_TRUE(h.messageBoxes().empty());
    EXPECT_EQ(h.form().focused(), &txt());
}

TEST_P(FileNameBoxTest, shouldLetTheFocusGoWithAValidNameOrWithoutTheCheck) {
    FileNameBox& f = loaded();
    loaded(u"other");
    f.setText(u"T:\\Data\\report.txt");
    f.setMode(CheckExistsMode::FileOnly);
    h.form().focus(&txt());
    h.form().focus(&txt(u"other"));
    EXPECT_EQ(h.form().focused(), &txt(u"other"));
    f.setText(u"C:");
    f.setValidateAtLostFocus(false);
    h.form().focus(&txt());
    h.form().focus(&txt(u"other"));
    EXPECT_EQ(h.form().focused(), &txt(u"other"));
    EXPECT_TRUE(h.messageBoxes().empty());
}

// --- dropping files ---------------------------------------------------------------------------

TEST_P(FileNameBoxTest, shouldTakeTheFirstOfThreeDroppedFilesWithoutValidating) {
    FileNameBox& f = loaded();
    f.setMode(CheckExistsMode::FolderOnly);
    txt().dropFiles({u"T:\\Data\\report.txt", u"T:\\Data\\README", u"T:\\my.dir"});
    EXPECT_EQ(f.text(), u"T:\\Data\\report.txt");
    EXPECT_TRUE(h.messageBoxes().empty());
    EXPECT_EQ(corvex::testing::eventNames(h.events(u"f")), std::vector<std::u16string>{u"Change"});
    txt().dropFiles({});
    EXPECT_EQ(f.text(), u"T:\\Data\\report.txt") << "an empty drop changes nothing";
}

// --- a new control and its saved properties ----------------------------------------------------

TEST_P(FileNameBoxTest, shouldStartANewControlWithTheDocumentedDefaults) {
    FileNameBox& f = placed();
    EXPECT_EQ(f.mode(), CheckExistsMode::NoCheck);
    EXPECT_TRUE(f.messageShow());
    EXPECT_TRUE(f.validateAtLostFocus());
    EXPECT_EQ(f.defaultValue(), u"");
    EXPECT_EQ(f.keyName(), u"");
    EXPECT_EQ(f.sectionName(), u"");
    EXPECT_EQ(f.maxLength(), 0);
    EXPECT_EQ(f.imeMode(), CorvexIMEMode::IMENone);
}

TEST_P(FileNameBoxTest, shouldWriteFontThirdAndReadTheRestBack) {
    h.setUserMode(false);
    FileNameBox& f = placed();
    f.setBackColor(1);
    f.setEnabled(false);
    f.setForeColor(2);
    f.setImeMode(CorvexIMEMode::IMEON);
    f.setMaxLength(40);
    FontDesc font;
    font.name = u"Other Font";
    f.setFont(Font::make(font));
    f.setMessageShow(false);
    f.setMode(CheckExistsMode::FileAndFolder);
    f.setDefaultValue(u"T:\\Data");
    f.setKeyName(u"K");
    f.setSectionName(u"S");
    f.setValidateAtLostFocus(false);
    MemoryBag bag;
    f.writeProperties(bag);
    std::vector<std::u16string> names;
    for (const auto& e : bag.entries()) names.push_back(e.first);
    EXPECT_EQ(names, (std::vector<std::u16string>{u"BackColor", u"Enabled", u"Font", u"ForeColor",
                                                  u"IMEMode", u"MaxLength", u"MessageShow", u"Mode",
                                                  u"DefaultValue", u"KeyName", u"SectionName",
                                                  u"ValidateAtLostFocus"}));
    FileNameBox& g = static_cast<FileNameBox&>(h.load(FileNameBox::staticClassInfo(), u"g", bag));
    EXPECT_EQ(g.backColor(), 1);
    EXPECT_FALSE(g.enabled());
    EXPECT_EQ(g.foreColor(), 2);
    EXPECT_EQ(g.imeMode(), CorvexIMEMode::IMEON);
    EXPECT_EQ(g.maxLength(), 40);
    EXPECT_EQ(g.font()->desc().name, u"Other Font");
    EXPECT_FALSE(g.messageShow());
    EXPECT_EQ(g.mode(), CheckExistsMode::FileAndFolder);
    EXPECT_EQ(g.text(), u"T:\\Data") << "the text starts as the default";
    EXPECT_EQ(g.keyName(), u"K");
    EXPECT_EQ(g.sectionName(), u"S");
    EXPECT_FALSE(g.validateAtLostFocus());
}

TEST_P(FileNameBoxTest, shouldRefuseDefaultValueAtRunTime) {
    FileNameBox& f = loaded();
    try {
        f.setDefaultValue(u"C:\\x");
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 382);
    }
    EXPECT_EQ(f.defaultValue(), u"");
    EXPECT_EQ(f.text(), u"");
}

TEST_P(FileNameBoxTest, shouldShowTheDefaultAtOnceAtDesignTime) {
    h.setUserMode(false);
    FileNameBox& f = placed();
    h.clearRecords(u"f");
    f.setDefaultValue(u"C:\\x");
    EXPECT_EQ(f.text(), u"C:\\x");
    EXPECT_EQ(h.changes(u"f"), (std::vector<std::u16string>{u"DefaultValue", u"Value", u"Text"}));
}

TEST_P(FileNameBoxTest, shouldStoreRestoreAndKeepTheTextOnCls) {
    FileNameBox& f = loaded();
    f.setText(u"C:\\a");
    f.store();
    f.setText(u"C:\\b");
    f.cls();
    EXPECT_EQ(f.text(), u"C:\\b");
    f.restore();
    EXPECT_EQ(f.text(), u"C:\\a");
    f.restoreDefault();
    EXPECT_EQ(f.text(), u"");
}

// --- validation and the decomposition members ------------------------------------------------

TEST_P(FileNameBoxTest, shouldAnswerCancelAsTheNegationOfValidateValue) {
    FileNameBox& f = loaded();
    f.setMessageShow(false);
    f.setText(u"C:");
    EXPECT_TRUE(f.cancel());
    EXPECT_FALSE(f.validateValue());
    f.setText(u"C:\\ok");
    EXPECT_FALSE(f.cancel());
    EXPECT_TRUE(f.validateValue());
}

TEST_P(FileNameBoxTest, shouldTakeTheWorkedExamplesApartThroughItsMembers) {
    FileNameBox& f = loaded();
    struct Row {
        std::u16string text, drive, path, title, extension, pathBody, body;
    };
    const std::vector<Row> rows = {
        {u"C:\\Data\\report.txt", u"C", u"C:\\Data", u"\\report.txt", u"txt", u"C:\\Data\\report",
         u"\\report"},
        {u"C:\\report.txt", u"C", u"C:", u"\\report.txt", u"txt", u"C:\\report", u"\\report"},
        {u"C:\\Data\\archive.tar.gz", u"C", u"C:\\Data", u"\\archive.tar.gz", u"gz",
         u"C:\\Data\\archive.tar", u"\\archive.tar"},
        {u"C:\\Data\\README", u"C", u"C:\\Data", u"\\README", u"", u"C:\\Data\\README",
         u"\\README"},
        {u"C:\\my.dir\\README", u"C", u"C:\\my.dir", u"\\README", u"dir\\README", u"C:\\my",
         u"\\README"},
        {u"C:\\Data\\", u"C", u"C:\\Data", u"", u"", u"C:\\Data\\", u""},
        {u"\\\\server\\share\\a.doc", u"", u"\\\\server\\share", u"\\a.doc", u"doc",
         u"\\\\server\\share\\a", u"\\a"},
        {u"report.txt", u"", u"", u"", u"txt", u"report", u""},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(toUtf8(r.text));
        f.setText(r.text);
        EXPECT_EQ(f.fileName(), r.text);
        EXPECT_EQ(f.fileDrive(), r.drive);
        EXPECT_EQ(f.filePath(), r.path);
        EXPECT_EQ(f.fileTitle(), r.title);
        EXPECT_EQ(f.fileExtension(), r.extension);
        EXPECT_EQ(f.filePathBody(), r.pathBody);
        EXPECT_EQ(f.fileBody(), r.body);
    }
    EXPECT_TRUE(h.messageBoxes().empty());
}

TEST_P(FileNameBoxTest, shouldAnswerEmptyPartsAndWarnForAnInvalidNameButStillGiveTheDrive) {
    FileNameBox& f = loaded();
    f.setText(u"C:\\a||b.txt");
    EXPECT_EQ(f.fileDrive(), u"C");
    EXPECT_TRUE(h.messageBoxes().empty()) << "FileDrive does not validate";
    EXPECT_EQ(f.fileExtension(), u"");
    EXPECT_EQ(f.filePath(), u"");
    EXPECT_EQ(h.messageBoxes().size(), 2u) << "each read warns";
}

TEST_P(FileNameBoxTest, shouldGiveTheShortAndLongNamesOfAnExistingName) {
    FileNameBox& f = loaded();
    f.setText(u"t:\\PROGRAM FILES\\sample FILE.txt");
    EXPECT_EQ(f.longFileName(), u"t:\\Program Files\\Sample file.txt");
    EXPECT_EQ(f.shortFileName(), u"t:\\PROGRAM FILES\\sample FILE.txt");
    f.setText(u"T:\\nowhere\\x.txt");
    EXPECT_EQ(f.longFileName(), u"");
    EXPECT_EQ(f.shortFileName(), u"");
    f.setText(u"");
    EXPECT_EQ(f.longFileName(), u"");
    EXPECT_EQ(f.shortFileName(), u"");
}

TEST_P(FileNameBoxTest, shouldCheckExistenceByModeThroughTheTree) {
    FileNameBox& f = loaded();
    f.setMode(CheckExistsMode::FileOnly);
    f.setText(u"T:\\Data");
    EXPECT_FALSE(f.validateValue());
    ASSERT_EQ(h.messageBoxes().size(), 1u);
    EXPECT_EQ(h.messageBoxes()[0].text, text(1009));
    EXPECT_EQ(h.messageBoxes()[0].title, text(101));
    EXPECT_EQ(h.messageBoxes()[0].style, 48);
    f.setText(u"");
    EXPECT_TRUE(f.validateValue());
}

TEST_P(FileNameBoxTest, shouldNotifyValueAndThenTextOnAValueLet) {
    FileNameBox& f = loaded();
    h.clearRecords(u"f");
    f.setValue(u"C:\\v");
    EXPECT_EQ(h.changes(u"f"), (std::vector<std::u16string>{u"Value", u"Text"}));
    EXPECT_EQ(f.value(), u"C:\\v");
}

INSTANTIATE_TEST_SUITE_P(Locales, FileNameBoxTest, ::testing::Values(false, true),
                         [](const auto& info) { return info.param ? "Japanese" : "English"; });

}  // namespace
