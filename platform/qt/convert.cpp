#include "corvex/qt/convert.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "corvex/common/error.h"
#include "corvex/platform/widgets.h"

namespace corvex::qt {

QString toQString(std::u16string_view text) {
    return QString(reinterpret_cast<const QChar*>(text.data()),
                   static_cast<qsizetype>(text.size()));
}

std::u16string fromQString(const QString& text) {
    return std::u16string(reinterpret_cast<const char16_t*>(text.utf16()),
                          static_cast<std::size_t>(text.size()));
}

QVariant toQVariant(const Variant& value) {
    switch (value.type()) {
        case VarType::Empty:
            return QVariant();
        case VarType::Boolean: {
            const Boolean b = value.asBoolean();
            // Only the two canonical values have a Qt bool; any other raw value travels
            // whole so that it comes back unchanged.
            if (b.isTrue()) return QVariant(true);
            if (b.isFalse()) return QVariant(false);
            return QVariant::fromValue(value);
        }
        case VarType::Integer:
            return QVariant::fromValue<qint16>(value.asInteger());
        case VarType::Long:
            return QVariant::fromValue<qint32>(value.asLong());
        case VarType::Single:
            return QVariant::fromValue<float>(value.asSingle());
        case VarType::Double:
            return QVariant::fromValue<double>(value.asDouble());
        case VarType::String:
            return QVariant(toQString(value.asString()));
        case VarType::Object:
            return QVariant::fromValue(value);
    }
    return QVariant();
}

namespace {

Variant fromWide(qlonglong v) {
    if (v >= std::numeric_limits<std::int32_t>::min() &&
        v <= std::numeric_limits<std::int32_t>::max()) {
        return Variant(static_cast<std::int32_t>(v));
    }
    return Variant(static_cast<double>(v));
}

}  // namespace

Variant fromQVariant(const QVariant& value) {
    if (!value.isValid()) return Variant();
    const int id = value.metaType().id();
    if (id == QMetaType::fromType<Variant>().id()) return value.value<Variant>();
    switch (id) {
        case QMetaType::Bool:
            return Variant(value.toBool());
        case QMetaType::Short:
        case QMetaType::Char:
        case QMetaType::SChar:
        case QMetaType::UChar:
            return Variant(static_cast<std::int16_t>(value.toInt()));
        case QMetaType::UShort:
        case QMetaType::Int:
            return Variant(static_cast<std::int32_t>(value.toInt()));
        case QMetaType::UInt:
        case QMetaType::Long:
        case QMetaType::LongLong:
            return fromWide(value.toLongLong());
        case QMetaType::ULong:
        case QMetaType::ULongLong: {
            const qulonglong u = value.toULongLong();
            if (u <= static_cast<qulonglong>(std::numeric_limits<std::int32_t>::max())) {
                return Variant(static_cast<std::int32_t>(u));
            }
            return Variant(static_cast<double>(u));
        }
        case QMetaType::Float:
            return Variant(value.toFloat());
        case QMetaType::Double:
            return Variant(value.toDouble());
        case QMetaType::QString:
            return Variant(fromQString(value.toString()));
        case QMetaType::QChar:
            return Variant(fromQString(QString(value.toChar())));
        case QMetaType::QByteArray:
            return Variant(fromQString(QString::fromUtf8(value.toByteArray())));
        default:
            break;
    }
    if (value.canConvert<QString>()) return Variant(fromQString(value.toString()));
    throw Error(err::TypeMismatch);
}

QPalette::ColorRole systemColorRole(std::int32_t color) {
    const auto u = static_cast<std::uint32_t>(color);
    if ((u & 0x80000000u) == 0) return QPalette::NoRole;
    // The host's system colour indexes, each with the palette role that paints the same
    // part of a Qt widget.
    switch (u & 0xFFu) {
        case 0:
            return QPalette::Button;  // scroll bars
        case 1:
            return QPalette::Window;  // desktop
        case 2:
            return QPalette::Highlight;  // active title bar
        case 3:
            return QPalette::Mid;  // inactive title bar
        case 4:
            return QPalette::Window;  // menu bar
        case 5:
            return QPalette::Base;  // window background
        case 6:
            return QPalette::Shadow;  // window frame
        case 7:
            return QPalette::WindowText;  // menu text
        case 8:
            return QPalette::Text;  // window text
        case 9:
            return QPalette::HighlightedText;  // active title bar text
        case 10:
            return QPalette::Mid;  // active border
        case 11:
            return QPalette::Midlight;  // inactive border
        case 12:
            return QPalette::Dark;  // application workspace
        case 13:
            return QPalette::Highlight;  // highlight
        case 14:
            return QPalette::HighlightedText;  // highlight text
        case 15:
            return QPalette::Button;  // button face
        case 16:
            return QPalette::Dark;  // button shadow
        case 17:
            return QPalette::Text;  // gray text (taken from the disabled group)
        case 18:
            return QPalette::ButtonText;  // button text
        case 19:
            return QPalette::PlaceholderText;  // inactive title bar text
        case 20:
            return QPalette::Light;  // button highlight
        case 21:
            return QPalette::Shadow;  // 3-D dark shadow
        case 22:
            return QPalette::Midlight;  // 3-D light
        case 23:
            return QPalette::ToolTipText;  // tool tip text
        case 24:
            return QPalette::ToolTipBase;  // tool tip background
        default:
            return QPalette::Window;
    }
}

QColor toQColor(std::int32_t color, const QPalette& palette) {
    const auto u = static_cast<std::uint32_t>(color);
    if (u & 0x80000000u) {
        const QPalette::ColorRole role = systemColorRole(color);
        if ((u & 0xFFu) == 17) return palette.color(QPalette::Disabled, role);
        return palette.color(QPalette::Active, role);
    }
    return QColor(static_cast<int>(u & 0xFFu), static_cast<int>((u >> 8) & 0xFFu),
                  static_cast<int>((u >> 16) & 0xFFu));
}

QFont toQFont(const FontDesc& font) {
    QFont f;
    f.setFamily(toQString(font.name));
    if (font.size > 0) f.setPointSizeF(font.size);
    int weight = font.weight > 0 ? font.weight : (font.bold ? 700 : 400);
    if (font.bold && weight < 700) weight = 700;
    f.setWeight(static_cast<QFont::Weight>(std::clamp(weight, 1, 1000)));
    f.setItalic(font.italic);
    f.setUnderline(font.underline);
    f.setStrikeOut(font.strikethrough);
    return f;
}

FontDesc fromQFont(const QFont& font) {
    FontDesc d;
    d.name = fromQString(font.family());
    if (font.pointSizeF() > 0) {
        d.size = font.pointSizeF();
    } else if (font.pixelSize() > 0) {
        d.size = font.pixelSize() * 72.0 / 96.0;
    }
    d.weight = static_cast<std::int16_t>(font.weight());
    d.bold = d.weight >= 700;
    d.italic = font.italic();
    d.underline = font.underline();
    d.strikethrough = font.strikeOut();
    d.charset = 0;
    return d;
}

std::int16_t virtualKeyCode(int qtKey, Qt::KeyboardModifiers modifiers) {
    if (modifiers & Qt::KeypadModifier) {
        // The numeric keypad has keys of its own.
        if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) {
            return static_cast<std::int16_t>(96 + (qtKey - Qt::Key_0));
        }
        switch (qtKey) {
            case Qt::Key_Asterisk:
                return 106;
            case Qt::Key_Plus:
                return 107;
            case Qt::Key_Minus:
                return 109;
            case Qt::Key_Period:
            case Qt::Key_Comma:
                return 110;
            case Qt::Key_Slash:
                return 111;
            default:
                break;
        }
    }
    // Qt names a printable key by its character: the core's table gives its key.
    if (qtKey >= Qt::Key_Space && qtKey <= Qt::Key_AsciiTilde) {
        return keyStrokeFor(static_cast<char16_t>(qtKey)).keyCode;
    }
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24) {
        return static_cast<std::int16_t>(112 + (qtKey - Qt::Key_F1));
    }
    switch (qtKey) {
        case Qt::Key_Backspace:
            return key::Back;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return key::Tab;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return key::Return;
        case Qt::Key_Shift:
            return key::ShiftKey;
        case Qt::Key_Control:
            return key::ControlKey;
        case Qt::Key_Alt:
            return 18;
        case Qt::Key_Pause:
            return 19;
        case Qt::Key_CapsLock:
            return 20;
        case Qt::Key_Escape:
            return 27;
        case Qt::Key_PageUp:
            return 33;
        case Qt::Key_PageDown:
            return 34;
        case Qt::Key_End:
            return 35;
        case Qt::Key_Home:
            return 36;
        case Qt::Key_Left:
            return 37;
        case Qt::Key_Up:
            return 38;
        case Qt::Key_Right:
            return 39;
        case Qt::Key_Down:
            return 40;
        case Qt::Key_Print:
            return 44;
        case Qt::Key_Insert:
            return 45;
        case Qt::Key_Delete:
            return key::Delete;
        case Qt::Key_Meta:
            return 91;
        case Qt::Key_Menu:
            return 93;
        case Qt::Key_NumLock:
            return 144;
        case Qt::Key_ScrollLock:
            return 145;
        default:
            return 0;
    }
}

