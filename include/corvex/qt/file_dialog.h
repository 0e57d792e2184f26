// The Qt host's open and save dialogs: a QFileDialog set up from the request record, its
// answer written back as the system dialog writes it, names given the Windows way.
#pragma once

#include <functional>

#include "corvex/platform/file_dialog.h"
#include "corvex/posix/drive_map.h"

class QFileDialog;

namespace corvex::qt {

/// Shows a modal QFileDialog for every request.
class QtFileDialogs : public FileDialogService {
public:
    /// Dialogs that name files through the drive map that map gives at each dialog.
    explicit QtFileDialogs(std::function<const posix::DriveMap&()> map) : map_(std::move(map)) {}
    FileDialogResult show(FileDialogKind kind, FileDialogRequest& request) override;
    /// Called with each dialog once it is set up, before it runs (tests drive it from here).
    std::function<void(QFileDialog&)> onCreated;

private:
    std::function<const posix::DriveMap&()> map_;
};

}  // namespace corvex::qt
