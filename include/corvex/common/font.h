// The font object that controls hand out and take through their Font properties.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "corvex/common/object.h"

namespace corvex {

/// What describes a font: the value that widgets keep and property bags save.
struct FontDesc {
    std::u16string name = u"Sans Serif";  ///< family name
    double size = 9;                      ///< size in points
    bool bold = false;                    ///< bold weight
    bool italic = false;                  ///< italic style
    bool underline = false;               ///< underlined
    bool strikethrough = false;           ///< struck through
    std::int16_t weight = 400;            ///< weight, 400 regular and 700 bold
    std::int16_t charset = 0;             ///< character set number (128 Japanese)

    friend bool operator==(const FontDesc&, const FontDesc&) = default;
};

/// A font as an object: properties Name, Size, Bold, Italic, Underline, Strikethrough,
/// Weight and Charset. A control's Font get returns a new Font holding the widget's
/// description; a Font set copies the description into the widget.
class Font : public Object {
public:
    /// A font with the given description.
    explicit Font(FontDesc desc = {}) : desc_(std::move(desc)) {}
    /// A new shared font object.
    static std::shared_ptr<Font> make(FontDesc desc) {
        return std::make_shared<Font>(std::move(desc));
    }
    /// The table of the Font class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }

    /// The description.
    const FontDesc& desc() const { return desc_; }
    /// The family name.
    std::u16string name() const { return desc_.name; }
    /// Sets the family name.
    void setName(std::u16string v) { desc_.name = std::move(v); }
    /// The size in points.
    double size() const { return desc_.size; }
    /// Sets the size in points.
    void setSize(double v) { desc_.size = v; }
    /// Whether bold.
    bool bold() const { return desc_.bold; }
    /// Sets bold (and the weight with it).
    void setBold(bool v) {
        desc_.bold = v;
        desc_.weight = v ? 700 : 400;
    }
    /// Whether italic.
    bool italic() const { return desc_.italic; }
    /// Sets italic.
    void setItalic(bool v) { desc_.italic = v; }
    /// Whether underlined.
    bool underline() const { return desc_.underline; }
    /// Sets underline.
    void setUnderline(bool v) { desc_.underline = v; }
    /// Whether struck through.
    bool strikethrough() const { return desc_.strikethrough; }
    /// Sets strikethrough.
    void setStrikethrough(bool v) { desc_.strikethrough = v; }
    /// The weight.
    std::int16_t weight() const { return desc_.weight; }
    /// Sets the weight (700 and above is bold).
    void setWeight(std::int16_t v) {
        desc_.weight = v;
        desc_.bold = v >= 700;
    }
    /// The character set number.
    std::int16_t charset() const { return desc_.charset; }
    /// Sets the character set number.
    void setCharset(std::int16_t v) { desc_.charset = v; }

private:
    FontDesc desc_;
};

/// The description of a font held in a Variant; raises 13 when it holds no Font.
FontDesc fontFromVariant(const Variant& v);

}  // namespace corvex
