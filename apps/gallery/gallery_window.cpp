#include "gallery_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFile>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <cmath>
#include <deque>
#include <map>

#include "buttons.h"
#include "corvex/common/boolean_box.h"
#include "corvex/common/text.h"
#include "corvex/entry/memo_box.h"
#include "corvex/entry/num_input_box.h"
#include "corvex/files/file_dialog_box.h"
#include "corvex/files/file_name_box.h"
#include "corvex/library/form_file.h"
#include "corvex/library/ini_file.h"
#include "corvex/lists/drop_down_combo.h"
#include "corvex/lists/list_box_ex.h"
#include "corvex/lists/move_list.h"
#include "corvex/options/multi_option.h"
#include "corvex/options/shadowed_line.h"
#include "corvex/options/single_option.h"
#include "corvex/posix/atomic_file.h"
#include "corvex/posix/profile_files.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"
#include "corvex/qt/form.h"
#include "corvex/qt/host.h"
#include "corvex/qt/property_dialog.h"
#include "corvex/services/setting_handle.h"
#include "filedlg_designer.h"
#include "msgbox_designer.h"

namespace corvex::gallery {

using qt::fromQString;
using qt::QtControlHost;
using qt::toQString;

namespace {
// The section of the INI file that every value control of the gallery is saved under.
const MemoryBag::Entry gallerySection{u"SectionName", u"Gallery"};
}  // namespace

const std::vector<GalleryEntry>& galleryEntries() {
    static const std::vector<GalleryEntry> entries = {
        {&BooleanBox::staticClassInfo,
         u"newsletter",
         u"Check boxes (BooleanBox)",
         {{u"Caption", u"Send me the newsletter"}, gallerySection, {u"KeyName", u"newsletter"}}},
        {&BooleanBox::staticClassInfo,
         u"onlyWhenEnabled",
         u"Check boxes (BooleanBox)",
         {{u"Caption", u"Counts only while enabled (AlwaysFalseWhenNotEnabled)"},
          {u"AlwaysFalseWhenNotEnabled", true},
          gallerySection,
          {u"KeyName", u"onlyWhenEnabled"}},
         true},
        {&NumInputBox::staticClassInfo,
         u"amount",
         u"Text and number entry",
         {gallerySection, {u"KeyName", u"amount"}},
         false,
         u"Amount (NumInputBox)",
         GallerySettings::Number},
        {&NumInputBoxR::staticClassInfo,
         u"quantity",
         u"Text and number entry",
         {{u"MustEnter", true}, gallerySection, {u"KeyName", u"quantity"}},
         false,
         u"Quantity (NumInputBoxR,\nMustEnter)",
         GallerySettings::Number},
        {&MemoBox::staticClassInfo,
         u"notes",
         u"Text and number entry",
         {gallerySection, {u"KeyName", u"notes"}},
         false,
         u"Notes (MemoBox)",
         GallerySettings::ScrollBars},
        {&SettingHandle::staticClassInfo,
         u"settings",
         u"Saving and loading the values",
         {},
         false,
         u"Save values and Load values\ngo through this SettingHandle"},
        // Loaded, as a saved form is: a box only placed new filters nothing but Enter.
        {&FileNameBox::staticClassInfo,
         u"document",
         u"File names",
         {{u"MessageShow", true}, gallerySection, {u"KeyName", u"document"}},
         false,
         u"Document (FileNameBox)",
         GallerySettings::FileName},
        {&MultiOption::staticClassInfo,
         u"size",
         u"Options and separators",
         {{u"Caption", u"Size (MultiOption)"},
          {u"OptionNum", std::int16_t{3}},
          {u"OptionCaptions", u"Small|Medium|Large"},
          {u"DefaultValue", std::int16_t{1}},
          gallerySection,
          {u"KeyName", u"size"}},
         false,
         nullptr,
         GallerySettings::Options},
        {&SingleOption::staticClassInfo,
         u"express",
         u"Options and separators",
         {{u"Caption", u"Express delivery (SingleOption)"},
          gallerySection,
          {u"KeyName", u"express"}}},
        {&ShadowedLine::staticClassInfo,
         u"separator",
         u"Options and separators",
         {},
         false,
         u"Separator (ShadowedLine)"},
        {&ShadowedLine::staticClassInfo,
         u"upright",
         u"Options and separators",
         {{u"Mode", std::int32_t{1}}},
         false,
         u"Vertical separator",
         GallerySettings::UprightLine},
        {&MoveList::staticClassInfo,
         u"columns",
         u"Choosing from lists",
         {},
         false,
         u"Columns shown (MoveList)",
         GallerySettings::Candidates},
        {&DropDownCombo::staticClassInfo,
         u"fruit",
         u"Lists",
         {{u"ListTexts", Variant(std::u16string(u"Apple|Banana|Cherry"))},
          {u"ItemDataNums", Variant(std::u16string(u"10|20|30"))},
          gallerySection,
          {u"KeyName", u"fruit"}},
         false,
         u"Fruit (DropDownCombo)"},
        {&DropDownList::staticClassInfo,
         u"packing",
         u"Lists",
         {{u"DefaultValue", Variant(std::int16_t{1})},
          {u"ListTexts", Variant(std::u16string(u"Box|Crate|Pallet"))},
          gallerySection,
          {u"KeyName", u"packing"}},
         false,
         u"Packing (DropDownList)"},
        {&ListBoxEx::staticClassInfo,
         u"colours",
         u"Lists",
         {{u"ListTexts", Variant(std::u16string(u"Red|Green|Blue|Yellow"))},
          gallerySection,
          {u"KeyName", u"colours"}},
         false,
         u"Colour (ListBoxEx)",
         GallerySettings::LongItem},
        // A service control: the form shows its icon; the buttons beside it try it.
        {&FileDialogBox::staticClassInfo,
         u"fileDialog",
         u"File dialogs",
         {{u"Filter", u"Text (*.txt)|*.txt|All (*.*)|*.*"},
          {u"FilterIndex", std::int16_t{1}},
          {u"DefaultExt", u"txt"},
          {u"OverwritePrompt", true}},
         false,
         u"FileDialogBox",
         GallerySettings::FileDialog},
    };
    return entries;
}

namespace {

// Gives a group of option buttons the height of its rows: they stand two button heights
// apart, the first at OptionTop.
void fitOptionRows(QtControlHost* control) {
    const auto read = [control](std::u16string_view p) {
        return getProperty(*control->object(), p).toDouble();
    };
    const double count = read(u"OptionNum");
    const double perLine = read(u"OptionNumPerLine");
    const double rows = perLine < 1 ? 1 : std::ceil(count / perLine);
    const double step = 2 * read(u"OptionHeight") + read(u"VartSpace");
    const double twips = read(u"OptionTop") + (rows - 1) * step + read(u"OptionHeight") + 240;
    control->setFixedHeight(static_cast<int>(std::lround(twips / control->twipsPerPixelY())));
}

constexpr int kLogLimit = 500;
constexpr int kShownValueLength = 200;

QString whatOf(const std::exception& e) {
    if (const auto* err = dynamic_cast<const Error*>(&e)) {
        return QStringLiteral("error %1: %2").arg(err->number()).arg(toQString(err->description()));
    }
    return QStringLiteral("error: %1").arg(QString::fromUtf8(e.what()));
}

// The bytes of a file; nullopt when it cannot be read.
std::optional<QByteArray> bytesOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    return file.readAll();
}

}  // namespace

