#include "corvex/script/describe.h"

#include "corvex/common/error.h"
#include "corvex/common/text.h"
#include "corvex/library/class_table.h"
#include "corvex/library/enums.h"
#include "corvex/library/literals.h"
#include "corvex/library/type_info.h"

namespace corvex::script {

namespace {

const ClassInfo& publicClass(std::u16string_view name) {
    const ClassInfo* cls = findClass(name);
    if (!cls) {
        throw Error(err::MemberNotFound, std::u16string(name) + u" is not a public class");
    }
    return *cls;
}

// An enumerated result or new value is named by its enumeration, as a type library does.
std::string typeOf(VarType type, const EnumInfo* enumeration) {
    if (enumeration) return toUtf8(enumeration->name);
    return publishedTypeName(type);
}

std::string describeParam(const FunctionDesc& f, std::size_t i) {
    const ParamInfo& p = f.params[i];
    const bool isNewValue = f.kind != InvokeKind::Method && f.kind != InvokeKind::PropertyGet &&
                            i + 1 == f.params.size();
    std::string text = (p.byRef ? "ByRef " : "") + toUtf8(p.name) + " " +
                       typeOf(p.type, isNewValue ? f.enumeration : nullptr);
    return p.optional ? "[" + text + "]" : text;
}

std::string describeFunction(const ClassInfo& cls, const FunctionDesc& f) {
    std::string line = "func " + toUtf8(cls.name()) + "." + toUtf8(f.name) + " " +
                       std::to_string(f.dispId) + " " + invokeKindWord(f.kind) + " " +
                       (f.hasResult ? typeOf(f.result, f.enumeration) : "Void");
    if (f.params.empty()) return line;
    line += " (";
    for (std::size_t i = 0; i < f.params.size(); ++i) {
        if (i > 0) line += ", ";
        line += describeParam(f, i);
    }
    return line + ")";
}

}  // namespace

std::vector<std::string> describeClasses() {
    std::vector<std::string> lines;
    for (const ClassInfo* c : publicClasses()) {
        lines.push_back("class " + toUtf8(c->name()) + " " + classKindWord(c->kind()));
    }
    return lines;
}

std::vector<std::string> describeMembers(std::u16string_view className) {
    const ClassInfo& cls = publicClass(className);
    std::vector<std::string> lines;
    for (const MemberInfo& m : cls.members()) {
        lines.push_back("member " + toUtf8(cls.name()) + "." + toUtf8(m.name));
    }
    return lines;
}

std::vector<std::string> describeEvents(std::u16string_view className) {
    const ClassInfo& cls = publicClass(className);
    std::vector<std::string> lines;
    for (const EventInfo& e : cls.events()) {
        lines.push_back("eventid " + toUtf8(cls.name()) + "." + toUtf8(e.name) + " " +
                        std::to_string(e.dispId));
    }
    return lines;
}

std::vector<std::string> describeEnumeration(std::u16string_view name) {
    for (const EnumInfo* e : publicEnumerations()) {
        if (!equalsIgnoringCase(e->name, name)) continue;
        std::vector<std::string> lines;
        for (const auto& [member, value] : e->members) {
            lines.push_back("enum " + toUtf8(e->name) + "." + toUtf8(member) + " " +
                            std::to_string(value));
        }
        return lines;
    }
    throw Error(err::MemberNotFound, std::u16string(name) + u" is not a public enumeration");
}

std::string describeHelp(std::u16string_view className, std::u16string_view memberName) {
    const ClassInfo& cls = publicClass(className);
    const MemberInfo* m = cls.member(memberName);
    if (!m) {
        throw Error(err::MemberNotFound,
                    cls.name() + u" has no member " + std::u16string(memberName));
    }
    return "= String " + quoteString(m->help);
}

std::vector<std::string> describeTypeInfo(std::u16string_view className) {
    const ClassInfo& cls = publicClass(className);
    std::vector<std::string> lines;
    for (const FunctionDesc& f : describeInterface(cls)) lines.push_back(describeFunction(cls, f));
    return lines;
}

}  // namespace corvex::script
