// A form in the Qt host: a top-level window that holds controls in creation order.
#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "corvex/common/form_model.h"
#include "corvex/platform/form.h"

class QWidget;

namespace corvex {
class ClassInfo;
}

namespace corvex::qt {

class QtControlHost;
class QtHost;

/// The parent form of the controls placed in a top-level QWidget. Controls may sit
/// anywhere inside the window (group boxes, layouts); the form keeps them in creation
/// order and measures the window in twips. It is not itself a QWidget, because
/// Form::width() (twips) and QWidget::width() (pixels) cannot share one class.
class QtForm : public Form {
public:
    /// The form of window (not owned), for host's controls.
    QtForm(QtHost& host, QWidget* window);
    /// Unloads the controls still on the form, the last created first.
    ~QtForm() override;
    QtForm(const QtForm&) = delete;
    QtForm& operator=(const QtForm&) = delete;

    /// The window the form measures.
    QWidget* window() const;
    /// The host services.
    QtHost& host() const;
    /// Creates a control of class cls named name inside container (the window when null);
    /// index makes it an element of the control array name. It is not initialised yet:
    /// call initNew() or load() on the result. Raises 450 for a name the form holds
    /// already (ASCII case ignored).
    QtControlHost* addControl(const ClassInfo& cls, const QString& name,
                              QWidget* container = nullptr, std::int16_t index = NoIndex);
    /// The surfaces of the controls still on the form, in creation order (controls
    /// inside group boxes and other containers of the window included).
    std::vector<QtControlHost*> hosts() const;
    /// The surface of the control named name (ASCII case ignored) with index, or null.
    QtControlHost* find(const QString& name, std::int16_t index = NoIndex) const;
    /// The form's controls, their names and their lifecycle.
    const FormModel& model() const;

    /// The controls still on the form, in creation order.
    std::vector<ObjectRef> controls() const override;
    /// The window frame's left edge on the screen, twips.
    float left() const override;
    /// The window frame's top edge on the screen, twips.
    float top() const override;
    /// The window's outer width, twips.
    float width() const override;
    /// The window's outer height, twips.
    float height() const override;
    /// Moves and sizes the window by its outer frame (twips).
    void move(float left, float top, float width, float height) override;
    /// Whether the window has the stays-on-top hint.
    bool topMost() const override;
    /// Sets or clears the window's stays-on-top hint and shows the window where it was;
    /// false when the window has gone.
    bool setTopMost(bool on) override;

private:
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex::qt
