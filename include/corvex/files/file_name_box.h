// FileNameBox: a one-line box for a Windows file or folder name, filtered while typed,
// checked by syntax and (by Mode) existence, and taken apart into drive, path and title.
#pragma once

#include <memory>

#include "corvex/common/common_members.h"

namespace corvex {

/// A text control around the inner text box txtInput that holds a file or folder name.
class FileNameBox final : public TextControl {
public:
    /// A FileNameBox on a host site; creates txtInput.
    explicit FileNameBox(ControlSite& site);
    ~FileNameBox() override;
    /// The table of the FileNameBox class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }

    void initProperties() override;
    void readProperties(PropertyBag& bag) override;
    void writeProperties(PropertyBag& bag) override;
    void resize() override;

    /// Clears run-time drawing of the surface (there is none); the text stays.
    void cls();
    /// Sets Value to DefaultValue.
    void restoreDefault();
    /// True when the name is not acceptable, for a host's Validate handler.
    bool cancel();
    /// Validates the name (syntax, then existence by Mode), with warnings.
    bool validateValue();

    /// StripExtension of FileTitle; "" when the name is not valid.
    std::u16string fileBody();
    /// Everything before the first colon (never validated).
    std::u16string fileDrive();
    /// What follows the last dot of the whole text; "" when the name is not valid.
    std::u16string fileExtension();
    /// The whole text; "" when the name is not valid.
    std::u16string fileName();
    /// Everything before the last backslash; "" when the name is not valid.
    std::u16string filePath();
    /// The text without its extension; "" when the name is not valid.
    std::u16string filePathBody();
    /// From the last backslash, inclusive; "" when the name is not valid.
    std::u16string fileTitle();
    /// The maximum length (0: none).
    std::int32_t maxLength() const;
    /// Sets the maximum length.
    void setMaxLength(std::int32_t n);
    /// Whether warnings are shown in message boxes.
    bool messageShow() const;
    /// Sets whether warnings are shown.
    void setMessageShow(bool v);
    /// What must exist for the name to be valid.
    CheckExistsMode mode() const;
    /// Sets Mode (any value is kept).
    void setMode(CheckExistsMode m);
    /// Whether leaving the box validates it.
    bool validateAtLostFocus() const;
    /// Sets whether leaving the box validates it.
    void setValidateAtLostFocus(bool v);
    /// The value: the text.
    std::u16string value() const;
    /// Sets the text as the value.
    void setValue(std::u16string v) override;
    /// The short form of the name; "" when not valid or not found.
    std::u16string shortFileName();
    /// Each element in its stored spelling; "" when not valid or not found.
    std::u16string longFileName();

protected:
    const MessageTable& messageTable() const override;
    void widgetEvent(Widget& source, WidgetEvent& event) override;
    void releaseWidgets() override;
    TextBox& textWidget() const override;
    /// Repaints after a colour or font let.
    void lookChanged() override;

private:
    TextBox& txt() const;
    bool validateFileName();
    std::u16string validPart(int which);

    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex
