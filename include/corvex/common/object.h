// Objects reachable by member name at run time, and the one table per class that
// declares a class's members and events. The script host, the settings control, the
// property pages and the class table all go through these tables.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "corvex/common/error.h"
#include "corvex/common/variant.h"

namespace corvex {

class ClassInfo;
class ControlSite;
struct FontDesc;

/// An object whose members can be reached by name through its class's table.
class Object : public std::enable_shared_from_this<Object> {
public:
    /// Counts the object among the library's live objects.
    Object();
    /// A copy is another live object.
    Object(const Object& other);
    /// Assignment keeps the count: no object comes or goes.
    Object& operator=(const Object&) = default;
    virtual ~Object();
    /// How many objects of the library exist now (what unloading the library waits for).
    static std::size_t liveCount();
    /// The table that declares this object's class, members and events.
    virtual const ClassInfo& classInfo() const = 0;
    /// Raises an error when the object can no longer be used (a control whose form has
    /// gone); every access by member name checks it first.
    virtual void checkAvailable() const {}
    /// Raises 382 when a design-time-only property may not be set now (a control at run
    /// time); the table's dispatch calls it before such a property's let or set.
    virtual void requireDesignTime() const {}
};

/// One public enumeration: its name and its members with their values, in declaration
/// order, so that tools show `PM_decimal` rather than 0.
struct EnumInfo {
    std::u16string name;                                           ///< the enumeration's name
    std::vector<std::pair<std::u16string, std::int32_t>> members;  ///< names and values
    /// The name of a value; empty when no member has it.
    std::u16string nameOf(std::int32_t value) const;
};

/// The table-side description of a C++ enumeration; each public enumeration provides it
/// (see corvex/library/enums.h).
template <class E>
const EnumInfo& enumInfo();

/// The default a saved property is written and read with that is not a fixed value but
/// the host's ambient font at that moment.
struct AmbientFontDefault {
    friend bool operator==(AmbientFontDefault, AmbientFontDefault) = default;
};
/// The ambient-font default, as a saved property declares it.
inline constexpr AmbientFontDefault ambientFontDefault{};

/// How a property is kept in the property bag.
struct SavedInfo {
    std::u16string writeName;  ///< the name it is written under
    std::u16string readName;   ///< the name it is read under (usually writeName)
    Variant defaultValue;      ///< the default, of the kind written (Empty with ambientFont)
    bool ambientFont = false;  ///< the default is the host's ambient font
    int writeOrder = 0;        ///< its place (from 1) among the class's writes
    int readOrder = 0;         ///< its place (from 1) among the class's reads
    /// The default as a bag sees it: the ambient font turned into a Font, else the value.
    Variant defaultFor(const FontDesc& ambient) const;
};

/// How a member is reached.
enum class CallKind { Method, Get, Let, Set };

/// One parameter of a method, an indexed property or an event.
struct ParamInfo {
    std::u16string name;            ///< the parameter's name
    VarType type = VarType::Empty;  ///< its kind (Empty for "any value")
    bool optional = false;          ///< whether it may be left off
    bool byRef = false;             ///< whether changes reach the caller
};

/// One member (method or property) in a class's table.
struct MemberInfo {
    /// Calls a method or a property get: (object, arguments) -> result.
    using Getter = std::function<Variant(Object&, std::span<Variant>)>;
    /// A property let or set: (object, index arguments, new value).
    using Setter = std::function<void(Object&, std::span<Variant>, const Variant&)>;

    std::u16string name;                    ///< the member's name
    bool isMethod = false;                  ///< a method rather than a property
    bool hasResult = false;                 ///< a method that returns a value (a Variant too)
    VarType type = VarType::Empty;          ///< result or property kind
    std::vector<ParamInfo> params;          ///< method arguments, or property indexes
    Getter get;                             ///< invoke (method) or get (property); may be empty
    Setter let;                             ///< let of a value property; may be empty
    Setter set;                             ///< set of an object property; may be empty
    std::u16string help;                    ///< one-line description for property browsers
    std::u16string helpEnglish;             ///< the same description in English
    int dispId = 0;                         ///< stable member number, from 1 in interface order
    const EnumInfo* enumeration = nullptr;  ///< the enumeration of an enumerated type
    bool designTimeOnly = false;            ///< its let/set raises 382 at run time
    std::optional<SavedInfo> saved;         ///< how it is saved; empty for unsaved members

