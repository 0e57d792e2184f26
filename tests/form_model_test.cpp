// The form model: one naming rule, control arrays, the lifecycle, the walk over the
// controls and detaching, seen through the headless host that keeps its controls in it.
#include "corvex/common/form_model.h"

#include <gtest/gtest.h>

#include "corvex/common/boolean_box.h"
#include "corvex/common/text.h"
#include "corvex/entry/num_input_box.h"
#include "corvex/headless/host.h"
#include "corvex/library/class_table.h"
#include "corvex/library/memory_bag.h"

namespace corvex {
namespace {

const ClassInfo& boolClass() {
    return BooleanBox::staticClassInfo();
}

std::int32_t errorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const Error& e) {
        return e.number();
    }
    return 0;
}

struct FormModelTest : ::testing::Test {
    headless::Host host;
    headless::HeadlessForm form{host};
};

TEST_F(FormModelTest, shouldFindAControlWithoutRegardToAsciiCase) {
    headless::Site& s = form.add(boolClass(), u"chkAgree");
    EXPECT_EQ(form.find(u"CHKAGREE"), &s);
    EXPECT_EQ(form.find(u"chkagree"), &s);
    EXPECT_EQ(form.find(u"chkAgree2"), nullptr);
    EXPECT_EQ(s.name(), u"chkAgree");  // the name keeps the case it was given
}

TEST_F(FormModelTest, shouldRefuseANameThatDiffersOnlyInCase) {
    form.add(boolClass(), u"chkAgree");
    EXPECT_EQ(errorOf([&] { form.add(boolClass(), u"CHKAGREE"); }), err::WrongArguments);
    EXPECT_EQ(form.sites().size(), 1u);
}

TEST_F(FormModelTest, shouldHoldTheElementsOfAControlArrayByIndex) {
    headless::Site& a = form.add(boolClass(), u"optColour", 0);
    headless::Site& b = form.add(boolClass(), u"optColour", 2);
    EXPECT_EQ(form.find(u"OPTCOLOUR", 0), &a);
    EXPECT_EQ(form.find(u"optColour", 2), &b);
    EXPECT_EQ(form.find(u"optColour", 1), nullptr);
    EXPECT_EQ(form.find(u"optColour"), nullptr);
    EXPECT_TRUE(form.model().isArray(u"optcolour"));
    EXPECT_EQ(b.displayName(), u"optColour(2)");
}

TEST_F(FormModelTest, shouldRefuseAnArrayElementTwiceAndMixingArraysWithSingleControls) {
    form.add(boolClass(), u"opt", 1);
    EXPECT_EQ(errorOf([&] { form.add(boolClass(), u"OPT", 1); }), err::WrongArguments);
    EXPECT_EQ(errorOf([&] { form.add(boolClass(), u"opt"); }), err::WrongArguments);
    form.add(boolClass(), u"chk");
    EXPECT_EQ(errorOf([&] { form.add(boolClass(), u"chk", 0); }), err::WrongArguments);
    EXPECT_EQ(errorOf([&] { form.add(boolClass(), u"x", -2); }), err::WrongArguments);
    EXPECT_EQ(form.sites().size(), 2u);
}

TEST_F(FormModelTest, shouldLetANameBeUsedAgainOnceItsControlHasGone) {
    form.add(boolClass(), u"opt", 0);
    form.remove(u"OPT", 0);
    EXPECT_FALSE(form.model().isArray(u"opt"));
    form.add(boolClass(), u"opt");
    EXPECT_NE(form.find(u"opt"), nullptr);
}

TEST_F(FormModelTest, shouldRaise340ForAMissingElementAnd424ForAMissingName) {
    form.add(boolClass(), u"opt", 0);
    EXPECT_EQ(errorOf([&] { form.remove(u"opt", 1); }), err::ControlArrayElementMissing);
    EXPECT_EQ(errorOf([&] { form.remove(u"nothing"); }), err::ObjectRequired);
}

