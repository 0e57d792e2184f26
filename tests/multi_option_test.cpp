// MultiOption behaviour, run on every host the test program offers. Positions are
// compared within a pixel: a host may keep widget places in whole pixels.
#include "corvex/options/multi_option.h"

#include <gtest/gtest.h>

#include "corvex/library/memory_bag.h"
#include "corvex/platform/option_widgets.h"
#include "support/harness.h"

using namespace corvex;
using corvex::testing::Harness;
using corvex::testing::HarnessMaker;

namespace {

constexpr float kPixel = 15.5f;  // one pixel of a 96 dpi screen, in twips, and a little

class MultiOptionTest : public ::testing::TestWithParam<HarnessMaker> {
protected:
    void SetUp() override { h = GetParam().make(); }

    MultiOption& add(const std::u16string& name = u"m") {
        return static_cast<MultiOption&>(h->add(MultiOption::staticClassInfo(), name));
    }
    MultiOption& load(MemoryBag& bag, const std::u16string& name = u"m") {
        return static_cast<MultiOption&>(h->load(MultiOption::staticClassInfo(), name, bag));
    }
    OptionButton& opt(std::int16_t i, const std::u16string& name = u"m") {
        return dynamic_cast<OptionButton&>(h->widget(name, u"optChildOption", i));
    }
    Frame& frame(const std::u16string& name = u"m") {
        return dynamic_cast<Frame&>(h->widget(name, u"frameContainer"));
    }
    // A design-time control with n buttons.
    MultiOption& addWith(std::int16_t n) {
        h->setUserMode(false);
        MultiOption& m = add();
        m.setOptionNum(n);
        return m;
    }

