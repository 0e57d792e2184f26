#include "demo.h"

#include <QApplication>
#include <QCheckBox>
#include <QFileInfo>
#include <QMouseEvent>
#include <QPixmap>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTextStream>

#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"
#include "corvex/qt/form.h"
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

QString valueOf(qt::QtControlHost* control) {
    return qt::toQString(getProperty(*control->object(), u"Value").toString());
}

}  // namespace

int runDemo(GalleryWindow& window, const QString& screenshotPath) {
    QTextStream out(stdout);
    int failures = 0;
    const auto say = [&](const QString& line) { out << line << Qt::endl; };
    const auto expect = [&](qt::QtControlHost* control, const QString& wanted,
                            const QString& step) {
        const QString got = valueOf(control);
        say(QStringLiteral("%1: %2.Value = %3").arg(step, control->objectName(), got));
        if (got != wanted) {
            ++failures;
            say(QStringLiteral("  FAILED: expected %1").arg(wanted));
        }
    };
    const QMetaObject::Connection logging =
        QObject::connect(&window, &GalleryWindow::logged,
                         [&](const QString& line) { say(QStringLiteral("  event log: ") + line); });

    window.show();
    QApplication::processEvents();

    qt::QtControlHost* newsletter = window.control(QStringLiteral("newsletter"));
    qt::QtControlHost* onlyWhenEnabled = window.control(QStringLiteral("onlyWhenEnabled"));
    auto* box =
        newsletter
            ? qobject_cast<QCheckBox*>(newsletter->innerWidget(QStringLiteral("chkBooleanBox")))
            : nullptr;
    if (!newsletter || !onlyWhenEnabled || !box) {
        say(QStringLiteral("FAILED: the gallery lacks its check boxes"));
        return 1;
    }

    clickCheckBox(box);
    expect(newsletter, QStringLiteral("True"),
           QStringLiteral("Clicked the newsletter box with the mouse"));

    if (!window.saveValues()) ++failures;
    say(QStringLiteral("Saved the values to ") + window.valuesFile());

    letProperty(*newsletter->object(), u"Value", Variant(false));
    expect(newsletter, QStringLiteral("False"), QStringLiteral("Unchecked it by code"));

    if (!window.loadValues()) ++failures;
    expect(newsletter, QStringLiteral("True"), QStringLiteral("Loaded the values back"));

    window.storeAll();
    invoke(*newsletter->object(), u"Cls", CallKind::Method);
    expect(newsletter, QStringLiteral("False"), QStringLiteral("Stored, then cleared with Cls"));
    window.restoreAll();
    expect(newsletter, QStringLiteral("True"), QStringLiteral("Restored"));

    letProperty(*onlyWhenEnabled->object(), u"Value", Variant(true));
    expect(onlyWhenEnabled, QStringLiteral("True"), QStringLiteral("Checked the second box"));
    if (QCheckBox* enable = window.enableSwitch(QStringLiteral("onlyWhenEnabled")))
        enable->setChecked(false);
    expect(onlyWhenEnabled, QStringLiteral("False"),
           QStringLiteral("Disabled it with \"Enable it\""));

    window.setJapanese(true);
    say(QStringLiteral("Switched the locale to Japanese: LocaleID %1")
            .arg(window.form().host().localeId()));
    if (window.form().host().localeId() != LocaleJapanese) ++failures;

    QApplication::processEvents();
    say(window.valuesText());
    QObject::disconnect(logging);

    const QString path = QFileInfo(screenshotPath).absoluteFilePath();
    if (!window.grab().save(path, "PNG")) {
        say(QStringLiteral("FAILED: could not write the screenshot to ") + path);
        return 1;
    }
    say(QStringLiteral("Screenshot written to ") + path);
    if (failures) say(QStringLiteral("%1 step(s) FAILED").arg(failures));
    return failures ? 1 : 0;
}

}  // namespace corvex::gallery
