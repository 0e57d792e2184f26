// What the list controls built on a delimited design-time list share: ListTexts and
// ItemDataNums with their rules, the design-time default index, the selection members and
// Store/Restore/RestoreDefault, and the message table.
#pragma once

#include <memory>

#include "corvex/common/common_members.h"
#include "corvex/lists/delimited_list.h"

namespace corvex {

/// The base of DropDownCombo, DropDownList and ListBoxEx. A derived control names its
/// inner list (as the delimited-list rules change it) and its selection.
class ListControl : public CommonControl {
public:
    ~ListControl() override;

    /// Clears the selection; the items stay.
    void cls();
    /// Selects the stored index again (nothing before any Store).
    void restore();
    /// Selects the default index.
    void restoreDefault();
    /// Stores the selected index as decimal text.
    void store();

    /// The default index (-1: no selection).
    std::int16_t defaultValue() const;
    /// Sets the default index (design time only), then Value; out of range is refused.
    void setDefaultValue(std::int16_t v);
    /// The item data text.
    std::u16string itemDataNums() const;
    /// Sets the item data text (digits and "|" only) and applies it to the items.
    void setItemDataNums(std::u16string v);
    /// The list text.
    std::u16string listTexts() const;
    /// Sets the list text and rebuilds the list from it.
    void setListTexts(std::u16string v);
    /// The selected index (-1: none).
    std::int16_t listIndex() const;
    /// Selects an item; notifies "ListIndex".
    void setListIndex(std::int16_t v);
    /// The selected index, as ListIndex.
    std::int16_t value() const;
    /// Selects an item, as ListIndex; notifies "Value".
    void setValue(std::int16_t v);

protected:
    /// A control on its host site.
    explicit ListControl(ControlSite& site);
    /// The inner list as the delimited-list rules change it.
    virtual lists::ListTarget& listTarget() = 0;
    /// The inner list's selected index.
    virtual std::int32_t innerListIndex() const = 0;
    /// Selects an item of the inner list.
    virtual void setInnerListIndex(std::int32_t i) = 0;
    /// Clears the inner list and adds the items of ListTexts, then refreshes.
    void rebuildList();
    /// Applies ItemDataNums to the items, showing the refusal of a non-numeric element.
    void applyItemDataNums();
    /// The finishing steps of loading: rebuild, apply the item data, select the default.
    void finishLoading();
    /// Sets the loaded design-time fields, signalling nothing.
    void loadListFields(std::int16_t defaultValue, std::u16string itemDataNums,
                        std::u16string listTexts);
    /// Resets the design-time fields of a new instance.
    void initListFields();
    const MessageTable& messageTable() const override;

private:
    struct Private;
    std::unique_ptr<Private> const d;
};

/// A list control over one inner list widget (a ComboBox or a ListBox): it holds the
/// widget and the rebuild's view of it, and answers ListControl's hooks from them.
template <class Inner>
class ListControlOn : public ListControl {
protected:
    using ListControl::ListControl;

    /// Keeps the inner widget and the rebuild's view of it; both go with the widgets.
    void holdInner(std::unique_ptr<Inner> widget, std::unique_ptr<lists::ListTarget> target) {
        inner_ = std::move(widget);
        target_ = std::move(target);
    }
    /// The inner widget; raises 398 once the control has lost its site.
    Inner& inner() const {
        checkAvailable();
        return *inner_;
    }
    Widget& commonWidget() const override { return inner(); }
    void releaseWidgets() override {
        target_.reset();
        inner_.reset();
    }
    lists::ListTarget& listTarget() override {
        inner();
        return *target_;
    }
    std::int32_t innerListIndex() const override { return inner().listIndex(); }
    void setInnerListIndex(std::int32_t i) override { inner().setListIndex(i); }

private:
    std::unique_ptr<Inner> inner_;
    std::unique_ptr<lists::ListTarget> target_;
};

}  // namespace corvex
