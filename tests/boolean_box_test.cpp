// BooleanBox behaviour, run on every host the test program offers.
#include "corvex/common/boolean_box.h"

#include <gtest/gtest.h>

#include "corvex/library/memory_bag.h"
#include "support/harness.h"

using namespace corvex;
using corvex::testing::Harness;
using corvex::testing::HarnessMaker;

namespace {

class BooleanBoxTest : public ::testing::TestWithParam<HarnessMaker> {
protected:
    void SetUp() override { h = GetParam().make(); }

    BooleanBox& addBox(const std::u16string& name = u"b") {
        return static_cast<BooleanBox&>(h->add(BooleanBox::staticClassInfo(), name));
    }
    BooleanBox& loadBox(MemoryBag& bag, const std::u16string& name = u"b") {
        return static_cast<BooleanBox&>(h->load(BooleanBox::staticClassInfo(), name, bag));
    }
    CheckBox& chk(const std::u16string& name = u"b") {
        return dynamic_cast<CheckBox&>(h->widget(name, u"chkBooleanBox"));
    }

    std::unique_ptr<Harness> h;
};

TEST_P(BooleanBoxTest, shouldReadAGrayedBoxAsFalse) {
    BooleanBox& b = addBox();
    chk().setValue(2);
    EXPECT_EQ(b.value(), Boolean(false));
}

TEST_P(BooleanBoxTest, shouldReadACheckedBoxAsTrue) {
    BooleanBox& b = addBox();
    chk().setValue(1);
    EXPECT_EQ(b.value().raw, -1);
}

TEST_P(BooleanBoxTest, shouldReadFalseWhenDisabledWithAlwaysFalseWhenNotEnabled) {
    BooleanBox& b = addBox();
    b.setAlwaysFalseWhenNotEnabled(true);
    b.setValue(true);
    b.setEnabled(false);
    EXPECT_EQ(b.value(), Boolean(false));
    EXPECT_EQ(chk().value(), 1) << "the check state itself is kept";
    b.setEnabled(true);
    EXPECT_EQ(b.value(), Boolean(true));
}

TEST_P(BooleanBoxTest, shouldStillReadTrueWhenDisabledWithoutAlwaysFalseWhenNotEnabled) {
    BooleanBox& b = addBox();
    b.setValue(true);
    b.setEnabled(false);
    EXPECT_EQ(b.value(), Boolean(true));
}

TEST_P(BooleanBoxTest, shouldIgnoreAValueOfOneButStillSignalValue) {
    BooleanBox& b = addBox();
    h->clearRecords(u"b");
    b.setValue(Boolean::fromRaw(1));
    EXPECT_EQ(chk().value(), 0);
    EXPECT_EQ(h->changes(u"b"), std::vector<std::u16string>{u"Value"});
    b.setValue(true);
    b.setValue(Boolean::fromRaw(1));
    EXPECT_EQ(chk().value(), 1) << "a raw 1 leaves a checked box checked too";
}

TEST_P(BooleanBoxTest, shouldCheckTheBoxOnMinusOneAndUncheckOnZero) {
    BooleanBox& b = addBox();
    b.setValue(Boolean::fromRaw(-1));
    EXPECT_EQ(chk().value(), 1);
    b.setValue(Boolean::fromRaw(0));
    EXPECT_EQ(chk().value(), 0);
}

TEST_P(BooleanBoxTest, shouldIgnoreARawOneGivenByNameThroughTheMemberTable) {
    BooleanBox& b = addBox();
    letProperty(b, u"Value", Variant(std::int16_t{1}));
    EXPECT_EQ(chk().value(), 0);
    letProperty(b, u"Value", Variant(std::int16_t{-1}));
    EXPECT_EQ(chk().value(), 1);
    EXPECT_EQ(getProperty(b, u"Value"), Variant(Boolean(true)));
}

TEST_P(BooleanBoxTest, shouldRestoreTheStoredCheckState) {
    BooleanBox& b = addBox();
    b.setValue(true);
    b.store();
    b.setValue(false);
    b.restore();
    EXPECT_EQ(b.value(), Boolean(true));
}

TEST_P(BooleanBoxTest, shouldRestoreAGrayedStateAsGrayed) {
    BooleanBox& b = addBox();
    chk().setValue(2);
    b.store();
    b.setValue(true);
    b.restore();
    EXPECT_EQ(chk().value(), 2);
}

TEST_P(BooleanBoxTest, shouldRestoreWithoutSignallingPropertyChanged) {
    BooleanBox& b = addBox();
    b.setValue(true);
    b.store();
    b.setValue(false);
    h->clearRecords(u"b");
    b.restore();
    EXPECT_TRUE(h->changes(u"b").empty());
}

TEST_P(BooleanBoxTest, shouldDoNothingOnRestoreOfANewControlNeverStored) {
    BooleanBox& b = addBox();
    b.setValue(true);
    b.restore();
    EXPECT_EQ(b.value(), Boolean(true));
}

TEST_P(BooleanBoxTest, shouldUncheckOnRestoreOfALoadedControlNeverStored) {
    MemoryBag bag;
    BooleanBox& b = loadBox(bag);
    b.setValue(true);
    b.restore();
    EXPECT_EQ(b.value(), Boolean(false));
}

TEST_P(BooleanBoxTest, shouldRefuseDefaultValueAtRunTimeWith382) {
    h->setUserMode(true);
    BooleanBox& b = addBox();
    b.setValue(true);
    h->clearRecords(u"b");
    try {
        b.setDefaultValue(false);
        FAIL() << "expected error 382";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 382);
        EXPECT_TRUE(e.source().empty());
    }
    EXPECT_EQ(b.defaultValue(), Boolean(false));
    EXPECT_EQ(chk().value(), 1) << "the check state is left as it was";
    EXPECT_TRUE(h->changes(u"b").empty());
}

