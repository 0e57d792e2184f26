#include "corvex/headless/form_windows.h"

#include <algorithm>

#include "corvex/common/text.h"

namespace corvex::headless {

HeadlessFormWindow::HeadlessFormWindow(Host& host, HeadlessFormWindows& service,
                                       const FormWindowSpec& spec)
    : host_(host),
      service_(&service),
      name_(spec.name),
      caption_(spec.caption),
      width_(spec.width),
      height_(spec.height),
      listener_(spec.listener),
      form_(host) {
    // The widgets sit on a site of the window's own, with no control on it.
    site_ = std::make_unique<Site>(host_, form_, ControlName{name_}, width_, height_);
    service.windows_.push_back(this);
}

HeadlessFormWindow::~HeadlessFormWindow() {
    site_.reset();
    if (service_) std::erase(service_->windows_, this);
}

void HeadlessFormWindow::resize(float width, float height) {
    width_ = width;
    height_ = height;
    site_->resizeTo(width, height);
    if (listener_) listener_->formResized();
}

void HeadlessFormWindow::show() {
    visible_ = true;
    if (service_ && service_->onShown) service_->onShown(*this);
}

void HeadlessFormWindow::close() {
    visible_ = false;
    // Off the list now: the listener may destroy the window, and a closed window is gone
    // for whoever looks it up.
    if (service_) std::erase(service_->windows_, this);
    service_ = nullptr;
    if (FormWindowListener* l = listener_) l->formClosed();
}

HeadlessWidget* HeadlessFormWindow::widget(std::u16string_view name) const {
    return site_->widget(name);
}

HeadlessFormWindows::~HeadlessFormWindows() {
    // Closing lets each owner release its window; copied first, as each close shortens
    // the list.
    const auto open = windows_;
    for (HeadlessFormWindow* w : open) w->close();
    for (HeadlessFormWindow* w : windows_) w->service_ = nullptr;
}

std::unique_ptr<FormWindow> HeadlessFormWindows::createFormWindow(const FormWindowSpec& spec) {
    auto w = std::make_unique<HeadlessFormWindow>(host_, *this, spec);
    auto it = std::find_if(made_.begin(), made_.end(),
                           [&](const auto& m) { return equalsIgnoringCase(m.first, spec.name); });
    if (it == made_.end()) it = made_.insert(made_.end(), {spec.name, 0});
    w->serial_ = ++it->second;
    return w;
}

HeadlessFormWindow* HeadlessFormWindows::find(std::u16string_view name) const {
    for (HeadlessFormWindow* w : windows_) {
        if (equalsIgnoringCase(w->name(), name)) return w;
    }
    return nullptr;
}

}  // namespace corvex::headless
