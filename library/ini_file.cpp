#include "corvex/library/ini_file.h"

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace corvex {

namespace {

constexpr std::string_view kBom = "\xEF\xBB\xBF";

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view trim(std::string_view s) {
    while (!s.empty() && isBlank(s.front())) s.remove_prefix(1);
    while (!s.empty() && isBlank(s.back())) s.remove_suffix(1);
    return s;
}

// Names are compared by their trimmed, ASCII-lower-cased form, as the service compares them.
std::string foldName(std::string_view name) {
    std::string out(trim(name));
    for (char& c : out) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return out;
}

// One line holds a name or a value up to its first line break (or NUL): the rest would
// start lines of its own and change the file's structure.
std::string_view oneLine(std::string_view s) {
    const auto end = s.find_first_of(std::string_view("\r\n\0", 3));
    return end == std::string_view::npos ? s : s.substr(0, end);
}

std::string_view unquote(std::string_view v) {
    if (v.size() >= 2 && v.front() == v.back() && (v.front() == '"' || v.front() == '\'')) {
        return v.substr(1, v.size() - 2);
    }
    return v;
}

struct Line {
    std::string text;
    std::string ending;  // "\r\n", "\n" or "" (the last line of a file without a final break)
};

enum class Kind { Blank, Comment, Section, Key };

Kind kindOf(std::string_view text) {
    const std::string_view t = trim(text);
    if (t.empty()) return Kind::Blank;
    if (t.front() == ';') return Kind::Comment;
    if (t.front() == '[') return Kind::Section;
    return Kind::Key;
}

// "[ name ] trailing" names "name"; a header without "]" names the rest of the line.
std::string_view sectionName(std::string_view text) {
    std::string_view t = trim(text).substr(1);
    return t.substr(0, t.find(']'));
}

// The key of a key line: the text before the first "=", or the whole line without one.
std::string_view keyName(std::string_view text) {
    return text.substr(0, text.find('='));
}

// A key line without "=" reads as an entry with an empty value.
std::string_view valueOf(std::string_view text) {
    const auto eq = text.find('=');
    if (eq == std::string_view::npos) return {};
    return unquote(trim(text.substr(eq + 1)));
}

// A section (or the lines before the first one) and its first keys.
struct Block {
    std::vector<Line> lines;                       // the header first, for a section
    std::unordered_map<std::string, size_t> keys;  // folded key -> line (first wins)
    size_t lastKey = 0;                            // the last key line, or the header
    void index(size_t i) {
        if (kindOf(lines[i].text) != Kind::Key) return;
        keys.emplace(foldName(keyName(lines[i].text)), i);
        lastKey = i;
    }
    void reindex() {
        keys.clear();
        lastKey = 0;
        for (size_t i = 0; i < lines.size(); ++i) index(i);
    }
    // Only its header and blank lines are left.
    bool bare() const {
        for (size_t i = 1; i < lines.size(); ++i) {
            if (kindOf(lines[i].text) != Kind::Blank) return false;
        }
        return true;
    }
};

}  // namespace

struct IniDocument::Private {
    bool bom = false;
    std::string eol = "\n";              // the file's own line ending, for the lines it gains
    std::vector<Block> blocks{Block{}};  // blocks[0]: before any section
    std::unordered_map<std::string, size_t> sections;  // folded name -> block (first wins)

    void add(Line line) {
        if (kindOf(line.text) == Kind::Section) {
            sections.emplace(foldName(sectionName(line.text)), blocks.size());
            blocks.emplace_back();
        }
        Block& b = blocks.back();
        b.lines.push_back(std::move(line));
        b.index(b.lines.size() - 1);
    }

    void parse(std::string_view bytes) {
        if (bytes.substr(0, kBom.size()) == kBom) {
            bom = true;
            bytes.remove_prefix(kBom.size());
        }
        bool eolSeen = false;
        while (!bytes.empty()) {
            const auto lf = bytes.find('\n');
            Line line;
            if (lf == std::string_view::npos) {
                line.text = std::string(bytes);
                bytes = {};
            } else {
                const bool crlf = lf > 0 && bytes[lf - 1] == '\r';
                line.text = std::string(bytes.substr(0, crlf ? lf - 1 : lf));
                line.ending = crlf ? "\r\n" : "\n";
                bytes.remove_prefix(lf + 1);
                if (!eolSeen) eol = line.ending;
                eolSeen = true;
            }
            add(std::move(line));
        }
    }

    const Block* block(std::string_view section) const {
        const auto it = sections.find(foldName(section));
        return it == sections.end() ? nullptr : &blocks[it->second];
    }

    // The last line of the file gains the file's line ending before a line follows it.
    void endLastLine() {
        for (auto b = blocks.rbegin(); b != blocks.rend(); ++b) {
            if (b->lines.empty()) continue;
            if (b->lines.back().ending.empty()) b->lines.back().ending = eol;
            return;
        }
    }

    void reindexSections() {
        sections.clear();
        for (size_t b = 1; b < blocks.size(); ++b) {
            sections.emplace(foldName(sectionName(blocks[b].lines.front().text)), b);
        }
    }

    void addSection(std::string_view section, std::string line) {
        endLastLine();
        add({"[" + std::string(section) + "]", eol});
        add({std::move(line), eol});
    }

    void addKey(Block& b, std::string_view key, std::string line) {
        Line& before = b.lines[b.lastKey];
        Line added{std::move(line), eol};
        // A file that ended without a line break still does.
        if (before.ending.empty()) std::swap(before.ending, added.ending);
        const size_t at = b.lastKey + 1;
        b.lines.insert(b.lines.begin() + static_cast<std::ptrdiff_t>(at), std::move(added));
        // Only blank and comment lines can follow the last key: no key moves.
        b.keys.emplace(foldName(key), at);
        b.lastKey = at;
    }
};

IniDocument::IniDocument() : d(std::make_unique<Private>()) {}

IniDocument::IniDocument(std::string_view bytes) : IniDocument() {
    d->parse(bytes);
}

IniDocument::~IniDocument() = default;

IniDocument::IniDocument(const IniDocument& other) : d(std::make_unique<Private>(*other.d)) {}

IniDocument& IniDocument::operator=(const IniDocument& other) {
    *d = *other.d;
    return *this;
}

std::optional<std::string> IniDocument::find(std::string_view section, std::string_view key) const {
    const Block* b = d->block(section);
    if (!b) return std::nullopt;
    const auto it = b->keys.find(foldName(key));
    if (it == b->keys.end()) return std::nullopt;
    return std::string(valueOf(b->lines[it->second].text));
}

std::string IniDocument::read(std::string_view section, std::string_view key,
                              std::string_view defaultValue) const {
    auto found = find(section, key);
    return found ? std::move(*found) : iniDefault(defaultValue);
}

void IniDocument::write(std::string_view section, std::string_view key, std::string_view value) {
    section = oneLine(section);
    key = oneLine(key);
    value = oneLine(value);
    const std::string fresh = std::string(key) + "=" + std::string(value);
    const auto s = d->sections.find(foldName(section));
    if (s == d->sections.end()) return d->addSection(section, fresh);
    Block& b = d->blocks[s->second];
    const auto k = b.keys.find(foldName(key));
    if (k == b.keys.end()) return d->addKey(b, key, fresh);
    // The entry keeps its own spelling of the key and its spacing around "=".
    std::string& text = b.lines[k->second].text;
    const auto eq = text.find('=');
    if (eq == std::string::npos) {
        text += "=" + std::string(value);
        return;
    }
    size_t start = eq + 1;
    while (start < text.size() && isBlank(text[start])) ++start;
    text = text.substr(0, start) + std::string(value);
}

bool IniDocument::removeKey(std::string_view section, std::string_view key) {
    const auto s = d->sections.find(foldName(section));
    if (s == d->sections.end()) return false;
    Block& b = d->blocks[s->second];
    const auto k = b.keys.find(foldName(key));
    if (k == b.keys.end()) return false;
    b.lines.erase(b.lines.begin() + static_cast<std::ptrdiff_t>(k->second));
    b.reindex();
    if (b.bare()) {
        d->blocks.erase(d->blocks.begin() + static_cast<std::ptrdiff_t>(s->second));
        d->reindexSections();
    }
    return true;
}

std::string IniDocument::bytes() const {
    std::string out = d->bom ? std::string(kBom) : std::string();
    for (const Block& b : d->blocks) {
        for (const Line& l : b.lines) out += l.text + l.ending;
    }
    return out;
}

std::size_t IniDocument::lineCount() const {
    std::size_t n = 0;
    for (const Block& b : d->blocks) n += b.lines.size();
    return n;
}

std::string iniDefault(std::string_view defaultValue) {
    while (!defaultValue.empty() && isBlank(defaultValue.back())) defaultValue.remove_suffix(1);
    return std::string(defaultValue);
}

std::string cutUtf8(std::string_view text, std::size_t maxBytes) {
    if (text.size() <= maxBytes) return std::string(text);
    std::size_t end = maxBytes;
    // Back up over continuation bytes (10xxxxxx) to the start of the cut character.
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
    return std::string(text.substr(0, end));
}

}  // namespace corvex
