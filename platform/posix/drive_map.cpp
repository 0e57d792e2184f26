#include "corvex/posix/drive_map.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "corvex/common/text.h"

namespace corvex::posix {

namespace {

namespace fs = std::filesystem;

char16_t foldCase(char16_t c) {
    if (c >= u'A' && c <= u'Z') return c + 32;
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 32;     // Latin-1, × excepted
    if (c >= 0x391 && c <= 0x3A9 && c != 0x3A2) return c + 32;  // Greek
    if (c >= 0x410 && c <= 0x42F) return c + 32;                // Cyrillic
    if (c >= 0x400 && c <= 0x40F) return c + 80;                // Cyrillic Ѐ to Џ
    if (c >= 0xFF21 && c <= 0xFF3A) return c + 32;              // full-width Latin
    return c;
}

bool isSeparator(char16_t c) {
    return c == u'\\' || c == u'/';
}

std::string trim(std::string_view s) {
    const auto first = s.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    const auto last = s.find_last_not_of(" \t\r\n");
    return std::string(s.substr(first, last - first + 1));
}

std::string currentFolder() {
    std::error_code ec;
    fs::path p = fs::current_path(ec);
    return ec ? std::string("/") : p.string();
}

// A folder as the map keeps it: absolute, normal, no trailing "/" but for the root.
std::optional<std::string> normalFolder(const std::string& folder) {
    std::string f = folder;
    if (f.rfind("~/", 0) == 0 || f == "~") {
        const char* home = std::getenv("HOME");
        if (!home || !*home) return std::nullopt;
        f = std::string(home) + f.substr(1);
    }
    if (f.empty() || f[0] != '/') return std::nullopt;
    std::string n = fs::path(f).lexically_normal().string();
    while (n.size() > 1 && n.back() == '/') n.pop_back();
    return n;
}

// "C", "C:", "\\server\share" (any case) as the map keys them: "C:", "\\server\share".
std::optional<std::u16string> normalPrefix(std::u16string_view p) {
    if (p.size() == 1 || (p.size() == 2 && p[1] == u':')) {
        const char16_t letter = asciiUpper(p.substr(0, 1))[0];
        if (letter < u'A' || letter > u'Z') return std::nullopt;
        return std::u16string{letter, u':'};
    }
    if (p.size() < 5 || !isSeparator(p[0]) || !isSeparator(p[1])) return std::nullopt;
    std::u16string rest(p.substr(2));
    while (!rest.empty() && isSeparator(rest.back())) rest.pop_back();
    std::replace(rest.begin(), rest.end(), u'/', u'\\');
    const auto cut = rest.find(u'\\');
    if (cut == 0 || cut == std::u16string::npos || cut + 1 == rest.size()) return std::nullopt;
    if (rest.find(u'\\', cut + 1) != std::u16string::npos) return std::nullopt;
    return u"\\\\" + rest;
}

std::vector<std::u16string> elementsOf(std::u16string_view rest) {
    std::vector<std::u16string> out;
    std::u16string current;
    for (char16_t c : rest) {
        if (!isSeparator(c)) {
            current += c;
        } else if (!current.empty()) {
            out.push_back(std::move(current));
            current.clear();
        }
    }
    if (!current.empty()) out.push_back(std::move(current));
    return out;
}

bool holds(const std::string& folder, const std::string& path) {
    if (folder == "/") return true;
    return path.rfind(folder, 0) == 0 &&
           (path.size() == folder.size() || path[folder.size()] == '/');
}

}  // namespace

bool sameNameIgnoringCase(std::u16string_view a, std::u16string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (foldCase(a[i]) != foldCase(b[i])) return false;
    }
    return true;
}

DriveMap::DriveMap() {
    mappings_.push_back({u"Z:", "/"});
}

DriveMap DriveMap::forUser() {
    DriveMap m;
    const std::string path = configurationPath();
    if (!path.empty()) {
        std::ifstream file(path, std::ios::binary);
        std::ostringstream text;
        if (file) text << file.rdbuf();
        m.readConfiguration(text.str());
    }
    if (const char* v = std::getenv("CORVEX_DRIVES")) m.readVariable(v);
    return m;
}

std::string DriveMap::configurationPath() {
    const char* xdg = std::getenv("XDG_CONFIG_HOME");
    if (xdg && xdg[0] == '/') return std::string(xdg) + "/corvex/drives.ini";
    const char* home = std::getenv("HOME");
    if (home && home[0] == '/') return std::string(home) + "/.config/corvex/drives.ini";
    return {};
}

