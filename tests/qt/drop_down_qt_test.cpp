// DropDownCombo and DropDownList on a real QComboBox: a person picking an entry with the
// mouse in a shown window changes Value and raises Click.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
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

INSTANTIATE_TEST_SUITE_P(Classes, DropDownQt,
                         ::testing::Values(&DropDownCombo::staticClassInfo(),
                                           &DropDownList::staticClassInfo()),
                         [](const ::testing::TestParamInfo<const ClassInfo*>& info) {
                             return corvex::toUtf8(info.param->name());
                         });

}  // namespace
}  // namespace corvex::qt::testing
