#include "corvex/options/captions.h"

#include <cmath>
#include <limits>

#include "corvex/common/error.h"

namespace corvex {

std::vector<std::u16string> parseOptionCaptions(std::u16string_view text) {
    std::vector<std::u16string> captions;
    std::u16string current;
    for (char16_t ch : text) {
        if (ch != u'|') {
            current += ch;
        } else if (!current.empty()) {
            // A bar ends only a caption that has begun: bars in a row name nothing.
            captions.push_back(std::move(current));
            current.clear();
        }
    }
    if (!current.empty()) captions.push_back(std::move(current));
    return captions;
}

std::vector<std::u16string> captionsForButtons(std::u16string_view text, std::int32_t count) {
    std::vector<std::u16string> captions = parseOptionCaptions(text);
    const std::size_t wanted = static_cast<std::size_t>(std::max<std::int32_t>(count, 0)) + 1;
    if (captions.size() < wanted) captions.resize(wanted);
    return captions;
}

namespace {
float toSingle(double v) {
    if (!std::isfinite(v) || std::fabs(v) > std::numeric_limits<float>::max()) {
        throw Error(err::Overflow);
    }
    return static_cast<float>(v);
}
}  // namespace

OptionPlace nextOptionPlace(const OptionLayout& layout, std::int32_t i, OptionPlace first,
                            OptionPlace prev, double prevHeight) {
    if (layout.perLine < 1 || i % layout.perLine != 0) {
        return {toSingle(double{prev.left} + layout.width + layout.horiSpace), prev.top};
    }
    // The row step adds the button height twice (the previous button's and the layout's):
    // saved forms are laid out so.
    return {first.left, toSingle(double{prev.top} + prevHeight + layout.height + layout.vartSpace)};
}

}  // namespace corvex
