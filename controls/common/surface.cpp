#include "corvex/platform/surface.h"

namespace corvex {

double twipsPerUnit(ScaleMode mode, double twipsPerPixel, bool horizontal) {
    switch (mode) {
        case ScaleMode::Twips:
            return 1;
        case ScaleMode::Points:
            return 20;
        case ScaleMode::Pixels:
            return twipsPerPixel;
        case ScaleMode::Characters:
            return horizontal ? 120 : 240;
        case ScaleMode::Inches:
            return 1440;
        case ScaleMode::Millimeters:
            return 1440 / 25.4;
        case ScaleMode::Centimeters:
            return 1440 / 2.54;
        case ScaleMode::Himetric:
            return 1440 / 2540.0;
        case ScaleMode::User:
        case ScaleMode::ContainerPosition:
        case ScaleMode::ContainerSize:
            return 0;
    }
    return 0;
}

}  // namespace corvex
