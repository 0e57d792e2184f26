// The notes form on the Qt host: a real top-level window, its read-only note box laid
// out by the core on every resize, released when the user closes it.
#include <gtest/gtest.h>

#include <QApplication>
#include <QPlainTextEdit>
#include <QPointer>

#include "corvex/files/dialog_notes.h"
#include "corvex/files/file_dialog_box.h"
#include "corvex/qt/convert.h"
#include "corvex/qt/form_window.h"
#include "corvex/qt/text_box.h"
#include "qt_test_support.h"

namespace corvex::qt::testing {
namespace {

class NotesFormQt : public ::testing::Test {
protected:
    NotesFormQt() : w(FileDialogBox::staticClassInfo(), 32, 32) {}
    ~NotesFormQt() override {
        // The shared form goes with the test that opened it.
        if (QtFormWindow* open = notesWindow()) open->close();
    }
    FileDialogBox& box() { return dynamic_cast<FileDialogBox&>(w.control->control()); }
    QtFormWindow* notesWindow() { return w.host.formWindows().find(u"frmFILEDLG"); }
    QPlainTextEdit* noteEdit() {
        QtFormWindow* open = notesWindow();
        return open ? open->surface().findChild<QPlainTextEdit*>(QStringLiteral("txtNote"))
                    : nullptr;
    }
    ControlWindow w;
};

TEST_F(NotesFormQt, shouldShowTheNotesInAReadOnlyMultiLineBoxOfATopLevelWindow) {
    box().showAbout();
    QtFormWindow* open = notesWindow();
    ASSERT_NE(open, nullptr);
    QWidget& window = open->surface();
    ASSERT_TRUE(waitUntil([&] { return window.isVisible(); }));
    EXPECT_TRUE(window.isWindow());
    EXPECT_FALSE(window.windowTitle().isEmpty());
    QPlainTextEdit* edit = noteEdit();
    ASSERT_NE(edit, nullptr);
    EXPECT_TRUE(edit->isReadOnly());
    EXPECT_TRUE(edit->isVisible());
    ASSERT_NE(DialogNotes::shared(), nullptr);
    EXPECT_EQ(DialogNotes::shared()->noteBox().text(), dialogNotesText());
    // The box holds one block per line: the pieces and the empty lines between them.
    EXPECT_EQ(edit->toPlainText(),
              toQString(dialogNotesText()).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    EXPECT_EQ(edit->document()->blockCount(), 19);
}

TEST_F(NotesFormQt, shouldShowTheSameFormOnASecondShowAbout) {
    box().showAbout();
    QtFormWindow* first = notesWindow();
    QWidget* firstWindow = &first->surface();
    box().showAbout();
    EXPECT_EQ(notesWindow(), first);
    EXPECT_EQ(&notesWindow()->surface(), firstWindow);
    EXPECT_TRUE(firstWindow->isVisible());
}

TEST_F(NotesFormQt, shouldLayTheNoteBoxOutOnEveryResize) {
    box().showAbout();
    QWidget& window = notesWindow()->surface();
    ASSERT_TRUE(waitUntil([&] { return window.isVisible(); }));
    window.resize(1000, 500);
    QPlainTextEdit* edit = noteEdit();
    ASSERT_TRUE(waitUntil([&] { return edit->geometry() == QRect(20, 10, 960, 450); }))
        << edit->geometry().x() << "," << edit->geometry().y() << " " << edit->geometry().width()
        << "x" << edit->geometry().height();
    window.resize(500, 200);
    EXPECT_TRUE(waitUntil([&] { return edit->geometry() == QRect(10, 4, 480, 180); }));
}

TEST_F(NotesFormQt, shouldLayTheBoxOutWhenTheCoreResizesTheWindow) {
    box().showAbout();
    QtFormWindow* open = notesWindow();
    const double tpp = open->surface().twipsPerPixelX();
    open->resize(static_cast<float>(1000 * tpp), static_cast<float>(500 * tpp));
    const TextBox& note = DialogNotes::shared()->noteBox();
    EXPECT_TRUE(waitUntil([&] { return noteEdit()->geometry() == QRect(20, 10, 960, 450); }));
    EXPECT_NEAR(note.left(), 20 * tpp, tpp);
    EXPECT_NEAR(note.height(), 450 * tpp, tpp);
}

TEST_F(NotesFormQt, shouldReleaseTheFormWhenTheUserClosesItAndMakeANewOneNextTime) {
    box().showAbout();
    QPointer<QWidget> first(&notesWindow()->surface());
    ASSERT_TRUE(waitUntil([&] { return first->isVisible(); }));
    first->close();  // as the window box's close button does
    EXPECT_EQ(DialogNotes::shared(), nullptr);
    EXPECT_EQ(notesWindow(), nullptr);
    EXPECT_TRUE(waitUntil([&] { return first.isNull(); }));
    box().showAbout();
    ASSERT_NE(notesWindow(), nullptr);
    QWidget* second = &notesWindow()->surface();
    EXPECT_TRUE(waitUntil([&] { return second->isVisible(); }));
    EXPECT_NE(DialogNotes::shared(), nullptr);
}

TEST_F(NotesFormQt, shouldReleaseTheFormWhenItsHostGoes) {
    {
        ControlWindow other(FileDialogBox::staticClassInfo(), 32, 32);
        dynamic_cast<FileDialogBox&>(other.control->control()).showAbout();
        ASSERT_NE(DialogNotes::shared(), nullptr);
    }
    EXPECT_EQ(DialogNotes::shared(), nullptr);
}

}  // namespace
}  // namespace corvex::qt::testing
