#include "corvex/entry/memo_box.h"

#include <array>

namespace corvex {

namespace {
constexpr const char16_t* kInnerName = u"txtMemo";
constexpr int kBoxes = 4;
}  // namespace

struct MemoBox::Private {
    std::array<std::unique_ptr<TextBox>, kBoxes> boxes;
    std::int32_t scrollBars = 0;
    bool copying = false;  // while one box's text is copied into the others
};

MemoBox::MemoBox(ControlSite& site) : TextControl(site), d(std::make_unique<Private>()) {
    for (int i = 0; i < kBoxes; ++i) {
        TextBoxSpec spec;
        spec.name = kInnerName;
        spec.index = static_cast<std::int16_t>(i);
        spec.listener = this;
        spec.width = innerWidth();
        spec.height = innerHeight();
        spec.multiLine = true;
        spec.scrollBars = static_cast<std::int16_t>(i);  // box i has the scroll bars of style i
        spec.visible = i == 0;
        auto box = site.widgets().createTextBox(spec);
        box->setBackColor(color::WindowBackground);
        box->setForeColor(color::WindowText);
        box->setFont(ambientFont());
        d->boxes[static_cast<std::size_t>(i)] = std::move(box);
    }
}

MemoBox::~MemoBox() = default;

void MemoBox::releaseWidgets() {
    for (auto& box : d->boxes) box.reset();
}

const ClassInfo& MemoBox::staticClassInfo() {
    static const ClassInfo info = [] {
        using M = MemoBox;
        EventTable ev;
        events::addTextEvents(ev);
        events::addDeclaredLifecycle(ev);
        return ClassInfo(
            u"MemoBox", ClassKind::Control,
            MemberTable<M>()
                .method(u"Cls", &M::cls)
                .help(u"テキストを消去します。", u"Clears the text.")
                .method(common::Refresh, &M::refresh)
                .method(u"Restore", &M::restore)
                .help(u"Storeで保存したテキストに戻します。",
                      u"Returns to the text saved by Store.")
                .method(u"RestoreDefault", &M::restoreDefault)
                .help(u"テキストをDefaultValueにします。", u"Sets the text to DefaultValue.")
                .method(u"Store", &M::store)
                .help(u"現在のテキストを保存します。", u"Saves the current text.")
                .method(u"CanPropertyChange", &M::canPropertyChange, {u"PropertyName"})
                .byRefAs(0, VarType::String)
                .help(u"常にFalseを返します。", u"Always returns False.")
                .property(common::BackColor, &M::backColor, &M::setBackColor)
                .saved(1, u"BackColor", color::WindowBackground)
                .property(common::DefaultValue, &M::defaultValue, &M::setDefaultValue)
                .designTimeOnly()
                .saved(7, u"DefaultValue", u"")
                .property(common::Enabled, &M::enabled, &M::setEnabled)
                .saved(2, u"Enabled", true)
                // Written third, read fifth, after the other widget settings.
                .property(common::Font, &M::font, &M::setFont)
                .saved(3, u"Font", ambientFontDefault)
                .readAt(5)
                .property(common::ForeColor, &M::foreColor, &M::setForeColor)
                .saved(4, u"ForeColor", color::WindowText)
                .readAt(3)
                .property(common::IMEMode, &M::imeMode, &M::setImeMode)
                .saved(5, u"IMEMode", std::int16_t{0})
                .readAt(4)
                .property(common::KeyName, &M::keyName, &M::setKeyName)
                .saved(8, u"KeyName", u"")
                .property(u"ScrollBars", &M::scrollBars, &M::setScrollBars)
                .help(u"スクロールバーの種類を設定します。", u"Sets which scroll bars are shown.")
                .saved(6, u"ScrollBars", std::int32_t{0})
                .readAs(u"Scrollbars")
                .property(common::SectionName, &M::sectionName, &M::setSectionName)
                .saved(9, u"SectionName", u"")
                .property(common::SelLength, &M::selLength, &M::setSelLength)
                .property(common::SelStart, &M::selStart, &M::setSelStart)
                .property(common::SelText, &M::selText, &M::setSelText)
                .property(common::Text, &M::text, &M::setText)
                .property(u"Value", &M::value, &M::setValue)
                .help(u"値（テキスト）を設定します。", u"Sets the value (the text).")
                .build(),
            ev.build(), [](ControlSite& site) { return std::make_shared<MemoBox>(site); },
            {3600, 1200});
    }();
    return info;
}

template <class F>
void MemoBox::forEachBox(F f) {
    checkAvailable();
    for (auto& box : d->boxes) f(*box);
}

void MemoBox::forEachTextWidget(const std::function<void(TextBox&)>& f) {
    forEachBox(f);
}

TextBox& MemoBox::textWidget() const {
    // With ScrollBars outside 0 to 3 there is no such box, as with any missing element of
    // a control array.
    if (d->scrollBars < 0 || d->scrollBars >= kBoxes) {
        throw Error(err::ControlArrayElementMissing);
    }
    checkAvailable();
    return *d->boxes[static_cast<std::size_t>(d->scrollBars)];
}

void MemoBox::showBoxOf(std::int32_t mode) {
    checkAvailable();
    for (int i = 0; i < kBoxes; ++i) d->boxes[static_cast<std::size_t>(i)]->setVisible(i == mode);
}

// --- lifecycle ---------------------------------------------------------------------

void MemoBox::initProperties() {
    loadDefaultValue(u"");
    loadKeyName(u"");
    loadSectionName(u"");
    d->scrollBars = 0;
}

void MemoBox::readProperties(PropertyBag& bag) {
    const std::int32_t back = readSaved<std::int32_t>(bag, u"BackColor", color::WindowBackground);
    const bool enabled = readSaved<bool>(bag, u"Enabled", true);
    const std::int32_t fore = readSaved<std::int32_t>(bag, u"ForeColor", color::WindowText);
    const std::int16_t ime = readSaved<std::int16_t>(bag, u"IMEMode", std::int16_t{0});
    const FontDesc font =
        readSaved(bag, u"Font", Variant(Font::make(ambientFont())), fontFromVariant);
    forEachBox([&](TextBox& b) {
        b.setBackColor(back);
        b.setEnabled(enabled);
        b.setForeColor(fore);
        b.setImeMode(ime);
        b.setFont(font);
    });
    // Written as "ScrollBars" and read as "Scrollbars": the bag matches names without
    // regard to case, so the setting survives a save and load.
    d->scrollBars = readSaved<std::int32_t>(bag, u"Scrollbars", std::int32_t{0});
    loadDefaultValue(readSaved<std::u16string>(bag, u"DefaultValue", u""));
    loadKeyName(readSaved<std::u16string>(bag, u"KeyName", u""));
    loadSectionName(readSaved<std::u16string>(bag, u"SectionName", u""));
    // Each box gets the default: the first one that changes raises Change once and the
    // copy rule brings the others along, as the numeric boxes raise Change on loading a
    // default; an empty default changes nothing and raises nothing.
    forEachBox([&](TextBox& b) { b.setText(defaultValue()); });
    showBoxOf(d->scrollBars);
}

void MemoBox::writeProperties(PropertyBag& bag) {
    checkAvailable();
    const TextBox& b = *d->boxes[0];
    bag.write(u"BackColor", b.backColor(), color::WindowBackground);
    bag.write(u"Enabled", b.enabled(), true);
    bag.write(u"Font", Variant(Font::make(b.font())), Variant(Font::make(ambientFont())));
    bag.write(u"ForeColor", b.foreColor(), color::WindowText);
    bag.write(u"IMEMode", b.imeMode(), std::int16_t{0});
    bag.write(u"ScrollBars", d->scrollBars, std::int32_t{0});
    bag.write(u"DefaultValue", defaultValue(), u"");
    bag.write(u"KeyName", keyName(), u"");
    bag.write(u"SectionName", sectionName(), u"");
}

void MemoBox::resize() {
    forEachBox([&](TextBox& b) {
        b.setWidth(innerWidth());
        b.setHeight(innerHeight());
    });
}

void MemoBox::widgetEvent(Widget& source, WidgetEvent& event) {
    if (event.type != WidgetEventType::Change) {
        passOn(event);
        return;
    }
    if (d->copying) return;  // the others follow the box that changed; one Change only
    const std::u16string text = dynamic_cast<TextBox&>(source).text();
    d->copying = true;
    try {
        forEachBox([&](TextBox& b) {
            if (&b != &source) b.setText(text);
        });
    } catch (...) {
        d->copying = false;
        throw;
    }
    d->copying = false;
    raiseEvent(u"Change");
}

// --- members -----------------------------------------------------------------------

void MemoBox::cls() {
    forEachBox([](TextBox& b) { b.setText(u""); });
}

void MemoBox::restoreDefault() {
    forEachBox([&](TextBox& b) { b.setText(defaultValue()); });
}

bool MemoBox::canPropertyChange(Variant&) {
    return false;
}

ScrollBarsMode MemoBox::scrollBars() const {
    return static_cast<ScrollBarsMode>(d->scrollBars);
}

void MemoBox::setScrollBars(ScrollBarsMode m) {
    d->scrollBars = static_cast<std::int32_t>(m);
    showBoxOf(d->scrollBars);
    propertyChanged(u"ScrollBars");
}

std::u16string MemoBox::value() const {
    return text();
}

void MemoBox::setValue(std::u16string v) {
    forEachBox([&](TextBox& b) { b.setText(v); });
    propertyChanged(u"Value");
    propertyChanged(u"Text");
}

}  // namespace corvex
