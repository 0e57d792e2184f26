#include "corvex/common/font.h"

namespace corvex {

const ClassInfo& Font::staticClassInfo() {
    static const ClassInfo info(
        u"Font", ClassKind::Value,
        MemberTable<Font>()
            .property(u"Name", &Font::name, &Font::setName)
            .property(u"Size", &Font::size, &Font::setSize)
            .property(u"Bold", &Font::bold, &Font::setBold)
            .property(u"Italic", &Font::italic, &Font::setItalic)
            .property(u"Underline", &Font::underline, &Font::setUnderline)
            .property(u"Strikethrough", &Font::strikethrough, &Font::setStrikethrough)
            .property(u"Weight", &Font::weight, &Font::setWeight)
            .property(u"Charset", &Font::charset, &Font::setCharset)
            .build(),
        {});
    return info;
}

FontDesc fontFromVariant(const Variant& v) {
    if (v.type() == VarType::Object) {
        if (auto f = std::dynamic_pointer_cast<Font>(v.asObject())) return f->desc();
    }
    throw Error(err::TypeMismatch);
}

}  // namespace corvex
