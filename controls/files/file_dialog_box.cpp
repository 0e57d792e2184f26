#include "corvex/files/file_dialog_box.h"

#include <optional>

#include "corvex/files/dialog_errors.h"
#include "corvex/files/dialog_notes.h"
#include "corvex/files/dialog_record.h"
#include "corvex/platform/form.h"

namespace corvex {

template <>
const EnumInfo& enumInfo<OpenOrSaveMode>() {
    static const EnumInfo info{u"OpenOrSaveMode", {{u"OpenMode", 0}, {u"SaveMode", 1}}};
    return info;
}

namespace {

// The control's own messages.
constexpr int NotOpenMode = 10001;
constexpr int NotSaveMode = 10002;

// The error a cancel raises when CancelError is on.
constexpr std::int32_t CancelErrorNumber = 32755;

}  // namespace

struct FileDialogBox::Private {
    bool cancelError = false;
    std::u16string fileName;
    std::int32_t flags = 0;
    bool allowMultiselect = false;
    bool createPrompt = false;
    std::u16string defaultExt;
    std::u16string dialogTitle;
    bool explorer = true;
    bool fileMustExist = false;
    std::u16string filter;
    std::int16_t filterIndex = 0;
    bool helpButton = false;
    bool hideReadOnly = false;
    std::u16string initDir;
    bool longNames = true;
    std::int32_t maxFileSize = 260;
    OpenOrSaveMode mode = OpenOrSaveMode::OpenMode;
    bool noChangeDir = false;
    bool noDereferenceLinks = false;
    bool noLongNames = false;
    bool noReadOnlyReturn = false;
    bool noValidate = false;
    bool overwritePrompt = false;
    bool pathMustExist = false;
    bool readOnly = false;
    bool shareAware = false;

