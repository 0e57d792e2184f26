// MemoBox behaviour, run on every host the test program offers.
#include "corvex/entry/memo_box.h"

#include <gtest/gtest.h>

#include "corvex/library/memory_bag.h"
#include "support/harness.h"

using namespace corvex;
using corvex::testing::Harness;
using corvex::testing::HarnessMaker;

namespace {

class MemoBoxTest : public ::testing::TestWithParam<HarnessMaker> {
protected:
    void SetUp() override { h = GetParam().make(); }
    MemoBox& add(const std::u16string& name = u"m") {
        return static_cast<MemoBox&>(h->add(MemoBox::staticClassInfo(), name));
    }
    MemoBox& load(MemoryBag& bag, const std::u16string& name = u"m") {
        return static_cast<MemoBox&>(h->load(MemoBox::staticClassInfo(), name, bag));
    }
    TextBox& box(int i, const std::u16string& name = u"m") {
        return dynamic_cast<TextBox&>(h->widget(name, u"txtMemo", static_cast<std::int16_t>(i)));
    }
    std::vector<bool> visibility() {
        std::vector<bool> v;
        for (int i = 0; i < 4; ++i) v.push_back(box(i).visible());
        return v;
    }
    std::unique_ptr<Harness> h;
};

TEST_P(MemoBoxTest, shouldShowOnlyTheFirstBoxWhenNew) {
    MemoBox& m = add();
    EXPECT_EQ(m.scrollBars(), ScrollBarsMode::barNone);
    EXPECT_EQ(visibility(), (std::vector<bool>{true, false, false, false}));
}

TEST_P(MemoBoxTest, shouldKeepHiddenBoxesInStepWhileTyping) {
    MemoBox& m = add();
    h->click(u"m", u"txtMemo", 0);
    h->typeText(u"m", u"abc");
    for (int i = 0; i < 4; ++i) EXPECT_EQ(box(i).text(), u"abc") << "box " << i;
    m.setScrollBars(ScrollBarsMode::barBoth);
    EXPECT_EQ(m.text(), u"abc") << "switching keeps the text";
    EXPECT_EQ(visibility(), (std::vector<bool>{false, false, false, true}));
}

TEST_P(MemoBoxTest, shouldRaiseChangeOncePerChange) {
    MemoBox& m = add();
    h->clearRecords(u"m");
    m.setValue(u"x");
    h->click(u"m", u"txtMemo", 0);
    h->typeText(u"m", u"y");
    auto names = corvex::testing::eventNames(h->events(u"m"));
    EXPECT_EQ(std::count(names.begin(), names.end(), u"Change"), 2);
}

TEST_P(MemoBoxTest, shouldHideAllFourForAScrollBarsValueOutsideTheRange) {
    MemoBox& m = add();
    m.setScrollBars(static_cast<ScrollBarsMode>(7));
    EXPECT_EQ(m.scrollBars(), static_cast<ScrollBarsMode>(7)) << "the value is kept";
    EXPECT_EQ(visibility(), (std::vector<bool>{false, false, false, false}));
    EXPECT_THROW(m.text(), Error) << "no box of that style to read";
    m.setScrollBars(ScrollBarsMode::barVertical);
    EXPECT_EQ(visibility(), (std::vector<bool>{false, false, true, false}));
}

TEST_P(MemoBoxTest, shouldRefuseNoPropertyNameAndAnswerFalse) {
    MemoBox& m = add();
    for (const char16_t* name : {u"Text", u"ScrollBars", u"", u"Nonsense"}) {
        Variant arg(name);
        EXPECT_FALSE(m.canPropertyChange(arg));
        EXPECT_EQ(arg, Variant(name)) << "the argument is left alone";
    }
    Variant args[] = {Variant(u"Text")};
    EXPECT_EQ(invoke(m, u"CanPropertyChange", CallKind::Method, args), Variant(false));
}

TEST_P(MemoBoxTest, shouldApplyWidgetPropertiesToAllFourAndSignalOnce) {
    MemoBox& m = add();
    h->clearRecords(u"m");
    m.setBackColor(0x112233);
    m.setForeColor(0x445566);
    m.setEnabled(false);
    m.setImeMode(CorvexIMEMode::IMEHiragana);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(box(i).backColor(), 0x112233);
        EXPECT_EQ(box(i).foreColor(), 0x445566);
        EXPECT_FALSE(box(i).enabled());
    }
    EXPECT_EQ(h->changes(u"m"),
              (std::vector<std::u16string>{u"BackColor", u"ForeColor", u"Enabled", u"IMEMode"}));
}

