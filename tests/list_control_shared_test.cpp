// What DropDownCombo, DropDownList and ListBoxEx share through their common list base:
// the delimited list and its item data, DefaultValue and its refusals, Store/Restore on the
// inner selection and the saved item data text. Every case runs for each of the three
// classes on every host the test program offers; where a class answers in its own way, its
// row below says how.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>

#include "corvex/common/error.h"
#include "corvex/library/memory_bag.h"
#include "corvex/lists/drop_down_combo.h"
#include "corvex/lists/list_box_ex.h"
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

using Texts = std::vector<std::u16string>;
using Numbers = std::vector<std::int32_t>;

/// One list class: its members the common base does not declare, and what it alone answers.
struct ListClassRow {
    const ClassInfo* cls;                                              ///< the class
    std::function<Texts(ListControl&)> items;                          ///< the item texts, in order
    std::function<Numbers(ListControl&)> data;                         ///< the item data, in order
    std::function<std::int32_t(ListControl&, std::int16_t)> itemData;  ///< ItemData(i)
    std::function<void(ListControl&, std::int16_t, std::int32_t)> setItemData;  ///< ItemData(i) =
    std::function<void(ListControl&, std::u16string, std::optional<std::int16_t>)>
        addItem;                                                              ///< AddItem
    std::function<void(ListControl&, std::int16_t)> removeItem;               ///< RemoveItem
    std::function<void(ListControl&, std::int16_t, std::u16string)> setList;  ///< List(i) =
    std::function<std::u16string(ListControl&)> text;                         ///< Text
    Texts readsWhenEmpty;    ///< the bag entries read, in order, by a control without items
    Texts readsWithOneItem;  ///< the same by a control that holds one item
    std::int32_t removeOutsideError;  ///< the inner box's error for RemoveItem past the end
};

/// The row of a class whose controls are made on C.
template <class C>
ListClassRow rowOf(const ClassInfo& cls, Texts readsWhenEmpty, Texts readsWithOneItem,
                   std::int32_t removeOutsideError) {
    return {&cls,
            [](ListControl& c) { return itemsOf(dynamic_cast<C&>(c)); },
            [](ListControl& c) { return itemDataOf(dynamic_cast<C&>(c)); },
            [](ListControl& c, std::int16_t i) { return dynamic_cast<C&>(c).itemData(i); },
            [](ListControl& c, std::int16_t i, std::int32_t v) {
                dynamic_cast<C&>(c).setItemData(i, v);
            },
            [](ListControl& c, std::u16string item, std::optional<std::int16_t> index) {
                dynamic_cast<C&>(c).addItem(std::move(item), index);
            },
            [](ListControl& c, std::int16_t i) { dynamic_cast<C&>(c).removeItem(i); },
            [](ListControl& c, std::int16_t i, std::u16string v) {
                dynamic_cast<C&>(c).setList(i, std::move(v));
            },
            [](ListControl& c) { return dynamic_cast<C&>(c).text(); },
            std::move(readsWhenEmpty),
            std::move(readsWithOneItem),
            removeOutsideError};
}

const std::vector<ListClassRow>& rows() {
    // A combo box and a list box fail RemoveItem past the end each with their own error.
    // The drop-downs read the per-item entries of the items present when loading starts,
    // after Font; ListBoxEx keeps its own order and reads no per-item entries at all.
    static const Texts dropDownEmpty{u"BackColor", u"ForeColor", u"Enabled",      u"IMEMode",
                                     u"Locked",    u"Font",      u"DefaultValue", u"ItemDataNums",
                                     u"KeyName",   u"ListTexts", u"SectionName"};
    static const Texts dropDownOne{u"BackColor",    u"ForeColor",    u"Enabled",   u"IMEMode",
                                   u"Locked",       u"Font",         u"ItemData0", u"List0",
                                   u"DefaultValue", u"ItemDataNums", u"KeyName",   u"ListTexts",
                                   u"SectionName"};
    static const Texts listBoxEx{u"BackColor",    u"Enabled",      u"ForeColor",
                                 u"IMEMode",      u"Font",         u"AutoRefreshScrollBar",
                                 u"DefaultValue", u"ItemDataNums", u"KeyName",
                                 u"ListTexts",    u"SectionName"};
    static const std::vector<ListClassRow> all{
        rowOf<DropDownControl>(DropDownCombo::staticClassInfo(), dropDownEmpty, dropDownOne,
                               err::InvalidProcedureCall),
        rowOf<DropDownControl>(DropDownList::staticClassInfo(), dropDownEmpty, dropDownOne,
                               err::InvalidProcedureCall),
        rowOf<ListBoxEx>(ListBoxEx::staticClassInfo(), listBoxEx, listBoxEx, 381),
    };
    return all;
}

