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

TEST_F(HeadlessTextBoxTest, shouldCutAndPasteByItselfWithNativeClipboardKeys) {
    h.host().setText(u"pasted");
    box->pressKey(86, key::CtrlMask);
    EXPECT_EQ(box->text(), u"pasted");
    EXPECT_EQ(rec.count(WidgetEventType::KeyDown), 1);
    // Ctrl+V types its control character, which KeyPress reports as a real box does.
    EXPECT_EQ(rec.count(WidgetEventType::KeyPress), 1);
    box->setSelStart(0);
    box->setSelLength(3);
    box->pressKey(88, key::CtrlMask);
    EXPECT_EQ(box->text(), u"ted");
    EXPECT_EQ(h.host().text(), u"pas");
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
