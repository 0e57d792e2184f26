// What the library tells a host before any control exists, as script lines: its classes,
// the members and events of each, its enumerations and the members' help strings.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvex::script {

/// `class NAME KIND` for every public class in the library's order; KIND is control,
/// service or page.
std::vector<std::string> describeClasses();

/// `member CLASS.MEMBER` for every member of the class's default interface, in interface
/// order. Raises 438 when no public class has the name.
std::vector<std::string> describeMembers(std::u16string_view className);

/// `eventid CLASS.EVENT N` for every event of the class's event interface, in dispatch
/// order. Raises 438 when no public class has the name.
std::vector<std::string> describeEvents(std::u16string_view className);

/// `enum NAME.MEMBER VALUE` for every member of the public enumeration, in declaration
/// order. Raises 438 when no public enumeration has the name.
std::vector<std::string> describeEnumeration(std::u16string_view name);

/// `= String "HELP"`: the Japanese help string of a member of a public class. Raises 438
/// when the class or the member does not exist.
std::string describeHelp(std::u16string_view className, std::u16string_view memberName);

/// `func CLASS.MEMBER ID KIND TYPE (PARAMS)` for every function of the class's type
/// information in interface order: KIND is method, get, let or set; TYPE the result (an
/// enumeration by its name, Void for none); PARAMS `NAME TYPE`, `ByRef ` before a
/// by-reference one, optional ones in [ ], left off when there are none. Raises 438 when
/// no public class has the name.
std::vector<std::string> describeTypeInfo(std::u16string_view className);

}  // namespace corvex::script
