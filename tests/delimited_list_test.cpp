#include "corvex/lists/delimited_list.h"

#include <gtest/gtest.h>

#include "corvex/common/error.h"

namespace corvex::lists {
namespace {

// An inner list kept in memory, recording what the rules do to it.
struct FakeList : ListTarget {
    std::vector<std::u16string> texts;
    std::vector<std::int32_t> data;
    int clears = 0;
    void clear() override {
        texts.clear();
        data.clear();
        ++clears;
    }
    void addItem(const std::u16string& t) override {
        texts.push_back(t);
        data.push_back(0);
    }
    std::int32_t listCount() const override { return static_cast<std::int32_t>(texts.size()); }
    void setItemData(std::int32_t i, std::int32_t v) override { data.at(i) = v; }
    void setListText(std::int32_t i, const std::u16string& t) override {
        if (i < 0 || i >= listCount()) throw Error(381);
        texts[static_cast<std::size_t>(i)] = t;
    }
};

using Texts = std::vector<std::u16string>;

std::int32_t errorOf(auto&& f) {
    try {
        f();
    } catch (const Error& e) {
        return e.number();
    }
    return 0;
}

TEST(DelimitedList, shouldCollapseLeadingAndRepeatedDelimiters) {
    EXPECT_EQ(split(u"||a||b"), (Texts{u"a", u"b"}));
}

TEST(DelimitedList, shouldLeaveOneEmptyLastElementAfterATrailingDelimiter) {
    EXPECT_EQ(split(u"a|b|"), (Texts{u"a", u"b", u""}));
    EXPECT_EQ(split(u"a||b|"), (Texts{u"a", u"b", u""}));
    EXPECT_EQ(split(u"a|b||"), (Texts{u"a", u"b", u""}));
}

TEST(DelimitedList, shouldGiveOneEmptyElementForDelimitersAloneOrNothing) {
    EXPECT_EQ(split(u"|"), (Texts{u""}));
    EXPECT_EQ(split(u"|||"), (Texts{u""}));
    EXPECT_EQ(split(u""), (Texts{u""}));
}

TEST(DelimitedList, shouldKeepBlanksAndOtherCharactersInElements) {
    EXPECT_EQ(split(u" a |b,c"), (Texts{u" a ", u"b,c"}));
}

TEST(DelimitedList, shouldSplitTheLongestTextAndOverflowOneUnitBeyond) {
    const std::u16string longest(kMaxTextLength, u'x');
    EXPECT_EQ(split(longest), (Texts{longest}));
    EXPECT_EQ(errorOf([&] { split(longest + u"|"); }), err::Overflow);
}

TEST(DelimitedList, shouldRebuildThreeItemsFromATextWithARunAndATrailingDelimiter) {
    FakeList list;
    rebuild(list, u"a||b|");
    EXPECT_EQ(list.texts, (Texts{u"a", u"b", u""}));
}

TEST(DelimitedList, shouldRebuildOneEmptyItemFromDelimitersAlone) {
    FakeList list;
    rebuild(list, u"|||");
    EXPECT_EQ(list.texts, (Texts{u""}));
}

TEST(DelimitedList, shouldClearEvenForAnEmptyText) {
    FakeList list;
    rebuild(list, u"x|y");
    list.data = {4, 5};
    rebuild(list, u"");
    EXPECT_TRUE(list.texts.empty());
    EXPECT_EQ(list.clears, 2);
}

TEST(DelimitedList, shouldClearBeforeOverflowingOnATooLongText) {
    FakeList list;
    rebuild(list, u"x|y");
    EXPECT_EQ(errorOf([&] { rebuild(list, std::u16string(kMaxTextLength + 1, u'a')); }),
              err::Overflow);
    EXPECT_TRUE(list.texts.empty());
}

TEST(DelimitedList, shouldNotApplyItemDataWhenRebuilding) {
    FakeList list;
    rebuild(list, u"a|b");
    EXPECT_EQ(list.data, (std::vector<std::int32_t>{0, 0}));
}

TEST(DelimitedList, shouldAllowOnlyDigitsAndDelimitersInItemData) {
    EXPECT_TRUE(itemDataCharactersAllowed(u"1|22||333|"));
    EXPECT_TRUE(itemDataCharactersAllowed(u""));
    EXPECT_FALSE(itemDataCharactersAllowed(u"-1|2"));
    EXPECT_FALSE(itemDataCharactersAllowed(u"1| 2"));
    EXPECT_FALSE(itemDataCharactersAllowed(u"+1"));
    EXPECT_FALSE(itemDataCharactersAllowed(u"1.5"));
    EXPECT_FALSE(itemDataCharactersAllowed(u"\uFF11"));  // a full-width digit
}

TEST(DelimitedList, shouldOverflowCheckingATooLongItemDataText) {
    EXPECT_EQ(errorOf([] { itemDataCharactersAllowed(std::u16string(kMaxTextLength + 1, u'1')); }),
              err::Overflow);
}

TEST(DelimitedList, shouldApplyItemDataToEveryItemAndIgnoreSurplusElements) {
    FakeList list;
    rebuild(list, u"a|b");
    EXPECT_EQ(applyItemData(list, u"7|8|9"), 0);
    EXPECT_EQ(list.data, (std::vector<std::int32_t>{7, 8}));
}

TEST(DelimitedList, shouldLeaveItemDataAloneForAnEmptyText) {
    FakeList list;
    rebuild(list, u"a|b");
    list.data = {3, 4};
    EXPECT_EQ(applyItemData(list, u""), 0);
    EXPECT_EQ(list.data, (std::vector<std::int32_t>{3, 4}));
}

TEST(DelimitedList, shouldStopAtAnEmptyLastElementAfterSettingTheEarlierItems) {
    FakeList list;
    rebuild(list, u"a|b|c");
    EXPECT_EQ(applyItemData(list, u"1|2|"), msg::IrregularString);
    EXPECT_EQ(list.data, (std::vector<std::int32_t>{1, 2, 0}));
}

TEST(DelimitedList, shouldSucceedWithATrailingDelimiterOnTwoItems) {
    FakeList list;
    rebuild(list, u"a|b");
    EXPECT_EQ(applyItemData(list, u"1|2|"), 0);
    EXPECT_EQ(list.data, (std::vector<std::int32_t>{1, 2}));
}

TEST(DelimitedList, shouldFailWithSubscriptOutOfRangeWhenElementsRunOut) {
    FakeList list;
    rebuild(list, u"a|b");
    EXPECT_EQ(errorOf([&] { applyItemData(list, u"5"); }), err::SubscriptOutOfRange);
    EXPECT_EQ(list.data, (std::vector<std::int32_t>{5, 0}));
}

TEST(DelimitedList, shouldStopAtANonNumericElementOfALoadedText) {
    FakeList list;
    rebuild(list, u"a|b|c");
    EXPECT_EQ(applyItemData(list, u"4|x|6"), msg::IrregularString);
    EXPECT_EQ(list.data, (std::vector<std::int32_t>{4, 0, 0}));
}

TEST(DelimitedList, shouldConvertNumericElementsAsTheHostDoes) {
    FakeList list;
    rebuild(list, u"a|b|c|d");
    EXPECT_EQ(applyItemData(list, u"-3| 12 |2.5|3.5"), 0);
    EXPECT_EQ(list.data, (std::vector<std::int32_t>{-3, 12, 2, 4}));
}

TEST(DelimitedList, shouldAcceptTheLimitsOf32BitsAndOverflowBeyond) {
    FakeList list;
    rebuild(list, u"a|b");
    EXPECT_EQ(applyItemData(list, u"2147483647|-2147483648"), 0);
    EXPECT_EQ(list.data, (std::vector<std::int32_t>{2147483647, -2147483647 - 1}));
    EXPECT_EQ(errorOf([&] { applyItemData(list, u"1|2147483648"); }), err::Overflow);
    EXPECT_EQ(list.data[0], 1);
}

TEST(DelimitedList, shouldAcceptMinusOneAsDefaultEvenOnAnEmptyList) {
    EXPECT_EQ(checkDefaultValue(-1, 0), 0);
}

TEST(DelimitedList, shouldRefuseADefaultBelowMinusOne) {
    EXPECT_EQ(checkDefaultValue(-2, 5), msg::BelowMinusOne);
}

TEST(DelimitedList, shouldRefuseADefaultPastTheLastItem) {
    EXPECT_EQ(checkDefaultValue(0, 0), msg::BeyondLastItem);
    EXPECT_EQ(checkDefaultValue(2, 2), msg::BeyondLastItem);
    EXPECT_EQ(checkDefaultValue(1, 2), 0);
}

TEST(DelimitedList, shouldDiscardAListEntryAssignmentByRebuilding) {
    FakeList list;
    rebuild(list, u"x|y");
    setListEntry(list, 0, u"z", u"x|y");
    EXPECT_EQ(list.texts, (Texts{u"x", u"y"}));
}

TEST(DelimitedList, shouldEmptyTheListOnAListEntryAssignmentWithoutText) {
    FakeList list;
    list.addItem(u"q");
    setListEntry(list, 0, u"z", u"");
    EXPECT_TRUE(list.texts.empty());
}

TEST(DelimitedList, shouldPassOnTheInnerErrorOfAListEntryAssignment) {
    FakeList list;
    EXPECT_EQ(errorOf([&] { setListEntry(list, 3, u"z", u"a"); }), 381);
    EXPECT_TRUE(list.texts.empty());
}

}  // namespace
}  // namespace corvex::lists
