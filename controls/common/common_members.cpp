#include "corvex/common/common_members.h"

namespace corvex {

template <class P, class V>
void CommonControl::letEach(void (Widget::*set)(P), const V& value, std::u16string_view name) {
    forEachCommonWidget([&](Widget& w) { (w.*set)(value); });
    propertyChanged(name);
}

template <class P, class V>
void TextControl::letEach(void (TextBox::*set)(P), const V& value, std::u16string_view name) {
    forEachTextWidget([&](TextBox& b) { (b.*set)(value); });
    propertyChanged(name);
}

std::int32_t CommonControl::backColor() const {
    return commonWidget().backColor();
}

void CommonControl::setBackColor(std::int32_t c) {
    letEach(&Widget::setBackColor, c, u"BackColor");
    lookChanged();
}

bool CommonControl::enabled() const {
    return commonWidget().enabled();
}

void CommonControl::setEnabled(bool v) {
    letEach(&Widget::setEnabled, v, u"Enabled");
}

std::shared_ptr<Font> CommonControl::font() const {
    return Font::make(commonWidget().font());
}

void CommonControl::setFont(std::shared_ptr<Font> f) {
    if (!f) throw Error(err::ObjectRequired);
    letEach(&Widget::setFont, f->desc(), u"Font");
    lookChanged();
}

std::int32_t CommonControl::foreColor() const {
    return commonWidget().foreColor();
}

void CommonControl::setForeColor(std::int32_t c) {
    letEach(&Widget::setForeColor, c, u"ForeColor");
    lookChanged();
}

std::u16string CommonControl::keyName() const {
    return keyName_;
}

void CommonControl::setKeyName(std::u16string v) {
    keyName_ = std::move(v);
    propertyChanged(u"KeyName");
}

std::u16string CommonControl::sectionName() const {
    return sectionName_;
}

void CommonControl::setSectionName(std::u16string v) {
    sectionName_ = std::move(v);
    if (sectionNameSignals()) propertyChanged(u"SectionName");
}

void TextControl::forEachCommonWidget(const std::function<void(Widget&)>& f) {
    forEachTextWidget([&](TextBox& b) { f(b); });
}

CorvexIMEMode TextControl::imeMode() const {
    return static_cast<CorvexIMEMode>(textWidget().imeMode());
}

void TextControl::setImeMode(CorvexIMEMode m) {
    const std::int16_t value = Variant(static_cast<std::int32_t>(m)).toInteger();
    letEach(&TextBox::setImeMode, value, u"IMEMode");
}

std::int32_t TextControl::selLength() const {
    return textWidget().selLength();
}

void TextControl::setSelLength(std::int32_t n) {
    letEach(&TextBox::setSelLength, n, u"SelLength");
}

std::int32_t TextControl::selStart() const {
    return textWidget().selStart();
}

void TextControl::setSelStart(std::int32_t n) {
    letEach(&TextBox::setSelStart, n, u"SelStart");
}

std::u16string TextControl::selText() const {
    return textWidget().selText();
}

void TextControl::setSelText(std::u16string t) {
    // The selection is replaced once, in the read box; a control with several boxes
    // copies the new text into the others when that box signals its Change. Replacing it
    // in each box would insert it once per box.
    textWidget().setSelText(t);
    propertyChanged(u"SelText");
}

std::u16string TextControl::text() const {
    return textWidget().text();
}

void TextControl::setText(std::u16string t) {
    letEach(&TextBox::setText, t, u"Text");
}

void TextControl::restore() {
    const std::u16string text = storedValue_.toString();
    forEachTextWidget([&](TextBox& b) { b.setText(text); });
}

void TextControl::store() {
    storedValue_ = textWidget().text();
}

std::u16string TextControl::defaultValue() const {
    return defaultValue_;
}

void TextControl::setDefaultValue(std::u16string v) {
    // The table's dispatch refuses a let by name at run time (382); this guards a direct
    // C++ call with the same rule.
    requireDesignTime();
    defaultValue_ = v;
    propertyChanged(u"DefaultValue");
    setValue(std::move(v));
}

}  // namespace corvex