std::vector<ClassOnHost> cases() {
    std::vector<const ClassInfo*> classes;
    for (const auto& r : rows()) classes.push_back(r.cls);
    return corvex::testing::classesOnHosts(classes);
}

/// Records the names a control reads from a bag, answering every read with the default.
struct RecordingBag : PropertyBag {
    Texts reads;  ///< names read, in order
    Variant read(std::u16string_view n, const Variant& def) override {
        reads.emplace_back(n);
        return def;
    }
    void write(std::u16string_view, const Variant&, const Variant&) override {}
};

class ListControlTest : public ::testing::TestWithParam<ClassOnHost> {
protected:
    void SetUp() override {
        h = GetParam().host.make();
        h->setUserMode(false);
        h->setLocaleId(1033);
    }
    const ListClassRow& row() const {
        const auto& all = rows();
        return *std::find_if(all.begin(), all.end(),
                             [&](const ListClassRow& r) { return r.cls == GetParam().cls; });
    }
    ListControl& add(const std::u16string& name = u"c") {
        return dynamic_cast<ListControl&>(h->add(*GetParam().cls, name));
    }
    ListControl& load(MemoryBag& bag, const std::u16string& name = u"c") {
        return dynamic_cast<ListControl&>(h->load(*GetParam().cls, name, bag));
    }
    Texts items(ListControl& c) { return row().items(c); }
    Numbers data(ListControl& c) { return row().data(c); }

    std::unique_ptr<Harness> h;
};

// --- the delimited list ------------------------------------------------------------

TEST_P(ListControlTest, shouldGiveThreeItemsForARunAndATrailingDelimiter) {
    ListControl& c = add();
    c.setListTexts(u"a||b|");
    EXPECT_EQ(items(c), (Texts{u"a", u"b", u""}));
}

TEST_P(ListControlTest, shouldGiveOneEmptyItemForDelimitersAlone) {
    ListControl& c = add();
    c.setListTexts(u"|||");
    EXPECT_EQ(items(c), (Texts{u""}));
}

TEST_P(ListControlTest, shouldGiveAnEmptyListForAnEmptyListText) {
    ListControl& c = add();
    c.setListTexts(u"a|b");
    c.setListTexts(u"");
    EXPECT_TRUE(items(c).empty());
    EXPECT_EQ(c.listIndex(), -1);
}

TEST_P(ListControlTest, shouldOverflowOnAListTextLongerThan32767Units) {
    ListControl& c = add();
    EXPECT_EQ(errorOf([&] { c.setListTexts(std::u16string(32768, u'a')); }), err::Overflow);
    EXPECT_TRUE(items(c).empty());
}

TEST_P(ListControlTest, shouldNotifyListTextsAndDropItemDataOnARebuild) {
    ListControl& c = add();
    c.setListTexts(u"a|b");
    c.setItemDataNums(u"4|5");
    h->clearRecords(u"c");
    c.setListTexts(u"a|b|c");
    EXPECT_EQ(h->changes(u"c"), (Texts{u"ListTexts"}));
    EXPECT_EQ(data(c), (Numbers{0, 0, 0}));
    EXPECT_EQ(c.itemDataNums(), u"4|5") << "the text stays";
}

TEST_P(ListControlTest, shouldDropItemDataOnARebuildFromTheSameText) {
    ListControl& c = add();
    c.setListTexts(u"a|b");
    c.setItemDataNums(u"3|4");
    c.setListTexts(u"a|b");
    EXPECT_EQ(data(c), (Numbers{0, 0}));
}

// --- the item data text ------------------------------------------------------------

