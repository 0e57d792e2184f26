// The list box every host gives the controls, as the controls see it. One suite, run on
// every host the test program offers.
#include <gtest/gtest.h>

#include "corvex/common/boolean_box.h"
#include "corvex/common/error.h"
#include "corvex/platform/list_box.h"
#include "support/harness.h"

using namespace corvex;
using corvex::testing::Harness;
using corvex::testing::HarnessMaker;

namespace {

struct ClickCounter : WidgetListener {
    void widgetEvent(Widget&, WidgetEvent& e) override {
        if (e.type == WidgetEventType::Click) ++clicks;
    }
    int clicks = 0;
};

std::int32_t errorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const Error& e) {
        return e.number();
    }
    return 0;
}

class ListBoxContract : public ::testing::TestWithParam<HarnessMaker> {
protected:
    void SetUp() override {
        h = GetParam().make();
        h->add(BooleanBox::staticClassInfo(), u"host");
    }
    std::unique_ptr<ListBox> make(bool sorted = false, std::int16_t mode = multiselect::None) {
        ListBoxSpec spec;
        spec.name = u"lstItems";
        spec.listener = &counter;
        spec.width = 1500;
        spec.height = 1200;
        spec.sorted = sorted;
        spec.multiSelect = mode;
        return h->widgets(u"host").createListBox(spec);
    }
    std::vector<std::u16string> texts(const ListBox& l) {
        std::vector<std::u16string> out;
        for (std::int32_t i = 0; i < l.listCount(); ++i) out.push_back(l.list(i));
        return out;
    }
    std::unique_ptr<Harness> h;
    ClickCounter counter;
};

using Texts = std::vector<std::u16string>;

TEST_P(ListBoxContract, shouldStartEmptyWithNothingCurrentOrNew) {
    auto l = make();
    EXPECT_EQ(l->listCount(), 0);
    EXPECT_EQ(l->listIndex(), -1);
    EXPECT_EQ(l->newIndex(), -1);
    EXPECT_EQ(l->selCount(), 0);
    EXPECT_EQ(l->text(), u"");
    EXPECT_EQ(l->name(), u"lstItems");
}

TEST_P(ListBoxContract, shouldAppendWithoutAnIndexAndInsertAtAGivenOne) {
    auto l = make();
    l->addItem(u"a");
    l->addItem(u"c");
    l->addItem(u"b", 1);
    EXPECT_EQ(texts(*l), (Texts{u"a", u"b", u"c"}));
    EXPECT_EQ(l->newIndex(), 1);
    l->addItem(u"z", 3);
    EXPECT_EQ(l->newIndex(), 3);
    EXPECT_EQ(texts(*l), (Texts{u"a", u"b", u"c", u"z"}));
}

TEST_P(ListBoxContract, shouldPlaceTextsCaseBlindWhenSorted) {
    auto l = make(true);
    for (const char16_t* t : {u"pear", u"Apple", u"banana", u"apple"}) l->addItem(t);
    EXPECT_EQ(texts(*l), (Texts{u"Apple", u"apple", u"banana", u"pear"}));
    EXPECT_EQ(l->newIndex(), 1) << "the second apple arrived after the first";
    EXPECT_TRUE(l->sorted());
}

TEST_P(ListBoxContract, shouldInsertAtTheGivenIndexEvenWhenSorted) {
    auto l = make(true);
    l->addItem(u"b");
    l->addItem(u"z", 0);
    EXPECT_EQ(texts(*l), (Texts{u"z", u"b"}));
}

TEST_P(ListBoxContract, shouldRefuseAnAddOrRemoveIndexOutsideTheListWithError5) {
    auto l = make();
    l->addItem(u"a");
    EXPECT_EQ(errorOf([&] { l->addItem(u"x", 2); }), err::InvalidProcedureCall);
    EXPECT_EQ(errorOf([&] { l->removeItem(1); }), err::InvalidProcedureCall);
    EXPECT_EQ(errorOf([&] { l->removeItem(-1); }), err::InvalidProcedureCall);
    EXPECT_EQ(l->listCount(), 1);
}

TEST_P(ListBoxContract, shouldRaise381ForAnItemIndexOutsideTheList) {
    auto l = make();
    l->addItem(u"a");
    EXPECT_EQ(errorOf([&] { l->list(1); }), err::InvalidPropertyArrayIndex);
    EXPECT_EQ(errorOf([&] { l->setList(-1, u"x"); }), err::InvalidPropertyArrayIndex);
    EXPECT_EQ(errorOf([&] { l->itemData(5); }), err::InvalidPropertyArrayIndex);
    EXPECT_EQ(errorOf([&] { l->setItemData(1, 3); }), err::InvalidPropertyArrayIndex);
    EXPECT_EQ(errorOf([&] { l->selected(1); }), err::InvalidPropertyArrayIndex);
    EXPECT_EQ(errorOf([&] { l->setSelected(1, true); }), err::InvalidPropertyArrayIndex);
}

TEST_P(ListBoxContract, shouldKeepItemDataPerItemAcrossInsertsAndTextChanges) {
    auto l = make();
    l->addItem(u"a");
    l->addItem(u"b");
    l->setItemData(0, 10);
    l->setItemData(1, -20);
    l->addItem(u"new", 0);
    EXPECT_EQ(l->itemData(0), 0);
    EXPECT_EQ(l->itemData(1), 10);
    EXPECT_EQ(l->itemData(2), -20);
    l->setList(2, u"bee");
    EXPECT_EQ(l->list(2), u"bee");
    EXPECT_EQ(l->itemData(2), -20);
}

TEST_P(ListBoxContract, shouldRaiseClickWhenCodeChangesTheCurrentItemAndOnlyThen) {
    auto l = make();
    l->addItem(u"a");
    l->addItem(u"b");
    l->setListIndex(1);
    EXPECT_EQ(counter.clicks, 1);
    l->setListIndex(1);
    EXPECT_EQ(counter.clicks, 1);
    EXPECT_EQ(l->text(), u"b");
    EXPECT_TRUE(l->selected(1));
    EXPECT_EQ(l->selCount(), 1);
    l->setListIndex(-1);
    EXPECT_EQ(counter.clicks, 2);
    EXPECT_EQ(l->selCount(), 0);
    EXPECT_EQ(errorOf([&] { l->setListIndex(2); }), err::InvalidPropertyValue);
    EXPECT_EQ(errorOf([&] { l->setListIndex(-2); }), err::InvalidPropertyValue);
}

TEST_P(ListBoxContract, shouldMoveTheCurrentItemWithInsertsAndDropItWhenItIsRemoved) {
    auto l = make();
    for (const char16_t* t : {u"a", u"b", u"c"}) l->addItem(t);
    l->setListIndex(1);
    l->addItem(u"first", 0);
    EXPECT_EQ(l->listIndex(), 2);
    EXPECT_EQ(l->text(), u"b");
    l->removeItem(0);
    EXPECT_EQ(l->listIndex(), 1);
    l->removeItem(1);
    EXPECT_EQ(l->listIndex(), -1);
    EXPECT_EQ(l->selCount(), 0);
    EXPECT_EQ(texts(*l), (Texts{u"a", u"c"}));
}

TEST_P(ListBoxContract, shouldForgetNewIndexAfterARemovalOrClear) {
    auto l = make();
    l->addItem(u"a");
    l->addItem(u"b");
    EXPECT_EQ(l->newIndex(), 1);
    l->removeItem(0);
    EXPECT_EQ(l->newIndex(), -1);
    l->addItem(u"c");
    l->clear();
    EXPECT_EQ(l->newIndex(), -1);
    EXPECT_EQ(l->listCount(), 0);
    EXPECT_EQ(l->listIndex(), -1);
}

TEST_P(ListBoxContract, shouldSelectOneItemOnlyWithoutMultiSelection) {
    auto l = make();
    for (const char16_t* t : {u"a", u"b", u"c"}) l->addItem(t);
    l->setSelected(0, true);
    l->setSelected(2, true);
    EXPECT_FALSE(l->selected(0));
    EXPECT_TRUE(l->selected(2));
    EXPECT_EQ(l->listIndex(), 2);
    EXPECT_EQ(l->selCount(), 1);
    l->setSelected(2, false);
    EXPECT_EQ(l->selCount(), 0);
    EXPECT_EQ(l->listIndex(), -1);
}

