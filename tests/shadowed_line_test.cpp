// ShadowedLine behaviour, run on every host the test program offers. The control's
// thickness is compared within a pixel: a host may keep sizes in whole pixels.
#include "corvex/options/shadowed_line.h"

#include <gtest/gtest.h>

#include "corvex/library/memory_bag.h"
#include "corvex/platform/option_widgets.h"
#include "support/harness.h"

using namespace corvex;
using corvex::testing::Harness;
using corvex::testing::HarnessMaker;

namespace {

constexpr float kPixel = 15.5f;

class ShadowedLineTest : public ::testing::TestWithParam<HarnessMaker> {
protected:
    void SetUp() override { h = GetParam().make(); }
    ShadowedLine& add() {
        return static_cast<ShadowedLine&>(h->add(ShadowedLine::staticClassInfo(), u"l"));
    }
    LineShape& line(const char16_t* name) {
        return dynamic_cast<LineShape&>(h->widget(u"l", name));
    }
    static std::vector<float> ends(const LineShape& l) { return {l.x1(), l.y1(), l.x2(), l.y2()}; }
    std::unique_ptr<Harness> h;
};

TEST_P(ShadowedLineTest, shouldStretchAHorizontalLineWithItsShadowFiveBelow) {
    ShadowedLine& l = add();
    l.setY1(4);
    l.setY2(4);
    h->resize(u"l", 3000, 400);
    // The inner width, as the host keeps it (3000 twips, or the whole pixels nearest).
    const float w = l.site().surface().width();
    EXPECT_NEAR(w, 3000, kPixel);
    EXPECT_EQ(ends(line(u"Line1")), (std::vector<float>{0, 4, w, 4}));
    EXPECT_EQ(ends(line(u"Line2")), (std::vector<float>{0, 9, w, 9}));
    EXPECT_NEAR(l.site().surface().height(), 25, kPixel);
}

TEST_P(ShadowedLineTest, shouldStretchAVerticalLineWithItsShadowEightToTheRight) {
    ShadowedLine& l = add();
    l.setMode(ShadowedLine_Mode::Vertical);
    l.setX1(3);
    h->resize(u"l", 400, 2000);
    const float height = l.site().surface().height();
    EXPECT_NEAR(height, 2000, kPixel);
    EXPECT_EQ(ends(line(u"Line1")), (std::vector<float>{3, 0, 3, height}));
    EXPECT_EQ(ends(line(u"Line2")), (std::vector<float>{11, 0, 11, height}));
    EXPECT_NEAR(l.site().surface().width(), 25, kPixel);
}

TEST_P(ShadowedLineTest, shouldMoveNothingWhenOnlyTheModeIsSet) {
    ShadowedLine& l = add();
    const auto main = ends(line(u"Line1"));
    const auto shadow = ends(line(u"Line2"));
    h->clearRecords(u"l");
    l.setMode(ShadowedLine_Mode::Vertical);
    EXPECT_EQ(ends(line(u"Line1")), main);
    EXPECT_EQ(ends(line(u"Line2")), shadow);
    EXPECT_EQ(h->changes(u"l"), std::vector<std::u16string>{u"Mode"});
}

TEST_P(ShadowedLineTest, shouldLeaveBothLinesWhereTheyAreInModeTwo) {
    ShadowedLine& l = add();
    l.setMode(static_cast<ShadowedLine_Mode>(2));
    l.setX1(50);
    l.setY1(60);
    const auto main = ends(line(u"Line1"));
    const auto shadow = ends(line(u"Line2"));
    h->resize(u"l", 3000, 400);
    EXPECT_EQ(ends(line(u"Line1")), main);
    EXPECT_EQ(ends(line(u"Line2")), shadow);
    EXPECT_EQ(l.mode(), static_cast<ShadowedLine_Mode>(2));
    EXPECT_NEAR(l.site().surface().height(), 400, kPixel) << "nor the control's size";
}

TEST_P(ShadowedLineTest, shouldReadAndWriteTheMainLinesEndPoints) {
    ShadowedLine& l = add();
    h->clearRecords(u"l");
    l.setX1(1);
    l.setY1(2);
    l.setX2(300);
    l.setY2(4);
    EXPECT_EQ(ends(line(u"Line1")), (std::vector<float>{1, 2, 300, 4}));
    EXPECT_EQ((std::vector<float>{l.x1(), l.y1(), l.x2(), l.y2()}),
              (std::vector<float>{1, 2, 300, 4}));
    EXPECT_EQ(h->changes(u"l"), (std::vector<std::u16string>{u"X1", u"Y1", u"X2", u"Y2"}));
}

TEST_P(ShadowedLineTest, shouldSaveAndLoadTheModeAlone) {
    ShadowedLine& l = add();
    l.setMode(ShadowedLine_Mode::Vertical);
    MemoryBag bag;
    l.writeProperties(bag);
    ASSERT_EQ(bag.entries().size(), 1u);
    EXPECT_EQ(bag.entries()[0].first, u"Mode");
    EXPECT_EQ(bag.entries()[0].second, Variant(std::int32_t{1}));
    auto& again =
        static_cast<ShadowedLine&>(h->load(ShadowedLine::staticClassInfo(), u"again", bag));
    EXPECT_EQ(again.mode(), ShadowedLine_Mode::Vertical);
}

TEST_P(ShadowedLineTest, shouldPublishTheModesNamesAsSpelled) {
    const EnumInfo& e = enumInfo<ShadowedLine_Mode>();
    EXPECT_EQ(e.name, u"ShadowedLine_Mode");
    EXPECT_EQ(e.nameOf(0), u"Horizonrtal");
    EXPECT_EQ(e.nameOf(1), u"Vertical");
    EXPECT_EQ(ShadowedLine::staticClassInfo().member(u"Mode")->enumeration, &e);
}

INSTANTIATE_TEST_SUITE_P(Hosts, ShadowedLineTest,
                         ::testing::ValuesIn(corvex::testing::availableHarnesses()),
                         corvex::testing::harnessName);

}  // namespace
