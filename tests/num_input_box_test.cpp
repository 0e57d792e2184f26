// NumInputBox and NumInputBoxR behaviour, run on every host the test program offers.
#include "corvex/entry/num_input_box.h"

#include <gtest/gtest.h>

#include <limits>

#include "corvex/common/text.h"
#include "corvex/library/memory_bag.h"
#include "support/harness.h"

using namespace corvex;
using corvex::testing::Harness;
using corvex::testing::HarnessMaker;

namespace {

// Each test runs for every class it names on every host.
using Case = corvex::testing::ClassOnHost;

std::vector<Case> cases() {
    return corvex::testing::classesOnHosts(
        {&NumInputBox::staticClassInfo(), &NumInputBoxR::staticClassInfo()});
}

class NumInputBoxTest : public ::testing::TestWithParam<Case> {
protected:
    void SetUp() override { h = GetParam().host.make(); }

    NumericInputBox& add(const std::u16string& name = u"n") {
        return static_cast<NumericInputBox&>(h->add(*GetParam().cls, name));
    }
    NumericInputBox& load(MemoryBag& bag, const std::u16string& name = u"n") {
        return static_cast<NumericInputBox&>(h->load(*GetParam().cls, name, bag));
    }
    TextBox& txt(const std::u16string& name = u"n") {
        return dynamic_cast<TextBox&>(h->widget(name, u"txtInput"));
    }
    std::vector<std::u16string> names(const std::u16string& control = u"n") {
        return corvex::testing::eventNames(h->events(control));
    }
    static int count(const std::vector<std::u16string>& v, std::u16string_view name) {
        return static_cast<int>(std::count(v.begin(), v.end(), name));
    }

