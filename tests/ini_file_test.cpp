// The INI rules on bytes alone: look-up as the Windows profile service does it, and a
// change that touches one line only.
#include "corvex/library/ini_file.h"

#include <gtest/gtest.h>

using namespace corvex;

namespace {

std::string valueOr(const IniDocument& doc, std::string_view s, std::string_view k) {
    return doc.find(s, k).value_or("<missing>");
}

// A file written by hand: odd spacing, quotes, comments, CRLF, mixed case, a BOM.
const std::string kHandWritten =
    "\xEF\xBB\xBF; settings of the order form\r\n"
    "\r\n"
    "  [ Order Form ]  ; trailing text after the bracket\r\n"
    "\tCustomer Name =  \"  Ada  \"  \r\n"
    "city='Paris'\r\n"
    "Path = C:\\data\\x;y, z\r\n"
    "#hash = ordinary\r\n"
    "; Commented = no\r\n"
    "Flag\r\n"
    "Empty =\r\n"
    "Mixed = \"half'\r\n"
    "\r\n"
    "[order form]\r\n"
    "City = Lyon\r\n"
    "Late = second section\r\n"
    "[Other]\r\n"
    "city = Rome\r\n"
    "CITY = Oslo\r\n";

}  // namespace

TEST(IniFileTest, shouldMatchSectionsAndKeysWithoutRegardToCaseOrBlanks) {
    const IniDocument doc(kHandWritten);
    EXPECT_EQ(valueOr(doc, "order form", "CUSTOMER NAME"), "  Ada  ");
    EXPECT_EQ(valueOr(doc, " ORDER FORM\t", " customer name "), "  Ada  ");
}

TEST(IniFileTest, shouldRemoveOneMatchingPairOfQuotesOnly) {
    const IniDocument doc(kHandWritten);
    EXPECT_EQ(valueOr(doc, "Order Form", "city"), "Paris");
    EXPECT_EQ(valueOr(doc, "Order Form", "Mixed"), "\"half'");
    EXPECT_EQ(IniDocument("[s]\nk=\"\"a\"\"\n").find("s", "k"), "\"a\"");
    EXPECT_EQ(IniDocument("[s]\nk=\"\n").find("s", "k"), "\"");
}

TEST(IniFileTest, shouldTreatBackslashesCommasSemicolonsAndHashesAsOrdinaryCharacters) {
    const IniDocument doc(kHandWritten);
    EXPECT_EQ(valueOr(doc, "Order Form", "path"), "C:\\data\\x;y, z");
    EXPECT_EQ(valueOr(doc, "Order Form", "#hash"), "ordinary");
}

TEST(IniFileTest, shouldSkipCommentLines) {
    const IniDocument doc(kHandWritten);
    EXPECT_EQ(valueOr(doc, "Order Form", "Commented"), "<missing>");
    EXPECT_EQ(valueOr(doc, "Order Form", "; Commented"), "<missing>");
}

TEST(IniFileTest, shouldLetTheFirstOfDuplicateSectionsAndKeysWin) {
    const IniDocument doc(kHandWritten);
    EXPECT_EQ(valueOr(doc, "ORDER FORM", "city"), "Paris");
    EXPECT_EQ(valueOr(doc, "order form", "Late"), "<missing>");
    EXPECT_EQ(valueOr(doc, "other", "city"), "Rome");
}

TEST(IniFileTest, shouldReadAKeyLineWithoutEqualsAndAnEmptyValueAsEmpty) {
    const IniDocument doc(kHandWritten);
    EXPECT_EQ(valueOr(doc, "Order Form", "flag"), "");
    EXPECT_EQ(valueOr(doc, "Order Form", "empty"), "");
}

TEST(IniFileTest, shouldGiveTheDefaultWithItsTrailingBlanksTrimmedForWhatIsMissing) {
    const IniDocument doc(kHandWritten);
    EXPECT_EQ(doc.read("Order Form", "nothing", "  dflt \t "), "  dflt");
    EXPECT_EQ(doc.read("No Section", "city", "d"), "d");
    EXPECT_EQ(IniDocument().read("s", "k", "d"), "d");
    EXPECT_EQ(doc.read("Order Form", "city", "d"), "Paris");
}

