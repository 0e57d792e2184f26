// MessageBox: the settings of one message box, kept as design-time properties, and the
// box shown on request.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "corvex/services/msgbox_enums.h"
#include "corvex/services/service_control.h"

namespace corvex {

/// A service control holding a message box's text, title, buttons, icon, default button,
/// modality and help; Show (or a read of Answer) shows the box and keeps the answer.
class MessageBox : public ServiceControl {
public:
    /// A MessageBox on a host site.
    explicit MessageBox(ControlSite& site);
    ~MessageBox() override;
    /// The table of the MessageBox class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }

    void initProperties() override;
    void readProperties(PropertyBag& bag) override;
    void writeProperties(PropertyBag& bag) override;

    /// Shows the box and returns the answer: every read shows it again.
    MsgBoxControlAnswer answer();
    /// The last answer without showing anything (None before the first show).
    MsgBoxControlAnswer value() const;
    /// Shows the box, keeps the answer in Answer and Value and returns it. Raises 6 when
    /// the style's sum leaves 32 bits; the answers are kept then.
    MsgBoxControlAnswer showBox();
    /// The style number Show passes to the host (raises 6 on overflow).
    std::int32_t style() const;

    /// The buttons.
    MsgBoxControlButtonType buttonType() const;
    /// Sets the buttons (any number is taken).
    void setButtonType(MsgBoxControlButtonType v);
    /// The default button.
    MsgBoxControlDefaultButtonType defaultButtonType() const;
    /// Sets the default button (any number is taken).
    void setDefaultButtonType(MsgBoxControlDefaultButtonType v);
    /// Whether the box has a Help button.
    bool helpButton() const;
    /// Adds or removes the Help button.
    void setHelpButton(bool v);
    /// The help topic.
    std::int32_t helpContext() const;
    /// Sets the help topic.
    void setHelpContext(std::int32_t v);
    /// The help file.
    std::u16string helpFile() const;
    /// Sets the help file.
    void setHelpFile(std::u16string v);
    /// The icon.
    MsgBoxControlIconType iconType() const;
    /// Sets the icon (any number is taken).
    void setIconType(MsgBoxControlIconType v);
    /// The modality.
    MsgBoxControlModalType modalType() const;
    /// Sets the modality (any number is taken).
    void setModalType(MsgBoxControlModalType v);
    /// The text.
    std::u16string prompt() const;
    /// Sets the text.
    void setPrompt(std::u16string v);
    /// Whether the box comes to the foreground.
    bool setForeGround() const;
    /// Sets whether the box comes to the foreground.
    void setSetForeGround(bool v);
    /// Whether the text is right-aligned.
    bool textRight() const;
    /// Sets whether the text is right-aligned.
    void setTextRight(bool v);
    /// The title (empty: the application's name).
    std::u16string title() const;
    /// Sets the title.
    void setTitle(std::u16string v);

private:
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex
