// The form file: the text format in which a form and its controls' saved properties
// are kept. One line per property, typed values, diff-friendly.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "corvex/common/form_model.h"
#include "corvex/library/memory_bag.h"

namespace corvex {

/// One control of a form as saved: its class, its name and its property bag entries.
struct SavedControl {
    /// An empty entry.
    SavedControl() = default;
    /// A control of class className named name (an element of an array when index is set).
    SavedControl(std::u16string className, std::u16string name,
                 std::vector<MemoryBag::Entry> properties = {}, std::int16_t index = NoIndex)
        : className(std::move(className)),
          name(std::move(name)),
          properties(std::move(properties)),
          index(index) {}

    std::u16string className;                  ///< public class name ("BooleanBox")
    std::u16string name;                       ///< the control's name on the form
    std::vector<MemoryBag::Entry> properties;  ///< the bag entries in write order
    std::int16_t index = NoIndex;              ///< its index in a control array, or NoIndex
};

/// A whole form as saved.
struct FormDocument {
    std::u16string name;                 ///< the form's name
    std::u16string caption;              ///< the form's caption
    std::vector<SavedControl> controls;  ///< the controls in the form's order
};

/// A form file that cannot be read; names the line.
class FormFileError : public std::runtime_error {
public:
    /// An error at a 1-based line.
    FormFileError(int line, const std::string& message);
    /// The 1-based line at fault.
    int line() const { return line_; }
    /// The message without its line number.
    const std::string& message() const { return message_; }

private:
    int line_;
    std::string message_;
};

/// Reads a form file (UTF-8). Raises FormFileError on malformed input.
FormDocument parseFormFile(std::string_view utf8);
/// Writes a form file (UTF-8) that parseFormFile reads back to the same document.
std::string writeFormFile(const FormDocument& form);

}  // namespace corvex
