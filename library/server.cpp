#include "corvex/library/server.h"

#include <algorithm>
#include <atomic>
#include <new>

#include "corvex/common/error.h"
#include "corvex/common/object.h"
#include "corvex/library/class_table.h"

namespace corvex {

namespace {

// Factories and instances handed out and not yet released, and LockServer's locks; with
// the live objects they say whether the library may be unloaded.
std::atomic<std::size_t> liveHandouts{0};
std::atomic<std::size_t> locks{0};
std::atomic<std::size_t> served{0};

Uuid standardInterface(std::uint32_t data1) {
    return Uuid{data1, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
}

// The reference count every object of the server shares; the last release deletes.
template <class Interface>
class Counted : public Interface {
public:
    Counted() { ++liveHandouts; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    virtual ~Counted() { --liveHandouts; }

    std::uint32_t addRef() override { return ++references_; }
    std::uint32_t release() override {
        const std::uint32_t left = --references_;
        if (left == 0) delete this;
        return left;
    }

protected:
    // Hands out this object as the interface asked for, referenced, when it is one of ours.
    HResult give(bool known, void** out) {
        if (!out) return E_POINTER;
        *out = nullptr;
        if (!known) return E_NOINTERFACE;
        addRef();
        *out = static_cast<Interface*>(this);
        return S_OK;
    }

private:
    std::atomic<std::uint32_t> references_{1};
};

class InstanceImpl final : public Counted<Instance> {
public:
    explicit InstanceImpl(const ClassInfo& cls)
        : cls_(cls), defaultInterface_(identifiersOf(cls).interfaceId) {}

    HResult queryInterface(const Uuid& iid, void** out) override {
        return give(
            iid == unknownInterfaceId() || iid == instanceInterfaceId() || iid == defaultInterface_,
            out);
    }
    const ClassInfo& classInfo() const override { return cls_; }
    HResult attach(ControlSite& site, std::shared_ptr<Object>* out) override {
        if (!out) return E_POINTER;
        if (attached_) return E_UNEXPECTED;
        attached_ = true;
        *out = cls_.create(site);
        return S_OK;
    }

private:
    const ClassInfo& cls_;
    Uuid defaultInterface_;
    bool attached_ = false;
};

class FactoryImpl final : public Counted<ClassFactory> {
public:
    explicit FactoryImpl(const ClassInfo& cls) : cls_(cls) {}

    HResult queryInterface(const Uuid& iid, void** out) override {
        return give(iid == unknownInterfaceId() || iid == classFactoryInterfaceId(), out);
    }
    HResult createInstance(Unknown* outer, const Uuid& iid, void** out) override {
        if (!out) return E_POINTER;
        *out = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        auto* instance = new (std::nothrow) InstanceImpl(cls_);
        if (!instance) return E_FAIL;
        const HResult result = instance->queryInterface(iid, out);
        instance->release();
        return result;
    }
    HResult lockServer(std::int32_t lock) override {
        if (lock) {
            ++locks;
            return S_OK;
        }
        // An unlock without a lock is the caller's error; the count never wraps round.
        std::size_t held = locks.load();
        while (held > 0 && !locks.compare_exchange_weak(held, held - 1)) {
        }
        return held > 0 ? S_OK : E_UNEXPECTED;
    }

private:
    const ClassInfo& cls_;
};

const ClassInfo* classById(const Uuid& classId) {
    for (const ClassInfo* c : publicClasses()) {
        if (identifiersOf(*c).classId == classId) return c;
    }
    return nullptr;
}

}  // namespace

const Uuid& unknownInterfaceId() {
    static const Uuid id = standardInterface(0);
    return id;
}

const Uuid& classFactoryInterfaceId() {
    static const Uuid id = standardInterface(1);
    return id;
}

const Uuid& instanceInterfaceId() {
    static const Uuid id = nameBasedUuid("Corvex.Instance");
    return id;
}

std::size_t liveServerObjects() {
    return liveHandouts.load();
}

std::size_t factoriesServed() {
    return served.load();
}

std::size_t serverLocks() {
    return locks.load();
}

std::shared_ptr<Object> createThroughFactory(const ClassInfo& cls, ControlSite& site) {
    const Uuid classId = identifiersOf(cls).classId;
    void* out = nullptr;
    HResult result = DllGetClassObject(&classId, &classFactoryInterfaceId(), &out);
    if (result != S_OK) {
        throw Error(err::CannotCreateObject, cls.name() + u" is not a class the library serves");
    }
    auto* factory = static_cast<ClassFactory*>(out);
    result = factory->createInstance(nullptr, instanceInterfaceId(), &out);
    factory->release();
    if (result != S_OK) throw Error(err::CannotCreateObject, cls.name() + u" was not created");
    // The reference goes whether the control's constructor succeeds or raises.
    const std::unique_ptr<Instance, void (*)(Instance*)> instance(
        static_cast<Instance*>(out), [](Instance* i) { i->release(); });
    std::shared_ptr<Object> object;
    if (instance->attach(site, &object) != S_OK) {
        throw Error(err::CannotCreateObject, cls.name() + u" could not be placed");
    }
    return object;
}

std::shared_ptr<Object> createOnSite(const ClassInfo& cls, ControlSite& site) {
    const auto& classes = publicClasses();
    const bool ours = std::find(classes.begin(), classes.end(), &cls) != classes.end();
    return ours ? createThroughFactory(cls, site) : cls.create(site);
}

}  // namespace corvex

extern "C" corvex::HResult DllGetClassObject(const corvex::Uuid* classId,
                                             const corvex::Uuid* interfaceId, void** out) {
    using namespace corvex;
    if (!out) return E_POINTER;
    *out = nullptr;
    if (!classId || !interfaceId) return E_POINTER;
    const ClassInfo* cls = classById(*classId);
    if (!cls || !cls->creatable()) return CLASS_E_CLASSNOTAVAILABLE;
    auto* factory = new (std::nothrow) FactoryImpl(*cls);
    if (!factory) return E_FAIL;
    const HResult result = factory->queryInterface(*interfaceId, out);
    factory->release();
    if (result == S_OK) ++served;
    return result;
}

extern "C" corvex::HResult DllCanUnloadNow() {
    using namespace corvex;
    const bool idle = liveServerObjects() == 0 && serverLocks() == 0 && Object::liveCount() == 0;
    return idle ? S_OK : S_FALSE;
}