TEST_P(ListControlTest, shouldRefuseANegativeItemDataTextAndKeepTheOldOne) {
    ListControl& c = add();
    c.setListTexts(u"a|b");
    c.setItemDataNums(u"1|2");
    h->clearRecords(u"c");
    c.setItemDataNums(u"-1|2");
    EXPECT_EQ(lastMessageOf(*h), u"Irregal string.");
    EXPECT_EQ(h->messageBoxes().back().style, 16);
    EXPECT_EQ(h->messageBoxes().back().title, u"Warning!!");
    EXPECT_EQ(c.itemDataNums(), u"1|2");
    EXPECT_TRUE(h->changes(u"c").empty());
}

TEST_P(ListControlTest, shouldRefuseABlankInTheItemDataTextInJapaneseUnderLocale1041) {
    ListControl& c = add();
    c.setListTexts(u"a|b");
    h->setLocaleId(1041);
    c.setItemDataNums(u"1 2");
    EXPECT_EQ(lastMessageOf(*h), u"不正な文字列です");
    EXPECT_EQ(h->messageBoxes().back().title, u"警告!!");
    EXPECT_EQ(c.itemDataNums(), u"");
}

TEST_P(ListControlTest, shouldStopAtTheThirdItemOnATrailingDelimiterOfItemData) {
    ListControl& c = add();
    c.setListTexts(u"a|b|c");
    c.setItemDataNums(u"1|2|");
    EXPECT_EQ(lastMessageOf(*h), u"Irregal string.");
    EXPECT_EQ(data(c), (Numbers{1, 2, 0}));
    EXPECT_EQ(c.itemDataNums(), u"1|2|") << "the text passed the character check";
}

TEST_P(ListControlTest, shouldApplyATrailingDelimiterOfItemDataToTwoItems) {
    ListControl& c = add();
    c.setListTexts(u"a|b");
    c.setItemDataNums(u"1|2|");
    EXPECT_TRUE(h->messageBoxes().empty());
    EXPECT_EQ(data(c), (Numbers{1, 2}));
}

TEST_P(ListControlTest, shouldFailWithError9WhenItemDataRunsOut) {
    ListControl& c = add();
    c.setListTexts(u"a|b");
    EXPECT_EQ(errorOf([&] { c.setItemDataNums(u"5"); }), err::SubscriptOutOfRange);
    EXPECT_EQ(data(c), (Numbers{5, 0}));
}

TEST_P(ListControlTest, shouldOverflowOnItemDataBeyond32Bits) {
    ListControl& c = add();
    c.setListTexts(u"a");
    EXPECT_EQ(errorOf([&] { c.setItemDataNums(u"2147483648"); }), err::Overflow);
    EXPECT_EQ(errorOf([&] { c.setItemDataNums(u"4294967296"); }), err::Overflow);
}

TEST_P(ListControlTest, shouldSetItemDataWithoutChangingTheText) {
    ListControl& c = add();
    c.setListTexts(u"a|b");
    row().setItemData(c, 1, -9);
    EXPECT_EQ(row().itemData(c, 1), -9);
    EXPECT_EQ(c.itemDataNums(), u"");
}

TEST_P(ListControlTest, shouldPassOnTheInnerBoxsErrorsForIndexesOutsideTheList) {
    ListControl& c = add();
    EXPECT_EQ(errorOf([&] { row().setList(c, 2, u"z"); }), 381);
    c.setListTexts(u"a");
    EXPECT_EQ(errorOf([&] { c.setListIndex(3); }), err::InvalidPropertyValue);
    EXPECT_EQ(errorOf([&] { row().itemData(c, 1); }), 381);
    EXPECT_EQ(errorOf([&] { row().addItem(c, u"x", std::int16_t{5}); }), err::InvalidProcedureCall);
    EXPECT_EQ(errorOf([&] { row().removeItem(c, 4); }), row().removeOutsideError);
    EXPECT_EQ(errorOf([&] { row().removeItem(c, 7); }), row().removeOutsideError);
    EXPECT_EQ(items(c), (Texts{u"a"}));
}

// --- DefaultValue --------------------------------------------------------------------

TEST_P(ListControlTest, shouldAcceptMinusOneAsDefaultOnAnEmptyList) {
    ListControl& c = add();
    c.setDefaultValue(-1);
    EXPECT_TRUE(h->messageBoxes().empty());
    EXPECT_EQ(c.defaultValue(), -1);
}

