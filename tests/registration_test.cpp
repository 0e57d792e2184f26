// Registering the library writes its type library, classes and interfaces into the
// registration file; unregistering takes out exactly that.
#include "corvex/library/registration.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "corvex/common/boolean_box.h"
#include "corvex/common/text.h"
#include "corvex/library/class_table.h"
#include "corvex/library/identifiers.h"
#include "corvex/services/msgbox_page.h"

using namespace corvex;

namespace {

constexpr const char* kLibrary = "/usr/lib/libcorvex.so";

std::string classSection(const ClassInfo& cls) {
    return "CLSID\\" + identifiersOf(cls).classId.text();
}

TEST(Registration, shouldDescribeTheTypeLibraryWithItsVersionLocaleAndFileVersion) {
    IniDocument file;
    registerLibrary(file, kLibrary);
    const std::string section = "TypeLib\\" + typeLibraryId().text() + "\\1.3";
    EXPECT_EQ(file.find(section, "Description"), "Corvex Custom Controls Library 1.04");
    EXPECT_EQ(file.find(section, "Locale"), "0x409");
    EXPECT_EQ(file.find(section, "FileVersion"), "1.0.0.4");
    EXPECT_EQ(file.find(section, "Path"), kLibrary);
}

TEST(Registration, shouldRegisterEveryPublicClassWithItsInterfaces) {
    IniDocument file;
    registerLibrary(file, kLibrary);
    for (const ClassInfo* c : publicClasses()) {
        const ClassIdentifiers ids = identifiersOf(*c);
        const std::string section = classSection(*c);
        EXPECT_EQ(file.find(section, "Name"), toUtf8(c->name()));
        EXPECT_EQ(file.find(section, "ProgID"), "Corvex." + toUtf8(c->name()));
        EXPECT_EQ(file.find(section, "Kind"), classKindWord(c->kind()));
        EXPECT_EQ(file.find(section, "InprocServer"), kLibrary);
        EXPECT_EQ(file.find(section, "TypeLib"), typeLibraryId().text());
        EXPECT_EQ(file.find(section, "Interface"), ids.interfaceId.text());
        EXPECT_EQ(file.find("Interface\\" + ids.interfaceId.text(), "Name"),
                  toUtf8(ids.interfaceName));
        if (ids.hasEvents) {
            EXPECT_EQ(file.find(section, "EventInterface"), ids.eventInterfaceId.text());
            EXPECT_EQ(file.find("Interface\\" + ids.eventInterfaceId.text(), "Name"),
                      toUtf8(ids.eventInterfaceName));
        } else {
            EXPECT_EQ(file.find(section, "EventInterface"), std::nullopt);
        }
    }
    EXPECT_EQ(file.find(classSection(MsgBoxPage::staticClassInfo()), "Kind"), "page");
}

TEST(Registration, shouldChangeNothingWhenRegisteredTwice) {
    IniDocument file;
    registerLibrary(file, kLibrary);
    const std::string once = file.bytes();
    registerLibrary(file, kLibrary);
    EXPECT_EQ(file.bytes(), once);
}

TEST(Registration, shouldLeaveTheFileAsItWasAfterRegisteringAndUnregistering) {
    const std::string before =
        "; other libraries live here too\r\n[CLSID\\{00000000-0000-0000-0000-000000000001}]\r\n"
        "Name=Someone else's\r\n\r\n[Settings]\r\nkeep=this\r\n";
    IniDocument file(before);
    registerLibrary(file, kLibrary);
    EXPECT_NE(file.bytes(), before);
    EXPECT_NE(file.bytes().find("\r\nName=BooleanBox\r\n"), std::string::npos)
        << "new lines take the file's own line ending";
    unregisterLibrary(file);
    EXPECT_EQ(file.bytes(), before);
}

TEST(Registration, shouldLeaveAnEmptyFileEmptyAfterRegisteringAndUnregistering) {
    IniDocument file;
    registerLibrary(file, kLibrary);
    unregisterLibrary(file);
    EXPECT_EQ(file.bytes(), "");
}

TEST(Registration, shouldTakeOutARegistrationMadeFromAnotherPlace) {
    IniDocument file;
    registerLibrary(file, "/opt/old/libcorvex.so");
    unregisterLibrary(file);
    EXPECT_EQ(file.bytes(), "");
}

TEST(Registration, shouldKeepWhatSomeoneElseAddedToARegisteredSection) {
    IniDocument file;
    registerLibrary(file, kLibrary);
    const std::string section = classSection(BooleanBox::staticClassInfo());
    file.write(section, "Note", "added by hand");
    unregisterLibrary(file);
    EXPECT_EQ(file.find(section, "Note"), "added by hand");
    EXPECT_EQ(file.find(section, "Name"), std::nullopt);
    EXPECT_EQ(file.bytes(), "[" + section + "]\nNote=added by hand\n");
}

TEST(Registration, shouldUnregisterNothingFromAFileWithoutTheLibrary) {
    const std::string before = "[Settings]\nkeep=this";
    IniDocument file(before);
    unregisterLibrary(file);
    EXPECT_EQ(file.bytes(), before);
}

TEST(Registration, shouldWriteEachSectionAndKeyOnce) {
    std::set<std::pair<std::string, std::string>> seen;
    for (const RegistrationEntry& e : registrationEntries(kLibrary)) {
        EXPECT_TRUE(seen.emplace(e.section, e.key).second) << e.section << " " << e.key;
    }
}

}  // namespace
