// The one table of key codes every host reads.
#include <gtest/gtest.h>

#include "corvex/platform/widgets.h"

using namespace corvex;

namespace {

TEST(KeyTable, shouldTypeLettersByTheirUpperCaseCodeWithShiftForCapitals) {
    EXPECT_EQ(keyStrokeFor(u'a').keyCode, 65);
    EXPECT_EQ(keyStrokeFor(u'a').shift, 0);
    EXPECT_EQ(keyStrokeFor(u'Z').keyCode, 90);
    EXPECT_EQ(keyStrokeFor(u'Z').shift, key::ShiftMask);
}

TEST(KeyTable, shouldTypeDigitsAndTheirShiftedSymbolsWithTheDigitsKey) {
    EXPECT_EQ(keyStrokeFor(u'7').keyCode, u'7');
    EXPECT_EQ(keyStrokeFor(u'&').keyCode, u'7');
    EXPECT_EQ(keyStrokeFor(u'&').shift, key::ShiftMask);
    EXPECT_EQ(keyStrokeFor(u')').keyCode, u'0');
}

TEST(KeyTable, shouldTypePunctuationWithItsOemKey) {
    EXPECT_EQ(keyStrokeFor(u'.').keyCode, 190);
    EXPECT_EQ(keyStrokeFor(u'>').keyCode, 190);
    EXPECT_EQ(keyStrokeFor(u'>').shift, key::ShiftMask);
    EXPECT_EQ(keyStrokeFor(u'"').keyCode, 222);
    EXPECT_EQ(keyStrokeFor(u'|').keyCode, 220);
}

TEST(KeyTable, shouldNameTheEditingKeys) {
    EXPECT_EQ(keyStrokeFor(u'\b').keyCode, key::Back);
    EXPECT_EQ(keyStrokeFor(u'\t').keyCode, key::Tab);
    EXPECT_EQ(keyStrokeFor(u'\r').keyCode, key::Return);
    EXPECT_EQ(keyStrokeFor(u'\n').keyCode, key::Return);
    EXPECT_EQ(keyStrokeFor(u' ').keyCode, key::Space);
}

TEST(KeyTable, shouldGiveTheInputMethodKeyBeyondAsciiAndNoKeyToOtherControls) {
    EXPECT_EQ(keyStrokeFor(u'あ').keyCode, 229);
    EXPECT_EQ(keyStrokeFor(u'\x01').keyCode, 0);
}

}  // namespace