    std::unique_ptr<Harness> h;
};

// --- typing through the filter --------------------------------------------------------

TEST_P(NumInputBoxTest, shouldFilterTypedKeysInEachMode) {
    NumericInputBox& n = add();
    n.setMode(InputMode::PM_decimal);
    h->typeText(u"n", u"-1.5e-3x");
    EXPECT_EQ(n.text(), u"-1.5e-3");
    n.setText(u"");
    n.setMode(InputMode::P_Integer);
    h->typeText(u"n", u"-1.5e-3");
    EXPECT_EQ(n.text(), u"153");
}

TEST_P(NumInputBoxTest, shouldRaiseKeyPressWithTheZeroedCodeForARefusedKey) {
    add();
    h->clearRecords(u"n");
    h->typeText(u"n", u"x");
    const auto events = h->events(u"n");
    auto it = std::find_if(events.begin(), events.end(),
                           [](const auto& e) { return e.name == u"KeyPress"; });
    ASSERT_NE(it, events.end());
    EXPECT_EQ(it->args[0], Variant(std::int16_t{0}));
    EXPECT_EQ(count(names(), u"Change"), 0);
}

TEST_P(NumInputBoxTest, shouldNotRaiseKeyPressAtAllInFreeMode) {
    NumericInputBox& n = add();
    n.setMode(InputMode::Free);
    h->clearRecords(u"n");
    h->typeText(u"n", u"a-b");
    EXPECT_EQ(n.text(), u"a-b");
    EXPECT_EQ(count(names(), u"KeyPress"), 0);
    EXPECT_EQ(count(names(), u"KeyDown"), 3);
    EXPECT_EQ(count(names(), u"Change"), 3);
}

TEST_P(NumInputBoxTest, shouldLetTheApplicationSwallowAnAcceptedKey) {
    NumericInputBox& n = add();
    h->setEventHandler(u"n", [](const std::u16string& name, std::span<Variant> args) {
        if (name == u"KeyPress" && args[0].toInteger() == u'7') args[0] = Variant(std::int16_t{0});
    });
    h->typeText(u"n", u"170");
    EXPECT_EQ(n.text(), u"10");
}

TEST_P(NumInputBoxTest, shouldFilterAtACaretInTheMiddle) {
    NumericInputBox& n = add();
    n.setText(u"1234");
    n.setSelStart(2);
    h->typeText(u"n", u".");
    EXPECT_EQ(n.text(), u"12.34");
    n.setSelStart(1);
    h->typeText(u"n", u"e");
    EXPECT_EQ(n.text(), u"12.34") << "an exponent before the point is refused";
}

// --- clipboard keys ----------------------------------------------------------------------

TEST_P(NumInputBoxTest, shouldPasteUnfilteredOnCtrlVOnceAndFailValidationLater) {
    NumericInputBox& n = add();
    n.setMode(InputMode::P_Integer);
    h->setClipboardText(u"12abc");
    h->click(u"n", u"txtInput");
    h->pressKey(u"n", 'V', key::CtrlMask);
    EXPECT_EQ(n.text(), u"12abc") << "pasted once, and not filtered";
    EXPECT_FALSE(n.validateValue());
    EXPECT_EQ(n.text(), u"12abc");
    EXPECT_TRUE(n.errFlag());
}

TEST_P(NumInputBoxTest, shouldCopyAndCutTheSelectionOnCtrlCAndCtrlX) {
    NumericInputBox& n = add();
    n.setText(u"12345");
    h->click(u"n", u"txtInput");
    n.setSelStart(1);
    n.setSelLength(2);
    h->pressKey(u"n", 'C', key::CtrlMask);
    EXPECT_EQ(h->clipboardText(), u"23");
    EXPECT_EQ(n.text(), u"12345");
    n.setSelStart(3);
    n.setSelLength(2);
    h->pressKey(u"n", 'X', key::CtrlMask);
    EXPECT_EQ(h->clipboardText(), u"45");
    EXPECT_EQ(n.text(), u"123");
}

TEST_P(NumInputBoxTest, shouldPassKeyDownOnAfterTheClipboardRule) {
    add();
    h->clearRecords(u"n");
    h->click(u"n", u"txtInput");
    h->pressKey(u"n", 'V', key::CtrlMask);
    const auto events = h->events(u"n");
    auto it = std::find_if(events.begin(), events.end(),
                           [](const auto& e) { return e.name == u"KeyDown"; });
    ASSERT_NE(it, events.end());
    EXPECT_EQ(it->args[0], Variant(std::int16_t{'V'}));
    EXPECT_EQ(it->args[1], Variant(std::int16_t{key::CtrlMask}));
}

// --- validation and focus -----------------------------------------------------------------

TEST_P(NumInputBoxTest, shouldNormaliseOnValidateValue) {
    NumericInputBox& n = add();
    n.setText(u".5");
    EXPECT_TRUE(n.validateValue());
    EXPECT_EQ(n.text(), u"0.5");
    n.setText(u"12e");
    EXPECT_FALSE(n.cancel());
    EXPECT_EQ(n.text(), u"12");
}

TEST_P(NumInputBoxTest, shouldShowTheLengthMessageInTheLocaleLanguage) {
    NumericInputBox& n = add();
    n.setMaxLength(3);
    n.setText(u"1234");
    h->setLocaleId(1041);
    EXPECT_FALSE(n.validateValue());
    EXPECT_EQ(n.text(), u"1234");
    ASSERT_EQ(h->messageBoxes().size(), 1u);
    EXPECT_EQ(h->messageBoxes()[0].text,
              u"変換後の文字数が\r入力を許可されている\r最大値を越えました");
    EXPECT_EQ(h->messageBoxes()[0].title, u"警告!!");
    EXPECT_EQ(h->messageBoxes()[0].style, 16);
    h->setLocaleId(1033);
    EXPECT_FALSE(n.validateValue());
    EXPECT_EQ(h->messageBoxes()[1].text,
              u"The character number of converted value\rovered the defined maximum limitation.\r");
    EXPECT_EQ(h->messageBoxes()[1].title, u"Warning!!");
}

TEST_P(NumInputBoxTest, shouldKeepTheFocusWhenLeavingAnInvalidBox) {
    NumericInputBox& n = add();
    add(u"other");
    n.setLimitCheck(true);
    n.setUpperLimit(10);
    h->click(u"n", u"txtInput");
    h->typeText(u"n", u"50");
    h->click(u"other", u"txtInput");
    EXPECT_TRUE(txt(u"n").hasFocus());
    EXPECT_EQ(h->messageBoxes().size(), 1u) << "the message is shown once";
    EXPECT_EQ(n.text(), u"50");
}

TEST_P(NumInputBoxTest, shouldLetTheFocusGoWithoutValidateAtLostFocus) {
    NumericInputBox& n = add();
    add(u"other");
    n.setLimitCheck(true);
    n.setUpperLimit(10);
    n.setValidateAtLostFocus(false);
    h->click(u"n", u"txtInput");
    h->typeText(u"n", u"50");
    h->click(u"other", u"txtInput");
    EXPECT_FALSE(txt(u"n").hasFocus());
    EXPECT_TRUE(h->messageBoxes().empty());
    EXPECT_EQ(n.text(), u"50") << "the text stays as typed";
}

TEST_P(NumInputBoxTest, shouldNormaliseWhenLeavingAValidBox) {
    NumericInputBox& n = add();
    add(u"other");
    h->click(u"n", u"txtInput");
    h->typeText(u"n", u".25");
    h->click(u"other", u"txtInput");
    EXPECT_EQ(n.text(), u"0.25");
    EXPECT_FALSE(txt(u"n").hasFocus());
}

// --- store, restore, defaults ---------------------------------------------------------------

TEST_P(NumInputBoxTest, shouldEmptyTheBoxOnRestoreWithoutStore) {
    NumericInputBox& n = add();
    n.setText(u"42");
    n.restore();
    EXPECT_EQ(n.text(), u"");
}

TEST_P(NumInputBoxTest, shouldRestoreTheStoredText) {
    NumericInputBox& n = add();
    n.setText(u"42");
    n.store();
    n.setText(u"7");
    n.restore();
    EXPECT_EQ(n.text(), u"42");
}

TEST_P(NumInputBoxTest, shouldEmptyOnClsEvenWithADefaultAndRestoreTheDefault) {
    h->setUserMode(false);
    NumericInputBox& n = add();
    n.setDefaultValue(u"5");
    EXPECT_EQ(n.text(), u"5");
    n.cls();
    EXPECT_EQ(n.text(), u"");
    h->clearRecords(u"n");
    n.restoreDefault();
    EXPECT_EQ(n.text(), u"5");
    EXPECT_EQ(h->changes(u"n"), std::vector<std::u16string>{u"Value"});
}

TEST_P(NumInputBoxTest, shouldRefuseDefaultValueAtRunTime) {
    NumericInputBox& n = add();
    try {
        n.setDefaultValue(u"5");
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 382);
    }
    EXPECT_EQ(n.defaultValue(), u"");
}

