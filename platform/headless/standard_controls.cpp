#include "corvex/headless/standard_controls.h"

#include "corvex/common/control.h"
#include "corvex/common/text.h"

namespace corvex::headless {

namespace {

// One standard widget that fills the control's surface, without saved properties.
template <class W>
class Standard : public Control {
public:
    explicit Standard(ControlSite& site) : Control(site) {}
    void initProperties() override {}
    void readProperties(PropertyBag&) override {}
    void writeProperties(PropertyBag&) override {}

protected:
    void releaseWidgets() override { widget.reset(); }
    void widgetEvent(Widget&, WidgetEvent&) override {}
    W& w() const {
        checkAvailable();
        return *widget;
    }
    std::unique_ptr<W> widget;
};

class StandardTextBox : public Standard<TextBox> {
public:
    explicit StandardTextBox(ControlSite& site) : Standard(site) {
        TextBoxSpec spec;
        spec.name = u"Text1";
        spec.listener = this;
        spec.width = innerWidth();
        spec.height = innerHeight();
        widget = site.widgets().createTextBox(spec);
    }
    const ClassInfo& classInfo() const override { return standardTextBoxClass(); }
    std::u16string text() const { return w().text(); }
    void setText(std::u16string t) { w().setText(t); }
};

class StandardCheckBox : public Standard<CheckBox> {
public:
    explicit StandardCheckBox(ControlSite& site) : Standard(site) {
        WidgetSpec spec;
        spec.name = u"Check1";
        spec.listener = this;
        spec.width = innerWidth();
        spec.height = innerHeight();
        widget = site.widgets().createCheckBox(spec);
    }
    const ClassInfo& classInfo() const override { return standardCheckBoxClass(); }
    std::int16_t value() const { return w().value(); }
    void setValue(std::int16_t v) { w().setValue(v); }
    std::u16string caption() const { return w().caption(); }
    void setCaption(std::u16string c) { w().setCaption(c); }
};

}  // namespace

const ClassInfo& standardTextBoxClass() {
    static const ClassInfo info(
        u"TextBox", ClassKind::Control,
        MemberTable<StandardTextBox>()
            .property(u"Text", &StandardTextBox::text, &StandardTextBox::setText)
            .build(),
        {}, [](ControlSite& site) { return std::make_shared<StandardTextBox>(site); }, {1200, 300});
    return info;
}

const ClassInfo& standardCheckBoxClass() {
    static const ClassInfo info(
        u"CheckBox", ClassKind::Control,
        MemberTable<StandardCheckBox>()
            .property(u"Caption", &StandardCheckBox::caption, &StandardCheckBox::setCaption)
            .property(u"Value", &StandardCheckBox::value, &StandardCheckBox::setValue)
            .build(),
        {}, [](ControlSite& site) { return std::make_shared<StandardCheckBox>(site); },
        {1200, 300});
    return info;
}

const ClassInfo* findStandardClass(std::u16string_view name) {
    for (const ClassInfo* c : {&standardTextBoxClass(), &standardCheckBoxClass()}) {
        if (equalsIgnoringCase(c->name(), name)) return c;
    }
    return nullptr;
}

}  // namespace corvex::headless
