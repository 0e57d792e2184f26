// DropDownCombo and DropDownList behaviour: one implementation, so every test runs for
// both classes on every host the test program offers.
#include "corvex/lists/drop_down_combo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "corvex/common/error.h"
#include "corvex/library/memory_bag.h"
#include "corvex/platform/list_widgets.h"
#include "support/harness.h"

using namespace corvex;
using corvex::testing::ClassOnHost;
using corvex::testing::Harness;

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
    std::vector<std::u16string> items(DropDownControl& c) {
        std::vector<std::u16string> out;
        for (std::int16_t i = 0; i < c.listCount(); ++i) out.push_back(c.list(i));
        return out;
    }
    std::vector<std::int32_t> data(DropDownControl& c) {
        std::vector<std::int32_t> out;
        for (std::int16_t i = 0; i < c.listCount(); ++i) out.push_back(c.itemData(i));
        return out;
    }
    std::u16string lastMessage() {
        const auto boxes = h->messageBoxes();
        return boxes.empty() ? u"" : boxes.back().text;
    }
    std::int32_t errorOf(const std::function<void()>& f) {
        try {
            f();
        } catch (const Error& e) {
            return e.number();
        }
        return 0;
    }

    std::unique_ptr<Harness> h;
};

using Texts = std::vector<std::u16string>;

TEST_P(DropDownTest, shouldGiveThreeItemsForARunAndATrailingDelimiter) {
    DropDownControl& c = add();
    c.setListTexts(u"a||b|");
    EXPECT_EQ(items(c), (Texts{u"a", u"b", u""}));
}

TEST_P(DropDownTest, shouldGiveOneEmptyItemForDelimitersAlone) {
    DropDownControl& c = add();
    c.setListTexts(u"|||");
    EXPECT_EQ(items(c), (Texts{u""}));
}

TEST_P(DropDownTest, shouldGiveAnEmptyListForAnEmptyListText) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b");
    c.setListTexts(u"");
    EXPECT_EQ(c.listCount(), 0);
    EXPECT_EQ(c.listIndex(), -1);
}

TEST_P(DropDownTest, shouldNotifyListTextsAndDropItemDataOnARebuild) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b");
    c.setItemDataNums(u"4|5");
    h->clearRecords(u"c");
    c.setListTexts(u"a|b|c");
    EXPECT_EQ(h->changes(u"c"), (Texts{u"ListTexts"}));
    EXPECT_EQ(data(c), (std::vector<std::int32_t>{0, 0, 0}));
    EXPECT_EQ(c.itemDataNums(), u"4|5") << "the text stays";
}

TEST_P(DropDownTest, shouldRefuseANegativeItemDataTextAndKeepTheOldOne) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b");
    c.setItemDataNums(u"1|2");
    h->clearRecords(u"c");
    c.setItemDataNums(u"-1|2");
    EXPECT_EQ(lastMessage(), u"Irregal string.");
    EXPECT_EQ(h->messageBoxes().back().style, 16);
    EXPECT_EQ(h->messageBoxes().back().title, u"Warning!!");
    EXPECT_EQ(c.itemDataNums(), u"1|2");
    EXPECT_TRUE(h->changes(u"c").empty());
}

TEST_P(DropDownTest, shouldStopAtTheThirdItemOnATrailingDelimiterOfItemData) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b|c");
    c.setItemDataNums(u"1|2|");
    EXPECT_EQ(lastMessage(), u"Irregal string.");
    EXPECT_EQ(data(c), (std::vector<std::int32_t>{1, 2, 0}));
    EXPECT_EQ(c.itemDataNums(), u"1|2|") << "the text passed the character check";
}

TEST_P(DropDownTest, shouldApplyATrailingDelimiterOfItemDataToTwoItems) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b");
    c.setItemDataNums(u"1|2|");
    EXPECT_TRUE(h->messageBoxes().empty());
    EXPECT_EQ(data(c), (std::vector<std::int32_t>{1, 2}));
}

TEST_P(DropDownTest, shouldFailWithError9WhenItemDataRunsOut) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b");
    EXPECT_EQ(errorOf([&] { c.setItemDataNums(u"5"); }), err::SubscriptOutOfRange);
    EXPECT_EQ(data(c), (std::vector<std::int32_t>{5, 0}));
}

TEST_P(DropDownTest, shouldOverflowOnItemDataBeyond32Bits) {
    DropDownControl& c = add();
    c.setListTexts(u"a");
    EXPECT_EQ(errorOf([&] { c.setItemDataNums(u"2147483648"); }), err::Overflow);
}

TEST_P(DropDownTest, shouldOverflowOnAListTextLongerThan32767Units) {
    DropDownControl& c = add();
    EXPECT_EQ(errorOf([&] { c.setListTexts(std::u16string(32768, u'a')); }), err::Overflow);
    EXPECT_EQ(c.listCount(), 0);
}

