// Windows names on a POSIX system: the drive map (Z: is /, the user maps other drives and
// UNC shares), and the file-system service that matches elements without regard to case.
#include "corvex/posix/drive_map.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "corvex/posix/file_system.h"
#include "support/temp_tree.h"

using namespace corvex;
using namespace corvex::posix;

namespace {

// Sets an environment variable for one test and puts the old value back.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const std::string& value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        setenv(name, value.c_str(), 1);
    }
    ~ScopedEnv() {
        if (old_) {
            setenv(name_, old_->c_str(), 1);
        } else {
            unsetenv(name_);
        }
    }

private:
    const char* name_;
    std::optional<std::string> old_;
};

TEST(DriveMap, shouldMapZToTheRootByDefault) {
    DriveMap map;
    EXPECT_EQ(map.toNative(u"Z:\\home\\me\\a.txt"), "/home/me/a.txt");
    EXPECT_EQ(map.toNative(u"z:\\"), "/");
    EXPECT_EQ(map.toNative(u"C:\\a.txt"), std::nullopt) << "C: is not mapped";
    EXPECT_EQ(map.toNative(u"\\\\server\\share\\a"), std::nullopt) << "no share is mapped";
}

TEST(DriveMap, shouldMapDrivesAndSharesTheUserGives) {
    DriveMap map;
    EXPECT_TRUE(map.map(u"C", "/home/me/c/"));
    EXPECT_TRUE(map.map(u"\\\\Server\\Share", "/mnt/share"));
    EXPECT_EQ(map.toNative(u"c:\\Data\\x.txt"), "/home/me/c/Data/x.txt");
    EXPECT_EQ(map.toNative(u"\\\\SERVER\\share\\a.doc"), "/mnt/share/a.doc");
    EXPECT_FALSE(map.map(u"C:", "relative/folder"));
    EXPECT_FALSE(map.map(u"1:", "/x"));
    EXPECT_FALSE(map.map(u"\\\\onlyserver", "/x"));
    EXPECT_TRUE(map.map(u"Z", "")) << "an empty folder unmaps";
    EXPECT_EQ(map.toNative(u"Z:\\etc"), std::nullopt);
}

TEST(DriveMap, shouldNameANativePathUnderTheLongestMappedFolder) {
    DriveMap map;
    map.map(u"C:", "/home/me/c");
    map.map(u"\\\\srv\\pub", "/mnt/pub");
    EXPECT_EQ(map.toWindows("/home/me/c/Data/report.txt"), u"C:\\Data\\report.txt");
    EXPECT_EQ(map.toWindows("/home/me/c"), u"C:\\");
    EXPECT_EQ(map.toWindows("/home/me/cc/x"), u"Z:\\home\\me\\cc\\x") << "whole elements only";
    EXPECT_EQ(map.toWindows("/mnt/pub/a/b.doc"), u"\\\\srv\\pub\\a\\b.doc");
    EXPECT_EQ(map.toWindows("/etc//hosts"), u"Z:\\etc\\hosts");
    map.map(u"Z:", "");
    EXPECT_EQ(map.toWindows("/etc/hosts"), std::nullopt);
}

TEST(DriveMap, shouldMakeARelativeNativePathAbsoluteFirst) {
    DriveMap map;
    const std::string here = std::filesystem::current_path().string();
    map.map(u"W:", here);
    EXPECT_EQ(map.toWindows("sub/x.txt"), u"W:\\sub\\x.txt");
}

TEST(DriveMap, shouldReadTheConfigurationFileThenTheVariableWhichWins) {
    corvex::testing::TempTree tree;
    const std::string config = tree.root() + "/config";
    std::filesystem::create_directories(config + "/corvex");
    std::ofstream(config + "/corvex/drives.ini")
        << "; drives\n[Drives]\nC = /from/file\nD=/d\n\\\\srv\\share=/mnt/s\nbad line\n";
    ScopedEnv xdg("XDG_CONFIG_HOME", config);
    ScopedEnv drives("CORVEX_DRIVES", "C=/from/variable;;E=~/e");
    ScopedEnv home("HOME", "/home/someone");
    EXPECT_EQ(DriveMap::configurationPath(), config + "/corvex/drives.ini");
    const DriveMap map = DriveMap::forUser();
    EXPECT_EQ(map.folderOf(u"C:"), "/from/variable");
    EXPECT_EQ(map.folderOf(u"D:"), "/d");
    EXPECT_EQ(map.folderOf(u"E:"), "/home/someone/e");
    EXPECT_EQ(map.folderOf(u"\\\\SRV\\Share"), "/mnt/s");
    EXPECT_EQ(map.folderOf(u"Z:"), "/");
}

TEST(DriveMap, shouldFallBackToTheConfigFolderInHome) {
    ScopedEnv xdg("XDG_CONFIG_HOME", "");
    ScopedEnv home("HOME", "/home/someone");
    EXPECT_EQ(DriveMap::configurationPath(), "/home/someone/.config/corvex/drives.ini");
}

TEST(DriveMap, shouldCountRefusedEntries) {
    DriveMap map;
    EXPECT_EQ(map.readConfiguration("C=/c\nnot a mapping\n#=x\n5=/x\n"), 2);
    EXPECT_EQ(map.readVariable("C=/c;D;E=rel"), 2);
}

