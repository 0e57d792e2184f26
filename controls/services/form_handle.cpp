#include "corvex/services/form_handle.h"

namespace corvex {

struct FormHandle::Private {
    Form* form = nullptr;  // taken when the saved properties are read
};

FormHandle::FormHandle(ControlSite& site) : ServiceControl(site), d(std::make_unique<Private>()) {}

FormHandle::~FormHandle() = default;

const ClassInfo& FormHandle::staticClassInfo() {
    static const ClassInfo info = [] {
        using F = FormHandle;
        return ClassInfo(u"FormHandle", ClassKind::ServiceControl,
                         MemberTable<F>()
                             .method(u"SetFormTop", &F::setFormTop, {u"Mode"})
                             .passedByRef(0)
                             .help(u"フォームを常に手前に表示するかどうかを設定します。",
                                   u"Sets whether the form stays on top of other windows.")
                             .method(u"SetFormCenter", &F::setFormCenter)
                             .help(u"フォームを画面の中央に移動します。",
                                   u"Moves the form to the centre of the screen.")
                             .method(u"MoveInScreen", &F::moveInScreen, {u"lngMode"})
                             .help(u"画面外にあるフォームを画面内に移動します。",
                                   u"Moves a form that lies off the screen back onto it.")
                             .build(),
                         serviceEvents(),
                         [](ControlSite& site) { return std::make_shared<FormHandle>(site); },
                         {ServiceIconSize, ServiceIconSize});
    }();
    return info;
}

void FormHandle::readProperties(PropertyBag&) {
    // Nothing is saved; reading is the moment the control takes its form.
    d->form = site().parentForm();
}

void FormHandle::releaseWidgets() {
    d->form = nullptr;
}

Form& FormHandle::form() const {
    checkAvailable();
    // A control placed new, never loaded, holds no form, like an object variable never set.
    if (!d->form) throw Error(err::ObjectRequired, u"FormHandle has no form: it was never loaded");
    return *d->form;
}

std::int32_t FormHandle::setFormTop(std::optional<std::int32_t> mode) {
    const std::int32_t m = mode.value_or(1);
    if (m != 0 && m != 1) return 0;
    return form().setTopMost(m == 1) ? 1 : 0;
}

void FormHandle::setFormCenter() {
    Form& f = form();
    const Screen& screen = site().screen();
    // Single precision, no rounding: a form larger than the screen gets a negative place.
    const float left = (screen.width() - f.width()) / 2.0f;
    const float top = (screen.height() - f.height()) / 2.0f;
    f.move(left, top, f.width(), f.height());
}

void FormHandle::moveInScreen(std::optional<std::int32_t> mode) {
    const Screen& screen = site().screen();
    const float screenHeight = screen.height();
    const float screenWidth = screen.width();
    Form& f = form();
    const float top = f.top();
    const float left = f.left();
    // Only the top-left corner counts, and a corner on the edge is inside.
    const bool outside = top < 0 || left < 0 || top > screenHeight || left > screenWidth;
    if (!outside) return;
    switch (mode.value_or(0)) {
        case 0:
            f.move(0, 0, f.width(), f.height());
            break;
        case 1:
            setFormCenter();
            break;
        default:
            break;
    }
}

}  // namespace corvex
