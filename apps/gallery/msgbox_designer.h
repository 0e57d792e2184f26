// A design-mode view of a MessageBox with its property page, as a form designer shows
// them: the page edits the box, Apply writes the page into it, and the box can be tried.
#pragma once

#include <QDialog>
#include <cstdint>
#include <memory>

namespace corvex::qt {
class QtControlHost;
}

namespace corvex::gallery {

/// A dialog holding one MessageBox in design mode and the ppgMSGBOX page selected on it.
class MessageBoxDesigner : public QDialog {
    Q_OBJECT

public:
    /// The dialog, with a MessageBox that asks "Save the changes?" selected on the page.
    explicit MessageBoxDesigner(QWidget* parent = nullptr);
    ~MessageBoxDesigner() override;

    /// The MessageBox's surface.
    qt::QtControlHost* messageBox() const;
    /// The property page's surface.
    qt::QtControlHost* page() const;
    /// Writes the page into the MessageBox (the page's Apply), showing the outcome.
    void apply();
    /// Shows the box as the MessageBox is set now and returns the answer.
    std::int32_t tryIt();
    /// The line under the page: what was applied, or the error.
    QString statusText() const;

private:
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex::gallery
