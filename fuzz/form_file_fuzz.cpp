// Feeds arbitrary bytes to the form-file reader. Whatever it accepts must be written and
// read back to the very same document (every value bit for bit), and writing that again
// must give the same text; anything it refuses must be refused with FormFileError.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "corvex/library/form_file.h"
#include "corvex/library/literals.h"

namespace {

bool same(const corvex::FormDocument& a, const corvex::FormDocument& b) {
    if (a.name != b.name || a.caption != b.caption || a.controls.size() != b.controls.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.controls.size(); ++i) {
        const corvex::SavedControl& x = a.controls[i];
        const corvex::SavedControl& y = b.controls[i];
        if (x.className != y.className || x.name != y.name || x.index != y.index ||
            x.properties.size() != y.properties.size()) {
            return false;
        }
        for (std::size_t k = 0; k < x.properties.size(); ++k) {
            if (x.properties[k].first != y.properties[k].first ||
                !corvex::identicalValues(x.properties[k].second, y.properties[k].second)) {
                return false;
            }
        }
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Well below the reader's line limit, so that a document it reads always fits the
    // writer's limit too (a written line is at most a font's fields longer than the read one).
    if (size > 256 * 1024) return 0;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    corvex::FormDocument doc;
    try {
        doc = corvex::parseFormFile(text);
    } catch (const corvex::FormFileError& e) {
        if (e.line() < 1) std::abort();  // every refusal names a line
        return 0;
    }
    const std::string written = corvex::writeFormFile(doc);  // must not throw
    const corvex::FormDocument back = corvex::parseFormFile(written);
    if (!same(doc, back)) std::abort();
    if (corvex::writeFormFile(back) != written) std::abort();
    return 0;
}
