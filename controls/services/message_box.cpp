#include "corvex/services/message_box.h"

#include <limits>

#include "corvex/platform/message_box.h"

namespace corvex {

// --- enumerations ----------------------------------------------------------------------

template <>
const EnumInfo& enumInfo<MsgBoxControlButtonType>() {
    static const EnumInfo info{u"MsgBoxControlButtonType",
                               {{u"OKOnly", 0},
                                {u"OKCancel", 1},
                                {u"AbortRetryIgnore", 2},
                                {u"YesNoCancel", 3},
                                {u"YesNo", 4},
                                {u"RetryCancel", 5}}};
    return info;
}

template <>
const EnumInfo& enumInfo<MsgBoxControlIconType>() {
    static const EnumInfo info{u"MsgBoxControlIconType",
                               {{u"None", 0},
                                {u"Critical", 16},
                                {u"Question", 32},
                                {u"Exclamation", 48},
                                {u"Information", 64}}};
    return info;
}

template <>
const EnumInfo& enumInfo<MsgBoxControlDefaultButtonType>() {
    static const EnumInfo info{
        u"MsgBoxControlDefaultButtonType",
        {{u"Button1", 0}, {u"Button2", 256}, {u"Button3", 512}, {u"Button4", 768}}};
    return info;
}

template <>
const EnumInfo& enumInfo<MsgBoxControlModalType>() {
    static const EnumInfo info{u"MsgBoxControlModalType",
                               {{u"ApplicationModal", 0}, {u"SystemModal", 4096}}};
    return info;
}

template <>
const EnumInfo& enumInfo<MsgBoxControlAnswer>() {
    static const EnumInfo info{u"MsgBoxControlAnswer",
                               {{u"None", 0},
                                {u"OK", 1},
                                {u"Cancel", 2},
                                {u"Abort", 3},
                                {u"Retry", 4},
                                {u"Ignore", 5},
                                {u"Yes", 6},
                                {u"No", 7}}};
    return info;
}

// --- the control -----------------------------------------------------------------------

namespace {

// Signed 32-bit addition as the host's Long arithmetic does it: leaving 32 bits is an
// overflow (6), not a wrap.
std::int32_t addLong(std::int32_t a, std::int32_t b) {
    const std::int64_t sum = static_cast<std::int64_t>(a) + b;
    if (sum < std::numeric_limits<std::int32_t>::min() ||
        sum > std::numeric_limits<std::int32_t>::max()) {
        throw Error(err::Overflow);
    }
    return static_cast<std::int32_t>(sum);
}

std::int32_t raw(auto e) {
    return static_cast<std::int32_t>(e);
}

}  // namespace

struct MessageBox::Private {
    MsgBoxControlAnswer answer = MsgBoxControlAnswer::None;
    MsgBoxControlButtonType buttonType = MsgBoxControlButtonType::OKOnly;
    MsgBoxControlIconType iconType = MsgBoxControlIconType::None;
    MsgBoxControlDefaultButtonType defaultButton = MsgBoxControlDefaultButtonType::Button1;
    MsgBoxControlModalType modalType = MsgBoxControlModalType::ApplicationModal;
    bool helpButton = false;
    bool foreground = false;
    bool textRight = false;
    MsgBoxControlAnswer value = MsgBoxControlAnswer::None;
    std::u16string prompt;
    std::u16string title;
    std::u16string helpFile;
    std::int32_t helpContext = 0;
};

MessageBox::MessageBox(ControlSite& site) : ServiceControl(site), d(std::make_unique<Private>()) {}

MessageBox::~MessageBox() = default;

const ClassInfo& MessageBox::staticClassInfo() {
    static const ClassInfo info = [] {
        using M = MessageBox;
        const Variant zero(std::int32_t{0});
        return ClassInfo(
                   u"MessageBox", ClassKind::ServiceControl,
                   MemberTable<M>()
                       .getOnly(u"Answer", &M::answer)
                       .help(u"メッセージボックスを表示し、押されたボタンを返します。",
                             u"Shows the message box and returns the button pressed.")
                       .saved(13, u"Answer", zero)
                       .property(u"ButtonType", &M::buttonType, &M::setButtonType)
                       .help(u"表示するボタンを設定します。", u"Sets the buttons shown.")
                       .saved(1, u"ButtonType", zero)
                       .property(u"DefaultButtonType", &M::defaultButtonType,
                                 &M::setDefaultButtonType)
                       .help(u"既定のボタンを設定します。", u"Sets the default button.")
                       .saved(3, u"DefaultButtonType", zero)
                       .property(u"HelpButton", &M::helpButton, &M::setHelpButton)
                       .help(u"ヘルプボタンを表示するかどうかを設定します。",
                             u"Sets whether a Help button is shown.")
                       .saved(5, u"HelpButton", false)
                       .property(u"HelpContext", &M::helpContext, &M::setHelpContext)
                       .help(u"ヘルプのトピック番号を設定します。", u"Sets the help topic number.")
                       .saved(12, u"HelpContext", zero)
                       .property(u"HelpFile", &M::helpFile, &M::setHelpFile)
                       .help(u"ヘルプファイル名を設定します。", u"Sets the help file name.")
                       .saved(11, u"HelpFile", u"")
                       .property(u"IconType", &M::iconType, &M::setIconType)
                       .help(u"表示するアイコンを設定します。", u"Sets the icon shown.")
                       .saved(2, u"IconType", zero)
                       .property(u"ModalType", &M::modalType, &M::setModalType)
                       .help(u"モーダルの種類を設定します。", u"Sets the kind of modality.")
                       .saved(4, u"ModalType", zero)
                       .property(u"Prompt", &M::prompt, &M::setPrompt)
                       .help(u"表示するメッセージを設定します。", u"Sets the message shown.")
                       .saved(9, u"Prompt", u"")
                       .property(u"SetForeGround", &M::setForeGround, &M::setSetForeGround)
                       .help(u"メッセージボックスを前面に表示するかどうかを設定します。",
                             u"Sets whether the message box is brought to the foreground.")
                       .saved(6, u"SetForeGround", false)
                       .property(u"TextRight", &M::textRight, &M::setTextRight)
                       .help(u"メッセージを右揃えにするかどうかを設定します。",
                             u"Sets whether the message is right-aligned.")
                       .saved(7, u"TextRight", false)
                       .property(u"Title", &M::title, &M::setTitle)
                       .help(u"タイトルを設定します。", u"Sets the title.")
                       .saved(10, u"Title", u"")
                       .getOnly(u"Value", &M::value)
                       .help(u"最後に押されたボタンを返します。",
                             u"Returns the button pressed last.")
                       .saved(8, u"Value", zero)
                       .method(u"Show", &M::showBox)
                       .help(u"メッセージボックスを表示し、押されたボタンを返します。",
                             u"Shows the message box and returns the button pressed.")
                       .build(),
                   serviceEvents(),
                   [](ControlSite& site) { return std::make_shared<MessageBox>(site); },
                   {ServiceIconSize, ServiceIconSize})
            .withPropertyPages({u"ppgMSGBOX"});
    }();
    return info;
}

void MessageBox::initProperties() {
    d->value = MsgBoxControlAnswer::None;
    d->prompt.clear();
    d->title.clear();
    d->helpFile.clear();
    d->helpContext = 0;
}

void MessageBox::readProperties(PropertyBag& bag) {
    const Variant zero(std::int32_t{0});
    d->buttonType = readSaved<MsgBoxControlButtonType>(bag, u"ButtonType", zero);
    d->iconType = readSaved<MsgBoxControlIconType>(bag, u"IconType", zero);
    d->defaultButton = readSaved<MsgBoxControlDefaultButtonType>(bag, u"DefaultButtonType", zero);
    d->modalType = readSaved<MsgBoxControlModalType>(bag, u"ModalType", zero);
    d->helpButton = readSaved<bool>(bag, u"HelpButton", false);
    d->foreground = readSaved<bool>(bag, u"SetForeGround", false);
    d->textRight = readSaved<bool>(bag, u"TextRight", false);
    d->value = readSaved<MsgBoxControlAnswer>(bag, u"Value", zero);
    d->prompt = readSaved<std::u16string>(bag, u"Prompt", u"");
    d->title = readSaved<std::u16string>(bag, u"Title", u"");
    d->helpFile = readSaved<std::u16string>(bag, u"HelpFile", u"");
    d->helpContext = readSaved<std::int32_t>(bag, u"HelpContext", zero);
    d->answer = readSaved<MsgBoxControlAnswer>(bag, u"Answer", zero);
}

void MessageBox::writeProperties(PropertyBag& bag) {
    const Variant zero(std::int32_t{0});
    bag.write(u"ButtonType", raw(d->buttonType), zero);
    bag.write(u"IconType", raw(d->iconType), zero);
    bag.write(u"DefaultButtonType", raw(d->defaultButton), zero);
    bag.write(u"ModalType", raw(d->modalType), zero);
    bag.write(u"HelpButton", Boolean(d->helpButton), false);
    bag.write(u"SetForeGround", Boolean(d->foreground), false);
    bag.write(u"TextRight", Boolean(d->textRight), false);
    bag.write(u"Value", raw(d->value), zero);
    bag.write(u"Prompt", d->prompt, u"");
    bag.write(u"Title", d->title, u"");
    bag.write(u"HelpFile", d->helpFile, u"");
    bag.write(u"HelpContext", d->helpContext, zero);
    bag.write(u"Answer", raw(d->answer), zero);
}

std::int32_t MessageBox::style() const {
    // Added, not or-ed: numbers outside an enumeration carry into the other bits.
    std::int32_t s = addLong(raw(d->buttonType), raw(d->iconType));
    s = addLong(s, raw(d->defaultButton));
    s = addLong(s, raw(d->modalType));
    if (d->helpButton) s = addLong(s, mb::HelpButton);
    if (d->foreground) s = addLong(s, mb::Foreground);
    if (d->textRight) s = addLong(s, mb::RightAligned);
    return s;
}

MsgBoxControlAnswer MessageBox::showBox() {
    MessageBoxRequest request;
    request.style = style();
    request.text = d->prompt;
    request.title = d->title;
    request.helpFile = d->helpFile;
    request.helpContext = d->helpContext;
    const auto answer = static_cast<MsgBoxControlAnswer>(site().messageBoxes().messageBox(request));
    d->answer = answer;
    d->value = answer;
    return answer;
}

MsgBoxControlAnswer MessageBox::answer() {
    return showBox();
}

MsgBoxControlAnswer MessageBox::value() const {
    checkAvailable();
    return d->value;
}

MsgBoxControlButtonType MessageBox::buttonType() const {
    return d->buttonType;
}

void MessageBox::setButtonType(MsgBoxControlButtonType v) {
    d->buttonType = v;
    propertyChanged(u"ButtonType");
}

MsgBoxControlDefaultButtonType MessageBox::defaultButtonType() const {
    return d->defaultButton;
}

void MessageBox::setDefaultButtonType(MsgBoxControlDefaultButtonType v) {
    d->defaultButton = v;
    propertyChanged(u"DefaultButtonType");
}

bool MessageBox::helpButton() const {
    return d->helpButton;
}

void MessageBox::setHelpButton(bool v) {
    d->helpButton = v;
    propertyChanged(u"HelpButton");
}

std::int32_t MessageBox::helpContext() const {
    return d->helpContext;
}

void MessageBox::setHelpContext(std::int32_t v) {
    d->helpContext = v;
    propertyChanged(u"HelpContext");
}

std::u16string MessageBox::helpFile() const {
    return d->helpFile;
}

void MessageBox::setHelpFile(std::u16string v) {
    d->helpFile = std::move(v);
    propertyChanged(u"HelpFile");
}

MsgBoxControlIconType MessageBox::iconType() const {
    return d->iconType;
}

void MessageBox::setIconType(MsgBoxControlIconType v) {
    d->iconType = v;
    propertyChanged(u"IconType");
}

MsgBoxControlModalType MessageBox::modalType() const {
    return d->modalType;
}

void MessageBox::setModalType(MsgBoxControlModalType v) {
    d->modalType = v;
    propertyChanged(u"ModalType");
}

std::u16string MessageBox::prompt() const {
    return d->prompt;
}

void MessageBox::setPrompt(std::u16string v) {
    d->prompt = std::move(v);
    propertyChanged(u"Prompt");
}

bool MessageBox::setForeGround() const {
    return d->foreground;
}

void MessageBox::setSetForeGround(bool v) {
    d->foreground = v;
    propertyChanged(u"SetForeGround");
}

bool MessageBox::textRight() const {
    return d->textRight;
}

void MessageBox::setTextRight(bool v) {
    d->textRight = v;
    propertyChanged(u"TextRight");
}

std::u16string MessageBox::title() const {
    return d->title;
}

void MessageBox::setTitle(std::u16string v) {
    d->title = std::move(v);
    propertyChanged(u"Title");
}

}  // namespace corvex
