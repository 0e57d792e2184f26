#include "corvex/qt/file_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <cstring>
#include <optional>
#include <string>

#include "corvex/common/text.h"

namespace corvex::qt {

namespace {

// The option bits as the request carries them.
constexpr auto OverwritePrompt = static_cast<std::uint32_t>(ofn::OverwritePrompt);
constexpr auto NoChangeDir = static_cast<std::uint32_t>(ofn::NoChangeDir);
constexpr auto ShowHelp = static_cast<std::uint32_t>(ofn::ShowHelp);
constexpr auto AllowMultiSelect = static_cast<std::uint32_t>(ofn::AllowMultiSelect);
constexpr auto PathMustExist = static_cast<std::uint32_t>(ofn::PathMustExist);
constexpr auto FileMustExist = static_cast<std::uint32_t>(ofn::FileMustExist);
constexpr auto CreatePrompt = static_cast<std::uint32_t>(ofn::CreatePrompt);
constexpr auto NoReadOnlyReturn = static_cast<std::uint32_t>(ofn::NoReadOnlyReturn);
constexpr auto Explorer = static_cast<std::uint32_t>(ofn::Explorer);
constexpr auto NoDereferenceLinks = static_cast<std::uint32_t>(ofn::NoDereferenceLinks);

QString text(const char* p) {
    return p ? QString::fromUtf8(p) : QString();
}

// A name with no folder in it ("report.txt") is offered in the dialog's folder.
bool hasFolder(const QString& name) {
    return name.contains(QLatin1Char('\\')) || name.contains(QLatin1Char('/')) ||
           name.contains(QLatin1Char(':'));
}

// The texts of the questions and refusals the dialog adds to Qt's own.
struct Texts {
    bool japanese = false;
    QString pick(const char* english, const char16_t* japaneseText) const {
        return japanese ? QString::fromUtf16(japaneseText) : QString::fromUtf8(english);
    }
};

// A QFileDialog that checks the request's option bits before it takes a name; a refused
// name or a "No" leaves the dialog open for another choice, as the system dialog does.
class RequestDialog : public QFileDialog {
public:
    RequestDialog(FileDialogKind kind, std::uint32_t flags, Texts texts)
        : kind_(kind), flags_(flags), texts_(texts) {}

    void accept() override {
        const QStringList chosen = selectedFiles();
        for (const QString& name : chosen) {
            const QFileInfo info(name);
            if (info.isDir()) break;  // Qt opens the folder
            if (!allowed(info)) return;
        }
        QFileDialog::accept();
    }