TEST_P(DropDownTest, shouldAcceptMinusOneAsDefaultOnAnEmptyList) {
    DropDownControl& c = add();
    c.setDefaultValue(-1);
    EXPECT_TRUE(h->messageBoxes().empty());
    EXPECT_EQ(c.defaultValue(), -1);
}

TEST_P(DropDownTest, shouldRefuseDefaultZeroOnAnEmptyList) {
    DropDownControl& c = add();
    c.setDefaultValue(0);
    EXPECT_EQ(lastMessage(), u"Out of now maximum list number.");
    EXPECT_EQ(c.defaultValue(), -1);
}

TEST_P(DropDownTest, shouldRefuseADefaultBelowMinusOne) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b");
    h->clearRecords(u"c");
    c.setDefaultValue(-2);
    EXPECT_EQ(lastMessage(), u"Enter not less than -1 .");
    EXPECT_EQ(h->messageBoxes().back().title, u"Warning!!");
    EXPECT_EQ(c.defaultValue(), -1);
    EXPECT_TRUE(h->changes(u"c").empty());
}

TEST_P(DropDownTest, shouldShowTheJapaneseRefusalUnderLocale1041) {
    DropDownControl& c = add();
    h->setLocaleId(1041);
    c.setDefaultValue(-2);
    EXPECT_EQ(lastMessage(), u"-1以上の値を入力して下さい");
    EXPECT_EQ(h->messageBoxes().back().title, u"警告!!");
}

TEST_P(DropDownTest, shouldSelectAnAcceptedDefaultAndNotifyDefaultValueThenValue) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b");
    h->clearRecords(u"c");
    c.setDefaultValue(1);
    EXPECT_EQ(c.value(), 1);
    EXPECT_EQ(c.listIndex(), 1);
    EXPECT_EQ(h->changes(u"c"), (Texts{u"DefaultValue", u"Value"}));
}

TEST_P(DropDownTest, shouldRefuseDefaultValueAtRunTimeWith382) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b");
    h->setUserMode(true);
    EXPECT_EQ(errorOf([&] { c.setDefaultValue(0); }), err::SetNotSupportedAtRuntime);
    EXPECT_EQ(c.defaultValue(), -1);
}

TEST_P(DropDownTest, shouldDiscardAListAssignmentByRebuildingFromTheListText) {
    DropDownControl& c = add();
    c.setListTexts(u"x|y");
    h->clearRecords(u"c");
    c.setList(0, u"z");
    EXPECT_EQ(items(c), (Texts{u"x", u"y"}));
    EXPECT_EQ(h->changes(u"c"), (Texts{u"List"}));
}

TEST_P(DropDownTest, shouldEmptyTheListOnAListAssignmentWithoutListText) {
    DropDownControl& c = add();
    c.addItem(u"q", std::nullopt);
    c.setList(0, u"z");
    EXPECT_EQ(c.listCount(), 0);
}

TEST_P(DropDownTest, shouldPassOnTheInnerErrorOfAListAssignmentOutsideTheList) {
    DropDownControl& c = add();
    EXPECT_EQ(errorOf([&] { c.setList(2, u"z"); }), 381);
}

TEST_P(DropDownTest, shouldChangeNothingOnRestoreBeforeAnyStore) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b");
    c.setListIndex(1);
    c.restore();
    EXPECT_EQ(c.listIndex(), 1);
}

TEST_P(DropDownTest, shouldRestoreTheStoredSelectionAndTheDefault) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b|c");
    c.setDefaultValue(2);
    c.setListIndex(0);
    c.store();
    c.setListIndex(1);
    c.restore();
    EXPECT_EQ(c.listIndex(), 0);
    c.restoreDefault();
    EXPECT_EQ(c.listIndex(), 2);
    c.cls();
    EXPECT_EQ(c.listIndex(), -1);
    EXPECT_EQ(c.listCount(), 3) << "Cls keeps the items";
    c.store();
    c.setListIndex(1);
    c.restore();
    EXPECT_EQ(c.listIndex(), -1) << "a stored -1 clears the selection again";
}

TEST_P(DropDownTest, shouldAddItemsAndClearWithoutTouchingTheTexts) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b");
    c.addItem(u"z", std::nullopt);
    EXPECT_EQ(c.newIndex(), 2);
    c.addItem(u"y", std::int16_t{0});
    EXPECT_EQ(items(c), (Texts{u"y", u"a", u"b", u"z"}));
    EXPECT_EQ(c.newIndex(), 0);
    c.removeItem(1);
    EXPECT_EQ(items(c), (Texts{u"y", u"b", u"z"}));
    c.clear();
    EXPECT_EQ(c.listCount(), 0);
    EXPECT_EQ(c.listTexts(), u"a|b");
}

