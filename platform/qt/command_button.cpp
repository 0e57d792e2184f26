// Command buttons of the Qt host on QPushButton.
#include "corvex/qt/command_button.h"

#include <QPushButton>

#include "corvex/common/error.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"

namespace corvex::qt {

QtCommandButton::QtCommandButton(QtControlHost& host, const WidgetSpec& design)
    : QtWidget(host, new QPushButton(&host), design, color::ButtonFace, color::ButtonText) {
    pushButton()->setAutoDefault(false);
    QObject::connect(pushButton(), &QPushButton::clicked, pushButton(), [this] {
        WidgetEvent e;
        e.type = WidgetEventType::Click;
        notifyFromQt(e);
    });
}

QtCommandButton::~QtCommandButton() = default;

QPushButton* QtCommandButton::pushButton() const {
    return static_cast<QPushButton*>(qtWidget());
}

std::u16string QtCommandButton::caption() const {
    return pushButton() ? fromQString(pushButton()->text()) : std::u16string();
}

void QtCommandButton::setCaption(const std::u16string& c) {
    if (pushButton()) pushButton()->setText(toQString(c));
}

// --- array ---------------------------------------------------------------------------

QtCommandButtonArray::QtCommandButtonArray(QtControlHost& host, const WidgetSpec& design)
    : host_(host), design_(design) {
    design_.index = 0;
    elements_[0] = std::make_unique<QtCommandButton>(host_, design_);
}

QtCommandButtonArray::~QtCommandButtonArray() {
    while (!elements_.empty()) elements_.erase(std::prev(elements_.end()));
}

CommandButton& QtCommandButtonArray::element(std::int16_t index) const {
    const auto it = elements_.find(index);
    if (it == elements_.end()) throw Error(err::ControlArrayElementMissing);
    return *it->second;
}

CommandButton& QtCommandButtonArray::create(std::int16_t index) {
    if (index < 0) throw Error(err::ControlArrayElementMissing);
    if (exists(index)) throw Error(err::ElementAlreadyLoaded, u"Object already loaded");
    // A new element is hidden and copies element 0's place, size, look and caption.
    const QtCommandButton& first = *elements_.at(0);
    WidgetSpec design = design_;
    design.index = index;
    design.visible = false;
    design.left = first.left();
    design.top = first.top();
    design.width = first.width();
    design.height = first.height();
    auto b = std::make_unique<QtCommandButton>(host_, design);
    b->setBackColor(first.backColor());
    b->setForeColor(first.foreColor());
    b->setFont(first.font());
    b->setEnabled(first.enabled());
    b->setCaption(first.caption());
    return *(elements_[index] = std::move(b));
}

void QtCommandButtonArray::remove(std::int16_t index) {
    if (index == 0) {
        throw Error(err::CannotUnloadElement, u"Can't unload controls created at design time");
    }
    if (elements_.erase(index) == 0) throw Error(err::ControlArrayElementMissing);
}

// --- factory -------------------------------------------------------------------------

std::unique_ptr<CommandButton> QtControlHost::createCommandButton(const WidgetSpec& design) {
    return std::make_unique<QtCommandButton>(*this, design);
}

std::unique_ptr<ControlArray<CommandButton>> QtControlHost::createCommandButtonArray(
    const WidgetSpec& design) {
    return std::make_unique<QtCommandButtonArray>(*this, design);
}

}  // namespace corvex::qt
