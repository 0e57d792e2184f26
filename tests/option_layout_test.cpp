// The option group's own rules, on the headless host: caption parsing (against the list
// controls' rule on the same inputs), the arrangement table, the bag's exact sequence,
// the order elements come and go, and the surface's mouse events.
#include <gtest/gtest.h>

#include "corvex/headless/option_widgets.h"
#include "corvex/library/memory_bag.h"
#include "corvex/options/captions.h"
#include "corvex/options/multi_option.h"
#include "corvex/platform/command_button.h"
#include "corvex/platform/list_box.h"
#include "corvex/platform/list_widgets.h"
#include "corvex/platform/page_widgets.h"
#include "support/headless_fixture.h"

using namespace corvex;
using Captions = std::vector<std::u16string>;

namespace {

// --- captions ---------------------------------------------------------------------------

struct SplitCase {
    const char16_t* text;
    Captions listElements;  // the list controls' split, written out from their rule
    Captions captions;      // the option group's named captions
};

// The list controls' rule keeps a last, empty element after a trailing bar ("a|b|" gives
// three elements) and an empty text gives one empty element; the captions rule names no
// caption for a bar at all. Leading and repeated bars are ignored by both.
const SplitCase kSplitCases[] = {
    {u"", {u""}, {}},
    {u"|", {u""}, {}},
    {u"a", {u"a"}, {u"a"}},
    {u"a|b", {u"a", u"b"}, {u"a", u"b"}},
    {u"a|b|", {u"a", u"b", u""}, {u"a", u"b"}},
    {u"||a||b", {u"a", u"b"}, {u"a", u"b"}},
    {u"|A||B|", {u"A", u"B", u""}, {u"A", u"B"}},
    {u"x|||", {u"x", u""}, {u"x"}},
    {u" | ", {u" ", u" "}, {u" ", u" "}},
};

TEST(OptionCaptions, shouldNameNoCaptionForABarWhereTheListRuleKeepsAnEmptyElement) {
    for (const SplitCase& c : kSplitCases) {
        const Captions parsed = parseOptionCaptions(c.text);
        EXPECT_EQ(parsed, c.captions) << toUtf8(c.text);
        // The two rules part exactly where the list rule keeps an empty last element.
        const bool listEndsEmpty = !c.listElements.empty() && c.listElements.back().empty();
        Captions listNamed = c.listElements;
        if (listEndsEmpty) listNamed.pop_back();
        EXPECT_EQ(parsed, listNamed) << toUtf8(c.text);
        EXPECT_EQ(parsed != c.listElements, listEndsEmpty) << toUtf8(c.text);
    }
}

TEST(OptionCaptions, shouldGiveEveryButtonAndOnePastTheLastAnEntry) {
    EXPECT_EQ(captionsForButtons(u"|A||B|", 3), (Captions{u"A", u"B", u"", u""}));
    EXPECT_EQ(captionsForButtons(u"a|b|c|d", 2), (Captions{u"a", u"b", u"c", u"d"}));
    EXPECT_EQ(captionsForButtons(u"", 1), (Captions{u"", u""}));
    EXPECT_EQ(captionsForButtons(u"a", -3), (Captions{u"a"}));
}

// --- arrangement ------------------------------------------------------------------------

TEST(OptionArrangement, shouldPlaceTheDocumentedExampleExactly) {
    const OptionLayout layout{120, 240, 1300, 250, 100, 50, 2};
    const OptionPlace expected[] = {{120, 240}, {1520, 240}, {120, 790}, {1520, 790}, {120, 1340}};
    OptionPlace prev = expected[0];
    for (int i = 1; i < 5; ++i) {
        const OptionPlace at = nextOptionPlace(layout, i, expected[0], prev, 250);
        EXPECT_EQ(at.left, expected[i].left) << i;
        EXPECT_EQ(at.top, expected[i].top) << i;
        prev = at;
    }
}

TEST(OptionArrangement, shouldKeepOneRowBelowOnePerLine) {
    for (std::int32_t perLine : {0, -1, -32768}) {
        const OptionLayout layout{0, 0, 100, 50, 10, 5, perLine};
        const OptionPlace at = nextOptionPlace(layout, 4, {0, 0}, {330, 0}, 50);
        EXPECT_EQ(at.left, 440) << perLine;
        EXPECT_EQ(at.top, 0) << perLine;
    }
}

TEST(OptionArrangement, shouldComputeInDoubleAndStoreAsSingle) {
    const OptionLayout layout{0, 0, 16777217, 1, 0, 0, 0};
    const OptionPlace at = nextOptionPlace(layout, 1, {0, 0}, {0, 0}, 1);
    EXPECT_EQ(at.left, 16777216.0f) << "rounded to single precision once, at the end";
}

TEST(OptionArrangement, shouldRaiseOverflowWhenAPlaceExceedsASingle) {
    const OptionLayout layout{0, 0, 3.0e38, 1, 3.0e38, 0, 0};
    try {
        nextOptionPlace(layout, 1, {0, 0}, {3.0e38f, 0}, 1);
        ADD_FAILURE() << "expected 6";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), err::Overflow);
    }
}

