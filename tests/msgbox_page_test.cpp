// The MessageBox property page on every host: what it shows of the first selected
// control, what it writes back, its lists' item data, the digits-only help topic and the
// changed flag.
#include "corvex/services/msgbox_page.h"

#include <gtest/gtest.h>

#include "corvex/platform/page_widgets.h"
#include "corvex/services/message_box.h"
#include "support/harness.h"

using namespace corvex;
using corvex::testing::HarnessMaker;

namespace {

class MsgBoxPageTest : public ::testing::TestWithParam<HarnessMaker> {
protected:
    void SetUp() override {
        h = GetParam().make();
        h->setUserMode(false);  // property pages work in the designer
        page = &dynamic_cast<MsgBoxPage&>(h->add(MsgBoxPage::staticClassInfo(), u"page"));
    }
    ObjectRef addBox(const std::u16string& name) {
        return h->add(MessageBox::staticClassInfo(), name).shared_from_this();
    }
    TextBox& text(const char16_t* name) { return dynamic_cast<TextBox&>(h->widget(u"page", name)); }
    ItemList& list(const char16_t* name) {
        return dynamic_cast<ItemList&>(h->widget(u"page", name));
    }
    CheckBox& check(const char16_t* name) {
        return dynamic_cast<CheckBox&>(h->widget(u"page", name));
    }
    static std::vector<std::int32_t> itemData(const ItemList& l) {
        std::vector<std::int32_t> out;
        for (std::int32_t i = 0; i < l.listCount(); ++i) out.push_back(l.itemData(i));
        return out;
    }
    std::unique_ptr<corvex::testing::Harness> h;
    MsgBoxPage* page = nullptr;
};

TEST_P(MsgBoxPageTest, shouldCarryTheEnumerationValuesAsItemDataNotTheIndexes) {
    EXPECT_EQ(itemData(list(u"cmbButtonType")), (std::vector<std::int32_t>{0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(itemData(list(u"cmbIconType")), (std::vector<std::int32_t>{0, 16, 32, 48, 64}));
    EXPECT_EQ(itemData(list(u"cmbDefaultButton")), (std::vector<std::int32_t>{0, 256, 512, 768}));
    EXPECT_EQ(itemData(list(u"cmbModalType")), (std::vector<std::int32_t>{0, 4096}));
    EXPECT_EQ(list(u"cmbIconType").list(3), u"Exclamation");
}

TEST_P(MsgBoxPageTest, shouldSelectTheIconEntryWhoseItemDataIs48) {
    ObjectRef box = addBox(u"mb");
    letProperty(*box, u"IconType", Variant(std::int32_t{48}));
    page->setSelectedControls({box});
    const ItemList& icons = list(u"cmbIconType");
    ASSERT_GE(icons.listIndex(), 0);
    EXPECT_EQ(icons.itemData(icons.listIndex()), 48);
    EXPECT_EQ(icons.listIndex(), 3);
}

TEST_P(MsgBoxPageTest, shouldShowTheTextsAndSwitchesOfTheFirstSelectedControl) {
    ObjectRef box = addBox(u"mb");
    letProperty(*box, u"Prompt", Variant(u"Really?"));
    letProperty(*box, u"Title", Variant(u"Ask"));
    letProperty(*box, u"HelpFile", Variant(u"help.html"));
    letProperty(*box, u"HelpContext", Variant(std::int32_t{12}));
    letProperty(*box, u"TextRight", Variant(true));
    letProperty(*box, u"ButtonType", Variant(std::int32_t{4}));
    page->setSelectedControls({box});
    EXPECT_EQ(text(u"txtPrompt").text(), u"Really?");
    EXPECT_EQ(text(u"txtTitle").text(), u"Ask");
    EXPECT_EQ(text(u"txtHelpFile").text(), u"help.html");
    EXPECT_EQ(text(u"txtHelpContext").text(), u"12");
    EXPECT_EQ(check(u"chkTextRight").value(), 1);
    EXPECT_EQ(check(u"chkHelpButton").value(), 0);
    EXPECT_EQ(list(u"cmbButtonType").listIndex(), 4);
    EXPECT_FALSE(page->changed()) << "filling the page is no edit";
}

TEST_P(MsgBoxPageTest, shouldLeaveAListAsItWasWhenNoEntryCarriesTheValue) {
    ObjectRef a = addBox(u"a");
    letProperty(*a, u"IconType", Variant(std::int32_t{32}));
    page->setSelectedControls({a});
    ObjectRef b = addBox(u"b");
    letProperty(*b, u"IconType", Variant(std::int32_t{33}));
    page->setSelectedControls({b});
    EXPECT_EQ(list(u"cmbIconType").listIndex(), 2) << "the entry of 32 stays selected";
}

TEST_P(MsgBoxPageTest, shouldApplyEveryFieldToTheFirstSelectedControl) {
    ObjectRef box = addBox(u"mb");
    page->setSelectedControls({box});
    text(u"txtPrompt").setText(u"Saved.");
    text(u"txtTitle").setText(u"Done");
    text(u"txtHelpFile").setText(u"f.html");
    text(u"txtHelpContext").setText(u"77");
    h->click(u"page", u"chkHelpButton");
    h->click(u"page", u"chkSetForeGround");
    list(u"cmbButtonType").setListIndex(3);
    list(u"cmbIconType").setListIndex(4);
    list(u"cmbDefaultButton").setListIndex(2);
    list(u"cmbModalType").setListIndex(1);
    EXPECT_TRUE(page->changed());
    page->apply();
    EXPECT_FALSE(page->changed());
    EXPECT_EQ(getProperty(*box, u"Prompt"), Variant(u"Saved."));
    EXPECT_EQ(getProperty(*box, u"Title"), Variant(u"Done"));
    EXPECT_EQ(getProperty(*box, u"HelpFile"), Variant(u"f.html"));
    EXPECT_EQ(getProperty(*box, u"HelpContext"), Variant(std::int32_t{77}));
    EXPECT_EQ(getProperty(*box, u"HelpButton"), Variant(true));
    EXPECT_EQ(getProperty(*box, u"SetForeGround"), Variant(true));
    EXPECT_EQ(getProperty(*box, u"TextRight"), Variant(false));
    EXPECT_EQ(getProperty(*box, u"ButtonType"), Variant(std::int32_t{3}));
    EXPECT_EQ(getProperty(*box, u"IconType"), Variant(std::int32_t{64}));
    EXPECT_EQ(getProperty(*box, u"DefaultButtonType"), Variant(std::int32_t{512}));
    EXPECT_EQ(getProperty(*box, u"ModalType"), Variant(std::int32_t{4096}));
}

TEST_P(MsgBoxPageTest, shouldApplyInTheDocumentedOrder) {
    ObjectRef box = addBox(u"mb");
    page->setSelectedControls({box});
    h->clearRecords(u"mb");
    page->apply();
    EXPECT_EQ(h->changes(u"mb"), (std::vector<std::u16string>{
                                     u"HelpContext", u"HelpFile", u"Title", u"Prompt",
                                     u"HelpButton", u"TextRight", u"SetForeGround", u"ButtonType",
                                     u"DefaultButtonType", u"IconType", u"ModalType"}));
}

TEST_P(MsgBoxPageTest, shouldShowAndChangeOnlyTheFirstOfSeveralSelectedControls) {
    ObjectRef first = addBox(u"first");
    ObjectRef second = addBox(u"second");
    letProperty(*first, u"Title", Variant(u"one"));
    letProperty(*second, u"Title", Variant(u"two"));
    page->setSelectedControls({first, second});
    EXPECT_EQ(text(u"txtTitle").text(), u"one");
    text(u"txtTitle").setText(u"changed");
    h->clearRecords(u"second");
    page->apply();
    EXPECT_EQ(getProperty(*first, u"Title"), Variant(u"changed"));
    EXPECT_EQ(getProperty(*second, u"Title"), Variant(u"two"));
    EXPECT_TRUE(h->changes(u"second").empty());
}

TEST_P(MsgBoxPageTest, shouldRefuseLettersAndBackspaceInTheHelpTopic) {
    ObjectRef box = addBox(u"mb");
    letProperty(*box, u"HelpContext", Variant(std::int32_t{12}));
    page->setSelectedControls({box});
    TextBox& topic = text(u"txtHelpContext");
    topic.setSelStart(2);
    h->typeInto(topic, u"a");
    EXPECT_EQ(topic.text(), u"12");
    h->typeInto(topic, u"\b");
    EXPECT_EQ(topic.text(), u"12") << "Backspace is refused too";
    EXPECT_FALSE(page->changed());
    h->typeInto(topic, u"3");
    EXPECT_EQ(topic.text(), u"123");
    EXPECT_TRUE(page->changed());
}

TEST_P(MsgBoxPageTest, shouldLetOtherTextBoxesTakeAnyKey) {
    h->typeInto(text(u"txtTitle"), u"ab\bc");
    EXPECT_EQ(text(u"txtTitle").text(), u"ac");
}

TEST_P(MsgBoxPageTest, shouldMarkTheNextListOrCheckBoxClickAsAnEdit) {
    ObjectRef box = addBox(u"mb");
    page->setSelectedControls({box});
    h->click(u"page", u"chkTextRight");
    EXPECT_TRUE(page->changed());
    page->setSelectedControls({box});
    EXPECT_FALSE(page->changed());
    list(u"cmbModalType").setListIndex(1);
    EXPECT_TRUE(page->changed());
}

TEST_P(MsgBoxPageTest, shouldTakeAnEmptyHelpTopicAsTopicZero) {
    ObjectRef box = addBox(u"mb");
    letProperty(*box, u"HelpContext", Variant(std::int32_t{5}));
    page->setSelectedControls({box});
    text(u"txtHelpContext").setText(u"");
    page->apply();
    EXPECT_EQ(getProperty(*box, u"HelpContext"), Variant(std::int32_t{0}));
}

TEST_P(MsgBoxPageTest, shouldDoNothingWithoutASelection) {
    page->setSelectedControls({});
    EXPECT_NO_THROW(page->apply());
    EXPECT_EQ(text(u"txtPrompt").text(), u"");
}

INSTANTIATE_TEST_SUITE_P(Hosts, MsgBoxPageTest,
                         ::testing::ValuesIn(corvex::testing::availableHarnesses()),
                         corvex::testing::harnessName);

}  // namespace