    // Not saved.
    std::int32_t hwnd = 0;
    std::u16string fileTitle;
    bool cancelSelected = false;
    bool failed = false;  // the last dialog failed (not cancelled)
};

FileDialogBox::FileDialogBox(ControlSite& site)
    : ServiceControl(site), d(std::make_unique<Private>()) {}

FileDialogBox::~FileDialogBox() = default;

const ClassInfo& FileDialogBox::staticClassInfo() {
    static const ClassInfo info = [] {
        using F = FileDialogBox;
        const Variant zero(std::int32_t{0});
        SavedInfo cancelError;
        cancelError.writeName = cancelError.readName = u"CancelError";
        cancelError.defaultValue = Variant(Boolean(false));
        cancelError.writeOrder = cancelError.readOrder = 1;
        return ClassInfo(
                   u"FileDialogBox", ClassKind::ServiceControl,
                   MemberTable<F>()
                       .method(u"Cls", &F::cls)
                       .help(u"ファイル名をクリアします。", u"Clears the file name.")
                       .method(u"ShowAbout", &F::showAbout)
                       .help(u"ダイアログのフラグについての注意を表示します。",
                             u"Shows the notes on the dialog flags.")
                       .method(u"FileOpen", &F::fileOpen)
                       .help(u"「ファイルを開く」ダイアログを表示し、選択されたファイル名を返します"
                             u"。",
                             u"Shows the Open dialog and returns the chosen file name.")
                       .method(u"FileSave", &F::fileSave)
                       .help(u"「ファイルを保存」ダイアログを表示し、選択されたファイル名を返します"
                             u"。",
                             u"Shows the Save dialog and returns the chosen file name.")
                       .method(u"ShowOpen", &F::showOpen)
                       .help(u"「ファイルを開く」ダイアログを表示します。",
                             u"Shows the Open dialog.")
                       .method(u"ShowSave", &F::showSave)
                       .help(u"「ファイルを保存」ダイアログを表示します。",
                             u"Shows the Save dialog.")
                       .property(u"AllowMultiselect", &F::allowMultiselect, &F::setAllowMultiselect)
                       .help(u"複数のファイルを選択できるかどうかを設定します。",
                             u"Sets whether several files may be chosen.")
                       .saved(3, u"AllowMultiselect", false)
                       .property(u"CancelSelected", &F::cancelSelected, &F::setCancelSelected)
                       .help(u"キャンセルが選択されたかどうかを返します。",
                             u"Returns whether the dialog was cancelled.")
                       .property(u"CreatePrompt", &F::createPrompt, &F::setCreatePrompt)
                       .help(u"ファイルを作成する前に確認するかどうかを設定します。",
                             u"Sets whether to ask before a new file is created.")
                       .saved(4, u"CreatePrompt", false)
                       .property(u"DefaultExt", &F::defaultExt, &F::setDefaultExt)
                       .help(u"既定の拡張子を設定します。", u"Sets the default extension.")
                       .saved(5, u"DefaultExt", u"")
                       .property(u"DialogTitle", &F::dialogTitle, &F::setDialogTitle)
                       .help(u"ダイアログのタイトルを設定します。",
                             u"Sets the title of the dialog.")
                       .saved(6, u"DialogTitle", u"")
                       .property(u"Explorer", &F::explorer, &F::setExplorer)
                       .help(u"エクスプローラ形式のダイアログを使うかどうかを設定します。",
                             u"Sets whether the explorer-style dialog is used.")
                       .saved(7, u"Explorer", true)
                       .property(u"FileMustExist", &F::fileMustExist, &F::setFileMustExist)
                       .help(u"存在するファイルだけを選択できるかどうかを設定します。",
                             u"Sets whether only existing files may be chosen.")
                       .saved(8, u"FileMustExist", false)
                       .property(u"FileName", &F::fileName, &F::setFileName)
                       .help(u"ファイル名を設定します。", u"Sets the file name.")
                       .saved(1, u"FileName", u"")
                       .getOnly(u"FileTitle", &F::fileTitle)
                       .help(u"選択されたファイルのタイトルを返します。",
                             u"Returns the title of the chosen file.")
                       .property(u"Filter", &F::filter, &F::setFilter)
                       .help(u"ファイルの種類のフィルタを設定します。",
                             u"Sets the file-type filter.")
                       .saved(9, u"Filter", u"")
                       .property(u"FilterIndex", &F::filterIndex, &F::setFilterIndex)
                       .help(u"既定のフィルタの番号を設定します。",
                             u"Sets the number of the default filter.")
                       .saved(10, u"FilterIndex", Variant(std::int16_t{0}))
                       .property(u"Flags", &F::flags, &F::setFlags)
                       .help(u"ダイアログのフラグを設定します。", u"Sets the dialog flags.")
                       .saved(2, u"Flags", zero)
                       .getOnly(u"hDC", &F::hDC)
                       .help(u"デバイス コンテキストのハンドルを返します。",
                             u"Returns the device context handle.")
                       .property(u"HelpButton", &F::helpButton, &F::setHelpButton)
                       .help(u"ヘルプボタンを表示するかどうかを設定します。",
                             u"Sets whether a Help button is shown.")
                       .saved(11, u"HelpButton", false)
                       .property(u"HideReadOnly", &F::hideReadOnly, &F::setHideReadOnly)
                       .help(u"読み取り専用チェックボックスを隠すかどうかを設定します。",
                             u"Sets whether the read-only check box is hidden.")
                       .saved(12, u"HideReadOnly", false)
                       .property(u"hwnd", &F::hwnd, &F::setHwnd)
                       .help(u"オーナーウィンドウのハンドルを設定します。",
                             u"Sets the handle of the owner window.")
                       .property(u"InitDir", &F::initDir, &F::setInitDir)
                       .help(u"最初に表示するフォルダを設定します。",
                             u"Sets the folder shown first.")
                       .saved(13, u"InitDir", u"")
                       .property(u"LongNames", &F::longNames, &F::setLongNames)
                       .help(u"長いファイル名を使うかどうかを設定します。",
                             u"Sets whether long file names are used.")
                       .saved(14, u"LongNames", true)
                       .property(u"MaxFileSize", &F::maxFileSize, &F::setMaxFileSize)
                       .help(u"ファイル名の最大サイズを設定します。",
                             u"Sets the maximum size of the file name.")
                       .saved(15, u"MaxFileSize", Variant(std::int32_t{260}))
                       .property(u"Mode", &F::mode, &F::setMode)
                       .help(u"「開く」と「保存」のどちらのダイアログかを設定します。",
                             u"Sets whether the dialog is an Open or a Save dialog.")
                       .saved(16, u"Mode", zero)
                       .property(u"NoChangeDir", &F::noChangeDir, &F::setNoChangeDir)
                       .help(u"カレントフォルダを変更しないかどうかを設定します。",
                             u"Sets whether the current folder is left unchanged.")
                       .saved(17, u"NoChangeDir", false)
                       .property(u"NoDereferenceLinks", &F::noDereferenceLinks,
                                 &F::setNoDereferenceLinks)
                       .help(
                           u"ショートカットを参照先に置き換えないかどうかを設定します。",
                           u"Sets whether shortcuts are returned as they are rather than resolved.")
                       .saved(18, u"NoDereferenceLinks", false)
                       .property(u"NoLongNames", &F::noLongNames, &F::setNoLongNames)
                       .help(u"短いファイル名を使うかどうかを設定します。",
                             u"Sets whether short file names are used.")
                       .saved(19, u"NoLongNames", false)
                       .property(u"NoReadOnlyReturn", &F::noReadOnlyReturn, &F::setNoReadOnlyReturn)
                       .help(u"読み取り専用ファイルを選択できないようにするかどうかを設定します。",
                             u"Sets whether read-only files are refused.")
                       .saved(20, u"NoReadOnlyReturn", false)
                       .property(u"NoValidate", &F::noValidate, &F::setNoValidate)
                       .help(u"ファイル名に無効な文字を許すかどうかを設定します。",
                             u"Sets whether invalid characters are allowed in the file name.")
                       .saved(21, u"NoValidate", false)
                       .property(u"OverwritePrompt", &F::overwritePrompt, &F::setOverwritePrompt)
                       .help(u"上書きする前に確認するかどうかを設定します。",
                             u"Sets whether to ask before an existing file is overwritten.")
                       .saved(22, u"OverwritePrompt", false)
                       .property(u"PathMustExist", &F::pathMustExist, &F::setPathMustExist)
                       .help(u"存在するパスだけを入力できるかどうかを設定します。",
                             u"Sets whether only existing paths may be entered.")
                       .saved(23, u"PathMustExist", false)
                       .property(u"ReadOnly", &F::readOnly, &F::setReadOnly)
                       .help(u"読み取り専用チェックボックスをオンにするかどうかを設定します。",
                             u"Sets whether the read-only check box is checked.")
                       .saved(24, u"ReadOnly", false)
                       .property(u"ShareAware", &F::shareAware, &F::setShareAware)
                       .help(u"共有違反を無視するかどうかを設定します。",
                             u"Sets whether sharing violations are ignored.")
                       .saved(25, u"ShareAware", false)
                       .build(),
                   serviceEvents(),
                   [](ControlSite& site) { return std::make_shared<FileDialogBox>(site); },
                   {ServiceIconSize, ServiceIconSize}, {cancelError})
            .withPropertyPages({u"ppgFILEDLG1", u"ppgFILEDLG2", u"ppgFILEDLG3", u"ppgFILEDLG4"});
    }();
    return info;
}

const MessageTable& FileDialogBox::messageTable() const {
    static const MessageTable table(
        {{NotOpenMode, u"「ファイルを開く」モードではありません", u"Not 'File Open' mode. "},
         {NotSaveMode, u"「ファイルを保存」モードではありません", u"Not 'File Save' mode. "}},
        undefinedWithoutStop());
    return table;
}

// --- lifecycle -------------------------------------------------------------------------

void FileDialogBox::initProperties() {
    // The defaults are the members' own; a new control's owner is its form's window.
    if (Form* f = site().parentForm()) d->hwnd = f->hWnd();
}

void FileDialogBox::readProperties(PropertyBag& bag) {
    const Variant zero(std::int32_t{0});
    d->cancelError = readSaved<bool>(bag, u"CancelError", false);
    d->fileName = readSaved<std::u16string>(bag, u"FileName", u"");
    d->flags = readSaved<std::int32_t>(bag, u"Flags", zero);
    d->allowMultiselect = readSaved<bool>(bag, u"AllowMultiselect", false);
    d->createPrompt = readSaved<bool>(bag, u"CreatePrompt", false);
    d->defaultExt = readSaved<std::u16string>(bag, u"DefaultExt", u"");
    d->dialogTitle = readSaved<std::u16string>(bag, u"DialogTitle", u"");
    d->explorer = readSaved<bool>(bag, u"Explorer", true);
    d->fileMustExist = readSaved<bool>(bag, u"FileMustExist", false);
    d->filter = readSaved<std::u16string>(bag, u"Filter", u"");
    d->filterIndex = readSaved<std::int16_t>(bag, u"FilterIndex", Variant(std::int16_t{0}));
    d->helpButton = readSaved<bool>(bag, u"HelpButton", false);
    d->hideReadOnly = readSaved<bool>(bag, u"HideReadOnly", false);
    d->initDir = readSaved<std::u16string>(bag, u"InitDir", u"");
    d->longNames = readSaved<bool>(bag, u"LongNames", true);
    d->maxFileSize = readSaved<std::int32_t>(bag, u"MaxFileSize", Variant(std::int32_t{260}));
    d->mode = readSaved<OpenOrSaveMode>(bag, u"Mode", zero);
    d->noChangeDir = readSaved<bool>(bag, u"NoChangeDir", false);
    d->noDereferenceLinks = readSaved<bool>(bag, u"NoDereferenceLinks", false);
    d->noLongNames = readSaved<bool>(bag, u"NoLongNames", false);
    d->noReadOnlyReturn = readSaved<bool>(bag, u"NoReadOnlyReturn", false);
    d->noValidate = readSaved<bool>(bag, u"NoValidate", false);
    d->overwritePrompt = readSaved<bool>(bag, u"OverwritePrompt", false);
    d->pathMustExist = readSaved<bool>(bag, u"PathMustExist", false);
    d->readOnly = readSaved<bool>(bag, u"ReadOnly", false);
    d->shareAware = readSaved<bool>(bag, u"ShareAware", false);
    // The owner is never saved: it is the form's window of this load.
    if (Form* f = site().parentForm()) d->hwnd = f->hWnd();
}

void FileDialogBox::writeProperties(PropertyBag& bag) {
    const Variant zero(std::int32_t{0});
    bag.write(u"CancelError", Boolean(d->cancelError), false);
    bag.write(u"FileName", d->fileName, u"");
    bag.write(u"Flags", d->flags, zero);
    bag.write(u"AllowMultiselect", Boolean(d->allowMultiselect), false);
    bag.write(u"CreatePrompt", Boolean(d->createPrompt), false);
    bag.write(u"DefaultExt", d->defaultExt, u"");
    bag.write(u"DialogTitle", d->dialogTitle, u"");
    bag.write(u"Explorer", Boolean(d->explorer), true);
    bag.write(u"FileMustExist", Boolean(d->fileMustExist), false);
    bag.write(u"Filter", d->filter, u"");
    bag.write(u"FilterIndex", d->filterIndex, Variant(std::int16_t{0}));
    bag.write(u"HelpButton", Boolean(d->helpButton), false);
    bag.write(u"HideReadOnly", Boolean(d->hideReadOnly), false);
    bag.write(u"InitDir", d->initDir, u"");
    bag.write(u"LongNames", Boolean(d->longNames), true);
    bag.write(u"MaxFileSize", d->maxFileSize, Variant(std::int32_t{260}));
    bag.write(u"Mode", static_cast<std::int32_t>(d->mode), zero);
    bag.write(u"NoChangeDir", Boolean(d->noChangeDir), false);
    bag.write(u"NoDereferenceLinks", Boolean(d->noDereferenceLinks), false);
    bag.write(u"NoLongNames", Boolean(d->noLongNames), false);
    bag.write(u"NoReadOnlyReturn", Boolean(d->noReadOnlyReturn), false);
    bag.write(u"NoValidate", Boolean(d->noValidate), false);
    bag.write(u"OverwritePrompt", Boolean(d->overwritePrompt), false);
    bag.write(u"PathMustExist", Boolean(d->pathMustExist), false);
    bag.write(u"ReadOnly", Boolean(d->readOnly), false);
    bag.write(u"ShareAware", Boolean(d->shareAware), false);
}

// --- methods ---------------------------------------------------------------------------

void FileDialogBox::cls() {
    d->fileTitle.clear();
    setFileName(u"");
}

void FileDialogBox::showAbout() {
    DialogNotes::showShared(site());
}

std::u16string FileDialogBox::fileOpen() {
    return openOrSave(false);
}

std::u16string FileDialogBox::fileSave() {
    return openOrSave(true);
}

std::u16string FileDialogBox::openOrSave(bool save) {
    const OpenOrSaveMode wanted = save ? OpenOrSaveMode::SaveMode : OpenOrSaveMode::OpenMode;
    if (d->mode != wanted) {
        showRefusal({save ? NotSaveMode : NotOpenMode});
        return u"";
    }
    std::int32_t f = 0;
    if (d->allowMultiselect) f |= ofn::AllowMultiSelect;
    if (d->createPrompt) f |= ofn::CreatePrompt;
    if (d->fileMustExist) f |= ofn::FileMustExist;
    if (d->helpButton) f |= ofn::ShowHelp;
    if (d->longNames) f |= ofn::LongNames;
    if (d->noChangeDir) f |= ofn::NoChangeDir;
    if (d->noDereferenceLinks) f |= ofn::NoDereferenceLinks;
    if (d->noLongNames) f |= ofn::NoLongNames;
    if (d->noReadOnlyReturn) f |= ofn::NoReadOnlyReturn;
    if (d->noValidate) f |= ofn::NoValidate;
    if (d->pathMustExist) f |= ofn::PathMustExist;
    if (d->shareAware) f |= ofn::ShareAware;
    // The open-only bits are left out of a save dialog on purpose; OverwritePrompt is the
    // save dialog's own.
    if (save) {
        if (d->overwritePrompt) f |= ofn::OverwritePrompt;
    } else {
        if (d->explorer) f |= ofn::Explorer;
        if (d->hideReadOnly) f |= ofn::HideReadOnly;
        if (d->readOnly) f |= ofn::ReadOnly;
    }
    try {
        setFlags(f);
        setDefaultExt(d->defaultExt);
        setDialogTitle(d->dialogTitle);
        setFilter(d->filter);
        setFilterIndex(d->filterIndex);
        setInitDir(d->initDir);
        d->cancelError = true;  // and so it stays, for later ShowOpen and ShowSave too
        runDialog(save);
        propertyChanged(u"FileTitle");
        return d->fileName;
    } catch (const Error& e) {
        if (e.number() == CancelErrorNumber) return u"";
        throw Error(e.number(), e.description(), site().application().title());
    }
}

bool FileDialogBox::showOpen() {
    return runDialog(false);
}

bool FileDialogBox::showSave() {
    return runDialog(true);
}

bool FileDialogBox::runDialog(bool save) {
    d->failed = false;
    DialogSettings s;
    s.owner = d->hwnd;
    s.filter = d->filter;
    s.filterIndex = d->filterIndex;
    s.fileName = d->fileName;
    s.maxFileSize = d->maxFileSize;
    s.initDir = d->initDir;
    s.title = d->dialogTitle;
    s.flags = d->flags;
    s.defaultExt = d->defaultExt;
    FileDialogResult result;
    {
        // The record and every block it took go at the end of this scope, an error
        // raised by the dialog included.
        std::optional<DialogRecord> made;
        try {
            made.emplace(s);
        } catch (const Error& e) {
            // The record's own refusals in the locale's language (380 keeps its text).
            if (e.number() == err::InvalidPropertyValue) throw;
            throw Error(e.number(),
                        comDlgErrorText(e.number(), site().ambient().localeId() == LocaleJapanese),
                        site().application().title());
        }
        DialogRecord& record = *made;
        result = site().fileDialogs().show(save ? FileDialogKind::Save : FileDialogKind::Open,
                                           record.request());
        const DialogAnswer answer = record.readBack();
        d->filterIndex = answer.filterIndex;
        if (result.result != 0) d->fileName = answer.fileName;
        d->fileTitle = answer.fileTitle;
        d->cancelSelected = false;
    }
    if (result.result != 0) return true;
    const bool japanese = site().ambient().localeId() == LocaleJapanese;
    if (result.extendedError != 0) {
        d->failed = true;
        const auto code = static_cast<std::int32_t>(result.extendedError);
        throw Error(code, comDlgErrorText(code, japanese), site().application().title());
    }
    d->cancelSelected = true;
    if (d->cancelError) {
        throw Error(CancelErrorNumber, comDlgErrorText(CancelErrorNumber, japanese),
                    site().application().title());
    }
    return false;
}

// --- properties ------------------------------------------------------------------------

void FileDialogBox::setBoolean(bool& field, bool v, std::u16string_view name) {
    field = v;
    propertyChanged(name);
}

// The rules that keep Explorer, LongNames and NoLongNames together: without multi-selection
// the Explorer dialog with long names is the only one; the old-style dialog has short names.
void FileDialogBox::applyNameRules() {
    if (!d->allowMultiselect) {
        d->longNames = true;
        d->noLongNames = false;
    } else if (!d->explorer) {
        d->longNames = false;
        d->noLongNames = true;
    }
}

bool FileDialogBox::allowMultiselect() const {
    return d->allowMultiselect;
}

void FileDialogBox::setAllowMultiselect(bool v) {
    setBoolean(d->allowMultiselect, v, u"AllowMultiselect");
    if (!v) {
        d->explorer = true;
        d->longNames = true;
        d->noLongNames = false;
    }
}

bool FileDialogBox::cancelSelected() const {
    return d->cancelSelected;
}

void FileDialogBox::setCancelSelected(bool v) {
    setBoolean(d->cancelSelected, v, u"CancelSelected");
}

bool FileDialogBox::createPrompt() const {
    return d->createPrompt;
}

void FileDialogBox::setCreatePrompt(bool v) {
    setBoolean(d->createPrompt, v, u"CreatePrompt");
    if (v) {
        d->pathMustExist = true;
        d->fileMustExist = true;
    }
}

std::u16string FileDialogBox::defaultExt() const {
    return d->defaultExt;
}

void FileDialogBox::setDefaultExt(std::u16string v) {
    d->defaultExt = std::move(v);
    propertyChanged(u"DefaultExt");
}

std::u16string FileDialogBox::dialogTitle() const {
    return d->dialogTitle;
}

void FileDialogBox::setDialogTitle(std::u16string v) {
    d->dialogTitle = std::move(v);
    propertyChanged(u"DialogTitle");
}

bool FileDialogBox::explorer() const {
    return d->explorer;
}

void FileDialogBox::setExplorer(bool v) {
    setBoolean(d->explorer, v, u"Explorer");
    if (!d->allowMultiselect) d->explorer = true;
    applyNameRules();
}

bool FileDialogBox::fileMustExist() const {
    return d->fileMustExist;
}

void FileDialogBox::setFileMustExist(bool v) {
    setBoolean(d->fileMustExist, v, u"FileMustExist");
    if (v) d->pathMustExist = true;
}

std::u16string FileDialogBox::fileName() const {
    return d->fileName;
}

void FileDialogBox::setFileName(std::u16string v) {
    d->fileName = std::move(v);
    propertyChanged(u"FileName");
}

std::u16string FileDialogBox::fileTitle() const {
    return d->fileTitle;
}

std::u16string FileDialogBox::filter() const {
    return d->filter;
}

void FileDialogBox::setFilter(std::u16string v) {
    d->filter = std::move(v);
    propertyChanged(u"Filter");
}

std::int16_t FileDialogBox::filterIndex() const {
    return d->filterIndex;
}

void FileDialogBox::setFilterIndex(std::int16_t v) {
    d->filterIndex = v;
    propertyChanged(u"FilterIndex");
}

std::int32_t FileDialogBox::flags() const {
    return d->flags;
}

void FileDialogBox::setFlags(std::int32_t v) {
    d->flags = v;
    propertyChanged(u"Flags");
}

std::int32_t FileDialogBox::hDC() const {
    return 0;
}

bool FileDialogBox::helpButton() const {
    return d->helpButton;
}

void FileDialogBox::setHelpButton(bool v) {
    setBoolean(d->helpButton, v, u"HelpButton");
}

bool FileDialogBox::hideReadOnly() const {
    return d->hideReadOnly;
}

void FileDialogBox::setHideReadOnly(bool v) {
    setBoolean(d->hideReadOnly, v, u"HideReadOnly");
    if (v) d->readOnly = false;
}

std::int32_t FileDialogBox::hwnd() const {
    return d->hwnd;
}

void FileDialogBox::setHwnd(std::int32_t v) {
    d->hwnd = v;
    propertyChanged(u"hwnd");
}

std::u16string FileDialogBox::initDir() const {
    return d->initDir;
}

void FileDialogBox::setInitDir(std::u16string v) {
    d->initDir = std::move(v);
    propertyChanged(u"InitDir");
}

bool FileDialogBox::longNames() const {
    return d->longNames;
}

void FileDialogBox::setLongNames(bool v) {
    setBoolean(d->longNames, v, u"LongNames");
}

std::int32_t FileDialogBox::maxFileSize() const {
    return d->maxFileSize;
}

void FileDialogBox::setMaxFileSize(std::int32_t v) {
    d->maxFileSize = v;
    propertyChanged(u"MaxFileSize");
}

OpenOrSaveMode FileDialogBox::mode() const {
    return d->mode;
}

void FileDialogBox::setMode(OpenOrSaveMode v) {
    d->mode = v;
    propertyChanged(u"Mode");
}

bool FileDialogBox::noChangeDir() const {
    return d->noChangeDir;
}

void FileDialogBox::setNoChangeDir(bool v) {
    setBoolean(d->noChangeDir, v, u"NoChangeDir");
}

bool FileDialogBox::noDereferenceLinks() const {
    return d->noDereferenceLinks;
}

void FileDialogBox::setNoDereferenceLinks(bool v) {
    setBoolean(d->noDereferenceLinks, v, u"NoDereferenceLinks");
}

bool FileDialogBox::noLongNames() const {
    return d->noLongNames;
}

void FileDialogBox::setNoLongNames(bool v) {
    setBoolean(d->noLongNames, v, u"NoLongNames");
    d->longNames = !v;
    applyNameRules();
}

bool FileDialogBox::noReadOnlyReturn() const {
    return d->noReadOnlyReturn;
}

void FileDialogBox::setNoReadOnlyReturn(bool v) {
    setBoolean(d->noReadOnlyReturn, v, u"NoReadOnlyReturn");
}

bool FileDialogBox::noValidate() const {
    return d->noValidate;
}

void FileDialogBox::setNoValidate(bool v) {
    setBoolean(d->noValidate, v, u"NoValidate");
}

bool FileDialogBox::overwritePrompt() const {
    return d->overwritePrompt;
}

void FileDialogBox::setOverwritePrompt(bool v) {
    setBoolean(d->overwritePrompt, v, u"OverwritePrompt");
}

bool FileDialogBox::pathMustExist() const {
    return d->pathMustExist;
}

void FileDialogBox::setPathMustExist(bool v) {
    setBoolean(d->pathMustExist, v, u"PathMustExist");
}

bool FileDialogBox::readOnly() const {
    return d->readOnly;
}

void FileDialogBox::setReadOnly(bool v) {
    // Unlike the property page, the control leaves HideReadOnly alone here.
    setBoolean(d->readOnly, v, u"ReadOnly");
}

bool FileDialogBox::shareAware() const {
    return d->shareAware;
}

void FileDialogBox::setShareAware(bool v) {
    setBoolean(d->shareAware, v, u"ShareAware");
}

bool FileDialogBox::cancelError() const {
    return d->cancelError;
}

}  // namespace corvex
