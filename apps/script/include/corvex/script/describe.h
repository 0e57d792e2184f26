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

}  // namespace corvex::script
