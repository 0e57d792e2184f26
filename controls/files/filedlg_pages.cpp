#include "corvex/files/filedlg_pages.h"

#include <span>
#include <string>
#include <vector>

#include "corvex/common/text.h"
#include "corvex/platform/option_widgets.h"
#include "corvex/platform/page_widgets.h"

namespace corvex {

// A caption of a page's design, twips.
struct PageLabel {
    const char16_t* name;
    const char16_t* caption;
    float left;
    float top;
    float width;
};

// A field of a page's design: a text box (digits only or not) or a check box, named after
// the member it edits.
enum class FieldKind { Text, Digits, Check };
struct PageField {
    FieldKind kind;
    const char16_t* widget;
    const char16_t* member;
    float left;
    float top;
    float width;
};

// Everything one page is made of. Mode stands for the pair of option buttons optMode.
struct FileDialogPageDesign {
    const char16_t* className;
    const char16_t* caption;
    std::span<const PageLabel> labels;
    std::span<const PageField> fields;
    std::span<const char16_t* const> applyOrder;
    bool modeButtons;
    std::pair<float, float> size;
};

namespace {

constexpr float kRowHeight = 285;
constexpr float kLabelLeft = 120;
constexpr float kLabelWidth = 1800;
constexpr float kFieldLeft = 2040;
constexpr float kWide = 3720;
constexpr float kNarrow = 900;
constexpr float kColumn2 = 3120;
constexpr float kCheckWidth = 2640;

constexpr float row(int i) {
    return 120 + 360 * static_cast<float>(i);
}

constexpr const char16_t* kMode = u"Mode";

// Page 1: the texts of the dialog and its mode.
constexpr PageLabel kLabels1[] = {
    {u"lblMode", u"ダイアログの種類:", kLabelLeft, row(0), kLabelWidth},
    {u"lblFileName", u"ファイル名:", kLabelLeft, row(1), kLabelWidth},
    {u"lblFilter", u"フィルタ:", kLabelLeft, row(2), kLabelWidth},
    {u"lblFilterExample", u"例: (*.txt)|*.txt|(*.bmp;*.ico)|*.bmp;*.ico", kFieldLeft, row(3),
     kWide},
    {u"lblFilterIndex", u"フィルタ番号:", kLabelLeft, row(4), kLabelWidth},
    {u"lblInitDir", u"初期フォルダ:", kLabelLeft, row(5), kLabelWidth},
    {u"lblDefaultExt", u"既定の拡張子:", kLabelLeft, row(6), kLabelWidth},
    {u"lblMaxFileSize", u"最大ファイルサイズ:", kLabelLeft, row(7), kLabelWidth},
    {u"lblMaxFileSizeHint", u"(1 バイトから 32 KB まで)", kFieldLeft + kNarrow + 120, row(7),
     kWide - kNarrow - 120},
};
constexpr PageField kFields1[] = {
    {FieldKind::Text, u"txtFileName", u"FileName", kFieldLeft, row(1), kWide},
    {FieldKind::Text, u"txtFilter", u"Filter", kFieldLeft, row(2), kWide},
    {FieldKind::Digits, u"txtFilterIndex", u"FilterIndex", kFieldLeft, row(4), kNarrow},
    {FieldKind::Text, u"txtInitDir", u"InitDir", kFieldLeft, row(5), kWide},
    {FieldKind::Text, u"txtDefaultExt", u"DefaultExt", kFieldLeft, row(6), kNarrow},
    {FieldKind::Digits, u"txtMaxFileSize", u"MaxFileSize", kFieldLeft, row(7), kNarrow},
};
constexpr const char16_t* kApply1[] = {kMode,       u"InitDir",    u"FilterIndex", u"Filter",
                                       u"FileName", u"DefaultExt", u"MaxFileSize"};

// Page 2: file names, multi-selection and prompts, in two columns.
constexpr PageField kFields2[] = {
    {FieldKind::Check, u"chkAllowMultiselect", u"AllowMultiselect", kLabelLeft, row(0),
     kCheckWidth},
    {FieldKind::Check, u"chkCreatePrompt", u"CreatePrompt", kLabelLeft, row(1), kCheckWidth},
    {FieldKind::Check, u"chkExplorer", u"Explorer", kLabelLeft, row(2), kCheckWidth},
    {FieldKind::Check, u"chkFileMustExist", u"FileMustExist", kLabelLeft, row(3), kCheckWidth},
    {FieldKind::Check, u"chkLongNames", u"LongNames", kLabelLeft, row(4), kCheckWidth},
    {FieldKind::Check, u"chkNoLongNames", u"NoLongNames", kColumn2, row(0), kCheckWidth},
    {FieldKind::Check, u"chkNoReadOnlyReturn", u"NoReadOnlyReturn", kColumn2, row(1), kCheckWidth},
    {FieldKind::Check, u"chkNoValidate", u"NoValidate", kColumn2, row(2), kCheckWidth},
    {FieldKind::Check, u"chkOverwritePrompt", u"OverwritePrompt", kColumn2, row(3), kCheckWidth},
    {FieldKind::Check, u"chkPathMustExist", u"PathMustExist", kColumn2, row(4), kCheckWidth},
};
// AllowMultiselect and Explorer go last: their couplings have the final word on the names.
constexpr const char16_t* kApply2[] = {
    u"NoValidate",    u"NoReadOnlyReturn", u"LongNames",    u"NoLongNames",      u"OverwritePrompt",
    u"FileMustExist", u"PathMustExist",    u"CreatePrompt", u"AllowMultiselect", u"Explorer"};

// Page 3: the dialog's look.
constexpr PageLabel kLabels3[] = {
    {u"lblDialogTitle", u"ダイアログのタイトル:", kLabelLeft, row(3), kLabelWidth},
};
constexpr PageField kFields3[] = {
    {FieldKind::Check, u"chkHelpButton", u"HelpButton", kLabelLeft, row(0), kCheckWidth},
    {FieldKind::Check, u"chkHideReadOnly", u"HideReadOnly", kLabelLeft, row(1), kCheckWidth},
    {FieldKind::Check, u"chkNoChangeDir", u"NoChangeDir", kColumn2, row(0), kCheckWidth},
    {FieldKind::Check, u"chkReadOnly", u"ReadOnly", kColumn2, row(1), kCheckWidth},
    {FieldKind::Text, u"txtDialogTitle", u"DialogTitle", kFieldLeft, row(3), kWide},
};
constexpr const char16_t* kApply3[] = {u"ReadOnly", u"HideReadOnly", u"NoChangeDir", u"DialogTitle",
                                       u"HelpButton"};

// Page 4: links and sharing.
constexpr PageField kFields4[] = {
    {FieldKind::Check, u"chkNoDereferenceLinks", u"NoDereferenceLinks", kLabelLeft, row(0),
     kCheckWidth},
    {FieldKind::Check, u"chkShareAware", u"ShareAware", kLabelLeft, row(1), kCheckWidth},
};
constexpr const char16_t* kApply4[] = {u"ShareAware", u"NoDereferenceLinks"};

constexpr FileDialogPageDesign kPage1{u"ppgFILEDLG1", u"全般", kLabels1,    kFields1,
                                      kApply1,        true,    {5880, 3120}};
constexpr FileDialogPageDesign kPage2{u"ppgFILEDLG2", u"ファイル名と確認", {}, kFields2, kApply2,
                                      false,          {5880, 2040}};
constexpr FileDialogPageDesign kPage3{u"ppgFILEDLG3", u"ダイアログ", kLabels3,    kFields3,
                                      kApply3,        false,         {5880, 1680}};
constexpr FileDialogPageDesign kPage4{u"ppgFILEDLG4", u"リンクと共有", {},         kFields4,
                                      kApply4,        false,           {5880, 960}};

template <class Page>
const ClassInfo& pageClass(const FileDialogPageDesign& design) {
    static const ClassInfo info(
        design.className, ClassKind::PropertyPage, MemberTable<Page>().build(), {},
        [](ControlSite& site) { return std::make_shared<Page>(site); }, design.size);
    return info;
}

}  // namespace

std::int16_t digitsOnlyKey(std::int16_t keyAscii) {
    constexpr std::int16_t backspace = 8;
    if (keyAscii == backspace || (keyAscii >= u'0' && keyAscii <= u'9')) return keyAscii;
    return 0;
}

struct FileDialogPage::Private {
    explicit Private(const FileDialogPageDesign& d) : design(d) {}
    const FileDialogPageDesign& design;
    std::vector<std::unique_ptr<TextLabel>> labels;
    std::unique_ptr<OptionButtonArray> mode;
    // One widget per design field, in the design's order.
    std::vector<std::unique_ptr<TextBox>> texts;
    std::vector<std::unique_ptr<CheckBox>> checks;
    std::vector<const PageField*> textFields;
    std::vector<const PageField*> checkFields;
    // Set while the page moves boxes itself: those clicks are no user's, and couple nothing.
    bool coupling = false;

