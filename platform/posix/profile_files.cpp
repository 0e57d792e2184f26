#include "corvex/posix/profile_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <map>
#include <system_error>
#include <unordered_map>
#include <vector>

#include "corvex/common/text.h"
#include "corvex/library/ini_file.h"
#include "corvex/posix/atomic_file.h"

namespace corvex::posix {

namespace {

constexpr char kHex[] = "0123456789ABCDEF";

std::string hexByte(unsigned char c, char lead) {
    return {lead, kHex[c >> 4], kHex[c & 15]};
}

int hexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

std::string folderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// Makes a folder and the folders above it (private to the user, as configuration is).
void makeFolders(const std::string& folder) {
    for (std::size_t at = 1; at != std::string::npos;) {
        at = folder.find('/', at + 1);
        const std::string part = folder.substr(0, at);
        if (::mkdir(part.c_str(), 0700) != 0 && errno != EEXIST) return;
    }
}

// Identifies one version of a file: an atomic replace always gives a new inode, and a
// change in place changes the size or the modification time.
struct Stamp {
    dev_t dev = 0;
    ino_t ino = 0;
    off_t size = 0;
    long long mtimeNs = 0;
    bool operator==(const Stamp&) const = default;
};

std::optional<Stamp> stampOf(const std::string& path) {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0) return std::nullopt;
    return Stamp{st.st_dev, st.st_ino, st.st_size,
                 static_cast<long long>(st.st_mtim.tv_sec) * 1000000000LL + st.st_mtim.tv_nsec};
}

// The whole file; nullopt when it is missing. Other failures raise.
std::optional<std::string> readBytes(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        if (errno == ENOENT || errno == ENOTDIR) return std::nullopt;
        throw std::system_error(errno, std::generic_category(), "cannot read " + path);
    }
    std::string bytes;
    char buffer[65536];
    for (;;) {
        const ssize_t n = ::read(fd, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) {
            const int error = errno;
            ::close(fd);
            if (n < 0)
                throw std::system_error(error, std::generic_category(), "cannot read " + path);
            return bytes;
        }
        bytes.append(buffer, static_cast<std::size_t>(n));
    }
}

// Writers of one folder take turns: the lock is on the folder, because a file replaced
// atomically is a new file that a lock on the old one would not guard.
class FolderLock {
public:
    explicit FolderLock(const std::string& folder)
        : fd_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        while (fd_ >= 0 && ::flock(fd_, LOCK_EX) != 0 && errno == EINTR) {
        }
    }
    ~FolderLock() {
        if (fd_ >= 0) ::close(fd_);
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

private:
    int fd_;
};

struct Change {
    std::string section;
    std::string key;
    std::string value;
};

struct Cached {
    Stamp stamp;
    IniDocument doc;
};

struct Pending {
    std::vector<Change> changes;
    bool privateFile = false;  // a settings file: created with mode 0600, failures raise
};

bool isWindowsName(std::string_view name) {
    const bool drive = name.size() >= 2 && name[1] == ':' &&
                       ((name[0] >= 'A' && name[0] <= 'Z') || (name[0] >= 'a' && name[0] <= 'z'));
    return drive || name.find('\\') != std::string_view::npos;
}

}  // namespace

ProfileFolders defaultProfileFolders() {
    const auto env = [](const char* name) {
        const char* v = std::getenv(name);
        return std::string(v ? v : "");
    };
    std::string config = env("XDG_CONFIG_HOME");
    // The XDG rules ignore a relative configuration folder.
    if (config.empty() || config.front() != '/') config = env("HOME") + "/.config";
    ProfileFolders f{config + "/corvex/ini", config + "/corvex/settings"};
    if (!env("CORVEX_INI_DIR").empty()) f.iniFolder = env("CORVEX_INI_DIR");
    if (!env("CORVEX_SETTINGS_DIR").empty()) f.settingsFolder = env("CORVEX_SETTINGS_DIR");
    return f;
}

std::optional<std::string> resolveIniName(std::u16string_view name, const std::string& iniFolder,
                                          const WindowsNameMapper& mapper) {
    const std::string native = toUtf8(name);
    if (isWindowsName(native)) {
        if (!mapper) return std::nullopt;
        return mapper(name);
    }
    if (native.find('/') != std::string::npos) return native;
    return iniFolder + "/" + native;
}

std::string encodeAppName(std::u16string_view app) {
    std::string out;
    for (const char ch : toUtf8(app)) {
        const auto c = static_cast<unsigned char>(ch);
        const bool plain = c >= 0x80 || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                           (c >= '0' && c <= '9') || c == ' ' || c == '-' || c == '_' ||
                           (c == '.' && !out.empty());
        out += plain ? std::string(1, ch) : hexByte(c, '%');
    }
    return out;
}

