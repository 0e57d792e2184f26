// ListBoxEx: a list box whose whole list is one delimited design-time string, with item
// data beside it, a default selection, and a horizontal scroll bar that appears only
// when the widest item is wider than the list.
#pragma once

#include <memory>
#include <optional>

#include "corvex/lists/list_control.h"
#include "corvex/platform/list_box.h"

namespace corvex {

/// A list box (lstListBoxEx) that keeps the widest item's width in pixels as items come
/// and go and hands it to the list as its horizontal scrolling extent, after every
/// AddItem and RemoveItem while AutoRefreshScrollBar is on, or on RefreshScrollBar.
class ListBoxEx : public ListControlOn<ListBox> {
public:
    /// A ListBoxEx on a host site; creates lstListBoxEx.
    explicit ListBoxEx(ControlSite& site);
    ~ListBoxEx() override;
    /// The table of the ListBoxEx class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }

    void initProperties() override;
    void readProperties(PropertyBag& bag) override;
    void writeProperties(PropertyBag& bag) override;
    void resize() override;

    /// Appends item when index is 0 or left off (its sorted place in a sorted list), else
    /// inserts it at index; measures it and refreshes the scroll bar when automatic.
    void addItem(std::u16string item, std::optional<std::int16_t> index);
    /// Empties the list, forgets the widest item and always refreshes the scroll bar.
    void clear();
    /// Hands the widest item to the list as its extent, or 0 when the list is as wide.
    void refreshScrollBar();
    /// Removes item index; re-measures the rest when it was at least as wide as the widest.
    void removeItem(std::int16_t index);

    /// Whether AddItem and RemoveItem refresh the scroll bar.
    bool autoRefreshScrollBar() const;
    /// Sets the flag only: nothing is signalled or refreshed.
    void setAutoRefreshScrollBar(bool v);
    /// The number of columns of the inner list.
    std::int16_t columns() const;
    /// Sets the number of columns.
    void setColumns(std::int16_t v);
    /// The input-method mode of the inner list.
    CorvexIMEMode imeMode() const;
    /// Sets the input-method mode.
    void setImeMode(CorvexIMEMode m);
    /// Whether the inner list shows whole items only.
    bool integralHeight() const;
    /// The item datum of item index.
    std::int32_t itemData(std::int16_t index) const;
    /// Sets the item datum of item index; ItemDataNums is not changed.
    void setItemData(std::int16_t index, std::int32_t v);
    /// The text of item index.
    std::u16string list(std::int16_t index) const;
    /// Sets the text of item index: no rebuild, no new measuring.
    void setList(std::int16_t index, std::u16string v);
    /// The number of items.
    std::int16_t listCount() const;
    /// The inner list's selection mode.
    std::int16_t multiSelect() const;
    /// Where the item added last went.
    std::int16_t newIndex() const;
    /// The number of selected items.
    std::int16_t selCount() const;
    /// Whether item index is selected.
    bool selected(std::int16_t index) const;
    /// Selects or clears item index.
    void setSelected(std::int16_t index, bool v);
    /// Whether the inner list sorts its items.
    bool sorted() const;
    /// The current item's text.
    std::u16string text() const;
    /// Makes current the item with that text.
    void setText(std::u16string v);
    /// The first item shown.
    std::int16_t topIndex() const;
    /// Scrolls an item to the top.
    void setTopIndex(std::int16_t v);

    /// The widest item measured since the last Clear, pixels.
    std::int32_t widestItem() const;

protected:
    void widgetEvent(Widget& source, WidgetEvent& event) override;

private:
    ListBox& lst() const { return inner(); }
    std::int32_t measure(const std::u16string& text) const;
    void remeasureAll();
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex
