// What registering the library writes into the per-user registration file, and how
// unregistering takes exactly that out again.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "corvex/library/ini_file.h"

namespace corvex {

/// The library's file version, as registration records it.
inline constexpr const char* LibraryFileVersion = "1.0.0.4";
/// The type library's version.
inline constexpr const char* TypeLibraryVersion = "1.3";
/// The type library's locale.
inline constexpr const char* TypeLibraryLocale = "0x409";

/// One entry of the registration file: a key in a section.
struct RegistrationEntry {
    std::string section;  ///< "TypeLib\\{…}\\1.3", "CLSID\\{…}" or "Interface\\{…}"
    std::string key;      ///< the entry's name
    std::string value;    ///< its value
};

/// Every entry registering the library at libraryPath writes: the type library, then each
/// public class in the library's order with its interfaces.
std::vector<RegistrationEntry> registrationEntries(std::string_view libraryPath);

/// Writes every entry into the file's content; registering twice changes nothing more.
void registerLibrary(IniDocument& file, std::string_view libraryPath);

/// Removes every entry registering writes (whatever library path it named), and a section
/// when nothing else is left in it; everything else the file holds stays byte for byte.
void unregisterLibrary(IniDocument& file);

}  // namespace corvex
