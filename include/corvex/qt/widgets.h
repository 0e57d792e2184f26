// The inner widgets of controls in the Qt host: a check box and a text box made of Qt
// widgets that sit on a QtControlHost. Controls see only the corvex::Widget interfaces.
#pragma once

#include "corvex/qt/check_box.h"
#include "corvex/qt/text_box.h"
#include "corvex/qt/widget.h"
