// What the Qt text box and check box do in Qt's own terms: key sequences, the input
// method, the QLineEdit's state, the QCheckBox's look. What every host's boxes do alike is
// in the shared contract suites.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>

#include "qt_test_support.h"

namespace corvex::qt::testing {
namespace {

class TextBoxQt : public ::testing::Test {
protected:
    TextBoxQt() {
        TextBoxSpec design;
        design.name = u"txtInput";
        design.listener = &recorder;
        design.left = 0;
        design.top = 0;
        design.width = 3000;
        design.height = 360;
        box = w.control->createTextBox(design);
        edit = dynamic_cast<QtTextBox&>(*box).lineEdit();
        edit->setFocus();
        recorder.events.clear();
    }

    std::u16string text() const { return box->text(); }

    ControlWindow w{BooleanBox::staticClassInfo(), 240, 40};
    WidgetRecorder recorder;
    std::unique_ptr<TextBox> box;
    QLineEdit* edit = nullptr;
};

TEST_F(TextBoxQt, shouldBeAQLineEditNamedAfterTheWidget) {
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(w.control->innerWidget(QStringLiteral("txtInput")), edit);
    EXPECT_TRUE(edit->isVisible());
}

TEST_F(TextBoxQt, shouldDeleteWithTheBackspaceKey) {
    QTest::keyClicks(edit, QStringLiteral("abc"));
    QTest::keyClick(edit, Qt::Key_Backspace);
    EXPECT_EQ(text(), u"ab");
    const auto presses = recorder.ofType(WidgetEventType::KeyPress);
    ASSERT_EQ(presses.size(), 4u);
    EXPECT_EQ(presses.back().keyAscii, 8);
}

TEST_F(TextBoxQt, shouldRaiseNoKeyPressForKeysWithoutACharacter) {
    QTest::keyClicks(edit, QStringLiteral("ab"));
    recorder.events.clear();
    QTest::keyClick(edit, Qt::Key_Left);
    QTest::keyClick(edit, Qt::Key_Delete);
    EXPECT_TRUE(recorder.ofType(WidgetEventType::KeyPress).empty());
    const auto downs = recorder.ofType(WidgetEventType::KeyDown);
    ASSERT_EQ(downs.size(), 2u);
    EXPECT_EQ(downs[0].keyCode, 37);
    EXPECT_EQ(downs[1].keyCode, 46);
    EXPECT_EQ(text(), u"a");  // the Delete key still deletes
}

TEST_F(TextBoxQt, shouldKeepTheKeyFromTheWidgetWhenKeyDownClearsKeyCode) {
    QTest::keyClicks(edit, QStringLiteral("ab"));
    box->setSelStart(0);
    recorder.handler = [](WidgetEvent& e) {
        if (e.type == WidgetEventType::KeyDown && e.keyCode == key::Delete) e.keyCode = 0;
    };
    QTest::keyClick(edit, Qt::Key_Delete);
    EXPECT_EQ(text(), u"ab");
}

TEST_F(TextBoxQt, shouldCutPastedTextToMaxLength) {
    QGuiApplication::clipboard()->setText(QStringLiteral("12345678"));
    box->setMaxLength(4);
    QTest::keyClicks(edit, QStringLiteral("a"));
    QTest::keySequence(edit, QKeySequence::Paste);
    EXPECT_EQ(text(), u"a123");
}

TEST_F(TextBoxQt, shouldShowTheSelectionInTheLineEdit) {
    box->setText(u"Corvex");
    box->setSelStart(2);
    box->setSelLength(10);
    EXPECT_EQ(edit->selectedText(), QStringLiteral("rvex"));
}

TEST_F(TextBoxQt, shouldMakeTheLineEditReadOnlyWhenLocked) {
    box->setLocked(true);
    EXPECT_TRUE(edit->isReadOnly());
}

TEST_F(TextBoxQt, shouldRaiseFocusEvents) {
    auto other = std::make_unique<QLineEdit>(w.window.get());
    other->show();
    QApplication::setActiveWindow(w.window.get());
    edit->setFocus();
    recorder.events.clear();
    other->setFocus();
    edit->setFocus();
    const auto lost = recorder.ofType(WidgetEventType::LostFocus);
    const auto got = recorder.ofType(WidgetEventType::GotFocus);
    EXPECT_EQ(lost.size(), 1u);
    EXPECT_EQ(got.size(), 1u);
}

TEST_F(TextBoxQt, shouldTypeInputMethodTextThroughKeyPress) {
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("日本語"));
    QApplication::sendEvent(edit, &commit);
    EXPECT_EQ(text(), u"日本語");
    const auto presses = recorder.ofType(WidgetEventType::KeyPress);
    ASSERT_EQ(presses.size(), 3u);
    EXPECT_EQ(static_cast<char16_t>(presses[1].keyAscii), u'本');
}

TEST_F(TextBoxQt, shouldDropInputMethodCharactersAKeyPressHandlerSwallows) {
    recorder.handler = [](WidgetEvent& e) {
        if (e.type == WidgetEventType::KeyPress && static_cast<char16_t>(e.keyAscii) == u'本') {
            e.keyAscii = 0;
        }
    };
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("日本語"));
    QApplication::sendEvent(edit, &commit);
    EXPECT_EQ(text(), u"日語");
}

