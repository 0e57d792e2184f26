#include "gallery_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSaveFile>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <map>

#include "corvex/common/boolean_box.h"
#include "corvex/library/form_file.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"
#include "corvex/qt/form.h"
#include "corvex/qt/host.h"

namespace corvex::gallery {

using qt::fromQString;
using qt::QtControlHost;
using qt::toQString;

const std::vector<GalleryEntry>& galleryEntries() {
    static const std::vector<GalleryEntry> entries = {
        {&BooleanBox::staticClassInfo,
         u"newsletter",
         u"Check boxes (BooleanBox)",
         {{u"Caption", u"Send me the newsletter"}}},
        {&BooleanBox::staticClassInfo,
         u"onlyWhenEnabled",
         u"Check boxes (BooleanBox)",
         {{u"Caption", u"Counts only while enabled (AlwaysFalseWhenNotEnabled)"},
          {u"AlwaysFalseWhenNotEnabled", true}},
         true},
    };
    return entries;
}

namespace {

constexpr int kLogLimit = 500;

QString whatOf(const std::exception& e) {
    if (const auto* err = dynamic_cast<const Error*>(&e)) {
        return QStringLiteral("error %1: %2").arg(err->number()).arg(toQString(err->description()));
    }
    return QStringLiteral("error: %1").arg(QString::fromUtf8(e.what()));
}

}  // namespace

struct GalleryWindow::Private {
    qt::QtHost& host;
    std::unique_ptr<qt::QtForm> form;
    std::map<QString, QCheckBox*> switches;
    QComboBox* locale = nullptr;
    QLabel* localeId = nullptr;
    QLabel* values = nullptr;
    QListWidget* events = nullptr;
    QStringList logLines;

    explicit Private(qt::QtHost& h) : host(h) {}
};

GalleryWindow::GalleryWindow(qt::QtHost& host, QWidget* parent)
    : QWidget(parent), d(std::make_unique<Private>(host)) {
    setWindowTitle(QStringLiteral("Corvex gallery"));
    d->form = std::make_unique<qt::QtForm>(host, this);
    host.setErrorHandler([this](const std::exception& e) { log(whatOf(e)); });

    auto* layout = new QVBoxLayout(this);

    auto* localeRow = new QHBoxLayout;
    localeRow->addWidget(new QLabel(QStringLiteral("Locale:"), this));
    d->locale = new QComboBox(this);
    d->locale->setObjectName(QStringLiteral("locale"));
    d->locale->addItem(QStringLiteral("English"));
    d->locale->addItem(QStringLiteral("日本語"));
    d->locale->setCurrentIndex(host.localeId() == LocaleJapanese ? 1 : 0);
    localeRow->addWidget(d->locale);
    d->localeId = new QLabel(this);
    localeRow->addWidget(d->localeId);
    localeRow->addStretch(1);
    layout->addLayout(localeRow);
    connect(d->locale, &QComboBox::currentIndexChanged, this,
            [this](int index) { setJapanese(index == 1); });

    // One group box per group title, in the order the table first names them.
    std::map<std::u16string, QVBoxLayout*> groups;
    for (const GalleryEntry& entry : galleryEntries()) {
        QVBoxLayout*& groupLayout = groups[entry.group];
        if (!groupLayout) {
            auto* box = new QGroupBox(toQString(entry.group), this);
            groupLayout = new QVBoxLayout(box);
            layout->addWidget(box);
        }
        QWidget* groupBox = groupLayout->parentWidget();
        const QString name = toQString(entry.name);
        QtControlHost* control = d->form->addControl(entry.classInfo(), name, groupBox);
        control->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        if (entry.design.empty()) {
            control->initNew();
        } else {
            MemoryBag bag(entry.design);
            control->load(bag);
        }

        auto* row = new QHBoxLayout;
        row->addWidget(control, 1);
        if (entry.enableSwitch) {
            auto* enable = new QCheckBox(QStringLiteral("Enable it"), groupBox);
            enable->setObjectName(name + QStringLiteral("Enable"));
            enable->setChecked(true);
            connect(enable, &QCheckBox::toggled, this, [this, control](bool on) {
                try {
                    letProperty(*control->object(), u"Enabled", Variant(on));
                } catch (const Error& e) {
                    log(whatOf(e));
                }
                d->values->setText(valuesText());
            });
            row->addWidget(enable);
            d->switches[name] = enable;
        }
        groupLayout->addLayout(row);

        connect(control, &QtControlHost::eventRaised, this,
                [this, name](const QString& event, qt::EventArgs& args) {
                    // The pointer's every move would drown the rest of the log.
                    if (event != QLatin1String("MouseMove"))
                        log(name + QLatin1Char('.') + args.toString());
                    d->values->setText(valuesText());
                });
        connect(control, &QtControlHost::propertyChanged, this,
                [this] { d->values->setText(valuesText()); });
    }

    d->values = new QLabel(this);
    d->values->setObjectName(QStringLiteral("values"));
    d->values->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(d->values);

    auto* buttons = new QHBoxLayout;
    const auto addButton = [&](const QString& text, auto action) {
        auto* b = new QPushButton(text, this);
        b->setObjectName(text);
        connect(b, &QPushButton::clicked, this, action);
        buttons->addWidget(b);
    };
    addButton(QStringLiteral("Save values"), [this] { saveValues(); });
    addButton(QStringLiteral("Load values"), [this] { loadValues(); });
    addButton(QStringLiteral("Store"), [this] { storeAll(); });
    addButton(QStringLiteral("Restore"), [this] { restoreAll(); });
    buttons->addStretch(1);
    layout->addLayout(buttons);

    layout->addWidget(new QLabel(QStringLiteral("Events:"), this));
    d->events = new QListWidget(this);
    d->events->setObjectName(QStringLiteral("events"));
    d->events->setMinimumHeight(140);
    layout->addWidget(d->events, 1);

    setJapanese(host.localeId() == LocaleJapanese);
    d->values->setText(valuesText());
    resize(560, 420);
}

GalleryWindow::~GalleryWindow() {
    d->host.setErrorHandler({});
    // The controls go before the widgets around them.
    d->form.reset();
}

qt::QtForm& GalleryWindow::form() const {
    return *d->form;
}

QtControlHost* GalleryWindow::control(const QString& name) const {
    return d->form->find(name);
}

QCheckBox* GalleryWindow::enableSwitch(const QString& name) const {
    const auto it = d->switches.find(name);
    return it == d->switches.end() ? nullptr : it->second;
}

QString GalleryWindow::valuesFile() const {
    if (!valuesFile_.isEmpty()) return valuesFile_;
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
           QStringLiteral("/gallery-values.frm");
}

void GalleryWindow::setValuesFile(const QString& path) { valuesFile_ = path; }

bool GalleryWindow::saveValues() {
    FormDocument doc;
    doc.name = u"gallery";
    doc.caption = fromQString(windowTitle());
    try {
        for (QtControlHost* h : d->form->hosts()) {
            if (!h->classInfo().member(u"Value")) continue;
            doc.controls.push_back({h->classInfo().name(),
                                    fromQString(h->objectName()),
                                    {{u"Value", getProperty(*h->object(), u"Value")}}});
        }
    } catch (const Error& e) {
        log(QStringLiteral("Save values failed: ") + whatOf(e));
        return false;
    }
    const QString path = valuesFile();
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile file(path);
    const std::string text = writeFormFile(doc);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(text.data(), static_cast<qint64>(text.size())) !=
            static_cast<qint64>(text.size()) ||
        !file.commit()) {
        log(QStringLiteral("Save values failed: %1: %2").arg(path, file.errorString()));
        return false;
    }
    log(QStringLiteral("Saved values to %1").arg(path));
    return true;
}

bool GalleryWindow::loadValues() {
    const QString path = valuesFile();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        log(QStringLiteral("Load values failed: %1: %2").arg(path, file.errorString()));
        return false;
    }
    const QByteArray bytes = file.readAll();
    FormDocument doc;
    try {
        doc = parseFormFile(
            std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    } catch (const FormFileError& e) {
        log(QStringLiteral("Load values failed: %1 line %2: %3")
                .arg(path)
                .arg(e.line())
                .arg(QString::fromUtf8(e.what())));
        return false;
    }
    bool ok = true;
    for (const SavedControl& saved : doc.controls) {
        QtControlHost* h = d->form->find(toQString(saved.name));
        if (!h || h->classInfo().name() != saved.className) {
            log(QStringLiteral("Load values: no %1 named %2 on the form")
                    .arg(toQString(saved.className), toQString(saved.name)));
            ok = false;
            continue;
        }
        for (const auto& [property, value] : saved.properties) {
            try {
                letProperty(*h->object(), property, value);
            } catch (const Error& e) {
                log(QStringLiteral("Load values: %1.%2: %3")
                        .arg(toQString(saved.name), toQString(property), whatOf(e)));
                ok = false;
            }
        }
    }
    log(QStringLiteral("Loaded values from %1").arg(path));
    d->values->setText(valuesText());
    return ok;
}

void GalleryWindow::storeAll() {
    for (QtControlHost* h : d->form->hosts()) {
        if (!h->classInfo().member(u"Store")) continue;
        try {
            invoke(*h->object(), u"Store", CallKind::Method);
            log(h->objectName() + QStringLiteral(".Store"));
        } catch (const Error& e) {
            log(h->objectName() + QStringLiteral(".Store: ") + whatOf(e));
        }
    }
}

void GalleryWindow::restoreAll() {
    for (QtControlHost* h : d->form->hosts()) {
        if (!h->classInfo().member(u"Restore")) continue;
        try {
            invoke(*h->object(), u"Restore", CallKind::Method);
            log(h->objectName() + QStringLiteral(".Restore"));
        } catch (const Error& e) {
            log(h->objectName() + QStringLiteral(".Restore: ") + whatOf(e));
        }
    }
    d->values->setText(valuesText());
}

void GalleryWindow::setJapanese(bool japanese) {
    d->host.setLocaleId(japanese ? LocaleJapanese : LocaleEnglishUS);
    if (d->locale->currentIndex() != (japanese ? 1 : 0))
        d->locale->setCurrentIndex(japanese ? 1 : 0);
    d->localeId->setText(QStringLiteral("LocaleID %1").arg(d->host.localeId()));
}

QString GalleryWindow::valuesText() const {
    QStringList parts;
    for (QtControlHost* h : d->form->hosts()) {
        if (!h->classInfo().member(u"Value")) continue;
        QString text;
        try {
            text = toQString(getProperty(*h->object(), u"Value").toString());
        } catch (const Error& e) {
            text = whatOf(e);
        }
        parts << h->objectName() + QStringLiteral(" = ") + text;
    }
    return QStringLiteral("Value: ") + parts.join(QStringLiteral(",  "));
}

QStringList GalleryWindow::eventLog() const {
    return d->logLines;
}

void GalleryWindow::log(const QString& line) {
    d->logLines << line;
    while (d->logLines.size() > kLogLimit) d->logLines.removeFirst();
    if (d->events) {
        d->events->addItem(line);
        while (d->events->count() > kLogLimit) delete d->events->takeItem(0);
        d->events->scrollToBottom();
    }
    emit logged(line);
}

}  // namespace corvex::gallery
