#include "corvex/platform/file_system.h"

namespace corvex {

namespace {
// What a host without a file system answers: nothing exists.
class EmptyFileSystem final : public FileSystem {
public:
    std::optional<std::u16string> findFirst(std::u16string_view, std::int32_t) override {
        return std::nullopt;
    }
    std::optional<std::int32_t> attributes(std::u16string_view) override { return std::nullopt; }
    std::uint32_t shortPathName(std::string_view, std::span<char>) override { return 0; }
};
}  // namespace

FileSystem& emptyFileSystem() {
    static EmptyFileSystem fs;
    return fs;
}

}  // namespace corvex
