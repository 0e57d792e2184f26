// The Qt host's combo box of the list controls.
#pragma once

#include "corvex/lists/combo_model.h"
#include "corvex/platform/list_widgets.h"
#include "corvex/qt/widget.h"

class QComboBox;

namespace corvex::qt {

/// A combo box over a QComboBox (editable in the drop-down combo style). The core's combo
/// rules hold the items, their data and the selection; the QComboBox shows them and
/// reports the user's picks (Click) and edits (Change).
class QtComboBox : public QtWidget, public ComboBox {
public:
    /// A combo box on host made as design describes.
    QtComboBox(QtControlHost& host, const ComboBoxSpec& design);
    ~QtComboBox() override;

    /// The QComboBox shown.
    QComboBox* comboBox() const;

    ComboStyle style() const override { return style_; }
    bool sorted() const override { return model_.sorted(); }
    void addItem(const std::u16string& text, std::int32_t index) override;
    void removeItem(std::int32_t i) override;
    void clear() override;
    std::int32_t listCount() const override { return model_.count(); }
    std::u16string list(std::int32_t i) const override { return model_.item(i); }
    void setList(std::int32_t i, const std::u16string& text) override;
    std::int32_t itemData(std::int32_t i) const override { return model_.itemData(i); }
    void setItemData(std::int32_t i, std::int32_t data) override { model_.setItemData(i, data); }
    std::int32_t listIndex() const override { return model_.listIndex(); }
    void setListIndex(std::int32_t i) override;
    std::int32_t newIndex() const override { return model_.newIndex(); }
    std::u16string text() const override;
    void setText(const std::u16string& text) override;
    std::int32_t selStart() const override;
    void setSelStart(std::int32_t s) override;
    std::int32_t selLength() const override;
    void setSelLength(std::int32_t n) override;
    std::u16string selText() const override;
    void setSelText(const std::u16string& text) override;
    bool locked() const override { return model_.locked(); }
    void setLocked(bool v) override;
    std::int16_t imeMode() const override { return imeMode_; }
    void setImeMode(std::int16_t m) override { imeMode_ = m; }
    /// The combo box keeps its own height; the width and place follow the control.
    void move(float left, float top, float width, float height) override;

private:
    void show();
    void report(const lists::ComboOutcome& outcome, bool fromQt);
    void picked(int index);
    void edited(const QString& text);

    lists::ComboModel model_;
    ComboStyle style_;
    std::int16_t imeMode_ = 0;
    bool updating_ = false;
};

}  // namespace corvex::qt
