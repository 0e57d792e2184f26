// SettingHandle: saves and restores the values of a form's controls in INI files and in
// the per-user settings store.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "corvex/common/control.h"

namespace corvex {

/// An icon-only service control. Its group operations walk the controls of its form and
/// reach each one's SectionName, KeyName, Value and DefaultValue by name only; a control
/// that lacks one of them is passed over.
class SettingHandle : public Control {
public:
    /// A SettingHandle on a host site.
    explicit SettingHandle(ControlSite& site);
    ~SettingHandle() override;
    /// The table of the SettingHandle class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }

    void initProperties() override;
    void readProperties(PropertyBag& bag) override;
    void writeProperties(PropertyBag& bag) override;
    void resize() override;

    /// Restores one control's Value from the settings store; the default always comes from
    /// the control's own DefaultValue (the defaultValue argument is accepted, not used).
    void getAControlFromRegistry(Variant& control, std::optional<std::u16string> defaultValue,
                                 std::optional<std::u16string> appName);
    /// Restores the Value of every control of the form from an INI file.
    void getControlsFromIni(std::optional<Variant> iniFileName);
    /// Restores the Value of every control of the form from the settings store.
    void getControlsFromRegistry(std::optional<Variant> appName);
    /// Saves one control's Value into an INI file.
    void saveAControlToIni(Variant& control, std::optional<std::u16string> iniFileName);
    /// Saves one control's Value into the settings store.
    void saveAControlToRegistry(Variant& control, std::optional<std::u16string> appName);
    /// Saves the Value of every control of the form into an INI file.
    void saveControlsToIni(std::optional<Variant> iniFileName);
    /// Saves the Value of every control of the form into the settings store.
    void saveControlsToRegistry(std::optional<Variant> appName);
    /// Writes section/key = the text of newValue into an INI file.
    void saveIni(std::u16string section, std::u16string key, std::optional<Variant> newValue,
                 std::optional<std::u16string> iniFileName);
    /// Stores section/key = the text of setting in the settings store; failures are swallowed.
    void saveRegistry(std::u16string section, std::u16string key, Variant setting,
                      std::optional<std::u16string> appName);
    /// Reads section/key of an INI file as text (at most 1023 bytes of UTF-8), or the
    /// default; Empty when no section, key or file is known.
    Variant getIni(std::u16string section, std::u16string key, std::optional<Variant> defaultValue,
                   std::optional<std::u16string> iniFileName);
    /// Reads section/key of the settings store as text, or the default; Empty when no
    /// section, key or application is known or the store fails.
    Variant getRegistry(std::u16string section, std::u16string key,
                        std::optional<Variant> defaultValue, std::optional<std::u16string> appName);

    /// The application name of the settings-store operations when none is passed.
    std::u16string appName() const;
    /// Sets the application name as given.
    void setAppName(std::u16string name);
    /// The INI file of the INI operations when none is passed.
    std::u16string iniFileName() const;
    /// Sets the INI file name as given.
    void setIniFileName(std::u16string name);

protected:
    void releaseWidgets() override {}
    void widgetEvent(Widget&, WidgetEvent&) override {}

private:
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex
