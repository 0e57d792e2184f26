// The check box over a QCheckBox.
#include "corvex/qt/check_box.h"

#include <QCheckBox>

#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"

namespace corvex::qt {

namespace {

// Unchecked and checked swap on a user click; grayed (and any other state) turns checked.
class CheckButton : public QCheckBox {
public:
    using QCheckBox::QCheckBox;

protected:
    void nextCheckState() override {
        setCheckState(checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    }
};

}  // namespace

// --- check box ------------------------------------------------------------------------

QtCheckBox::QtCheckBox(QtControlHost& host, const WidgetSpec& design)
    : QtWidget(host, new CheckButton(&host), design, color::ButtonFace, color::ButtonText) {
    QObject::connect(checkBox(), &QCheckBox::stateChanged, checkBox(),
                     [this](int state) { stateChangedByQt(state); });
}

QtCheckBox::~QtCheckBox() = default;

QCheckBox* QtCheckBox::checkBox() const {
    return static_cast<QCheckBox*>(qtWidget());
}

std::u16string QtCheckBox::caption() const {
    return checkBox() ? fromQString(checkBox()->text()) : std::u16string();
}

void QtCheckBox::setCaption(const std::u16string& c) {
    if (checkBox()) checkBox()->setText(toQString(c));
}

std::int16_t QtCheckBox::value() const {
    return value_;
}

void QtCheckBox::show(std::int16_t v) {
    QCheckBox* box = checkBox();
    if (!box) return;
    updating_ = true;
    if (v == 2) {
        box->setCheckState(Qt::PartiallyChecked);
    } else {
        // Only 1 shows a tick; any other value the box was given shows empty.
        box->setCheckState(v == 1 ? Qt::Checked : Qt::Unchecked);
        box->setTristate(false);
    }
    updating_ = false;
}

void QtCheckBox::setValue(std::int16_t v) {
    if (v == value_) return;
    value_ = v;
    show(v);
    // Set by code, the change raises Click as a user's click does.
    WidgetEvent e;
    e.type = WidgetEventType::Click;
    notify(e);
}

void QtCheckBox::stateChangedByQt(int state) {
    if (updating_) return;
    value_ = state == Qt::Checked ? 1 : state == Qt::PartiallyChecked ? 2 : 0;
    if (value_ != 2) checkBox()->setTristate(false);
    WidgetEvent e;
    e.type = WidgetEventType::Click;
    notifyFromQt(e);
}

}  // namespace corvex::qt
