// The text box every host gives the controls, as the controls see it: typing through
// KeyPress, Change, MaxLength, the selection, line breaks and the clipboard keys. One
// suite, run on every host the test program offers.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "corvex/common/boolean_box.h"
#include "corvex/entry/memo_box.h"
#include "support/harness.h"

using namespace corvex;
using corvex::testing::Harness;
using corvex::testing::HarnessMaker;

namespace {

// Records what a widget reports; handler may swallow or replace typed characters.
struct Recorder : WidgetListener {
    void widgetEvent(Widget&, WidgetEvent& e) override {
        if (handler) handler(e);
        events.push_back(e);
    }
    std::vector<WidgetEventType> types() const {
        std::vector<WidgetEventType> out;
        for (const auto& e : events) out.push_back(e.type);
        return out;
    }
    std::vector<WidgetEvent> ofType(WidgetEventType t) const {
        std::vector<WidgetEvent> out;
        std::copy_if(events.begin(), events.end(), std::back_inserter(out),
                     [t](const WidgetEvent& e) { return e.type == t; });
        return out;
    }
    int count(WidgetEventType t) const { return static_cast<int>(ofType(t).size()); }
    std::vector<WidgetEvent> events;
    std::function<void(WidgetEvent&)> handler;
};

class TextBoxContract : public ::testing::TestWithParam<HarnessMaker> {
protected:
    void SetUp() override {
        h = GetParam().make();
        h->add(BooleanBox::staticClassInfo(), u"host");
        box = make(false);
    }
    std::unique_ptr<TextBox> make(bool multiLine, bool nativeClipboard = true) {
        TextBoxSpec spec;
        spec.name = multiLine ? u"txtMemo" : u"txtInput";
        spec.multiLine = multiLine;
        spec.nativeClipboard = nativeClipboard;
        spec.listener = &rec;
        spec.width = 3000;
        spec.height = multiLine ? 1200 : 360;
        return h->widgets(u"host").createTextBox(spec);
    }
    void type(const std::u16string& text) { h->typeInto(*box, text); }
    void type(TextBox& target, const std::u16string& text) { h->typeInto(target, text); }

