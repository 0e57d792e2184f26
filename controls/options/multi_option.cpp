#include "corvex/options/multi_option.h"

#include <cmath>

#include "corvex/options/captions.h"
#include "corvex/platform/option_widgets.h"

namespace corvex {

namespace {
constexpr const char16_t* kFrameName = u"frameContainer";
constexpr const char16_t* kButtonName = u"optChildOption";
constexpr std::int32_t kLeft = 120;
constexpr std::int32_t kTop = 240;
constexpr std::int32_t kWidth = 1300;
constexpr std::int32_t kHeight = 250;

// Messages of the control's own refusals.
constexpr int kNotBelowOne = 4001;
constexpr int kNotBelowZero = 4002;
constexpr int kNotAboveLast = 4003;
// The bag entries that belong to no public member, at their places among all writes:
// the surface's back style, button 0's left (written before the field that replaces it)
// and the two fields that the OptionLeft and OptionTop members do not show.
std::vector<SavedInfo> unpublishedEntries() {
    const auto entry = [](const char16_t* name, Variant def, int order) {
        SavedInfo s;
        s.writeName = s.readName = name;
        s.defaultValue = std::move(def);
        s.writeOrder = s.readOrder = order;
        return s;
    };
    return {entry(u"BackStyle", std::int32_t{1}, 1), entry(u"OptionLeft", kLeft, 10),
            entry(u"OptionLeft", kLeft, 17), entry(u"OptionTop", kTop, 20)};
}
}  // namespace

struct MultiOption::Private {
    std::unique_ptr<Frame> frame;
    std::unique_ptr<OptionButtonArray> buttons;
    std::int32_t backStyle = 1;
    std::int16_t defaultValue = 0;
    std::int32_t horiSpace = 0;
    std::u16string optionCaptions;
    std::int32_t optionHeight = kHeight;
    std::int32_t optionLeft = kLeft;
    std::int16_t optionNum = 1;
    std::int16_t optionNumPerLine = 0;
    std::int32_t optionTop = kTop;
    std::int32_t optionWidth = kWidth;
    std::int32_t vartSpace = 0;
    mutable std::int16_t lastValue = 0;
    Variant storedValue;
};

MultiOption::MultiOption(ControlSite& site) : CommonControl(site), d(std::make_unique<Private>()) {
    WidgetSpec f;
    f.name = kFrameName;
    f.listener = this;
    f.width = innerWidth();
    f.height = innerHeight();
    d->frame = site.widgets().createFrame(f);
    d->frame->setBackColor(color::ButtonFace);
    d->frame->setForeColor(color::ButtonText);
    d->frame->setFont(ambientFont());
    // Button 0 of the design stands at the default left and top.
    OptionButtonSpec b;
    b.name = kButtonName;
    b.index = 0;
    b.listener = this;
    b.container = d->frame.get();
    b.left = kLeft;
    b.top = kTop;
    b.width = kWidth;
    b.height = kHeight;
    d->buttons = site.widgets().createOptionButtonArray(b);
    button(0).setBackColor(color::ButtonFace);
    button(0).setForeColor(color::ButtonText);
    button(0).setFont(ambientFont());
}

MultiOption::~MultiOption() = default;

Frame& MultiOption::frame() const {
    checkAvailable();
    return *d->frame;
}

OptionButton& MultiOption::button(std::int16_t index) const {
    checkAvailable();
    return d->buttons->element(index);
}

void MultiOption::forEachButton(const std::function<void(OptionButton&)>& f) const {
    checkAvailable();
    const std::int16_t n = d->buttons->count();
    for (std::int16_t i = 0; i < n; ++i) f(d->buttons->element(i));
}

Widget& MultiOption::commonWidget() const {
    return frame();
}

void MultiOption::releaseWidgets() {
    d->buttons.reset();
    d->frame.reset();
}

void MultiOption::lookChanged() {
    refresh();
}

const MessageTable& MultiOption::messageTable() const {
    static const MessageTable table(
        {{kNotBelowOne, u"1以上の数値を入力して下さい", u"Enter not less than 1."},
         {kNotBelowZero, u"0以上の値を入力して下さい", u"Enter not less than 0."},
         {kNotAboveLast, u"(オプションの数-1) 以下の値を入力して下さい",
          u"Enter below (number of optionbuttons - 1)."}},
        undefinedWithStop());
    return table;
}

const ClassInfo& MultiOption::staticClassInfo() {
    static const ClassInfo info = [] {
        using M = MultiOption;
        EventTable ev;
        // Only the surface's mouse events are raised; the others are part of the event
        // interface but never raised, since clicks on the buttons raise nothing.
        ev.declared(u"Change")
            .declared(u"Click")
            .declared(u"DblClick")
            .declared(u"KeyDown", events::keyCodeShift())
            .declared(u"KeyPress", events::keyAscii())
            .declared(u"KeyUp", events::keyCodeShift())
            .event(u"MouseDown", events::mouse())
            .event(u"MouseMove", events::mouse())
            .event(u"MouseUp", events::mouse());
        events::addDeclaredLifecycle(ev);
        return ClassInfo(
            u"MultiOption", ClassKind::Control,
            MemberTable<M>()
                .method(u"Cls", &M::cls)
                .help(u"すべてのオプションボタンを未選択にします。", u"Clears every option button.")
                .method(common::Refresh, &M::refresh)
                .method(u"Restore", &M::restore)
                .help(u"Storeで保存した値に戻します。", u"Returns to the value saved by Store.")
                .method(u"RestoreDefault", &M::restoreDefault)
                .help(u"値をDefaultValueにします。", u"Sets the value to DefaultValue.")
                .method(u"Store", &M::store)
                .help(u"現在の値を保存します。", u"Saves the current value.")
                .property(common::BackColor, &M::backColor, &M::setBackColor)
                .saved(1, u"BackColor", color::ButtonFace)
                .property(u"BorderStyle", &M::borderStyle, &M::setBorderStyle)
                .help(u"枠の境界線のスタイルを設定します。", u"Sets the border style of the frame.")
                .saved(2, u"BorderStyle", std::int16_t{1})
                .property(common::Caption, &M::caption, &M::setCaption)
                .saved(3, u"Caption", u"")
                .property(u"CaptionColor", &M::captionColor, &M::setCaptionColor)
                .help(u"枠の表示文字列の色を設定します。",
                      u"Sets the colour of the frame's caption.")
                .saved(5, u"CaptionColor", color::ButtonText)
                .property(u"CaptionFont", &M::captionFont, &M::setCaptionFont)
                .help(u"枠の表示文字列のフォントを設定します。",
                      u"Sets the font of the frame's caption.")
                .saved(6, u"CaptionFont", ambientFontDefault)
                .property(common::DefaultValue, &M::defaultValue, &M::setDefaultValue)
                .designTimeOnly()
                .saved(10, u"DefaultValue", std::int16_t{0})
                .property(common::Enabled, &M::enabled, &M::setEnabled)
                .saved(4, u"Enabled", true)
                .property(u"HoriSpace", &M::horiSpace, &M::setHoriSpace)
                .help(u"オプションボタンの横の間隔を設定します。",
                      u"Sets the horizontal spacing between option buttons.")
                .saved(11, u"HoriSpace", std::int32_t{0})
                .property(common::KeyName, &M::keyName, &M::setKeyName)
                .saved(12, u"KeyName", u"")
                .property(u"OptionBackColor", &M::optionBackColor, &M::setOptionBackColor)
                .help(u"オプションボタンの背景色を設定します。",
                      u"Sets the background colour of the option buttons.")
                .saved(7, u"OptionBackColor", color::ButtonFace)
                .property(u"OptionCaptions", &M::optionCaptions, &M::setOptionCaptions)
                .help(u"オプションボタンの表示文字列を「|」区切りで設定します。",
                      u"Sets the option buttons' captions as one \"|\"-delimited string.")
                .saved(13, u"OptionCaptions", u"")
                .property(u"OptionFont", &M::optionFont, &M::setOptionFont)
                .help(u"オプションボタンのフォントを設定します。",
                      u"Sets the font of the option buttons.")
                .saved(9, u"OptionFont", ambientFontDefault)
                .property(u"OptionForeColor", &M::optionForeColor, &M::setOptionForeColor)
                .help(u"オプションボタンの文字色を設定します。",
                      u"Sets the text colour of the option buttons.")
                .saved(8, u"OptionForeColor", color::ButtonText)
                .property(u"OptionHeight", &M::optionHeight, &M::setOptionHeight)
                .help(u"オプションボタンの高さを設定します。",
                      u"Sets the height of the option buttons.")
                .saved(14, u"OptionHeight", kHeight)
                .property(u"OptionLeft", &M::optionLeft, &M::setOptionLeft)
                .help(u"先頭のオプションボタンの左端の位置を設定します。",
                      u"Sets the left edge of the first option button.")
                .property(u"OptionNum", &M::optionNum, &M::setOptionNum)
                .help(u"オプションボタンの数を設定します。", u"Sets the number of option buttons.")
                .saved(15, u"OptionNum", std::int16_t{1})
                .property(u"OptionNumPerLine", &M::optionNumPerLine, &M::setOptionNumPerLine)
                .help(u"1行に並べるオプションボタンの数を設定します。",
                      u"Sets the number of option buttons per row.")
                .saved(16, u"OptionNumPerLine", std::int16_t{0})
                .property(u"OptionTop", &M::optionTop, &M::setOptionTop)
                .help(u"先頭のオプションボタンの上端の位置を設定します。",
                      u"Sets the top edge of the first option button.")
                .property(u"OptionWidth", &M::optionWidth, &M::setOptionWidth)
                .help(u"オプションボタンの幅を設定します。",
                      u"Sets the width of the option buttons.")
                .saved(17, u"OptionWidth", kWidth)
                .property(common::SectionName, &M::sectionName, &M::setSectionName)
                .saved(18, u"SectionName", u"")
                .property(u"Value", &M::value, &M::setValue)
                .help(u"選択されているオプションボタンの番号を設定します。",
                      u"Sets the index of the selected option button.")
                .property(u"VartSpace", &M::vartSpace, &M::setVartSpace)
                .help(u"オプションボタンの行の間隔を設定します。",
                      u"Sets the vertical spacing between rows of option buttons.")
                .saved(19, u"VartSpace", std::int32_t{0})
                .build(),
            ev.build(), [](ControlSite& site) { return std::make_shared<MultiOption>(site); },
            {2880, 960}, unpublishedEntries());
    }();
    return info;
}

// --- arrangement ------------------------------------------------------------------------

void MultiOption::arrange() {
    checkAvailable();
    const auto captions = captionsForButtons(d->optionCaptions, d->optionNum);
    d->buttons->element(0).setCaption(captions[0]);
    syncButtonCount();
    placeButtons(captions);
    // A default left beyond the buttons (OptionNum lowered after it was set) selects none.
    if (d->buttons->exists(d->defaultValue)) d->buttons->element(d->defaultValue).setValue(true);
    refresh();
}

void MultiOption::syncButtonCount() {
    // Elements go and come in rising order; element 0 is the design's and always stays.
    OptionButtonArray& buttons = *d->buttons;
    const std::int16_t n = buttons.count();
    for (std::int16_t i = std::max<std::int16_t>(d->optionNum, 1); i < n; ++i) buttons.remove(i);
    for (std::int16_t i = n; i < d->optionNum; ++i) buttons.create(i);
}

void MultiOption::placeButtons(const std::vector<std::u16string>& captions) {
    OptionButtonArray& buttons = *d->buttons;
    const auto width = static_cast<float>(d->optionWidth);
    const auto height = static_cast<float>(d->optionHeight);
    OptionButton& first = buttons.element(0);
    first.move(first.left(), first.top(), width, height);
    // The steps are reckoned from the stored integers in double precision.
    const OptionLayout layout{
        first.left(),         first.top(),          double(d->optionWidth), double(d->optionHeight),
        double(d->horiSpace), double(d->vartSpace), d->optionNumPerLine};
    for (std::int16_t i = 1; i < buttons.count(); ++i) {
        const OptionButton& p = buttons.element(static_cast<std::int16_t>(i - 1));
        const OptionPlace at = nextOptionPlace(layout, i, {first.left(), first.top()},
                                               {p.left(), p.top()}, p.height());
        OptionButton& b = buttons.element(i);
        b.move(at.left, at.top, width, height);
        b.setCaption(captions[static_cast<std::size_t>(i)]);
        b.setVisible(true);
    }
}

// --- lifecycle --------------------------------------------------------------------------

void MultiOption::initProperties() {
    d->defaultValue = 0;
    d->horiSpace = 0;
    d->optionCaptions.clear();
    d->optionHeight = kHeight;
    d->optionLeft = kLeft;
    d->optionNum = 1;
    d->optionNumPerLine = 0;
    d->optionTop = kTop;
    d->optionWidth = kWidth;
    d->vartSpace = 0;
    loadKeyName(u"");
    loadSectionName(u"");
}

void MultiOption::readProperties(PropertyBag& bag) {
    const Variant ambientFontValue(Font::make(ambientFont()));
    d->backStyle = readSaved<std::int32_t>(bag, u"BackStyle", std::int32_t{1});
    frame().setBackColor(readSaved<std::int32_t>(bag, u"BackColor", color::ButtonFace));
    frame().setBorderStyle(readSaved<std::int16_t>(bag, u"BorderStyle", std::int16_t{1}));
    frame().setCaption(readSaved<std::u16string>(bag, u"Caption", u""));
    frame().setEnabled(readSaved<bool>(bag, u"Enabled", true));
    frame().setForeColor(readSaved<std::int32_t>(bag, u"CaptionColor", color::ButtonText));
    frame().setFont(readSaved(bag, u"CaptionFont", ambientFontValue, fontFromVariant));
    OptionButton& first = button(0);
    first.setBackColor(readSaved<std::int32_t>(bag, u"OptionBackColor", color::ButtonFace));
    first.setForeColor(readSaved<std::int32_t>(bag, u"OptionForeColor", color::ButtonText));
    const float left = readSaved<float>(bag, u"OptionLeft", kLeft);
    first.move(left, first.top(), first.width(), first.height());
    first.setFont(readSaved(bag, u"OptionFont", ambientFontValue, fontFromVariant));
    // The fields come straight from the bag, without the setters' checks: a saved
    // OptionNumPerLine of 0 (one row) is kept although the setter refuses it.
    d->defaultValue = readSaved<std::int16_t>(bag, u"DefaultValue", std::int16_t{0});
    d->horiSpace = readSaved<std::int32_t>(bag, u"HoriSpace", std::int32_t{0});
    loadKeyName(readSaved<std::u16string>(bag, u"KeyName", u""));
    d->optionCaptions = readSaved<std::u16string>(bag, u"OptionCaptions", u"");
    d->optionHeight = readSaved<std::int32_t>(bag, u"OptionHeight", kHeight);
    d->optionLeft = readSaved<std::int32_t>(bag, u"OptionLeft", kLeft);
    d->optionNum = readSaved<std::int16_t>(bag, u"OptionNum", std::int16_t{1});
    d->optionNumPerLine = readSaved<std::int16_t>(bag, u"OptionNumPerLine", std::int16_t{0});
    d->optionTop = readSaved<std::int32_t>(bag, u"OptionTop", kTop);
    d->optionWidth = readSaved<std::int32_t>(bag, u"OptionWidth", kWidth);
    loadSectionName(readSaved<std::u16string>(bag, u"SectionName", u""));
    d->vartSpace = readSaved<std::int32_t>(bag, u"VartSpace", std::int32_t{0});
    arrange();
    const bool on = frame().enabled();
    forEachButton([on](OptionButton& b) { b.setEnabled(on); });
    setValue(d->defaultValue);
}

void MultiOption::writeProperties(PropertyBag& bag) {
    const Variant ambientFontValue(Font::make(ambientFont()));
    bag.write(u"BackStyle", d->backStyle, std::int32_t{1});
    bag.write(u"BackColor", frame().backColor(), color::ButtonFace);
    bag.write(u"BorderStyle", frame().borderStyle(), std::int16_t{1});
    bag.write(u"Caption", frame().caption(), u"");
    bag.write(u"Enabled", frame().enabled(), true);
    bag.write(u"CaptionColor", frame().foreColor(), color::ButtonText);
    bag.write(u"CaptionFont", Variant(Font::make(frame().font())), ambientFontValue);
    bag.write(u"OptionBackColor", button(0).backColor(), color::ButtonFace);
    bag.write(u"OptionForeColor", button(0).foreColor(), color::ButtonText);
    // "OptionLeft" goes twice, button 0's left first and the stored field after it; in a
    // bag the later write wins, so the field is what is saved.
    bag.write(u"OptionLeft", button(0).left(), kLeft);
    bag.write(u"OptionFont", Variant(Font::make(button(0).font())), ambientFontValue);
    bag.write(u"DefaultValue", d->defaultValue, std::int16_t{0});
    bag.write(u"HoriSpace", d->horiSpace, std::int32_t{0});
    bag.write(u"KeyName", keyName(), u"");
    bag.write(u"OptionCaptions", d->optionCaptions, u"");
    bag.write(u"OptionHeight", d->optionHeight, kHeight);
    bag.write(u"OptionLeft", d->optionLeft, kLeft);
    bag.write(u"OptionNum", d->optionNum, std::int16_t{1});
    bag.write(u"OptionNumPerLine", d->optionNumPerLine, std::int16_t{0});
    bag.write(u"OptionTop", d->optionTop, kTop);
    bag.write(u"OptionWidth", d->optionWidth, kWidth);
    bag.write(u"SectionName", sectionName(), u"");
    bag.write(u"VartSpace", d->vartSpace, std::int32_t{0});
}

void MultiOption::resize() {
    Frame& f = frame();
    f.move(f.left(), f.top(), innerWidth(), innerHeight());
}

void MultiOption::show() {
    arrange();
}

void MultiOption::surfaceMouse(const WidgetEvent& event) {
    passOnMouse(event);
}

void MultiOption::widgetEvent(Widget&, WidgetEvent&) {
    // Clicks, keys and mouse events on the frame and the buttons raise nothing.
}

// --- methods ----------------------------------------------------------------------------

void MultiOption::cls() {
    forEachButton([](OptionButton& b) { b.setValue(false); });
}

void MultiOption::restore() {
    if (hostEquals(d->storedValue, u"")) return;  // nothing was ever stored
    setValue(d->storedValue.toInteger());
}

void MultiOption::restoreDefault() {
    setValue(d->defaultValue);
}

void MultiOption::store() {
    d->storedValue = Variant(value());
}

// --- frame properties -------------------------------------------------------------------

MultiOptionBorder MultiOption::borderStyle() const {
    return static_cast<MultiOptionBorder>(frame().borderStyle());
}

void MultiOption::setBorderStyle(MultiOptionBorder s) {
    frame().setBorderStyle(Variant(static_cast<std::int32_t>(s)).toInteger());
    propertyChanged(u"BorderStyle");
    refresh();
}

std::u16string MultiOption::caption() const {
    return frame().caption();
}

void MultiOption::setCaption(std::u16string c) {
    frame().setCaption(c);
    propertyChanged(u"Caption");
}

std::int32_t MultiOption::captionColor() const {
    return frame().foreColor();
}

void MultiOption::setCaptionColor(std::int32_t c) {
    frame().setForeColor(c);
    propertyChanged(u"CaptionColor");
    refresh();
}

std::shared_ptr<Font> MultiOption::captionFont() const {
    return Font::make(frame().font());
}

void MultiOption::setCaptionFont(std::shared_ptr<Font> f) {
    if (!f) throw Error(err::ObjectRequired);
    frame().setFont(f->desc());
    propertyChanged(u"CaptionFont");
    refresh();
}

bool MultiOption::enabled() const {
    return frame().enabled();
}

void MultiOption::setEnabled(bool v) {
    frame().setEnabled(v);
    forEachButton([v](OptionButton& b) { b.setEnabled(v); });
    propertyChanged(u"Enabled");
}

// --- button look --------------------------------------------------------------------------

std::int32_t MultiOption::optionBackColor() const {
    return button(0).backColor();
}

void MultiOption::setOptionBackColor(std::int32_t c) {
    forEachButton([c](OptionButton& b) { b.setBackColor(c); });
    propertyChanged(u"OptionBackColor");
    refresh();
}

std::shared_ptr<Font> MultiOption::optionFont() const {
    return Font::make(button(0).font());
}

void MultiOption::setOptionFont(std::shared_ptr<Font> f) {
    if (!f) throw Error(err::ObjectRequired);
    const FontDesc desc = f->desc();
    forEachButton([&desc](OptionButton& b) { b.setFont(desc); });
    propertyChanged(u"OptionFont");
    refresh();
}

std::int32_t MultiOption::optionForeColor() const {
    return button(0).foreColor();
}

void MultiOption::setOptionForeColor(std::int32_t c) {
    forEachButton([c](OptionButton& b) { b.setForeColor(c); });
    propertyChanged(u"OptionForeColor");
    refresh();
}

// --- layout properties ----------------------------------------------------------------------

std::int32_t MultiOption::horiSpace() const {
    return d->horiSpace;
}

void MultiOption::setHoriSpace(std::int32_t v) {
    d->horiSpace = v;
    arrange();
    propertyChanged(u"HoriSpace");
}

std::u16string MultiOption::optionCaptions() const {
    return d->optionCaptions;
}

void MultiOption::setOptionCaptions(std::u16string t) {
    d->optionCaptions = std::move(t);
    propertyChanged(u"OptionCaptions");
    arrange();
}

std::int32_t MultiOption::optionHeight() const {
    return d->optionHeight;
}

void MultiOption::setOptionHeight(std::int32_t v) {
    d->optionHeight = v;
    propertyChanged(u"OptionHeight");
    arrange();
}

std::int32_t MultiOption::optionLeft() const {
    return static_cast<std::int32_t>(std::lround(button(0).left()));
}

void MultiOption::setOptionLeft(std::int32_t v) {
    // Moves button 0 only: the saved field keeps its value (see writeProperties).
    OptionButton& first = button(0);
    first.move(static_cast<float>(v), first.top(), first.width(), first.height());
    propertyChanged(u"OptionLeft");
    arrange();
}

std::int16_t MultiOption::optionNum() const {
    return d->optionNum;
}

void MultiOption::setOptionNum(std::int16_t v) {
    if (v < 1) return showRefusal({kNotBelowOne});
    d->optionNum = v;
    arrange();
    propertyChanged(u"OptionNum");
}

std::int16_t MultiOption::optionNumPerLine() const {
    return d->optionNumPerLine;
}

void MultiOption::setOptionNumPerLine(std::int16_t v) {
    if (v < 1) return showRefusal({kNotBelowOne});
    d->optionNumPerLine = v;
    arrange();
    propertyChanged(u"OptionNumPerLine");
}

std::int32_t MultiOption::optionTop() const {
    return static_cast<std::int32_t>(std::lround(button(0).top()));
}

void MultiOption::setOptionTop(std::int32_t v) {
    OptionButton& first = button(0);
    first.move(first.left(), static_cast<float>(v), first.width(), first.height());
    propertyChanged(u"OptionTop");
    arrange();
}

std::int32_t MultiOption::optionWidth() const {
    return d->optionWidth;
}

void MultiOption::setOptionWidth(std::int32_t v) {
    d->optionWidth = v;
    propertyChanged(u"OptionWidth");
    arrange();
}

std::int32_t MultiOption::vartSpace() const {
    return d->vartSpace;
}

void MultiOption::setVartSpace(std::int32_t v) {
    d->vartSpace = v;
    propertyChanged(u"VartSpace");
    arrange();
}

// --- value --------------------------------------------------------------------------------

std::int16_t MultiOption::defaultValue() const {
    return d->defaultValue;
}

void MultiOption::setDefaultValue(std::int16_t v) {
    requireDesignTime();
    if (v < 0) return showRefusal({kNotBelowZero});
    if (v > d->optionNum - 1) return showRefusal({kNotAboveLast});
    d->defaultValue = v;
    propertyChanged(u"DefaultValue");
    setValue(v);
}

std::int16_t MultiOption::value() const {
    checkAvailable();
    const std::int16_t n = d->buttons->count();
    for (std::int16_t i = 0; i < n; ++i) {
        if (d->buttons->element(i).value()) return d->lastValue = i;
    }
    return d->lastValue;  // none selected: the last one seen
}

void MultiOption::setValue(std::int16_t v) {
    d->lastValue = v;
    button(v).setValue(true);  // the group clears the others; 340 for a missing button
    propertyChanged(u"Value");
}

}  // namespace corvex
