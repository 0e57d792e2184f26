// The four FileDialogBox property pages on every host: what they show of the first
// selected control, the order in which they write it back, the digits-only boxes, the
// changed mark and the check-box couplings shown at once.
#include "corvex/files/filedlg_pages.h"

#include <gtest/gtest.h>

#include "corvex/platform/option_widgets.h"
#include "corvex/platform/page_widgets.h"
#include "support/harness.h"
#include "support/recording_dialog_box.h"

using namespace corvex;
using corvex::testing::HarnessMaker;
using corvex::testing::RecordingDialogBox;

namespace {

constexpr std::int32_t kJapanese = 1041;
constexpr std::int32_t kEnglish = 1033;

class FileDialogPagesTest : public ::testing::TestWithParam<HarnessMaker> {
protected:
    void SetUp() override {
        h = GetParam().make();
        h->setUserMode(false);  // property pages work in the designer
    }
    PropertyPage& addPage(const ClassInfo& cls) {
        return dynamic_cast<PropertyPage&>(h->add(cls, u"page"));
    }
    RecordingDialogBox& addBox(const std::u16string& name) {
        return dynamic_cast<RecordingDialogBox&>(
            h->add(RecordingDialogBox::staticClassInfo(), name));
    }
    static ObjectRef ref(Control& c) { return c.shared_from_this(); }
    TextBox& text(const char16_t* name) { return dynamic_cast<TextBox&>(h->widget(u"page", name)); }
    CheckBox& check(const char16_t* name) {
        return dynamic_cast<CheckBox&>(h->widget(u"page", name));
    }
    OptionButton& mode(std::int16_t i) {
        return dynamic_cast<OptionButton&>(h->widget(u"page", u"optMode", i));
    }
    TextLabel& label(const char16_t* name) {
        return dynamic_cast<TextLabel&>(h->widget(u"page", name));
    }
    std::unique_ptr<corvex::testing::Harness> h;
};

// --- page 1 ----------------------------------------------------------------------------

TEST_P(FileDialogPagesTest, shouldShowTheTextsAndTheModeOfTheSelectedControl) {
    PropertyPage& page = addPage(FileDialogPage1::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    box.values[u"Mode"] = Variant(std::int32_t{1});
    box.values[u"FileName"] = Variant(u"C:\\data\\a.txt");
    box.values[u"Filter"] = Variant(u"Text (*.txt)|*.txt");
    box.values[u"FilterIndex"] = Variant(std::int16_t{2});
    box.values[u"InitDir"] = Variant(u"C:\\data");
    box.values[u"DefaultExt"] = Variant(u"txt");
    page.setSelectedControls({ref(box)});
    EXPECT_FALSE(mode(0).value());
    EXPECT_TRUE(mode(1).value());
    EXPECT_EQ(text(u"txtFileName").text(), u"C:\\data\\a.txt");
    EXPECT_EQ(text(u"txtFilter").text(), u"Text (*.txt)|*.txt");
    EXPECT_EQ(text(u"txtFilterIndex").text(), u"2");
    EXPECT_EQ(text(u"txtInitDir").text(), u"C:\\data");
    EXPECT_EQ(text(u"txtDefaultExt").text(), u"txt");
    EXPECT_EQ(text(u"txtMaxFileSize").text(), u"260");
    EXPECT_FALSE(page.changed()) << "filling the page is no edit";
    EXPECT_TRUE(box.lets.empty()) << "reading writes nothing";
}

TEST_P(FileDialogPagesTest, shouldSelectTheFirstModeButtonForOpenMode) {
    PropertyPage& page = addPage(FileDialogPage1::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    box.values[u"Mode"] = Variant(std::int32_t{1});
    page.setSelectedControls({ref(box)});
    box.values[u"Mode"] = Variant(std::int32_t{0});
    page.setSelectedControls({ref(box)});
    EXPECT_TRUE(mode(0).value());
    EXPECT_FALSE(mode(1).value());
}

TEST_P(FileDialogPagesTest, shouldWritePageOneInTheOrderGiven) {
    PropertyPage& page = addPage(FileDialogPage1::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    page.setSelectedControls({ref(box)});
    page.apply();
    EXPECT_EQ(box.lets, (std::vector<std::u16string>{u"Mode", u"InitDir", u"FilterIndex", u"Filter",
                                                     u"FileName", u"DefaultExt", u"MaxFileSize"}));
}

TEST_P(FileDialogPagesTest, shouldWriteTheEditedTextsAndTheChosenMode) {
    PropertyPage& page = addPage(FileDialogPage1::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    page.setSelectedControls({ref(box)});
    h->click(u"page", u"optMode", 1);
    EXPECT_TRUE(page.changed());
    text(u"txtFileName").setText(u"b.csv");
    text(u"txtFilter").setText(u"CSV (*.csv)|*.csv");
    text(u"txtFilterIndex").setText(u"1");
    text(u"txtInitDir").setText(u"D:\\out");
    text(u"txtDefaultExt").setText(u"csv");
    text(u"txtMaxFileSize").setText(u"1024");
    page.apply();
    EXPECT_FALSE(page.changed());
    EXPECT_EQ(box.values[u"Mode"], Variant(std::int32_t{1}));
    EXPECT_EQ(box.values[u"FileName"], Variant(u"b.csv"));
    EXPECT_EQ(box.values[u"Filter"], Variant(u"CSV (*.csv)|*.csv"));
    EXPECT_EQ(box.values[u"FilterIndex"], Variant(std::int16_t{1}));
    EXPECT_EQ(box.values[u"InitDir"], Variant(u"D:\\out"));
    EXPECT_EQ(box.values[u"DefaultExt"], Variant(u"csv"));
    EXPECT_EQ(box.values[u"MaxFileSize"], Variant(std::int32_t{1024}));
}

TEST_P(FileDialogPagesTest, shouldLeaveANonNumericSizeToTheControlsConversion) {
    PropertyPage& page = addPage(FileDialogPage1::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    page.setSelectedControls({ref(box)});
    text(u"txtMaxFileSize").setText(u"12kB");  // pasted: no key filter on the way
    try {
        page.apply();
        FAIL() << "a size that is no number must fail at the control";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 13);
    }
    EXPECT_TRUE(page.changed()) << "what was not applied stays marked";
    EXPECT_EQ(box.values[u"MaxFileSize"], Variant(std::int32_t{260}));
}

TEST_P(FileDialogPagesTest, shouldKeepOnlyDigitsAndBackspaceAsKeysOfTheNumberBoxes) {
    EXPECT_EQ(digitsOnlyKey(u'0'), u'0');
    EXPECT_EQ(digitsOnlyKey(u'9'), u'9');
    EXPECT_EQ(digitsOnlyKey(8), 8);
    EXPECT_EQ(digitsOnlyKey(13), 0) << "Enter is refused";
    EXPECT_EQ(digitsOnlyKey(u'a'), 0);
    EXPECT_EQ(digitsOnlyKey(u'-'), 0);
    EXPECT_EQ(digitsOnlyKey(u' '), 0);
    EXPECT_EQ(digitsOnlyKey(u'\uFF11'), 0) << "a full-width digit is no digit here";
}

// Typing a letter or Enter into txtMaxFileSize inserts nothing; Backspace works. The box
// and the rule know no language: the same in both locales.
TEST_P(FileDialogPagesTest, shouldInsertNoLetterOrEnterIntoTheMaximumSizeButTakeBackspace) {
    for (std::int32_t locale : {kJapanese, kEnglish}) {
        h->setLocaleId(locale);
        PropertyPage& page = addPage(FileDialogPage1::staticClassInfo());
        RecordingDialogBox& box = addBox(u"dlg");
        page.setSelectedControls({ref(box)});
        TextBox& size = text(u"txtMaxFileSize");
        size.setSelStart(3);
        h->typeInto(size, u"a");
        EXPECT_EQ(size.text(), u"260") << locale;
        h->typeInto(size, u"\r");
        EXPECT_EQ(size.text(), u"260") << locale;
        EXPECT_FALSE(page.changed()) << locale;
        h->typeInto(size, u"\b");
        EXPECT_EQ(size.text(), u"26") << locale;
        EXPECT_TRUE(page.changed()) << locale;
        h->typeInto(size, u"5");
        EXPECT_EQ(size.text(), u"265") << locale;
        SetUp();  // a fresh form for the other locale
    }
}

TEST_P(FileDialogPagesTest, shouldFilterTheKeysOfTheFilterIndexToo) {
    addPage(FileDialogPage1::staticClassInfo());
    TextBox& index = text(u"txtFilterIndex");
    h->typeInto(index, u"1x2\r3");
    EXPECT_EQ(index.text(), u"123");
    h->typeInto(index, u"\b");
    EXPECT_EQ(index.text(), u"12");
}

TEST_P(FileDialogPagesTest, shouldLetTheOtherTextBoxesTakeAnyKey) {
    addPage(FileDialogPage1::staticClassInfo());
    h->typeInto(text(u"txtDefaultExt"), u"tx9\bt");
    EXPECT_EQ(text(u"txtDefaultExt").text(), u"txt");
}

TEST_P(FileDialogPagesTest, shouldNotFilterTextPastedIntoTheNumberBoxes) {
    addPage(FileDialogPage1::staticClassInfo());
    TextBox& size = text(u"txtMaxFileSize");
    h->setClipboardText(u"1 KB");
    size.setFocus();
    // Shift+Insert: a paste that no KeyPress sees (Ctrl+V types character 22, which the
    // digits filter drops as a box's KeyPress handler may).
    h->pressKeyOn(size, key::Insert, key::ShiftMask);
    EXPECT_EQ(size.text(), u"1 KB");
}

TEST_P(FileDialogPagesTest, shouldCarryJapaneseLabelsWithTheSizeHintAndTheFilterExamples) {
    PropertyPage& page = addPage(FileDialogPage1::staticClassInfo());
    EXPECT_EQ(page.caption(), u"全般");
    EXPECT_EQ(label(u"lblFileName").caption(), u"ファイル名:");
    EXPECT_EQ(label(u"lblFilter").caption(), u"フィルタ:");
    EXPECT_EQ(label(u"lblFilterIndex").caption(), u"フィルタ番号:");
    EXPECT_EQ(label(u"lblInitDir").caption(), u"初期フォルダ:");
    EXPECT_EQ(label(u"lblDefaultExt").caption(), u"既定の拡張子:");
    EXPECT_EQ(label(u"lblMaxFileSizeHint").caption(), u"(1 バイトから 32 KB まで)");
    const std::u16string examples = label(u"lblFilterExample").caption();
    EXPECT_NE(examples.find(u"(*.txt)|*.txt|"), std::u16string::npos);
    EXPECT_NE(examples.find(u"(*.bmp;*.ico)|*.bmp;*.ico"), std::u16string::npos);
    EXPECT_EQ(mode(0).caption(), u"ファイルを開く");
    EXPECT_EQ(mode(1).caption(), u"ファイルを保存");
}

TEST_P(FileDialogPagesTest, shouldNameEveryPageInJapanese) {
    for (const ClassInfo* cls :
         {&FileDialogPage1::staticClassInfo(), &FileDialogPage2::staticClassInfo(),
          &FileDialogPage3::staticClassInfo(), &FileDialogPage4::staticClassInfo()}) {
        auto page =
            std::dynamic_pointer_cast<PropertyPage>(h->add(*cls, cls->name()).shared_from_this());
        ASSERT_TRUE(page);
        EXPECT_NE(page->caption(), cls->name());
        EXPECT_GT(page->caption()[0], u'\x7f') << toUtf8(cls->name());
    }
}

// --- the changed mark ----------------------------------------------------------------------

TEST_P(FileDialogPagesTest, shouldMarkEveryTextChangeAndEveryClickAsAnEdit) {
    PropertyPage& page = addPage(FileDialogPage1::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    page.setSelectedControls({ref(box)});
    h->typeInto(text(u"txtFilter"), u"*");
    EXPECT_TRUE(page.changed());
    page.setSelectedControls({ref(box)});
    EXPECT_FALSE(page.changed());
    h->click(u"page", u"optMode", 1);
    EXPECT_TRUE(page.changed());

    PropertyPage& four =
        dynamic_cast<PropertyPage&>(h->add(FileDialogPage4::staticClassInfo(), u"four"));
    four.setSelectedControls({ref(box)});
    h->click(u"four", u"chkShareAware");
    EXPECT_TRUE(four.changed());
}

TEST_P(FileDialogPagesTest, shouldTellTheListenerWhenTheMarkFlips) {
    PropertyPage& page = addPage(FileDialogPage3::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    std::vector<bool> marks;
    page.setChangedListener([&](bool v) { marks.push_back(v); });
    page.setSelectedControls({ref(box)});
    EXPECT_TRUE(marks.empty()) << "loading is no edit";
    h->typeInto(text(u"txtDialogTitle"), u"ab");
    h->click(u"page", u"chkNoChangeDir");
    page.apply();
    EXPECT_EQ(marks, (std::vector<bool>{true, false}));
}

// --- first selected only ------------------------------------------------------------------

// With several controls selected, only the first one is read and written.
TEST_P(FileDialogPagesTest, shouldReadAndWriteOnlyTheFirstOfSeveralSelectedControls) {
    for (const ClassInfo* cls :
         {&FileDialogPage1::staticClassInfo(), &FileDialogPage2::staticClassInfo(),
          &FileDialogPage3::staticClassInfo(), &FileDialogPage4::staticClassInfo()}) {
        SetUp();
        PropertyPage& page = addPage(*cls);
        RecordingDialogBox& first = addBox(u"first");
        RecordingDialogBox& second = addBox(u"second");
        first.values[u"DialogTitle"] = Variant(u"one");
        second.values[u"DialogTitle"] = Variant(u"two");
        second.values[u"ShareAware"] = Variant(true);
        page.setSelectedControls({ref(first), ref(second)});
        page.apply();
        EXPECT_FALSE(first.lets.empty()) << toUtf8(cls->name());
        EXPECT_TRUE(second.lets.empty()) << toUtf8(cls->name());
    }
    // What the page shows is the first control's too.
    SetUp();
    PropertyPage& page = addPage(FileDialogPage3::staticClassInfo());
    RecordingDialogBox& first = addBox(u"first");
    RecordingDialogBox& second = addBox(u"second");
    first.values[u"DialogTitle"] = Variant(u"one");
    second.values[u"DialogTitle"] = Variant(u"two");
    page.setSelectedControls({ref(first), ref(second)});
    EXPECT_EQ(text(u"txtDialogTitle").text(), u"one");
    text(u"txtDialogTitle").setText(u"changed");
    page.apply();
    EXPECT_EQ(first.values[u"DialogTitle"], Variant(u"changed"));
    EXPECT_EQ(second.values[u"DialogTitle"], Variant(u"two"));
}

TEST_P(FileDialogPagesTest, shouldDoNothingWithoutASelection) {
    PropertyPage& page = addPage(FileDialogPage2::staticClassInfo());
    page.setSelectedControls({});
    EXPECT_NO_THROW(page.apply());
}

// --- page 2 --------------------------------------------------------------------------------

TEST_P(FileDialogPagesTest, shouldWritePageTwoWithMultiselectAndExplorerLast) {
    PropertyPage& page = addPage(FileDialogPage2::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    page.setSelectedControls({ref(box)});
    page.apply();
    EXPECT_EQ(box.lets, (std::vector<std::u16string>{
                            u"NoValidate", u"NoReadOnlyReturn", u"LongNames", u"NoLongNames",
                            u"OverwritePrompt", u"FileMustExist", u"PathMustExist", u"CreatePrompt",
                            u"AllowMultiselect", u"Explorer"}));
}

TEST_P(FileDialogPagesTest, shouldShowEveryFlagOfPageTwoAsTheControlHasIt) {
    PropertyPage& page = addPage(FileDialogPage2::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    box.values[u"NoValidate"] = Variant(true);
    box.values[u"OverwritePrompt"] = Variant(true);
    page.setSelectedControls({ref(box)});
    EXPECT_EQ(check(u"chkNoValidate").value(), 1);
    EXPECT_EQ(check(u"chkOverwritePrompt").value(), 1);
    EXPECT_EQ(check(u"chkExplorer").value(), 1);
    EXPECT_EQ(check(u"chkLongNames").value(), 1);
    EXPECT_EQ(check(u"chkNoLongNames").value(), 0);
    EXPECT_EQ(check(u"chkCreatePrompt").value(), 0);
    check(u"chkNoReadOnlyReturn").setValue(1);
    page.apply();
    EXPECT_EQ(box.values[u"NoReadOnlyReturn"], Variant(true));
    EXPECT_EQ(box.values[u"NoValidate"], Variant(true));
}

TEST_P(FileDialogPagesTest, shouldFixBothExistenceBoxesWhileCreatePromptIsChecked) {
    PropertyPage& page = addPage(FileDialogPage2::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    page.setSelectedControls({ref(box)});
    h->click(u"page", u"chkCreatePrompt");
    EXPECT_EQ(check(u"chkFileMustExist").value(), 1);
    EXPECT_EQ(check(u"chkPathMustExist").value(), 1);
    EXPECT_FALSE(check(u"chkFileMustExist").enabled());
    EXPECT_FALSE(check(u"chkPathMustExist").enabled());
    h->click(u"page", u"chkCreatePrompt");
    EXPECT_TRUE(check(u"chkFileMustExist").enabled());
    EXPECT_FALSE(check(u"chkPathMustExist").enabled()) << "FileMustExist is still checked";
    EXPECT_EQ(check(u"chkFileMustExist").value(), 1) << "unchecking clears nothing";
    h->click(u"page", u"chkFileMustExist");
    EXPECT_TRUE(check(u"chkPathMustExist").enabled());
    EXPECT_EQ(check(u"chkPathMustExist").value(), 1);
}

TEST_P(FileDialogPagesTest, shouldCheckAndFixThePathBoxWhileFileMustExistIsChecked) {
    PropertyPage& page = addPage(FileDialogPage2::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    page.setSelectedControls({ref(box)});
    h->click(u"page", u"chkFileMustExist");
    EXPECT_EQ(check(u"chkPathMustExist").value(), 1);
    EXPECT_FALSE(check(u"chkPathMustExist").enabled());
    h->click(u"page", u"chkPathMustExist");
    EXPECT_EQ(check(u"chkPathMustExist").value(), 1) << "a disabled box takes no click";
    h->click(u"page", u"chkFileMustExist");
    EXPECT_TRUE(check(u"chkPathMustExist").enabled());
}

TEST_P(FileDialogPagesTest, shouldFixExplorerAndLongNamesWhileMultiselectIsUnchecked) {
    PropertyPage& page = addPage(FileDialogPage2::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    page.setSelectedControls({ref(box)});
    for (const char16_t* b : {u"chkExplorer", u"chkLongNames", u"chkNoLongNames"}) {
        EXPECT_FALSE(check(b).enabled()) << toUtf8(b) << ": multi-select is off";
    }
    h->click(u"page", u"chkAllowMultiselect");
    for (const char16_t* b : {u"chkExplorer", u"chkLongNames", u"chkNoLongNames"}) {
        EXPECT_TRUE(check(b).enabled()) << toUtf8(b);
    }
    EXPECT_EQ(check(u"chkLongNames").value(), 1) << "Explorer is on: the names stay long";
    h->click(u"page", u"chkExplorer");
    EXPECT_EQ(check(u"chkLongNames").value(), 0) << "the old-style dialog takes short names";
    EXPECT_EQ(check(u"chkNoLongNames").value(), 1);
    h->click(u"page", u"chkLongNames");
    EXPECT_EQ(check(u"chkLongNames").value(), 0) << "not while Explorer is off";
    EXPECT_EQ(check(u"chkNoLongNames").value(), 1);
    h->click(u"page", u"chkAllowMultiselect");
    EXPECT_EQ(check(u"chkExplorer").value(), 1);
    EXPECT_EQ(check(u"chkLongNames").value(), 1);
    EXPECT_EQ(check(u"chkNoLongNames").value(), 0);
    for (const char16_t* b : {u"chkExplorer", u"chkLongNames", u"chkNoLongNames"}) {
        EXPECT_FALSE(check(b).enabled()) << toUtf8(b);
    }
}

TEST_P(FileDialogPagesTest, shouldUncheckLongNamesWhenMultiselectIsCheckedWithoutExplorer) {
    PropertyPage& page = addPage(FileDialogPage2::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    box.values[u"Explorer"] = Variant(false);  // as a hand-edited form may have it
    page.setSelectedControls({ref(box)});
    EXPECT_EQ(check(u"chkExplorer").value(), 0) << "the page shows what the control holds";
    EXPECT_EQ(check(u"chkLongNames").value(), 1);
    h->click(u"page", u"chkAllowMultiselect");
    EXPECT_EQ(check(u"chkLongNames").value(), 0);
    EXPECT_EQ(check(u"chkNoLongNames").value(), 1);
}

TEST_P(FileDialogPagesTest, shouldKeepTheNameBoxesOppositeWhileExplorerMultiselectIsOn) {
    PropertyPage& page = addPage(FileDialogPage2::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    box.values[u"AllowMultiselect"] = Variant(true);
    page.setSelectedControls({ref(box)});
    h->click(u"page", u"chkNoLongNames");
    EXPECT_EQ(check(u"chkNoLongNames").value(), 1);
    EXPECT_EQ(check(u"chkLongNames").value(), 0);
    h->click(u"page", u"chkLongNames");
    EXPECT_EQ(check(u"chkLongNames").value(), 1);
    EXPECT_EQ(check(u"chkNoLongNames").value(), 0);
    EXPECT_TRUE(page.changed());
}

TEST_P(FileDialogPagesTest, shouldShowTheFixedBoxesDisabledAsSoonAsTheControlIsRead) {
    PropertyPage& page = addPage(FileDialogPage2::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    box.values[u"CreatePrompt"] = Variant(true);
    box.values[u"FileMustExist"] = Variant(true);
    box.values[u"PathMustExist"] = Variant(true);
    box.values[u"AllowMultiselect"] = Variant(true);
    page.setSelectedControls({ref(box)});
    EXPECT_FALSE(check(u"chkFileMustExist").enabled());
    EXPECT_FALSE(check(u"chkPathMustExist").enabled());
    EXPECT_TRUE(check(u"chkExplorer").enabled());
    box.values[u"CreatePrompt"] = Variant(false);
    box.values[u"AllowMultiselect"] = Variant(false);
    page.setSelectedControls({ref(box)});
    EXPECT_TRUE(check(u"chkFileMustExist").enabled());
    EXPECT_FALSE(check(u"chkPathMustExist").enabled());
    EXPECT_FALSE(check(u"chkExplorer").enabled());
}

// --- page 3 --------------------------------------------------------------------------------

TEST_P(FileDialogPagesTest, shouldWritePageThreeInTheOrderGiven) {
    PropertyPage& page = addPage(FileDialogPage3::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    page.setSelectedControls({ref(box)});
    page.apply();
    EXPECT_EQ(box.lets, (std::vector<std::u16string>{u"ReadOnly", u"HideReadOnly", u"NoChangeDir",
                                                     u"DialogTitle", u"HelpButton"}));
}

TEST_P(FileDialogPagesTest, shouldUncheckTheOtherReadOnlyBoxWhenEitherIsChecked) {
    PropertyPage& page = addPage(FileDialogPage3::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    page.setSelectedControls({ref(box)});
    h->click(u"page", u"chkReadOnly");
    EXPECT_EQ(check(u"chkReadOnly").value(), 1);
    h->click(u"page", u"chkHideReadOnly");
    EXPECT_EQ(check(u"chkHideReadOnly").value(), 1);
    EXPECT_EQ(check(u"chkReadOnly").value(), 0);
    // The page's own rule: the control keeps HideReadOnly when ReadOnly is set.
    h->click(u"page", u"chkReadOnly");
    EXPECT_EQ(check(u"chkReadOnly").value(), 1);
    EXPECT_EQ(check(u"chkHideReadOnly").value(), 0);
    page.apply();
    EXPECT_EQ(box.values[u"ReadOnly"], Variant(true));
    EXPECT_EQ(box.values[u"HideReadOnly"], Variant(false));
}

TEST_P(FileDialogPagesTest, shouldShowBothReadOnlyFlagsAsTheControlHoldsThem) {
    PropertyPage& page = addPage(FileDialogPage3::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    box.values[u"HideReadOnly"] = Variant(true);
    box.values[u"ReadOnly"] = Variant(true);
    box.values[u"HelpButton"] = Variant(true);
    box.values[u"DialogTitle"] = Variant(u"開く");
    page.setSelectedControls({ref(box)});
    EXPECT_EQ(check(u"chkHideReadOnly").value(), 1) << "reading couples nothing";
    EXPECT_EQ(check(u"chkReadOnly").value(), 1);
    EXPECT_EQ(check(u"chkHelpButton").value(), 1);
    EXPECT_EQ(text(u"txtDialogTitle").text(), u"開く");
    EXPECT_EQ(label(u"lblDialogTitle").caption(), u"ダイアログのタイトル:");
}

// --- page 4 --------------------------------------------------------------------------------

TEST_P(FileDialogPagesTest, shouldShowAndWritePageFourInTheOrderGiven) {
    PropertyPage& page = addPage(FileDialogPage4::staticClassInfo());
    RecordingDialogBox& box = addBox(u"dlg");
    box.values[u"NoDereferenceLinks"] = Variant(true);
    page.setSelectedControls({ref(box)});
    EXPECT_EQ(check(u"chkNoDereferenceLinks").value(), 1);
    EXPECT_EQ(check(u"chkShareAware").value(), 0);
    h->click(u"page", u"chkShareAware");
    page.apply();
    EXPECT_EQ(box.lets, (std::vector<std::u16string>{u"ShareAware", u"NoDereferenceLinks"}));
    EXPECT_EQ(box.values[u"ShareAware"], Variant(true));
    EXPECT_EQ(box.values[u"NoDereferenceLinks"], Variant(true));
}

INSTANTIATE_TEST_SUITE_P(Hosts, FileDialogPagesTest,
                         ::testing::ValuesIn(corvex::testing::availableHarnesses()),
                         corvex::testing::harnessName);

}  // namespace
