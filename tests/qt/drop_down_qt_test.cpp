// DropDownCombo and DropDownList on a real QComboBox: a person picking an entry with the
// mouse in a shown window changes Value and raises Click.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

#include "corvex/common/text.h"
#include "corvex/lists/drop_down_combo.h"
#include "qt_test_support.h"

namespace corvex::qt::testing {
namespace {

class DropDownQt : public ::testing::TestWithParam<const ClassInfo*> {
protected:
    ControlWindow w{*GetParam()};

    QComboBox* box() const {
        return qobject_cast<QComboBox*>(w.control->innerWidget(QStringLiteral("cmbComboBoxEx")));
    }
    std::int16_t value() const { return getProperty(*w.control->object(), u"Value").toInteger(); }
    // Opens the drop-down list and clicks entry i, as a person does.
    void pickWithTheMouse(int i) {
        box()->showPopup();
        QAbstractItemView* view = box()->view();
        ASSERT_TRUE(waitUntil([view] { return view->isVisible(); }));
        const QRect r = view->visualRect(view->model()->index(i, 0));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, r.center());
    }
};

TEST_P(DropDownQt, shouldBeEditableOnlyAsADropDownCombo) {
    ASSERT_NE(box(), nullptr);
    EXPECT_EQ(box()->isEditable(), GetParam() == &DropDownCombo::staticClassInfo());
}

TEST_P(DropDownQt, shouldShowTheItemsOfTheListText) {
    letProperty(*w.control->object(), u"ListTexts", Variant(std::u16string(u"red|green|blue")));
    ASSERT_EQ(box()->count(), 3);
    EXPECT_EQ(box()->itemText(2), QStringLiteral("blue"));
}

TEST_P(DropDownQt, shouldChangeValueWhenAPersonPicksAnEntry) {
    letProperty(*w.control->object(), u"ListTexts", Variant(std::u16string(u"red|green|blue")));
    w.events.clear();
    pickWithTheMouse(1);
    EXPECT_TRUE(waitUntil([this] { return value() == 1; }));
    EXPECT_EQ(box()->currentText(), QStringLiteral("green"));
    EXPECT_NE(w.find(QStringLiteral("Click")), nullptr);
    EXPECT_EQ(getProperty(*w.control->object(), u"Text").toString(), u"green");
}

TEST_P(DropDownQt, shouldRaiseScrollWhenTheDroppedDownListScrolls) {
    std::u16string texts;
    for (int i = 0; i < 60; ++i) texts += u"item" + corvex::fromUtf8(std::to_string(i)) + u"|";
    letProperty(*w.control->object(), u"ListTexts", Variant(texts));
    box()->showPopup();
    QScrollBar* bar = box()->view()->verticalScrollBar();
    ASSERT_TRUE(
        waitUntil([this, bar] { return box()->view()->isVisible() && bar->maximum() > 0; }));
    w.events.clear();
    bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_TRUE(waitUntil([this] { return w.find(QStringLiteral("Scroll")) != nullptr; }));
}

TEST_P(DropDownQt, shouldRaiseNoScrollWhileTheListIsClosed) {
    std::u16string texts;
    for (int i = 0; i < 60; ++i) texts += u"item" + corvex::fromUtf8(std::to_string(i)) + u"|";
    letProperty(*w.control->object(), u"ListTexts", Variant(texts));
    // Dropped down once, the list keeps its scroll range after it closes.
    QScrollBar* bar = box()->view()->verticalScrollBar();
    box()->showPopup();
    ASSERT_TRUE(
        waitUntil([this, bar] { return box()->view()->isVisible() && bar->maximum() > 10; }));
    box()->hidePopup();
    ASSERT_TRUE(waitUntil([this] { return !box()->view()->isVisible(); }));
    w.events.clear();
    bar->setValue(bar->value() == 10 ? 5 : 10);
    letProperty(*w.control->object(), u"ListIndex", Variant(std::int16_t{50}));
    EXPECT_EQ(w.find(QStringLiteral("Scroll")), nullptr);
}

TEST_P(DropDownQt, shouldTakeTypedFreeTextOnlyInTheDropDownCombo) {
    letProperty(*w.control->object(), u"ListTexts", Variant(std::u16string(u"red|green|blue")));
    box()->setFocus();
    ASSERT_TRUE(waitUntil([this] { return box()->hasFocus(); }));
    w.events.clear();
    QTest::keyClicks(box(), QStringLiteral("gx"));
    const std::u16string text = getProperty(*w.control->object(), u"Text").toString();
    if (GetParam() == &DropDownCombo::staticClassInfo()) {
        EXPECT_EQ(text, u"gx");
        EXPECT_EQ(value(), -1);
        EXPECT_NE(w.find(QStringLiteral("Change")), nullptr);
    } else {
        // The pick-only box only ever shows an item: a typed letter finds one.
        EXPECT_EQ(text, u"green");
        EXPECT_EQ(value(), 1);
        EXPECT_EQ(w.find(QStringLiteral("Change")), nullptr);
    }
}

INSTANTIATE_TEST_SUITE_P(Classes, DropDownQt,
                         ::testing::Values(&DropDownCombo::staticClassInfo(),
                                           &DropDownList::staticClassInfo()),
                         [](const ::testing::TestParamInfo<const ClassInfo*>& info) {
                             return corvex::toUtf8(info.param->name());
                         });

}  // namespace
}  // namespace corvex::qt::testing
