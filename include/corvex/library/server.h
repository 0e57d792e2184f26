// The library as an in-process server: the interfaces a host reaches through the four
// exported entry points, with the standard contract's reference counting and result codes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "corvex/library/identifiers.h"

namespace corvex {

class ClassInfo;
class ControlSite;
class Object;

/// A result code of the in-process server contract (negative: failure).
using HResult = std::int32_t;

/// Success.
inline constexpr HResult S_OK = 0;
/// Success, but "not now" (the library still has live objects).
inline constexpr HResult S_FALSE = 1;
/// A call that cannot be made in the object's present state.
inline constexpr HResult E_UNEXPECTED = static_cast<HResult>(0x8000FFFFu);
/// The object does not have the interface asked for.
inline constexpr HResult E_NOINTERFACE = static_cast<HResult>(0x80004002u);
/// A required out pointer was null.
inline constexpr HResult E_POINTER = static_cast<HResult>(0x80004003u);
/// The call failed for a reason it could not name better.
inline constexpr HResult E_FAIL = static_cast<HResult>(0x80004005u);
/// Aggregation was asked for; no class of the library can be aggregated.
inline constexpr HResult CLASS_E_NOAGGREGATION = static_cast<HResult>(0x80040110u);
/// The library has no class with that identifier.
inline constexpr HResult CLASS_E_CLASSNOTAVAILABLE = static_cast<HResult>(0x80040111u);
/// The registration file could not be read or written.
inline constexpr HResult SELFREG_E_CLASS = static_cast<HResult>(0x80040201u);

/// The root of every interface: asking for another interface and reference counting.
struct Unknown {
    /// Gives the interface iid of this object in *out (referenced), or E_NOINTERFACE.
    virtual HResult queryInterface(const Uuid& iid, void** out) = 0;
    /// Adds a reference; returns the new count.
    virtual std::uint32_t addRef() = 0;
    /// Drops a reference, destroying the object at zero; returns the new count.
    virtual std::uint32_t release() = 0;

protected:
    ~Unknown() = default;
};

/// The class factory of one public class.
struct ClassFactory : Unknown {
    /// Creates an unsited instance and gives its interface iid in *out.
    virtual HResult createInstance(Unknown* outer, const Uuid& iid, void** out) = 0;
    /// Keeps the library loaded while lock is non-zero (calls nest).
    virtual HResult lockServer(std::int32_t lock) = 0;

protected:
    ~ClassFactory() = default;
};

/// A created instance as our hosts hold it: made without a site by the factory, then
/// placed on the site it lives on, which creates the control.
struct Instance : Unknown {
    /// The class of the instance.
    virtual const ClassInfo& classInfo() const = 0;
    /// Creates the object on site and gives it in *out; once per instance (E_UNEXPECTED
    /// after that). Raises what the class's constructor raises: this interface is for our
    /// own C++ hosts, not for the C entry points.
    virtual HResult attach(ControlSite& site, std::shared_ptr<Object>* out) = 0;

protected:
    ~Instance() = default;
};

/// The identifier of Unknown ({00000000-0000-0000-C000-000000000046}).
const Uuid& unknownInterfaceId();
/// The identifier of ClassFactory ({00000001-0000-0000-C000-000000000046}).
const Uuid& classFactoryInterfaceId();
/// The identifier of Instance ("Corvex.Instance" in the library's namespace).
const Uuid& instanceInterfaceId();

/// How many factories and instances the server has handed out and not yet had back.
std::size_t liveServerObjects();
/// How many class factories the server has handed out since it was loaded.
std::size_t factoriesServed();
/// How many locks the server holds.
std::size_t serverLocks();

/// Creates an object of a public class as every host does: the class factory from
/// DllGetClassObject, an instance from it, placed on site. Raises 429 when the factory
/// refuses, and what the class's constructor raises.
std::shared_ptr<Object> createThroughFactory(const ClassInfo& cls, ControlSite& site);

/// Creates what a host places on a form: a public class of the library through its class
/// factory, any other class (the application's own, a test's) through its own table.
std::shared_ptr<Object> createOnSite(const ClassInfo& cls, ControlSite& site);

}  // namespace corvex

extern "C" {
/// Gives the class factory of class classId, asked for as interface interfaceId.
corvex::HResult DllGetClassObject(const corvex::Uuid* classId, const corvex::Uuid* interfaceId,
                                  void** out);
/// S_OK when no object of the library (instance, factory, lock, control) is alive.
corvex::HResult DllCanUnloadNow();
/// Writes every public class into the per-user registration file.
corvex::HResult DllRegisterServer();
/// Removes from the registration file what DllRegisterServer writes.
corvex::HResult DllUnregisterServer();
}
