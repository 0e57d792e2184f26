// The gallery: one window showing every control built so far, grouped, with their values,
// an event log, a locale switch, and saving and loading of the values.
#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>
#include <memory>
#include <vector>

#include "corvex/library/memory_bag.h"

class QCheckBox;
class QGridLayout;

namespace corvex {
class ClassInfo;
class SettingHandle;
}  // namespace corvex

namespace corvex::qt {
class QtControlHost;
class QtForm;
class QtHost;
}  // namespace corvex::qt

namespace corvex::gallery {

/// The switches a person can use beside a control to change its settings.
enum class GallerySettings {
    None,
    /// Shared by every numeric box of the group, in a row under the last of them: Mode
    /// (combo box "mode"), MaxLength ("maxLength"), LimitCheck ("limitCheck"), LowerLimit
    /// ("lowerLimit") and UpperLimit ("upperLimit").
    Number,
    /// A combo box of the four scroll-bar styles ("<name>ScrollBars").
    ScrollBars,
    /// A combo box of the four existence modes ("<name>Mode") and a line showing the
    /// name's parts as it is typed ("<name>Parts"), read without message boxes.
    FileName,
    /// A group of option buttons: OptionNum ("<name>OptionNum"), OptionNumPerLine
    /// ("<name>OptionNumPerLine") and OptionCaptions ("<name>OptionCaptions"), changed live.
    Options,
    /// A check box "Long item" ("<name>LongItem") that adds a long last item to a
    /// ListBoxEx and removes it again, so that its horizontal scroll bar comes and goes.
    LongItem,
    /// Buttons that try a FileDialogBox: "<name>Open" (FileOpen), "<name>Save" (FileSave),
    /// "<name>About" (ShowAbout) and "<name>Properties" (its four pages in a tabbed
    /// property dialog); the chosen name or the cancel shows in "<name>Result" and the log.
    FileDialog,
    /// A vertical separator: as high as a few lines of text, no wider than it needs.
    UprightLine,
    /// A two-list mover with a few candidates on its left, and room for its buttons.
    Candidates,
};

/// One control shown in the gallery.
struct GalleryEntry {
    /// The control's class table.
    const ClassInfo& (*classInfo)();
    /// The control's name on the form (and in the event log).
    const char16_t* name;
    /// The title of the group box it sits in; entries with one title share a box.
    const char16_t* group;
    /// Design-time properties, loaded as a saved form loads them (none: a new control).
    std::vector<MemoryBag::Entry> design = {};
    /// Whether a plain Qt check box "Enable it" beside it switches its Enabled.
    bool enableSwitch = false;
    /// The label in front of it (none: the control has a caption of its own).
    const char16_t* label = nullptr;
    /// The switches beside it.
    GallerySettings settings = GallerySettings::None;
};

/// The item the "Long item" switch adds to a ListBoxEx: wider than the gallery's window.
inline constexpr const char16_t* kLongItem =
    u"A long item that is wider than the list, so that the list shows its horizontal "
    u"scroll bar until the item goes again";

/// The controls of the gallery, in order: adding a control is adding a line here.
const std::vector<GalleryEntry>& galleryEntries();

/// The gallery's main window.
class GalleryWindow : public QWidget {
    Q_OBJECT

public:
    /// The window with every control of galleryEntries() on it, for host.
    explicit GalleryWindow(qt::QtHost& host, QWidget* parent = nullptr);
    ~GalleryWindow() override;

    /// The form holding the controls.
    qt::QtForm& form() const;
    /// The surface of the control named name, or null.
    qt::QtControlHost* control(const QString& name) const;
    /// The "Enable it" switch beside the control named name, or null.
    QCheckBox* enableSwitch(const QString& name) const;
    /// The settings switch with the given object name (see GallerySettings), or null.
    QWidget* settingsSwitch(const QString& objectName) const;
    /// The host in design mode that property dialogs opened from the gallery run on.
    qt::QtHost& designHost() const;

    /// The INI file that Save values and Load values use through the form's SettingHandle
    /// (corvex-gallery.ini in the INI folder unless another was set), as a native path.
    QString valuesFile() const;
    /// Makes Save values and Load values use another INI file (a name without a folder lies
    /// in the INI folder); the window shows its path.
    void setValuesFile(const QString& path);
    /// Saves every control's Value into valuesFile() with SettingHandle.SaveControlsToIni;
    /// false, with the file and the values that did not arrive shown, when the file could
    /// not be written (the old one then stays).
    bool saveValues();
    /// Restores every control's Value from valuesFile() with
    /// SettingHandle.GetControlsFromIni; false when there is no such file.
    bool loadValues();
    /// Calls Store on every control that has it.
    void storeAll();
    /// Calls Restore on every control that has it.
    void restoreAll();
    /// Switches the controls' locale: true Japanese (1041), false English (1033).
    void setJapanese(bool japanese);

    /// The line that shows every control's Value.
    QString valuesText() const;
    /// The event log, oldest first.
    QStringList eventLog() const;
    /// Adds a line to the event log; costs the same however long the log is.
    void log(const QString& line);
    /// The outcome of the last save or load, as shown beside the buttons.
    QString statusText() const;

signals:
    /// A line was added to the log.
    void logged(const QString& line);

private:
    SettingHandle& settingHandle() const;
    QStringList unsavedValues() const;
    QWidget* numberSettings(QWidget* parent);
    void fileNameSettings(qt::QtControlHost* control, QGridLayout* grid, int row);
    QWidget* optionSettings(QWidget* parent, qt::QtControlHost* control, const QString& name);
    QCheckBox* longItemSwitch(QWidget* parent, qt::QtControlHost* control, const QString& name);
    void fileDialogSettings(qt::QtControlHost* control, QGridLayout* grid, int row);
    void runFileDialog(qt::QtControlHost* control, bool save);
    void letControlProperty(qt::QtControlHost* control, std::u16string_view name,
                            const Variant& value);
    void report(const QString& message);
    bool reportFailure(const QString& message);
    QString valuesFile_;
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex::gallery
