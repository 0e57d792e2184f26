// Reading the host's own widget models from a script: a property of a control's surface,
// of one of its inner widgets or of an element of an inner control array.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "corvex/common/variant.h"
#include "corvex/headless/host.h"

namespace corvex::script {

/// A property of the control's surface: Left, Top, Width, Height (twips, as Single) or
/// Visible. Raises 438 for another name.
Variant peekSurface(const headless::Site& site, std::u16string_view property);

/// A property of the inner widget named widget (index -1: not an array element), read
/// through the host's widget model: the geometry (twips, as Single), Visible, Enabled,
/// BackColor, ForeColor, and what the widget's kind has (Caption, Value, Text, X1 ... Y2,
/// BorderStyle, BorderWidth). Count gives the number of elements of an inner control
/// array. Raises 438 for an unknown widget or property, 340 for a missing element.
Variant peekWidget(const headless::Site& site, std::u16string_view widget, std::int16_t index,
                   std::u16string_view property);

}  // namespace corvex::script