TEST_P(NumInputBoxTest, shouldNotMarkTheControlChangedForSectionName) {
    h->setUserMode(false);
    NumericInputBox& n = add();
    h->clearRecords(u"n");
    n.setSectionName(u"Prices");
    EXPECT_TRUE(h->changes(u"n").empty());
    EXPECT_EQ(n.sectionName(), u"Prices");
    n.setKeyName(u"Unit");
    EXPECT_EQ(h->changes(u"n"), std::vector<std::u16string>{u"KeyName"});
}

// --- property checks --------------------------------------------------------------------------

TEST_P(NumInputBoxTest, shouldRaise3000ForABadModeAtRunTime) {
    h->setLocaleId(1033);
    NumericInputBox& n = add();
    h->clearRecords(u"n");
    try {
        n.setMode(static_cast<InputMode>(5));
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 3000);
        EXPECT_EQ(e.description(), u"Valid value is from 0 to 4.");
        EXPECT_TRUE(e.source().empty());
    }
    EXPECT_EQ(n.mode(), InputMode::PM_decimal);
    EXPECT_TRUE(h->changes(u"n").empty());
}

TEST_P(NumInputBoxTest, shouldShowAMessageForABadModeAtDesignTime) {
    h->setUserMode(false);
    h->setLocaleId(1041);
    NumericInputBox& n = add();
    n.setMode(static_cast<InputMode>(-1));
    ASSERT_EQ(h->messageBoxes().size(), 1u);
    EXPECT_EQ(h->messageBoxes()[0].text, u"このプロパティには0から4の整数を入力して下さい");
    EXPECT_EQ(n.mode(), InputMode::PM_decimal);
}

TEST_P(NumInputBoxTest, shouldShare3001BetweenBothLimits) {
    h->setLocaleId(1033);
    NumericInputBox& n = add();
    n.setUpperLimit(10);
    try {
        n.setLowerLimit(11);
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 3001);
        EXPECT_EQ(e.description(), u"Enter below UpperLimit value.");
    }
    n.setLowerLimit(5);
    try {
        n.setUpperLimit(4);
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 3001);
        EXPECT_EQ(e.description(), u"Enter not less than LowerLimit value.");
    }
    EXPECT_EQ(n.lowerLimit(), 5);
    EXPECT_EQ(n.upperLimit(), 10);
}

