// The headless host's widgets behave like real ones where controls depend on it.
#include <gtest/gtest.h>

#include "corvex/common/boolean_box.h"
#include "corvex/library/memory_bag.h"
#include "support/headless_fixture.h"

using namespace corvex;
using corvex::testing::HeadlessTest;

namespace {

// Records what a widget reports, and can swallow or replace typed characters.
struct Recorder : WidgetListener {
    std::vector<WidgetEventType> seen;
    std::function<void(WidgetEvent&)> onEvent;
    void widgetEvent(Widget&, WidgetEvent& e) override {
        seen.push_back(e.type);
        if (onEvent) onEvent(e);
    }
    int count(WidgetEventType t) const {
        return static_cast<int>(std::count(seen.begin(), seen.end(), t));
    }
};

class HeadlessTextBoxTest : public HeadlessTest {
protected:
    void SetUp() override {
        h.add(BooleanBox::staticClassInfo(), u"host");
        TextBoxSpec spec;
        spec.name = u"txtInput";
        spec.listener = &rec;
        box.reset(
            static_cast<headless::HeadlessTextBox*>(h.site(u"host").createTextBox(spec).release()));
    }
    void type(std::u16string_view text) {
        for (char16_t c : text) box->type(c);
    }
    Recorder rec;
    std::unique_ptr<headless::HeadlessTextBox> box;
};

TEST_F(HeadlessTextBoxTest, shouldInsertTypedTextAtTheCaret) {
    type(u"15");
    box->setSelStart(1);
    type(u".");
    EXPECT_EQ(box->text(), u"1.5");
    EXPECT_EQ(box->selStart(), 2);
}

TEST_F(HeadlessTextBoxTest, shouldReplaceTheSelectionWhenTyping) {
    type(u"12345");
    box->setSelStart(1);
    box->setSelLength(3);
    type(u"x");
    EXPECT_EQ(box->text(), u"1x5");
}

TEST_F(HeadlessTextBoxTest, shouldRefuseCharactersBeyondMaxLength) {
    box->setMaxLength(3);
    type(u"1234");
    EXPECT_EQ(box->text(), u"123");
    box->setSelStart(0);
    box->setSelLength(1);
    type(u"9");
    EXPECT_EQ(box->text(), u"923") << "replacing a selection fits";
}

TEST_F(HeadlessTextBoxTest, shouldNotLimitTextSetByCode) {
    box->setMaxLength(3);
    box->setText(u"12345");
    EXPECT_EQ(box->text(), u"12345");
    box->setMaxLength(2);
    EXPECT_EQ(box->text(), u"12345") << "lowering MaxLength keeps the text";
    box->setSelStart(5);
    type(u"6");
    EXPECT_EQ(box->text(), u"12345") << "but nothing more can be typed";
}

TEST_F(HeadlessTextBoxTest, shouldCutFromATextLongerThanMaxLength) {
    box->setText(u"12345");
    box->setMaxLength(3);
    box->setSelStart(3);
    box->setSelLength(2);
    box->pressKey('X', key::CtrlMask);
    EXPECT_EQ(box->text(), u"123") << "deleting never needs room";
    EXPECT_EQ(h.host().text(), u"45");
}

TEST_F(HeadlessTextBoxTest, shouldNotInsertHalfALineBreak) {
    TextBoxSpec spec;
    spec.name = u"txtMemo";
    spec.multiLine = true;
    spec.listener = &rec;
    auto memo = h.site(u"host").createTextBox(spec);
    auto& m = static_cast<headless::HeadlessTextBox&>(*memo);
    m.setMaxLength(4);
    for (char16_t c : std::u16string(u"abc\r")) m.type(c);
    EXPECT_EQ(m.text(), u"abc");
}

TEST_F(HeadlessTextBoxTest, shouldCountUtf16CodeUnitsForMaxLength) {
    box->setMaxLength(2);
    box->setSelText(u"\U0001F600x");  // a surrogate pair fills both units
    EXPECT_EQ(box->text(), u"\U0001F600");
    EXPECT_EQ(box->text().size(), 2u);
}

TEST_F(HeadlessTextBoxTest, shouldRaiseChangeOnEveryTextChangeIncludingByCode) {
    type(u"ab");
    EXPECT_EQ(rec.count(WidgetEventType::Change), 2);
    box->setText(u"code");
    EXPECT_EQ(rec.count(WidgetEventType::Change), 3);
    box->setText(u"code");
    EXPECT_EQ(rec.count(WidgetEventType::Change), 3) << "no change, no Change";
}

TEST_F(HeadlessTextBoxTest, shouldRaiseKeyDownKeyPressChangeKeyUpInOrder) {
    type(u"a");
    EXPECT_EQ(rec.seen,
              (std::vector<WidgetEventType>{WidgetEventType::KeyDown, WidgetEventType::KeyPress,
                                            WidgetEventType::Change, WidgetEventType::KeyUp}));
}

TEST_F(HeadlessTextBoxTest, shouldInsertNothingForASwallowedKeyAndTheReplacementForAReplacedOne) {
    rec.onEvent = [](WidgetEvent& e) {
        if (e.type == WidgetEventType::KeyPress && e.keyAscii == u'x') e.keyAscii = 0;
        if (e.type == WidgetEventType::KeyPress && e.keyAscii == u'a') e.keyAscii = u'A';
    };
    type(u"xa");
    EXPECT_EQ(box->text(), u"A");
}

TEST_F(HeadlessTextBoxTest, shouldDeleteBeforeTheCaretOnBackspace) {
    type(u"123");
    box->setSelStart(2);
    type(u"\b");
    EXPECT_EQ(box->text(), u"13");
    box->setSelStart(0);
    type(u"\b");
    EXPECT_EQ(box->text(), u"13");
}

TEST_F(HeadlessTextBoxTest, shouldInsertNothingForEnterInASingleLineBox) {
    type(u"1\r");
    EXPECT_EQ(box->text(), u"1");
}

TEST_F(HeadlessTextBoxTest, shouldCutAndPasteByItselfWithNativeClipboardKeys) {
    h.host().setText(u"pasted");
    box->pressKey(86, key::CtrlMask);
    EXPECT_EQ(box->text(), u"pasted");
    EXPECT_EQ(rec.count(WidgetEventType::KeyDown), 1);
    EXPECT_EQ(rec.count(WidgetEventType::KeyPress), 0);
    box->setSelStart(0);
    box->setSelLength(3);
    box->pressKey(88, key::CtrlMask);
    EXPECT_EQ(box->text(), u"ted");
    EXPECT_EQ(h.host().text(), u"pas");
}

TEST_F(HeadlessTextBoxTest, shouldLeaveClipboardKeysToAHandlerThatZeroesTheKeyCode) {
    rec.onEvent = [](WidgetEvent& e) {
        if (e.type == WidgetEventType::KeyDown) e.keyCode = 0;
    };
    h.host().setText(u"pasted");
    box->pressKey(86, key::CtrlMask);
    EXPECT_EQ(box->text(), u"");
}

TEST_F(HeadlessTest, shouldNotPasteWhenNativeClipboardKeysAreOff) {
    h.add(BooleanBox::staticClassInfo(), u"host");
    TextBoxSpec spec;
    spec.name = u"txtInput";
    spec.nativeClipboard = false;
    auto box = h.site(u"host").createTextBox(spec);
    h.host().setText(u"pasted");
    static_cast<headless::HeadlessTextBox&>(*box).pressKey(86, key::CtrlMask);
    EXPECT_EQ(box->text(), u"") << "the control handles the clipboard keys itself";
}

TEST_F(HeadlessTextBoxTest, shouldClampTheSelectionToTheText) {
    type(u"abc");
    box->setSelStart(10);
    EXPECT_EQ(box->selStart(), 3);
    box->setSelStart(1);
    box->setSelLength(10);
    EXPECT_EQ(box->selLength(), 2);
    EXPECT_EQ(box->selText(), u"bc");
}

TEST_F(HeadlessTextBoxTest, shouldReportFocusAndLostFocus) {
    h.form().focus(box.get());
    h.form().focus(nullptr);
    EXPECT_EQ(rec.count(WidgetEventType::GotFocus), 1);
    EXPECT_EQ(rec.count(WidgetEventType::LostFocus), 1);
}

TEST_F(HeadlessTest, shouldNotBounceTheFocusBetweenTwoBoxesThatBothKeepIt) {
    h.add(BooleanBox::staticClassInfo(), u"host");
    Recorder a, b;
    TextBoxSpec spec;
    spec.name = u"a";
    spec.listener = &a;
    auto boxA = h.site(u"host").createTextBox(spec);
    spec.name = u"b";
    spec.listener = &b;
    auto boxB = h.site(u"host").createTextBox(spec);
    a.onEvent = [&](WidgetEvent& e) {
        if (e.type == WidgetEventType::LostFocus) boxA->setFocus();
    };
    b.onEvent = [&](WidgetEvent& e) {
        if (e.type == WidgetEventType::LostFocus) boxB->setFocus();
    };
    h.form().focus(dynamic_cast<headless::HeadlessWidget*>(boxA.get()));
    h.form().focus(dynamic_cast<headless::HeadlessWidget*>(boxB.get()));
    EXPECT_TRUE(boxA->hasFocus());
    EXPECT_EQ(b.count(WidgetEventType::LostFocus), 0) << "b never had the focus";
    EXPECT_EQ(a.count(WidgetEventType::LostFocus), 1);
}

TEST_F(HeadlessTextBoxTest, shouldLetALostFocusHandlerTakeTheFocusBack) {
    rec.onEvent = [this](WidgetEvent& e) {
        if (e.type == WidgetEventType::LostFocus) box->setFocus();
    };
    h.form().focus(box.get());
    h.form().focus(nullptr);
    EXPECT_TRUE(box->hasFocus());
}

TEST_F(HeadlessTest, shouldHoldAnyCheckStateInTheCheckBox) {
    h.add(BooleanBox::staticClassInfo(), u"b");
    auto* chk = dynamic_cast<headless::HeadlessCheckBox*>(h.site(u"b").widget(u"chkBooleanBox"));
    ASSERT_NE(chk, nullptr);
    for (std::int16_t v : {0, 1, 2}) {
        chk->setValue(v);
        EXPECT_EQ(chk->value(), v);
    }
    chk->click();
    EXPECT_EQ(chk->value(), 1) << "a click on a grayed box checks it";
}

TEST_F(HeadlessTest, shouldToggleTheCheckBoxWithTheSpaceBar) {
    auto& b = static_cast<BooleanBox&>(h.add(BooleanBox::staticClassInfo(), u"b"));
    h.site(u"b").keyTarget()->type(u' ');
    EXPECT_EQ(b.value(), Boolean(true));
}

TEST_F(HeadlessTest, shouldAnswerMessageBoxesInQueueOrderThenOk) {
    h.host().queueAnswer(7);
    h.host().queueAnswer(6);
    MessageBoxRequest r;
    r.text = u"?";
    EXPECT_EQ(h.host().messageBox(r), 7);
    EXPECT_EQ(h.host().messageBox(r), 6);
    EXPECT_EQ(h.host().messageBox(r), 1);
    EXPECT_EQ(h.host().messageBoxes().size(), 3u);
}

TEST_F(HeadlessTest, shouldKeepControlsInCreationOrder) {
    h.add(BooleanBox::staticClassInfo(), u"first");
    h.add(BooleanBox::staticClassInfo(), u"second");
    auto controls = h.form().controls();
    ASSERT_EQ(controls.size(), 2u);
    EXPECT_EQ(controls[0].get(), &h.site(u"first").control());
    EXPECT_EQ(controls[1].get(), &h.site(u"second").control());
}

TEST_F(HeadlessTest, shouldRefuseASecondControlOfTheSameName) {
    h.add(BooleanBox::staticClassInfo(), u"b");
    EXPECT_THROW(h.add(BooleanBox::staticClassInfo(), u"b"), Error);
}

TEST_F(HeadlessTest, shouldDropAControlThatFailsToLoad) {
    MemoryBag bag({{u"Enabled", Variant(u"perhaps")}});
    EXPECT_THROW(h.load(BooleanBox::staticClassInfo(), u"b", bag), Error);
    EXPECT_EQ(h.form().find(u"b"), nullptr);
}

TEST_F(HeadlessTest, shouldConvertBetweenScaleModes) {
    h.add(BooleanBox::staticClassInfo(), u"b");
    headless::Site& s = h.site(u"b");
    EXPECT_FLOAT_EQ(s.scaleX(10, ScaleMode::Pixels, ScaleMode::Twips), 150);
    EXPECT_FLOAT_EQ(s.scaleX(1, ScaleMode::Inches, ScaleMode::Points), 72);
    EXPECT_FLOAT_EQ(s.scaleY(1, ScaleMode::Characters, ScaleMode::Twips), 240);
    EXPECT_FLOAT_EQ(s.scaleX(1, ScaleMode::Characters, ScaleMode::Twips), 120);
    s.setScaleMode(ScaleMode::Pixels);
    s.resizeTo(1500, 300);
    EXPECT_FLOAT_EQ(s.scaleWidth(), 100);
    EXPECT_FLOAT_EQ(s.scaleHeight(), 20);
}

TEST(MemoryBag, shouldReadWithTheDefaultWhenAbsent) {
    MemoryBag bag;
    EXPECT_EQ(bag.read(u"X", Variant(std::int16_t{3})), Variant(std::int16_t{3}));
}

TEST(MemoryBag, shouldNotStoreAValueEqualToItsDefault) {
    MemoryBag bag;
    bag.write(u"A", Variant(std::int32_t{0}), Variant(std::int16_t{0}));
    bag.write(u"B", Variant(u""), Variant(u""));
    EXPECT_TRUE(bag.entries().empty());
}

TEST(MemoryBag, shouldMatchNamesWithoutRegardToCase) {
    MemoryBag bag;
    bag.write(u"ScrollBars", Variant(std::int32_t{2}), Variant(std::int32_t{0}));
    EXPECT_EQ(bag.read(u"Scrollbars", Variant(std::int32_t{0})), Variant(std::int32_t{2}));
}

TEST(MemoryBag, shouldReplaceASecondWriteInPlaceAndLetADefaultRemoveIt) {
    MemoryBag bag;
    bag.write(u"OptionLeft", Variant(std::int32_t{500}), Variant(std::int32_t{120}));
    bag.write(u"Other", Variant(u"x"), Variant(u""));
    bag.write(u"OptionLeft", Variant(std::int32_t{600}), Variant(std::int32_t{120}));
    ASSERT_EQ(bag.entries().size(), 2u);
    EXPECT_EQ(bag.entries()[0].second, Variant(std::int32_t{600}));
    bag.write(u"OptionLeft", Variant(std::int32_t{120}), Variant(std::int32_t{120}));
    ASSERT_EQ(bag.entries().size(), 1u);
    EXPECT_EQ(bag.entries()[0].first, u"Other");
}

}  // namespace
