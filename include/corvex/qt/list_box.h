// The Qt host's list box over a QListWidget.
#pragma once

#include "corvex/common/list_box_model.h"
#include "corvex/platform/list_box.h"
#include "corvex/qt/widget.h"

class QListWidget;

namespace corvex::qt {

/// A list box over a QListWidget. The core's list rules keep the items' data, the current
/// item and the selection; the QListWidget shows them and reports the user's choices back.
/// A left click in the list raises Click after MouseUp; code raises Click when it changes
/// the current item or the selection. The horizontal extent is the range of the list's
/// horizontal scroll bar, which shows only while the extent is wider than the viewport.
class QtListBox : public QtWidget, public ListBox {
public:
    /// A list on host made as design describes.
    QtListBox(QtControlHost& host, const ListBoxSpec& design);
    ~QtListBox() override;
    /// The QListWidget shown.
    QListWidget* listWidget() const;

    void addItem(const std::u16string& text, std::int32_t index = -1) override;
    void removeItem(std::int32_t i) override;
    void clear() override;
    std::int32_t listCount() const override;
    std::u16string list(std::int32_t i) const override;
    void setList(std::int32_t i, const std::u16string& text) override;
    std::int32_t itemData(std::int32_t i) const override;
    void setItemData(std::int32_t i, std::int32_t v) override;
    std::int32_t listIndex() const override;
    void setListIndex(std::int32_t i) override;
    std::int32_t newIndex() const override;
    bool sorted() const override;
    std::int16_t multiSelect() const override;
    bool selected(std::int32_t i) const override;
    void setSelected(std::int32_t i, bool on) override;
    std::int32_t selCount() const override;
    std::int32_t topIndex() const override;
    void setTopIndex(std::int32_t i) override;
    std::int16_t columns() const override { return columns_; }
    void setColumns(std::int16_t n) override;
    bool integralHeight() const override { return integralHeight_; }
    std::u16string text() const override;
    void setText(const std::u16string& t) override;
    std::int16_t imeMode() const override { return imeMode_; }
    void setImeMode(std::int16_t m) override { imeMode_ = m; }
    std::int32_t horizontalExtent() const override;
    void setHorizontalExtent(std::int32_t pixels) override;

protected:
    bool clicksOnRelease() const override { return true; }

private:
    void pushSelection();
    void pushCurrent();
    void changedByCode(bool changed);
    void selectionChangedByQt();
    ListBoxModel model_;
    std::int16_t columns_ = 0;
    bool integralHeight_;
    std::int16_t imeMode_ = 0;
    bool updating_ = false;
};

}  // namespace corvex::qt
