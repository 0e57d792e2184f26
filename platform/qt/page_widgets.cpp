// Captions and drop-down lists of property pages on QLabel and QComboBox.
#include "corvex/qt/page_widgets.h"

#include <QComboBox>
#include <QLabel>

#include "corvex/common/error.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"

namespace corvex::qt {

namespace {
// The host's error for an entry index outside a list.
constexpr std::int32_t kInvalidArrayIndex = 381;
}  // namespace

// --- caption -------------------------------------------------------------------------

QtTextLabel::QtTextLabel(QtControlHost& host, const WidgetSpec& design)
    : QtWidget(host, new QLabel(&host), design, color::ButtonFace, color::ButtonText) {}

QtTextLabel::~QtTextLabel() = default;

QLabel* QtTextLabel::label() const {
    return static_cast<QLabel*>(qtWidget());
}

std::u16string QtTextLabel::caption() const {
    return label() ? fromQString(label()->text()) : std::u16string();
}

void QtTextLabel::setCaption(const std::u16string& c) {
    if (label()) label()->setText(toQString(c));
}

// --- drop-down list ------------------------------------------------------------------

QtItemList::QtItemList(QtControlHost& host, const WidgetSpec& design)
    : QtWidget(host, new QComboBox(&host), design, color::WindowBackground, color::WindowText) {
    comboBox()->setEditable(false);
    QObject::connect(comboBox(), &QComboBox::currentIndexChanged, comboBox(),
                     [this](int) { indexChangedByQt(); });
}

QtItemList::~QtItemList() = default;

QComboBox* QtItemList::comboBox() const {
    return static_cast<QComboBox*>(qtWidget());
}

void QtItemList::addItem(const std::u16string& text, std::int32_t itemData) {
    updating_ = true;
    comboBox()->addItem(toQString(text), QVariant(itemData));
    // Qt selects the first entry of an empty list by itself; the host's list does not.
    comboBox()->setCurrentIndex(comboBox()->count() == 1 ? -1 : comboBox()->currentIndex());
    updating_ = false;
}

void QtItemList::clear() {
    updating_ = true;
    comboBox()->clear();
    updating_ = false;
}

std::int32_t QtItemList::listCount() const {
    return comboBox()->count();
}

void QtItemList::checkIndex(std::int32_t i) const {
    if (i < 0 || i >= listCount()) throw Error(kInvalidArrayIndex, u"Invalid property array index");
}

std::u16string QtItemList::list(std::int32_t i) const {
    checkIndex(i);
    return fromQString(comboBox()->itemText(i));
}

std::int32_t QtItemList::itemData(std::int32_t i) const {
    checkIndex(i);
    return comboBox()->itemData(i).toInt();
}

std::int32_t QtItemList::listIndex() const {
    return comboBox()->currentIndex();
}

void QtItemList::setListIndex(std::int32_t i) {
    if (i < -1 || i >= listCount()) throw Error(err::InvalidPropertyValue);
    if (i == listIndex()) return;
    updating_ = true;
    comboBox()->setCurrentIndex(i);
    updating_ = false;
    // Set by code, the change raises Click as the user's choice does.
    WidgetEvent e;
    e.type = WidgetEventType::Click;
    notify(e);
}

void QtItemList::indexChangedByQt() {
    if (updating_) return;
    WidgetEvent e;
    e.type = WidgetEventType::Click;
    notifyFromQt(e);
}

// --- factory -------------------------------------------------------------------------

std::unique_ptr<TextLabel> QtControlHost::createTextLabel(const WidgetSpec& design) {
    return std::make_unique<QtTextLabel>(*this, design);
}

std::unique_ptr<ItemList> QtControlHost::createItemList(const WidgetSpec& design) {
    return std::make_unique<QtItemList>(*this, design);
}

}  // namespace corvex::qt
