// Feeds random captions texts, button counts, rows and spacings to a MultiOption on the
// headless host, and checks that every button exists with a caption entry, that the
// array always holds OptionNum buttons, and that the captions never come from a bar.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "corvex/headless/host.h"
#include "corvex/library/memory_bag.h"
#include "corvex/options/captions.h"
#include "corvex/options/multi_option.h"
#include "corvex/platform/option_widgets.h"
#include "fuzz_input.h"

using namespace corvex;

namespace {

using fuzz::Input;

void check(bool condition) {
    if (!condition) std::abort();
}

std::u16string captionsText(Input& in) {
    static const char16_t pool[] = u"||||ab \u3042|";
    std::u16string text;
    for (int n = in.byte() % 24; n > 0; --n) text += in.character(pool, 220);
    return text;
}

// The captions rule alone: no caption is empty or holds a bar, and there are enough.
void checkCaptions(const std::u16string& text, std::int32_t count) {
    for (const auto& c : parseOptionCaptions(text)) {
        check(!c.empty() && c.find(u'|') == std::u16string::npos);
    }
    const std::size_t wanted = count < 0 ? 1 : static_cast<std::size_t>(count) + 1;
    check(captionsForButtons(text, count).size() >= wanted);
}

// The control's buttons: exactly OptionNum of them (button 0 at least), each captioned
// from the text's entries.
void checkButtons(headless::Site& site, MultiOption& m) {
    const std::int16_t n = m.optionNum();
    const auto captions = captionsForButtons(m.optionCaptions(), n);
    std::int16_t count = 0;
    for (headless::HeadlessWidget* w : site.widgetList()) {
        if (w->name() != u"optChildOption") continue;
        ++count;
        auto* b = dynamic_cast<OptionButton*>(w);
        check(b != nullptr && w->index() >= 0);
        check(b->caption() == captions.at(static_cast<std::size_t>(w->index())));
    }
    check(count == (n < 1 ? 1 : n));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 2048) return 0;
    headless::Host host;
    host.setUserMode(false);
    headless::HeadlessForm form(host);
    headless::Site& site = form.add(MultiOption::staticClassInfo(), u"m");
    auto& m = static_cast<MultiOption&>(site.control());
    Input in{data, size};
    while (in.more()) {
        switch (in.byte() % 6) {
            case 0: {
                const std::u16string text = captionsText(in);
                checkCaptions(text, in.small());
                m.setOptionCaptions(text);
                break;
            }
            case 1:
                m.setOptionNum(static_cast<std::int16_t>(in.small()));
                break;
            case 2:
                m.setOptionNumPerLine(static_cast<std::int16_t>(in.small()));
                break;
            case 3:
                m.setHoriSpace(in.small() * 100);
                m.setVartSpace(in.small() * 100);
                m.setOptionWidth(in.small() * 1000);
                m.setOptionHeight(in.small() * 1000);
                break;
            case 4: {
                const std::int16_t v = static_cast<std::int16_t>(in.small());
                m.setDefaultValue(v);
                break;
            }
            default: {
                // A saved control read back, with the bag's unchecked fields.
                MemoryBag bag({{u"OptionNum", static_cast<std::int16_t>(in.small())},
                               {u"OptionNumPerLine", static_cast<std::int16_t>(in.small())},
                               {u"OptionCaptions", captionsText(in)}});
                form.remove(u"m");
                headless::Site& loaded = form.load(MultiOption::staticClassInfo(), u"m", bag);
                checkButtons(loaded, static_cast<MultiOption&>(loaded.control()));
                return 0;
            }
        }
        check(m.optionNum() >= 1);
        checkButtons(site, m);
    }
    return 0;
}
