// DropDownCombo and DropDownList behaviour: one implementation, so every test runs for
// both classes on every host the test program offers. What they share with ListBoxEx
// through the common list base is held in list_control_shared_test.cpp.
#include "corvex/lists/drop_down_combo.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "corvex/common/error.h"
#include "corvex/library/memory_bag.h"
#include "corvex/platform/list_widgets.h"
#include "support/harness.h"
#include "support/list_checks.h"

using namespace corvex;
using corvex::testing::ClassOnHost;
using corvex::testing::errorOf;
using corvex::testing::Harness;
using corvex::testing::itemDataOf;
using corvex::testing::itemsOf;
using corvex::testing::lastMessageOf;

namespace {

std::vector<ClassOnHost> cases() {
    return corvex::testing::classesOnHosts(
        {&DropDownCombo::staticClassInfo(), &DropDownList::staticClassInfo()});
}

std::vector<std::u16string> names(const MemoryBag& bag) {
    std::vector<std::u16string> out;
    for (const auto& e : bag.entries()) out.push_back(e.first);
    return out;
}

class DropDownTest : public ::testing::TestWithParam<ClassOnHost> {
protected:
    void SetUp() override {
        h = GetParam().host.make();
        h->setUserMode(false);
        h->setLocaleId(1033);
    }
    const ClassInfo& cls() const { return *GetParam().cls; }
    DropDownControl& add(const std::u16string& name = u"c") {
        return dynamic_cast<DropDownControl&>(h->add(cls(), name));
    }
    DropDownControl& load(MemoryBag& bag, const std::u16string& name = u"c") {
        return dynamic_cast<DropDownControl&>(h->load(cls(), name, bag));
    }
    ComboBox& cmb(const std::u16string& name = u"c") {
        return dynamic_cast<ComboBox&>(h->widget(name, u"cmbComboBoxEx"));
    }

    std::unique_ptr<Harness> h;
};

using Texts = std::vector<std::u16string>;

TEST_P(DropDownTest, shouldDiscardAListAssignmentByRebuildingFromTheListText) {
    DropDownControl& c = add();
    c.setListTexts(u"x|y");
    h->clearRecords(u"c");
    c.setList(0, u"z");
    EXPECT_EQ(itemsOf(c), (Texts{u"x", u"y"}));
    EXPECT_EQ(h->changes(u"c"), (Texts{u"List"}));
}

TEST_P(DropDownTest, shouldEmptyTheListOnAListAssignmentWithoutListText) {
    DropDownControl& c = add();
    c.addItem(u"q", std::nullopt);
    c.setList(0, u"z");
    EXPECT_EQ(c.listCount(), 0);
}

TEST_P(DropDownTest, shouldAddItemsAndClearWithoutTouchingTheTexts) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b");
    c.addItem(u"z", std::nullopt);
    EXPECT_EQ(c.newIndex(), 2);
    c.addItem(u"y", std::int16_t{0});
    EXPECT_EQ(itemsOf(c), (Texts{u"y", u"a", u"b", u"z"}));
    EXPECT_EQ(c.newIndex(), 0);
    c.removeItem(1);
    EXPECT_EQ(itemsOf(c), (Texts{u"y", u"b", u"z"}));
    c.clear();
    EXPECT_EQ(c.listCount(), 0);
    EXPECT_EQ(c.listTexts(), u"a|b");
}

TEST_P(DropDownTest, shouldWriteItemDataTextUnderLowerCaseDAndTheWrittenOnlyEntries) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b");
    c.setItemDataNums(u"1|2");
    c.setListIndex(1);
    MemoryBag bag;
    c.writeProperties(bag);
    EXPECT_EQ(names(bag), (Texts{u"ListIndex", u"Value", u"ItemData0", u"List0", u"ItemData1",
                                 u"List1", u"ItemdataNums", u"ListTexts"}));
}

