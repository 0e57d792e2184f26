// Builds FileDialogBox's request record from arbitrary Filter, FileName and MaxFileSize,
// lets an arbitrary "dialog" write anything into its buffers (no NUL at all included),
// and reads the answer back: no crash, no read past a buffer (the sanitizer checks), and
// every block the record took released when it goes.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "corvex/common/error.h"
#include "corvex/files/dialog_record.h"
#include "fuzz_input.h"

using namespace corvex;

namespace {

constexpr char16_t pool[] = u"|*.txt ab\\:C\0データ";

std::u16string text(fuzz::Input& in) {
    std::u16string out;
    const std::int32_t n = in.small() + 4;
    for (std::int32_t i = 0; i < n; ++i) out += in.character(pool, 200);
    return out;
}

// The dialog's part: bytes written over a buffer, within its capacity.
void scribble(fuzz::Input& in, char* buffer, std::uint32_t capacity) {
    const std::uint32_t n = capacity == 0 ? 0 : in.byte() % (capacity + 1);
    const std::uint8_t mode = in.byte() % 4;
    for (std::uint32_t i = 0; i < n; ++i) {
        const std::uint8_t b = in.byte();
        // Mostly names and NULs, sometimes a buffer filled to its end without any NUL.
        buffer[i] = mode == 0 ? static_cast<char>(b | 1) : (b < 40 ? '\0' : static_cast<char>(b));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input in{data, size};
    DialogSettings s;
    s.filter = text(in);
    s.fileName = text(in);
    s.maxFileSize = in.small() * (in.byte() % 8 + 1);
    s.flags = (in.byte() & 1) ? 0x200 : 0;
    s.filterIndex = static_cast<std::int16_t>(in.small());
    try {
        DialogRecord record(s);
        FileDialogRequest& r = record.request();
        if (r.maxFile != static_cast<std::uint32_t>(2 * s.maxFileSize + 1)) std::abort();
        if (in.byte() & 1) {
            std::string answer;
            const std::int32_t n = in.small() + 4;
            for (std::int32_t i = 0; i < n; ++i)
                answer += static_cast<char>(in.byte() % 3 ? 'a' + i % 26 : 0);
            answerFileDialog(r, answer.data(), static_cast<std::uint32_t>(answer.size()));
        } else {
            scribble(in, r.file, r.maxFile);
            scribble(in, r.fileTitle, r.maxFileTitle);
            r.fileOffset = static_cast<std::uint16_t>(in.byte() | (in.byte() << 8));
            r.filterIndex = in.byte();
        }
        const DialogAnswer a = record.readBack();
        if (a.fileName.size() > r.maxFile || a.fileTitle.size() > r.maxFileTitle) std::abort();
    } catch (const Error& e) {
        // Only the record's own refusals: a bad MaxFileSize or a name that does not fit.
        if (e.number() != err::InvalidPropertyValue && e.number() != 20476) std::abort();
    }
    if (DialogRecord::liveBlocks() != 0) std::abort();
    return 0;
}
