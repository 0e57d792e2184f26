// MoveList behaviour, run on every host the test program offers. Positions are compared
// within a pixel: a host may keep widget places in whole pixels.
#include "corvex/lists/move_list.h"

#include <gtest/gtest.h>

#include "corvex/common/error.h"
#include "corvex/library/memory_bag.h"
#include "corvex/platform/command_button.h"
#include "corvex/platform/list_box.h"
#include "support/harness.h"

using namespace corvex;
using corvex::testing::Harness;
using corvex::testing::HarnessMaker;

namespace {

constexpr float kPixel = 15.5f;  // one pixel of a 96 dpi screen, in twips, and a little
using Texts = std::vector<std::u16string>;

std::int32_t errorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const Error& e) {
        return e.number();
    }
    return 0;
}

class MoveListTest : public ::testing::TestWithParam<HarnessMaker> {
protected:
    void SetUp() override { h = GetParam().make(); }

    MoveList& add(const std::u16string& name = u"m") {
        auto& m = static_cast<MoveList&>(h->add(MoveList::staticClassInfo(), name));
        h->clearRecords(name);
        return m;
    }
    MoveList& load(MemoryBag& bag) {
        return static_cast<MoveList&>(h->load(MoveList::staticClassInfo(), u"m", bag));
    }
    ListBox& list(const std::u16string& name) {
        return dynamic_cast<ListBox&>(h->widget(u"m", name));
    }
    CommandButton& move(std::int16_t i) {
        return dynamic_cast<CommandButton&>(h->widget(u"m", u"cmdMove", i));
    }
    CommandButton& order(std::int16_t i) {
        return dynamic_cast<CommandButton&>(h->widget(u"m", u"cmdUpDown", i));
    }
    static Texts lefts(MoveList& m) {
        Texts out;
        for (std::int16_t i = 0; i < m.lListCount(); ++i) out.push_back(m.lList(i));
        return out;
    }
    static Texts rights(MoveList& m) {
        Texts out;
        for (std::int16_t i = 0; i < m.rListCount(); ++i) out.push_back(m.rList(i));
        return out;
    }
    static void fillLeft(MoveList& m, const Texts& texts) {
        for (const auto& t : texts) m.lAddItem(t, std::nullopt);
    }
    static void fillRight(MoveList& m, const Texts& texts) {
        for (const auto& t : texts) m.rAddItem(t, std::nullopt);
    }
    std::vector<bool> moveStates() {
        std::vector<bool> out;
        for (std::int16_t i = 0; i < 4; ++i) out.push_back(move(i).enabled());
        return out;
    }
    std::vector<bool> orderStates() {
        std::vector<bool> out;
        for (std::int16_t i = 0; i < 4; ++i) out.push_back(order(i).enabled());
        return out;
    }
    static std::shared_ptr<VariantArray> array(std::vector<Variant> v, std::int32_t lower = 0) {
        return VariantArray::make(std::move(v), lower);
    }

    std::unique_ptr<Harness> h;
};

using States = std::vector<bool>;

// --- buttons -------------------------------------------------------------------------------

TEST_P(MoveListTest, shouldHaveFourMoveAndFourOrderingButtonsAndAHiddenSortingList) {
    add();
    EXPECT_EQ(move(0).caption(), u">>");
    EXPECT_EQ(move(3).caption(), u"<<");
    EXPECT_EQ(order(0).caption(), u"Top");
    EXPECT_EQ(order(3).caption(), u"Bottom");
    EXPECT_FALSE(list(u"lstDummy").visible());
    EXPECT_TRUE(list(u"lstDummy").sorted());
    EXPECT_EQ(list(u"lstLeft").multiSelect(), multiselect::Extended);
    EXPECT_EQ(list(u"lstRight").multiSelect(), multiselect::Extended);
}

TEST_P(MoveListTest, shouldEnableTheMoveButtonsByWhichListHoldsItems) {
    MoveList& m = add();
    EXPECT_EQ(moveStates(), (States{false, false, false, false}));
    m.lAddItem(u"a", std::nullopt);
    EXPECT_EQ(moveStates(), (States{true, true, false, false}));
    m.rAddItem(u"b", std::nullopt);
    EXPECT_EQ(moveStates(), (States{true, true, true, true}));
    m.lClear();
    EXPECT_EQ(moveStates(), (States{false, false, true, true}));
    m.rRemoveItem(0);
    EXPECT_EQ(moveStates(), (States{false, false, false, false}));
}

TEST_P(MoveListTest, shouldEnableTheOrderingButtonsOnlyWhenTheRightListHasASelection) {
    MoveList& m = add();
    fillRight(m, {u"a", u"b"});
    EXPECT_EQ(orderStates(), (States{false, false, false, false}));
    m.setRListIndex(1);  // the right list's Click updates the buttons
    EXPECT_EQ(orderStates(), (States{true, true, true, true}));
    m.rClear();
    EXPECT_EQ(orderStates(), (States{false, false, false, false}));
}

TEST_P(MoveListTest, shouldNotUpdateTheButtonsOnAClickOfTheLeftList) {
    MoveList& m = add();
    fillRight(m, {u"a"});
    fillLeft(m, {u"x"});
    m.setRSelected(0, true);
    EXPECT_EQ(orderStates(), (States{true, true, true, true}));
    // A selection in the right list that goes by code without a click of it.
    list(u"lstRight").clear();
    m.setLListIndex(0);
    EXPECT_EQ(orderStates(), (States{true, true, true, true}));
}

// --- moves -----------------------------------------------------------------------------------

TEST_P(MoveListTest, shouldMoveEveryItemRightInOrderWithoutItsData) {
    MoveList& m = add();
    fillLeft(m, {u"a", u"b", u"c"});
    m.setLItemData(1, 42);
    fillRight(m, {u"r"});
    h->click(u"m", u"cmdMove", 0);
    EXPECT_EQ(lefts(m), Texts{});
    EXPECT_EQ(rights(m), (Texts{u"r", u"a", u"b", u"c"}));
    EXPECT_EQ(m.rItemData(2), 0);
    EXPECT_EQ(moveStates(), (States{false, false, true, true}));
}

TEST_P(MoveListTest, shouldMoveEveryItemBackLeft) {
    MoveList& m = add();
    fillLeft(m, {u"x"});
    fillRight(m, {u"a", u"b"});
    h->click(u"m", u"cmdMove", 3);
    EXPECT_EQ(lefts(m), (Texts{u"x", u"a", u"b"}));
    EXPECT_EQ(m.rListCount(), 0);
}

TEST_P(MoveListTest, shouldMoveOnlyTheCurrentItemWhenSeveralAreSelected) {
    MoveList& m = add();
    fillLeft(m, {u"a", u"b", u"c", u"d"});
    m.setLListIndex(2);
    for (std::int16_t i : {0, 1, 3}) m.setLSelected(i, true);
    ASSERT_EQ(m.lSelCount(), 4);
    ASSERT_EQ(m.lListIndex(), 2);
    h->click(u"m", u"cmdMove", 1);
    EXPECT_EQ(rights(m), (Texts{u"c"}));
    EXPECT_EQ(lefts(m), (Texts{u"a", u"b", u"d"}));
}

TEST_P(MoveListTest, shouldMoveNothingRightWithoutASelection) {
    MoveList& m = add();
    fillLeft(m, {u"a"});
    h->click(u"m", u"cmdMove", 1);
    EXPECT_EQ(m.rListCount(), 0);
    EXPECT_EQ(m.lListCount(), 1);
}

