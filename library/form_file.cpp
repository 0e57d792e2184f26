#include "corvex/library/form_file.h"

#include <bit>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "corvex/common/font.h"
#include "corvex/common/text.h"
#include "corvex/library/literals.h"

namespace corvex {

namespace {

// No line of a form file may be longer than this (bytes, without its line break). A
// longer one is refused whole rather than read into memory piece by piece, and the
// writer refuses to write one, so that whatever it writes reads back.
constexpr std::size_t kMaxLineBytes = 1u << 20;

// What a reader accepts at most, so that a hostile file costs bounded time and memory.
constexpr std::size_t kMaxFileBytes = std::size_t{64} << 20;
constexpr std::size_t kMaxControls = 65536;
constexpr std::size_t kMaxProperties = 65536;

constexpr std::string_view kHeaderWord = "CorvexForm";
constexpr std::string_view kVersion = "1";

[[noreturn]] void fail(int line, const std::string& message) {
    throw FormFileError(line, message);
}

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}
bool isNameChar(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

// A cursor over one line.
class LineReader {
public:
    LineReader(std::string_view text, int number) : text_(text), number_(number) {}

    int number() const { return number_; }
    bool atEnd() const { return pos_ >= text_.size(); }
    bool peek(char c) const { return pos_ < text_.size() && text_[pos_] == c; }
    void skipBlanks() {
        while (pos_ < text_.size() && isBlank(text_[pos_])) ++pos_;
    }
    // A run of name characters, possibly empty.
    std::string_view word() {
        const std::size_t start = pos_;
        while (pos_ < text_.size() && isNameChar(text_[pos_])) ++pos_;
        return text_.substr(start, pos_ - start);
    }
    // A run of characters up to the next blank.
    std::string_view token() {
        const std::size_t start = pos_;
        while (pos_ < text_.size() && !isBlank(text_[pos_])) ++pos_;
        return text_.substr(start, pos_ - start);
    }
    // A name (letters, digits, underscore, not starting with a digit).
    std::string_view name(const char* what) {
        skipBlanks();
        const std::string_view t = token();
        if (t.empty()) fail(number_, std::string("missing ") + what);
        if (!isName(t))
            fail(number_, std::string("bad ") + what + " \"" + shorten(t) +
                              "\": use letters, digits and underscores");
        return t;
    }
    void expect(char c, const std::string& context) {
        skipBlanks();
        if (atEnd() || text_[pos_] != c)
            fail(number_, std::string("expected ") + c + " " + context);
        ++pos_;
    }
    std::u16string quoted() {
        skipBlanks();
        try {
            return readQuoted(text_, pos_);
        } catch (const LiteralError& e) {
            fail(number_, e.what());
        }
    }
    // Nothing but blanks may follow.
    void expectEnd() {
        skipBlanks();
        if (!atEnd())
            fail(number_,
                 "unexpected text \"" + shorten(text_.substr(pos_)) + "\" at the end of the line");
    }
    // A blank must separate what was read from what follows, unless the line ends.
    void expectSeparator() {
        if (!atEnd() && !isBlank(text_[pos_])) {
            fail(number_, "unexpected text \"" + shorten(text_.substr(pos_)) + "\"");
        }
    }

    // Keeps messages readable whatever the line holds.
    static std::string shorten(std::string_view t) {
        std::string out;
        for (char c : t.substr(0, 40)) {
            const auto b = static_cast<unsigned char>(c);
            out += (b < 0x20 || b >= 0x7F) ? '?' : c;
        }
        if (t.size() > 40) out += "...";
        return out;
    }

private:
    std::string_view text_;
    int number_;
    std::size_t pos_ = 0;
};

// --- numbers -------------------------------------------------------------------------

template <class Int>
Int readInteger(LineReader& r, const char* kind) {
    r.skipBlanks();
    const std::string_view t = r.token();
    if (t.empty()) fail(r.number(), std::string("missing ") + kind + " value");
    Int value = 0;
    const auto [end, ec] = std::from_chars(t.data(), t.data() + t.size(), value);
    if (ec == std::errc::result_out_of_range) {
        fail(r.number(), std::string(kind) + " value out of range: " + LineReader::shorten(t));
    }
    if (ec != std::errc() || end != t.data() + t.size()) {
        fail(r.number(), std::string("bad ") + kind + " value: " + LineReader::shorten(t));
    }
    return value;
}

template <class F>
struct FloatBits;
template <>
struct FloatBits<float> {
    using Bits = std::uint32_t;
    static constexpr Bits canonicalNan = 0x7FC00000u;
    static constexpr Bits exponentMask = 0x7F800000u;
    static constexpr Bits mantissaMask = 0x007FFFFFu;
    static constexpr std::size_t hexDigits = 8;
};
template <>
struct FloatBits<double> {
    using Bits = std::uint64_t;
    static constexpr Bits canonicalNan = 0x7FF8000000000000u;
    static constexpr Bits exponentMask = 0x7FF0000000000000u;
    static constexpr Bits mantissaMask = 0x000FFFFFFFFFFFFFu;
    static constexpr std::size_t hexDigits = 16;
};

// Shortest text that reads back to the same bits: std::to_chars' shortest form for
// numbers and infinities; "nan" and "-nan" for the usual quiet NaN, and "nan(0x...)"
// with every bit for any other NaN.
template <class F>
std::string writeFloat(F value) {
    using T = FloatBits<F>;
    const auto bits = std::bit_cast<typename T::Bits>(value);
    if (value != value) {
        if (bits == T::canonicalNan) return "nan";
        if (bits == (T::canonicalNan | (typename T::Bits{1} << (T::hexDigits * 4 - 1))))
            return "-nan";
        char buf[32];
        const auto r = std::to_chars(buf, buf + sizeof buf, bits, 16);
        std::string hex(buf, r.ptr);
        return "nan(0x" + std::string(T::hexDigits - hex.size(), '0') + hex + ")";
    }
    char buf[64];
    const auto r = std::to_chars(buf, buf + sizeof buf, value);
    return std::string(buf, r.ptr);
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// -?D+(.D+)?([eE][+-]?D+)?
bool isDecimalShape(std::string_view t) {
    std::size_t i = 0;
    if (i < t.size() && t[i] == '-') ++i;
    std::size_t start = i;
    while (i < t.size() && isDigit(t[i])) ++i;
    if (i == start) return false;
    if (i < t.size() && t[i] == '.') {
        start = ++i;
        while (i < t.size() && isDigit(t[i])) ++i;
        if (i == start) return false;
    }
    if (i < t.size() && (t[i] == 'e' || t[i] == 'E')) {
        ++i;
        if (i < t.size() && (t[i] == '+' || t[i] == '-')) ++i;
        start = i;
        while (i < t.size() && isDigit(t[i])) ++i;
        if (i == start) return false;
    }
    return i == t.size();
}

template <class F>
F parseFloatToken(std::string_view t, int line, const char* kind) {
    using T = FloatBits<F>;
    const auto bad = [&]() {
        fail(line, std::string("bad ") + kind + " value: " + LineReader::shorten(t));
    };
    if (t == "nan") return std::bit_cast<F>(T::canonicalNan);
    if (t == "-nan") {
        return std::bit_cast<F>(T::canonicalNan | (typename T::Bits{1} << (T::hexDigits * 4 - 1)));
    }
    if (t == "inf") return std::numeric_limits<F>::infinity();
    if (t == "-inf") return -std::numeric_limits<F>::infinity();
    if (t.starts_with("nan(0x") && t.ends_with(")")) {
        const std::string_view hex = t.substr(6, t.size() - 7);
        typename T::Bits bits = 0;
        const auto [end, ec] = std::from_chars(hex.data(), hex.data() + hex.size(), bits, 16);
        if (hex.size() != T::hexDigits || ec != std::errc() || end != hex.data() + hex.size())
            bad();
        if ((bits & T::exponentMask) != T::exponentMask || (bits & T::mantissaMask) == 0) {
            fail(line,
                 std::string("nan(0x...) must hold the bits of a NaN: ") + LineReader::shorten(t));
        }
        return std::bit_cast<F>(bits);
    }
    if (!isDecimalShape(t)) bad();
    F value = 0;
    const auto [end, ec] = std::from_chars(t.data(), t.data() + t.size(), value);
    if (ec == std::errc::result_out_of_range) {
        fail(line, std::string(kind) + " value out of range: " + LineReader::shorten(t));
    }
    if (ec != std::errc() || end != t.data() + t.size()) bad();
    return value;
}

template <class F>
F readFloat(LineReader& r, const char* kind) {
    r.skipBlanks();
    const std::string_view t = r.token();
    if (t.empty()) fail(r.number(), std::string("missing ") + kind + " value");
    return parseFloatToken<F>(t, r.number(), kind);
}

bool readTrueFalse(LineReader& r, const char* what) {
    r.skipBlanks();
    const std::string_view t = r.token();
    if (t == "True") return true;
    if (t == "False") return false;
    fail(r.number(), std::string(what) + " must be True or False");
}

// --- values --------------------------------------------------------------------------

Variant readFont(LineReader& r) {
    FontDesc f;
    bool seen[8] = {};
    static constexpr std::string_view fields[8] = {
        "Name", "Size", "Bold", "Italic", "Underline", "Strikethrough", "Weight", "Charset"};
    for (;;) {
        r.skipBlanks();
        if (r.atEnd()) break;
        const std::string_view field = r.word();
        int k = 0;
        while (k < 8 && fields[k] != field) ++k;
        if (k == 8) {
            fail(r.number(), field.empty() ? std::string("expected a font field such as Name=")
                                           : "unknown font field " + std::string(field));
        }
        if (seen[k]) fail(r.number(), "font field " + std::string(field) + " given twice");
        seen[k] = true;
        r.expect('=', "after font field " + std::string(field));
        switch (k) {
            case 0:
                f.name = r.quoted();
                break;
            case 1:
                f.size = readFloat<double>(r, "font Size");
                break;
            case 2:
                f.bold = readTrueFalse(r, "font Bold");
                break;
            case 3:
                f.italic = readTrueFalse(r, "font Italic");
                break;
            case 4:
                f.underline = readTrueFalse(r, "font Underline");
                break;
            case 5:
                f.strikethrough = readTrueFalse(r, "font Strikethrough");
                break;
            case 6:
                f.weight = readInteger<std::int16_t>(r, "font Weight");
                break;
            default:
                f.charset = readInteger<std::int16_t>(r, "font Charset");
                break;
        }
        r.expectSeparator();
    }
    // Left off, the weight is the one that goes with Bold.
    if (!seen[6]) f.weight = f.bold ? 700 : 400;
    return Variant(ObjectRef(Font::make(std::move(f))));
}

Variant readValue(LineReader& r) {
    r.skipBlanks();
    const std::string_view type = r.word();
    if (type.empty())
        fail(r.number(),
             "missing type word (Empty, Boolean, Integer, Long, Single, Double, String, Font or "
             "Nothing)");
    r.expectSeparator();
    Variant v;
    if (type == "Empty") {
        v = Variant();
    } else if (type == "Nothing") {
        v = Variant(ObjectRef());
    } else if (type == "Boolean") {
        r.skipBlanks();
        const std::string_view t = r.token();
        if (t == "True") {
            v = Variant(true);
        } else if (t == "False") {
            v = Variant(false);
        } else {
            LineReader number(t, r.number());
            v = Variant(Boolean::fromRaw(readInteger<std::int16_t>(number, "Boolean")));
        }
    } else if (type == "Integer") {
        v = Variant(readInteger<std::int16_t>(r, "Integer"));
    } else if (type == "Long") {
        v = Variant(readInteger<std::int32_t>(r, "Long"));
    } else if (type == "Single") {
        v = Variant(readFloat<float>(r, "Single"));
    } else if (type == "Double") {
        v = Variant(readFloat<double>(r, "Double"));
    } else if (type == "String") {
        v = Variant(r.quoted());
    } else if (type == "Font") {
        return readFont(r);
    } else {
        fail(r.number(), "unknown type word \"" + LineReader::shorten(type) + "\"");
    }
    r.expectEnd();
    return v;
}

// One field of a value object, without a type word: the field's own kind says it.
std::string writeField(const Variant& v) {
    switch (v.type()) {
        case VarType::Boolean:
            return v.asBoolean() ? "True" : "False";
        case VarType::Single:
            return writeFloat(v.asSingle());
        case VarType::Double:
            return writeFloat(v.asDouble());
        case VarType::String:
            return quoteString(v.asString());
        default:
            return toUtf8(v.toString());
    }
}

void writeValue(std::string& out, const Variant& v, int line) {
    switch (v.type()) {
        case VarType::Empty:
            out += "Empty";
            return;
        case VarType::Boolean: {
            const Boolean b = v.asBoolean();
            out += "Boolean ";
            out += b.isTrue() ? "True" : b.isFalse() ? "False" : std::to_string(b.raw);
            return;
        }
        case VarType::Integer:
            out += "Integer " + std::to_string(v.asInteger());
            return;
        case VarType::Long:
            out += "Long " + std::to_string(v.asLong());
            return;
        case VarType::Single:
            out += "Single " + writeFloat(v.asSingle());
            return;
        case VarType::Double:
            out += "Double " + writeFloat(v.asDouble());
            return;
        case VarType::String:
            out += "String " + quoteString(v.asString());
            return;
        case VarType::Object: {
            const ObjectRef& o = v.asObject();
            if (!o) {
                out += "Nothing";
                return;
            }
            if (!isValueObject(*o)) {
                fail(line, "cannot write a " + toUtf8(o->classInfo().name()) +
                               " object: only fonts and Nothing are saved");
            }
            // A value object is written as its class name and its fields, Name=value.
            out += toUtf8(o->classInfo().name());
            for (const auto& [name, field] : valueFields(*o)) {
                out += " " + toUtf8(name) + "=" + writeField(field);
            }
            return;
        }
    }
}

// --- lines ---------------------------------------------------------------------------

struct Line {
    std::string_view text;
    int number;
};

// Splits the input into lines (LF or CR LF), refusing an over-long one before anything
// else is done with it.
std::vector<Line> splitLines(std::string_view text) {
    // A byte-order mark some editors put first carries no meaning.
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    std::vector<Line> lines;
    std::size_t pos = 0;
    int number = 0;
    while (pos < text.size()) {
        ++number;
        if (number == std::numeric_limits<int>::max()) fail(number, "too many lines");
        std::size_t end = text.find('\n', pos);
        const bool last = end == std::string_view::npos;
        if (last) end = text.size();
        std::string_view line = text.substr(pos, end - pos);
        if (line.ends_with('\r')) line.remove_suffix(1);
        // Old Mac files end their lines with CR alone, so the whole file reads as one
        // line; looking for a CR within the line limit names that fault, however long.
        const std::string_view head = line.substr(0, kMaxLineBytes + 1);
        if (head.find('\r') != std::string_view::npos) {
            fail(number, "a line ends with CR alone: form files end their lines with LF or CR LF");
        }
        if (line.size() > kMaxLineBytes) {
            fail(number, "line is longer than " + std::to_string(kMaxLineBytes) + " bytes");
        }
        if (end > kMaxFileBytes) {
            fail(number,
                 "form file is larger than " + std::to_string(kMaxFileBytes >> 20) + " MiB");
        }
        lines.push_back({line, number});
        pos = last ? text.size() : end + 1;
    }
    return lines;
}

bool isIgnored(std::string_view line) {
    std::size_t i = 0;
    while (i < line.size() && isBlank(line[i])) ++i;
    return i == line.size() || line[i] == '#';
}

// NAME or NAME(INDEX), INDEX 0 to 32767 in decimal, the way a control array's element is
// named; false when text is neither.
bool splitControlName(std::string_view text, std::string_view& name, std::int16_t& index) {
    const std::size_t open = text.find('(');
    if (open == std::string_view::npos) {
        name = text;
        index = NoIndex;
        return isName(text);
    }
    if (!text.ends_with(')')) return false;
    name = text.substr(0, open);
    const std::string_view digits = text.substr(open + 1, text.size() - open - 2);
    if (!isName(name) || digits.empty() || digits.size() > 5) return false;
    int value = 0;
    for (char c : digits) {
        if (!isDigit(c)) return false;
        value = value * 10 + (c - '0');
    }
    if (value > 32767 || (digits.size() > 1 && digits[0] == '0')) return false;
    index = static_cast<std::int16_t>(value);
    return true;
}

// The controls of one document by the forms' one rule: names without regard to ASCII
// case, and a name either one control or an array of distinct indices. Hashing keeps a
// form of many controls linear.
class ControlNames {
public:
    // Whether name can join those seen so far; remembers it when it can.
    bool take(const std::u16string& name, std::int16_t index) {
        const std::u16string folded = foldName(name);
        const auto [kind, fresh] = arrays_.emplace(folded, index != NoIndex);
        if (!fresh && kind->second != (index != NoIndex)) return false;
        return taken_.insert(ControlName{folded, index}.text()).second;
    }

private:
    std::unordered_map<std::u16string, bool> arrays_;
    std::unordered_set<std::u16string> taken_;
};

}  // namespace

FormFileError::FormFileError(int line, const std::string& message)
    : std::runtime_error("line " + std::to_string(line) + ": " + message),
      line_(line),
      message_(message) {}

FormDocument parseFormFile(std::string_view utf8) {
    const std::vector<Line> lines = splitLines(utf8);
    const int lastLine = lines.empty() ? 1 : lines.back().number;

    enum class State { Header, FormBegin, InForm, InControl, Done };
    State state = State::Header;
    FormDocument doc;
    bool captionSeen = false;
    ControlNames controlNames;
    std::unordered_set<std::u16string> propertyNames;  // folded, of the current control
    int formLine = 0;
    int controlLine = 0;

    for (const Line& line : lines) {
        if (isIgnored(line.text)) continue;
        LineReader r(line.text, line.number);
        r.skipBlanks();
        switch (state) {
            case State::Header: {
                const std::string_view word = r.word();
                if (word != kHeaderWord) fail(line.number, "expected the header \"CorvexForm 1\"");
                r.expectSeparator();
                r.skipBlanks();
                const std::string_view version = r.token();
                if (version != kVersion) {
                    fail(line.number, "unsupported form file version \"" +
                                          LineReader::shorten(version) +
                                          "\" (this reader knows version 1)");
                }
                r.expectEnd();
                state = State::FormBegin;
                break;
            }
            case State::FormBegin: {
                if (r.word() != "Begin") fail(line.number, "expected \"Begin Form NAME\"");
                r.expectSeparator();
                r.skipBlanks();
                if (r.word() != "Form") fail(line.number, "expected \"Begin Form NAME\"");
                r.expectSeparator();
                doc.name = fromUtf8(r.name("form name"));
                r.expectEnd();
                formLine = line.number;
                state = State::InForm;
                break;
            }
            case State::InForm: {
                const std::string_view word = r.word();
                // The caption's name may touch its "=", as a property's may.
                if (word != "Caption") r.expectSeparator();
                if (word == "End") {
                    r.expectEnd();
                    state = State::Done;
                } else if (word == "Begin") {
                    SavedControl c;
                    c.className = fromUtf8(r.name("class name"));
                    r.expectSeparator();
                    r.skipBlanks();
                    const std::string_view token = r.token();
                    std::string_view name;
                    if (token.empty()) fail(line.number, "missing control name");
                    if (!splitControlName(token, name, c.index)) {
                        fail(line.number, "bad control name \"" + LineReader::shorten(token) +
                                              "\": use letters, digits and underscores, and "
                                              "(INDEX) from 0 to 32767 for an array element");
                    }
                    c.name = fromUtf8(name);
                    r.expectEnd();
                    if (doc.controls.size() == kMaxControls) {
                        fail(line.number, "a form file holds at most " +
                                              std::to_string(kMaxControls) + " controls");
                    }
                    if (!controlNames.take(c.name, c.index)) {
                        fail(line.number, "duplicate control name " +
                                              toUtf8(ControlName{c.name, c.index}.text()));
                    }
                    propertyNames.clear();
                    doc.controls.push_back(std::move(c));
                    controlLine = line.number;
                    state = State::InControl;
                } else if (word == "Caption") {
                    if (captionSeen) fail(line.number, "the form's Caption is given twice");
                    captionSeen = true;
                    r.expect('=', "after Caption");
                    doc.caption = r.quoted();
                    r.expectEnd();
                } else if (word.empty()) {
                    fail(line.number,
                         "expected \"Begin CLASS NAME\", \"Caption = ...\" or \"End\"");
                } else {
                    fail(line.number, "unknown form entry \"" + LineReader::shorten(word) +
                                          "\" (a form holds Caption and controls)");
                }
                break;
            }
            case State::InControl: {
                SavedControl& c = doc.controls.back();
                // A property line is NAME = TYPE VALUE (the name may touch the "="); so a
                // property may even be called End or Begin.
                LineReader p(line.text, line.number);
                p.skipBlanks();
                const std::string_view word = p.word();
                p.skipBlanks();
                if (!p.peek('=')) {
                    if (word == "End" && p.atEnd()) {
                        state = State::InForm;
                        break;
                    }
                    if (word == "Begin") {
                        fail(line.number, "controls do not nest: End " + toUtf8(c.name) + " first");
                    }
                    fail(line.number, "expected a property line \"NAME = TYPE VALUE\" or \"End\"");
                }
                if (!isName(word)) {
                    fail(line.number, "bad property name \"" + LineReader::shorten(word) +
                                          "\": use letters, digits and underscores");
                }
                p.expect('=', "after property name " + std::string(word));
                const std::u16string name = fromUtf8(word);
                if (!propertyNames.insert(foldName(name)).second) {
                    fail(line.number, "duplicate property " + std::string(word) + " in " +
                                          toUtf8(ControlName{c.name, c.index}.text()));
                }
                if (c.properties.size() == kMaxProperties) {
                    fail(line.number, "a control holds at most " + std::to_string(kMaxProperties) +
                                          " properties in a form file");
                }
                c.properties.emplace_back(name, readValue(p));
                break;
            }
            case State::Done:
                fail(line.number, "unexpected text after the form's End");
        }
    }

    switch (state) {
        case State::Header:
            fail(lastLine, "empty form file: expected the header \"CorvexForm 1\"");
        case State::FormBegin:
            fail(lastLine, "missing \"Begin Form NAME\"");
        case State::InForm:
            fail(formLine, "Begin Form " + toUtf8(doc.name) + " has no End");
        case State::InControl:
            fail(controlLine,
                 "Begin " + toUtf8(doc.controls.back().className) + " " +
                     toUtf8(
                         ControlName{doc.controls.back().name, doc.controls.back().index}.text()) +
                     " has no End");
        case State::Done:
            break;
    }
    return doc;
}

std::string writeFormFile(const FormDocument& form) {
    std::string out;
    int line = 0;
    std::size_t lineStart = 0;
    // What the line being written holds, for an error about it ("property Text of txtMemo").
    std::string what;
    const auto endLine = [&]() {
        if (out.size() - lineStart > kMaxLineBytes) {
            fail(line, "cannot write " + what + ": its line would be longer than " +
                           std::to_string(kMaxLineBytes) + " bytes");
        }
        out += '\n';
        lineStart = out.size();
    };
    const auto begin = [&](std::string description) {
        ++line;
        lineStart = out.size();
        what = std::move(description);
    };
    const auto checkName = [&](std::u16string_view name, const char* kind) {
        const std::string n = toUtf8(name);
        if (!isName(n)) {
            fail(line, std::string("cannot write ") + kind + " \"" + LineReader::shorten(n) +
                           "\": use letters, digits and underscores");
        }
        return n;
    };

    begin("the header");
    out += std::string(kHeaderWord) + " " + std::string(kVersion);
    endLine();
    begin("the form's name");
    out += "Begin Form " + checkName(form.name, "form name");
    endLine();
    begin("the form's Caption");
    out += "  Caption = " + quoteString(form.caption);
    endLine();
    ControlNames controlNames;
    std::unordered_set<std::u16string> propertyNames;
    for (const SavedControl& c : form.controls) {
        const std::string control = toUtf8(ControlName{c.name, c.index}.text());
        begin("control " + control);
        if (c.index < NoIndex) {
            fail(line, "cannot write control " + control + ": an index runs from 0 to 32767");
        }
        const std::string className = checkName(c.className, "class name");
        const std::string name = checkName(c.name, "control name");
        if (!controlNames.take(c.name, c.index)) {
            fail(line, "cannot write two controls named " + control);
        }
        out += "  Begin " + className + " " + name;
        if (c.index != NoIndex) out += "(" + std::to_string(c.index) + ")";
        endLine();
        propertyNames.clear();
        for (const auto& [property, value] : c.properties) {
            const std::string p = toUtf8(property);
            begin("property " + p + " of control " + control);
            if (!propertyNames.insert(foldName(property)).second) {
                fail(line, "cannot write property " + p + " twice in " + control);
            }
            out += "    " + checkName(property, "property name") + " = ";
            try {
                writeValue(out, value, line);
            } catch (const FormFileError& e) {
                fail(line,
                     "cannot write property " + p + " of control " + control + ": " + e.message());
            }
            endLine();
        }
        begin("the End of control " + control);
        out += "  End";
        endLine();
    }
    begin("the form's End");
    out += "End";
    endLine();
    return out;
}

}  // namespace corvex
