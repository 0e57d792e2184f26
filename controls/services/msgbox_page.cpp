#include "corvex/services/msgbox_page.h"

#include <vector>

#include "corvex/platform/page_widgets.h"
#include "corvex/services/msgbox_enums.h"

namespace corvex {

namespace {

// The page's layout, twips: captions on the left, fields on the right.
constexpr float kCaptionLeft = 120;
constexpr float kCaptionWidth = 1800;
constexpr float kFieldLeft = 2040;
constexpr float kFieldWidth = 3480;
constexpr float kRow = 330;
constexpr float kRowHeight = 285;
constexpr float kCheckWidth = 1800;

// The text boxes in the order the page reads them, with the members they edit.
struct TextField {
    const char16_t* widget;
    const char16_t* member;
    const char16_t* caption;
};
constexpr TextField kTexts[] = {
    {u"txtHelpContext", u"HelpContext", u"HelpContext:"},
    {u"txtHelpFile", u"HelpFile", u"HelpFile:"},
    {u"txtTitle", u"Title", u"Title:"},
    {u"txtPrompt", u"Prompt", u"Prompt:"},
};

// The check boxes in the order the page applies them.
struct CheckField {
    const char16_t* widget;
    const char16_t* member;
};
constexpr CheckField kChecks[] = {
    {u"chkHelpButton", u"HelpButton"},
    {u"chkTextRight", u"TextRight"},
    {u"chkSetForeGround", u"SetForeGround"},
};

// The lists in the order the page applies them.
struct ListField {
    const char16_t* widget;
    const char16_t* member;
    const char16_t* caption;
};
constexpr ListField kLists[] = {
    {u"cmbButtonType", u"ButtonType", u"ButtonType:"},
    {u"cmbDefaultButton", u"DefaultButtonType", u"DefaultButtonType:"},
    {u"cmbIconType", u"IconType", u"IconType:"},
    {u"cmbModalType", u"ModalType", u"ModalType:"},
};

bool isDigit(std::int16_t ch) {
    return ch >= u'0' && ch <= u'9';
}

}  // namespace

struct MsgBoxPage::Private {
    std::vector<std::unique_ptr<TextLabel>> captions;
    std::vector<std::unique_ptr<TextBox>> texts;    // in kTexts order
    std::vector<std::unique_ptr<ItemList>> lists;   // in kLists order
    std::vector<std::unique_ptr<CheckBox>> checks;  // in kChecks order
};

MsgBoxPage::MsgBoxPage(ControlSite& site) : PropertyPage(site), d(std::make_unique<Private>()) {
    makeWidgets();
}

MsgBoxPage::~MsgBoxPage() = default;

const ClassInfo& MsgBoxPage::staticClassInfo() {
    static const ClassInfo info(
        u"ppgMSGBOX", ClassKind::PropertyPage, MemberTable<MsgBoxPage>().build(), {},
        [](ControlSite& site) { return std::make_shared<MsgBoxPage>(site); }, {5700, 3720});
    return info;
}

void MsgBoxPage::makeCaption(const char16_t* name, const char16_t* caption, float top) {
    WidgetSpec spec;
    spec.name = name;
    spec.left = kCaptionLeft;
    spec.top = top;
    spec.width = kCaptionWidth;
    spec.height = kRowHeight;
    d->captions.push_back(site().widgets().createTextLabel(spec));
    d->captions.back()->setCaption(caption);
}

ItemList& MsgBoxPage::makeList(const char16_t* name, const EnumInfo& values, float top) {
    WidgetSpec spec;
    spec.name = name;
    spec.listener = this;
    spec.left = kFieldLeft;
    spec.top = top;
    spec.width = kFieldWidth;
    spec.height = kRowHeight;
    d->lists.push_back(site().widgets().createItemList(spec));
    // The entries show the enumeration's names; each carries its value, not its index.
    for (const auto& [text, value] : values.members) d->lists.back()->addItem(text, value);
    return *d->lists.back();
}

void MsgBoxPage::makeLists() {
    const EnumInfo* values[] = {
        &enumInfo<MsgBoxControlButtonType>(), &enumInfo<MsgBoxControlDefaultButtonType>(),
        &enumInfo<MsgBoxControlIconType>(), &enumInfo<MsgBoxControlModalType>()};
    for (std::size_t i = 0; i < std::size(kLists); ++i) {
        const float top = kRow * static_cast<float>(i + std::size(kTexts));
        makeCaption((std::u16string(u"lbl") + kLists[i].member).c_str(), kLists[i].caption, top);
        makeList(kLists[i].widget, *values[i], top);
    }
}

void MsgBoxPage::makeWidgets() {
    for (std::size_t i = 0; i < std::size(kTexts); ++i) {
        const float top = kRow * static_cast<float>(i);
        makeCaption((std::u16string(u"lbl") + kTexts[i].member).c_str(), kTexts[i].caption, top);
        TextBoxSpec spec;
        spec.name = kTexts[i].widget;
        spec.listener = this;
        spec.left = kFieldLeft;
        spec.top = top;
        spec.width = kFieldWidth;
        spec.height = kRowHeight;
        d->texts.push_back(site().widgets().createTextBox(spec));
    }
    makeLists();
    for (std::size_t i = 0; i < std::size(kChecks); ++i) {
        WidgetSpec spec;
        spec.name = kChecks[i].widget;
        spec.listener = this;
        spec.left = kFieldLeft;
        spec.top = kRow * static_cast<float>(i + std::size(kTexts) + std::size(kLists));
        // As wide as its caption needs: a click on the box's blank right part ticks nothing.
        spec.width = kCheckWidth;
        spec.height = kRowHeight;
        d->checks.push_back(site().widgets().createCheckBox(spec));
        d->checks.back()->setCaption(kChecks[i].member);
    }
}

void MsgBoxPage::releaseWidgets() {
    d->captions.clear();
    d->texts.clear();
    d->lists.clear();
    d->checks.clear();
}

void MsgBoxPage::selectionChanged() {
    Object* target = firstSelected();
    if (!target) return;
    for (std::size_t i = 0; i < std::size(kTexts); ++i) {
        d->texts[i]->setText(getProperty(*target, kTexts[i].member).toString());
    }
    for (std::size_t i = 0; i < std::size(kChecks); ++i) {
        const bool on = static_cast<bool>(getProperty(*target, kChecks[i].member).toBoolean());
        d->checks[i]->setValue(on ? 1 : 0);
    }
    for (std::size_t i = 0; i < std::size(kLists); ++i) {
        const std::int32_t value = getProperty(*target, kLists[i].member).toLong();
        ItemList& list = *d->lists[i];
        // Every entry is looked at: when several carry the value, the last one wins; when
        // none does, the selection stays as it was.
        for (std::int32_t e = 0; e < list.listCount(); ++e) {
            if (list.itemData(e) == value) list.setListIndex(e);
        }
    }
}

void MsgBoxPage::applyChanges() {
    Object* target = firstSelected();
    if (!target) return;
    // A help topic left empty is topic 0 rather than a type mismatch.
    const std::u16string context = d->texts[0]->text();
    letProperty(*target, kTexts[0].member, Variant(context.empty() ? u"0" : context));
    for (std::size_t i = 1; i < std::size(kTexts); ++i) {
        letProperty(*target, kTexts[i].member, Variant(d->texts[i]->text()));
    }
    for (std::size_t i = 0; i < std::size(kChecks); ++i) {
        letProperty(*target, kChecks[i].member, Variant(Boolean(d->checks[i]->value() == 1)));
    }
    for (std::size_t i = 0; i < std::size(kLists); ++i) {
        const ItemList& list = *d->lists[i];
        // A list on which nothing is chosen leaves its property as it is.
        if (list.listIndex() < 0) continue;
        letProperty(*target, kLists[i].member, Variant(list.itemData(list.listIndex())));
    }
}

void MsgBoxPage::widgetEvent(Widget& source, WidgetEvent& event) {
    switch (event.type) {
        case WidgetEventType::KeyPress:
            // The help topic takes digits only: every other key, Backspace too, is dropped.
            if (&source == d->texts[0].get() && !isDigit(event.keyAscii)) event.keyAscii = 0;
            break;
        case WidgetEventType::Change:
            edited();
            break;
        case WidgetEventType::Click:
            // A click into a text box edits nothing; one on a list or a check box does.
            if (!dynamic_cast<TextBox*>(&source)) edited();
            break;
        default:
            break;
    }
}

}  // namespace corvex
