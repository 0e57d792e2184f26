// The combo box rules every host's combo box follows.
#include "corvex/lists/combo_model.h"

#include <gtest/gtest.h>

#include "corvex/common/error.h"

namespace corvex::lists {
namespace {

using Texts = std::vector<std::u16string>;

std::int32_t errorOf(auto&& f) {
    try {
        f();
    } catch (const Error& e) {
        return e.number();
    }
    return 0;
}

TEST(ComboModel, shouldPlaceItemsInOrderIgnoringCaseWhenSorted) {
    ComboModel m(false, true);
    for (const char16_t* t : {u"pear", u"Apple", u"banana", u"apple"}) m.add(t, -1);
    EXPECT_EQ(m.texts(), (Texts{u"Apple", u"apple", u"banana", u"pear"}));
    EXPECT_EQ(m.newIndex(), 1) << "an equal item goes after the one there";
}

TEST(ComboModel, shouldAppendOrInsertWhenNotSorted) {
    ComboModel m(false, false);
    m.add(u"b", -1);
    m.add(u"a", -1);
    m.add(u"c", 1);
    EXPECT_EQ(m.texts(), (Texts{u"b", u"c", u"a"}));
    EXPECT_EQ(m.newIndex(), 1);
    EXPECT_EQ(errorOf([&] { m.add(u"x", 5); }), err::InvalidProcedureCall);
}

TEST(ComboModel, shouldStartWithNothingSelectedAndNoNewIndex) {
    ComboModel m(true, false);
    EXPECT_EQ(m.listIndex(), -1);
    EXPECT_EQ(m.newIndex(), -1);
}

TEST(ComboModel, shouldKeepTheSelectedItemSelectedWhenItemsComeAndGo) {
    ComboModel m(false, false);
    m.add(u"a", -1);
    m.add(u"b", -1);
    EXPECT_TRUE(m.select(1).click);
    m.add(u"z", 0);
    EXPECT_EQ(m.listIndex(), 2);
    m.remove(0);
    EXPECT_EQ(m.listIndex(), 1);
    m.remove(1);
    EXPECT_EQ(m.listIndex(), -1);
}

TEST(ComboModel, shouldKeepItemDataPerItem) {
    ComboModel m(false, false);
    m.add(u"a", -1);
    m.add(u"b", -1);
    m.setItemData(1, 42);
    m.add(u"c", 0);
    EXPECT_EQ(m.itemData(0), 0);
    EXPECT_EQ(m.itemData(2), 42);
    EXPECT_EQ(errorOf([&] { m.itemData(3); }), 381);
}

TEST(ComboModel, shouldRaiseClickOnlyWhenTheSelectionChanges) {
    ComboModel m(false, false);
    m.add(u"a", -1);
    EXPECT_TRUE(m.select(0).click);
    EXPECT_FALSE(m.select(0).click);
    EXPECT_EQ(m.edit().text(), u"a");
    EXPECT_EQ(m.edit().selLength(), 1) << "the chosen text stands selected";
    EXPECT_EQ(errorOf([&] { m.select(1); }), err::InvalidPropertyValue);
}

TEST(ComboModel, shouldRefuseATextThatIsNoItemInAPickOnlyBox) {
    ComboModel m(true, false);
    m.add(u"Alpha", -1);
    EXPECT_EQ(errorOf([&] { m.setText(u"beta"); }), err::SetNotSupported);
    EXPECT_TRUE(m.setText(u"alpha").click);
    EXPECT_EQ(m.listIndex(), 0);
    EXPECT_FALSE(m.setSelText(u"x").change);
    EXPECT_EQ(m.edit().text(), u"Alpha");
}

TEST(ComboModel, shouldSelectTheItemWithTheTypedTextInAFreeTextBox) {
    ComboModel m(false, false);
    m.add(u"ab", -1);
    EXPECT_TRUE(m.type(u'a').change);
    EXPECT_EQ(m.listIndex(), -1);
    EXPECT_TRUE(m.type(u'b').change);
    EXPECT_EQ(m.listIndex(), 0);
}

TEST(ComboModel, shouldCycleThroughItemsByTheirFirstLetterInAPickOnlyBox) {
    ComboModel m(true, false);
    for (const char16_t* t : {u"bat", u"Ant", u"bee"}) m.add(t, -1);
    EXPECT_EQ((m.type(u'b'), m.listIndex()), 0);
    EXPECT_EQ((m.type(u'B'), m.listIndex()), 2);
    EXPECT_EQ((m.type(u'b'), m.listIndex()), 0);
    EXPECT_FALSE(m.type(u'z').click);
    EXPECT_FALSE(m.type(u'a').change);
}

TEST(ComboModel, shouldIgnoreTheUserWhenLocked) {
    ComboModel m(false, false);
    m.add(u"a", -1);
    m.setLocked(true);
    EXPECT_FALSE(m.pick(0).click);
    EXPECT_FALSE(m.type(u'x').change);
    EXPECT_EQ(m.listIndex(), -1);
}

TEST(ComboModel, shouldEmptyTheEditPartOnClear) {
    ComboModel m(false, false);
    m.add(u"a", -1);
    m.select(0);
    EXPECT_TRUE(m.clear().change);
    EXPECT_EQ(m.count(), 0);
    EXPECT_EQ(m.listIndex(), -1);
    EXPECT_EQ(m.edit().text(), u"");
}

}  // namespace
}  // namespace corvex::lists
