#include "corvex/files/file_name_box.h"

#include "corvex/files/file_name_rules.h"

namespace corvex {

namespace {
constexpr const char16_t* kInnerName = u"txtInput";
constexpr std::int16_t kKeyEnter = 13;
}  // namespace

// What the rules ask of the control: its site's file system, messages and boxes.
class FileNameBoxEnv final : public files::FileNameEnv {
public:
    FileNameBoxEnv(ControlSite& site) : site_(site) {}
    FileSystem& fileSystem() override { return site_.fileSystem(); }
    std::u16string messageText(int code) override {
        return corvex::messageText(site_, files::messages(), code);
    }
    void showMessage(const std::u16string& text, std::int32_t style, int titleCode) override {
        MessageBoxRequest r;
        r.text = text;
        r.style = style;
        r.title = messageText(titleCode);
        site_.messageBoxes().messageBox(r);
    }

private:
    ControlSite& site_;
};

struct FileNameBox::Private {
    std::unique_ptr<TextBox> txt;
    files::FileNameSettings settings;
    bool validateAtLostFocus = true;
};

FileNameBox::FileNameBox(ControlSite& site) : TextControl(site), d(std::make_unique<Private>()) {
    TextBoxSpec spec;
    spec.name = kInnerName;
    spec.listener = this;
    spec.width = innerWidth();
    spec.height = innerHeight();
    spec.acceptsFiles = true;
    d->txt = site.widgets().createTextBox(spec);
    txt().setBackColor(color::WindowBackground);
    txt().setForeColor(color::WindowText);
    txt().setFont(ambientFont());
}

FileNameBox::~FileNameBox() = default;

TextBox& FileNameBox::txt() const {
    checkAvailable();
    return *d->txt;
}

TextBox& FileNameBox::textWidget() const {
    return txt();
}

void FileNameBox::lookChanged() {
    refresh();
}

void FileNameBox::releaseWidgets() {
    d->txt.reset();
}

const MessageTable& FileNameBox::messageTable() const {
    return files::messages();
}

const ClassInfo& FileNameBox::staticClassInfo() {
    using B = FileNameBox;
    static const ClassInfo info(
        u"FileNameBox", ClassKind::Control,
        MemberTable<B>()
            .method(u"Cls", &B::cls)
            .help(u"実行時の描画を消去します。（テキストはそのまま）",
                  u"Clears what was drawn at run time (the text stays).")
            .method(common::Refresh, &B::refresh)
            .method(u"Restore", &B::restore)
            .help(u"Storeで保存したテキストに戻します。", u"Returns to the text saved by Store.")
            .method(u"RestoreDefault", &B::restoreDefault)
            .help(u"値をDefaultValueにします。", u"Sets the value to DefaultValue.")
            .method(u"Store", &B::store)
            .help(u"現在のテキストを保存します。", u"Saves the current text.")
            .method(u"Cancel", &B::cancel)
            .help(u"ファイル名が不正のときTrueを返します。",
                  u"Returns True when the file name is invalid.")
            .method(u"ValidateValue", &B::validateValue)
            .help(u"ファイル名を検査し、正しければTrueを返します。",
                  u"Validates the file name and returns True when it is valid.")
            .property(common::BackColor, &B::backColor, &B::setBackColor)
            .saved(1, u"BackColor", color::WindowBackground)
            .property(common::DefaultValue, &B::defaultValue, &B::setDefaultValue)
            .designTimeOnly()
            .saved(9, u"DefaultValue", u"")
            .property(common::Enabled, &B::enabled, &B::setEnabled)
            .saved(2, u"Enabled", true)
            .getOnly(u"FileBody", &B::fileBody)
            .help(u"拡張子を除いたファイル名（先頭の\\を含む）を返します。",
                  u"Returns the file name without its extension (with its leading \\).")
            .getOnly(u"FileDrive", &B::fileDrive)
            .help(u"ドライブ名を返します。", u"Returns the drive.")
            .getOnly(u"FileExtension", &B::fileExtension)
            .help(u"拡張子を返します。", u"Returns the extension.")
            .getOnly(u"FileName", &B::fileName)
            .help(u"ファイル名全体を返します。", u"Returns the whole file name.")
            .getOnly(u"FilePath", &B::filePath)
            .help(u"パス名を返します。", u"Returns the path.")
            .getOnly(u"FilePathBody", &B::filePathBody)
            .help(u"拡張子を除いたファイル名全体を返します。",
                  u"Returns the whole file name without its extension.")
            .getOnly(u"FileTitle", &B::fileTitle)
            .help(u"ファイル名（先頭の\\を含む）を返します。",
                  u"Returns the file name (with its leading \\).")
            .property(common::Font, &B::font, &B::setFont)
            .saved(3, u"Font", ambientFontDefault)
            .readAt(6)
            .property(common::ForeColor, &B::foreColor, &B::setForeColor)
            .saved(4, u"ForeColor", color::WindowText)
            .readAt(3)
            .property(common::IMEMode, &B::imeMode, &B::setImeMode)
            .saved(5, u"IMEMode", std::int32_t{0})
            .readAt(4)
            .property(common::KeyName, &B::keyName, &B::setKeyName)
            .saved(10, u"KeyName", u"")
            .property(u"MaxLength", &B::maxLength, &B::setMaxLength)
            .help(u"最大文字数を設定します。", u"Sets the maximum number of characters.")
            .saved(6, u"MaxLength", std::int32_t{0})
            .readAt(5)
            .property(u"MessageShow", &B::messageShow, &B::setMessageShow)
            .help(u"警告をメッセージボックスで表示するかどうかを設定します。",
                  u"Sets whether warnings are shown in a message box.")
            .saved(7, u"MessageShow", true)
            .property(u"Mode", &B::mode, &B::setMode)
            .help(u"ファイルまたはフォルダの存在を検査するモードを設定します。",
                  u"Sets whether a file or folder must exist.")
            .saved(8, u"Mode", std::int32_t{0})
            .property(common::SectionName, &B::sectionName, &B::setSectionName)
            .saved(11, u"SectionName", u"")
            .property(common::SelLength, &B::selLength, &B::setSelLength)
            .property(common::SelStart, &B::selStart, &B::setSelStart)
            .property(common::SelText, &B::selText, &B::setSelText)
            .property(common::Text, &B::text, &B::setText)
            .property(u"ValidateAtLostFocus", &B::validateAtLostFocus, &B::setValidateAtLostFocus)
            .help(u"フォーカスを失うときに検査するかどうかを設定します。",
                  u"Sets whether the entry is validated when the control loses the focus.")
            .saved(12, u"ValidateAtLostFocus", true)
            .property(u"Value", &B::value, &B::setValue)
            .help(u"値（ファイル名）を設定します。", u"Sets the value (the file name).")
            .getOnly(u"ShortFileName", &B::shortFileName)
            .help(u"短いファイル名を返します。", u"Returns the short form of the file name.")
            .getOnly(u"LongFileName", &B::longFileName)
            .help(u"長いファイル名を返します。", u"Returns the long form of the file name.")
            .build(),
        [] {
            EventTable ev;
            events::addTextEvents(ev);
            ev.declared(u"OLEDragDrop", {{u"Data", VarType::Object, false, true},
                                         {u"Effect", VarType::Long, false, true},
                                         {u"Button", VarType::Integer, false, true},
                                         {u"Shift", VarType::Integer, false, true},
                                         {u"X", VarType::Single, false, true},
                                         {u"Y", VarType::Single, false, true}});
            events::addDeclaredLifecycle(ev);
            return ev.build();
        }(),
        [](ControlSite& site) { return std::make_shared<FileNameBox>(site); }, {2400, 300});
    return info;
}

// --- lifecycle ---------------------------------------------------------------------

void FileNameBox::initProperties() {
    // The invalid-character set stays empty until properties are read: a control just
    // placed in the designer filters only Enter.
    d->settings = files::FileNameSettings{};
    loadDefaultValue(u"");
    loadKeyName(u"");
    loadSectionName(u"");
    d->validateAtLostFocus = true;
}

void FileNameBox::readProperties(PropertyBag& bag) {
    TextBox& t = txt();
    t.setBackColor(readSaved<std::int32_t>(bag, u"BackColor", color::WindowBackground));
    t.setEnabled(readSaved<bool>(bag, u"Enabled", true));
    t.setForeColor(readSaved<std::int32_t>(bag, u"ForeColor", color::WindowText));
    t.setImeMode(readSaved<std::int16_t>(bag, u"IMEMode", std::int32_t{0}));
    t.setMaxLength(readSaved<std::int32_t>(bag, u"MaxLength", std::int32_t{0}));
    t.setFont(readSaved(bag, u"Font", Variant(Font::make(ambientFont())), fontFromVariant));
    d->settings.messageShow = readSaved<bool>(bag, u"MessageShow", true);
    d->settings.mode = readSaved<std::int32_t>(bag, u"Mode", std::int32_t{0});
    loadDefaultValue(readSaved<std::u16string>(bag, u"DefaultValue", u""));
    loadKeyName(readSaved<std::u16string>(bag, u"KeyName", u""));
    loadSectionName(readSaved<std::u16string>(bag, u"SectionName", u""));
    d->validateAtLostFocus = readSaved<bool>(bag, u"ValidateAtLostFocus", true);
    t.setText(defaultValue());
    d->settings.invalidChars = files::invalidCharacters();
}

void FileNameBox::writeProperties(PropertyBag& bag) {
    const TextBox& t = txt();
    bag.write(u"BackColor", t.backColor(), color::WindowBackground);
    bag.write(u"Enabled", t.enabled(), true);
    bag.write(u"Font", Variant(Font::make(t.font())), Variant(Font::make(ambientFont())));
    bag.write(u"ForeColor", t.foreColor(), color::WindowText);
    bag.write(u"IMEMode", std::int32_t{t.imeMode()}, std::int32_t{0});
    bag.write(u"MaxLength", t.maxLength(), std::int32_t{0});
    bag.write(u"MessageShow", d->settings.messageShow, true);
    bag.write(u"Mode", d->settings.mode, std::int32_t{0});
    bag.write(u"DefaultValue", defaultValue(), u"");
    bag.write(u"KeyName", keyName(), u"");
    bag.write(u"SectionName", sectionName(), u"");
    bag.write(u"ValidateAtLostFocus", d->validateAtLostFocus, true);
}

void FileNameBox::resize() {
    txt().setWidth(innerWidth());
    txt().setHeight(innerHeight());
}

// --- behaviour ---------------------------------------------------------------------

bool FileNameBox::validateFileName() {
    FileNameBoxEnv env(site());
    return files::validate(txt().text(), d->settings, env);
}

void FileNameBox::widgetEvent(Widget&, WidgetEvent& event) {
    switch (event.type) {
        case WidgetEventType::Change:
            raiseEvent(u"Change");
            break;
        case WidgetEventType::KeyPress: {
            const auto ch = static_cast<char16_t>(event.keyAscii);
            if (event.keyAscii == kKeyEnter ||
                d->settings.invalidChars.find(ch) != std::u16string::npos)
                event.keyAscii = 0;
            passOnKey(event);
            break;
        }
        case WidgetEventType::LostFocus:
            if (d->validateAtLostFocus && !validateFileName()) txt().setFocus();
            break;
        case WidgetEventType::FilesDropped:
            // The first file of the drop replaces the text; it is checked only later.
            if (!event.files.empty()) txt().setText(event.files.front());
            break;
        default:
            passOn(event);
            break;
    }
}

std::u16string FileNameBox::validPart(int which) {
    if (!validateFileName()) return {};
    return files::part(txt().text(), static_cast<files::Part>(which));
}

// --- members -----------------------------------------------------------------------

void FileNameBox::cls() {
    // The surface holds no run-time drawing of its own; the name in the box is kept.
}

void FileNameBox::restoreDefault() {
    setValue(defaultValue());
}

bool FileNameBox::cancel() {
    return !validateFileName();
}

bool FileNameBox::validateValue() {
    return validateFileName();
}

std::u16string FileNameBox::fileBody() {
    if (!validateFileName()) return {};
    return files::stripExtension(fileTitle());
}

std::u16string FileNameBox::fileDrive() {
    return files::part(txt().text(), files::Part::Drive);
}

std::u16string FileNameBox::fileExtension() {
    return validPart(static_cast<int>(files::Part::Extension));
}

std::u16string FileNameBox::fileName() {
    return validPart(static_cast<int>(files::Part::Name));
}

std::u16string FileNameBox::filePath() {
    return validPart(static_cast<int>(files::Part::Path));
}

std::u16string FileNameBox::filePathBody() {
    return validPart(static_cast<int>(files::Part::PathBody));
}

std::u16string FileNameBox::fileTitle() {
    return validPart(static_cast<int>(files::Part::Title));
}

std::int32_t FileNameBox::maxLength() const {
    return txt().maxLength();
}

void FileNameBox::setMaxLength(std::int32_t n) {
    if (n < 0) throw Error(err::InvalidPropertyValue);
    txt().setMaxLength(n);
    propertyChanged(u"MaxLength");
}

bool FileNameBox::messageShow() const {
    return d->settings.messageShow;
}

void FileNameBox::setMessageShow(bool v) {
    d->settings.messageShow = v;
    propertyChanged(u"MessageShow");
}

CheckExistsMode FileNameBox::mode() const {
    return static_cast<CheckExistsMode>(d->settings.mode);
}

void FileNameBox::setMode(CheckExistsMode m) {
    d->settings.mode = static_cast<std::int32_t>(m);
    propertyChanged(u"Mode");
}

bool FileNameBox::validateAtLostFocus() const {
    return d->validateAtLostFocus;
}

void FileNameBox::setValidateAtLostFocus(bool v) {
    d->validateAtLostFocus = v;
    propertyChanged(u"ValidateAtLostFocus");
}

std::u16string FileNameBox::value() const {
    return txt().text();
}

void FileNameBox::setValue(std::u16string v) {
    txt().setText(v);
    propertyChanged(u"Value");
    propertyChanged(u"Text");
}

std::u16string FileNameBox::shortFileName() {
    if (!validateFileName() || txt().text().empty()) return {};
    return files::shortName(txt().text(), site().fileSystem());
}

std::u16string FileNameBox::longFileName() {
    if (!validateFileName() || txt().text().empty()) return {};
    return files::longName(txt().text(), site().fileSystem());
}

}  // namespace corvex
