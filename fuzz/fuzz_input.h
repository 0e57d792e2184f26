// The fuzzer's bytes read as a sequence of choices, shared by the targets that drive a
// control or a rule with random steps.
#pragma once

#include <cstddef>
#include <cstdint>

namespace corvex::fuzz {

/// The fuzzer's bytes, taken one choice at a time; past the end every choice is 0.
struct Input {
    const std::uint8_t* data;  ///< the bytes
    std::size_t size;          ///< how many there are
    std::size_t pos = 0;       ///< the next one to take
    /// Whether bytes are left.
    bool more() const { return pos < size; }
    /// The next byte, or 0 past the end.
    std::uint8_t byte() { return pos < size ? data[pos++] : 0; }
    /// A small number from -4 to 35 (carets, lengths, limits around a short text).
    std::int32_t small() { return static_cast<std::int32_t>(byte() % 40) - 4; }
    /// Mostly a character of pool (a byte below poolShare picks one), else any 16-bit unit.
    template <std::size_t N>
    char16_t character(const char16_t (&pool)[N], std::uint8_t poolShare) {
        const std::uint8_t b = byte();
        if (b < poolShare) return pool[b % (N - 1)];
        return static_cast<char16_t>(b | (byte() << 8));
    }
};

}  // namespace corvex::fuzz
