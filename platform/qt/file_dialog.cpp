#include "corvex/qt/file_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <cstring>
#include <string>

#include "corvex/common/text.h"

namespace corvex::qt {

namespace {

constexpr std::uint32_t FileMustExist = 0x1000;
constexpr std::uint32_t AllowMultiSelect = 0x200;
constexpr std::uint32_t OverwritePrompt = 0x2;
constexpr std::uint32_t CreatePrompt = 0x2000;
constexpr std::uint32_t NoChangeDir = 0x8;

QString text(const char* p) {
    return p ? QString::fromUtf8(p) : QString();
}

// "Text (*.txt)" with "*.txt" becomes Qt's "Text (*.txt) (*.txt)"; patterns separated
// by ";" become blanks.
QStringList nameFilters(const char* list) {
    QStringList out;
    if (!list) return out;
    while (*list) {
        const QString description = QString::fromUtf8(list);
        list += std::strlen(list) + 1;
        QString pattern = QString::fromUtf8(list);
        if (*list) list += std::strlen(list) + 1;
        out << description + " (" + pattern.replace(';', ' ') + ")";
    }
    return out;
}

}  // namespace

FileDialogResult QtFileDialogs::show(FileDialogKind kind, FileDialogRequest& r) {
    const posix::DriveMap& drives = map_();
    const QString workingFolder = QDir::currentPath();
    QFileDialog dialog;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setWindowTitle(text(r.title));
    const QString initial = text(r.initialDir);
    if (!initial.isEmpty()) {
        const auto native = drives.toNative(initial.toStdU16String());
        if (native) dialog.setDirectory(QString::fromStdString(*native));
    }
    const QStringList filters = nameFilters(r.filter);
    if (!filters.isEmpty()) {
        dialog.setNameFilters(filters);
        const int index = static_cast<int>(r.filterIndex);
        dialog.selectNameFilter(filters.value(index >= 1 ? index - 1 : 0));
    }
    dialog.setDefaultSuffix(text(r.defExt));
    if (kind == FileDialogKind::Save) {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setFileMode(QFileDialog::AnyFile);
        dialog.setOption(QFileDialog::DontConfirmOverwrite, !(r.flags & OverwritePrompt));
    } else if (r.flags & AllowMultiSelect) {
        dialog.setFileMode(QFileDialog::ExistingFiles);
    } else {
        dialog.setFileMode((r.flags & FileMustExist) ? QFileDialog::ExistingFile
                                                     : QFileDialog::AnyFile);
    }
    const QString offered = r.file ? QString::fromUtf8(r.file) : QString();
    if (!offered.isEmpty()) {
        const auto native = drives.toNative(offered.toStdU16String());
        if (native) dialog.selectFile(QString::fromStdString(*native));
    }
    if (onCreated) onCreated(dialog);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    if (r.flags & NoChangeDir) QDir::setCurrent(workingFolder);
    if (!accepted) return {0, 0};
    r.filterIndex = static_cast<std::uint32_t>(filters.indexOf(dialog.selectedNameFilter()) + 1);
    const QStringList chosen = dialog.selectedFiles();
    if (chosen.isEmpty()) return {0, 0};
    if ((r.flags & CreatePrompt) && kind == FileDialogKind::Open && chosen.size() == 1 &&
        !QFileInfo::exists(chosen.front())) {
        const auto answer = QMessageBox::question(
            nullptr, dialog.windowTitle(), chosen.front() + "\n" + QObject::tr("Create it?"));
        if (answer != QMessageBox::Yes) return {0, 0};
    }
    std::string names;
    for (int i = 0; i < chosen.size(); ++i) {
        const auto windows = drives.toWindows(chosen[i].toStdString());
        if (!windows) return {0, fde::InvalidFileName};  // no drive holds it
        if (chosen.size() == 1) {
            names = toUtf8(*windows);
            break;
        }
        // Several: the folder once, then each name after a NUL.
        const std::u16string& w = *windows;
        const auto slash = w.find_last_of(u'\\');
        if (i == 0) names = toUtf8(w.substr(0, slash));
        names += '\0';
        names += toUtf8(w.substr(slash + 1));
    }
    const std::uint32_t error =
        answerFileDialog(r, names.data(), static_cast<std::uint32_t>(names.size()));
    return error ? FileDialogResult{0, error} : FileDialogResult{1, 0};
}

}  // namespace corvex::qt
