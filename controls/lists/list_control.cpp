#include "corvex/lists/list_control.h"

#include "corvex/common/error.h"

namespace corvex {

struct ListControl::Private {
    std::int16_t defaultValue = -1;
    std::u16string itemDataNums;
    std::u16string listTexts;
    Variant storedValue;
};

ListControl::ListControl(ControlSite& site) : CommonControl(site), d(std::make_unique<Private>()) {}

ListControl::~ListControl() = default;

const MessageTable& ListControl::messageTable() const {
    static const MessageTable table(
        {
            {lists::msg::IrregularString, u"不正な文字列です", u"Irregal string."},
            {lists::msg::BelowMinusOne, u"-1以上の値を入力して下さい", u"Enter not less than -1 ."},
            {lists::msg::BeyondLastItem, u"現在のリスト番号の最大値を越えています",
             u"Out of now maximum list number."},
        },
        undefinedWithStop());
    return table;
}

void ListControl::initListFields() {
    d->defaultValue = -1;
    d->itemDataNums.clear();
    d->listTexts.clear();
}

void ListControl::loadListFields(std::int16_t defaultValue, std::u16string itemDataNums,
                                 std::u16string listTexts) {
    d->defaultValue = defaultValue;
    d->itemDataNums = std::move(itemDataNums);
    d->listTexts = std::move(listTexts);
}

void ListControl::rebuildList() {
    lists::rebuild(listTarget(), d->listTexts);
    refresh();
}

void ListControl::applyItemDataNums() {
    if (lists::applyItemData(listTarget(), d->itemDataNums) != 0) {
        showRefusal({lists::msg::IrregularString});
        return;
    }
    refresh();
}

void ListControl::finishLoading() {
    rebuildList();
    applyItemDataNums();
    // The selection always comes from DefaultValue, unchecked: a saved selection is never
    // read.
    setInnerListIndex(d->defaultValue);
}

// --- methods -----------------------------------------------------------------------

void ListControl::cls() {
    setInnerListIndex(-1);
}

void ListControl::restore() {
    if (hostEquals(d->storedValue, u"")) return;  // nothing was ever stored
    setInnerListIndex(d->storedValue.toInteger());
}

void ListControl::restoreDefault() {
    setInnerListIndex(d->defaultValue);
}

void ListControl::store() {
    d->storedValue = Variant(listIndex()).toString();
}

// --- properties --------------------------------------------------------------------

std::int16_t ListControl::defaultValue() const {
    return d->defaultValue;
}

void ListControl::setDefaultValue(std::int16_t v) {
    requireDesignTime();
    if (const int refusal = lists::checkDefaultValue(v, listTarget().listCount())) {
        showRefusal({refusal});
        return;
    }
    d->defaultValue = v;
    propertyChanged(u"DefaultValue");
    setValue(v);
}

std::u16string ListControl::itemDataNums() const {
    return d->itemDataNums;
}

void ListControl::setItemDataNums(std::u16string v) {
    if (!lists::itemDataCharactersAllowed(v)) {
        showRefusal({lists::msg::IrregularString});
        return;
    }
    d->itemDataNums = std::move(v);
    propertyChanged(u"ItemDataNums");
    applyItemDataNums();
}

std::u16string ListControl::listTexts() const {
    return d->listTexts;
}

void ListControl::setListTexts(std::u16string v) {
    d->listTexts = std::move(v);
    propertyChanged(u"ListTexts");
    rebuildList();
}

std::int16_t ListControl::listIndex() const {
    return static_cast<std::int16_t>(innerListIndex());
}

void ListControl::setListIndex(std::int16_t v) {
    setInnerListIndex(v);
    propertyChanged(u"ListIndex");
}

std::int16_t ListControl::value() const {
    return listIndex();
}

void ListControl::setValue(std::int16_t v) {
    setInnerListIndex(v);
    propertyChanged(u"Value");
}

}  // namespace corvex