struct GalleryWindow::Private {
    qt::QtHost& host;
    std::unique_ptr<qt::QtForm> form;
    std::map<QString, QCheckBox*> switches;
    std::vector<QtControlHost*> numberBoxes;
    QComboBox* locale = nullptr;
    QLabel* localeId = nullptr;
    QLabel* values = nullptr;
    QLabel* status = nullptr;
    QLabel* iniFile = nullptr;
    // The log shown: a plain text view appends a line without laying out the others again,
    // and drops the oldest block itself once it holds kLogLimit.
    QPlainTextEdit* events = nullptr;
    std::deque<QString> logLines;
    // The property pages run in a designer, on a host of their own.
    std::unique_ptr<qt::QtHost> designHost;

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

    // One group box per group title, in the order the table first names them; in each, a
    // row per control: its label, the control, the switches beside it.
    struct Group {
        QGridLayout* grid = nullptr;
        int rows = 0;
    };
    std::map<std::u16string, Group> groups;
    const auto& entries = galleryEntries();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const GalleryEntry& entry = entries[i];
        Group& group = groups[entry.group];
        if (!group.grid) {
            auto* box = new QGroupBox(toQString(entry.group), this);
            group.grid = new QGridLayout(box);
            group.grid->setColumnStretch(1, 1);
            layout->addWidget(box);
        }
        QWidget* groupBox = group.grid->parentWidget();
        const QString name = toQString(entry.name);
        QtControlHost* control = d->form->addControl(entry.classInfo(), name, groupBox);
        control->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        if (entry.design.empty()) {
            control->initNew();
        } else {
            MemoryBag bag(entry.design);
            control->load(bag);
        }

        const int row = group.rows++;
        if (entry.label) {
            auto* label = new QLabel(toQString(entry.label), groupBox);
            label->setBuddy(control);
            group.grid->addWidget(label, row, 0, Qt::AlignLeft | Qt::AlignTop);
            group.grid->addWidget(control, row, 1);
        } else {
            group.grid->addWidget(control, row, 0, 1, 2);
        }
        if (entry.enableSwitch) {
            auto* enable = new QCheckBox(QStringLiteral("Enable it"), groupBox);
            enable->setObjectName(name + QStringLiteral("Enable"));
            enable->setChecked(true);
            connect(enable, &QCheckBox::toggled, this, [this, control](bool on) {
                letControlProperty(control, u"Enabled", Variant(on));
            });
            group.grid->addWidget(enable, row, 2);
            d->switches[name] = enable;
        }
        if (entry.settings == GallerySettings::ScrollBars) {
            auto* bars = new QComboBox(groupBox);
            bars->setObjectName(name + QStringLiteral("ScrollBars"));
            bars->addItems({QStringLiteral("No scroll bars"), QStringLiteral("Horizontal"),
                            QStringLiteral("Vertical"), QStringLiteral("Both")});
            bars->setCurrentIndex(getProperty(*control->object(), u"ScrollBars").toInteger());
            connect(bars, &QComboBox::currentIndexChanged, this, [this, control](int index) {
                letControlProperty(control, u"ScrollBars", Variant(std::int32_t{index}));
            });
            group.grid->addWidget(bars, row, 2, Qt::AlignTop);
        }
        if (entry.settings == GallerySettings::FileName) {
            fileNameSettings(control, group.grid, row);
            ++group.rows;
        }
        if (entry.settings == GallerySettings::LongItem) {
            control->setFixedHeight(96);
            group.grid->addWidget(longItemSwitch(groupBox, control, name), row, 2, Qt::AlignTop);
        }
        if (entry.settings == GallerySettings::FileDialog) {
            // The icon keeps its own size.
            control->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
            fileDialogSettings(control, group.grid, row);
            ++group.rows;
        }
        if (entry.settings == GallerySettings::Options) {
            group.grid->addWidget(optionSettings(groupBox, control, name), row, 2, Qt::AlignTop);
        }
        if (entry.settings == GallerySettings::UprightLine) {
            // A vertical separator stands as high as a few lines of text.
            control->setFixedHeight(48);
            control->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        }
        if (entry.settings == GallerySettings::Candidates) {
            // A few candidates to choose from, and room for the button columns.
            control->setFixedHeight(160);
            Variant items(ObjectRef(VariantArray::make(
                {u"Name", u"Address", u"Phone", u"E-mail", u"Birthday", u"Department"})));
            invoke(*control->object(), u"LAddArray", CallKind::Method,
                   std::span<Variant>(&items, 1));
        }
        if (entry.settings == GallerySettings::Number) {
            d->numberBoxes.push_back(control);
            // The switches go under the last numeric box of a run of them.
            const bool last = i + 1 == entries.size() ||
                              entries[i + 1].settings != GallerySettings::Number ||
                              std::u16string_view(entries[i + 1].group) != entry.group;
            if (last) group.grid->addWidget(numberSettings(groupBox), group.rows++, 1, 1, 2);
        }

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
    d->values->setWordWrap(true);
    layout->addWidget(d->values);

