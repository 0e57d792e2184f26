// Message texts chosen by code and by the container's locale, and the refusal box.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvex {

class ControlSite;

/// One message in both languages.
struct MessageText {
    int code = 0;             ///< the message code
    std::u16string japanese;  ///< shown when the locale is 1041
    std::u16string english;   ///< shown otherwise
};

/// A control's table from message code to text. Codes 101, 102, 201 and 202 are common
/// to every table; a code that is not in the table yields the table's fallback.
class MessageTable {
public:
    /// A table of the common codes, the given ones, and a fallback for unknown codes.
    MessageTable(std::vector<MessageText> own, MessageText fallback);
    /// The text of code in Japanese or English.
    std::u16string text(int code, bool japanese) const;

private:
    std::vector<MessageText> entries_;
    MessageText fallback_;
};

/// Common codes.
namespace msg {
inline constexpr int Caution = 101;      ///< "Caution!!"
inline constexpr int Warning = 102;      ///< "Warning!!"
inline constexpr int ErrorNumber = 201;  ///< "Error Number"
inline constexpr int Error = 202;        ///< "Error"
}  // namespace msg

/// The fallback "未定義" / "Undefined." of most tables.
MessageText undefinedWithStop();
/// The fallback "未定義" / "Undefined" (no full stop) of the dialog control's table.
MessageText undefinedWithoutStop();

/// Looks message codes up in a table by the site's locale, read at each lookup.
std::u16string messageText(ControlSite& site, const MessageTable& table, int code);

/// Shows the refusal box: the texts of codes joined by carriage returns, the critical
/// icon, an OK button (style 16), titled with code 102.
void showRefusal(ControlSite& site, const MessageTable& table, std::initializer_list<int> codes);
/// Shows the refusal box with a prepared text.
void showRefusalText(ControlSite& site, const MessageTable& table, std::u16string text);

}  // namespace corvex
