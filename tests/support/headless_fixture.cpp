#include "support/headless_fixture.h"

#include "corvex/headless/form_windows.h"

namespace corvex::testing {

std::vector<std::u16string> eventNames(const std::vector<SeenEvent>& events) {
    std::vector<std::u16string> names;
    for (const auto& e : events) names.push_back(e.name);
    return names;
}

HeadlessHarness::HeadlessHarness() : form_(host_) {}

headless::Site& HeadlessHarness::site(const std::u16string& control) {
    headless::Site* s = form_.find(control);
    if (!s) throw std::runtime_error("no such control on the form");
    return *s;
}

Control& HeadlessHarness::add(const ClassInfo& cls, const std::u16string& name) {
    return form_.add(cls, name).control();
}

Control& HeadlessHarness::load(const ClassInfo& cls, const std::u16string& name, PropertyBag& bag) {
    return form_.load(cls, name, bag).control();
}

headless::HeadlessWidget& HeadlessHarness::headlessWidget(const std::u16string& control,
                                                          const std::u16string& name,
                                                          std::int16_t index) {
    headless::HeadlessWidget* w = site(control).widget(name, index);
    if (!w) throw std::runtime_error("no such widget");
    return *w;
}

Widget& HeadlessHarness::widget(const std::u16string& control, const std::u16string& name,
                                std::int16_t index) {
    return headlessWidget(control, name, index);
}

void HeadlessHarness::click(const std::u16string& control, const std::u16string& name,
                            std::int16_t index) {
    headlessWidget(control, name, index).click();
}

void HeadlessHarness::typeText(const std::u16string& control, const std::u16string& text) {
    headless::HeadlessWidget* w = site(control).keyTarget();
    if (!w) throw std::runtime_error("the control has no widget to type into");
    for (char16_t c : text) w->type(c);
}

void HeadlessHarness::typeInto(Widget& target, const std::u16string& text) {
    auto& w = dynamic_cast<headless::HeadlessWidget&>(target);
    for (char16_t c : text) w.type(c);
}

FormWindow* HeadlessHarness::formWindow(const std::u16string& name) {
    return host_.formWindows().find(name);
}

bool HeadlessHarness::windowShown(FormWindow& window) {
    return dynamic_cast<headless::HeadlessFormWindow&>(window).visible();
}

// A headless window has no frame to drag or close box to press: the user's act is the
// window's own.
void HeadlessHarness::userResize(FormWindow& window, float width, float height) {
    window.resize(width, height);
}

void HeadlessHarness::userClose(FormWindow& window) {
    window.close();
}

void HeadlessHarness::pressKeyOn(Widget& target, std::int16_t keyCode, std::int16_t shift) {
    dynamic_cast<headless::HeadlessWidget&>(target).pressKey(keyCode, shift);
}

void HeadlessHarness::pressKey(const std::u16string& control, std::int16_t keyCode,
                               std::int16_t shift) {
    headless::HeadlessWidget* w = site(control).keyTarget();
    if (!w) throw std::runtime_error("the control has no widget to press keys on");
    w->pressKey(keyCode, shift);
}

void HeadlessHarness::resize(const std::u16string& control, float width, float height) {
    site(control).resizeTo(width, height);
}

void HeadlessHarness::setScaleMode(const std::u16string& control, ScaleMode mode) {
    site(control).setScaleMode(mode);
}

std::vector<std::u16string> HeadlessHarness::changes(const std::u16string& control) {
    return site(control).changes;
}

std::vector<SeenEvent> HeadlessHarness::events(const std::u16string& control) {
    std::vector<SeenEvent> out;
    for (const auto& e : site(control).events) out.push_back({e.name, e.args});
    return out;
}

void HeadlessHarness::clearRecords(const std::u16string& control) {
    site(control).clearRecords();
}

void HeadlessHarness::setEventHandler(
    const std::u16string& control,
    std::function<void(const std::u16string&, std::span<Variant>)> h) {
    site(control).eventHandler = [h](const EventInfo& e, std::span<Variant> args) {
        h(e.name, args);
    };
}

std::vector<MessageBoxRequest> HeadlessHarness::messageBoxes() {
    return host_.messageBoxes();
}

void HeadlessHarness::queueAnswer(std::int32_t answer) {
    host_.queueAnswer(answer);
}

}  // namespace corvex::testing
