// SHA-1, for name-based identifiers only (never for anything that needs to be secret).
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace corvex::detail {

/// The SHA-1 digest of data.
std::array<std::uint8_t, 20> sha1(std::span<const std::uint8_t> data);

}  // namespace corvex::detail
