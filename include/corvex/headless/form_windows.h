// The headless host's own windows (the notes form): in memory, with widgets as a control's
// site makes them, and a list of the windows open so that tests and scripts reach them.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "corvex/headless/host.h"
#include "corvex/platform/form_window.h"

namespace corvex::headless {

class HeadlessFormWindows;

/// One headless form window: its inner size in twips and the widgets made inside it.
class HeadlessFormWindow : public FormWindow {
public:
    /// A hidden window of a service, made from spec.
    HeadlessFormWindow(Host& host, HeadlessFormWindows& service, const FormWindowSpec& spec);
    ~HeadlessFormWindow() override;

    const std::u16string& name() const override { return name_; }
    WidgetFactory& widgets() override { return *site_; }
    float width() const override { return width_; }
    float height() const override { return height_; }
    void resize(float width, float height) override;
    void show() override;
    void close() override;

    /// Whether it is shown.
    bool visible() const { return visible_; }
    /// The caption.
    const std::u16string& caption() const { return caption_; }
    /// A widget inside by design name; null when there is none.
    HeadlessWidget* widget(std::u16string_view name) const;
    /// The site the widgets sit on.
    const Site& site() const { return *site_; }
    /// Which window of its name this is, from 1, in the order the service made them.
    int serial() const { return serial_; }

private:
    Host& host_;
    HeadlessFormWindows* service_;
    std::u16string name_;
    std::u16string caption_;
    float width_;
    float height_;
    FormWindowListener* listener_;
    bool visible_ = false;
    int serial_ = 0;
    HeadlessForm form_;
    std::unique_ptr<Site> site_;
    friend class HeadlessFormWindows;
};

/// Makes headless windows and knows the ones that exist. Every window still open when the
/// service goes is closed first, so that its owner lets go of it.
class HeadlessFormWindows : public FormWindowService {
public:
    /// The windows of a host.
    explicit HeadlessFormWindows(Host& host) : host_(host) {}
    ~HeadlessFormWindows() override;
    std::unique_ptr<FormWindow> createFormWindow(const FormWindowSpec& spec) override;

    /// The window of a design name (ASCII case ignored); null when none exists.
    HeadlessFormWindow* find(std::u16string_view name) const;
    /// Called each time a window is shown (also when it is shown already).
    std::function<void(HeadlessFormWindow&)> onShown;

private:
    friend class HeadlessFormWindow;
    Host& host_;
    std::vector<HeadlessFormWindow*> windows_;
    std::vector<std::pair<std::u16string, int>> made_;  // windows made so far, by name
};

}  // namespace corvex::headless
