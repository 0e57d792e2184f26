// The identifiers hosts find the classes by: name-based, fixed, distinct, readable back.
#include "corvex/library/identifiers.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "../library/sha1.h"
#include "corvex/common/boolean_box.h"
#include "corvex/common/text.h"
#include "corvex/library/class_table.h"
#include "corvex/services/msgbox_page.h"

using namespace corvex;

namespace {

std::string hex(std::span<const std::uint8_t> bytes) {
    std::string out;
    for (std::uint8_t b : bytes) {
        const char* digits = "0123456789abcdef";
        out += digits[b >> 4];
        out += digits[b & 15];
    }
    return out;
}

std::array<std::uint8_t, 20> digestOf(const std::string& text) {
    return detail::sha1(std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
}

TEST(Identifiers, shouldDigestTheStandardTestMessages) {
    EXPECT_EQ(hex(digestOf("")), "da39a3ee5e6b4b0d3255bfef95601890afd80709");
    EXPECT_EQ(hex(digestOf("abc")), "a9993e364706816aba3e25717850c26c9cd0d89d");
    // Longer than one block, so that the length runs into a block of its own.
    EXPECT_EQ(hex(digestOf(std::string(1000, 'a'))), "291e9a6c66994949b57ba5e650361e98fc36b1ba");
}

// Pinned: a host that registered the library once must find the same classes again.
TEST(Identifiers, shouldKeepTheIdentifiersTheLibraryWasRegisteredWith) {
    const ClassIdentifiers box = identifiersOf(BooleanBox::staticClassInfo());
    EXPECT_EQ(box.classId.text(), "{5F4EB324-E3BB-59C4-AEE9-144539AA0751}");
    EXPECT_EQ(box.interfaceId.text(), "{6A82343A-ECC5-57FF-B50B-932DC3DB3F9B}");
    EXPECT_EQ(box.eventInterfaceId.text(), "{BA04A441-A1AC-55A7-8E65-A29B7B523D20}");
    EXPECT_EQ(box.interfaceName, u"_BooleanBox");
    EXPECT_EQ(box.eventInterfaceName, u"__BooleanBox");
    EXPECT_EQ(identifiersOf(MsgBoxPage::staticClassInfo()).classId.text(),
              "{4819A015-3790-57CA-ADB2-750D65D4411B}");
    EXPECT_EQ(typeLibraryId().text(), "{6D2595BB-C439-578B-9AA9-ADA19D121465}");
}

TEST(Identifiers, shouldGiveEveryClassAndInterfaceADistinctVersionFiveIdentifier) {
    std::set<std::string> seen;
    for (const ClassInfo* c : publicClasses()) {
        const ClassIdentifiers ids = identifiersOf(*c);
        std::vector<Uuid> all = {ids.classId, ids.interfaceId};
        if (ids.hasEvents) all.push_back(ids.eventInterfaceId);
        for (const Uuid& u : all) {
            EXPECT_EQ(u.data3 >> 12, 5) << u.text();
            EXPECT_EQ(u.data4[0] & 0xC0, 0x80) << u.text();
            EXPECT_TRUE(seen.insert(u.text()).second) << u.text();
        }
    }
    EXPECT_TRUE(seen.insert(typeLibraryId().text()).second);
}

TEST(Identifiers, shouldGiveAPropertyPageNoEventInterface) {
    const ClassIdentifiers page = identifiersOf(MsgBoxPage::staticClassInfo());
    EXPECT_FALSE(page.hasEvents);
    EXPECT_EQ(page.eventInterfaceName, u"");
    EXPECT_EQ(page.interfaceName, u"_ppgMSGBOX");
}

TEST(Identifiers, shouldReadBackTheRegistryFormInEitherCaseWithOrWithoutBraces) {
    const Uuid u = identifiersOf(BooleanBox::staticClassInfo()).classId;
    EXPECT_EQ(Uuid::parse(u.text()), u);
    EXPECT_EQ(Uuid::parse("5f4eb324-e3bb-59c4-aee9-144539aa0751"), u);
    EXPECT_EQ(Uuid::parse(""), std::nullopt);
    EXPECT_EQ(Uuid::parse("{5F4EB324-E3BB-59C4-AEE9-144539AA0751"), std::nullopt);
    EXPECT_EQ(Uuid::parse("{5F4EB324+E3BB-59C4-AEE9-144539AA0751}"), std::nullopt);
    EXPECT_EQ(Uuid::parse("{5F4EB324-E3BB-59C4-AEE9-144539AA075G}"), std::nullopt);
}

// docs/classes.md is what developers register against: it must say what the code says.
TEST(Identifiers, shouldListEveryClassWithItsIdentifiersInTheDocuments) {
    std::ifstream in(std::string(CORVEX_DOCS_DIR) + "/classes.md");
    ASSERT_TRUE(in) << "docs/classes.md";
    std::stringstream text;
    text << in.rdbuf();
    for (const ClassInfo* c : publicClasses()) {
        const ClassIdentifiers ids = identifiersOf(*c);
        const char* kind = classKindWord(c->kind());
        const std::string row = "| `" + toUtf8(c->name()) + "` | " + kind + " | `" +
                                ids.classId.text() + "` | `" + ids.interfaceId.text() + "` | `" +
                                (ids.hasEvents ? ids.eventInterfaceId.text() : "—") + "` |";
        EXPECT_NE(text.str().find(row), std::string::npos) << row;
    }
}

}  // namespace
