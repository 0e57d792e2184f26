// DropDownCombo and DropDownList: a combo box whose whole list is one delimited
// design-time string, with item data beside it and a default selection.
#pragma once

#include <memory>
#include <optional>

#include "corvex/lists/list_control.h"
#include "corvex/platform/list_widgets.h"

namespace corvex {

/// What DropDownCombo and DropDownList share: every member, event, saved property and
/// message. Only the inner combo box's style (cmbComboBoxEx) differs, given when made.
class DropDownControl : public ListControlOn<ComboBox> {
public:
    ~DropDownControl() override;

    void initProperties() override;
    void readProperties(PropertyBag& bag) override;
    void writeProperties(PropertyBag& bag) override;
    void resize() override;

    /// Adds an item at index (appended when left off); ListTexts is not changed.
    void addItem(std::u16string item, std::optional<std::int16_t> index);
    /// Empties the list; ListTexts and ItemDataNums are not changed.
    void clear();
    /// Removes the item at index.
    void removeItem(std::int16_t index);

    /// The input-method mode of the inner box.
    CorvexIMEMode imeMode() const;
    /// Sets the input-method mode.
    void setImeMode(CorvexIMEMode m);
    /// The item datum of item index.
    std::int32_t itemData(std::int16_t index) const;
    /// Sets the item datum of item index; ItemDataNums is not changed.
    void setItemData(std::int16_t index, std::int32_t v);
    /// The text of item index.
    std::u16string list(std::int16_t index) const;
    /// Sets the text of item index, then rebuilds the list from ListTexts (discarding it).
    void setList(std::int16_t index, std::u16string v);
    /// The number of items.
    std::int16_t listCount() const;
    /// Whether the user cannot change the box.
    bool locked() const;
    /// Locks or unlocks the box.
    void setLocked(bool v);
    /// Where the item added last went.
    std::int16_t newIndex() const;
    /// Length of the edit part's selection.
    std::int32_t selLength() const;
    /// Sets the selection's length.
    void setSelLength(std::int32_t v);
    /// Start of the edit part's selection.
    std::int32_t selStart() const;
    /// Moves the caret.
    void setSelStart(std::int32_t v);
    /// The selected text of the edit part.
    std::u16string selText() const;
    /// Replaces the edit part's selection.
    void setSelText(std::u16string v);
    /// Whether the inner list sorts its items.
    bool sorted() const;
    /// The edit part's text.
    std::u16string text() const;
    /// Sets the edit part's text.
    void setText(std::u16string v);

protected:
    /// A control on a site whose inner combo box has the given style.
    DropDownControl(ControlSite& site, ComboStyle style);
    /// The class table of a class made on this implementation.
    template <class C>
    static ClassInfo makeClassInfo(const char16_t* name);
    void widgetEvent(Widget& source, WidgetEvent& event) override;

private:
    ComboBox& cmb() const { return inner(); }
};

/// A combo box whose edit part takes free text.
class DropDownCombo : public DropDownControl {
public:
    /// A DropDownCombo on a host site; creates cmbComboBoxEx.
    explicit DropDownCombo(ControlSite& site);
    /// The table of the DropDownCombo class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }
};

/// The pick-only twin of DropDownCombo: the user only chooses one of the items.
class DropDownList : public DropDownControl {
public:
    /// A DropDownList on a host site; creates cmbComboBoxEx in the drop-down-list style.
    explicit DropDownList(ControlSite& site);
    /// The table of the DropDownList class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }
};

}  // namespace corvex
