#include "corvex/headless/host.h"

#include <algorithm>

namespace corvex::headless {

// --- host --------------------------------------------------------------------------

Host::Host() {
    font_.name = u"IPAGothic";
    font_.size = 9;
    font_.charset = 128;
}

std::int32_t Host::messageBox(const MessageBoxRequest& request) {
    shown_.push_back(request);
    if (observer_) observer_->messageBoxShown(request);
    if (answers_.empty()) return mb::AnswerOk;
    const std::int32_t answer = answers_.front();
    answers_.pop_front();
    return answer;
}

// --- site --------------------------------------------------------------------------

Site::Site(Host& host, HeadlessForm& form, std::u16string name, float width, float height)
    : host_(host), form_(form), name_(std::move(name)), width_(width), height_(height) {}

Site::~Site() {
    // The control's widgets go first, while their site still exists; a reference to the
    // control kept elsewhere then holds a detached control that refuses to work.
    if (control_) control_->detach();
    control_.reset();
}

HeadlessWidget* Site::widget(std::u16string_view name, std::int16_t index) const {
    for (HeadlessWidget* w : widgets_) {
        if (w->name() == name && w->index() == index) return w;
    }
    return nullptr;
}

HeadlessWidget* Site::keyTarget() const {
    for (HeadlessWidget* w : widgets_) {
        if (w->hasFocus()) return w;
    }
    for (HeadlessWidget* w : widgets_) {
        if (dynamic_cast<HeadlessTextBox*>(w)) return w;
    }
    return widgets_.empty() ? nullptr : widgets_.front();
}

void Site::clearRecords() {
    events.clear();
    changes.clear();
}

std::vector<std::u16string> Site::eventNames() const {
    std::vector<std::u16string> names;
    for (const auto& e : events) names.push_back(e.name);
    return names;
}

void Site::resizeTo(float width, float height) {
    width_ = width;
    height_ = height;
    if (control_) control_->resize();
}

Form* Site::parentForm() {
    return &form_;
}

float Site::convert(float value, ScaleMode from, ScaleMode to, bool horizontal) const {
    // The container measures in twips; the user scale of a headless surface is twips too.
    const auto unit = [&](ScaleMode m) {
        const double t = twipsPerUnit(m, host_.twipsPerPixel(), horizontal);
        return t == 0 ? 1.0 : t;
    };
    return static_cast<float>(value * unit(from) / unit(to));
}

float Site::scaleWidth() const {
    return convert(width_, ScaleMode::Twips, scaleMode_, true);
}

float Site::scaleHeight() const {
    return convert(height_, ScaleMode::Twips, scaleMode_, false);
}

float Site::scaleX(float value, ScaleMode from, ScaleMode to) const {
    return convert(value, from, to, true);
}

float Site::scaleY(float value, ScaleMode from, ScaleMode to) const {
    return convert(value, from, to, false);
}

std::unique_ptr<CheckBox> Site::createCheckBox(const WidgetSpec& spec) {
    auto w = std::make_unique<HeadlessCheckBox>(*this, spec);
    widgets_.push_back(w.get());
    return w;
}

std::unique_ptr<TextBox> Site::createTextBox(const TextBoxSpec& spec) {
    auto w = std::make_unique<HeadlessTextBox>(*this, spec);
    widgets_.push_back(w.get());
    return w;
}

void Site::forget(HeadlessWidget* w) {
    widgets_.erase(std::remove(widgets_.begin(), widgets_.end(), w), widgets_.end());
    form_.widgetGone(w);
}

void Site::propertyChanged(std::u16string_view name) {
    changes.emplace_back(name);
    if (auto* o = host_.observer()) o->propertyChanged(*this, name);
}

void Site::raiseEvent(const EventInfo& event, std::span<Variant> args) {
    if (eventHandler) eventHandler(event, args);
    events.push_back({event.name, event.dispId, std::vector<Variant>(args.begin(), args.end())});
    if (auto* o = host_.observer()) o->eventRaised(*this, event, args);
}

// --- form --------------------------------------------------------------------------

HeadlessForm::HeadlessForm(Host& host) : host_(host) {}

HeadlessForm::~HeadlessForm() {
    focused_ = nullptr;
    // Later controls go first, as a form unloads them.
    while (!sites_.empty()) sites_.pop_back();
}

Site& HeadlessForm::place(const ClassInfo& cls, std::u16string name, PropertyBag* bag) {
    if (find(name)) {
        throw Error(err::WrongArguments, u"A control named " + name + u" is already on the form");
    }
    const auto [w, h] = cls.defaultSize();
    auto site = std::make_unique<Site>(host_, *this, std::move(name), w, h);
    std::shared_ptr<Object> object = cls.create(*site);
    auto control = std::dynamic_pointer_cast<Control>(object);
    if (!control) throw Error(err::TypeMismatch, cls.name() + u" is not a control");
    site->attach(control);
    Site& ref = *site;
    sites_.push_back(std::move(site));
    try {
        if (bag) {
            control->readProperties(*bag);
        } else {
            control->initProperties();
        }
    } catch (...) {
        // A control that could not load does not stay on the form; it goes before its
        // site, since its widgets still report to the site as they go.
        object.reset();
        control.reset();
        sites_.pop_back();
        throw;
    }
    control->resize();
    control->show();
    return ref;
}

Site& HeadlessForm::add(const ClassInfo& cls, std::u16string name) {
    return place(cls, std::move(name), nullptr);
}

Site& HeadlessForm::load(const ClassInfo& cls, std::u16string name, PropertyBag& bag) {
    return place(cls, std::move(name), &bag);
}

Site* HeadlessForm::find(std::u16string_view name) const {
    for (const auto& s : sites_) {
        if (s->name() == name) return s.get();
    }
    return nullptr;
}

std::vector<Site*> HeadlessForm::sites() const {
    std::vector<Site*> out;
    for (const auto& s : sites_) out.push_back(s.get());
    return out;
}

void HeadlessForm::focus(HeadlessWidget* widget) {
    if (focused_ == widget) return;
    HeadlessWidget* old = focused_;
    focused_ = widget;
    // Only a widget that was told it has the focus hears that it lost it: a handler that
    // takes the focus back while another box is on its way in must not make that box
    // lose a focus it never had (two invalid boxes would otherwise bounce it for ever).
    if (old && old == told_) {
        told_ = nullptr;
        WidgetEvent e;
        e.type = WidgetEventType::LostFocus;
        old->emit(e);
    }
    // A LostFocus handler may have taken the focus back; then the new widget never got it.
    if (widget && focused_ == widget && told_ != widget) {
        told_ = widget;
        WidgetEvent e;
        e.type = WidgetEventType::GotFocus;
        widget->emit(e);
    }
}

void HeadlessForm::widgetGone(HeadlessWidget* w) {
    if (focused_ == w) focused_ = nullptr;
    if (told_ == w) told_ = nullptr;
}

std::vector<ObjectRef> HeadlessForm::controls() const {
    std::vector<ObjectRef> out;
    for (const auto& s : sites_) out.push_back(s->controlRef());
    return out;
}

void HeadlessForm::move(float left, float top, float width, float height) {
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
}

}  // namespace corvex::headless
