// The profile service on real folders: INI files kept byte for byte, read once while
// unchanged, written atomically under a lock; the settings store's files and names.
#include "corvex/posix/profile_files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "corvex/common/text.h"
#include "corvex/library/ini_file.h"
#include "support/file_limits.h"
#include "support/temp_folder.h"

using namespace corvex;
using corvex::posix::ProfileFiles;
using corvex::testing::readFile;
using corvex::testing::writeFile;

namespace {

class ProfileFilesTest : public ::testing::Test {
protected:
    corvex::testing::TempFolder root{"corvex-profiles"};
    ProfileFiles files{{root / "ini", root / "settings"}};

    std::u16string read(const std::string& file, const char* s, const char* k,
                        const char* def = "<default>") {
        return files.readIni(fromUtf8(file), u16(s), u16(k), u16(def));
    }
    void write(const std::string& file, const char* s, const char* k, const std::string& v) {
        files.writeIni(fromUtf8(file), u16(s), u16(k), fromUtf8(v));
    }
};

// Waits for a condition with a generous deadline, polling.
bool waitFor(const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::yield();
    }
    return true;
}

int exitCode(pid_t child) {
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

TEST_F(ProfileFilesTest, shouldPutAFileNamedWithoutAFolderInTheDefaultFolder) {
    write("app.ini", "S", "K", "5");
    EXPECT_EQ(readFile(root / "ini/app.ini"), "[S]\nK=5\n");
    EXPECT_EQ(read("app.ini", "s", "k"), u"5");
}

TEST_F(ProfileFilesTest, shouldUseANativePathAsItIsAndAddNoExtension) {
    write(root / "plain", "S", "K", "v");
    EXPECT_EQ(readFile(root / "plain"), "[S]\nK=v\n");
    EXPECT_EQ(read(root / "plain", "S", "K"), u"v");
}

TEST_F(ProfileFilesTest, shouldGiveTheTrimmedDefaultForAMissingFileSectionOrKey) {
    EXPECT_EQ(read(root / "none.ini", "S", "K", "d  "), u"d");
    write(root / "a.ini", "S", "K", "v");
    EXPECT_EQ(read(root / "a.ini", "T", "K", "d"), u"d");
    EXPECT_EQ(read(root / "a.ini", "S", "J", "d"), u"d");
}

TEST_F(ProfileFilesTest, shouldWriteNothingIntoAMissingFolderAndReturnQuietly) {
    EXPECT_NO_THROW(write(root / "missing/a.ini", "S", "K", "v"));
    EXPECT_FALSE(std::filesystem::exists(root / "missing"));
}

TEST_F(ProfileFilesTest, shouldKeepAHandWrittenFileExceptTheChangedLine) {
    const std::string hand =
        "; mine\r\n[ Main ]\r\n  Width = 10 \r\nname='Ann'\r\n\r\n[Other]\r\nx=1\r\n";
    writeFile(root / "h.ini", hand);
    EXPECT_EQ(read(root / "h.ini", "MAIN", "NAME"), u"Ann");
    write(root / "h.ini", "main", "WIDTH", "20");
    EXPECT_EQ(readFile(root / "h.ini"),
              "; mine\r\n[ Main ]\r\n  Width = 20\r\nname='Ann'\r\n\r\n[Other]\r\nx=1\r\n");
}

TEST_F(ProfileFilesTest, shouldNotParseAnUnchangedFileAgain) {
    write(root / "c.ini", "S", "K", "1");
    const std::size_t before = files.parseCount();
    for (int i = 0; i < 100; ++i) EXPECT_EQ(read(root / "c.ini", "S", "K"), u"1");
    EXPECT_EQ(files.parseCount(), before);
}

TEST_F(ProfileFilesTest, shouldNoticeAnotherWritersChange) {
    write(root / "c.ini", "S", "K", "1");
    EXPECT_EQ(read(root / "c.ini", "S", "K"), u"1");
    ProfileFiles other({root / "ini", root / "settings"});
    other.writeIni(fromUtf8(root / "c.ini"), u"S", u"K", u"2");
    EXPECT_EQ(read(root / "c.ini", "S", "K"), u"2");
    writeFile(root / "c.ini", "[S]\nK=33\n");  // in place, another size
    EXPECT_EQ(read(root / "c.ini", "S", "K"), u"33");
}

TEST_F(ProfileFilesTest, shouldReadAndWriteAFileOnceForABatch) {
    const std::string path = root / "batch.ini";
    const std::size_t parses = files.parseCount();
    {
        ProfileBatch batch(files);
        for (int i = 0; i < 1000; ++i) write(path, "S", ("k" + std::to_string(i)).c_str(), "v");
        EXPECT_FALSE(std::filesystem::exists(path));
        EXPECT_EQ(read(path, "S", "k999"), u"v");  // the batch reads its own changes
    }
    EXPECT_EQ(files.writeCount(), 1u);
    EXPECT_EQ(IniDocument(readFile(path)).find("s", "K500"), "v");
    ProfileFiles fresh({root / "ini", root / "settings"});
    {
        ProfileBatch batch(fresh);
        for (int i = 0; i < 1000; ++i) {
            fresh.readIni(fromUtf8(path), u"S", fromUtf8("k" + std::to_string(i)), u"");
        }
    }
    EXPECT_EQ(fresh.parseCount(), 1u);
    EXPECT_LE(files.parseCount() - parses, 1u);
}

TEST_F(ProfileFilesTest, shouldMapWindowsNamesOnlyThroughTheMapper) {
    EXPECT_EQ(files.iniPath(u"C:\\data\\a.ini"), std::nullopt);
    EXPECT_EQ(files.iniPath(u"\\\\server\\share\\a.ini"), std::nullopt);
    EXPECT_EQ(files.iniPath(u"sub\\a.ini"), std::nullopt);
    write("C:\\data\\a.ini", "S", "K", "v");
    EXPECT_EQ(read("C:\\data\\a.ini", "S", "K", "d"), u"d");
    files.setWindowsNameMapper([&](std::u16string_view name) -> std::optional<std::string> {
        if (name == u"C:\\data\\a.ini") return root / "mapped.ini";
        return std::nullopt;
    });
    write("C:\\data\\a.ini", "S", "K", "v");
    EXPECT_EQ(readFile(root / "mapped.ini"), "[S]\nK=v\n");
    EXPECT_EQ(files.iniPath(u"D:\\x.ini"), std::nullopt);
}

TEST_F(ProfileFilesTest, shouldLeaveTheOldFileWhenTheDiskIsFull) {
    const std::string path = root / "full.ini";
    const std::string old = "; keep me\n[S]\nK=old\n";
    writeFile(path, old);
    const pid_t child = ::fork();
    if (child == 0) {
        corvex::testing::FileSizeLimit full(old.size() + 10);
        ProfileFiles mine({root / "ini", root / "settings"});
        try {
            mine.writeIni(fromUtf8(path), u"S", u"K", std::u16string(500, u'x'));
        } catch (...) {
            ::_exit(3);  // the INI write must return quietly
        }
        ::_exit(0);
    }
    EXPECT_EQ(exitCode(child), 0);
    EXPECT_EQ(readFile(path), old);
}

TEST_F(ProfileFilesTest, shouldRaiseAndKeepTheOldSettingsWhenTheDiskIsFull) {
    files.writeSetting(u"App", u"S", u"K", u"old");
    const std::string path = files.settingsPath(u"App");
    const std::string old = readFile(path);
    const pid_t child = ::fork();
    if (child == 0) {
        corvex::testing::FileSizeLimit full(old.size() + 10);
        ProfileFiles mine({root / "ini", root / "settings"});
        try {
            mine.writeSetting(u"App", u"S", u"K", std::u16string(500, u'x'));
        } catch (const corvex::posix::FileWriteError&) {
            ::_exit(0);
        }
        ::_exit(3);
    }
    EXPECT_EQ(exitCode(child), 0);
    EXPECT_EQ(readFile(path), old);
}

TEST_F(ProfileFilesTest, shouldLeaveAWholeFileWhenAWriterIsKilled) {
    const std::string path = root / "killed.ini";
    const pid_t child = ::fork();
    if (child == 0) {
        ProfileFiles mine({root / "ini", root / "settings"});
        const std::u16string padding(2000, u'p');
        for (int i = 0;; ++i) {
            mine.writeIni(fromUtf8(path), u"loop", fromUtf8("k" + std::to_string(i)), padding);
        }
    }
    ASSERT_TRUE(
        waitFor([&] { return IniDocument(readFile(path)).find("loop", "k30").has_value(); }));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    // The file is one of the states the writer made: k0 .. kN, each written whole.
    const std::string bytes = readFile(path);
    const IniDocument found(bytes);
    IniDocument expected;
    for (int i = 0; found.find("loop", "k" + std::to_string(i)); ++i) {
        expected.write("loop", "k" + std::to_string(i), std::string(2000, 'p'));
    }
    EXPECT_GE(expected.lineCount(), 32u);
    EXPECT_EQ(bytes, expected.bytes());
}

TEST_F(ProfileFilesTest, shouldLoseNoKeyOfTwoProcessesWritingAtOnce) {
    const std::string path = root / "shared.ini";
    const auto writer = [&](const std::string& prefix) {
        const pid_t child = ::fork();
        if (child == 0) {
            ProfileFiles mine({root / "ini", root / "settings"});
            for (int i = 0; i < 500; ++i) {
                mine.writeIni(fromUtf8(path), u"S", fromUtf8(prefix + std::to_string(i)), u"v");
            }
            ::_exit(0);
        }
        return child;
    };
    const pid_t a = writer("a");
    const pid_t b = writer("b");
    EXPECT_EQ(exitCode(a), 0);
    EXPECT_EQ(exitCode(b), 0);
    const IniDocument doc(readFile(path));
    int present = 0;
    for (int i = 0; i < 500; ++i) {
        present += doc.find("S", "a" + std::to_string(i)).has_value();
        present += doc.find("S", "b" + std::to_string(i)).has_value();
    }
    EXPECT_EQ(present, 1000);
}

TEST_F(ProfileFilesTest, shouldKeepSettingsInAPrivateFilePerApplication) {
    files.writeSetting(u"Orders", u"Main", u"Width", u"10");
    const std::string path = root / "settings/Orders.ini";
    EXPECT_EQ(files.settingsPath(u"Orders"), path);
    struct stat st {};
    ASSERT_EQ(::stat(path.c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0600u);
    EXPECT_EQ(files.readSetting(u"orders", u"MAIN", u"width"), u"10");
    EXPECT_EQ(files.readSetting(u"Orders", u"Main", u"Height"), std::nullopt);
    EXPECT_EQ(files.readSetting(u"Nobody", u"Main", u"Width"), std::nullopt);
}

TEST_F(ProfileFilesTest, shouldGiveBackAnySettingTextAsItWasStored) {
    const std::u16string texts[] = {u"  padded  ",   u"\"quoted\"", u"'single'", u"a\\b;c",
                                    u"two\r\nlines", u"日本語",     u"",         u"x=y [z]"};
    for (const auto& t : texts) {
        files.writeSetting(u"App", t + u"s", t + u"k", t);
        EXPECT_EQ(files.readSetting(u"App", t + u"s", t + u"k"), t) << toUtf8(t);
    }
}

TEST_F(ProfileFilesTest, shouldEncodeApplicationNamesReversiblyAsFileNames) {
    const std::u16string names[] = {u"a/b",  u".hidden",   u"..",    u"100%",
                                    u"日本", u"tab\tname", u"C:\\x", u"plain name-1.2"};
    for (const auto& n : names) {
        const std::string file = posix::encodeAppName(n);
        EXPECT_EQ(file.find('/'), std::string::npos) << file;
        EXPECT_NE(file.front(), '.') << file;
        EXPECT_EQ(posix::decodeAppName(file), n) << file;
        files.writeSetting(n, u"S", u"K", n);
        EXPECT_EQ(files.readSetting(n, u"S", u"K"), n);
    }
    EXPECT_EQ(posix::encodeAppName(u"plain name-1.2"), "plain name-1.2");
}

TEST(ProfileFoldersTest, shouldFollowTheXdgConfigurationFolder) {
    const auto saved = [](const char* name) {
        const char* v = std::getenv(name);
        return v ? std::optional<std::string>(v) : std::nullopt;
    };
    const auto put = [](const char* name, const std::optional<std::string>& v) {
        if (v) {
            ::setenv(name, v->c_str(), 1);
        } else {
            ::unsetenv(name);
        }
    };
    const auto home = saved("HOME");
    const auto xdg = saved("XDG_CONFIG_HOME");
    const auto iniDir = saved("CORVEX_INI_DIR");
    const auto settingsDir = saved("CORVEX_SETTINGS_DIR");
    ::setenv("XDG_CONFIG_HOME", "/cfg", 1);
    ::unsetenv("CORVEX_INI_DIR");
    ::unsetenv("CORVEX_SETTINGS_DIR");
    auto f = posix::defaultProfileFolders();
    EXPECT_EQ(f.iniFolder, "/cfg/corvex/ini");
    EXPECT_EQ(f.settingsFolder, "/cfg/corvex/settings");
    ::setenv("XDG_CONFIG_HOME", "relative", 1);
    ::setenv("HOME", "/home/u", 1);
    EXPECT_EQ(posix::defaultProfileFolders().iniFolder, "/home/u/.config/corvex/ini");
    ::setenv("CORVEX_INI_DIR", "/i", 1);
    ::setenv("CORVEX_SETTINGS_DIR", "/s", 1);
    f = posix::defaultProfileFolders();
    EXPECT_EQ(f.iniFolder, "/i");
    EXPECT_EQ(f.settingsFolder, "/s");
    put("CORVEX_INI_DIR", iniDir);
    put("CORVEX_SETTINGS_DIR", settingsDir);
    put("HOME", home);
    put("XDG_CONFIG_HOME", xdg);
}

TEST_F(ProfileFilesTest, shouldKeepAConfinedServiceInsideItsIniFolder) {
    files.setConfined(true);
    EXPECT_EQ(files.iniPath(u"a.ini"), root / "ini/a.ini");
    EXPECT_EQ(files.iniPath(fromUtf8(root / "a.ini")), std::nullopt);
    EXPECT_EQ(files.iniPath(u"../a.ini"), std::nullopt);
    EXPECT_EQ(files.iniPath(u".."), std::nullopt);
    EXPECT_EQ(files.iniPath(u"C:\\a.ini"), std::nullopt);
    write(root / "a.ini", "S", "K", "v");
    EXPECT_FALSE(std::filesystem::exists(root / "a.ini"));
}