TEST(NameCase, shouldFoldTheCaseOfLettersAsWindowsDoes) {
    EXPECT_TRUE(sameNameIgnoringCase(u"Report.TXT", u"report.txt"));
    EXPECT_TRUE(sameNameIgnoringCase(u"ÄÖÜ", u"äöü"));
    EXPECT_TRUE(sameNameIgnoringCase(u"ДОМ", u"дом"));
    EXPECT_TRUE(sameNameIgnoringCase(u"ＡＢ", u"ａｂ"));
    EXPECT_FALSE(sameNameIgnoringCase(u"a", u"b"));
    EXPECT_FALSE(sameNameIgnoringCase(u"ab", u"a"));
}

// --- the service on a real tree ---------------------------------------------------------

class PosixFiles : public ::testing::Test {
protected:
    PosixFiles() : fs(mapped()) {}
    DriveMap mapped() {
        DriveMap map;
        map.map(u"T:", tree.root());
        map.map(u"\\\\srv\\tree", tree.root());
        return map;
    }
    corvex::testing::TempTree tree;
    PosixFileSystem fs;
};

TEST_F(PosixFiles, shouldAnswerTheStoredSpellingOfTheLastElement) {
    EXPECT_EQ(fs.findFirst(u"T:\\DATA\\REPORT.TXT", 22), u"report.txt");
    EXPECT_EQ(fs.findFirst(u"t:\\data", 22), u"Data");
    EXPECT_EQ(fs.findFirst(u"\\\\SRV\\Tree\\data\\readme", 22), u"README");
    EXPECT_EQ(fs.resolve(u"T:\\data\\.\\..\\Data\\readme"), tree.root() + "/Data/README");
    EXPECT_EQ(fs.findFirst(u"T:\\Data\\none", 22), std::nullopt);
    EXPECT_EQ(fs.findFirst(u"\\\\other\\share\\x", 22), std::nullopt) << "unmapped share";
}

TEST_F(PosixFiles, shouldPreferTheExactSpellingAmongNamesDifferingOnlyInCase) {
    EXPECT_EQ(fs.findFirst(u"T:\\Case\\Report.TXT", 22), u"Report.TXT");
    EXPECT_EQ(fs.findFirst(u"T:\\Case\\report.txt", 22), u"report.txt");
    EXPECT_EQ(fs.findFirst(u"T:\\Case\\REPORT.TXT", 22), u"Report.TXT") << "first in byte order";
}

TEST_F(PosixFiles, shouldLeaveOutFoldersAndHiddenEntriesTheMaskDoesNotHold) {
    EXPECT_EQ(fs.findFirst(u"T:\\Data", 0), std::nullopt);
    EXPECT_EQ(fs.findFirst(u"T:\\.hidden", 16), std::nullopt);
    EXPECT_EQ(fs.findFirst(u"T:\\.hidden", 18), u".hidden");
    EXPECT_EQ(fs.findFirst(u"T:\\Data\\README", 0), u"README");
}

TEST_F(PosixFiles, shouldGiveWindowsStyleAttributes) {
    EXPECT_EQ(fs.attributes(u"T:\\Data"), 16);
    EXPECT_EQ(fs.attributes(u"T:\\Data\\README"), 32);
    EXPECT_EQ(fs.attributes(u"T:\\readonly.txt"), 33);
    EXPECT_EQ(fs.attributes(u"T:\\.hidden"), 18);
    EXPECT_EQ(fs.attributes(u"T:\\.hidden\\inside.txt"), 32);
    EXPECT_EQ(fs.attributes(u"T:\\dangling"), std::nullopt);
    EXPECT_EQ(fs.findFirst(u"T:\\dangling", 22), u"dangling") << "the link itself is there";
    EXPECT_EQ(fs.attributes(u"T:\\"), 16);
}

TEST_F(PosixFiles, shouldFailQuietlyOnNamesTheSystemRefuses) {
    const std::u16string tooLong = u"T:\\" + std::u16string(300, u'x');
    EXPECT_EQ(fs.findFirst(tooLong, 22), std::nullopt);
    EXPECT_EQ(fs.attributes(tooLong), std::nullopt);
    EXPECT_EQ(fs.findFirst(u"T:\\Data\\README\\below", 22), std::nullopt) << "a file as a folder";
    EXPECT_EQ(fs.findFirst(u"T:\\Data\\README\\", 22), std::nullopt);
}

TEST_F(PosixFiles, shouldNotFindWhatLiesBelowAFolderItMayNotSearch) {
    if (geteuid() == 0) GTEST_SKIP() << "root searches every folder: no permission to deny";
    const std::string locked = tree.root() + "/locked";
    std::filesystem::create_directory(locked);
    std::ofstream(locked + "/inside.txt") << "x";
    chmod(locked.c_str(), 0);
    EXPECT_EQ(fs.findFirst(u"T:\\locked\\inside.txt", 22), std::nullopt);
    EXPECT_EQ(fs.attributes(u"T:\\locked\\inside.txt"), std::nullopt);
    chmod(locked.c_str(), 0700);
}

TEST_F(PosixFiles, shouldKeepTheBufferSemanticsOfShortNames) {
    std::array<char, 260> buffer{};
    const std::string name = "T:\\Data\\README";
    EXPECT_EQ(fs.shortPathName(name, buffer), name.size());
    EXPECT_EQ(std::string(buffer.data(), name.size()), name);
    std::array<char, 4> small{'a', 'b', 'c', 'd'};
    EXPECT_EQ(fs.shortPathName(name, small), name.size() + 1);
    EXPECT_EQ(std::string(small.data(), 4), "abcd") << "untouched";
    EXPECT_EQ(fs.shortPathName("T:\\absent", buffer), 0u);
}

}  // namespace
