// The one error type that controls raise to their callers: a number, a source and a
// description, as the host reports errors.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace corvex {

/// Error numbers of the host that the controls raise or pass on.
namespace err {
inline constexpr std::int32_t InvalidProcedureCall = 5;          ///< error 0 asked for, bad call
inline constexpr std::int32_t Overflow = 6;                      ///< arithmetic overflow
inline constexpr std::int32_t SubscriptOutOfRange = 9;           ///< no such element
inline constexpr std::int32_t TypeMismatch = 13;                 ///< value of the wrong kind
inline constexpr std::int32_t ControlArrayElementMissing = 340;  ///< no such array element
inline constexpr std::int32_t InvalidPropertyValue = 380;      ///< value out of a property's range
inline constexpr std::int32_t SetNotSupportedAtRuntime = 382;  ///< design-time-only property
inline constexpr std::int32_t SetNotSupported = 383;           ///< read-only property
inline constexpr std::int32_t GetNotSupported = 394;           ///< write-only property
inline constexpr std::int32_t ClientSiteNotAvailable = 398;    ///< the control's site has gone
inline constexpr std::int32_t WrongArguments = 450;            ///< wrong number of arguments
inline constexpr std::int32_t ObjectRequired = 424;            ///< an object was expected
inline constexpr std::int32_t CannotCreateObject = 429;        ///< the class could not be created
inline constexpr std::int32_t MemberNotFound = 438;            ///< no such property or method
inline constexpr std::int32_t ObjectErrorBase = -2147221504;   ///< 0x80040000, default ErrBase
}  // namespace err

/// The host's own description of one of its error numbers ("Overflow", "Type mismatch").
std::u16string standardErrorText(std::int32_t number);

/// An error raised to the caller of a property, method or event.
class Error : public std::exception {
public:
    /// An error with the host's standard description of the number and no source.
    explicit Error(std::int32_t number);
    /// An error with its own description and source.
    Error(std::int32_t number, std::u16string description, std::u16string source = {});

    /// The error number.
    std::int32_t number() const { return number_; }
    /// The name of the application that raised it; empty when none was given.
    const std::u16string& source() const { return source_; }
    /// The description.
    const std::u16string& description() const { return description_; }
    /// The description in UTF-8.
    const char* what() const noexcept override { return what_.c_str(); }

private:
    std::int32_t number_;
    std::u16string description_;
    std::u16string source_;
    std::string what_;
};

/// ErrBase plus a code, as a 32-bit number. Raises 6 (overflow) when the sum leaves the
/// 32-bit range, and 5 (invalid procedure call) when it comes out 0, which no caller could
/// tell from "no error".
std::int32_t errBasePlus(std::int32_t errBase, std::int32_t code);

}  // namespace corvex
