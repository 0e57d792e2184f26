#include "corvex/common/common_members.h"

namespace corvex {

std::int32_t CommonControl::backColor() const {
    return commonWidget().backColor();
}

void CommonControl::setBackColor(std::int32_t c) {
    forEachCommonWidget([&](Widget& w) { w.setBackColor(c); });
    propertyChanged(u"BackColor");
    lookChanged();
}

bool CommonControl::enabled() const {
    return commonWidget().enabled();
}

void CommonControl::setEnabled(bool v) {
    forEachCommonWidget([&](Widget& w) { w.setEnabled(v); });
    propertyChanged(u"Enabled");
}

std::shared_ptr<Font> CommonControl::font() const {
    return Font::make(commonWidget().font());
}

void CommonControl::setFont(std::shared_ptr<Font> f) {
    if (!f) throw Error(err::ObjectRequired);
    forEachCommonWidget([&](Widget& w) { w.setFont(f->desc()); });
    propertyChanged(u"Font");
    lookChanged();
}

std::int32_t CommonControl::foreColor() const {
    return commonWidget().foreColor();
}

void CommonControl::setForeColor(std::int32_t c) {
    forEachCommonWidget([&](Widget& w) { w.setForeColor(c); });
    propertyChanged(u"ForeColor");
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
    forEachTextWidget([&](TextBox& b) { b.setImeMode(value); });
    propertyChanged(u"IMEMode");
}

std::int32_t TextControl::selLength() const {
    return textWidget().selLength();
}

void TextControl::setSelLength(std::int32_t n) {
    forEachTextWidget([&](TextBox& b) { b.setSelLength(n); });
    propertyChanged(u"SelLength");
}

std::int32_t TextControl::selStart() const {
    return textWidget().selStart();
}

void TextControl::setSelStart(std::int32_t n) {
    forEachTextWidget([&](TextBox& b) { b.setSelStart(n); });
    propertyChanged(u"SelStart");
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
    forEachTextWidget([&](TextBox& b) { b.setText(t); });
    propertyChanged(u"Text");
}

}  // namespace corvex
