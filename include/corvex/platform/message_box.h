// Modal message boxes.
#pragma once

#include <cstdint>
#include <string>

namespace corvex {

/// Style bits and answers of the host's message boxes.
namespace mb {
inline constexpr std::int32_t OkOnly = 0;        ///< OK button only
inline constexpr std::int32_t Critical = 16;     ///< stop icon
inline constexpr std::int32_t Question = 32;     ///< question icon
inline constexpr std::int32_t Exclamation = 48;  ///< exclamation icon
inline constexpr std::int32_t Information = 64;  ///< information icon
inline constexpr std::int32_t AnswerOk = 1;      ///< the OK button was pressed

inline constexpr std::int32_t HelpButton = 0x4000;     ///< adds a Help button
inline constexpr std::int32_t SystemModal = 0x1000;    ///< modal to the whole system
inline constexpr std::int32_t Foreground = 0x10000;    ///< the box comes to the foreground
inline constexpr std::int32_t RightAligned = 0x80000;  ///< the text is right-aligned
}  // namespace mb

/// What a message box shows.
struct MessageBoxRequest {
    std::u16string text;           ///< the prompt; lines separated by carriage returns
    std::int32_t style = 0;        ///< buttons + icon + default button + modality + extras
    std::u16string title;          ///< the title; empty gives the application's name
    std::u16string helpFile;       ///< help file for the Help button
    std::int32_t helpContext = 0;  ///< help topic
};

/// Shows modal message boxes.
class MessageBoxService {
public:
    virtual ~MessageBoxService() = default;
    /// Shows the box and returns the number of the button pressed (1 OK ... 7 No).
    virtual std::int32_t messageBox(const MessageBoxRequest& request) = 0;
};

}  // namespace corvex