std::u16string decodeAppName(std::string_view fileName) {
    std::string out;
    for (std::size_t i = 0; i < fileName.size(); ++i) {
        if (fileName[i] == '%' && i + 2 < fileName.size() + 0 && hexValue(fileName[i + 1]) >= 0 &&
            hexValue(fileName[i + 2]) >= 0) {
            out += static_cast<char>(hexValue(fileName[i + 1]) * 16 + hexValue(fileName[i + 2]));
            i += 2;
        } else {
            out += fileName[i];
        }
    }
    return fromUtf8(out);
}

std::string escapeSetting(std::string_view text, bool isName) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const bool outer = i == 0 || i + 1 == text.size();
        const bool special = c == '\\' || c == '\r' || c == '\n' || c == '\0' ||
                             (isName && (c == '=' || c == '[' || c == ']' || c == ';' ||
                                         (outer && (c == ' ' || c == '\t'))));
        out += special ? hexByte(static_cast<unsigned char>(c), '\\').insert(1, "x")
                       : std::string(1, c);
    }
    return isName ? out : "\"" + out + "\"";
}

std::string unescapeSetting(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 3 < text.size() + 0 && text[i + 1] == 'x' &&
            hexValue(text[i + 2]) >= 0 && hexValue(text[i + 3]) >= 0) {
            out += static_cast<char>(hexValue(text[i + 2]) * 16 + hexValue(text[i + 3]));
            i += 3;
        } else {
            out += text[i];
        }
    }
    return out;
}

struct ProfileFiles::Private {
    ProfileFolders folders;
    WindowsNameMapper mapper;
    std::unordered_map<std::string, Cached> cache;
    std::map<std::string, Pending> pending;
    std::map<std::string, bool> seenInBatch;  // path -> whether it existed, looked at once
    int batchDepth = 0;
    bool confined = false;
    std::size_t parses = 0;
    std::size_t writes = 0;
    std::string lastError;

    // The file as it now is (cached while unchanged); null when it is missing.
    const IniDocument* document(const std::string& path) {
        // A group operation looks at each file once: its reads all see that version.
        if (batchDepth > 0) {
            const auto seen = seenInBatch.find(path);
            if (seen != seenInBatch.end() && cache.count(path)) return &cache.at(path).doc;
            if (seen != seenInBatch.end() && !seen->second) return nullptr;
        }
        const IniDocument* doc = current(path);
        if (batchDepth > 0) seenInBatch[path] = doc != nullptr;
        return doc;
    }

    // The file as it now is on disk, parsed again only when it changed.
    const IniDocument* current(const std::string& path) {
        const auto stamp = stampOf(path);
        if (!stamp) {
            cache.erase(path);
            return nullptr;
        }
        const auto it = cache.find(path);
        if (it != cache.end() && it->second.stamp == *stamp) return &it->second.doc;
        const auto bytes = readBytes(path);
        if (!bytes) return nullptr;
        ++parses;
        return &(cache[path] = Cached{*stamp, IniDocument(*bytes)}).doc;
    }

    // What a read sees: the file with the batch's changes not yet written.
    std::optional<std::string> find(const std::string& path, std::string_view section,
                                    std::string_view key) {
        const IniDocument* doc = document(path);
        const auto p = pending.find(path);
        if (p == pending.end()) return doc ? doc->find(section, key) : std::nullopt;
        IniDocument changed = doc ? *doc : IniDocument();
        for (const Change& c : p->second.changes) changed.write(c.section, c.key, c.value);
        return changed.find(section, key);
    }

    // Locks the folder, reads the file again, changes it and replaces it atomically.
    void apply(const std::string& path, const Pending& p) {
        FolderLock lock(folderOf(path));
        const IniDocument* now = current(path);
        IniDocument doc = now ? *now : IniDocument();
        for (const Change& c : p.changes) doc.write(c.section, c.key, c.value);
        if (!now && p.privateFile) {
            const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
            if (fd >= 0) ::close(fd);
        }
        writeFileAtomically(path, doc.bytes());
        ++writes;
        lastError.clear();
        if (const auto stamp = stampOf(path)) cache[path] = Cached{*stamp, std::move(doc)};
    }

    void change(const std::string& path, Change c, bool privateFile) {
        Pending& p = pending[path];
        p.privateFile = privateFile;
        p.changes.push_back(std::move(c));
        if (batchDepth > 0) return;
        const Pending now = std::move(p);
        pending.erase(path);
        apply(path, now);
    }

