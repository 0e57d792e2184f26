// The check box every host gives the controls, as the controls see it. One suite, run on
// every host the test program offers.
#include <gtest/gtest.h>

#include "corvex/common/boolean_box.h"
#include "support/harness.h"

using namespace corvex;
using corvex::testing::Harness;
using corvex::testing::HarnessMaker;

namespace {

struct ClickCounter : WidgetListener {
    void widgetEvent(Widget&, WidgetEvent& e) override {
        if (e.type == WidgetEventType::Click) ++clicks;
    }
    int clicks = 0;
};

class CheckBoxContract : public ::testing::TestWithParam<HarnessMaker> {
protected:
    void SetUp() override {
        h = GetParam().make();
        h->add(BooleanBox::staticClassInfo(), u"host");
        WidgetSpec spec;
        spec.name = u"chkOption";
        spec.index = 2;
        spec.listener = &counter;
        spec.width = 2400;
        spec.height = 300;
        check = h->widgets(u"host").createCheckBox(spec);
    }
    std::unique_ptr<Harness> h;
    ClickCounter counter;
    std::unique_ptr<CheckBox> check;
};

TEST_P(CheckBoxContract, shouldHoldEveryCheckStateItIsGiven) {
    for (std::int16_t v : {1, 2, 0}) {
        check->setValue(v);
        EXPECT_EQ(check->value(), v);
    }
}

TEST_P(CheckBoxContract, shouldRaiseClickWhenTheValueChangesByCodeAndOnlyThen) {
    check->setValue(2);
    EXPECT_EQ(counter.clicks, 1);
    check->setValue(2);
    EXPECT_EQ(counter.clicks, 1) << "no change, no Click";
    check->setValue(0);
    EXPECT_EQ(counter.clicks, 2);
}

TEST_P(CheckBoxContract, shouldKeepItsNameIndexAndCaption) {
    EXPECT_EQ(check->name(), u"chkOption");
    EXPECT_EQ(check->index(), 2);
    check->setCaption(u"日本語");
    EXPECT_EQ(check->caption(), u"日本語");
}

TEST_P(CheckBoxContract, shouldKeepItsOwnVisibleAndEnabledFlags) {
    check->setVisible(false);
    EXPECT_FALSE(check->visible());
    check->setVisible(true);
    EXPECT_TRUE(check->visible());
    check->setEnabled(false);
    EXPECT_FALSE(check->enabled());
}

TEST_P(CheckBoxContract, shouldGiveBackTheColoursItIsGiven) {
    check->setBackColor(0x00336699);
    EXPECT_EQ(check->backColor(), 0x00336699);
    check->setForeColor(color::WindowText);
    EXPECT_EQ(check->foreColor(), color::WindowText);
}

TEST_P(CheckBoxContract, shouldTurnGrayedIntoCheckedOnAClickAndNeverBack) {
    auto& own = dynamic_cast<CheckBox&>(h->widget(u"host", u"chkBooleanBox"));
    own.setValue(2);
    h->click(u"host", u"chkBooleanBox");
    EXPECT_EQ(own.value(), 1);
    h->click(u"host", u"chkBooleanBox");
    EXPECT_EQ(own.value(), 0);
}

TEST_P(CheckBoxContract, shouldToggleWithTheSpaceBar) {
    auto& b = static_cast<BooleanBox&>(h->add(BooleanBox::staticClassInfo(), u"b"));
    h->click(u"b", u"chkBooleanBox");
    ASSERT_EQ(b.value(), Boolean(true));
    h->typeText(u"b", u" ");
    EXPECT_EQ(b.value(), Boolean(false));
}

INSTANTIATE_TEST_SUITE_P(Hosts, CheckBoxContract,
                         ::testing::ValuesIn(corvex::testing::availableHarnesses()),
                         corvex::testing::harnessName);

}  // namespace
