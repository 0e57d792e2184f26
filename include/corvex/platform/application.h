// The hosting application, as far as controls need to know it.
#pragma once

#include <string>

namespace corvex {

/// The hosting application.
class Application {
public:
    virtual ~Application() = default;
    /// The application's title, given as the source of errors that controls raise.
    virtual std::u16string title() const = 0;
};

}  // namespace corvex