// --- the control on the headless host -------------------------------------------------

class MultiOptionHeadlessTest : public corvex::testing::HeadlessTest {
protected:
    MultiOption& add() {
        h.setUserMode(false);
        return static_cast<MultiOption&>(h.add(MultiOption::staticClassInfo(), u"m"));
    }
};

TEST_F(MultiOptionHeadlessTest, shouldPlaceTheDocumentedExampleOnTheHostExactly) {
    MultiOption& m = add();
    m.setOptionNum(5);
    m.setOptionNumPerLine(2);
    m.setHoriSpace(100);
    m.setVartSpace(50);
    const std::pair<float, float> expected[] = {
        {120, 240}, {1520, 240}, {120, 790}, {1520, 790}, {120, 1340}};
    for (std::int16_t i = 0; i < 5; ++i) {
        const auto& b = h.headlessWidget(u"m", u"optChildOption", i);
        EXPECT_EQ(b.left(), expected[i].first) << i;
        EXPECT_EQ(b.top(), expected[i].second) << i;
        EXPECT_EQ(b.width(), 1300) << i;
        EXPECT_EQ(b.height(), 250) << i;
    }
}

// A bag that records every read and write, in order.
class RecordingBag : public PropertyBag {
public:
    Variant read(std::u16string_view name, const Variant& def) override {
        reads.emplace_back(name);
        return inner.read(name, def);
    }
    void write(std::u16string_view name, const Variant& value, const Variant& def) override {
        writes.emplace_back(name, value);
        inner.write(name, value, def);
    }
    MemoryBag inner;
    std::vector<std::u16string> reads;
    std::vector<std::pair<std::u16string, Variant>> writes;
};

const std::vector<std::u16string> kBagNames = {
    u"BackStyle",    u"BackColor",    u"BorderStyle",     u"Caption",          u"Enabled",
    u"CaptionColor", u"CaptionFont",  u"OptionBackColor", u"OptionForeColor",  u"OptionLeft",
    u"OptionFont",   u"DefaultValue", u"HoriSpace",       u"KeyName",          u"OptionCaptions",
    u"OptionHeight", u"OptionLeft",   u"OptionNum",       u"OptionNumPerLine", u"OptionTop",
    u"OptionWidth",  u"SectionName",  u"VartSpace"};

TEST_F(MultiOptionHeadlessTest, shouldWriteOptionLeftTwiceButtonZeroFirstThenTheField) {
    MultiOption& m = add();
    m.setOptionLeft(700);
    RecordingBag bag;
    m.writeProperties(bag);
    std::vector<std::u16string> names;
    for (const auto& w : bag.writes) names.push_back(w.first);
    EXPECT_EQ(names, kBagNames);
    EXPECT_EQ(bag.writes[9].second.toLong(), 700) << "button 0's left";
    EXPECT_EQ(bag.writes[16].second, Variant(std::int32_t{120})) << "the stored field";
    EXPECT_TRUE(bag.inner.entries().empty()) << "the later write of the default wins";
}

TEST_F(MultiOptionHeadlessTest, shouldReadTheBagInItsOrderOptionLeftTwice) {
    RecordingBag bag;
    h.load(MultiOption::staticClassInfo(), u"m", bag);
    EXPECT_EQ(bag.reads, kBagNames);
}

TEST_F(MultiOptionHeadlessTest, shouldListTheUnpublishedBagEntriesInTheClassTable) {
    std::vector<std::pair<std::u16string, int>> entries;
    for (const SavedInfo& s : MultiOption::staticClassInfo().unpublishedSaved()) {
        entries.emplace_back(s.writeName, s.writeOrder);
        EXPECT_EQ(kBagNames.at(static_cast<std::size_t>(s.writeOrder - 1)), s.writeName);
    }
    EXPECT_EQ(entries.size(), 4u);
}

