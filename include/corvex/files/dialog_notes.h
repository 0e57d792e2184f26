// frmFILEDLG: the form of notes on how the dialog's multi-select, Explorer and long-name
// options go together. One instance is shared by the whole library.
#pragma once

#include <memory>
#include <string>

#include "corvex/platform/form_window.h"
#include "corvex/platform/site.h"

namespace corvex {

/// The notes, built from their eleven fixed pieces (Japanese whatever the locale).
std::u16string dialogNotesText();

/// Where the note box goes in a form of the given size.
struct NoteBoxPlace {
    float left = 0;    ///< 2 % of the width
    float top = 0;     ///< 2 % of the height
    float width = 0;   ///< 96 % of the width
    float height = 0;  ///< 90 % of the height: the bottom margin is the larger on purpose
};
/// The note box's place in a form of inner size width x height.
NoteBoxPlace noteBoxPlace(float width, float height);

/// The notes form: a window with the read-only multi-line box txtNote filling most of it.
class DialogNotes : public FormWindowListener {
public:
    /// The form's design name.
    static constexpr const char16_t* FormName = u"frmFILEDLG";
    /// The note box's design name.
    static constexpr const char16_t* NoteBoxName = u"txtNote";

    /// Shows the shared form, made (through site's window service) on first use or after
    /// it was closed; a second call while it is open shows the same form again.
    static void showShared(ControlSite& site);
    /// The shared form while it is open; null otherwise.
    static DialogNotes* shared();

    ~DialogNotes() override;
    /// The form's window.
    FormWindow& window() const;
    /// The note box.
    TextBox& noteBox() const;

    void formResized() override;
    void formClosed() override;

private:
    explicit DialogNotes(FormWindowService& windows);
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex
