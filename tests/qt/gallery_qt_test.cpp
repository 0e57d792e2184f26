// The gallery window as a user drives it: its check boxes and entry controls with their
// switches, the values file, Store and Restore, the enable switch and the locale switch.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "corvex/entry/memo_box.h"
#include "corvex/entry/num_input_box.h"
#include "corvex/library/ini_file.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"
#include "corvex/qt/form.h"
#include "corvex/qt/form_window.h"
#include "corvex/qt/host.h"
#include "corvex/qt/property_dialog.h"
#include "gallery_window.h"
#include "qt_test_support.h"
#include "support/file_limits.h"

namespace corvex::qt::testing {
namespace {

std::string bytesOf(const QString& path) {
    return corvex::testing::readFile(QFile::encodeName(path).toStdString());
}

class GalleryQt : public ::testing::Test {
protected:
    GalleryQt() {
        // Each test has a values file of its own, never the user's settings: the tests run
        // in parallel processes.
        window.setValuesFile(folder.filePath(QStringLiteral("gallery-values.ini")));
        // No one is there to answer a box: it is counted and answered OK.
        host.setMessageBoxHandler([this](const MessageBoxRequest&) {
            ++messageBoxes;
            return std::int32_t{1};
        });
        window.show();
        [[maybe_unused]] const bool exposed = QTest::qWaitForWindowExposed(&window);
        QApplication::setActiveWindow(&window);
        [[maybe_unused]] const bool active = QTest::qWaitForWindowActive(&window);
    }
    QTemporaryDir folder;

    QtControlHost* control(const char* name) const {
        return window.control(QString::fromLatin1(name));
    }
    QCheckBox* boxOf(const char* name) const {
        return qobject_cast<QCheckBox*>(
            control(name)->innerWidget(QStringLiteral("chkBooleanBox")));
    }
    std::u16string value(const char* name) const {
        return getProperty(*control(name)->object(), u"Value").toString();
    }

    QWidget* editOf(const char* name, const char* inner = "txtInput") const {
        return control(name)->innerWidget(QString::fromLatin1(inner));
    }
    template <class W>
    W* setting(const char* objectName) const {
        return qobject_cast<W*>(window.settingsSwitch(QString::fromLatin1(objectName)));
    }

    QtHost host;
    gallery::GalleryWindow window{host};
    int messageBoxes = 0;
};

TEST_F(GalleryQt, shouldHoldEveryTableEntryOnItsForm) {
    const auto& entries = gallery::galleryEntries();
    ASSERT_EQ(window.form().hosts().size(), entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        QtControlHost* h = window.form().hosts()[i];
        EXPECT_EQ(h->objectName(), toQString(entries[i].name));
        EXPECT_EQ(&h->classInfo(), &entries[i].classInfo());
        EXPECT_EQ(h->parentForm(), &window.form());
    }
    EXPECT_EQ(window.form().controls().size(), entries.size());
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Corvex gallery"));
}

TEST_F(GalleryQt, shouldLoadTheDesignPropertiesOfItsTable) {
    EXPECT_EQ(boxOf("newsletter")->text(), QStringLiteral("Send me the newsletter"));
    EXPECT_EQ(
        getProperty(*control("onlyWhenEnabled")->object(), u"AlwaysFalseWhenNotEnabled").toString(),
        u"True");
}

TEST_F(GalleryQt, shouldCheckTheNewsletterBoxOnAMouseClickAndLogTheClick) {
    QCheckBox* box = boxOf("newsletter");
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, indicatorCentre(box));
    EXPECT_EQ(value("newsletter"), u"True");
    EXPECT_TRUE(window.eventLog().contains(QStringLiteral("newsletter.Click()")));
    EXPECT_TRUE(window.valuesText().contains(QStringLiteral("newsletter = True")));
    auto* label = window.findChild<QLabel*>(QStringLiteral("values"));
    ASSERT_NE(label, nullptr);
    EXPECT_TRUE(label->text().contains(QStringLiteral("newsletter = True")));
}

TEST_F(GalleryQt, shouldSaveTheValuesIntoAnIniFileThroughItsSettingHandleAndLoadThemBack) {
    letProperty(*control("newsletter")->object(), u"Value", Variant(true));
    ASSERT_TRUE(window.saveValues()) << window.statusText().toStdString();

    const IniDocument file(bytesOf(window.valuesFile()));
    EXPECT_EQ(file.find("gallery", "NEWSLETTER"), "True");
    EXPECT_EQ(file.find("Gallery", "onlyWhenEnabled"), "False");
    EXPECT_EQ(file.find("Gallery", "amount"), "");
    EXPECT_EQ(control("settings")->classInfo().name(), u"SettingHandle");

    letProperty(*control("newsletter")->object(), u"Value", Variant(false));
    EXPECT_EQ(value("newsletter"), u"False");
    ASSERT_TRUE(window.loadValues());
    EXPECT_EQ(value("newsletter"), u"True");
    EXPECT_EQ(boxOf("newsletter")->checkState(), Qt::Checked);
}

TEST_F(GalleryQt, shouldShowThePathOfItsIniFile) {
    auto* label = window.findChild<QLabel*>(QStringLiteral("iniFile"));
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text(), QStringLiteral("INI file: ") + window.valuesFile());
    window.setValuesFile(QStringLiteral("mine.ini"));
    const QString inFolder =
        QString::fromStdString(host.profiles().folders().iniFolder + "/mine.ini");
    EXPECT_EQ(window.valuesFile(), inFolder);
    EXPECT_EQ(label->text(), QStringLiteral("INI file: ") + inFolder);
}

TEST_F(GalleryQt, shouldShowThePairOfListControlsWithTheirDesignLists) {
    EXPECT_EQ(getProperty(*control("fruit")->object(), u"ListCount").toInteger(), 3);
    Variant index(std::int16_t{2});
    EXPECT_EQ(invoke(*control("fruit")->object(), u"ItemData", CallKind::Get, {&index, 1}).toLong(),
              30);
    EXPECT_EQ(value("packing"), u"1") << "the default index is selected on load";
}

TEST_F(GalleryQt, shouldShowAndHideTheListsHorizontalBarWithTheLongItemSwitch) {
    auto* list =
        qobject_cast<QListWidget*>(control("colours")->innerWidget(QStringLiteral("lstListBoxEx")));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->count(), 4);
    EXPECT_FALSE(list->horizontalScrollBar()->isVisible());
    auto* longItem = setting<QCheckBox>("coloursLongItem");
    ASSERT_NE(longItem, nullptr);
    longItem->click();
    ASSERT_EQ(list->count(), 5);
    EXPECT_EQ(list->item(4)->text(), toQString(gallery::kLongItem));
    EXPECT_TRUE(waitUntil([list] { return list->horizontalScrollBar()->isVisible(); }));
    longItem->click();
    EXPECT_EQ(list->count(), 4);
    EXPECT_TRUE(waitUntil([list] { return !list->horizontalScrollBar()->isVisible(); }));
}

TEST_F(GalleryQt, shouldReportAMissingValuesFile) {
    EXPECT_FALSE(window.loadValues());
    EXPECT_TRUE(window.eventLog().last().startsWith(QStringLiteral("Load values failed")));
}

TEST_F(GalleryQt, shouldStoreAndRestoreEveryControlByName) {
    letProperty(*control("newsletter")->object(), u"Value", Variant(true));
    window.storeAll();
    letProperty(*control("newsletter")->object(), u"Value", Variant(false));
    window.restoreAll();
    EXPECT_EQ(value("newsletter"), u"True");
    EXPECT_TRUE(window.eventLog().contains(QStringLiteral("newsletter.Store")));
    EXPECT_TRUE(window.eventLog().contains(QStringLiteral("newsletter.Restore")));
}

TEST_F(GalleryQt, shouldReadFalseOnceTheEnableSwitchIsOff) {
    letProperty(*control("onlyWhenEnabled")->object(), u"Value", Variant(true));
    QCheckBox* enable = window.enableSwitch(QStringLiteral("onlyWhenEnabled"));
    ASSERT_NE(enable, nullptr);
    QTest::mouseClick(enable, Qt::LeftButton, Qt::NoModifier, indicatorCentre(enable));
    EXPECT_FALSE(enable->isChecked());
    EXPECT_FALSE(boxOf("onlyWhenEnabled")->isEnabled());
    EXPECT_EQ(value("onlyWhenEnabled"), u"False");
    EXPECT_TRUE(window.valuesText().contains(QStringLiteral("onlyWhenEnabled = False")));
}

TEST_F(GalleryQt, shouldSetTheHostsLocaleFromTheLocaleSwitch) {
    auto* locale = window.findChild<QComboBox*>(QStringLiteral("locale"));
    ASSERT_NE(locale, nullptr);
    locale->setCurrentIndex(1);
    EXPECT_EQ(host.localeId(), LocaleJapanese);
    locale->setCurrentIndex(0);
    EXPECT_EQ(host.localeId(), LocaleEnglishUS);
}

// --- the text and number entry group --------------------------------------------------------

TEST_F(GalleryQt, shouldShowTheEntryControlsWithTheirLabels) {
    for (const char* name : {"amount", "quantity", "notes"}) {
        ASSERT_NE(control(name), nullptr) << name;
        EXPECT_TRUE(control(name)->isVisible()) << name;
    }
    EXPECT_EQ(&control("amount")->classInfo(), &NumInputBox::staticClassInfo());
    EXPECT_EQ(&control("quantity")->classInfo(), &NumInputBoxR::staticClassInfo());
    EXPECT_EQ(&control("notes")->classInfo(), &MemoBox::staticClassInfo());
    bool labelled = false;
    for (QLabel* label : window.findChildren<QLabel*>()) {
        if (label->buddy() == control("amount"))
            labelled = label->text().contains(QStringLiteral("Amount"));
    }
    EXPECT_TRUE(labelled);
    EXPECT_TRUE(qobject_cast<QLineEdit*>(editOf("quantity"))->alignment() & Qt::AlignRight);
}

TEST_F(GalleryQt, shouldShowTypedNumbersInTheValueLineAndSaveAndLoadThem) {
    QWidget* amount = editOf("amount");
    QTest::mouseClick(amount, Qt::LeftButton, Qt::NoModifier, amount->rect().center());
    QTest::keyClicks(amount, QStringLiteral("12.5x"));
    EXPECT_EQ(value("amount"), u"12.5") << "x is refused by the key filter";
    EXPECT_TRUE(window.valuesText().contains(QStringLiteral("amount = 12.5")));
    QWidget* notes = editOf("notes", "txtMemo(0)");
    QTest::keyClicks(notes, QStringLiteral("a"));
    QTest::keyClick(notes, Qt::Key_Return);
    QTest::keyClicks(notes, QStringLiteral("b"));
    EXPECT_EQ(value("notes"), u"a\r\nb");
    EXPECT_TRUE(window.valuesText().contains(QStringLiteral("notes = a \u21B5 b")));

    ASSERT_TRUE(window.saveValues());
    letProperty(*control("amount")->object(), u"Value", Variant(u"1"));
    letProperty(*control("notes")->object(), u"Value", Variant(u""));
    ASSERT_TRUE(window.loadValues());
    EXPECT_EQ(value("amount"), u"12.5");
    // An INI entry is one line: the notes come back with their first line only.
    EXPECT_EQ(value("notes"), u"a");
    EXPECT_EQ(qobject_cast<QPlainTextEdit*>(notes)->document()->blockCount(), 1);
}

TEST_F(GalleryQt, shouldStoreAndRestoreTheEntryControls) {
    letProperty(*control("quantity")->object(), u"Value", Variant(u"7"));
    window.storeAll();
    letProperty(*control("quantity")->object(), u"Value", Variant(u"8"));
    window.restoreAll();
    EXPECT_EQ(value("quantity"), u"7");
    EXPECT_TRUE(window.eventLog().contains(QStringLiteral("quantity.Restore")));
}