TEST_F(MultiOptionHeadlessTest, shouldKeepTheBackStyleItWasLoadedWith) {
    MemoryBag bag({{u"BackStyle", std::int32_t{0}}});
    Control& m = h.load(MultiOption::staticClassInfo(), u"m", bag);
    MemoryBag out;
    m.writeProperties(out);
    EXPECT_EQ(out.read(u"BackStyle", Variant()), Variant(std::int32_t{0}));
}

// Raises the mouse events of the surface, converted to container units, and nothing for
// the buttons' own.
TEST_F(MultiOptionHeadlessTest, shouldRaiseTheSurfacesMouseEventsConverted) {
    add();
    headless::Site& site = h.site(u"m");
    site.setScaleMode(ScaleMode::Pixels);
    site.clearRecords();
    site.mouseOnSurface(WidgetEventType::MouseDown, mouse::Left, key::ShiftMask, 10, 4);
    site.mouseOnSurface(WidgetEventType::MouseMove, 0, 0, 11, 5);
    site.mouseOnSurface(WidgetEventType::MouseUp, mouse::Left, 0, 12, 6);
    ASSERT_EQ(site.eventNames(),
              (std::vector<std::u16string>{u"MouseDown", u"MouseMove", u"MouseUp"}));
    const auto& down = site.events[0].args;
    EXPECT_EQ(down[0], Variant(mouse::Left));
    EXPECT_EQ(down[1], Variant(key::ShiftMask));
    EXPECT_EQ(down[2], Variant(150.0f));
    EXPECT_EQ(down[3], Variant(60.0f));
    site.clearRecords();
    h.headlessWidget(u"m", u"optChildOption", 0).mouse(WidgetEventType::MouseDown, 1, 0, 1, 1);
    h.headlessWidget(u"m", u"frameContainer").doubleClick();
    h.headlessWidget(u"m", u"optChildOption", 0).type(u'a');
    EXPECT_TRUE(site.events.empty());
}

// A widget factory that records how the option-button array's elements come and go.
class RecordingArray : public OptionButtonArray {
public:
    RecordingArray(std::unique_ptr<OptionButtonArray> inner, std::vector<std::string>& log)
        : inner_(std::move(inner)), log_(log) {}
    std::int16_t count() const override { return inner_->count(); }
    bool exists(std::int16_t i) const override { return inner_->exists(i); }
    OptionButton& element(std::int16_t i) const override { return inner_->element(i); }
    OptionButton& create(std::int16_t i) override {
        log_.push_back("create " + std::to_string(i));
        return inner_->create(i);
    }
    void remove(std::int16_t i) override {
        log_.push_back("remove " + std::to_string(i));
        inner_->remove(i);
    }

private:
    std::unique_ptr<OptionButtonArray> inner_;
    std::vector<std::string>& log_;
};

