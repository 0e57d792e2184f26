// ppgFILEDLG1 .. ppgFILEDLG4: the four property pages on which a FileDialogBox is edited
// in the designer, each for a group of its properties.
#pragma once

#include <cstdint>
#include <memory>

#include "corvex/services/property_page.h"

namespace corvex {

struct FileDialogPageDesign;

/// The key that a digits-only box of these pages keeps: Backspace and "0" to "9" pass,
/// every other key (Enter included) becomes 0 and inserts nothing.
std::int16_t digitsOnlyKey(std::int16_t keyAscii);

/// What the four pages share: widgets made from the page's design, SelectionChanged
/// reading the first selected control by member name, ApplyChanges writing it in the
/// design's order, the changed mark on every edit, the digits-only boxes and the
/// check-box couplings shown at once.
class FileDialogPage : public PropertyPage {
public:
    ~FileDialogPage() override;
    /// The page's tab caption (Japanese, as the page's design has it).
    std::u16string caption() const override;

protected:
    /// A page on a host site, made from its design.
    FileDialogPage(ControlSite& site, const FileDialogPageDesign& design);
    void selectionChanged() override;
    void applyChanges() override;
    void widgetEvent(Widget& source, WidgetEvent& event) override;
    void releaseWidgets() override;

private:
    void makeWidgets();
    void makeModeButtons(float top);
    void clicked(Widget& source);
    void couple(const std::u16string& box, bool checked);
    void coupleNames();
    void showAllowedBoxes();
    struct Private;
    std::unique_ptr<Private> const d;
};

/// ppgFILEDLG1: the mode, the file name, the filter and its index, the initial folder,
/// the default extension and the maximum file size.
class FileDialogPage1 : public FileDialogPage {
public:
    /// The page on a host site, with all its widgets.
    explicit FileDialogPage1(ControlSite& site);
    /// The table of the ppgFILEDLG1 class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }
};

/// ppgFILEDLG2: the ten flags of file names, multi-selection and prompts.
class FileDialogPage2 : public FileDialogPage {
public:
    /// The page on a host site, with all its widgets.
    explicit FileDialogPage2(ControlSite& site);
    /// The table of the ppgFILEDLG2 class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }
};

/// ppgFILEDLG3: the help button, the read-only flags, NoChangeDir and the dialog title.
class FileDialogPage3 : public FileDialogPage {
public:
    /// The page on a host site, with all its widgets.
    explicit FileDialogPage3(ControlSite& site);
    /// The table of the ppgFILEDLG3 class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }
};

/// ppgFILEDLG4: NoDereferenceLinks and ShareAware.
class FileDialogPage4 : public FileDialogPage {
public:
    /// The page on a host site, with all its widgets.
    explicit FileDialogPage4(ControlSite& site);
    /// The table of the ppgFILEDLG4 class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }
};

}  // namespace corvex
