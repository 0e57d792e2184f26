#include "demo.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTextStream>
#include <QTimer>

#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"
#include "corvex/qt/form.h"
#include "corvex/qt/form_window.h"
#include "corvex/qt/host.h"
#include "gallery_window.h"

namespace corvex::gallery {

namespace {

// A real left click on the check box's indicator, through Qt's event delivery.
void clickCheckBox(QCheckBox* box) {
    QStyleOptionButton option;
    option.initFrom(box);
    option.text = box->text();
    const QPointF at =
        box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box).center();
    const QPointF global = box->mapToGlobal(at);
    QMouseEvent press(QEvent::MouseButtonPress, at, global, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(box, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, at, global, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QApplication::sendEvent(box, &release);
}

// Types text on a widget as the keyboard does: a key press and release per character,
// Enter for "\r", through Qt's event delivery (and so through the host's key handling).
void typeInto(QWidget* widget, const QString& text) {
    for (const QChar c : text) {
        int key = c.toUpper().unicode();
        Qt::KeyboardModifiers modifiers = c.isUpper() ? Qt::ShiftModifier : Qt::NoModifier;
        if (c == QLatin1Char('\r')) key = Qt::Key_Return;
        QKeyEvent press(QEvent::KeyPress, key, modifiers, QString(c));
        QApplication::sendEvent(widget, &press);
        QKeyEvent release(QEvent::KeyRelease, key, modifiers, QString(c));
        QApplication::sendEvent(widget, &release);
    }
}

// The gallery beside the notes form, as they stand on a screen: the form under a strip
// with its caption, since a grab shows no title bar.
QPixmap besideEachOther(QWidget& main, QWidget* notes) {
    const QPixmap left = main.grab();
    if (!notes) return left;
    const QPixmap right = notes->grab();
    const int gap = 16;
    const int strip = 24;
    QPixmap both(left.width() + gap + right.width(),
                 std::max(left.height(), right.height() + strip));
    both.fill(main.palette().color(QPalette::Window));
    QPainter painter(&both);
    painter.drawPixmap(0, 0, left);
    const QRect title(left.width() + gap, 0, right.width(), strip);
    painter.fillRect(title, main.palette().color(QPalette::Highlight));
    painter.setPen(main.palette().color(QPalette::HighlightedText));
    painter.drawText(title.adjusted(6, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     notes->windowTitle());
    painter.drawPixmap(left.width() + gap, strip, right);
    return both;
}

QString valueOf(qt::QtControlHost* control) {
    return qt::toQString(getProperty(*control->object(), u"Value").toString());
}

// A value as one printable line: line breaks as \r\n.
QString shown(QString value) {
    return value.replace(QStringLiteral("\r"), QStringLiteral("\\r"))
        .replace(QStringLiteral("\n"), QStringLiteral("\\n"));
}

// Lets Qt lay out and show until condition holds; false when it never does within a
// generous deadline.
template <class Condition>
bool settles(Condition condition) {
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > 10000) return false;
        QApplication::processEvents(QEventLoop::AllEvents, 50);
    }
    return true;
}

}  // namespace

int runDemo(GalleryWindow& window, const QString& screenshotPath) {
    // Taken now: the open dialog moves the working folder, as the system's does.
    const QString path = QFileInfo(screenshotPath).absoluteFilePath();
    QTextStream out(stdout);
    int failures = 0;
    const auto say = [&](const QString& line) { out << line << Qt::endl; };
    const auto expect = [&](qt::QtControlHost* control, const QString& wanted,
                            const QString& step) {
        const QString got = valueOf(control);
        say(QStringLiteral("%1: %2.Value = %3").arg(step, control->objectName(), shown(got)));
        if (got != wanted) {
            ++failures;
            say(QStringLiteral("  FAILED: expected %1").arg(shown(wanted)));
        }
    };
    const auto check = [&](bool ok, const QString& step) {
        say(step);
        if (!ok) {
            ++failures;
            say(QStringLiteral("  FAILED"));
        }
    };
    int messages = 0;
    const QMetaObject::Connection logging =
        QObject::connect(&window, &GalleryWindow::logged, [&](const QString& line) {
            if (line.startsWith(QStringLiteral("Message box:"))) ++messages;
            say(QStringLiteral("  event log: ") + line);
        });

    window.show();
    // Active, so that the focus moves between the boxes as a user moves it.
    QApplication::setActiveWindow(&window);
    window.activateWindow();
    QApplication::processEvents();

    qt::QtControlHost* newsletter = window.control(QStringLiteral("newsletter"));
    qt::QtControlHost* onlyWhenEnabled = window.control(QStringLiteral("onlyWhenEnabled"));
    qt::QtControlHost* amount = window.control(QStringLiteral("amount"));
    qt::QtControlHost* quantity = window.control(QStringLiteral("quantity"));
    qt::QtControlHost* notes = window.control(QStringLiteral("notes"));
    auto* box =
        newsletter
            ? qobject_cast<QCheckBox*>(newsletter->innerWidget(QStringLiteral("chkBooleanBox")))
            : nullptr;
    QWidget* amountEdit = amount ? amount->innerWidget(QStringLiteral("txtInput")) : nullptr;
    QWidget* quantityEdit = quantity ? quantity->innerWidget(QStringLiteral("txtInput")) : nullptr;
    QWidget* notesEdit = notes ? notes->innerWidget(QStringLiteral("txtMemo(0)")) : nullptr;
    auto* limitCheck =
        qobject_cast<QCheckBox*>(window.settingsSwitch(QStringLiteral("limitCheck")));
    auto* upperLimit =
        qobject_cast<QDoubleSpinBox*>(window.settingsSwitch(QStringLiteral("upperLimit")));
    auto* scrollBars =
        qobject_cast<QComboBox*>(window.settingsSwitch(QStringLiteral("notesScrollBars")));
    if (!newsletter || !onlyWhenEnabled || !box || !amountEdit || !quantityEdit || !notesEdit ||
        !limitCheck || !upperLimit || !scrollBars) {
        say(QStringLiteral("FAILED: the gallery lacks some of its controls"));
        return 1;
    }

    clickCheckBox(box);
    expect(newsletter, QStringLiteral("True"),
           QStringLiteral("Clicked the newsletter box with the mouse"));

    amountEdit->setFocus(Qt::MouseFocusReason);
    typeInto(amountEdit, QStringLiteral("1234.5"));
    expect(amount, QStringLiteral("1234.5"), QStringLiteral("Typed 1234.5 into the amount"));
    typeInto(amountEdit, QStringLiteral("x"));
    expect(amount, QStringLiteral("1234.5"), QStringLiteral("Typed x: the key filter refused it"));

    quantityEdit->setFocus(Qt::MouseFocusReason);
    typeInto(quantityEdit, QStringLiteral("-42"));
    expect(quantity, QStringLiteral("-42"), QStringLiteral("Typed -42 into the quantity"));

    notesEdit->setFocus(Qt::MouseFocusReason);
    typeInto(notesEdit, QStringLiteral("Two lines\rof notes"));
    expect(notes, QStringLiteral("Two lines\r\nof notes"),
           QStringLiteral("Typed two lines into the notes"));
    scrollBars->setCurrentIndex(2);
    check(getProperty(*notes->object(), u"ScrollBars").toInteger() == 2 &&
              notes->innerWidget(QStringLiteral("txtMemo(2)"))->isVisible(),
          QStringLiteral("Switched the notes to a vertical scroll bar: txtMemo(2) shows"));

    // Leaving a box whose value is out of range shows one message and keeps the focus.
    limitCheck->setChecked(true);
    upperLimit->setValue(1000);
    amountEdit->setFocus(Qt::MouseFocusReason);
    quantityEdit->setFocus(Qt::MouseFocusReason);
    check(messages == 1 && amountEdit->hasFocus(),
          QStringLiteral("LimitCheck 0 to 1000, tried to leave 1234.5: one message, the focus "
                         "stays (%1 message(s))")
              .arg(messages));
    upperLimit->setValue(10000);
    quantityEdit->setFocus(Qt::MouseFocusReason);
    check(messages == 1 && quantityEdit->hasFocus(),
          QStringLiteral("UpperLimit 10000: the focus moves on"));

    if (!window.saveValues()) ++failures;
    say(QStringLiteral("Saved the values to ") + window.valuesFile());

    letProperty(*newsletter->object(), u"Value", Variant(false));
    letProperty(*amount->object(), u"Value", Variant(u"0"));
    letProperty(*notes->object(), u"Value", Variant(u""));
    expect(newsletter, QStringLiteral("False"), QStringLiteral("Unchecked it by code"));
    expect(amount, QStringLiteral("0"), QStringLiteral("Set the amount by code"));

    if (!window.loadValues()) ++failures;
    expect(newsletter, QStringLiteral("True"), QStringLiteral("Loaded the values back"));
    expect(amount, QStringLiteral("1234.5"), QStringLiteral("Loaded the values back"));
    // An INI entry is one line: the notes come back with their first line.
    expect(notes, QStringLiteral("Two lines"),
           QStringLiteral("Loaded the values back (an INI entry keeps the first line)"));

    window.storeAll();
    invoke(*newsletter->object(), u"Cls", CallKind::Method);
    invoke(*quantity->object(), u"Cls", CallKind::Method);
    expect(newsletter, QStringLiteral("False"), QStringLiteral("Stored, then cleared with Cls"));
    expect(quantity, QStringLiteral(""), QStringLiteral("Stored, then cleared with Cls"));
    window.restoreAll();
    expect(newsletter, QStringLiteral("True"), QStringLiteral("Restored"));
    expect(quantity, QStringLiteral("-42"), QStringLiteral("Restored"));

    letProperty(*onlyWhenEnabled->object(), u"Value", Variant(true));
    expect(onlyWhenEnabled, QStringLiteral("True"), QStringLiteral("Checked the second box"));
    if (QCheckBox* enable = window.enableSwitch(QStringLiteral("onlyWhenEnabled")))
        enable->setChecked(false);
    expect(onlyWhenEnabled, QStringLiteral("False"),
           QStringLiteral("Disabled it with \"Enable it\""));

    // The long item widens the list past its edge: the horizontal bar comes, and goes again
    // with the item.
    qt::QtControlHost* colours = window.control(QStringLiteral("colours"));
    auto* list =
        colours ? qobject_cast<QListWidget*>(colours->innerWidget(QStringLiteral("lstListBoxEx")))
                : nullptr;
    auto* longItem =
        qobject_cast<QCheckBox*>(window.settingsSwitch(QStringLiteral("coloursLongItem")));
    if (list && longItem) {
        QScrollBar* bar = list->horizontalScrollBar();
        longItem->setChecked(true);
        check(settles([bar] { return bar->isVisible(); }),
              QStringLiteral("Added the long item: the list shows its horizontal scroll bar"));
        longItem->setChecked(false);
        check(settles([bar] { return !bar->isVisible(); }),
              QStringLiteral("Removed it: the bar is gone"));
        longItem->setChecked(true);
        settles([bar] { return bar->isVisible(); });
    } else {
        check(false, QStringLiteral("The gallery has its ListBoxEx and the Long item switch"));
    }

    window.setJapanese(true);
    say(QStringLiteral("Switched the locale to Japanese: LocaleID %1")
            .arg(window.form().host().localeId()));
    if (window.form().host().localeId() != LocaleJapanese) ++failures;

    // The file dialog: Open... with the values file chosen in the dialog, as a user
    // chooses it, then the notes form.
    qt::QtHost& host = window.form().host();
    auto* open =
        qobject_cast<QPushButton*>(window.settingsSwitch(QStringLiteral("fileDialogOpen")));
    auto* about =
        qobject_cast<QPushButton*>(window.settingsSwitch(QStringLiteral("fileDialogAbout")));
    auto* result = qobject_cast<QLabel*>(window.settingsSwitch(QStringLiteral("fileDialogResult")));
    if (!open || !about || !result) {
        say(QStringLiteral("FAILED: the gallery lacks its file dialog buttons"));
        return 1;
    }
    const QString chosenFile = window.valuesFile();
    host.fileDialogs().onCreated = [chosenFile](QFileDialog& dialog) {
        QTimer::singleShot(0, &dialog, [&dialog, chosenFile] {
            dialog.selectFile(chosenFile);
            static_cast<QDialog&>(dialog).accept();  // as the Open button does
        });
    };
    open->click();
    host.fileDialogs().onCreated = {};
    const std::u16string windowsName = host.droppedName(chosenFile.toStdString());
    check(result->text() == QStringLiteral("FileOpen: ") + qt::toQString(windowsName),
          QStringLiteral("Chose the values file in the open dialog: ") + result->text());
    about->click();
    qt::QtFormWindow* notesForm = host.formWindows().find(u"frmFILEDLG");
    QWidget* notesWindow = notesForm ? &notesForm->surface() : nullptr;
    check(notesWindow && notesWindow->isVisible(),
          QStringLiteral("Showed the notes form with About (ShowAbout)"));
    if (notesWindow) notesWindow->resize(440, 560);

    QApplication::processEvents();
    say(window.valuesText());
    QObject::disconnect(logging);

    if (!besideEachOther(window, notesWindow).save(path, "PNG")) {
        say(QStringLiteral("FAILED: could not write the screenshot to ") + path);
        return 1;
    }
    say(QStringLiteral("Screenshot written to ") + path);
    if (failures) say(QStringLiteral("%1 step(s) FAILED").arg(failures));
    return failures ? 1 : 0;
}

}  // namespace corvex::gallery
