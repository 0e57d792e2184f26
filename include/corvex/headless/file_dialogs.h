// The headless host's open and save dialogs: each one answers from a queue that a test
// or script fills, and is recorded as shown.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "corvex/platform/file_dialog.h"

namespace corvex::headless {

/// A file dialog as it was shown: the request's fields, in 8-bit text.
struct ShownFileDialog {
    FileDialogKind kind = FileDialogKind::Open;  ///< open or save
    std::int32_t owner = 0;                      ///< the owner window's handle
    std::uint32_t flags = 0;                     ///< the option bits
    std::string filter;  ///< the list as handed over, its final two NULs included ("" for none)
    std::uint32_t filterIndex = 0;  ///< the filter index
    std::string file;               ///< the file buffer up to its first NUL
    std::uint32_t size = 0;         ///< the file buffer's capacity
    std::string initDir;            ///< the initial folder
    std::string title;              ///< the title
    std::string defExt;             ///< the default extension
};

/// How the next dialog ends.
struct ScriptedDialogAnswer {
    /// The user chose names, cancelled, or the dialog failed.
    enum class Kind { Ok, Cancel, Fail };
    Kind kind = Kind::Cancel;                  ///< how it ends
    std::string text;                          ///< Ok: the names (NUL between several)
    std::optional<std::uint32_t> filterIndex;  ///< Ok: the filter index left (none: as given)
    std::uint32_t code = 0;                    ///< Fail: the extended error code
};

/// Dialogs answered from a queue; with nothing queued a dialog is cancelled.
class ScriptedFileDialogs : public FileDialogService {
public:
    /// Queues the answer of a later dialog.
    void queue(ScriptedDialogAnswer answer) { answers_.push_back(std::move(answer)); }
    /// Every dialog shown so far.
    const std::vector<ShownFileDialog>& shown() const { return shown_; }
    /// Called for each dialog as it is shown, before it is answered.
    std::function<void(const ShownFileDialog&)> onShown;

    FileDialogResult show(FileDialogKind kind, FileDialogRequest& request) override;

private:
    std::deque<ScriptedDialogAnswer> answers_;
    std::vector<ShownFileDialog> shown_;
};

/// The fields of a request as a shown dialog records them.
ShownFileDialog describeRequest(FileDialogKind kind, const FileDialogRequest& request);

}  // namespace corvex::headless
