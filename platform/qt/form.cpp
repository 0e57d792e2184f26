#include "corvex/qt/form.h"

#include <QPointer>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "corvex/common/error.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"

namespace corvex::qt {

struct QtForm::Private {
    QtHost& host;
    QPointer<QWidget> window;
    FormModel model;

    Private(QtHost& h, QWidget* w) : host(h), window(w) {}

    double twipsPerPixelX() const { return window ? 1440.0 / window->logicalDpiX() : 15.0; }
    double twipsPerPixelY() const { return window ? 1440.0 / window->logicalDpiY() : 15.0; }
};

QtForm::QtForm(QtHost& host, QWidget* window) : d(std::make_unique<Private>(host, window)) {}

QtForm::~QtForm() {
    // Later controls go first, as a form unloads them; each surface leaves the model as
    // it goes.
    while (d->model.size() > 0) delete static_cast<QtControlHost*>(d->model.entries().back()->site);
}

QWidget* QtForm::window() const {
    return d->window;
}

QtHost& QtForm::host() const {
    return d->host;
}

QtControlHost* QtForm::addControl(const ClassInfo& cls, const QString& name, QWidget* container,
                                  std::int16_t index) {
    const ControlName controlName{fromQString(name), index};
    d->model.checkFree(controlName);
    auto* host = new QtControlHost(cls, d->host, container ? container : d->window.data(), this);
    host->setObjectName(name);
    try {
        d->model.add(*host, std::static_pointer_cast<Control>(host->object()), controlName);
    } catch (...) {
        delete host;
        throw;
    }
    host->joinModel(d->model);
    return host;
}

std::vector<QtControlHost*> QtForm::hosts() const {
    std::vector<QtControlHost*> out;
    out.reserve(d->model.size());
    for (const FormEntry* e : d->model.entries())
        out.push_back(static_cast<QtControlHost*>(e->site));
    return out;
}

QtControlHost* QtForm::find(const QString& name, std::int16_t index) const {
    const FormEntry* e = d->model.find(fromQString(name), index);
    return e ? static_cast<QtControlHost*>(e->site) : nullptr;
}

const FormModel& QtForm::model() const {
    return d->model;
}

std::vector<ObjectRef> QtForm::controls() const {
    return d->model.controls();
}

float QtForm::left() const {
    return d->window ? static_cast<float>(d->window->frameGeometry().x() * d->twipsPerPixelX())
                     : 0.f;
}

float QtForm::top() const {
    return d->window ? static_cast<float>(d->window->frameGeometry().y() * d->twipsPerPixelY())
                     : 0.f;
}

float QtForm::width() const {
    return d->window ? static_cast<float>(d->window->frameGeometry().width() * d->twipsPerPixelX())
                     : 0.f;
}

float QtForm::height() const {
    return d->window ? static_cast<float>(d->window->frameGeometry().height() * d->twipsPerPixelY())
                     : 0.f;
}

void QtForm::move(float left, float top, float width, float height) {
    QWidget* w = d->window;
    if (!w) return;
    const auto px = [](float twips, double tpp) {
        return static_cast<int>(std::lround(twips / tpp));
    };
    // The form's size is its outer size: the frame's share comes off the client area.
    const QSize frameExtra = w->frameGeometry().size() - w->size();
    w->move(px(left, d->twipsPerPixelX()), px(top, d->twipsPerPixelY()));
    w->resize(std::max(0, px(width, d->twipsPerPixelX()) - frameExtra.width()),
              std::max(0, px(height, d->twipsPerPixelY()) - frameExtra.height()));
}

bool QtForm::topMost() const {
    return d->window && d->window->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
}

bool QtForm::setTopMost(bool on) {
    QWidget* w = d->window;
    if (!w) return false;
    // Changing a window's flags hides it and may let the window system place it anew:
    // the place is put back and the window shown, as the topmost change asks for.
    const QPoint place = w->pos();
    w->setWindowFlag(Qt::WindowStaysOnTopHint, on);
    w->move(place);
    w->show();
    return true;
}

}  // namespace corvex::qt