TEST_P(MemoBoxTest, shouldReadPropertiesFromTheVisibleBox) {
    MemoBox& m = add();
    m.setScrollBars(ScrollBarsMode::barHorizontal);
    box(1).setBackColor(0x0000FF);
    EXPECT_EQ(m.backColor(), 0x0000FF);
}

TEST_P(MemoBoxTest, shouldSignalValueThenText) {
    MemoBox& m = add();
    h->clearRecords(u"m");
    m.setValue(u"v");
    EXPECT_EQ(h->changes(u"m"), (std::vector<std::u16string>{u"Value", u"Text"}));
}

TEST_P(MemoBoxTest, shouldStoreRestoreAndEmptyWithNothingStored) {
    MemoBox& m = add();
    m.setText(u"line1\r\nline2");
    m.restore();
    EXPECT_EQ(m.text(), u"") << "nothing stored empties the boxes";
    m.setText(u"kept");
    m.store();
    m.cls();
    EXPECT_EQ(m.text(), u"");
    m.restore();
    for (int i = 0; i < 4; ++i) EXPECT_EQ(box(i).text(), u"kept");
}

TEST_P(MemoBoxTest, shouldRestoreTheDefaultWithoutSignalling) {
    h->setUserMode(false);
    MemoBox& m = add();
    m.setDefaultValue(u"def");
    EXPECT_EQ(m.text(), u"def");
    m.setText(u"other");
    h->clearRecords(u"m");
    m.restoreDefault();
    EXPECT_EQ(m.text(), u"def");
    EXPECT_TRUE(h->changes(u"m").empty());
}

TEST_P(MemoBoxTest, shouldRefuseDefaultValueAtRunTime) {
    MemoBox& m = add();
    EXPECT_THROW(m.setDefaultValue(u"x"), Error);
    EXPECT_EQ(m.defaultValue(), u"");
}

TEST_P(MemoBoxTest, shouldWriteScrollBarsAndReadItBackAsScrollbars) {
    MemoBox& a = add(u"a");
    a.setScrollBars(ScrollBarsMode::barVertical);
    MemoryBag bag;
    a.writeProperties(bag);
    ASSERT_EQ(bag.entries().size(), 1u);
    EXPECT_EQ(bag.entries()[0].first, u"ScrollBars") << "written with a capital B";
    // The load asks for "Scrollbars"; the bag matches names without regard to case, so the
    // setting comes back instead of falling to 0.
    MemoBox& b = load(bag, u"b");
    EXPECT_EQ(b.scrollBars(), ScrollBarsMode::barVertical);
    EXPECT_TRUE(box(2, u"b").visible());
}

TEST_P(MemoBoxTest, shouldLoadTheDefaultIntoEveryBox) {
    MemoryBag bag({{u"DefaultValue", Variant(u"hello")},
                   {u"KeyName", Variant(u"K")},
                   {u"BackColor", Variant(std::int32_t{5})}});
    MemoBox& m = load(bag);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(box(i).text(), u"hello");
        EXPECT_EQ(box(i).backColor(), 5);
    }
    EXPECT_EQ(m.keyName(), u"K");
}

TEST_P(MemoBoxTest, shouldSaveInItsOwnOrder) {
    h->setUserMode(false);
    MemoBox& m = add();
    m.setSectionName(u"S");
    m.setKeyName(u"K");
    m.setDefaultValue(u"D");
    m.setScrollBars(ScrollBarsMode::barBoth);
    m.setImeMode(CorvexIMEMode::IMEOFF);
    m.setForeColor(1);
    m.setEnabled(false);
    m.setBackColor(2);
    MemoryBag bag;
    m.writeProperties(bag);
    std::vector<std::u16string> names;
    for (const auto& e : bag.entries()) names.push_back(e.first);
    EXPECT_EQ(names, (std::vector<std::u16string>{u"BackColor", u"Enabled", u"ForeColor",
                                                  u"IMEMode", u"ScrollBars", u"DefaultValue",
                                                  u"KeyName", u"SectionName"}));
    EXPECT_EQ(bag.read(u"IMEMode", {}).type(), VarType::Integer);
    EXPECT_EQ(bag.read(u"ScrollBars", {}).type(), VarType::Long);
}

TEST_P(MemoBoxTest, shouldSizeAllFourBoxesToTheSurface) {
    add();
    h->resize(u"m", 4000, 2000);
    for (int i = 0; i < 4; ++i) {
        EXPECT_NEAR(box(i).width(), 4000, 15);
        EXPECT_NEAR(box(i).height(), 2000, 15);
    }
}

