// A real folder tree for the file-name tests, made fresh in a temporary folder and
// removed afterwards: files, folders, a hidden folder, a read-only file, names that differ
// only in case and a dangling link.
#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace corvex::testing {

/// The tree: Data\report.txt, Data\archive.tar.gz, Data\README, my.dir\README,
/// .hidden\inside.txt, readonly.txt (no write bits), Case\Report.TXT and Case\report.txt,
/// Program Files\Sample file.txt, and dangling (a link to nothing).
class TempTree {
public:
    TempTree() {
        std::string pattern = (std::filesystem::temp_directory_path() / "corvex-tree-XXXXXX");
        if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
        root_ = pattern;
        for (const char* dir : {"Data", "my.dir", ".hidden", "Case", "Program Files"})
            std::filesystem::create_directory(root_ + "/" + dir);
        for (const char* file :
             {"Data/report.txt", "Data/archive.tar.gz", "Data/README", "my.dir/README",
              ".hidden/inside.txt", "readonly.txt", "Case/Report.TXT", "Case/report.txt",
              "Program Files/Sample file.txt"})
            std::ofstream(root_ + "/" + file) << "x";
        chmod((root_ + "/readonly.txt").c_str(), 0444);
        std::filesystem::create_symlink(root_ + "/missing", root_ + "/dangling");
    }
    ~TempTree() {
        std::error_code ec;
        std::filesystem::remove_all(root_, ec);
    }
    TempTree(const TempTree&) = delete;
    TempTree& operator=(const TempTree&) = delete;

    /// The tree's native folder.
    const std::string& root() const { return root_; }

private:
    std::string root_;
};

}  // namespace corvex::testing
