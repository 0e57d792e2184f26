// The application-wide part of the Qt host: ambient properties, message boxes, the
// clipboard and the application's title, taken from the running QApplication.
#pragma once

#include <QList>
#include <QMessageBox>
#include <QString>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "corvex/platform/ambient.h"
#include "corvex/platform/application.h"
#include "corvex/platform/clipboard.h"
#include "corvex/platform/message_box.h"
#include "corvex/posix/file_system.h"
#include "corvex/posix/profile_files.h"
#include "corvex/qt/file_dialog.h"
#include "corvex/qt/form_window.h"

namespace corvex::qt {

/// How one message-box style shows as a QMessageBox.
struct MessageBoxLayout {
    /// The icon (style & 0x70: 16 critical, 32 question, 48 warning, 64 information).
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    /// The buttons in the host's order (style & 7), with Help last when asked for.
    QList<QMessageBox::StandardButton> buttons;
    /// The default button (style & 0x300 picks the first to the fourth; the first when absent).
    QMessageBox::StandardButton defaultButton = QMessageBox::Ok;
    /// Whether a Help button is added (style & 0x4000).
    bool help = false;
    /// Whether the text is right-aligned (style & 0x80000).
    bool rightAligned = false;
    /// Whether Escape and the close box dismiss the box (only with Cancel or a lone OK).
    bool escapable = true;
    /// Whether the box stays above every window (system modal, style & 0x1000).
    bool stayOnTop = false;
    /// Whether the box is brought to the foreground and activated (style & 0x10000).
    bool foreground = false;
};

/// The QMessageBox layout of a message-box style.
MessageBoxLayout messageBoxLayout(std::int32_t style);
/// The host's answer number of a pressed button (OK 1 ... No 7); 0 for Help or none.
std::int32_t messageBoxAnswer(QMessageBox::StandardButton button);
/// A prompt as QMessageBox text: carriage returns (and CR LF pairs) become line breaks.
QString messageBoxText(std::u16string_view text);

/// The host services shared by every control of a Qt application. Create it after the
/// QApplication; it reads the application's locale, font and name at each use.
class QtHost : public Ambient, public Application, public MessageBoxService, public Clipboard {
public:
    /// Shows message boxes in place of QMessageBox (tests, unattended runs).
    using MessageBoxHandler = std::function<std::int32_t(const MessageBoxRequest&)>;
    /// Hears errors that escaped a control's code while Qt delivered user input.
    using ErrorHandler = std::function<void(const std::exception&)>;

    /// A host in run mode that follows the application's locale.
    QtHost();
    ~QtHost() override;
    QtHost(const QtHost&) = delete;
    QtHost& operator=(const QtHost&) = delete;

    /// 1041 when the locale is Japanese (or set so), 1033 otherwise.
    std::int32_t localeId() const override;
    /// Overrides the locale identifier that controls see.
    void setLocaleId(std::int32_t id);
    /// Follows the application's QLocale again.
    void resetLocaleId();
    /// Whether the controls run (true) or sit in a designer (false).
    bool userMode() const override;
    /// Sets the ambient UserMode.
    void setUserMode(bool v);
    /// The application's font (QApplication::font()).
    FontDesc font() const override;

    /// The application's display name, or its name when it has none.
    std::u16string title() const override;

    /// Shows a modal QMessageBox (or asks the handler) and returns the answer number.
    std::int32_t messageBox(const MessageBoxRequest& request) override;
    /// Routes message boxes to a handler instead of showing them; an empty one restores boxes.
    void setMessageBoxHandler(MessageBoxHandler handler);

    /// The clipboard's text.
    std::u16string text() const override;
    /// Replaces the clipboard's content by text.
    void setText(const std::u16string& text) override;

    /// The file system controls look names up in: this machine's, through the drive map.
    FileSystem& fileSystem();
    /// The drive map naming files (the user's drives.ini and CORVEX_DRIVES, unless set).
    const posix::DriveMap& driveMap() const;
    /// Replaces the drive map (for tests, or an application with drives of its own).
    void setDriveMap(posix::DriveMap map);
    /// The Windows name a dropped native path arrives as (as it is when no drive holds it).
    std::u16string droppedName(const std::string& nativePath) const;

    /// Hears errors raised by controls while handling user input (default: a Qt warning).
    void setErrorHandler(ErrorHandler handler);
    /// Reports an error that reached the Qt event loop's side of the host.
    void reportError(const std::exception& error);

    /// The INI files and settings store of the controls (folders from the environment).
    posix::ProfileFiles& profiles() { return profiles_; }
    /// The open and save dialogs (QFileDialog), naming files through the drive map.
    QtFileDialogs& fileDialogs() { return *dialogs_; }
    /// The library's own windows (the notes form), as top-level Qt windows.
    QtFormWindows& formWindows() { return *windows_; }

private:
    std::optional<std::int32_t> localeId_;
    bool userMode_ = true;
    MessageBoxHandler messageBoxHandler_;
    ErrorHandler errorHandler_;
    posix::ProfileFiles profiles_;
    std::unique_ptr<posix::PosixFileSystem> files_;
    std::unique_ptr<QtFileDialogs> dialogs_;
    // Last, so that it goes first: closing the windows still open lets their owners go
    // while the rest of the host is there.
    std::unique_ptr<QtFormWindows> windows_;
};

}  // namespace corvex::qt
