// The headless host as a test harness, and a fixture for headless-only tests.
#pragma once

#include <gtest/gtest.h>

#include <stdexcept>

#include "corvex/headless/host.h"
#include "support/harness.h"

namespace corvex::testing {

/// The headless host behind the harness interface; tests may also reach the host itself.
class HeadlessHarness : public Harness {
public:
    HeadlessHarness();
    /// The host.
    headless::Host& host() { return host_; }
    /// The form.
    headless::HeadlessForm& form() { return form_; }
    /// A control's site; throws when there is none.
    headless::Site& site(const std::u16string& control);
    /// A control's headless widget; throws when there is none.
    headless::HeadlessWidget& headlessWidget(const std::u16string& control,
                                             const std::u16string& name, std::int16_t index = -1);

    void setLocaleId(std::int32_t id) override { host_.setLocaleId(id); }
    void setUserMode(bool runMode) override { host_.setUserMode(runMode); }
    Control& add(const ClassInfo& cls, const std::u16string& name) override;
    Control& load(const ClassInfo& cls, const std::u16string& name, PropertyBag& bag) override;
    Widget& widget(const std::u16string& control, const std::u16string& name,
                   std::int16_t index = -1) override;
    void click(const std::u16string& control, const std::u16string& name,
               std::int16_t index = -1) override;
    void typeText(const std::u16string& control, const std::u16string& text) override;
    void pressKey(const std::u16string& control, std::int16_t keyCode, std::int16_t shift) override;
    void setClipboardText(const std::u16string& text) override { host_.setText(text); }
    std::u16string clipboardText() override { return host_.text(); }
    void resize(const std::u16string& control, float width, float height) override;
    void setScaleMode(const std::u16string& control, ScaleMode mode) override;
    std::vector<std::u16string> changes(const std::u16string& control) override;
    std::vector<SeenEvent> events(const std::u16string& control) override;
    void clearRecords(const std::u16string& control) override;
    void setEventHandler(const std::u16string& control,
                         std::function<void(const std::u16string&, std::span<Variant>)> h) override;
    std::vector<MessageBoxRequest> messageBoxes() override;
    void queueAnswer(std::int32_t answer) override;
    WidgetFactory& widgets(const std::u16string& control) override { return site(control); }
    void typeInto(Widget& target, const std::u16string& text) override;
    void pressKeyOn(Widget& target, std::int16_t keyCode, std::int16_t shift) override;
    FormWindow* formWindow(const std::u16string& name) override;
    bool windowShown(FormWindow& window) override;
    void userResize(FormWindow& window, float width, float height) override;
    void userClose(FormWindow& window) override;

private:
    headless::Host host_;
    headless::HeadlessForm form_;
};

/// A fixture for tests that need the headless host's own records.
class HeadlessTest : public ::testing::Test {
protected:
    HeadlessHarness h;
};

}  // namespace corvex::testing
