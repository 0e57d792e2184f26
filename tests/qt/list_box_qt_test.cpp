// The list box on a real QListWidget: a person's click selects an item and raises Click,
// and the horizontal scroll bar shows exactly while the extent is wider than the list.
#include <gtest/gtest.h>

#include <QListWidget>
#include <QScrollBar>
#include <QTest>

#include "corvex/qt/list_box.h"
#include "qt_test_support.h"

namespace corvex::qt::testing {
namespace {

class ListBoxQt : public ::testing::Test {
protected:
    void SetUp() override {
        ListBoxSpec spec;
        spec.name = u"lstItems";
        spec.listener = &recorder;
        spec.width = 3000;
        spec.height = 1500;
        spec.multiSelect = multiselect::Extended;
        list = w.control->createListBox(spec);
        qlist()->show();
        for (const char16_t* t : {u"alpha", u"beta", u"gamma"}) list->addItem(t);
        ASSERT_TRUE(waitUntil([this] { return qlist()->isVisible(); }));
    }
    QListWidget* qlist() const { return dynamic_cast<QtListBox&>(*list).listWidget(); }
    void clickRow(int row, Qt::KeyboardModifiers mods = {}) {
        const QRect r = qlist()->visualItemRect(qlist()->item(row));
        QTest::mouseClick(qlist()->viewport(), Qt::LeftButton, mods, r.center());
    }

    ControlWindow w{BooleanBox::staticClassInfo(), 300, 200};
    WidgetRecorder recorder;
    std::unique_ptr<ListBox> list;
};

TEST_F(ListBoxQt, shouldShowTheItemsInAQListWidgetNamedAfterTheDesign) {
    ASSERT_EQ(qlist()->count(), 3);
    EXPECT_EQ(qlist()->item(1)->text(), QStringLiteral("beta"));
    EXPECT_EQ(qlist()->objectName(), QStringLiteral("lstItems"));
}

TEST_F(ListBoxQt, shouldTakeTheUsersClickAsTheCurrentItemAndRaiseClick) {
    clickRow(1);
    ASSERT_TRUE(waitUntil([this] { return !recorder.ofType(WidgetEventType::Click).empty(); }));
    EXPECT_EQ(list->listIndex(), 1);
    EXPECT_EQ(list->selCount(), 1);
    EXPECT_EQ(recorder.ofType(WidgetEventType::MouseUp).size(), 1u);
    clickRow(2, Qt::ControlModifier);
    ASSERT_TRUE(waitUntil([this] { return recorder.ofType(WidgetEventType::Click).size() == 2; }));
    EXPECT_EQ(list->selCount(), 2);
    EXPECT_EQ(list->listIndex(), 2);
}

TEST_F(ListBoxQt, shouldShowTheSelectionThatCodeSets) {
    list->setSelected(0, true);
    list->setSelected(2, true);
    EXPECT_TRUE(qlist()->item(0)->isSelected());
    EXPECT_TRUE(qlist()->item(2)->isSelected());
    list->setListIndex(1);
    EXPECT_EQ(qlist()->currentRow(), 1);
    EXPECT_EQ(qlist()->selectedItems().size(), 1);
}

TEST_F(ListBoxQt, shouldKeepNoCurrentRowWhenTheCurrentItemIsRemoved) {
    list->setListIndex(1);
    list->removeItem(1);
    EXPECT_EQ(list->listIndex(), -1);
    EXPECT_TRUE(qlist()->selectedItems().isEmpty());
}

TEST_F(ListBoxQt, shouldShowTheHorizontalScrollBarOnlyWhileTheExtentIsWider) {
    const int page = qlist()->viewport()->width();
    list->setHorizontalExtent(page + 200);
    ASSERT_TRUE(waitUntil([this] { return qlist()->horizontalScrollBar()->isVisible(); }));
    EXPECT_EQ(qlist()->horizontalScrollBar()->maximum(), page + 200 - qlist()->viewport()->width());
    list->setHorizontalExtent(0);
    ASSERT_TRUE(waitUntil([this] { return !qlist()->horizontalScrollBar()->isVisible(); }));
}

}  // namespace
}  // namespace corvex::qt::testing