TEST_F(FormModelTest, shouldEnumerateTheControlsInCreationOrder) {
    form.add(boolClass(), u"b");
    form.add(NumInputBox::staticClassInfo(), u"a");
    form.add(boolClass(), u"c", 3);
    const std::vector<ObjectRef> controls = form.controls();
    ASSERT_EQ(controls.size(), 3u);
    EXPECT_EQ(controls[0].get(), &form.find(u"b")->control());
    EXPECT_EQ(controls[1].get(), &form.find(u"a")->control());
    EXPECT_EQ(controls[2].get(), &form.find(u"c", 3)->control());
    std::vector<std::u16string> names;
    for (const FormEntry* e : form.model().entries()) names.push_back(e->name.text());
    EXPECT_EQ(names, (std::vector<std::u16string>{u"b", u"a", u"c(3)"}));
}

TEST_F(FormModelTest, shouldNotKeepAControlThatFailsToLoad) {
    form.add(boolClass(), u"first");
    MemoryBag bad({{u"DefaultValue", Variant(u"not a Boolean")}});
    EXPECT_NE(errorOf([&] { form.load(boolClass(), u"second", bad); }), 0);
    EXPECT_EQ(form.find(u"second"), nullptr);
    EXPECT_EQ(form.model().size(), 1u);
    form.add(boolClass(), u"second");  // the name is free again
}

TEST_F(FormModelTest, shouldDetachARemovedControlKeptElsewhere) {
    const Variant kept(ObjectRef(form.add(boolClass(), u"chk").controlRef()));
    form.remove(u"chk");
    EXPECT_EQ(errorOf([&] { getProperty(*kept.asObject(), u"Value"); }),
              err::ClientSiteNotAvailable);
    EXPECT_EQ(errorOf([&] { invoke(*kept.asObject(), u"Store", CallKind::Method); }),
              err::ClientSiteNotAvailable);
}

TEST_F(FormModelTest, shouldLeaveARemovedControlOutOfTheWalkAndRefuseItInAWalkTakenBefore) {
    headless::Site& service = form.add(boolClass(), u"service");
    form.add(boolClass(), u"chk");
    // What a service control's walk over its parent form holds.
    const std::vector<ObjectRef> walk = service.parentForm()->controls();
    form.remove(u"CHK");
    EXPECT_EQ(service.parentForm()->controls().size(), 1u);
    ASSERT_EQ(walk.size(), 2u);
    EXPECT_EQ(errorOf([&] { getProperty(*walk[1], u"SectionName"); }), err::ClientSiteNotAvailable);
    EXPECT_EQ(errorOf([&] { getProperty(*walk[0], u"SectionName"); }), 0);
}

TEST_F(FormModelTest, shouldCallAMethodOnEveryControlThatHasItAndReportEach) {
    form.add(boolClass(), u"one");
    form.add(boolClass(), u"two", 0);
    std::vector<std::u16string> reached;
    form.model().callEach(u"Store", [&](const ControlName& name, const Error* error) {
        EXPECT_EQ(error, nullptr);
        reached.push_back(name.text());
    });
    EXPECT_EQ(reached, (std::vector<std::u16string>{u"one", u"two(0)"}));
    std::size_t calls = 0;
    form.model().callEach(u"NoSuchMethod", [&](const ControlName&, const Error*) { ++calls; });
    EXPECT_EQ(calls, 0u);
}

TEST_F(FormModelTest, shouldReportAControlThatLeavesTheFormDuringAGroupCall) {
    form.add(boolClass(), u"first");
    form.add(boolClass(), u"second");
    std::vector<std::pair<std::u16string, std::int32_t>> reports;
    form.model().callEach(u"Cls", [&](const ControlName& name, const Error* error) {
        reports.emplace_back(name.text(), error ? error->number() : 0);
        if (name.name == u"first") form.remove(u"second");
    });
    ASSERT_EQ(reports.size(), 2u);
    EXPECT_EQ(reports[0], (std::pair<std::u16string, std::int32_t>{u"first", 0}));
    EXPECT_EQ(reports[1],
              (std::pair<std::u16string, std::int32_t>{u"second", err::ClientSiteNotAvailable}));
}

TEST_F(FormModelTest, shouldKeepThousandsOfControlsApartByName) {
    headless::Host other;
    headless::HeadlessForm big(other);
    for (int i = 0; i < 2000; ++i) big.add(boolClass(), u"c" + u16(std::to_string(i)));
    EXPECT_EQ(big.find(u"C1999")->name(), u"c1999");
    EXPECT_EQ(big.model().size(), 2000u);
}

}  // namespace
}  // namespace corvex
