// What the icon-only service controls share: no inner widget but their icon, a surface
// kept at the icon's size, and the declared lifecycle events only.
#pragma once

#include "corvex/common/control.h"

namespace corvex {

/// The size (twips) of a service control's icon, which is all a form shows of it.
inline constexpr float ServiceIconSize = 480;

/// The base of the service controls (FormHandle, MessageBox): shown on the form only as
/// their icon, with no inner widget that takes input.
class ServiceControl : public Control {
public:
    /// A service control on a host site.
    explicit ServiceControl(ControlSite& site) : Control(site) {}
    /// Keeps the control at its icon's size, whatever size it was given.
    void resize() override;

    /// The event table of a service control: the three declared lifecycle events.
    static std::vector<EventInfo> serviceEvents();

protected:
    void widgetEvent(Widget&, WidgetEvent&) override {}
    void releaseWidgets() override {}
};

}  // namespace corvex