TEST(IniFileTest, shouldIgnoreKeysBeforeTheFirstSection) {
    const IniDocument doc("k=1\n[s]\nj=2\n");
    EXPECT_EQ(valueOr(doc, "", "k"), "<missing>");
    EXPECT_EQ(valueOr(doc, "s", "k"), "<missing>");
}

TEST(IniFileTest, shouldKeepEveryByteOfAnUnchangedFile) {
    EXPECT_EQ(IniDocument(kHandWritten).bytes(), kHandWritten);
    const std::string mixed = "[a]\nx=1\r\ny=2\n\n;c\r\nlast";
    EXPECT_EQ(IniDocument(mixed).bytes(), mixed);
    EXPECT_EQ(IniDocument("").bytes(), "");
}

TEST(IniFileTest, shouldChangeOnlyTheLineOfAnExistingKeyKeepingItsSpelling) {
    IniDocument doc(kHandWritten);
    doc.write("order form", "CITY", "Berlin");
    std::string expected = kHandWritten;
    expected.replace(expected.find("city='Paris'"), 12, "city=Berlin");
    EXPECT_EQ(doc.bytes(), expected);
    doc.write("ORDER FORM", "customer name", "Bob");
    expected.replace(expected.find("=  \"  Ada  \"  "), 14, "=  Bob");
    EXPECT_EQ(doc.bytes(), expected);
}

TEST(IniFileTest, shouldGiveAKeyLineWithoutEqualsItsValue) {
    IniDocument doc(kHandWritten);
    doc.write("Order Form", "flag", "on");
    std::string expected = kHandWritten;
    expected.replace(expected.find("Flag\r\n"), 4, "Flag=on");
    EXPECT_EQ(doc.bytes(), expected);
}

TEST(IniFileTest, shouldAddANewKeyAfterTheLastKeyOfItsSectionWithTheFilesLineEnding) {
    IniDocument doc(kHandWritten);
    doc.write("order form", "Zip", "75001");
    std::string expected = kHandWritten;
    expected.insert(expected.find("Mixed = \"half'\r\n") + 16, "Zip=75001\r\n");
    EXPECT_EQ(doc.bytes(), expected);
    EXPECT_EQ(valueOr(doc, "Order Form", "zip"), "75001");
}

TEST(IniFileTest, shouldAddANewSectionAtTheEndOfTheFile) {
    IniDocument doc(kHandWritten);
    doc.write("New Part", "Key", "v");
    EXPECT_EQ(doc.bytes(), kHandWritten + "[New Part]\r\nKey=v\r\n");
    IniDocument unterminated("[a]\nx=1");
    unterminated.write("b", "y", "2");
    EXPECT_EQ(unterminated.bytes(), "[a]\nx=1\n[b]\ny=2\n");
}

TEST(IniFileTest, shouldKeepAMissingFinalLineBreakMissingWhenAKeyIsAdded) {
    IniDocument doc("[a]\r\nx=1");
    doc.write("A", "y", "2");
    EXPECT_EQ(doc.bytes(), "[a]\r\nx=1\r\ny=2");
}

TEST(IniFileTest, shouldStartAnEmptyFileWithLinuxLineEndings) {
    IniDocument doc;
    doc.write("S", "K", "5");
    EXPECT_EQ(doc.bytes(), "[S]\nK=5\n");
}

TEST(IniFileTest, shouldWriteToTheFirstOfDuplicateSections) {
    IniDocument doc("[s]\na=1\n[t]\n[S]\nb=2\n");
    doc.write("s", "b", "3");
    EXPECT_EQ(doc.bytes(), "[s]\na=1\nb=3\n[t]\n[S]\nb=2\n");
    EXPECT_EQ(valueOr(doc, "s", "b"), "3");
}

