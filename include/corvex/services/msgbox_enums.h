// The public enumerations of MessageBox: its values are the host's message-box style bits.
#pragma once

#include <cstdint>

#include "corvex/common/object.h"

namespace corvex {

/// The buttons of the box.
enum class MsgBoxControlButtonType : std::int32_t {
    OKOnly = 0,            ///< OK
    OKCancel = 1,          ///< OK, Cancel
    AbortRetryIgnore = 2,  ///< Abort, Retry, Ignore
    YesNoCancel = 3,       ///< Yes, No, Cancel
    YesNo = 4,             ///< Yes, No
    RetryCancel = 5,       ///< Retry, Cancel
};

/// The icon of the box.
enum class MsgBoxControlIconType : std::int32_t {
    None = 0,          ///< no icon
    Critical = 16,     ///< stop sign
    Question = 32,     ///< question mark
    Exclamation = 48,  ///< exclamation mark
    Information = 64,  ///< information sign
};

/// Which button is the default.
enum class MsgBoxControlDefaultButtonType : std::int32_t {
    Button1 = 0,    ///< the first
    Button2 = 256,  ///< the second
    Button3 = 512,  ///< the third
    Button4 = 768,  ///< the fourth
};

/// What the box is modal to.
enum class MsgBoxControlModalType : std::int32_t {
    ApplicationModal = 0,  ///< the application
    SystemModal = 4096,    ///< every application
};

/// The button the user pressed.
enum class MsgBoxControlAnswer : std::int32_t {
    None = 0,    ///< no box shown yet
    OK = 1,      ///< OK
    Cancel = 2,  ///< Cancel
    Abort = 3,   ///< Abort
    Retry = 4,   ///< Retry
    Ignore = 5,  ///< Ignore
    Yes = 6,     ///< Yes
    No = 7,      ///< No
};

/// The table-side description of MsgBoxControlButtonType.
template <>
const EnumInfo& enumInfo<MsgBoxControlButtonType>();
/// The table-side description of MsgBoxControlIconType.
template <>
const EnumInfo& enumInfo<MsgBoxControlIconType>();
/// The table-side description of MsgBoxControlDefaultButtonType.
template <>
const EnumInfo& enumInfo<MsgBoxControlDefaultButtonType>();
/// The table-side description of MsgBoxControlModalType.
template <>
const EnumInfo& enumInfo<MsgBoxControlModalType>();
/// The table-side description of MsgBoxControlAnswer.
template <>
const EnumInfo& enumInfo<MsgBoxControlAnswer>();

}  // namespace corvex
