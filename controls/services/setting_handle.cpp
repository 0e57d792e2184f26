#include "corvex/services/setting_handle.h"

#include <functional>

#include "corvex/common/text.h"
#include "corvex/library/ini_file.h"
#include "corvex/platform/profiles.h"

namespace corvex {

namespace {

// The icon's size: 32 by 32 pixels of a 96 dpi screen, in twips.
constexpr float kIconSize = 480;

// The profile-string service reads every string up to its first NUL.
std::u16string upToNul(std::u16string text) {
    const auto nul = text.find(u'\0');
    if (nul != std::u16string::npos) text.resize(nul);
    return text;
}

// The service fills a buffer of 1024 bytes: at most 1023 bytes of text and a NUL.
std::u16string throughReadBuffer(const std::u16string& text) {
    return fromUtf8(cutUtf8(toUtf8(upToNul(text)), 1023));
}

// Target selection of the four primitives: a section and a key, then the passed name or
// else the property; nullopt when one of them is missing. Nothing is trimmed.
std::optional<std::u16string> target(const std::u16string& section, const std::u16string& key,
                                     const std::optional<std::u16string>& passed,
                                     const std::u16string& property) {
    if (section.empty() || key.empty()) return std::nullopt;
    if (passed && !passed->empty()) return passed;
    if (!property.empty()) return property;
    return std::nullopt;
}

// An omitted optional argument counts as the empty string.
std::u16string textOf(const std::optional<Variant>& v) {
    return v ? v->toString() : std::u16string();
}

// One statement of an operation run with errors suppressed: a failure skips it only.
void suppressed(const std::function<void()>& statement) {
    try {
        statement();
    } catch (...) {
    }
}

std::u16string textMember(Object& control, std::u16string_view name) {
    return getProperty(control, name).toString();
}

// The persistence members of one control: what the single-control operations read, each
// read on its own (a failing one stays empty and the next is still read).
struct Members {
    std::u16string section;
    std::u16string key;
    std::u16string text;  // Value (save) or DefaultValue (restore) as text
};

Members readMembers(const Variant& control, std::u16string_view third) {
    Members m;
    const ObjectRef o = control.type() == VarType::Object ? control.asObject() : nullptr;
    if (!o) return m;
    suppressed([&] { m.section = textMember(*o, u"SectionName"); });
    suppressed([&] { m.key = textMember(*o, u"KeyName"); });
    suppressed([&] { m.text = textMember(*o, third); });
    return m;
}

void storeValue(const Variant& control, const Variant& value) {
    suppressed([&] {
        if (control.type() == VarType::Object && control.asObject()) {
            letProperty(*control.asObject(), u"Value", value);
        }
    });
}

}  // namespace

struct SettingHandle::Private {
    std::u16string appName;
    std::u16string iniFileName;
};

SettingHandle::SettingHandle(ControlSite& site) : Control(site), d(std::make_unique<Private>()) {}

SettingHandle::~SettingHandle() = default;

const ClassInfo& SettingHandle::staticClassInfo() {
    static const ClassInfo info = [] {
        using S = SettingHandle;
        auto members =
            MemberTable<S>()
                .method(u"GetAControlFromRegistry", &S::getAControlFromRegistry,
                        {u"objControl", u"DefaultValue", u"strAppName"})
                .byRefAs(0, VarType::Object)
                .help(u"コントロールの値をレジストリから読み込みます。",
                      u"Reads a control's value from the settings store.")
                .method(u"GetControlsFromIni", &S::getControlsFromIni, {u"strIniFileName"})
                .help(u"フォーム上の全コントロールの値をIniファイルから読み込みます。",
                      u"Reads the values of every control on the form from an INI file.")
                .method(u"GetControlsFromRegistry", &S::getControlsFromRegistry, {u"strAppName"})
                .help(u"フォーム上の全コントロールの値をレジストリから読み込みます。",
                      u"Reads the values of every control on the form from the settings store.")
                .method(u"SaveAControlToIni", &S::saveAControlToIni,
                        {u"objControl", u"strIniFileName"})
                .byRefAs(0, VarType::Object)
                .help(u"コントロールの値をIniファイルに保存します。",
                      u"Saves a control's value to an INI file.")
                .method(u"SaveAControlToRegistry", &S::saveAControlToRegistry,
                        {u"objControl", u"strAppName"})
                .byRefAs(0, VarType::Object)
                .help(u"コントロールの値をレジストリに保存します。",
                      u"Saves a control's value to the settings store.")
                .method(u"SaveControlsToIni", &S::saveControlsToIni, {u"strIniFileName"})
                .help(u"フォーム上の全コントロールの値をIniファイルに保存します。",
                      u"Saves the values of every control on the form to an INI file.")
                .method(u"SaveControlsToRegistry", &S::saveControlsToRegistry, {u"strAppName"})
                .help(u"フォーム上の全コントロールの値をレジストリに保存します。",
                      u"Saves the values of every control on the form to the settings store.")
                .method(u"SaveIni", &S::saveIni,
                        {u"SectionName", u"KeyName", u"NewValue", u"strIniFileName"})
                .passedByRef(2)
                .help(u"Iniファイルに値を保存します。", u"Saves a value to an INI file.")
                .method(u"SaveRegistry", &S::saveRegistry,
                        {u"SectionName", u"KeyName", u"Setting", u"strAppName"})
                .help(u"レジストリに値を保存します。", u"Saves a value to the settings store.")
                .method(u"GetIni", &S::getIni,
                        {u"SectionName", u"KeyName", u"DefaultValue", u"strIniFileName"})
                .help(u"Iniファイルから値を読み込みます。", u"Reads a value from an INI file.")
                .method(u"GetRegistry", &S::getRegistry,
                        {u"SectionName", u"KeyName", u"DefaultValue", u"strAppName"})
                .help(u"レジストリから値を読み込みます。",
                      u"Reads a value from the settings store.")
                .property(u"AppName", &S::appName, &S::setAppName)
                .help(u"アプリケーション名称を設定します。（レジストリ操作で使用）",
                      u"Sets the application name (used with the settings store).")
                .saved(2, u"AppName", u"")
                .property(u"IniFileName", &S::iniFileName, &S::setIniFileName)
                .help(u"Iniファイル名称を設定します。（Iniファイル操作で使用）",
                      u"Sets the INI file name (used with INI files).")
                .saved(1, u"IniFileName", u"")
                .build();
        return ClassInfo(u"SettingHandle", ClassKind::ServiceControl, std::move(members), {},
                         [](ControlSite& site) { return std::make_shared<SettingHandle>(site); },
                         {kIconSize, kIconSize});
    }();
    return info;
}

void SettingHandle::initProperties() {
    d->appName.clear();
    d->iniFileName.clear();
}

void SettingHandle::readProperties(PropertyBag& bag) {
    d->iniFileName = readSaved<std::u16string>(bag, u"IniFileName", u"");
    d->appName = readSaved<std::u16string>(bag, u"AppName", u"");
}

void SettingHandle::writeProperties(PropertyBag& bag) {
    bag.write(u"IniFileName", d->iniFileName, u"");
    bag.write(u"AppName", d->appName, u"");
}

void SettingHandle::resize() {
    // The control is its icon: any other size is put back.
    Surface& s = site().surface();
    if (s.width() != kIconSize || s.height() != kIconSize) s.setSize(kIconSize, kIconSize);
}

// --- the four primitives ------------------------------------------------------------

void SettingHandle::saveIni(std::u16string section, std::u16string key,
                            std::optional<Variant> newValue,
                            std::optional<std::u16string> iniFileName) {
    const auto file = target(section, key, iniFileName, d->iniFileName);
    if (!file) return;
    const std::u16string text = textOf(newValue);
    site().profiles().writeIni(upToNul(*file), upToNul(section), upToNul(key), upToNul(text));
}

Variant SettingHandle::getIni(std::u16string section, std::u16string key,
                              std::optional<Variant> defaultValue,
                              std::optional<std::u16string> iniFileName) {
    const auto file = target(section, key, iniFileName, d->iniFileName);
    if (!file) return Variant();
    const std::u16string def = textOf(defaultValue);
    return Variant(throughReadBuffer(
        site().profiles().readIni(upToNul(*file), upToNul(section), upToNul(key), upToNul(def))));
}

void SettingHandle::saveRegistry(std::u16string section, std::u16string key, Variant setting,
                                 std::optional<std::u16string> appName) {
    const auto app = target(section, key, appName, d->appName);
    if (!app) return;
    suppressed([&] { site().profiles().writeSetting(*app, section, key, setting.toString()); });
}

Variant SettingHandle::getRegistry(std::u16string section, std::u16string key,
                                   std::optional<Variant> defaultValue,
                                   std::optional<std::u16string> appName) {
    const auto app = target(section, key, appName, d->appName);
    Variant result;
    if (!app) return result;
    suppressed([&] {
        const std::u16string def = textOf(defaultValue);
        const auto found = site().profiles().readSetting(*app, section, key);
        result = Variant(found ? *found : def);
    });
    return result;
}

// --- operations on one control -------------------------------------------------------

void SettingHandle::getAControlFromRegistry(Variant& control, std::optional<std::u16string>,
                                            std::optional<std::u16string> appName) {
    const Members m = readMembers(control, u"DefaultValue");
    Variant result;
    suppressed([&] { result = getRegistry(m.section, m.key, Variant(m.text), appName); });
    storeValue(control, result);
}

void SettingHandle::saveAControlToIni(Variant& control, std::optional<std::u16string> iniFileName) {
    const Members m = readMembers(control, u"Value");
    suppressed([&] { saveIni(m.section, m.key, Variant(m.text), iniFileName); });
}

void SettingHandle::saveAControlToRegistry(Variant& control,
                                           std::optional<std::u16string> appName) {
    const Members m = readMembers(control, u"Value");
    suppressed([&] { saveRegistry(m.section, m.key, Variant(m.text), appName); });
}

// --- operations on all controls of the form -------------------------------------------

namespace {

// Runs step on every control of the form, in the form's order, inside one batch of the
// profile service (each file read and written once); a step that fails is skipped whole.
void eachControl(ControlSite& site, const std::function<void(Object&)>& step) {
    Form* form = site.parentForm();
    if (!form) return;
    ProfileBatch batch(site.profiles());
    for (const ObjectRef& control : form->controls()) {
        if (control) suppressed([&] { step(*control); });
    }
}

}  // namespace

void SettingHandle::saveControlsToIni(std::optional<Variant> iniFileName) {
    eachControl(site(), [&](Object& c) {
        const std::u16string section = textMember(c, u"SectionName");
        const std::u16string key = textMember(c, u"KeyName");
        const std::u16string value = textMember(c, u"Value");
        saveIni(section, key, Variant(value), textOf(iniFileName));
    });
}

void SettingHandle::saveControlsToRegistry(std::optional<Variant> appName) {
    eachControl(site(), [&](Object& c) {
        const std::u16string section = textMember(c, u"SectionName");
        const std::u16string key = textMember(c, u"KeyName");
        const std::u16string value = textMember(c, u"Value");
        saveRegistry(section, key, Variant(value), textOf(appName));
    });
}

void SettingHandle::getControlsFromIni(std::optional<Variant> iniFileName) {
    eachControl(site(), [&](Object& c) {
        const std::u16string section = textMember(c, u"SectionName");
        const std::u16string key = textMember(c, u"KeyName");
        const std::u16string def = textMember(c, u"DefaultValue");
        letProperty(c, u"Value", getIni(section, key, Variant(def), textOf(iniFileName)));
    });
}

void SettingHandle::getControlsFromRegistry(std::optional<Variant> appName) {
    eachControl(site(), [&](Object& c) {
        const std::u16string section = textMember(c, u"SectionName");
        const std::u16string key = textMember(c, u"KeyName");
        const std::u16string def = textMember(c, u"DefaultValue");
        letProperty(c, u"Value", getRegistry(section, key, Variant(def), textOf(appName)));
    });
}

// --- properties ------------------------------------------------------------------------

std::u16string SettingHandle::appName() const {
    return d->appName;
}

void SettingHandle::setAppName(std::u16string name) {
    d->appName = std::move(name);
    propertyChanged(u"AppName");
}

std::u16string SettingHandle::iniFileName() const {
    return d->iniFileName;
}

void SettingHandle::setIniFileName(std::u16string name) {
    d->iniFileName = std::move(name);
    propertyChanged(u"IniFileName");
}

}  // namespace corvex
