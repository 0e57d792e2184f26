// The in-memory combo box of the headless host, on the core's combo rules.
#pragma once

#include "corvex/headless/widgets.h"
#include "corvex/lists/combo_model.h"
#include "corvex/platform/list_widgets.h"

namespace corvex::headless {

/// A combo box: a click opens the drop-down list without choosing; pick chooses an item
/// as the user does with the mouse; typing edits the edit part (free-text style) or jumps
/// to the next item starting with the character (pick-only style).
class HeadlessComboBox : public HeadlessWidget, public ComboBox {
public:
    /// A combo box of a site.
    HeadlessComboBox(Site& site, const ComboBoxSpec& spec);
    ComboStyle style() const override { return style_; }
    bool sorted() const override { return model_.sorted(); }
    void addItem(const std::u16string& text, std::int32_t index) override;
    void removeItem(std::int32_t i) override;
    void clear() override;
    std::int32_t listCount() const override { return model_.count(); }
    std::u16string list(std::int32_t i) const override { return model_.item(i); }
    void setList(std::int32_t i, const std::u16string& text) override;
    std::int32_t itemData(std::int32_t i) const override { return model_.itemData(i); }
    void setItemData(std::int32_t i, std::int32_t data) override;
    std::int32_t listIndex() const override { return model_.listIndex(); }
    void setListIndex(std::int32_t i) override;
    std::int32_t newIndex() const override { return model_.newIndex(); }
    std::u16string text() const override { return model_.edit().text(); }
    void setText(const std::u16string& text) override;
    std::int32_t selStart() const override { return model_.edit().selStart(); }
    void setSelStart(std::int32_t s) override { model_.setSelStart(s); }
    std::int32_t selLength() const override { return model_.edit().selLength(); }
    void setSelLength(std::int32_t n) override { model_.setSelLength(n); }
    std::u16string selText() const override { return model_.edit().selText(); }
    void setSelText(const std::u16string& text) override;
    bool locked() const override { return model_.locked(); }
    void setLocked(bool v) override { model_.setLocked(v); }
    std::int16_t imeMode() const override { return imeMode_; }
    void setImeMode(std::int16_t m) override { imeMode_ = m; }

    /// The user chooses item i from the list: nothing on a disabled, hidden or locked box.
    void pick(std::int32_t i);
    /// The user scrolls the open drop-down list: Scroll.
    void scrollList();

protected:
    void characterTyped(char16_t ch) override;

private:
    void report(const lists::ComboOutcome& outcome);

    lists::ComboModel model_;
    ComboStyle style_;
    std::int16_t imeMode_ = 0;
};

}  // namespace corvex::headless
