#include "corvex/entry/num_input_box.h"

#include "corvex/entry/numeric_rules.h"

namespace corvex {

namespace {
constexpr const char16_t* kInnerName = u"txtInput";
constexpr std::int16_t kDefaultIme = static_cast<std::int16_t>(CorvexIMEMode::IMEDisable);
}  // namespace

struct NumericInputBox::Private {
    std::unique_ptr<TextBox> txt;
    std::int32_t errBase = err::ObjectErrorBase;
    bool errFlag = false;
    bool limitCheck = false;
    double lowerLimit = 0;
    std::int32_t mode = 0;
    bool mustEnter = false;
    std::int32_t mustEnterColor = color::Red;
    double upperLimit = 0;
    bool validateAtLostFocus = true;
    std::int32_t normalBackColor = color::WindowBackground;
    std::int16_t lastInt = 0;
    std::int32_t lastLng = 0;
    float lastSng = 0;
    double lastDbl = 0;
};

NumericInputBox::NumericInputBox(ControlSite& site, std::int16_t alignment)
    : TextControl(site), d(std::make_unique<Private>()) {
    TextBoxSpec spec;
    spec.name = kInnerName;
    spec.listener = this;
    spec.width = innerWidth();
    spec.height = innerHeight();
    spec.alignment = alignment;
    spec.nativeClipboard = false;  // the clipboard keys are this control's own
    d->txt = site.widgets().createTextBox(spec);
    txt().setBackColor(color::WindowBackground);
    txt().setForeColor(color::WindowText);
    txt().setFont(ambientFont());
    txt().setImeMode(kDefaultIme);
}

NumericInputBox::~NumericInputBox() = default;

TextBox& NumericInputBox::txt() const {
    checkAvailable();
    return *d->txt;
}

TextBox& NumericInputBox::textWidget() const {
    return txt();
}

void NumericInputBox::lookChanged() {
    refresh();
}

void NumericInputBox::releaseWidgets() {
    d->txt.reset();
}

template <class C>
std::vector<MemberInfo> NumericInputBox::members() {
    using B = NumericInputBox;
    return MemberTable<C>()
        .method(u"Cls", &B::cls)
        .help(u"テキストを消去します。", u"Clears the text.")
        .method(common::Refresh, &B::refresh)
        .method(u"Restore", &B::restore)
        .help(u"Storeで保存したテキストに戻します。", u"Returns to the text saved by Store.")
        .method(u"RestoreDefault", &B::restoreDefault)
        .help(u"値をDefaultValueにします。", u"Sets the value to DefaultValue.")
        .method(u"Store", &B::store)
        .help(u"現在のテキストを保存します。", u"Saves the current text.")
        .method(u"Cancel", &B::cancel)
        .help(u"入力値が不正のときTrueを返します。",
              u"Returns True when the entered value is invalid.")
        .method(u"ValidateValue", &B::validateValue)
        .help(u"入力値を検査し、正しければTrueを返します。",
              u"Validates the entered value and returns True when it is valid.")
        .property(common::BackColor, &B::backColor, &B::setBackColor)
        .saved(1, u"BackColor", color::WindowBackground)
        .property(common::DefaultValue, &B::defaultValue, &B::setDefaultValue)
        .designTimeOnly()
        .saved(7, u"DefaultValue", u"")
        .property(common::Enabled, &B::enabled, &B::setEnabled)
        .saved(2, u"Enabled", true)
        .getOnly(u"ErrFlag", &B::errFlag)
        .help(u"変換エラーが起きたかどうかを返します。",
              u"Returns whether a conversion error occurred.")
        .property(common::Font, &B::font, &B::setFont)
        .saved(5, u"Font", ambientFontDefault)
        .property(common::ForeColor, &B::foreColor, &B::setForeColor)
        .saved(3, u"ForeColor", color::WindowText)
        .property(common::IMEMode, &B::imeMode, &B::setImeMode)
        .saved(4, u"IMEMode", std::int32_t{kDefaultIme})
        .property(common::KeyName, &B::keyName, &B::setKeyName)
        .saved(8, u"KeyName", u"")
        .property(u"LimitCheck", &B::limitCheck, &B::setLimitCheck)
        .help(u"入力範囲を検査するかどうかを設定します。",
              u"Sets whether the value is checked against the limits.")
        .saved(9, u"LimitCheck", false)
        .property(u"LowerLimit", &B::lowerLimit, &B::setLowerLimit)
        .help(u"入力範囲の下限を設定します。", u"Sets the lower limit of the value.")
        .saved(10, u"LowerLimit", 0.0)
        .property(u"MaxLength", &B::maxLength, &B::setMaxLength)
        .help(u"最大文字数を設定します。", u"Sets the maximum number of characters.")
        .saved(6, u"MaxLength", std::int16_t{0})
        .property(u"Mode", &B::mode, &B::setMode)
        .help(u"入力モードを設定します。", u"Sets the input mode.")
        .saved(11, u"Mode", std::int16_t{0})
        .property(u"MustEnter", &B::mustEnter, &B::setMustEnter)
        .help(u"必須入力かどうかを設定します。", u"Sets whether an entry is required.")
        .saved(12, u"MustEnter", false)
        .property(u"MustEnterColor", &B::mustEnterColor, &B::setMustEnterColor)
        .help(u"必須入力が空のときの背景色を設定します。",
              u"Sets the background colour shown while a required entry is empty.")
        .saved(13, u"MustEnterColor", color::Red)
        .property(common::SectionName, &B::sectionName, &B::setSectionName)
        .saved(14, u"SectionName", u"")
        .property(common::SelLength, &B::selLength, &B::setSelLength)
        .property(common::SelStart, &B::selStart, &B::setSelStart)
        .property(common::SelText, &B::selText, &B::setSelText)
        .property(common::Text, &B::text, &B::setText)
        .property(u"UpperLimit", &B::upperLimit, &B::setUpperLimit)
        .help(u"入力範囲の上限を設定します。", u"Sets the upper limit of the value.")
        .saved(15, u"UpperLimit", 0.0)
        .getOnly(u"ValDbl", &B::valDbl)
        .help(u"テキストを倍精度で返します。", u"Returns the text as a Double.")
        .property(u"ValidateAtLostFocus", &B::validateAtLostFocus, &B::setValidateAtLostFocus)
        .help(u"フォーカスを失うときに検査するかどうかを設定します。",
              u"Sets whether the entry is validated when the control loses the focus.")
        .saved(16, u"ValidateAtLostFocus", true)
        .getOnly(u"ValInt", &B::valInt)
        .help(u"テキストを整数で返します。", u"Returns the text as an Integer.")
        .getOnly(u"ValLng", &B::valLng)
        .help(u"テキストを長整数で返します。", u"Returns the text as a Long.")
        .getOnly(u"ValSng", &B::valSng)
        .help(u"テキストを単精度で返します。", u"Returns the text as a Single.")
        .property(u"Value", &B::value, &B::setValue)
        .help(u"値（テキスト）を設定します。", u"Sets the value (the text).")
        .property(common::ErrBase, &B::errBase, &B::setErrBase)
        .saved(17, u"ErrBase", err::ObjectErrorBase)
        .build();
}

std::vector<EventInfo> NumericInputBox::eventList() {
    EventTable ev;
    events::addTextEvents(ev);
    events::addDeclaredLifecycle(ev);
    return ev.build();
}

const ClassInfo& NumInputBox::staticClassInfo() {
    static const ClassInfo info(
        u"NumInputBox", ClassKind::Control, members<NumInputBox>(), eventList(),
        [](ControlSite& site) { return std::make_shared<NumInputBox>(site); }, {1800, 300});
    return info;
}

const ClassInfo& NumInputBoxR::staticClassInfo() {
    static const ClassInfo info(
        u"NumInputBoxR", ClassKind::Control, members<NumInputBoxR>(), eventList(),
        [](ControlSite& site) { return std::make_shared<NumInputBoxR>(site); }, {1800, 300});
    return info;
}

const MessageTable& NumericInputBox::messageTable() const {
    return numeric::messages();
}

// --- lifecycle ---------------------------------------------------------------------

void NumericInputBox::initProperties() {
    loadDefaultValue(u"");
    d->errBase = err::ObjectErrorBase;
    d->errFlag = false;
    loadKeyName(u"");
    d->limitCheck = false;
    d->lowerLimit = 0;
    d->mode = static_cast<std::int32_t>(InputMode::PM_decimal);
    d->mustEnter = false;
    d->mustEnterColor = color::Red;
    loadSectionName(u"");
    d->upperLimit = 0;
    d->validateAtLostFocus = true;
}

void NumericInputBox::readProperties(PropertyBag& bag) {
    TextBox& t = txt();
    t.setBackColor(readSaved<std::int32_t>(bag, u"BackColor", color::WindowBackground));
    t.setEnabled(readSaved<bool>(bag, u"Enabled", true));
    t.setForeColor(readSaved<std::int32_t>(bag, u"ForeColor", color::WindowText));
    t.setImeMode(readSaved<std::int16_t>(bag, u"IMEMode", std::int32_t{kDefaultIme}));
    // The font goes through the Font property, as a designer sets it.
    setFont(
        Font::make(readSaved(bag, u"Font", Variant(Font::make(ambientFont())), fontFromVariant)));
    t.setMaxLength(readSaved<std::int16_t>(bag, u"MaxLength", std::int16_t{0}));
    loadDefaultValue(readSaved<std::u16string>(bag, u"DefaultValue", u""));
    loadKeyName(readSaved<std::u16string>(bag, u"KeyName", u""));
    d->limitCheck = readSaved<bool>(bag, u"LimitCheck", false);
    d->lowerLimit = readSaved<double>(bag, u"LowerLimit", 0.0);
    d->mode = readSaved<std::int16_t>(bag, u"Mode", std::int16_t{0});
    d->mustEnter = readSaved<bool>(bag, u"MustEnter", false);
    d->mustEnterColor = readSaved<std::int32_t>(bag, u"MustEnterColor", color::Red);
    loadSectionName(readSaved<std::u16string>(bag, u"SectionName", u""));
    d->upperLimit = readSaved<double>(bag, u"UpperLimit", 0.0);
    d->validateAtLostFocus = readSaved<bool>(bag, u"ValidateAtLostFocus", true);

    // The colour a filled MustEnter box returns to is the one just loaded, and only it.
    d->normalBackColor = t.backColor();
    if (userMode()) updateMustEnterColor();
    t.setText(defaultValue());
    refresh();
    d->errBase = readSaved<std::int32_t>(bag, u"ErrBase", err::ObjectErrorBase);
}

void NumericInputBox::writeProperties(PropertyBag& bag) {
    const TextBox& t = txt();
    bag.write(u"BackColor", t.backColor(), color::WindowBackground);
    bag.write(u"Enabled", t.enabled(), true);
    bag.write(u"ForeColor", t.foreColor(), color::WindowText);
    bag.write(u"IMEMode", std::int32_t{t.imeMode()}, std::int32_t{kDefaultIme});
    bag.write(u"Font", Variant(Font::make(t.font())), Variant(Font::make(ambientFont())));
    bag.write(u"MaxLength", static_cast<std::int16_t>(t.maxLength()), std::int16_t{0});
    bag.write(u"DefaultValue", defaultValue(), u"");
    bag.write(u"KeyName", keyName(), u"");
    bag.write(u"LimitCheck", d->limitCheck, false);
    bag.write(u"LowerLimit", d->lowerLimit, 0.0);
    bag.write(u"Mode", Variant(d->mode).toInteger(), std::int16_t{0});
    bag.write(u"MustEnter", d->mustEnter, false);
    bag.write(u"MustEnterColor", d->mustEnterColor, color::Red);
    bag.write(u"SectionName", sectionName(), u"");
    bag.write(u"UpperLimit", d->upperLimit, 0.0);
    bag.write(u"ValidateAtLostFocus", d->validateAtLostFocus, true);
    bag.write(u"ErrBase", d->errBase, err::ObjectErrorBase);
}

void NumericInputBox::resize() {
    txt().setWidth(innerWidth());
    txt().setHeight(innerHeight());
}

// --- behaviour ---------------------------------------------------------------------

void NumericInputBox::updateMustEnterColor() {
    if (d->mustEnter) {
        txt().setBackColor(txt().text().empty() ? d->mustEnterColor : d->normalBackColor);
        propertyChanged(u"BackColor");
    }
    refresh();
}

bool NumericInputBox::validateInput() {
    const numeric::Limits limits{d->limitCheck, d->lowerLimit, d->upperLimit};
    const numeric::Validation v =
        numeric::validate(d->mode, txt().text(), limits, txt().maxLength(),
                          [this](int code) { return getMessageText(code); });
    if (d->mode == static_cast<std::int32_t>(InputMode::Free)) return true;
    if (v.conversionFailed) d->errFlag = true;
    if (v.message) showRefusalText(site(), messageTable(), *v.message);
    txt().setText(v.text);
    return v.ok;
}

void NumericInputBox::widgetEvent(Widget&, WidgetEvent& event) {
    switch (event.type) {
        case WidgetEventType::Change:
            updateMustEnterColor();
            raiseEvent(u"Change");
            break;
        case WidgetEventType::KeyPress:
            // In Free mode a key is neither checked nor passed on: no KeyPress at all.
            if (d->mode == static_cast<std::int32_t>(InputMode::Free)) break;
            event.keyAscii =
                numeric::filterKey(d->mode, event.keyAscii, txt().selStart(), txt().text());
            passOnKey(event);
            break;
        case WidgetEventType::KeyDown:
            numeric::clipboardKey(event.keyCode, event.shift, txt(), site().clipboard());
            passOnKey(event);
            break;
        case WidgetEventType::LostFocus:
            if (d->validateAtLostFocus && !validateInput()) txt().setFocus();
            break;
        default:
            passOn(event);
            break;
    }
}

void NumericInputBox::refuse(std::int32_t number, int code) {
    // A bad setting is an error for a running program and a message for the designer.
    if (userMode()) throw Error(number, getMessageText(code));
    showRefusal({code});
}

template <class T, class Read>
T NumericInputBox::typedRead(T& last, Read read) {
    const numeric::ReaderContext ctx{d->errBase, [this](int code) { return getMessageText(code); },
                                     site().application().title()};
    try {
        last = read(txt().text(), ctx);
    } catch (const Error&) {
        d->errFlag = true;
        throw;
    }
    return last;
}

// --- members -----------------------------------------------------------------------

void NumericInputBox::cls() {
    txt().setText(u"");
}

void NumericInputBox::restoreDefault() {
    setValue(defaultValue());
}

bool NumericInputBox::cancel() {
    return !validateInput();
}

bool NumericInputBox::validateValue() {
    return validateInput();
}

bool NumericInputBox::errFlag() const {
    return d->errFlag;
}

bool NumericInputBox::limitCheck() const {
    return d->limitCheck;
}

void NumericInputBox::setLimitCheck(bool v) {
    d->limitCheck = v;
    propertyChanged(u"LimitCheck");
}

double NumericInputBox::lowerLimit() const {
    return d->lowerLimit;
}

void NumericInputBox::setLowerLimit(double v) {
    if (!(v <= d->upperLimit)) return refuse(numeric::LimitError, numeric::code::BadLowerLimit);
    d->lowerLimit = v;
    propertyChanged(u"LowerLimit");
}

std::int16_t NumericInputBox::maxLength() const {
    return static_cast<std::int16_t>(txt().maxLength());
}

void NumericInputBox::setMaxLength(std::int16_t n) {
    if (n < 0) throw Error(err::InvalidPropertyValue);
    txt().setMaxLength(n);
    propertyChanged(u"MaxLength");
}

InputMode NumericInputBox::mode() const {
    return static_cast<InputMode>(d->mode);
}

void NumericInputBox::setMode(InputMode m) {
    const auto value = static_cast<std::int32_t>(m);
    if (!numeric::modeAccepted(value)) return refuse(numeric::ModeError, numeric::code::BadMode);
    d->mode = value;
    propertyChanged(u"Mode");
}

bool NumericInputBox::mustEnter() const {
    return d->mustEnter;
}

void NumericInputBox::setMustEnter(bool v) {
    d->mustEnter = v;  // the colour follows at the next text change
    propertyChanged(u"MustEnter");
}

std::int32_t NumericInputBox::mustEnterColor() const {
    return d->mustEnterColor;
}

void NumericInputBox::setMustEnterColor(std::int32_t c) {
    d->mustEnterColor = c;
    propertyChanged(u"MustEnterColor");
}

double NumericInputBox::upperLimit() const {
    return d->upperLimit;
}

void NumericInputBox::setUpperLimit(double v) {
    if (!(v >= d->lowerLimit)) return refuse(numeric::LimitError, numeric::code::BadUpperLimit);
    d->upperLimit = v;
    propertyChanged(u"UpperLimit");
}

double NumericInputBox::valDbl() {
    return typedRead(d->lastDbl, numeric::valDbl);
}

bool NumericInputBox::validateAtLostFocus() const {
    return d->validateAtLostFocus;
}

void NumericInputBox::setValidateAtLostFocus(bool v) {
    d->validateAtLostFocus = v;
    propertyChanged(u"ValidateAtLostFocus");
}

std::int16_t NumericInputBox::valInt() {
    return typedRead(d->lastInt, numeric::valInt);
}

std::int32_t NumericInputBox::valLng() {
    return typedRead(d->lastLng, numeric::valLng);
}

float NumericInputBox::valSng() {
    return typedRead(d->lastSng, numeric::valSng);
}

std::u16string NumericInputBox::value() const {
    return txt().text();
}

void NumericInputBox::setValue(std::u16string v) {
    txt().setText(v);
    propertyChanged(u"Value");
}

std::int32_t NumericInputBox::errBase() const {
    return d->errBase;
}

void NumericInputBox::setErrBase(std::int32_t v) {
    d->errBase = v;
    propertyChanged(u"ErrBase");
}

}  // namespace corvex
