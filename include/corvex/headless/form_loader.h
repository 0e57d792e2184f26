// Places a saved form's controls on a headless form, and saves a headless form's controls.
#pragma once

#include <string>

#include "corvex/headless/host.h"
#include "corvex/library/form_file.h"

namespace corvex::headless {

/// Loads every control of a saved form onto form, in the document's order: each is
/// created through its public class and read from a bag holding its saved entries.
/// Before any control is created, raises Error 438 naming the class and the control when
/// a class is not public, and Error 450 when a name (with its array index) is already on
/// the form or twice in the document, by the form's one rule for names. An error raised while a
/// control loads is passed on with the control's name added to its description; that control is not
/// placed, and the controls loaded before it stay.
void loadForm(const FormDocument& document, HeadlessForm& form);

/// Saves a headless form: each control, in the form's order, writes its properties into
/// an empty bag (so values equal to their defaults leave no entry), under its class name.
FormDocument saveForm(const HeadlessForm& form, std::u16string name, std::u16string caption);

}  // namespace corvex::headless
