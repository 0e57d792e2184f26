// Replacing a file's content so that a failure never leaves it half written: every file
// the library writes (values, form files, INI files, the settings store, the registration
// file) goes through here.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace corvex::posix {

/// A file that could not be written: names the file, the step and the system's reason.
class FileWriteError : public std::runtime_error {
public:
    /// The write of path failed at step (for example "write") with errno error (0: none).
    FileWriteError(const std::string& path, const std::string& step, int error);
    /// The file that was to be written.
    const std::string& path() const { return path_; }
    /// The system's error number (errno), 0 when the failure had none.
    int osError() const { return osError_; }

private:
    std::string path_;
    int osError_;
};

/// Replaces the content of the file at path with bytes, all or nothing: the bytes go to a
/// new file in the same folder, which is flushed to the disk and then renamed over path.
/// On any failure the new file is removed, the old one is left exactly as it was, and
/// FileWriteError says why. A symbolic link at path is followed (its target is replaced);
/// an existing file keeps its permission bits, a new one gets 0666 less the umask.
void writeFileAtomically(const std::string& path, std::string_view bytes);

}  // namespace corvex::posix