TEST_P(ListControlTest, shouldRefuseDefaultZeroOnAnEmptyList) {
    ListControl& c = add();
    c.setDefaultValue(0);
    EXPECT_EQ(lastMessageOf(*h), u"Out of now maximum list number.");
    EXPECT_EQ(c.defaultValue(), -1);
}

TEST_P(ListControlTest, shouldRefuseADefaultBelowMinusOne) {
    ListControl& c = add();
    c.setListTexts(u"a|b");
    h->clearRecords(u"c");
    c.setDefaultValue(-2);
    EXPECT_EQ(lastMessageOf(*h), u"Enter not less than -1 .");
    EXPECT_EQ(h->messageBoxes().back().title, u"Warning!!");
    EXPECT_EQ(c.defaultValue(), -1);
    EXPECT_TRUE(h->changes(u"c").empty());
}

TEST_P(ListControlTest, shouldShowTheJapaneseRefusalsUnderLocale1041) {
    ListControl& c = add();
    h->setLocaleId(1041);
    c.setDefaultValue(0);
    EXPECT_EQ(lastMessageOf(*h), u"現在のリスト番号の最大値を越えています");
    c.setDefaultValue(-2);
    EXPECT_EQ(lastMessageOf(*h), u"-1以上の値を入力して下さい");
    EXPECT_EQ(h->messageBoxes().back().title, u"警告!!");
    EXPECT_EQ(c.defaultValue(), -1);
}

TEST_P(ListControlTest, shouldSelectAnAcceptedDefaultAndNotifyDefaultValueThenValue) {
    ListControl& c = add();
    c.setListTexts(u"a|b");
    h->clearRecords(u"c");
    c.setDefaultValue(1);
    EXPECT_EQ(c.value(), 1);
    EXPECT_EQ(c.listIndex(), 1);
    EXPECT_EQ(h->changes(u"c"), (Texts{u"DefaultValue", u"Value"}));
}

TEST_P(ListControlTest, shouldRefuseDefaultValueAtRunTimeWith382) {
    ListControl& c = add();
    c.setListTexts(u"a|b");
    h->setUserMode(true);
    EXPECT_EQ(errorOf([&] { c.setDefaultValue(0); }), err::SetNotSupportedAtRuntime);
    EXPECT_EQ(errorOf([&] { c.setDefaultValue(1); }), err::SetNotSupportedAtRuntime);
    EXPECT_EQ(c.defaultValue(), -1);
}

// --- Store, Restore, RestoreDefault and Cls -----------------------------------------

TEST_P(ListControlTest, shouldChangeNothingOnRestoreBeforeAnyStore) {
    ListControl& c = add();
    c.setListTexts(u"a|b");
    c.setListIndex(1);
    c.restore();
    EXPECT_EQ(c.listIndex(), 1);
}

TEST_P(ListControlTest, shouldRestoreTheStoredSelectionAfterAnotherOne) {
    ListControl& c = add();
    c.setListTexts(u"a|b|c");
    c.setDefaultValue(2);
    c.setListIndex(0);
    c.store();
    c.setListIndex(1);
    c.restore();
    EXPECT_EQ(c.listIndex(), 0);
    c.restoreDefault();
    EXPECT_EQ(c.listIndex(), 2);
}

TEST_P(ListControlTest, shouldRestoreTheStoredSelectionAfterCls) {
    ListControl& c = add();
    c.setListTexts(u"a|b|c");
    c.setDefaultValue(2);
    c.setListIndex(1);
    c.store();
    c.cls();
    EXPECT_EQ(c.listIndex(), -1);
    EXPECT_EQ(items(c).size(), 3u) << "Cls keeps the items";
    c.restore();
    EXPECT_EQ(c.listIndex(), 1);
    c.restoreDefault();
    EXPECT_EQ(c.listIndex(), 2);
}

TEST_P(ListControlTest, shouldClearTheSelectionAgainOnRestoreOfAStoredMinusOne) {
    ListControl& c = add();
    c.setListTexts(u"a|b|c");
    c.setDefaultValue(2);
    c.cls();
    ASSERT_EQ(c.listIndex(), -1);
    c.store();
    c.setListIndex(1);
    c.restore();
    EXPECT_EQ(c.listIndex(), -1);
}

