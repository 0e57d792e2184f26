// The system's open and save dialogs, as the dialog control calls them: one request record
// in 8-bit text, answered with the call's result and the extended error code.
#pragma once

#include <cstdint>

namespace corvex {

/// The dialog option bits, as the system's open and save dialogs read them.
namespace ofn {
inline constexpr std::int32_t ReadOnly = 0x1;                 ///< the read-only box checked
inline constexpr std::int32_t OverwritePrompt = 0x2;          ///< ask before overwriting
inline constexpr std::int32_t HideReadOnly = 0x4;             ///< no read-only box
inline constexpr std::int32_t NoChangeDir = 0x8;              ///< keep the working folder
inline constexpr std::int32_t ShowHelp = 0x10;                ///< a Help button
inline constexpr std::int32_t NoValidate = 0x100;             ///< invalid characters allowed
inline constexpr std::int32_t AllowMultiSelect = 0x200;       ///< several files at once
inline constexpr std::int32_t PathMustExist = 0x800;          ///< only existing folders
inline constexpr std::int32_t FileMustExist = 0x1000;         ///< only existing files
inline constexpr std::int32_t CreatePrompt = 0x2000;          ///< ask before creating a file
inline constexpr std::int32_t ShareAware = 0x4000;            ///< sharing violations ignored
inline constexpr std::int32_t NoReadOnlyReturn = 0x8000;      ///< read-only files refused
inline constexpr std::int32_t NoLongNames = 0x40000;          ///< short names (old style)
inline constexpr std::int32_t Explorer = 0x80000;             ///< the Explorer-style dialog
inline constexpr std::int32_t NoDereferenceLinks = 0x100000;  ///< shortcuts returned as such
inline constexpr std::int32_t LongNames = 0x200000;           ///< long names (old style)
}  // namespace ofn

/// The open-file-name request in its original 76-byte layout, field for field. Text is
/// 8-bit in the system code page (UTF-8 here); the buffers belong to the caller.
struct FileDialogRequest {
    std::uint32_t structSize = 76;       ///< the size of the original record
    std::int32_t owner = 0;              ///< the owner window's handle
    std::int32_t instance = 0;           ///< unused: 0
    const char* filter = nullptr;        ///< NUL-separated pairs ending in two NULs, or null
    char* customFilter = nullptr;        ///< unused: null
    std::uint32_t maxCustomFilter = 0;   ///< unused: 0
    std::uint32_t filterIndex = 0;       ///< the selected filter from 1; written back
    char* file = nullptr;                ///< in: the name offered; out: the chosen names
    std::uint32_t maxFile = 0;           ///< the file buffer's capacity in bytes
    char* fileTitle = nullptr;           ///< out: the chosen file's title
    std::uint32_t maxFileTitle = 0;      ///< the title buffer's capacity in bytes
    const char* initialDir = nullptr;    ///< the folder first shown
    const char* title = nullptr;         ///< the dialog's caption
    std::uint32_t flags = 0;             ///< the option bits
    std::uint16_t fileOffset = 0;        ///< out: where the first name starts in file
    std::uint16_t fileExtension = 0;     ///< out: where its extension starts in file
    const char* defExt = nullptr;        ///< the extension added to a name without one
    std::intptr_t custData = 0;          ///< unused: 0
    void* hook = nullptr;                ///< unused: null
    const char* templateName = nullptr;  ///< unused: null
};

/// Which of the two dialogs is asked for.
enum class FileDialogKind { Open, Save };

/// What the dialog call returns: nonzero when names were chosen, and on zero the extended
/// error code (0: the user cancelled).
struct FileDialogResult {
    std::int32_t result = 0;          ///< nonzero: the file buffer holds the chosen names
    std::uint32_t extendedError = 0;  ///< on a zero result: 0 for cancel, else the failure
};

/// Extended error codes a dialog reports.
namespace fde {
inline constexpr std::uint32_t BufferTooSmall = 0x3003;   ///< the names do not fit file
inline constexpr std::uint32_t InvalidFileName = 0x3002;  ///< the name offered is bad
inline constexpr std::uint32_t Initialization = 0x0002;   ///< the dialog could not start
}  // namespace fde

/// Shows the open and save dialogs. The service reads the request's inputs, writes the
/// outputs within the stated capacities, and never keeps a pointer after it returns.
class FileDialogService {
public:
    virtual ~FileDialogService() = default;
    /// Shows the dialog of kind for request and returns when it is closed.
    virtual FileDialogResult show(FileDialogKind kind, FileDialogRequest& request) = 0;
};

/// A dialog service on which every dialog is cancelled at once: what a site without one
/// answers.
FileDialogService& cancellingFileDialogs();

/// The request filled in as the system dialog fills it when the user chose text (the
/// names, NUL-separated for several): names, offsets and title copied within the buffers'
/// capacities. Returns BufferTooSmall's code when text does not fit the file buffer, 0
/// otherwise. Hosts use it to answer a request the same way.
std::uint32_t answerFileDialog(FileDialogRequest& request, const char* text, std::uint32_t length);

}  // namespace corvex