    auto* buttons = new QHBoxLayout;
    const auto addButton = [&](const QString& text, auto action) {
        addNamedButton(*buttons, this, text, action);
    };
    addButton(QStringLiteral("Save values"), [this] { saveValues(); });
    addButton(QStringLiteral("Load values"), [this] { loadValues(); });
    addButton(QStringLiteral("Store"), [this] { storeAll(); });
    addButton(QStringLiteral("Restore"), [this] { restoreAll(); });
    addButton(QStringLiteral("Message box properties..."), [this] {
        MessageBoxDesigner designer(this);
        designer.exec();
    });
    d->status = new QLabel(this);
    d->status->setObjectName(QStringLiteral("status"));
    d->status->setTextInteractionFlags(Qt::TextSelectableByMouse);
    buttons->addWidget(d->status, 1);
    layout->addLayout(buttons);
    d->iniFile = new QLabel(this);
    d->iniFile->setObjectName(QStringLiteral("iniFile"));
    d->iniFile->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(d->iniFile);
    setValuesFile(valuesFile_);

    layout->addWidget(new QLabel(QStringLiteral("Events:"), this));
    d->events = new QPlainTextEdit(this);
    d->events->setObjectName(QStringLiteral("events"));
    d->events->setReadOnly(true);
    d->events->setMaximumBlockCount(kLogLimit);
    d->events->setLineWrapMode(QPlainTextEdit::NoWrap);
    d->events->setMinimumHeight(120);
    layout->addWidget(d->events, 1);

    setJapanese(host.localeId() == LocaleJapanese);
    d->values->setText(valuesText());
    resize(720, 760);
}

GalleryWindow::~GalleryWindow() {
    d->host.setErrorHandler({});
    // Property dialogs still open go while the design host their pages sit on is there.
    qDeleteAll(findChildren<qt::PropertyDialog*>());
    // The controls go before the widgets around them.
    d->form.reset();
}

qt::QtForm& GalleryWindow::form() const {
    return *d->form;
}

QCheckBox* GalleryWindow::longItemSwitch(QWidget* parent, QtControlHost* control,
                                         const QString& name) {
    auto* box = new QCheckBox(QStringLiteral("Long item"), parent);
    box->setObjectName(name + QStringLiteral("LongItem"));
    connect(box, &QCheckBox::toggled, this, [this, control](bool on) {
        // The long item is the last one: added at index 0, which appends, and removed from
        // the end, which makes the list measure the others again.
        std::vector<Variant> args;
        const char16_t* method = u"RemoveItem";
        if (on) {
            method = u"AddItem";
            args = {Variant(std::u16string(kLongItem)), Variant(std::int16_t{0})};
        } else {
            const std::int16_t count = getProperty(*control->object(), u"ListCount").toInteger();
            if (count == 0) return;
            args = {Variant(static_cast<std::int16_t>(count - 1))};
        }
        try {
            invoke(*control->object(), method, CallKind::Method, std::span<Variant>(args));
        } catch (const std::exception& e) {
            log(whatOf(e));
        }
    });
    return box;
}