    CheckBox* check(std::u16string_view member) const {
        for (std::size_t i = 0; i < checks.size(); ++i) {
            if (checkFields[i]->member == member) return checks[i].get();
        }
        return nullptr;
    }
    bool on(std::u16string_view member) const {
        const CheckBox* c = check(member);
        return c && c->value() == 1;
    }
    void set(std::u16string_view member, bool v) const {
        if (CheckBox* c = check(member)) c->setValue(v ? 1 : 0);
    }
    void enable(std::u16string_view member, bool v) const {
        if (CheckBox* c = check(member)) c->setEnabled(v);
    }
    const PageField* textField(const Widget& w) const {
        for (std::size_t i = 0; i < texts.size(); ++i) {
            if (texts[i].get() == &w) return textFields[i];
        }
        return nullptr;
    }
    const PageField* checkField(const Widget& w) const {
        for (std::size_t i = 0; i < checks.size(); ++i) {
            if (checks[i].get() == &w) return checkFields[i];
        }
        return nullptr;
    }
};

FileDialogPage::FileDialogPage(ControlSite& site, const FileDialogPageDesign& design)
    : PropertyPage(site), d(std::make_unique<Private>(design)) {
    makeWidgets();
}

FileDialogPage::~FileDialogPage() = default;

std::u16string FileDialogPage::caption() const {
    return d->design.caption;
}

void FileDialogPage::makeModeButtons(float top) {
    OptionButtonSpec spec;
    spec.name = u"optMode";
    spec.index = 0;
    spec.listener = this;
    spec.left = kFieldLeft;
    spec.top = top;
    spec.width = 1800;
    spec.height = kRowHeight;
    d->mode = site().widgets().createOptionButtonArray(spec);
    d->mode->element(0).setCaption(u"ファイルを開く");
    OptionButton& save = d->mode->create(1);
    save.move(kFieldLeft + 1920, top, 1800, kRowHeight);
    save.setCaption(u"ファイルを保存");
    save.setVisible(true);
}

void FileDialogPage::makeWidgets() {
    for (const PageLabel& l : d->design.labels) {
        WidgetSpec spec;
        spec.name = l.name;
        spec.left = l.left;
        spec.top = l.top;
        spec.width = l.width;
        spec.height = kRowHeight;
        d->labels.push_back(site().widgets().createTextLabel(spec));
        d->labels.back()->setCaption(l.caption);
    }
    if (d->design.modeButtons) makeModeButtons(row(0));
    for (const PageField& f : d->design.fields) {
        if (f.kind == FieldKind::Check) {
            WidgetSpec spec;
            spec.name = f.widget;
            spec.listener = this;
            spec.left = f.left;
            spec.top = f.top;
            spec.width = f.width;
            spec.height = kRowHeight;
            d->checks.push_back(site().widgets().createCheckBox(spec));
            d->checks.back()->setCaption(f.member);
            d->checkFields.push_back(&f);
            continue;
        }
        TextBoxSpec spec;
        spec.name = f.widget;
        spec.listener = this;
        spec.left = f.left;
        spec.top = f.top;
        spec.width = f.width;
        spec.height = kRowHeight;
        d->texts.push_back(site().widgets().createTextBox(spec));
        d->textFields.push_back(&f);
    }
}

void FileDialogPage::releaseWidgets() {
    d->labels.clear();
    d->mode.reset();
    d->texts.clear();
    d->checks.clear();
}

void FileDialogPage::selectionChanged() {
    Object* target = firstSelected();
    if (!target) return;
    if (d->mode) {
        const std::int32_t mode = getProperty(*target, kMode).toLong();
        for (std::int16_t i = 0; i < 2; ++i) d->mode->element(i).setValue(mode == i);
    }
    for (std::size_t i = 0; i < d->texts.size(); ++i) {
        d->texts[i]->setText(getProperty(*target, d->textFields[i]->member).toString());
    }
    for (std::size_t i = 0; i < d->checks.size(); ++i) {
        const bool on =
            static_cast<bool>(getProperty(*target, d->checkFields[i]->member).toBoolean());
        d->checks[i]->setValue(on ? 1 : 0);
    }
    showAllowedBoxes();
}

void FileDialogPage::applyChanges() {
    Object* target = firstSelected();
    if (!target) return;
    for (const char16_t* member : d->design.applyOrder) {
        if (std::u16string_view(member) == kMode) {
            letProperty(*target, kMode, Variant(std::int32_t{d->mode->element(1).value() ? 1 : 0}));
            continue;
        }
        for (std::size_t i = 0; i < d->texts.size(); ++i) {
            // Handed over as text: the control's own let converts it (or refuses it).
            if (d->textFields[i]->member == std::u16string_view(member)) {
                letProperty(*target, member, Variant(d->texts[i]->text()));
            }
        }
        for (std::size_t i = 0; i < d->checks.size(); ++i) {
            if (d->checkFields[i]->member == std::u16string_view(member)) {
                letProperty(*target, member, Variant(Boolean(d->checks[i]->value() == 1)));
            }
        }
    }
}

void FileDialogPage::widgetEvent(Widget& source, WidgetEvent& event) {
    switch (event.type) {
        case WidgetEventType::KeyPress: {
            const PageField* f = d->textField(source);
            if (f && f->kind == FieldKind::Digits) event.keyAscii = digitsOnlyKey(event.keyAscii);
            break;
        }
        case WidgetEventType::Change:
            edited();
            break;
        case WidgetEventType::Click:
            // A click into a text box edits nothing; one on an option or check box does.
            if (!dynamic_cast<TextBox*>(&source)) clicked(source);
            break;
        default:
            break;
    }
}

void FileDialogPage::clicked(Widget& source) {
    edited();
    // The page fills its boxes as the control has them; the couplings are for the user.
    if (loading() || d->coupling) return;
    const PageField* f = d->checkField(source);
    if (!f) return;
    d->coupling = true;
    try {
        couple(f->member, d->on(f->member));
    } catch (...) {
        d->coupling = false;
        throw;
    }
    d->coupling = false;
}

// What the control will do with the names, shown on the page: without multi-selection the
// names are long; the old-style (no Explorer) multi-select dialog takes short names only.
void FileDialogPage::coupleNames() {
    if (!d->on(u"AllowMultiselect")) {
        d->set(u"LongNames", true);
        d->set(u"NoLongNames", false);
    } else if (!d->on(u"Explorer")) {
        d->set(u"LongNames", false);
        d->set(u"NoLongNames", true);
    }
}

void FileDialogPage::couple(const std::u16string& box, bool checked) {
    if (box == u"CreatePrompt") {
        if (checked) {
            d->set(u"FileMustExist", true);
            d->set(u"PathMustExist", true);
        }
        d->enable(u"FileMustExist", !checked);
        d->enable(u"PathMustExist", !checked && !d->on(u"FileMustExist"));
    } else if (box == u"FileMustExist") {
        if (checked) d->set(u"PathMustExist", true);
        d->enable(u"PathMustExist", !checked);
    } else if (box == u"HideReadOnly") {
        if (checked) d->set(u"ReadOnly", false);
    } else if (box == u"ReadOnly") {
        // The page's own rule: the control keeps HideReadOnly when ReadOnly is set.
        if (checked) d->set(u"HideReadOnly", false);
    } else if (box == u"AllowMultiselect") {
        if (!checked) d->set(u"Explorer", true);
        coupleNames();
        for (const char16_t* b : {u"Explorer", u"LongNames", u"NoLongNames"}) d->enable(b, checked);
    } else if (box == u"Explorer") {
        if (!d->on(u"AllowMultiselect")) d->set(u"Explorer", true);
        coupleNames();
    } else if (box == u"LongNames") {
        d->set(u"NoLongNames", !checked);
        coupleNames();
    } else if (box == u"NoLongNames") {
        d->set(u"LongNames", !checked);
        coupleNames();
    }
}

// After loading: the boxes that the couplings fix are disabled, as a click would leave them.
void FileDialogPage::showAllowedBoxes() {
    const bool create = d->on(u"CreatePrompt");
    d->enable(u"FileMustExist", !create);
    d->enable(u"PathMustExist", !create && !d->on(u"FileMustExist"));
    const bool multi = d->on(u"AllowMultiselect");
    for (const char16_t* b : {u"Explorer", u"LongNames", u"NoLongNames"}) d->enable(b, multi);
}

FileDialogPage1::FileDialogPage1(ControlSite& site) : FileDialogPage(site, kPage1) {}
FileDialogPage2::FileDialogPage2(ControlSite& site) : FileDialogPage(site, kPage2) {}
FileDialogPage3::FileDialogPage3(ControlSite& site) : FileDialogPage(site, kPage3) {}
FileDialogPage4::FileDialogPage4(ControlSite& site) : FileDialogPage(site, kPage4) {}

const ClassInfo& FileDialogPage1::staticClassInfo() {
    return pageClass<FileDialogPage1>(kPage1);
}
const ClassInfo& FileDialogPage2::staticClassInfo() {
    return pageClass<FileDialogPage2>(kPage2);
}
const ClassInfo& FileDialogPage3::staticClassInfo() {
    return pageClass<FileDialogPage3>(kPage3);
}
const ClassInfo& FileDialogPage4::staticClassInfo() {
    return pageClass<FileDialogPage4>(kPage4);
}

}  // namespace corvex
