// The entry controls on real Qt widgets, typed into and clicked through QTest on the
// offscreen platform: the numeric boxes' key filter and clipboard keys, leaving an invalid
// box, MustEnter colouring, alignment, MemoBox's four multi-line boxes, CR LF line breaks
// and the input-method modes.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodQueryEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTimer>
#include <set>

#include "corvex/entry/memo_box.h"
#include "corvex/entry/num_input_box.h"
#include "corvex/library/memory_bag.h"
#include "corvex/qt/convert.h"
#include "qt_harness.h"
#include "qt_test_support.h"

namespace corvex {
// Prints an input mode by its number in test output (not as a dump of its bytes).
static void PrintTo(InputMode mode, std::ostream* os) {
    *os << "Mode " << static_cast<int>(mode);
}
}  // namespace corvex

namespace corvex::qt::testing {
namespace {

using corvex::testing::QtHarness;
using corvex::testing::SeenEvent;

std::vector<SeenEvent> named(const std::vector<SeenEvent>& events, std::u16string_view n) {
    std::vector<SeenEvent> out;
    for (const auto& e : events) {
        if (e.name == n) out.push_back(e);
    }
    return out;
}

class EntryQt : public ::testing::Test {
protected:
    NumericInputBox& addNumber(const std::u16string& name = u"n",
                               const ClassInfo& cls = NumInputBox::staticClassInfo()) {
        return static_cast<NumericInputBox&>(h.add(cls, name));
    }
    QLineEdit* edit(const std::u16string& name = u"n") {
        return qobject_cast<QLineEdit*>(h.innerWidget(name, u"txtInput").qtWidget());
    }
    QtTextBox& box(const std::u16string& name = u"n") {
        return dynamic_cast<QtTextBox&>(h.innerWidget(name, u"txtInput"));
    }
    // Clicks the Qt widget as the user does, so that it takes the focus.
    void clickInto(QWidget* w) {
        QTest::mouseClick(w, Qt::LeftButton, Qt::NoModifier, w->rect().center());
    }
    int count(const std::u16string& control, std::u16string_view event) {
        return static_cast<int>(named(h.events(control), event).size());
    }

