#include <array>

#include "corvex/platform/widgets.h"

namespace corvex {

namespace {

struct KeyOfCharacter {
    char16_t ch;
    KeyStroke stroke;
};

constexpr std::int16_t shift = key::ShiftMask;

// The keys of a US keyboard that are not letters or digits: the character, the key that
// types it, and whether Shift is held.
constexpr std::array<KeyOfCharacter, 37> keys{{
    {u'\b', {key::Back, 0}},   {u'\t', {key::Tab, 0}},  {u'\r', {key::Return, 0}},
    {u'\n', {key::Return, 0}}, {u' ', {key::Space, 0}}, {u')', {u'0', shift}},
    {u'!', {u'1', shift}},     {u'@', {u'2', shift}},   {u'#', {u'3', shift}},
    {u'$', {u'4', shift}},     {u'%', {u'5', shift}},   {u'^', {u'6', shift}},
    {u'&', {u'7', shift}},     {u'*', {u'8', shift}},   {u'(', {u'9', shift}},
    {u';', {186, 0}},          {u':', {186, shift}},    {u'=', {187, 0}},
    {u'+', {187, shift}},      {u',', {188, 0}},        {u'<', {188, shift}},
    {u'-', {189, 0}},          {u'_', {189, shift}},    {u'.', {190, 0}},
    {u'>', {190, shift}},      {u'/', {191, 0}},        {u'?', {191, shift}},
    {u'`', {192, 0}},          {u'~', {192, shift}},    {u'[', {219, 0}},
    {u'{', {219, shift}},      {u'\\', {220, 0}},       {u'|', {220, shift}},
    {u']', {221, 0}},          {u'}', {221, shift}},    {u'\'', {222, 0}},
    {u'"', {222, shift}},
}};

}  // namespace

KeyStroke keyStrokeFor(char16_t ch) {
    if (ch >= u'a' && ch <= u'z') return {static_cast<std::int16_t>(ch - 32), 0};
    if (ch >= u'A' && ch <= u'Z') return {static_cast<std::int16_t>(ch), shift};
    if (ch >= u'0' && ch <= u'9') return {static_cast<std::int16_t>(ch), 0};
    for (const KeyOfCharacter& k : keys) {
        if (k.ch == ch) return k.stroke;
    }
    // Anything beyond the keyboard's own characters comes through the input method.
    if (ch >= 0x80) return {229, 0};
    return {0, 0};
}

char16_t controlCharacterOf(std::int16_t keyCode, std::int16_t shiftBits) {
    if ((shiftBits & key::CtrlMask) == 0 || (shiftBits & key::AltMask) != 0) return 0;
    if (keyCode < u'A' || keyCode > u'Z') return 0;
    return static_cast<char16_t>(keyCode - u'A' + 1);
}

}  // namespace corvex
