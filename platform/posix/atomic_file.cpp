#include "corvex/posix/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <system_error>

namespace corvex::posix {

namespace {

std::string describe(const std::string& path, const std::string& step, int error) {
    std::string text = "cannot write \"" + path + "\": " + step + " failed";
    if (error != 0) text += ": " + std::generic_category().message(error);
    return text;
}

std::string folderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    if (slash == 0) return "/";
    return path.substr(0, slash);
}

std::string leafOf(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

// The file a path finally names: a symbolic link is replaced by its target, not by a plain
// file, so that a linked settings file stays linked. A dangling link names its target too.
std::string resolveLinks(std::string path) {
    for (int hops = 0; hops < 40; ++hops) {
        struct stat st {};
        if (::lstat(path.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return path;
        std::string target(static_cast<std::size_t>(st.st_size > 0 ? st.st_size : 255) + 1, '\0');
        const ssize_t n = ::readlink(path.c_str(), target.data(), target.size());
        if (n < 0) return path;
        target.resize(static_cast<std::size_t>(n));
        path = (!target.empty() && target.front() == '/') ? target : folderOf(path) + "/" + target;
    }
    throw FileWriteError(path, "following its symbolic links", ELOOP);
}

// A new, empty file beside target that no one else has: its name starts with a dot and
// ends with the process and a counter, and O_EXCL makes sure it did not exist.
int createTemporary(const std::string& target, std::string& name) {
    static std::atomic<unsigned> counter{0};
    const std::string stem =
        folderOf(target) + "/." + leafOf(target) + ".tmp-" + std::to_string(::getpid()) + "-";
    for (int attempt = 0; attempt < 100; ++attempt) {
        name = stem + std::to_string(counter++);
        const int fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0 || errno != EEXIST) return fd;
    }
    errno = EEXIST;
    return -1;
}

bool writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t n = ::write(fd, bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) {
            if (n == 0) errno = ENOSPC;
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

// Makes the rename itself durable. Some file systems cannot sync a folder; the new content
// is in place by then, so a failure here is not reported.
void syncFolder(const std::string& folder) {
    const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

}  // namespace

FileWriteError::FileWriteError(const std::string& path, const std::string& step, int error)
    : std::runtime_error(describe(path, step, error)), path_(path), osError_(error) {}

void writeFileAtomically(const std::string& path, std::string_view bytes) {
    if (path.empty()) throw FileWriteError(path, "naming the file", ENOENT);
    const std::string target = resolveLinks(path);

    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && S_ISDIR(old.st_mode)) throw FileWriteError(path, "replacing a folder", EISDIR);

    std::string temporary;
    int fd = createTemporary(target, temporary);
    if (fd < 0) throw FileWriteError(path, "creating a temporary file in its folder", errno);

    // Any step that fails undoes the ones before it; the old file was never touched.
    const auto fail = [&](const char* step) {
        const int error = errno;
        if (fd >= 0) ::close(fd);
        ::unlink(temporary.c_str());
        throw FileWriteError(path, step, error);
    };
    if (exists && ::fchmod(fd, old.st_mode & 07777) != 0) fail("keeping its permissions");
    if (!writeAll(fd, bytes)) fail("writing");
    if (::fsync(fd) != 0) fail("flushing to the disk");
    const int closed = ::close(fd);
    fd = -1;
    if (closed != 0) fail("closing");
    if (::rename(temporary.c_str(), target.c_str()) != 0) fail("replacing the old file");
    syncFolder(folderOf(target));
}

}  // namespace corvex::posix
