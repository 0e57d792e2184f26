// In-memory widgets of the headless host, with the user's input simulated on them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "corvex/common/text_editing.h"
#include "corvex/platform/widgets.h"

namespace corvex::headless {

class Site;

/// What every headless widget keeps and how the user acts on it.
class HeadlessWidget : public virtual Widget {
public:
    /// A widget of a site, made from its spec.
    HeadlessWidget(Site& site, const WidgetSpec& spec);
    ~HeadlessWidget() override;

    const std::u16string& name() const override { return name_; }
    std::int16_t index() const override { return index_; }
    float left() const override { return left_; }
    float top() const override { return top_; }
    float width() const override { return width_; }
    float height() const override { return height_; }
    void move(float left, float top, float width, float height) override;
    bool visible() const override { return visible_; }
    void setVisible(bool v) override { visible_ = v; }
    bool enabled() const override { return enabled_; }
    void setEnabled(bool v) override { enabled_ = v; }
    std::int32_t backColor() const override { return backColor_; }
    void setBackColor(std::int32_t c) override { backColor_ = c; }
    std::int32_t foreColor() const override { return foreColor_; }
    void setForeColor(std::int32_t c) override { foreColor_ = c; }
    FontDesc font() const override { return font_; }
    void setFont(const FontDesc& f) override { font_ = f; }
    void setFocus() override;
    bool hasFocus() const override;
    void refresh() override { ++refreshCount; }

    /// The site the widget sits on.
    Site& site() const { return site_; }
    /// How often the widget was asked to repaint.
    int refreshCount = 0;

    /// The user clicks the widget's centre: MouseDown, MouseUp, the widget's own
    /// reaction, Click. Nothing happens on a disabled or hidden widget.
    virtual void click();
    /// The user double-clicks: a click, then DblClick.
    void doubleClick();
    /// The user types one character: KeyDown, KeyPress, the insertion unless the key was
    /// swallowed (KeyAscii 0) or replaced, KeyUp.
    void type(char16_t ch);
    /// The user presses and releases a key without a character: KeyDown, KeyUp.
    void pressKey(std::int16_t keyCode, std::int16_t shift);
    /// A mouse event at (x, y) in the surface's scale units.
    void mouse(WidgetEventType type, std::int16_t button, std::int16_t shift, float x, float y);
    /// Sends an event to the control that owns the widget.
    void emit(WidgetEvent& event);
    /// The user drops files (full paths, as the platform names them) on the widget: one
    /// FilesDropped. Nothing happens on a disabled or hidden widget.
    void dropFiles(std::vector<std::u16string> files);

protected:
    /// What the widget does with a typed character that was not swallowed.
    virtual void characterTyped(char16_t) {}
    /// What the widget does when a key goes up.
    virtual void keyReleased(std::int16_t) {}
    /// A key pressed without typing a character of its own, as the handlers left it.
    struct PressedKey {
        std::int16_t pressedCode = 0;   ///< the key code as pressed
        std::int16_t pressedShift = 0;  ///< the shift state as pressed
        std::int16_t keyCode = 0;       ///< the key code after KeyDown's handlers
        bool keyCodeCleared = false;    ///< a KeyDown handler set KeyCode to 0
        bool hasPress = false;          ///< Ctrl typed a control character: KeyPress was raised
        char16_t original = 0;          ///< that control character
        char16_t keyAscii = 0;          ///< the character as the KeyPress handlers left it
    };
    /// What the widget does after KeyDown (and KeyPress, for a Ctrl+letter) of a key.
    virtual void keyPressedDown(const PressedKey&) {}
    /// What a click does beyond the mouse events and before Click; returns whether the
    /// widget raises Click itself (a check box does when its value changes).
    virtual bool clicked() { return false; }

private:
    Site& site_;
    std::u16string name_;
    std::int16_t index_;
    WidgetListener* listener_;
    float left_, top_, width_, height_;
    bool visible_;
    bool enabled_ = true;
    std::int32_t backColor_ = 0;
    std::int32_t foreColor_ = 0;
    FontDesc font_;
};

/// A check box: a click or the space bar toggles it (grayed turns checked); a change of
/// its value, by the user or by code, raises Click.
class HeadlessCheckBox : public HeadlessWidget, public CheckBox {
public:
    /// A check box of a site.
    HeadlessCheckBox(Site& site, const WidgetSpec& spec) : HeadlessWidget(site, spec) {}
    std::u16string caption() const override { return caption_; }
    void setCaption(const std::u16string& c) override { caption_ = c; }
    std::int16_t value() const override { return value_; }
    void setValue(std::int16_t v) override;

protected:
    void keyReleased(std::int16_t keyCode) override;
    bool clicked() override;

private:
    void toggle();
    std::u16string caption_;
    std::int16_t value_ = 0;
};

/// A text box: typing inserts at the caret and replaces the selection, MaxLength refuses
/// what would not fit, Backspace deletes, Enter inserts a line break only when multi-line.
/// The rules are the core's TextEditModel; this box only raises the widget events.
class HeadlessTextBox : public HeadlessWidget, public TextBox {
public:
    /// A text box of a site.
    HeadlessTextBox(Site& site, const TextBoxSpec& spec);
    std::u16string text() const override { return model_.text(); }
    void setText(const std::u16string& t) override;
    std::int32_t selStart() const override { return model_.selStart(); }
    void setSelStart(std::int32_t s) override;
    std::int32_t selLength() const override { return model_.selLength(); }
    void setSelLength(std::int32_t n) override;
    std::u16string selText() const override { return model_.selText(); }
    void setSelText(const std::u16string& t) override;
    std::int32_t maxLength() const override { return model_.maxLength(); }
    void setMaxLength(std::int32_t n) override { model_.setMaxLength(n); }
    std::int16_t imeMode() const override { return imeMode_; }
    void setImeMode(std::int16_t m) override { imeMode_ = m; }
    bool locked() const override { return model_.locked(); }
    void setLocked(bool v) override { model_.setLocked(v); }

    /// Text alignment from the design (0 left, 1 right, 2 centre).
    std::int16_t alignment() const { return alignment_; }
    /// Whether the box holds several lines.
    bool multiLine() const { return model_.multiLine(); }
    /// The scroll bars of the design (0 none ... 3 both).
    std::int16_t scrollBars() const { return scrollBars_; }

protected:
    void characterTyped(char16_t ch) override;
    void keyPressedDown(const PressedKey& key) override;

private:
    void changed(bool textChanged);

    TextEditModel model_;
    std::int16_t imeMode_ = 0;
    std::int16_t alignment_;
    std::int16_t scrollBars_;
    bool nativeClipboard_;
};

}  // namespace corvex::headless
