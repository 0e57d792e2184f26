// The file-name rules: the syntax check and its accumulated warnings, the existence
// check, validation by mode, the decomposition and the short and long names. Edge cases
// run on a real folder tree (drive T: mapped onto it) in English and in Japanese.
#include "corvex/files/file_name_rules.h"

#include <gtest/gtest.h>

#include <map>

#include "corvex/common/text.h"
#include "corvex/platform/message_box.h"
#include "corvex/posix/file_system.h"
#include "support/temp_tree.h"

using namespace corvex;
using namespace corvex::files;

namespace {

struct Shown {
    std::u16string text;
    std::int32_t style = 0;
    std::u16string title;
};

// The rules' environment: a file system, a locale and the boxes shown.
class TestEnv : public FileNameEnv {
public:
    TestEnv(FileSystem& fs, bool japanese) : fs_(fs), japanese_(japanese) {}
    FileSystem& fileSystem() override { return fs_; }
    std::u16string messageText(int code) override { return messages().text(code, japanese_); }
    void showMessage(const std::u16string& text, std::int32_t style, int titleCode) override {
        shown.push_back({text, style, messageText(titleCode)});
    }
    std::vector<Shown> shown;

private:
    FileSystem& fs_;
    bool japanese_;
};

// A file system whose entries a test lists: stored name and attribute word (nothing:
// the attributes cannot be read).
class FakeFileSystem : public FileSystem {
public:
    struct Entry {
        std::u16string stored;
        std::optional<std::int32_t> attributes;
    };
    std::optional<std::u16string> findFirst(std::u16string_view name, std::int32_t) override {
        ++lookups;
        auto it = entries.find(std::u16string(name));
        if (it == entries.end()) return std::nullopt;
        return it->second.stored;
    }
    std::optional<std::int32_t> attributes(std::u16string_view name) override {
        auto it = entries.find(std::u16string(name));
        return it == entries.end() ? std::nullopt : it->second.attributes;
    }
    std::uint32_t shortPathName(std::string_view, std::span<char> buffer) override {
        if (shortAnswer <= buffer.size())
            std::copy(shortText.begin(), shortText.end(), buffer.data());
        return shortAnswer;
    }
    std::map<std::u16string, Entry> entries;
    std::string shortText;
    std::uint32_t shortAnswer = 0;
    int lookups = 0;
};

FileNameSettings loaded(std::int32_t mode = 0, bool show = true) {
    return {show, mode, invalidCharacters()};
}

std::u16string invalidMessage(bool japanese) {
    return messages().text(code::BadCharacter, japanese) + u"\r" +
           messages().text(code::NotForWindows, japanese) + u"   /<>?|*'\"";
}

// --- the fixed texts ------------------------------------------------------------------

TEST(FileNameMessages, shouldKeepEveryTextLetterForLetterInBothLanguages) {
    const std::vector<MessageText> expected = {
        {101, u"注意!!", u"Caution!!"},
        {102, u"警告!!", u"Warning!!"},
        {201, u"エラー番号", u"Error Number"},
        {202, u"エラー", u"Error"},
        {1001, u"文字数が255を越えています", u"Number of characters more than 255."},
        {1002, u"ファイル名として不正な文字が含まれています",
         u"Irregal character included in file name."},
        {1003, u"Windowsで使用できない文字", u"Not allowed characters for Windows"},
        {1004, u"\\ が3つ以上連続しています", u"More than two '\\' connect."},
        {1005, u":が2つ以上含まれています", u"Included more than one ':'."},
        {1006, u"ドライブ名の直後が\\　でありません",
         u"Tha character just after drive name is not '\\'."},
        {1007, u"ファイル名に不正な空白が含まれています", u"Irregal spaces included in file name."},
        {1008, u"フォルダを選択して下さい", u"Select a folder."},
        {1009, u"ファイルを選択して下さい", u"Select a file."},
        {1010, u"ファイルまたはフォルダが存在しません", u"File or folder not found."},
        {1011, u"有効なファイルまたはフォルダ名を指定して下さい",
         u"Enter valid file or folder name."},
        {1012, u"UNC名が指定されています。ドライブ名は含めないで下さい",
         u"UNC name is given.Not give drive name."},
        {1013, u"ドライブ名がアルファベットでありません", u"Drive name is not alphabetical."},
        {1014, u"未定義", u"Undefined."},
    };
    for (const MessageText& m : expected) {
        EXPECT_EQ(messages().text(m.code, true), m.japanese) << m.code;
        EXPECT_EQ(messages().text(m.code, false), m.english) << m.code;
    }
    EXPECT_EQ(messages().text(1006, true)[10], u'\u3000') << "an ideographic space";
}

TEST(FileNameMessages, shouldHoldTheEightInvalidCharactersInTheirOrder) {
    EXPECT_EQ(invalidCharacters(), u"/<>?|*'\"");
}

// --- blanks, extensions, positions ----------------------------------------------------

TEST(FileNameText, shouldHandleBlanksByEachSelector) {
    const std::u16string t = u"  a   b  ";
    EXPECT_EQ(processSpaces(t, 0), u"ab");
    EXPECT_EQ(processSpaces(t, 1), u" a b ");
    EXPECT_EQ(processSpaces(t, 2), u"a   b");
    EXPECT_EQ(processSpaces(t, 3), u"a   b  ");
    EXPECT_EQ(processSpaces(t, 4), u"  a   b");
    EXPECT_EQ(processSpaces(t, 5), u"");
    EXPECT_EQ(processSpaces(t, -1), u"");
    EXPECT_EQ(processSpaces(u"   ", 2), u"");
    EXPECT_EQ(processSpaces(u"a\tb", 0), u"a\tb") << "only the blank counts";
}

TEST(FileNameText, shouldStripFromTheLastDotAnywhere) {
    EXPECT_EQ(stripExtension(u"a.tar.gz"), u"a.tar");
    EXPECT_EQ(stripExtension(u"C:\\my.dir\\README"), u"C:\\my");
    EXPECT_EQ(stripExtension(u"README"), u"README");
    EXPECT_EQ(stripExtension(u".profile"), u"");
}

TEST(FileNameText, shouldGiveTheLastPositionCountedFromOne) {
    EXPECT_EQ(lastPosition(u"C:\\a\\b", u'\\'), 5);
    EXPECT_EQ(lastPosition(u"abc", u'\\'), 0);
    EXPECT_EQ(lastPosition(u"\\", u'\\'), 1);
}

TEST(FileNameText, shouldGiveNoLastPositionInAnInvalidOrEmptyText) {
    FakeFileSystem fs;
    TestEnv env(fs, false);
    EXPECT_EQ(lastCharPosition(u"C:\\a\\b.txt", u'\\', loaded(), env), 5);
    EXPECT_EQ(lastCharPosition(u"C:\\a\\b.txt", u'.', loaded(), env), 7);
    EXPECT_EQ(lastCharPosition(u"C:\\ab", u'.', loaded(), env), 0);
    EXPECT_EQ(lastCharPosition(u"", u'\\', loaded(), env), 0);
    EXPECT_TRUE(env.shown.empty());
    EXPECT_EQ(lastCharPosition(u"C:\\a|\\b", u'\\', loaded(), env), 0);
    EXPECT_EQ(env.shown.size(), 1u) << "the validation warned";
    EXPECT_EQ(lastCharPosition(u"C:\\a\\b", u'\\', loaded(1), env), 0) << "not found";
}

// --- the worked examples --------------------------------------------------------------

TEST(FileNameParts, shouldTakeEachWorkedExampleApartRowForRow) {
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
    FakeFileSystem fs;
    TestEnv env(fs, false);
    for (const Row& r : rows) {
        SCOPED_TRACE(toUtf8(r.text));
        EXPECT_TRUE(validate(r.text, loaded(), env));
        EXPECT_EQ(part(r.text, Part::Name), r.text);
        EXPECT_EQ(part(r.text, Part::Drive), r.drive);
        EXPECT_EQ(part(r.text, Part::Path), r.path);
        EXPECT_EQ(part(r.text, Part::Title), r.title);
        EXPECT_EQ(part(r.text, Part::Extension), r.extension);
        EXPECT_EQ(part(r.text, Part::PathBody), r.pathBody);
        EXPECT_EQ(part(r.text, Part::Body), r.body);
        EXPECT_EQ(part(r.text, Part::Path) + part(r.text, Part::Title),
                  r.title.empty() ? r.path : r.text);
    }
    EXPECT_TRUE(env.shown.empty());
}

// --- the syntax check, in both locales ------------------------------------------------

class SyntaxCheck : public ::testing::TestWithParam<bool> {
protected:
    bool japanese() const { return GetParam(); }
    std::u16string text(int c) const { return messages().text(c, japanese()); }
    // Checks name; returns the result, the boxes shown are in env.shown.
    bool check(const std::u16string& name, bool show = true) {
        env.shown.clear();
        return checkSyntax(name, loaded(0, show), env);
    }
    // The warning texts of the boxes shown, in order.
    std::vector<std::u16string> texts() const {
        std::vector<std::u16string> out;
        for (const Shown& s : env.shown) out.push_back(s.text);
        return out;
    }
    FakeFileSystem fs;
    TestEnv env{fs, GetParam()};
};

TEST_P(SyntaxCheck, shouldShowTheLengthErrorAndThenTheCharacterWarningForALongNameWithABar) {
    const std::u16string name = u"C:\\" + std::u16string(296, u'a') + u"|";
    ASSERT_EQ(name.size(), 300u);
    EXPECT_FALSE(check(name));
    ASSERT_EQ(env.shown.size(), 2u);
    EXPECT_EQ(env.shown[0].text, text(1001));
    EXPECT_EQ(env.shown[0].title, text(202)) << "the length warning alone is titled Error";
    EXPECT_EQ(env.shown[0].style, 16);
    EXPECT_EQ(env.shown[1].text, invalidMessage(japanese()));
    EXPECT_EQ(env.shown[1].title, text(102));
    EXPECT_EQ(env.shown[1].style, 16);
}

TEST_P(SyntaxCheck, shouldAcceptExactly255Characters) {
    EXPECT_TRUE(check(u"C:\\" + std::u16string(252, u'a')));
    EXPECT_FALSE(check(u"C:\\" + std::u16string(253, u'a')));
}

TEST_P(SyntaxCheck, shouldShowOneCharacterWarningForSeveralInvalidCharacters) {
    EXPECT_FALSE(check(u"C:\\a||b"));
    EXPECT_EQ(texts(), std::vector<std::u16string>{invalidMessage(japanese())});
    EXPECT_FALSE(check(u"C:\\a<>?*'\"b"));
    EXPECT_EQ(env.shown.size(), 1u);
}

TEST_P(SyntaxCheck, shouldRefuseThreeBackslashesButNotTwo) {
    EXPECT_FALSE(check(u"C:\\a\\\\\\b"));
    EXPECT_EQ(texts(), std::vector<std::u16string>{text(1004)});
    EXPECT_EQ(env.shown[0].title, text(102));
    EXPECT_TRUE(check(u"\\\\server\\share"));
    EXPECT_TRUE(env.shown.empty());
}

TEST_P(SyntaxCheck, shouldWantABackslashAfterTheOneColonAndNoSecondColon) {
    EXPECT_FALSE(check(u"C:"));
    EXPECT_EQ(texts(), std::vector<std::u16string>{text(1006)});
    EXPECT_TRUE(check(u"C:\\"));
    EXPECT_TRUE(env.shown.empty());
    EXPECT_FALSE(check(u"C:\\a:b"));
    EXPECT_EQ(texts(), std::vector<std::u16string>{text(1005)});
}

TEST_P(SyntaxCheck, shouldRefuseAPathElementOfBlanksOnly) {
    EXPECT_FALSE(check(u"C:\\a\\ \\b"));
    EXPECT_EQ(texts(), std::vector<std::u16string>{text(1007)});
    EXPECT_FALSE(check(u"C:\\a\\   \\b"));
    EXPECT_EQ(texts(), std::vector<std::u16string>{text(1007)});
    EXPECT_TRUE(check(u"C:\\a\\ b"));
    EXPECT_TRUE(check(u"C:\\dir\\  ")) << "a trailing element of blanks is not caught";
}

TEST_P(SyntaxCheck, shouldJudgeTheFirstCharacter) {
    EXPECT_TRUE(check(u"c:\\x"));
    EXPECT_TRUE(check(u"report.txt"));
    EXPECT_FALSE(check(u"1:\\x"));
    EXPECT_EQ(texts(), std::vector<std::u16string>{text(1013)});
    EXPECT_FALSE(check(u"_x.txt"));
    EXPECT_EQ(texts(), std::vector<std::u16string>{text(1013)});
    EXPECT_FALSE(check(u"日本語.txt"));
    EXPECT_EQ(texts(), std::vector<std::u16string>{text(1013)});
    EXPECT_FALSE(check(u"\\x"));
    EXPECT_EQ(texts(), std::vector<std::u16string>{text(1006)});
    EXPECT_FALSE(check(u"\\\\"));
    EXPECT_EQ(texts(), std::vector<std::u16string>{text(1006)});
    EXPECT_FALSE(check(u"\\dir\\file"));
    EXPECT_EQ(texts(), std::vector<std::u16string>{text(1006)});
}

TEST_P(SyntaxCheck, shouldRefuseAUncNameWithADriveAfterPassingTheColonTest) {
    EXPECT_FALSE(check(u"\\\\srv\\c:\\x"));
    EXPECT_EQ(texts(), std::vector<std::u16string>{text(1012)});
    EXPECT_EQ(env.shown[0].title, text(102));
}

TEST_P(SyntaxCheck, shouldAccumulateEveryFailedTestBeforeTheFirstCharacterOne) {
    EXPECT_FALSE(check(u"1:\\a|\\\\\\ \\b:"));
    EXPECT_EQ(texts(), (std::vector<std::u16string>{invalidMessage(japanese()), text(1004),
                                                    text(1005), text(1007), text(1013)}));
}

TEST_P(SyntaxCheck, shouldGiveTheSameResultsSilentlyWithoutMessageShow) {
    for (const char16_t* name : {u"C:", u"C:\\a||b", u"_x", u"\\\\srv\\c:\\x", u"C:\\ok"}) {
        const bool shown = check(name, true);
        EXPECT_EQ(check(name, false), shown);
        EXPECT_TRUE(env.shown.empty());
    }
}

TEST_P(SyntaxCheck, shouldCountNoCharacterInvalidWithAnEmptySet) {
    env.shown.clear();
    EXPECT_TRUE(checkSyntax(u"C:\\a|b", FileNameSettings{}, env));
    EXPECT_TRUE(env.shown.empty());
}

INSTANTIATE_TEST_SUITE_P(Locales, SyntaxCheck, ::testing::Values(false, true),
                         [](const auto& info) { return info.param ? "Japanese" : "English"; });

// --- existence and validation on a fake file system ------------------------------------

TEST(ExistenceCheck, shouldTakeOnlyPlainAndArchivedFoldersForFolders) {
    FakeFileSystem fs;
    TestEnv env(fs, false);
    const std::map<std::int32_t, std::int16_t> kinds = {
        {16, kind::Folder},        {48, kind::Folder},     {16 + 2048, kind::Folder},
        {48 + 2048, kind::Folder}, {17, kind::File},       {18, kind::File},
        {22, kind::File},          {32, kind::File},       {0, kind::File},
        {2048, kind::File},        {4096 + 16, kind::File}};
    for (const auto& [attributes, expected] : kinds) {
        fs.entries[u"C:\\x"] = {u"x", attributes};
        EXPECT_EQ(checkExistence(u"C:\\x", loaded(), env), expected) << attributes;
    }
    EXPECT_TRUE(env.shown.empty());
}

TEST(ExistenceCheck, shouldAnswerEmptyWithoutLookingAnythingUp) {
    FakeFileSystem fs;
    TestEnv env(fs, false);
    EXPECT_EQ(checkExistence(u"", loaded(), env), kind::Empty);
    EXPECT_EQ(fs.lookups, 0);
}

TEST(ExistenceCheck, shouldWarnOfAMissingNameAndOfUnreadableAttributes) {
    FakeFileSystem fs;
    TestEnv env(fs, false);
    EXPECT_EQ(checkExistence(u"C:\\nothing", loaded(), env), kind::Unusable);
    fs.entries[u"C:\\odd"] = {u"odd", std::nullopt};
    EXPECT_EQ(checkExistence(u"C:\\odd", loaded(), env), kind::Unusable);
    ASSERT_EQ(env.shown.size(), 2u);
    EXPECT_EQ(env.shown[0].text, u"File or folder not found.");
    EXPECT_EQ(env.shown[1].text, u"Enter valid file or folder name.");
    for (const Shown& s : env.shown) {
        EXPECT_EQ(s.title, u"Warning!!");
        EXPECT_EQ(s.style, 16);
    }
}

TEST(Validation, shouldNotLookUpANameThatFailedItsSyntaxOrWhenModeIsNoCheck) {
    FakeFileSystem fs;
    TestEnv env(fs, false);
    EXPECT_FALSE(validate(u"C:", loaded(3), env));
    EXPECT_TRUE(validate(u"C:\\absent", loaded(0), env));
    EXPECT_EQ(fs.lookups, 0);
    EXPECT_FALSE(validate(u"C:\\absent", loaded(3), env));
    EXPECT_EQ(fs.lookups, 1);
}

TEST(Validation, shouldKeepAModeOutsideTheEnumerationAsAnExistenceCheck) {
    FakeFileSystem fs;
    TestEnv env(fs, false);
    fs.entries[u"C:\\f"] = {u"f", 32};
    fs.entries[u"C:\\d"] = {u"d", 16};
    EXPECT_TRUE(validate(u"C:\\f", loaded(7), env));
    EXPECT_TRUE(validate(u"C:\\d", loaded(7), env));
    EXPECT_FALSE(validate(u"C:\\gone", loaded(7), env));
    EXPECT_TRUE(validate(u"C:\\gone", loaded(-1), env));
}

// --- short names: the 260-character buffer ----------------------------------------------

TEST(ShortName, shouldKeepTheBufferRulesOfTheSystemCall) {
    FakeFileSystem fs;
    EXPECT_EQ(shortName(u"C:\\x", fs), u"") << "a failing call";
    fs.shortText = "C:\\PROGRA~1";
    fs.shortAnswer = 11;
    EXPECT_EQ(shortName(u"C:\\Program Files", fs), u"C:\\PROGRA~1");
    fs.shortAnswer = 5;
    EXPECT_EQ(shortName(u"C:\\Program Files", fs), u"C:\\PR") << "the first n characters";
    fs.shortAnswer = 300;
    EXPECT_EQ(shortName(u"C:\\long", fs), std::u16string(260, u'\0'))
        << "a buffer too small comes back whole, as it was";
}

// --- the real tree, in both locales -----------------------------------------------------

class TreeRules : public ::testing::TestWithParam<bool> {
protected:
    TreeRules() : fs(mapped()) {}
    posix::DriveMap mapped() {
        posix::DriveMap map;
        map.map(u"T:", tree.root());
        return map;
    }
    std::u16string text(int c) const { return messages().text(c, GetParam()); }
    bool valid(const std::u16string& name, std::int32_t mode, bool show = true) {
        env.shown.clear();
        return validate(name, loaded(mode, show), env);
    }
    corvex::testing::TempTree tree;
    posix::PosixFileSystem fs;
    TestEnv env{fs, GetParam()};
};

TEST_P(TreeRules, shouldAskForAFileWhenAFolderIsGivenInFileOnlyMode) {
    EXPECT_FALSE(valid(u"T:\\Data", 1));
    ASSERT_EQ(env.shown.size(), 1u);
    EXPECT_EQ(env.shown[0].text, text(1009));
    EXPECT_EQ(env.shown[0].title, text(101));
    EXPECT_EQ(env.shown[0].style, 48);
    EXPECT_TRUE(valid(u"T:\\Data\\report.txt", 1));
}

TEST_P(TreeRules, shouldAskForAFolderWhenAFileIsGivenInFolderOnlyMode) {
    EXPECT_FALSE(valid(u"T:\\Data\\report.txt", 2));
    ASSERT_EQ(env.shown.size(), 1u);
    EXPECT_EQ(env.shown[0].text, text(1008));
    EXPECT_EQ(env.shown[0].title, text(101));
    EXPECT_EQ(env.shown[0].style, 48);
    EXPECT_TRUE(valid(u"T:\\Data", 2));
    EXPECT_TRUE(valid(u"T:\\Data\\", 2)) << "a trailing backslash names the folder";
}

TEST_P(TreeRules, shouldFindEitherKindInFileAndFolderMode) {
    EXPECT_TRUE(valid(u"T:\\Data", 3));
    EXPECT_TRUE(valid(u"T:\\Data\\README", 3));
    EXPECT_FALSE(valid(u"T:\\Data\\missing.txt", 3));
    ASSERT_EQ(env.shown.size(), 1u);
    EXPECT_EQ(env.shown[0].text, text(1010));
    EXPECT_EQ(env.shown[0].title, text(102));
}

TEST_P(TreeRules, shouldTakeAnEmptyTextAsValidInEveryMode) {
    for (std::int32_t mode : {0, 1, 2, 3}) EXPECT_TRUE(valid(u"", mode)) << mode;
    EXPECT_TRUE(env.shown.empty());
}

TEST_P(TreeRules, shouldClassAHiddenFolderAsAFile) {
    EXPECT_EQ(fs.attributes(u"T:\\.hidden"), 18);
    EXPECT_FALSE(valid(u"T:\\.hidden", 2));
    ASSERT_EQ(env.shown.size(), 1u);
    EXPECT_EQ(env.shown[0].text, text(1008));
    EXPECT_TRUE(valid(u"T:\\.hidden", 1));
}

TEST_P(TreeRules, shouldFindNamesWithoutRegardToCase) {
    EXPECT_TRUE(valid(u"t:\\DATA\\Report.TXT", 1));
    EXPECT_TRUE(valid(u"T:\\case\\REPORT.txt", 1));
    EXPECT_TRUE(valid(u"T:\\READONLY.TXT", 1)) << "a read-only file (33) is a file";
    EXPECT_EQ(fs.attributes(u"T:\\readonly.txt"), 33);
}

TEST_P(TreeRules, shouldWarnOfADanglingLinkAsUnreadable) {
    EXPECT_FALSE(valid(u"T:\\dangling", 3));
    ASSERT_EQ(env.shown.size(), 1u);
    EXPECT_EQ(env.shown[0].text, text(1011));
    EXPECT_FALSE(valid(u"T:\\dangling", 3, false));
    EXPECT_TRUE(env.shown.empty());
}

TEST_P(TreeRules, shouldReportANameTooLongForTheSystemAsNotFound) {
    EXPECT_FALSE(valid(u"T:\\" + std::u16string(250, u'x'), 3));
    ASSERT_EQ(env.shown.size(), 1u);
    EXPECT_EQ(env.shown[0].text, text(1010)) << "no exception, kind 0";
}

TEST_P(TreeRules, shouldSpellEachElementAsStoredInTheLongName) {
    EXPECT_EQ(longName(u"t:\\program files\\SAMPLE FILE.TXT", fs),
              u"t:\\Program Files\\Sample file.txt");
    EXPECT_EQ(longName(u"T:\\DATA\\", fs), u"T:\\Data\\");
    EXPECT_EQ(longName(u"T:\\", fs), u"T:\\");
    EXPECT_EQ(longName(u"T:\\Data\\nothing.txt", fs), u"");
    EXPECT_EQ(longName(u"T:\\.hidden\\INSIDE.txt", fs), u"T:\\.hidden\\inside.txt");
}

TEST_P(TreeRules, shouldGiveTheNameItselfAsItsShortName) {
    EXPECT_EQ(shortName(u"T:\\Data\\report.txt", fs), u"T:\\Data\\report.txt");
    EXPECT_EQ(shortName(u"T:\\Data\\absent.txt", fs), u"");
}

INSTANTIATE_TEST_SUITE_P(Locales, TreeRules, ::testing::Values(false, true),
                         [](const auto& info) { return info.param ? "Japanese" : "English"; });

}  // namespace
