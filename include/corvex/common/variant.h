// The host's value type: what properties, method arguments, event arguments and
// property-bag entries hold, with the host's conversions between kinds.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

namespace corvex {

class Object;
/// A shared reference to a dispatchable object (a font, a control).
using ObjectRef = std::shared_ptr<Object>;

/// The kinds of value a Variant can hold, named as the host names them.
enum class VarType : std::uint8_t { Empty, Boolean, Integer, Long, Single, Double, String, Object };

/// The name of a value kind as scripts and form files print it ("Integer", "String", ...).
std::u16string_view typeName(VarType type);

/// The host's 16-bit Boolean. True is -1 and False is 0; any other raw value can be
/// carried (a client may pass one) and is neither True nor False.
struct Boolean {
    std::int16_t raw = 0;

    /// False.
    constexpr Boolean() = default;
    /// True (-1) or False (0).
    constexpr Boolean(bool b) : raw(b ? -1 : 0) {}  // NOLINT: implicit on purpose
    /// A raw 16-bit value, kept as it is.
    static constexpr Boolean fromRaw(std::int16_t r) {
        Boolean v;
        v.raw = r;
        return v;
    }
    /// Whether the raw value is exactly True (-1).
    constexpr bool isTrue() const { return raw == -1; }
    /// Whether the raw value is exactly False (0).
    constexpr bool isFalse() const { return raw == 0; }
    /// The host's truth test: any non-zero raw value counts as true.
    constexpr explicit operator bool() const { return raw != 0; }
    friend constexpr bool operator==(Boolean a, Boolean b) { return a.raw == b.raw; }
};

/// A value of one of the host's kinds.
class Variant {
public:
    /// An Empty value ("no value").
    Variant() = default;
    /// A Boolean.
    Variant(Boolean b) : v_(b) {}  // NOLINT
    /// A Boolean from a C++ bool (True is -1).
    Variant(bool b) : v_(Boolean(b)) {}  // NOLINT
    /// A 16-bit Integer.
    Variant(std::int16_t i) : v_(i) {}  // NOLINT
    /// A 32-bit Long.
    Variant(std::int32_t l) : v_(l) {}  // NOLINT
    /// A 32-bit Single.
    Variant(float f) : v_(f) {}  // NOLINT
    /// A 64-bit Double.
    Variant(double d) : v_(d) {}  // NOLINT
    /// A String.
    Variant(std::u16string s) : v_(std::move(s)) {}  // NOLINT
    /// A String.
    Variant(std::u16string_view s) : v_(std::u16string(s)) {}  // NOLINT
    /// A String.
    Variant(const char16_t* s) : v_(std::u16string(s)) {}  // NOLINT
    /// An object reference (a null reference is the host's Nothing).
    Variant(ObjectRef o) : v_(std::move(o)) {}  // NOLINT

    /// The kind of the value held.
    VarType type() const { return static_cast<VarType>(v_.index()); }
    /// Whether the value is Empty.
    bool isEmpty() const { return type() == VarType::Empty; }
    /// Whether the value is Boolean, Integer, Long, Single or Double.
    bool isNumeric() const;

    /// The Boolean held; only valid when type() is Boolean.
    Boolean asBoolean() const { return std::get<Boolean>(v_); }
    /// The Integer held; only valid when type() is Integer.
    std::int16_t asInteger() const { return std::get<std::int16_t>(v_); }
    /// The Long held; only valid when type() is Long.
    std::int32_t asLong() const { return std::get<std::int32_t>(v_); }
    /// The Single held; only valid when type() is Single.
    float asSingle() const { return std::get<float>(v_); }
    /// The Double held; only valid when type() is Double.
    double asDouble() const { return std::get<double>(v_); }
    /// The String held; only valid when type() is String.
    const std::u16string& asString() const { return std::get<std::u16string>(v_); }
    /// The object held; only valid when type() is Object.
    const ObjectRef& asObject() const { return std::get<ObjectRef>(v_); }

    /// Converted to text: numbers by the host's number-to-text conversion, Booleans as
    /// "True"/"False", Empty as "". Objects raise 13.
    std::u16string toString() const;
    /// Converted to a 16-bit Integer, rounding half to even. Raises 6 or 13.
    std::int16_t toInteger() const;
    /// Converted to a 32-bit Long, rounding half to even. Raises 6 or 13.
    std::int32_t toLong() const;
    /// Converted to a Single. Raises 6 or 13.
    float toSingle() const;
    /// Converted to a Double. Raises 6 or 13.
    double toDouble() const;
    /// Converted to a Boolean (True -1 for any non-zero number, "True"/"False" by name).
    /// Raises 13 for other text.
    Boolean toBoolean() const;
    /// The object held; raises 13 for any other kind.
    ObjectRef toObject() const;

    /// Exact equality: same kind and same value (fonts compare by their description).
    friend bool operator==(const Variant& a, const Variant& b);

private:
    std::variant<std::monostate, Boolean, std::int16_t, std::int32_t, float, double, std::u16string,
                 ObjectRef>
        v_;
};

/// The host's "=" between two values: Empty equals "" and 0, a number equals a text
/// that converts to it, strings compare by code unit. Never raises.
bool hostEquals(const Variant& a, const Variant& b);

/// Whether two values are the same for a property bag: both Empty, both numeric and
/// numerically equal, both strings and equal, or equal objects.
bool sameBagValue(const Variant& a, const Variant& b);

}  // namespace corvex
