// The command button widget kind and arrays of command buttons.
#pragma once

#include <string>

#include "corvex/platform/option_widgets.h"

namespace corvex {

/// A push button with a caption. A click, or the space bar released on it, raises Click.
class CommandButton : public virtual Widget {
public:
    /// The caption.
    virtual std::u16string caption() const = 0;
    /// Sets the caption.
    virtual void setCaption(const std::u16string& c) = 0;
};

/// An array of command buttons (see ControlArray).
using CommandButtonArray = ControlArray<CommandButton>;

}  // namespace corvex