    // What the Help button tells: what the dialog wants, by the bits in force.
    QString helpText() const {
        QStringList lines;
        lines << (kind_ == FileDialogKind::Save
                      ? texts_.pick("Choose the name to save under.",
                                    u"保存するファイル名を指定してください。")
                      : texts_.pick("Choose the file to open.",
                                    u"開くファイルを選択してください。"));
        if (kind_ == FileDialogKind::Open && (flags_ & AllowMultiSelect))
            lines << texts_.pick("Several files may be chosen.", u"複数のファイルを選択できます。");
        if ((flags_ & FileMustExist) && !(flags_ & CreatePrompt))
            lines << texts_.pick("The file must exist.", u"存在するファイルだけを選択できます。");
        if (flags_ & PathMustExist)
            lines << texts_.pick("The folder must exist.", u"存在するフォルダだけを指定できます。");
        if (flags_ & CreatePrompt)
            lines << texts_.pick("You are asked before a new file is created.",
                                 u"新しいファイルを作成する前に確認します。");
        if (kind_ == FileDialogKind::Save && (flags_ & OverwritePrompt))
            lines << texts_.pick("You are asked before a file is replaced.",
                                 u"ファイルを上書きする前に確認します。");
        if (flags_ & NoReadOnlyReturn)
            lines << texts_.pick("Read-only files cannot be chosen.",
                                 u"読み取り専用のファイルは選択できません。");
        return lines.join(QLatin1Char('\n'));
    }

private:
    bool allowed(const QFileInfo& info) {
        const QString shown = QDir::toNativeSeparators(info.absoluteFilePath());
        if ((flags_ & PathMustExist) && !QFileInfo(info.absolutePath()).isDir()) {
            QMessageBox::warning(
                this, windowTitle(),
                shown + QLatin1Char('\n') +
                    texts_.pick("The folder does not exist.\nCheck the path.",
                                u"フォルダが存在しません。\nパスを確認してください。"));
            return false;
        }
        if ((flags_ & NoReadOnlyReturn) && info.exists() && !info.isWritable()) {
            QMessageBox::warning(
                this, windowTitle(),
                shown + QLatin1Char('\n') +
                    texts_.pick("The file is read-only.\nChoose another name.",
                                u"このファイルは読み取り専用です。\n別の名前を指定してください。"));
            return false;
        }
        if ((flags_ & CreatePrompt) && !info.exists()) {
            const auto answer = QMessageBox::question(
                this, windowTitle(),
                shown + QLatin1Char('\n') +
                    texts_.pick("The file does not exist.\nDo you want to create it?",
                                u"このファイルは存在しません。\n作成しますか?"),
                QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
            return answer == QMessageBox::Yes;
        }
        return true;
    }

    FileDialogKind kind_;
    std::uint32_t flags_;
    Texts texts_;
};

void addHelpButton(RequestDialog& dialog) {
    auto* buttons = dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
    if (!buttons) return;  // a dialog without Qt's own buttons has nowhere to put it
    QPushButton* help = buttons->addButton(QDialogButtonBox::Help);
    help->setObjectName(QStringLiteral("Help"));
    QObject::connect(buttons, &QDialogButtonBox::helpRequested, &dialog, [&dialog] {
        QMessageBox::information(&dialog, dialog.windowTitle(), dialog.helpText());
    });
}

// The filter the user left selected, from 1; 0 when there are none.
std::uint32_t chosenFilter(const QFileDialog& dialog, const QStringList& filters) {
    if (filters.isEmpty()) return 0;
    // The list's position, not its text: two filters may show the same description.
    if (auto* combo = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"))) {
        if (combo->currentIndex() >= 0)
            return static_cast<std::uint32_t>(combo->currentIndex() + 1);
    }
    return static_cast<std::uint32_t>(filters.indexOf(dialog.selectedNameFilter()) + 1);
}

// The chosen names as the system dialog returns them: one full name; or, several in the
// Explorer style, the folder and each name separated by NULs; or, in the old style, the
// folder and the names separated by blanks. Empty when a name lies on no drive.
std::optional<std::string> windowsNames(const QStringList& chosen, const posix::DriveMap& drives,
                                        bool explorer) {
    std::string names;
    for (int i = 0; i < chosen.size(); ++i) {
        const auto windows = drives.toWindows(chosen[i].toStdString());
        if (!windows) return std::nullopt;
        if (chosen.size() == 1) return toUtf8(*windows);
        const std::u16string& w = *windows;
        const auto slash = w.find_last_of(u'\\');
        if (i == 0) {
            std::u16string folder = w.substr(0, slash);
            if (folder.size() == 2) folder += u'\\';  // a drive's root keeps its backslash
            names = toUtf8(folder);
        }
        names += explorer ? '\0' : ' ';
        names += toUtf8(w.substr(slash + 1));
    }
    return names;
}

}  // namespace

QStringList dialogNameFilters(const char* list) {
    QStringList out;
    if (!list) return out;
    while (*list) {
        const QString description = QString::fromUtf8(list);
        list += std::strlen(list) + 1;
        QStringList patterns = QString::fromUtf8(list).split(QLatin1Char(';'), Qt::SkipEmptyParts);
        if (*list) list += std::strlen(list) + 1;
        // "*.*" is every file on Windows; for Qt it would be only names with a dot.
        for (QString& p : patterns) {
            p = p.trimmed();
            if (p == QLatin1String("*.*")) p = QStringLiteral("*");
        }
        if (patterns.isEmpty()) patterns << QStringLiteral("*");
        // Qt reads the patterns from the last parentheses and, with the details hidden,
        // shows what stands before them: the description exactly as it was given.
        out << description + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) +
                   QLatin1Char(')');
    }
    return out;
}

FileDialogResult QtFileDialogs::show(FileDialogKind kind, FileDialogRequest& r) {
    const posix::DriveMap& drives = map_();
    const QString workingFolder = QDir::currentPath();
    RequestDialog dialog(kind, r.flags, Texts{japanese && japanese()});
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setOption(QFileDialog::DontResolveSymlinks, (r.flags & NoDereferenceLinks) != 0);
    if (kind == FileDialogKind::Save) dialog.setAcceptMode(QFileDialog::AcceptSave);
    // An empty title leaves Qt's own ("Open", "Save As").
    if (const QString title = text(r.title); !title.isEmpty()) dialog.setWindowTitle(title);
    const QString initial = text(r.initialDir);
    if (!initial.isEmpty()) {
        const auto native = drives.toNative(initial.toStdU16String());
        if (native) dialog.setDirectory(QString::fromStdString(*native));
    }
    const QStringList filters = dialogNameFilters(r.filter);
    if (!filters.isEmpty()) {
        dialog.setNameFilters(filters);
        // 0 (a custom filter, which the control never gives) and numbers past the list
        // select the first.
        const int index = static_cast<int>(r.filterIndex);
        dialog.selectNameFilter(
            filters.value(index >= 1 && index <= filters.size() ? index - 1 : 0));
    }
    dialog.setDefaultSuffix(text(r.defExt));
    if (kind == FileDialogKind::Save) {
        dialog.setFileMode(QFileDialog::AnyFile);
        dialog.setOption(QFileDialog::DontConfirmOverwrite, !(r.flags & OverwritePrompt));
    } else if (r.flags & AllowMultiSelect) {
        dialog.setFileMode(QFileDialog::ExistingFiles);
    } else {
        // With CreatePrompt a missing name is asked about, not refused.
        const bool existing = (r.flags & FileMustExist) && !(r.flags & CreatePrompt);
        dialog.setFileMode(existing ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    }
    const QString offered = r.file ? QString::fromUtf8(r.file) : QString();
    if (!offered.isEmpty()) {
        if (!hasFolder(offered)) {
            dialog.selectFile(offered);
        } else if (const auto native = drives.toNative(offered.toStdU16String())) {
            dialog.selectFile(QString::fromStdString(*native));
        }
    }
    if (r.flags & ShowHelp) addHelpButton(dialog);
    if (onCreated) onCreated(dialog);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    // The system dialog leaves the working folder where the user last was, unless told not
    // to; Qt's never moves it.
    if (r.flags & NoChangeDir) {
        QDir::setCurrent(workingFolder);
    } else {
        QDir::setCurrent(dialog.directory().absolutePath());
    }
    if (!filters.isEmpty()) r.filterIndex = chosenFilter(dialog, filters);
    if (!accepted) return {0, 0};
    const QStringList chosen = dialog.selectedFiles();
    if (chosen.isEmpty()) return {0, 0};
    const bool explorer = (r.flags & Explorer) || !(r.flags & AllowMultiSelect);
    const auto names = windowsNames(chosen, drives, explorer);
    if (!names) return {0, fde::InvalidFileName};  // no drive holds it
    const std::uint32_t error =
        answerFileDialog(r, names->data(), static_cast<std::uint32_t>(names->size()));
    return error ? FileDialogResult{0, error} : FileDialogResult{1, 0};
}

}  // namespace corvex::qt
