// The screen a form is shown on, as the service controls measure it.
#pragma once

namespace corvex {

/// The screen that holds the control's form: its size in twips and its pixel size.
class Screen {
public:
    virtual ~Screen() = default;
    /// The screen's width, twips.
    virtual float width() const = 0;
    /// The screen's height, twips.
    virtual float height() const = 0;
    /// Twips in one pixel, horizontally.
    virtual double twipsPerPixelX() const = 0;
    /// Twips in one pixel, vertically.
    virtual double twipsPerPixelY() const = 0;
};

}  // namespace corvex
