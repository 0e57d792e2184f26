#include "corvex/common/text_editing.h"

#include <algorithm>
#include <limits>

#include "corvex/platform/widgets.h"

namespace corvex {

std::u16string canonicalLineBreaks(std::u16string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (c == u'\r' || c == u'\n' || c == 0x2029) {
            if (c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
            out += u"\r\n";
        } else {
            out += c;
        }
    }
    return out;
}

std::optional<std::u16string> fitInsertion(std::u16string_view insert, std::int64_t room) {
    if (static_cast<std::int64_t>(insert.size()) <= room) return std::u16string(insert);
    auto keep = static_cast<std::size_t>(std::max<std::int64_t>(0, room));
    // A line break keeps its LF, and a surrogate pair its second half, or goes whole.
    if (keep > 0 && insert[keep - 1] == u'\r' && insert[keep] == u'\n') --keep;
    if (keep > 0 && isHighSurrogate(insert[keep - 1]) && isLowSurrogate(insert[keep])) --keep;
    if (keep == 0 && !insert.empty()) return std::nullopt;
    return std::u16string(insert.substr(0, keep));
}

TypedEdit typedEdit(char16_t ch, bool multiLine) {
    if (ch == u'\b') return {TypedAction::Backspace, {}};
    if (ch == u'\r') {
        if (multiLine) return {TypedAction::Insert, u"\r\n"};
        return {};
    }
    if (ch < 0x20 || ch == 0x7F) return {};
    return {TypedAction::Insert, std::u16string(1, ch)};
}

std::int32_t backspaceWidth(std::u16string_view text, std::int32_t caret, bool multiLine) {
    const auto at = static_cast<std::size_t>(std::clamp<std::int64_t>(caret, 0, text.size()));
    if (at == 0) return 0;
    if (at >= 2) {
        const char16_t first = text[at - 2];
        const char16_t second = text[at - 1];
        if (isHighSurrogate(first) && isLowSurrogate(second)) return 2;
        if (multiLine && first == u'\r' && second == u'\n') return 2;
    }
    return 1;
}

TextEditModel::TextEditModel(bool multiLine) : multiLine_(multiLine) {}

std::u16string TextEditModel::selText() const {
    return text_.substr(static_cast<std::size_t>(selStart_), static_cast<std::size_t>(selLength_));
}

bool TextEditModel::insideLineBreak(std::int32_t at) const {
    return multiLine_ && at > 0 && at < length() &&
           text_[static_cast<std::size_t>(at - 1)] == u'\r' &&
           text_[static_cast<std::size_t>(at)] == u'\n';
}

bool TextEditModel::setText(std::u16string_view t) {
    std::u16string next = multiLine_ ? canonicalLineBreaks(t) : std::u16string(t);
    const bool changed = next != text_;
    text_ = std::move(next);
    selStart_ = 0;
    selLength_ = 0;
    return changed;
}

void TextEditModel::setSelStart(std::int32_t s) {
    selStart_ = std::clamp(s, 0, length());
    if (insideLineBreak(selStart_)) --selStart_;
    selLength_ = 0;
}

void TextEditModel::setSelLength(std::int32_t n) {
    std::int32_t end = selStart_ + std::clamp(n, 0, length() - selStart_);
    if (insideLineBreak(end)) ++end;
    selLength_ = end - selStart_;
}

void TextEditModel::select(std::int32_t start, std::int32_t end) {
    if (end < start) std::swap(start, end);
    setSelStart(start);
    setSelLength(std::clamp(end, 0, length()) - selStart_);
}

std::int64_t TextEditModel::room() const {
    if (maxLength_ <= 0) return std::numeric_limits<std::int64_t>::max();
    return static_cast<std::int64_t>(maxLength_) - (length() - selLength_);
}

bool TextEditModel::replaceSelection(std::u16string_view insert, bool limited) {
    std::u16string canonical;
    if (multiLine_) {
        canonical = canonicalLineBreaks(insert);
        insert = canonical;
    }
    std::optional<std::u16string> fitted =
        limited ? fitInsertion(insert, room()) : std::optional<std::u16string>(insert);
    if (!fitted) return false;
    const auto start = static_cast<std::size_t>(selStart_);
    const auto count = static_cast<std::size_t>(selLength_);
    // Only the selection and what replaces it can differ: the rest of the text stays.
    const bool changed = text_.compare(start, count, *fitted) != 0;
    if (changed) text_.replace(start, count, *fitted);
    selStart_ += static_cast<std::int32_t>(fitted->size());
    selLength_ = 0;
    return changed;
}

bool TextEditModel::type(char16_t ch) {
    if (locked_) return false;
    const TypedEdit edit = typedEdit(ch, multiLine_);
    switch (edit.action) {
        case TypedAction::Backspace:
            if (selLength_ == 0) {
                const std::int32_t width = backspaceWidth(text_, selStart_, multiLine_);
                if (width == 0) return false;
                selStart_ -= width;
                selLength_ = width;
            }
            return replaceSelection(u"", false);
        case TypedAction::Insert:
            // The first half of a pair typed alone needs room for the second.
            if (isHighSurrogate(ch) && room() < 2) return false;
            return replaceSelection(edit.text, true);
        case TypedAction::Nothing:
            break;
    }
    return false;
}

ClipboardKey clipboardKeyOf(std::int16_t keyCode, std::int16_t shift) {
    const std::int16_t held = shift & (key::ShiftMask | key::CtrlMask | key::AltMask);
    if (held == key::CtrlMask) {
        if (keyCode == 'X') return ClipboardKey::Cut;
        if (keyCode == 'C' || keyCode == key::Insert) return ClipboardKey::Copy;
        if (keyCode == 'V') return ClipboardKey::Paste;
    } else if (held == key::ShiftMask) {
        if (keyCode == key::Delete) return ClipboardKey::Cut;
        if (keyCode == key::Insert) return ClipboardKey::Paste;
    }
    return ClipboardKey::None;
}

ClipboardKeyEffect clipboardKeyEffect(bool native, bool keyCodeCleared, bool hasPress,
                                      char16_t original, char16_t keyAscii) {
    // The control's own clipboard keys, or a key a KeyDown handler took away: the box does
    // nothing by itself, so that nothing is cut, copied or pasted twice.
    if (!native || keyCodeCleared) return ClipboardKeyEffect::Nothing;
    if (hasPress && keyAscii != original) return ClipboardKeyEffect::TypeInstead;
    return ClipboardKeyEffect::Act;
}

bool TextEditModel::paste(std::u16string_view t) {
    if (locked_) return false;
    return replaceSelection(t, true);
}

bool TextEditModel::deleteSelection() {
    if (locked_ || selLength_ == 0) return false;
    return replaceSelection(u"", false);
}

}  // namespace corvex