TEST_F(GalleryQt, shouldSetModeAndMaxLengthOfBothNumberBoxes) {
    auto* mode = setting<QComboBox>("mode");
    auto* maxLength = setting<QSpinBox>("maxLength");
    ASSERT_NE(mode, nullptr);
    ASSERT_NE(maxLength, nullptr);
    EXPECT_EQ(mode->count(), 5);
    mode->setCurrentIndex(3);
    maxLength->setValue(4);
    for (const char* name : {"amount", "quantity"}) {
        EXPECT_EQ(getProperty(*control(name)->object(), u"Mode").toInteger(), 3) << name;
        EXPECT_EQ(getProperty(*control(name)->object(), u"MaxLength").toInteger(), 4) << name;
    }
    QTest::keyClicks(editOf("amount"), QStringLiteral("-1.234567"));
    EXPECT_EQ(value("amount"), u"1234") << "integers only, four at most";
}

TEST_F(GalleryQt, shouldCheckTheLimitsSetWithTheSwitchesWhenLeavingABox) {
    auto* limitCheck = setting<QCheckBox>("limitCheck");
    auto* lower = setting<QDoubleSpinBox>("lowerLimit");
    auto* upper = setting<QDoubleSpinBox>("upperLimit");
    ASSERT_NE(limitCheck, nullptr);
    ASSERT_NE(lower, nullptr);
    ASSERT_NE(upper, nullptr);
    upper->setValue(100);
    lower->setValue(10);
    limitCheck->setChecked(true);
    EXPECT_EQ(getProperty(*control("quantity")->object(), u"UpperLimit").toDouble(), 100);
    EXPECT_EQ(getProperty(*control("quantity")->object(), u"LowerLimit").toDouble(), 10);
    EXPECT_EQ(getProperty(*control("amount")->object(), u"LimitCheck").toBoolean().raw, -1);
    EXPECT_EQ(lower->maximum(), 100) << "the lower limit cannot pass the upper one";

    QWidget* amount = editOf("amount");
    QWidget* quantity = editOf("quantity");
    QTest::mouseClick(amount, Qt::LeftButton, Qt::NoModifier, amount->rect().center());
    QTest::keyClicks(amount, QStringLiteral("500"));
    QTest::mouseClick(quantity, Qt::LeftButton, Qt::NoModifier, quantity->rect().center());
    EXPECT_EQ(messageBoxes, 1);
    EXPECT_TRUE(amount->hasFocus());
    upper->setValue(1000);
    QTest::mouseClick(quantity, Qt::LeftButton, Qt::NoModifier, quantity->rect().center());
    EXPECT_EQ(messageBoxes, 1);
    EXPECT_TRUE(quantity->hasFocus());
}

TEST_F(GalleryQt, shouldSwitchTheMemoBoxScrollBars) {
    auto* bars = setting<QComboBox>("notesScrollBars");
    ASSERT_NE(bars, nullptr);
    EXPECT_EQ(bars->count(), 4);
    bars->setCurrentIndex(3);
    EXPECT_EQ(getProperty(*control("notes")->object(), u"ScrollBars").toInteger(), 3);
    EXPECT_TRUE(editOf("notes", "txtMemo(3)")->isVisible());
    EXPECT_FALSE(editOf("notes", "txtMemo(0)")->isVisible());
}

TEST_F(GalleryQt, shouldKeepTheOldValuesFileAndSayWhyWhenTheDiskIsFull) {
    ASSERT_TRUE(window.saveValues());
    const std::string old = bytesOf(window.valuesFile());
    ASSERT_FALSE(old.empty());
    letProperty(*control("newsletter")->object(), u"Value", Variant(true));
    bool saved = true;
    {
        corvex::testing::FileSizeLimit full(16);
        saved = window.saveValues();
    }
    EXPECT_FALSE(saved);
    EXPECT_EQ(bytesOf(window.valuesFile()), old);
    EXPECT_TRUE(window.statusText().startsWith(QStringLiteral("Save values failed")))
        << window.statusText().toStdString();
    EXPECT_TRUE(window.statusText().contains(QStringLiteral("File too large")));
    EXPECT_EQ(window.eventLog().last(), window.statusText());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList{QStringLiteral("gallery-values.ini")});
}

