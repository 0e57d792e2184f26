// The library's public enumerations (all 32-bit signed values).
#pragma once

#include <cstdint>
#include <vector>

#include "corvex/common/object.h"

namespace corvex {

/// Input-method modes of the text-entry and list controls.
enum class CorvexIMEMode : std::int32_t {
    IMENone = 0,          ///< no input-method control
    IMEON = 1,            ///< input method on
    IMEOFF = 2,           ///< input method off
    IMEDisable = 3,       ///< input method disabled
    IMEHiragana = 4,      ///< full-width hiragana
    IMEKatakana = 5,      ///< full-width katakana
    IMEKatakanaHalf = 6,  ///< half-width katakana
    IMEAlphaFull = 7,     ///< full-width alphanumerics
    IMEAlpha = 8,         ///< half-width alphanumerics
};

/// What a numeric box admits (the value of its Mode).
enum class InputMode : std::int32_t {
    PM_decimal = 0,  ///< signed decimal numbers with an optional exponent
    P_decimal = 1,   ///< decimal numbers with an optional exponent, no leading minus
    PM_Integer = 2,  ///< signed integers
    P_Integer = 3,   ///< unsigned integers
    Free = 4,        ///< anything: no key filtering and no validation
};

/// Which of MemoBox's scroll-bar styles is shown.
enum class ScrollBarsMode : std::int32_t {
    barNone = 0,        ///< no scroll bars
    barHorizontal = 1,  ///< a horizontal scroll bar
    barVertical = 2,    ///< a vertical scroll bar
    barBoth = 3,        ///< both scroll bars
};

/// Which kind of entry a FileNameBox requires to exist (the value of its Mode).
enum class CheckExistsMode : std::int32_t {
    NoCheck = 0,        ///< only the syntax is checked
    FileOnly = 1,       ///< an existing file
    FolderOnly = 2,     ///< an existing folder
    FileAndFolder = 3,  ///< an existing file or folder
};

/// The border of a MultiOption's frame (the value of its BorderStyle).
enum class MultiOptionBorder : std::int32_t {
    None = 0,         ///< no border
    FixedSingle = 1,  ///< a single line
};

/// How a ShadowedLine runs (the value of its Mode); the first name is published so spelled.
enum class ShadowedLine_Mode : std::int32_t {
    Horizonrtal = 0,  ///< a horizontal line with its shadow below
    Vertical = 1,     ///< a vertical line with its shadow to the right
};

/// The common-dialog constants under their published names, for applications: flags of the
/// open, font, print and colour dialogs, help commands and the dialogs' error numbers. The
/// spelling cdlOFNExtensionDifferentt is the published one.
enum class CorvexComDlg : std::int32_t {
    // Open-file flags (the only ones besides the error numbers the library itself uses).
    cdlOFNAllowMultiselect = 512,
    cdlOFNCreatePrompt = 8192,
    cdlOFNExtensionDifferentt = 1024,
    cdlOFNFileMustExist = 4096,
    cdlOFNHideReadOnly = 4,
    cdlOFNNoChangeDir = 8,
    cdlOFNNoReadOnlyReturn = 32768,
    cdlOFNNoValidate = 256,
    cdlOFNOverwritePrompt = 2,
    cdlOFNPathMustExist = 2048,
    cdlOFNReadOnly = 1,
    cdlOFNShareAware = 16384,
    cdlOFNHelpButton = 16,
    cdlOFNExplorer = 524288,
    cdlOFNNoDereferenceLinks = 1048576,
    cdlOFNLongNames = 2097152,
    cdlOFNNoLongNames = 262144,
    // Font flags.
    cdlCFANSIOnly = 1024,
    cdlCFBoth = 3,
    cdlCFEffects = 256,
    cdlCFFixedPitchOnly = 16384,
    cdlCFForceFontExist = 65536,
    cdlCFLimitSize = 8192,
    cdlCFNoSimulations = 4096,
    cdlCFNoVectorFonts = 2048,
    cdlCFPrinterFonts = 2,
    cdlCFScalableOnly = 131072,
    cdlCFScreenFonts = 1,
    cdlCFHelpButton = 4,
    cdlCFTTOnly = 262144,
    cdlCFWYSIWYG = 32768,
    // Print flags.
    cdlPDAllPages = 0,
    cdlPDCollate = 16,
    cdlPDDisablePrintToFile = 524288,
    cdlPDHidePrintToFile = 1048576,
    cdlPDNoPageNums = 8,
    cdlPDNoSelection = 4,
    cdlPDNoWarning = 128,
    cdlPDPageNums = 2,
    cdlPDPrintSetup = 64,
    cdlPDPrintToFile = 32,
    cdlPDReturnDC = 256,
    cdlPDReturnIC = 512,
    cdlPDReturnDefault = 1024,
    cdlPDSelection = 1,
    cdlPDHelpButton = 2048,
    cdlPDUseDevModeCopies = 262144,
    // Colour flags.
    cdlCCFullOpen = 2,
    cdlCCPreventFullOpen = 4,
    cdlCCRGBInit = 1,
    cdlCCShowHelp = 8,
    // Help commands.
    cdlHelpCommand = 258,
    cdlHelpContents = 3,
    cdlHelpContext = 1,
    cdlHelpContextPopup = 8,
    cdlHelpForceFile = 9,
    cdlHelpOnHelp = 4,
    cdlHelpIndex = 3,
    cdlHelpKey = 257,
    cdlHelpPartialKey = 261,
    cdlHelpQuit = 2,
    cdlHelpSetContents = 5,
    cdlHelpSetIndex = 5,
    // Error numbers.
    cdlAlloc = 32752,
    cdlCancel = 32755,
    cdlDialogFailure = -32768,
    cdlFindResFailure = 32761,
    cdlHelp = 32751,
    cdlInitialization = 32765,
    cdlLoadResFailure = 32760,
    cdlLockResFailure = 32759,
    cdlMemAllocFailure = 32758,
    cdlMemLockFailure = 32757,
    cdlNoFonts = 24574,
    cdlBufferTooSmall = 20476,
    cdlInvalidFileName = 20477,
    cdlSubclassFailure = 20478,
    cdlCreateICFailure = 28661,
    cdlDndmMismatch = 28662,
    cdlGetDevModeFail = 28666,
    cdlInitFailure = 28665,
    cdlLoadDrvFailure = 28667,
    cdlLoadStrFailure = 32762,
    cdlNoDefaultPrn = 28663,
    cdlNoDevices = 28664,
    cdlParseFailure = 28669,
    cdlPrinterNotFound = 28660,
    cdlRetDefFailure = 28668,
};

/// The table-side description of CorvexIMEMode.
template <>
const EnumInfo& enumInfo<CorvexIMEMode>();
/// The table-side description of InputMode.
template <>
const EnumInfo& enumInfo<InputMode>();
/// The table-side description of ScrollBarsMode.
template <>
const EnumInfo& enumInfo<ScrollBarsMode>();

/// The table-side description of CheckExistsMode.
template <>
const EnumInfo& enumInfo<CheckExistsMode>();
/// The table-side description of MultiOptionBorder.
template <>
const EnumInfo& enumInfo<MultiOptionBorder>();
/// The table-side description of ShadowedLine_Mode.
template <>
const EnumInfo& enumInfo<ShadowedLine_Mode>();

/// The table-side description of CorvexComDlg.
template <>
const EnumInfo& enumInfo<CorvexComDlg>();

/// Every public enumeration, in the order the library publishes them.
const std::vector<const EnumInfo*>& publicEnumerations();

}  // namespace corvex
