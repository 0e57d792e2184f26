// Where Windows names lie on a POSIX system: each drive letter and each UNC share that the
// user maps names a folder. Z: is / unless the user says otherwise.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvex::posix {

/// A Windows name split at its mapped prefix: the native folder and the elements after it.
struct SplitName {
    std::string root;                      ///< the native folder of the drive or share
    std::vector<std::u16string> elements;  ///< the elements after it ("." and ".." kept)
    bool folderOnly = false;               ///< the name ends in a separator
};

/// Drive letters and UNC shares mapped onto native folders.
class DriveMap {
public:
    /// Z: mapped to /, nothing else.
    DriveMap();
    /// Z: to /, then the user's configuration file, then CORVEX_DRIVES (later wins).
    static DriveMap forUser();
    /// The user's configuration file: $XDG_CONFIG_HOME/corvex/drives.ini, else
    /// ~/.config/corvex/drives.ini ("" when neither can be named).
    static std::string configurationPath();

    /// Maps "C", "C:" or "\\server\share" to an absolute folder; an empty folder unmaps.
    /// Returns false, changing nothing, for a prefix or folder it cannot take.
    bool map(std::u16string_view prefix, const std::string& folder);
    /// Takes the KEY=FOLDER lines of a configuration text (sections and ; # comments
    /// ignored); returns how many lines were refused.
    int readConfiguration(std::string_view text);
    /// Takes a CORVEX_DRIVES value, KEY=FOLDER pairs separated by ";"; returns how many
    /// pairs were refused.
    int readVariable(std::string_view value);

    /// The folder a prefix maps to; nothing when it is unmapped.
    std::optional<std::string> folderOf(std::u16string_view prefix) const;
    /// The native folder and elements of a Windows name, without looking anything up;
    /// nothing for an unmapped drive or share. A relative name is relative to ".".
    std::optional<SplitName> split(std::u16string_view windowsName) const;
    /// The native path of a Windows name as written (no case matching); nothing when its
    /// drive or share is unmapped.
    std::optional<std::string> toNative(std::u16string_view windowsName) const;
    /// The Windows name of a native path (made absolute against the current folder) under
    /// the mapping with the longest folder that holds it; nothing when none does.
    std::optional<std::u16string> toWindows(std::string_view nativePath) const;

private:
    struct Mapping {
        std::u16string prefix;  // "C:" or "\\server\share"
        std::string folder;     // absolute, without a trailing "/" except for "/" itself
    };
    std::vector<Mapping> mappings_;
};

/// Whether two names are the same without regard to case, as Windows compares them
/// (ASCII, Latin-1, Greek, Cyrillic and full-width Latin letters fold).
bool sameNameIgnoringCase(std::u16string_view a, std::u16string_view b);

}  // namespace corvex::posix
