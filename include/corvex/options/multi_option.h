// MultiOption: a framed group of option buttons that lays itself out in rows.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "corvex/common/common_members.h"
#include "corvex/library/enums.h"

namespace corvex {

class Frame;
class OptionButton;

/// A frame (frameContainer) holding an array of option buttons (optChildOption) whose
/// number, captions, size and spacing are properties. Value is the selected button's
/// index; it is saved and restored by the settings control under SectionName and KeyName.
class MultiOption : public CommonControl {
public:
    /// A MultiOption on a host site; creates the frame and button 0.
    explicit MultiOption(ControlSite& site);
    ~MultiOption() override;
    /// The table of the MultiOption class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }

    void initProperties() override;
    void readProperties(PropertyBag& bag) override;
    void writeProperties(PropertyBag& bag) override;
    void resize() override;
    void show() override;
    void surfaceMouse(const WidgetEvent& event) override;

    /// Clears every button.
    void cls();
    /// Sets Value to the stored index; nothing before any Store.
    void restore();
    /// Sets Value to DefaultValue.
    void restoreDefault();
    /// Keeps the current Value.
    void store();

    /// The frame's border style.
    MultiOptionBorder borderStyle() const;
    /// Sets the frame's border style.
    void setBorderStyle(MultiOptionBorder s);
    /// The frame's caption.
    std::u16string caption() const;
    /// Sets the frame's caption.
    void setCaption(std::u16string c);
    /// The frame's caption colour.
    std::int32_t captionColor() const;
    /// Sets the frame's caption colour.
    void setCaptionColor(std::int32_t c);
    /// The frame's font.
    std::shared_ptr<Font> captionFont() const;
    /// Sets the frame's font; Nothing raises 424.
    void setCaptionFont(std::shared_ptr<Font> f);
    /// The index selected on load and by RestoreDefault.
    std::int16_t defaultValue() const;
    /// Sets the default (design time only; 0 to OptionNum - 1), then Value to it.
    void setDefaultValue(std::int16_t v);
    /// Whether the frame takes input.
    bool enabled() const;
    /// Enables or disables the frame and every button.
    void setEnabled(bool v);
    /// Space between the buttons of a row.
    std::int32_t horiSpace() const;
    /// Sets the space between buttons and re-arranges.
    void setHoriSpace(std::int32_t v);
    /// Button 0's back colour.
    std::int32_t optionBackColor() const;
    /// Sets every button's back colour.
    void setOptionBackColor(std::int32_t c);
    /// The captions, separated by "|".
    std::u16string optionCaptions() const;
    /// Sets the captions and re-arranges.
    void setOptionCaptions(std::u16string t);
    /// Button 0's font.
    std::shared_ptr<Font> optionFont() const;
    /// Sets every button's font; Nothing raises 424.
    void setOptionFont(std::shared_ptr<Font> f);
    /// Button 0's text colour.
    std::int32_t optionForeColor() const;
    /// Sets every button's text colour.
    void setOptionForeColor(std::int32_t c);
    /// Every button's height.
    std::int32_t optionHeight() const;
    /// Sets the buttons' height and re-arranges.
    void setOptionHeight(std::int32_t v);
    /// Button 0's left, rounded.
    std::int32_t optionLeft() const;
    /// Moves button 0 to a left and re-arranges (the saved field is not changed).
    void setOptionLeft(std::int32_t v);
    /// The number of buttons.
    std::int16_t optionNum() const;
    /// Sets the number of buttons (at least 1) and re-arranges.
    void setOptionNum(std::int16_t v);
    /// Buttons per row (0: one row).
    std::int16_t optionNumPerLine() const;
    /// Sets the buttons per row (at least 1) and re-arranges.
    void setOptionNumPerLine(std::int16_t v);
    /// Button 0's top, rounded.
    std::int32_t optionTop() const;
    /// Moves button 0 to a top and re-arranges (the saved field is not changed).
    void setOptionTop(std::int32_t v);
    /// Every button's width.
    std::int32_t optionWidth() const;
    /// Sets the buttons' width and re-arranges.
    void setOptionWidth(std::int32_t v);
    /// The index of the first selected button, or the last one seen when none is.
    std::int16_t value() const;
    /// Selects a button; raises 340 when it does not exist.
    void setValue(std::int16_t v);
    /// Space added between rows.
    std::int32_t vartSpace() const;
    /// Sets the row space and re-arranges.
    void setVartSpace(std::int32_t v);

protected:
    void widgetEvent(Widget& source, WidgetEvent& event) override;
    void releaseWidgets() override;
    Widget& commonWidget() const override;
    void lookChanged() override;
    const MessageTable& messageTable() const override;

private:
    Frame& frame() const;
    OptionButton& button(std::int16_t index) const;
    void arrange();
    void syncButtonCount();
    void placeButtons(const std::vector<std::u16string>& captions);
    void forEachButton(const std::function<void(OptionButton&)>& f) const;
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex
