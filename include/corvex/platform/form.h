// The form that holds a control, as the service controls see it.
#pragma once

#include <cstdint>
#include <vector>

#include "corvex/common/variant.h"

namespace corvex {

/// The parent form of a control.
class Form {
public:
    virtual ~Form() = default;
    /// The form's controls in the form's own order (library controls and standard ones).
    virtual std::vector<ObjectRef> controls() const = 0;
    /// Left edge on the screen, twips.
    virtual float left() const = 0;
    /// Top edge on the screen, twips.
    virtual float top() const = 0;
    /// Outer width, twips.
    virtual float width() const = 0;
    /// Outer height, twips.
    virtual float height() const = 0;
    /// Moves and sizes the form.
    virtual void move(float left, float top, float width, float height) = 0;
    /// Whether the form stays above every window that is not topmost itself.
    virtual bool topMost() const = 0;
    /// Makes the form topmost (or not) and shows it, keeping its place and size; returns
    /// whether the window system took the change.
    virtual bool setTopMost(bool on) = 0;
    /// The form's window handle, as dialogs owned by it name it; 0 when it has none.
    virtual std::int32_t hWnd() const { return 0; }
};

}  // namespace corvex