TEST_F(GalleryQt, shouldReportAFolderItCannotSaveInto) {
    QFile plain(folder.filePath(QStringLiteral("plain")));
    ASSERT_TRUE(plain.open(QIODevice::WriteOnly));
    plain.close();
    window.setValuesFile(folder.filePath(QStringLiteral("plain/gallery-values.ini")));
    EXPECT_FALSE(window.saveValues());
    EXPECT_TRUE(window.statusText().contains(QStringLiteral("Not a directory")))
        << window.statusText().toStdString();
}

TEST_F(GalleryQt, shouldKeepEveryOtherLineOfAnIniFileItSavesInto) {
    const std::string hand =
        "; kept by hand\r\n[Other]\r\nScrollBars=9\r\n[ GALLERY ]\r\nNotes = 'x' \r\n";
    corvex::testing::writeFile(QFile::encodeName(window.valuesFile()).toStdString(), hand);

    EXPECT_TRUE(window.loadValues());
    EXPECT_EQ(value("notes"), u"x");
    EXPECT_EQ(getProperty(*control("notes")->object(), u"ScrollBars").toInteger(), 0);

    letProperty(*control("notes")->object(), u"Value", Variant(u"y"));
    EXPECT_TRUE(window.saveValues()) << window.statusText().toStdString();
    const std::string after = bytesOf(window.valuesFile());
    EXPECT_EQ(after.substr(0, 63),
              "; kept by hand\r\n[Other]\r\nScrollBars=9\r\n[ GALLERY ]\r\nNotes = y\r\n");
    EXPECT_EQ(IniDocument(after).find("gallery", "newsletter"), "False");
}

TEST_F(GalleryQt, shouldChangeTheOptionGroupLiveFromItsSwitches) {
    QtControlHost* size = control("size");
    ASSERT_NE(size, nullptr);
    auto* num = qobject_cast<QSpinBox*>(window.settingsSwitch(QStringLiteral("sizeOptionNum")));
    auto* perLine =
        qobject_cast<QSpinBox*>(window.settingsSwitch(QStringLiteral("sizeOptionNumPerLine")));
    auto* captions =
        qobject_cast<QLineEdit*>(window.settingsSwitch(QStringLiteral("sizeOptionCaptions")));
    ASSERT_NE(num, nullptr);
    ASSERT_NE(perLine, nullptr);
    ASSERT_NE(captions, nullptr);
    const int oneRow = size->height();
    num->setValue(5);
    perLine->setValue(2);
    captions->setText(QStringLiteral("A|B|C|D|E"));
    EXPECT_EQ(getProperty(*size->object(), u"OptionNum").toInteger(), 5);
    EXPECT_EQ(getProperty(*size->object(), u"OptionNumPerLine").toInteger(), 2);
    auto* fifth = size->findChild<QRadioButton*>(QStringLiteral("optChildOption(4)"));
    ASSERT_NE(fifth, nullptr);
    EXPECT_EQ(fifth->text(), QStringLiteral("E"));
    EXPECT_GT(size->height(), oneRow) << "three rows need more room than one";
    EXPECT_EQ(value("size"), u"1") << "the design's default stays selected";
}

TEST_F(GalleryQt, shouldShowASingleOptionAndBothSeparators) {
    EXPECT_EQ(value("express"), u"False");
    ASSERT_NE(control("separator"), nullptr);
    ASSERT_NE(control("upright"), nullptr);
    EXPECT_EQ(getProperty(*control("upright")->object(), u"Mode").toLong(), 1);
    EXPECT_LE(control("upright")->width(), 2) << "a vertical separator keeps 25 twips";
}

