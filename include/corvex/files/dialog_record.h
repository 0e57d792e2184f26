// The dialog control's request record and the memory behind it: built field for field
// from the control's settings, read back after the call, and released with it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "corvex/platform/file_dialog.h"

namespace corvex {

/// The control's settings that go into a request.
struct DialogSettings {
    std::int32_t owner = 0;        ///< the owner window's handle
    std::u16string filter;         ///< pairs separated by "|"
    std::int16_t filterIndex = 0;  ///< the selected filter
    std::u16string fileName;       ///< the name offered
    std::int32_t maxFileSize = 0;  ///< the capacity for names, in characters
    std::u16string initDir;        ///< the folder first shown
    std::u16string title;          ///< the dialog's caption
    std::int32_t flags = 0;        ///< the option bits
    std::u16string defaultExt;     ///< the default extension
};

/// What a dialog leaves for the control to read.
struct DialogAnswer {
    std::u16string fileName;       ///< the chosen name(s), as the control keeps them
    std::u16string fileTitle;      ///< the title buffer's text
    std::int16_t filterIndex = 0;  ///< the filter index as the record holds it
};

/// One request record and every block it points to. The blocks are taken when the record
/// is built and released when it goes, whichever way the call ends.
class DialogRecord {
public:
    /// Builds the record. Raises 380 for a MaxFileSize below 1 or too large for a buffer,
    /// 20476 when FileName does not fit its buffer, 32752 when memory runs out.
    explicit DialogRecord(const DialogSettings& settings);
    ~DialogRecord();
    DialogRecord(const DialogRecord&) = delete;
    DialogRecord& operator=(const DialogRecord&) = delete;

    /// The record handed to the dialog.
    FileDialogRequest& request();
    /// Reads the record back: the names as the control keeps them (several names of an
    /// Explorer-style multi-selection as the folder and names separated by NULs), the
    /// title and the filter index. Reads never pass a buffer's end.
    DialogAnswer readBack() const;

    /// The blocks taken by all records and not yet released (for checks).
    static std::size_t liveBlocks();

private:
    struct Private;
    std::unique_ptr<Private> const d;
};

/// The filter list as the record holds it: every "|" a NUL, and one more NUL at the end.
std::string dialogFilter(std::u16string_view filter);

}  // namespace corvex
