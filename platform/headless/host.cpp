#include "corvex/headless/host.h"

#include <algorithm>

#include "corvex/headless/form_windows.h"
#include "corvex/headless/option_widgets.h"
#include "corvex/library/server.h"
#include "corvex/platform/widget_array.h"

namespace corvex::headless {

// --- host --------------------------------------------------------------------------

Host::Host() : formWindows_(std::make_unique<HeadlessFormWindows>(*this)) {
    font_.name = u"IPAGothic";
    font_.size = 9;
    font_.charset = 128;
}

Host::~Host() {
    formWindows_.reset();
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

Site::Site(Host& host, HeadlessForm& form, ControlName name, float width, float height)
    : host_(host), form_(form), name_(std::move(name)), width_(width), height_(height) {}

Site::~Site() {
    // The control's widgets go first, while their site still exists; a reference to the
    // control kept elsewhere then holds a detached control that refuses to work.
    form_.model_.remove(*this);
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

FormWindowService& Site::formWindows() {
    return host_.formWindows();
}

float Site::convert(float value, ScaleMode from, ScaleMode to, bool horizontal) const {
    // The container measures in twips; the user scale of a headless surface is twips too.
    const auto unit = [&](ScaleMode m) {
        const double t = twipsPerUnit(
            m, horizontal ? host_.twipsPerPixelX() : host_.twipsPerPixelY(), horizontal);
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

std::unique_ptr<Frame> Site::createFrame(const WidgetSpec& spec) {
    auto w = std::make_unique<HeadlessFrame>(*this, spec);
    widgets_.push_back(w.get());
    return w;
}

std::unique_ptr<OptionButton> Site::createOptionButton(const OptionButtonSpec& spec) {
    auto w = std::make_unique<HeadlessOptionButton>(*this, spec);
    widgets_.push_back(w.get());
    return w;
}

std::unique_ptr<ControlArray<OptionButton>> Site::createOptionButtonArray(
    const OptionButtonSpec& spec) {
    return std::make_unique<WidgetArray<OptionButton, OptionButtonSpec>>(
        spec, [this](const OptionButtonSpec& s) { return createOptionButton(s); });
}

std::unique_ptr<LineShape> Site::createLine(const LineSpec& spec) {
    auto w = std::make_unique<HeadlessLine>(*this, spec);
    widgets_.push_back(w.get());
    return w;
}

void Site::mouseOnSurface(WidgetEventType type, std::int16_t button, std::int16_t shift, float x,
                          float y) {
    WidgetEvent e;
    e.type = type;
    e.button = button;
    e.shift = shift;
    e.x = x;
    e.y = y;
    if (control_) control_->surfaceMouse(e);
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

namespace {
// Window handles as a window system hands them out: distinct, never 0.
std::int32_t nextWindowHandle() {
    static std::int32_t next = 0x10010;
    next += 0x10;
    return next;
}
}  // namespace

HeadlessForm::HeadlessForm(Host& host) : host_(host), hwnd_(nextWindowHandle()) {}

HeadlessForm::~HeadlessForm() {
    focused_ = nullptr;
    // Later controls go first, as a form unloads them.
    while (!sites_.empty()) sites_.pop_back();
}

Site& HeadlessForm::place(const ClassInfo& cls, ControlName name, PropertyBag* bag) {
    model_.checkFree(name);
    const auto [w, h] = cls.defaultSize();
    sites_.push_back(std::make_unique<Site>(host_, *this, name, w, h));
    Site& site = *sites_.back();
    try {
        site.attach(model_.adopt(createOnSite(cls, site), site, std::move(name)).control);
        model_.initialise(site, bag);
    } catch (...) {
        // The model has let the control go already; its site follows.
        sites_.pop_back();
        throw;
    }
    site.control().show();
    return site;
}

Site& HeadlessForm::add(const ClassInfo& cls, std::u16string name, std::int16_t index) {
    return place(cls, {std::move(name), index}, nullptr);
}

Site& HeadlessForm::load(const ClassInfo& cls, std::u16string name, PropertyBag& bag,
                         std::int16_t index) {
    return place(cls, {std::move(name), index}, &bag);
}

void HeadlessForm::remove(std::u16string_view name, std::int16_t index) {
    Site* site = find(name, index);
    if (!site) {
        if (model_.isArray(name)) throw Error(err::ControlArrayElementMissing);
        throw Error(err::ObjectRequired);
    }
    const auto it = std::find_if(sites_.begin(), sites_.end(),
                                 [&](const std::unique_ptr<Site>& s) { return s.get() == site; });
    // The site leaves the list before it goes, so that nothing reached from its
    // destruction finds it half gone.
    std::unique_ptr<Site> gone = std::move(*it);
    sites_.erase(it);
    gone.reset();
}

Site* HeadlessForm::find(std::u16string_view name, std::int16_t index) const {
    const FormEntry* e = model_.find(name, index);
    return e ? static_cast<Site*>(e->site) : nullptr;
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
    return model_.controls();
}

void HeadlessForm::move(float left, float top, float width, float height) {
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
}

bool HeadlessForm::setTopMost(bool on) {
    topMost_ = on;
    return true;
}

}  // namespace corvex::headless