TEST_P(NumInputBoxTest, shouldWordTheLimitRefusalsInJapanese) {
    h->setLocaleId(1041);
    NumericInputBox& n = add();
    n.setUpperLimit(10);
    try {
        n.setLowerLimit(11);
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.description(), u"このプロパティにはUpperLimit以下の数値を入力して下さい");
    }
    h->setUserMode(false);
    n.setUpperLimit(-5);
    ASSERT_EQ(h->messageBoxes().size(), 1u) << "at design time a message instead of an error";
    EXPECT_EQ(h->messageBoxes()[0].text, u"このプロパティにはLowerLimit以上の数値を入力して下さい");
    EXPECT_EQ(h->messageBoxes()[0].title, u"警告!!");
    EXPECT_EQ(n.upperLimit(), 10);
}

TEST_P(NumInputBoxTest, shouldNeedTheUpperLimitRaisedFirst) {
    NumericInputBox& n = add();
    EXPECT_THROW(n.setLowerLimit(100), Error) << "above the current upper limit 0";
    n.setUpperLimit(200);
    n.setLowerLimit(100);
    EXPECT_EQ(n.lowerLimit(), 100);
}

// --- typed readers and ErrFlag ------------------------------------------------------------------

TEST_P(NumInputBoxTest, shouldReadTypedValuesAndSetErrFlagOnFailure) {
    NumericInputBox& n = add();
    n.setText(u"2.5");
    EXPECT_EQ(n.valLng(), 2);
    EXPECT_EQ(n.valDbl(), 2.5);
    EXPECT_FALSE(n.errFlag());
    n.setText(u"40000");
    try {
        n.valInt();
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), err::ObjectErrorBase + 3012);
    }
    EXPECT_TRUE(n.errFlag());
    n.setText(u"1");
    EXPECT_EQ(n.valInt(), 1);
    EXPECT_TRUE(n.errFlag()) << "never reset";
}

TEST_P(NumInputBoxTest, shouldUseItsErrBaseInReaderErrors) {
    NumericInputBox& n = add();
    n.setErrBase(5000);
    n.setText(u"abc");
    try {
        n.valDbl();
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 5013);
    }
}

// --- MustEnter
// ------------------------------------------------------------------------------------

TEST_P(NumInputBoxTest, shouldColourALoadedEmptyMustEnterBoxAtRunTimeOnly) {
    MemoryBag bag({{u"MustEnter", Variant(true)}});
    h->setUserMode(true);
    NumericInputBox& run = load(bag, u"run");
    EXPECT_EQ(run.backColor(), color::Red);
    h->setUserMode(false);
    NumericInputBox& design = load(bag, u"design");
    EXPECT_EQ(design.backColor(), color::WindowBackground);
}

TEST_P(NumInputBoxTest, shouldRecolourAtTheNextTextChangeOnly) {
    MemoryBag bag(
        {{u"MustEnter", Variant(true)}, {u"MustEnterColor", Variant(std::int32_t{0xFF00})}});
    NumericInputBox& n = load(bag);
    EXPECT_EQ(n.backColor(), 0xFF00);
    h->typeText(u"n", u"1");
    EXPECT_EQ(n.backColor(), color::WindowBackground);
    n.setMustEnterColor(0x00FF);
    EXPECT_EQ(n.backColor(), color::WindowBackground) << "no change until the text changes";
    h->typeText(u"n", u"\b");
    EXPECT_EQ(n.backColor(), 0x00FF);
}

TEST_P(NumInputBoxTest, shouldNotColourBeforeTheTextChangesAfterMustEnterIsSet) {
    NumericInputBox& n = add();
    n.setMustEnter(true);
    EXPECT_EQ(n.backColor(), color::WindowBackground);
    n.setText(u"1");
    n.setText(u"");
    EXPECT_EQ(n.backColor(), color::Red);
}

TEST_P(NumInputBoxTest, shouldReturnToTheLoadedColourNotALaterBackColor) {
    MemoryBag bag({{u"MustEnter", Variant(true)}, {u"BackColor", Variant(std::int32_t{0xABCDEF})}});
    NumericInputBox& n = load(bag);
    n.setBackColor(0x111111);
    n.setText(u"5");
    EXPECT_EQ(n.backColor(), 0xABCDEF);
}

// --- saved properties
// -------------------------------------------------------------------------------

TEST_P(NumInputBoxTest, shouldSaveNothingForANewControl) {
    NumericInputBox& n = add();
    MemoryBag bag;
    n.writeProperties(bag);
    EXPECT_TRUE(bag.entries().empty());
}

