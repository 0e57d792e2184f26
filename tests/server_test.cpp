// The library as an in-process server: the class factory's entry point, its result codes,
// reference counting, locks and whether the library may be unloaded.
#include "corvex/library/server.h"

#include <gtest/gtest.h>

#include "corvex/common/boolean_box.h"
#include "corvex/common/error.h"
#include "corvex/common/text.h"
#include "corvex/headless/host.h"
#include "corvex/library/class_table.h"
#include "corvex/library/identifiers.h"
#include "support/recording_dialog_box.h"

using namespace corvex;

namespace {

// A factory pointer that is released at the end of the test, whatever it asserts.
struct FactoryRef {
    ClassFactory* p = nullptr;
    ~FactoryRef() {
        if (p) p->release();
    }
};

ClassFactory* factoryOf(const ClassInfo& cls) {
    const Uuid id = identifiersOf(cls).classId;
    void* out = nullptr;
    EXPECT_EQ(DllGetClassObject(&id, &classFactoryInterfaceId(), &out), S_OK);
    return static_cast<ClassFactory*>(out);
}

TEST(Server, shouldRefuseAClassIdItDoesNotServeAndLeaveTheOutPointerEmpty) {
    const Uuid unknown = nameBasedUuid("Corvex.NoSuchClass");
    void* out = &out;
    EXPECT_EQ(DllGetClassObject(&unknown, &classFactoryInterfaceId(), &out),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(CLASS_E_CLASSNOTAVAILABLE, static_cast<HResult>(0x80040111u));
}

TEST(Server, shouldRefuseAnInterfaceIdAsAClassId) {
    const Uuid iid = identifiersOf(BooleanBox::staticClassInfo()).interfaceId;
    void* out = nullptr;
    EXPECT_EQ(DllGetClassObject(&iid, &classFactoryInterfaceId(), &out), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
}

TEST(Server, shouldRefuseNullPointers) {
    const Uuid id = identifiersOf(BooleanBox::staticClassInfo()).classId;
    void* out = nullptr;
    EXPECT_EQ(DllGetClassObject(&id, &classFactoryInterfaceId(), nullptr), E_POINTER);
    EXPECT_EQ(DllGetClassObject(nullptr, &classFactoryInterfaceId(), &out), E_POINTER);
    EXPECT_EQ(DllGetClassObject(&id, nullptr, &out), E_POINTER);
    EXPECT_EQ(out, nullptr);
}

TEST(Server, shouldGiveAFactoryForEveryPublicClassAsUnknownOrClassFactory) {
    for (const ClassInfo* c : publicClasses()) {
        const Uuid id = identifiersOf(*c).classId;
        for (const Uuid* iid : {&unknownInterfaceId(), &classFactoryInterfaceId()}) {
            void* out = nullptr;
            EXPECT_EQ(DllGetClassObject(&id, iid, &out), S_OK) << toUtf8(c->name());
            ASSERT_NE(out, nullptr);
            EXPECT_EQ(static_cast<Unknown*>(out)->release(), 0u);
        }
    }
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST(Server, shouldRefuseAFactoryAsAnInterfaceItDoesNotHave) {
    const Uuid id = identifiersOf(BooleanBox::staticClassInfo()).classId;
    void* out = &out;
    EXPECT_EQ(DllGetClassObject(&id, &instanceInterfaceId(), &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(liveServerObjects(), 0u);
}

TEST(Server, shouldCountReferencesAndStayLoadedWhileAFactoryLives) {
    FactoryRef factory{factoryOf(BooleanBox::staticClassInfo())};
    ASSERT_NE(factory.p, nullptr);
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    EXPECT_EQ(factory.p->addRef(), 2u);
    void* again = nullptr;
    ASSERT_EQ(factory.p->queryInterface(unknownInterfaceId(), &again), S_OK);
    EXPECT_EQ(again, static_cast<Unknown*>(factory.p));
    EXPECT_EQ(factory.p->release(), 2u);
    EXPECT_EQ(factory.p->release(), 1u);
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    EXPECT_EQ(factory.p->release(), 0u);
    factory.p = nullptr;
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST(Server, shouldStayLoadedWhileLockedAndNestLocks) {
    FactoryRef factory{factoryOf(BooleanBox::staticClassInfo())};
    ASSERT_NE(factory.p, nullptr);
    EXPECT_EQ(factory.p->lockServer(1), S_OK);
    EXPECT_EQ(factory.p->lockServer(1), S_OK);
    factory.p->release();
    factory.p = nullptr;
    EXPECT_EQ(serverLocks(), 2u);
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    FactoryRef other{factoryOf(BooleanBox::staticClassInfo())};
    EXPECT_EQ(other.p->lockServer(0), S_OK);
    EXPECT_EQ(other.p->lockServer(0), S_OK);
    EXPECT_EQ(other.p->lockServer(0), E_UNEXPECTED);
    EXPECT_EQ(serverLocks(), 0u);
    other.p->release();
    other.p = nullptr;
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST(Server, shouldRefuseAggregation) {
    FactoryRef factory{factoryOf(BooleanBox::staticClassInfo())};
    ASSERT_NE(factory.p, nullptr);
    void* out = &out;
    EXPECT_EQ(factory.p->createInstance(factory.p, instanceInterfaceId(), &out),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(factory.p->createInstance(nullptr, instanceInterfaceId(), nullptr), E_POINTER);
}

TEST(Server, shouldGiveAnInstanceAsItsDefaultInterfaceButNotAsItsEventInterface) {
    const ClassInfo& cls = BooleanBox::staticClassInfo();
    const ClassIdentifiers ids = identifiersOf(cls);
    FactoryRef factory{factoryOf(cls)};
    ASSERT_NE(factory.p, nullptr);
    void* out = nullptr;
    ASSERT_EQ(factory.p->createInstance(nullptr, ids.interfaceId, &out), S_OK);
    auto* instance = static_cast<Instance*>(out);
    EXPECT_EQ(&instance->classInfo(), &cls);
    void* events = &events;
    EXPECT_EQ(instance->queryInterface(ids.eventInterfaceId, &events), E_NOINTERFACE);
    EXPECT_EQ(events, nullptr);
    EXPECT_EQ(instance->release(), 0u);
}

TEST(Server, shouldCreateTheControlOnceWhenTheInstanceIsPlacedOnItsSite) {
    headless::Host host;
    headless::HeadlessForm form(host);
    headless::Site site(host, form, ControlName{u"box"}, 1200, 300);
    const ClassInfo& cls = BooleanBox::staticClassInfo();
    FactoryRef factory{factoryOf(cls)};
    ASSERT_NE(factory.p, nullptr);
    void* out = nullptr;
    ASSERT_EQ(factory.p->createInstance(nullptr, instanceInterfaceId(), &out), S_OK);
    auto* instance = static_cast<Instance*>(out);
    std::shared_ptr<Object> object;
    ASSERT_EQ(instance->attach(site, &object), S_OK);
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(&object->classInfo(), &cls);
    std::shared_ptr<Object> second;
    EXPECT_EQ(instance->attach(site, &second), E_UNEXPECTED);
    EXPECT_EQ(second, nullptr);
    instance->release();
    factory.p->release();
    factory.p = nullptr;
    // The control outlives its instance and factory; while it lives, the library stays.
    EXPECT_EQ(liveServerObjects(), 0u);
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    object.reset();
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST(Server, shouldCreateEveryClassThroughTheFactoryAsHostsDo) {
    headless::Host host;
    headless::HeadlessForm form(host);
    for (const ClassInfo* c : publicClasses()) {
        const std::size_t before = factoriesServed();
        headless::Site& site = form.add(*c, u"x" + c->name());
        EXPECT_EQ(&site.control().classInfo(), c) << toUtf8(c->name());
        EXPECT_EQ(factoriesServed(), before + 1) << toUtf8(c->name());
    }
    EXPECT_EQ(liveServerObjects(), 0u);
}

TEST(Server, shouldPlaceAClassOfAnotherOriginWithoutTheLibrarysFactory) {
    headless::Host host;
    headless::HeadlessForm form(host);
    const std::size_t before = factoriesServed();
    headless::Site& site =
        form.add(corvex::testing::RecordingDialogBox::staticClassInfo(), u"stand");
    EXPECT_EQ(site.control().classInfo().name(), u"RecordingDialogBox");
    EXPECT_EQ(factoriesServed(), before);
}

TEST(Server, shouldReportTheClassThatCannotBeCreated) {
    headless::Host host;
    headless::HeadlessForm form(host);
    headless::Site site(host, form, ControlName{u"font"}, 0, 0);
    const ClassInfo uncreatable(u"Lonely", ClassKind::Control, {}, {});
    try {
        createThroughFactory(uncreatable, site);
        FAIL() << "created a class the library does not serve";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), err::CannotCreateObject);
    }
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

}  // namespace
