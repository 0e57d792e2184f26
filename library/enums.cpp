#include "corvex/library/enums.h"

#include "corvex/files/file_dialog_box.h"
#include "corvex/services/msgbox_enums.h"

namespace corvex {

// The names are the published ones, letter for letter; the values equal the C++
// enumerators (a test checks every pair).

template <>
const EnumInfo& enumInfo<CorvexIMEMode>() {
    static const EnumInfo info{u"CorvexIMEMode",
                               {{u"IMENone", 0},
                                {u"IMEON", 1},
                                {u"IMEOFF", 2},
                                {u"IMEDisable", 3},
                                {u"IMEHiragana", 4},
                                {u"IMEKatakana", 5},
                                {u"IMEKatakanaHalf", 6},
                                {u"IMEAlphaFull", 7},
                                {u"IMEAlpha", 8}}};
    return info;
}

template <>
const EnumInfo& enumInfo<InputMode>() {
    static const EnumInfo info{u"InputMode",
                               {{u"PM_decimal", 0},
                                {u"P_decimal", 1},
                                {u"PM_Integer", 2},
                                {u"P_Integer", 3},
                                {u"Free", 4}}};
    return info;
}

template <>
const EnumInfo& enumInfo<ScrollBarsMode>() {
    static const EnumInfo info{
        u"ScrollBarsMode",
        {{u"barNone", 0}, {u"barHorizontal", 1}, {u"barVertical", 2}, {u"barBoth", 3}}};
    return info;
}

template <>
const EnumInfo& enumInfo<CheckExistsMode>() {
    static const EnumInfo info{
        u"CheckExistsMode",
        {{u"NoCheck", 0}, {u"FileOnly", 1}, {u"FolderOnly", 2}, {u"FileAndFolder", 3}}};
    return info;
}

template <>
const EnumInfo& enumInfo<MultiOptionBorder>() {
    static const EnumInfo info{u"MultiOptionBorder", {{u"None", 0}, {u"FixedSingle", 1}}};
    return info;
}

template <>
const EnumInfo& enumInfo<ShadowedLine_Mode>() {
    static const EnumInfo info{u"ShadowedLine_Mode", {{u"Horizonrtal", 0}, {u"Vertical", 1}}};
    return info;
}

const std::vector<const EnumInfo*>& publicEnumerations() {
    // One enumeration per line, so that each new one is a line of its own.
    // clang-format off
    static const std::vector<const EnumInfo*> all = {
        &enumInfo<CorvexIMEMode>(),
        &enumInfo<InputMode>(),
        &enumInfo<ScrollBarsMode>(),
        &enumInfo<MsgBoxControlButtonType>(),
        &enumInfo<MsgBoxControlIconType>(),
        &enumInfo<MsgBoxControlDefaultButtonType>(),
        &enumInfo<MsgBoxControlModalType>(),
        &enumInfo<MsgBoxControlAnswer>(),
        &enumInfo<CheckExistsMode>(),
        &enumInfo<MultiOptionBorder>(),
        &enumInfo<ShadowedLine_Mode>(),
        &enumInfo<OpenOrSaveMode>(),
    };
    // clang-format on
    return all;
}

}  // namespace corvex