TEST_P(BooleanBoxTest, shouldSetValueFromDefaultValueAtDesignTime) {
    h->setUserMode(false);
    BooleanBox& b = addBox();
    h->clearRecords(u"b");
    b.setDefaultValue(true);
    EXPECT_EQ(b.defaultValue(), Boolean(true));
    EXPECT_EQ(b.value(), Boolean(true));
    EXPECT_EQ(h->changes(u"b"), (std::vector<std::u16string>{u"DefaultValue", u"Value"}));
}

TEST_P(BooleanBoxTest, shouldSetValueToDefaultOnRestoreDefault) {
    h->setUserMode(false);
    BooleanBox& b = addBox();
    b.setDefaultValue(true);
    b.setValue(false);
    h->clearRecords(u"b");
    b.restoreDefault();
    EXPECT_EQ(b.value(), Boolean(true));
    EXPECT_EQ(h->changes(u"b"), std::vector<std::u16string>{u"Value"});
}

TEST_P(BooleanBoxTest, shouldUncheckOnCls) {
    BooleanBox& b = addBox();
    b.setValue(true);
    b.cls();
    EXPECT_EQ(b.value(), Boolean(false));
}

TEST_P(BooleanBoxTest, shouldSignalEachPropertyUnderItsOwnName) {
    BooleanBox& b = addBox();
    h->clearRecords(u"b");
    b.setBackColor(255);
    b.setCaption(u"x");
    b.setEnabled(true);
    b.setFont(Font::make(FontDesc{}));
    b.setForeColor(0);
    b.setKeyName(u"k");
    b.setSectionName(u"s");
    b.setAlwaysFalseWhenNotEnabled(true);
    EXPECT_EQ(h->changes(u"b"), (std::vector<std::u16string>{
                                    u"BackColor", u"Caption", u"Enabled", u"Font", u"ForeColor",
                                    u"KeyName", u"SectionName", u"AlwaysFalseWhenNotEnabled"}));
}

TEST_P(BooleanBoxTest, shouldKeepWidgetPropertiesInTheCheckBox) {
    BooleanBox& b = addBox();
    b.setCaption(u"Newsletter");
    b.setBackColor(0x00FF00);
    b.setForeColor(0x0000FF);
    EXPECT_EQ(dynamic_cast<CheckBox&>(chk()).caption(), u"Newsletter");
    EXPECT_EQ(chk().backColor(), 0x00FF00);
    EXPECT_EQ(chk().foreColor(), 0x0000FF);
    chk().setCaption(u"Changed inside");
    EXPECT_EQ(b.caption(), u"Changed inside") << "read from the widget on every access";
}

TEST_P(BooleanBoxTest, shouldStartNewWithItsOwnNameAsCaption) {
    BooleanBox& b = addBox();
    EXPECT_EQ(b.caption(), u"chkBooleanBox");
    EXPECT_EQ(b.backColor(), color::ButtonFace);
    EXPECT_EQ(b.foreColor(), color::ButtonText);
    EXPECT_TRUE(b.enabled());
    EXPECT_EQ(b.defaultValue(), Boolean(false));
    EXPECT_EQ(b.alwaysFalseWhenNotEnabled(), Boolean(false));
    EXPECT_EQ(b.keyName(), u"");
    EXPECT_EQ(b.sectionName(), u"");
}