TEST_F(GalleryQt, shouldAppendToALongLogAtAConstantCost) {
    auto* view = window.findChild<QPlainTextEdit*>(QStringLiteral("events"));
    ASSERT_NE(view, nullptr);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 20000; ++i) window.log(QStringLiteral("line %1").arg(i));
    QApplication::processEvents();
    // Generous: the view that laid out its whole list per line took minutes here.
    EXPECT_LT(timer.elapsed(), 30000);
    const QStringList lines = window.eventLog();
    ASSERT_EQ(lines.size(), 500);
    EXPECT_EQ(lines.first(), QStringLiteral("line 19500"));
    EXPECT_EQ(lines.last(), QStringLiteral("line 19999"));
    EXPECT_EQ(view->document()->blockCount(), 500);
    EXPECT_EQ(view->document()->lastBlock().text(), QStringLiteral("line 19999"));
}

TEST_F(GalleryQt, shouldSwitchTheFileNameModeAndShowTheNamesPartsAsTyped) {
    auto* mode = setting<QComboBox>("documentMode");
    ASSERT_NE(mode, nullptr);
    EXPECT_EQ(mode->count(), 4);
    mode->setCurrentIndex(2);
    EXPECT_EQ(getProperty(*control("document")->object(), u"Mode").toLong(), 2);
    mode->setCurrentIndex(0);
    auto* parts = setting<QLabel>("documentParts");
    ASSERT_NE(parts, nullptr);
    auto* edit = qobject_cast<QLineEdit*>(editOf("document"));
    ASSERT_NE(edit, nullptr);
    edit->setFocus();
    QTest::keyClicks(edit, QStringLiteral("C:\\Data\\report.txt"));
    EXPECT_TRUE(parts->text().contains(QStringLiteral("FilePath C:\\Data |")));
    EXPECT_TRUE(parts->text().contains(QStringLiteral("FileExtension txt |")));
    EXPECT_TRUE(parts->text().startsWith(QStringLiteral("valid")));
    QTest::keyClicks(edit, QStringLiteral("|"));
    EXPECT_TRUE(parts->text().startsWith(QStringLiteral("valid"))) << "the bar was not typed";
    QTest::keyClicks(edit, QStringLiteral(":"));
    EXPECT_TRUE(parts->text().startsWith(QStringLiteral("not valid")));
    EXPECT_EQ(messageBoxes, 0) << "reading the parts shows no box";
}

// The file dialog group: the FileDialogBox's icon and the buttons that try it, on a C:
// drive of the test's own.
class GalleryFileDialogQt : public GalleryQt {
protected:
    GalleryFileDialogQt() {
        workingFolder = QDir::currentPath();
        const std::string root = folder.path().toStdString();
        std::filesystem::create_directories(root + "/docs");
        std::ofstream(root + "/docs/a.txt") << "x";
        posix::DriveMap drives;
        drives.map(u"C:", root);
        host.setDriveMap(drives);
        letProperty(*control("fileDialog")->object(), u"InitDir", Variant(u"C:\\docs"));
    }
    ~GalleryFileDialogQt() override {
        // A dialog moves the working folder into this test's folder, which goes with it.
        QDir::setCurrent(workingFolder);
        host.fileDialogs().onCreated = {};
        if (QtFormWindow* notes = host.formWindows().find(u"frmFILEDLG")) notes->close();
    }
    // The next dialog takes name, or is cancelled for an empty one, once it runs.
    void answerDialogWith(const QString& name) {
        host.fileDialogs().onCreated = [name](QFileDialog& dialog) {
            QTimer::singleShot(0, &dialog, [&dialog, name] {
                if (name.isEmpty()) {
                    static_cast<QDialog&>(dialog).reject();
                } else {
                    dialog.selectFile(name);
                    static_cast<QDialog&>(dialog).accept();
                }
            });
        };
    }
    QPushButton* button(const char* suffix) const {
        return setting<QPushButton>((std::string("fileDialog") + suffix).c_str());
    }
    QString result() const { return setting<QLabel>("fileDialogResult")->text(); }
    QString workingFolder;
};

