// Message texts by locale, and the refusal box.
#include "corvex/common/messages.h"

#include <gtest/gtest.h>

#include "corvex/common/boolean_box.h"
#include "support/headless_fixture.h"

using namespace corvex;
using corvex::testing::HeadlessTest;

namespace {

const MessageTable& sampleTable() {
    static const MessageTable t({{2001, u"変換エラーが生じました", u"Conversion error."},
                                 {2010, u"最大値を越えました", u""}},
                                undefinedWithStop());
    return t;
}

TEST(MessageTable, shouldHoldTheCommonTitlesInBothLanguages) {
    EXPECT_EQ(sampleTable().text(101, true), u"注意!!");
    EXPECT_EQ(sampleTable().text(101, false), u"Caution!!");
    EXPECT_EQ(sampleTable().text(102, true), u"警告!!");
    EXPECT_EQ(sampleTable().text(102, false), u"Warning!!");
    EXPECT_EQ(sampleTable().text(201, true), u"エラー番号");
    EXPECT_EQ(sampleTable().text(201, false), u"Error Number");
    EXPECT_EQ(sampleTable().text(202, true), u"エラー");
    EXPECT_EQ(sampleTable().text(202, false), u"Error");
}

TEST(MessageTable, shouldFallBackToUndefinedForUnknownCodes) {
    EXPECT_EQ(sampleTable().text(9999, true), u"未定義");
    EXPECT_EQ(sampleTable().text(9999, false), u"Undefined.");
    const MessageTable noStop({}, undefinedWithoutStop());
    EXPECT_EQ(noStop.text(9999, false), u"Undefined");
}

TEST(MessageTable, shouldKeepAnEmptyEnglishTextEmpty) {
    EXPECT_EQ(sampleTable().text(2010, false), u"");
}

TEST_F(HeadlessTest, shouldChooseJapaneseOnlyForLocale1041ReadAtEachLookup) {
    h.add(BooleanBox::staticClassInfo(), u"b");
    ControlSite& site = h.site(u"b");
    h.host().setLocaleId(1041);
    EXPECT_EQ(messageText(site, sampleTable(), 2001), u"変換エラーが生じました");
    h.host().setLocaleId(1033);
    EXPECT_EQ(messageText(site, sampleTable(), 2001), u"Conversion error.");
    h.host().setLocaleId(2057);
    EXPECT_EQ(messageText(site, sampleTable(), 2001), u"Conversion error.");
}

TEST_F(HeadlessTest, shouldShowTheRefusalBoxCriticalWithWarningTitleAndJoinedLines) {
    h.add(BooleanBox::staticClassInfo(), u"b");
    ControlSite& site = h.site(u"b");
    h.host().setLocaleId(1041);
    showRefusal(site, sampleTable(), {2001, 2010});
    ASSERT_EQ(h.host().messageBoxes().size(), 1u);
    const MessageBoxRequest& r = h.host().messageBoxes()[0];
    EXPECT_EQ(r.style, 16);
    EXPECT_EQ(r.title, u"警告!!");
    EXPECT_EQ(r.text, u"変換エラーが生じました\r最大値を越えました");
    h.host().setLocaleId(1033);
    showRefusal(site, sampleTable(), {2001, 2010});
    EXPECT_EQ(h.host().messageBoxes()[1].text, u"Conversion error.\r")
        << "an empty last line leaves a trailing carriage return";
    EXPECT_EQ(h.host().messageBoxes()[1].title, u"Warning!!");
}

}  // namespace
