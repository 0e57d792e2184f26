// frmFILEDLG on the headless host: its text, the note box's place on every resize, and the
// one shared instance that ShowAbout shows and closing releases.
#include "corvex/files/dialog_notes.h"

#include <gtest/gtest.h>

#include "corvex/files/file_dialog_box.h"
#include "corvex/headless/form_windows.h"
#include "support/headless_fixture.h"

using namespace corvex;

namespace {

class DialogNotesTest : public corvex::testing::HeadlessTest {
protected:
    void SetUp() override {
        box = &dynamic_cast<FileDialogBox&>(h.add(FileDialogBox::staticClassInfo(), u"dlg"));
    }
    void TearDown() override {
        if (DialogNotes* n = DialogNotes::shared()) n->window().close();
    }
    headless::HeadlessFormWindow* window() { return h.host().formWindows().find(u"frmFILEDLG"); }
    FileDialogBox* box = nullptr;
};

TEST(DialogNotesText, shouldJoinTheElevenPiecesWithEmptyLinesAfterTheFirstNine) {
    const std::u16string text = dialogNotesText();
    std::size_t breaks = 0;
    for (std::size_t at = text.find(u"\r\n\r\n"); at != std::u16string::npos;
         at = text.find(u"\r\n\r\n", at + 4)) {
        ++breaks;
    }
    EXPECT_EQ(breaks, 9u);
    EXPECT_EQ(text.substr(0, 9), u"●cdlOFNEx");
    EXPECT_NE(text.find(u"Windows NT 4.0 上でcdlOFNAllowMultiselect フラグと"),
              std::u16string::npos)
        << "the tenth piece runs straight into the eleventh";
    EXPECT_EQ(text.substr(text.size() - 3), u"す｡ ") << "ends with the half-width stop and a blank";
    EXPECT_NE(text.find(u"使用されます｡このため､長いファイル名"), std::u16string::npos);
    EXPECT_EQ(text.find(u'\n', text.rfind(u"●")), std::u16string::npos);
}

TEST(DialogNotesText, shouldPlaceTheBoxAt2PercentWith96And90PercentOfTheSize) {
    const NoteBoxPlace p = noteBoxPlace(1000, 500);
    EXPECT_FLOAT_EQ(p.left, 20);
    EXPECT_FLOAT_EQ(p.top, 10);
    EXPECT_FLOAT_EQ(p.width, 960);
    EXPECT_FLOAT_EQ(p.height, 450);
}

TEST_F(DialogNotesTest, shouldShowTheFormWithItsReadOnlyMultiLineNoteBox) {
    EXPECT_EQ(DialogNotes::shared(), nullptr);
    box->showAbout();
    ASSERT_NE(window(), nullptr);
    EXPECT_TRUE(window()->visible());
    auto* note = dynamic_cast<headless::HeadlessTextBox*>(window()->widget(u"txtNote"));
    ASSERT_NE(note, nullptr);
    EXPECT_EQ(note->text(), dialogNotesText());
    EXPECT_TRUE(note->multiLine());
    EXPECT_TRUE(note->locked());
}

TEST_F(DialogNotesTest, shouldPlaceTheNoteBoxAt20And10In1000By500) {
    box->showAbout();
    window()->resize(1000, 500);
    Widget* note = window()->widget(u"txtNote");
    EXPECT_FLOAT_EQ(note->left(), 20);
    EXPECT_FLOAT_EQ(note->top(), 10);
    EXPECT_FLOAT_EQ(note->width(), 960);
    EXPECT_FLOAT_EQ(note->height(), 450);
}

TEST_F(DialogNotesTest, shouldShowTheSameFormWhenShowAboutIsCalledTwiceWhileOpen) {
    int shown = 0;
    h.host().formWindows().onShown = [&](headless::HeadlessFormWindow&) { ++shown; };
    box->showAbout();
    DialogNotes* first = DialogNotes::shared();
    window()->resize(3000, 2000);
    auto& other = dynamic_cast<FileDialogBox&>(h.add(FileDialogBox::staticClassInfo(), u"second"));
    other.showAbout();
    EXPECT_EQ(DialogNotes::shared(), first);
    EXPECT_EQ(shown, 2);
    EXPECT_FLOAT_EQ(window()->width(), 3000) << "the same window, not a fresh one";
}

TEST_F(DialogNotesTest, shouldMakeAFreshFormAfterTheSharedOneWasClosed) {
    box->showAbout();
    window()->resize(3000, 2000);
    window()->close();
    EXPECT_EQ(DialogNotes::shared(), nullptr);
    EXPECT_EQ(window(), nullptr);
    box->showAbout();
    ASSERT_NE(window(), nullptr);
    EXPECT_FLOAT_EQ(window()->width(), 6000) << "a fresh form at its first size";
}

TEST(DialogNotesHost, shouldReleaseTheSharedFormWhenItsHostGoes) {
    {
        corvex::testing::HeadlessHarness h;
        auto& box = dynamic_cast<FileDialogBox&>(h.add(FileDialogBox::staticClassInfo(), u"d"));
        box.showAbout();
        EXPECT_NE(DialogNotes::shared(), nullptr);
    }
    EXPECT_EQ(DialogNotes::shared(), nullptr);
}

}  // namespace
