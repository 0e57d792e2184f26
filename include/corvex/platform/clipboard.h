// The system clipboard's text.
#pragma once

#include <string>

namespace corvex {

/// The clipboard, as far as text goes.
class Clipboard {
public:
    virtual ~Clipboard() = default;
    /// The clipboard's text ("" when it holds none).
    virtual std::u16string text() const = 0;
    /// Replaces the clipboard's content by text.
    virtual void setText(const std::u16string& text) = 0;
};

}  // namespace corvex
