#include "corvex/library/literals.h"

#include <bit>
#include <charconv>
#include <cstdint>
#include <vector>

#include "corvex/common/number_text.h"
#include "corvex/common/text.h"
#include "corvex/common/variant_array.h"

namespace corvex {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

char lower(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c + 32) : c;
}

bool equalsWord(std::string_view text, std::string_view word) {
    if (text.size() != word.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (lower(text[i]) != lower(word[i])) return false;
    }
    return true;
}

bool startsWithWord(std::string_view text, std::string_view word) {
    return text.size() >= word.size() && equalsWord(text.substr(0, word.size()), word);
}

int hexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

std::string hex4(char16_t unit) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string out = "\\u";
    for (int shift = 12; shift >= 0; shift -= 4) out += digits[(unit >> shift) & 0xF];
    return out;
}

bool isHighSurrogate(char16_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
bool isLowSurrogate(char16_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

// Decodes one UTF-8 sequence at text[pos] strictly (no overlong forms, no surrogates,
// nothing past U+10FFFF); returns its length, 0 when the bytes are not UTF-8.
std::size_t decodeUtf8(std::string_view text, std::size_t pos, char32_t& out) {
    const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
    const unsigned char b = byte(pos);
    std::size_t len = 0;
    char32_t c = 0;
    if (b < 0x80) {
        out = b;
        return 1;
    }
    if ((b & 0xE0) == 0xC0) {
        len = 2;
        c = b & 0x1F;
    } else if ((b & 0xF0) == 0xE0) {
        len = 3;
        c = b & 0x0F;
    } else if ((b & 0xF8) == 0xF0) {
        len = 4;
        c = b & 0x07;
    } else {
        return 0;
    }
    if (pos + len > text.size()) return 0;
    for (std::size_t k = 1; k < len; ++k) {
        if ((byte(pos + k) & 0xC0) != 0x80) return 0;
        c = (c << 6) | (byte(pos + k) & 0x3F);
    }
    if ((len == 2 && c < 0x80) || (len == 3 && c < 0x800) || (len == 4 && c < 0x10000) ||
        (c >= 0xD800 && c <= 0xDFFF) || c > 0x10FFFF) {
        return 0;
    }
    out = c;
    return len;
}

void appendUtf16(std::u16string& out, char32_t c) {
    if (c >= 0x10000) {
        c -= 0x10000;
        out += static_cast<char16_t>(0xD800 + (c >> 10));
        out += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
    } else {
        out += static_cast<char16_t>(c);
    }
}

// Where the quoted literal starting at text[pos] ends (just past its closing quote);
// npos when it is not closed.
std::size_t quotedEnd(std::string_view text, std::size_t pos) {
    for (std::size_t i = pos + 1; i < text.size(); ++i) {
        if (text[i] == '\\') {
            ++i;  // the escaped character, whatever it is, cannot close the literal
        } else if (text[i] == '"') {
            return i + 1;
        }
    }
    return std::string_view::npos;
}

// The shape of a number literal: -?D+(.D+)?([eE][+-]?D+)?. Sets whether it has a point
// or an exponent.
bool isNumberShape(std::string_view t, bool& decimal) {
    std::size_t i = 0;
    decimal = false;
    if (i < t.size() && t[i] == '-') ++i;
    const std::size_t intStart = i;
    while (i < t.size() && isDigit(t[i])) ++i;
    if (i == intStart) return false;
    if (i < t.size() && t[i] == '.') {
        decimal = true;
        const std::size_t fracStart = ++i;
        while (i < t.size() && isDigit(t[i])) ++i;
        if (i == fracStart) return false;
    }
    if (i < t.size() && (t[i] == 'e' || t[i] == 'E')) {
        decimal = true;
        ++i;
        if (i < t.size() && (t[i] == '+' || t[i] == '-')) ++i;
        const std::size_t expStart = i;
        while (i < t.size() && isDigit(t[i])) ++i;
        if (i == expStart) return false;
    }
    return i == t.size();
}

Variant parseNumber(std::string_view token) {
    bool decimal = false;
    if (!isNumberShape(token, decimal)) {
        throw LiteralError("not a literal: " + std::string(token));
    }
    if (!decimal) {
        std::int64_t n = 0;
        const auto [end, ec] = std::from_chars(token.data(), token.data() + token.size(), n);
        if (ec == std::errc() && end == token.data() + token.size()) {
            if (n >= INT16_MIN && n <= INT16_MAX) return Variant(static_cast<std::int16_t>(n));
            if (n >= INT32_MIN && n <= INT32_MAX) return Variant(static_cast<std::int32_t>(n));
        }
        // Beyond 32 bits an integer is a Double, read like any decimal.
    }
    // The host's own reading: correctly rounded, a value too small becomes zero.
    const ParsedNumber p = parseDouble(fromUtf8(token));
    if (p.status == ParseStatus::Overflow) {
        throw LiteralError("number out of range: " + std::string(token));
    }
    if (p.status != ParseStatus::Ok) throw LiteralError("not a number: " + std::string(token));
    return Variant(p.value);
}

// Splits the inside of Font(...) into its argument tokens.
std::vector<std::string_view> fontArguments(std::string_view inside) {
    std::vector<std::string_view> args;
    std::size_t i = 0;
    const auto skipBlanks = [&] {
        while (i < inside.size() && isBlank(inside[i])) ++i;
    };
    skipBlanks();
    if (i == inside.size()) return args;
    for (;;) {
        skipBlanks();
        const std::size_t start = i;
        if (i < inside.size() && inside[i] == '"') {
            const std::size_t end = quotedEnd(inside, i);
            if (end == std::string_view::npos) throw LiteralError("unterminated string in a font");
            i = end;
        } else {
            while (i < inside.size() && !isBlank(inside[i]) && inside[i] != ',') ++i;
        }
        if (i == start) throw LiteralError("missing argument in a font");
        args.push_back(inside.substr(start, i - start));
        skipBlanks();
        if (i == inside.size()) break;
        if (inside[i] != ',') throw LiteralError("expected , between the arguments of a font");
        ++i;
    }
    return args;
}

bool fontFlag(const Variant& v, const char* what) {
    if (v.type() == VarType::Boolean && (v.asBoolean().isTrue() || v.asBoolean().isFalse())) {
        return v.asBoolean().isTrue();
    }
    throw LiteralError(std::string("a font's ") + what + " must be True or False");
}

std::int16_t fontShort(const Variant& v, const char* what) {
    if (v.type() == VarType::Integer) return v.asInteger();
    throw LiteralError(std::string("a font's ") + what +
                       " must be an integer from -32768 to 32767");
}

Variant parseFont(std::string_view token) {
    // token is "Font(...)"; the parenthesis must close the token.
    if (token.back() != ')') throw LiteralError("unexpected text after a font");
    const std::vector<std::string_view> args = fontArguments(token.substr(5, token.size() - 6));
    if (args.empty()) throw LiteralError("a font needs at least its name");
    if (args.size() > 8) throw LiteralError("a font has at most 8 arguments");
    std::vector<Variant> v;
    for (std::string_view a : args) {
        if (startsWithWord(a, "Font(")) throw LiteralError("a font cannot hold a font");
        v.push_back(parseLiteral(a));
    }
    FontDesc f;
    if (v[0].type() != VarType::String) throw LiteralError("a font's name must be a string");
    f.name = v[0].asString();
    if (v.size() > 1) {
        const VarType t = v[1].type();
        if (t != VarType::Integer && t != VarType::Long && t != VarType::Double) {
            throw LiteralError("a font's size must be a number");
        }
        f.size = v[1].toDouble();
    }
    if (v.size() > 2) f.bold = fontFlag(v[2], "Bold");
    if (v.size() > 3) f.italic = fontFlag(v[3], "Italic");
    if (v.size() > 4) f.underline = fontFlag(v[4], "Underline");
    if (v.size() > 5) f.strikethrough = fontFlag(v[5], "Strikethrough");
    // Left off, the weight is the one that goes with Bold.
    f.weight = v.size() > 6 ? fontShort(v[6], "Weight") : std::int16_t(f.bold ? 700 : 400);
    if (v.size() > 7) f.charset = fontShort(v[7], "Charset");
    return Variant(ObjectRef(Font::make(std::move(f))));
}

// The length of the opening "Font(", "Array(" or "ArrayFrom(" of a literal, 0 for none.
std::size_t callLiteralLength(std::string_view text) {
    for (std::string_view open : {"Font(", "Array(", "ArrayFrom("}) {
        if (startsWithWord(text, open)) return open.size();
    }
    return 0;
}

// Array(V, ...) holds its elements from index 0; ArrayFrom(LBOUND, V, ...) from LBOUND.
Variant parseArray(std::string_view token, std::size_t open, bool withLowerBound) {
    if (token.back() != ')') throw LiteralError("unexpected text after an array");
    const std::vector<std::string_view> args =
        fontArguments(token.substr(open, token.size() - open - 1));
    std::vector<Variant> v;
    for (std::string_view a : args) {
        if (callLiteralLength(a) != 0) throw LiteralError("an array holds plain values only");
        v.push_back(parseLiteral(a));
    }
    std::int32_t lower = 0;
    if (withLowerBound) {
        if (v.empty() || (v[0].type() != VarType::Integer && v[0].type() != VarType::Long)) {
            throw LiteralError("ArrayFrom( needs its lower bound, a whole number, first");
        }
        lower = v[0].toLong();
        v.erase(v.begin());
    }
    return Variant(ObjectRef(VariantArray::make(std::move(v), lower)));
}

}  // namespace

bool isName(std::string_view text) {
    if (text.empty() || isDigit(text[0])) return false;
    for (char c : text) {
        if (!isLetter(c) && !isDigit(c) && c != '_') return false;
    }
    return true;
}

bool isLiteralWord(std::string_view text) {
    return equalsWord(text, "True") || equalsWord(text, "False") || equalsWord(text, "Empty") ||
           equalsWord(text, "Nothing");
}

std::string quoteString(std::u16string_view text) {
    std::string out = "\"";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        switch (c) {
            case u'"':
                out += "\\\"";
                continue;
            case u'\\':
                out += "\\\\";
                continue;
            case u'\r':
                out += "\\r";
                continue;
            case u'\n':
                out += "\\n";
                continue;
            case u'\t':
                out += "\\t";
                continue;
            case u'\0':
                out += "\\0";
                continue;
            default:
                break;
        }
        if (c < 0x20 || c == 0x7F) {
            out += hex4(c);
        } else if (isHighSurrogate(c) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            out += toUtf8(text.substr(i, 2));
            ++i;
        } else if (isHighSurrogate(c) || isLowSurrogate(c)) {
            out += hex4(c);  // unpaired: no UTF-8 form, so it travels as its code unit
        } else {
            out += toUtf8(text.substr(i, 1));
        }
    }
    out += '"';
    return out;
}

std::u16string readQuoted(std::string_view text, std::size_t& pos) {
    if (pos >= text.size() || text[pos] != '"') throw LiteralError("expected a quoted string");
    std::u16string out;
    std::size_t i = pos + 1;
    for (;;) {
        if (i >= text.size()) throw LiteralError("unterminated string");
        const char c = text[i];
        if (c == '"') {
            pos = i + 1;
            return out;
        }
        if (c == '\\') {
            if (i + 1 >= text.size()) throw LiteralError("unterminated string");
            const char e = text[i + 1];
            i += 2;
            switch (e) {
                case '"':
                    out += u'"';
                    break;
                case '\\':
                    out += u'\\';
                    break;
                case 'r':
                    out += u'\r';
                    break;
                case 'n':
                    out += u'\n';
                    break;
                case 't':
                    out += u'\t';
                    break;
                case '0':
                    out += u'\0';
                    break;
                case 'u': {
                    unsigned unit = 0;
                    for (int k = 0; k < 4; ++k) {
                        const int h = i < text.size() ? hexValue(text[i]) : -1;
                        if (h < 0) throw LiteralError("\\u needs exactly four hex digits");
                        unit = unit * 16 + static_cast<unsigned>(h);
                        ++i;
                    }
                    out += static_cast<char16_t>(unit);
                    break;
                }
                default: {
                    std::string shown(1, e);
                    if (static_cast<unsigned char>(e) < 0x20 ||
                        static_cast<unsigned char>(e) >= 0x7F) {
                        shown = "a non-printing character";
                    }
                    throw LiteralError("unknown escape \\" + shown + " in a string");
                }
            }
            continue;
        }
        const auto b = static_cast<unsigned char>(c);
        if (b < 0x20 || b == 0x7F) {
            throw LiteralError("raw control character in a string (write it as an escape)");
        }
        char32_t cp = 0;
        const std::size_t len = decodeUtf8(text, i, cp);
        if (len == 0) throw LiteralError("a string holds bytes that are not UTF-8");
        appendUtf16(out, cp);
        i += len;
    }
}

