// MoveList: two lists side by side with buttons that move items between them and order
// the chosen ones.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "corvex/common/control.h"
#include "corvex/common/font.h"
#include "corvex/common/variant_array.h"

namespace corvex {

class ListBox;

/// The candidates (lstLeft), the chosen items (lstRight), four move buttons between them
/// (cmdMove: all right, current right, current left, all left), four ordering buttons at
/// the right edge (cmdUpDown: top, up, down, bottom) and a hidden sorted list (lstDummy)
/// through which the lists are sorted. Only texts move; item data stays behind.
class MoveList : public Control {
public:
    /// A MoveList on a host site; creates its lists and buttons.
    explicit MoveList(ControlSite& site);
    ~MoveList() override;
    /// The table of the MoveList class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }

    void initProperties() override;
    void readProperties(PropertyBag& bag) override;
    void writeProperties(PropertyBag& bag) override;
    void resize() override;

    /// Adds an item to the left list (at index when given), then sorts it when LSorted.
    void lAddItem(std::u16string item, std::optional<Variant> index);
    /// Removes item index of the left list.
    void lRemoveItem(std::int16_t index);
    /// Empties the left list.
    void lClear();
    /// The text of item index of the left list.
    std::u16string lList(std::int16_t index) const;
    /// Replaces the text of item index of the left list.
    void setLList(std::int16_t index, std::u16string text);
    /// The left list's current item (-1: none).
    std::int16_t lListIndex() const;
    /// Makes an item of the left list current.
    void setLListIndex(std::int16_t index);
    /// The number of selected items of the left list.
    std::int16_t lSelCount() const;
    /// The number of items of the left list.
    std::int16_t lListCount() const;
    /// Whether item index of the left list is selected.
    bool lSelected(std::int16_t index) const;
    /// Selects or clears item index of the left list.
    void setLSelected(std::int16_t index, bool on);

    /// Adds an item to the right list (at index when given), then sorts it when RSorted.
    void rAddItem(std::u16string item, std::optional<Variant> index);
    /// Removes item index of the right list.
    void rRemoveItem(std::int16_t index);
    /// Empties the right list.
    void rClear();
    /// The text of item index of the right list.
    std::u16string rList(std::int16_t index) const;
    /// Replaces the text of item index of the right list.
    void setRList(std::int16_t index, std::u16string text);
    /// The right list's current item (-1: none).
    std::int16_t rListIndex() const;
    /// Makes an item of the right list current.
    void setRListIndex(std::int16_t index);
    /// The number of selected items of the right list.
    std::int16_t rSelCount() const;
    /// The number of items of the right list.
    std::int16_t rListCount() const;
    /// Whether item index of the right list is selected.
    bool rSelected(std::int16_t index) const;
    /// Selects or clears item index of the right list.
    void setRSelected(std::int16_t index, bool on);

    /// The item datum of item index of the left list.
    std::int32_t lItemData(std::int16_t index) const;
    /// Sets the item datum of item index of the left list.
    void setLItemData(std::int16_t index, std::int32_t v);
    /// The item datum of item index of the right list.
    std::int32_t rItemData(std::int16_t index) const;
    /// Sets the item datum of item index of the right list.
    void setRItemData(std::int16_t index, std::int32_t v);

    /// Empties both lists.
    void clear();
    /// The font kept for the lists (not applied to them).
    std::shared_ptr<Font> listFont() const;
    /// Keeps a font for the lists; Nothing raises 424.
    void setListFont(std::shared_ptr<Font> f);
    /// The font kept for the buttons (not applied to them).
    std::shared_ptr<Font> buttonFont() const;
    /// Keeps a font for the buttons; Nothing raises 424.
    void setButtonFont(std::shared_ptr<Font> f);
    /// Sorts the left list (its item data becomes 0).
    void lSort();
    /// Sorts the right list (its item data becomes 0).
    void rSort();
    /// Sorts the left list, then the right one.
    void sort();
    /// Whether additions to the left list sort it.
    bool lSorted() const;
    /// Sets the flag; sorts nothing now.
    void setLSorted(bool v);
    /// Whether additions to the right list sort it.
    bool rSorted() const;
    /// Sets the flag; sorts nothing now.
    void setRSorted(bool v);
    /// Adds the elements 0 to UBound of an array to the left list; sorts it when LSorted.
    void lAddArray(std::shared_ptr<VariantArray> items);
    /// Adds the elements 0 to UBound of an array to the right list; sorts the LEFT list
    /// when LSorted.
    void rAddArray(std::shared_ptr<VariantArray> items);

protected:
    void widgetEvent(Widget& source, WidgetEvent& event) override;
    void releaseWidgets() override;

private:
    ListBox& left() const;
    ListBox& right() const;
    void updateButtons();
    void moveClicked(std::int16_t index);
    void orderClicked(std::int16_t index);
    void sortList(ListBox& list);
    void addArray(ListBox& list, const std::shared_ptr<VariantArray>& items);
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex
