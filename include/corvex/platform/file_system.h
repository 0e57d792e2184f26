// The file-system lookups the file-name rules make, on Windows names. A host answers them
// for its own system: the POSIX service maps drive letters and UNC shares onto folders.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace corvex {

/// Windows-style attribute bits, as the file-name rules read them.
namespace fileattr {
inline constexpr std::int32_t ReadOnly = 1;       ///< the user cannot write it
inline constexpr std::int32_t Hidden = 2;         ///< hidden from plain listings
inline constexpr std::int32_t System = 4;         ///< belongs to the system
inline constexpr std::int32_t Directory = 16;     ///< a folder
inline constexpr std::int32_t Archive = 32;       ///< a file (marked for backup)
inline constexpr std::int32_t Compressed = 2048;  ///< stored compressed
}  // namespace fileattr

/// Looks Windows file and folder names up. No member throws: a failure is an empty answer.
class FileSystem {
public:
    virtual ~FileSystem() = default;
    /// The stored spelling of name's last element when an entry matches; hidden, system
    /// and folder entries match only when mask holds their bit. Nothing when none does.
    virtual std::optional<std::u16string> findFirst(std::u16string_view name,
                                                    std::int32_t mask) = 0;
    /// The attribute word of name; nothing when it cannot be read.
    virtual std::optional<std::int32_t> attributes(std::u16string_view name) = 0;
    /// The short form of an 8-bit path as the system's call gives it: its length when it
    /// fits buffer (written there), the size needed with the terminator when it does not
    /// (buffer untouched), 0 on failure.
    virtual std::uint32_t shortPathName(std::string_view longPath, std::span<char> buffer) = 0;
};

/// A file system in which nothing exists: what a site without one answers.
FileSystem& emptyFileSystem();

}  // namespace corvex
