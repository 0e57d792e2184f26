// Windows names answered for real files on a POSIX system: drives and shares through the
// user's drive map, each element matched without regard to case, Windows-style attributes.
#pragma once

#include <memory>

#include "corvex/platform/file_system.h"
#include "corvex/posix/drive_map.h"

namespace corvex::posix {

/// The file system of a POSIX host, for Windows names.
class PosixFileSystem final : public FileSystem {
public:
    /// A service mapping names through map.
    explicit PosixFileSystem(DriveMap map = DriveMap::forUser());
    ~PosixFileSystem() override;

    std::optional<std::u16string> findFirst(std::u16string_view name, std::int32_t mask) override;
    std::optional<std::int32_t> attributes(std::u16string_view name) override;
    std::uint32_t shortPathName(std::string_view longPath, std::span<char> buffer) override;

    /// The native path a Windows name names, each element in its stored spelling; nothing
    /// when an element is missing or cannot be looked at.
    std::optional<std::string> resolve(std::u16string_view name) const;
    /// The native path for a Windows name about to be read or written: the existing
    /// entry in its stored spelling, else the name mapped as written (a file not yet made);
    /// nothing when its drive or share is unmapped.
    std::optional<std::string> nativePathFor(std::u16string_view name) const;
    /// The drive map in use.
    const DriveMap& driveMap() const;

private:
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex::posix
