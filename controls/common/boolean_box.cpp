#include "corvex/common/boolean_box.h"

namespace corvex {

namespace {
constexpr const char16_t* kInnerName = u"chkBooleanBox";
}  // namespace

struct BooleanBox::Private {
    std::unique_ptr<CheckBox> chk;
    Boolean alwaysFalseWhenNotEnabled;
    Boolean defaultValue;
    Variant storedValue;
};

BooleanBox::BooleanBox(ControlSite& site) : CommonControl(site), d(std::make_unique<Private>()) {
    WidgetSpec spec;
    spec.name = kInnerName;
    spec.listener = this;
    spec.width = innerWidth();
    spec.height = innerHeight();
    d->chk = site.widgets().createCheckBox(spec);
    // The inner check box's design: its caption is its own name on purpose.
    chk().setCaption(kInnerName);
    chk().setBackColor(color::ButtonFace);
    chk().setForeColor(color::ButtonText);
    chk().setFont(ambientFont());
}

BooleanBox::~BooleanBox() = default;

CheckBox& BooleanBox::chk() const {
    checkAvailable();
    return *d->chk;
}

Widget& BooleanBox::commonWidget() const {
    return chk();
}

void BooleanBox::releaseWidgets() {
    d->chk.reset();
}

const ClassInfo& BooleanBox::staticClassInfo() {
    static const ClassInfo info = [] {
        using B = BooleanBox;
        EventTable ev;
        // DblClick comes before Click in this class's event interface, on purpose.
        ev.event(u"DblClick")
            .event(u"Click")
            .event(u"KeyDown", events::keyCodeShift())
            .event(u"KeyPress", events::keyAscii())
            .event(u"KeyUp", events::keyCodeShift())
            .event(u"MouseDown", events::mouse())
            .event(u"MouseMove", events::mouse())
            .event(u"MouseUp", events::mouse())
            .event(u"Resize");
        events::addDeclaredLifecycle(ev);
        return ClassInfo(
            u"BooleanBox", ClassKind::Control,
            MemberTable<B>()
                .method(u"Cls", &B::cls)
                .help(u"値をFalseにします。", u"Sets the value to False.")
                .method(common::Refresh, &B::refresh)
                .method(u"Restore", &B::restore)
                .help(u"Storeで保存した値に戻します。", u"Returns to the value saved by Store.")
                .method(u"RestoreDefault", &B::restoreDefault)
                .help(u"値をDefaultValueにします。", u"Sets the value to DefaultValue.")
                .method(u"Store", &B::store)
                .help(u"現在の値を保存します。", u"Saves the current value.")
                .property(common::BackColor, &B::backColor, &B::setBackColor)
                .saved(1, u"BackColor", color::ButtonFace)
                .property(common::Caption, &B::caption, &B::setCaption)
                .saved(2, u"Caption", kInnerName)
                .property(common::DefaultValue, &B::defaultValue, &B::setDefaultValue)
                .designTimeOnly()
                .saved(7, u"DefaultValue", false)
                .property(common::Enabled, &B::enabled, &B::setEnabled)
                .saved(3, u"Enabled", true)
                .property(common::Font, &B::font, &B::setFont)
                .saved(5, u"Font", ambientFontDefault)
                .property(common::ForeColor, &B::foreColor, &B::setForeColor)
                .saved(4, u"ForeColor", color::ButtonText)
                .property(common::KeyName, &B::keyName, &B::setKeyName)
                .saved(8, u"KeyName", u"")
                .property(common::SectionName, &B::sectionName, &B::setSectionName)
                .saved(9, u"SectionName", u"")
                .property(u"Value", &B::value, &B::setValue)
                .help(u"値（True/False）を設定します。", u"Sets the value (True/False).")
                .property(u"AlwaysFalseWhenNotEnabled", &B::alwaysFalseWhenNotEnabled,
                          &B::setAlwaysFalseWhenNotEnabled)
                .help(u"使用不可のとき常にFalseを返すかどうかを設定します。",
                      u"Sets whether the value is always False while the control is disabled.")
                .saved(6, u"AlwaysFalseWhenNotEnabled", false)
                .build(),
            ev.build(), [](ControlSite& site) { return std::make_shared<BooleanBox>(site); },
            {1800, 300});
    }();
    return info;
}

void BooleanBox::initProperties() {
    d->alwaysFalseWhenNotEnabled = false;
    d->defaultValue = false;
    loadKeyName(u"");
    loadSectionName(u"");
}

void BooleanBox::readProperties(PropertyBag& bag) {
    const Variant ambientFontValue(Font::make(ambientFont()));
    chk().setBackColor(readSaved<std::int32_t>(bag, u"BackColor", color::ButtonFace));
    chk().setCaption(readSaved<std::u16string>(bag, u"Caption", kInnerName));
    chk().setEnabled(readSaved<bool>(bag, u"Enabled", true));
    chk().setForeColor(readSaved<std::int32_t>(bag, u"ForeColor", color::ButtonText));
    chk().setFont(readSaved(bag, u"Font", ambientFontValue, fontFromVariant));
    d->alwaysFalseWhenNotEnabled = readSaved<Boolean>(bag, u"AlwaysFalseWhenNotEnabled", false);
    d->defaultValue = readSaved<Boolean>(bag, u"DefaultValue", false);
    loadKeyName(readSaved<std::u16string>(bag, u"KeyName", u""));
    loadSectionName(readSaved<std::u16string>(bag, u"SectionName", u""));
    // A loaded control has 0 stored, so that Restore before any Store unchecks it;
    // the check state itself always starts from DefaultValue.
    d->storedValue = Variant(std::int16_t{0});
    setValue(d->defaultValue);
}

void BooleanBox::writeProperties(PropertyBag& bag) {
    bag.write(u"BackColor", chk().backColor(), color::ButtonFace);
    bag.write(u"Caption", chk().caption(), kInnerName);
    bag.write(u"Enabled", chk().enabled(), true);
    bag.write(u"ForeColor", chk().foreColor(), color::ButtonText);
    bag.write(u"Font", Variant(Font::make(chk().font())), Variant(Font::make(ambientFont())));
    bag.write(u"AlwaysFalseWhenNotEnabled", d->alwaysFalseWhenNotEnabled, false);
    bag.write(u"DefaultValue", d->defaultValue, false);
    bag.write(u"KeyName", keyName(), u"");
    bag.write(u"SectionName", sectionName(), u"");
}

void BooleanBox::resize() {
    chk().setHeight(innerHeight());
    chk().setWidth(innerWidth());
    raiseEvent(u"Resize");
}

void BooleanBox::cls() {
    setValue(false);
}

void BooleanBox::restore() {
    if (hostEquals(d->storedValue, u"")) return;  // nothing was ever stored
    chk().setValue(d->storedValue.toInteger());
}

void BooleanBox::restoreDefault() {
    setValue(d->defaultValue);
}

void BooleanBox::store() {
    d->storedValue = Variant(chk().value()).toString();
}

std::u16string BooleanBox::caption() const {
    return chk().caption();
}

void BooleanBox::setCaption(std::u16string c) {
    chk().setCaption(c);
    propertyChanged(u"Caption");
}

Boolean BooleanBox::defaultValue() const {
    return d->defaultValue;
}

void BooleanBox::setDefaultValue(Boolean v) {
    // The table's dispatch refuses a let by name at run time (382); this guards a direct
    // C++ call with the same rule.
    requireDesignTime();
    d->defaultValue = v;
    propertyChanged(u"DefaultValue");
    setValue(v);
}

Boolean BooleanBox::value() const {
    if (d->alwaysFalseWhenNotEnabled && !chk().enabled()) return false;
    // Only a checked box is True: unchecked, grayed and any other state read False.
    return chk().value() == 1;
}

void BooleanBox::setValue(Boolean v) {
    // Only exactly True or False changes the box; other numbers are ignored on purpose.
    if (v.isTrue()) {
        chk().setValue(1);
    } else if (v.isFalse()) {
        chk().setValue(0);
    }
    propertyChanged(u"Value");
}

Boolean BooleanBox::alwaysFalseWhenNotEnabled() const {
    return d->alwaysFalseWhenNotEnabled;
}

void BooleanBox::setAlwaysFalseWhenNotEnabled(Boolean v) {
    d->alwaysFalseWhenNotEnabled = v;
    propertyChanged(u"AlwaysFalseWhenNotEnabled");
}

void BooleanBox::widgetEvent(Widget&, WidgetEvent& event) {
    passOn(event);
}

}  // namespace corvex
