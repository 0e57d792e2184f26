// FileDialogBox on the Qt host: the real QFileDialog, set up from the request record and
// driven as a user drives it, its answer read back through the drive map.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "corvex/files/file_dialog_box.h"
#include "qt_test_support.h"
#include "support/temp_folder.h"

namespace corvex::qt::testing {
namespace {

using corvex::testing::TempFolder;

// One thing the user does to the modal window on top: a file dialog or a message box.
struct Step {
    bool fileDialog = true;
    std::function<void(QWidget&)> act;
};

// Acts on the modal windows as they come up, one step each, polling for them: never a
// fixed wait. Past the deadline it closes whatever is open, so that a failing test ends.
class ModalDriver {
public:
    explicit ModalDriver(std::vector<Step> steps) : steps_(std::move(steps)) {
        clock_.start();
        QObject::connect(&timer_, &QTimer::timeout, [this] { tick(); });
        timer_.start(5);
    }
    /// Whether every step ran.
    bool done() const { return next_ == steps_.size() && !inFlight_; }
    /// Whether the deadline passed with steps left.
    bool timedOut() const { return timedOut_; }

private:
    void tick() {
        QWidget* top = QApplication::activeModalWidget();
        if (clock_.elapsed() > waitDeadlineMs) {
            timedOut_ = !done();
            if (top) QTimer::singleShot(0, top, [top] { top->close(); });
            return;
        }
        if (inFlight_ || next_ >= steps_.size() || !top || !top->isVisible()) return;
        const Step& step = steps_[next_];
        const bool matches = step.fileDialog ? qobject_cast<QFileDialog*>(top) != nullptr
                                             : qobject_cast<QMessageBox*>(top) != nullptr;
        if (!matches) return;
        inFlight_ = true;
        const std::size_t index = next_++;
        // Posted, so that a window the step opens runs its loop outside this timer.
        QPointer<QWidget> target(top);
        QTimer::singleShot(0, top, [this, index, target] {
            inFlight_ = false;
            if (target) steps_[index].act(*target);
        });
    }

    std::vector<Step> steps_;
    std::size_t next_ = 0;
    bool inFlight_ = false;
    bool timedOut_ = false;
    QTimer timer_;
    QElapsedTimer clock_;
};

QLineEdit* nameEdit(QWidget& dialog) {
    return dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

QDialogButtonBox* buttonBox(QWidget& dialog) {
    return dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
}

// The dialog's Open or Save button.
QPushButton* acceptButton(QWidget& dialog) {
    QDialogButtonBox* box = buttonBox(dialog);
    if (!box) return nullptr;
    if (QPushButton* b = box->button(QDialogButtonBox::Open)) return b;
    return box->button(QDialogButtonBox::Save);
}

QComboBox* filterCombo(QWidget& dialog) {
    return dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
}

// Types names into the dialog's name box and presses Open or Save. The box has the focus,
// as when a user types: Qt then lets go of the files an earlier name selected in the list.
Step choose(const QString& names) {
    return {true, [names](QWidget& dialog) {
                QLineEdit* edit = nameEdit(dialog);
                QApplication::setActiveWindow(&dialog);
                edit->setFocus(Qt::OtherFocusReason);
                edit->setText(names);
                acceptButton(dialog)->click();
            }};
}

Step cancel() {
    return {true, [](QWidget& dialog) { static_cast<QDialog&>(dialog).reject(); }};
}

// Presses a button of the message box on top, recording its text first.
Step answer(QMessageBox::StandardButton button, QString* text = nullptr) {
    return {false, [button, text](QWidget& w) {
                auto& box = static_cast<QMessageBox&>(w);
                if (text) *text = box.text();
                box.button(button)->click();
            }};
}

// Looks at the file dialog without acting on it; then cancels it.
Step inspect(std::function<void(QFileDialog&)> look) {
    return {true, [look](QWidget& dialog) {
                auto& d = static_cast<QFileDialog&>(dialog);
                look(d);
                static_cast<QDialog&>(d).reject();
            }};
}

class FileDialogQt : public ::testing::Test {
protected:
    FileDialogQt() : w(FileDialogBox::staticClassInfo(), 32, 32) {
        workingFolder = QDir::currentPath();
        std::filesystem::create_directories(folder / "docs");
        std::filesystem::create_directories(folder / "other");
        for (const char* name : {"docs/a.txt", "docs/b.txt", "docs/c.txt", "docs/notes.log"}) {
            std::ofstream(folder / name) << "x";
        }
        posix::DriveMap drives;
        drives.map(u"C:", folder.path());
        w.host.setDriveMap(drives);
        w.host.setLocaleId(LocaleEnglishUS);
        letProperty(box(), u"InitDir", Variant(u"C:\\docs"));
    }
    ~FileDialogQt() override { QDir::setCurrent(workingFolder); }

    FileDialogBox& box() { return dynamic_cast<FileDialogBox&>(w.control->control()); }
    QString native(const std::string& name) { return QString::fromStdString(folder / name); }

    // Runs call with the steps driving the dialogs it opens.
    template <class Call>
    auto run(std::vector<Step> steps, Call call) {
        ModalDriver driver(std::move(steps));
        auto result = call();
        EXPECT_TRUE(waitUntil([&] { return driver.done() || driver.timedOut(); }));
        EXPECT_TRUE(driver.done()) << "a dialog did not come up as expected";
        return result;
    }

    TempFolder folder{"corvex-filedlg"};
    ControlWindow w;
    QString workingFolder;
};

TEST_F(FileDialogQt, shouldReturnTheChosenFileAsAWindowsNameThroughTheDriveMap) {
    const std::u16string chosen =
        run({choose(QStringLiteral("b.txt"))}, [&] { return box().fileOpen(); });
    EXPECT_EQ(chosen, u"C:\\docs\\b.txt");
    EXPECT_EQ(box().fileName(), u"C:\\docs\\b.txt");
    EXPECT_EQ(box().fileTitle(), u"b.txt");
    EXPECT_FALSE(box().cancelSelected());
}

TEST_F(FileDialogQt, shouldOpenInTheInitialFolderThroughTheDriveMap) {
    QString shown;
    run({inspect([&](QFileDialog& d) { shown = d.directory().absolutePath(); })},
        [&] { return box().fileOpen(); });
    EXPECT_EQ(shown, QDir(native("docs")).absolutePath());
}

TEST_F(FileDialogQt, shouldShowTheDialogTitle) {
    box().setDialogTitle(u"Pick a report");
    QString title;
    run({inspect([&](QFileDialog& d) { title = d.windowTitle(); })},
        [&] { return box().fileOpen(); });
    EXPECT_EQ(title, QStringLiteral("Pick a report"));
}

TEST_F(FileDialogQt, shouldKeepQtsOwnTitleWhenTheDialogTitleIsEmpty) {
    QFileDialog open;
    QFileDialog save;
    save.setAcceptMode(QFileDialog::AcceptSave);
    QString openTitle;
    QString saveTitle;
    run({inspect([&](QFileDialog& d) { openTitle = d.windowTitle(); })},
        [&] { return box().showOpen(); });
    run({inspect([&](QFileDialog& d) { saveTitle = d.windowTitle(); })},
        [&] { return box().showSave(); });
    EXPECT_FALSE(openTitle.isEmpty());
    EXPECT_EQ(openTitle, open.windowTitle());
    EXPECT_EQ(saveTitle, save.windowTitle());
}

TEST_F(FileDialogQt, shouldShowEachFilterDescriptionOnceAndFilterByItsPattern) {
    box().setFilter(u"Text (*.txt)|*.txt|Logs|*.log;*.txt|All (*.*)|*.*");
    QStringList shown;
    QStringList filters;
    run({inspect([&](QFileDialog& d) {
            for (int i = 0; i < filterCombo(d)->count(); ++i) shown << filterCombo(d)->itemText(i);
            filters = d.nameFilters();
        })},
        [&] { return box().fileOpen(); });
    // The combo shows the descriptions as given, as the system dialog does.
    EXPECT_EQ(shown, (QStringList{QStringLiteral("Text (*.txt)"), QStringLiteral("Logs"),
                                  QStringLiteral("All (*.*)")}));
    // Qt reads the patterns from the last parentheses: ";" lists, and "*.*" is every file.
    EXPECT_EQ(filters,
              (QStringList{QStringLiteral("Text (*.txt) (*.txt)"),
                           QStringLiteral("Logs (*.log *.txt)"), QStringLiteral("All (*.*) (*)")}));
}

TEST_F(FileDialogQt, shouldSelectTheFilterOfFilterIndexAndReadTheChosenOneBack) {
    box().setFilter(u"Text (*.txt)|*.txt|Logs (*.log)|*.log|All (*.*)|*.*");
    box().setFilterIndex(2);
    int selected = -1;
    run({{true,
          [&](QWidget& dialog) {
              auto& d = static_cast<QFileDialog&>(dialog);
              selected = filterCombo(d)->currentIndex();
              d.selectNameFilter(d.nameFilters().at(2));
              nameEdit(d)->setText(QStringLiteral("a.txt"));
              acceptButton(d)->click();
          }}},
        [&] { return box().fileOpen(); });
    EXPECT_EQ(selected, 1);
    EXPECT_EQ(box().filterIndex(), 3);
}

TEST_F(FileDialogQt, shouldSelectTheFirstFilterForFilterIndexZero) {
    box().setFilter(u"Text (*.txt)|*.txt|All (*.*)|*.*");
    run({choose(QStringLiteral("a.txt"))}, [&] { return box().fileOpen(); });
    EXPECT_EQ(box().filterIndex(), 1);
}

TEST_F(FileDialogQt, shouldAddTheDefaultExtensionToANameWithout) {
    box().setMode(OpenOrSaveMode::SaveMode);
    box().setDefaultExt(u"txt");
    const auto chosen = run({choose(QStringLiteral("report"))}, [&] { return box().fileSave(); });
    EXPECT_EQ(chosen, u"C:\\docs\\report.txt");
}

TEST_F(FileDialogQt, shouldReturnTheFolderAndTheNamesSeparatedByNulsForSeveralFiles) {
    box().setAllowMultiselect(true);
    QFileDialog::FileMode mode{};
    const auto chosen =
        run({{true,
              [&](QWidget& dialog) {
                  mode = static_cast<QFileDialog&>(dialog).fileMode();
                  nameEdit(dialog)->setText(QStringLiteral("\"a.txt\" \"b.txt\" \"c.txt\""));
                  acceptButton(dialog)->click();
              }}},
            [&] { return box().fileOpen(); });
    EXPECT_EQ(mode, QFileDialog::ExistingFiles);
    EXPECT_EQ(chosen, std::u16string(u"C:\\docs\0a.txt\0b.txt\0c.txt", 25));
}

TEST_F(FileDialogQt, shouldReturnOneFullNameWhenOneFileIsChosenOfSeveralAllowed) {
    box().setAllowMultiselect(true);
    const auto chosen = run({choose(QStringLiteral("c.txt"))}, [&] { return box().fileOpen(); });
    EXPECT_EQ(chosen, u"C:\\docs\\c.txt");
}

TEST_F(FileDialogQt, shouldSeparateTheNamesByBlanksInTheOldStyleDialog) {
    box().setAllowMultiselect(true);
    box().setExplorer(false);
    const auto chosen =
        run({choose(QStringLiteral("\"a.txt\" \"b.txt\""))}, [&] { return box().fileOpen(); });
    EXPECT_EQ(chosen, u"C:\\docs a.txt b.txt");
}

TEST_F(FileDialogQt, shouldTakeOnlyOneFileWithoutMultiselect) {
    QFileDialog::FileMode mode{};
    run({inspect([&](QFileDialog& d) { mode = d.fileMode(); })}, [&] { return box().fileOpen(); });
    EXPECT_EQ(mode, QFileDialog::AnyFile);
}

TEST_F(FileDialogQt, shouldOfferOnlyExistingFilesWithFileMustExist) {
    box().setFileMustExist(true);
    bool enabledForMissing = true;
    const auto chosen = run({{true,
                              [&](QWidget& dialog) {
                                  EXPECT_EQ(static_cast<QFileDialog&>(dialog).fileMode(),
                                            QFileDialog::ExistingFile);
                                  nameEdit(dialog)->setText(QStringLiteral("missing.txt"));
                                  enabledForMissing = acceptButton(dialog)->isEnabled();
                                  nameEdit(dialog)->setText(QStringLiteral("a.txt"));
                                  acceptButton(dialog)->click();
                              }}},
                            [&] { return box().fileOpen(); });
    EXPECT_FALSE(enabledForMissing);
    EXPECT_EQ(chosen, u"C:\\docs\\a.txt");
}

TEST_F(FileDialogQt, shouldAskBeforeOverwritingWithOverwritePromptAndStayOnNo) {
    box().setMode(OpenOrSaveMode::SaveMode);
    box().setOverwritePrompt(true);
    QString question;
    const auto chosen = run({choose(QStringLiteral("a.txt")), answer(QMessageBox::No, &question),
                             choose(QStringLiteral("fresh.txt"))},
                            [&] { return box().fileSave(); });
    EXPECT_TRUE(question.contains(QStringLiteral("a.txt"))) << question.toStdString();
    EXPECT_EQ(chosen, u"C:\\docs\\fresh.txt");
}

TEST_F(FileDialogQt, shouldReplaceAfterYesWithOverwritePrompt) {
    box().setMode(OpenOrSaveMode::SaveMode);
    box().setOverwritePrompt(true);
    const auto chosen = run({choose(QStringLiteral("a.txt")), answer(QMessageBox::Yes)},
                            [&] { return box().fileSave(); });
    EXPECT_EQ(chosen, u"C:\\docs\\a.txt");
}

TEST_F(FileDialogQt, shouldNotAskBeforeOverwritingWithoutOverwritePrompt) {
    box().setMode(OpenOrSaveMode::SaveMode);
    // One step only: a question would leave the dialog open and the driver's step undone.
    const auto chosen = run({choose(QStringLiteral("a.txt"))}, [&] { return box().fileSave(); });
    EXPECT_EQ(chosen, u"C:\\docs\\a.txt");
    EXPECT_TRUE(settle());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(FileDialogQt, shouldAskBeforeCreatingAMissingFileWithCreatePrompt) {
    box().setCreatePrompt(true);
    QString question;
    const auto chosen =
        run({choose(QStringLiteral("new.txt")), answer(QMessageBox::Yes, &question)},
            [&] { return box().fileOpen(); });
    EXPECT_TRUE(question.contains(QStringLiteral("new.txt")));
    EXPECT_TRUE(question.contains(QStringLiteral("Do you want to create it?")));
    EXPECT_EQ(chosen, u"C:\\docs\\new.txt");
}

TEST_F(FileDialogQt, shouldKeepTheDialogOpenWhenCreatingIsRefused) {
    box().setCreatePrompt(true);
    const auto chosen = run({choose(QStringLiteral("new.txt")), answer(QMessageBox::No),
                             choose(QStringLiteral("b.txt"))},
                            [&] { return box().fileOpen(); });
    EXPECT_EQ(chosen, u"C:\\docs\\b.txt");
}

TEST_F(FileDialogQt, shouldNotAskAboutAnExistingFileWithCreatePrompt) {
    box().setCreatePrompt(true);
    const auto chosen = run({choose(QStringLiteral("a.txt"))}, [&] { return box().fileOpen(); });
    EXPECT_EQ(chosen, u"C:\\docs\\a.txt");
}

TEST_F(FileDialogQt, shouldAskInJapaneseInTheJapaneseLocale) {
    w.host.setLocaleId(LocaleJapanese);
    box().setCreatePrompt(true);
    QString question;
    run({choose(QStringLiteral("new.txt")), answer(QMessageBox::No, &question), cancel()},
        [&] { return box().fileOpen(); });
    EXPECT_TRUE(question.contains(QString::fromUtf16(u"作成しますか?"))) << question.toStdString();
}

TEST_F(FileDialogQt, shouldRefuseAMissingFolderWithPathMustExist) {
    box().setPathMustExist(true);
    QString refusal;
    run({choose(QStringLiteral("nowhere/x.txt")), answer(QMessageBox::Ok, &refusal), cancel()},
        [&] { return box().fileOpen(); });
    EXPECT_TRUE(refusal.contains(QStringLiteral("The folder does not exist.")));
    EXPECT_TRUE(box().cancelSelected());
}

TEST_F(FileDialogQt, shouldRefuseAReadOnlyFileWithNoReadOnlyReturn) {
    std::filesystem::permissions(folder / "docs/c.txt", std::filesystem::perms::owner_read);
    if (QFileInfo(native("docs/c.txt")).isWritable())
        GTEST_SKIP() << "this user may write any file (root): nothing is read-only to test";
    box().setNoReadOnlyReturn(true);
    QString refusal;
    const auto chosen = run({choose(QStringLiteral("c.txt")), answer(QMessageBox::Ok, &refusal),
                             choose(QStringLiteral("a.txt"))},
                            [&] { return box().fileOpen(); });
    EXPECT_TRUE(refusal.contains(QStringLiteral("read-only")));
    EXPECT_EQ(chosen, u"C:\\docs\\a.txt");
}

TEST_F(FileDialogQt, shouldLeaveTheWorkingFolderAloneWithNoChangeDir) {
    QDir::setCurrent(native("other"));
    box().setNoChangeDir(true);
    run({choose(QStringLiteral("a.txt"))}, [&] { return box().fileOpen(); });
    EXPECT_EQ(QDir::currentPath(), QDir(native("other")).absolutePath());
}

TEST_F(FileDialogQt, shouldMoveTheWorkingFolderToTheDialogsWithoutNoChangeDir) {
    QDir::setCurrent(native("other"));
    run({choose(QStringLiteral("a.txt"))}, [&] { return box().fileOpen(); });
    EXPECT_EQ(QDir::currentPath(), QDir(native("docs")).absolutePath());
}

TEST_F(FileDialogQt, shouldFailWithBufferTooSmallWhenTheNameDoesNotFit) {
    box().setMaxFileSize(5);  // 11 bytes: "C:\docs\a.txt" needs 14
    try {
        run({choose(QStringLiteral("a.txt"))}, [&] { return box().fileOpen(); });
        FAIL() << "no error was raised";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 0x3003);
        EXPECT_EQ(e.description(), u"CommonDialog API error.(CommDlgExtendedError()=12291)");
    }
    EXPECT_FALSE(box().cancelSelected());
}

TEST_F(FileDialogQt, shouldReportCancelAsCancelSelectedAndAnEmptyName) {
    box().setFileName(u"C:\\docs\\a.txt");
    const auto chosen = run({cancel()}, [&] { return box().fileOpen(); });
    EXPECT_EQ(chosen, u"");
    EXPECT_TRUE(box().cancelSelected());
    EXPECT_TRUE(box().cancelError());
    EXPECT_EQ(box().fileName(), u"C:\\docs\\a.txt");
}

TEST_F(FileDialogQt, shouldRaiseCancelErrorFromShowOpenAfterAFileOpen) {
    run({cancel()}, [&] { return box().fileOpen(); });
    try {
        run({cancel()}, [&] { return box().showOpen(); });
        FAIL() << "no error was raised";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 32755);
        EXPECT_EQ(e.description(), u"Cancel was selected ");
    }
}

TEST_F(FileDialogQt, shouldCancelQuietlyFromShowOpenWithoutCancelError) {
    const bool chosen = run({cancel()}, [&] { return box().showOpen(); });
    EXPECT_FALSE(chosen);
    EXPECT_TRUE(box().cancelSelected());
}

TEST_F(FileDialogQt, shouldOfferTheFileNameInTheDialog) {
    box().setFileName(u"C:\\docs\\b.txt");
    QString offered;
    run({inspect([&](QFileDialog& d) { offered = nameEdit(d)->text(); })},
        [&] { return box().fileOpen(); });
    EXPECT_EQ(offered, QStringLiteral("b.txt"));
}

TEST_F(FileDialogQt, shouldAddAHelpButtonThatTellsWhatTheDialogWants) {
    box().setHelpButton(true);
    box().setFileMustExist(true);
    QString help;
    run({{true, [](QWidget& d) { d.findChild<QPushButton*>(QStringLiteral("Help"))->click(); }},
         answer(QMessageBox::Ok, &help),
         cancel()},
        [&] { return box().fileOpen(); });
    EXPECT_TRUE(help.contains(QStringLiteral("Choose the file to open."))) << help.toStdString();
    EXPECT_TRUE(help.contains(QStringLiteral("The file must exist.")));
}

TEST_F(FileDialogQt, shouldHaveNoHelpButtonWithoutHelpButton) {
    QPushButton* help = nullptr;
    run({inspect(
            [&](QFileDialog& d) { help = d.findChild<QPushButton*>(QStringLiteral("Help")); })},
        [&] { return box().fileOpen(); });
    EXPECT_EQ(help, nullptr);
}

TEST(DialogNameFilters, shouldListDescriptionAndPatternsInParentheses) {
    const char list[] = "Text (*.txt)\0*.txt\0Pictures\0*.bmp;*.ico\0\0";
    EXPECT_EQ(dialogNameFilters(list), (QStringList{QStringLiteral("Text (*.txt) (*.txt)"),
                                                    QStringLiteral("Pictures (*.bmp *.ico)")}));
    EXPECT_TRUE(dialogNameFilters(nullptr).isEmpty());
}

}  // namespace
}  // namespace corvex::qt::testing
