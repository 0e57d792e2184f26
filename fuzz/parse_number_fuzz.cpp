// Feeds arbitrary text to the number reader and checks that whatever it accepts is
// written back as text that reads again as the same number rounded to 15 digits.
#include <cerrno>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "corvex/common/number_text.h"
#include "corvex/common/text.h"

namespace {

// The 15-significant-digit rounding of d, by the C library rather than by the code under
// test; nothing when that rounding lies beyond the largest Double.
std::optional<double> roundedTo15(double d) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.14e", d);
    errno = 0;
    const double back = std::strtod(buf, nullptr);
    if (errno == ERANGE && std::isinf(back)) return std::nullopt;
    return back;
}

void check(std::u16string_view text) {
    using corvex::ParseStatus;
    const corvex::ParsedNumber p = corvex::parseDouble(text);
    if (p.status != ParseStatus::Ok) return;
    if (!std::isfinite(p.value)) std::abort();  // overflow must be reported, not returned

    const std::u16string written = corvex::formatDouble(p.value);
    // The longest forms: "-1.23456789012345E-308" and "-0.0000123456789012345".
    if (written.empty() || written.size() > 22) std::abort();
    const corvex::ParsedNumber back = corvex::parseDouble(written);
    const std::optional<double> expected = roundedTo15(p.value);
    if (expected) {
        if (back.status != ParseStatus::Ok || back.value != *expected) std::abort();
    } else if (back.status != ParseStatus::Overflow) {
        // Within half a unit of the 15th digit of the largest Double the text names a
        // number past it, which can only read back as an overflow.
        std::abort();
    }

    const std::u16string withSign = corvex::formatDoubleWithSign(p.value);
    if (corvex::parseDouble(withSign).status != back.status) std::abort();

    // Out-of-range values become infinities here (IEEE 754 conversion); those must
    // still be written without trouble.
    const float single = static_cast<float>(p.value);
    const std::u16string singleText = corvex::formatSingle(single);
    if (std::isfinite(single) && corvex::parseDouble(singleText).status != ParseStatus::Ok) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The bytes as UTF-16 code units, low byte first.
    std::u16string units(size / 2, u'\0');
    for (std::size_t i = 0; i < units.size(); ++i) {
        units[i] = static_cast<char16_t>(data[2 * i] | (data[2 * i + 1] << 8));
    }
    check(units);

    // The bytes as UTF-8 (plain ASCII being the common case).
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    check(corvex::fromUtf8(bytes));

    // Each byte as one code unit, so that ASCII text reaches the reader unchanged even
    // when it is followed by bytes that are not UTF-8.
    check(std::u16string(bytes.begin(), bytes.end()));
    return 0;
}
