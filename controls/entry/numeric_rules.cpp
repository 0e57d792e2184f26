#include "corvex/entry/numeric_rules.h"

#include "corvex/common/number_text.h"
#include "corvex/common/variant.h"
#include "corvex/platform/clipboard.h"
#include "corvex/platform/widgets.h"

namespace corvex::numeric {

const MessageTable& messages() {
    // These texts are what users of the numeric boxes see and what applications compare
    // against; their spelling ("Irregal") and their line split are kept as they are.
    static const MessageTable table(
        {
            {2001, u"変換エラーが生じました", u"Conversion error."},
            {2002, u"入力を修正してください", u"Correct input value."},
            {2003, u"入力可能な数値：", u"Effective input value："},
            {2004, u"負の値は", u"Negative value"},
            {2005, u"正の値は", u"Positive value"},
            {2006, u"入力制限値の設定が不正です", u"Irregal limitation for input."},
            {2007, u"入力が制限範囲を越えています", u"Input value out of defined range."},
            {2008, u"変換後の文字数が", u"The character number of converted value"},
            {2009, u"入力を許可されている", u"overed the defined maximum limitation."},
            {2010, u"最大値を越えました", u""},
            {2011, u"このプロパティには0から4の整数を入力して下さい",
             u"Valid value is from 0 to 4."},
            {2012, u"このプロパティにはUpperLimit以下の数値を入力して下さい",
             u"Enter below UpperLimit value."},
            {2013, u"このプロパティにはLowerLimit以上の数値を入力して下さい",
             u"Enter not less than LowerLimit value."},
            {2014, u"単精度への変換エラーが生じました。", u"Conversion to single type error."},
            {2015, u"倍精度への変換エラーが生じました。", u"Conversion to double type error."},
            {2016, u"整数への変換エラーが生じました。", u"Conversion to integer type error."},
            {2017, u"長整数への変換エラーが生じました。",
             u"Conversion to long integer type error."},
        },
        undefinedWithStop());
    return table;
}

namespace {

bool isExponentLetter(char16_t c) {
    return c == u'E' || c == u'D' || c == u'e' || c == u'd';
}

bool containsAny(std::u16string_view text, bool (*pred)(char16_t)) {
    for (char16_t c : text) {
        if (pred(c)) return true;
    }
    return false;
}

bool decimalMode(std::int32_t mode) {
    return mode == 0 || mode == 1;
}

}  // namespace

std::int16_t filterKey(std::int32_t mode, std::int16_t keyAscii, std::int32_t caret,
                       std::u16string_view text) {
    if (mode == static_cast<std::int32_t>(InputMode::Free)) return keyAscii;
    const auto len = static_cast<std::int32_t>(text.size());
    const std::int32_t p = caret < 0 ? 0 : (caret > len ? len : caret);
    constexpr std::int16_t refuse = 0;

    // Nothing may go in front of a leading minus, not even a backspace.
    if (!text.empty() && text[0] == u'-' && p == 0) return refuse;
    if (keyAscii == 8) return keyAscii;
    if (keyAscii == 13) return refuse;
    if (keyAscii >= u'0' && keyAscii <= u'9') return keyAscii;

    const char16_t before = p >= 1 ? text[static_cast<std::size_t>(p - 1)] : u'\0';
    const char16_t after = p < len ? text[static_cast<std::size_t>(p)] : u'\0';
    const std::u16string_view head = text.substr(0, static_cast<std::size_t>(p));
    const std::u16string_view tail = text.substr(static_cast<std::size_t>(p));

    if (keyAscii == u'-') {
        if (p == 0) return (mode == 0 || mode == 2) ? keyAscii : refuse;
        // A minus elsewhere only signs an exponent, and never doubles one.
        return (isExponentLetter(before) && after != u'-') ? keyAscii : refuse;
    }
    if (keyAscii == u'.') {
        if (!decimalMode(mode)) return refuse;
        if (text.find(u'.') != std::u16string_view::npos) return refuse;
        return containsAny(head, isExponentLetter) ? refuse : keyAscii;
    }
    if (keyAscii >= 0 && isExponentLetter(static_cast<char16_t>(keyAscii))) {
        if (!decimalMode(mode)) return refuse;
        const bool ok = !containsAny(text, isExponentLetter) && p >= 1 && before != u'.' &&
                        before != u'-' && tail.find(u'.') == std::u16string_view::npos;
        return ok ? keyAscii : refuse;
    }
    return refuse;
}

bool clipboardKey(std::int16_t keyCode, std::int16_t shift, TextBox& box, Clipboard& clipboard) {
    if ((shift & key::CtrlMask) == 0) return false;
    switch (keyCode) {
        case 'C':
            clipboard.setText(box.selText());
            return true;
        case 'X':
            clipboard.setText(box.selText());
            box.setSelText(u"");
            return true;
        case 'V':
            // Pasted text is not filtered: the validation catches what does not belong.
            box.setSelText(clipboard.text());
            return true;
        default:
            return false;
    }
}

Validation validate(std::int32_t mode, const std::u16string& text, const Limits& limits,
                    std::int32_t maxLength, const MessageLookup& message) {
    Validation v;
    if (mode == static_cast<std::int32_t>(InputMode::Free)) {
        v.text = text;
        return v;
    }
    bool hadText = true;
    std::u16string s = text;
    if (s.empty()) {
        s = u"0";  // an empty box is checked as the value 0
        hadText = false;
    }
    // A dangling exponent counts as exponent 0.
    const auto endsWith = [&](std::u16string_view suffix) {
        return s.size() >= suffix.size() &&
               s.compare(s.size() - suffix.size(), suffix.size(), suffix) == 0;
    };
    if (isExponentLetter(s.back()) || endsWith(u"d-") || endsWith(u"D-") || endsWith(u"e-") ||
        endsWith(u"E-")) {
        s += u'0';
    }

    const ParsedNumber parsed = parseDouble(s);
    if (parsed.status != ParseStatus::Ok) {
        v.ok = false;
        v.conversionFailed = true;
        v.text = s;
        v.message = message(code::ConversionError) + u'\r' + message(code::CorrectInput) + u'\r' +
                    message(code::EffectiveInput) + u'\r' + message(code::NegativeValue) +
                    u" -1.79769313486232E308 ～ -4.94065645841247E-324" + u'\r' +
                    message(code::PositiveValue) +
                    u"  4.94065645841247E-324 ～  1.79769313486232E308";
        return v;
    }
    const double value = parsed.value;
    std::u16string norm = formatDouble(value);
    if (!norm.empty() && norm[0] == u'.') {
        norm.insert(0, u"0");
    } else if (norm.rfind(u"-.", 0) == 0) {
        norm.replace(0, 2, u"-0.");
    }

    if (limits.limitCheck) {
        if (limits.lower > limits.upper) {
            v.ok = false;
            v.message = message(code::BadLimits);
        } else if (limits.lower == limits.upper) {
            // Equal limits mean no limit at all.
        } else if (!(limits.lower <= value && value <= limits.upper)) {
            v.ok = false;
            v.message = message(code::OutOfRange) + u'\r' + formatDoubleWithSign(limits.lower) +
                        u"≦ Input ≦" + formatDoubleWithSign(limits.upper);
        }
    }
    if (v.ok && maxLength >= 1 && static_cast<std::int64_t>(norm.size()) > maxLength) {
        v.ok = false;
        v.message = message(code::TooLong1) + u'\r' + message(code::TooLong2) + u'\r' +
                    message(code::TooLong3);
    }
    if (!v.ok) norm = s;  // the text as prepared, not the normalised one
    if (!hadText) norm.clear();
    v.text = norm;
    return v;
}

namespace {

// Runs one conversion and words its failure: an overflow as ErrBase + the reader's own
// number and message, any other error as ErrBase + its own number and description.
template <class T, class Convert>
T readTyped(const std::u16string& text, const ReaderContext& ctx, std::int32_t overflowCode,
            int messageCode, Convert convert) {
    if (text.empty()) return T{};
    try {
        return convert(Variant(text));
    } catch (const Error& e) {
        if (e.number() == err::Overflow) {
            throw Error(errBasePlus(ctx.errBase, overflowCode), ctx.message(messageCode),
                        ctx.source);
        }
        throw Error(errBasePlus(ctx.errBase, e.number()), e.description(), ctx.source);
    }
}

}  // namespace

float valSng(const std::u16string& text, const ReaderContext& ctx) {
    return readTyped<float>(text, ctx, 3010, code::SingleOverflow,
                            [](const Variant& v) { return v.toSingle(); });
}

double valDbl(const std::u16string& text, const ReaderContext& ctx) {
    return readTyped<double>(text, ctx, 3011, code::DoubleOverflow,
                             [](const Variant& v) { return v.toDouble(); });
}

std::int16_t valInt(const std::u16string& text, const ReaderContext& ctx) {
    // Through single precision first, so large integers lose precision before the range
    // check, as the readers always have.
    return readTyped<std::int16_t>(text, ctx, 3012, code::IntegerOverflow, [](const Variant& v) {
        return Variant(v.toSingle()).toInteger();
    });
}

std::int32_t valLng(const std::u16string& text, const ReaderContext& ctx) {
    return readTyped<std::int32_t>(text, ctx, 3013, code::LongOverflow,
                                   [](const Variant& v) { return v.toLong(); });
}

bool modeAccepted(std::int32_t mode) {
    return mode >= 0 && mode <= 4;
}

}  // namespace corvex::numeric