TEST(IniFileTest, shouldAddAKeyAfterTheHeaderOfASectionWithoutKeys) {
    IniDocument doc("[s]\n; note\n\n[t]\n");
    doc.write("s", "k", "v");
    EXPECT_EQ(doc.bytes(), "[s]\nk=v\n; note\n\n[t]\n");
}

TEST(IniFileTest, shouldWriteOnlyTheFirstLineOfAValueWithLineBreaks) {
    IniDocument doc;
    doc.write("s", "k", "one\r\ntwo\n[x]");
    EXPECT_EQ(doc.bytes(), "[s]\nk=one\n");
    EXPECT_EQ(valueOr(doc, "x", "k"), "<missing>");
}

TEST(IniFileTest, shouldKeepUtf8TextAndTheByteOrderMark) {
    IniDocument doc("\xEF\xBB\xBF[設定]\n名前=値\n");
    EXPECT_EQ(valueOr(doc, "設定", "名前"), "値");
    doc.write("設定", "名前", "新しい値");
    EXPECT_EQ(doc.bytes(), "\xEF\xBB\xBF[設定]\n名前=新しい値\n");
}

TEST(IniFileTest, shouldCutUtf8AtACharacterBoundary) {
    EXPECT_EQ(cutUtf8("abc", 5), "abc");
    EXPECT_EQ(cutUtf8("abcdef", 3), "abc");
    EXPECT_EQ(cutUtf8("a値", 3), "a");  // 値 is three bytes: it does not fit
    EXPECT_EQ(cutUtf8("a値", 4), "a値");
}

TEST(IniFileTest, shouldCopyADocumentAsAnIndependentOne) {
    IniDocument a("[s]\nk=1\n");
    IniDocument b(a);
    b.write("s", "k", "2");
    EXPECT_EQ(valueOr(a, "s", "k"), "1");
    a = b;
    EXPECT_EQ(valueOr(a, "s", "k"), "2");
}

TEST(IniFileRemoveTest, shouldRemoveAKeyAndItsSectionWhenNothingElseIsLeft) {
    IniDocument doc("[a]\nx=1\n[b]\ny=2\nz=3\n");
    EXPECT_TRUE(doc.removeKey("B", " y "));
    EXPECT_EQ(doc.bytes(), "[a]\nx=1\n[b]\nz=3\n");
    EXPECT_TRUE(doc.removeKey("b", "z"));
    EXPECT_EQ(doc.bytes(), "[a]\nx=1\n");
    EXPECT_EQ(doc.find("b", "z"), std::nullopt);
    doc.write("b", "w", "4");
    EXPECT_EQ(doc.bytes(), "[a]\nx=1\n[b]\nw=4\n");
}

TEST(IniFileRemoveTest, shouldKeepASectionThatStillHoldsACommentOrAnotherKey) {
    IniDocument doc("[a]\n; mine\nx=1\n\n[b]\nk=v\n");
    EXPECT_TRUE(doc.removeKey("a", "x"));
    EXPECT_EQ(doc.bytes(), "[a]\n; mine\n\n[b]\nk=v\n");
}

TEST(IniFileRemoveTest, shouldRemoveNothingThatIsNotThere) {
    IniDocument doc("[a]\nx=1");
    EXPECT_FALSE(doc.removeKey("a", "y"));
    EXPECT_FALSE(doc.removeKey("c", "x"));
    EXPECT_EQ(doc.bytes(), "[a]\nx=1");
}

TEST(IniFileRemoveTest, shouldLetTheNextDuplicateShowOnceTheFirstIsRemoved) {
    IniDocument doc("[a]\nx=1\nx=2\n[a]\nx=3\n");
    EXPECT_TRUE(doc.removeKey("a", "x"));
    EXPECT_EQ(doc.find("a", "x"), "2");
    EXPECT_TRUE(doc.removeKey("a", "x"));
    // The first [a] is bare now and goes; the second one is found from here on.
    EXPECT_EQ(doc.find("a", "x"), "3");
    EXPECT_EQ(doc.bytes(), "[a]\nx=3\n");
}