    std::unique_ptr<Harness> h;
};

TEST_P(MultiOptionTest, shouldIgnoreLeadingAndRepeatedBarsInTheCaptions) {
    MultiOption& m = addWith(3);
    m.setOptionCaptions(u"|A||B|");
    EXPECT_EQ(opt(0).caption(), u"A");
    EXPECT_EQ(opt(1).caption(), u"B");
    EXPECT_EQ(opt(2).caption(), u"");
}

TEST_P(MultiOptionTest, shouldPlaceTheButtonsInRowsWithTheRowStepAddingTheHeightTwice) {
    MultiOption& m = addWith(5);
    m.setOptionNumPerLine(2);
    m.setHoriSpace(100);
    m.setVartSpace(50);
    const std::pair<float, float> expected[] = {
        {120, 240}, {1520, 240}, {120, 790}, {1520, 790}, {120, 1340}};
    for (std::int16_t i = 0; i < 5; ++i) {
        EXPECT_NEAR(opt(i).left(), expected[i].first, 2 * kPixel) << "button " << i;
        EXPECT_NEAR(opt(i).top(), expected[i].second, 2 * kPixel) << "button " << i;
        EXPECT_TRUE(opt(i).visible()) << i;
    }
}

TEST_P(MultiOptionTest, shouldPutAllButtonsInOneRowWhenTheBagSaysZeroPerLine) {
    MemoryBag bag({{u"OptionNum", std::int16_t{4}}, {u"OptionNumPerLine", std::int16_t{0}}});
    MultiOption& m = load(bag);
    EXPECT_EQ(m.optionNumPerLine(), 0) << "read straight from the bag, without the check";
    for (std::int16_t i = 1; i < 4; ++i) {
        EXPECT_NEAR(opt(i).top(), opt(0).top(), 1) << i;
        EXPECT_NEAR(opt(i).left(), opt(i - 1).left() + 1300, kPixel) << i;
    }
    EXPECT_TRUE(h->messageBoxes().empty());
}

TEST_P(MultiOptionTest, shouldUseANegativePerLineFromTheBagAsOneRowToo) {
    MemoryBag bag({{u"OptionNum", std::int16_t{3}}, {u"OptionNumPerLine", std::int16_t{-2}}});
    load(bag);
    EXPECT_NEAR(opt(2).top(), opt(0).top(), 1);
}

TEST_P(MultiOptionTest, shouldCreateButtonsAnewWithEmptyCaptionsUnlessTheCaptionsNameThem) {
    MultiOption& m = addWith(5);
    m.setOptionCaptions(u"a|b|c");
    m.setOptionNum(2);
    EXPECT_THROW(h->widget(u"m", u"optChildOption", 2), std::exception);
    m.setOptionNum(5);
    EXPECT_EQ(opt(2).caption(), u"c");
    EXPECT_EQ(opt(3).caption(), u"");
    EXPECT_EQ(opt(4).caption(), u"");
}

TEST_P(MultiOptionTest, shouldGiveNewButtonsTheLookOfButtonZero) {
    MultiOption& m = addWith(1);
    m.setOptionBackColor(0x123456);
    m.setOptionForeColor(0x654321);
    auto f = m.optionFont();
    FontDesc big = f->desc();
    big.size = 14;
    m.setOptionFont(Font::make(big));
    m.setOptionNum(3);
    EXPECT_EQ(opt(2).backColor(), 0x123456);
    EXPECT_EQ(opt(2).foreColor(), 0x654321);
    EXPECT_EQ(opt(2).font().size, 14);
}

TEST_P(MultiOptionTest, shouldRefuseADefaultValueBeyondTheLastButtonWithMessage4003) {
    MultiOption& m = addWith(3);
    m.setDefaultValue(1);
    h->clearRecords(u"m");
    m.setDefaultValue(3);
    EXPECT_EQ(m.defaultValue(), 1);
    ASSERT_EQ(h->messageBoxes().size(), 1u);
    EXPECT_EQ(h->messageBoxes()[0].text, u"Enter below (number of optionbuttons - 1).");
    EXPECT_EQ(h->messageBoxes()[0].style, 16);
    EXPECT_EQ(h->messageBoxes()[0].title, u"Warning!!");
    EXPECT_TRUE(h->changes(u"m").empty());
}

TEST_P(MultiOptionTest, shouldRefuseANegativeDefaultValueWithMessage4002) {
    MultiOption& m = addWith(3);
    h->setLocaleId(1041);
    m.setDefaultValue(-1);
    EXPECT_EQ(m.defaultValue(), 0);
    ASSERT_EQ(h->messageBoxes().size(), 1u);
    EXPECT_EQ(h->messageBoxes()[0].text, u"0以上の値を入力して下さい");
    EXPECT_EQ(h->messageBoxes()[0].title, u"警告!!");
}

TEST_P(MultiOptionTest, shouldRefuseLessThanOneButtonOrPerLineWithMessage4001) {
    MultiOption& m = addWith(3);
    m.setOptionNum(0);
    m.setOptionNumPerLine(0);
    h->setLocaleId(1041);
    m.setOptionNum(-4);
    EXPECT_EQ(m.optionNum(), 3);
    EXPECT_EQ(m.optionNumPerLine(), 0);
    ASSERT_EQ(h->messageBoxes().size(), 3u);
    EXPECT_EQ(h->messageBoxes()[0].text, u"Enter not less than 1.");
    EXPECT_EQ(h->messageBoxes()[1].text, u"Enter not less than 1.");
    EXPECT_EQ(h->messageBoxes()[2].text, u"1以上の数値を入力して下さい");
    EXPECT_TRUE(h->widget(u"m", u"optChildOption", 2).visible());
}

// Each refusal's text in both languages, chosen by the locale at the moment of display.
TEST_P(MultiOptionTest, shouldShowItsRefusalsInTheLocalesLanguage) {
    struct Case {
        std::int32_t locale;
        const char16_t* title;
        const char16_t* notBelowOne;
        const char16_t* notBelowZero;
        const char16_t* notAboveLast;
    };
    const Case cases[] = {
        {1033, u"Warning!!", u"Enter not less than 1.", u"Enter not less than 0.",
         u"Enter below (number of optionbuttons - 1)."},
        {1041, u"警告!!", u"1以上の数値を入力して下さい", u"0以上の値を入力して下さい",
         u"(オプションの数-1) 以下の値を入力して下さい"},
    };
    MultiOption& m = addWith(2);
    for (const Case& c : cases) {
        h->setLocaleId(c.locale);
        const std::size_t before = h->messageBoxes().size();
        m.setOptionNumPerLine(0);
        m.setDefaultValue(-1);
        m.setDefaultValue(2);
        const auto boxes = h->messageBoxes();
        ASSERT_EQ(boxes.size(), before + 3) << c.locale;
        EXPECT_EQ(boxes[before].text, c.notBelowOne);
        EXPECT_EQ(boxes[before + 1].text, c.notBelowZero);
        EXPECT_EQ(boxes[before + 2].text, c.notAboveLast);
        for (std::size_t i = before; i < boxes.size(); ++i) {
            EXPECT_EQ(boxes[i].title, c.title);
            EXPECT_EQ(boxes[i].style, 16);
        }
    }
}

TEST_P(MultiOptionTest, shouldRaise382ForADefaultValueAtRunTime) {
    MultiOption& m = addWith(3);
    h->setUserMode(true);
    h->clearRecords(u"m");
    try {
        m.setDefaultValue(2);
        ADD_FAILURE() << "expected 382";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 382);
    }
    EXPECT_EQ(m.defaultValue(), 0);
    EXPECT_TRUE(h->changes(u"m").empty());
}

