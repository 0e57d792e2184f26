#include "corvex/qt/control_host.h"

#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QShowEvent>
#include <QStringList>
#include <cmath>
#include <exception>

#include "corvex/common/form_model.h"
#include "corvex/common/text.h"
#include "corvex/library/literals.h"
#include "corvex/library/server.h"
#include "corvex/platform/widget_array.h"
#include "corvex/qt/combo_box.h"
#include "corvex/qt/convert.h"
#include "corvex/qt/host.h"
#include "corvex/qt/option_widgets.h"
#include "corvex/qt/text_measure.h"
#include "corvex/qt/widgets.h"
#include "service_icon.h"

namespace corvex::qt {

// --- event arguments ------------------------------------------------------------------

EventArgs::EventArgs(const EventInfo& event, std::span<Variant> values)
    : event_(event), values_(values) {}

QString EventArgs::eventName() const {
    return toQString(event_.name);
}

QString EventArgs::name(int i) const {
    if (i < 0 || static_cast<std::size_t>(i) >= event_.params.size()) return QString();
    return toQString(event_.params[static_cast<std::size_t>(i)].name);
}

int EventArgs::indexOf(const QString& name) const {
    const std::u16string wanted = fromQString(name);
    for (std::size_t i = 0; i < event_.params.size() && i < values_.size(); ++i) {
        if (equalsIgnoringCase(event_.params[i].name, wanted)) return static_cast<int>(i);
    }
    return -1;
}

bool EventArgs::isByRef(int i) const {
    return i >= 0 && static_cast<std::size_t>(i) < event_.params.size() &&
           static_cast<std::size_t>(i) < values_.size() &&
           event_.params[static_cast<std::size_t>(i)].byRef;
}

QVariant EventArgs::value(int i) const {
    if (i < 0 || i >= count()) return QVariant();
    return toQVariant(values_[static_cast<std::size_t>(i)]);
}

QVariant EventArgs::value(const QString& name) const {
    return value(indexOf(name));
}

bool EventArgs::setValue(int i, const QVariant& value) {
    if (!isByRef(i)) return false;
    try {
        const Variant v = fromQVariant(value);
        Variant converted;
        // The argument keeps the kind its event declares, as an assignment to a typed
        // by-reference parameter does.
        switch (event_.params[static_cast<std::size_t>(i)].type) {
            case VarType::Boolean:
                converted = Variant(v.toBoolean());
                break;
            case VarType::Integer:
                converted = Variant(v.toInteger());
                break;
            case VarType::Long:
                converted = Variant(v.toLong());
                break;
            case VarType::Single:
                converted = Variant(v.toSingle());
                break;
            case VarType::Double:
                converted = Variant(v.toDouble());
                break;
            case VarType::String:
                converted = Variant(v.toString());
                break;
            case VarType::Object:
                converted = Variant(v.toObject());
                break;
            case VarType::Empty:
                converted = v;
                break;
        }
        values_[static_cast<std::size_t>(i)] = converted;
        return true;
    } catch (const Error&) {
        return false;
    }
}

bool EventArgs::setValue(const QString& name, const QVariant& value) {
    return setValue(indexOf(name), value);
}

QString EventArgs::toString() const {
    QStringList parts;
    for (int i = 0; i < count(); ++i) {
        const Variant& v = values_[static_cast<std::size_t>(i)];
        QString text;
        if (v.type() == VarType::String) {
            text = QLatin1Char('"') + toQString(v.asString()) + QLatin1Char('"');
        } else if (v.type() == VarType::Object) {
            // A value object (a Font) reads as its fields, through the one hook every
            // writer of values uses; other objects have no text.
            const ObjectRef& o = v.asObject();
            text = o && isValueObject(*o) ? QString::fromStdString(formatValue(v))
                                          : QStringLiteral("<object>");
        } else {
            text = toQString(v.toString());
        }
        const QString n = name(i);
        parts << (n.isEmpty() ? text : n + QLatin1Char('=') + text);
    }
    return eventName() + QLatin1Char('(') + parts.join(QStringLiteral(", ")) + QLatin1Char(')');
}

// --- control host ---------------------------------------------------------------------

struct QtControlHost::Private {
    // The control's Surface: sizes in twips for the container, scale units inside.
    struct SurfaceImpl : Surface {
        QtControlHost& q;
        explicit SurfaceImpl(QtControlHost& host) : q(host) {}

        float convert(float value, ScaleMode from, ScaleMode to, bool horizontal) const {
            const double tpp = horizontal ? q.twipsPerPixelX() : q.twipsPerPixelY();
            // The container measures in twips; this surface has no user-defined scale,
            // so its User units are twips as well.
            const auto unit = [&](ScaleMode m) {
                const double t = twipsPerUnit(m, tpp, horizontal);
                return t == 0 ? 1.0 : t;
            };
            return static_cast<float>(value * unit(from) / unit(to));
        }
        float scaleWidth() const override {
            return convert(width(), ScaleMode::Twips, q.d->scaleMode, true);
        }
        float scaleHeight() const override {
            return convert(height(), ScaleMode::Twips, q.d->scaleMode, false);
        }
        ScaleMode scaleMode() const override { return q.d->scaleMode; }
        float scaleX(float value, ScaleMode from, ScaleMode to) const override {
            return convert(value, from, to, true);
        }
        float scaleY(float value, ScaleMode from, ScaleMode to) const override {
            return convert(value, from, to, false);
        }
        float width() const override {
            return static_cast<float>(q.QWidget::width() * q.twipsPerPixelX());
        }
        float height() const override {
            return static_cast<float>(q.QWidget::height() * q.twipsPerPixelY());
        }
        void setSize(float width, float height) override {
            const int w = std::max(0, static_cast<int>(std::lround(width / q.twipsPerPixelX())));
            const int h = std::max(0, static_cast<int>(std::lround(height / q.twipsPerPixelY())));
            q.resize(w, h);
            // A visible widget heard its resizeEvent already; a hidden one hears it only
            // when shown, but the control lays out now.
            if (!q.isVisible()) q.d->layOut();
        }
        void refresh() override { q.update(); }
    };

    struct SinkImpl : PropertyChangedSink {
        QtControlHost& q;
        explicit SinkImpl(QtControlHost& host) : q(host) {}
        void propertyChanged(std::u16string_view name) override {
            emit q.propertyChanged(toQString(name));
        }
    };

    QtControlHost& q;
    QtHost& host;
    const ClassInfo& cls;
    Form* form;
    FormModel* model = nullptr;  // the model of the form that holds the control, if any
    SurfaceImpl surface;
    SinkImpl sink;
    ScaleMode scaleMode = ScaleMode::Twips;
    ObjectRef object;
    Control* control = nullptr;
    bool shown = false;
    int layoutDepth = 0;
    std::vector<QtWidget*> widgets;

    Private(QtControlHost& owner, QtHost& h, const ClassInfo& c, Form* f)
        : q(owner), host(h), cls(c), form(f), surface(owner), sink(owner) {}

