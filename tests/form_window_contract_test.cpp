// The notes form on every host: a window of the library's own whose read-only note box
// the core fills and lays out at each resize, shared while open, made anew once closed.
#include <gtest/gtest.h>

#include <cmath>

#include "corvex/files/dialog_notes.h"
#include "corvex/files/file_dialog_box.h"
#include "support/harness.h"

using namespace corvex;
using corvex::testing::Harness;
using corvex::testing::HarnessMaker;

namespace {

class NotesFormContract : public ::testing::TestWithParam<HarnessMaker> {
protected:
    void SetUp() override {
        h = GetParam().make();
        box = dynamic_cast<FileDialogBox*>(&h->add(FileDialogBox::staticClassInfo(), u"dlg"));
        ASSERT_NE(box, nullptr);
    }
    void TearDown() override {
        if (FormWindow* open = notes()) h->userClose(*open);
        h.reset();
    }
    FormWindow* notes() { return h->formWindow(DialogNotes::FormName); }
    TextBox& noteBox() { return DialogNotes::shared()->noteBox(); }

    std::unique_ptr<Harness> h;
    FileDialogBox* box = nullptr;
};

// Twips land on whole pixels: a pixel's worth of rounding is allowed.
constexpr float pixelInTwips = 16;

TEST_P(NotesFormContract, shouldShowTheExactNotesInAReadOnlyMultiLineBox) {
    box->showAbout();
    FormWindow* open = notes();
    ASSERT_NE(open, nullptr);
    EXPECT_TRUE(h->windowShown(*open));
    ASSERT_NE(DialogNotes::shared(), nullptr);
    EXPECT_EQ(noteBox().text(), dialogNotesText());
    EXPECT_TRUE(noteBox().locked());
    EXPECT_EQ(noteBox().name(), u"txtNote");
}

TEST_P(NotesFormContract, shouldShowTheSameFormOnASecondShowAbout) {
    box->showAbout();
    FormWindow* first = notes();
    DialogNotes* shared = DialogNotes::shared();
    box->showAbout();
    EXPECT_EQ(notes(), first);
    EXPECT_EQ(DialogNotes::shared(), shared);
    EXPECT_TRUE(h->windowShown(*first));
}

TEST_P(NotesFormContract, shouldLayTheNoteBoxOutAt2PercentWith96And90PercentOnAUserResize) {
    box->showAbout();
    h->userResize(*notes(), 15000, 7500);
    EXPECT_NEAR(notes()->width(), 15000, pixelInTwips);
    EXPECT_NEAR(noteBox().left(), 300, pixelInTwips);
    EXPECT_NEAR(noteBox().top(), 150, pixelInTwips);
    EXPECT_NEAR(noteBox().width(), 14400, pixelInTwips);
    EXPECT_NEAR(noteBox().height(), 6750, pixelInTwips);
    h->userResize(*notes(), 6000, 3000);
    EXPECT_NEAR(noteBox().left(), 120, pixelInTwips);
    EXPECT_NEAR(noteBox().height(), 2700, pixelInTwips);
}

TEST_P(NotesFormContract, shouldReleaseTheFormWhenTheUserClosesItAndMakeAFreshOneNextTime) {
    box->showAbout();
    h->userClose(*notes());
    EXPECT_EQ(notes(), nullptr);
    EXPECT_EQ(DialogNotes::shared(), nullptr);
    box->showAbout();
    ASSERT_NE(notes(), nullptr);
    EXPECT_TRUE(h->windowShown(*notes()));
    EXPECT_EQ(noteBox().text(), dialogNotesText());
}

INSTANTIATE_TEST_SUITE_P(Hosts, NotesFormContract,
                         ::testing::ValuesIn(corvex::testing::availableHarnesses()),
                         corvex::testing::harnessName);

}  // namespace
