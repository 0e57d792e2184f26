// The controls of one form as every host holds them: in creation order, named by one
// rule, with control arrays, taken through the lifecycle, and cut off when their site goes.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "corvex/common/control.h"

namespace corvex {

/// The index of a control that is no element of a control array.
inline constexpr std::int16_t NoIndex = -1;

/// A control's name on its form: a name and, for an element of a control array, its index.
struct ControlName {
    std::u16string name;           ///< the name as given (its case is kept for display)
    std::int16_t index = NoIndex;  ///< the element's index in its array, or NoIndex
    /// The name as the form shows it: "chkAgree", or "optColour(2)" for an element.
    std::u16string text() const;
};

/// One control on a form.
struct FormEntry {
    ControlName name;                  ///< its name on the form
    ControlSite* site = nullptr;       ///< the host side, owned by the host
    std::shared_ptr<Control> control;  ///< the control, shared with references kept elsewhere
};

/// The controls of one form. The host owns the sites, the model the controls: a host
/// creates a site, hands the model the control made on it, lets the model run the
/// lifecycle, and tells it when the site goes. Names match without regard to ASCII case
/// (as the form designer's do), and a name is either one control or a control array whose
/// elements differ by index.
class FormModel {
public:
    /// An empty form.
    FormModel();
    ~FormModel();
    FormModel(const FormModel&) = delete;
    FormModel& operator=(const FormModel&) = delete;

    /// Raises 450 when name cannot be given to a new control: a control has it already, or
    /// it names an array and the new control has no index (or the other way round), or an
    /// index is out of 0..32767.
    void checkFree(const ControlName& name) const;
    /// Keeps control, just created on site, under name (checked as checkFree does). The
    /// control is not initialised yet.
    FormEntry& add(ControlSite& site, std::shared_ptr<Control> control, ControlName name);
    /// Keeps object, just created on site (through the class factory), under name; raises 13
    /// when it is not a control, 450 for a name taken.
    FormEntry& adopt(std::shared_ptr<Object> object, ControlSite& site, ControlName name);
    /// Runs the lifecycle after creation on the control of site: readProperties from bag
    /// (initProperties when bag is null), then resize. A control that fails goes from the
    /// form (cut off its site, while the site still exists) and the error passes on.
    void initialise(ControlSite& site, PropertyBag* bag);
    /// The site is going: its control is detached and leaves the form. Nothing happens for
    /// a site the form does not hold.
    void remove(const ControlSite& site);

    /// The control named name (with its index for an array element), or null.
    const FormEntry* find(std::u16string_view name, std::int16_t index = NoIndex) const;
    /// The entry of site, or null.
    const FormEntry* find(const ControlSite& site) const;
    /// Whether name names a control array on this form.
    bool isArray(std::u16string_view name) const;
    /// The number of controls.
    std::size_t size() const;
    /// The entries in creation order; the pointers stay valid until their control leaves.
    std::vector<const FormEntry*> entries() const;
    /// The controls in creation order, for the service controls' walk over the form.
    std::vector<ObjectRef> controls() const;

    /// What one control's part of a group call came to: error is null on success.
    using CallReport = std::function<void(const ControlName&, const Error* error)>;
    /// Calls method (no arguments) on every control whose class has it, in creation
    /// order; an error of one control is reported and the next one goes on. Controls that
    /// leave the form meanwhile report their error (398) instead of being reached.
    void callEach(std::u16string_view method, const CallReport& report) const;

private:
    struct Private;
    std::unique_ptr<Private> const d;
};

/// Folds a name for the one rule by which forms match names: ASCII letters to lower case.
std::u16string foldName(std::u16string_view name);

}  // namespace corvex