TEST_F(GalleryFileDialogQt, shouldShowTheFileDialogBoxAsItsIconWithItsButtons) {
    QtControlHost* box = control("fileDialog");
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->size(), box->sizeHint()) << "the icon keeps its own size";
    EXPECT_EQ(box->toolTip(), QStringLiteral("FileDialogBox"));
    for (const char* suffix : {"Open", "Save", "About", "Properties"}) {
        ASSERT_NE(button(suffix), nullptr) << suffix;
        EXPECT_TRUE(button(suffix)->isVisible()) << suffix;
    }
    EXPECT_EQ(result(), QStringLiteral("No file chosen yet"));
}

TEST_F(GalleryFileDialogQt, shouldShowTheChosenWindowsNameAfterOpen) {
    answerDialogWith(folder.filePath(QStringLiteral("docs/a.txt")));
    QTest::mouseClick(button("Open"), Qt::LeftButton);
    EXPECT_EQ(result(), QStringLiteral("FileOpen: C:\\docs\\a.txt"));
    EXPECT_TRUE(window.eventLog().contains(QStringLiteral("fileDialog.FileOpen: C:\\docs\\a.txt")));
}

TEST_F(GalleryFileDialogQt, shouldSaveUnderTheNameGivenWithTheDefaultExtension) {
    answerDialogWith(folder.filePath(QStringLiteral("docs/report")));
    QTest::mouseClick(button("Save"), Qt::LeftButton);
    EXPECT_EQ(result(), QStringLiteral("FileSave: C:\\docs\\report.txt"));
    EXPECT_EQ(getProperty(*control("fileDialog")->object(), u"Mode").toLong(), 1);
}

TEST_F(GalleryFileDialogQt, shouldSayWhenTheDialogWasCancelled) {
    answerDialogWith(QString());
    QTest::mouseClick(button("Open"), Qt::LeftButton);
    EXPECT_EQ(result(), QStringLiteral("FileOpen: cancelled"));
    EXPECT_TRUE(window.eventLog().contains(QStringLiteral("fileDialog.FileOpen: cancelled")));
}

TEST_F(GalleryFileDialogQt, shouldShowTheNotesFormFromAbout) {
    QTest::mouseClick(button("About"), Qt::LeftButton);
    QtFormWindow* notes = host.formWindows().find(u"frmFILEDLG");
    ASSERT_NE(notes, nullptr);
    EXPECT_TRUE(waitUntil([&] { return notes->surface().isVisible(); }));
    EXPECT_TRUE(window.eventLog().contains(QStringLiteral("fileDialog.ShowAbout")));
}

TEST_F(GalleryFileDialogQt, shouldOpenTheFourPagesOnTheBoxAndApplyThem) {
    QTest::mouseClick(button("Properties"), Qt::LeftButton);
    auto* dialog = window.findChild<PropertyDialog*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(waitUntil([&] { return dialog->isVisible(); }));
    ASSERT_EQ(dialog->tabs()->count(), 4);
    auto* filter =
        qobject_cast<QLineEdit*>(dialog->pageHost(0)->innerWidget(QStringLiteral("txtFilter")));
    ASSERT_NE(filter, nullptr);
    EXPECT_EQ(filter->text(), QStringLiteral("Text (*.txt)|*.txt|All (*.*)|*.*"))
        << "the pages read the gallery's own box";
    auto* title = qobject_cast<QLineEdit*>(
        dialog->pageHost(2)->innerWidget(QStringLiteral("txtDialogTitle")));
    ASSERT_NE(title, nullptr);
    title->setFocus();
    QTest::keyClicks(title, QStringLiteral("Pick one"));
    ASSERT_TRUE(dialog->applyButton()->isEnabled());
    QTest::mouseClick(dialog->applyButton(), Qt::LeftButton);
    EXPECT_EQ(getProperty(*control("fileDialog")->object(), u"DialogTitle").toString(),
              u"Pick one");
    dialog->close();
}

}  // namespace
}  // namespace corvex::qt::testing
