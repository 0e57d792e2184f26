#include "corvex/posix/file_system.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "corvex/common/text.h"

namespace corvex::posix {

namespace {

// One resolved name: its native path, the stored spelling of its last element, and the
// name a lookup answers with: that spelling, or "" for a name ending in a separator, which
// names the folder itself (so that a long name keeps its closing backslash).
struct Found {
    std::string path;
    std::u16string storedName;
    std::u16string answer;
};

std::string join(const std::string& folder, const std::string& name) {
    if (folder.empty() || folder.back() == '/') return folder + name;
    return folder + "/" + name;
}

// The entry of folder whose name equals element without regard to case; when several
// differ only in case, the first in byte order, so that the answer never varies.
std::optional<std::string> matchInFolder(const std::string& folder, std::u16string_view element) {
    DIR* dir = opendir(folder.c_str());
    if (!dir) return std::nullopt;
    std::vector<std::string> matches;
    while (const dirent* e = readdir(dir)) {
        const std::string name = e->d_name;
        if (name == "." || name == "..") continue;
        if (sameNameIgnoringCase(fromUtf8(name), element)) matches.push_back(name);
    }
    closedir(dir);
    if (matches.empty()) return std::nullopt;
    return *std::min_element(matches.begin(), matches.end());
}

// The next element under folder: the exact spelling when it exists, else a case match.
std::optional<std::string> stepInto(const std::string& folder, const std::u16string& element) {
    const std::string exact = toUtf8(element);
    struct stat st {};
    if (lstat(join(folder, exact).c_str(), &st) == 0) return exact;
    // Only a missing name is worth a listing: a parent we may not search, a name too long
    // or a file in the middle of the path ends the lookup.
    if (errno != ENOENT) return std::nullopt;
    return matchInFolder(folder, element);
}

bool isFolder(const std::string& path) {
    struct stat st {};
    return stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

std::int32_t attributesOf(const struct stat& st, const std::string& path,
                          std::u16string_view stored) {
    std::int32_t word = 0;
    if (S_ISDIR(st.st_mode)) {
        word = fileattr::Directory;
    } else {
        if (S_ISREG(st.st_mode)) word = fileattr::Archive;
        // Read-only is a file's mark, as on Windows: no write bit at all, or none for us.
        if ((st.st_mode & 0222) == 0 || access(path.c_str(), W_OK) != 0) word += fileattr::ReadOnly;
    }
    if (!stored.empty() && stored[0] == u'.') word += fileattr::Hidden;
    return word;
}

}  // namespace

struct PosixFileSystem::Private {
    DriveMap map;

    std::optional<Found> find(std::u16string_view name) const {
        const std::optional<SplitName> split = map.split(name);
        if (!split || !isFolder(split->root)) return std::nullopt;
        std::vector<Found> trail{{split->root, u"", u""}};
        for (const std::u16string& element : split->elements) {
            if (element == u".") continue;
            if (element == u"..") {
                if (trail.size() > 1) trail.pop_back();
                continue;
            }
            const std::optional<std::string> stored = stepInto(trail.back().path, element);
            if (!stored) return std::nullopt;
            const std::u16string spelling = fromUtf8(*stored);
            trail.push_back({join(trail.back().path, *stored), spelling, spelling});
        }
        Found found = trail.back();
        if (split->folderOnly) {
            if (!isFolder(found.path)) return std::nullopt;
            found.answer.clear();
        }
        return found;
    }
};

PosixFileSystem::PosixFileSystem(DriveMap map) : d(std::make_unique<Private>()) {
    d->map = std::move(map);
}

PosixFileSystem::~PosixFileSystem() = default;

const DriveMap& PosixFileSystem::driveMap() const {
    return d->map;
}

std::optional<std::string> PosixFileSystem::nativePathFor(std::u16string_view name) const {
    if (auto existing = resolve(name)) return existing;
    // A file not made yet lies in its folder as the folder is spelled on disk.
    const std::size_t cut = name.find_last_of(u"\\/");
    if (cut != std::u16string_view::npos && cut + 1 < name.size()) {
        if (auto folder = resolve(name.substr(0, cut + 1))) {
            if (!folder->empty() && folder->back() != '/') folder->push_back('/');
            return *folder + toUtf8(std::u16string(name.substr(cut + 1)));
        }
    }
    return driveMap().toNative(name);
}

std::optional<std::string> PosixFileSystem::resolve(std::u16string_view name) const {
    try {
        const std::optional<Found> f = d->find(name);
        if (!f) return std::nullopt;
        return f->path;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

std::optional<std::u16string> PosixFileSystem::findFirst(std::u16string_view name,
                                                         std::int32_t mask) {
    try {
        const std::optional<Found> f = d->find(name);
        if (!f) return std::nullopt;
        struct stat st {};
        // A dangling link is still an entry of its folder: it is found, its attributes not.
        if (stat(f->path.c_str(), &st) == 0) {
            const std::int32_t word = attributesOf(st, f->path, f->storedName);
            const std::int32_t special =
                word & (fileattr::Hidden | fileattr::System | fileattr::Directory);
            if ((special & mask) != special) return std::nullopt;
        }
        return f->answer;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

std::optional<std::int32_t> PosixFileSystem::attributes(std::u16string_view name) {
    try {
        const std::optional<Found> f = d->find(name);
        struct stat st {};
        if (!f || stat(f->path.c_str(), &st) != 0) return std::nullopt;
        return attributesOf(st, f->path, f->storedName);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

std::uint32_t PosixFileSystem::shortPathName(std::string_view longPath, std::span<char> buffer) {
    try {
        // Names have no second, short spelling here: the short name is the name itself.
        if (!d->find(fromUtf8(longPath))) return 0;
        const std::size_t n = longPath.size();
        if (n + 1 > buffer.size()) return static_cast<std::uint32_t>(n + 1);
        std::memcpy(buffer.data(), longPath.data(), n);
        buffer[n] = '\0';
        return static_cast<std::uint32_t>(n);
    } catch (const std::exception&) {
        return 0;
    }
}

}  // namespace corvex::posix