QWidget* GalleryWindow::optionSettings(QWidget* parent, QtControlHost* control,
                                       const QString& name) {
    auto* panel = new QWidget(parent);
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    const auto read = [control](std::u16string_view property) {
        return getProperty(*control->object(), property);
    };
    const auto spin = [&](const QString& suffix, std::u16string_view property, int row) {
        auto* box = new QSpinBox(panel);
        box->setObjectName(name + suffix);
        box->setRange(0, 12);
        // 0 (one row) comes only from a saved form: the control refuses it when set.
        box->setSpecialValueText(QStringLiteral("0: one row"));
        box->setValue(read(property).toInteger());
        connect(box, &QSpinBox::valueChanged, this, [this, control, property, box](int n) {
            letControlProperty(control, property, Variant(static_cast<std::int16_t>(n)));
            // A refused number leaves the control as it was; the box shows what it has.
            const QSignalBlocker quiet(box);
            box->setValue(getProperty(*control->object(), property).toInteger());
            fitOptionRows(control);
        });
        grid->addWidget(new QLabel(suffix, panel), row, 0);
        grid->addWidget(box, row, 1);
    };
    spin(QStringLiteral("OptionNum"), u"OptionNum", 0);
    spin(QStringLiteral("OptionNumPerLine"), u"OptionNumPerLine", 1);
    auto* captions = new QLineEdit(toQString(read(u"OptionCaptions").toString()), panel);
    captions->setObjectName(name + QStringLiteral("OptionCaptions"));
    connect(captions, &QLineEdit::textChanged, this, [this, control](const QString& text) {
        letControlProperty(control, u"OptionCaptions", Variant(qt::fromQString(text)));
    });
    grid->addWidget(new QLabel(QStringLiteral("OptionCaptions"), panel), 2, 0);
    grid->addWidget(captions, 2, 1);
    fitOptionRows(control);
    return panel;
}

QWidget* GalleryWindow::numberSettings(QWidget* parent) {
    auto* panel = new QWidget(parent);
    panel->setObjectName(QStringLiteral("numberSettings"));
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    QtControlHost* first = d->numberBoxes.front();
    const auto read = [first](std::u16string_view property) {
        return getProperty(*first->object(), property);
    };
    // Every numeric box of the run takes the same settings.
    const auto letAll = [this](std::u16string_view property, const Variant& value) {
        for (QtControlHost* box : d->numberBoxes) letControlProperty(box, property, value);
    };
    const auto label = [panel](const QString& text) {
        auto* l = new QLabel(text, panel);
        l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        return l;
    };

    auto* mode = new QComboBox(panel);
    mode->setObjectName(QStringLiteral("mode"));
    mode->addItems({QStringLiteral("0 signed decimal"), QStringLiteral("1 decimal"),
                    QStringLiteral("2 signed integer"), QStringLiteral("3 integer"),
                    QStringLiteral("4 free text")});
    mode->setCurrentIndex(read(u"Mode").toInteger());
    connect(mode, &QComboBox::currentIndexChanged, this,
            [letAll](int index) { letAll(u"Mode", Variant(std::int32_t{index})); });

    auto* maxLength = new QSpinBox(panel);
    maxLength->setObjectName(QStringLiteral("maxLength"));
    maxLength->setRange(0, 99);
    maxLength->setSpecialValueText(QStringLiteral("none"));
    maxLength->setValue(read(u"MaxLength").toInteger());
    connect(maxLength, &QSpinBox::valueChanged, this,
            [letAll](int n) { letAll(u"MaxLength", Variant(static_cast<std::int16_t>(n))); });

    auto* limitCheck = new QCheckBox(QStringLiteral("LimitCheck"), panel);
    limitCheck->setObjectName(QStringLiteral("limitCheck"));
    limitCheck->setChecked(read(u"LimitCheck").toBoolean().raw != 0);
    connect(limitCheck, &QCheckBox::toggled, this,
            [letAll](bool on) { letAll(u"LimitCheck", Variant(on)); });
    const auto limitBox = [&](const QString& objectName, std::u16string_view property) {
        auto* spin = new QDoubleSpinBox(panel);
        spin->setObjectName(objectName);
        spin->setRange(-999999.99, 999999.99);
        spin->setDecimals(2);
        spin->setValue(read(property).toDouble());
        return spin;
    };
    auto* lower = limitBox(QStringLiteral("lowerLimit"), u"LowerLimit");
    auto* upper = limitBox(QStringLiteral("upperLimit"), u"UpperLimit");
    // The boxes refuse a lower limit above the upper one: each spin box stops at the
    // other's value.
    lower->setMaximum(upper->value());
    upper->setMinimum(lower->value());
    connect(lower, &QDoubleSpinBox::valueChanged, this, [letAll, upper](double v) {
        upper->setMinimum(v);
        letAll(u"LowerLimit", Variant(v));
    });
    connect(upper, &QDoubleSpinBox::valueChanged, this, [letAll, lower](double v) {
        lower->setMaximum(v);
        letAll(u"UpperLimit", Variant(v));
    });

    grid->addWidget(label(QStringLiteral("Mode")), 0, 0);
    grid->addWidget(mode, 0, 1);
    grid->addWidget(label(QStringLiteral("MaxLength")), 0, 2);
    grid->addWidget(maxLength, 0, 3);
    grid->addWidget(limitCheck, 1, 0);
    grid->addWidget(lower, 1, 1);
    grid->addWidget(label(QStringLiteral("to")), 1, 2);
    grid->addWidget(upper, 1, 3);
    grid->setColumnStretch(4, 1);
    return panel;
}

