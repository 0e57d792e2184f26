// The Qt host's captions and drop-down lists with item data, for property pages.
#pragma once

#include "corvex/platform/page_widgets.h"
#include "corvex/qt/widget.h"

class QComboBox;
class QLabel;

namespace corvex::qt {

/// A caption over a QLabel.
class QtTextLabel : public QtWidget, public TextLabel {
public:
    /// A caption on host made as design describes.
    QtTextLabel(QtControlHost& host, const WidgetSpec& design);
    ~QtTextLabel() override;
    /// The QLabel shown.
    QLabel* label() const;
    /// The caption.
    std::u16string caption() const override;
    /// Sets the caption.
    void setCaption(const std::u16string& c) override;
};

/// A drop-down list over a non-editable QComboBox; each entry keeps its item datum as the
/// entry's user data. Every change of the selection, by the user or by code, raises Click.
class QtItemList : public QtWidget, public ItemList {
public:
    /// A list on host made as design describes.
    QtItemList(QtControlHost& host, const WidgetSpec& design);
    ~QtItemList() override;
    /// The QComboBox shown.
    QComboBox* comboBox() const;
    /// Appends an entry with its item datum.
    void addItem(const std::u16string& text, std::int32_t itemData) override;
    /// Removes every entry.
    void clear() override;
    /// The number of entries.
    std::int32_t listCount() const override;
    /// The text of entry i; raises 381 outside the list.
    std::u16string list(std::int32_t i) const override;
    /// The item datum of entry i; raises 381 outside the list.
    std::int32_t itemData(std::int32_t i) const override;
    /// The selected entry, or -1.
    std::int32_t listIndex() const override;
    /// Selects entry i (-1: none); raises 380 outside the list.
    void setListIndex(std::int32_t i) override;

private:
    void checkIndex(std::int32_t i) const;
    void indexChangedByQt();
    bool updating_ = false;
};

}  // namespace corvex::qt