    void flush() {
        auto all = std::move(pending);
        pending.clear();
        seenInBatch.clear();
        std::string failed;
        for (const auto& [path, p] : all) {
            // The group operations report nothing: a file that cannot be written stays.
            try {
                apply(path, p);
            } catch (const std::exception& e) {
                failed = e.what();
            }
        }
        lastError = failed;
    }
};

ProfileFiles::ProfileFiles(ProfileFolders folders) : d(std::make_unique<Private>()) {
    d->folders = std::move(folders);
}

ProfileFiles::~ProfileFiles() = default;

const ProfileFolders& ProfileFiles::folders() const {
    return d->folders;
}

void ProfileFiles::setFolders(ProfileFolders folders) {
    d->folders = std::move(folders);
    d->cache.clear();
}

void ProfileFiles::setWindowsNameMapper(WindowsNameMapper mapper) {
    d->mapper = std::move(mapper);
}

void ProfileFiles::setConfined(bool confined) {
    d->confined = confined;
}

std::optional<std::string> ProfileFiles::iniPath(std::u16string_view name) const {
    if (d->confined) {
        const std::string native = toUtf8(name);
        if (native.find_first_of("/\\") != std::string::npos || isWindowsName(native) ||
            native == "." || native == "..") {
            return std::nullopt;
        }
    }
    return resolveIniName(name, d->folders.iniFolder, d->mapper);
}

std::string ProfileFiles::settingsPath(std::u16string_view app) const {
    const std::string folder = d->folders.settingsFolder;
    const std::string exact = folder + "/" + encodeAppName(app) + ".ini";
    if (stampOf(exact)) return exact;
    // Application names match without regard to case, as the Windows store's keys do.
    DIR* dir = ::opendir(folder.c_str());
    if (!dir) return exact;
    std::string found = exact;
    while (const dirent* e = ::readdir(dir)) {
        const std::string_view name = e->d_name;
        if (name.size() <= 4 || name.substr(name.size() - 4) != ".ini") continue;
        if (equalsIgnoringCase(decodeAppName(name.substr(0, name.size() - 4)), app)) {
            found = folder + "/" + std::string(name);
            break;
        }
    }
    ::closedir(dir);
    return found;
}

std::size_t ProfileFiles::parseCount() const {
    return d->parses;
}

std::size_t ProfileFiles::writeCount() const {
    return d->writes;
}

std::string ProfileFiles::lastWriteError() const {
    return d->lastError;
}

std::u16string ProfileFiles::readIni(std::u16string_view file, std::u16string_view section,
                                     std::u16string_view key, std::u16string_view defaultValue) {
    const auto path = iniPath(file);
    std::optional<std::string> found;
    try {
        if (path) found = d->find(*path, toUtf8(section), toUtf8(key));
    } catch (const std::system_error&) {
        // A file that cannot be read gives the default, as a missing one does.
    }
    return fromUtf8(found ? *found : iniDefault(toUtf8(defaultValue)));
}

void ProfileFiles::writeIni(std::u16string_view file, std::u16string_view section,
                            std::u16string_view key, std::u16string_view value) {
    const auto path = iniPath(file);
    if (!path) return;
    if (*path == d->folders.iniFolder + "/" + toUtf8(file)) makeFolders(d->folders.iniFolder);
    try {
        d->change(*path, {toUtf8(section), toUtf8(key), toUtf8(value)}, false);
    } catch (const std::exception& e) {
        // As the Windows service: the old file stays and the call returns quietly.
        d->lastError = e.what();
    }
}

std::optional<std::u16string> ProfileFiles::readSetting(std::u16string_view app,
                                                        std::u16string_view section,
                                                        std::u16string_view key) {
    const auto found = d->find(settingsPath(app), escapeSetting(toUtf8(section), true),
                               escapeSetting(toUtf8(key), true));
    if (!found) return std::nullopt;
    return fromUtf8(unescapeSetting(*found));
}

void ProfileFiles::writeSetting(std::u16string_view app, std::u16string_view section,
                                std::u16string_view key, std::u16string_view value) {
    makeFolders(d->folders.settingsFolder);
    d->change(settingsPath(app),
              {escapeSetting(toUtf8(section), true), escapeSetting(toUtf8(key), true),
               escapeSetting(toUtf8(value), false)},
              true);
}

void ProfileFiles::beginBatch() {
    ++d->batchDepth;
}

void ProfileFiles::endBatch() {
    if (d->batchDepth > 0 && --d->batchDepth == 0) d->flush();
}

}  // namespace corvex::posix
