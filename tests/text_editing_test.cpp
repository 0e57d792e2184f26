// The text-editing rules every host's text box follows.
#include "corvex/common/text_editing.h"

#include <gtest/gtest.h>

#include "corvex/platform/widgets.h"

using namespace corvex;

namespace {

TextEditModel boxWith(std::u16string_view text, std::int32_t maxLength = 0,
                      bool multiLine = false) {
    TextEditModel m(multiLine);
    m.setText(text);
    m.setMaxLength(maxLength);
    return m;
}

// --- canonical line breaks ------------------------------------------------------------

TEST(CanonicalLineBreaks, shouldTurnEveryKindOfLineBreakIntoCrLf) {
    EXPECT_EQ(canonicalLineBreaks(u"a\nb"), u"a\r\nb");
    EXPECT_EQ(canonicalLineBreaks(u"a\rb"), u"a\r\nb");
    EXPECT_EQ(canonicalLineBreaks(u"a\r\nb"), u"a\r\nb");
    EXPECT_EQ(canonicalLineBreaks(u"a\u2029b"), u"a\r\nb");
    EXPECT_EQ(canonicalLineBreaks(u"\n\r"), u"\r\n\r\n") << "LF then CR are two breaks";
    EXPECT_EQ(canonicalLineBreaks(u"\r\r\n"), u"\r\n\r\n");
    EXPECT_EQ(canonicalLineBreaks(u""), u"");
}

TEST(CanonicalLineBreaks, shouldGiveALoneLineFeedSetByCodeTheLengthOfCrLf) {
    TextEditModel memo(true);
    EXPECT_TRUE(memo.setText(u"a\nb"));
    EXPECT_EQ(memo.text(), u"a\r\nb");
    EXPECT_EQ(memo.text().size(), 4u);
}

TEST(CanonicalLineBreaks, shouldLeaveASingleLineBoxsTextAsGiven) {
    TextEditModel line(false);
    line.setText(u"a\nb");
    EXPECT_EQ(line.text(), u"a\nb");
}

// --- fitting an insertion to MaxLength ---------------------------------------------------

TEST(FitInsertion, shouldKeepWhatFits) {
    EXPECT_EQ(fitInsertion(u"abc", 5), u"abc");
    EXPECT_EQ(fitInsertion(u"abc", 3), u"abc");
}

TEST(FitInsertion, shouldCutWhatWouldNotFit) {
    EXPECT_EQ(fitInsertion(u"abcdef", 2), u"ab");
}

TEST(FitInsertion, shouldRefuseWholeWhenNothingFits) {
    EXPECT_EQ(fitInsertion(u"a", 0), std::nullopt);
    EXPECT_EQ(fitInsertion(u"abc", -4), std::nullopt);
}

TEST(FitInsertion, shouldAlwaysAllowInsertingNothing) {
    EXPECT_EQ(fitInsertion(u"", 0), u"");
    EXPECT_EQ(fitInsertion(u"", -2), u"") << "deleting a selection is always possible";
}

TEST(FitInsertion, shouldNeverLeaveHalfASurrogatePair) {
    const std::u16string pair = u"\U0001F600";
    EXPECT_EQ(fitInsertion(u"a" + pair, 2), u"a");
    EXPECT_EQ(fitInsertion(pair, 1), std::nullopt);
    EXPECT_EQ(fitInsertion(pair + pair, 3), pair);
}

TEST(FitInsertion, shouldNeverLeaveACarriageReturnWithoutItsLineFeed) {
    EXPECT_EQ(fitInsertion(u"a\r\nb", 2), u"a");
    EXPECT_EQ(fitInsertion(u"\r\n", 1), std::nullopt);
    EXPECT_EQ(fitInsertion(u"a\r\nb", 3), u"a\r\n");
}

// --- typed characters -----------------------------------------------------------------------

TEST(TypedEdit, shouldInsertAnOrdinaryCharacter) {
    const TypedEdit e = typedEdit(u'x', false);
    EXPECT_EQ(e.action, TypedAction::Insert);
    EXPECT_EQ(e.text, u"x");
}

TEST(TypedEdit, shouldBreakTheLineOnEnterOnlyWhenMultiLine) {
    EXPECT_EQ(typedEdit(u'\r', true).text, u"\r\n");
    EXPECT_EQ(typedEdit(u'\r', true).action, TypedAction::Insert);
    EXPECT_EQ(typedEdit(u'\r', false).action, TypedAction::Nothing);
}

TEST(TypedEdit, shouldInsertNothingForOtherControlCharacters) {
    for (char16_t c : {u'\0', u'\x01', u'\t', u'\n', u'\x1b', u'\x16', u'\x7f'}) {
        EXPECT_EQ(typedEdit(c, true).action, TypedAction::Nothing) << int(c);
        EXPECT_EQ(typedEdit(c, false).action, TypedAction::Nothing) << int(c);
    }
}

TEST(TypedEdit, shouldTreatBackspaceAsDeletion) {
    EXPECT_EQ(typedEdit(u'\b', false).action, TypedAction::Backspace);
}

// --- the model: typing -----------------------------------------------------------------------

TEST(TextEditModel, shouldInsertTypedTextAtTheCaretAndMoveItOn) {
    TextEditModel m = boxWith(u"ac");
    m.setSelStart(1);
    EXPECT_TRUE(m.type(u'b'));
    EXPECT_EQ(m.text(), u"abc");
    EXPECT_EQ(m.selStart(), 2);
}

TEST(TextEditModel, shouldReplaceTheSelectionWithATypedCharacter) {
    TextEditModel m = boxWith(u"abcd");
    m.setSelStart(1);
    m.setSelLength(2);
    EXPECT_TRUE(m.type(u'x'));
    EXPECT_EQ(m.text(), u"axd");
    EXPECT_EQ(m.selLength(), 0);
}

TEST(TextEditModel, shouldRefuseATypedCharacterBeyondMaxLengthWhole) {
    TextEditModel m = boxWith(u"ab", 2);
    m.setSelStart(2);
    EXPECT_FALSE(m.type(u'c'));
    EXPECT_EQ(m.text(), u"ab");
    m.setSelStart(0);
    m.setSelLength(1);
    EXPECT_TRUE(m.type(u'z')) << "over a selection there is room";
    EXPECT_EQ(m.text(), u"zb");
}

TEST(TextEditModel, shouldRefuseTheFirstHalfOfAPairWithoutRoomForTheSecond) {
    TextEditModel m = boxWith(u"a", 2);
    m.setSelStart(1);
    EXPECT_FALSE(m.type(u'\xD83D'));
    EXPECT_EQ(m.text(), u"a");
}

TEST(TextEditModel, shouldRemoveTheCharacterBeforeTheCaretOnBackspace) {
    TextEditModel m = boxWith(u"abc");
    m.setSelStart(2);
    EXPECT_TRUE(m.type(u'\b'));
    EXPECT_EQ(m.text(), u"ac");
    EXPECT_EQ(m.selStart(), 1);
}

TEST(TextEditModel, shouldDoNothingOnBackspaceAtTheStart) {
    TextEditModel m = boxWith(u"abc");
    EXPECT_FALSE(m.type(u'\b'));
    EXPECT_EQ(m.text(), u"abc");
}

TEST(TextEditModel, shouldRemoveTheSelectionOnBackspace) {
    TextEditModel m = boxWith(u"abcd");
    m.setSelStart(1);
    m.setSelLength(2);
    EXPECT_TRUE(m.type(u'\b'));
    EXPECT_EQ(m.text(), u"ad");
}

TEST(TextEditModel, shouldRemoveAWholeSurrogatePairOnBackspace) {
    TextEditModel m = boxWith(u"a\U0001F600");
    m.setSelStart(3);
    EXPECT_TRUE(m.type(u'\b'));
    EXPECT_EQ(m.text(), u"a");
}

TEST(TextEditModel, shouldRemoveAWholeLineBreakOnBackspace) {
    TextEditModel m = boxWith(u"a\r\n", 0, true);
    m.setSelStart(3);
    EXPECT_TRUE(m.type(u'\b'));
    EXPECT_EQ(m.text(), u"a");
}

TEST(TextEditModel, shouldBreakTheLineOnEnterInAMultiLineBox) {
    TextEditModel m = boxWith(u"ab", 0, true);
    m.setSelStart(1);
    EXPECT_TRUE(m.type(u'\r'));
    EXPECT_EQ(m.text(), u"a\r\nb");
    EXPECT_EQ(m.selStart(), 3);
}

TEST(TextEditModel, shouldRefuseALineBreakThatWouldLoseItsLineFeed) {
    TextEditModel m = boxWith(u"ab", 3, true);
    m.setSelStart(2);
    EXPECT_FALSE(m.type(u'\r'));
    EXPECT_EQ(m.text(), u"ab");
}

TEST(TextEditModel, shouldTypeNothingOnEnterInASingleLineBox) {
    TextEditModel m = boxWith(u"ab");
    EXPECT_FALSE(m.type(u'\r'));
    EXPECT_EQ(m.text(), u"ab");
}

TEST(TextEditModel, shouldTypeNothingForAControlCharacter) {
    TextEditModel m = boxWith(u"ab", 0, true);
    EXPECT_FALSE(m.type(u'\x16'));
    EXPECT_FALSE(m.type(u'\t'));
    EXPECT_FALSE(m.type(u'\n'));
    EXPECT_EQ(m.text(), u"ab");
}

TEST(TextEditModel, shouldRefuseTheUsersEditsWhenLockedButNotCodes) {
    TextEditModel m = boxWith(u"ab");
    m.setLocked(true);
    m.setSelStart(2);
    EXPECT_FALSE(m.type(u'c'));
    EXPECT_FALSE(m.type(u'\b'));
    EXPECT_FALSE(m.paste(u"x"));
    m.select(0, 2);
    EXPECT_FALSE(m.deleteSelection());
    EXPECT_EQ(m.text(), u"ab");
    EXPECT_TRUE(m.replaceSelection(u"z", true));
    EXPECT_EQ(m.text(), u"z");
}

// --- the model: pasting and code ------------------------------------------------------------

TEST(TextEditModel, shouldCutAPasteToMaxLength) {
    TextEditModel m = boxWith(u"ab", 5);
    m.setSelStart(2);
    EXPECT_TRUE(m.paste(u"cdefgh"));
    EXPECT_EQ(m.text(), u"abcde");
    EXPECT_EQ(m.selStart(), 5);
}

TEST(TextEditModel, shouldKeepTheSelectionWhenNothingOfAPasteFits) {
    TextEditModel m = boxWith(u"abc", 3);
    m.select(0, 0);
    EXPECT_FALSE(m.paste(u"x"));
    EXPECT_EQ(m.text(), u"abc");
}

TEST(TextEditModel, shouldMakeAPastesLineBreaksCanonicalInAMultiLineBox) {
    TextEditModel m(true);
    EXPECT_TRUE(m.paste(u"a\nb\rc"));
    EXPECT_EQ(m.text(), u"a\r\nb\r\nc");
}

TEST(TextEditModel, shouldNeverCutTextSetByCode) {
    TextEditModel m = boxWith(u"", 2);
    EXPECT_TRUE(m.setText(u"abcdef"));
    EXPECT_EQ(m.text(), u"abcdef");
    m.setMaxLength(1);
    EXPECT_EQ(m.text(), u"abcdef") << "lowering MaxLength keeps the text";
}

TEST(TextEditModel, shouldPutTheCaretAtTheStartWhenTextIsSet) {
    TextEditModel m = boxWith(u"abc");
    m.select(1, 3);
    m.setText(u"xyz");
    EXPECT_EQ(m.selStart(), 0);
    EXPECT_EQ(m.selLength(), 0);
}

TEST(TextEditModel, shouldReportNoChangeWhenTheSameTextIsSet) {
    TextEditModel m = boxWith(u"a\r\nb", 0, true);
    EXPECT_FALSE(m.setText(u"a\nb")) << "the same text once canonical";
    EXPECT_TRUE(m.setText(u"a\nc"));
}

TEST(TextEditModel, shouldReportNoChangeWhenTheSelectionIsReplacedByItself) {
    TextEditModel m = boxWith(u"abc");
    m.select(1, 2);
    EXPECT_FALSE(m.replaceSelection(u"b", true));
    EXPECT_EQ(m.selStart(), 2) << "the caret still moves after the insertion";
    EXPECT_FALSE(m.replaceSelection(u"", false)) << "empty over an empty selection";
}

TEST(TextEditModel, shouldReplaceTheSelectionOnceAsSelText) {
    TextEditModel m = boxWith(u"ab");
    m.setSelStart(1);
    EXPECT_TRUE(m.replaceSelection(u"X", true));
    EXPECT_EQ(m.text(), u"aXb");
    EXPECT_EQ(m.selText(), u"");
}

// --- the model: selection -------------------------------------------------------------------

TEST(TextEditModel, shouldClampTheSelectionToTheText) {
    TextEditModel m = boxWith(u"abc");
    m.setSelStart(10);
    EXPECT_EQ(m.selStart(), 3);
    m.setSelStart(-4);
    EXPECT_EQ(m.selStart(), 0);
    m.setSelStart(1);
    m.setSelLength(99);
    EXPECT_EQ(m.selLength(), 2);
    m.setSelLength(-1);
    EXPECT_EQ(m.selLength(), 0);
}

TEST(TextEditModel, shouldClearTheSelectionWhenTheCaretMoves) {
    TextEditModel m = boxWith(u"abc");
    m.select(0, 2);
    m.setSelStart(1);
    EXPECT_EQ(m.selLength(), 0);
}

TEST(TextEditModel, shouldNeverPutTheCaretInsideALineBreak) {
    TextEditModel m = boxWith(u"a\r\nb", 0, true);
    m.setSelStart(2);
    EXPECT_EQ(m.selStart(), 1) << "before the break";
    m.setSelLength(1);
    EXPECT_EQ(m.selLength(), 2) << "the break is taken whole";
    EXPECT_EQ(m.selText(), u"\r\n");
}

TEST(TextEditModel, shouldAllowAnyPositionInASingleLineBox) {
    TextEditModel m = boxWith(u"a\r\nb");
    m.setSelStart(2);
    EXPECT_EQ(m.selStart(), 2);
}

TEST(TextEditModel, shouldMeasureTheRoomOverTheSelection) {
    TextEditModel m = boxWith(u"abcd", 6);
    m.select(1, 3);
    EXPECT_EQ(m.room(), 4);
    m.setMaxLength(0);
    EXPECT_GT(m.room(), 1'000'000'000) << "no limit";
    m.setMaxLength(-5);
    EXPECT_EQ(m.maxLength(), 0);
}

}  // namespace

// --- the clipboard keys ----------------------------------------------------------------------

TEST(ClipboardKeys, shouldNameTheKeysEveryDesktopKnows) {
    EXPECT_EQ(clipboardKeyOf('X', key::CtrlMask), ClipboardKey::Cut);
    EXPECT_EQ(clipboardKeyOf(key::Delete, key::ShiftMask), ClipboardKey::Cut);
    EXPECT_EQ(clipboardKeyOf('C', key::CtrlMask), ClipboardKey::Copy);
    EXPECT_EQ(clipboardKeyOf(key::Insert, key::CtrlMask), ClipboardKey::Copy);
    EXPECT_EQ(clipboardKeyOf('V', key::CtrlMask), ClipboardKey::Paste);
    EXPECT_EQ(clipboardKeyOf(key::Insert, key::ShiftMask), ClipboardKey::Paste);
}

TEST(ClipboardKeys, shouldNameNoOtherKeyOrShiftState) {
    EXPECT_EQ(clipboardKeyOf('V', 0), ClipboardKey::None);
    EXPECT_EQ(clipboardKeyOf('V', key::CtrlMask | key::ShiftMask), ClipboardKey::None);
    EXPECT_EQ(clipboardKeyOf('V', key::CtrlMask | key::AltMask), ClipboardKey::None);
    EXPECT_EQ(clipboardKeyOf(key::Insert, 0), ClipboardKey::None);
    EXPECT_EQ(clipboardKeyOf(key::Delete, key::CtrlMask), ClipboardKey::None);
    EXPECT_EQ(clipboardKeyOf('A', key::CtrlMask), ClipboardKey::None);
}

TEST(ClipboardKeys, shouldActOnlyWhenTheBoxOwnsTheKeysAndNoHandlerTookThemAway) {
    EXPECT_EQ(clipboardKeyEffect(true, false, true, 22, 22), ClipboardKeyEffect::Act);
    EXPECT_EQ(clipboardKeyEffect(true, false, false, 0, 0), ClipboardKeyEffect::Act);
    EXPECT_EQ(clipboardKeyEffect(false, false, true, 22, 22), ClipboardKeyEffect::Nothing);
    EXPECT_EQ(clipboardKeyEffect(true, true, true, 22, 22), ClipboardKeyEffect::Nothing);
    EXPECT_EQ(clipboardKeyEffect(true, false, true, 22, 0), ClipboardKeyEffect::TypeInstead);
    EXPECT_EQ(clipboardKeyEffect(true, false, true, 22, u'q'), ClipboardKeyEffect::TypeInstead);
}

TEST(ClipboardKeys, shouldGiveCtrlLettersTheirControlCharacters) {
    EXPECT_EQ(controlCharacterOf('A', key::CtrlMask), 1);
    EXPECT_EQ(controlCharacterOf('V', key::CtrlMask), 22);
    EXPECT_EQ(controlCharacterOf('Z', key::CtrlMask | key::ShiftMask), 26);
    EXPECT_EQ(controlCharacterOf('V', 0), 0);
    EXPECT_EQ(controlCharacterOf('V', key::CtrlMask | key::AltMask), 0);
    EXPECT_EQ(controlCharacterOf(key::Insert, key::CtrlMask), 0);
    EXPECT_EQ(controlCharacterOf('1', key::CtrlMask), 0);
}