    /// Whether it is a property that can be read.
    bool readable() const { return !isMethod && static_cast<bool>(get); }
    /// Whether it is a property that can be assigned (let or set).
    bool writable() const { return !isMethod && (let || set); }
};

/// The name and help string of a member, declared once and shared by every class that
/// has the member (see corvex/common/control.h, namespace common).
struct MemberDoc {
    const char16_t* name;         ///< the member's name
    const char16_t* help;         ///< its one-line help string
    const char16_t* helpEnglish;  ///< the same help string in English
};

/// One event in a class's event interface.
struct EventInfo {
    std::u16string name;            ///< the event's name
    int dispId = 0;                 ///< its number, from 1 in declaration order
    std::vector<ParamInfo> params;  ///< its arguments
    bool raised = true;             ///< false for declared events that are never raised
};

/// What kind of public class a table describes.
enum class ClassKind {
    Control,         ///< a visible control
    ServiceControl,  ///< an icon-only service control
    PropertyPage,    ///< a property page
    Object,          ///< an object compared by identity
    Value,           ///< a value object (Font): compared, printed and saved by its properties
};

/// The table of one public class: name, members in interface order, events in
/// declaration order, and how to create an instance.
class ClassInfo {
public:
    /// Creates an instance on a host site (null for classes that cannot be created).
    using Factory = std::function<std::shared_ptr<Object>(ControlSite&)>;

    ClassInfo(std::u16string name, ClassKind kind, std::vector<MemberInfo> members,
              std::vector<EventInfo> events, Factory factory = {},
              std::pair<float, float> defaultSize = {0, 0},
              std::vector<SavedInfo> unpublishedSaved = {});

