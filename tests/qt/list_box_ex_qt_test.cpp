// ListBoxEx on a real QListWidget: widths come from the list's font metrics, and the
// horizontal scroll bar shows while the widest item is wider than the list.
#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QListWidget>
#include <QScrollBar>

#include "corvex/lists/list_box_ex.h"
#include "corvex/qt/text_measure.h"
#include "qt_test_support.h"

namespace corvex::qt::testing {
namespace {

const std::u16string kLong =
    u"An item long enough to be wider than the list box that holds it, by a good margin";

class ListBoxExQt : public ::testing::Test {
protected:
    ControlWindow w{ListBoxEx::staticClassInfo(), 200, 120};

    ListBoxEx& c() const { return static_cast<ListBoxEx&>(*w.control->object()); }
    QListWidget* list() const {
        return qobject_cast<QListWidget*>(w.control->innerWidget(QStringLiteral("lstListBoxEx")));
    }
    bool barShown() const { return list()->horizontalScrollBar()->isVisible(); }
};

TEST_F(ListBoxExQt, shouldFillTheControlWithTheQListWidget) {
    ASSERT_NE(list(), nullptr);
    EXPECT_EQ(list()->width(), 200);
    EXPECT_EQ(list()->geometry().topLeft(), QPoint(0, 0));
}

TEST_F(ListBoxExQt, shouldMeasureWithTheListsFontMetricsAndOneCharacterMore) {
    c().addItem(u"Hello", std::nullopt);
    const QFontMetrics metrics(list()->font());
    EXPECT_EQ(c().widestItem(),
              metrics.horizontalAdvance(QStringLiteral("Hello")) + metrics.averageCharWidth());
    c().clear();
    c().addItem(u"", std::nullopt);
    EXPECT_EQ(c().widestItem(), metrics.averageCharWidth());
    EXPECT_GT(c().widestItem(), 0);
}

TEST_F(ListBoxExQt, shouldShowTheHorizontalBarForALongItemAndHideItOnClear) {
    c().addItem(u"short", std::nullopt);
    EXPECT_FALSE(barShown());
    c().addItem(kLong, std::nullopt);
    EXPECT_TRUE(waitUntil([this] { return barShown(); }));
    EXPECT_EQ(list()->horizontalScrollBar()->maximum(),
              c().widestItem() - list()->viewport()->width());
    c().clear();
    EXPECT_TRUE(waitUntil([this] { return !barShown(); }));
}

TEST_F(ListBoxExQt, shouldWaitForRefreshScrollBarWhenAutoRefreshIsOff) {
    c().setAutoRefreshScrollBar(false);
    c().addItem(kLong, std::nullopt);
    EXPECT_FALSE(barShown());
    c().refreshScrollBar();
    EXPECT_TRUE(waitUntil([this] { return barShown(); }));
    c().removeItem(0);
    EXPECT_TRUE(barShown()) << "the removal waits for the refresh too";
    c().refreshScrollBar();
    EXPECT_TRUE(waitUntil([this] { return !barShown(); }));
}

TEST_F(ListBoxExQt, shouldScrollTheLongItemIntoViewWithTheBar) {
    c().addItem(kLong, std::nullopt);
    ASSERT_TRUE(waitUntil([this] { return barShown(); }));
    QScrollBar* bar = list()->horizontalScrollBar();
    bar->setValue(bar->maximum());
    EXPECT_GT(bar->value(), 0);
}

}  // namespace
}  // namespace corvex::qt::testing
