#include "corvex/common/variant.h"

#include <cmath>
#include <limits>

#include "corvex/common/error.h"
#include "corvex/common/number_text.h"
#include "corvex/common/object.h"
#include "corvex/common/text.h"

namespace corvex {

std::u16string_view typeName(VarType type) {
    switch (type) {
        case VarType::Empty:
            return u"Empty";
        case VarType::Boolean:
            return u"Boolean";
        case VarType::Integer:
            return u"Integer";
        case VarType::Long:
            return u"Long";
        case VarType::Single:
            return u"Single";
        case VarType::Double:
            return u"Double";
        case VarType::String:
            return u"String";
        case VarType::Object:
            return u"Object";
    }
    return u"Empty";
}

bool Variant::isNumeric() const {
    switch (type()) {
        case VarType::Boolean:
        case VarType::Integer:
        case VarType::Long:
        case VarType::Single:
        case VarType::Double:
            return true;
        default:
            return false;
    }
}

namespace {

// The numeric value of a non-text, non-object value (Empty is 0, True is -1).
double numericValue(const Variant& v) {
    switch (v.type()) {
        case VarType::Empty:
            return 0;
        case VarType::Boolean:
            return v.asBoolean().raw;
        case VarType::Integer:
            return v.asInteger();
        case VarType::Long:
            return v.asLong();
        case VarType::Single:
            return v.asSingle();
        case VarType::Double:
            return v.asDouble();
        case VarType::String: {
            const ParsedNumber p = parseDouble(v.asString());
            if (p.status == ParseStatus::Overflow) throw Error(err::Overflow);
            if (p.status != ParseStatus::Ok) throw Error(err::TypeMismatch);
            return p.value;
        }
        case VarType::Object:
            throw Error(err::TypeMismatch);
    }
    throw Error(err::TypeMismatch);
}

template <class T>
T roundedInRange(double d) {
    if (std::isnan(d)) throw Error(err::Overflow);
    const double r = roundHalfEven(d);
    if (r < static_cast<double>(std::numeric_limits<T>::min()) ||
        r > static_cast<double>(std::numeric_limits<T>::max())) {
        throw Error(err::Overflow);
    }
    return static_cast<T>(r);
}

}  // namespace

std::u16string Variant::toString() const {
    switch (type()) {
        case VarType::Empty:
            return u"";
        case VarType::Boolean:
            return asBoolean().raw != 0 ? u"True" : u"False";
        case VarType::Integer:
            return fromUtf8(std::to_string(asInteger()));
        case VarType::Long:
            return fromUtf8(std::to_string(asLong()));
        case VarType::Single:
            return formatSingle(asSingle());
        case VarType::Double:
            return formatDouble(asDouble());
        case VarType::String:
            return asString();
        case VarType::Object:
            throw Error(err::TypeMismatch);
    }
    return u"";
}

std::int16_t Variant::toInteger() const {
    if (type() == VarType::Integer) return asInteger();
    return roundedInRange<std::int16_t>(numericValue(*this));
}

std::int32_t Variant::toLong() const {
    if (type() == VarType::Long) return asLong();
    return roundedInRange<std::int32_t>(numericValue(*this));
}

float Variant::toSingle() const {
    if (type() == VarType::Single) return asSingle();
    const double d = numericValue(*this);
    if (std::isfinite(d) && std::fabs(d) > std::numeric_limits<float>::max()) {
        throw Error(err::Overflow);
    }
    return static_cast<float>(d);
}

double Variant::toDouble() const {
    return numericValue(*this);
}

Boolean Variant::toBoolean() const {
    if (type() == VarType::Boolean) return asBoolean() ? Boolean(true) : Boolean(false);
    if (type() == VarType::String) {
        // A Boolean's own text converts back, whatever its letter case.
        if (equalsIgnoringCase(asString(), u"True")) return Boolean(true);
        if (equalsIgnoringCase(asString(), u"False")) return Boolean(false);
    }
    return Boolean(numericValue(*this) != 0);
}

ObjectRef Variant::toObject() const {
    if (type() != VarType::Object) throw Error(err::TypeMismatch);
    return asObject();
}

bool operator==(const Variant& a, const Variant& b) {
    if (a.type() != b.type()) return false;
    if (a.type() == VarType::Object) return sameObjectValue(a.asObject(), b.asObject());
    return a.v_ == b.v_;
}

bool hostEquals(const Variant& a, const Variant& b) {
    const VarType ta = a.type();
    const VarType tb = b.type();
    if (ta == VarType::Object || tb == VarType::Object) {
        return ta == tb && sameObjectValue(a.asObject(), b.asObject());
    }
    if (ta == VarType::String && tb == VarType::String) return a.asString() == b.asString();
    // Empty against text compares as "", against a number as 0.
    if (ta == VarType::Empty && tb == VarType::String) return b.asString().empty();
    if (tb == VarType::Empty && ta == VarType::String) return a.asString().empty();
    try {
        return numericValue(a) == numericValue(b);
    } catch (const Error&) {
        return false;  // text that is no number never equals a number
    }
}

bool sameBagValue(const Variant& a, const Variant& b) {
    if (a.isEmpty() || b.isEmpty()) return a.isEmpty() && b.isEmpty();
    if (a.isNumeric() && b.isNumeric()) return numericValue(a) == numericValue(b);
    return a == b;
}

}  // namespace corvex