bool DriveMap::map(std::u16string_view prefix, const std::string& folder) {
    const std::optional<std::u16string> key = normalPrefix(prefix);
    if (!key) return false;
    auto same = [&](const Mapping& m) { return sameNameIgnoringCase(m.prefix, *key); };
    if (folder.empty()) {
        std::erase_if(mappings_, same);
        return true;
    }
    const std::optional<std::string> f = normalFolder(folder);
    if (!f) return false;
    std::erase_if(mappings_, same);
    mappings_.push_back({*key, *f});
    // Drive letters in order, then shares: the order ties are broken in.
    std::sort(mappings_.begin(), mappings_.end(),
              [](const Mapping& a, const Mapping& b) { return a.prefix < b.prefix; });
    return true;
}

int DriveMap::readConfiguration(std::string_view text) {
    int refused = 0;
    std::istringstream lines{std::string(text)};
    std::string line;
    while (std::getline(lines, line)) {
        const std::string l = trim(line);
        if (l.empty() || l[0] == ';' || l[0] == '#' || l[0] == '[') continue;
        const auto eq = l.find('=');
        if (eq == std::string::npos ||
            !map(fromUtf8(trim(l.substr(0, eq))), trim(l.substr(eq + 1))))
            ++refused;
    }
    return refused;
}

int DriveMap::readVariable(std::string_view value) {
    int refused = 0;
    std::size_t start = 0;
    while (start <= value.size()) {
        const auto end = std::min(value.find(';', start), value.size());
        const std::string pair = trim(value.substr(start, end - start));
        start = end + 1;
        if (pair.empty()) continue;
        const auto eq = pair.find('=');
        if (eq == std::string::npos ||
            !map(fromUtf8(trim(pair.substr(0, eq))), trim(pair.substr(eq + 1))))
            ++refused;
    }
    return refused;
}

std::optional<std::string> DriveMap::folderOf(std::u16string_view prefix) const {
    const std::optional<std::u16string> key = normalPrefix(prefix);
    if (!key) return std::nullopt;
    for (const Mapping& m : mappings_) {
        if (sameNameIgnoringCase(m.prefix, *key)) return m.folder;
    }
    return std::nullopt;
}

std::optional<SplitName> DriveMap::split(std::u16string_view name) const {
    SplitName out;
    out.folderOnly = !name.empty() && isSeparator(name.back());
    std::u16string_view rest = name;
    if (name.size() >= 2 && name[1] == u':') {
        const std::optional<std::string> f = folderOf(name.substr(0, 2));
        if (!f) return std::nullopt;
        out.root = *f;
        rest = name.substr(2);
    } else if (name.size() >= 2 && isSeparator(name[0]) && isSeparator(name[1])) {
        std::vector<std::u16string> parts = elementsOf(name);
        if (parts.size() < 2) return std::nullopt;
        const std::optional<std::string> f = folderOf(u"\\\\" + parts[0] + u"\\" + parts[1]);
        if (!f) return std::nullopt;
        out.root = *f;
        out.elements.assign(parts.begin() + 2, parts.end());
        return out;
    } else if (!name.empty() && isSeparator(name[0])) {
        // Rooted at the current drive: the drive the current folder lies on.
        const std::optional<std::u16string> here = toWindows(currentFolder());
        if (!here || here->size() < 2 || (*here)[1] != u':') return std::nullopt;
        const std::optional<std::string> f = folderOf(here->substr(0, 2));
        if (!f) return std::nullopt;
        out.root = *f;
    } else {
        out.root = ".";
    }
    out.elements = elementsOf(rest);
    return out;
}

std::optional<std::string> DriveMap::toNative(std::u16string_view windowsName) const {
    const std::optional<SplitName> s = split(windowsName);
    if (!s) return std::nullopt;
    std::string path = s->root;
    for (const std::u16string& e : s->elements) {
        if (path.empty() || path.back() != '/') path += '/';
        path += toUtf8(e);
    }
    return path;
}

std::optional<std::u16string> DriveMap::toWindows(std::string_view nativePath) const {
    if (nativePath.empty()) return std::nullopt;
    std::string path(nativePath);
    if (path[0] != '/') path = currentFolder() + "/" + path;
    path = fs::path(path).lexically_normal().string();
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    const Mapping* best = nullptr;
    for (const Mapping& m : mappings_) {
        if (holds(m.folder, path) && (!best || m.folder.size() > best->folder.size())) best = &m;
    }
    if (!best) return std::nullopt;
    std::string rest = best->folder == "/" ? path.substr(1) : path.substr(best->folder.size());
    if (!rest.empty() && rest[0] == '/') rest.erase(0, 1);
    std::u16string out = best->prefix;
    if (!rest.empty() || out.size() == 2) out += u'\\';
    std::u16string tail = fromUtf8(rest);
    std::replace(tail.begin(), tail.end(), u'/', u'\\');
    return out + tail;
}

}  // namespace corvex::posix
