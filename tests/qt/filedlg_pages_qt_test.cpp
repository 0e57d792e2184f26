// The FileDialogBox property pages in the Qt host's tabbed property dialog: one tab per
// page with its Japanese caption, Apply following the changed mark, typing through real
// key events, and Enter swallowed by the digits-only boxes.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include "corvex/files/filedlg_pages.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/form.h"
#include "corvex/qt/host.h"
#include "corvex/qt/property_dialog.h"
#include "qt_test_support.h"
#include "support/recording_dialog_box.h"

namespace corvex::qt::testing {
namespace {

using corvex::testing::RecordingDialogBox;

std::vector<const ClassInfo*> fileDialogPages() {
    return {&FileDialogPage1::staticClassInfo(), &FileDialogPage2::staticClassInfo(),
            &FileDialogPage3::staticClassInfo(), &FileDialogPage4::staticClassInfo()};
}

// A design-time window with one stand-in dialog box, and the property dialog on it.
class FileDialogPagesQt : public ::testing::Test {
protected:
    void SetUp() override {
        host.setUserMode(false);
        window = std::make_unique<QWidget>();
        form = std::make_unique<QtForm>(host, window.get());
        QtControlHost* surface =
            form->addControl(RecordingDialogBox::staticClassInfo(), QStringLiteral("dlg"));
        surface->initNew();
        box = &dynamic_cast<RecordingDialogBox&>(surface->control());
        box->values[u"FileName"] = Variant(u"a.txt");
        dialog = std::make_unique<PropertyDialog>(host, fileDialogPages(),
                                                  std::vector<ObjectRef>{surface->object()},
                                                  QStringLiteral("FileDialogBox"));
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
    }
    void TearDown() override {
        dialog.reset();
        form.reset();
    }
    template <class W>
    W* inner(int page, const char* name) {
        dialog->tabs()->setCurrentIndex(page);
        return qobject_cast<W*>(dialog->pageHost(page)->innerWidget(QString::fromUtf8(name)));
    }
    QtHost host;
    std::unique_ptr<QWidget> window;
    std::unique_ptr<QtForm> form;
    RecordingDialogBox* box = nullptr;
    std::unique_ptr<PropertyDialog> dialog;
};

TEST_F(FileDialogPagesQt, shouldShowTheFourPagesAsTabsWithJapaneseCaptions) {
    ASSERT_EQ(dialog->tabs()->count(), 4);
    EXPECT_EQ(dialog->tabs()->tabText(0), QStringLiteral("全般"));
    EXPECT_EQ(dialog->tabs()->tabText(1), QStringLiteral("ファイル名と確認"));
    EXPECT_EQ(dialog->tabs()->tabText(2), QStringLiteral("ダイアログ"));
    EXPECT_EQ(dialog->tabs()->tabText(3), QStringLiteral("リンクと共有"));
    auto* hint = inner<QLabel>(0, "lblMaxFileSizeHint");
    ASSERT_NE(hint, nullptr);
    EXPECT_EQ(hint->text(), QStringLiteral("(1 バイトから 32 KB まで)"));
    auto* name = inner<QLineEdit>(0, "txtFileName");
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->text(), QStringLiteral("a.txt")) << "every page read the selection";
}

TEST_F(FileDialogPagesQt, shouldEnableApplyWhileAPageHoldsEditsAndWriteThemOnApply) {
    EXPECT_FALSE(dialog->applyButton()->isEnabled());
    auto* title = inner<QLineEdit>(2, "txtDialogTitle");
    ASSERT_NE(title, nullptr);
    title->setFocus();
    QTest::keyClicks(title, QStringLiteral("Open"));
    EXPECT_TRUE(dialog->applyButton()->isEnabled());
    QTest::mouseClick(dialog->applyButton(), Qt::LeftButton);
    EXPECT_EQ(box->values[u"DialogTitle"], Variant(u"Open"));
    EXPECT_FALSE(dialog->applyButton()->isEnabled());
    EXPECT_EQ(box->lets.size(), 5u) << "only the changed page was written";
}

TEST_F(FileDialogPagesQt, shouldShowACouplingAtOnceWhenABoxIsClicked) {
    auto* create = inner<QCheckBox>(1, "chkCreatePrompt");
    auto* mustExist = inner<QCheckBox>(1, "chkFileMustExist");
    ASSERT_NE(create, nullptr);
    ASSERT_NE(mustExist, nullptr);
    QTest::mouseClick(create, Qt::LeftButton, {}, QPoint(6, create->height() / 2));
    EXPECT_TRUE(create->isChecked());
    EXPECT_TRUE(mustExist->isChecked());
    EXPECT_FALSE(mustExist->isEnabled());
    EXPECT_TRUE(dialog->applyButton()->isEnabled());
}

TEST_F(FileDialogPagesQt, shouldTypeOnlyDigitsIntoTheMaximumSize) {
    auto* size = inner<QLineEdit>(0, "txtMaxFileSize");
    ASSERT_NE(size, nullptr);
    size->setFocus();
    size->setCursorPosition(3);
    QTest::keyClicks(size, QStringLiteral("a1"));
    EXPECT_EQ(size->text(), QStringLiteral("2601"));
    QTest::keyClick(size, Qt::Key_Backspace);
    EXPECT_EQ(size->text(), QStringLiteral("260"));
}

TEST_F(FileDialogPagesQt, shouldKeepTheDialogOpenOnEnterInADigitsOnlyBox) {
    auto* size = inner<QLineEdit>(0, "txtMaxFileSize");
    ASSERT_NE(size, nullptr);
    size->setFocus();
    QTest::keyClick(size, Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible()) << "Enter is refused, so OK is not pressed";
    auto* name = inner<QLineEdit>(0, "txtFileName");
    name->setFocus();
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible()) << "from another box, Enter presses OK";
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

TEST_F(FileDialogPagesQt, shouldShowTheErrorAndStayOpenWhenTheControlRefusesAText) {
    auto* index = inner<QLineEdit>(0, "txtFilterIndex");
    ASSERT_NE(index, nullptr);
    index->setText(QStringLiteral("x"));  // as pasted: no key filter on the way
    EXPECT_FALSE(dialog->apply());
    EXPECT_TRUE(dialog->statusText().startsWith(QStringLiteral("error 13")));
    EXPECT_TRUE(dialog->applyButton()->isEnabled());
}

}  // namespace
}  // namespace corvex::qt::testing
