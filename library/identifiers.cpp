#include "corvex/library/identifiers.h"

#include <cstdio>

#include "corvex/common/object.h"
#include "corvex/common/text.h"
#include "sha1.h"

namespace corvex {

namespace {

// The library's namespace for name-based identifiers: drawn at random once, never changed.
constexpr std::array<std::uint8_t, 16> kNamespace = {
    0x18, 0x80, 0x5a, 0xbb, 0x2b, 0x32, 0x43, 0x73, 0xbd, 0x0a, 0x5b, 0x32, 0x81, 0x3e, 0xcf, 0x53};

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

Uuid fromBytes(const std::array<std::uint8_t, 16>& b) {
    Uuid u;
    u.data1 = (std::uint32_t{b[0]} << 24) | (std::uint32_t{b[1]} << 16) |
              (std::uint32_t{b[2]} << 8) | b[3];
    u.data2 = static_cast<std::uint16_t>((b[4] << 8) | b[5]);
    u.data3 = static_cast<std::uint16_t>((b[6] << 8) | b[7]);
    for (int i = 0; i < 8; ++i) u.data4[i] = b[8 + i];
    return u;
}

}  // namespace

std::array<std::uint8_t, 16> Uuid::bytes() const {
    std::array<std::uint8_t, 16> b{};
    for (int i = 0; i < 4; ++i) b[i] = static_cast<std::uint8_t>(data1 >> (24 - 8 * i));
    b[4] = static_cast<std::uint8_t>(data2 >> 8);
    b[5] = static_cast<std::uint8_t>(data2);
    b[6] = static_cast<std::uint8_t>(data3 >> 8);
    b[7] = static_cast<std::uint8_t>(data3);
    for (int i = 0; i < 8; ++i) b[8 + i] = data4[i];
    return b;
}

std::string Uuid::text() const {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                  static_cast<unsigned>(data1), unsigned{data2}, unsigned{data3},
                  unsigned{data4[0]}, unsigned{data4[1]}, unsigned{data4[2]}, unsigned{data4[3]},
                  unsigned{data4[4]}, unsigned{data4[5]}, unsigned{data4[6]}, unsigned{data4[7]});
    return buffer;
}

std::optional<Uuid> Uuid::parse(std::string_view text) {
    if (text.size() == 38 && text.front() == '{' && text.back() == '}') {
        text = text.substr(1, 36);
    }
    if (text.size() != 36) return std::nullopt;
    std::array<std::uint8_t, 16> b{};
    std::size_t at = 0;
    for (std::size_t i = 0; i < 16; ++i) {
        if (at == 8 || at == 13 || at == 18 || at == 23) {
            if (text[at] != '-') return std::nullopt;
            ++at;
        }
        const int hi = hexDigit(text[at]);
        const int lo = hexDigit(text[at + 1]);
        if (hi < 0 || lo < 0) return std::nullopt;
        b[i] = static_cast<std::uint8_t>(hi * 16 + lo);
        at += 2;
    }
    return fromBytes(b);
}

Uuid nameBasedUuid(std::string_view name) {
    std::vector<std::uint8_t> data(kNamespace.begin(), kNamespace.end());
    data.insert(data.end(), name.begin(), name.end());
    const auto digest = detail::sha1(data);
    std::array<std::uint8_t, 16> b{};
    for (int i = 0; i < 16; ++i) b[i] = digest[i];
    b[6] = static_cast<std::uint8_t>((b[6] & 0x0F) | 0x50);  // version 5
    b[8] = static_cast<std::uint8_t>((b[8] & 0x3F) | 0x80);  // the RFC 4122 variant
    return fromBytes(b);
}

ClassIdentifiers identifiersOf(const ClassInfo& cls) {
    const std::string name = toUtf8(cls.name());
    ClassIdentifiers ids;
    ids.classId = nameBasedUuid("Corvex." + name);
    ids.interfaceId = nameBasedUuid("Corvex._" + name);
    ids.interfaceName = u"_" + cls.name();
    // Property pages raise nothing; every control has an event interface, even an empty one.
    ids.hasEvents = cls.kind() != ClassKind::PropertyPage;
    if (ids.hasEvents) {
        ids.eventInterfaceId = nameBasedUuid("Corvex.__" + name);
        ids.eventInterfaceName = u"__" + cls.name();
    }
    return ids;
}

Uuid typeLibraryId() {
    return nameBasedUuid("Corvex.TypeLibrary");
}

}  // namespace corvex