std::int16_t shiftBits(Qt::KeyboardModifiers modifiers) {
    std::int16_t bits = 0;
    if (modifiers & Qt::ShiftModifier) bits |= key::ShiftMask;
    if (modifiers & Qt::ControlModifier) bits |= key::CtrlMask;
    if (modifiers & Qt::AltModifier) bits |= key::AltMask;
    return bits;
}

std::int16_t mouseButtons(Qt::MouseButtons buttons) {
    std::int16_t bits = 0;
    if (buttons & Qt::LeftButton) bits |= mouse::Left;
    if (buttons & Qt::RightButton) bits |= mouse::Right;
    if (buttons & Qt::MiddleButton) bits |= mouse::Middle;
    return bits;
}

InputMethodSetting inputMethodSetting(std::int16_t imeMode) {
    InputMethodSetting s;
    switch (imeMode) {
        case 2:  // IMEOFF: off to start with, but the user may still switch it on
        case 7:  // IMEAlphaFull: full-width letters still need the input method
            s.hints = Qt::ImhPreferLatin;
            break;
        case 3:  // IMEDisable: no input method at all
            s.enabled = false;
            break;
        case 8:  // IMEAlpha: plain half-width letters and digits
            s.hints = Qt::ImhLatinOnly;
            break;
        default:  // IMENone, IMEON and the kana modes: Qt has nothing to say for them
            break;
    }
    return s;
}

}  // namespace corvex::qt
