#include "corvex/lists/drop_down_combo.h"

#include <string>

#include "corvex/common/error.h"

namespace corvex {

namespace {
constexpr const char16_t* kInnerName = u"cmbComboBoxEx";
// The combo box's own height for the default font: the surface follows it on resize.
constexpr float kComboHeight = 300;

// The inner combo box as the delimited-list rules change it.
class ComboTarget : public lists::ListTarget {
public:
    explicit ComboTarget(ComboBox& cmb) : cmb_(cmb) {}
    void clear() override { cmb_.clear(); }
    void addItem(const std::u16string& text) override { cmb_.addItem(text, -1); }
    std::int32_t listCount() const override { return cmb_.listCount(); }
    void setItemData(std::int32_t i, std::int32_t v) override { cmb_.setItemData(i, v); }
    void setListText(std::int32_t i, const std::u16string& t) override { cmb_.setList(i, t); }

private:
    ComboBox& cmb_;
};

std::u16string numbered(const char16_t* name, std::int32_t i) {
    const std::string digits = std::to_string(i);
    return name + std::u16string(digits.begin(), digits.end());
}
}  // namespace

DropDownControl::DropDownControl(ControlSite& site, ComboStyle style) : ListControlOn(site) {
    ComboBoxSpec spec;
    spec.name = kInnerName;
    spec.listener = this;
    spec.width = innerWidth();
    spec.height = kComboHeight;
    spec.style = style;
    std::unique_ptr<ComboBox> combo = site.widgets().createComboBox(spec);
    auto target = std::make_unique<ComboTarget>(*combo);
    holdInner(std::move(combo), std::move(target));
    cmb().setBackColor(color::WindowBackground);
    cmb().setForeColor(color::WindowText);
    cmb().setFont(ambientFont());
}

DropDownControl::~DropDownControl() = default;

// --- lifecycle ---------------------------------------------------------------------

void DropDownControl::initProperties() {
    initListFields();
    loadKeyName(u"");
    loadSectionName(u"");
}

void DropDownControl::readProperties(PropertyBag& bag) {
    const Variant ambientFontValue(Font::make(ambientFont()));
    cmb().setBackColor(readSaved<std::int32_t>(bag, u"BackColor", color::WindowBackground));
    cmb().setForeColor(readSaved<std::int32_t>(bag, u"ForeColor", color::WindowText));
    cmb().setEnabled(readSaved<bool>(bag, u"Enabled", true));
    cmb().setImeMode(readSaved<std::int16_t>(bag, u"IMEMode", std::int16_t{0}));
    cmb().setLocked(readSaved<bool>(bag, u"Locked", false));
    cmb().setFont(readSaved(bag, u"Font", ambientFontValue, fontFromVariant));
    // Only the items the inner list holds when loading starts are read back (normally
    // none): the list itself comes from ListTexts below.
    for (std::int32_t i = 0; i < cmb().listCount(); ++i) {
        cmb().setItemData(i,
                          readSaved<std::int16_t>(bag, numbered(u"ItemData", i), std::int16_t{0}));
        cmb().setList(i, readSaved<std::u16string>(bag, numbered(u"List", i), u""));
    }
    const auto defaultValue = readSaved<std::int16_t>(bag, u"DefaultValue", std::int16_t{-1});
    auto itemDataNums = readSaved<std::u16string>(bag, u"ItemDataNums", u"");
    loadKeyName(readSaved<std::u16string>(bag, u"KeyName", u""));
    auto listTexts = readSaved<std::u16string>(bag, u"ListTexts", u"");
    loadSectionName(readSaved<std::u16string>(bag, u"SectionName", u""));
    loadListFields(defaultValue, std::move(itemDataNums), std::move(listTexts));
    finishLoading();
}

void DropDownControl::writeProperties(PropertyBag& bag) {
    bag.write(u"BackColor", cmb().backColor(), color::WindowBackground);
    bag.write(u"Enabled", cmb().enabled(), true);
    bag.write(u"ForeColor", cmb().foreColor(), color::WindowText);
    bag.write(u"Font", Variant(Font::make(cmb().font())), Variant(Font::make(ambientFont())));
    bag.write(u"IMEMode", cmb().imeMode(), std::int16_t{0});
    bag.write(u"ListIndex", listIndex(), std::int16_t{-1});
    bag.write(u"Locked", cmb().locked(), false);
    bag.write(u"Value", listIndex(), std::int16_t{-1});
    for (std::int32_t i = 0; i < cmb().listCount(); ++i) {
        bag.write(numbered(u"ItemData", i), cmb().itemData(i), std::int32_t{0});
        bag.write(numbered(u"List", i), cmb().list(i), u"");
    }
    bag.write(u"DefaultValue", defaultValue(), std::int16_t{-1});
    bag.write(u"ItemdataNums", itemDataNums(), u"");
    bag.write(u"KeyName", keyName(), u"");
    bag.write(u"ListTexts", listTexts(), u"");
    bag.write(u"SectionName", sectionName(), u"");
}

void DropDownControl::resize() {
    // The combo box's height follows its font; the control takes that height. Only a
    // different height is put back, so that the host's own resize after setSize ends here.
    Surface& s = site().surface();
    if (s.height() != cmb().height()) s.setSize(s.width(), cmb().height());
    cmb().move(0, 0, innerWidth(), cmb().height());
}

// --- methods -----------------------------------------------------------------------

void DropDownControl::addItem(std::u16string item, std::optional<std::int16_t> index) {
    cmb().addItem(item, index ? *index : -1);
}

void DropDownControl::clear() {
    cmb().clear();
}

void DropDownControl::removeItem(std::int16_t index) {
    cmb().removeItem(index);
}

// --- properties --------------------------------------------------------------------

CorvexIMEMode DropDownControl::imeMode() const {
    return static_cast<CorvexIMEMode>(cmb().imeMode());
}

void DropDownControl::setImeMode(CorvexIMEMode m) {
    cmb().setImeMode(Variant(static_cast<std::int32_t>(m)).toInteger());
    propertyChanged(u"IMEMode");
}

std::int32_t DropDownControl::itemData(std::int16_t index) const {
    return cmb().itemData(index);
}

void DropDownControl::setItemData(std::int16_t index, std::int32_t v) {
    cmb().setItemData(index, v);
    propertyChanged(u"ItemData");
}

std::u16string DropDownControl::list(std::int16_t index) const {
    return cmb().list(index);
}

void DropDownControl::setList(std::int16_t index, std::u16string v) {
    lists::setListEntry(listTarget(), index, v, listTexts());
    refresh();
    propertyChanged(u"List");
}

std::int16_t DropDownControl::listCount() const {
    return static_cast<std::int16_t>(cmb().listCount());
}

bool DropDownControl::locked() const {
    return cmb().locked();
}

void DropDownControl::setLocked(bool v) {
    cmb().setLocked(v);
    propertyChanged(u"Locked");
}

std::int16_t DropDownControl::newIndex() const {
    return static_cast<std::int16_t>(cmb().newIndex());
}

std::int32_t DropDownControl::selLength() const {
    return cmb().selLength();
}

void DropDownControl::setSelLength(std::int32_t v) {
    cmb().setSelLength(v);
    propertyChanged(u"SelLength");
}

std::int32_t DropDownControl::selStart() const {
    return cmb().selStart();
}

void DropDownControl::setSelStart(std::int32_t v) {
    cmb().setSelStart(v);
    propertyChanged(u"SelStart");
}

std::u16string DropDownControl::selText() const {
    return cmb().selText();
}

void DropDownControl::setSelText(std::u16string v) {
    cmb().setSelText(v);
    propertyChanged(u"SelText");
}

bool DropDownControl::sorted() const {
    return cmb().sorted();
}

std::u16string DropDownControl::text() const {
    return cmb().text();
}

void DropDownControl::setText(std::u16string v) {
    cmb().setText(v);
    propertyChanged(u"Text");
}

void DropDownControl::widgetEvent(Widget&, WidgetEvent& event) {
    if (event.type == WidgetEventType::Change) {
        raiseEvent(u"Change");
    } else if (event.type == WidgetEventType::Scroll) {
        raiseEvent(u"Scroll");
    } else {
        passOn(event);
    }
}

// --- the two public classes --------------------------------------------------------

template <class C>
ClassInfo DropDownControl::makeClassInfo(const char16_t* name) {
    EventTable ev;
    events::addTextEvents(ev);
    ev.event(u"Scroll");
    events::addDeclaredLifecycle(ev);
    using B = DropDownControl;
    return ClassInfo(
        name, ClassKind::Control,
        MemberTable<C>()
            .method(u"AddItem", &B::addItem, {u"Item", u"Index"})
            .publishedAs(1, VarType::Empty)
            .help(u"リストに項目を追加します。", u"Adds an item to the list.")
            .method(u"Clear", &B::clear)
            .help(u"リストの項目をすべて削除します。", u"Removes every item from the list.")
            .method(u"Cls", &B::cls)
            .help(u"選択を解除します。", u"Clears the selection.")
            .method(common::Refresh, &B::refresh)
            .method(u"RemoveItem", &B::removeItem, {u"Index"})
            .help(u"リストから項目を削除します。", u"Removes an item from the list.")
            .method(u"Restore", &B::restore)
            .help(u"Storeで保存した値に戻します。", u"Returns to the value saved by Store.")
            .method(u"RestoreDefault", &B::restoreDefault)
            .help(u"値をDefaultValueにします。", u"Sets the value to DefaultValue.")
            .method(u"Store", &B::store)
            .help(u"現在の値を保存します。", u"Saves the current value.")
            .property(common::BackColor, &B::backColor, &B::setBackColor)
            .saved(1, u"BackColor", color::WindowBackground)
            .property(common::DefaultValue, &B::defaultValue, &B::setDefaultValue)
            .designTimeOnly()
            .saved(7, u"DefaultValue", std::int16_t{-1})
            .readAt(7)
            .property(common::Enabled, &B::enabled, &B::setEnabled)
            .saved(2, u"Enabled", true)
            .readAt(3)
            .property(common::Font, &B::font, &B::setFont)
            .saved(4, u"Font", ambientFontDefault)
            .readAt(6)
            .property(common::ForeColor, &B::foreColor, &B::setForeColor)
            .saved(3, u"ForeColor", color::WindowText)
            .readAt(2)
            .property(common::IMEMode, &B::imeMode, &B::setImeMode)
            .saved(5, u"IMEMode", std::int16_t{0})
            .readAt(4)
            .property(u"ItemData", &B::itemData, &B::setItemData, {u"Index"})
            .help(u"項目のデータを設定します。", u"Sets the data number of an item.")
            .property(u"ItemDataNums", &B::itemDataNums, &B::setItemDataNums)
            .help(u"項目のデータを「|」区切りで設定します。",
                  u"Sets the items' data numbers as one \"|\"-delimited string.")
            .saved(8, u"ItemdataNums", u"")
            .readAt(8)
            .readAs(u"ItemDataNums")
            .property(common::KeyName, &B::keyName, &B::setKeyName)
            .saved(9, u"KeyName", u"")
            .readAt(9)
            .property(u"List", &B::list, &B::setList, {u"Index"})
            .help(u"項目の文字列を返します。", u"Returns the text of an item.")
            .getOnly(u"ListCount", &B::listCount)
            .help(u"項目の数を返します。", u"Returns the number of items.")
            .property(u"ListIndex", &B::listIndex, &B::setListIndex)
            .help(u"選択されている項目の番号を設定します。",
                  u"Sets the index of the selected item.")
            .property(u"ListTexts", &B::listTexts, &B::setListTexts)
            .help(u"リストの項目を「|」区切りで設定します。",
                  u"Sets the list's items as one \"|\"-delimited string.")
            .saved(10, u"ListTexts", u"")
            .readAt(10)
            .property(u"Locked", &B::locked, &B::setLocked)
            .help(u"編集の可否を設定します。", u"Sets whether the text may be edited.")
            .saved(6, u"Locked", false)
            .readAt(5)
            .getOnly(u"NewIndex", &B::newIndex)
            .help(u"最後に追加された項目の番号を返します。",
                  u"Returns the index of the item added last.")
            .property(common::SectionName, &B::sectionName, &B::setSectionName)
            .saved(11, u"SectionName", u"")
            .readAt(11)
            .property(common::SelLength, &B::selLength, &B::setSelLength)
            .property(common::SelStart, &B::selStart, &B::setSelStart)
            .property(common::SelText, &B::selText, &B::setSelText)
            .getOnly(u"Sorted", &B::sorted)
            .help(u"項目が並べ替えられるかどうかを返します。",
                  u"Returns whether the items are kept sorted.")
            .property(common::Text, &B::text, &B::setText)
            .property(u"Value", &B::value, &B::setValue)
            .help(u"選択されている項目の番号を設定します。",
                  u"Sets the index of the selected item.")
            .build(),
        ev.build(), [](ControlSite& site) { return std::make_shared<C>(site); }, {2400, 300});
}

DropDownCombo::DropDownCombo(ControlSite& site)
    : DropDownControl(site, ComboStyle::DropDownCombo) {}

const ClassInfo& DropDownCombo::staticClassInfo() {
    static const ClassInfo info = makeClassInfo<DropDownCombo>(u"DropDownCombo");
    return info;
}

DropDownList::DropDownList(ControlSite& site) : DropDownControl(site, ComboStyle::DropDownList) {}

const ClassInfo& DropDownList::staticClassInfo() {
    static const ClassInfo info = makeClassInfo<DropDownList>(u"DropDownList");
    return info;
}

}  // namespace corvex