std::size_t literalTokenLength(std::string_view text) {
    std::size_t i = 0;
    if (!text.empty() && text[0] == '"') {
        i = quotedEnd(text, 0);
        if (i == std::string_view::npos) throw LiteralError("unterminated string");
    } else if (const std::size_t open = callLiteralLength(text); open != 0) {
        i = open;
        for (;;) {
            if (i >= text.size()) {
                throw LiteralError(std::string(text.substr(0, open)) + " is not closed by )");
            }
            if (text[i] == '"') {
                i = quotedEnd(text, i);
                if (i == std::string_view::npos)
                    throw LiteralError("unterminated string in a font");
            } else if (text[i++] == ')') {
                break;
            }
        }
    }
    while (i < text.size() && !isBlank(text[i])) ++i;
    return i;
}

Variant parseLiteral(std::string_view token) {
    if (token.empty()) throw LiteralError("missing literal");
    if (token[0] == '"') {
        std::size_t pos = 0;
        std::u16string s = readQuoted(token, pos);
        if (pos != token.size()) throw LiteralError("unexpected text after the closing quote");
        return Variant(std::move(s));
    }
    if (startsWithWord(token, "Font(")) return parseFont(token);
    if (startsWithWord(token, "Array(")) return parseArray(token, 6, false);
    if (startsWithWord(token, "ArrayFrom(")) return parseArray(token, 10, true);
    if (equalsWord(token, "True")) return Variant(true);
    if (equalsWord(token, "False")) return Variant(false);
    if (equalsWord(token, "Empty")) return Variant();
    if (equalsWord(token, "Nothing")) return Variant(ObjectRef());
    return parseNumber(token);
}

