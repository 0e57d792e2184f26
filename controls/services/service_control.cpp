#include "corvex/services/service_control.h"

namespace corvex {

void ServiceControl::resize() {
    Surface& s = site().surface();
    // Only a size other than the icon's is put back, so that the host's own resize after
    // setSize ends here.
    if (s.width() != ServiceIconSize || s.height() != ServiceIconSize) {
        s.setSize(ServiceIconSize, ServiceIconSize);
    }
}

std::vector<EventInfo> ServiceControl::serviceEvents() {
    EventTable ev;
    events::addDeclaredLifecycle(ev);
    return ev.build();
}

}  // namespace corvex