    std::unique_ptr<Harness> h;
    Recorder rec;
    std::unique_ptr<TextBox> box;
};

// --- typing -------------------------------------------------------------------------------

TEST_P(TextBoxContract, shouldInsertTypedTextAtTheCaret) {
    type(u"15");
    box->setSelStart(1);
    type(u".");
    EXPECT_EQ(box->text(), u"1.5");
    EXPECT_EQ(box->selStart(), 2);
}

TEST_P(TextBoxContract, shouldReplaceTheSelectionWhenTyping) {
    type(u"12345");
    box->setSelStart(1);
    box->setSelLength(3);
    type(u"x");
    EXPECT_EQ(box->text(), u"1x5");
}

TEST_P(TextBoxContract, shouldRaiseKeyDownKeyPressChangeKeyUpInOrder) {
    type(u"a");
    EXPECT_EQ(rec.types(),
              (std::vector<WidgetEventType>{WidgetEventType::KeyDown, WidgetEventType::KeyPress,
                                            WidgetEventType::Change, WidgetEventType::KeyUp}));
}

TEST_P(TextBoxContract, shouldReportTheKeyCodesAndCharactersTyped) {
    type(u"abc");
    const auto downs = rec.ofType(WidgetEventType::KeyDown);
    const auto presses = rec.ofType(WidgetEventType::KeyPress);
    const auto ups = rec.ofType(WidgetEventType::KeyUp);
    ASSERT_EQ(downs.size(), 3u);
    ASSERT_EQ(presses.size(), 3u);
    ASSERT_EQ(ups.size(), 3u);
    EXPECT_EQ(downs[0].keyCode, 65);
    EXPECT_EQ(downs[2].keyCode, 67);
    EXPECT_EQ(presses[1].keyAscii, u'b');
    EXPECT_EQ(ups[1].keyCode, 66);
    EXPECT_EQ(rec.count(WidgetEventType::Change), 3);
}

TEST_P(TextBoxContract, shouldInsertNothingForASwallowedKeyAndTheReplacementForAReplacedOne) {
    rec.handler = [](WidgetEvent& e) {
        if (e.type != WidgetEventType::KeyPress) return;
        if (e.keyAscii == u'x') e.keyAscii = 0;
        if (e.keyAscii == u'a') e.keyAscii = u'A';
        if (e.keyAscii == u'k') e.keyAscii = static_cast<std::int16_t>(u'か');
    };
    type(u"xak");
    EXPECT_EQ(box->text(), u"Aか");
    EXPECT_EQ(rec.count(WidgetEventType::Change), 2);
}

TEST_P(TextBoxContract, shouldDeleteBeforeTheCaretOnBackspace) {
    type(u"123");
    box->setSelStart(2);
    type(u"\b");
    EXPECT_EQ(box->text(), u"13");
    box->setSelStart(0);
    type(u"\b");
    EXPECT_EQ(box->text(), u"13");
}

TEST_P(TextBoxContract, shouldDeleteWhenAKeyPressHandlerReplacesTheKeyByBackspace) {
    rec.handler = [](WidgetEvent& e) {
        if (e.type == WidgetEventType::KeyPress && e.keyAscii == u'x') e.keyAscii = 8;
    };
    type(u"abx");
    EXPECT_EQ(box->text(), u"a");
}

TEST_P(TextBoxContract, shouldInsertNothingForEnterInASingleLineBox) {
    type(u"1\r");
    EXPECT_EQ(box->text(), u"1");
}

TEST_P(TextBoxContract, shouldTypeNothingWhileLockedButAcceptCode) {
    box->setLocked(true);
    type(u"abc");
    EXPECT_EQ(box->text(), u"");
    EXPECT_TRUE(box->locked());
    box->setText(u"by code");
    EXPECT_EQ(box->text(), u"by code");
}

// --- MaxLength ---------------------------------------------------------------------------

TEST_P(TextBoxContract, shouldRefuseCharactersBeyondMaxLength) {
    box->setMaxLength(3);
    type(u"1234");
    EXPECT_EQ(box->text(), u"123");
    box->setSelStart(0);
    box->setSelLength(1);
    type(u"9");
    EXPECT_EQ(box->text(), u"923") << "replacing a selection fits";
}

TEST_P(TextBoxContract, shouldNotLimitTextSetByCode) {
    box->setMaxLength(3);
    box->setText(u"12345");
    EXPECT_EQ(box->text(), u"12345");
    box->setMaxLength(2);
    EXPECT_EQ(box->text(), u"12345") << "lowering MaxLength keeps the text";
    box->setSelStart(5);
    type(u"6");
    EXPECT_EQ(box->text(), u"12345") << "but nothing more can be typed";
}

TEST_P(TextBoxContract, shouldCutSelTextToMaxLength) {
    box->setText(u"abc");
    box->setMaxLength(5);
    box->setSelStart(1);
    box->setSelText(u"XYZW");
    EXPECT_EQ(box->text(), u"aXYbc");
    EXPECT_EQ(box->selStart(), 3);
}

TEST_P(TextBoxContract, shouldCountUtf16CodeUnitsForMaxLength) {
    box->setMaxLength(2);
    box->setSelText(u"\U0001F600x");  // a surrogate pair fills both units
    EXPECT_EQ(box->text(), u"\U0001F600");
    EXPECT_EQ(box->text().size(), 2u);
}

TEST_P(TextBoxContract, shouldNeverLeaveHalfASurrogatePairWhenCutting) {
    box->setMaxLength(2);
    box->setSelText(u"a\U0001F600");
    EXPECT_EQ(box->text(), u"a");
}

TEST_P(TextBoxContract, shouldCutPastedTextToMaxLength) {
    h->setClipboardText(u"12345678");
    box->setMaxLength(4);
    type(u"a");
    h->pressKeyOn(*box, 'V', key::CtrlMask);
    EXPECT_EQ(box->text(), u"a123");
}

// --- text set by code and Change ------------------------------------------------------------

TEST_P(TextBoxContract, shouldRaiseChangeOnlyWhenTextSetByCodeDiffers) {
    type(u"ab");
    EXPECT_EQ(rec.count(WidgetEventType::Change), 2);
    box->setText(u"code");
    EXPECT_EQ(rec.count(WidgetEventType::Change), 3);
    EXPECT_EQ(box->selStart(), 0) << "the caret goes to the start";
    box->setText(u"code");
    EXPECT_EQ(rec.count(WidgetEventType::Change), 3) << "no change, no Change";
}

TEST_P(TextBoxContract, shouldSelectWithSelStartAndSelLengthClampedToTheText) {
    box->setText(u"Corvex");
    box->setSelStart(10);
    EXPECT_EQ(box->selStart(), 6);
    box->setSelStart(2);
    box->setSelLength(10);
    EXPECT_EQ(box->selStart(), 2);
    EXPECT_EQ(box->selLength(), 4);
    EXPECT_EQ(box->selText(), u"rvex");
}

// --- the clipboard keys ----------------------------------------------------------------------

TEST_P(TextBoxContract, shouldCutAndPasteByItselfWithNativeClipboardKeys) {
    h->setClipboardText(u"pasted");
    h->pressKeyOn(*box, 'V', key::CtrlMask);
    EXPECT_EQ(box->text(), u"pasted");
    box->setSelStart(0);
    box->setSelLength(3);
    h->pressKeyOn(*box, 'X', key::CtrlMask);
    EXPECT_EQ(box->text(), u"ted");
    EXPECT_EQ(h->clipboardText(), u"pas");
}

TEST_P(TextBoxContract, shouldCutFromATextLongerThanMaxLength) {
    box->setText(u"12345");
    box->setMaxLength(3);
    box->setSelStart(3);
    box->setSelLength(2);
    h->pressKeyOn(*box, 'X', key::CtrlMask);
    EXPECT_EQ(box->text(), u"123") << "deleting never needs room";
    EXPECT_EQ(h->clipboardText(), u"45");
}

TEST_P(TextBoxContract, shouldLeaveClipboardKeysToAHandlerThatZeroesTheKeyCode) {
    rec.handler = [](WidgetEvent& e) {
        if (e.type == WidgetEventType::KeyDown) e.keyCode = 0;
    };
    h->setClipboardText(u"pasted");
    h->pressKeyOn(*box, 'V', key::CtrlMask);
    EXPECT_EQ(box->text(), u"");
}

TEST_P(TextBoxContract, shouldReportCtrlVAsItsControlCharacterInKeyPress) {
    h->setClipboardText(u"pasted");
    h->pressKeyOn(*box, 'V', key::CtrlMask);
    const auto presses = rec.ofType(WidgetEventType::KeyPress);
    ASSERT_EQ(presses.size(), 1u);
    EXPECT_EQ(presses[0].keyAscii, 22);
    EXPECT_EQ(rec.types().front(), WidgetEventType::KeyDown);
    EXPECT_EQ(box->text(), u"pasted");
}

TEST_P(TextBoxContract, shouldNotPasteWhenAKeyPressHandlerSwallowsCtrlV) {
    rec.handler = [](WidgetEvent& e) {
        if (e.type == WidgetEventType::KeyPress) e.keyAscii = 0;
    };
    h->setClipboardText(u"pasted");
    h->pressKeyOn(*box, 'V', key::CtrlMask);
    EXPECT_EQ(box->text(), u"");
}

TEST_P(TextBoxContract, shouldTypeWhatAKeyPressHandlerMadeOfCtrlV) {
    rec.handler = [](WidgetEvent& e) {
        if (e.type == WidgetEventType::KeyPress) e.keyAscii = 'q';
    };
    h->setClipboardText(u"pasted");
    h->pressKeyOn(*box, 'V', key::CtrlMask);
    EXPECT_EQ(box->text(), u"q");
}

TEST_P(TextBoxContract, shouldPasteOnShiftInsertAndCutOnShiftDelete) {
    h->setClipboardText(u"pasted");
    h->pressKeyOn(*box, key::Insert, key::ShiftMask);
    EXPECT_EQ(box->text(), u"pasted");
    EXPECT_EQ(rec.count(WidgetEventType::KeyPress), 0) << "no character is typed";
    box->setSelStart(0);
    box->setSelLength(3);
    h->pressKeyOn(*box, key::Delete, key::ShiftMask);
    EXPECT_EQ(box->text(), u"ted");
    EXPECT_EQ(h->clipboardText(), u"pas");
}

TEST_P(TextBoxContract, shouldCopyOnCtrlInsert) {
    box->setText(u"Corvex");
    box->setSelStart(0);
    box->setSelLength(3);
    h->pressKeyOn(*box, key::Insert, key::CtrlMask);
    EXPECT_EQ(h->clipboardText(), u"Cor");
    EXPECT_EQ(box->text(), u"Corvex");
}

TEST_P(TextBoxContract, shouldNotPasteWhenNativeClipboardKeysAreOff) {
    box = make(false, false);
    h->setClipboardText(u"pasted");
    h->pressKeyOn(*box, 'V', key::CtrlMask);
    EXPECT_EQ(box->text(), u"") << "the control handles the clipboard keys itself";
}

// --- multi-line boxes --------------------------------------------------------------------------

TEST_P(TextBoxContract, shouldHoldCrLfForEveryLineBreakSetByCode) {
    box = make(true);
    box->setText(u"a\nb");
    EXPECT_EQ(box->text(), u"a\r\nb");
    EXPECT_EQ(box->text().size(), 4u);
    box->setText(u"a\rb\r\nc");
    EXPECT_EQ(box->text(), u"a\r\nb\r\nc");
}

TEST_P(TextBoxContract, shouldBreakTheLineWithCrLfOnEnter) {
    box = make(true);
    type(u"ab\rc");
    EXPECT_EQ(box->text(), u"ab\r\nc");
    EXPECT_EQ(box->selStart(), 5);
}

TEST_P(TextBoxContract, shouldNotInsertHalfALineBreak) {
    box = make(true);
    box->setMaxLength(4);
    type(u"abc\r");
    EXPECT_EQ(box->text(), u"abc");
}

TEST_P(TextBoxContract, shouldRemoveAWholeLineBreakOnBackspace) {
    box = make(true);
    box->setText(u"a\r\nb");
    box->setSelStart(3);
    type(u"\b");
    EXPECT_EQ(box->text(), u"ab");
}

TEST_P(TextBoxContract, shouldTakeALineBreakWholeInTheSelection) {
    box = make(true);
    box->setText(u"a\r\nb");
    box->setSelStart(2);
    EXPECT_EQ(box->selStart(), 1) << "never inside a line break";
    box->setSelLength(1);
    EXPECT_EQ(box->selLength(), 2);
    EXPECT_EQ(box->selText(), u"\r\n");
}

INSTANTIATE_TEST_SUITE_P(Hosts, TextBoxContract,
                         ::testing::ValuesIn(corvex::testing::availableHarnesses()),
                         corvex::testing::harnessName);

// --- through MemoBox ----------------------------------------------------------------------------

class MemoBoxLineBreaks : public ::testing::TestWithParam<HarnessMaker> {
protected:
    void SetUp() override { h = GetParam().make(); }
    std::unique_ptr<Harness> h;
};

TEST_P(MemoBoxLineBreaks, shouldGiveALineFeedSetByCodeTheLengthOfCrLf) {
    auto& m = static_cast<MemoBox&>(h->add(MemoBox::staticClassInfo(), u"m"));
    m.setText(u"a\nb");
    EXPECT_EQ(m.text(), u"a\r\nb");
    EXPECT_EQ(m.text().size(), 4u);
    for (std::int16_t i = 1; i < 4; ++i) {
        EXPECT_EQ(dynamic_cast<TextBox&>(h->widget(u"m", u"txtMemo", i)).text(), u"a\r\nb")
            << "box " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Hosts, MemoBoxLineBreaks,
                         ::testing::ValuesIn(corvex::testing::availableHarnesses()),
                         corvex::testing::harnessName);

}  // namespace
