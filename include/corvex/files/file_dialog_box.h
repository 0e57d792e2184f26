// FileDialogBox: the settings of the open and save dialogs, kept as design-time
// properties, turned into the dialog's request and read back from it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "corvex/platform/file_dialog.h"
#include "corvex/services/service_control.h"

namespace corvex {

/// Whether a FileDialogBox is meant for opening or for saving (the value of its Mode).
enum class OpenOrSaveMode : std::int32_t {
    OpenMode = 0,  ///< FileOpen works, FileSave refuses
    SaveMode = 1,  ///< FileSave works, FileOpen refuses
};

/// The table-side description of OpenOrSaveMode.
template <>
const EnumInfo& enumInfo<OpenOrSaveMode>();

/// A service control that shows the open and save dialogs with its settings and reports
/// the chosen names; a cancel or a failure is raised as the common-dialog errors are.
class FileDialogBox : public ServiceControl {
public:
    /// A FileDialogBox on a host site.
    explicit FileDialogBox(ControlSite& site);
    ~FileDialogBox() override;
    /// The table of the FileDialogBox class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }

    void initProperties() override;
    void readProperties(PropertyBag& bag) override;
    void writeProperties(PropertyBag& bag) override;

    /// Forgets the chosen names: FileName and FileTitle become empty.
    void cls();
    /// Shows the note form on the dialog's option bits (one shared instance).
    void showAbout();
    /// In OpenMode: computes Flags, shows the open dialog, returns FileName ("" on cancel
    /// or in the wrong mode, which is refused with a message box).
    std::u16string fileOpen();
    /// In SaveMode: computes Flags, shows the save dialog, returns FileName ("" on cancel
    /// or in the wrong mode, which is refused with a message box).
    std::u16string fileSave();
    /// Shows the open dialog with Flags as they stand; true when a name was chosen.
    bool showOpen();
    /// Shows the save dialog with Flags as they stand; true when a name was chosen.
    bool showSave();

    /// Whether several files may be chosen.
    bool allowMultiselect() const;
    /// Sets multi-selection; off brings back Explorer and long names.
    void setAllowMultiselect(bool v);
    /// True after the user cancelled the last dialog.
    bool cancelSelected() const;
    /// Sets the cancelled mark.
    void setCancelSelected(bool v);
    /// Whether the dialog asks before creating a missing file.
    bool createPrompt() const;
    /// Sets the create question; on requires existing paths and files.
    void setCreatePrompt(bool v);
    /// The default extension.
    std::u16string defaultExt() const;
    /// Sets the default extension.
    void setDefaultExt(std::u16string v);
    /// The dialog's title.
    std::u16string dialogTitle() const;
    /// Sets the dialog's title.
    void setDialogTitle(std::u16string v);
    /// Whether the Explorer-style dialog is used.
    bool explorer() const;
    /// Sets the Explorer style (forced on without multi-selection).
    void setExplorer(bool v);
    /// Whether only existing files may be chosen.
    bool fileMustExist() const;
    /// Sets whether only existing files may be chosen; on requires existing paths.
    void setFileMustExist(bool v);
    /// The chosen name or names; also the name first offered.
    std::u16string fileName() const;
    /// Sets the name first offered.
    void setFileName(std::u16string v);
    /// The title of the chosen file, as the dialog reported it.
    std::u16string fileTitle() const;
    /// The filter list: description and pattern pairs separated by "|".
    std::u16string filter() const;
    /// Sets the filter list.
    void setFilter(std::u16string v);
    /// The selected filter (from 1), read back after every dialog.
    std::int16_t filterIndex() const;
    /// Sets the filter first selected.
    void setFilterIndex(std::int16_t v);
    /// The option bits handed to the dialog.
    std::int32_t flags() const;
    /// Sets the option bits.
    void setFlags(std::int32_t v);
    /// A device context; the dialogs have none, so 0.
    std::int32_t hDC() const;
    /// Whether the dialog has a Help button.
    bool helpButton() const;
    /// Sets the Help button.
    void setHelpButton(bool v);
    /// Whether the read-only box is hidden.
    bool hideReadOnly() const;
    /// Sets whether the read-only box is hidden; on unchecks ReadOnly.
    void setHideReadOnly(bool v);
    /// The owner window's handle (the form's, taken when properties are read).
    std::int32_t hwnd() const;
    /// Sets the owner window's handle.
    void setHwnd(std::int32_t v);
    /// The folder the dialog starts in.
    std::u16string initDir() const;
    /// Sets the folder the dialog starts in.
    void setInitDir(std::u16string v);
    /// Whether long names are shown (old-style dialog).
    bool longNames() const;
    /// Sets long names.
    void setLongNames(bool v);
    /// The capacity for the returned names, in characters.
    std::int32_t maxFileSize() const;
    /// Sets the capacity for the returned names.
    void setMaxFileSize(std::int32_t v);
    /// Whether FileOpen or FileSave is meant.
    OpenOrSaveMode mode() const;
    /// Sets the mode (any number is taken; only 0 and 1 let a dialog open).
    void setMode(OpenOrSaveMode v);
    /// Whether the working folder is kept.
    bool noChangeDir() const;
    /// Sets whether the working folder is kept.
    void setNoChangeDir(bool v);
    /// Whether shortcuts are returned as such.
    bool noDereferenceLinks() const;
    /// Sets whether shortcuts are returned as such.
    void setNoDereferenceLinks(bool v);
    /// Whether short names are used (old-style dialog).
    bool noLongNames() const;
    /// Sets short names (kept opposite to LongNames within the multi-select rules).
    void setNoLongNames(bool v);
    /// Whether read-only files are refused.
    bool noReadOnlyReturn() const;
    /// Sets whether read-only files are refused.
    void setNoReadOnlyReturn(bool v);
    /// Whether invalid characters are allowed in the name.
    bool noValidate() const;
    /// Sets whether invalid characters are allowed.
    void setNoValidate(bool v);
    /// Whether the save dialog asks before overwriting.
    bool overwritePrompt() const;
    /// Sets the overwrite question.
    void setOverwritePrompt(bool v);
    /// Whether only existing folders may be given.
    bool pathMustExist() const;
    /// Sets whether only existing folders may be given.
    void setPathMustExist(bool v);
    /// Whether the read-only box is checked.
    bool readOnly() const;
    /// Sets the read-only box.
    void setReadOnly(bool v);
    /// Whether sharing violations are ignored.
    bool shareAware() const;
    /// Sets whether sharing violations are ignored.
    void setShareAware(bool v);

    /// Whether a cancel raises error 32755 (set by FileOpen and FileSave, saved, not public).
    bool cancelError() const;

protected:
    const MessageTable& messageTable() const override;

private:
    struct Private;
    std::unique_ptr<Private> const d;
    bool runDialog(bool save);
    std::u16string openOrSave(bool save);
    void setBoolean(bool& field, bool v, std::u16string_view name);
    void applyNameRules();
};

}  // namespace corvex
