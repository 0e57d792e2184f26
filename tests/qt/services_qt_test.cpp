// The form services on real Qt windows: FormHandle's topmost hint and the QScreen it
// measures, MessageBox showing a real QMessageBox that a test answers by pressing a
// button, and the MessageBox property page picked with the mouse and the keyboard.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include "corvex/library/memory_bag.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/form.h"
#include "corvex/qt/host.h"
#include "corvex/qt/page_widgets.h"
#include "corvex/services/form_handle.h"
#include "corvex/services/message_box.h"
#include "corvex/services/msgbox_page.h"
#include "msgbox_designer.h"
#include "qt_test_support.h"

namespace corvex::qt::testing {
namespace {

// A shown window with its form, on which service controls are placed.
class ServicesQt : public ::testing::Test {
protected:
    void SetUp() override {
        window = std::make_unique<QWidget>();
        window->resize(400, 300);
        form = std::make_unique<QtForm>(host, window.get());
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }
    void TearDown() override {
        form.reset();
        window.reset();
    }
    QtControlHost* load(const ClassInfo& cls, const QString& name) {
        QtControlHost* h = form->addControl(cls, name);
        MemoryBag empty;
        h->load(empty);
        h->show();
        return h;
    }
    QtControlHost* placeNew(const ClassInfo& cls, const QString& name) {
        QtControlHost* h = form->addControl(cls, name);
        h->initNew();
        h->show();
        return h;
    }

    QtHost host;
    std::unique_ptr<QWidget> window;
    std::unique_ptr<QtForm> form;
};

// Presses the button of the next modal message box once it is up, and records the box.
struct BoxAnswerer {
    explicit BoxAnswerer(QMessageBox::StandardButton button) : press(button) {}
    QMessageBox::StandardButton press;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QList<QAbstractButton*> buttons;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
    bool help = false;
    Qt::Alignment alignment;
    bool pressed = false;

