// The Qt host behind the shared test harness: the behaviour suites drive real Qt widgets
// in a shown, active window on the offscreen platform, and the user's actions go
// through Qt's own event delivery (QTest's mouse and key events).
#pragma once

#include <QWidget>
#include <deque>
#include <map>
#include <memory>

#include "corvex/qt/control_host.h"
#include "corvex/qt/form.h"
#include "corvex/qt/host.h"
#include "support/harness.h"

namespace corvex::testing {

/// A Harness over QtHost, one window and its QtForm.
class QtHarness : public Harness {
public:
    QtHarness();
    ~QtHarness() override;

    /// The host services (its message boxes go to the harness's records).
    qt::QtHost& host() { return host_; }
    /// The window the controls sit in.
    QWidget& window() const { return *window_; }
    /// The surface of a control; throws when there is none.
    qt::QtControlHost& surface(const std::u16string& control) const;
    /// The Qt widget a user acts on for an inner widget (a scroll area's viewport for the mouse).
    qt::QtWidget& innerWidget(const std::u16string& control, const std::u16string& name,
                              std::int16_t index = -1) const;

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
    void setClipboardText(const std::u16string& text) override;
    std::u16string clipboardText() override;
    void resize(const std::u16string& control, float width, float height) override;
    void setScaleMode(const std::u16string& control, ScaleMode mode) override;
    std::vector<std::u16string> changes(const std::u16string& control) override;
    std::vector<SeenEvent> events(const std::u16string& control) override;
    void clearRecords(const std::u16string& control) override;
    void setEventHandler(const std::u16string& control,
                         std::function<void(const std::u16string&, std::span<Variant>)> h) override;
    std::vector<MessageBoxRequest> messageBoxes() override;
    void queueAnswer(std::int32_t answer) override;
    WidgetFactory& widgets(const std::u16string& control) override { return surface(control); }
    void typeInto(Widget& target, const std::u16string& text) override;
    void pressKeyOn(Widget& target, std::int16_t keyCode, std::int16_t shift) override;
    FormWindow* formWindow(const std::u16string& name) override;
    bool windowShown(FormWindow& window) override;
    void userResize(FormWindow& window, float width, float height) override;
    void userClose(FormWindow& window) override;

private:
    struct Records {
        std::vector<std::u16string> changes;
        std::vector<SeenEvent> events;
        std::function<void(const std::u16string&, std::span<Variant>)> handler;
    };
    qt::QtControlHost& place(const ClassInfo& cls, const std::u16string& name);
    void showPlaced(qt::QtControlHost& surface);
    qt::QtWidget& keyTarget(const std::u16string& control) const;
    Records& records(const std::u16string& control);

    qt::QtHost host_;
    std::unique_ptr<QWidget> window_;
    std::unique_ptr<qt::QtForm> form_;
    std::map<std::u16string, Records> records_;
    std::vector<MessageBoxRequest> boxes_;
    std::deque<std::int32_t> answers_;
    int nextTop_ = 8;
};

}  // namespace corvex::testing
