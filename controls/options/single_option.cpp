#include "corvex/options/single_option.h"

#include "corvex/platform/option_widgets.h"

namespace corvex {

namespace {
constexpr const char16_t* kInnerName = u"optSingleOption";
}  // namespace

struct SingleOption::Private {
    std::unique_ptr<OptionButton> opt;
    Boolean defaultValue;
    Variant storedValue;
};

SingleOption::SingleOption(ControlSite& site)
    : CommonControl(site), d(std::make_unique<Private>()) {
    OptionButtonSpec spec;
    spec.name = kInnerName;
    spec.listener = this;
    spec.width = innerWidth();
    spec.height = innerHeight();
    d->opt = site.widgets().createOptionButton(spec);
    opt().setBackColor(color::ButtonFace);
    opt().setForeColor(color::ButtonText);
    opt().setFont(ambientFont());
}

SingleOption::~SingleOption() = default;

OptionButton& SingleOption::opt() const {
    checkAvailable();
    return *d->opt;
}

Widget& SingleOption::commonWidget() const {
    return opt();
}

void SingleOption::releaseWidgets() {
    d->opt.reset();
}

const ClassInfo& SingleOption::staticClassInfo() {
    static const ClassInfo info = [] {
        using S = SingleOption;
        EventTable ev;
        ev.event(u"Click")
            .event(u"DblClick")
            .event(u"KeyDown", events::keyCodeShift())
            .event(u"KeyPress", events::keyAscii())
            .event(u"KeyUp", events::keyCodeShift())
            .event(u"MouseDown", events::mouse())
            .event(u"MouseMove", events::mouse())
            .event(u"MouseUp", events::mouse());
        events::addDeclaredLifecycle(ev);
        return ClassInfo(
            u"SingleOption", ClassKind::Control,
            MemberTable<S>()
                .method(u"Cls", &S::cls)
                .help(u"値をFalseにします。", u"Sets the value to False.")
                .method(common::Refresh, &S::refresh)
                .method(u"Restore", &S::restore)
                .help(u"Storeで保存した値に戻します。", u"Returns to the value saved by Store.")
                .method(u"RestoreDefault", &S::restoreDefault)
                .help(u"値をDefaultValueにします。", u"Sets the value to DefaultValue.")
                .method(u"Store", &S::store)
                .help(u"現在の値を保存します。", u"Saves the current value.")
                .property(common::BackColor, &S::backColor, &S::setBackColor)
                .saved(1, u"BackColor", color::ButtonFace)
                .property(common::Caption, &S::caption, &S::setCaption)
                .saved(2, u"Caption", u"")
                .property(common::Enabled, &S::enabled, &S::setEnabled)
                .saved(3, u"Enabled", true)
                .property(common::Font, &S::font, &S::setFont)
                .saved(4, u"Font", ambientFontDefault)
                .property(common::ForeColor, &S::foreColor, &S::setForeColor)
                .saved(5, u"ForeColor", color::ButtonText)
                .property(common::DefaultValue, &S::defaultValue, &S::setDefaultValue)
                .designTimeOnly()
                .saved(7, u"DefaultValue", false)
                .property(common::KeyName, &S::keyName, &S::setKeyName)
                .saved(8, u"KeyName", u"")
                .property(common::SectionName, &S::sectionName, &S::setSectionName)
                .saved(9, u"SectionName", u"")
                .property(u"Value", &S::value, &S::setValue)
                .help(u"値（True/False）を設定します。", u"Sets the value (True/False).")
                .saved(6, u"Value", false)
                .build(),
            ev.build(), [](ControlSite& site) { return std::make_shared<SingleOption>(site); },
            {1800, 300});
    }();
    return info;
}

void SingleOption::initProperties() {
    d->defaultValue = false;
    loadKeyName(u"");
    loadSectionName(u"");
}

void SingleOption::readProperties(PropertyBag& bag) {
    const Variant ambientFontValue(Font::make(ambientFont()));
    opt().setBackColor(readSaved<std::int32_t>(bag, u"BackColor", color::ButtonFace));
    opt().setCaption(readSaved<std::u16string>(bag, u"Caption", u""));
    opt().setEnabled(readSaved<bool>(bag, u"Enabled", true));
    opt().setFont(readSaved(bag, u"Font", ambientFontValue, fontFromVariant));
    opt().setForeColor(readSaved<std::int32_t>(bag, u"ForeColor", color::ButtonText));
    // The saved Value comes back as it was saved; DefaultValue is not applied at load.
    opt().setValue(readSaved<bool>(bag, u"Value", false));
    d->defaultValue = readSaved<Boolean>(bag, u"DefaultValue", false);
    loadKeyName(readSaved<std::u16string>(bag, u"KeyName", u""));
    loadSectionName(readSaved<std::u16string>(bag, u"SectionName", u""));
}

void SingleOption::writeProperties(PropertyBag& bag) {
    bag.write(u"BackColor", opt().backColor(), color::ButtonFace);
    bag.write(u"Caption", opt().caption(), u"");
    bag.write(u"Enabled", opt().enabled(), true);
    bag.write(u"Font", Variant(Font::make(opt().font())), Variant(Font::make(ambientFont())));
    bag.write(u"ForeColor", opt().foreColor(), color::ButtonText);
    bag.write(u"Value", opt().value(), false);
    bag.write(u"DefaultValue", d->defaultValue, false);
    bag.write(u"KeyName", keyName(), u"");
    bag.write(u"SectionName", sectionName(), u"");
}

void SingleOption::resize() {
    opt().setWidth(innerWidth());
    opt().setHeight(innerHeight());
}

void SingleOption::cls() {
    opt().setValue(false);
}

void SingleOption::restore() {
    // No test whether anything was stored: an empty stored value clears the button.
    opt().setValue(static_cast<bool>(d->storedValue.toBoolean()));
}

void SingleOption::restoreDefault() {
    setValue(d->defaultValue);
}

void SingleOption::store() {
    d->storedValue = Variant(Boolean(opt().value()));
}

std::u16string SingleOption::caption() const {
    return opt().caption();
}

void SingleOption::setCaption(std::u16string c) {
    opt().setCaption(c);
    propertyChanged(u"Caption");
}

Boolean SingleOption::defaultValue() const {
    return d->defaultValue;
}

void SingleOption::setDefaultValue(Boolean v) {
    requireDesignTime();
    d->defaultValue = v;
    propertyChanged(u"DefaultValue");
    setValue(v);
}

Boolean SingleOption::value() const {
    return opt().value();
}

void SingleOption::setValue(Boolean v) {
    opt().setValue(static_cast<bool>(v));
    propertyChanged(u"Value");
}

void SingleOption::widgetEvent(Widget&, WidgetEvent& event) {
    passOn(event);
}

}  // namespace corvex
