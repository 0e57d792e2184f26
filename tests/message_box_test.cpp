// MessageBox on every host: the style number it builds, the box shown at each Show and
// each read of Answer, Value as the last answer, and its saved properties.
#include "corvex/services/message_box.h"

#include <gtest/gtest.h>

#include <limits>

#include "corvex/library/memory_bag.h"
#include "support/harness.h"

using namespace corvex;
using corvex::testing::HarnessMaker;

namespace {

class MessageBoxTest : public ::testing::TestWithParam<HarnessMaker> {
protected:
    void SetUp() override {
        h = GetParam().make();
        box = &dynamic_cast<MessageBox&>(h->add(MessageBox::staticClassInfo(), u"mb"));
    }
    void let(const char16_t* name, Variant v) { letProperty(*box, name, v); }
    std::int32_t shownStyle() {
        box->showBox();
        return h->messageBoxes().back().style;
    }
    std::unique_ptr<corvex::testing::Harness> h;
    MessageBox* box = nullptr;
};

TEST_P(MessageBoxTest, shouldBuildStyle0x4124ForYesNoQuestionButton2WithHelp) {
    let(u"ButtonType", Variant(std::int32_t{4}));
    let(u"IconType", Variant(std::int32_t{32}));
    let(u"DefaultButtonType", Variant(std::int32_t{256}));
    let(u"ModalType", Variant(std::int32_t{0}));
    let(u"HelpButton", Variant(true));
    EXPECT_EQ(shownStyle(), 0x4124);
}

TEST_P(MessageBoxTest, shouldBuildStyle0x94000FromTheThreeSwitchesAlone) {
    let(u"HelpButton", Variant(true));
    let(u"SetForeGround", Variant(true));
    let(u"TextRight", Variant(true));
    EXPECT_EQ(shownStyle(), 0x94000);
}

TEST_P(MessageBoxTest, shouldAddTheValuesSoThatOutOfRangeOnesCarry) {
    let(u"ButtonType", Variant(std::int32_t{7}));
    let(u"IconType", Variant(std::int32_t{9}));
    let(u"ModalType", Variant(std::int32_t{4096}));
    EXPECT_EQ(shownStyle(), 7 + 9 + 4096) << "added, not or-ed";
}

TEST_P(MessageBoxTest, shouldRaiseOverflowWhenTheSumLeaves32BitsAndKeepTheAnswers) {
    h->queueAnswer(6);
    box->showBox();
    let(u"ButtonType", Variant(std::numeric_limits<std::int32_t>::max()));
    let(u"IconType", Variant(std::int32_t{16}));
    const std::size_t shown = h->messageBoxes().size();
    try {
        invoke(*box, u"Show", CallKind::Method);
        FAIL() << "expected 6";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), err::Overflow);
    }
    EXPECT_EQ(h->messageBoxes().size(), shown) << "no box shown";
    EXPECT_EQ(getProperty(*box, u"Value").toLong(), 6);
}

TEST_P(MessageBoxTest, shouldOverflowOnTheSwitchesAddedLast) {
    let(u"ButtonType", Variant(std::numeric_limits<std::int32_t>::max() - 0x4000 + 1));
    let(u"HelpButton", Variant(true));
    EXPECT_THROW(box->style(), Error);
    let(u"ButtonType", Variant(std::numeric_limits<std::int32_t>::min()));
    let(u"IconType", Variant(std::int32_t{-1}));
    EXPECT_THROW(box->style(), Error);
}

TEST_P(MessageBoxTest, shouldKeepValueZeroUntilTheFirstShowThenTheAnswer) {
    EXPECT_EQ(getProperty(*box, u"Value"), Variant(std::int32_t{0}));
    EXPECT_TRUE(h->messageBoxes().empty()) << "reading Value shows nothing";
    let(u"ButtonType", Variant(std::int32_t{4}));
    h->queueAnswer(7);
    EXPECT_EQ(invoke(*box, u"Show", CallKind::Method), Variant(std::int32_t{7}));
    EXPECT_EQ(getProperty(*box, u"Value"), Variant(std::int32_t{7}));
}

TEST_P(MessageBoxTest, shouldShowTheBoxAtEveryReadOfAnswer) {
    h->queueAnswer(6);
    h->queueAnswer(7);
    EXPECT_EQ(getProperty(*box, u"Answer").toLong(), 6);
    EXPECT_EQ(getProperty(*box, u"Answer").toLong(), 7);
    EXPECT_EQ(h->messageBoxes().size(), 2u);
    EXPECT_EQ(getProperty(*box, u"Value").toLong(), 7);
}

