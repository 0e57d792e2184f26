// The Qt host's own windows (the notes form): a top-level, resizable window whose inside
// is a surface the core lays its widgets out on.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include "corvex/platform/form_window.h"

class QWidget;

namespace corvex::qt {

class QtControlHost;
class QtHost;
class QtFormWindows;

/// One window: a top-level QtControlHost of its own that makes the Qt widgets inside it.
/// Its width and height are the inner size in twips; every resize, by the user or by
/// code, is heard by the listener, and so is the close (the window box's or close()).
class QtFormWindow : public FormWindow {
public:
    /// A hidden window of service made from spec.
    QtFormWindow(QtHost& host, QtFormWindows& service, const FormWindowSpec& spec);
    /// Takes the Qt window away: at once, or, when the user closed it with its window box,
    /// once Qt has finished delivering that close.
    ~QtFormWindow() override;

    const std::u16string& name() const override { return name_; }
    WidgetFactory& widgets() override;
    float width() const override;
    float height() const override;
    void resize(float width, float height) override;
    void show() override;
    void close() override;

    /// The Qt window itself (the surface the widgets sit on).
    QtControlHost& surface() const { return *surface_; }

private:
    friend class QtFormWindows;
    class Watcher;
    class Layout;
    void closedByUser();
    void laidOut();
    std::u16string name_;
    FormWindowListener* listener_;
    QtFormWindows* service_;
    QtControlHost* surface_;
    bool closing_ = false;
    bool inCloseEvent_ = false;  // closed by its window box: Qt is delivering the close
};

/// Makes the Qt host's windows and knows the ones open. Every window still open when the
/// service goes is closed first, so that its owner lets go of it.
class QtFormWindows : public FormWindowService {
public:
    /// The windows of a host.
    explicit QtFormWindows(QtHost& host) : host_(host) {}
    ~QtFormWindows() override;
    std::unique_ptr<FormWindow> createFormWindow(const FormWindowSpec& spec) override;

    /// The open window of a design name (ASCII case ignored); null when none is open.
    QtFormWindow* find(std::u16string_view name) const;
    /// Called each time a window is shown (also when it is shown already).
    std::function<void(QtFormWindow&)> onShown;

private:
    friend class QtFormWindow;
    QtHost& host_;
    std::vector<QtFormWindow*> windows_;
};

}  // namespace corvex::qt