// --- events --------------------------------------------------------------------------

TEST_P(ListControlTest, shouldRaiseClickWhenTheSelectionChangesByCode) {
    ListControl& c = add();
    c.setListTexts(u"a|b");
    h->clearRecords(u"c");
    c.setValue(1);
    EXPECT_EQ(corvex::testing::eventNames(h->events(u"c")), (Texts{u"Click"}));
    EXPECT_EQ(row().text(c), u"b");
    h->clearRecords(u"c");
    c.setListIndex(0);
    EXPECT_EQ(corvex::testing::eventNames(h->events(u"c")), (Texts{u"Click"}));
    EXPECT_EQ(row().text(c), u"a");
}

// --- saving and loading --------------------------------------------------------------

TEST_P(ListControlTest, shouldWriteTheItemDataTextUnderLowerCaseD) {
    ListControl& c = add();
    c.setListTexts(u"a|b");
    c.setItemDataNums(u"1|2");
    MemoryBag bag;
    c.writeProperties(bag);
    const auto& entries = bag.entries();
    const auto written = std::find_if(entries.begin(), entries.end(),
                                      [](const auto& e) { return e.first == u"ItemdataNums"; });
    ASSERT_NE(written, entries.end());
    EXPECT_EQ(written->second, Variant(u"1|2"));
    EXPECT_TRUE(std::none_of(entries.begin(), entries.end(),
                             [](const auto& e) { return e.first == u"ItemDataNums"; }));
}

TEST_P(ListControlTest, shouldLookForItemDataTextUnderCapitalDWhenLoading) {
    ListControl& c = add();
    c.setListTexts(u"a|b");
    c.setItemDataNums(u"1|2");
    MemoryBag bag;
    c.writeProperties(bag);
    // This host's bags match names without regard to case, so the text comes back.
    ListControl& back = load(bag, u"d");
    EXPECT_EQ(back.itemDataNums(), u"1|2");
    EXPECT_EQ(data(back), (Numbers{1, 2}));

    MemoryBag exact({{u"ListTexts", Variant(std::u16string(u"a|b"))},
                     {u"ItemDataNums", Variant(std::u16string(u"7|8"))}});
    ListControl& e = load(exact, u"e");
    EXPECT_EQ(data(e), (Numbers{7, 8}));
}

TEST_P(ListControlTest, shouldReadItsEntriesInItsOwnOrderWithoutItems) {
    ListControl& c = add();
    RecordingBag bag;
    c.readProperties(bag);
    EXPECT_EQ(bag.reads, row().readsWhenEmpty);
}

TEST_P(ListControlTest, shouldReadItsEntriesInItsOwnOrderWithAnItemPresent) {
    ListControl& c = add();
    row().addItem(c, u"x", std::nullopt);
    RecordingBag bag;
    c.readProperties(bag);
    EXPECT_EQ(bag.reads, row().readsWithOneItem);
}

TEST_P(ListControlTest, shouldTakeTheSelectionFromDefaultValueNotFromListIndexOrValue) {
    MemoryBag bag({{u"ListIndex", Variant(std::int16_t{1})},
                   {u"Value", Variant(std::int16_t{1})},
                   {u"DefaultValue", Variant(std::int16_t{0})},
                   {u"ListTexts", Variant(std::u16string(u"a|b"))}});
    ListControl& c = load(bag);
    EXPECT_EQ(c.listIndex(), 0);
}

TEST_P(ListControlTest, shouldApplyTheLoadedItemDataAndShowTheRefusalOfAWrongElement) {
    MemoryBag bag({{u"ListTexts", Variant(std::u16string(u"a|b"))},
                   {u"ItemDataNums", Variant(std::u16string(u"3|x"))}});
    ListControl& c = load(bag);
    EXPECT_EQ(data(c), (Numbers{3, 0}));
    EXPECT_EQ(lastMessageOf(*h), u"Irregal string.");
}

INSTANTIATE_TEST_SUITE_P(Hosts, ListControlTest, ::testing::ValuesIn(cases()),
                         corvex::testing::classOnHostName);

}  // namespace
