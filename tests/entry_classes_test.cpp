// The class tables of the text-entry controls, and what only the headless host can show.
#include <gtest/gtest.h>

#include "corvex/common/text.h"
#include "corvex/entry/memo_box.h"
#include "corvex/entry/num_input_box.h"
#include "corvex/library/class_table.h"
#include "corvex/library/memory_bag.h"
#include "support/headless_fixture.h"

using namespace corvex;
using corvex::testing::HeadlessTest;

namespace {

std::vector<std::u16string> memberNames(const ClassInfo& c) {
    std::vector<std::u16string> names;
    for (const auto& m : c.members()) names.push_back(m.name);
    return names;
}

std::vector<std::pair<std::u16string, int>> eventNumbers(const ClassInfo& c) {
    std::vector<std::pair<std::u16string, int>> out;
    for (const auto& e : c.events()) out.emplace_back(e.name, e.dispId);
    return out;
}

const std::vector<std::pair<std::u16string, int>> kTextEvents = {
    {u"Change", 1},   {u"Click", 2},           {u"DblClick", 3},        {u"KeyDown", 4},
    {u"KeyPress", 5}, {u"KeyUp", 6},           {u"MouseDown", 7},       {u"MouseMove", 8},
    {u"MouseUp", 9},  {u"InitProperties", 10}, {u"ReadProperties", 11}, {u"WriteProperties", 12}};

TEST(EntryClasses, shouldGiveNumInputBoxRTheSameMembersAndEventsUnderItsOwnName) {
    const ClassInfo& a = NumInputBox::staticClassInfo();
    const ClassInfo& b = NumInputBoxR::staticClassInfo();
    EXPECT_NE(&a, &b);
    EXPECT_EQ(b.name(), u"NumInputBoxR");
    EXPECT_EQ(memberNames(a), memberNames(b));
    for (std::size_t i = 0; i < a.members().size(); ++i) {
        EXPECT_EQ(a.members()[i].type, b.members()[i].type) << toUtf8(a.members()[i].name);
    }
    EXPECT_EQ(eventNumbers(a), kTextEvents);
    EXPECT_EQ(eventNumbers(b), kTextEvents);
    EXPECT_EQ(a.event(u"Resize"), nullptr) << "no Resize event";
}

TEST(EntryClasses, shouldMakeErrFlagAndTheReadersReadOnly) {
    for (const char16_t* name : {u"ErrFlag", u"ValInt", u"ValLng", u"ValSng", u"ValDbl"}) {
        const MemberInfo* m = NumInputBox::staticClassInfo().member(name);
        ASSERT_NE(m, nullptr);
        EXPECT_FALSE(static_cast<bool>(m->let)) << toUtf8(name);
    }
}

TEST(EntryClasses, shouldNumberMemoBoxEventsAndPassCanPropertyChangeByReference) {
    EXPECT_EQ(eventNumbers(MemoBox::staticClassInfo()), kTextEvents);
    EXPECT_TRUE(MemoBox::staticClassInfo().member(u"CanPropertyChange")->params[0].byRef);
}

TEST(EntryClasses, shouldPublishTheThreeClasses) {
    EXPECT_EQ(findClass(u"NumInputBox"), &NumInputBox::staticClassInfo());
    EXPECT_EQ(findClass(u"NumInputBoxR"), &NumInputBoxR::staticClassInfo());
    EXPECT_EQ(findClass(u"MemoBox"), &MemoBox::staticClassInfo());
}

TEST_F(HeadlessTest, shouldAlignNumInputBoxRRightAndNumInputBoxLeft) {
    h.add(NumInputBox::staticClassInfo(), u"l");
    h.add(NumInputBoxR::staticClassInfo(), u"r");
    auto* l = dynamic_cast<headless::HeadlessTextBox*>(h.site(u"l").widget(u"txtInput"));
    auto* r = dynamic_cast<headless::HeadlessTextBox*>(h.site(u"r").widget(u"txtInput"));
    ASSERT_TRUE(l && r);
    EXPECT_EQ(l->alignment(), 0);
    EXPECT_EQ(r->alignment(), 1);
}

TEST_F(HeadlessTest, shouldStartTheNumericBoxWithTheInputMethodDisabled) {
    auto& n = static_cast<NumInputBox&>(h.add(NumInputBox::staticClassInfo(), u"n"));
    EXPECT_EQ(n.imeMode(), CorvexIMEMode::IMEDisable);
}

TEST_F(HeadlessTest, shouldGiveMemoBoxFourMultiLineBoxesWithTheirOwnScrollBars) {
    h.add(MemoBox::staticClassInfo(), u"m");
    for (std::int16_t i = 0; i < 4; ++i) {
        auto* b = dynamic_cast<headless::HeadlessTextBox*>(h.site(u"m").widget(u"txtMemo", i));
        ASSERT_NE(b, nullptr);
        EXPECT_TRUE(b->multiLine());
        EXPECT_EQ(b->scrollBars(), i);
    }
}

TEST_F(HeadlessTest, shouldRefreshAfterTheColourAndFontLetsOnly) {
    auto& n = static_cast<NumInputBox&>(h.add(NumInputBox::staticClassInfo(), u"n"));
    int& count = h.site(u"n").refreshCount;
    count = 0;
    n.setBackColor(1);
    EXPECT_EQ(count, 1) << "BackColor";
    n.setForeColor(2);
    EXPECT_EQ(count, 2) << "ForeColor";
    n.setFont(n.font());
    EXPECT_EQ(count, 3) << "Font";
    n.setEnabled(false);
    n.setKeyName(u"k");
    n.setMustEnterColor(5);
    EXPECT_EQ(count, 3) << "other lets repaint nothing";
}

TEST_F(HeadlessTest, shouldRefreshWhenRecolouringForMustEnterOnEveryTextChange) {
    auto& n = static_cast<NumInputBox&>(h.add(NumInputBox::staticClassInfo(), u"n"));
    int& count = h.site(u"n").refreshCount;
    n.setText(u"1");  // MustEnter off: the recolouring step still repaints
    count = 0;
    n.setText(u"2");
    EXPECT_EQ(count, 1);
    n.setMustEnter(true);
    h.site(u"n").clearRecords();
    n.setText(u"");
    EXPECT_EQ(count, 2);
    EXPECT_EQ(n.backColor(), color::Red);
    EXPECT_EQ(h.site(u"n").changes, (std::vector<std::u16string>{u"BackColor", u"Text"}));
}

TEST_F(HeadlessTest, shouldRefreshAtTheEndOfLoading) {
    MemoryBag bag({{u"DefaultValue", Variant(u"5")}});
    h.setUserMode(false);
    h.load(NumInputBox::staticClassInfo(), u"n", bag);
    // The font set, the recolouring of the default's Change and the final step each ask.
    EXPECT_EQ(h.site(u"n").refreshCount, 3);
    MemoryBag empty;
    h.load(NumInputBox::staticClassInfo(), u"e", empty);
    EXPECT_EQ(h.site(u"e").refreshCount, 2) << "no Change without a default";
}

TEST_F(HeadlessTest, shouldGiveTheApplicationTitleAsTheSourceOfReaderErrors) {
    h.host().setTitle(u"Ledger");
    auto& n = static_cast<NumInputBox&>(h.add(NumInputBox::staticClassInfo(), u"n"));
    n.setText(u"40000");
    try {
        n.valInt();
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.source(), u"Ledger");
    }
}

TEST_F(HeadlessTest, shouldReportTheFocusTakenBackToTheObserver) {
    struct Watcher : headless::HostObserver {
        std::vector<std::u16string> taken;
        void focusTaken(headless::Site& s) override { taken.push_back(s.name()); }
    } watcher;
    h.host().setObserver(&watcher);
    auto& n = static_cast<NumInputBox&>(h.add(NumInputBox::staticClassInfo(), u"n"));
    n.setLimitCheck(true);
    n.setUpperLimit(1);
    h.site(u"n").widget(u"txtInput")->click();
    h.typeText(u"n", u"5");
    h.form().focus(nullptr);
    EXPECT_EQ(watcher.taken, std::vector<std::u16string>{u"n"});
    h.host().setObserver(nullptr);
}

}  // namespace
