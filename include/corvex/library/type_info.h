// The type information of the public classes as a type library describes an interface:
// one function per method and one per property accessor, in interface order, each with
// its member number, parameters, result and help. Read from the class table alone.
#pragma once

#include <string>
#include <vector>

#include "corvex/common/object.h"

namespace corvex {

/// How a described function is invoked.
enum class InvokeKind {
    Method,       ///< a method call
    PropertyGet,  ///< reading a property
    PropertyLet,  ///< assigning a value to a property
    PropertySet,  ///< assigning an object reference to a property
};

/// One function of an interface: a method, or one accessor of a property.
struct FunctionDesc {
    std::u16string name;                    ///< the member's name
    int dispId = 0;                         ///< the member's number (shared by its accessors)
    InvokeKind kind = InvokeKind::Method;   ///< how it is invoked
    std::vector<ParamInfo> params;          ///< its parameters; a let/set ends with the new value
    bool hasResult = false;                 ///< whether it returns a value
    VarType result = VarType::Empty;        ///< the kind it returns (Empty: any value)
    const EnumInfo* enumeration = nullptr;  ///< the enumeration of the result or new value
    int optionalCount = 0;                  ///< how many of the parameters may be left off
    std::u16string help;                    ///< the member's Japanese help string
    std::u16string helpEnglish;             ///< the member's English help string
};

/// The name of the parameter that carries a property's new value in a let or set.
inline constexpr const char16_t* NewValueParamName = u"NewValue";

/// The functions of a class's default interface in interface order: a method gives one,
/// a property one per accessor it has (get, then let, then set).
std::vector<FunctionDesc> describeInterface(const ClassInfo& cls);

/// The word for an invoke kind: "method", "get", "let" or "set".
std::string invokeKindWord(InvokeKind kind);

/// The name of a value kind in the type information ("Boolean", "Long", "String", ...);
/// a parameter or result of any kind is a "Variant".
std::string publishedTypeName(VarType type);

}  // namespace corvex
