#include "corvex/qt/host.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QTimer>
#include <QUrl>
#include <QtDebug>

#include "corvex/common/text.h"
#include "corvex/qt/convert.h"

namespace corvex::qt {

MessageBoxLayout messageBoxLayout(std::int32_t style) {
    MessageBoxLayout layout;
    switch (style & 0x70) {
        case 16:
            layout.icon = QMessageBox::Critical;
            break;
        case 32:
            layout.icon = QMessageBox::Question;
            break;
        case 48:
            layout.icon = QMessageBox::Warning;
            break;
        case 64:
            layout.icon = QMessageBox::Information;
            break;
        default:
            layout.icon = QMessageBox::NoIcon;
            break;
    }
    switch (style & 7) {
        case 1:
            layout.buttons = {QMessageBox::Ok, QMessageBox::Cancel};
            break;
        case 2:
            layout.buttons = {QMessageBox::Abort, QMessageBox::Retry, QMessageBox::Ignore};
            break;
        case 3:
            layout.buttons = {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
            break;
        case 4:
            layout.buttons = {QMessageBox::Yes, QMessageBox::No};
            break;
        case 5:
            layout.buttons = {QMessageBox::Retry, QMessageBox::Cancel};
            break;
        default:
            layout.buttons = {QMessageBox::Ok};
            break;
    }
    // The host's boxes can be dismissed without a choice only when Cancel (or a lone OK)
    // says what that means.
    layout.escapable = layout.buttons.size() == 1 || layout.buttons.contains(QMessageBox::Cancel);
    layout.help = (style & mb::HelpButton) != 0;
    if (layout.help) layout.buttons.append(QMessageBox::Help);
    layout.rightAligned = (style & mb::RightAligned) != 0;
    // A system-modal box is kept above every other window, as the host keeps its own.
    layout.stayOnTop = (style & mb::SystemModal) != 0;
    layout.foreground = (style & mb::Foreground) != 0;
    const int index = (style & 0x300) >> 8;
    layout.defaultButton =
        index < layout.buttons.size() ? layout.buttons[index] : layout.buttons[0];
    return layout;
}

std::int32_t messageBoxAnswer(QMessageBox::StandardButton button) {
    switch (button) {
        case QMessageBox::Ok:
            return 1;
        case QMessageBox::Cancel:
            return 2;
        case QMessageBox::Abort:
            return 3;
        case QMessageBox::Retry:
            return 4;
        case QMessageBox::Ignore:
            return 5;
        case QMessageBox::Yes:
            return 6;
        case QMessageBox::No:
            return 7;
        default:
            return 0;
    }
}

QString messageBoxText(std::u16string_view text) {
    QString s = toQString(text);
    s.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    s.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return s;
}

namespace {

// Keeps a box without Cancel open against Escape and the window's close box, as the
// host's own boxes are: the user has to choose one of the buttons.
class KeepOpen : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Close) {
            event->ignore();
            return true;
        }
        if (event->type() == QEvent::KeyPress &&
            static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
            return true;
        }
        return QObject::eventFilter(watched, event);
    }
};

}  // namespace

QtHost::QtHost()
    : files_(std::make_unique<posix::PosixFileSystem>()),
      dialogs_(std::make_unique<QtFileDialogs>(
          [this]() -> const posix::DriveMap& { return files_->driveMap(); })),
      windows_(std::make_unique<QtFormWindows>(*this)) {
    // INI files named the Windows way lie where the drive map puts them.
    profiles_.setWindowsNameMapper(
        [this](std::u16string_view name) { return files_->nativePathFor(name); });
    // The dialogs' own questions follow the controls' language.
    dialogs_->japanese = [this] { return localeId() == LocaleJapanese; };
}
QtHost::~QtHost() = default;

FileSystem& QtHost::fileSystem() {
    return *files_;
}

const posix::DriveMap& QtHost::driveMap() const {
    return files_->driveMap();
}

void QtHost::setDriveMap(posix::DriveMap map) {
    files_ = std::make_unique<posix::PosixFileSystem>(std::move(map));
}

std::u16string QtHost::droppedName(const std::string& nativePath) const {
    return driveMap().toWindows(nativePath).value_or(fromUtf8(nativePath));
}

std::int32_t QtHost::localeId() const {
    if (localeId_) return *localeId_;
    return QLocale().language() == QLocale::Japanese ? LocaleJapanese : LocaleEnglishUS;
}

void QtHost::setLocaleId(std::int32_t id) {
    localeId_ = id;
}

void QtHost::resetLocaleId() {
    localeId_.reset();
}

bool QtHost::userMode() const {
    return userMode_;
}

void QtHost::setUserMode(bool v) {
    userMode_ = v;
}

FontDesc QtHost::font() const {
    return fromQFont(QApplication::font());
}

std::u16string QtHost::title() const {
    QString name = QGuiApplication::applicationDisplayName();
    if (name.isEmpty()) name = QCoreApplication::applicationName();
    return fromQString(name);
}

std::int32_t QtHost::messageBox(const MessageBoxRequest& request) {
    if (messageBoxHandler_) return messageBoxHandler_(request);

    const MessageBoxLayout layout = messageBoxLayout(request.style);
    QMessageBox box(QApplication::activeWindow());
    box.setIcon(layout.icon);
    box.setWindowTitle(toQString(request.title.empty() ? title() : request.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(messageBoxText(request.text));
    QMessageBox::StandardButtons buttons;
    for (QMessageBox::StandardButton b : layout.buttons) buttons |= b;
    box.setStandardButtons(buttons);
    box.setDefaultButton(layout.defaultButton);
    if (layout.rightAligned) {
        if (auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
            label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        }
    }
    KeepOpen keepOpen;
    if (!layout.escapable) box.installEventFilter(&keepOpen);
    if (layout.stayOnTop) box.setWindowFlag(Qt::WindowStaysOnTopHint, true);
    if (layout.foreground) {
        // Raised and activated once shown, even when the application is in the background.
        QTimer::singleShot(0, &box, [&box] {
            box.raise();
            box.activateWindow();
        });
    }

    for (;;) {
        box.exec();
        QAbstractButton* clicked = box.clickedButton();
        const auto pressed = clicked ? box.standardButton(clicked)
                                     : QMessageBox::StandardButton(QMessageBox::NoButton);
        if (pressed == QMessageBox::Help) {
            // Help opens the help file and leaves the box up for the real answer.
            if (!request.helpFile.empty()) {
                QDesktopServices::openUrl(QUrl::fromLocalFile(toQString(request.helpFile)));
            }
            continue;
        }
        if (const std::int32_t answer = messageBoxAnswer(pressed)) return answer;
        // Dismissed without a button (Escape or the close box): the Cancel answer.
        return layout.buttons.contains(QMessageBox::Cancel) ? messageBoxAnswer(QMessageBox::Cancel)
                                                            : messageBoxAnswer(layout.buttons[0]);
    }
}

void QtHost::setMessageBoxHandler(MessageBoxHandler handler) {
    messageBoxHandler_ = std::move(handler);
}

std::u16string QtHost::text() const {
    return fromQString(QGuiApplication::clipboard()->text());
}

void QtHost::setText(const std::u16string& text) {
    QGuiApplication::clipboard()->setText(toQString(text));
}

void QtHost::setErrorHandler(ErrorHandler handler) {
    errorHandler_ = std::move(handler);
}

void QtHost::reportError(const std::exception& error) {
    if (errorHandler_) {
        errorHandler_(error);
        return;
    }
    qWarning("corvex: unhandled error in a control: %s", error.what());
}

}  // namespace corvex::qt
