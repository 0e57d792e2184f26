// The container's ambient properties that a control reads.
#pragma once

#include <cstdint>

#include "corvex/common/font.h"

namespace corvex {

/// Locale identifier of Japanese; every other locale gets English messages.
inline constexpr std::int32_t LocaleJapanese = 1041;
/// Locale identifier of US English, the default of the headless host.
inline constexpr std::int32_t LocaleEnglishUS = 1033;

/// The ambient properties of the container that holds a control.
class Ambient {
public:
    virtual ~Ambient() = default;
    /// The locale identifier in force (1041 Japanese); read anew at every use.
    virtual std::int32_t localeId() const = 0;
    /// True in run mode, False while the control sits in the designer.
    virtual bool userMode() const = 0;
    /// The container's font, the default of every Font property.
    virtual FontDesc font() const = 0;
};

}  // namespace corvex
