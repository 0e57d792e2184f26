#include "msgbox_designer.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "buttons.h"
#include "corvex/library/class_table.h"
#include "corvex/library/memory_bag.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"
#include "corvex/qt/form.h"
#include "corvex/qt/host.h"
#include "corvex/services/message_box.h"
#include "corvex/services/msgbox_page.h"

namespace corvex::gallery {

struct MessageBoxDesigner::Private {
    // A host of its own: the page and the box sit in a designer, not in the running gallery.
    qt::QtHost host;
    std::unique_ptr<qt::QtForm> form;
    qt::QtControlHost* box = nullptr;
    qt::QtControlHost* page = nullptr;
    QLabel* status = nullptr;
};

MessageBoxDesigner::MessageBoxDesigner(QWidget* parent)
    : QDialog(parent), d(std::make_unique<Private>()) {
    setWindowTitle(QStringLiteral("Message box properties"));
    d->host.setUserMode(false);
    d->form = std::make_unique<qt::QtForm>(d->host, this);
    auto* layout = new QVBoxLayout(this);
    auto* row = new QHBoxLayout;
    auto* boxColumn = new QVBoxLayout;
    boxColumn->addWidget(new QLabel(QStringLiteral("MessageBox\n(design mode)"), this));
    MemoryBag design({{u"Prompt", Variant(u"Save the changes?")},
                      {u"Title", Variant(u"Corvex gallery")},
                      {u"ButtonType", Variant(std::int32_t{3})},
                      {u"IconType", Variant(std::int32_t{32})}});
    d->box = d->form->addControl(MessageBox::staticClassInfo(), QStringLiteral("msgBox"), this);
    d->box->load(design);
    boxColumn->addWidget(d->box);
    boxColumn->addStretch(1);
    row->addLayout(boxColumn);
    // The page is the one the class table names for the control.
    const ClassInfo& page = *propertyPagesOf(MessageBox::staticClassInfo()).at(0);
    d->page = d->form->addControl(page, QString::fromStdU16String(page.name()), this);
    d->page->initNew();
    row->addWidget(d->page, 1);
    layout->addLayout(row, 1);
    dynamic_cast<PropertyPage&>(d->page->control()).setSelectedControls({d->box->object()});

    auto* buttons = new QHBoxLayout;
    const auto addButton = [&](const QString& text, auto action) {
        addNamedButton(*buttons, this, text, action);
    };
    addButton(QStringLiteral("Apply"), [this] { apply(); });
    addButton(QStringLiteral("Show the box"), [this] { tryIt(); });
    addButton(QStringLiteral("Close"), [this] { accept(); });
    d->status = new QLabel(this);
    d->status->setObjectName(QStringLiteral("status"));
    buttons->addWidget(d->status, 1);
    layout->addLayout(buttons);
}

MessageBoxDesigner::~MessageBoxDesigner() = default;

qt::QtControlHost* MessageBoxDesigner::messageBox() const {
    return d->box;
}

qt::QtControlHost* MessageBoxDesigner::page() const {
    return d->page;
}

void MessageBoxDesigner::apply() {
    try {
        dynamic_cast<PropertyPage&>(d->page->control()).apply();
        const auto& box = dynamic_cast<MessageBox&>(d->box->control());
        d->status->setText(QStringLiteral("Applied: style %1").arg(box.style()));
    } catch (const Error& e) {
        d->status->setText(
            QStringLiteral("error %1: %2").arg(e.number()).arg(qt::toQString(e.description())));
    }
}

std::int32_t MessageBoxDesigner::tryIt() {
    try {
        const std::int32_t answer = getProperty(d->box->control(), u"Answer").toLong();
        d->status->setText(QStringLiteral("Answer: %1").arg(answer));
        return answer;
    } catch (const Error& e) {
        d->status->setText(
            QStringLiteral("error %1: %2").arg(e.number()).arg(qt::toQString(e.description())));
        return 0;
    }
}

QString MessageBoxDesigner::statusText() const {
    return d->status->text();
}

}  // namespace corvex::gallery
