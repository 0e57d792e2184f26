// The per-user registration file: where registering the library writes, read and replaced
// atomically so that a failed registration leaves the file as it was.
#pragma once

#include <string>
#include <string_view>

namespace corvex::posix {

/// The registration file: $CORVEX_REGISTRATION_FILE when set, else
/// $XDG_CONFIG_HOME/corvex/registrations.ini, else ~/.config/corvex/registrations.ini.
/// Raises FileWriteError when there is no home to put it in.
std::string registrationFilePath();

/// Registers the library at libraryPath in the file at path, creating the file and its
/// folder when missing; a file that already says all of it is not written again. Returns
/// whether the file changed. Raises FileWriteError when the file cannot be read or written.
bool registerInFile(const std::string& path, std::string_view libraryPath);

/// Takes out of the file at path exactly what registering writes; a file without those
/// entries (or no file) is left alone. Returns whether the file changed.
bool unregisterFromFile(const std::string& path);

/// The path of the loaded file that holds the library's code (the shared library, or the
/// program it is linked into), made absolute.
std::string libraryFilePath();

}  // namespace corvex::posix
