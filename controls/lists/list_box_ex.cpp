#include "corvex/lists/list_box_ex.h"

#include <algorithm>

#include "corvex/common/error.h"
#include "corvex/platform/list_box.h"

namespace corvex {

namespace {
constexpr const char16_t* kInnerName = u"lstListBoxEx";
// The terminating character the measuring counts after every item: a constant margin.
constexpr char16_t kTerminator = u'\0';
}  // namespace

struct ListBoxEx::Private {
    // The rebuild's view of the list: it clears the inner list directly (the widest item
    // stays) and adds every element through AddItem, so each is measured.
    class Target : public lists::ListTarget {
    public:
        explicit Target(ListBoxEx& c) : c_(c) {}
        void clear() override { c_.lst().clear(); }
        void addItem(const std::u16string& text) override { c_.addItem(text, std::int16_t{0}); }
        std::int32_t listCount() const override { return c_.lst().listCount(); }
        void setItemData(std::int32_t i, std::int32_t v) override { c_.lst().setItemData(i, v); }
        void setListText(std::int32_t i, const std::u16string& t) override {
            c_.lst().setList(i, t);
        }

    private:
        ListBoxEx& c_;
    };

    bool autoRefresh = true;
    std::int32_t widest = 0;
};

ListBoxEx::ListBoxEx(ControlSite& site) : ListControlOn(site), d(std::make_unique<Private>()) {
    ListBoxSpec spec;
    spec.name = kInnerName;
    spec.listener = this;
    spec.width = innerWidth();
    spec.height = innerHeight();
    holdInner(site.widgets().createListBox(spec), std::make_unique<Private::Target>(*this));
    lst().setBackColor(color::WindowBackground);
    lst().setForeColor(color::WindowText);
    lst().setFont(ambientFont());
}

ListBoxEx::~ListBoxEx() = default;

// --- lifecycle ---------------------------------------------------------------------

void ListBoxEx::initProperties() {
    initListFields();
    d->autoRefresh = true;
    d->widest = 0;
    loadKeyName(u"");
    loadSectionName(u"");
}

void ListBoxEx::readProperties(PropertyBag& bag) {
    const Variant ambientFontValue(Font::make(ambientFont()));
    lst().setBackColor(readSaved<std::int32_t>(bag, u"BackColor", color::WindowBackground));
    lst().setEnabled(readSaved<bool>(bag, u"Enabled", true));
    lst().setForeColor(readSaved<std::int32_t>(bag, u"ForeColor", color::WindowText));
    lst().setImeMode(readSaved<std::int16_t>(bag, u"IMEMode", std::int16_t{0}));
    lst().setFont(readSaved(bag, u"Font", ambientFontValue, fontFromVariant));
    d->autoRefresh = readSaved<bool>(bag, u"AutoRefreshScrollBar", true);
    const auto defaultValue = readSaved<std::int16_t>(bag, u"DefaultValue", std::int16_t{-1});
    auto itemDataNums = readSaved<std::u16string>(bag, u"ItemDataNums", u"");
    loadKeyName(readSaved<std::u16string>(bag, u"KeyName", u""));
    auto listTexts = readSaved<std::u16string>(bag, u"ListTexts", u"");
    loadSectionName(readSaved<std::u16string>(bag, u"SectionName", u""));
    loadListFields(defaultValue, std::move(itemDataNums), std::move(listTexts));
    // The rebuild measures every item again: the widest item is not saved.
    finishLoading();
}

void ListBoxEx::writeProperties(PropertyBag& bag) {
    bag.write(u"BackColor", lst().backColor(), color::WindowBackground);
    bag.write(u"Enabled", lst().enabled(), true);
    bag.write(u"Font", Variant(Font::make(lst().font())), Variant(Font::make(ambientFont())));
    bag.write(u"ForeColor", lst().foreColor(), color::WindowText);
    bag.write(u"IMEMode", lst().imeMode(), std::int16_t{0});
    bag.write(u"AutoRefreshScrollBar", d->autoRefresh, true);
    bag.write(u"DefaultValue", defaultValue(), std::int16_t{-1});
    bag.write(u"ItemdataNums", itemDataNums(), u"");
    bag.write(u"KeyName", keyName(), u"");
    bag.write(u"ListTexts", listTexts(), u"");
    bag.write(u"SectionName", sectionName(), u"");
}

void ListBoxEx::resize() {
    // The list fills the control; it may round its own height down to whole items.
    lst().move(lst().left(), lst().top(), innerWidth(), innerHeight());
}

// --- measuring and the scroll bar --------------------------------------------------

std::int32_t ListBoxEx::measure(const std::u16string& text) const {
    // The terminating character is measured too, so an empty text is one character wide.
    std::u16string counted = text;
    counted.push_back(kTerminator);
    return site().textMeasurer().textWidth(counted, lst().font());
}

void ListBoxEx::remeasureAll() {
    d->widest = 0;
    for (std::int32_t i = 0; i < lst().listCount(); ++i) {
        d->widest = std::max(d->widest, measure(lst().list(i)));
    }
}

void ListBoxEx::refreshScrollBar() {
    // The outer width (border and any vertical bar included) in pixels, converted with the
    // vertical twips per pixel whatever the horizontal one is: that is how it always was.
    const double listPixels = lst().width() / site().screen().twipsPerPixelY();
    const std::int32_t extent = listPixels >= d->widest ? 0 : d->widest;
    lst().setHorizontalExtent(extent);
}

std::int32_t ListBoxEx::widestItem() const {
    return d->widest;
}

// --- methods -----------------------------------------------------------------------

void ListBoxEx::addItem(std::u16string item, std::optional<std::int16_t> index) {
    // Index 0 appends like no index at all: nothing can be inserted at the top.
    const std::int16_t at = index.value_or(0);
    lst().addItem(item, at == 0 ? -1 : at);
    d->widest = std::max(d->widest, measure(item));
    if (d->autoRefresh) refreshScrollBar();
}

void ListBoxEx::clear() {
    lst().clear();
    d->widest = 0;
    refreshScrollBar();
}

void ListBoxEx::removeItem(std::int16_t index) {
    const std::u16string removed = lst().list(index);
    lst().removeItem(index);
    if (measure(removed) >= d->widest) remeasureAll();
    if (d->autoRefresh) refreshScrollBar();
}

// --- properties --------------------------------------------------------------------

bool ListBoxEx::autoRefreshScrollBar() const {
    return d->autoRefresh;
}

void ListBoxEx::setAutoRefreshScrollBar(bool v) {
    d->autoRefresh = v;
}

std::int16_t ListBoxEx::columns() const {
    return lst().columns();
}

void ListBoxEx::setColumns(std::int16_t v) {
    lst().setColumns(v);
    propertyChanged(u"Columns");
}

CorvexIMEMode ListBoxEx::imeMode() const {
    return static_cast<CorvexIMEMode>(lst().imeMode());
}

void ListBoxEx::setImeMode(CorvexIMEMode m) {
    lst().setImeMode(Variant(static_cast<std::int32_t>(m)).toInteger());
    propertyChanged(u"IMEMode");
}

bool ListBoxEx::integralHeight() const {
    return lst().integralHeight();
}

std::int32_t ListBoxEx::itemData(std::int16_t index) const {
    return lst().itemData(index);
}

void ListBoxEx::setItemData(std::int16_t index, std::int32_t v) {
    lst().setItemData(index, v);
    propertyChanged(u"ItemData");
}

std::u16string ListBoxEx::list(std::int16_t index) const {
    return lst().list(index);
}

void ListBoxEx::setList(std::int16_t index, std::u16string v) {
    lst().setList(index, v);
    propertyChanged(u"List");
}

std::int16_t ListBoxEx::listCount() const {
    return static_cast<std::int16_t>(lst().listCount());
}

std::int16_t ListBoxEx::multiSelect() const {
    return lst().multiSelect();
}

std::int16_t ListBoxEx::newIndex() const {
    return static_cast<std::int16_t>(lst().newIndex());
}

std::int16_t ListBoxEx::selCount() const {
    return static_cast<std::int16_t>(lst().selCount());
}

bool ListBoxEx::selected(std::int16_t index) const {
    return lst().selected(index);
}

void ListBoxEx::setSelected(std::int16_t index, bool v) {
    lst().setSelected(index, v);
    propertyChanged(u"Selected");
}

bool ListBoxEx::sorted() const {
    return lst().sorted();
}

std::u16string ListBoxEx::text() const {
    return lst().text();
}

void ListBoxEx::setText(std::u16string v) {
    lst().setText(v);
    propertyChanged(u"Text");
}

std::int16_t ListBoxEx::topIndex() const {
    return static_cast<std::int16_t>(lst().topIndex());
}

void ListBoxEx::setTopIndex(std::int16_t v) {
    lst().setTopIndex(v);
    propertyChanged(u"TopIndex");
}

void ListBoxEx::widgetEvent(Widget&, WidgetEvent& event) {
    if (event.type == WidgetEventType::ItemCheck) {
        Variant args[] = {Variant(event.item)};
        raiseEvent(u"ItemCheck", args);
        event.item = args[0].toInteger();
        return;
    }
    passOn(event);
}

// --- the class table ---------------------------------------------------------------

const ClassInfo& ListBoxEx::staticClassInfo() {
    static const ClassInfo info = [] {
        EventTable ev;
        ev.event(u"Click")
            .event(u"DblClick")
            .event(u"KeyDown", events::keyCodeShift())
            .event(u"KeyPress", events::keyAscii())
            .event(u"KeyUp", events::keyCodeShift())
            .event(u"MouseDown", events::mouse())
            .event(u"MouseMove", events::mouse())
            .event(u"MouseUp", events::mouse())
            .event(u"ItemCheck", {{u"Item", VarType::Integer, false, true}});
        events::addDeclaredLifecycle(ev);
        using C = ListBoxEx;
        return ClassInfo(
            u"ListBoxEx", ClassKind::Control,
            MemberTable<C>()
                .method(u"AddItem", &C::addItem, {u"strItem", u"intIndex"})
                .help(u"リストに項目を追加します。", u"Adds an item to the list.")
                .method(u"Clear", &C::clear)
                .help(u"リストの項目をすべて削除します。", u"Removes every item from the list.")
                .method(u"Cls", &C::cls)
                .help(u"選択を解除します。", u"Clears the selection.")
                .method(common::Refresh, &C::refresh)
                .method(u"RefreshScrollBar", &C::refreshScrollBar)
                .help(u"水平スクロールバーを更新します。", u"Updates the horizontal scroll bar.")
                .method(u"RemoveItem", &C::removeItem, {u"intIndex"})
                .help(u"リストから項目を削除します。", u"Removes an item from the list.")
                .method(u"Restore", &C::restore)
                .help(u"Storeで保存した値に戻します。", u"Returns to the value saved by Store.")
                .method(u"RestoreDefault", &C::restoreDefault)
                .help(u"値をDefaultValueにします。", u"Sets the value to DefaultValue.")
                .method(u"Store", &C::store)
                .help(u"現在の値を保存します。", u"Saves the current value.")
                .property(u"AutoRefreshScrollBar", &C::autoRefreshScrollBar,
                          &C::setAutoRefreshScrollBar)
                .help(
                    u"項目の追加・削除のたびにスクロールバーを更新するかどうかを設定します。",
                    u"Sets whether the scroll bar is updated whenever an item is added or removed.")
                .saved(6, u"AutoRefreshScrollBar", true)
                .property(common::BackColor, &C::backColor, &C::setBackColor)
                .saved(1, u"BackColor", color::WindowBackground)
                .property(common::Enabled, &C::enabled, &C::setEnabled)
                .saved(2, u"Enabled", true)
                .property(common::Font, &C::font, &C::setFont)
                .saved(3, u"Font", ambientFontDefault)
                .readAt(5)
                .property(common::ForeColor, &C::foreColor, &C::setForeColor)
                .saved(4, u"ForeColor", color::WindowText)
                .readAt(3)
                .property(common::IMEMode, &C::imeMode, &C::setImeMode)
                .saved(5, u"IMEMode", std::int16_t{0})
                .readAt(4)
                .property(u"Columns", &C::columns, &C::setColumns)
                .help(u"列の数を設定します。", u"Sets the number of columns.")
                .property(common::DefaultValue, &C::defaultValue, &C::setDefaultValue)
                .designTimeOnly()
                .saved(7, u"DefaultValue", std::int16_t{-1})
                .readAt(7)
                .getOnly(u"IntegralHeight", &C::integralHeight)
                .help(u"項目を丸ごと表示するかどうかを返します。",
                      u"Returns whether only whole items are shown.")
                .property(u"ItemData", &C::itemData, &C::setItemData, {u"Index"})
                .help(u"項目のデータを設定します。", u"Sets the data number of an item.")
                .property(u"ItemDataNums", &C::itemDataNums, &C::setItemDataNums)
                .help(u"項目のデータを「|」区切りで設定します。",
                      u"Sets the items' data numbers as one \"|\"-delimited string.")
                .saved(8, u"ItemdataNums", u"")
                .readAt(8)
                .readAs(u"ItemDataNums")
                .property(common::KeyName, &C::keyName, &C::setKeyName)
                .saved(9, u"KeyName", u"")
                .readAt(9)
                .property(common::SectionName, &C::sectionName, &C::setSectionName)
                .saved(11, u"SectionName", u"")
                .readAt(11)
                .property(u"List", &C::list, &C::setList, {u"Index"})
                .help(u"項目の文字列を返します。", u"Returns the text of an item.")
                .getOnly(u"ListCount", &C::listCount)
                .help(u"項目の数を返します。", u"Returns the number of items.")
                .getOnly(u"NewIndex", &C::newIndex)
                .help(u"最後に追加された項目の番号を返します。",
                      u"Returns the index of the item added last.")
                .getOnly(u"SelCount", &C::selCount)
                .help(u"選択されている項目の数を返します。",
                      u"Returns the number of selected items.")
                .getOnly(u"Sorted", &C::sorted)
                .help(u"項目が並べ替えられるかどうかを返します。",
                      u"Returns whether the items are kept sorted.")
                .getOnly(u"MultiSelect", &C::multiSelect)
                .help(u"複数選択の方法を返します。", u"Returns how several items may be selected.")
                .property(u"ListIndex", &C::listIndex, &C::setListIndex)
                .help(u"選択されている項目の番号を設定します。",
                      u"Sets the index of the selected item.")
                .property(u"Value", &C::value, &C::setValue)
                .help(u"選択されている項目の番号を設定します。",
                      u"Sets the index of the selected item.")
                .property(u"ListTexts", &C::listTexts, &C::setListTexts)
                .help(u"リストの項目を「|」区切りで設定します。",
                      u"Sets the list's items as one \"|\"-delimited string.")
                .saved(10, u"ListTexts", u"")
                .readAt(10)
                .property(u"Selected", &C::selected, &C::setSelected, {u"Index"})
                .help(u"項目が選択されているかどうかを設定します。",
                      u"Sets whether an item is selected.")
                .property(common::Text, &C::text, &C::setText)
                .property(u"TopIndex", &C::topIndex, &C::setTopIndex)
                .help(u"先頭に表示される項目の番号を設定します。",
                      u"Sets the index of the topmost visible item.")
                .build(),
            ev.build(), [](ControlSite& site) { return std::make_shared<ListBoxEx>(site); },
            {2400, 1800});
    }();
    return info;
}

}  // namespace corvex
