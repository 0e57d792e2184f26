// Windows of the library's own (a notes form): made by the host, filled by the core.
#pragma once

#include <memory>
#include <string>

#include "corvex/platform/widgets.h"

namespace corvex {

/// Hears what the user does to a form window.
class FormWindowListener {
public:
    virtual ~FormWindowListener() = default;
    /// The window's size changed (by the user or by code).
    virtual void formResized() = 0;
    /// The window was closed; it may be destroyed from here on. Called last by the
    /// window, which touches nothing of itself afterwards.
    virtual void formClosed() = 0;
};

/// How a form window is made.
struct FormWindowSpec {
    std::u16string name;                     ///< the form's design name ("frmFILEDLG")
    std::u16string caption;                  ///< the title bar's text
    float width = 6000;                      ///< inner width, twips
    float height = 4500;                     ///< inner height, twips
    FormWindowListener* listener = nullptr;  ///< who hears resizes and the close
};

/// A top-level, resizable window holding widgets. Sizes are the inner (client) size in
/// twips: what the widgets are laid out in.
class FormWindow {
public:
    virtual ~FormWindow() = default;
    /// The form's design name.
    virtual const std::u16string& name() const = 0;
    /// The maker of the widgets inside the window.
    virtual WidgetFactory& widgets() = 0;
    /// Inner width.
    virtual float width() const = 0;
    /// Inner height.
    virtual float height() const = 0;
    /// Sets the inner size; the listener hears formResized.
    virtual void resize(float width, float height) = 0;
    /// Shows the window, or brings it to the front when it is shown already.
    virtual void show() = 0;
    /// Closes the window; the listener hears formClosed.
    virtual void close() = 0;
};

/// Makes the library's own windows.
class FormWindowService {
public:
    virtual ~FormWindowService() = default;
    /// A new, hidden window.
    virtual std::unique_ptr<FormWindow> createFormWindow(const FormWindowSpec& spec) = 0;
};

/// A service for sites that show no windows: every window asked for raises an error.
FormWindowService& noFormWindows();

}  // namespace corvex
