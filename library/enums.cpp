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

template <>
const EnumInfo& enumInfo<CorvexComDlg>() {
    // Values taken from the enumerators themselves, so that they are written once.
    constexpr auto v = [](CorvexComDlg e) { return static_cast<std::int32_t>(e); };
    // clang-format off
    static const EnumInfo info{u"CorvexComDlg", {
        {u"cdlOFNAllowMultiselect", v(CorvexComDlg::cdlOFNAllowMultiselect)},
        {u"cdlOFNCreatePrompt", v(CorvexComDlg::cdlOFNCreatePrompt)},
        {u"cdlOFNExtensionDifferentt", v(CorvexComDlg::cdlOFNExtensionDifferentt)},
        {u"cdlOFNFileMustExist", v(CorvexComDlg::cdlOFNFileMustExist)},
        {u"cdlOFNHideReadOnly", v(CorvexComDlg::cdlOFNHideReadOnly)},
        {u"cdlOFNNoChangeDir", v(CorvexComDlg::cdlOFNNoChangeDir)},
        {u"cdlOFNNoReadOnlyReturn", v(CorvexComDlg::cdlOFNNoReadOnlyReturn)},
        {u"cdlOFNNoValidate", v(CorvexComDlg::cdlOFNNoValidate)},
        {u"cdlOFNOverwritePrompt", v(CorvexComDlg::cdlOFNOverwritePrompt)},
        {u"cdlOFNPathMustExist", v(CorvexComDlg::cdlOFNPathMustExist)},
        {u"cdlOFNReadOnly", v(CorvexComDlg::cdlOFNReadOnly)},
        {u"cdlOFNShareAware", v(CorvexComDlg::cdlOFNShareAware)},
        {u"cdlOFNHelpButton", v(CorvexComDlg::cdlOFNHelpButton)},
        {u"cdlOFNExplorer", v(CorvexComDlg::cdlOFNExplorer)},
        {u"cdlOFNNoDereferenceLinks", v(CorvexComDlg::cdlOFNNoDereferenceLinks)},
        {u"cdlOFNLongNames", v(CorvexComDlg::cdlOFNLongNames)},
        {u"cdlOFNNoLongNames", v(CorvexComDlg::cdlOFNNoLongNames)},
        {u"cdlCFANSIOnly", v(CorvexComDlg::cdlCFANSIOnly)},
        {u"cdlCFBoth", v(CorvexComDlg::cdlCFBoth)},
        {u"cdlCFEffects", v(CorvexComDlg::cdlCFEffects)},
        {u"cdlCFFixedPitchOnly", v(CorvexComDlg::cdlCFFixedPitchOnly)},
        {u"cdlCFForceFontExist", v(CorvexComDlg::cdlCFForceFontExist)},
        {u"cdlCFLimitSize", v(CorvexComDlg::cdlCFLimitSize)},
        {u"cdlCFNoSimulations", v(CorvexComDlg::cdlCFNoSimulations)},
        {u"cdlCFNoVectorFonts", v(CorvexComDlg::cdlCFNoVectorFonts)},
        {u"cdlCFPrinterFonts", v(CorvexComDlg::cdlCFPrinterFonts)},
        {u"cdlCFScalableOnly", v(CorvexComDlg::cdlCFScalableOnly)},
        {u"cdlCFScreenFonts", v(CorvexComDlg::cdlCFScreenFonts)},
        {u"cdlCFHelpButton", v(CorvexComDlg::cdlCFHelpButton)},
        {u"cdlCFTTOnly", v(CorvexComDlg::cdlCFTTOnly)},
        {u"cdlCFWYSIWYG", v(CorvexComDlg::cdlCFWYSIWYG)},
        {u"cdlPDAllPages", v(CorvexComDlg::cdlPDAllPages)},
        {u"cdlPDCollate", v(CorvexComDlg::cdlPDCollate)},
        {u"cdlPDDisablePrintToFile", v(CorvexComDlg::cdlPDDisablePrintToFile)},
        {u"cdlPDHidePrintToFile", v(CorvexComDlg::cdlPDHidePrintToFile)},
        {u"cdlPDNoPageNums", v(CorvexComDlg::cdlPDNoPageNums)},
        {u"cdlPDNoSelection", v(CorvexComDlg::cdlPDNoSelection)},
        {u"cdlPDNoWarning", v(CorvexComDlg::cdlPDNoWarning)},
        {u"cdlPDPageNums", v(CorvexComDlg::cdlPDPageNums)},
        {u"cdlPDPrintSetup", v(CorvexComDlg::cdlPDPrintSetup)},
        {u"cdlPDPrintToFile", v(CorvexComDlg::cdlPDPrintToFile)},
        {u"cdlPDReturnDC", v(CorvexComDlg::cdlPDReturnDC)},
        {u"cdlPDReturnIC", v(CorvexComDlg::cdlPDReturnIC)},
        {u"cdlPDReturnDefault", v(CorvexComDlg::cdlPDReturnDefault)},
        {u"cdlPDSelection", v(CorvexComDlg::cdlPDSelection)},
        {u"cdlPDHelpButton", v(CorvexComDlg::cdlPDHelpButton)},
        {u"cdlPDUseDevModeCopies", v(CorvexComDlg::cdlPDUseDevModeCopies)},
        {u"cdlCCFullOpen", v(CorvexComDlg::cdlCCFullOpen)},
        {u"cdlCCPreventFullOpen", v(CorvexComDlg::cdlCCPreventFullOpen)},
        {u"cdlCCRGBInit", v(CorvexComDlg::cdlCCRGBInit)},
        {u"cdlCCShowHelp", v(CorvexComDlg::cdlCCShowHelp)},
        {u"cdlHelpCommand", v(CorvexComDlg::cdlHelpCommand)},
        {u"cdlHelpContents", v(CorvexComDlg::cdlHelpContents)},
        {u"cdlHelpContext", v(CorvexComDlg::cdlHelpContext)},
        {u"cdlHelpContextPopup", v(CorvexComDlg::cdlHelpContextPopup)},
        {u"cdlHelpForceFile", v(CorvexComDlg::cdlHelpForceFile)},
        {u"cdlHelpOnHelp", v(CorvexComDlg::cdlHelpOnHelp)},
        {u"cdlHelpIndex", v(CorvexComDlg::cdlHelpIndex)},
        {u"cdlHelpKey", v(CorvexComDlg::cdlHelpKey)},
        {u"cdlHelpPartialKey", v(CorvexComDlg::cdlHelpPartialKey)},
        {u"cdlHelpQuit", v(CorvexComDlg::cdlHelpQuit)},
        {u"cdlHelpSetContents", v(CorvexComDlg::cdlHelpSetContents)},
        {u"cdlHelpSetIndex", v(CorvexComDlg::cdlHelpSetIndex)},
        {u"cdlAlloc", v(CorvexComDlg::cdlAlloc)},
        {u"cdlCancel", v(CorvexComDlg::cdlCancel)},
        {u"cdlDialogFailure", v(CorvexComDlg::cdlDialogFailure)},
        {u"cdlFindResFailure", v(CorvexComDlg::cdlFindResFailure)},
        {u"cdlHelp", v(CorvexComDlg::cdlHelp)},
        {u"cdlInitialization", v(CorvexComDlg::cdlInitialization)},
        {u"cdlLoadResFailure", v(CorvexComDlg::cdlLoadResFailure)},
        {u"cdlLockResFailure", v(CorvexComDlg::cdlLockResFailure)},
        {u"cdlMemAllocFailure", v(CorvexComDlg::cdlMemAllocFailure)},
        {u"cdlMemLockFailure", v(CorvexComDlg::cdlMemLockFailure)},
        {u"cdlNoFonts", v(CorvexComDlg::cdlNoFonts)},
        {u"cdlBufferTooSmall", v(CorvexComDlg::cdlBufferTooSmall)},
        {u"cdlInvalidFileName", v(CorvexComDlg::cdlInvalidFileName)},
        {u"cdlSubclassFailure", v(CorvexComDlg::cdlSubclassFailure)},
        {u"cdlCreateICFailure", v(CorvexComDlg::cdlCreateICFailure)},
        {u"cdlDndmMismatch", v(CorvexComDlg::cdlDndmMismatch)},
        {u"cdlGetDevModeFail", v(CorvexComDlg::cdlGetDevModeFail)},
        {u"cdlInitFailure", v(CorvexComDlg::cdlInitFailure)},
        {u"cdlLoadDrvFailure", v(CorvexComDlg::cdlLoadDrvFailure)},
        {u"cdlLoadStrFailure", v(CorvexComDlg::cdlLoadStrFailure)},
        {u"cdlNoDefaultPrn", v(CorvexComDlg::cdlNoDefaultPrn)},
        {u"cdlNoDevices", v(CorvexComDlg::cdlNoDevices)},
        {u"cdlParseFailure", v(CorvexComDlg::cdlParseFailure)},
        {u"cdlPrinterNotFound", v(CorvexComDlg::cdlPrinterNotFound)},
        {u"cdlRetDefFailure", v(CorvexComDlg::cdlRetDefFailure)}}};
    // clang-format on
    return info;
}

const std::vector<const EnumInfo*>& publicEnumerations() {
    // In the order the library publishes them; one a line, so that each new one is a line
    // of its own.
    // clang-format off
    static const std::vector<const EnumInfo*> all = {
        &enumInfo<CorvexIMEMode>(),
        &enumInfo<InputMode>(),
        &enumInfo<CheckExistsMode>(),
        &enumInfo<MultiOptionBorder>(),
        &enumInfo<ScrollBarsMode>(),
        &enumInfo<ShadowedLine_Mode>(),
        &enumInfo<OpenOrSaveMode>(),
        &enumInfo<MsgBoxControlButtonType>(),
        &enumInfo<MsgBoxControlIconType>(),
        &enumInfo<MsgBoxControlDefaultButtonType>(),
        &enumInfo<MsgBoxControlModalType>(),
        &enumInfo<MsgBoxControlAnswer>(),
        &enumInfo<CorvexComDlg>(),
    };
    // clang-format on
    return all;
}

}  // namespace corvex
