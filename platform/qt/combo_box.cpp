// The combo box over a QComboBox.
#include "corvex/qt/combo_box.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>

#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"

namespace corvex::qt {

namespace {
QComboBox* makeCombo(QtControlHost& host, const ComboBoxSpec& design) {
    auto* box = new QComboBox(&host);
    box->setEditable(design.style == ComboStyle::DropDownCombo);
    // The items are placed by the core's rules, never by Qt.
    box->setInsertPolicy(QComboBox::NoInsert);
    return box;
}
}  // namespace

QtComboBox::QtComboBox(QtControlHost& host, const ComboBoxSpec& design)
    : QtWidget(host, makeCombo(host, design), design, color::WindowBackground, color::WindowText),
      model_(design.style == ComboStyle::DropDownList, design.sorted),
      style_(design.style) {
    move(design.left, design.top, design.width, design.height);
    QObject::connect(comboBox(), &QComboBox::activated, comboBox(),
                     [this](int index) { picked(index); });
    if (QLineEdit* edit = comboBox()->lineEdit()) {
        QObject::connect(edit, &QLineEdit::textEdited, comboBox(),
                         [this](const QString& t) { edited(t); });
    }
    // Scroll tells of the drop-down list moving under the person's eyes; the view also
    // scrolls while hidden (items added, the current one made visible), which is no Scroll.
    QAbstractItemView* view = comboBox()->view();
    QObject::connect(view->verticalScrollBar(), &QScrollBar::valueChanged, comboBox(),
                     [this, view](int) {
                         if (!view->isVisible()) return;
                         WidgetEvent e;
                         e.type = WidgetEventType::Scroll;
                         notifyFromQt(e);
                     });
}

QtComboBox::~QtComboBox() = default;

QComboBox* QtComboBox::comboBox() const {
    return static_cast<QComboBox*>(qtWidget());
}

// Shows the model's items, selection and edit text without reporting anything.
void QtComboBox::show() {
    QComboBox* box = comboBox();
    if (!box) return;
    updating_ = true;
    box->setCurrentIndex(model_.listIndex());
    if (box->isEditable() && box->currentText() != toQString(model_.edit().text())) {
        box->setEditText(toQString(model_.edit().text()));
    }
    updating_ = false;
}

void QtComboBox::report(const lists::ComboOutcome& outcome, bool fromQt) {
    show();
    for (const auto& [happened, type] : {std::pair{outcome.change, WidgetEventType::Change},
                                         std::pair{outcome.click, WidgetEventType::Click}}) {
        if (!happened) continue;
        WidgetEvent e;
        e.type = type;
        if (fromQt) {
            notifyFromQt(e);
        } else {
            notify(e);
        }
    }
}

void QtComboBox::picked(int index) {
    if (updating_) return;
    report(model_.pick(index), true);
}

void QtComboBox::edited(const QString& text) {
    if (updating_ || model_.locked()) return;
    report(model_.setText(fromQString(text)), true);
}

void QtComboBox::addItem(const std::u16string& text, std::int32_t index) {
    const std::int32_t at = model_.add(text, index);
    updating_ = true;
    if (comboBox()) comboBox()->insertItem(at, toQString(text));
    updating_ = false;
    show();
}

void QtComboBox::removeItem(std::int32_t i) {
    model_.remove(i);
    updating_ = true;
    if (comboBox()) comboBox()->removeItem(i);
    updating_ = false;
    show();
}

void QtComboBox::clear() {
    const lists::ComboOutcome outcome = model_.clear();
    updating_ = true;
    if (comboBox()) comboBox()->clear();
    updating_ = false;
    report(outcome, false);
}

void QtComboBox::setList(std::int32_t i, const std::u16string& text) {
    model_.setItem(i, text);
    updating_ = true;
    if (comboBox()) comboBox()->setItemText(i, toQString(text));
    updating_ = false;
    show();
}

void QtComboBox::setListIndex(std::int32_t i) {
    report(model_.select(i), false);
}

std::u16string QtComboBox::text() const {
    return model_.edit().text();
}

void QtComboBox::setText(const std::u16string& text) {
    report(model_.setText(text), false);
}

std::int32_t QtComboBox::selStart() const {
    QLineEdit* edit = comboBox() ? comboBox()->lineEdit() : nullptr;
    if (!edit) return model_.edit().selStart();
    return edit->hasSelectedText() ? edit->selectionStart() : edit->cursorPosition();
}

void QtComboBox::setSelStart(std::int32_t s) {
    model_.setSelStart(s);
    if (QLineEdit* edit = comboBox() ? comboBox()->lineEdit() : nullptr) {
        edit->setCursorPosition(model_.edit().selStart());
    }
}

std::int32_t QtComboBox::selLength() const {
    QLineEdit* edit = comboBox() ? comboBox()->lineEdit() : nullptr;
    if (!edit) return model_.edit().selLength();
    return static_cast<std::int32_t>(edit->selectedText().size());
}

void QtComboBox::setSelLength(std::int32_t n) {
    model_.setSelStart(selStart());
    model_.setSelLength(n);
    if (QLineEdit* edit = comboBox() ? comboBox()->lineEdit() : nullptr) {
        edit->setSelection(model_.edit().selStart(), model_.edit().selLength());
    }
}

std::u16string QtComboBox::selText() const {
    QLineEdit* edit = comboBox() ? comboBox()->lineEdit() : nullptr;
    return edit ? fromQString(edit->selectedText()) : model_.edit().selText();
}

void QtComboBox::setSelText(const std::u16string& text) {
    model_.setSelStart(selStart());
    model_.setSelLength(selLength());
    report(model_.setSelText(text), false);
}

void QtComboBox::setLocked(bool v) {
    model_.setLocked(v);
    if (QLineEdit* edit = comboBox() ? comboBox()->lineEdit() : nullptr) edit->setReadOnly(v);
}

void QtComboBox::move(float left, float top, float width, float) {
    // The box's height follows its font, as the host's combo box's does.
    const int pixels = comboBox() ? comboBox()->sizeHint().height() : 0;
    QtWidget::move(left, top, width, static_cast<float>(pixels * surfaceHost().twipsPerPixelY()));
}

}  // namespace corvex::qt