TEST_F(TextBoxQt, shouldCutInputMethodTextToMaxLength) {
    box->setMaxLength(2);
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("日本語"));
    QApplication::sendEvent(edit, &commit);
    EXPECT_EQ(text(), u"日本");
}

TEST(TextBoxAlignmentQt, shouldRightAlignWhenAlignmentIsOne) {
    ControlWindow w{BooleanBox::staticClassInfo()};
    TextBoxSpec design;
    design.name = u"txtRight";
    design.alignment = 1;
    auto box = w.control->createTextBox(design);
    auto* edit = dynamic_cast<QtTextBox&>(*box).lineEdit();
    EXPECT_TRUE(edit->alignment() & Qt::AlignRight);
    design.name = u"txtLeft";
    design.alignment = 0;
    auto left = w.control->createTextBox(design);
    EXPECT_TRUE(dynamic_cast<QtTextBox&>(*left).lineEdit()->alignment() & Qt::AlignLeft);
}

// --- the check box directly ------------------------------------------------------------

class CheckBoxQt : public ::testing::Test {
protected:
    CheckBoxQt() {
        WidgetSpec design;
        design.name = u"chkOption";
        design.index = 2;
        design.listener = &recorder;
        design.left = 150;
        design.top = 0;
        design.width = 2400;
        design.height = 300;
        check = w.control->createCheckBox(design);
        qbox = dynamic_cast<QtCheckBox&>(*check).checkBox();
        recorder.events.clear();
    }

    ControlWindow w{BooleanBox::staticClassInfo(), 240, 40};
    WidgetRecorder recorder;
    std::unique_ptr<CheckBox> check;
    QCheckBox* qbox = nullptr;
};

TEST_F(CheckBoxQt, shouldNameAnArrayElementWithItsIndex) {
    EXPECT_EQ(w.control->innerWidget(QStringLiteral("chkOption(2)")), qbox);
    EXPECT_EQ(check->index(), 2);
}

TEST_F(CheckBoxQt, shouldShowGrayedAsPartiallyCheckedAndRaiseClick) {
    check->setValue(2);
    EXPECT_EQ(qbox->checkState(), Qt::PartiallyChecked);
    EXPECT_EQ(recorder.ofType(WidgetEventType::Click).size(), 1u);
    check->setValue(2);  // no change, no Click
    EXPECT_EQ(recorder.ofType(WidgetEventType::Click).size(), 1u);
}

TEST_F(CheckBoxQt, shouldTurnGrayedIntoCheckedOnAClick) {
    check->setValue(2);
    recorder.events.clear();
    QTest::mouseClick(qbox, Qt::LeftButton, Qt::NoModifier, indicatorCentre(qbox));
    EXPECT_EQ(check->value(), 1);
    EXPECT_EQ(qbox->checkState(), Qt::Checked);
    EXPECT_EQ(recorder.ofType(WidgetEventType::Click).size(), 1u);
    QTest::mouseClick(qbox, Qt::LeftButton, Qt::NoModifier, indicatorCentre(qbox));
    EXPECT_EQ(check->value(), 0);  // and never back to grayed
}

TEST_F(CheckBoxQt, shouldPlaceItselfInTwipsOnTheSurface) {
    const double tx = w.control->twipsPerPixelX();
    const double ty = w.control->twipsPerPixelY();
    check->move(static_cast<float>(10 * tx), static_cast<float>(2 * ty),
                static_cast<float>(100 * tx), static_cast<float>(20 * ty));
    EXPECT_EQ(qbox->geometry(), QRect(10, 2, 100, 20));
    EXPECT_FLOAT_EQ(check->left(), static_cast<float>(10 * tx));
    EXPECT_FLOAT_EQ(check->width(), static_cast<float>(100 * tx));
}

TEST_F(CheckBoxQt, shouldPaintWithTheColoursItIsGiven) {
    check->setBackColor(0x00336699);  // 0x00BBGGRR
    EXPECT_EQ(qbox->palette().color(qbox->backgroundRole()), QColor(0x99, 0x66, 0x33));
    EXPECT_EQ(check->backColor(), 0x00336699);
    check->setForeColor(color::WindowText);
    EXPECT_EQ(qbox->palette().color(qbox->foregroundRole()),
              QApplication::palette(qbox).color(QPalette::Text));
    EXPECT_EQ(check->foreColor(), color::WindowText);
}

TEST_F(CheckBoxQt, shouldUseTheFontItIsGivenAndGiveItBack) {
    FontDesc f;
    f.name = u"IPAGothic";
    f.size = 12;
    f.bold = true;
    f.weight = 700;
    f.charset = 128;
    check->setFont(f);
    EXPECT_EQ(qbox->font().family(), QStringLiteral("IPAGothic"));
    EXPECT_DOUBLE_EQ(qbox->font().pointSizeF(), 12.0);
    EXPECT_TRUE(qbox->font().bold());
    EXPECT_EQ(check->font(), f);
}

}  // namespace
}  // namespace corvex::qt::testing
