// The option and decoration widgets of the Qt host.
#include "corvex/qt/option_widgets.h"

#include <QGroupBox>
#include <QMouseEvent>
#include <QPainter>
#include <QRadioButton>
#include <algorithm>
#include <cmath>

#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"

namespace corvex::qt {

namespace {

// Paints one straight line in the colour of its foreground role.
class LinePainter : public QWidget {
public:
    using QWidget::QWidget;
    QPointF from, to;
    int penWidth = 1;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.setPen(QPen(palette().color(QPalette::WindowText), penWidth));
        p.drawLine(from, to);
    }
};

// A group box that leaves the mouse to the surface below it: the frame fills the
// control, and what is pressed on it, outside a button, is the surface's.
class FrameBox : public QGroupBox {
public:
    using QGroupBox::QGroupBox;

protected:
    void mousePressEvent(QMouseEvent* e) override { e->ignore(); }
    void mouseMoveEvent(QMouseEvent* e) override { e->ignore(); }
    void mouseReleaseEvent(QMouseEvent* e) override { e->ignore(); }
};

// A radio button that keeps its mouse events: what happens on a button is the button's,
// never the surface's below it.
class OptionRadio : public QRadioButton {
public:
    using QRadioButton::QRadioButton;

protected:
    // The whole button takes the click, caption or not, as the host's option button does.
    bool hitButton(const QPoint& pos) const override { return rect().contains(pos); }
    void mousePressEvent(QMouseEvent* e) override {
        QRadioButton::mousePressEvent(e);
        e->accept();
    }
    void mouseMoveEvent(QMouseEvent* e) override {
        QRadioButton::mouseMoveEvent(e);
        e->accept();
    }
    void mouseReleaseEvent(QMouseEvent* e) override {
        QRadioButton::mouseReleaseEvent(e);
        e->accept();
    }
};

QWidget* parentFor(QtControlHost& host, const OptionButtonSpec& design) {
    auto* frame = dynamic_cast<QtFrame*>(design.container);
    return frame ? frame->qtWidget() : static_cast<QWidget*>(&host);
}

WidgetSpec lineDesign(const LineSpec& line) {
    WidgetSpec w;
    w.name = line.name;
    w.left = std::min(line.x1, line.x2);
    w.top = std::min(line.y1, line.y2);
    w.width = std::abs(line.x2 - line.x1);
    w.height = std::abs(line.y2 - line.y1);
    return w;
}

}  // namespace

// --- frame ------------------------------------------------------------------------------

QtFrame::QtFrame(QtControlHost& host, const WidgetSpec& design)
    : QtWidget(host, new FrameBox(&host), design, color::ButtonFace, color::ButtonText) {
    // Moves without a button reach the surface only when it tracks the mouse too.
    host.setMouseTracking(true);
}

QtFrame::~QtFrame() = default;

QGroupBox* QtFrame::groupBox() const {
    return static_cast<QGroupBox*>(qtWidget());
}

std::u16string QtFrame::caption() const {
    return groupBox() ? fromQString(groupBox()->title()) : std::u16string();
}

void QtFrame::setCaption(const std::u16string& c) {
    if (groupBox()) groupBox()->setTitle(toQString(c));
}

void QtFrame::setBorderStyle(std::int16_t s) {
    borderStyle_ = s;
    if (!groupBox()) return;
    groupBox()->setFlat(s == 0);
    groupBox()->setStyleSheet(s == 0 ? QStringLiteral("QGroupBox { border: none; }") : QString());
}

// --- option button ----------------------------------------------------------------------

QtOptionButton::QtOptionButton(QtControlHost& host, const OptionButtonSpec& design)
    : QtWidget(host, new OptionRadio(parentFor(host, design)), design, color::ButtonFace,
               color::ButtonText) {
    QObject::connect(radioButton(), &QRadioButton::toggled, radioButton(),
                     [this](bool on) { toggledByQt(on); });
}

QtOptionButton::~QtOptionButton() = default;

QRadioButton* QtOptionButton::radioButton() const {
    return static_cast<QRadioButton*>(qtWidget());
}

std::u16string QtOptionButton::caption() const {
    return radioButton() ? fromQString(radioButton()->text()) : std::u16string();
}

void QtOptionButton::setCaption(const std::u16string& c) {
    if (radioButton()) radioButton()->setText(toQString(c));
}

bool QtOptionButton::value() const {
    return radioButton() && radioButton()->isChecked();
}

void QtOptionButton::setValue(bool v) {
    QRadioButton* r = radioButton();
    if (!r || v == r->isChecked()) return;
    updating_ = true;
    if (v) {
        r->setChecked(true);
    } else {
        // The checked button of an exclusive group cannot be cleared while it is one.
        r->setAutoExclusive(false);
        r->setChecked(false);
        r->setAutoExclusive(true);
    }
    updating_ = false;
    if (!v) return;
    WidgetEvent e;
    e.type = WidgetEventType::Click;
    notify(e);
}

void QtOptionButton::toggledByQt(bool on) {
    if (updating_ || !on) return;
    WidgetEvent e;
    e.type = WidgetEventType::Click;
    notifyFromQt(e);
}

// --- line ---------------------------------------------------------------------------------

QtLine::QtLine(QtControlHost& host, const LineSpec& design)
    : QtWidget(host, new LinePainter(&host), lineDesign(design), color::ButtonFace, design.color),
      borderWidth_(design.width) {
    setForeColor(design.color);
    setEnds(design.x1, design.y1, design.x2, design.y2);
}

QtLine::~QtLine() = default;

void QtLine::move(float left, float top, float width, float height) {
    setEnds(left, top, left + width, top + height);
}

void QtLine::setEnds(float x1, float y1, float x2, float y2) {
    x1_ = x1;
    y1_ = y1;
    x2_ = x2;
    y2_ = y2;
    auto* w = static_cast<LinePainter*>(qtWidget());
    if (!w) return;
    // A line covers whole pixels: a point is on the pixel it falls in or after, so that
    // a shadow a few twips beside its line lands on the next pixel, not on the line.
    const double tx = surfaceHost().twipsPerPixelX();
    const double ty = surfaceHost().twipsPerPixelY();
    const auto px = [](float v, double t) { return static_cast<int>(std::ceil(v / t - 1e-6)); };
    const int ax = px(x1, tx), ay = px(y1, ty), bx = px(x2, tx), by = px(y2, ty);
    const int left = std::min(ax, bx), top = std::min(ay, by);
    w->setGeometry(left, top, std::abs(bx - ax) + borderWidth_, std::abs(by - ay) + borderWidth_);
    w->from = QPointF(ax - left + 0.5, ay - top + 0.5);
    w->to = QPointF(bx - left + 0.5, by - top + 0.5);
    w->penWidth = borderWidth_;
    w->update();
}

}  // namespace corvex::qt
