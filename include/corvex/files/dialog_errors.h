// The texts of the common-dialog error numbers, in both languages.
#pragma once

#include <cstdint>
#include <string>

namespace corvex {

/// The text of a common-dialog error number (GetComDlgErrorText): Japanese or English; a
/// number without a row of its own gives the row that shows the number itself.
std::u16string comDlgErrorText(std::int32_t code, bool japanese);

}  // namespace corvex
