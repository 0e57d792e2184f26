// The option controls on real Qt widgets: a person's click on a QRadioButton inside the
// frame's QGroupBox changes MultiOption's Value, a press on the frame reaches the surface,
// and the separator is painted as two lines.
#include <gtest/gtest.h>

#include <QGroupBox>
#include <QRadioButton>
#include <QTest>

#include "corvex/options/multi_option.h"
#include "corvex/options/shadowed_line.h"
#include "corvex/options/single_option.h"
#include "qt_test_support.h"

namespace corvex::qt::testing {
namespace {

QPoint radioCentre(QRadioButton* r) {
    QStyleOptionButton option;
    option.initFrom(r);
    option.text = r->text();
    return r->style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, r).center();
}

class MultiOptionQt : public ::testing::Test {
protected:
    void SetUp() override {
        letProperty(object(), u"OptionNum", Variant(std::int16_t{4}));
        letProperty(object(), u"OptionNumPerLine", Variant(std::int16_t{2}));
        letProperty(object(), u"OptionCaptions", Variant(u"North|South|East|West"));
        w.events.clear();
    }
    Object& object() const { return *w.control->object(); }
    QGroupBox* frame() const {
        return qobject_cast<QGroupBox*>(w.control->innerWidget(QStringLiteral("frameContainer")));
    }
    QRadioButton* radio(int i) const {
        return frame()->findChild<QRadioButton*>(QStringLiteral("optChildOption(%1)").arg(i));
    }
    std::int16_t value() const { return getProperty(object(), u"Value").toInteger(); }

    ControlWindow w{MultiOption::staticClassInfo(), 3200 / 15, 1400 / 15};
};

TEST_F(MultiOptionQt, shouldShowTheButtonsAsRadioButtonsInsideTheFrame) {
    ASSERT_NE(frame(), nullptr);
    for (int i = 0; i < 4; ++i) {
        ASSERT_NE(radio(i), nullptr) << i;
        EXPECT_EQ(radio(i)->parentWidget(), frame()) << i;
        EXPECT_TRUE(radio(i)->isVisible()) << i;
        EXPECT_TRUE(radio(i)->autoExclusive()) << "one exclusive group";
    }
    EXPECT_EQ(radio(3)->text(), QStringLiteral("West"));
    // 120 twips is 8 pixels at 96 dpi; the second row stands 2 x 250 twips lower.
    EXPECT_EQ(radio(0)->pos(), QPoint(8, 16));
    EXPECT_EQ(radio(2)->x(), radio(0)->x());
    EXPECT_NEAR(radio(2)->y() - radio(0)->y(), 500 / 15, 1);
    EXPECT_NEAR(radio(1)->x() - radio(0)->x(), 1300 / 15, 1);
}

TEST_F(MultiOptionQt, shouldChangeValueWhenAPersonClicksAButton) {
    ASSERT_NE(radio(3), nullptr);
    QTest::mouseClick(radio(3), Qt::LeftButton, Qt::NoModifier, radioCentre(radio(3)));
    ASSERT_TRUE(waitUntil([&] { return value() == 3; }));
    EXPECT_TRUE(radio(3)->isChecked());
    EXPECT_FALSE(radio(0)->isChecked());
    ASSERT_TRUE(settle());
    EXPECT_TRUE(w.events.empty()) << "a click on a button raises nothing, not even the mouse's";
}

TEST_F(MultiOptionQt, shouldClearEveryButtonOnCls) {
    invoke(object(), u"Cls", CallKind::Method);
    for (int i = 0; i < 4; ++i) EXPECT_FALSE(radio(i)->isChecked()) << i;
    letProperty(object(), u"Value", Variant(std::int16_t{1}));
    EXPECT_TRUE(radio(1)->isChecked());
}

TEST_F(MultiOptionQt, shouldRaiseMouseDownWhenTheFrameIsPressedOutsideTheButtons) {
    const QPoint empty(frame()->width() - 4, frame()->height() - 4);
    QTest::mousePress(frame(), Qt::LeftButton, Qt::NoModifier, empty);
    ASSERT_TRUE(waitUntil([&] { return w.find(QStringLiteral("MouseDown")) != nullptr; }));
    const RaisedEvent* down = w.find(QStringLiteral("MouseDown"));
    EXPECT_EQ(down->args[0], Variant(std::int16_t{1}));
    EXPECT_NEAR(down->args[2].toSingle(), empty.x() * 15.0, 16);
    QTest::mouseRelease(frame(), Qt::LeftButton, Qt::NoModifier, empty);
}

TEST(SingleOptionQt, shouldSelectTheButtonAndRaiseClickOnAPersonsClick) {
    ControlWindow w{SingleOption::staticClassInfo()};
    auto* r =
        qobject_cast<QRadioButton*>(w.control->innerWidget(QStringLiteral("optSingleOption")));
    ASSERT_NE(r, nullptr);
    QTest::mouseClick(r, Qt::LeftButton, Qt::NoModifier, radioCentre(r));
    ASSERT_TRUE(waitUntil([&] { return w.find(QStringLiteral("Click")) != nullptr; }));
    EXPECT_EQ(getProperty(*w.control->object(), u"Value"), Variant(true));
    invoke(*w.control->object(), u"Restore", CallKind::Method);
    EXPECT_FALSE(r->isChecked()) << "Restore before any Store clears the button";
}

TEST(ShadowedLineQt, shouldPaintADarkLineWithALightShadowOnTheNextPixelRow) {
    ControlWindow w{ShadowedLine::staticClassInfo(), 200, 10};
    ASSERT_TRUE(waitUntil([&] { return w.control->height() == 2; }))
        << "the control keeps 25 twips, two pixels";
    QWidget* main = w.control->innerWidget(QStringLiteral("Line1"));
    QWidget* shadow = w.control->innerWidget(QStringLiteral("Line2"));
    ASSERT_NE(main, nullptr);
    ASSERT_NE(shadow, nullptr);
    EXPECT_EQ(main->y(), 0);
    EXPECT_EQ(shadow->y(), 1);
    EXPECT_EQ(main->width(), 201) << "over the whole width";
    const QImage image = w.control->grab().toImage();
    EXPECT_LT(qGray(image.pixel(100, 0)), 160) << "dark main line";
    EXPECT_GT(qGray(image.pixel(100, 1)), 230) << "light shadow";
}

}  // namespace
}  // namespace corvex::qt::testing
