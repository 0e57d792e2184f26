// The shared atomic file write: the new content replaces the old whole, or the old file
// stays byte for byte and the caller is told why.
#include "corvex/posix/atomic_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/file_limits.h"

namespace corvex::posix {
namespace {

namespace fs = std::filesystem;

class AtomicFile : public ::testing::Test {
protected:
    AtomicFile() {
        std::string pattern = (fs::temp_directory_path() / "corvex-atomic-XXXXXX").string();
        folder = ::mkdtemp(pattern.data());
    }
    ~AtomicFile() override {
        std::error_code ignored;
        fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, ignored);
        fs::remove_all(folder, ignored);
    }
    std::string path(const char* name) const { return (fs::path(folder) / name).string(); }
    // The names in the folder, to show that no temporary file is left behind.
    std::vector<std::string> entries() const {
        std::vector<std::string> names;
        for (const auto& e : fs::directory_iterator(folder))
            names.push_back(e.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    std::string folder;
};

TEST_F(AtomicFile, shouldCreateANewFileWithTheBytes) {
    writeFileAtomically(path("values.frm"), "one\ntwo\n");
    EXPECT_EQ(corvex::testing::readFile(path("values.frm")), "one\ntwo\n");
    EXPECT_EQ(entries(), std::vector<std::string>{"values.frm"});
}

TEST_F(AtomicFile, shouldReplaceTheWholeContentAndKeepThePermissions) {
    corvex::testing::writeFile(path("values.frm"), std::string(1000, 'x'));
    ::chmod(path("values.frm").c_str(), 0640);
    writeFileAtomically(path("values.frm"), "short");
    EXPECT_EQ(corvex::testing::readFile(path("values.frm")), "short");
    struct stat st {};
    ASSERT_EQ(::stat(path("values.frm").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0640u);
    EXPECT_EQ(entries(), std::vector<std::string>{"values.frm"});
}

TEST_F(AtomicFile, shouldWriteAnEmptyFile) {
    corvex::testing::writeFile(path("values.frm"), "old");
    writeFileAtomically(path("values.frm"), "");
    EXPECT_EQ(corvex::testing::readFile(path("values.frm")), "");
}

TEST_F(AtomicFile, shouldKeepTheOldFileAndReportWhenTheDiskRefusesTheBytes) {
    const std::string old = "Begin Form gallery\r\n" + std::string(359, 'v');
    corvex::testing::writeFile(path("values.frm"), old);
    const auto result =
        corvex::testing::writeUnderFileSizeLimit(path("values.frm"), std::string(4096, 'n'), 100);
    EXPECT_FALSE(result.written);
    EXPECT_NE(result.message.find("values.frm"), std::string::npos) << result.message;
    EXPECT_NE(result.message.find("File too large"), std::string::npos) << result.message;
    EXPECT_EQ(result.osError, EFBIG);
    EXPECT_EQ(corvex::testing::readFile(path("values.frm")), old);
    EXPECT_EQ(entries(), std::vector<std::string>{"values.frm"});
}

TEST_F(AtomicFile, shouldWriteUnderTheSameLimitWhenTheBytesFit) {
    corvex::testing::writeFile(path("values.frm"), "old");
    const auto result = corvex::testing::writeUnderFileSizeLimit(path("values.frm"), "new", 100);
    EXPECT_TRUE(result.written) << result.message;
    EXPECT_EQ(corvex::testing::readFile(path("values.frm")), "new");
}

TEST_F(AtomicFile, shouldReportAMissingFolder) {
    try {
        writeFileAtomically(path("no-such-folder/values.frm"), "x");
        FAIL() << "no error";
    } catch (const FileWriteError& e) {
        EXPECT_EQ(e.osError(), ENOENT);
        EXPECT_NE(std::string(e.what()).find("no-such-folder/values.frm"), std::string::npos);
        EXPECT_EQ(e.path(), path("no-such-folder/values.frm"));
    }
}

TEST_F(AtomicFile, shouldRefuseToReplaceAFolderAndLeaveItAsItWas) {
    fs::create_directory(path("values.frm"));
    corvex::testing::writeFile(path("values.frm/inside"), "kept");
    EXPECT_THROW(writeFileAtomically(path("values.frm"), "x"), FileWriteError);
    EXPECT_EQ(corvex::testing::readFile(path("values.frm/inside")), "kept");
    EXPECT_EQ(entries(), std::vector<std::string>{"values.frm"});
}

TEST_F(AtomicFile, shouldReportAFolderThatIsAFile) {
    corvex::testing::writeFile(path("plain"), "kept");
    try {
        writeFileAtomically(path("plain/values.frm"), "x");
        FAIL() << "no error";
    } catch (const FileWriteError& e) {
        EXPECT_EQ(e.osError(), ENOTDIR);
    }
    EXPECT_EQ(corvex::testing::readFile(path("plain")), "kept");
}

TEST_F(AtomicFile, shouldKeepTheOldFileInAFolderItCannotWriteTo) {
    corvex::testing::writeFile(path("values.frm"), "old");
    ::chmod(folder.c_str(), 0555);
    // The superuser writes into any folder: the permission check is then the system's
    // business, and the write rightly succeeds.
    if (::geteuid() == 0) {
        writeFileAtomically(path("values.frm"), "new");
        EXPECT_EQ(corvex::testing::readFile(path("values.frm")), "new");
        return;
    }
    try {
        writeFileAtomically(path("values.frm"), "new");
        FAIL() << "no error";
    } catch (const FileWriteError& e) {
        EXPECT_EQ(e.osError(), EACCES);
        EXPECT_NE(std::string(e.what()).find("Permission denied"), std::string::npos);
    }
    EXPECT_EQ(corvex::testing::readFile(path("values.frm")), "old");
}

TEST_F(AtomicFile, shouldReplaceTheTargetOfASymbolicLinkAndKeepTheLink) {
    corvex::testing::writeFile(path("real.frm"), "old");
    fs::create_symlink("real.frm", path("link.frm"));
    writeFileAtomically(path("link.frm"), "new");
    EXPECT_TRUE(fs::is_symlink(path("link.frm")));
    EXPECT_EQ(corvex::testing::readFile(path("real.frm")), "new");
    EXPECT_EQ(entries(), (std::vector<std::string>{"link.frm", "real.frm"}));
}

TEST_F(AtomicFile, shouldRefuseAnEmptyPath) {
    EXPECT_THROW(writeFileAtomically("", "x"), FileWriteError);
}

}  // namespace
}  // namespace corvex::posix
