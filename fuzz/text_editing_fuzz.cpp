// Random edits on the text-editing model: typing, pasting, selecting, setting text and
// MaxLength. After each one the selection lies within the text, a multi-line text keeps
// every line break as CR LF, the user's edits never take the text past MaxLength, what
// is cut to fit never ends in half a surrogate pair or half a line break, and a reported
// change is a real one.
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "corvex/common/text_editing.h"
#include "fuzz_input.h"

using namespace corvex;

namespace {

using fuzz::Input;

char16_t interestingChar(Input& in) {
    static const char16_t pool[] = u"ab\r\n\b\t \x7f\u3042\xD83D\xDE00\u2029xyz";
    return in.character(pool, 220);
}

std::u16string someText(Input& in) {
    std::u16string t;
    for (int n = in.byte() % 12; n > 0; --n) t += interestingChar(in);
    return t;
}

void check(bool condition) {
    if (!condition) std::abort();
}

// What fitting an insertion into room kept: a prefix, never ending in the first half of
// a pair or a CR whose LF was cut, and never longer than the room.
void checkFitted(std::u16string_view insert, std::int64_t room) {
    const std::optional<std::u16string> fitted = fitInsertion(insert, room);
    if (!fitted) {
        check(!insert.empty());
        return;
    }
    check(insert.substr(0, fitted->size()) == *fitted);
    if (fitted->size() == insert.size()) return;
    check(static_cast<std::int64_t>(fitted->size()) <= room);
    if (!fitted->empty()) {
        check(!isHighSurrogate(fitted->back()) || !isLowSurrogate(insert[fitted->size()]));
        check(fitted->back() != u'\r' || insert[fitted->size()] != u'\n');
    }
}

bool canonical(const std::u16string& t) {
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (t[i] == u'\r' && (i + 1 >= t.size() || t[i + 1] != u'\n')) return false;
        if (t[i] == u'\n' && (i == 0 || t[i - 1] != u'\r')) return false;
        if (t[i] == 0x2029) return false;
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 4096) return 0;
    Input in{data, size};
    TextEditModel box(in.byte() & 1);
    box.setMaxLength(in.byte() % 24);
    while (in.more()) {
        const std::u16string before = box.text();
        const std::int64_t room = box.room();
        bool byUser = false;
        bool changed = false;
        switch (in.byte() % 9) {
            case 0:
            case 1:
            case 2:
                changed = box.type(interestingChar(in));
                byUser = true;
                break;
            case 3: {
                const std::u16string t = someText(in);
                checkFitted(box.multiLine() ? canonicalLineBreaks(t) : t, room);
                changed = box.paste(t);
                byUser = true;
                break;
            }
            case 4: {
                const std::u16string t = someText(in);
                checkFitted(box.multiLine() ? canonicalLineBreaks(t) : t, room);
                changed = box.replaceSelection(t, true);
                byUser = true;
                break;
            }
            case 5:
                changed = box.setText(someText(in));
                break;
            case 6:
                box.setSelStart(in.small());
                box.setSelLength(in.small());
                break;
            case 7:
                box.setMaxLength(in.small());
                break;
            default:
                box.setLocked(in.byte() & 1);
                break;
        }
        const std::u16string& t = box.text();
        const auto length = static_cast<std::int32_t>(t.size());
        check(box.selStart() >= 0 && box.selLength() >= 0);
        check(box.selStart() + box.selLength() <= length);
        check(changed == (t != before));
        if (box.multiLine()) check(canonical(t));
        // An edit never makes a text grow past MaxLength.
        if (byUser && box.maxLength() > 0 && t.size() > before.size()) {
            check(length <= box.maxLength());
        }
    }
    return 0;
}
