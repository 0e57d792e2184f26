#include "corvex/lists/move_list.h"

#include "corvex/common/error.h"
#include "corvex/platform/command_button.h"
#include "corvex/platform/list_box.h"

namespace corvex {

namespace {
constexpr const char16_t* kLeftName = u"lstLeft";
constexpr const char16_t* kRightName = u"lstRight";
constexpr const char16_t* kDummyName = u"lstDummy";
constexpr const char16_t* kMoveName = u"cmdMove";
constexpr const char16_t* kOrderName = u"cmdUpDown";

// The layout's gap between the lists and the button columns, in twips.
constexpr float kGap = 105;
constexpr std::int16_t kButtons = 4;
// The buttons as designed: the layout moves them and never sizes them.
constexpr float kMoveWidth = 495;
constexpr float kOrderWidth = 735;
constexpr float kButtonHeight = 375;
constexpr float kListWidth = 1800;
constexpr float kListHeight = 1800;
constexpr const char16_t* kMoveCaptions[kButtons] = {u">>", u">", u"<", u"<<"};
constexpr const char16_t* kOrderCaptions[kButtons] = {u"Top", u"Up", u"Down", u"Bottom"};

std::unique_ptr<CommandButtonArray> makeButtons(ControlSite& site, WidgetListener* listener,
                                                const char16_t* name,
                                                const char16_t* const (&captions)[kButtons],
                                                float width) {
    WidgetSpec spec;
    spec.name = name;
    spec.index = 0;
    spec.listener = listener;
    spec.width = width;
    spec.height = kButtonHeight;
    auto buttons = site.widgets().createCommandButtonArray(spec);
    for (std::int16_t i = 1; i < kButtons; ++i) buttons->create(i).setVisible(true);
    for (std::int16_t i = 0; i < kButtons; ++i) {
        CommandButton& b = buttons->element(i);
        b.setCaption(captions[i]);
        b.setBackColor(color::ButtonFace);
        b.setForeColor(color::ButtonText);
    }
    return buttons;
}

// Places one column of buttons: centred vertically with gaps of 105 when there is room,
// else from where button 0 stands.
void placeColumn(CommandButtonArray& buttons, float height, float left, bool setLeft) {
    CommandButton& first = buttons.element(0);
    const float b = first.height();
    const float top = (height - (4 * b + 3 * kGap)) / 2;
    if (top > 0) first.move(first.left(), top, first.width(), first.height());
    const float firstTop = first.top();
    for (std::int16_t i = 0; i < buttons.count(); ++i) {
        CommandButton& button = buttons.element(i);
        const float t = i == 0 ? button.top() : firstTop + static_cast<float>(i) * (b + kGap);
        button.move(setLeft ? left : button.left(), t, button.width(), button.height());
    }
}
}  // namespace

struct MoveList::Private {
    std::unique_ptr<ListBox> left;
    std::unique_ptr<ListBox> right;
    std::unique_ptr<ListBox> dummy;
    std::unique_ptr<CommandButtonArray> move;
    std::unique_ptr<CommandButtonArray> order;
    bool lSorted = false;
    bool rSorted = false;
    std::shared_ptr<Font> listFont;
    std::shared_ptr<Font> buttonFont;
};

MoveList::MoveList(ControlSite& site) : Control(site), d(std::make_unique<Private>()) {
    ListBoxSpec list;
    list.listener = this;
    list.width = kListWidth;
    list.height = kListHeight;
    list.multiSelect = multiselect::Extended;
    list.name = kLeftName;
    d->left = site.widgets().createListBox(list);
    list.name = kRightName;
    list.left = kListWidth + kMoveWidth + 2 * kGap;
    d->right = site.widgets().createListBox(list);
    // The sorting buffer: never shown, one selection, its items in sorted order.
    ListBoxSpec dummy;
    dummy.name = kDummyName;
    dummy.listener = this;
    dummy.visible = false;
    dummy.sorted = true;
    d->dummy = site.widgets().createListBox(dummy);
    for (ListBox* l : {d->left.get(), d->right.get(), d->dummy.get()}) {
        l->setBackColor(color::WindowBackground);
        l->setForeColor(color::WindowText);
        l->setFont(ambientFont());
    }
    d->move = makeButtons(site, this, kMoveName, kMoveCaptions, kMoveWidth);
    d->order = makeButtons(site, this, kOrderName, kOrderCaptions, kOrderWidth);
    d->listFont = Font::make(ambientFont());
    d->buttonFont = Font::make(ambientFont());
}

MoveList::~MoveList() = default;

ListBox& MoveList::left() const {
    checkAvailable();
    return *d->left;
}

ListBox& MoveList::right() const {
    checkAvailable();
    return *d->right;
}

void MoveList::releaseWidgets() {
    d->order.reset();
    d->move.reset();
    d->dummy.reset();
    d->right.reset();
    d->left.reset();
}

const ClassInfo& MoveList::staticClassInfo() {
    static const ClassInfo info = [] {
        using M = MoveList;
        EventTable ev;  // no events of its own: only the three declared ones
        events::addDeclaredLifecycle(ev);
        return ClassInfo(
            u"MoveList", ClassKind::Control,
            MemberTable<M>()
                .method(u"LAddItem", &M::lAddItem, {u"Item", u"Index"})
                .help(u"左のリストに項目を追加します。", u"Adds an item to the left list.")
                .method(u"LRemoveItem", &M::lRemoveItem, {u"Index"})
                .help(u"左のリストから項目を削除します。", u"Removes an item from the left list.")
                .method(u"LClear", &M::lClear)
                .help(u"左のリストを空にします。", u"Empties the left list.")
                .property(u"LList", &M::lList, &M::setLList, {u"Index"})
                .help(u"左のリストの項目の文字列を設定します。",
                      u"Sets the text of an item of the left list.")
                .property(u"LListIndex", &M::lListIndex, &M::setLListIndex)
                .help(u"左のリストの現在の項目の番号を設定します。",
                      u"Sets the index of the current item of the left list.")
                .getOnly(u"LSelCount", &M::lSelCount)
                .help(u"左のリストで選択されている項目の数を返します。",
                      u"Returns the number of selected items of the left list.")
                .getOnly(u"LListCount", &M::lListCount)
                .help(u"左のリストの項目の数を返します。",
                      u"Returns the number of items of the left list.")
                .property(u"LSelected", &M::lSelected, &M::setLSelected, {u"Index"})
                .help(u"左のリストの項目の選択状態を設定します。",
                      u"Sets whether an item of the left list is selected.")
                .method(u"RAddItem", &M::rAddItem, {u"Item", u"Index"})
                .help(u"右のリストに項目を追加します。", u"Adds an item to the right list.")
                .method(u"RRemoveItem", &M::rRemoveItem, {u"Index"})
                .help(u"右のリストから項目を削除します。", u"Removes an item from the right list.")
                .method(u"RClear", &M::rClear)
                .help(u"右のリストを空にします。", u"Empties the right list.")
                .property(u"RList", &M::rList, &M::setRList, {u"Index"})
                .help(u"右のリストの項目の文字列を設定します。",
                      u"Sets the text of an item of the right list.")
                .property(u"RListIndex", &M::rListIndex, &M::setRListIndex)
                .help(u"右のリストの現在の項目の番号を設定します。",
                      u"Sets the index of the current item of the right list.")
                .getOnly(u"RSelCount", &M::rSelCount)
                .help(u"右のリストで選択されている項目の数を返します。",
                      u"Returns the number of selected items of the right list.")
                .getOnly(u"RListCount", &M::rListCount)
                .help(u"右のリストの項目の数を返します。",
                      u"Returns the number of items of the right list.")
                .property(u"RSelected", &M::rSelected, &M::setRSelected, {u"Index"})
                .help(u"右のリストの項目の選択状態を設定します。",
                      u"Sets whether an item of the right list is selected.")
                .property(u"LItemData", &M::lItemData, &M::setLItemData, {u"Index"})
                .help(u"左のリストの項目の数値データを設定します。",
                      u"Sets the data number of an item of the left list.")
                .property(u"RItemData", &M::rItemData, &M::setRItemData, {u"Index"})
                .help(u"右のリストの項目の数値データを設定します。",
                      u"Sets the data number of an item of the right list.")
                .method(u"Clear", &M::clear)
                .help(u"両方のリストを空にします。", u"Empties both lists.")
                .property(u"ListFont", &M::listFont, &M::setListFont)
                .help(u"リストのフォントを設定します。", u"Sets the font of the lists.")
                .saved(1, u"ListFont", ambientFontDefault)
                .property(u"ButtonFont", &M::buttonFont, &M::setButtonFont)
                .help(u"ボタンのフォントを設定します。", u"Sets the font of the buttons.")
                .saved(2, u"ButtonFont", ambientFontDefault)
                .method(u"LSort", &M::lSort)
                .help(u"左のリストを並べ替えます。", u"Sorts the left list.")
                .method(u"RSort", &M::rSort)
                .help(u"右のリストを並べ替えます。", u"Sorts the right list.")
                .method(u"Sort", &M::sort)
                .help(u"両方のリストを並べ替えます。", u"Sorts both lists.")
                .property(u"LSorted", &M::lSorted, &M::setLSorted)
                .help(u"左のリストに追加したときに並べ替えるかどうかを設定します。",
                      u"Sets whether the left list is sorted as items are added.")
                .saved(3, u"LSorted", false)
                .property(u"RSorted", &M::rSorted, &M::setRSorted)
                .help(u"右のリストに追加したときに並べ替えるかどうかを設定します。",
                      u"Sets whether the right list is sorted as items are added.")
                .saved(4, u"RSorted", false)
                .method(u"LAddArray", &M::lAddArray, {u"New_ItemArray"})
                .passedByRef(0)
                .help(u"配列の要素を左のリストに追加します。",
                      u"Adds the elements of an array to the left list.")
                .method(u"RAddArray", &M::rAddArray, {u"New_ItemArray"})
                .passedByRef(0)
                .help(u"配列の要素を右のリストに追加します。",
                      u"Adds the elements of an array to the right list.")
                .build(),
            ev.build(), [](ControlSite& site) { return std::make_shared<MoveList>(site); },
            {5400, 2400});
    }();
    return info;
}

// --- lifecycle --------------------------------------------------------------------------

void MoveList::initProperties() {
    d->lSorted = false;
    d->rSorted = false;
    d->listFont = Font::make(ambientFont());
    d->buttonFont = Font::make(ambientFont());
    updateButtons();
}

void MoveList::readProperties(PropertyBag& bag) {
    const Variant ambientFontValue(Font::make(ambientFont()));
    d->listFont = Font::make(readSaved(bag, u"ListFont", ambientFontValue, fontFromVariant));
    d->buttonFont = Font::make(readSaved(bag, u"ButtonFont", ambientFontValue, fontFromVariant));
    d->lSorted = readSaved<bool>(bag, u"LSorted", false);
    d->rSorted = readSaved<bool>(bag, u"RSorted", false);
    updateButtons();
}

void MoveList::writeProperties(PropertyBag& bag) {
    const Variant ambientFontValue(Font::make(ambientFont()));
    bag.write(u"ListFont", Variant(ObjectRef(d->listFont)), ambientFontValue);
    bag.write(u"ButtonFont", Variant(ObjectRef(d->buttonFont)), ambientFontValue);
    bag.write(u"LSorted", d->lSorted, false);
    bag.write(u"RSorted", d->rSorted, false);
}

void MoveList::resize() {
    ListBox& l = left();
    ListBox& r = right();
    const float h = innerHeight();
    const float w = innerWidth();
    const float m = d->move->element(0).width();
    const float u = d->order->element(0).width();
    // Too narrow a control keeps the lists' previous width.
    const float listWidth = (w - (u + m + 3 * kGap)) / 2;
    l.move(0, 0, listWidth > 0 ? listWidth : l.width(), h);
    r.move(l.width() + m + 2 * kGap, 0, l.width(), h);
    placeColumn(*d->move, h, l.width() + kGap, true);
    placeColumn(*d->order, h, w - u, w - u > 0);
}

// --- events -------------------------------------------------------------------------------

void MoveList::widgetEvent(Widget& source, WidgetEvent& event) {
    // The control raises no events of its own: clicks act, the rest goes nowhere.
    if (event.type != WidgetEventType::Click) return;
    if (source.name() == kMoveName) {
        moveClicked(source.index());
    } else if (source.name() == kOrderName) {
        orderClicked(source.index());
    } else if (&source == d->right.get()) {
        updateButtons();
    }
}

void MoveList::updateButtons() {
    const bool leftHas = left().listCount() >= 1;
    const bool rightHas = right().listCount() >= 1;
    for (std::int16_t i = 0; i < d->move->count(); ++i) {
        d->move->element(i).setEnabled(i <= 1 ? leftHas : rightHas);
    }
    const bool chosen = right().selCount() >= 1;
    for (std::int16_t i = 0; i < d->order->count(); ++i) d->order->element(i).setEnabled(chosen);
}

void MoveList::moveClicked(std::int16_t index) {
    ListBox& l = left();
    ListBox& r = right();
    const auto moveAll = [](ListBox& from, ListBox& to) {
        if (from.listCount() == 0) return;
        for (std::int32_t i = 0; i < from.listCount(); ++i) to.addItem(from.list(i));
        from.clear();
    };
    // Only the current item moves, however many are selected.
    const auto moveCurrent = [](ListBox& from, ListBox& to) {
        if (from.selCount() <= 0) return;
        const std::int32_t i = from.listIndex();
        to.addItem(from.list(i));
        from.removeItem(i);
    };
    switch (index) {
        case 0:
            moveAll(l, r);
            break;
        case 1:
            moveCurrent(l, r);
            break;
        case 2:
            moveCurrent(r, l);
            break;
        case 3:
            moveAll(r, l);
            break;
        default:
            break;
    }
    updateButtons();
}

void MoveList::orderClicked(std::int16_t index) {
    ListBox& r = right();
    if (r.selCount() == 0) return;
    const std::int32_t i = r.listIndex();
    const std::int32_t n = r.listCount();
    const auto swapTexts = [&r](std::int32_t a, std::int32_t b) {
        const std::u16string t = r.list(a);
        r.setList(a, r.list(b));
        r.setList(b, t);
    };
    switch (index) {
        case 0:
            if (i >= 1) {
                const std::u16string t = r.list(i);
                r.removeItem(i);
                r.addItem(t, 0);
                r.setListIndex(0);
            }
            break;
        case 1:
            if (i >= 1) {
                swapTexts(i, i - 1);
                r.setListIndex(i - 1);
            }
            break;
        case 2:
            if (i >= 0 && i < n - 1) {
                swapTexts(i, i + 1);
                r.setListIndex(i + 1);
            }
            break;
        case 3:
            if (i >= 0 && i < n - 1) {
                const std::u16string t = r.list(i);
                r.removeItem(i);
                r.addItem(t);
                r.setListIndex(r.listCount() - 1);
            }
            break;
        default:
            break;
    }
}

void MoveList::sortList(ListBox& list) {
    ListBox& dummy = *d->dummy;
    dummy.clear();
    for (std::int32_t i = 0; i < list.listCount(); ++i) dummy.addItem(list.list(i));
    list.clear();
    for (std::int32_t i = 0; i < dummy.listCount(); ++i) list.addItem(dummy.list(i));
    dummy.clear();
}

void MoveList::addArray(ListBox& list, const std::shared_ptr<VariantArray>& items) {
    if (!items) throw Error(err::ObjectRequired);
    // From index 0 whatever the lower bound: an array starting above 0 fails at once.
    for (std::int32_t i = 0; i <= items->uBound(); ++i) list.addItem(items->item(i).toString());
}

// --- left list ------------------------------------------------------------------------------

void MoveList::lAddItem(std::u16string item, std::optional<Variant> index) {
    left().addItem(item, index ? index->toInteger() : -1);
    updateButtons();
    if (d->lSorted) lSort();
}

void MoveList::lRemoveItem(std::int16_t index) {
    left().removeItem(index);
    updateButtons();
}

void MoveList::lClear() {
    left().clear();
    updateButtons();
}

std::u16string MoveList::lList(std::int16_t index) const {
    return left().list(index);
}

void MoveList::setLList(std::int16_t index, std::u16string text) {
    left().setList(index, text);
    propertyChanged(u"LList");
}

std::int16_t MoveList::lListIndex() const {
    return static_cast<std::int16_t>(left().listIndex());
}

void MoveList::setLListIndex(std::int16_t index) {
    left().setListIndex(index);
    propertyChanged(u"LListIndex");
}

std::int16_t MoveList::lSelCount() const {
    return static_cast<std::int16_t>(left().selCount());
}

std::int16_t MoveList::lListCount() const {
    return static_cast<std::int16_t>(left().listCount());
}

bool MoveList::lSelected(std::int16_t index) const {
    return left().selected(index);
}

void MoveList::setLSelected(std::int16_t index, bool on) {
    left().setSelected(index, on);
    propertyChanged(u"LSelected");
}

// --- right list -----------------------------------------------------------------------------

void MoveList::rAddItem(std::u16string item, std::optional<Variant> index) {
    right().addItem(item, index ? index->toInteger() : -1);
    updateButtons();
    if (d->rSorted) rSort();
}

void MoveList::rRemoveItem(std::int16_t index) {
    right().removeItem(index);
    updateButtons();
}

void MoveList::rClear() {
    right().clear();
    updateButtons();
}

std::u16string MoveList::rList(std::int16_t index) const {
    return right().list(index);
}

void MoveList::setRList(std::int16_t index, std::u16string text) {
    right().setList(index, text);
    propertyChanged(u"RList");
}

std::int16_t MoveList::rListIndex() const {
    return static_cast<std::int16_t>(right().listIndex());
}

void MoveList::setRListIndex(std::int16_t index) {
    right().setListIndex(index);
    propertyChanged(u"RListIndex");
}

std::int16_t MoveList::rSelCount() const {
    return static_cast<std::int16_t>(right().selCount());
}

std::int16_t MoveList::rListCount() const {
    return static_cast<std::int16_t>(right().listCount());
}

bool MoveList::rSelected(std::int16_t index) const {
    return right().selected(index);
}

void MoveList::setRSelected(std::int16_t index, bool on) {
    right().setSelected(index, on);
    propertyChanged(u"RSelected");
}

// --- item data, both lists, fonts, sorting --------------------------------------------------

std::int32_t MoveList::lItemData(std::int16_t index) const {
    return left().itemData(index);
}

void MoveList::setLItemData(std::int16_t index, std::int32_t v) {
    left().setItemData(index, v);
    propertyChanged(u"LItemData");
}

std::int32_t MoveList::rItemData(std::int16_t index) const {
    return right().itemData(index);
}

void MoveList::setRItemData(std::int16_t index, std::int32_t v) {
    right().setItemData(index, v);
    propertyChanged(u"RItemData");
}

void MoveList::clear() {
    left().clear();
    right().clear();
    updateButtons();
}

std::shared_ptr<Font> MoveList::listFont() const {
    checkAvailable();
    return d->listFont;
}

void MoveList::setListFont(std::shared_ptr<Font> f) {
    checkAvailable();
    if (!f) throw Error(err::ObjectRequired);
    d->listFont = std::move(f);  // kept, and deliberately not given to the lists
    propertyChanged(u"ListFont");
}

std::shared_ptr<Font> MoveList::buttonFont() const {
    checkAvailable();
    return d->buttonFont;
}

void MoveList::setButtonFont(std::shared_ptr<Font> f) {
    checkAvailable();
    if (!f) throw Error(err::ObjectRequired);
    d->buttonFont = std::move(f);  // kept, and deliberately not given to the buttons
    propertyChanged(u"ButtonFont");
}

void MoveList::lSort() {
    sortList(left());
}

void MoveList::rSort() {
    sortList(right());
}

void MoveList::sort() {
    lSort();
    rSort();
}

bool MoveList::lSorted() const {
    checkAvailable();
    return d->lSorted;
}

void MoveList::setLSorted(bool v) {
    checkAvailable();
    d->lSorted = v;
    propertyChanged(u"LSorted");
}

bool MoveList::rSorted() const {
    checkAvailable();
    return d->rSorted;
}

void MoveList::setRSorted(bool v) {
    checkAvailable();
    d->rSorted = v;
    propertyChanged(u"RSorted");
}

void MoveList::lAddArray(std::shared_ptr<VariantArray> items) {
    addArray(left(), items);
    updateButtons();
    if (d->lSorted) lSort();
}

void MoveList::rAddArray(std::shared_ptr<VariantArray> items) {
    addArray(right(), items);
    updateButtons();
    // The left flag sorts the left list, whatever RSorted says: kept as it always was.
    if (d->lSorted) lSort();
}

}  // namespace corvex