void GalleryWindow::fileNameSettings(QtControlHost* control, QGridLayout* grid, int row) {
    QWidget* parent = grid->parentWidget();
    auto* mode = new QComboBox(parent);
    mode->setObjectName(control->objectName() + QStringLiteral("Mode"));
    mode->addItems({QStringLiteral("NoCheck"), QStringLiteral("FileOnly"),
                    QStringLiteral("FolderOnly"), QStringLiteral("FileAndFolder")});
    grid->addWidget(mode, row, 2, Qt::AlignTop);
    auto* parts = new QLabel(parent);
    parts->setObjectName(control->objectName() + QStringLiteral("Parts"));
    parts->setTextInteractionFlags(Qt::TextSelectableByMouse);
    parts->setWordWrap(true);
    grid->addWidget(parts, row + 1, 1, 1, 2);
    // The parts are read with MessageShow off: each read validates, and a box popping up
    // at every key typed would make the box unusable.
    const auto show = [control, parts] {
        auto* box = dynamic_cast<FileNameBox*>(control->object().get());
        if (!box || box->detached()) return;
        const bool messages = box->messageShow();
        box->setMessageShow(false);
        const QString valid =
            box->validateValue() ? QStringLiteral("valid") : QStringLiteral("not valid");
        parts->setText(
            QStringLiteral("%1 | FileDrive %2 | FilePath %3 | FileTitle %4 | FileExtension %5 | "
                           "FilePathBody %6 | FileBody %7 | LongFileName %8")
                .arg(valid, toQString(box->fileDrive()), toQString(box->filePath()),
                     toQString(box->fileTitle()), toQString(box->fileExtension()),
                     toQString(box->filePathBody()), toQString(box->fileBody()),
                     toQString(box->longFileName())));
        box->setMessageShow(messages);
    };
    connect(mode, &QComboBox::currentIndexChanged, this, [this, control, show](int index) {
        letControlProperty(control, u"Mode", Variant(std::int32_t{index}));
        show();
    });
    connect(control, &QtControlHost::eventRaised, parts,
            [show](const QString& event, qt::EventArgs&) {
                if (event == QLatin1String("Change")) show();
            });
    show();
}

void GalleryWindow::fileDialogSettings(QtControlHost* control, QGridLayout* grid, int row) {
    QWidget* parent = grid->parentWidget();
    const QString name = control->objectName();
    auto* panel = new QWidget(parent);
    auto* buttons = new QHBoxLayout(panel);
    buttons->setContentsMargins(0, 0, 0, 0);
    const auto addButton = [&](const QString& text, const QString& suffix, auto action) {
        auto* b = new QPushButton(text, panel);
        b->setObjectName(name + suffix);
        connect(b, &QPushButton::clicked, this, action);
        buttons->addWidget(b);
    };
    addButton(QStringLiteral("Open..."), QStringLiteral("Open"),
              [this, control] { runFileDialog(control, false); });
    addButton(QStringLiteral("Save..."), QStringLiteral("Save"),
              [this, control] { runFileDialog(control, true); });
    addButton(QStringLiteral("About"), QStringLiteral("About"), [this, control, name] {
        try {
            invoke(*control->object(), u"ShowAbout", CallKind::Method);
            log(name + QStringLiteral(".ShowAbout"));
        } catch (const Error& e) {
            log(name + QStringLiteral(".ShowAbout: ") + whatOf(e));
        }
    });
    addButton(QStringLiteral("Properties..."), QStringLiteral("Properties"), [this, control] {
        auto* dialog = openFileDialogPages(designHost(), control->object(), this);
        // What Apply changed shows in the value line and the result at once.
        connect(dialog, &QDialog::finished, this, [this] { d->values->setText(valuesText()); });
    });
    buttons->addStretch(1);
    grid->addWidget(panel, row, 2, Qt::AlignVCenter);
    auto* result = new QLabel(QStringLiteral("No file chosen yet"), parent);
    result->setObjectName(name + QStringLiteral("Result"));
    result->setTextInteractionFlags(Qt::TextSelectableByMouse);
    grid->addWidget(result, row + 1, 1, 1, 2);
}

