// The screen as the Qt host measures it for controls: the primary QScreen, in twips.
#pragma once

#include "corvex/platform/screen.h"

namespace corvex::qt {

/// The application's primary screen, read anew at each call.
class QtScreen : public Screen {
public:
    /// The screen's width, twips (pixels times twips per pixel).
    float width() const override;
    /// The screen's height, twips.
    float height() const override;
    /// 1440 divided by the screen's logical dots per inch, horizontally (15 without a screen).
    double twipsPerPixelX() const override;
    /// The same, vertically.
    double twipsPerPixelY() const override;
};

}  // namespace corvex::qt
