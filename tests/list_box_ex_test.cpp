// ListBoxEx behaviour on every host the test program offers: the delimited list, the
// widest item and the horizontal extent it gives the inner list. What it shares with the
// drop-downs through the common list base is held in list_control_shared_test.cpp.
#include "corvex/lists/list_box_ex.h"

#include <gtest/gtest.h>

#include "corvex/common/error.h"
#include "corvex/library/memory_bag.h"
#include "corvex/platform/list_box.h"
#include "support/harness.h"
#include "support/list_checks.h"

using namespace corvex;
using corvex::testing::errorOf;
using corvex::testing::Harness;
using corvex::testing::HarnessMaker;
using corvex::testing::itemDataOf;
using corvex::testing::itemsOf;
using corvex::testing::lastMessageOf;

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

    std::unique_ptr<Harness> h;
    ListBoxEx* probe = nullptr;
};

// --- adding, removing and the extent -----------------------------------------------

TEST_P(ListBoxExTest, shouldAppendAnItemAddedAtIndexZero) {
    ListBoxEx& c = add();
    c.addItem(u"a", std::nullopt);
    c.addItem(u"b", std::nullopt);
    c.addItem(u"x", std::int16_t{0});
    EXPECT_EQ(itemsOf(c), (Texts{u"a", u"b", u"x"}));
    EXPECT_EQ(c.newIndex(), 2);
}

TEST_P(ListBoxExTest, shouldInsertAtAnIndexOtherThanZero) {
    ListBoxEx& c = add();
    c.setListTexts(u"a|b");
    c.addItem(u"x", std::int16_t{1});
    EXPECT_EQ(itemsOf(c), (Texts{u"a", u"x", u"b"}));
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
    EXPECT_EQ(itemsOf(c), (Texts{u"a", u"b"}));
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
    EXPECT_EQ(itemsOf(c), (Texts{kLong, u"y"}));
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

TEST_P(ListBoxExTest, shouldGiveNoExtentToShortItemsLoadedIntoAWideList) {
    MemoryBag exact({{u"ListTexts", Variant(std::u16string(u"a|b"))},
                     {u"ItemDataNums", Variant(std::u16string(u"7|8"))}});
    ListBoxEx& e = load(exact, u"e");
    EXPECT_EQ(itemsOf(e), (Texts{u"a", u"b"}));
    EXPECT_EQ(extent(u"e"), 0);
}

TEST_P(ListBoxExTest, shouldRebuildMeasureAndSelectTheDefaultWhenLoading) {
    MemoryBag bag({{u"AutoRefreshScrollBar", Variant(false)},
                   {u"DefaultValue", Variant(std::int16_t{1})},
                   {u"ListIndex", Variant(std::int16_t{2})},
                   {u"ListTexts", Variant(u"a|b|" + kLong)}});
    ListBoxEx& c = load(bag);
    EXPECT_EQ(itemsOf(c), (Texts{u"a", u"b", kLong}));
    EXPECT_FALSE(c.autoRefreshScrollBar());
    EXPECT_EQ(c.listIndex(), 1);
    // The rebuild measured every item, though with the flag off it set no extent.
    EXPECT_EQ(c.widestItem(), widthOf(kLong));
    EXPECT_EQ(extent(), 0);
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
