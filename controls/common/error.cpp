#include "corvex/common/error.h"

#include <limits>

#include "corvex/common/text.h"

namespace corvex {

std::u16string standardErrorText(std::int32_t number) {
    switch (number) {
        case err::InvalidProcedureCall:
            return u"Invalid procedure call or argument";
        case err::Overflow:
            return u"Overflow";
        case err::SubscriptOutOfRange:
            return u"Subscript out of range";
        case err::TypeMismatch:
            return u"Type mismatch";
        case err::ControlArrayElementMissing:
            return u"Control array element doesn't exist";
        case err::InvalidPropertyValue:
            return u"Invalid property value";
        case err::SetNotSupportedAtRuntime:
            return u"Property cannot be set at run time";
        case err::SetNotSupported:
            return u"Property is read-only";
        case err::GetNotSupported:
            return u"Property is write-only";
        case err::ClientSiteNotAvailable:
            return u"Client site not available";
        case err::ObjectRequired:
            return u"Object required";
        case err::MemberNotFound:
            return u"Object doesn't support this property or method";
        case err::WrongArguments:
            return u"Wrong number of arguments or invalid property assignment";
        default:
            return u"Application-defined or object-defined error";
    }
}

Error::Error(std::int32_t number) : Error(number, standardErrorText(number)) {}

Error::Error(std::int32_t number, std::u16string description, std::u16string source)
    : number_(number),
      description_(std::move(description)),
      source_(std::move(source)),
      what_(toUtf8(description_)) {}

std::int32_t errBasePlus(std::int32_t errBase, std::int32_t code) {
    const std::int64_t sum = static_cast<std::int64_t>(errBase) + code;
    // A number outside 32 bits cannot be raised: the addition itself overflows (6), as
    // the host's Long arithmetic does.
    if (sum < std::numeric_limits<std::int32_t>::min() ||
        sum > std::numeric_limits<std::int32_t>::max()) {
        throw Error(err::Overflow);
    }
    // Error 0 reads as "no error" to every caller; the host raises 5 (invalid procedure
    // call) when asked to raise 0, and so do we.
    if (sum == 0) throw Error(err::InvalidProcedureCall);
    return static_cast<std::int32_t>(sum);
}

}  // namespace corvex
