#include "corvex/script/describe.h"

#include "corvex/common/error.h"
#include "corvex/common/text.h"
#include "corvex/library/class_table.h"
#include "corvex/library/enums.h"
#include "corvex/library/literals.h"

namespace corvex::script {

namespace {

const ClassInfo& publicClass(std::u16string_view name) {
    const ClassInfo* cls = findClass(name);
    if (!cls) {
        throw Error(err::MemberNotFound, std::u16string(name) + u" is not a public class");
    }
    return *cls;
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

}  // namespace corvex::script
