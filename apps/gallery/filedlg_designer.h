// A design-mode view of a FileDialogBox, as a form designer shows it, from which its
// property dialog (the four pages in tabs) opens.
#pragma once

#include <QDialog>
#include <memory>

#include "corvex/common/object.h"

namespace corvex::qt {
class PropertyDialog;
class QtControlHost;
class QtHost;
}  // namespace corvex::qt

namespace corvex::gallery {

/// Opens the tabbed property dialog of a FileDialogBox on box, a control of designHost (a
/// host in design mode); the dialog is modeless and deletes itself when closed.
qt::PropertyDialog* openFileDialogPages(qt::QtHost& designHost, ObjectRef box, QWidget* parent);

/// A dialog holding one FileDialogBox in design mode, with a button that opens its pages.
class FileDialogDesigner : public QDialog {
    Q_OBJECT

public:
    /// The dialog with a FileDialogBox placed new (a text-file filter set on it).
    explicit FileDialogDesigner(QWidget* parent = nullptr);
    ~FileDialogDesigner() override;

    /// The FileDialogBox's surface.
    qt::QtControlHost* dialogBox() const;
    /// Opens the property dialog on the box (as the "Properties..." button does).
    qt::PropertyDialog* openPages();

private:
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex::gallery
