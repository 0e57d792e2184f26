// The host's message boxes on QMessageBox, and the conversions between the core's values
// and Qt's.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "corvex/platform/widgets.h"
#include "corvex/qt/convert.h"
#include "corvex/qt/host.h"

namespace corvex::qt::testing {
namespace {

using Buttons = QList<QMessageBox::StandardButton>;

TEST(MessageBoxLayout, shouldShowOkOnlyWithoutIconByDefault) {
    const MessageBoxLayout l = messageBoxLayout(0);
    EXPECT_EQ(l.icon, QMessageBox::NoIcon);
    EXPECT_EQ(l.buttons, Buttons{QMessageBox::Ok});
    EXPECT_EQ(l.defaultButton, QMessageBox::Ok);
    EXPECT_FALSE(l.help);
    EXPECT_FALSE(l.rightAligned);
    EXPECT_TRUE(l.escapable);
}

TEST(MessageBoxLayout, shouldTakeTheIconFromBits0x70) {
    EXPECT_EQ(messageBoxLayout(16).icon, QMessageBox::Critical);
    EXPECT_EQ(messageBoxLayout(32).icon, QMessageBox::Question);
    EXPECT_EQ(messageBoxLayout(48).icon, QMessageBox::Warning);
    EXPECT_EQ(messageBoxLayout(64).icon, QMessageBox::Information);
    EXPECT_EQ(messageBoxLayout(0x70).icon, QMessageBox::NoIcon);
}

TEST(MessageBoxLayout, shouldTakeTheButtonsFromBits7InTheHostsOrder) {
    EXPECT_EQ(messageBoxLayout(1).buttons, (Buttons{QMessageBox::Ok, QMessageBox::Cancel}));
    EXPECT_EQ(messageBoxLayout(2).buttons,
              (Buttons{QMessageBox::Abort, QMessageBox::Retry, QMessageBox::Ignore}));
    EXPECT_EQ(messageBoxLayout(3).buttons,
              (Buttons{QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel}));
    EXPECT_EQ(messageBoxLayout(4).buttons, (Buttons{QMessageBox::Yes, QMessageBox::No}));
    EXPECT_EQ(messageBoxLayout(5).buttons, (Buttons{QMessageBox::Retry, QMessageBox::Cancel}));
}

TEST(MessageBoxLayout, shouldPickTheDefaultButtonFromBits0x300) {
    EXPECT_EQ(messageBoxLayout(3).defaultButton, QMessageBox::Yes);
    EXPECT_EQ(messageBoxLayout(3 | 0x100).defaultButton, QMessageBox::No);
    EXPECT_EQ(messageBoxLayout(3 | 0x200).defaultButton, QMessageBox::Cancel);
    EXPECT_EQ(messageBoxLayout(2 | 0x200).defaultButton, QMessageBox::Ignore);
    // A default past the last button falls back to the first.
    EXPECT_EQ(messageBoxLayout(4 | 0x200).defaultButton, QMessageBox::Yes);
    EXPECT_EQ(messageBoxLayout(0x300).defaultButton, QMessageBox::Ok);
}

TEST(MessageBoxLayout, shouldAddHelpAsTheLastButtonAndAllowItAsDefault) {
    const MessageBoxLayout l = messageBoxLayout(1 | 0x4000 | 0x200);
    EXPECT_TRUE(l.help);
    EXPECT_EQ(l.buttons, (Buttons{QMessageBox::Ok, QMessageBox::Cancel, QMessageBox::Help}));
    EXPECT_EQ(l.defaultButton, QMessageBox::Help);
    EXPECT_EQ(messageBoxLayout(3 | 0x4000 | 0x300).defaultButton, QMessageBox::Help);
}

TEST(MessageBoxLayout, shouldRightAlignWithBit0x80000) {
    EXPECT_TRUE(messageBoxLayout(0x80000 | 64).rightAligned);
    EXPECT_FALSE(messageBoxLayout(64).rightAligned);
}

TEST(MessageBoxLayout, shouldKeepSystemModalBoxesOnTopAndBringForegroundOnesForward) {
    EXPECT_TRUE(messageBoxLayout(0x1000).stayOnTop);
    EXPECT_FALSE(messageBoxLayout(0x1000).foreground);
    EXPECT_TRUE(messageBoxLayout(0x10000).foreground);
    EXPECT_FALSE(messageBoxLayout(0x10000 | 64).stayOnTop);
}

TEST(MessageBoxLayout, shouldLetOnlyBoxesWithCancelOrALoneOkBeDismissed) {
    EXPECT_TRUE(messageBoxLayout(0).escapable);
    EXPECT_TRUE(messageBoxLayout(1).escapable);
    EXPECT_FALSE(messageBoxLayout(2).escapable);
    EXPECT_TRUE(messageBoxLayout(3).escapable);
    EXPECT_FALSE(messageBoxLayout(4).escapable);
    EXPECT_TRUE(messageBoxLayout(5).escapable);
}

TEST(MessageBoxLayout, shouldAnswerWithTheHostsNumbers) {
    EXPECT_EQ(messageBoxAnswer(QMessageBox::Ok), 1);
    EXPECT_EQ(messageBoxAnswer(QMessageBox::Cancel), 2);
    EXPECT_EQ(messageBoxAnswer(QMessageBox::Abort), 3);
    EXPECT_EQ(messageBoxAnswer(QMessageBox::Retry), 4);
    EXPECT_EQ(messageBoxAnswer(QMessageBox::Ignore), 5);
    EXPECT_EQ(messageBoxAnswer(QMessageBox::Yes), 6);
    EXPECT_EQ(messageBoxAnswer(QMessageBox::No), 7);
    EXPECT_EQ(messageBoxAnswer(QMessageBox::Help), 0);
}

TEST(MessageBoxLayout, shouldTurnCarriageReturnsIntoLineBreaks) {
    EXPECT_EQ(messageBoxText(u"one\rtwo\r\nthree"), QStringLiteral("one\ntwo\nthree"));
}

TEST(QtHostMessageBox, shouldAskTheHandlerInsteadOfShowingABox) {
    QtHost host;
    MessageBoxRequest seen;
    host.setMessageBoxHandler([&](const MessageBoxRequest& r) {
        seen = r;
        return 6;
    });
    MessageBoxRequest request;
    request.text = u"Save?";
    request.style = 4 | 32;
    EXPECT_EQ(host.messageBox(request), 6);
    EXPECT_EQ(seen.text, u"Save?");
    EXPECT_EQ(seen.style, 36);
}

TEST(QtHostMessageBox, shouldShowAQMessageBoxAndReturnTheButtonPressed) {
    QtHost host;
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QString defaultText;
    int buttonCount = 0;
    // The box is modal: look at it and press No from inside its own event loop.
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        title = box->windowTitle();
        text = box->text();
        icon = box->icon();
        defaultText = box->defaultButton() ? box->defaultButton()->text() : QString();
        buttonCount = static_cast<int>(box->buttons().size());
        box->button(QMessageBox::No)->click();
    });
    MessageBoxRequest request;
    request.text = u"Keep the changes?\rThey are not saved yet.";
    request.style = 3 | 48 | 0x100;
    EXPECT_EQ(host.messageBox(request), 7);
    EXPECT_EQ(title, QStringLiteral("corvex-qt-tests"));  // the application's title
    EXPECT_EQ(text, QStringLiteral("Keep the changes?\nThey are not saved yet."));
    EXPECT_EQ(icon, QMessageBox::Warning);
    EXPECT_EQ(buttonCount, 3);
    QMessageBox probe;
    probe.setStandardButtons(QMessageBox::No);
    EXPECT_EQ(defaultText, probe.button(QMessageBox::No)->text());
}

TEST(QtHostMessageBox, shouldRightAlignTheTextWhenAsked) {
    QtHost host;
    Qt::Alignment alignment;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        if (auto* label = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
            alignment = label->alignment();
        }
        box->button(QMessageBox::Ok)->click();
    });
    MessageBoxRequest request;
    request.text = u"right";
    request.title = u"Own title";
    request.style = 0x80000;
    EXPECT_EQ(host.messageBox(request), 1);
    EXPECT_TRUE(alignment & Qt::AlignRight);
}

// --- the host's ambient properties ---------------------------------------------------------

TEST(QtHostAmbient, shouldFollowTheApplicationsLocaleUntilOverridden) {
    QtHost host;
    const QLocale saved;
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    EXPECT_EQ(host.localeId(), LocaleJapanese);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(host.localeId(), LocaleEnglishUS);
    host.setLocaleId(LocaleJapanese);
    EXPECT_EQ(host.localeId(), LocaleJapanese);
    host.resetLocaleId();
    EXPECT_EQ(host.localeId(), LocaleEnglishUS);
    QLocale::setDefault(saved);
}

TEST(QtHostAmbient, shouldTakeItsFontAndTitleFromTheApplication) {
    QtHost host;
    EXPECT_TRUE(host.userMode());
    host.setUserMode(false);
    EXPECT_FALSE(host.userMode());
    EXPECT_EQ(toQString(host.font().name), QApplication::font().family());
    EXPECT_EQ(host.title(), u"corvex-qt-tests");
}

TEST(QtHostClipboard, shouldReadAndWriteTheSystemClipboard) {
    QtHost host;
    host.setText(u"クリップボード");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("クリップボード"));
    EXPECT_EQ(host.text(), u"クリップボード");
}

// --- conversions ---------------------------------------------------------------------------

TEST(QtConvert, shouldMapTheSystemColoursToThePalette) {
    QPalette p;
    p.setColor(QPalette::Base, QColor(1, 2, 3));
    p.setColor(QPalette::Text, QColor(4, 5, 6));
    p.setColor(QPalette::Button, QColor(7, 8, 9));
    p.setColor(QPalette::ButtonText, QColor(10, 11, 12));
    EXPECT_EQ(toQColor(color::WindowBackground, p), QColor(1, 2, 3));
    EXPECT_EQ(toQColor(color::WindowText, p), QColor(4, 5, 6));
    EXPECT_EQ(toQColor(color::ButtonFace, p), QColor(7, 8, 9));
    EXPECT_EQ(toQColor(color::ButtonText, p), QColor(10, 11, 12));
}