// A site that hands out the headless site's services but makes the option-button array
// through a recording wrapper.
class RecordingSite : public ControlSite, public WidgetFactory {
public:
    explicit RecordingSite(headless::Site& inner) : in_(inner) {}
    Ambient& ambient() override { return in_.ambient(); }
    Surface& surface() override { return in_.surface(); }
    WidgetFactory& widgets() override { return *this; }
    PropertyChangedSink& propertyChangedSink() override { return in_.propertyChangedSink(); }
    EventSink& eventSink() override { return in_.eventSink(); }
    MessageBoxService& messageBoxes() override { return in_.messageBoxes(); }
    Clipboard& clipboard() override { return in_.clipboard(); }
    Application& application() override { return in_.application(); }
    Form* parentForm() override { return in_.parentForm(); }
    ProfileService& profiles() override { return in_.profiles(); }
    Screen& screen() override { return in_.screen(); }
    FileSystem& fileSystem() override { return in_.fileSystem(); }
    std::unique_ptr<TextLabel> createTextLabel(const WidgetSpec& s) override {
        return in_.createTextLabel(s);
    }
    std::unique_ptr<ItemList> createItemList(const WidgetSpec& s) override {
        return in_.createItemList(s);
    }
    std::unique_ptr<CheckBox> createCheckBox(const WidgetSpec& s) override {
        return in_.createCheckBox(s);
    }
    std::unique_ptr<TextBox> createTextBox(const TextBoxSpec& s) override {
        return in_.createTextBox(s);
    }
    std::unique_ptr<Frame> createFrame(const WidgetSpec& s) override { return in_.createFrame(s); }
    std::unique_ptr<OptionButton> createOptionButton(const OptionButtonSpec& s) override {
        return in_.createOptionButton(s);
    }
    std::unique_ptr<OptionButtonArray> createOptionButtonArray(const OptionButtonSpec& s) override {
        return std::make_unique<RecordingArray>(in_.createOptionButtonArray(s), log);
    }
    std::unique_ptr<LineShape> createLine(const LineSpec& s) override { return in_.createLine(s); }
    std::unique_ptr<ListBox> createListBox(const ListBoxSpec& s) override {
        return in_.createListBox(s);
    }
    std::unique_ptr<CommandButton> createCommandButton(const WidgetSpec& s) override {
        return in_.createCommandButton(s);
    }
    std::unique_ptr<ControlArray<CommandButton>> createCommandButtonArray(
        const WidgetSpec& s) override {
        return in_.createCommandButtonArray(s);
    }
    std::unique_ptr<ComboBox> createComboBox(const ComboBoxSpec& s) override {
        return in_.createComboBox(s);
    }
    std::vector<std::string> log;

private:
    headless::Site& in_;
};

TEST_F(MultiOptionHeadlessTest, shouldDestroyAndCreateButtonsInRisingOrder) {
    add();
    RecordingSite site(h.site(u"m"));
    MultiOption m(site);
    m.initProperties();
    m.show();
    m.setOptionCaptions(u"a|b|c");
    m.setOptionNum(5);
    EXPECT_EQ(site.log, (std::vector<std::string>{"create 1", "create 2", "create 3", "create 4"}));
    site.log.clear();
    m.setOptionNum(2);
    EXPECT_EQ(site.log, (std::vector<std::string>{"remove 2", "remove 3", "remove 4"}));
    site.log.clear();
    m.setOptionNum(5);
    EXPECT_EQ(site.log, (std::vector<std::string>{"create 2", "create 3", "create 4"}));
}

TEST_F(MultiOptionHeadlessTest, shouldKeepButtonZeroWhenTheBagAsksForNoButtons) {
    MemoryBag bag({{u"OptionNum", std::int16_t{0}}, {u"OptionCaptions", u"x|y"}});
    MultiOption& m = static_cast<MultiOption&>(h.load(MultiOption::staticClassInfo(), u"m", bag));
    EXPECT_EQ(m.optionNum(), 0) << "kept as saved";
    EXPECT_NE(h.site(u"m").widget(u"optChildOption", 0), nullptr);
    EXPECT_EQ(h.site(u"m").widget(u"optChildOption", 1), nullptr);
    EXPECT_EQ(m.value(), 0);
}

TEST(OptionButtonArrayHost, shouldRefuseToRemoveElementZeroOrAMissingOneAndToCreateTwice) {
    corvex::testing::HeadlessHarness h;
    h.add(MultiOption::staticClassInfo(), u"m");
    OptionButtonSpec spec;
    spec.name = u"probe";
    auto array = h.site(u"m").createOptionButtonArray(spec);
    const auto number = [&](auto f) {
        try {
            f();
        } catch (const Error& e) {
            return e.number();
        }
        return 0;
    };
    EXPECT_EQ(number([&] { array->remove(0); }), 362);
    EXPECT_EQ(number([&] { array->remove(3); }), 340);
    EXPECT_EQ(number([&] { array->element(1); }), 340);
    array->element(0).setCaption(u"zero");
    array->element(0).setValue(true);
    OptionButton& one = array->create(1);
    EXPECT_FALSE(one.visible()) << "a new element is hidden";
    EXPECT_EQ(one.caption(), u"zero");
    EXPECT_FALSE(one.value());
    EXPECT_EQ(number([&] { array->create(1); }), 360);
    EXPECT_EQ(array->count(), 2);
    one.setValue(true);
    EXPECT_FALSE(array->element(0).value()) << "one group";
    array->remove(1);
    EXPECT_EQ(array->count(), 1);
    EXPECT_EQ(h.site(u"m").widget(u"probe", 1), nullptr);
}

}  // namespace
