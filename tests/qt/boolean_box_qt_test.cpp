// BooleanBox on real Qt widgets: clicks, keys and by-reference event arguments going
// through QCheckBox, the event filter and the host's signals.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QTest>

#include "corvex/common/boolean_box.h"
#include "qt_test_support.h"
#include "support/unload_check.h"

namespace corvex::qt::testing {
namespace {

class BooleanBoxQt : public ::testing::Test {
protected:
    ControlWindow w{BooleanBox::staticClassInfo()};

    QCheckBox* box() const {
        return qobject_cast<QCheckBox*>(w.control->innerWidget(QStringLiteral("chkBooleanBox")));
    }
    Variant value() const { return getProperty(*w.control->object(), u"Value"); }
    void click() {
        QTest::mouseClick(box(), Qt::LeftButton, Qt::NoModifier, indicatorCentre(box()));
    }
};

TEST_F(BooleanBoxQt, shouldCreateItsCheckBoxAsARealQCheckBoxOnTheSurface) {
    ASSERT_NE(box(), nullptr);
    EXPECT_EQ(box()->parentWidget(), w.control);
    // The inner box fills the surface, laid out by the control's Resize.
    EXPECT_EQ(box()->geometry(), w.control->rect());
}

TEST_F(BooleanBoxQt, shouldCheckTheBoxOnAMouseClick) {
    ASSERT_NE(box(), nullptr);
    click();
    const Variant v = value();
    ASSERT_EQ(v.type(), VarType::Boolean);
    EXPECT_EQ(v.asBoolean().raw, -1);
    EXPECT_EQ(box()->checkState(), Qt::Checked);
    const auto names = w.eventNames();
    EXPECT_NE(std::find(names.begin(), names.end(), QStringLiteral("Click")), names.end());
}

TEST_F(BooleanBoxQt, shouldRaiseMouseDownMouseUpAndClickInTheHostsOrder) {
    click();
    std::vector<QString> names;
    for (const auto& n : w.eventNames()) {
        if (n != QLatin1String("MouseMove")) names.push_back(n);
    }
    EXPECT_EQ(names, (std::vector<QString>{QStringLiteral("MouseDown"), QStringLiteral("MouseUp"),
                                           QStringLiteral("Click")}));
}

TEST_F(BooleanBoxQt, shouldRaiseClickWhenTheValueIsSetByCode) {
    letProperty(*w.control->object(), u"Value", Variant(true));
    EXPECT_EQ(box()->checkState(), Qt::Checked);
    EXPECT_EQ(w.eventNames(), std::vector<QString>{QStringLiteral("Click")});
    EXPECT_NE(std::find(w.changes.begin(), w.changes.end(), QStringLiteral("Value")),
              w.changes.end());
}

TEST_F(BooleanBoxQt, shouldReportMouseCoordinatesInTwips) {
    const double tx = w.control->twipsPerPixelX();
    const double ty = w.control->twipsPerPixelY();
    QTest::mousePress(box(), Qt::LeftButton, Qt::ShiftModifier, QPoint(5, 7));
    QTest::mouseRelease(box(), Qt::LeftButton, Qt::ShiftModifier, QPoint(5, 7));
    const RaisedEvent* down = w.find(QStringLiteral("MouseDown"));
    ASSERT_NE(down, nullptr);
    ASSERT_EQ(down->args.size(), 4u);
    EXPECT_EQ(down->args[0].toInteger(), 1);  // left button
    EXPECT_EQ(down->args[1].toInteger(), 1);  // Shift held
    EXPECT_FLOAT_EQ(down->args[2].toSingle(), static_cast<float>(5 * tx));
    EXPECT_FLOAT_EQ(down->args[3].toSingle(), static_cast<float>(7 * ty));
}

TEST_F(BooleanBoxQt, shouldConvertMouseCoordinatesFromPixelScaleToTwips) {
    // The widget reports pixels on a pixel-scaled surface; the control converts them.
    w.control->setScaleMode(ScaleMode::Pixels);
    const double tx = w.control->twipsPerPixelX();
    const double ty = w.control->twipsPerPixelY();
    QTest::mousePress(box(), Qt::RightButton, Qt::ControlModifier, QPoint(9, 4));
    QTest::mouseRelease(box(), Qt::RightButton, Qt::ControlModifier, QPoint(9, 4));
    const RaisedEvent* up = w.find(QStringLiteral("MouseUp"));
    ASSERT_NE(up, nullptr);
    EXPECT_EQ(up->args[0].toInteger(), 2);  // right button
    EXPECT_EQ(up->args[1].toInteger(), 2);  // Ctrl held
    EXPECT_FLOAT_EQ(up->args[2].toSingle(), static_cast<float>(9 * tx));
    EXPECT_FLOAT_EQ(up->args[3].toSingle(), static_cast<float>(4 * ty));
}

TEST_F(BooleanBoxQt, shouldToggleOnTheSpaceBarWithHostKeyEvents) {
    box()->setFocus();
    QTest::keyClick(box(), Qt::Key_Space);
    EXPECT_EQ(value().asBoolean().raw, -1);
    const RaisedEvent* down = w.find(QStringLiteral("KeyDown"));
    const RaisedEvent* press = w.find(QStringLiteral("KeyPress"));
    const RaisedEvent* up = w.find(QStringLiteral("KeyUp"));
    ASSERT_NE(down, nullptr);
    ASSERT_NE(press, nullptr);
    ASSERT_NE(up, nullptr);
    EXPECT_EQ(down->args[0].toInteger(), 32);
    EXPECT_EQ(press->args[0].toInteger(), 32);
    EXPECT_EQ(up->args[0].toInteger(), 32);
}

TEST_F(BooleanBoxQt, shouldLeaveTheBoxAloneWhenAKeyUpHandlerClearsKeyCode) {
    // KeyCode is by reference: the handler's 0 reaches the widget through the signal.
    w.handler = [](const QString& name, EventArgs& args) {
        if (name == QLatin1String("KeyUp")) {
            EXPECT_TRUE(args.setValue(QStringLiteral("KeyCode"), 0));
        }
    };
    box()->setFocus();
    QTest::keyClick(box(), Qt::Key_Space);
    EXPECT_EQ(value().asBoolean().raw, 0);
    EXPECT_EQ(box()->checkState(), Qt::Unchecked);
    EXPECT_FALSE(box()->isDown());
    const RaisedEvent* up = w.find(QStringLiteral("KeyUp"));
    ASSERT_NE(up, nullptr);
    EXPECT_EQ(up->args[0].toInteger(), 0);
}

TEST_F(BooleanBoxQt, shouldRaiseDblClickOnADoubleClick) {
    QTest::mouseDClick(box(), Qt::LeftButton, Qt::NoModifier, indicatorCentre(box()));
    EXPECT_NE(w.find(QStringLiteral("DblClick")), nullptr);
}

TEST_F(BooleanBoxQt, shouldLayTheCheckBoxOutWhenTheSurfaceIsResized) {
    w.control->resize(300, 40);
    EXPECT_EQ(box()->size(), QSize(300, 40));
    EXPECT_NE(w.find(QStringLiteral("Resize")), nullptr);
}

TEST_F(BooleanBoxQt, shouldShowTheCaptionSetThroughTheMemberTable) {
    letProperty(*w.control->object(), u"Caption", Variant(u"日本語のキャプション"));
    EXPECT_EQ(box()->text(), QStringLiteral("日本語のキャプション"));
    EXPECT_EQ(getProperty(*w.control->object(), u"Caption").toString(), u"日本語のキャプション");
}

}  // namespace
}  // namespace corvex::qt::testing

int main(int argc, char** argv) {
    // The tests need no screen: Qt draws offscreen unless told otherwise.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("corvex-qt-tests"));
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::AddGlobalTestEnvironment(new corvex::testing::UnloadCheck);
    return RUN_ALL_TESTS();
}