TEST_P(MultiOptionTest, shouldSelectTheNewDefaultAndSignalBoth) {
    MultiOption& m = addWith(3);
    h->clearRecords(u"m");
    m.setDefaultValue(2);
    EXPECT_EQ(m.value(), 2);
    EXPECT_TRUE(opt(2).value());
    EXPECT_FALSE(opt(0).value());
    EXPECT_EQ(h->changes(u"m"), (std::vector<std::u16string>{u"DefaultValue", u"Value"}));
}

TEST_P(MultiOptionTest, shouldLeaveValueUnchangedOnRestoreBeforeAnyStore) {
    MultiOption& m = addWith(3);
    m.setValue(2);
    m.restore();
    EXPECT_EQ(m.value(), 2);
}

TEST_P(MultiOptionTest, shouldRestoreTheStoredIndex) {
    MultiOption& m = addWith(3);
    m.setValue(1);
    m.store();
    m.setValue(2);
    m.restore();
    EXPECT_EQ(m.value(), 1);
    m.restoreDefault();
    EXPECT_EQ(m.value(), 0);
}

TEST_P(MultiOptionTest, shouldReadTheLastSeenIndexWhenNoButtonIsSelected) {
    MultiOption& m = addWith(3);
    m.setValue(2);
    EXPECT_EQ(m.value(), 2);
    m.cls();
    for (std::int16_t i = 0; i < 3; ++i) EXPECT_FALSE(opt(i).value()) << i;
    EXPECT_EQ(m.value(), 2);
}

TEST_P(MultiOptionTest, shouldRaise340ForAValueWithoutAButton) {
    MultiOption& m = addWith(2);
    try {
        m.setValue(5);
        ADD_FAILURE() << "expected 340";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 340);
    }
}

TEST_P(MultiOptionTest, shouldChangeValueButRaiseNothingWhenAButtonIsClicked) {
    addWith(3);
    MultiOption& m = static_cast<MultiOption&>(h->add(MultiOption::staticClassInfo(), u"n"));
    m.setOptionNum(3);
    h->clearRecords(u"n");
    h->click(u"n", u"optChildOption", 2);
    EXPECT_EQ(m.value(), 2);
    EXPECT_TRUE(h->events(u"n").empty());
    EXPECT_TRUE(opt(0).value()) << "another control's group is left alone";
}

TEST_P(MultiOptionTest, shouldEnableAndDisableTheFrameAndEveryButton) {
    MultiOption& m = addWith(3);
    m.setEnabled(false);
    EXPECT_FALSE(frame().enabled());
    for (std::int16_t i = 0; i < 3; ++i) EXPECT_FALSE(opt(i).enabled()) << i;
    m.setOptionNum(4);
    EXPECT_FALSE(opt(3).enabled()) << "a new button takes button 0's state";
}

TEST_P(MultiOptionTest, shouldGiveLoadedButtonsTheFramesEnabledState) {
    MemoryBag bag({{u"Enabled", false}, {u"OptionNum", std::int16_t{3}}});
    load(bag);
    for (std::int16_t i = 0; i < 3; ++i) EXPECT_FALSE(opt(i).enabled()) << i;
}

TEST_P(MultiOptionTest, shouldMoveButtonZeroButNotSaveADesignTimeOptionLeft) {
    MultiOption& m = addWith(2);
    m.setOptionLeft(600);
    m.setOptionTop(480);
    EXPECT_NEAR(m.optionLeft(), 600, kPixel);
    EXPECT_NEAR(m.optionTop(), 480, kPixel);
    EXPECT_NEAR(opt(1).left(), 600 + 1300, 2 * kPixel);
    MemoryBag bag;
    m.writeProperties(bag);
    MultiOption& again = load(bag, u"again");
    EXPECT_EQ(again.optionLeft(), 120) << "the stored field, not button 0, is what is saved";
    EXPECT_EQ(again.optionTop(), 240);
}

TEST_P(MultiOptionTest, shouldLoadButtonZerosLeftFromTheBagButStartItAtTheDefaultTop) {
    MemoryBag bag({{u"OptionLeft", std::int32_t{300}}, {u"OptionTop", std::int32_t{600}}});
    MultiOption& m = load(bag);
    EXPECT_NEAR(m.optionLeft(), 300, kPixel);
    EXPECT_EQ(m.optionTop(), 240);
    MemoryBag out;
    m.writeProperties(out);
    EXPECT_EQ(out.read(u"OptionTop", Variant()), Variant(std::int32_t{600}))
        << "the stored top goes back as it came";
}

TEST_P(MultiOptionTest, shouldSetValueFromTheDefaultOnLoad) {
    MemoryBag bag({{u"OptionNum", std::int16_t{4}}, {u"DefaultValue", std::int16_t{3}}});
    MultiOption& m = load(bag);
    EXPECT_EQ(m.value(), 3);
    EXPECT_TRUE(opt(3).value());
}

TEST_P(MultiOptionTest, shouldForwardTheFramesLookAndCaption) {
    MultiOption& m = add();
    m.setCaption(u"Size");
    m.setBackColor(0x111111);
    m.setCaptionColor(0x222222);
    m.setBorderStyle(MultiOptionBorder::None);
    EXPECT_EQ(frame().caption(), u"Size");
    EXPECT_EQ(frame().backColor(), 0x111111);
    EXPECT_EQ(frame().foreColor(), 0x222222);
    EXPECT_EQ(frame().borderStyle(), 0);
    EXPECT_EQ(m.borderStyle(), MultiOptionBorder::None);
    EXPECT_EQ(h->changes(u"m"), (std::vector<std::u16string>{u"Caption", u"BackColor",
                                                             u"CaptionColor", u"BorderStyle"}));
}

TEST_P(MultiOptionTest, shouldFillTheControlWithTheFrameOnResize) {
    add();
    h->resize(u"m", 4000, 1500);
    EXPECT_NEAR(frame().width(), 4000, kPixel);
    EXPECT_NEAR(frame().height(), 1500, kPixel);
}

TEST_P(MultiOptionTest, shouldSelectNoButtonWhenTheDefaultIsLeftBeyondTheButtons) {
    MultiOption& m = addWith(5);
    m.setDefaultValue(4);
    m.setOptionNum(2);
    EXPECT_EQ(m.optionNum(), 2);
    EXPECT_FALSE(opt(0).value());
    EXPECT_FALSE(opt(1).value());
    m.setOptionNum(5);
    EXPECT_TRUE(opt(4).value()) << "the default's button is back";
}

TEST_P(MultiOptionTest, shouldDeclareAllButTheMouseEventsAsNeverRaised) {
    std::vector<std::u16string> raised;
    for (const EventInfo& e : MultiOption::staticClassInfo().events()) {
        if (e.raised) raised.push_back(e.name);
    }
    EXPECT_EQ(raised, (std::vector<std::u16string>{u"MouseDown", u"MouseMove", u"MouseUp"}));
    EXPECT_NE(MultiOption::staticClassInfo().event(u"Click"), nullptr) << "declared all the same";
}

// What the settings control does, by member name: the text of Value out, and back in.
TEST_P(MultiOptionTest, shouldOfferItsValueAsTextByMemberNameForTheSettingsControl) {
    MultiOption& m = addWith(4);
    letProperty(m, u"SectionName", Variant(u"Delivery"));
    letProperty(m, u"KeyName", Variant(u"Size"));
    m.setValue(3);
    EXPECT_EQ(getProperty(m, u"SectionName"), Variant(u"Delivery"));
    EXPECT_EQ(getProperty(m, u"KeyName"), Variant(u"Size"));
    const std::u16string text = getProperty(m, u"Value").toString();
    EXPECT_EQ(text, u"3");
    EXPECT_EQ(getProperty(m, u"DefaultValue").toString(), u"0");
    m.setValue(0);
    letProperty(m, u"Value", Variant(text));
    EXPECT_EQ(m.value(), 3);
}

INSTANTIATE_TEST_SUITE_P(Hosts, MultiOptionTest,
                         ::testing::ValuesIn(corvex::testing::availableHarnesses()),
                         corvex::testing::harnessName);

}  // namespace