TEST_P(MemoBoxTest, shouldRaiseChangeOnceWhenLoadingANonEmptyDefault) {
    MemoryBag bag({{u"DefaultValue", Variant(u"hello")}});
    load(bag);
    auto names = corvex::testing::eventNames(h->events(u"m"));
    EXPECT_EQ(std::count(names.begin(), names.end(), u"Change"), 1);
    MemoryBag empty;
    load(empty, u"e");
    names = corvex::testing::eventNames(h->events(u"e"));
    EXPECT_EQ(std::count(names.begin(), names.end(), u"Change"), 0) << "nothing changed";
}

TEST_P(MemoBoxTest, shouldReplaceTheSelectionOnceAndLetTheOtherBoxesFollow) {
    MemoBox& m = add();
    m.setText(u"ab");
    m.setSelStart(1);
    h->clearRecords(u"m");
    m.setSelText(u"X");
    for (int i = 0; i < 4; ++i) EXPECT_EQ(box(i).text(), u"aXb") << "box " << i;
    EXPECT_EQ(m.text(), u"aXb");
    const auto names = corvex::testing::eventNames(h->events(u"m"));
    EXPECT_EQ(std::count(names.begin(), names.end(), u"Change"), 1);
    EXPECT_EQ(h->changes(u"m"), std::vector<std::u16string>{u"SelText"});
}

TEST_P(MemoBoxTest, shouldReplaceTheSelectionOfTheVisibleBox) {
    MemoBox& m = add();
    m.setText(u"abcd");
    m.setScrollBars(ScrollBarsMode::barVertical);
    m.setSelStart(1);
    m.setSelLength(2);
    m.setSelText(u"-");
    for (int i = 0; i < 4; ++i) EXPECT_EQ(box(i).text(), u"a-d") << "box " << i;
}

TEST_P(MemoBoxTest, shouldTakeCanPropertyChangeArgumentAsAStringByReference) {
    MemoBox& m = add();
    Variant args[] = {Variant(std::int16_t{5})};
    EXPECT_EQ(invoke(m, u"CanPropertyChange", CallKind::Method, args), Variant(false));
    EXPECT_EQ(args[0], Variant(u"5")) << "the caller's argument is passed as a String";
}

TEST_P(MemoBoxTest, shouldSignalEachLetUnderItsName) {
    h->setUserMode(false);
    MemoBox& m = add();
    h->clearRecords(u"m");
    m.setBackColor(1);
    m.setDefaultValue(u"d");
    m.setEnabled(true);
    m.setFont(m.font());
    m.setForeColor(2);
    m.setImeMode(CorvexIMEMode::IMEON);
    m.setKeyName(u"k");
    m.setScrollBars(ScrollBarsMode::barBoth);
    m.setSectionName(u"s");
    m.setSelLength(0);
    m.setSelStart(0);
    m.setSelText(u"");
    m.setText(u"t");
    m.setValue(u"v");
    EXPECT_EQ(h->changes(u"m"),
              (std::vector<std::u16string>{u"BackColor", u"DefaultValue", u"Value", u"Text",
                                           u"Enabled", u"Font", u"ForeColor", u"IMEMode",
                                           u"KeyName", u"ScrollBars", u"SectionName", u"SelLength",
                                           u"SelStart", u"SelText", u"Text", u"Value", u"Text"}));
}

TEST_P(MemoBoxTest, shouldSaveNothingWhenNew) {
    MemoBox& m = add();
    MemoryBag bag;
    m.writeProperties(bag);
    EXPECT_TRUE(bag.entries().empty());
}

TEST_P(MemoBoxTest, shouldRefuseDefaultValueByNameAtRunTimeWith382) {
    MemoBox& m = add();
    m.setText(u"kept");
    h->clearRecords(u"m");
    try {
        letProperty(m, u"DefaultValue", Variant(u"x"));
        FAIL() << "expected 382";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 382);
    }
    EXPECT_EQ(m.text(), u"kept");
    EXPECT_TRUE(h->changes(u"m").empty());
}

TEST_P(MemoBoxTest, shouldInsertLineBreaksOnEnter) {
    MemoBox& m = add();
    h->click(u"m", u"txtMemo", 0);
    h->typeText(u"m", u"a\rb");
    EXPECT_EQ(m.text(), u"a\r\nb");
}

INSTANTIATE_TEST_SUITE_P(Hosts, MemoBoxTest,
                         ::testing::ValuesIn(corvex::testing::availableHarnesses()),
                         corvex::testing::harnessName);

}  // namespace
