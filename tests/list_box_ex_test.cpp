// ListBoxEx behaviour on every host the test program offers: the delimited list, the
// widest item and the horizontal extent it gives the inner list.
#include "corvex/lists/list_box_ex.h"

#include <gtest/gtest.h>

#include <functional>

#include "corvex/common/error.h"
#include "corvex/library/memory_bag.h"
#include "corvex/platform/list_box.h"
#include "support/harness.h"

using namespace corvex;
using corvex::testing::Harness;
using corvex::testing::HarnessMaker;

namespace {

using Texts = std::vector<std::u16string>;

const std::u16string kLong = u"A rather long item that is wider than the whole list box by far";

std::vector<std::u16string> names(const MemoryBag& bag) {
    std::vector<std::u16string> out;
    for (const auto& e : bag.entries()) out.push_back(e.first);
    return out;
}

class ListBoxExTest : public ::testing::TestWithParam<HarnessMaker> {
protected:
    void SetUp() override {
        h = GetParam().make();
        h->setUserMode(false);
        h->setLocaleId(1033);
    }
    ListBoxEx& add(const std::u16string& name = u"c") {
        return dynamic_cast<ListBoxEx&>(h->add(ListBoxEx::staticClassInfo(), name));
    }
    ListBoxEx& load(MemoryBag& bag, const std::u16string& name = u"c") {
        return dynamic_cast<ListBoxEx&>(h->load(ListBoxEx::staticClassInfo(), name, bag));
    }
    ListBox& lst(const std::u16string& name = u"c") {
        return dynamic_cast<ListBox&>(h->widget(name, u"lstListBoxEx"));
    }
    std::int32_t extent(const std::u16string& name = u"c") { return lst(name).horizontalExtent(); }
    // The width the host measures for text, through a control of its own.
    std::int32_t widthOf(const std::u16string& text) {
        if (!probe) probe = &add(u"probe");
        probe->clear();
        probe->addItem(text, std::nullopt);
        return probe->widestItem();
    }
    Texts items(ListBoxEx& c) {
        Texts out;
        for (std::int16_t i = 0; i < c.listCount(); ++i) out.push_back(c.list(i));
        return out;
    }
    std::vector<std::int32_t> data(ListBoxEx& c) {
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
    ListBoxEx* probe = nullptr;
};

// --- adding, removing and the extent -----------------------------------------------

TEST_P(ListBoxExTest, shouldAppendAnItemAddedAtIndexZero) {
    ListBoxEx& c = add();
    c.addItem(u"a", std::nullopt);
    c.addItem(u"b", std::nullopt);
    c.addItem(u"x", std::int16_t{0});
    EXPECT_EQ(items(c), (Texts{u"a", u"b", u"x"}));
    EXPECT_EQ(c.newIndex(), 2);
}

TEST_P(ListBoxExTest, shouldInsertAtAnIndexOtherThanZero) {
    ListBoxEx& c = add();
    c.setListTexts(u"a|b");
    c.addItem(u"x", std::int16_t{1});
    EXPECT_EQ(items(c), (Texts{u"a", u"x", u"b"}));
}

TEST_P(ListBoxExTest, shouldPassOnTheInnerErrorOfAnIndexBeyondTheList) {
    ListBoxEx& c = add();
    c.setListTexts(u"a|b");
    EXPECT_EQ(errorOf([&] { c.addItem(u"x", std::int16_t{5}); }), 5);
    EXPECT_EQ(errorOf([&] { c.removeItem(7); }), 381);
    EXPECT_EQ(items(c), (Texts{u"a", u"b"}));
}

TEST_P(ListBoxExTest, shouldGiveALongItemTheExtentAtOnceWhileAutoRefreshIsOn) {
    ListBoxEx& c = add();
    ASSERT_TRUE(c.autoRefreshScrollBar());
    c.addItem(kLong, std::nullopt);
    EXPECT_EQ(c.widestItem(), widthOf(kLong));
    EXPECT_EQ(extent(), widthOf(kLong));
}

TEST_P(ListBoxExTest, shouldShowNoScrollBarUntilRefreshWhenAutoRefreshIsOff) {
    ListBoxEx& c = add();
    c.setAutoRefreshScrollBar(false);
    c.addItem(kLong, std::nullopt);
    EXPECT_EQ(extent(), 0);
    EXPECT_EQ(c.widestItem(), widthOf(kLong));
    c.refreshScrollBar();
    EXPECT_EQ(extent(), widthOf(kLong));
}

TEST_P(ListBoxExTest, shouldRefreshOnClearEvenWhenAutoRefreshIsOff) {
    ListBoxEx& c = add();
    c.addItem(kLong, std::nullopt);
    ASSERT_GT(extent(), 0);
    c.setAutoRefreshScrollBar(false);
    c.clear();
    EXPECT_EQ(extent(), 0);
    EXPECT_EQ(c.widestItem(), 0);
    EXPECT_EQ(c.listCount(), 0);
}

TEST_P(ListBoxExTest, shouldNotRefreshOnRemoveItemWhenAutoRefreshIsOff) {
    ListBoxEx& c = add();
    c.addItem(u"a", std::nullopt);
    c.addItem(kLong, std::nullopt);
    c.setAutoRefreshScrollBar(false);
    c.removeItem(1);
    EXPECT_EQ(c.widestItem(), widthOf(u"a"));
    EXPECT_EQ(extent(), widthOf(kLong));  // the old extent until asked
    c.refreshScrollBar();
    EXPECT_EQ(extent(), 0);
}

TEST_P(ListBoxExTest, shouldKeepTheExtentWhenAnItemThatIsNotTheWidestGoes) {
    ListBoxEx& c = add();
    c.addItem(kLong, std::nullopt);
    c.addItem(u"short", std::nullopt);
    const std::int32_t before = extent();
    c.removeItem(1);
    EXPECT_EQ(extent(), before);
    EXPECT_EQ(c.widestItem(), widthOf(kLong));
}

TEST_P(ListBoxExTest, shouldRecomputeTheWidestFromTheRestWhenTheWidestGoes) {
    ListBoxEx& c = add();
    const std::u16string second = kLong.substr(0, kLong.size() - 10);
    c.addItem(u"short", std::nullopt);
    c.addItem(kLong, std::nullopt);
    c.addItem(second, std::nullopt);
    c.removeItem(1);
    EXPECT_EQ(c.widestItem(), widthOf(second));
    EXPECT_EQ(extent(), widthOf(second));
    c.removeItem(1);
    EXPECT_EQ(c.widestItem(), widthOf(u"short"));
    EXPECT_EQ(extent(), 0);
}

TEST_P(ListBoxExTest, shouldGiveExtentZeroToAListExactlyAsWideAsTheWidestItem) {
    ListBoxEx& c = add();
    c.addItem(kLong, std::nullopt);
    const std::int32_t widest = c.widestItem();
    // Both hosts here have square 15-twip pixels; a list of exactly widest pixels.
    h->resize(u"c", static_cast<float>(widest * 15), 1800);
    ASSERT_FLOAT_EQ(lst().width(), static_cast<float>(widest * 15));
    c.refreshScrollBar();
    EXPECT_EQ(extent(), 0);
    h->resize(u"c", static_cast<float>((widest - 1) * 15), 1800);
    c.refreshScrollBar();
    EXPECT_EQ(extent(), widest);
}

TEST_P(ListBoxExTest, shouldSendExtentZeroOnClearOfAnEmptyList) {
    ListBoxEx& c = add();
    lst().setHorizontalExtent(500);  // left there by someone else
    c.clear();
    EXPECT_EQ(extent(), 0);
}

TEST_P(ListBoxExTest, shouldKeepTheOldWiderExtentAfterAShortListText) {
    ListBoxEx& c = add();
    c.setListTexts(u"x|" + kLong);
    const std::int32_t wide = extent();
    ASSERT_EQ(wide, widthOf(kLong));
    c.setListTexts(u"a|b");
    EXPECT_EQ(items(c), (Texts{u"a", u"b"}));
    EXPECT_EQ(c.widestItem(), widthOf(kLong));
    EXPECT_EQ(extent(), wide);
}

TEST_P(ListBoxExTest, shouldMeasureAnEmptyTextAsItsTerminatingCharacterAlone) {
    ListBoxEx& c = add();
    c.addItem(u"", std::nullopt);
    EXPECT_GT(c.widestItem(), 0);
    EXPECT_LT(c.widestItem(), widthOf(u"ab"));
}

TEST_P(ListBoxExTest, shouldMeasureEveryItemOfAListText) {
    ListBoxEx& c = add();
    c.setListTexts(u"a|" + kLong + u"|b");
    EXPECT_EQ(c.widestItem(), widthOf(kLong));
    EXPECT_EQ(extent(), widthOf(kLong));
}

TEST_P(ListBoxExTest, shouldSetAListEntryWithoutRebuildOrNewMeasure) {
    ListBoxEx& c = add();
    c.setListTexts(u"x|y");
    h->clearRecords(u"c");
    c.setList(0, kLong);
    EXPECT_EQ(items(c), (Texts{kLong, u"y"}));
    EXPECT_EQ(c.listTexts(), u"x|y");
    EXPECT_EQ(c.widestItem(), widthOf(u"x"));
    EXPECT_EQ(h->changes(u"c"), (Texts{u"List"}));
}

TEST_P(ListBoxExTest, shouldOnlyStoreTheAutoRefreshFlag) {
    ListBoxEx& c = add();
    c.addItem(kLong, std::nullopt);
    c.setAutoRefreshScrollBar(false);
    lst().setHorizontalExtent(0);
    h->clearRecords(u"c");
    c.setAutoRefreshScrollBar(true);
    EXPECT_TRUE(c.autoRefreshScrollBar());
    EXPECT_TRUE(h->changes(u"c").empty());
    EXPECT_EQ(extent(), 0);
}

TEST_P(ListBoxExTest, shouldForwardTheListMembersAndNotifyTheirNames) {
    ListBoxEx& c = add();
    c.setListTexts(u"a|b|c");
    h->clearRecords(u"c");
    c.setColumns(2);
    c.setSelected(1, true);
    c.setTopIndex(0);
    c.setText(u"c");
    c.setItemData(0, 42);
    c.setImeMode(CorvexIMEMode::IMEOFF);
    c.setListIndex(0);
    c.setValue(1);
    EXPECT_EQ(h->changes(u"c"), (Texts{u"Columns", u"Selected", u"TopIndex", u"Text", u"ItemData",
                                       u"IMEMode", u"ListIndex", u"Value"}));
    EXPECT_EQ(c.columns(), 2);
    EXPECT_EQ(c.itemData(0), 42);
    EXPECT_EQ(c.imeMode(), CorvexIMEMode::IMEOFF);
    EXPECT_EQ(c.listIndex(), 1);
    EXPECT_EQ(c.text(), u"b");
    EXPECT_EQ(c.selCount(), 1);
    EXPECT_TRUE(c.selected(1));
    EXPECT_EQ(c.multiSelect(), 0);
    EXPECT_FALSE(c.sorted());
    EXPECT_TRUE(c.integralHeight());
    EXPECT_EQ(c.topIndex(), 0);
}

TEST_P(ListBoxExTest, shouldFillTheControlWithTheList) {
    add();
    h->resize(u"c", 3000, 2400);
    EXPECT_FLOAT_EQ(lst().width(), 3000);
    EXPECT_FLOAT_EQ(lst().left(), 0);
    EXPECT_FLOAT_EQ(lst().top(), 0);
    EXPECT_LE(lst().height(), 2400);
    EXPECT_GT(lst().height(), 2000);
}

// --- the delimited-list rules, shared with the drop-downs --------------------------

TEST_P(ListBoxExTest, shouldGiveThreeItemsForARunAndATrailingDelimiter) {
    ListBoxEx& c = add();
    c.setListTexts(u"a||b|");
    EXPECT_EQ(items(c), (Texts{u"a", u"b", u""}));
}

TEST_P(ListBoxExTest, shouldGiveOneEmptyItemForDelimitersAloneAndNoneForNoText) {
    ListBoxEx& c = add();
    c.setListTexts(u"|||");
    EXPECT_EQ(items(c), (Texts{u""}));
    c.setListTexts(u"");
    EXPECT_TRUE(items(c).empty());
}

TEST_P(ListBoxExTest, shouldRefuseANegativeItemDataTextInBothLanguages) {
    ListBoxEx& c = add();
    c.setListTexts(u"a|b");
    c.setItemDataNums(u"1|2");
    h->clearRecords(u"c");
    c.setItemDataNums(u"-1|2");
    EXPECT_EQ(lastMessage(), u"Irregal string.");
    EXPECT_EQ(h->messageBoxes().back().title, u"Warning!!");
    EXPECT_EQ(h->messageBoxes().back().style, 16);
    EXPECT_EQ(c.itemDataNums(), u"1|2");
    EXPECT_TRUE(h->changes(u"c").empty());
    h->setLocaleId(1041);
    c.setItemDataNums(u"1 2");
    EXPECT_EQ(lastMessage(), u"不正な文字列です");
    EXPECT_EQ(h->messageBoxes().back().title, u"警告!!");
}

TEST_P(ListBoxExTest, shouldStopAtTheThirdItemOnATrailingDelimiterOfItemData) {
    ListBoxEx& c = add();
    c.setListTexts(u"a|b|c");
    c.setItemDataNums(u"1|2|");
    EXPECT_EQ(data(c), (std::vector<std::int32_t>{1, 2, 0}));
    EXPECT_EQ(lastMessage(), u"Irregal string.");
    EXPECT_EQ(c.itemDataNums(), u"1|2|");
}

TEST_P(ListBoxExTest, shouldApplyATrailingDelimiterOfItemDataToTwoItems) {
    ListBoxEx& c = add();
    c.setListTexts(u"a|b");
    c.setItemDataNums(u"1|2|");
    EXPECT_EQ(data(c), (std::vector<std::int32_t>{1, 2}));
    EXPECT_TRUE(h->messageBoxes().empty());
}

TEST_P(ListBoxExTest, shouldFailWithError9WhenItemDataRunsOut) {
    ListBoxEx& c = add();
    c.setListTexts(u"a|b");
    EXPECT_EQ(errorOf([&] { c.setItemDataNums(u"5"); }), 9);
    EXPECT_EQ(data(c), (std::vector<std::int32_t>{5, 0}));
}

TEST_P(ListBoxExTest, shouldOverflowOnItemDataBeyond32Bits) {
    ListBoxEx& c = add();
    c.setListTexts(u"a");
    EXPECT_EQ(errorOf([&] { c.setItemDataNums(u"4294967296"); }), 6);
}

TEST_P(ListBoxExTest, shouldDropItemDataOnARebuild) {
    ListBoxEx& c = add();
    c.setListTexts(u"a|b");
    c.setItemDataNums(u"3|4");
    c.setListTexts(u"a|b");
    EXPECT_EQ(data(c), (std::vector<std::int32_t>{0, 0}));
}

TEST_P(ListBoxExTest, shouldAnswerDefaultValueWithTheListMessagesInBothLanguages) {
    ListBoxEx& c = add();
    c.setDefaultValue(-1);
    EXPECT_TRUE(h->messageBoxes().empty());
    EXPECT_EQ(c.defaultValue(), -1);
    c.setDefaultValue(0);
    EXPECT_EQ(lastMessage(), u"Out of now maximum list number.");
    c.setDefaultValue(-2);
    EXPECT_EQ(lastMessage(), u"Enter not less than -1 .");
    h->setLocaleId(1041);
    c.setDefaultValue(0);
    EXPECT_EQ(lastMessage(), u"現在のリスト番号の最大値を越えています");
    c.setDefaultValue(-2);
    EXPECT_EQ(lastMessage(), u"-1以上の値を入力して下さい");
    EXPECT_EQ(c.defaultValue(), -1);
}

TEST_P(ListBoxExTest, shouldSelectAnAcceptedDefaultAndNotifyDefaultValueThenValue) {
    ListBoxEx& c = add();
    c.setListTexts(u"a|b");
    h->clearRecords(u"c");
    c.setDefaultValue(1);
    EXPECT_EQ(c.listIndex(), 1);
    EXPECT_EQ(h->changes(u"c"), (Texts{u"DefaultValue", u"Value"}));
}

TEST_P(ListBoxExTest, shouldRefuseDefaultValueAtRunTimeWith382) {
    ListBoxEx& c = add();
    c.setListTexts(u"a|b");
    h->setUserMode(true);
    EXPECT_EQ(errorOf([&] { c.setDefaultValue(1); }), 382);
    EXPECT_EQ(c.defaultValue(), -1);
}

TEST_P(ListBoxExTest, shouldChangeNothingOnRestoreBeforeAnyStore) {
    ListBoxEx& c = add();
    c.setListTexts(u"a|b");
    c.setListIndex(1);
    c.restore();
    EXPECT_EQ(c.listIndex(), 1);
}

TEST_P(ListBoxExTest, shouldRestoreTheStoredSelectionAndTheDefault) {
    ListBoxEx& c = add();
    c.setListTexts(u"a|b|c");
    c.setDefaultValue(2);
    c.setListIndex(1);
    c.store();
    c.cls();
    EXPECT_EQ(c.listIndex(), -1);
    c.restore();
    EXPECT_EQ(c.listIndex(), 1);
    c.restoreDefault();
    EXPECT_EQ(c.listIndex(), 2);
}

// --- saving and loading ------------------------------------------------------------

TEST_P(ListBoxExTest, shouldWriteInItsOrderWithItemDataTextUnderLowerCaseD) {
    ListBoxEx& c = add();
    c.setBackColor(0x123456);
    c.setEnabled(false);
    c.setForeColor(0x654321);
    c.setImeMode(CorvexIMEMode::IMEON);
    c.setAutoRefreshScrollBar(false);
    c.setListTexts(u"a|b");
    c.setItemDataNums(u"1|2");
    c.setDefaultValue(1);
    c.setKeyName(u"k");
    c.setSectionName(u"s");
    MemoryBag bag;
    c.writeProperties(bag);
    EXPECT_EQ(names(bag),
              (Texts{u"BackColor", u"Enabled", u"ForeColor", u"IMEMode", u"AutoRefreshScrollBar",
                     u"DefaultValue", u"ItemdataNums", u"KeyName", u"ListTexts", u"SectionName"}));
    EXPECT_EQ(bag.entries()[6].second, Variant(u"1|2"));
}

TEST_P(ListBoxExTest, shouldWriteNothingForANewControl) {
    ListBoxEx& c = add();
    MemoryBag bag;
    c.writeProperties(bag);
    EXPECT_TRUE(bag.entries().empty());
}

TEST_P(ListBoxExTest, shouldReadInItsOwnOrder) {
    ListBoxEx& c = add();
    struct Recording : PropertyBag {
        std::vector<std::u16string> reads;
        Variant read(std::u16string_view n, const Variant& def) override {
            reads.emplace_back(n);
            return def;
        }
        void write(std::u16string_view, const Variant&, const Variant&) override {}
    } bag;
    c.readProperties(bag);
    EXPECT_EQ(bag.reads, (Texts{u"BackColor", u"Enabled", u"ForeColor", u"IMEMode", u"Font",
                                u"AutoRefreshScrollBar", u"DefaultValue", u"ItemDataNums",
                                u"KeyName", u"ListTexts", u"SectionName"}));
}

TEST_P(ListBoxExTest, shouldLookForItemDataTextUnderCapitalDWhenLoading) {
    ListBoxEx& c = add();
    c.setListTexts(u"a|b");
    c.setItemDataNums(u"1|2");
    MemoryBag bag;
    c.writeProperties(bag);
    // This host's bags match names without regard to case, so the text comes back.
    ListBoxEx& back = load(bag, u"d");
    EXPECT_EQ(back.itemDataNums(), u"1|2");
    EXPECT_EQ(data(back), (std::vector<std::int32_t>{1, 2}));

    MemoryBag exact({{u"ListTexts", Variant(std::u16string(u"a|b"))},
                     {u"ItemDataNums", Variant(std::u16string(u"7|8"))}});
    ListBoxEx& e = load(exact, u"e");
    EXPECT_EQ(data(e), (std::vector<std::int32_t>{7, 8}));
    EXPECT_EQ(extent(u"e"), 0);  // short items in a wide list
}

TEST_P(ListBoxExTest, shouldRebuildMeasureAndSelectTheDefaultWhenLoading) {
    MemoryBag bag({{u"AutoRefreshScrollBar", Variant(false)},
                   {u"DefaultValue", Variant(std::int16_t{1})},
                   {u"ListIndex", Variant(std::int16_t{2})},
                   {u"ListTexts", Variant(u"a|b|" + kLong)}});
    ListBoxEx& c = load(bag);
    EXPECT_EQ(items(c), (Texts{u"a", u"b", kLong}));
    EXPECT_FALSE(c.autoRefreshScrollBar());
    EXPECT_EQ(c.listIndex(), 1);
    // The rebuild measured every item, though with the flag off it set no extent.
    EXPECT_EQ(c.widestItem(), widthOf(kLong));
    EXPECT_EQ(extent(), 0);
}

TEST_P(ListBoxExTest, shouldShowTheRefusalOfAWrongLoadedItemDataElement) {
    MemoryBag bag({{u"ListTexts", Variant(std::u16string(u"a|b"))},
                   {u"ItemDataNums", Variant(std::u16string(u"3|x"))}});
    ListBoxEx& c = load(bag);
    EXPECT_EQ(data(c), (std::vector<std::int32_t>{3, 0}));
    EXPECT_EQ(lastMessage(), u"Irregal string.");
}

// --- events ------------------------------------------------------------------------

TEST_P(ListBoxExTest, shouldNumberItsEventsWithItemCheckNinth) {
    const auto& ev = ListBoxEx::staticClassInfo().events();
    Texts seen;
    for (const auto& e : ev) seen.push_back(e.name);
    EXPECT_EQ(seen, (Texts{u"Click", u"DblClick", u"KeyDown", u"KeyPress", u"KeyUp", u"MouseDown",
                           u"MouseMove", u"MouseUp", u"ItemCheck", u"InitProperties",
                           u"ReadProperties", u"WriteProperties"}));
    EXPECT_EQ(ev[8].dispId, 9);
    EXPECT_TRUE(ev[8].params[0].byRef);
}

TEST_P(ListBoxExTest, shouldRaiseClickWhenTheSelectionChangesByCode) {
    ListBoxEx& c = add();
    c.setListTexts(u"a|b");
    h->clearRecords(u"c");
    c.setListIndex(1);
    EXPECT_EQ(corvex::testing::eventNames(h->events(u"c")), (Texts{u"Click"}));
}

TEST_P(ListBoxExTest, shouldRaiseMouseCoordinatesInContainerUnitsWhateverTheScaleMode) {
    ListBoxEx& c = add();
    c.setListTexts(u"a|b");
    h->resize(u"c", 2400, 1800);
    const auto mouseDownX = [&] {
        h->clearRecords(u"c");
        h->click(u"c", u"lstListBoxEx");
        for (const auto& e : h->events(u"c")) {
            if (e.name == u"MouseDown") return e.args[2].toDouble();
        }
        return -1.0;
    };
    const double inTwips = mouseDownX();
    ASSERT_GT(inTwips, 0);
    h->setScaleMode(u"c", ScaleMode::Pixels);
    EXPECT_NEAR(mouseDownX(), inTwips, 15);
}

INSTANTIATE_TEST_SUITE_P(Hosts, ListBoxExTest,
                         ::testing::ValuesIn(corvex::testing::availableHarnesses()),
                         corvex::testing::harnessName);

}  // namespace
