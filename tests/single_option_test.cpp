// SingleOption behaviour, run on every host the test program offers.
#include "corvex/options/single_option.h"

#include <gtest/gtest.h>

#include "corvex/library/memory_bag.h"
#include "corvex/platform/option_widgets.h"
#include "support/harness.h"

using namespace corvex;
using corvex::testing::Harness;
using corvex::testing::HarnessMaker;

namespace {

class SingleOptionTest : public ::testing::TestWithParam<HarnessMaker> {
protected:
    void SetUp() override { h = GetParam().make(); }
    SingleOption& add(const std::u16string& name = u"s") {
        return static_cast<SingleOption&>(h->add(SingleOption::staticClassInfo(), name));
    }
    OptionButton& opt(const std::u16string& name = u"s") {
        return dynamic_cast<OptionButton&>(h->widget(name, u"optSingleOption"));
    }
    std::unique_ptr<Harness> h;
};

TEST_P(SingleOptionTest, shouldTurnTheButtonOffOnRestoreWithoutAStore) {
    SingleOption& s = add();
    s.setValue(true);
    s.restore();
    EXPECT_EQ(s.value(), Boolean(false));
    EXPECT_FALSE(opt().value());
}

TEST_P(SingleOptionTest, shouldTurnTheButtonBackOnWhenItWasOnAtStore) {
    SingleOption& s = add();
    s.setValue(true);
    s.store();
    s.setValue(false);
    EXPECT_FALSE(opt().value());
    s.restore();
    EXPECT_TRUE(opt().value());
    EXPECT_EQ(s.value().raw, -1);
}

TEST_P(SingleOptionTest, shouldTurnTheButtonOnWhenTheDefaultIsSetTrueAtDesignTime) {
    h->setUserMode(false);
    SingleOption& s = add();
    h->clearRecords(u"s");
    s.setDefaultValue(true);
    EXPECT_TRUE(opt().value());
    EXPECT_EQ(h->changes(u"s"), (std::vector<std::u16string>{u"DefaultValue", u"Value"}));
    s.cls();
    EXPECT_FALSE(opt().value());
    s.restoreDefault();
    EXPECT_TRUE(opt().value());
}

TEST_P(SingleOptionTest, shouldRaise382ForADefaultValueAtRunTime) {
    SingleOption& s = add();
    h->setUserMode(true);
    try {
        s.setDefaultValue(true);
        ADD_FAILURE() << "expected 382";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 382);
    }
    EXPECT_EQ(s.defaultValue(), Boolean(false));
    EXPECT_FALSE(opt().value());
}

TEST_P(SingleOptionTest, shouldLoadTheSavedValueAndNotApplyTheDefault) {
    MemoryBag on({{u"Value", true}});
    SingleOption& a =
        static_cast<SingleOption&>(h->load(SingleOption::staticClassInfo(), u"a", on));
    EXPECT_EQ(a.value(), Boolean(true));
    MemoryBag off({{u"DefaultValue", true}});
    SingleOption& b =
        static_cast<SingleOption&>(h->load(SingleOption::staticClassInfo(), u"b", off));
    EXPECT_EQ(b.defaultValue(), Boolean(true));
    EXPECT_EQ(b.value(), Boolean(false)) << "the default is not applied at load";
}

TEST_P(SingleOptionTest, shouldPassOnTheButtonsClickAndMouseEvents) {
    add();
    h->clearRecords(u"s");
    h->click(u"s", u"optSingleOption");
    const auto names = corvex::testing::eventNames(h->events(u"s"));
    EXPECT_NE(std::find(names.begin(), names.end(), u"MouseDown"), names.end());
    EXPECT_NE(std::find(names.begin(), names.end(), u"MouseUp"), names.end());
    EXPECT_EQ(std::count(names.begin(), names.end(), u"Click"), 1);
    EXPECT_TRUE(opt().value());
}

TEST_P(SingleOptionTest, shouldPassOnTheKeysWithTheHandlersChanges) {
    add();
    h->setEventHandler(u"s", [](const std::u16string& name, std::span<Variant> args) {
        if (name == u"KeyPress") args[0] = Variant(std::int16_t{0});
    });
    h->clearRecords(u"s");
    h->typeText(u"s", u"a");
    const auto names = corvex::testing::eventNames(h->events(u"s"));
    EXPECT_EQ(names, (std::vector<std::u16string>{u"KeyDown", u"KeyPress", u"KeyUp"}));
}

TEST_P(SingleOptionTest, shouldForwardTheLookAndFillTheControl) {
    SingleOption& s = add();
    s.setCaption(u"Yes");
    s.setForeColor(0x0000FF);
    s.setEnabled(false);
    EXPECT_EQ(opt().caption(), u"Yes");
    EXPECT_EQ(opt().foreColor(), 0x0000FF);
    EXPECT_FALSE(opt().enabled());
    h->resize(u"s", 3000, 600);
    EXPECT_NEAR(opt().width(), 3000, 15.5);
    EXPECT_NEAR(opt().height(), 600, 15.5);
}

// What the settings control does, by member name: the text of Value out, and back in.
TEST_P(SingleOptionTest, shouldOfferItsValueAsTextByMemberNameForTheSettingsControl) {
    SingleOption& s = add();
    letProperty(s, u"SectionName", Variant(u"Delivery"));
    letProperty(s, u"KeyName", Variant(u"Express"));
    s.setValue(true);
    const std::u16string text = getProperty(s, u"Value").toString();
    EXPECT_EQ(text, u"True");
    EXPECT_EQ(getProperty(s, u"DefaultValue").toString(), u"False");
    EXPECT_EQ(getProperty(s, u"KeyName"), Variant(u"Express"));
    s.setValue(false);
    letProperty(s, u"Value", Variant(text));
    EXPECT_EQ(s.value(), Boolean(true));
    letProperty(s, u"Value", Variant(u"False"));
    EXPECT_EQ(s.value(), Boolean(false));
}

INSTANTIATE_TEST_SUITE_P(Hosts, SingleOptionTest,
                         ::testing::ValuesIn(corvex::testing::availableHarnesses()),
                         corvex::testing::harnessName);

}  // namespace
