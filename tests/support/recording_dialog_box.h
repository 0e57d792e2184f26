// A stand-in for a FileDialogBox as its property pages see it: every property of the
// pages by name, stored as given (after the kind's conversion), with no couplings, and
// every let recorded in order. The pages' reading, writing order and first-selected rule
// are measured on it; the couplings are measured on the real control.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "corvex/common/control.h"
#include "corvex/services/service_control.h"

namespace corvex::testing {

/// A control with the page-edited properties of a FileDialogBox, recording each let.
class RecordingDialogBox : public ServiceControl {
public:
    /// A stand-in on a host site, with the control's defaults.
    explicit RecordingDialogBox(ControlSite& site) : ServiceControl(site) { reset(); }
    void initProperties() override { reset(); }
    void readProperties(PropertyBag&) override {}
    void writeProperties(PropertyBag&) override {}

    /// The names let, in order.
    std::vector<std::u16string> lets;
    /// The values by property name.
    std::map<std::u16string, Variant> values;

    /// The class table: one property per page field.
    static const ClassInfo& staticClassInfo() {
        static const ClassInfo info(
            u"RecordingDialogBox", ClassKind::ServiceControl, members(), serviceEvents(),
            [](ControlSite& site) { return std::make_shared<RecordingDialogBox>(site); },
            {480, 480});
        return info;
    }
    const ClassInfo& classInfo() const override { return staticClassInfo(); }

private:
    void reset() {
        lets.clear();
        values.clear();
        for (const auto& [name, type] : properties()) {
            values[name] = type == VarType::Boolean  ? Variant(false)
                           : type == VarType::String ? Variant(u"")
                                                     : Variant(std::int32_t{0});
        }
        values[u"Explorer"] = Variant(true);
        values[u"LongNames"] = Variant(true);
        values[u"MaxFileSize"] = Variant(std::int32_t{260});
        values[u"FilterIndex"] = Variant(std::int16_t{0});
    }
    static std::vector<std::pair<std::u16string, VarType>> properties() {
        std::vector<std::pair<std::u16string, VarType>> out = {
            {u"Mode", VarType::Long},        {u"FileName", VarType::String},
            {u"Filter", VarType::String},    {u"FilterIndex", VarType::Integer},
            {u"InitDir", VarType::String},   {u"DefaultExt", VarType::String},
            {u"MaxFileSize", VarType::Long}, {u"DialogTitle", VarType::String},
        };
        for (const char16_t* b :
             {u"AllowMultiselect", u"CreatePrompt", u"Explorer", u"FileMustExist", u"LongNames",
              u"NoLongNames", u"NoReadOnlyReturn", u"NoValidate", u"OverwritePrompt",
              u"PathMustExist", u"HelpButton", u"HideReadOnly", u"NoChangeDir", u"ReadOnly",
              u"NoDereferenceLinks", u"ShareAware"}) {
            out.emplace_back(b, VarType::Boolean);
        }
        return out;
    }
    static Variant converted(VarType type, const Variant& v) {
        switch (type) {
            case VarType::Boolean:
                return Variant(v.toBoolean());
            case VarType::Integer:
                return Variant(v.toInteger());
            case VarType::Long:
                return Variant(v.toLong());
            default:
                return Variant(v.toString());
        }
    }
    static std::vector<MemberInfo> members() {
        std::vector<MemberInfo> out;
        int id = 0;
        for (const auto& [name, type] : properties()) {
            MemberInfo m;
            m.name = name;
            m.type = type;
            m.help = u"a stand-in property";
            m.helpEnglish = u"A stand-in property.";
            m.dispId = ++id;
            m.get = [name](Object& o, std::span<Variant>) {
                return static_cast<RecordingDialogBox&>(o).values.at(name);
            };
            m.let = [name, type](Object& o, std::span<Variant>, const Variant& v) {
                auto& self = static_cast<RecordingDialogBox&>(o);
                self.values[name] = converted(type, v);
                self.lets.push_back(name);
            };
            out.push_back(std::move(m));
        }
        return out;
    }
};

}  // namespace corvex::testing
