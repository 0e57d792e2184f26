// The headless list box's simulated user: clicks on items in each selection mode, and
// when a window of the list would show its horizontal scroll bar.
#include <gtest/gtest.h>

#include "corvex/common/boolean_box.h"
#include "corvex/headless/list_box.h"
#include "support/headless_fixture.h"

using namespace corvex;

namespace {

class HeadlessListBoxTest : public corvex::testing::HeadlessTest, public WidgetListener {
protected:
    void SetUp() override { h.add(BooleanBox::staticClassInfo(), u"host"); }
    headless::HeadlessListBox& make(std::int16_t mode) {
        ListBoxSpec spec;
        spec.name = u"lstItems";
        spec.listener = this;
        spec.width = 1500;
        spec.multiSelect = mode;
        owned = h.widgets(u"host").createListBox(spec);
        auto& l = dynamic_cast<headless::HeadlessListBox&>(*owned);
        for (const char16_t* t : {u"a", u"b", u"c", u"d"}) l.addItem(t);
        return l;
    }
    void widgetEvent(Widget&, WidgetEvent& e) override {
        // The focus moving to the list is not what these tests are about.
        if (e.type != WidgetEventType::GotFocus && e.type != WidgetEventType::LostFocus)
            seen.push_back(e.type);
    }
    std::unique_ptr<ListBox> owned;
    std::vector<WidgetEventType> seen;
};

TEST_F(HeadlessListBoxTest, shouldRaiseMouseDownMouseUpAndClickForAClickOnAnItem) {
    auto& l = make(multiselect::None);
    l.clickItem(2);
    EXPECT_EQ(seen,
              (std::vector<WidgetEventType>{WidgetEventType::MouseDown, WidgetEventType::MouseUp,
                                            WidgetEventType::Click}));
    EXPECT_EQ(l.listIndex(), 2);
    EXPECT_EQ(l.selCount(), 1);
}

TEST_F(HeadlessListBoxTest, shouldToggleTheClickedItemInSimpleMode) {
    auto& l = make(multiselect::Simple);
    l.clickItem(0);
    l.clickItem(2);
    EXPECT_EQ(l.selCount(), 2);
    l.clickItem(0);
    EXPECT_EQ(l.selCount(), 1);
    EXPECT_EQ(l.listIndex(), 0) << "the clicked item is current even when it went off";
}

TEST_F(HeadlessListBoxTest, shouldExtendWithCtrlAndShiftInExtendedMode) {
    auto& l = make(multiselect::Extended);
    l.clickItem(0);
    l.clickItem(2, key::ShiftMask);
    EXPECT_EQ(l.selCount(), 3);
    l.clickItem(1, key::CtrlMask);
    EXPECT_EQ(l.selCount(), 2);
    EXPECT_FALSE(l.selected(1));
    l.clickItem(3);
    EXPECT_EQ(l.selCount(), 1);
    EXPECT_EQ(l.listIndex(), 3);
}

TEST_F(HeadlessListBoxTest, shouldIgnoreClicksOnADisabledList) {
    auto& l = make(multiselect::None);
    l.setEnabled(false);
    l.clickItem(1);
    EXPECT_EQ(l.listIndex(), -1);
    EXPECT_TRUE(seen.empty());
}

TEST_F(HeadlessListBoxTest, shouldShowAScrollBarOnlyForAnExtentWiderThanTheList) {
    auto& l = make(multiselect::None);  // 1500 twips: 100 pixels
    l.setHorizontalExtent(100);
    EXPECT_FALSE(l.hasHorizontalScrollBar());
    l.setHorizontalExtent(101);
    EXPECT_TRUE(l.hasHorizontalScrollBar());
}

}  // namespace
