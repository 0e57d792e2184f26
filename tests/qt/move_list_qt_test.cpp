// MoveList on real Qt widgets: a person clicks items in the QListWidgets and the
// QPushButtons between and beside them, and the items move and reorder.
#include <gtest/gtest.h>

#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "corvex/lists/move_list.h"
#include "qt_test_support.h"

namespace corvex::qt::testing {
namespace {

class MoveListQt : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char16_t* t : {u"one", u"two", u"three"}) m().lAddItem(t, std::nullopt);
    }
    MoveList& m() const { return static_cast<MoveList&>(*w.control->object()); }
    QListWidget* list(const char* name) const {
        return qobject_cast<QListWidget*>(w.control->innerWidget(QString::fromLatin1(name)));
    }
    QPushButton* button(const char* array, int i) const {
        return qobject_cast<QPushButton*>(
            w.control->innerWidget(QStringLiteral("%1(%2)").arg(QLatin1String(array)).arg(i)));
    }
    void clickRow(const char* name, int row) {
        QListWidget* l = list(name);
        QTest::mouseClick(l->viewport(), Qt::LeftButton, {},
                          l->visualItemRect(l->item(row)).center());
    }
    static void press(QPushButton* b) {
        QTest::mouseClick(b, Qt::LeftButton, {}, b->rect().center());
    }

    ControlWindow w{MoveList::staticClassInfo(), 6000 / 15, 2400 / 15};
};

TEST_F(MoveListQt, shouldShowTwoListsAndTwoColumnsOfPushButtons) {
    ASSERT_NE(list("lstLeft"), nullptr);
    ASSERT_NE(list("lstRight"), nullptr);
    ASSERT_NE(list("lstDummy"), nullptr);
    EXPECT_FALSE(list("lstDummy")->isVisible());
    for (int i = 0; i < 4; ++i) {
        ASSERT_NE(button("cmdMove", i), nullptr) << i;
        ASSERT_NE(button("cmdUpDown", i), nullptr) << i;
        EXPECT_TRUE(button("cmdMove", i)->isVisible()) << i;
    }
    EXPECT_EQ(list("lstLeft")->count(), 3);
    EXPECT_LT(list("lstLeft")->geometry().right(), button("cmdMove", 0)->x());
    EXPECT_LT(button("cmdMove", 0)->geometry().right(), list("lstRight")->x());
    EXPECT_LT(list("lstRight")->geometry().right(), button("cmdUpDown", 0)->x());
}

TEST_F(MoveListQt, shouldMoveTheClickedItemRightWithTheRealButton) {
    clickRow("lstLeft", 1);
    ASSERT_TRUE(waitUntil([this] { return m().lListIndex() == 1; }));
    press(button("cmdMove", 1));
    ASSERT_TRUE(waitUntil([this] { return m().rListCount() == 1; }));
    EXPECT_EQ(m().rList(0), u"two");
    EXPECT_EQ(list("lstRight")->item(0)->text(), QStringLiteral("two"));
    EXPECT_EQ(list("lstLeft")->count(), 2);
    EXPECT_TRUE(button("cmdMove", 2)->isEnabled());
}

TEST_F(MoveListQt, shouldReorderTheRightListWithTheRealOrderingButtons) {
    press(button("cmdMove", 0));
    ASSERT_TRUE(waitUntil([this] { return m().rListCount() == 3; }));
    EXPECT_FALSE(button("cmdUpDown", 0)->isEnabled());
    clickRow("lstRight", 2);
    ASSERT_TRUE(waitUntil([this] { return button("cmdUpDown", 0)->isEnabled(); }));
    press(button("cmdUpDown", 0));
    ASSERT_TRUE(waitUntil([this] { return m().rList(0) == u"three"; }));
    EXPECT_EQ(list("lstRight")->item(0)->text(), QStringLiteral("three"));
    EXPECT_EQ(list("lstRight")->currentRow(), 0);
    press(button("cmdUpDown", 2));
    ASSERT_TRUE(waitUntil([this] { return m().rList(1) == u"three"; }));
    EXPECT_EQ(m().rListIndex(), 1);
}

TEST_F(MoveListQt, shouldIgnoreADisabledButton) {
    EXPECT_FALSE(button("cmdMove", 3)->isEnabled());
    press(button("cmdMove", 3));
    ASSERT_TRUE(settle());
    EXPECT_EQ(m().lListCount(), 3);
}

}  // namespace
}  // namespace corvex::qt::testing
