// FileDialogBox on the headless host: its properties and their couplings, the request it
// hands to the dialog, how it reads the answer back, and how it reports cancel and failure.
#include "corvex/files/file_dialog_box.h"

#include <gtest/gtest.h>

#include "corvex/files/dialog_record.h"
#include "corvex/headless/host.h"
#include "corvex/library/memory_bag.h"
#include "corvex/platform/message_box.h"
#include "support/headless_fixture.h"

using namespace corvex;
using Answer = corvex::headless::ScriptedDialogAnswer;

namespace {

class FileDialogBoxTest : public corvex::testing::HeadlessTest {
protected:
    void SetUp() override {
        box = &dynamic_cast<FileDialogBox&>(h.add(FileDialogBox::staticClassInfo(), u"dlg"));
    }
    headless::ScriptedFileDialogs& dialogs() { return h.host().fileDialogs(); }
    const headless::ShownFileDialog& lastShown() { return dialogs().shown().back(); }
    void ok(std::string text, std::optional<std::uint32_t> index = {}) {
        dialogs().queue({Answer::Kind::Ok, std::move(text), index, 0});
    }
    void cancel() { dialogs().queue({Answer::Kind::Cancel, {}, {}, 0}); }
    void fail(std::uint32_t code) { dialogs().queue({Answer::Kind::Fail, {}, {}, code}); }
    // Runs f and returns the error it raised; fails the test when it raises none.
    template <class F>
    Error raised(F f) {
        try {
            f();
        } catch (const Error& e) {
            return e;
        }
        ADD_FAILURE() << "no error raised";
        return Error(0, u"");
    }