    void arm() {
        QTimer::singleShot(0, [this] {
            QPointer<QMessageBox> box;
            // The box is up once it is the active modal widget; wait for it, never a fixed time.
            const bool up = waitUntil([&] {
                box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                return box && box->isVisible();
            });
            ASSERT_TRUE(up);
            text = box->text();
            icon = box->icon();
            buttons = box->buttons();
            help = box->button(QMessageBox::Help) != nullptr;
            if (box->defaultButton()) defaultButton = box->standardButton(box->defaultButton());
            if (auto* label = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
                alignment = label->alignment();
            }
            pressed = true;
            box->button(press)->click();
        });
    }
};

TEST_F(ServicesQt, shouldSetAndClearTheStaysOnTopHintAndReportSuccess) {
    auto& fh = dynamic_cast<FormHandle&>(load(FormHandle::staticClassInfo(), "fh")->control());
    EXPECT_FALSE(form->topMost());
    EXPECT_NE(invoke(fh, u"SetFormTop", CallKind::Method).toLong(), 0);
    EXPECT_TRUE(window->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(window->isVisible()) << "the window is shown";
    EXPECT_NE(fh.setFormTop(0), 0);
    EXPECT_FALSE(window->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_EQ(fh.setFormTop(2), 0);
    EXPECT_FALSE(form->topMost());
}

TEST_F(ServicesQt, shouldMeasureThePrimaryScreenInTwips) {
    QtControlHost* h = load(FormHandle::staticClassInfo(), "fh");
    QScreen* s = QGuiApplication::primaryScreen();
    ASSERT_NE(s, nullptr);
    const double tpp = 1440.0 / s->logicalDotsPerInchX();
    EXPECT_DOUBLE_EQ(h->screen().twipsPerPixelX(), tpp);
    EXPECT_FLOAT_EQ(h->screen().width(), static_cast<float>(s->geometry().width() * tpp));
}

TEST_F(ServicesQt, shouldCentreTheWindowOnTheScreen) {
    auto& fh = dynamic_cast<FormHandle&>(load(FormHandle::staticClassInfo(), "fh")->control());
    const Screen& screen = form->hosts().front()->screen();
    fh.setFormCenter();
    const float expectedLeft = (screen.width() - form->width()) / 2;
    const float expectedTop = (screen.height() - form->height()) / 2;
    // The window lands on whole pixels.
    EXPECT_NEAR(form->left(), expectedLeft, screen.twipsPerPixelX());
    EXPECT_NEAR(form->top(), expectedTop, screen.twipsPerPixelY());
}

TEST_F(ServicesQt, shouldBringAWindowBeyondTheScreenBackToTheCorner) {
    auto& fh = dynamic_cast<FormHandle&>(load(FormHandle::staticClassInfo(), "fh")->control());
    const Screen& screen = form->hosts().front()->screen();
    form->move(screen.width() + 3000, 150, form->width(), form->height());
    ASSERT_GT(form->left(), screen.width());
    fh.moveInScreen(std::nullopt);
    EXPECT_EQ(form->left(), 0);
    EXPECT_EQ(form->top(), 0);
}

TEST_F(ServicesQt, shouldShowTheButtonsIconDefaultHelpAndRightAlignedTextTheStyleAsksFor) {
    auto& mb = dynamic_cast<MessageBox&>(placeNew(MessageBox::staticClassInfo(), "mb")->control());
    letProperty(mb, u"Prompt", Variant(u"Keep the changes?"));
    letProperty(mb, u"ButtonType", Variant(std::int32_t{3}));
    letProperty(mb, u"IconType", Variant(std::int32_t{32}));
    letProperty(mb, u"DefaultButtonType", Variant(std::int32_t{256}));
    letProperty(mb, u"HelpButton", Variant(true));
    letProperty(mb, u"TextRight", Variant(true));
    BoxAnswerer answerer{QMessageBox::No};
    answerer.arm();
    EXPECT_EQ(invoke(mb, u"Show", CallKind::Method).toLong(), 7);
    EXPECT_TRUE(answerer.pressed);
    EXPECT_EQ(answerer.text, QStringLiteral("Keep the changes?"));
    EXPECT_EQ(answerer.icon, QMessageBox::Question);
    EXPECT_EQ(answerer.buttons.size(), 4) << "Yes, No, Cancel and Help";
    EXPECT_TRUE(answerer.help);
    EXPECT_EQ(answerer.defaultButton, QMessageBox::No);
    EXPECT_TRUE(answerer.alignment & Qt::AlignRight);
    EXPECT_EQ(getProperty(mb, u"Value").toLong(), 7);
}

TEST_F(ServicesQt, shouldShowARealBoxAtEachReadOfAnswer) {
    auto& mb = dynamic_cast<MessageBox&>(placeNew(MessageBox::staticClassInfo(), "mb")->control());
    letProperty(mb, u"ButtonType", Variant(std::int32_t{1}));
    BoxAnswerer first{QMessageBox::Cancel};
    first.arm();
    EXPECT_EQ(getProperty(mb, u"Answer").toLong(), 2);
    BoxAnswerer second{QMessageBox::Ok};
    second.arm();
    EXPECT_EQ(getProperty(mb, u"Answer").toLong(), 1);
    EXPECT_TRUE(first.pressed && second.pressed);
}

TEST_F(ServicesQt, shouldShowThePageAsRealWidgetsAndApplyAUsersPick) {
    host.setUserMode(false);
    QtControlHost* mbHost = placeNew(MessageBox::staticClassInfo(), "mb");
    QtControlHost* pageHost = placeNew(MsgBoxPage::staticClassInfo(), "page");
    auto& page = dynamic_cast<MsgBoxPage&>(pageHost->control());
    page.setSelectedControls({mbHost->object()});
    auto* icons = qobject_cast<QComboBox*>(pageHost->innerWidget("cmbIconType"));
    ASSERT_NE(icons, nullptr);
    EXPECT_EQ(icons->count(), 5);
    EXPECT_EQ(icons->currentIndex(), 0);
    EXPECT_FALSE(page.changed());
    // The user picks Exclamation with the keyboard: the list's Click marks the page edited.
    QTest::keyClick(icons, Qt::Key_Down);
    QTest::keyClick(icons, Qt::Key_Down);
    QTest::keyClick(icons, Qt::Key_Down);
    EXPECT_EQ(icons->currentIndex(), 3);
    EXPECT_TRUE(page.changed());
    page.apply();
    EXPECT_EQ(getProperty(mbHost->control(), u"IconType").toLong(), 48);
    EXPECT_NE(pageHost->innerWidget("lblPrompt"), nullptr);
}

TEST(GalleryMessageBoxDesigner, shouldEditTheDesignModeMessageBoxThroughItsPage) {
    gallery::MessageBoxDesigner designer;
    designer.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&designer));
    Control& box = designer.messageBox()->control();
    auto* icons = qobject_cast<QComboBox*>(designer.page()->innerWidget("cmbIconType"));
    ASSERT_NE(icons, nullptr);
    EXPECT_EQ(icons->itemData(icons->currentIndex()).toInt(), 32) << "the box's Question icon";
    icons->setCurrentIndex(4);
    QTest::mouseClick(designer.findChild<QPushButton*>(QStringLiteral("Apply")), Qt::LeftButton);
    EXPECT_EQ(getProperty(box, u"IconType").toLong(), 64);
    EXPECT_TRUE(designer.statusText().startsWith(QStringLiteral("Applied")));
    BoxAnswerer answerer{QMessageBox::Yes};
    answerer.arm();
    EXPECT_EQ(designer.tryIt(), 6);
    EXPECT_EQ(answerer.icon, QMessageBox::Information);
    EXPECT_EQ(answerer.text, QStringLiteral("Save the changes?"));
}

}  // namespace
}  // namespace corvex::qt::testing
