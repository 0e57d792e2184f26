// What every control keeps with its host, seen through BooleanBox and its class table.
#include <gtest/gtest.h>

#include "corvex/common/boolean_box.h"
#include "corvex/common/text.h"
#include "corvex/library/class_table.h"
#include "corvex/library/memory_bag.h"
#include "support/headless_fixture.h"

using namespace corvex;
using corvex::testing::HeadlessTest;

namespace {

TEST(ControlContract, shouldNumberDblClickBeforeClickInBooleanBoxEvents) {
    const ClassInfo& c = BooleanBox::staticClassInfo();
    std::vector<std::pair<std::u16string, int>> got;
    for (const auto& e : c.events()) got.emplace_back(e.name, e.dispId);
    EXPECT_EQ(got, (std::vector<std::pair<std::u16string, int>>{{u"DblClick", 1},
                                                                {u"Click", 2},
                                                                {u"KeyDown", 3},
                                                                {u"KeyPress", 4},
                                                                {u"KeyUp", 5},
                                                                {u"MouseDown", 6},
                                                                {u"MouseMove", 7},
                                                                {u"MouseUp", 8},
                                                                {u"Resize", 9},
                                                                {u"InitProperties", 10},
                                                                {u"ReadProperties", 11},
                                                                {u"WriteProperties", 12}}));
}

TEST(ControlContract, shouldDeclareLifecycleEventsThatAreNeverRaised) {
    const ClassInfo& c = BooleanBox::staticClassInfo();
    for (const char16_t* name : {u"InitProperties", u"ReadProperties", u"WriteProperties"}) {
        ASSERT_NE(c.event(name), nullptr);
        EXPECT_FALSE(c.event(name)->raised);
    }
    EXPECT_TRUE(c.event(u"Resize")->raised);
}

TEST(ControlContract, shouldPublishBooleanBoxInTheClassTable) {
    EXPECT_EQ(findClass(u"booleanbox"), &BooleanBox::staticClassInfo());
    EXPECT_EQ(findClass(u"NoSuchClass"), nullptr);
    EXPECT_TRUE(BooleanBox::staticClassInfo().creatable());
}

TEST(ControlContract, shouldGiveKeyEventsByReferenceArguments) {
    const EventInfo* kd = BooleanBox::staticClassInfo().event(u"KeyDown");
    ASSERT_EQ(kd->params.size(), 2u);
    EXPECT_TRUE(kd->params[0].byRef);
    EXPECT_EQ(kd->params[0].name, u"KeyCode");
    EXPECT_EQ(kd->params[0].type, VarType::Integer);
    const EventInfo* md = BooleanBox::staticClassInfo().event(u"MouseDown");
    ASSERT_EQ(md->params.size(), 4u);
    EXPECT_EQ(md->params[2].type, VarType::Single);
}

TEST_F(HeadlessTest, shouldNeverRaiseTheDeclaredLifecycleEvents) {
    h.host().setUserMode(false);
    auto& a = static_cast<BooleanBox&>(h.add(BooleanBox::staticClassInfo(), u"a"));
    MemoryBag bag;
    a.setCaption(u"x");
    a.writeProperties(bag);
    h.load(BooleanBox::staticClassInfo(), u"b", bag);
    for (const char16_t* name : {u"a", u"b"}) {
        for (const auto& e : h.site(name).events) {
            EXPECT_NE(e.name, u"InitProperties");
            EXPECT_NE(e.name, u"ReadProperties");
            EXPECT_NE(e.name, u"WriteProperties");
        }
    }
}

TEST_F(HeadlessTest, shouldReachEveryPropertyByName) {
    auto& b = static_cast<BooleanBox&>(h.add(BooleanBox::staticClassInfo(), u"b"));
    letProperty(b, u"caption", Variant(u"By name"));
    EXPECT_EQ(b.caption(), u"By name");
    letProperty(b, u"SectionName", Variant(u"S"));
    EXPECT_EQ(getProperty(b, u"SectionName"), Variant(u"S"));
    letProperty(b, u"BackColor", Variant(std::int16_t{255}));
    EXPECT_EQ(getProperty(b, u"BackColor"), Variant(std::int32_t{255}));
    Variant none[1];
    invoke(b, u"Store", CallKind::Method, std::span<Variant>(none, 0));
    b.setValue(true);
    invoke(b, u"Restore", CallKind::Method, std::span<Variant>(none, 0));
    EXPECT_EQ(b.value(), Boolean(false)) << "the unchecked state stored by name comes back";
}

TEST_F(HeadlessTest, shouldSetTheFontByNameAsAnObject) {
    auto& b = static_cast<BooleanBox&>(h.add(BooleanBox::staticClassInfo(), u"b"));
    FontDesc f;
    f.name = u"Serif";
    f.size = 12;
    letProperty(b, u"Font", Variant(ObjectRef(Font::make(f))));
    Variant got = getProperty(b, u"Font");
    ASSERT_EQ(got.type(), VarType::Object);
    EXPECT_EQ(getProperty(*got.asObject(), u"Name"), Variant(u"Serif"));
    EXPECT_EQ(getProperty(*got.asObject(), u"Size"), Variant(12.0));
}

TEST_F(HeadlessTest, shouldRefuseATextForTheFontWithTypeMismatch) {
    auto& b = static_cast<BooleanBox&>(h.add(BooleanBox::staticClassInfo(), u"b"));
    try {
        letProperty(b, u"Font", Variant(u"Serif"));
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), err::TypeMismatch);
    }
}

