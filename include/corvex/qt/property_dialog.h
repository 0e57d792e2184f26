// The designer's property dialog: one tab per property page, every page on the same
// selected controls, and OK, Cancel and Apply (enabled while a page holds edits).
#pragma once

#include <QDialog>
#include <QString>
#include <memory>
#include <vector>

#include "corvex/common/object.h"

class QPushButton;
class QTabWidget;

namespace corvex {
class PropertyPage;
}

namespace corvex::qt {

class QtControlHost;
class QtHost;

/// A tabbed property dialog. Each page is a control of its own class on this dialog,
/// created on host (whose UserMode should be design time), and reads the selection when
/// the dialog opens.
class PropertyDialog : public QDialog {
    Q_OBJECT

public:
    /// A dialog with a tab per class in pages (in that order), titled title, every page
    /// selected on selection.
    PropertyDialog(QtHost& host, const std::vector<const ClassInfo*>& pages,
                   std::vector<ObjectRef> selection, const QString& title,
                   QWidget* parent = nullptr);
    ~PropertyDialog() override;

    /// The tabs, one per page.
    QTabWidget* tabs() const;
    /// The number of pages.
    int pageCount() const;
    /// The surface of page i.
    QtControlHost* pageHost(int i) const;
    /// Page i itself.
    PropertyPage& page(int i) const;
    /// The Apply button (enabled while some page is changed).
    QPushButton* applyButton() const;
    /// Writes every changed page into the selection in tab order, then lets every page
    /// read the selection anew (so that they show what the control made of it). On an
    /// error the pages after the failing one are not written, the error is shown under
    /// the tabs and false is returned.
    bool apply();
    /// The line under the tabs: empty, or the last error.
    QString statusText() const;

private:
    void updateApply();
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex::qt
