// The host side of one control: everything a control asks of its container.
#pragma once

#include <span>
#include <string_view>

#include "corvex/common/object.h"
#include "corvex/platform/ambient.h"
#include "corvex/platform/application.h"
#include "corvex/platform/clipboard.h"
#include "corvex/platform/file_dialog.h"
#include "corvex/platform/file_system.h"
#include "corvex/platform/form.h"
#include "corvex/platform/form_window.h"
#include "corvex/platform/message_box.h"
#include "corvex/platform/profiles.h"
#include "corvex/platform/screen.h"
#include "corvex/platform/surface.h"
#include "corvex/platform/text_measure.h"
#include "corvex/platform/widgets.h"

namespace corvex {

/// Receives a control's property-changed notifications (the designer marks the form dirty).
class PropertyChangedSink {
public:
    virtual ~PropertyChangedSink() = default;
    /// The property saved under name has changed.
    virtual void propertyChanged(std::u16string_view name) = 0;
};

/// Receives the events a control raises; the handlers may change by-reference arguments.
class EventSink {
public:
    virtual ~EventSink() = default;
    /// The control raised event with args (in the event's parameter order).
    virtual void raiseEvent(const EventInfo& event, std::span<Variant> args) = 0;
};

/// The services a host gives one control instance, one interface per service.
class ControlSite {
public:
    virtual ~ControlSite() = default;
    /// Ambient properties of the container.
    virtual Ambient& ambient() = 0;
    /// The control's surface.
    virtual Surface& surface() = 0;
    /// The maker of the control's inner widgets.
    virtual WidgetFactory& widgets() = 0;
    /// Property-changed notifications.
    virtual PropertyChangedSink& propertyChangedSink() = 0;
    /// Events raised to the container.
    virtual EventSink& eventSink() = 0;
    /// Modal message boxes.
    virtual MessageBoxService& messageBoxes() = 0;
    /// The clipboard.
    virtual Clipboard& clipboard() = 0;
    /// The hosting application.
    virtual Application& application() = 0;
    /// The form that holds the control; null when it sits on none.
    virtual Form* parentForm() = 0;
    /// INI files and the per-user settings store.
    virtual ProfileService& profiles() = 0;
    /// The screen the control's form is shown on.
    virtual Screen& screen() = 0;
    /// The file system Windows names are looked up in; by default one where nothing exists.
    virtual FileSystem& fileSystem() { return emptyFileSystem(); }
    /// The open and save dialogs; by default every dialog is cancelled.
    virtual FileDialogService& fileDialogs() { return cancellingFileDialogs(); }
    /// The library's own windows (the notes form); by default none can be made.
    virtual FormWindowService& formWindows() { return noFormWindows(); }
    /// Text widths in pixels; by default a fixed advance per UTF-16 unit.
    virtual TextMeasurer& textMeasurer() { return fixedAdvanceMeasurer(); }
};

}  // namespace corvex