TEST_P(ListBoxContract, shouldKeepSeveralSelectedItemsInSimpleMode) {
    auto l = make(false, multiselect::Simple);
    for (const char16_t* t : {u"a", u"b", u"c"}) l->addItem(t);
    l->setSelected(0, true);
    l->setSelected(2, true);
    EXPECT_EQ(l->selCount(), 2);
    EXPECT_EQ(counter.clicks, 2);
    l->setListIndex(1);
    EXPECT_EQ(l->listIndex(), 1);
    EXPECT_EQ(l->selCount(), 2) << "moving the current item keeps the selection";
    EXPECT_FALSE(l->selected(1));
    EXPECT_EQ(l->multiSelect(), multiselect::Simple);
}

TEST_P(ListBoxContract, shouldSelectOnlyTheNewCurrentItemInExtendedMode) {
    auto l = make(false, multiselect::Extended);
    for (const char16_t* t : {u"a", u"b", u"c", u"d"}) l->addItem(t);
    l->setSelected(0, true);
    l->setSelected(1, true);
    l->setSelected(3, true);
    EXPECT_EQ(l->selCount(), 3);
    l->setListIndex(2);
    EXPECT_EQ(l->selCount(), 1);
    EXPECT_TRUE(l->selected(2));
}

TEST_P(ListBoxContract, shouldCarrySelectionsWithTheirItems) {
    auto l = make(false, multiselect::Simple);
    for (const char16_t* t : {u"a", u"b", u"c"}) l->addItem(t);
    l->setSelected(1, true);
    l->addItem(u"first", 0);
    EXPECT_TRUE(l->selected(2));
    l->removeItem(2);
    EXPECT_EQ(l->selCount(), 0);
}

TEST_P(ListBoxContract, shouldSelectByTextIgnoringAsciiCaseAndIgnoreAnUnknownText) {
    auto l = make();
    l->addItem(u"Alpha");
    l->addItem(u"Beta");
    l->setText(u"beta");
    EXPECT_EQ(l->listIndex(), 1);
    l->setText(u"gamma");
    EXPECT_EQ(l->listIndex(), 1);
    EXPECT_EQ(l->text(), u"Beta");
}

TEST_P(ListBoxContract, shouldKeepTopIndexColumnsAndIntegralHeight) {
    auto l = make();
    for (int i = 0; i < 30; ++i) l->addItem(u"item");
    l->setTopIndex(12);
    EXPECT_EQ(l->topIndex(), 12);
    EXPECT_EQ(errorOf([&] { l->setTopIndex(30); }), err::InvalidPropertyValue);
    l->setColumns(2);
    EXPECT_EQ(l->columns(), 2);
    EXPECT_EQ(errorOf([&] { l->setColumns(-1); }), err::InvalidPropertyValue);
    EXPECT_TRUE(l->integralHeight());
}

TEST_P(ListBoxContract, shouldKeepItsHorizontalExtentAndCountANegativeOneAsZero) {
    auto l = make();
    EXPECT_EQ(l->horizontalExtent(), 0);
    l->setHorizontalExtent(640);
    EXPECT_EQ(l->horizontalExtent(), 640);
    l->setHorizontalExtent(-3);
    EXPECT_EQ(l->horizontalExtent(), 0);
}

TEST_P(ListBoxContract, shouldForwardLookAndInputMode) {
    auto l = make();
    l->setBackColor(0x00112233);
    l->setForeColor(color::WindowText);
    l->setEnabled(false);
    l->setImeMode(2);
    EXPECT_EQ(l->backColor(), 0x00112233);
    EXPECT_EQ(l->foreColor(), color::WindowText);
    EXPECT_FALSE(l->enabled());
    EXPECT_EQ(l->imeMode(), 2);
}

INSTANTIATE_TEST_SUITE_P(EveryHost, ListBoxContract,
                         ::testing::ValuesIn(corvex::testing::availableHarnesses()),
                         corvex::testing::harnessName);

}  // namespace