TEST_P(NumInputBoxTest, shouldRoundTripEverySavedProperty) {
    h->setUserMode(false);
    NumericInputBox& a = add(u"a");
    a.setBackColor(1);
    a.setEnabled(false);
    a.setForeColor(2);
    a.setImeMode(CorvexIMEMode::IMEHiragana);
    a.setMaxLength(8);
    a.setDefaultValue(u"3");
    a.setKeyName(u"K");
    a.setLimitCheck(true);
    a.setUpperLimit(99.5);
    a.setLowerLimit(-1.25);
    a.setMode(InputMode::P_decimal);
    a.setMustEnter(true);
    a.setMustEnterColor(7);
    a.setSectionName(u"S");
    a.setValidateAtLostFocus(false);
    a.setErrBase(1000);
    MemoryBag bag;
    a.writeProperties(bag);
    std::vector<std::u16string> names;
    for (const auto& e : bag.entries()) names.push_back(e.first);
    EXPECT_EQ(names, (std::vector<std::u16string>{
                         u"BackColor", u"Enabled", u"ForeColor", u"IMEMode", u"MaxLength",
                         u"DefaultValue", u"KeyName", u"LimitCheck", u"LowerLimit", u"Mode",
                         u"MustEnter", u"MustEnterColor", u"SectionName", u"UpperLimit",
                         u"ValidateAtLostFocus", u"ErrBase"}));
    EXPECT_EQ(bag.read(u"Mode", {}).type(), VarType::Integer);
    EXPECT_EQ(bag.read(u"IMEMode", {}).type(), VarType::Long);
    EXPECT_EQ(bag.read(u"MaxLength", {}).type(), VarType::Integer);

    h->setUserMode(true);
    NumericInputBox& b = load(bag, u"b");
    EXPECT_EQ(b.foreColor(), 2);
    EXPECT_FALSE(b.enabled());
    EXPECT_EQ(b.imeMode(), CorvexIMEMode::IMEHiragana);
    EXPECT_EQ(b.maxLength(), 8);
    EXPECT_EQ(b.defaultValue(), u"3");
    EXPECT_EQ(b.text(), u"3") << "the text starts from DefaultValue";
    EXPECT_EQ(b.keyName(), u"K");
    EXPECT_TRUE(b.limitCheck());
    EXPECT_EQ(b.lowerLimit(), -1.25);
    EXPECT_EQ(b.upperLimit(), 99.5);
    EXPECT_EQ(b.mode(), InputMode::P_decimal);
    EXPECT_TRUE(b.mustEnter());
    EXPECT_EQ(b.mustEnterColor(), 7);
    EXPECT_EQ(b.sectionName(), u"S");
    EXPECT_FALSE(b.validateAtLostFocus());
    EXPECT_EQ(b.errBase(), 1000);
    b.setText(u"");
    b.setText(u"5");
    EXPECT_EQ(b.backColor(), 1) << "a filled MustEnter box returns to the loaded colour";
}

TEST_P(NumInputBoxTest, shouldSignalFontAsItLoadsThroughTheFontProperty) {
    FontDesc f;
    f.name = u"Serif";
    f.size = 11;
    MemoryBag bag({{u"Font", Variant(ObjectRef(Font::make(f)))}});
    load(bag);
    const auto changes = h->changes(u"n");
    EXPECT_NE(std::find(changes.begin(), changes.end(), u"Font"), changes.end());
}

TEST_P(NumInputBoxTest, shouldSignalEachLetUnderItsName) {
    NumericInputBox& n = add();
    h->clearRecords(u"n");
    n.setText(u"1");
    n.setValue(u"2");
    n.setSelStart(0);
    n.setSelLength(1);
    n.setSelText(u"3");
    n.setMaxLength(5);
    n.setImeMode(CorvexIMEMode::IMEOFF);
    n.setLimitCheck(true);
    n.setErrBase(1);
    EXPECT_EQ(h->changes(u"n"),
              (std::vector<std::u16string>{u"Text", u"Value", u"SelStart", u"SelLength", u"SelText",
                                           u"MaxLength", u"IMEMode", u"LimitCheck", u"ErrBase"}));
}

TEST_P(NumInputBoxTest, shouldPassChangeOnForEveryTextChange) {
    NumericInputBox& n = add();
    h->clearRecords(u"n");
    n.setValue(u"12");
    h->typeText(u"n", u"3");
    EXPECT_EQ(count(names(), u"Change"), 2);
}

TEST_P(NumInputBoxTest, shouldFillTheSurfaceWithTheTextBoxOnResize) {
    add();
    h->resize(u"n", 3000, 450);
    TextBox& t = txt();
    EXPECT_NEAR(t.width(), 3000, 15);
    EXPECT_NEAR(t.height(), 450, 15);
    EXPECT_NEAR(t.left(), 0, 0.01) << "the position is not changed";
    EXPECT_NEAR(t.top(), 0, 0.01);
    h->setScaleMode(u"n", ScaleMode::Pixels);
    h->resize(u"n", 1500, 600);
    EXPECT_NEAR(t.width(), 1500, 15) << "widget geometry is in twips whatever the scale mode";
    EXPECT_NEAR(t.height(), 600, 15);
    EXPECT_EQ(count(names(), u"Resize"), 0) << "no Resize event";
}

TEST_P(NumInputBoxTest, shouldRaise380ForANegativeMaxLength) {
    NumericInputBox& n = add();
    n.setMaxLength(4);
    h->clearRecords(u"n");
    try {
        letProperty(n, u"MaxLength", Variant(std::int16_t{-1}));
        FAIL() << "expected 380";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), err::InvalidPropertyValue);
    }
    EXPECT_EQ(n.maxLength(), 4);
    EXPECT_TRUE(h->changes(u"n").empty());
}

TEST_P(NumInputBoxTest, shouldShowAMessageForARefusedLowerLimitAtDesignTime) {
    h->setUserMode(false);
    h->setLocaleId(1033);
    NumericInputBox& n = add();
    n.setUpperLimit(10);
    h->clearRecords(u"n");
    EXPECT_NO_THROW(n.setLowerLimit(11)) << "a message for the designer, not an error";
    ASSERT_EQ(h->messageBoxes().size(), 1u);
    EXPECT_EQ(h->messageBoxes()[0].text, u"Enter below UpperLimit value.");
    EXPECT_EQ(h->messageBoxes()[0].title, u"Warning!!");
    EXPECT_EQ(h->messageBoxes()[0].style, 16);
    EXPECT_EQ(n.lowerLimit(), 0);
    EXPECT_TRUE(h->changes(u"n").empty());
}

TEST_P(NumInputBoxTest, shouldGiveTheApplicationAsTheSourceOfReaderErrors) {
    NumericInputBox& n = add();
    n.setText(u"abc");
    try {
        n.valLng();
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), err::ObjectErrorBase + err::TypeMismatch);
        EXPECT_FALSE(e.source().empty()) << "the application's name";
        EXPECT_EQ(e.description(), u"Type mismatch");
    }
    n.setText(u"1e40");
    try {
        n.valSng();
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), err::ObjectErrorBase + 3010);
        EXPECT_FALSE(e.source().empty());
    }
}

TEST_P(NumInputBoxTest, shouldAlwaysValidateInFreeModeThroughValidateValueAndCancel) {
    NumericInputBox& n = add();
    n.setMode(InputMode::Free);
    n.setLimitCheck(true);
    n.setUpperLimit(1);
    n.setMaxLength(2);
    n.setText(u"abc");
    EXPECT_TRUE(n.validateValue());
    EXPECT_FALSE(n.cancel());
    EXPECT_TRUE(invoke(n, u"ValidateValue", CallKind::Method).toBoolean());
    EXPECT_FALSE(invoke(n, u"Cancel", CallKind::Method).toBoolean());
    EXPECT_EQ(n.text(), u"abc") << "left alone";
    EXPECT_TRUE(h->messageBoxes().empty());
    EXPECT_FALSE(n.errFlag());
}

TEST_P(NumInputBoxTest, shouldRaiseFiveWhenErrBasePlusTheCodeComesOutZero) {
    NumericInputBox& n = add();
    n.setErrBase(-err::TypeMismatch);
    n.setText(u"abc");
    try {
        n.valDbl();
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), err::InvalidProcedureCall) << "never error 0";
    }
    n.setErrBase(-3011);
    n.setText(u"1e999");
    try {
        n.valDbl();
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), err::InvalidProcedureCall);
    }
    EXPECT_TRUE(n.errFlag());
}

TEST_P(NumInputBoxTest, shouldRaiseOverflowWhenErrBasePlusTheCodeLeavesThirtyTwoBits) {
    NumericInputBox& n = add();
    n.setErrBase(std::numeric_limits<std::int32_t>::max());
    n.setText(u"abc");
    try {
        n.valDbl();
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), err::Overflow);
    }
}

INSTANTIATE_TEST_SUITE_P(Hosts, NumInputBoxTest, ::testing::ValuesIn(cases()),
                         corvex::testing::classOnHostName);

}  // namespace
