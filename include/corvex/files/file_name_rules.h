// The rules for Windows file and folder names that FileNameBox applies: the syntax check,
// the existence check, the whole validation by mode, and the name's decomposition.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "corvex/common/messages.h"
#include "corvex/platform/file_system.h"

namespace corvex::files {

/// Message codes of the file-name rules.
namespace code {
inline constexpr int TooLong = 1001;           ///< more than 255 characters
inline constexpr int BadCharacter = 1002;      ///< invalid character, first line
inline constexpr int NotForWindows = 1003;     ///< invalid character, second line
inline constexpr int BackslashRun = 1004;      ///< three backslashes in a row
inline constexpr int Colons = 1005;            ///< two or more colons
inline constexpr int NoRootAfterDrive = 1006;  ///< no backslash after the drive
inline constexpr int BlankElement = 1007;      ///< a path element of blanks only
inline constexpr int SelectFolder = 1008;      ///< a file where a folder is required
inline constexpr int SelectFile = 1009;        ///< a folder where a file is required
inline constexpr int NotFound = 1010;          ///< the name does not exist
inline constexpr int NoAttributes = 1011;      ///< its attributes could not be read
inline constexpr int UncWithDrive = 1012;      ///< a UNC name holding a colon
inline constexpr int DriveNotLetter = 1013;    ///< first character neither letter nor '\'
}  // namespace code

/// What an existence check found.
namespace kind {
inline constexpr std::int16_t Unusable = 0;  ///< not found, or attributes unreadable
inline constexpr std::int16_t File = 1;      ///< a file
inline constexpr std::int16_t Folder = 2;    ///< a folder
inline constexpr std::int16_t Empty = 3;     ///< the name is empty
}  // namespace kind

/// The table of the file-name messages (common codes included).
const MessageTable& messages();
/// The eight characters a name may not hold: / < > ? | * ' and the double quote.
std::u16string invalidCharacters();

/// What the rules need from the control they check for.
class FileNameEnv {
public:
    virtual ~FileNameEnv() = default;
    /// Where names are looked up.
    virtual FileSystem& fileSystem() = 0;
    /// The text of a message code in the locale's language, read at this moment.
    virtual std::u16string messageText(int code) = 0;
    /// Shows a modal box with an OK button: text, icon style, title code.
    virtual void showMessage(const std::u16string& text, std::int32_t style, int titleCode) = 0;
};

/// The control's settings the checks read.
struct FileNameSettings {
    bool messageShow = true;      ///< show warnings in message boxes
    std::int32_t mode = 0;        ///< the CheckExistsMode value
    std::u16string invalidChars;  ///< empty until the control has read its properties
};

/// The syntax check; shows its warnings (several in turn) when messageShow is set.
bool checkSyntax(std::u16string_view name, const FileNameSettings& s, FileNameEnv& env);
/// The existence check, giving a kind; warns when messageShow is set.
std::int16_t checkExistence(std::u16string_view name, const FileNameSettings& s, FileNameEnv& env);
/// The whole validation of a text: syntax, then existence by mode. Empty is valid.
bool validate(std::u16string_view text, const FileNameSettings& s, FileNameEnv& env);

/// Blank handling: 0 removes all, 1 folds runs, 2 trims, 3 trims left, 4 trims right,
/// anything else gives "".
std::u16string processSpaces(std::u16string_view text, std::int16_t how);
/// Everything before the last "." of the whole text; the text itself when it has none.
std::u16string stripExtension(std::u16string_view text);
/// The 1-based position of the last ch in text; 0 when there is none.
std::int32_t lastPosition(std::u16string_view text, char16_t ch);

/// The 1-based position of the last ch in a text that validates; 0 when it does not
/// validate (its warnings shown), when it is empty, or when it holds no ch.
std::int32_t lastCharPosition(std::u16string_view text, char16_t ch, const FileNameSettings& s,
                              FileNameEnv& env);

/// The name's parts, defined on a text already validated.
enum class Part { Name, Drive, Path, Title, Extension, PathBody, Body };
/// One part of a name (no validation, no lookup).
std::u16string part(std::u16string_view text, Part which);

/// The short form through the 260-character buffer of the system's call ("" on failure).
std::u16string shortName(std::u16string_view text, FileSystem& fs);
/// Each element in the spelling the file system stores ("" when one is missing).
std::u16string longName(std::u16string_view text, FileSystem& fs);

}  // namespace corvex::files
