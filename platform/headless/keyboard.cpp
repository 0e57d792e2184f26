#include "corvex/headless/widgets.h"

namespace corvex::headless {

KeyStroke keyStrokeFor(char16_t ch) {
    constexpr std::int16_t shift = key::ShiftMask;
    if (ch >= u'a' && ch <= u'z') return {static_cast<std::int16_t>(ch - 32), 0};
    if (ch >= u'A' && ch <= u'Z') return {static_cast<std::int16_t>(ch), shift};
    if (ch >= u'0' && ch <= u'9') return {static_cast<std::int16_t>(ch), 0};
    switch (ch) {
        case u'\b':
            return {key::Back, 0};
        case u'\t':
            return {key::Tab, 0};
        case u'\r':
        case u'\n':
            return {key::Return, 0};
        case u' ':
            return {key::Space, 0};
        case u')':
            return {u'0', shift};
        case u'!':
            return {u'1', shift};
        case u'@':
            return {u'2', shift};
        case u'#':
            return {u'3', shift};
        case u'$':
            return {u'4', shift};
        case u'%':
            return {u'5', shift};
        case u'^':
            return {u'6', shift};
        case u'&':
            return {u'7', shift};
        case u'*':
            return {u'8', shift};
        case u'(':
            return {u'9', shift};
        case u';':
            return {186, 0};
        case u':':
            return {186, shift};
        case u'=':
            return {187, 0};
        case u'+':
            return {187, shift};
        case u',':
            return {188, 0};
        case u'<':
            return {188, shift};
        case u'-':
            return {189, 0};
        case u'_':
            return {189, shift};
        case u'.':
            return {190, 0};
        case u'>':
            return {190, shift};
        case u'/':
            return {191, 0};
        case u'?':
            return {191, shift};
        case u'`':
            return {192, 0};
        case u'~':
            return {192, shift};
        case u'[':
            return {219, 0};
        case u'{':
            return {219, shift};
        case u'\\':
            return {220, 0};
        case u'|':
            return {220, shift};
        case u']':
            return {221, 0};
        case u'}':
            return {221, shift};
        case u'\'':
            return {222, 0};
        case u'"':
            return {222, shift};
        default:
            break;
    }
    // Anything beyond the keyboard's own characters comes through the input method.
    if (ch >= 0x80) return {229, 0};
    return {0, 0};
}

}  // namespace corvex::headless
