// The user-control surface on which a control's inner widgets sit.
#pragma once

#include <cstdint>

namespace corvex {

/// The host's scale modes (units of a surface's coordinates).
enum class ScaleMode : std::int16_t {
    User = 0,
    Twips = 1,
    Points = 2,
    Pixels = 3,
    Characters = 4,
    Inches = 5,
    Millimeters = 6,
    Centimeters = 7,
    Himetric = 8,
    ContainerPosition = 9,
    ContainerSize = 10,
};

/// The surface of one control: its size, its coordinate units and repainting.
class Surface {
public:
    virtual ~Surface() = default;
    /// The inner width in the surface's own scale units.
    virtual float scaleWidth() const = 0;
    /// The inner height in the surface's own scale units.
    virtual float scaleHeight() const = 0;
    /// The surface's current scale mode.
    virtual ScaleMode scaleMode() const = 0;
    /// Converts a horizontal length between two scale modes.
    virtual float scaleX(float value, ScaleMode from, ScaleMode to) const = 0;
    /// Converts a vertical length between two scale modes.
    virtual float scaleY(float value, ScaleMode from, ScaleMode to) const = 0;
    /// The control's outer width in the container's units (twips).
    virtual float width() const = 0;
    /// The control's outer height in the container's units (twips).
    virtual float height() const = 0;
    /// Resizes the control (container units); the host then resizes the surface.
    virtual void setSize(float width, float height) = 0;
    /// Repaints the surface.
    virtual void refresh() = 0;
};

/// Twips in one unit of a fixed scale mode, horizontally or vertically (characters are
/// 120 twips wide and 240 high); 0 for User, ContainerPosition and ContainerSize, whose
/// units depend on the surface or its container.
double twipsPerUnit(ScaleMode mode, double twipsPerPixel, bool horizontal);

}  // namespace corvex
