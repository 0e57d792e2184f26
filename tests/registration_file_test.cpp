// The per-user registration file: its place, registering into it, and unregistering that
// leaves the file as it was before.
#include "corvex/posix/registration_file.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "corvex/files/file_dialog_box.h"
#include "corvex/library/identifiers.h"
#include "corvex/library/ini_file.h"
#include "corvex/library/server.h"
#include "corvex/services/message_box.h"
#include "support/temp_folder.h"

using namespace corvex;
using corvex::testing::TempFolder;

namespace {

std::string readAll(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

void writeAll(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

// Sets an environment variable for one test and puts back what was there.
class EnvVar {
public:
    EnvVar(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        if (value) {
            ::setenv(name, value, 1);
        } else {
            ::unsetenv(name);
        }
    }
    ~EnvVar() {
        if (old_) {
            ::setenv(name_, old_->c_str(), 1);
        } else {
            ::unsetenv(name_);
        }
    }
    EnvVar(const EnvVar&) = delete;
    EnvVar& operator=(const EnvVar&) = delete;

private:
    const char* name_;
    std::optional<std::string> old_;
};

const std::string kOther =
    "; kept by another library\r\n[CLSID\\{00000000-1111-2222-3333-444444444444}]\r\n"
    "Name=Other\r\n";

TEST(RegistrationFile, shouldUseTheFileNamedByTheEnvironmentFirst) {
    EnvVar file("CORVEX_REGISTRATION_FILE", "/tmp/x/registrations.ini");
    EnvVar config("XDG_CONFIG_HOME", "/tmp/config");
    EXPECT_EQ(posix::registrationFilePath(), "/tmp/x/registrations.ini");
}

TEST(RegistrationFile, shouldLiveInTheUsersConfigFolder) {
    EnvVar file("CORVEX_REGISTRATION_FILE", nullptr);
    EnvVar config("XDG_CONFIG_HOME", "/tmp/config");
    EXPECT_EQ(posix::registrationFilePath(), "/tmp/config/corvex/registrations.ini");
}

TEST(RegistrationFile, shouldFallBackToDotConfigInTheHomeFolder) {
    EnvVar file("CORVEX_REGISTRATION_FILE", nullptr);
    EnvVar config("XDG_CONFIG_HOME", "");
    EnvVar home("HOME", "/home/someone");
    EXPECT_EQ(posix::registrationFilePath(), "/home/someone/.config/corvex/registrations.ini");
}

TEST(RegistrationFile, shouldCreateTheFileAndItsFolderWhenRegistering) {
    TempFolder folder;
    const std::string path = folder / "deep/er/registrations.ini";
    EXPECT_TRUE(posix::registerInFile(path, "/opt/lib/libcorvex.so"));
    const IniDocument file(readAll(path));
    const std::string typeLibrary = "TypeLib\\" + typeLibraryId().text() + "\\1.3";
    EXPECT_EQ(file.find(typeLibrary, "Description"), "Corvex Custom Controls Library 1.04");
    EXPECT_EQ(file.find(typeLibrary, "Path"), "/opt/lib/libcorvex.so");
}

TEST(RegistrationFile, shouldNotWriteAgainWhenRegisteringTwice) {
    TempFolder folder;
    const std::string path = folder / "registrations.ini";
    ASSERT_TRUE(posix::registerInFile(path, "/opt/lib/libcorvex.so"));
    const std::string once = readAll(path);
    EXPECT_FALSE(posix::registerInFile(path, "/opt/lib/libcorvex.so"));
    EXPECT_EQ(readAll(path), once);
}

TEST(RegistrationFile, shouldLeaveTheFileAsItWasAfterRegisterThenUnregister) {
    TempFolder folder;
    const std::string path = folder / "registrations.ini";
    writeAll(path, kOther);
    ASSERT_TRUE(posix::registerInFile(path, "/opt/lib/libcorvex.so"));
    EXPECT_NE(readAll(path), kOther);
    EXPECT_TRUE(posix::unregisterFromFile(path));
    EXPECT_EQ(readAll(path), kOther);
    EXPECT_FALSE(posix::unregisterFromFile(path));
    EXPECT_EQ(readAll(path), kOther);
}

TEST(RegistrationFile, shouldNotCreateAFileWhenUnregisteringFromNone) {
    TempFolder folder;
    const std::string path = folder / "registrations.ini";
    EXPECT_FALSE(posix::unregisterFromFile(path));
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(RegistrationFile, shouldWriteEachClassesPropertyPagesInTabOrder) {
    TempFolder folder;
    const std::string path = folder / "registrations.ini";
    ASSERT_TRUE(posix::registerInFile(path, "/opt/lib/libcorvex.so"));
    const IniDocument file(readAll(path));
    const auto pagesOf = [&](const ClassInfo& cls) {
        return file.find("CLSID\\" + identifiersOf(cls).classId.text(), "PropertyPages");
    };
    std::string fileDialogPages;
    for (const char* page : {"ppgFILEDLG1", "ppgFILEDLG2", "ppgFILEDLG3", "ppgFILEDLG4"}) {
        if (!fileDialogPages.empty()) fileDialogPages += ",";
        fileDialogPages += nameBasedUuid(std::string("Corvex.") + page).text();
    }
    EXPECT_EQ(pagesOf(FileDialogBox::staticClassInfo()), fileDialogPages);
    EXPECT_EQ(pagesOf(MessageBox::staticClassInfo()), nameBasedUuid("Corvex.ppgMSGBOX").text());
}

TEST(RegistrationFile, shouldRegisterAndUnregisterThroughTheEntryPoints) {
    TempFolder folder;
    const std::string path = folder / "registrations.ini";
    writeAll(path, kOther);
    EnvVar file("CORVEX_REGISTRATION_FILE", path.c_str());
    ASSERT_EQ(DllRegisterServer(), S_OK);
    const IniDocument registered(readAll(path));
    const std::string typeLibrary = "TypeLib\\" + typeLibraryId().text() + "\\1.3";
    // Linked into this test program, the library's code lives in the program's file.
    EXPECT_EQ(registered.find(typeLibrary, "Path"), posix::libraryFilePath());
    EXPECT_TRUE(std::filesystem::path(posix::libraryFilePath()).is_absolute());
    EXPECT_EQ(DllRegisterServer(), S_OK);
    ASSERT_EQ(DllUnregisterServer(), S_OK);
    EXPECT_EQ(readAll(path), kOther);
    EXPECT_EQ(DllUnregisterServer(), S_OK);
    EXPECT_EQ(readAll(path), kOther);
}

TEST(RegistrationFile, shouldFailAndLeaveNothingWhenTheFileCannotBeWritten) {
    TempFolder folder;
    // A folder stands where the file should be: it can be neither read nor replaced.
    const std::string path = folder / "registrations.ini";
    std::filesystem::create_directory(path);
    EnvVar file("CORVEX_REGISTRATION_FILE", path.c_str());
    EXPECT_EQ(DllRegisterServer(), SELFREG_E_CLASS);
    EXPECT_TRUE(std::filesystem::is_directory(path));
    EXPECT_EQ(DllUnregisterServer(), SELFREG_E_CLASS);
}

}  // namespace
