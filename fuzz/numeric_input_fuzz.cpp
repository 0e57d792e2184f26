// Feeds random keys, carets, clipboard texts and settings to a numeric box on the headless
// host, and checks that typing and pasting never take the text beyond MaxLength and that
// validation only ever leaves a normalised text or the text as prepared.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "corvex/entry/num_input_box.h"
#include "corvex/headless/host.h"
#include "fuzz_input.h"

using namespace corvex;

namespace {

using fuzz::Input;

char16_t interestingChar(Input& in) {
    static const char16_t pool[] = u"0123456789.-eEdD\b\r +x,\u3042\uFF15";
    return in.character(pool, 200);
}

void check(bool condition) {
    if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 4096) return 0;
    headless::Host host;
    headless::HeadlessForm form(host);
    headless::Site& site = form.add(NumInputBox::staticClassInfo(), u"n");
    auto& box = static_cast<NumInputBox&>(site.control());
    auto* txt = dynamic_cast<headless::HeadlessTextBox*>(site.widget(u"txtInput"));
    check(txt != nullptr);
    Input in{data, size};
    while (in.more()) {
        const std::size_t before = txt->text().size();
        const std::int32_t max = txt->maxLength();
        switch (in.byte() % 7) {
            case 0:
                txt->type(interestingChar(in));
                break;
            case 1:
                txt->setSelStart(in.byte() % 12);
                txt->setSelLength(in.byte() % 12);
                break;
            case 2: {
                std::u16string clip;
                for (int n = in.byte() % 10; n > 0; --n) clip += interestingChar(in);
                host.setText(clip);
                txt->pressKey('V', key::CtrlMask);
                break;
            }
            case 3:
                txt->pressKey(in.byte() % 2 ? 'X' : 'C', key::CtrlMask);
                break;
            case 4: {
                const std::u16string typed = txt->text();
                const bool ok = box.validateValue();
                const std::u16string now = txt->text();
                if (box.mode() == InputMode::Free) {
                    check(ok && now == typed);
                } else if (!ok) {
                    // Refused: the text as typed, perhaps with a dangling exponent completed.
                    check(now == typed || now == typed + u"0" || (typed.empty() && now.empty()));
                } else if (max >= 1) {
                    check(static_cast<std::int32_t>(now.size()) <= max);
                }
                continue;
            }
            case 5:
                try {
                    box.setMode(static_cast<InputMode>(in.byte() % 6));
                } catch (const Error&) {
                }
                break;
            case 6:
                box.setMaxLength(static_cast<std::int16_t>(in.byte() % 9));
                box.setLimitCheck(in.byte() % 2 == 0);
                try {
                    box.setUpperLimit(static_cast<double>(in.byte()) - 20);
                    box.setLowerLimit(static_cast<double>(in.byte()) - 60);
                } catch (const Error&) {
                }
                continue;
        }
        // Typing and pasting never take a text that fitted beyond MaxLength.
        if (max > 0 && static_cast<std::int32_t>(before) <= max) {
            check(static_cast<std::int32_t>(txt->text().size()) <= max);
        }
        check(txt->selStart() >= 0 &&
              txt->selStart() <= static_cast<std::int32_t>(txt->text().size()));
    }
    return 0;
}
