// One test suite, every host: behaviour tests drive a control through this harness, and
// each test program supplies the hosts it can run (headless always, Qt under offscreen).
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "corvex/common/control.h"
#include "corvex/common/text.h"
#include "corvex/platform/form_window.h"
#include "corvex/platform/message_box.h"
#include "corvex/platform/surface.h"
#include "corvex/platform/widgets.h"

namespace corvex::testing {

/// An event as a host delivered it to the application, arguments after the handler ran.
struct SeenEvent {
    std::u16string name;        ///< event name
    std::vector<Variant> args;  ///< arguments
};

/// A host with one form, driven the way a user and an application would drive it.
class Harness {
public:
    virtual ~Harness() = default;
    /// Sets the ambient LocaleID.
    virtual void setLocaleId(std::int32_t id) = 0;
    /// Sets the ambient UserMode.
    virtual void setUserMode(bool runMode) = 0;
    /// Places a new control (initialised as new, default size, shown).
    virtual Control& add(const ClassInfo& cls, const std::u16string& name) = 0;
    /// Places a control loaded from a bag.
    virtual Control& load(const ClassInfo& cls, const std::u16string& name, PropertyBag& bag) = 0;
    /// An inner widget of a control, as the control sees it.
    virtual Widget& widget(const std::u16string& control, const std::u16string& name,
                           std::int16_t index = -1) = 0;
    /// The user clicks an inner widget, through the host's own input path.
    virtual void click(const std::u16string& control, const std::u16string& name,
                       std::int16_t index = -1) = 0;
    /// The user types text into the control's focused (or first) text widget.
    virtual void typeText(const std::u16string& control, const std::u16string& text) = 0;
    /// The user presses and releases a key (no character) on the control's focused (or
    /// first) widget.
    virtual void pressKey(const std::u16string& control, std::int16_t keyCode,
                          std::int16_t shift) = 0;
    /// Puts text on the clipboard.
    virtual void setClipboardText(const std::u16string& text) = 0;
    /// The clipboard's text.
    virtual std::u16string clipboardText() = 0;
    /// The user or the form resizes the control (twips).
    virtual void resize(const std::u16string& control, float width, float height) = 0;
    /// Sets the control surface's scale mode.
    virtual void setScaleMode(const std::u16string& control, ScaleMode mode) = 0;
    /// Property-changed names the control signalled, in order.
    virtual std::vector<std::u16string> changes(const std::u16string& control) = 0;
    /// Events the control raised, in order.
    virtual std::vector<SeenEvent> events(const std::u16string& control) = 0;
    /// Forgets the recorded changes and events of a control.
    virtual void clearRecords(const std::u16string& control) = 0;
    /// The application's handler of a control's events; it may change by-reference args.
    virtual void setEventHandler(
        const std::u16string& control,
        std::function<void(const std::u16string&, std::span<Variant>)>) = 0;
    /// Message boxes shown so far.
    virtual std::vector<MessageBoxRequest> messageBoxes() = 0;
    /// The answer of the next message box.
    virtual void queueAnswer(std::int32_t answer) = 0;
    /// Makes widgets on a control's surface, as the control makes its own inner widgets.
    virtual WidgetFactory& widgets(const std::u16string& control) = 0;
    /// The user types text into one widget, through the host's own input path.
    virtual void typeInto(Widget& target, const std::u16string& text) = 0;
    /// The user presses and releases a key (no character) on one widget.
    virtual void pressKeyOn(Widget& target, std::int16_t keyCode, std::int16_t shift) = 0;
    /// The library's own window of a design name ("frmFILEDLG") while it is open; null
    /// when none is.
    virtual FormWindow* formWindow(const std::u16string& name) = 0;
    /// Whether an open window is shown on the screen.
    virtual bool windowShown(FormWindow& window) = 0;
    /// The user drags the window to an inner size (twips); returns once it has the size.
    virtual void userResize(FormWindow& window, float width, float height) = 0;
    /// The user closes the window with its close box.
    virtual void userClose(FormWindow& window) = 0;
};

/// A named way to make a harness.
struct HarnessMaker {
    std::string name;                                ///< the host's name, for test names
    std::function<std::unique_ptr<Harness>()> make;  ///< makes a fresh harness
};

/// Prints a host by its name in test output.
inline void PrintTo(const HarnessMaker& maker, std::ostream* os) {
    *os << maker.name;
}

/// The hosts this test program runs every host-independent suite on.
std::vector<HarnessMaker> availableHarnesses();

/// Test-name suffix for a host.
inline std::string harnessName(const ::testing::TestParamInfo<HarnessMaker>& info) {
    return info.param.name;
}

/// One class on one host: the parameter of a suite run for several classes on every host.
struct ClassOnHost {
    HarnessMaker host;     ///< the host
    const ClassInfo* cls;  ///< the class
};

/// Every host this program offers, each paired with every class of classes, in order.
inline std::vector<ClassOnHost> classesOnHosts(const std::vector<const ClassInfo*>& classes) {
    std::vector<ClassOnHost> out;
    for (const auto& h : availableHarnesses()) {
        for (const ClassInfo* c : classes) out.push_back({h, c});
    }
    return out;
}

/// Test-name suffix for a class on a host: "Headless_NumInputBox".
inline std::string classOnHostName(const ::testing::TestParamInfo<ClassOnHost>& info) {
    return info.param.host.name + "_" + toUtf8(info.param.cls->name());
}

/// Prints a case by its host and class in test output, not as a dump of its bytes.
inline void PrintTo(const ClassOnHost& c, std::ostream* os) {
    *os << c.host.name << ' ' << toUtf8(c.cls->name());
}

/// The names of the events in order.
std::vector<std::u16string> eventNames(const std::vector<SeenEvent>& events);

}  // namespace corvex::testing
