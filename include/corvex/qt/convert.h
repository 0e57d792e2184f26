// Conversions between the core's values and Qt's: text, Variant, colours, fonts and keys.
#pragma once

#include <QColor>
#include <QFont>
#include <QMetaType>
#include <QPalette>
#include <QString>
#include <QVariant>
#include <cstdint>
#include <string>
#include <string_view>

#include "corvex/common/font.h"
#include "corvex/common/variant.h"

// A QVariant carries a core Variant whole when Qt has no type of its own for it (an
// object reference, a Boolean whose raw value is neither True nor False).
Q_DECLARE_METATYPE(corvex::Variant)

namespace corvex::qt {

/// Core UTF-16 text as a QString.
QString toQString(std::u16string_view text);
/// A QString as core UTF-16 text.
std::u16string fromQString(const QString& text);

/// A Variant as a QVariant: Empty invalid, Boolean bool, Integer short, Long int, Single
/// float, Double double, String QString; objects and odd Booleans wrap the Variant itself.
QVariant toQVariant(const Variant& value);
/// A QVariant as a Variant (the inverse of toQVariant; other Qt types go through QString).
/// Raises Error 13 when the value has no text form.
Variant fromQVariant(const QVariant& value);

/// A colour number as a QColor: system colours (high bit set) from palette, others RGB.
QColor toQColor(std::int32_t color, const QPalette& palette);
/// The palette role a system colour number stands for; QPalette::NoRole for RGB values.
QPalette::ColorRole systemColorRole(std::int32_t color);

/// A font description as a QFont.
QFont toQFont(const FontDesc& font);
/// A QFont as a font description (charset 0: Qt finds glyphs by fallback, not charsets).
FontDesc fromQFont(const QFont& font);

/// The host's virtual-key number of a Qt key (0 for keys that have none).
std::int16_t virtualKeyCode(int qtKey, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// The shift bits (1 Shift, 2 Ctrl, 4 Alt) of Qt keyboard modifiers.
std::int16_t shiftBits(Qt::KeyboardModifiers modifiers);
/// The host's button number (1 left, 2 right, 4 middle) of Qt mouse buttons, or-ed.
std::int16_t mouseButtons(Qt::MouseButtons buttons);

/// How an input-method mode (the library's CorvexIMEMode value) steers Qt's input method.
struct InputMethodSetting {
    /// Qt::WA_InputMethodEnabled: false only where the mode forbids the input method.
    bool enabled = true;
    /// The hints added to the widget's own (Qt::ImhPreferLatin, Qt::ImhLatinOnly).
    Qt::InputMethodHints hints = Qt::ImhNone;
};
/// The Qt setting of an input-method mode: IMEDisable (3) turns the input method off;
/// IMEOFF (2) and IMEAlphaFull (7) prefer Latin input, IMEAlpha (8) allows Latin only;
/// IMENone, IMEON and the kana modes (Qt has no hint for them), and values outside 0 to 8,
/// leave Qt's input method as it is.
InputMethodSetting inputMethodSetting(std::int16_t imeMode);

}  // namespace corvex::qt
