// The identifiers a host finds the library's classes and interfaces by.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvex {

class ClassInfo;

/// A 128-bit identifier laid out as hosts pass it: Data1, Data2, Data3, Data4.
struct Uuid {
    std::uint32_t data1 = 0;            ///< the first 8 hex digits
    std::uint16_t data2 = 0;            ///< the next 4
    std::uint16_t data3 = 0;            ///< the next 4 (version in the top nibble)
    std::array<std::uint8_t, 8> data4;  ///< the last 16 (variant in the top bits)

    /// The registry form: "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}", upper-case hex.
    std::string text() const;
    /// Reads the registry form (braces optional, hex in either case); nothing for
    /// anything else.
    static std::optional<Uuid> parse(std::string_view text);
    /// The 16 bytes in the order RFC 4122 writes them (Data1 to Data3 big-endian).
    std::array<std::uint8_t, 16> bytes() const;

    friend bool operator==(const Uuid&, const Uuid&) = default;
};

/// A name-based (version 5, SHA-1) identifier in the library's own namespace: the same
/// name gives the same identifier on every machine and in every build, so identifiers are
/// fixed once without a list kept beside the classes.
Uuid nameBasedUuid(std::string_view name);

/// The identifiers of one public class, all derived from its name in the class table.
struct ClassIdentifiers {
    Uuid classId;                       ///< the class identifier ("Corvex.NAME")
    Uuid interfaceId;                   ///< the default interface ("Corvex._NAME")
    std::u16string interfaceName;       ///< "_NAME"
    bool hasEvents = false;             ///< whether there is an event interface (pages have none)
    Uuid eventInterfaceId;              ///< the event interface ("Corvex.__NAME")
    std::u16string eventInterfaceName;  ///< "__NAME"
};

/// The identifiers of a public class.
ClassIdentifiers identifiersOf(const ClassInfo& cls);

/// The type library's identifier ("Corvex.TypeLibrary").
Uuid typeLibraryId();

}  // namespace corvex