    FileDialogBox* box = nullptr;
};

// --- properties --------------------------------------------------------------------------

TEST_F(FileDialogBoxTest, shouldStartWithTheDocumentedDefaults) {
    EXPECT_FALSE(box->allowMultiselect());
    EXPECT_TRUE(box->explorer());
    EXPECT_TRUE(box->longNames());
    EXPECT_FALSE(box->noLongNames());
    EXPECT_EQ(box->maxFileSize(), 260);
    EXPECT_EQ(box->mode(), OpenOrSaveMode::OpenMode);
    EXPECT_EQ(box->flags(), 0);
    EXPECT_EQ(box->filterIndex(), 0);
    EXPECT_FALSE(box->cancelError());
    EXPECT_FALSE(box->cancelSelected());
    EXPECT_EQ(box->hDC(), 0);
}

TEST_F(FileDialogBoxTest, shouldTurnExplorerAndLongNamesOnWhenMultiselectGoesOff) {
    box->setAllowMultiselect(true);
    box->setExplorer(false);
    EXPECT_FALSE(box->longNames());
    EXPECT_TRUE(box->noLongNames());
    box->setAllowMultiselect(false);
    EXPECT_TRUE(box->explorer());
    EXPECT_TRUE(box->longNames());
    EXPECT_FALSE(box->noLongNames());
    box->setExplorer(false);
    EXPECT_TRUE(box->explorer()) << "without multi-selection Explorer cannot be turned off";
    EXPECT_TRUE(box->longNames());
    EXPECT_FALSE(box->noLongNames());
}

TEST_F(FileDialogBoxTest, shouldKeepLongNamesOppositeToNoLongNamesInTheExplorerMultiselectDialog) {
    box->setAllowMultiselect(true);
    box->setNoLongNames(true);
    EXPECT_FALSE(box->longNames());
    EXPECT_TRUE(box->noLongNames());
    box->setNoLongNames(false);
    EXPECT_TRUE(box->longNames());
}

TEST_F(FileDialogBoxTest, shouldForceLongNamesWithoutMultiselectAndShortNamesInTheOldStyle) {
    box->setNoLongNames(true);
    EXPECT_TRUE(box->longNames());
    EXPECT_FALSE(box->noLongNames());
    box->setAllowMultiselect(true);
    box->setExplorer(false);
    box->setNoLongNames(false);
    EXPECT_FALSE(box->longNames());
    EXPECT_TRUE(box->noLongNames()) << "the old-style dialog always has short names";
}

TEST_F(FileDialogBoxTest, shouldRequireExistingPathsAndFilesForCreatePrompt) {
    box->setCreatePrompt(true);
    EXPECT_TRUE(box->pathMustExist());
    EXPECT_TRUE(box->fileMustExist());
    box->setCreatePrompt(false);
    EXPECT_TRUE(box->fileMustExist()) << "turning it off changes nothing else";
}

TEST_F(FileDialogBoxTest, shouldRequireExistingPathsForFileMustExist) {
    box->setFileMustExist(true);
    EXPECT_TRUE(box->pathMustExist());
}

TEST_F(FileDialogBoxTest, shouldClearReadOnlyForHideReadOnlyButNotTheOtherWayRound) {
    box->setReadOnly(true);
    box->setHideReadOnly(true);
    EXPECT_FALSE(box->readOnly());
    box->setReadOnly(true);
    EXPECT_TRUE(box->hideReadOnly()) << "only the property page clears HideReadOnly";
}

TEST_F(FileDialogBoxTest, shouldNotifyEveryLetUnderItsBagName) {
    h.clearRecords(u"dlg");
    letProperty(*box, u"Filter", Variant(u"a|*.a"));
    letProperty(*box, u"MaxFileSize", Variant(std::int32_t{100}));
    letProperty(*box, u"Explorer", Variant(true));
    EXPECT_EQ(h.changes(u"dlg"),
              (std::vector<std::u16string>{u"Filter", u"MaxFileSize", u"Explorer"}));
}

TEST_F(FileDialogBoxTest, shouldSaveCancelErrorFirstAlthoughNoMemberReachesIt) {
    const auto& unpublished = FileDialogBox::staticClassInfo().unpublishedSaved();
    ASSERT_EQ(unpublished.size(), 1u);
    EXPECT_EQ(unpublished[0].writeName, u"CancelError");
    EXPECT_EQ(unpublished[0].writeOrder, 1);
    EXPECT_EQ(FileDialogBox::staticClassInfo().member(u"CancelError"), nullptr);
    std::vector<std::u16string> names;
    for (const MemberInfo* m : FileDialogBox::staticClassInfo().savedInWriteOrder()) {
        names.push_back(m->saved->writeName);
    }
    EXPECT_EQ(names, (std::vector<std::u16string>{u"FileName",         u"Flags",
                                                  u"AllowMultiselect", u"CreatePrompt",
                                                  u"DefaultExt",       u"DialogTitle",
                                                  u"Explorer",         u"FileMustExist",
                                                  u"Filter",           u"FilterIndex",
                                                  u"HelpButton",       u"HideReadOnly",
                                                  u"InitDir",          u"LongNames",
                                                  u"MaxFileSize",      u"Mode",
                                                  u"NoChangeDir",      u"NoDereferenceLinks",
                                                  u"NoLongNames",      u"NoReadOnlyReturn",
                                                  u"NoValidate",       u"OverwritePrompt",
                                                  u"PathMustExist",    u"ReadOnly",
                                                  u"ShareAware"}));
}

TEST_F(FileDialogBoxTest, shouldSaveAndLoadCancelErrorOnceAFileOpenSetIt) {
    box->fileOpen();
    MemoryBag bag;
    box->writeProperties(bag);
    ASSERT_FALSE(bag.entries().empty());
    EXPECT_EQ(bag.entries().front().first, u"CancelError");
    auto& loaded =
        dynamic_cast<FileDialogBox&>(h.load(FileDialogBox::staticClassInfo(), u"again", bag));
    EXPECT_TRUE(loaded.cancelError());
}

TEST_F(FileDialogBoxTest, shouldTakeTheOwnerFromTheFormWhenPropertiesAreRead) {
    MemoryBag bag;
    auto& loaded =
        dynamic_cast<FileDialogBox&>(h.load(FileDialogBox::staticClassInfo(), u"loaded", bag));
    EXPECT_NE(h.form().hWnd(), 0);
    EXPECT_EQ(loaded.hwnd(), h.form().hWnd());
    loaded.setHwnd(77);
    loaded.showOpen();
    EXPECT_EQ(lastShown().owner, 77) << "hwnd may be set at any time";
}

// --- the request ---------------------------------------------------------------------------

TEST_F(FileDialogBoxTest, shouldHandTheFilterOverAsNulTerminatedStringsAndOneMoreNul) {
    box->setFilter(u"Text (*.txt)|*.txt|All (*.*)|*.*");
    box->showOpen();
    EXPECT_EQ(lastShown().filter, std::string("Text (*.txt)\0*.txt\0All (*.*)\0*.*\0\0", 34));
}

TEST_F(FileDialogBoxTest, shouldHandNoFilterOverWhenFilterIsEmpty) {
    FileDialogRequest seen;
    DialogSettings s;
    s.maxFileSize = 10;
    DialogRecord record(s);
    EXPECT_EQ(record.request().filter, nullptr);
    EXPECT_EQ(record.request().structSize, 76u);
}

TEST_F(FileDialogBoxTest, shouldOfferABufferOf521CharactersForMaxFileSize260) {
    box->setFileName(u"C:\\DATA\\A.TXT");
    DialogSettings s;
    s.fileName = box->fileName();
    s.maxFileSize = box->maxFileSize();
    DialogRecord record(s);
    const FileDialogRequest& r = record.request();
    EXPECT_EQ(r.maxFile, 521u);
    EXPECT_EQ(r.maxFileTitle, 521u);
    const std::string buffer(r.file, r.maxFile);
    EXPECT_EQ(buffer.substr(0, 14), std::string("C:\\DATA\\A.TXT\0", 14));
    EXPECT_EQ(buffer.substr(14), std::string(521 - 14, ' ')) << "blanks up to the end";
    box->showOpen();
    EXPECT_EQ(lastShown().size, 521u);
    EXPECT_EQ(lastShown().file, "C:\\DATA\\A.TXT");
}

TEST_F(FileDialogBoxTest, shouldHandTheTextsOverAsUtf8Copies) {
    box->setInitDir(u"C:\\データ");
    box->setDialogTitle(u"開く");
    box->setDefaultExt(u"txt");
    box->setFilterIndex(2);
    box->showSave();
    EXPECT_EQ(lastShown().kind, FileDialogKind::Save);
    EXPECT_EQ(lastShown().initDir, toUtf8(u"C:\\データ"));
    EXPECT_EQ(lastShown().title, toUtf8(u"開く"));
    EXPECT_EQ(lastShown().defExt, "txt");
    EXPECT_EQ(lastShown().filterIndex, 2u);
}

TEST_F(FileDialogBoxTest, shouldReleaseEveryBlockWhateverTheOutcome) {
    std::size_t during = 0;
    dialogs().onShown = [&](const headless::ShownFileDialog&) {
        during = DialogRecord::liveBlocks();
    };
    box->setFilter(u"a|*.a");
    ok("C:\\A.TXT");
    box->showOpen();
    EXPECT_EQ(during, 6u) << "filter, file, title, folder, caption and extension";
    EXPECT_EQ(DialogRecord::liveBlocks(), 0u);
    box->fileOpen();  // cancelled: CancelError raised inside and caught
    EXPECT_EQ(DialogRecord::liveBlocks(), 0u);
    fail(0x3002);
    EXPECT_THROW(box->showOpen(), Error);
    EXPECT_EQ(DialogRecord::liveBlocks(), 0u);
    box->setMaxFileSize(1);
    box->setFileName(u"much too long");
    EXPECT_THROW(box->showOpen(), Error);
    EXPECT_EQ(DialogRecord::liveBlocks(), 0u);
}

TEST_F(FileDialogBoxTest, shouldRefuseANameOfferedThatDoesNotFitItsBuffer) {
    box->setMaxFileSize(2);
    box->setFileName(u"ABCDE");
    const Error e = raised([&] { box->showOpen(); });
    EXPECT_EQ(e.number(), 20476);
    EXPECT_EQ(e.description(), u"The buffer at which the member lpstrFile points is too small");
    EXPECT_TRUE(dialogs().shown().empty());
    h.setLocaleId(LocaleJapanese);
    const Error j = raised([&] { box->showOpen(); });
    EXPECT_EQ(j.description(), u"メンバ LpstrFile が指しているバッファは小さすぎます。");
}

TEST_F(FileDialogBoxTest, shouldRefuseANegativeMaxFileSizeWithAClearError) {
    box->setMaxFileSize(-5);
    const Error e = raised([&] { box->showOpen(); });
    EXPECT_EQ(e.number(), err::InvalidPropertyValue);
    EXPECT_NE(e.description().find(u"MaxFileSize"), std::u16string::npos);
}

// --- FileOpen and FileSave -----------------------------------------------------------------

TEST_F(FileDialogBoxTest, shouldRefuseFileOpenInSaveModeWithAMessageInEnglish) {
    box->setMode(OpenOrSaveMode::SaveMode);
    EXPECT_EQ(box->fileOpen(), u"");
    ASSERT_EQ(h.host().messageBoxes().size(), 1u);
    EXPECT_EQ(h.host().messageBoxes()[0].text, u"Not 'File Open' mode. ");
    EXPECT_EQ(h.host().messageBoxes()[0].title, u"Warning!!");
    EXPECT_EQ(h.host().messageBoxes()[0].style, 16);
    EXPECT_TRUE(dialogs().shown().empty());
    EXPECT_FALSE(box->cancelError());
}

TEST_F(FileDialogBoxTest, shouldRefuseFileSaveInOpenModeWithAMessageInJapanese) {
    h.setLocaleId(LocaleJapanese);
    EXPECT_EQ(box->fileSave(), u"");
    ASSERT_EQ(h.host().messageBoxes().size(), 1u);
    EXPECT_EQ(h.host().messageBoxes()[0].text, u"「ファイルを保存」モードではありません");
    EXPECT_EQ(h.host().messageBoxes()[0].title, u"警告!!");
    h.setLocaleId(LocaleEnglishUS);
    box->fileSave();
    EXPECT_EQ(h.host().messageBoxes()[1].text, u"Not 'File Save' mode. ");
    h.setLocaleId(LocaleJapanese);
    box->setMode(OpenOrSaveMode::SaveMode);
    box->fileOpen();
    EXPECT_EQ(h.host().messageBoxes()[2].text, u"「ファイルを開く」モードではありません");
}

TEST_F(FileDialogBoxTest, shouldComputeTheOpenFlagsFromTheBooleans) {
    box->setAllowMultiselect(true);
    box->setCreatePrompt(true);
    box->setHelpButton(true);
    box->setNoChangeDir(true);
    box->setNoDereferenceLinks(true);
    box->setNoReadOnlyReturn(true);
    box->setNoValidate(true);
    box->setShareAware(true);
    box->setOverwritePrompt(true);
    box->setHideReadOnly(true);
    box->setFlags(0x7FFF0000);
    box->fileOpen();
    const std::int32_t expected = 0x200 | 0x2000 | 0x1000 | 0x800 | 0x10 | 0x200000 | 0x8 |
                                  0x100000 | 0x8000 | 0x100 | 0x4000 | 0x80000 | 0x4;
    EXPECT_EQ(box->flags(), expected) << "recomputed, OverwritePrompt left out";
    EXPECT_EQ(lastShown().flags, static_cast<std::uint32_t>(expected));
}

TEST_F(FileDialogBoxTest, shouldLeaveTheOpenOnlyBitsOutOfASaveDialog) {
    box->setMode(OpenOrSaveMode::SaveMode);
    box->setReadOnly(true);
    box->setOverwritePrompt(true);
    box->fileSave();
    EXPECT_EQ(box->flags(), 0x200000 | 0x2) << "no Explorer, HideReadOnly or ReadOnly bit";
    EXPECT_EQ(lastShown().kind, FileDialogKind::Save);
}

TEST_F(FileDialogBoxTest, shouldReapplyTheTextsAndNotifyFileTitle) {
    box->setFilter(u"a|*.a");
    box->setInitDir(u"C:\\");
    h.clearRecords(u"dlg");
    ok("C:\\X.A");
    EXPECT_EQ(box->fileOpen(), u"C:\\X.A");
    EXPECT_EQ(h.changes(u"dlg"),
              (std::vector<std::u16string>{u"Flags", u"DefaultExt", u"DialogTitle", u"Filter",
                                           u"FilterIndex", u"InitDir", u"FileTitle"}));
}

TEST_F(FileDialogBoxTest, shouldSetCancelErrorForGoodSoThatALaterShowOpenRaises32755) {
    ok("C:\\A.TXT");
    box->fileOpen();
    EXPECT_TRUE(box->cancelError());
    const Error e = raised([&] { box->showOpen(); });
    EXPECT_EQ(e.number(), 32755);
    EXPECT_EQ(e.description(), u"Cancel was selected ");
    EXPECT_TRUE(box->cancelSelected());
    h.setLocaleId(LocaleJapanese);
    EXPECT_EQ(raised([&] { box->showSave(); }).description(),
              u"[キャンセル] ボタンが選択されました。");
}

TEST_F(FileDialogBoxTest, shouldReturnNothingSilentlyWhenFileOpenIsCancelled) {
    box->setFileName(u"C:\\OLD.TXT");
    cancel();
    EXPECT_EQ(box->fileOpen(), u"");
    EXPECT_TRUE(box->cancelSelected());
    EXPECT_EQ(box->fileName(), u"C:\\OLD.TXT");
}

TEST_F(FileDialogBoxTest, shouldRaiseNothingOnACancelWhileCancelErrorIsOff) {
    box->setFileName(u"C:\\OLD.TXT");
    EXPECT_FALSE(box->showOpen());
    EXPECT_TRUE(box->cancelSelected());
    EXPECT_EQ(box->fileName(), u"C:\\OLD.TXT") << "kept on cancel";
}

TEST_F(FileDialogBoxTest, shouldPassAFailureThroughFileOpenWithItsNumberAndText) {
    h.host().setTitle(u"App");
    fail(0x3003);
    const Error e = raised([&] { box->fileOpen(); });
    EXPECT_EQ(e.number(), 0x3003);
    EXPECT_EQ(e.description(), u"CommonDialog API error.(CommDlgExtendedError()=12291)");
    EXPECT_EQ(e.source(), u"App");
    EXPECT_FALSE(box->cancelSelected());
}

TEST_F(FileDialogBoxTest, shouldRaiseAFailureFromShowOpenWhateverCancelErrorSays) {
    fail(2);
    h.setLocaleId(LocaleJapanese);
    const Error e = raised([&] { box->showOpen(); });
    EXPECT_EQ(e.number(), 2);
    EXPECT_EQ(e.description(),
              u"コモンダイアログAPIでエラーが起きました。(CommDlgExtendedError()=2)");
}

TEST_F(FileDialogBoxTest, shouldUseFlagsAsTheyStandInShowOpenAndShowSave) {
    box->setFlags(0x1234);
    box->setMode(OpenOrSaveMode::SaveMode);
    box->showOpen();
    EXPECT_EQ(lastShown().flags, 0x1234u);
    EXPECT_EQ(lastShown().kind, FileDialogKind::Open) << "no mode check";
    box->showSave();
    EXPECT_EQ(lastShown().flags, 0x1234u);
}

// --- the answer ----------------------------------------------------------------------------

TEST_F(FileDialogBoxTest, shouldReadOneNameItsTitleAndTheFilterIndexBack) {
    box->setFilterIndex(1);
    box->setCancelSelected(true);
    ok("C:\\DATA\\REPORT.TXT", 2);
    EXPECT_TRUE(box->showOpen());
    EXPECT_EQ(box->fileName(), u"C:\\DATA\\REPORT.TXT");
    EXPECT_EQ(box->fileTitle(), u"REPORT.TXT");
    EXPECT_EQ(box->filterIndex(), 2);
    EXPECT_FALSE(box->cancelSelected()) << "reset after every dialog";
}

TEST_F(FileDialogBoxTest, shouldReadTheFilterIndexBackAfterACancelToo) {
    box->setFilterIndex(3);
    dialogs().queue({Answer::Kind::Cancel, {}, {}, 0});
    box->showOpen();
    EXPECT_EQ(box->filterIndex(), 3);
}

TEST_F(FileDialogBoxTest, shouldGiveTheFolderAndThreeNamesSeparatedByNulsForAnExplorerSelection) {
    box->setAllowMultiselect(true);
    ok(std::string("C:\\DATA\0A.TXT\0B.TXT\0C.TXT", 25));
    box->fileOpen();
    EXPECT_EQ(box->fileName(), std::u16string(u"C:\\DATA\0A.TXT\0B.TXT\0C.TXT", 25));
}

TEST_F(FileDialogBoxTest, shouldGiveTheFolderAndNamesSeparatedByBlanksForAnOldStyleSelection) {
    box->setAllowMultiselect(true);
    box->setExplorer(false);
    ok("C:\\DATA A.TXT B.TXT");
    box->fileOpen();
    EXPECT_EQ(lastShown().flags & ofn::Explorer, 0u);
    EXPECT_EQ(box->fileName(), u"C:\\DATA A.TXT B.TXT");
}

TEST_F(FileDialogBoxTest, shouldKeepOnlyTheFirstNameWithoutTheMultiselectBit) {
    FileDialogRequest* seen = nullptr;
    (void)seen;
    ok(std::string("C:\\DATA\0A.TXT\0B.TXT", 20));
    box->showOpen();
    EXPECT_EQ(box->fileName(), u"C:\\DATA") << "up to the first NUL";
}

TEST_F(FileDialogBoxTest, shouldFailWithBufferTooSmallWhenTheNamesDoNotFit) {
    box->setMaxFileSize(3);  // seven bytes
    ok("C:\\LONGNAME.TXT");
    const Error e = raised([&] { box->showOpen(); });
    EXPECT_EQ(e.number(), 0x3003);
    EXPECT_EQ(box->fileName(), u"") << "nothing truncated";
}

TEST_F(FileDialogBoxTest, shouldForgetTheNamesOnCls) {
    ok("C:\\A.TXT");
    box->showOpen();
    box->cls();
    EXPECT_EQ(box->fileName(), u"");
    EXPECT_EQ(box->fileTitle(), u"");
}

TEST_F(FileDialogBoxTest, shouldKeepItsIconSize) {
    h.resize(u"dlg", 2000, 100);
    EXPECT_EQ(h.site(u"dlg").width(), ServiceIconSize);
    EXPECT_EQ(h.site(u"dlg").height(), ServiceIconSize);
}

}  // namespace