    void layOut() {
        // A Resize handler may resize the control again; a few rounds settle any layout,
        // and more would be a loop.
        if (!control || layoutDepth >= 4) return;
        ++layoutDepth;
        try {
            control->resize();
        } catch (...) {
            --layoutDepth;
            throw;
        }
        --layoutDepth;
    }
};

QtControlHost::QtControlHost(const ClassInfo& cls, QtHost& host, QWidget* parent, Form* form)
    : QWidget(parent), d(std::make_unique<Private>(*this, host, cls, form)) {
    const auto [w, h] = cls.defaultSize();
    if (w > 0 && h > 0) {
        resize(static_cast<int>(std::lround(w / twipsPerPixelX())),
               static_cast<int>(std::lround(h / twipsPerPixelY())));
    }
    d->object = createOnSite(cls, *this);
    d->control = dynamic_cast<Control*>(d->object.get());
    if (!d->control) {
        d->object.reset();
        throw Error(err::TypeMismatch, cls.name() + u" is not a control");
    }
    // An icon alone says little: its class name tells what it is.
    if (cls.kind() == ClassKind::ServiceControl) setToolTip(toQString(cls.name()));
}

QtControlHost::~QtControlHost() {
    // The control's widgets go first, while their surface still exists; a reference to
    // the control kept elsewhere then holds a detached control that refuses to work.
    if (d->model) {
        d->model->remove(*this);
    } else if (d->control) {
        d->control->detach();
    }
    d->control = nullptr;
    d->object.reset();
}

void QtControlHost::runLifecycle(PropertyBag* bag) {
    if (!d->model) {
        if (bag) {
            d->control->readProperties(*bag);
        } else {
            d->control->initProperties();
        }
        d->layOut();
        return;
    }
    try {
        d->model->initialise(*this, bag);
    } catch (...) {
        // The model has let the control go; the surface no longer belongs to the form.
        d->model = nullptr;
        throw;
    }
}

void QtControlHost::joinModel(FormModel& model) {
    d->model = &model;
}

void QtControlHost::initNew() {
    runLifecycle(nullptr);
}

void QtControlHost::load(PropertyBag& bag) {
    runLifecycle(&bag);
}

void QtControlHost::save(PropertyBag& bag) {
    d->control->writeProperties(bag);
}

Control& QtControlHost::control() const {
    return *d->control;
}

ObjectRef QtControlHost::object() const {
    return d->object;
}

const ClassInfo& QtControlHost::classInfo() const {
    return d->cls;
}

QtHost& QtControlHost::host() const {
    return d->host;
}

QWidget* QtControlHost::innerWidget(const QString& name) const {
    if (name.isEmpty()) return nullptr;
    return findChild<QWidget*>(name, Qt::FindDirectChildrenOnly);
}

std::vector<QtWidget*> QtControlHost::innerWidgets() const {
    return d->widgets;
}

QtWidget* QtControlHost::findInnerWidget(std::u16string_view name, std::int16_t index) const {
    for (QtWidget* w : d->widgets) {
        if (w->index() == index && w->name() == name) return w;
    }
    return nullptr;
}

void QtControlHost::widgetMade(QtWidget* widget) {
    d->widgets.push_back(widget);
}

void QtControlHost::widgetGone(QtWidget* widget) {
    std::erase(d->widgets, widget);
}

void QtControlHost::setScaleMode(ScaleMode mode) {
    d->scaleMode = mode;
}

double QtControlHost::twipsPerPixelX() const {
    return 1440.0 / logicalDpiX();
}

double QtControlHost::twipsPerPixelY() const {
    return 1440.0 / logicalDpiY();
}

QSize QtControlHost::sizeHint() const {
    const auto [w, h] = d->cls.defaultSize();
    if (w <= 0 || h <= 0) return QWidget::sizeHint();
    return QSize(static_cast<int>(std::lround(w / twipsPerPixelX())),
                 static_cast<int>(std::lround(h / twipsPerPixelY())));
}

Ambient& QtControlHost::ambient() {
    return d->host;
}

Surface& QtControlHost::surface() {
    return d->surface;
}

WidgetFactory& QtControlHost::widgets() {
    return *this;
}

PropertyChangedSink& QtControlHost::propertyChangedSink() {
    return d->sink;
}

EventSink& QtControlHost::eventSink() {
    return *this;
}

MessageBoxService& QtControlHost::messageBoxes() {
    return d->host;
}

Clipboard& QtControlHost::clipboard() {
    return d->host;
}

FileSystem& QtControlHost::fileSystem() {
    return d->host.fileSystem();
}

FileDialogService& QtControlHost::fileDialogs() {
    return d->host.fileDialogs();
}

TextMeasurer& QtControlHost::textMeasurer() {
    return fontMetricsMeasurer();
}

FormWindowService& QtControlHost::formWindows() {
    return d->host.formWindows();
}

Application& QtControlHost::application() {
    return d->host;
}

ProfileService& QtControlHost::profiles() {
    return d->host.profiles();
}

Form* QtControlHost::parentForm() {
    return d->form;
}

std::unique_ptr<CheckBox> QtControlHost::createCheckBox(const WidgetSpec& design) {
    return std::make_unique<QtCheckBox>(*this, design);
}

std::unique_ptr<TextBox> QtControlHost::createTextBox(const TextBoxSpec& design) {
    return std::make_unique<QtTextBox>(*this, design);
}

std::unique_ptr<Frame> QtControlHost::createFrame(const WidgetSpec& design) {
    return std::make_unique<QtFrame>(*this, design);
}

std::unique_ptr<OptionButton> QtControlHost::createOptionButton(const OptionButtonSpec& design) {
    return std::make_unique<QtOptionButton>(*this, design);
}

std::unique_ptr<ControlArray<OptionButton>> QtControlHost::createOptionButtonArray(
    const OptionButtonSpec& design) {
    return std::make_unique<WidgetArray<OptionButton, OptionButtonSpec>>(
        design, [this](const OptionButtonSpec& s) { return createOptionButton(s); });
}

std::unique_ptr<LineShape> QtControlHost::createLine(const LineSpec& design) {
    return std::make_unique<QtLine>(*this, design);
}

std::unique_ptr<ComboBox> QtControlHost::createComboBox(const ComboBoxSpec& design) {
    return std::make_unique<QtComboBox>(*this, design);
}

void QtControlHost::raiseEvent(const EventInfo& event, std::span<Variant> args) {
    EventArgs a(event, args);
    emit eventRaised(toQString(event.name), a);
}

void QtControlHost::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    try {
        d->layOut();
    } catch (const std::exception& e) {
        d->host.reportError(e);
    }
}

void QtControlHost::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    if (d->cls.kind() != ClassKind::ServiceControl) return;
    QPainter painter(this);
    paintServiceIcon(painter, QRect(0, 0, QWidget::width(), QWidget::height()),
                     toQString(d->cls.name()));
}

void QtControlHost::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (d->shown || !d->control) return;
    d->shown = true;
    try {
        d->control->show();
    } catch (const std::exception& e) {
        d->host.reportError(e);
    }
}

// The mouse on the surface itself (or on an inner widget that leaves it to the surface,
// as a frame does) goes to the control in the surface's scale units.
void QtControlHost::surfaceMouse(WidgetEventType type, QMouseEvent* event) {
    if (!d->control || d->control->detached()) return;
    event->accept();
    const QPointF at = event->position();
    const ScaleMode mode = d->surface.scaleMode();
    WidgetEvent e;
    e.type = type;
    // A move reports the buttons held; a press or release the button that acted.
    e.button = type == WidgetEventType::MouseMove ? mouseButtons(event->buttons())
                                                  : mouseButtons(event->button());
    e.shift = shiftBits(event->modifiers());
    e.x = d->surface.scaleX(static_cast<float>(at.x() * twipsPerPixelX()), ScaleMode::Twips, mode);
    e.y = d->surface.scaleY(static_cast<float>(at.y() * twipsPerPixelY()), ScaleMode::Twips, mode);
    try {
        d->control->surfaceMouse(e);
    } catch (const std::exception& ex) {
        d->host.reportError(ex);
    }
}

void QtControlHost::mousePressEvent(QMouseEvent* event) {
    surfaceMouse(WidgetEventType::MouseDown, event);
}

void QtControlHost::mouseMoveEvent(QMouseEvent* event) {
    surfaceMouse(WidgetEventType::MouseMove, event);
}

void QtControlHost::mouseReleaseEvent(QMouseEvent* event) {
    surfaceMouse(WidgetEventType::MouseUp, event);
}

}  // namespace corvex::qt
