// The form file: the text format in which a form and its controls' saved properties
// are kept. One line per property, typed values, diff-friendly.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "corvex/library/memory_bag.h"

namespace corvex {

/// One control of a form as saved: its class, its name and its property bag entries.
struct SavedControl {
    std::u16string className;                  ///< public class name ("BooleanBox")
    std::u16string name;                       ///< the control's name on the form
    std::vector<MemoryBag::Entry> properties;  ///< the bag entries in write order
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

private:
    int line_;
};

/// Reads a form file (UTF-8). Raises FormFileError on malformed input.
FormDocument parseFormFile(std::string_view utf8);
/// Writes a form file (UTF-8) that parseFormFile reads back to the same document.
std::string writeFormFile(const FormDocument& form);

}  // namespace corvex
