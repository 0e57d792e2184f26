#include "filedlg_designer.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "corvex/common/error.h"
#include "corvex/library/class_table.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/form.h"
#include "corvex/qt/host.h"
#include "corvex/qt/property_dialog.h"

namespace corvex::gallery {

qt::PropertyDialog* openFileDialogPages(qt::QtHost& designHost, ObjectRef box, QWidget* parent) {
    // The pages are those the control's class table names, in their tab order.
    const ClassInfo& cls = box->classInfo();
    auto* dialog = new qt::PropertyDialog(
        designHost, propertyPagesOf(cls), {std::move(box)},
        QString::fromStdU16String(cls.name()) + QStringLiteral(" のプロパティ"), parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
    return dialog;
}

struct FileDialogDesigner::Private {
    // A host of its own: the box sits in a designer, not in the running gallery.
    qt::QtHost host;
    std::unique_ptr<qt::QtForm> form;
    qt::QtControlHost* box = nullptr;
};

FileDialogDesigner::FileDialogDesigner(QWidget* parent)
    : QDialog(parent), d(std::make_unique<Private>()) {
    setWindowTitle(QStringLiteral("File dialog (design mode)"));
    d->host.setUserMode(false);
    d->form = std::make_unique<qt::QtForm>(d->host, this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("FileDialogBox\n(design mode)"), this));
    // Looked up by name: the pages edit the control through its public members only.
    const ClassInfo* cls = findClass(u"FileDialogBox");
    if (!cls) throw Error(err::MemberNotFound, u"FileDialogBox is not a public class");
    d->box = d->form->addControl(*cls, QStringLiteral("fileDialog"), this);
    d->box->initNew();
    letProperty(d->box->control(), u"Filter", Variant(u"Text (*.txt)|*.txt|All (*.*)|*.*"));
    layout->addWidget(d->box);
    auto* properties = new QPushButton(QStringLiteral("Properties..."), this);
    properties->setObjectName(QStringLiteral("Properties"));
    connect(properties, &QPushButton::clicked, this, [this] { openPages(); });
    layout->addWidget(properties);
    auto* close = new QPushButton(QStringLiteral("Close"), this);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    layout->addWidget(close);
}

FileDialogDesigner::~FileDialogDesigner() = default;

qt::QtControlHost* FileDialogDesigner::dialogBox() const {
    return d->box;
}

qt::PropertyDialog* FileDialogDesigner::openPages() {
    return openFileDialogPages(d->host, d->box->object(), this);
}

}  // namespace corvex::gallery