TEST_P(DropDownTest, shouldReadPerItemEntriesOnlyForItemsPresentWhenLoadingStarts) {
    MemoryBag bag({{u"ItemData0", Variant(std::int32_t{3})},
                   {u"List0", Variant(std::u16string(u"saved"))},
                   {u"ListTexts", Variant(std::u16string(u"a|b"))}});
    DropDownControl& c = load(bag);
    EXPECT_EQ(itemsOf(c), (Texts{u"a", u"b"}));
    EXPECT_EQ(itemDataOf(c), (std::vector<std::int32_t>{0, 0}));

    // A control that already holds items when loading starts reads their entries, and
    // the rebuild from ListTexts then replaces them.
    DropDownControl& d = add(u"d");
    d.addItem(u"old", std::nullopt);
    d.readProperties(bag);
    EXPECT_EQ(itemsOf(d), (Texts{u"a", u"b"}));
}

TEST_P(DropDownTest, shouldTakeTheComboBoxHeightAndGiveItTheWidth) {
    add();
    h->resize(u"c", 3000, 900);
    EXPECT_EQ(cmb().width(), 3000);
    EXPECT_EQ(cmb().left(), 0);
    EXPECT_EQ(cmb().top(), 0);
    EXPECT_NE(cmb().height(), 900);
}

TEST_P(DropDownTest, shouldHaveIdenticalMemberAndEventTablesInBothClasses) {
    const ClassInfo& a = DropDownCombo::staticClassInfo();
    const ClassInfo& b = DropDownList::staticClassInfo();
    ASSERT_EQ(a.members().size(), b.members().size());
    for (std::size_t i = 0; i < a.members().size(); ++i) {
        EXPECT_EQ(a.members()[i].name, b.members()[i].name);
    }
    ASSERT_EQ(a.events().size(), b.events().size());
    for (std::size_t i = 0; i < a.events().size(); ++i) {
        EXPECT_EQ(a.events()[i].name, b.events()[i].name);
    }
    EXPECT_EQ(a.events()[9].name, u"Scroll");
    EXPECT_EQ(a.events()[9].dispId, 10);
}

TEST_P(DropDownTest, shouldBuildTheInnerBoxInTheClassesOwnStyle) {
    add();
    const ComboStyle expected = &cls() == &DropDownList::staticClassInfo()
                                    ? ComboStyle::DropDownList
                                    : ComboStyle::DropDownCombo;
    EXPECT_EQ(cmb().style(), expected);
}

TEST_P(DropDownTest, shouldTypeFreeTextOnlyIntoTheDropDownCombo) {
    DropDownControl& c = add();
    c.setListTexts(u"apple|berry");
    h->clearRecords(u"c");
    h->typeText(u"c", u"b");
    const auto seen = corvex::testing::eventNames(h->events(u"c"));
    if (&cls() == &DropDownList::staticClassInfo()) {
        EXPECT_EQ(c.text(), u"berry") << "a typed letter picks the item it starts";
        EXPECT_EQ(c.listIndex(), 1);
        EXPECT_EQ(std::count(seen.begin(), seen.end(), u"Change"), 0);
    } else {
        EXPECT_EQ(c.text(), u"b");
        EXPECT_EQ(c.listIndex(), -1);
        EXPECT_EQ(std::count(seen.begin(), seen.end(), u"Change"), 1);
    }
}

TEST_P(DropDownTest, shouldRefuseATextThatIsNoItemOnlyInTheDropDownList) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b");
    if (&cls() == &DropDownList::staticClassInfo()) {
        EXPECT_EQ(errorOf([&] { c.setText(u"zz"); }), err::SetNotSupported);
        c.setText(u"b");
        EXPECT_EQ(c.listIndex(), 1);
    } else {
        c.setText(u"zz");
        EXPECT_EQ(c.text(), u"zz");
        EXPECT_EQ(c.listIndex(), -1);
    }
}

INSTANTIATE_TEST_SUITE_P(Hosts, DropDownTest, ::testing::ValuesIn(cases()),
                         corvex::testing::classOnHostName);

}  // namespace