TEST_P(MoveListTest, shouldMoveTheCurrentRightItemBackLeftWithItemData0) {
    MoveList& m = add();
    fillLeft(m, {u"x"});
    m.setLItemData(0, 7);
    fillRight(m, {u"a", u"b"});
    m.setRItemData(1, 9);
    m.setRListIndex(1);
    h->click(u"m", u"cmdMove", 2);
    EXPECT_EQ(lefts(m), (Texts{u"x", u"b"}));
    EXPECT_EQ(m.lItemData(0), 7);
    EXPECT_EQ(m.lItemData(1), 0);
    EXPECT_EQ(rights(m), (Texts{u"a"}));
}

TEST_P(MoveListTest, shouldRaiseNoEventsOfItsOwn) {
    MoveList& m = add();
    fillLeft(m, {u"a"});
    m.setLListIndex(0);
    h->click(u"m", u"cmdMove", 1);
    h->click(u"m", u"lstRight");
    EXPECT_TRUE(h->events(u"m").empty());
    EXPECT_EQ(MoveList::staticClassInfo().events().size(), 3u);
}

// --- ordering --------------------------------------------------------------------------------

class MoveListOrderTest : public MoveListTest {
protected:
    MoveList& addOrdered(std::int16_t current) {
        MoveList& m = add();
        fillRight(m, {u"a", u"b", u"c", u"d"});
        for (std::int16_t i = 0; i < 4; ++i) m.setRItemData(i, 10 * (i + 1));
        m.setRListIndex(current);
        return m;
    }
};

TEST_P(MoveListOrderTest, shouldExchangeTextsButNotDataOnUp) {
    MoveList& m = addOrdered(2);
    h->click(u"m", u"cmdUpDown", 1);
    EXPECT_EQ(rights(m), (Texts{u"a", u"c", u"b", u"d"}));
    EXPECT_EQ(m.rItemData(1), 20);
    EXPECT_EQ(m.rItemData(2), 30);
    EXPECT_EQ(m.rListIndex(), 1);
}

TEST_P(MoveListOrderTest, shouldExchangeTextsButNotDataOnDown) {
    MoveList& m = addOrdered(1);
    h->click(u"m", u"cmdUpDown", 2);
    EXPECT_EQ(rights(m), (Texts{u"a", u"c", u"b", u"d"}));
    EXPECT_EQ(m.rItemData(2), 30);
    EXPECT_EQ(m.rListIndex(), 2);
}

TEST_P(MoveListOrderTest, shouldMoveTheCurrentItemToTheTop) {
    MoveList& m = addOrdered(2);
    h->click(u"m", u"cmdUpDown", 0);
    EXPECT_EQ(rights(m), (Texts{u"c", u"a", u"b", u"d"}));
    EXPECT_EQ(m.rListIndex(), 0);
    EXPECT_EQ(m.rItemData(0), 0) << "the moved text arrives with data 0";
}

TEST_P(MoveListOrderTest, shouldMoveTheCurrentItemToTheBottom) {
    MoveList& m = addOrdered(1);
    h->click(u"m", u"cmdUpDown", 3);
    EXPECT_EQ(rights(m), (Texts{u"a", u"c", u"d", u"b"}));
    EXPECT_EQ(m.rListIndex(), 3);
}

TEST_P(MoveListOrderTest, shouldChangeNothingOnTopOfTheFirstOrBottomOfTheLast) {
    MoveList& m = addOrdered(0);
    h->click(u"m", u"cmdUpDown", 0);
    h->click(u"m", u"cmdUpDown", 1);
    EXPECT_EQ(rights(m), (Texts{u"a", u"b", u"c", u"d"}));
    EXPECT_EQ(m.rListIndex(), 0);
    m.setRListIndex(3);
    h->click(u"m", u"cmdUpDown", 3);
    h->click(u"m", u"cmdUpDown", 2);
    EXPECT_EQ(rights(m), (Texts{u"a", u"b", u"c", u"d"}));
    EXPECT_EQ(m.rItemData(3), 40);
    EXPECT_EQ(m.rListIndex(), 3);
}

// --- sorting ---------------------------------------------------------------------------------

TEST_P(MoveListTest, shouldSortThroughTheHiddenListLosingItemData) {
    MoveList& m = add();
    fillLeft(m, {u"pear", u"Apple", u"banana"});
    m.setLItemData(0, 5);
    m.lSort();
    EXPECT_EQ(lefts(m), (Texts{u"Apple", u"banana", u"pear"}));
    for (std::int16_t i = 0; i < 3; ++i) EXPECT_EQ(m.lItemData(i), 0);
    EXPECT_EQ(list(u"lstDummy").listCount(), 0) << "the buffer is empty between operations";
}

TEST_P(MoveListTest, shouldSortBothListsWithSort) {
    MoveList& m = add();
    fillLeft(m, {u"b", u"a"});
    fillRight(m, {u"d", u"c"});
    m.sort();
    EXPECT_EQ(lefts(m), (Texts{u"a", u"b"}));
    EXPECT_EQ(rights(m), (Texts{u"c", u"d"}));
}

TEST_P(MoveListTest, shouldNotSortWhenLSortedIsSetButOnTheNextAddition) {
    MoveList& m = add();
    fillLeft(m, {u"c", u"a"});
    m.setLSorted(true);
    EXPECT_EQ(lefts(m), (Texts{u"c", u"a"}));
    m.lAddItem(u"b", std::nullopt);
    EXPECT_EQ(lefts(m), (Texts{u"a", u"b", u"c"}));
}

TEST_P(MoveListTest, shouldSortTheLeftListOnTheNextArrayAfterLSortedIsSet) {
    MoveList& m = add();
    fillLeft(m, {u"c", u"a"});
    m.setLSorted(true);
    m.lAddArray(array({u"b"}));
    EXPECT_EQ(lefts(m), (Texts{u"a", u"b", u"c"}));
}

TEST_P(MoveListTest, shouldSortTheRightListAfterAnAdditionWhenRSorted) {
    MoveList& m = add();
    m.setRSorted(true);
    fillRight(m, {u"z", u"m", u"a"});
    EXPECT_EQ(rights(m), (Texts{u"a", u"m", u"z"}));
}

TEST_P(MoveListTest, shouldSortTheLeftListNotTheRightOnRAddArrayWhenLSorted) {
    MoveList& m = add();
    fillLeft(m, {u"y", u"x"});
    m.setLSorted(true);
    m.setRSorted(false);
    m.rAddArray(array({u"q", u"b", u"k"}));
    EXPECT_EQ(rights(m), (Texts{u"q", u"b", u"k"}));
    EXPECT_EQ(lefts(m), (Texts{u"x", u"y"}));
}

TEST_P(MoveListTest, shouldNotSortTheRightListOnRAddArrayEvenWhenRSorted) {
    MoveList& m = add();
    m.setRSorted(true);
    m.rAddArray(array({u"q", u"b"}));
    EXPECT_EQ(rights(m), (Texts{u"q", u"b"}));
}

TEST_P(MoveListTest, shouldAddArrayElementsFromIndex0AsTheirTexts) {
    MoveList& m = add();
    m.lAddArray(array({Variant(std::int16_t{5}), Variant(u"b"), Variant(true)}));
    EXPECT_EQ(lefts(m), (Texts{u"5", u"b", u"True"}));
    EXPECT_EQ(moveStates(), (States{true, true, false, false}));
    m.lAddArray(array({}));
    EXPECT_EQ(m.lListCount(), 3);
}

TEST_P(MoveListTest, shouldSkipElementsBelow0AndFailWith9ForALowerBoundAbove0) {
    MoveList& m = add();
    m.lAddArray(array({u"neg", u"zero"}, -1));
    EXPECT_EQ(lefts(m), (Texts{u"zero"}));
    EXPECT_EQ(errorOf([&] { m.rAddArray(array({u"a", u"b"}, 1)); }), err::SubscriptOutOfRange);
    EXPECT_EQ(m.rListCount(), 0);
}

