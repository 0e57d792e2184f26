// A fresh folder for one test, removed with everything in it when the test ends.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <string>

namespace corvex::testing {

/// A new empty folder under the system's temporary folder, removed at the end.
class TempFolder {
public:
    /// Makes the folder; its name starts with prefix.
    explicit TempFolder(const std::string& prefix = "corvex-test") {
        std::string pattern =
            (std::filesystem::temp_directory_path() / (prefix + "-XXXXXX")).string();
        path_ = ::mkdtemp(pattern.data());
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// The folder.
    const std::string& path() const { return path_; }
    /// A path inside the folder.
    std::string operator/(const std::string& name) const { return path_ + "/" + name; }

private:
    std::string path_;
};

}  // namespace corvex::testing