    /// The class name.
    const std::u16string& name() const { return name_; }
    /// The kind of class.
    ClassKind kind() const { return kind_; }
    /// The members in interface order.
    const std::vector<MemberInfo>& members() const { return members_; }
    /// The events in declaration order.
    const std::vector<EventInfo>& events() const { return events_; }
    /// A member by name, without regard to ASCII case; null when there is none.
    const MemberInfo* member(std::u16string_view name) const;
    /// An event by name; null when there is none.
    const EventInfo* event(std::u16string_view name) const;
    /// A member by its number; null when there is none.
    const MemberInfo* memberById(int dispId) const;
    /// The saved properties in the order they are written.
    std::vector<const MemberInfo*> savedInWriteOrder() const;
    /// The saved properties in the order they are read.
    std::vector<const MemberInfo*> savedInReadOrder() const;
    /// Creates an instance on a site; raises 429-like 438 when the class is not creatable.
    std::shared_ptr<Object> create(ControlSite& site) const;
    /// Whether instances can be created.
    bool creatable() const { return static_cast<bool>(factory_); }
    /// The size (twips) a new instance gets when placed on a form.
    std::pair<float, float> defaultSize() const { return defaultSize_; }
    /// Bag entries the class writes and reads that belong to no public member (a name
    /// written a second time, a look of the surface itself); their orders are places among
    /// all of the class's bag writes and reads.
    const std::vector<SavedInfo>& unpublishedSaved() const { return unpublishedSaved_; }
    /// The names of the property pages that edit the class at design time, in tab order.
    const std::vector<std::u16string>& propertyPages() const { return propertyPages_; }
    /// Declares the class's property pages while its table is built.
    ClassInfo& withPropertyPages(std::vector<std::u16string> pages);

private:
    std::u16string name_;
    ClassKind kind_;
    std::vector<MemberInfo> members_;
    std::vector<EventInfo> events_;
    Factory factory_;
    std::pair<float, float> defaultSize_;
    std::vector<SavedInfo> unpublishedSaved_;
    std::vector<std::u16string> propertyPages_;
};

/// Reaches a member by name: a method call or property get returns its value, a let or
/// set returns Empty. Raises 398 for a detached control, 438 for an unknown member,
/// 383/394 for a missing accessor, 450 for a wrong argument count, 382 for a let or set of a
/// design-time-only property at run time, and whatever the member raises.
Variant invoke(Object& object, std::u16string_view member, CallKind kind,
               std::span<Variant> args = {}, const Variant& value = {});

/// Property get by name, without arguments.
Variant getProperty(Object& object, std::u16string_view member);
/// Property let by name (set for object values), without index arguments.
void letProperty(Object& object, std::u16string_view member, const Variant& value);

// The one hook through which value objects (a Font) are compared, printed and saved: a
// value object is its class's readable properties, in table order. Comparison, literals
// and form files go through these instead of asking for each value class by type.

/// Whether an object is a value object (its class's kind is ClassKind::Value).
bool isValueObject(const Object& object);
/// The readable properties of a value object with their values, in table order.
std::vector<std::pair<std::u16string, Variant>> valueFields(const Object& object);
/// Whether two references name the same object, or equal value objects of one class.
bool sameObjectValue(const ObjectRef& a, const ObjectRef& b);

// ---------------------------------------------------------------------------------
// Typed adapters between C++ member functions and Variants. A class declares its
// table with MemberTable<C>; argument and result conversions follow the host's rules.

namespace detail {

template <class T>
struct Bare {
    using type = std::remove_cvref_t<T>;
};

template <class T>
struct ArgTraits;

template <>
struct ArgTraits<Variant> {
    static constexpr VarType type = VarType::Empty;
    static Variant from(const Variant& v) { return v; }
};
template <>
struct ArgTraits<Boolean> {
    static constexpr VarType type = VarType::Boolean;
    static Boolean from(const Variant& v);
};
template <>
struct ArgTraits<bool> {
    static constexpr VarType type = VarType::Boolean;
    static bool from(const Variant& v) { return static_cast<bool>(v.toBoolean()); }
};
template <>
struct ArgTraits<std::int16_t> {
    static constexpr VarType type = VarType::Integer;
    static std::int16_t from(const Variant& v) { return v.toInteger(); }
};
template <>
struct ArgTraits<std::int32_t> {
    static constexpr VarType type = VarType::Long;
    static std::int32_t from(const Variant& v) { return v.toLong(); }
};
template <>
struct ArgTraits<float> {
    static constexpr VarType type = VarType::Single;
    static float from(const Variant& v) { return v.toSingle(); }
};
template <>
struct ArgTraits<double> {
    static constexpr VarType type = VarType::Double;
    static double from(const Variant& v) { return v.toDouble(); }
};
template <>
struct ArgTraits<std::u16string> {
    static constexpr VarType type = VarType::String;
    static std::u16string from(const Variant& v) { return v.toString(); }
};
template <class T>
struct ArgTraits<std::shared_ptr<T>> {
    static constexpr VarType type = VarType::Object;
    static std::shared_ptr<T> from(const Variant& v) {
        if (v.type() != VarType::Object) throw Error(err::TypeMismatch);
        if (!v.asObject()) return nullptr;
        auto p = std::dynamic_pointer_cast<T>(v.asObject());
        if (!p) throw Error(err::TypeMismatch);
        return p;
    }
};
template <class T>
requires std::is_enum_v<T>
struct ArgTraits<T> {
    static constexpr VarType type = VarType::Long;
    static T from(const Variant& v) { return static_cast<T>(v.toLong()); }
};
template <class T>
struct ArgTraits<std::optional<T>> {
    static constexpr VarType type = ArgTraits<T>::type;
    static std::optional<T> from(const Variant& v) { return ArgTraits<T>::from(v); }
};

template <class T>
struct IsOptional : std::false_type {};
template <class T>
struct IsOptional<std::optional<T>> : std::true_type {};

template <class T>
Variant toVariant(T&& value) {
    using B = std::remove_cvref_t<T>;
    if constexpr (std::is_same_v<B, Variant>) {
        return std::forward<T>(value);
    } else if constexpr (std::is_same_v<B, bool>) {
        return Variant(Boolean(value));
    } else if constexpr (std::is_enum_v<B>) {
        return Variant(static_cast<std::int32_t>(value));
    } else if constexpr (requires { typename B::element_type; }) {
        return Variant(ObjectRef(std::forward<T>(value)));
    } else {
        return Variant(std::forward<T>(value));
    }
}

template <class T>
constexpr VarType resultType() {
    using B = std::remove_cvref_t<T>;
    if constexpr (std::is_void_v<B>) {
        return VarType::Empty;
    } else if constexpr (std::is_enum_v<B>) {
        return VarType::Long;
    } else {
        return ArgTraits<B>::type;
    }
}

// Binds one argument from the span: a Variant& parameter binds by reference (changes
// reach the caller); optional parameters take nullopt when the argument is missing.
template <class P>
decltype(auto) bindArg(std::span<Variant> args, std::size_t i) {
    using B = std::remove_cvref_t<P>;
    if constexpr (std::is_same_v<P, Variant&>) {
        return static_cast<Variant&>(args[i]);
    } else if constexpr (IsOptional<B>::value) {
        if (i >= args.size()) return B{};
        return ArgTraits<B>::from(args[i]);
    } else {
        return ArgTraits<B>::from(args[i]);
    }
}

template <class P>
ParamInfo paramInfo(std::u16string name) {
    using B = std::remove_cvref_t<P>;
    ParamInfo p;
    p.name = std::move(name);
    p.type = ArgTraits<B>::type;
    p.optional = IsOptional<B>::value;
    p.byRef = std::is_same_v<P, Variant&>;
    return p;
}

template <class F>
struct FnTraits;
template <class C, class R, class... A>
struct FnTraits<R (C::*)(A...)> {
    using Class = C;
    using Result = R;
    using Args = std::tuple<A...>;
    static constexpr std::size_t arity = sizeof...(A);
};
template <class C, class R, class... A>
struct FnTraits<R (C::*)(A...) const> : FnTraits<R (C::*)(A...)> {};

std::size_t requiredArgs(const std::vector<ParamInfo>& params);
void checkArgCount(const std::vector<ParamInfo>& params, std::size_t given);

template <class C, class Fn, std::size_t... I>
Variant callWith(Fn fn, Object& o, [[maybe_unused]] std::span<Variant> args,
                 std::index_sequence<I...>) {
    using T = FnTraits<Fn>;
    auto& self = static_cast<C&>(o);
    if constexpr (std::is_void_v<typename T::Result>) {
        (self.*fn)(bindArg<std::tuple_element_t<I, typename T::Args>>(args, I)...);
        return Variant();
    } else {
        return toVariant(
            (self.*fn)(bindArg<std::tuple_element_t<I, typename T::Args>>(args, I)...));
    }
}

template <class C, class Fn, std::size_t... I>
void setWith(Fn fn, Object& o, [[maybe_unused]] std::span<Variant> index, const Variant& value,
             std::index_sequence<I...>) {
    using T = FnTraits<Fn>;
    auto& self = static_cast<C&>(o);
    using V = std::remove_cvref_t<std::tuple_element_t<sizeof...(I), typename T::Args>>;
    (self.*fn)(bindArg<std::tuple_element_t<I, typename T::Args>>(index, I)...,
               ArgTraits<V>::from(value));
}

}  // namespace detail

/// Builds the member table of class C from its member functions; conversions of
/// arguments and results follow the host's rules.
template <class C>
class MemberTable {
public:
    /// A method; names label the parameters (for tables and help).
    template <class Fn>
    MemberTable& method(const MemberDoc& doc, Fn fn, std::vector<std::u16string> paramNames = {}) {
        return method(doc.name, fn, std::move(paramNames)).help(doc.help, doc.helpEnglish);
    }
    /// A method; names label the parameters (for tables and help).
    template <class Fn>
    MemberTable& method(std::u16string name, Fn fn, std::vector<std::u16string> paramNames = {}) {
        using T = detail::FnTraits<Fn>;
        MemberInfo m;
        m.name = std::move(name);
        m.isMethod = true;
        m.type = detail::resultType<typename T::Result>();
        m.hasResult = !std::is_void_v<typename T::Result>;
        using R = std::remove_cvref_t<typename T::Result>;
        if constexpr (std::is_enum_v<R>) m.enumeration = &enumInfo<R>();
        m.params = params<typename T::Args>(paramNames, std::make_index_sequence<T::arity>{});
        auto ps = m.params;
        m.get = [fn, ps](Object& o, std::span<Variant> args) {
            detail::checkArgCount(ps, args.size());
            return detail::callWith<C>(fn, o, args, std::make_index_sequence<T::arity>{});
        };
        add(std::move(m));
        return *this;
    }

