// The host's own standard controls (a text box, a check box) as a form holds them beside
// the library's controls: they have none of the persistence members.
#pragma once

#include "corvex/common/object.h"

namespace corvex::headless {

/// A standard text box on a form: Text only.
const ClassInfo& standardTextBoxClass();
/// A standard check box on a form: Value (0, 1 or 2) and Caption.
const ClassInfo& standardCheckBoxClass();
/// A standard control's class by name ("TextBox", "CheckBox"; ASCII case ignored); null
/// when there is none.
const ClassInfo* findStandardClass(std::u16string_view name);

}  // namespace corvex::headless
