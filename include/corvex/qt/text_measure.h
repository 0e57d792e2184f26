// Text widths on the Qt host, from the font metrics of the font a list draws with.
#pragma once

#include "corvex/platform/text_measure.h"

namespace corvex::qt {

/// Measures with QFontMetrics of the font (as the host turns it into a QFont, the font the
/// inner QListWidget draws with); a NUL unit counts as one average character.
TextMeasurer& fontMetricsMeasurer();

}  // namespace corvex::qt
