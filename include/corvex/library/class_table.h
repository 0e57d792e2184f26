// The library's public classes, as a host sees them before any control exists.
#pragma once

#include <string_view>
#include <vector>

#include "corvex/common/object.h"

namespace corvex {

/// The library's description of itself.
inline constexpr const char16_t* LibraryDescription = u"Corvex Custom Controls Library 1.04";

/// How a host names a class's kind: "control", "service" (an icon-only service control) or
/// "page" (a property page).
const char* classKindWord(ClassKind kind);

/// Every public class of the library, in the order the library publishes them.
const std::vector<const ClassInfo*>& publicClasses();
/// A public class by name, without regard to ASCII case; null when there is none.
const ClassInfo* findClass(std::u16string_view name);
/// The property pages a class declares, as public classes in tab order; raises 438 when a
/// declared page is not a public property page.
std::vector<const ClassInfo*> propertyPagesOf(const ClassInfo& cls);

}  // namespace corvex
