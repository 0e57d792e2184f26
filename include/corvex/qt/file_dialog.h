// The Qt host's open and save dialogs: a QFileDialog set up from the request record, its
// answer written back as the system dialog writes it, names given the Windows way.
#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>

#include "corvex/platform/file_dialog.h"
#include "corvex/posix/drive_map.h"

class QFileDialog;

namespace corvex::qt {

/// The Qt name filters of a NUL-separated filter list (description, pattern, ...). Each
/// becomes "description (patterns)" with ";" turned into blanks and "*.*" into "*"; the
/// dialog shows the description alone, as the system dialog does.
QStringList dialogNameFilters(const char* list);

/// Shows a modal QFileDialog for every request.
///
/// The option bits that act: FileMustExist (existing files only), AllowMultiSelect
/// (several existing files, open only), OverwritePrompt (save), CreatePrompt (a question
/// before a missing file is taken; "No" keeps the dialog open), PathMustExist (the folder
/// must exist), NoReadOnlyReturn (a file that cannot be written is refused), NoChangeDir
/// (the working folder is left as it was; without it the working folder becomes the one
/// the dialog was in), ShowHelp (a Help button explaining what the dialog expects) and
/// NoDereferenceLinks (links are not followed). The others have no meaning here.
class QtFileDialogs : public FileDialogService {
public:
    /// Dialogs that name files through the drive map that map gives at each dialog.
    explicit QtFileDialogs(std::function<const posix::DriveMap&()> map) : map_(std::move(map)) {}
    FileDialogResult show(FileDialogKind kind, FileDialogRequest& request) override;
    /// Called with each dialog once it is set up, before it runs (tests drive it from here).
    std::function<void(QFileDialog&)> onCreated;
    /// Whether the dialog's own questions are asked in Japanese (default: never).
    std::function<bool()> japanese;

private:
    std::function<const posix::DriveMap&()> map_;
};

}  // namespace corvex::qt