TEST_P(MoveListTest, shouldAddAtTheGivenIndex) {
    MoveList& m = add();
    fillLeft(m, {u"a", u"c"});
    m.lAddItem(u"b", Variant(std::int16_t{1}));
    EXPECT_EQ(lefts(m), (Texts{u"a", u"b", u"c"}));
    m.rAddItem(u"y", std::nullopt);
    m.rAddItem(u"x", Variant(u"0"));
    EXPECT_EQ(rights(m), (Texts{u"x", u"y"}));
}

// --- members and errors ------------------------------------------------------------------

TEST_P(MoveListTest, shouldNotifyTheLetsUnderTheirNames) {
    MoveList& m = add();
    fillLeft(m, {u"a"});
    fillRight(m, {u"b"});
    h->clearRecords(u"m");
    m.setLList(0, u"A");
    m.setLListIndex(0);
    m.setLSelected(0, false);
    m.setRList(0, u"B");
    m.setRListIndex(0);
    m.setRSelected(0, true);
    m.setLItemData(0, 1);
    m.setRItemData(0, 2);
    m.setLSorted(true);
    m.setRSorted(true);
    EXPECT_EQ(h->changes(u"m"),
              (Texts{u"LList", u"LListIndex", u"LSelected", u"RList", u"RListIndex", u"RSelected",
                     u"LItemData", u"RItemData", u"LSorted", u"RSorted"}));
    EXPECT_EQ(m.lList(0), u"A");
    EXPECT_EQ(m.rItemData(0), 2);
}

TEST_P(MoveListTest, shouldPassTheInnerListsErrorsOnUnchanged) {
    MoveList& m = add();
    fillLeft(m, {u"a"});
    EXPECT_EQ(errorOf([&] { m.lList(1); }), err::InvalidPropertyArrayIndex);
    EXPECT_EQ(errorOf([&] { m.rItemData(0); }), err::InvalidPropertyArrayIndex);
    EXPECT_EQ(errorOf([&] { m.lRemoveItem(3); }), err::InvalidProcedureCall);
    EXPECT_EQ(errorOf([&] { m.setRListIndex(0); }), err::InvalidPropertyValue);
}

TEST_P(MoveListTest, shouldEmptyBothListsOnClear) {
    MoveList& m = add();
    fillLeft(m, {u"a"});
    fillRight(m, {u"b"});
    m.clear();
    EXPECT_EQ(m.lListCount() + m.rListCount(), 0);
    EXPECT_EQ(moveStates(), (States{false, false, false, false}));
}

TEST_P(MoveListTest, shouldKeepTheFontsWithoutApplyingThem) {
    MoveList& m = add();
    const FontDesc before = list(u"lstLeft").font();
    const FontDesc buttonBefore = move(0).font();
    FontDesc big = before;
    big.size = 20;
    big.name = u"Other";
    auto f = Font::make(big);
    m.setListFont(f);
    m.setButtonFont(Font::make(big));
    EXPECT_EQ(m.listFont(), f) << "the very object is kept";
    EXPECT_EQ(m.buttonFont()->size(), 20);
    EXPECT_EQ(list(u"lstLeft").font().size, before.size);
    EXPECT_EQ(move(0).font().size, buttonBefore.size);
    EXPECT_EQ(h->changes(u"m"), (Texts{u"ListFont", u"ButtonFont"}));
    EXPECT_EQ(errorOf([&] { m.setListFont(nullptr); }), err::ObjectRequired);
}

// --- saved properties ----------------------------------------------------------------------