TEST_P(BooleanBoxTest, shouldSaveNothingWhenEverythingIsDefault) {
    BooleanBox& b = addBox();
    MemoryBag bag;
    b.writeProperties(bag);
    EXPECT_TRUE(bag.entries().empty());
}

TEST_P(BooleanBoxTest, shouldSaveChangedPropertiesInTableOrder) {
    h->setUserMode(false);
    BooleanBox& b = addBox();
    b.setSectionName(u"S");
    b.setCaption(u"Agree");
    b.setDefaultValue(true);
    b.setBackColor(255);
    MemoryBag bag;
    b.writeProperties(bag);
    ASSERT_EQ(bag.entries().size(), 4u);
    EXPECT_EQ(bag.entries()[0], (MemoryBag::Entry{u"BackColor", Variant(std::int32_t{255})}));
    EXPECT_EQ(bag.entries()[1], (MemoryBag::Entry{u"Caption", Variant(u"Agree")}));
    EXPECT_EQ(bag.entries()[2], (MemoryBag::Entry{u"DefaultValue", Variant(Boolean(true))}));
    EXPECT_EQ(bag.entries()[3], (MemoryBag::Entry{u"SectionName", Variant(u"S")}));
}

TEST_P(BooleanBoxTest, shouldNotSaveValueItself) {
    BooleanBox& b = addBox();
    b.setValue(true);
    MemoryBag bag;
    b.writeProperties(bag);
    EXPECT_EQ(bag.read(u"Value", Variant(u"absent")), Variant(u"absent"));
}

TEST_P(BooleanBoxTest, shouldLoadWhatItSavedAndTakeTheCheckStateFromDefaultValue) {
    h->setUserMode(false);
    BooleanBox& a = addBox(u"a");
    a.setCaption(u"Agree");
    a.setDefaultValue(true);
    a.setEnabled(false);
    a.setKeyName(u"K");
    a.setSectionName(u"S");
    a.setAlwaysFalseWhenNotEnabled(true);
    a.setBackColor(0x123456);
    a.setForeColor(0x654321);
    FontDesc big = h->widget(u"a", u"chkBooleanBox").font();
    big.size = 14;
    big.bold = true;
    a.setFont(Font::make(big));
    MemoryBag bag;
    a.writeProperties(bag);

    h->setUserMode(true);
    BooleanBox& b = loadBox(bag, u"b");
    EXPECT_EQ(b.caption(), u"Agree");
    EXPECT_EQ(b.defaultValue(), Boolean(true));
    EXPECT_FALSE(b.enabled());
    EXPECT_EQ(b.keyName(), u"K");
    EXPECT_EQ(b.sectionName(), u"S");
    EXPECT_EQ(b.alwaysFalseWhenNotEnabled(), Boolean(true));
    EXPECT_EQ(b.backColor(), 0x123456);
    EXPECT_EQ(b.foreColor(), 0x654321);
    EXPECT_EQ(b.font()->size(), 14);
    EXPECT_TRUE(b.font()->bold());
    EXPECT_EQ(chk(u"b").value(), 1) << "checked from DefaultValue";
}

TEST_P(BooleanBoxTest, shouldUseTheAmbientFontAsTheFontDefault) {
    BooleanBox& b = addBox();
    MemoryBag bag;
    b.setFont(b.font());  // the same font as the ambient one
    b.writeProperties(bag);
    EXPECT_EQ(bag.read(u"Font", Variant(u"absent")), Variant(u"absent"));
}

TEST_P(BooleanBoxTest, shouldNameTheSavedPropertyInTheErrorOfAWrongKind) {
    MemoryBag bag({{u"Enabled", Variant(u"perhaps")}});
    try {
        loadBox(bag);
        FAIL() << "expected a type mismatch";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 13);
        EXPECT_NE(e.description().find(u"Enabled"), std::u16string::npos);
    }
}

TEST_P(BooleanBoxTest, shouldCheckAndUncheckOnUserClicksRaisingClick) {
    BooleanBox& b = addBox();
    h->clearRecords(u"b");
    h->click(u"b", u"chkBooleanBox");
    EXPECT_EQ(b.value(), Boolean(true));
    auto names = corvex::testing::eventNames(h->events(u"b"));
    EXPECT_NE(std::find(names.begin(), names.end(), u"Click"), names.end());
    EXPECT_NE(std::find(names.begin(), names.end(), u"MouseDown"), names.end());
    EXPECT_NE(std::find(names.begin(), names.end(), u"MouseUp"), names.end());
    h->click(u"b", u"chkBooleanBox");
    EXPECT_EQ(b.value(), Boolean(false));
}