void GalleryWindow::runFileDialog(QtControlHost* control, bool save) {
    const QString name = control->objectName();
    const QString method = save ? QStringLiteral("FileSave") : QStringLiteral("FileOpen");
    auto* result = findChild<QLabel*>(name + QStringLiteral("Result"));
    Object& box = *control->object();
    try {
        // Each button tries its own dialog: the mode follows the button.
        letProperty(box, u"Mode", Variant(std::int32_t{save ? 1 : 0}));
        const std::u16string chosen =
            invoke(box, method.toStdU16String(), CallKind::Method).toString();
        QString shown;
        if (getProperty(box, u"CancelSelected").toBoolean().raw != 0) {
            shown = QStringLiteral("%1: cancelled").arg(method);
        } else {
            // Several names come as the folder and the names separated by NULs.
            shown = QStringLiteral("%1: %2").arg(
                method, toQString(chosen).replace(QChar(u'\0'), QStringLiteral(" | ")));
        }
        if (result) result->setText(shown);
        log(name + QLatin1Char('.') + shown);
    } catch (const Error& e) {
        if (result) result->setText(method + QStringLiteral(": ") + whatOf(e));
        log(name + QLatin1Char('.') + method + QStringLiteral(": ") + whatOf(e));
    }
    d->values->setText(valuesText());
}

qt::QtHost& GalleryWindow::designHost() const {
    if (!d->designHost) {
        d->designHost = std::make_unique<qt::QtHost>();
        d->designHost->setUserMode(false);
        d->designHost->setLocaleId(d->host.localeId());
    }
    return *d->designHost;
}

void GalleryWindow::letControlProperty(QtControlHost* control, std::u16string_view name,
                                       const Variant& value) {
    try {
        letProperty(*control->object(), name, value);
    } catch (const Error& e) {
        log(control->objectName() + QLatin1Char('.') + toQString(name) + QStringLiteral(": ") +
            whatOf(e));
    }
    d->values->setText(valuesText());
}

QWidget* GalleryWindow::settingsSwitch(const QString& objectName) const {
    return findChild<QWidget*>(objectName);
}

QtControlHost* GalleryWindow::control(const QString& name) const {
    return d->form->find(name);
}

QCheckBox* GalleryWindow::enableSwitch(const QString& name) const {
    const auto it = d->switches.find(name);
    return it == d->switches.end() ? nullptr : it->second;
}

QString GalleryWindow::valuesFile() const {
    return valuesFile_;
}

void GalleryWindow::setValuesFile(const QString& path) {
    // A name without a folder lies in the INI folder, as SettingHandle puts it.
    const QString name = path.isEmpty() ? QStringLiteral("corvex-gallery.ini") : path;
    const auto native = d->host.profiles().iniPath(fromQString(name));
    valuesFile_ = native ? QString::fromStdString(*native) : name;
    settingHandle().setIniFileName(fromQString(valuesFile_));
    if (d->iniFile) d->iniFile->setText(QStringLiteral("INI file: ") + valuesFile_);
}

SettingHandle& GalleryWindow::settingHandle() const {
    return static_cast<SettingHandle&>(*d->form->find(QStringLiteral("settings"))->object());
}