TEST_P(DropDownTest, shouldPassOnErrorsOfTheInnerBox) {
    DropDownControl& c = add();
    c.setListTexts(u"a");
    EXPECT_EQ(errorOf([&] { c.setListIndex(3); }), err::InvalidPropertyValue);
    EXPECT_EQ(errorOf([&] { c.itemData(1); }), 381);
    EXPECT_EQ(errorOf([&] { c.removeItem(4); }), err::InvalidProcedureCall);
}

TEST_P(DropDownTest, shouldSetItemDataWithoutChangingTheText) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b");
    c.setItemData(1, -9);
    EXPECT_EQ(c.itemData(1), -9);
    EXPECT_EQ(c.itemDataNums(), u"");
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

TEST_P(DropDownTest, shouldLookForItemDataTextUnderCapitalDWhenLoading) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b");
    c.setItemDataNums(u"1|2");
    MemoryBag bag;
    c.writeProperties(bag);
    // This host's bags match names without regard to case, so the text comes back.
    DropDownControl& back = load(bag, u"d");
    EXPECT_EQ(back.itemDataNums(), u"1|2");
    EXPECT_EQ(data(back), (std::vector<std::int32_t>{1, 2}));

    MemoryBag exact({{u"ListTexts", Variant(std::u16string(u"a|b"))},
                     {u"ItemDataNums", Variant(std::u16string(u"7|8"))}});
    DropDownControl& e = load(exact, u"e");
    EXPECT_EQ(data(e), (std::vector<std::int32_t>{7, 8}));
}

TEST_P(DropDownTest, shouldTakeTheSelectionFromDefaultValueNotFromListIndexOrValue) {
    MemoryBag bag({{u"ListIndex", Variant(std::int16_t{1})},
                   {u"Value", Variant(std::int16_t{1})},
                   {u"DefaultValue", Variant(std::int16_t{0})},
                   {u"ListTexts", Variant(std::u16string(u"a|b"))}});
    DropDownControl& c = load(bag);
    EXPECT_EQ(c.listIndex(), 0);
}

TEST_P(DropDownTest, shouldReadPerItemEntriesOnlyForItemsPresentWhenLoadingStarts) {
    MemoryBag bag({{u"ItemData0", Variant(std::int32_t{3})},
                   {u"List0", Variant(std::u16string(u"saved"))},
                   {u"ListTexts", Variant(std::u16string(u"a|b"))}});
    DropDownControl& c = load(bag);
    EXPECT_EQ(items(c), (Texts{u"a", u"b"}));
    EXPECT_EQ(data(c), (std::vector<std::int32_t>{0, 0}));

    // A control that already holds items when loading starts reads their entries, and
    // the rebuild from ListTexts then replaces them.
    DropDownControl& d = add(u"d");
    d.addItem(u"old", std::nullopt);
    d.readProperties(bag);
    EXPECT_EQ(items(d), (Texts{u"a", u"b"}));
}

TEST_P(DropDownTest, shouldReadEntriesInTheirOrderWithPerItemEntriesAfterFont) {
    DropDownControl& c = add();
    c.addItem(u"x", std::nullopt);
    struct Recording : PropertyBag {
        std::vector<std::u16string> reads;
        Variant read(std::u16string_view n, const Variant& def) override {
            reads.emplace_back(n);
            return def;
        }
        void write(std::u16string_view, const Variant&, const Variant&) override {}
    } bag;
    c.readProperties(bag);
    EXPECT_EQ(bag.reads, (Texts{u"BackColor", u"ForeColor", u"Enabled", u"IMEMode", u"Locked",
                                u"Font", u"ItemData0", u"List0", u"DefaultValue", u"ItemDataNums",
                                u"KeyName", u"ListTexts", u"SectionName"}));
}

TEST_P(DropDownTest, shouldApplyTheLoadedItemDataAndShowTheRefusalOfAWrongElement) {
    MemoryBag bag({{u"ListTexts", Variant(std::u16string(u"a|b"))},
                   {u"ItemDataNums", Variant(std::u16string(u"3|x"))}});
    DropDownControl& c = load(bag);
    EXPECT_EQ(data(c), (std::vector<std::int32_t>{3, 0}));
    EXPECT_EQ(lastMessage(), u"Irregal string.");
}

TEST_P(DropDownTest, shouldRaiseClickWhenTheSelectionChangesByCode) {
    DropDownControl& c = add();
    c.setListTexts(u"a|b");
    h->clearRecords(u"c");
    c.setValue(1);
    EXPECT_EQ(corvex::testing::eventNames(h->events(u"c")), (Texts{u"Click"}));
    EXPECT_EQ(c.text(), u"b");
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