TEST_P(BooleanBoxTest, shouldIgnoreClicksWhileDisabled) {
    BooleanBox& b = addBox();
    b.setEnabled(false);
    h->click(u"b", u"chkBooleanBox");
    b.setEnabled(true);
    EXPECT_EQ(b.value(), Boolean(false));
}

TEST_P(BooleanBoxTest, shouldRaiseResizeAfterEachResizeWithTheBoxFillingTheSurface) {
    addBox();
    h->clearRecords(u"b");
    h->resize(u"b", 3000, 600);
    h->resize(u"b", 2400, 450);
    EXPECT_EQ(corvex::testing::eventNames(h->events(u"b")),
              (std::vector<std::u16string>{u"Resize", u"Resize"}));
    Widget& w = h->widget(u"b", u"chkBooleanBox");
    EXPECT_NEAR(w.width(), 2400, 15);
    EXPECT_NEAR(w.height(), 450, 15);
    EXPECT_NEAR(w.left(), 0, 0.01);
    EXPECT_NEAR(w.top(), 0, 0.01);
}

TEST_P(BooleanBoxTest, shouldFillTheSurfaceWhateverItsScaleMode) {
    addBox();
    h->setScaleMode(u"b", ScaleMode::Pixels);
    h->resize(u"b", 3000, 600);
    Widget& w = h->widget(u"b", u"chkBooleanBox");
    EXPECT_NEAR(w.width(), 3000, 15) << "widget geometry is in twips";
    EXPECT_NEAR(w.height(), 600, 15);
}

TEST_P(BooleanBoxTest, shouldConvertMouseCoordinatesToContainerUnits) {
    addBox();
    h->resize(u"b", 1500, 300);
    h->setScaleMode(u"b", ScaleMode::Pixels);
    h->clearRecords(u"b");
    h->click(u"b", u"chkBooleanBox");
    const auto events = h->events(u"b");
    auto it = std::find_if(events.begin(), events.end(),
                           [](const auto& e) { return e.name == u"MouseDown"; });
    ASSERT_NE(it, events.end());
    ASSERT_EQ(it->args.size(), 4u);
    EXPECT_EQ(it->args[0], Variant(std::int16_t{1}));
    EXPECT_EQ(it->args[2].type(), VarType::Single);
    // The click lands in the box's middle: about 750 x 150 twips, whatever the pixel size.
    EXPECT_NEAR(it->args[2].asSingle(), 750, 30);
    EXPECT_NEAR(it->args[3].asSingle(), 150, 30);
}

TEST_P(BooleanBoxTest, shouldPassKeyPressByReferenceSoAHandlerCanSwallowIt) {
    addBox();
    std::vector<std::int16_t> seen;
    h->setEventHandler(u"b", [&](const std::u16string& name, std::span<Variant> args) {
        if (name == u"KeyPress") {
            seen.push_back(args[0].toInteger());
            args[0] = Variant(std::int16_t{0});
        }
    });
    h->typeText(u"b", u"a");
    EXPECT_EQ(seen, std::vector<std::int16_t>{97});
    const auto events = h->events(u"b");
    auto it = std::find_if(events.begin(), events.end(),
                           [](const auto& e) { return e.name == u"KeyPress"; });
    ASSERT_NE(it, events.end());
    EXPECT_EQ(it->args[0], Variant(std::int16_t{0}));
}

TEST_P(BooleanBoxTest, shouldPassKeyDownAndKeyUpWithCodeAndShift) {
    addBox();
    h->clearRecords(u"b");
    h->typeText(u"b", u"A");
    const auto events = h->events(u"b");
    ASSERT_GE(events.size(), 3u);
    EXPECT_EQ(events.front().name, u"KeyDown");
    EXPECT_EQ(events.front().args[0], Variant(std::int16_t{65}));
    EXPECT_EQ(events.front().args[1].toInteger() & key::ShiftMask, key::ShiftMask);
    EXPECT_EQ(events.back().name, u"KeyUp");
}

INSTANTIATE_TEST_SUITE_P(Hosts, BooleanBoxTest,
                         ::testing::ValuesIn(corvex::testing::availableHarnesses()),
                         corvex::testing::harnessName);

}  // namespace
