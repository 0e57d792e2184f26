// ListBoxEx on the headless host, where widths are exact: every UTF-16 unit (and the
// terminating character) is kFixedAdvance pixels, and the screen's pixels may be set
// unequal in the two directions.
#include <gtest/gtest.h>

#include "corvex/headless/widgets.h"
#include "corvex/lists/list_box_ex.h"
#include "corvex/platform/list_box.h"
#include "support/headless_fixture.h"

using namespace corvex;

namespace {

class ListBoxExHeadless : public corvex::testing::HeadlessTest {
protected:
    ListBoxEx& add(const std::u16string& name = u"c") {
        h.setUserMode(false);
        return dynamic_cast<ListBoxEx&>(h.add(ListBoxEx::staticClassInfo(), name));
    }
    ListBox& lst(const std::u16string& name = u"c") {
        return dynamic_cast<ListBox&>(h.widget(name, u"lstListBoxEx"));
    }
};

TEST_F(ListBoxExHeadless, shouldMeasureEachUnitAndTheTerminatorAtTheFixedAdvance) {
    ListBoxEx& c = add();
    c.addItem(u"", std::nullopt);
    EXPECT_EQ(c.widestItem(), kFixedAdvance);
    c.addItem(u"abcd", std::nullopt);
    EXPECT_EQ(c.widestItem(), 5 * kFixedAdvance);
}

TEST_F(ListBoxExHeadless, shouldDivideTheOuterWidthByTheVerticalTwipsPerPixel) {
    // 3000 twips are 200 pixels across at 15 twips, but 100 "pixels" at the vertical 30.
    h.host().setTwipsPerPixel(15, 30);
    ListBoxEx& c = add();
    h.resize(u"c", 3000, 1800);
    ASSERT_FLOAT_EQ(lst().width(), 3000);
    const std::u16string text(21, u'w');  // 22 units with the terminator: 154 pixels
    c.addItem(text, std::nullopt);
    EXPECT_EQ(c.widestItem(), 154);
    EXPECT_EQ(lst().horizontalExtent(), 154);

    // The other way round the list counts 200 vertical "pixels": wide enough.
    c.clear();
    h.host().setTwipsPerPixel(30, 15);
    h.resize(u"c", 3000, 1800);
    c.addItem(text, std::nullopt);
    EXPECT_EQ(lst().horizontalExtent(), 0);
}

TEST_F(ListBoxExHeadless, shouldGiveExtentZeroAtExactlyTheWidestItemsWidth) {
    ListBoxEx& c = add();
    c.addItem(std::u16string(9, u'w'), std::nullopt);  // 70 pixels
    h.resize(u"c", 70 * 15, 1800);
    c.refreshScrollBar();
    EXPECT_EQ(lst().horizontalExtent(), 0);
    h.resize(u"c", 69 * 15, 1800);
    c.refreshScrollBar();
    EXPECT_EQ(lst().horizontalExtent(), 70);
}

TEST_F(ListBoxExHeadless, shouldPassOnItemCheckWithItsItemByReference) {
    add();
    h.setEventHandler(u"c", [](const std::u16string& name, std::span<Variant> args) {
        if (name == u"ItemCheck") args[0] = Variant(std::int16_t{4});
    });
    WidgetEvent e;
    e.type = WidgetEventType::ItemCheck;
    e.item = 2;
    h.headlessWidget(u"c", u"lstListBoxEx").emit(e);
    const auto events = h.events(u"c");
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].name, u"ItemCheck");
    EXPECT_EQ(events[0].args[0], Variant(std::int16_t{4}));
    EXPECT_EQ(e.item, 4) << "the handler's change reaches the list";
}

}  // namespace
