#include "corvex/platform/text_measure.h"

namespace corvex {

namespace {
class FixedAdvanceMeasurer final : public TextMeasurer {
public:
    std::int32_t textWidth(std::u16string_view text, const FontDesc&) const override {
        return static_cast<std::int32_t>(text.size()) * kFixedAdvance;
    }
};
}  // namespace

TextMeasurer& fixedAdvanceMeasurer() {
    static FixedAdvanceMeasurer measurer;
    return measurer;
}

}  // namespace corvex