    QtHarness h;
};

// --- keys through the numeric filter -----------------------------------------------------

TEST_F(EntryQt, shouldGiveTheFilterTheHostsKeyCodesAndCharacters) {
    NumericInputBox& n = addNumber();
    h.clearRecords(u"n");
    QTest::keyClicks(edit(), QStringLiteral("-1.5"));
    EXPECT_EQ(n.text(), u"-1.5");
    const auto events = h.events(u"n");
    std::vector<std::int16_t> downs;
    std::vector<std::int16_t> presses;
    for (const auto& e : named(events, u"KeyDown")) downs.push_back(e.args[0].toInteger());
    for (const auto& e : named(events, u"KeyPress")) presses.push_back(e.args[0].toInteger());
    EXPECT_EQ(downs, (std::vector<std::int16_t>{189, '1', 190, '5'}));
    EXPECT_EQ(presses, (std::vector<std::int16_t>{'-', '1', '.', '5'}));
    EXPECT_EQ(edit()->text(), QStringLiteral("-1.5"));
}

TEST_F(EntryQt, shouldInsertNothingForAKeyTheFilterSwallows) {
    NumericInputBox& n = addNumber();
    QTest::keyClicks(edit(), QStringLiteral("12"));
    h.clearRecords(u"n");
    QTest::keyClick(edit(), Qt::Key_X);
    EXPECT_EQ(n.text(), u"12");
    EXPECT_EQ(edit()->text(), QStringLiteral("12"));
    const auto presses = named(h.events(u"n"), u"KeyPress");
    ASSERT_EQ(presses.size(), 1u);
    EXPECT_EQ(presses[0].args[0], Variant(std::int16_t{0})) << "the application sees it refused";
    EXPECT_EQ(count(u"n", u"Change"), 0);
}

TEST_F(EntryQt, shouldInsertTheReplacementAHandlerChose) {
    NumericInputBox& n = addNumber();
    h.setEventHandler(u"n", [](const std::u16string& name, std::span<Variant> args) {
        if (name == u"KeyPress" && args[0].toInteger() == '1') args[0] = Variant(std::int16_t{'7'});
    });
    QTest::keyClicks(edit(), QStringLiteral("515"));
    EXPECT_EQ(n.text(), u"575");
    EXPECT_EQ(edit()->text(), QStringLiteral("575"));
}

TEST_F(EntryQt, shouldRaiseNoKeyPressInFreeModeAndTypeEverything) {
    NumericInputBox& n = addNumber();
    n.setMode(InputMode::Free);
    h.clearRecords(u"n");
    QTest::keyClicks(edit(), QStringLiteral("a-b"));
    EXPECT_EQ(n.text(), u"a-b");
    EXPECT_EQ(count(u"n", u"KeyPress"), 0);
    EXPECT_EQ(count(u"n", u"KeyDown"), 3);
}

// --- clipboard keys -------------------------------------------------------------------------

class NumberPasteQt : public EntryQt, public ::testing::WithParamInterface<InputMode> {};

TEST_P(NumberPasteQt, shouldPasteExactlyOnceOnCtrlV) {
    NumericInputBox& n = addNumber();
    n.setMode(GetParam());
    clickInto(edit());
    QGuiApplication::clipboard()->setText(QStringLiteral("42"));
    h.clearRecords(u"n");
    // The user's whole chord: Ctrl goes down, V goes down and up, Ctrl comes up.
    QTest::keyClick(edit(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(n.text(), u"42");
    EXPECT_EQ(count(u"n", u"Change"), 1);
    QTest::keyClick(edit(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(n.text(), u"4242");
}

TEST_P(NumberPasteQt, shouldNotPasteByItselfOnTheOtherPasteKeys) {
    NumericInputBox& n = addNumber();
    n.setMode(GetParam());
    clickInto(edit());
    QGuiApplication::clipboard()->setText(QStringLiteral("42"));
    QTest::keyClick(edit(), Qt::Key_Insert, Qt::ShiftModifier);
    QTest::keySequence(edit(), QKeySequence::Paste);
    // Ctrl+V is in Qt's Paste sequence: the control's rule pastes it, once.
    EXPECT_EQ(n.text(), u"42");
}

TEST_P(NumberPasteQt, shouldPasteOnceFromTheContextMenu) {
    NumericInputBox& n = addNumber();
    n.setMode(GetParam());
    clickInto(edit());
    QGuiApplication::clipboard()->setText(QStringLiteral("7"));
    h.clearRecords(u"n");
    std::unique_ptr<QMenu> menu(box().createContextMenu());
    QAction* paste = nullptr;
    for (QAction* a : menu->actions()) {
        if (a->text().startsWith(QLineEdit::tr("&Paste"))) paste = a;
    }
    ASSERT_NE(paste, nullptr);
    EXPECT_TRUE(paste->isEnabled());
    paste->trigger();
    EXPECT_EQ(n.text(), u"7");
    const auto downs = named(h.events(u"n"), u"KeyDown");
    ASSERT_EQ(downs.size(), 1u) << "the menu presses Ctrl+V on the box";
    EXPECT_EQ(downs[0].args[0], Variant(std::int16_t{'V'}));
    EXPECT_EQ(downs[0].args[1], Variant(std::int16_t{key::CtrlMask}));
}

INSTANTIATE_TEST_SUITE_P(Modes, NumberPasteQt,
                         ::testing::Values(InputMode::PM_decimal, InputMode::Free),
                         [](const ::testing::TestParamInfo<InputMode>& info) {
                             return info.param == InputMode::Free ? std::string("Free")
                                                                  : std::string("Decimal");
                         });

TEST_F(EntryQt, shouldCopyByTheControlsRuleOnCtrlC) {
    NumericInputBox& n = addNumber();
    n.setText(u"12345");
    clickInto(edit());
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    n.setSelStart(0);
    // No selection: the control's rule copies the empty selection; Qt's copy would not.
    QTest::keyClick(edit(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString());
    n.setSelStart(1);
    n.setSelLength(3);
    QTest::keyClick(edit(), Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString()) << "Ctrl+Insert is not the rule's";
    QTest::keyClick(edit(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("234"));
    EXPECT_EQ(n.text(), u"12345");
}

TEST_F(EntryQt, shouldCutOnceByTheControlsRuleOnCtrlX) {
    NumericInputBox& n = addNumber();
    n.setText(u"12345");
    clickInto(edit());
    n.setSelStart(3);
    n.setSelLength(2);
    QTest::keyClick(edit(), Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(n.text(), u"12345") << "Shift+Delete does not cut by itself";
    n.setSelStart(3);
    n.setSelLength(2);
    h.clearRecords(u"n");
    QTest::keyClick(edit(), Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("45"));
    EXPECT_EQ(n.text(), u"123");
    EXPECT_EQ(count(u"n", u"Change"), 1);
}

TEST_F(EntryQt, shouldCutFromATextLongerThanMaxLength) {
    NumericInputBox& n = addNumber();
    n.setMaxLength(3);
    n.setText(u"12345");  // code may put in more than MaxLength
    clickInto(edit());
    n.setSelStart(3);
    n.setSelLength(2);
    QTest::keyClick(edit(), Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("45"));
    EXPECT_EQ(n.text(), u"123") << "deleting always fits";
}

TEST_F(EntryQt, shouldStillPasteByItselfWithNativeClipboardKeys) {
    ControlWindow w{BooleanBox::staticClassInfo(), 240, 40};
    WidgetRecorder recorder;
    TextBoxSpec design;
    design.name = u"txtPlain";
    design.listener = &recorder;
    design.width = 3000;
    design.height = 360;
    auto plain = w.control->createTextBox(design);
    QLineEdit* line = dynamic_cast<QtTextBox&>(*plain).lineEdit();
    QGuiApplication::clipboard()->setText(QStringLiteral("xy"));
    QTest::keyClick(line, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(line, Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(plain->text(), u"xyxy");
    // A KeyDown handler that takes the key away stops the paste.
    recorder.handler = [](WidgetEvent& e) {
        if (e.type == WidgetEventType::KeyDown && e.keyCode == 'V') e.keyCode = 0;
    };
    QTest::keyClick(line, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(plain->text(), u"xyxy");
}

// --- leaving an invalid box ---------------------------------------------------------------

// Two boxes that both fail their check: a LostFocus raised on the wrong one, or twice,
// shows as one message too many.
class LeavingQt : public EntryQt {
protected:
    LeavingQt() {
        NumericInputBox& n = addNumber(u"n");
        n.setLimitCheck(true);
        n.setUpperLimit(10);
        NumericInputBox& other = addNumber(u"other");
        other.setLimitCheck(true);
        other.setUpperLimit(10);
        other.setText(u"99");
        clickInto(edit(u"n"));
        QTest::keyClicks(edit(u"n"), QStringLiteral("50"));
    }
};

TEST_F(LeavingQt, shouldShowTheMessageOnceAndKeepTheFocus) {
    ASSERT_TRUE(h.messageBoxes().empty());
    clickInto(edit(u"other"));
    EXPECT_EQ(h.messageBoxes().size(), 1u) << "only the box left complains";
    EXPECT_TRUE(edit(u"n")->hasFocus());
    EXPECT_EQ(QApplication::focusWidget(), edit(u"n"));
    ASSERT_TRUE(settle());
    EXPECT_EQ(h.messageBoxes().size(), 1u) << "no loop of focus-out messages";
    // Each new attempt to leave is checked again.
    clickInto(edit(u"other"));
    EXPECT_EQ(h.messageBoxes().size(), 2u);
    EXPECT_TRUE(edit(u"n")->hasFocus());
    EXPECT_EQ(static_cast<NumericInputBox&>(h.surface(u"n").control()).text(), u"50");
}

TEST_F(LeavingQt, shouldLeaveOnceTheBoxIsValid) {
    clickInto(edit(u"other"));
    ASSERT_EQ(h.messageBoxes().size(), 1u);
    // The check put the text back, the caret at the start: to the end, and one digit less.
    QTest::keyClick(edit(u"n"), Qt::Key_End);
    QTest::keyClick(edit(u"n"), Qt::Key_Backspace);
    clickInto(edit(u"other"));
    EXPECT_EQ(h.messageBoxes().size(), 1u);
    EXPECT_TRUE(edit(u"other")->hasFocus());
    // Now the other box is the one that fails when left.
    clickInto(edit(u"n"));
    EXPECT_EQ(h.messageBoxes().size(), 2u);
    EXPECT_TRUE(edit(u"other")->hasFocus());
}

TEST_F(LeavingQt, shouldShowARealMessageBoxOnceAndGiveTheFocusBack) {
    h.host().setMessageBoxHandler({});  // a real QMessageBox, answered by a "user"
    std::set<QMessageBox*> seen;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            if (seen.insert(box).second) {
                if (QAbstractButton* ok = box->button(QMessageBox::Ok)) ok->click();
            }
        } else if (!seen.empty() && !h.window().isActiveWindow()) {
            // The window system gives the form its window back once the box has gone;
            // it may take the activation away again while the box's window closes, so
            // it is given back for as long as the form lacks it.
            QApplication::setActiveWindow(&h.window());
        }
    });
    user.start(10);
    clickInto(edit(u"other"));
    // The box was shown, answered, and the focus came back to the box that was left.
    EXPECT_TRUE(waitUntil([&] {
        return !seen.empty() && !QApplication::activeModalWidget() && edit(u"n")->hasFocus();
    }));
    // Nothing more follows: no second box once the events under way are handled.
    ASSERT_TRUE(settle());
    user.stop();
    EXPECT_EQ(seen.size(), 1u);
    EXPECT_EQ(h.window().focusWidget(), edit(u"n"));
    EXPECT_TRUE(edit(u"n")->hasFocus());
}

TEST_F(LeavingQt, shouldNotCheckWhenAnotherWindowTakesTheFocus) {
    QWidget elsewhere;
    auto* field = new QLineEdit(&elsewhere);
    elsewhere.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&elsewhere));
    QApplication::setActiveWindow(&elsewhere);
    field->setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&elsewhere));
    EXPECT_TRUE(field->hasFocus());
    EXPECT_TRUE(h.messageBoxes().empty());
    QApplication::setActiveWindow(&h.window());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&h.window()));
    EXPECT_TRUE(edit(u"n")->hasFocus());
    EXPECT_TRUE(h.messageBoxes().empty());
    // Back on the form, leaving the box is checked as before.
    clickInto(edit(u"other"));
    EXPECT_EQ(h.messageBoxes().size(), 1u);
}

TEST_F(LeavingQt, shouldNotCheckWhileAPopupMenuIsUp) {
    QMenu menu;
    menu.addAction(QStringLiteral("Something"));
    menu.popup(edit(u"n")->mapToGlobal(QPoint(0, 0)));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
    menu.close();
    ASSERT_TRUE(waitUntil([&] { return !menu.isVisible() && !QApplication::activePopupWidget(); }));
    ASSERT_TRUE(settle());
    EXPECT_TRUE(h.messageBoxes().empty());
    EXPECT_TRUE(edit(u"n")->hasFocus());
}

// --- colour and alignment -------------------------------------------------------------------

TEST_F(EntryQt, shouldPaintMustEnterColorAsTheLineEditsBackground) {
    MemoryBag bag(
        {{u"MustEnter", Variant(true)}, {u"MustEnterColor", Variant(std::int32_t{0x00FF00})}});
    h.load(NumInputBox::staticClassInfo(), u"n", bag);
    EXPECT_EQ(edit()->palette().color(QPalette::Active, QPalette::Base), QColor(0, 0xFF, 0));
    QTest::keyClicks(edit(), QStringLiteral("1"));
    EXPECT_EQ(edit()->palette().color(QPalette::Active, QPalette::Base),
              QApplication::palette(edit()).color(QPalette::Base));
    QTest::keyClick(edit(), Qt::Key_Backspace);
    EXPECT_EQ(edit()->palette().color(QPalette::Active, QPalette::Base), QColor(0, 0xFF, 0));
}

TEST_F(EntryQt, shouldRightAlignOnlyNumInputBoxR) {
    addNumber(u"left", NumInputBox::staticClassInfo());
    addNumber(u"right", NumInputBoxR::staticClassInfo());
    EXPECT_TRUE(edit(u"left")->alignment() & Qt::AlignLeft);
    EXPECT_TRUE(edit(u"right")->alignment() & Qt::AlignRight);
}

// --- MemoBox --------------------------------------------------------------------------------

class MemoQt : public EntryQt {
protected:
    MemoQt() : memo(static_cast<MemoBox&>(h.add(MemoBox::staticClassInfo(), u"m"))) {}
    QPlainTextEdit* edit(int i) {
        return qobject_cast<QPlainTextEdit*>(
            h.innerWidget(u"m", u"txtMemo", static_cast<std::int16_t>(i)).qtWidget());
    }
    QtTextBox& box(int i) {
        return dynamic_cast<QtTextBox&>(
            h.innerWidget(u"m", u"txtMemo", static_cast<std::int16_t>(i)));
    }
    MemoBox& memo;
};

TEST_F(MemoQt, shouldMakeFourPlainTextEditsWithTheScrollBarsOfTheirStyle) {
    struct Want {
        Qt::ScrollBarPolicy horizontal;
        Qt::ScrollBarPolicy vertical;
        QPlainTextEdit::LineWrapMode wrap;
    };
    const Want want[4] = {
        {Qt::ScrollBarAlwaysOff, Qt::ScrollBarAlwaysOff, QPlainTextEdit::WidgetWidth},
        {Qt::ScrollBarAlwaysOn, Qt::ScrollBarAlwaysOff, QPlainTextEdit::NoWrap},
        {Qt::ScrollBarAlwaysOff, Qt::ScrollBarAlwaysOn, QPlainTextEdit::WidgetWidth},
        {Qt::ScrollBarAlwaysOn, Qt::ScrollBarAlwaysOn, QPlainTextEdit::NoWrap},
    };
    for (int i = 0; i < 4; ++i) {
        QPlainTextEdit* e = edit(i);
        ASSERT_NE(e, nullptr) << "box " << i;
        EXPECT_EQ(e->objectName(), QStringLiteral("txtMemo(%1)").arg(i));
        EXPECT_EQ(e->horizontalScrollBarPolicy(), want[i].horizontal) << "box " << i;
        EXPECT_EQ(e->verticalScrollBarPolicy(), want[i].vertical) << "box " << i;
        EXPECT_EQ(e->lineWrapMode(), want[i].wrap) << "box " << i;
        EXPECT_EQ(box(i).lineEdit(), nullptr);
    }
}

TEST_F(MemoQt, shouldShowOnlyTheBoxOfTheScrollBarsStyle) {
    const auto shown = [&] {
        std::vector<bool> v;
        for (int i = 0; i < 4; ++i) v.push_back(edit(i)->isVisible());
        return v;
    };
    EXPECT_EQ(shown(), (std::vector<bool>{true, false, false, false}));
    memo.setScrollBars(ScrollBarsMode::barVertical);
    EXPECT_EQ(shown(), (std::vector<bool>{false, false, true, false}));
    EXPECT_TRUE(edit(2)->verticalScrollBar()->isVisible());
    EXPECT_FALSE(edit(2)->horizontalScrollBar()->isVisible());
}

TEST_F(MemoQt, shouldTypeEnterAsCrLfThroughKeyPress) {
    clickInto(edit(0)->viewport());
    h.clearRecords(u"m");
    QTest::keyClicks(edit(0), QStringLiteral("ab"));
    QTest::keyClick(edit(0), Qt::Key_Return);
    QTest::keyClick(edit(0), Qt::Key_Enter, Qt::ShiftModifier);  // no soft break either
    // A line feed (as some platforms give Ctrl+Enter) breaks no line, as in the other hosts.
    QTest::simulateEvent(edit(0), true, Qt::Key_Return, Qt::ControlModifier, QStringLiteral("\n"),
                         false);
    QTest::simulateEvent(edit(0), false, Qt::Key_Return, Qt::ControlModifier, QStringLiteral("\n"),
                         false);
    QTest::keyClicks(edit(0), QStringLiteral("c"));
    EXPECT_EQ(memo.text(), u"ab\r\n\r\nc");
    EXPECT_EQ(edit(0)->document()->blockCount(), 3);
    EXPECT_EQ(box(3).text(), u"ab\r\n\r\nc") << "the hidden boxes follow";
    std::vector<std::int16_t> presses;
    for (const auto& e : named(h.events(u"m"), u"KeyPress"))
        presses.push_back(e.args[0].toInteger());
    EXPECT_EQ(presses, (std::vector<std::int16_t>{'a', 'b', 13, 13, 10, 'c'}));
    EXPECT_EQ(memo.selStart(), 7) << "a line break counts two";
}

TEST_F(MemoQt, shouldBreakNoLineWhenKeyPressSwallowsEnter) {
    h.setEventHandler(u"m", [](const std::u16string& name, std::span<Variant> args) {
        if (name == u"KeyPress" && args[0].toInteger() == 13) args[0] = Variant(std::int16_t{0});
    });
    clickInto(edit(0)->viewport());
    QTest::keyClicks(edit(0), QStringLiteral("a"));
    QTest::keyClick(edit(0), Qt::Key_Return);
    EXPECT_EQ(memo.text(), u"a");
    EXPECT_EQ(edit(0)->document()->blockCount(), 1);
}

TEST_F(MemoQt, shouldMoveOnWithTabInsteadOfTypingIt) {
    addNumber(u"next");
    clickInto(edit(0)->viewport());
    QTest::keyClick(edit(0), Qt::Key_Tab);
    EXPECT_EQ(memo.text(), u"");
    EXPECT_FALSE(edit(0)->hasFocus());
    EXPECT_TRUE(EntryQt::edit(u"next")->hasFocus());
}

TEST(MultiLineTextBoxQt, shouldConvertLineBreaksAtItsEdgeAndCountThemTwice) {
    ControlWindow w{BooleanBox::staticClassInfo(), 240, 80};
    WidgetRecorder recorder;
    TextBoxSpec design;
    design.name = u"txtLines";
    design.listener = &recorder;
    design.multiLine = true;
    design.width = 3000;
    design.height = 1200;
    auto made = w.control->createTextBox(design);
    TextBox& box = *made;
    QPlainTextEdit* e = dynamic_cast<QtTextBox&>(box).plainTextEdit();
    ASSERT_NE(e, nullptr);

    box.setText(u"ab\r\ncd\nef\rg\u00a0h");
    EXPECT_EQ(e->document()->blockCount(), 4);
    EXPECT_EQ(e->document()->findBlockByNumber(1).text(), QStringLiteral("cd"));
    EXPECT_EQ(box.text(), u"ab\r\ncd\r\nef\r\ng\u00a0h") << "every break reads back as CR LF";
    EXPECT_EQ(box.selStart(), 0);

    box.setSelStart(4);  // after "ab\r\n"
    EXPECT_EQ(e->textCursor().position(), 3);
    box.setSelLength(4);  // "cd\r\n"
    EXPECT_EQ(box.selText(), u"cd\r\n");
    EXPECT_EQ(box.selLength(), 4);
    box.setSelStart(3);  // between CR and LF: before the break
    EXPECT_EQ(box.selStart(), 2);
    box.setSelLength(1);  // part of a break selects all of it
    EXPECT_EQ(box.selText(), u"\r\n");

    box.setSelStart(0);
    box.setSelLength(2);
    box.setSelText(u"X\nY");
    EXPECT_EQ(box.text(), u"X\r\nY\r\ncd\r\nef\r\ng\u00a0h");
    EXPECT_EQ(box.selStart(), 4);
}

TEST(MultiLineTextBoxQt, shouldApplyMaxLengthWithLineBreaksCountedTwice) {
    ControlWindow w{BooleanBox::staticClassInfo(), 240, 80};
    WidgetRecorder recorder;
    TextBoxSpec design;
    design.name = u"txtLines";
    design.listener = &recorder;
    design.multiLine = true;
    auto made = w.control->createTextBox(design);
    TextBox& box = *made;
    QPlainTextEdit* e = dynamic_cast<QtTextBox&>(box).plainTextEdit();
    box.setMaxLength(4);
    e->setFocus();
    QTest::keyClicks(e, QStringLiteral("abc"));
    QTest::keyClick(e, Qt::Key_Return);
    EXPECT_EQ(box.text(), u"abc") << "half a line break never goes in";
    QTest::keyClick(e, Qt::Key_Backspace);
    QTest::keyClick(e, Qt::Key_Return);
    EXPECT_EQ(box.text(), u"ab\r\n");
    box.setText(u"");
    QGuiApplication::clipboard()->setText(QStringLiteral("1\n2\n3"));
    QTest::keyClick(e, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box.text(), u"1\r\n2") << "pasted text is cut to the limit, breaks whole";
    box.setText(u"line one\r\nline two");
    EXPECT_EQ(box.text(), u"line one\r\nline two") << "text set by code is never cut";
}

// --- input-method modes -----------------------------------------------------------------------

TEST(InputMethodQt, shouldMapEveryModeToQtsInputMethod) {
    struct Row {
        std::int16_t mode;
        bool enabled;
        Qt::InputMethodHints hints;
    };
    const Row rows[] = {
        {0, true, Qt::ImhNone},  {1, true, Qt::ImhNone},        {2, true, Qt::ImhPreferLatin},
        {3, false, Qt::ImhNone}, {4, true, Qt::ImhNone},        {5, true, Qt::ImhNone},
        {6, true, Qt::ImhNone},  {7, true, Qt::ImhPreferLatin}, {8, true, Qt::ImhLatinOnly},
        {9, true, Qt::ImhNone},  {-1, true, Qt::ImhNone},
    };
    for (const Row& r : rows) {
        const InputMethodSetting s = inputMethodSetting(r.mode);
        EXPECT_EQ(s.enabled, r.enabled) << "mode " << r.mode;
        EXPECT_EQ(s.hints, r.hints) << "mode " << r.mode;
    }
}

// What the platform's input method learns from the focused widget.
std::pair<bool, Qt::InputMethodHints> askInputMethod(QWidget* w) {
    QInputMethodQueryEvent query(Qt::ImEnabled | Qt::ImHints);
    QApplication::sendEvent(w, &query);
    return {query.value(Qt::ImEnabled).toBool(),
            Qt::InputMethodHints(query.value(Qt::ImHints).toInt())};
}

TEST_F(EntryQt, shouldSteerTheInputMethodFromIMEModeAndKeepTheValue) {
    NumericInputBox& n = addNumber();
    EXPECT_EQ(n.imeMode(), CorvexIMEMode::IMEDisable) << "a number box starts without it";
    EXPECT_FALSE(askInputMethod(edit()).first);
    n.setImeMode(CorvexIMEMode::IMEOFF);
    auto [enabled, hints] = askInputMethod(edit());
    EXPECT_TRUE(enabled);
    EXPECT_TRUE(hints & Qt::ImhPreferLatin);
    n.setImeMode(CorvexIMEMode::IMEAlpha);
    std::tie(enabled, hints) = askInputMethod(edit());
    EXPECT_TRUE(hints & Qt::ImhLatinOnly);
    EXPECT_FALSE(hints & Qt::ImhPreferLatin);
    n.setImeMode(CorvexIMEMode::IMEHiragana);
    std::tie(enabled, hints) = askInputMethod(edit());
    EXPECT_TRUE(enabled);
    EXPECT_FALSE(hints & (Qt::ImhPreferLatin | Qt::ImhLatinOnly));
    EXPECT_EQ(n.imeMode(), CorvexIMEMode::IMEHiragana);
    n.setImeMode(static_cast<CorvexIMEMode>(12));
    EXPECT_EQ(n.imeMode(), static_cast<CorvexIMEMode>(12)) << "any value round-trips";
    EXPECT_TRUE(askInputMethod(edit()).first);
}

TEST_F(MemoQt, shouldSteerAllFourBoxesAndKeepTheirMultiLineHint) {
    memo.setImeMode(CorvexIMEMode::IMEDisable);
    for (int i = 0; i < 4; ++i) {
        EXPECT_FALSE(askInputMethod(edit(i)).first) << "box " << i;
        EXPECT_TRUE(edit(i)->inputMethodHints() & Qt::ImhMultiLine);
    }
    memo.setImeMode(CorvexIMEMode::IMEAlphaFull);
    EXPECT_TRUE(askInputMethod(edit(0)).first);
    EXPECT_TRUE(askInputMethod(edit(0)).second & Qt::ImhPreferLatin);
    EXPECT_EQ(memo.imeMode(), CorvexIMEMode::IMEAlphaFull);
}

TEST(InputMethodLockQt, shouldKeepTheInputMethodOffWhileLocked) {
    ControlWindow w{BooleanBox::staticClassInfo(), 240, 40};
    WidgetRecorder recorder;
    TextBoxSpec design;
    design.name = u"txtLocked";
    design.listener = &recorder;
    auto made = w.control->createTextBox(design);
    QLineEdit* line = dynamic_cast<QtTextBox&>(*made).lineEdit();
    made->setImeMode(1);
    made->setLocked(true);
    EXPECT_FALSE(line->testAttribute(Qt::WA_InputMethodEnabled));
    made->setLocked(false);
    EXPECT_TRUE(line->testAttribute(Qt::WA_InputMethodEnabled));
    made->setImeMode(3);
    made->setLocked(true);
    made->setLocked(false);
    EXPECT_FALSE(line->testAttribute(Qt::WA_InputMethodEnabled)) << "the mode still rules";
    EXPECT_EQ(made->imeMode(), 3);
}

}  // namespace
}  // namespace corvex::qt::testing