QStringList GalleryWindow::unsavedValues() const {
    // What the file now holds, read as SettingHandle reads it: the service itself writes
    // quietly, so the gallery checks that each value arrived.
    const auto bytes = bytesOf(valuesFile_);
    const IniDocument file(
        bytes ? std::string_view(bytes->constData(), static_cast<std::size_t>(bytes->size()))
              : std::string_view());
    QStringList missing;
    for (QtControlHost* h : d->form->hosts()) {
        if (!h->classInfo().member(u"SectionName")) continue;
        Object& o = *h->object();
        const auto found = file.find(toUtf8(getProperty(o, u"SectionName").toString()),
                                     toUtf8(getProperty(o, u"KeyName").toString()));
        const std::string text = toUtf8(getProperty(o, u"Value").toString());
        // An INI entry holds one line, without the blanks around it.
        const IniDocument expected([&] {
            IniDocument one;
            one.write("s", "k", text);
            return one.bytes();
        }());
        if (found != expected.find("s", "k")) missing << h->objectName();
    }
    return missing;
}

bool GalleryWindow::saveValues() {
    QDir().mkpath(QFileInfo(valuesFile_).absolutePath());
    settingHandle().saveControlsToIni(Variant(fromQString(valuesFile_)));
    const std::string error = d->host.profiles().lastWriteError();
    if (!error.empty()) {
        return reportFailure(QStringLiteral("Save values failed: %1; the old file is unchanged")
                                 .arg(QString::fromLocal8Bit(error.c_str())));
    }
    const QStringList missing = unsavedValues();
    if (!missing.isEmpty()) {
        return reportFailure(
            QStringLiteral("Save values failed: %1 could not be written (%2 not saved)")
                .arg(valuesFile_, missing.join(QStringLiteral(", "))));
    }
    report(QStringLiteral("Saved values to %1").arg(valuesFile_));
    return true;
}

bool GalleryWindow::reportFailure(const QString& message) {
    report(message);
    return false;
}

void GalleryWindow::report(const QString& message) {
    d->status->setText(message);
    log(message);
}

bool GalleryWindow::loadValues() {
    // A missing file would give every control its default: say so instead.
    QFile file(valuesFile_);
    if (!file.open(QIODevice::ReadOnly))
        return reportFailure(
            QStringLiteral("Load values failed: %1: %2").arg(valuesFile_, file.errorString()));
    file.close();
    settingHandle().getControlsFromIni(Variant(fromQString(valuesFile_)));
    d->values->setText(valuesText());
    report(QStringLiteral("Loaded values from %1").arg(valuesFile_));
    return true;
}

void GalleryWindow::storeAll() {
    d->form->model().callEach(u"Store", [this](const ControlName& name, const Error* e) {
        log(toQString(name.text()) + QStringLiteral(".Store") +
            (e ? QStringLiteral(": ") + whatOf(*e) : QString()));
    });
}

void GalleryWindow::restoreAll() {
    d->form->model().callEach(u"Restore", [this](const ControlName& name, const Error* e) {
        log(toQString(name.text()) + QStringLiteral(".Restore") +
            (e ? QStringLiteral(": ") + whatOf(*e) : QString()));
    });
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
            // One line for all: a line break shows as a symbol.
            text.replace(QStringLiteral("\r\n"), QStringLiteral(" \u21B5 "));
            // A huge value would take the label minutes to lay out: its start is enough.
            if (text.size() > kShownValueLength)
                text = text.left(kShownValueLength) +
                       QStringLiteral("\u2026 (%1 characters)").arg(text.size());
        } catch (const Error& e) {
            text = whatOf(e);
        }
        parts << h->objectName() + QStringLiteral(" = ") + text;
    }
    return QStringLiteral("Value: ") + parts.join(QStringLiteral(",  "));
}

QStringList GalleryWindow::eventLog() const {
    return QStringList(d->logLines.begin(), d->logLines.end());
}

QString GalleryWindow::statusText() const {
    return d->status ? d->status->text() : QString();
}

void GalleryWindow::log(const QString& line) {
    d->logLines.push_back(line);
    if (d->logLines.size() > static_cast<std::size_t>(kLogLimit)) d->logLines.pop_front();
    // One block per entry, whatever line breaks it holds.
    if (d->events)
        d->events->appendPlainText(QString(line).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    emit logged(line);
}

}  // namespace corvex::gallery
