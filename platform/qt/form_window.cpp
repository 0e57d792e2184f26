#include "corvex/qt/form_window.h"

#include <QCloseEvent>
#include <QObject>
#include <algorithm>
#include <cmath>

#include "corvex/common/control.h"
#include "corvex/common/text.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"
#include "corvex/qt/host.h"

namespace corvex::qt {

// The window's inside as the core sees a control: no members, nothing saved, and a resize
// that the window passes on to its listener.
class QtFormWindow::Layout : public Control {
public:
    explicit Layout(ControlSite& site) : Control(site) {}
    static const ClassInfo& staticClassInfo() {
        static const ClassInfo info(
            u"FormWindowSurface", ClassKind::Object, {}, {},
            [](ControlSite& site) { return std::make_shared<Layout>(site); });
        return info;
    }
    const ClassInfo& classInfo() const override { return staticClassInfo(); }
    void initProperties() override {}
    void readProperties(PropertyBag&) override {}
    void writeProperties(PropertyBag&) override {}
    void resize() override {
        if (window) window->laidOut();
    }
    QtFormWindow* window = nullptr;

protected:
    void widgetEvent(Widget&, WidgetEvent&) override {}
    void releaseWidgets() override {}
};

// Hears the window box's close before Qt hides the window.
class QtFormWindow::Watcher : public QObject {
public:
    Watcher(QtFormWindow& w, QObject* parent) : QObject(parent), window(&w) {}
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Close && window) {
            QtFormWindow* w = window;
            window = nullptr;
            w->inCloseEvent_ = true;
            w->closedByUser();  // may destroy w
        }
        return false;
    }
    QtFormWindow* window;
};

QtFormWindow::QtFormWindow(QtHost& host, QtFormWindows& service, const FormWindowSpec& spec)
    : name_(spec.name), listener_(nullptr), service_(&service) {
    surface_ = new QtControlHost(Layout::staticClassInfo(), host);
    surface_->setObjectName(toQString(spec.name));
    surface_->setWindowTitle(toQString(spec.caption));
    surface_->setAttribute(Qt::WA_DeleteOnClose, false);
    surface_->initNew();
    static_cast<Layout&>(surface_->control()).window = this;
    surface_->installEventFilter(new Watcher(*this, surface_));
    // The listener hears resizes only from here on: the size it is made with is no news.
    surface_->surface().setSize(spec.width, spec.height);
    listener_ = spec.listener;
    service.windows_.push_back(this);
}

QtFormWindow::~QtFormWindow() {
    if (service_) std::erase(service_->windows_, this);
    // Nothing of the Qt window calls back from here on.
    if (auto* watcher = surface_->findChild<Watcher*>()) watcher->window = nullptr;
    static_cast<Layout&>(surface_->control()).window = nullptr;
    surface_->hide();
    // Closed from its own window box, the Qt window is still delivering that close: it goes
    // once Qt has finished. Otherwise it goes now.
    if (inCloseEvent_) {
        surface_->deleteLater();
    } else {
        delete surface_;
    }
}

WidgetFactory& QtFormWindow::widgets() {
    return *surface_;
}

float QtFormWindow::width() const {
    return surface_->surface().width();
}

float QtFormWindow::height() const {
    return surface_->surface().height();
}

void QtFormWindow::resize(float width, float height) {
    surface_->surface().setSize(width, height);
}

void QtFormWindow::show() {
    surface_->show();
    surface_->raise();
    surface_->activateWindow();
    if (service_ && service_->onShown) service_->onShown(*this);
}

void QtFormWindow::close() {
    if (auto* watcher = surface_->findChild<Watcher*>()) watcher->window = nullptr;
    surface_->hide();
    closedByUser();
}

void QtFormWindow::closedByUser() {
    closing_ = true;
    // Off the list now: the listener may destroy this window, and a closed window is gone
    // for whoever looks it up.
    if (service_) std::erase(service_->windows_, this);
    service_ = nullptr;
    if (FormWindowListener* l = listener_) l->formClosed();
}

void QtFormWindow::laidOut() {
    if (listener_ && !closing_) listener_->formResized();
}

QtFormWindows::~QtFormWindows() {
    // Closing lets each owner release its window; copied first, as each close shortens
    // the list.
    const auto open = windows_;
    for (QtFormWindow* w : open) w->close();
    for (QtFormWindow* w : windows_) w->service_ = nullptr;
}

std::unique_ptr<FormWindow> QtFormWindows::createFormWindow(const FormWindowSpec& spec) {
    return std::make_unique<QtFormWindow>(host_, *this, spec);
}

QtFormWindow* QtFormWindows::find(std::u16string_view name) const {
    for (QtFormWindow* w : windows_) {
        if (equalsIgnoringCase(w->name(), name)) return w;
    }
    return nullptr;
}

}  // namespace corvex::qt