TEST_P(MoveListTest, shouldSaveTheFontsAndFlagsInTheirOrder) {
    MoveList& m = add();
    FontDesc f;
    f.name = u"Saved";
    f.size = 14;
    m.setListFont(Font::make(f));
    m.setButtonFont(Font::make(f));
    m.setLSorted(true);
    m.setRSorted(true);
    MemoryBag bag;
    m.writeProperties(bag);
    Texts names;
    for (const auto& e : bag.entries()) names.push_back(e.first);
    EXPECT_EQ(names, (Texts{u"ListFont", u"ButtonFont", u"LSorted", u"RSorted"}));
    MoveList& loaded = static_cast<MoveList&>(h->load(MoveList::staticClassInfo(), u"n", bag));
    EXPECT_TRUE(loaded.lSorted());
    EXPECT_TRUE(loaded.rSorted());
    EXPECT_EQ(loaded.listFont()->name(), u"Saved");
    EXPECT_EQ(loaded.lListCount(), 0) << "the items are not saved";
}

TEST_P(MoveListTest, shouldStartLoadedWithEveryButtonDisabled) {
    MemoryBag bag;
    load(bag);
    EXPECT_EQ(moveStates(), (States{false, false, false, false}));
    EXPECT_EQ(orderStates(), (States{false, false, false, false}));
}

// --- layout ------------------------------------------------------------------------------------

TEST_P(MoveListTest, shouldLayTheListsAndButtonColumnsOutWithGapsOf105) {
    add();
    h->resize(u"m", 6000, 2400);
    ListBox& l = list(u"lstLeft");
    ListBox& r = list(u"lstRight");
    // (6000 - (735 + 495 + 315)) / 2 = 2227.5
    EXPECT_NEAR(l.left(), 0, kPixel);
    EXPECT_NEAR(l.width(), 2227.5, kPixel);
    EXPECT_NEAR(l.height(), 2400, kPixel);
    EXPECT_NEAR(r.width(), l.width(), 0.01);
    EXPECT_NEAR(r.left(), l.width() + 495 + 210, kPixel);
    EXPECT_NEAR(r.height(), 2400, kPixel);
    // (2400 - (4 x 375 + 315)) / 2 = 292.5, then steps of 375 + 105.
    for (std::int16_t i = 0; i < 4; ++i) {
        EXPECT_NEAR(move(i).top(), 292.5 + 480 * i, kPixel) << i;
        EXPECT_NEAR(move(i).left(), l.width() + 105, kPixel) << i;
        EXPECT_NEAR(order(i).top(), 292.5 + 480 * i, kPixel) << i;
        EXPECT_NEAR(order(i).left(), 6000 - 735, kPixel) << i;
        EXPECT_NEAR(move(i).width(), 495, kPixel) << "buttons are never resized";
    }
}

TEST_P(MoveListTest, shouldKeepTheLeftListsWidthWhenTheControlIsTooNarrow) {
    add();
    h->resize(u"m", 6000, 2400);
    const float before = list(u"lstLeft").width();
    h->resize(u"m", 1500, 2400);  // narrower than 735 + 495 + 315
    EXPECT_NEAR(list(u"lstLeft").width(), before, 0.01);
    EXPECT_NEAR(list(u"lstRight").width(), before, 0.01);
    EXPECT_NEAR(order(0).left(), 1500 - 735, kPixel);
}

TEST_P(MoveListTest, shouldKeepTheButtonTopsWhenTheControlIsTooLow) {
    add();
    h->resize(u"m", 6000, 2400);
    const float top = move(0).top();
    h->resize(u"m", 6000, 1000);  // lower than 4 x 375 + 315
    EXPECT_NEAR(move(0).top(), top, 0.01);
    EXPECT_NEAR(move(1).top(), top + 480, kPixel);
    EXPECT_NEAR(list(u"lstLeft").height(), 1000, kPixel);
}

INSTANTIATE_TEST_SUITE_P(EveryHost, MoveListTest,
                         ::testing::ValuesIn(corvex::testing::availableHarnesses()),
                         corvex::testing::harnessName);
INSTANTIATE_TEST_SUITE_P(EveryHost, MoveListOrderTest,
                         ::testing::ValuesIn(corvex::testing::availableHarnesses()),
                         corvex::testing::harnessName);

}  // namespace
