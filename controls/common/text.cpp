#include "corvex/common/text.h"

namespace corvex {

std::string toUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (c >= 0xD800 && c <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
            text[i + 1] <= 0xDFFF) {
            c = 0x10000 + ((c - 0xD800) << 10) + (text[i + 1] - 0xDC00);
            ++i;
        } else if (c >= 0xD800 && c <= 0xDFFF) {
            c = 0xFFFD;  // an unpaired surrogate has no UTF-8 form
        }
        if (c < 0x80) {
            out += static_cast<char>(c);
        } else if (c < 0x800) {
            out += static_cast<char>(0xC0 | (c >> 6));
            out += static_cast<char>(0x80 | (c & 0x3F));
        } else if (c < 0x10000) {
            out += static_cast<char>(0xE0 | (c >> 12));
            out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            out += static_cast<char>(0xF0 | (c >> 18));
            out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
            out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return out;
}

std::u16string fromUtf8(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    std::size_t i = 0;
    const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
    while (i < text.size()) {
        unsigned char b = byte(i);
        char32_t c = 0;
        std::size_t len = 0;
        if (b < 0x80) {
            c = b;
            len = 1;
        } else if ((b & 0xE0) == 0xC0) {
            c = b & 0x1F;
            len = 2;
        } else if ((b & 0xF0) == 0xE0) {
            c = b & 0x0F;
            len = 3;
        } else if ((b & 0xF8) == 0xF0) {
            c = b & 0x07;
            len = 4;
        }
        bool ok = len > 0 && i + len <= text.size();
        for (std::size_t k = 1; ok && k < len; ++k) {
            if ((byte(i + k) & 0xC0) != 0x80)
                ok = false;
            else
                c = (c << 6) | (byte(i + k) & 0x3F);
        }
        // Overlong forms, surrogates and values past U+10FFFF are not UTF-8.
        if (ok && ((len == 2 && c < 0x80) || (len == 3 && c < 0x800) || (len == 4 && c < 0x10000) ||
                   (c >= 0xD800 && c <= 0xDFFF) || c > 0x10FFFF)) {
            ok = false;
        }
        if (!ok) {
            out += u'\uFFFD';
            ++i;
            continue;
        }
        if (c >= 0x10000) {
            c -= 0x10000;
            out += static_cast<char16_t>(0xD800 + (c >> 10));
            out += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
        } else {
            out += static_cast<char16_t>(c);
        }
        i += len;
    }
    return out;
}

namespace {
char16_t upper(char16_t c) {
    return (c >= u'a' && c <= u'z') ? static_cast<char16_t>(c - 32) : c;
}
}  // namespace

bool equalsIgnoringCase(std::u16string_view a, std::u16string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (upper(a[i]) != upper(b[i])) return false;
    }
    return true;
}

std::u16string asciiUpper(std::u16string_view text) {
    std::u16string out(text);
    for (auto& c : out) c = upper(c);
    return out;
}

}  // namespace corvex
