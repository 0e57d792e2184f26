// The list box of the Qt host on a QListWidget.
#include "corvex/qt/list_box.h"

#include <QListWidget>
#include <QResizeEvent>
#include <QScrollBar>
#include <algorithm>

#include "corvex/common/error.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"

namespace corvex::qt {

namespace {

// A list widget whose horizontal scroll range is a pixel extent set from outside, as
// the host's list box has it: the bar shows only while the extent is wider than the
// viewport, whatever the items' own widths.
class ExtentList : public QListWidget {
public:
    using QListWidget::QListWidget;
    int extent = 0;

    void applyExtent() {
        const bool bar = extent > viewport()->width();
        setHorizontalScrollBarPolicy(bar ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
        updateGeometries();
    }

protected:
    void updateGeometries() override {
        QListWidget::updateGeometries();
        QScrollBar* bar = horizontalScrollBar();
        const int page = viewport()->width();
        bar->setRange(0, std::max(extent - page, 0));
        bar->setPageStep(page);
    }
    void resizeEvent(QResizeEvent* e) override {
        QListWidget::resizeEvent(e);
        applyExtent();
    }
};

ExtentList* extentList(QListWidget* w) {
    return static_cast<ExtentList*>(w);
}

QAbstractItemView::SelectionMode qtMode(std::int16_t multiSelect) {
    switch (multiSelect) {
        case multiselect::Simple:
            return QAbstractItemView::MultiSelection;
        case multiselect::Extended:
            return QAbstractItemView::ExtendedSelection;
        default:
            return QAbstractItemView::SingleSelection;
    }
}

}  // namespace

QtListBox::QtListBox(QtControlHost& host, const ListBoxSpec& design)
    : QtWidget(host, new ExtentList(&host), design, color::WindowBackground, color::WindowText),
      model_(design.sorted, design.multiSelect),
      integralHeight_(design.integralHeight) {
    QListWidget* w = listWidget();
    w->setSelectionMode(qtMode(design.multiSelect));
    w->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    w->setUniformItemSizes(true);
    QObject::connect(w, &QListWidget::itemSelectionChanged, w, [this] { selectionChangedByQt(); });
    QObject::connect(w, &QListWidget::currentRowChanged, w,
                     [this](int) { selectionChangedByQt(); });
}

QtListBox::~QtListBox() = default;

QListWidget* QtListBox::listWidget() const {
    return static_cast<QListWidget*>(qtWidget());
}

void QtListBox::selectionChangedByQt() {
    if (updating_) return;
    // The user changed the selection: the rules take it as the toolkit shows it. Click
    // comes with the mouse button's release.
    QListWidget* w = listWidget();
    std::vector<bool> selection(static_cast<std::size_t>(w->count()));
    for (int k = 0; k < w->count(); ++k)
        selection[static_cast<std::size_t>(k)] = w->item(k)->isSelected();
    model_.adopt(w->currentRow(), selection);
}

void QtListBox::pushSelection() {
    updating_ = true;
    QListWidget* w = listWidget();
    for (int k = 0; k < w->count(); ++k) w->item(k)->setSelected(model_.selected(k));
    w->setCurrentRow(model_.current(), QItemSelectionModel::NoUpdate);
    updating_ = false;
}

void QtListBox::pushCurrent() {
    updating_ = true;
    listWidget()->setCurrentRow(model_.current(), QItemSelectionModel::NoUpdate);
    updating_ = false;
}

void QtListBox::changedByCode(bool changed) {
    pushSelection();
    if (!changed) return;
    WidgetEvent e;
    e.type = WidgetEventType::Click;
    notify(e);
}

void QtListBox::addItem(const std::u16string& text, std::int32_t index) {
    const std::int32_t at = model_.add(text, index);
    updating_ = true;
    // Qt moves its selection and current row down with the rows after the new one.
    listWidget()->insertItem(at, toQString(text));
    updating_ = false;
}

void QtListBox::removeItem(std::int32_t i) {
    const bool changed = model_.remove(i);
    updating_ = true;
    delete listWidget()->takeItem(i);
    updating_ = false;
    // Qt makes a neighbour current when the current row goes; the host's list has none.
    if (changed) {
        pushSelection();
    } else {
        pushCurrent();
    }
}

void QtListBox::clear() {
    model_.clear();
    updating_ = true;
    listWidget()->clear();
    updating_ = false;
}

std::int32_t QtListBox::listCount() const {
    return model_.count();
}

std::u16string QtListBox::list(std::int32_t i) const {
    return model_.text(i);
}

void QtListBox::setList(std::int32_t i, const std::u16string& text) {
    model_.setText(i, text);
    listWidget()->item(i)->setText(toQString(text));
}

std::int32_t QtListBox::itemData(std::int32_t i) const {
    return model_.data(i);
}

void QtListBox::setItemData(std::int32_t i, std::int32_t v) {
    model_.setData(i, v);
}

std::int32_t QtListBox::listIndex() const {
    return model_.current();
}

void QtListBox::setListIndex(std::int32_t i) {
    changedByCode(model_.setCurrent(i));
}

std::int32_t QtListBox::newIndex() const {
    return model_.newIndex();
}

bool QtListBox::sorted() const {
    return model_.sorted();
}

std::int16_t QtListBox::multiSelect() const {
    return model_.multiSelect();
}

bool QtListBox::selected(std::int32_t i) const {
    return model_.selected(i);
}

void QtListBox::setSelected(std::int32_t i, bool on) {
    changedByCode(model_.setSelected(i, on));
}

std::int32_t QtListBox::selCount() const {
    return model_.selCount();
}

std::int32_t QtListBox::topIndex() const {
    return model_.topIndex();
}

void QtListBox::setTopIndex(std::int32_t i) {
    model_.setTopIndex(i);
    if (QListWidgetItem* item = listWidget()->item(i)) {
        listWidget()->scrollToItem(item, QAbstractItemView::PositionAtTop);
    }
}

void QtListBox::setColumns(std::int16_t n) {
    if (n < 0) throw Error(err::InvalidPropertyValue);
    columns_ = n;
    // Columns wrap the items top to bottom, then left to right, as the host's list does.
    listWidget()->setFlow(QListView::TopToBottom);
    listWidget()->setWrapping(n > 0);
}

std::u16string QtListBox::text() const {
    const std::int32_t i = model_.current();
    return i < 0 ? std::u16string() : model_.text(i);
}

void QtListBox::setText(const std::u16string& t) {
    const std::int32_t i = model_.find(t);
    if (i >= 0) setListIndex(i);
}

std::int32_t QtListBox::horizontalExtent() const {
    return extentList(listWidget())->extent;
}

void QtListBox::setHorizontalExtent(std::int32_t pixels) {
    ExtentList* w = extentList(listWidget());
    w->extent = std::max(pixels, 0);
    w->applyExtent();
}

// --- factory -------------------------------------------------------------------------

std::unique_ptr<ListBox> QtControlHost::createListBox(const ListBoxSpec& design) {
    return std::make_unique<QtListBox>(*this, design);
}

}  // namespace corvex::qt
