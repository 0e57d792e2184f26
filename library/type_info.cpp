#include "corvex/library/type_info.h"

#include <algorithm>

#include "corvex/library/literals.h"

namespace corvex {

namespace {

FunctionDesc describeAccessor(const MemberInfo& m, InvokeKind kind) {
    FunctionDesc f;
    f.name = m.name;
    f.dispId = m.dispId;
    f.kind = kind;
    f.params = m.params;
    f.enumeration = m.enumeration;
    f.help = m.help;
    f.helpEnglish = m.helpEnglish;
    if (kind == InvokeKind::Method) {
        f.hasResult = m.hasResult;
        f.result = m.type;
    } else if (kind == InvokeKind::PropertyGet) {
        f.hasResult = true;
        f.result = m.type;
    } else {
        // The new value comes last, after any index arguments, and is never optional.
        ParamInfo value;
        value.name = NewValueParamName;
        value.type = m.type;
        f.params.push_back(std::move(value));
    }
    f.optionalCount = static_cast<int>(std::count_if(
        f.params.begin(), f.params.end(), [](const ParamInfo& p) { return p.optional; }));
    return f;
}

}  // namespace

std::vector<FunctionDesc> describeInterface(const ClassInfo& cls) {
    std::vector<FunctionDesc> out;
    for (const MemberInfo& m : cls.members()) {
        if (m.isMethod) {
            out.push_back(describeAccessor(m, InvokeKind::Method));
            continue;
        }
        if (m.get) out.push_back(describeAccessor(m, InvokeKind::PropertyGet));
        if (m.let) out.push_back(describeAccessor(m, InvokeKind::PropertyLet));
        if (m.set) out.push_back(describeAccessor(m, InvokeKind::PropertySet));
    }
    return out;
}

std::string invokeKindWord(InvokeKind kind) {
    switch (kind) {
        case InvokeKind::Method:
            return "method";
        case InvokeKind::PropertyGet:
            return "get";
        case InvokeKind::PropertyLet:
            return "let";
        case InvokeKind::PropertySet:
            return "set";
    }
    return "method";
}

std::string publishedTypeName(VarType type) {
    // A value of any kind is what the type information calls a Variant; every other
    // kind keeps the name scripts and form files already print.
    if (type == VarType::Empty) return "Variant";
    return typeWord(type);
}

}  // namespace corvex