    /// A read-only property shared by several classes, with its shared help string.
    template <class G>
    MemberTable& getOnly(const MemberDoc& doc, G getter) {
        return getOnly(doc.name, getter).help(doc.help, doc.helpEnglish);
    }
    /// A read-only property (its getter may take index arguments).
    template <class G>
    MemberTable& getOnly(std::u16string name, G getter,
                         std::vector<std::u16string> indexNames = {}) {
        add(makeProperty(std::move(name), getter, indexNames));
        return *this;
    }

    /// A property shared by several classes, with its shared help string.
    template <class G, class S>
    MemberTable& property(const MemberDoc& doc, G getter, S setter) {
        return property(doc.name, getter, setter).help(doc.help, doc.helpEnglish);
    }

    /// A property with get and let (the setter takes the index arguments, then the value).
    template <class G, class S>
    MemberTable& property(std::u16string name, G getter, S setter,
                          std::vector<std::u16string> indexNames = {}) {
        MemberInfo m = makeProperty(std::move(name), getter, indexNames);
        using ST = detail::FnTraits<S>;
        constexpr std::size_t n = ST::arity - 1;
        auto ps = m.params;
        auto setFn = [setter, ps](Object& o, std::span<Variant> index, const Variant& value) {
            detail::checkArgCount(ps, index.size());
            detail::setWith<C>(setter, o, index, value, std::make_index_sequence<n>{});
        };
        if (m.type == VarType::Object) {
            m.set = setFn;
        } else {
            m.let = setFn;
        }
        add(std::move(m));
        return *this;
    }

