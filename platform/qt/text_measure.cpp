// Text widths on the Qt host.
#include "corvex/qt/text_measure.h"

#include <QFontMetrics>
#include <QString>

#include "corvex/qt/convert.h"

namespace corvex::qt {

namespace {
class FontMetricsMeasurer final : public TextMeasurer {
public:
    std::int32_t textWidth(std::u16string_view text, const FontDesc& font) const override {
        const QFontMetrics metrics(toQFont(font));
        // A font draws no NUL: the terminating character the list controls count after
        // each item is taken as one average character of the font.
        QString drawn;
        int terminators = 0;
        for (const char16_t unit : text) {
            if (unit == u'\0') {
                ++terminators;
            } else {
                drawn.append(QChar(unit));
            }
        }
        return metrics.horizontalAdvance(drawn) + terminators * metrics.averageCharWidth();
    }
};
}  // namespace

TextMeasurer& fontMetricsMeasurer() {
    static FontMetricsMeasurer measurer;
    return measurer;
}

}  // namespace corvex::qt
