#include <algorithm>
#include <cstring>
#include <string_view>

#include "corvex/platform/file_dialog.h"

namespace corvex {

namespace {

class CancellingFileDialogs : public FileDialogService {
public:
    FileDialogResult show(FileDialogKind, FileDialogRequest&) override { return {0, 0}; }
};

// Where the last name element of path starts (after its last backslash or slash).
std::size_t nameStart(std::string_view path) {
    const auto slash = path.find_last_of("\\/");
    return slash == std::string_view::npos ? 0 : slash + 1;
}

}  // namespace

FileDialogService& cancellingFileDialogs() {
    static CancellingFileDialogs service;
    return service;
}

std::uint32_t answerFileDialog(FileDialogRequest& r, const char* text, std::uint32_t length) {
    const std::string_view chosen(text, length);
    const auto firstNul = chosen.find('\0');
    const bool several = firstNul != std::string_view::npos;
    // Several names end in two NULs, one name in one.
    const std::size_t needed = chosen.size() + (several ? 2 : 1);
    if (!r.file || needed > r.maxFile || chosen.size() > 0xFFFF) return fde::BufferTooSmall;
    std::memcpy(r.file, chosen.data(), chosen.size());
    r.file[chosen.size()] = '\0';
    if (several) r.file[chosen.size() + 1] = '\0';

    std::string_view title;
    if (several) {
        // The folder, then the names: the offset points at the first name, and the
        // title is left empty, as there is no one file to name.
        r.fileOffset = static_cast<std::uint16_t>(firstNul + 1);
        r.fileExtension = 0;
    } else {
        const std::size_t start = nameStart(chosen);
        r.fileOffset = static_cast<std::uint16_t>(start);
        title = chosen.substr(start);
        const auto dot = title.find_last_of('.');
        // No extension: the offset of the terminating NUL.
        r.fileExtension = static_cast<std::uint16_t>(
            dot == std::string_view::npos ? chosen.size() : start + dot + 1);
    }
    if (r.fileTitle && r.maxFileTitle > 0) {
        const std::size_t n = std::min<std::size_t>(title.size(), r.maxFileTitle - 1);
        if (n > 0) std::memcpy(r.fileTitle, title.data(), n);  // an empty title has no data
        r.fileTitle[n] = '\0';
    }
    return 0;
}

}  // namespace corvex