TEST_F(HeadlessTest, shouldConvertTextToABooleanValueByName) {
    auto& b = static_cast<BooleanBox&>(h.add(BooleanBox::staticClassInfo(), u"b"));
    letProperty(b, u"Value", Variant(u"True"));
    EXPECT_EQ(b.value(), Boolean(true));
    letProperty(b, u"Value", Variant(u"False"));
    EXPECT_EQ(b.value(), Boolean(false));
    EXPECT_THROW(letProperty(b, u"Value", Variant(u"maybe")), Error);
}

TEST_F(HeadlessTest, shouldRepaintOnRefresh) {
    auto& b = static_cast<BooleanBox&>(h.add(BooleanBox::staticClassInfo(), u"b"));
    const int before = h.site(u"b").refreshCount;
    b.refresh();
    EXPECT_EQ(h.site(u"b").refreshCount, before + 1);
}

TEST_F(HeadlessTest, shouldNotRaiseEventsWhenThePropertyIsSetButTheStateIsUnchanged) {
    auto& b = static_cast<BooleanBox&>(h.add(BooleanBox::staticClassInfo(), u"b"));
    h.site(u"b").clearRecords();
    b.setValue(false);  // already unchecked
    EXPECT_TRUE(h.site(u"b").events.empty());
    b.setValue(true);  // the check box raises Click when its value changes, as a real one does
    EXPECT_EQ(h.site(u"b").eventNames(), std::vector<std::u16string>{u"Click"});
}

}  // namespace

namespace corvex {
namespace {

// A control kept past its form (here through a Variant, as a script name or a property
// page's selection keeps it) refuses every access by name instead of reaching the site
// that went with the form.
TEST(DetachedControl, shouldRaise398OnEveryMemberOnceItsFormIsGone) {
    for (const ClassInfo* cls : publicClasses()) {
        Variant kept;
        {
            headless::Host host;
            headless::HeadlessForm form(host);
            kept = Variant(ObjectRef(form.add(*cls, u"c").controlRef()));
        }
        Object& object = *kept.asObject();
        for (const MemberInfo& m : cls->members()) {
            try {
                invoke(object, m.name, m.isMethod ? CallKind::Method : CallKind::Get);
                ADD_FAILURE() << "no error from " << toUtf8(cls->name() + u"." + m.name);
            } catch (const Error& e) {
                EXPECT_EQ(e.number(), err::ClientSiteNotAvailable) << toUtf8(m.name);
            }
        }
        EXPECT_THROW(letProperty(object, u"KeyName", Variant(u"k")), Error);
    }
}

}  // namespace
}  // namespace corvex