TEST(QtConvert, shouldReadOtherColoursAsBlueGreenRed) {
    const QPalette p;
    EXPECT_EQ(toQColor(color::Red, p), QColor(255, 0, 0));
    EXPECT_EQ(toQColor(0x00FF0000, p), QColor(0, 0, 255));
    EXPECT_EQ(toQColor(0x00336699, p), QColor(0x99, 0x66, 0x33));
}

TEST(QtConvert, shouldGiveLettersDigitsAndEditingKeysTheHostsKeyCodes) {
    EXPECT_EQ(virtualKeyCode(Qt::Key_A), 65);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Z), 90);
    EXPECT_EQ(virtualKeyCode(Qt::Key_0), 48);
    EXPECT_EQ(virtualKeyCode(Qt::Key_9), 57);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Backspace), 8);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Tab), 9);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Return), 13);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Enter), 13);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Shift), 16);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Control), 17);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Alt), 18);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Escape), 27);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Space), 32);
    EXPECT_EQ(virtualKeyCode(Qt::Key_PageUp), 33);
    EXPECT_EQ(virtualKeyCode(Qt::Key_PageDown), 34);
    EXPECT_EQ(virtualKeyCode(Qt::Key_End), 35);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Home), 36);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Left), 37);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Up), 38);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Right), 39);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Down), 40);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Insert), 45);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Delete), 46);
    EXPECT_EQ(virtualKeyCode(Qt::Key_F1), 112);
    EXPECT_EQ(virtualKeyCode(Qt::Key_F12), 123);
}

TEST(QtConvert, shouldGivePunctuationItsKeysCodeShiftedOrNot) {
    EXPECT_EQ(virtualKeyCode(Qt::Key_Semicolon), 186);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Colon), 186);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Equal), 187);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Plus), 187);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Comma), 188);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Minus), 189);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Period), 190);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Slash), 191);
    EXPECT_EQ(virtualKeyCode(Qt::Key_QuoteLeft), 192);
    EXPECT_EQ(virtualKeyCode(Qt::Key_BracketLeft), 219);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Backslash), 220);
    EXPECT_EQ(virtualKeyCode(Qt::Key_BracketRight), 221);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Apostrophe), 222);
    EXPECT_EQ(virtualKeyCode(Qt::Key_QuoteDbl), 222);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Exclam), '1');
    EXPECT_EQ(virtualKeyCode(Qt::Key_5, Qt::KeypadModifier), 101);
}

TEST(QtConvert, shouldGiveShiftBitsAndButtons) {
    EXPECT_EQ(shiftBits(Qt::ShiftModifier), 1);
    EXPECT_EQ(shiftBits(Qt::ControlModifier | Qt::AltModifier), 6);
    EXPECT_EQ(mouseButtons(Qt::LeftButton), 1);
    EXPECT_EQ(mouseButtons(Qt::RightButton), 2);
    EXPECT_EQ(mouseButtons(Qt::MiddleButton), 4);
    EXPECT_EQ(mouseButtons(Qt::LeftButton | Qt::MiddleButton), 5);
}

TEST(QtConvert, shouldCarryVariantsThroughQVariantUnchanged) {
    const Variant values[] = {Variant(),
                              Variant(true),
                              Variant(false),
                              Variant(Boolean::fromRaw(5)),
                              Variant(std::int16_t{-7}),
                              Variant(std::int32_t{123456}),
                              Variant(1.5f),
                              Variant(2.25),
                              Variant(u"テキスト")};
    for (const Variant& v : values) {
        EXPECT_TRUE(fromQVariant(toQVariant(v)) == v) << static_cast<int>(v.type());
    }
    EXPECT_EQ(toQVariant(Variant(true)).typeId(), QMetaType::Bool);
    EXPECT_EQ(toQVariant(Variant(std::int16_t{3})).typeId(), QMetaType::Short);
    EXPECT_EQ(toQVariant(Variant(u"x")).toString(), QStringLiteral("x"));
    EXPECT_EQ(fromQVariant(QVariant(42)).type(), VarType::Long);
    EXPECT_EQ(fromQVariant(QVariant(qlonglong{1} << 40)).type(), VarType::Double);
}

TEST(QtConvert, shouldTurnFontDescriptionsIntoQFontsAndBack) {
    FontDesc d;
    d.name = u"IPAGothic";
    d.size = 10.5;
    d.italic = true;
    d.underline = true;
    d.weight = 700;
    d.bold = true;
    const QFont f = toQFont(d);
    EXPECT_EQ(f.family(), QStringLiteral("IPAGothic"));
    EXPECT_DOUBLE_EQ(f.pointSizeF(), 10.5);
    EXPECT_EQ(f.weight(), QFont::Bold);
    EXPECT_TRUE(f.italic());
    EXPECT_TRUE(f.underline());
    EXPECT_FALSE(f.strikeOut());
    const FontDesc back = fromQFont(f);
    EXPECT_EQ(back, d);
}

}  // namespace
}  // namespace corvex::qt::testing
