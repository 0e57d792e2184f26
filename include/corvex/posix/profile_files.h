// The profile service on POSIX systems: INI files with the Windows profile service's
// rules, and the per-user settings store as one INI file per application.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "corvex/platform/profiles.h"

namespace corvex::posix {

/// Maps a Windows file name (drive letter, backslashes, UNC) to a native path; nullopt
/// when the name maps to no file.
using WindowsNameMapper = std::function<std::optional<std::string>(std::u16string_view)>;

/// Where INI files named without a folder and the settings store live.
struct ProfileFolders {
    std::string iniFolder;       ///< the folder of INI files named without a folder
    std::string settingsFolder;  ///< the folder of the settings store's files
};

/// The folders from the environment: CORVEX_INI_DIR and CORVEX_SETTINGS_DIR when set, else
/// $XDG_CONFIG_HOME (or ~/.config) followed by corvex/ini and corvex/settings.
ProfileFolders defaultProfileFolders();

/// The native path an INI file name names: a name without a folder lies in iniFolder, a
/// native path is used as it is, a Windows name goes through mapper; nullopt for a
/// Windows name that no mapper maps.
std::optional<std::string> resolveIniName(std::u16string_view name, const std::string& iniFolder,
                                          const WindowsNameMapper& mapper);

/// The file name (without ".ini") of an application's settings: UTF-8, with "%", "/",
/// control characters, backslashes and a leading dot as %XX, so that the name is reversible.
std::string encodeAppName(std::u16string_view app);
/// The application name a file name (without ".ini") encodes.
std::u16string decodeAppName(std::string_view fileName);

/// The profile service on the local file system. Reads are cached per file (a file
/// unchanged in inode, size and modification time is not read again); every write locks
/// the file's folder, reads the file again, changes it and replaces it atomically.
class ProfileFiles : public ProfileService {
public:
    /// A service on the given folders.
    explicit ProfileFiles(ProfileFolders folders = defaultProfileFolders());
    ~ProfileFiles() override;

    /// The folders in use.
    const ProfileFolders& folders() const;
    /// Uses other folders (the cache is emptied).
    void setFolders(ProfileFolders folders);
    /// Maps Windows file names to native ones (the file-system service's drive mapping).
    void setWindowsNameMapper(WindowsNameMapper mapper);
    /// Keeps INI files inside the INI folder: a name with a folder, or a Windows name, then
    /// names no file (for a host that runs scripts it does not trust, as the fuzzer does).
    void setConfined(bool confined);
    /// The native path of an INI file name; nullopt when it names no file.
    std::optional<std::string> iniPath(std::u16string_view name) const;
    /// The native path of an application's settings file (existing or to be made).
    std::string settingsPath(std::u16string_view app) const;
    /// How many times a file's bytes were read and parsed so far.
    std::size_t parseCount() const;
    /// How many times a file was replaced so far.
    std::size_t writeCount() const;
    /// Why the last INI write (or the last batch) could not replace its file; "" when it
    /// could. The writes themselves stay quiet, as the Windows service is.
    std::string lastWriteError() const;

    std::u16string readIni(std::u16string_view file, std::u16string_view section,
                           std::u16string_view key, std::u16string_view defaultValue) override;
    void writeIni(std::u16string_view file, std::u16string_view section, std::u16string_view key,
                  std::u16string_view value) override;
    std::optional<std::u16string> readSetting(std::u16string_view app, std::u16string_view section,
                                              std::u16string_view key) override;
    void writeSetting(std::u16string_view app, std::u16string_view section, std::u16string_view key,
                      std::u16string_view value) override;
    void beginBatch() override;
    void endBatch() override;

private:
    struct Private;
    std::unique_ptr<Private> const d;
};

/// A name or value of the settings store as its file holds it: "\", "=", brackets, ";",
/// line breaks, NUL and outer blanks of a name as \xHH; a value also in double quotes, so
/// that any text comes back as it was given.
std::string escapeSetting(std::string_view text, bool isName);
/// The text a name or value of the settings store's file holds.
std::string unescapeSetting(std::string_view text);

}  // namespace corvex::posix
