// FormHandle: keeps its form above other windows, centres it, or brings it back onto the
// screen.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "corvex/services/service_control.h"

namespace corvex {

/// A service control that places the form it sits on. It takes its form when it reads
/// its saved properties (it has none), as a form loaded at run time does; a control only
/// placed new has no form to act on.
class FormHandle : public ServiceControl {
public:
    /// A FormHandle on a host site.
    explicit FormHandle(ControlSite& site);
    ~FormHandle() override;
    /// The table of the FormHandle class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }

    void initProperties() override {}
    void readProperties(PropertyBag& bag) override;
    void writeProperties(PropertyBag&) override {}

    /// Mode 1 (default) makes the form topmost, 0 ends that; the result is non-zero when
    /// the window system took it, 0 for any other mode (nothing is done then).
    std::int32_t setFormTop(std::optional<std::int32_t> mode);
    /// Moves the form to the centre of the screen, keeping its size.
    void setFormCenter();
    /// When the form's top-left corner is off the screen, mode 0 (default) moves it to the
    /// screen's corner and mode 1 centres it; other modes do nothing.
    void moveInScreen(std::optional<std::int32_t> mode);

protected:
    void releaseWidgets() override;

private:
    Form& form() const;
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex
