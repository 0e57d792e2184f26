#include "corvex/qt/property_dialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"
#include "corvex/qt/form.h"
#include "corvex/services/property_page.h"

namespace corvex::qt {

struct PropertyDialog::Private {
    std::unique_ptr<QtForm> form;
    std::vector<QtControlHost*> pages;
    std::vector<ObjectRef> selection;
    QTabWidget* tabs = nullptr;
    QPushButton* apply = nullptr;
    QLabel* status = nullptr;
};

PropertyDialog::PropertyDialog(QtHost& host, const std::vector<const ClassInfo*>& pages,
                               std::vector<ObjectRef> selection, const QString& title,
                               QWidget* parent)
    : QDialog(parent), d(std::make_unique<Private>()) {
    setWindowTitle(title);
    d->selection = std::move(selection);
    d->form = std::make_unique<QtForm>(host, this);
    auto* layout = new QVBoxLayout(this);
    d->tabs = new QTabWidget(this);
    d->tabs->setObjectName(QStringLiteral("tabs"));
    layout->addWidget(d->tabs, 1);
    for (const ClassInfo* cls : pages) {
        // Each tab holds the page's surface at the page's own design size.
        auto* tab = new QWidget(d->tabs);
        auto* tabLayout = new QVBoxLayout(tab);
        QtControlHost* surface = d->form->addControl(*cls, toQString(cls->name()), tab);
        surface->initNew();
        tabLayout->addWidget(surface);
        tabLayout->addStretch(1);
        auto& page = dynamic_cast<PropertyPage&>(surface->control());
        d->tabs->addTab(tab, toQString(page.caption()));
        page.setSelectedControls(d->selection);
        page.setChangedListener([this](bool) { updateApply(); });
        d->pages.push_back(surface);
    }
    d->status = new QLabel(this);
    d->status->setObjectName(QStringLiteral("status"));
    layout->addWidget(d->status);
    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply, this);
    d->apply = buttons->button(QDialogButtonBox::Apply);
    d->apply->setObjectName(QStringLiteral("Apply"));
    connect(d->apply, &QPushButton::clicked, this, [this] { apply(); });
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        if (apply()) accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    updateApply();
}

PropertyDialog::~PropertyDialog() {
    // The pages call back into this dialog while they live: stop that before they go.
    for (QtControlHost* surface : d->pages) {
        dynamic_cast<PropertyPage&>(surface->control()).setChangedListener({});
    }
}

QTabWidget* PropertyDialog::tabs() const {
    return d->tabs;
}

int PropertyDialog::pageCount() const {
    return static_cast<int>(d->pages.size());
}

QtControlHost* PropertyDialog::pageHost(int i) const {
    return d->pages.at(static_cast<std::size_t>(i));
}

PropertyPage& PropertyDialog::page(int i) const {
    return dynamic_cast<PropertyPage&>(pageHost(i)->control());
}

QPushButton* PropertyDialog::applyButton() const {
    return d->apply;
}

bool PropertyDialog::apply() {
    try {
        for (int i = 0; i < pageCount(); ++i) {
            if (page(i).changed()) page(i).apply();
        }
        // The control's own couplings may have changed what a page showed.
        for (int i = 0; i < pageCount(); ++i) page(i).setSelectedControls(d->selection);
        d->status->clear();
        updateApply();
        return true;
    } catch (const Error& e) {
        d->status->setText(
            QStringLiteral("error %1: %2").arg(e.number()).arg(toQString(e.description())));
        updateApply();
        return false;
    }
}

QString PropertyDialog::statusText() const {
    return d->status->text();
}

void PropertyDialog::updateApply() {
    bool any = false;
    for (int i = 0; i < pageCount(); ++i) any = any || page(i).changed();
    d->apply->setEnabled(any);
}

}  // namespace corvex::qt