std::string formatFont(const FontDesc& f) {
    return formatValue(Variant(ObjectRef(Font::make(f))));
}

std::string formatValue(const Variant& v) {
    switch (v.type()) {
        case VarType::Empty:
            return "Empty";
        case VarType::Boolean: {
            const Boolean b = v.asBoolean();
            if (b.isTrue()) return "True";
            if (b.isFalse()) return "False";
            return std::to_string(b.raw);
        }
        case VarType::Integer:
            return std::to_string(v.asInteger());
        case VarType::Long:
            return std::to_string(v.asLong());
        case VarType::Single:
            return toUtf8(formatSingle(v.asSingle()));
        case VarType::Double:
            return toUtf8(formatDouble(v.asDouble()));
        case VarType::String:
            return quoteString(v.asString());
        case VarType::Object: {
            const ObjectRef& o = v.asObject();
            if (!o) return "Nothing";
            if (!isValueObject(*o)) return toUtf8(o->classInfo().name());
            // A value object reads as its class name with its fields in table order.
            std::string out = toUtf8(o->classInfo().name()) + "(";
            const char* sep = "";
            for (const auto& field : valueFields(*o)) {
                out += sep + formatValue(field.second);
                sep = ", ";
            }
            return out + ")";
        }
    }
    return "Empty";
}

std::string typeWord(VarType type) {
    return toUtf8(typeName(type));
}

bool identicalValues(const Variant& a, const Variant& b) {
    if (a.type() != b.type()) return false;
    switch (a.type()) {
        case VarType::Empty:
            return true;
        case VarType::Boolean:
            return a.asBoolean().raw == b.asBoolean().raw;
        case VarType::Integer:
            return a.asInteger() == b.asInteger();
        case VarType::Long:
            return a.asLong() == b.asLong();
        case VarType::Single:
            return std::bit_cast<std::uint32_t>(a.asSingle()) ==
                   std::bit_cast<std::uint32_t>(b.asSingle());
        case VarType::Double:
            return std::bit_cast<std::uint64_t>(a.asDouble()) ==
                   std::bit_cast<std::uint64_t>(b.asDouble());
        case VarType::String:
            return a.asString() == b.asString();
        case VarType::Object: {
            const ObjectRef& x = a.asObject();
            const ObjectRef& y = b.asObject();
            if (x == y) return true;
            if (!x || !y || &x->classInfo() != &y->classInfo() || !isValueObject(*x)) {
                return false;
            }
            const auto fx = valueFields(*x);
            const auto fy = valueFields(*y);
            for (std::size_t i = 0; i < fx.size(); ++i) {
                if (!identicalValues(fx[i].second, fy[i].second)) return false;
            }
            return true;
        }
    }
    return false;
}

}  // namespace corvex