TEST_P(MessageBoxTest, shouldPassPromptTitleAndHelpToTheHost) {
    let(u"Prompt", Variant(u"Save the changes?\rThey are not saved."));
    let(u"Title", Variant(u"Corvex demo"));
    let(u"HelpFile", Variant(u"/usr/share/doc/demo.html"));
    let(u"HelpContext", Variant(std::int32_t{42}));
    box->showBox();
    const MessageBoxRequest r = h->messageBoxes().back();
    EXPECT_EQ(r.text, u"Save the changes?\rThey are not saved.");
    EXPECT_EQ(r.title, u"Corvex demo");
    EXPECT_EQ(r.helpFile, u"/usr/share/doc/demo.html");
    EXPECT_EQ(r.helpContext, 42);
}

TEST_P(MessageBoxTest, shouldLeaveAnEmptyTitleToTheHost) {
    box->showBox();
    EXPECT_EQ(h->messageBoxes().back().title, u"");
}

TEST_P(MessageBoxTest, shouldTakeAnyNumberForAnEnumeratedPropertyAndSignalItsName) {
    h->clearRecords(u"mb");
    let(u"IconType", Variant(std::int32_t{1234}));
    EXPECT_EQ(getProperty(*box, u"IconType").toLong(), 1234);
    let(u"DefaultButtonType", Variant(std::int32_t{-5}));
    EXPECT_EQ(getProperty(*box, u"DefaultButtonType").toLong(), -5);
    EXPECT_EQ(h->changes(u"mb"), (std::vector<std::u16string>{u"IconType", u"DefaultButtonType"}));
}

TEST_P(MessageBoxTest, shouldRefuseToSetAnswerOrValue) {
    EXPECT_THROW(let(u"Answer", Variant(std::int32_t{1})), Error);
    EXPECT_THROW(let(u"Value", Variant(std::int32_t{1})), Error);
}

TEST_P(MessageBoxTest, shouldSaveEveryFieldInTheReadOrderAndLoadItBack) {
    let(u"ButtonType", Variant(std::int32_t{3}));
    let(u"IconType", Variant(std::int32_t{48}));
    let(u"DefaultButtonType", Variant(std::int32_t{512}));
    let(u"ModalType", Variant(std::int32_t{4096}));
    let(u"HelpButton", Variant(true));
    let(u"SetForeGround", Variant(true));
    let(u"TextRight", Variant(true));
    let(u"Prompt", Variant(u"p"));
    let(u"Title", Variant(u"t"));
    let(u"HelpFile", Variant(u"f"));
    let(u"HelpContext", Variant(std::int32_t{9}));
    h->queueAnswer(2);
    box->showBox();
    MemoryBag bag;
    box->writeProperties(bag);
    std::vector<std::u16string> names;
    for (const auto& e : bag.entries()) names.push_back(e.first);
    EXPECT_EQ(names, (std::vector<std::u16string>{u"ButtonType", u"IconType", u"DefaultButtonType",
                                                  u"ModalType", u"HelpButton", u"SetForeGround",
                                                  u"TextRight", u"Value", u"Prompt", u"Title",
                                                  u"HelpFile", u"HelpContext", u"Answer"}));
    Control& loaded = h->load(MessageBox::staticClassInfo(), u"mb2", bag);
    EXPECT_EQ(getProperty(loaded, u"Value").toLong(), 2);
    EXPECT_EQ(dynamic_cast<MessageBox&>(loaded).style(), box->style());
    EXPECT_EQ(getProperty(loaded, u"HelpFile"), Variant(u"f"));
}

INSTANTIATE_TEST_SUITE_P(Hosts, MessageBoxTest,
                         ::testing::ValuesIn(corvex::testing::availableHarnesses()),
                         corvex::testing::harnessName);

TEST(MessageBoxTable, shouldPublishTheMembersWithTheirEnumerations) {
    const ClassInfo& c = MessageBox::staticClassInfo();
    EXPECT_EQ(c.member(u"Answer")->enumeration, &enumInfo<MsgBoxControlAnswer>());
    EXPECT_FALSE(c.member(u"Answer")->writable());
    EXPECT_EQ(c.member(u"IconType")->enumeration, &enumInfo<MsgBoxControlIconType>());
    EXPECT_EQ(c.member(u"Show")->type, VarType::Long);
    EXPECT_EQ(enumInfo<MsgBoxControlIconType>().nameOf(48), u"Exclamation");
    EXPECT_EQ(enumInfo<MsgBoxControlDefaultButtonType>().nameOf(768), u"Button4");
    EXPECT_EQ(enumInfo<MsgBoxControlModalType>().nameOf(4096), u"SystemModal");
    EXPECT_EQ(enumInfo<MsgBoxControlAnswer>().nameOf(7), u"No");
    EXPECT_EQ(enumInfo<MsgBoxControlButtonType>().nameOf(5), u"RetryCancel");
}

}  // namespace