    /// Sets the one-line help text of the member added last, in Japanese and in English.
    MemberTable& help(std::u16string japanese, std::u16string english) {
        members_.back().help = std::move(japanese);
        members_.back().helpEnglish = std::move(english);
        return *this;
    }

    /// The property added last is saved under its bag name with a fixed default; order is
    /// its place (from 1) among the class's writes and reads.
    MemberTable& saved(int order, std::u16string bagName, Variant defaultValue) {
        SavedInfo s;
        s.readName = bagName;
        s.writeName = std::move(bagName);
        s.defaultValue = std::move(defaultValue);
        s.writeOrder = s.readOrder = order;
        members_.back().saved = std::move(s);
        return *this;
    }
    /// The property added last is saved with the host's ambient font as its default.
    MemberTable& saved(int order, std::u16string bagName, AmbientFontDefault) {
        saved(order, std::move(bagName), Variant());
        members_.back().saved->ambientFont = true;
        return *this;
    }
    /// The saved property added last is read at another place than it is written.
    MemberTable& readAt(int order) {
        members_.back().saved->readOrder = order;
        return *this;
    }
    /// The saved property added last is read back under another spelling than it is
    /// written under.
    MemberTable& readAs(std::u16string bagName) {
        members_.back().saved->readName = std::move(bagName);
        return *this;
    }
    /// Declares the kind of a by-reference parameter of the member added last (a Variant&
    /// in C++): the dispatch converts the caller's argument to that kind in place.
    MemberTable& byRefAs(std::size_t param, VarType type) {
        members_.back().params.at(param).type = type;
        return *this;
    }
    /// Publishes a parameter of the member added last as passed by reference although the
    /// C++ function takes a copy; a typed one is converted in place, as byRefAs's are.
    MemberTable& passedByRef(std::size_t param) {
        members_.back().params.at(param).byRef = true;
        return *this;
    }
    /// Publishes a parameter of the member added last as a wider kind (Empty: any value)
    /// than the C++ function takes; the function's own conversion still applies.
    MemberTable& publishedAs(std::size_t param, VarType type) {
        members_.back().params.at(param).type = type;
        return *this;
    }
    /// The property added last may be set only at design time: the table's dispatch
    /// raises 382 for a let or set at run time.
    MemberTable& designTimeOnly() {
        members_.back().designTimeOnly = true;
        return *this;
    }

    /// The members declared so far, in order.
    std::vector<MemberInfo> build() { return std::move(members_); }

private:
    template <class Tuple, std::size_t... I>
    static std::vector<ParamInfo> params(const std::vector<std::u16string>& names,
                                         std::index_sequence<I...>) {
        std::vector<ParamInfo> out;
        (out.push_back(detail::paramInfo<std::tuple_element_t<I, Tuple>>(
             I < names.size() ? names[I] : u"Arg" + std::u16string(1, u'1' + I))),
         ...);
        return out;
    }

    template <class G>
    static MemberInfo makeProperty(std::u16string name, G getter,
                                   const std::vector<std::u16string>& indexNames) {
        using T = detail::FnTraits<G>;
        MemberInfo m;
        m.name = std::move(name);
        m.type = detail::resultType<typename T::Result>();
        m.params = params<typename T::Args>(indexNames, std::make_index_sequence<T::arity>{});
        auto ps = m.params;
        m.get = [getter, ps](Object& o, std::span<Variant> args) {
            detail::checkArgCount(ps, args.size());
            return detail::callWith<C>(getter, o, args, std::make_index_sequence<T::arity>{});
        };
        using R = std::remove_cvref_t<typename T::Result>;
        if constexpr (std::is_enum_v<R>) m.enumeration = &enumInfo<R>();
        return m;
    }

    // Members are numbered from 1 in interface order; the order is fixed, so the numbers
    // are stable.
    void add(MemberInfo m) {
        m.dispId = static_cast<int>(members_.size()) + 1;
        members_.push_back(std::move(m));
    }

    std::vector<MemberInfo> members_;
};

/// Builds an event interface: events numbered from 1 in the order they are added.
class EventTable {
public:
    /// An event and its arguments; byRef arguments carry changes back to the raiser.
    EventTable& event(std::u16string name, std::vector<ParamInfo> params = {});
    /// An event declared in the interface but never raised.
    EventTable& declared(std::u16string name, std::vector<ParamInfo> params = {});
    /// The events declared so far, in order.
    std::vector<EventInfo> build() { return std::move(events_); }

private:
    std::vector<EventInfo> events_;
};

}  // namespace corvex
