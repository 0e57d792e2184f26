// One control in a Qt window: the QWidget that is the control's surface and its site.
#pragma once

#include <QString>
#include <QVariant>
#include <QWidget>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "corvex/common/control.h"
#include "corvex/platform/site.h"

namespace corvex {
class FormModel;
}

namespace corvex::qt {

class QtHost;
class QtWidget;

/// The arguments of one raised event, as a Qt handler sees them. It refers to the
/// control's own argument values: a by-reference argument changed here (KeyAscii set to
/// 0, say) goes back to the control when the handler returns. Valid only during the
/// signal's emission.
class EventArgs {
public:
    /// Arguments of event, viewing values in place.
    EventArgs(const EventInfo& event, std::span<Variant> values);

    /// The event as its class declares it.
    const EventInfo& event() const { return event_; }
    /// The event's name.
    QString eventName() const;
    /// The number of arguments.
    int count() const { return static_cast<int>(values_.size()); }
    /// The name of argument i ("KeyAscii").
    QString name(int i) const;
    /// The position of the argument called name (ASCII case ignored), or -1.
    int indexOf(const QString& name) const;
    /// Whether argument i is by reference (its changes reach the control).
    bool isByRef(int i) const;
    /// Argument i as a QVariant (invalid when out of range).
    QVariant value(int i) const;
    /// The argument called name as a QVariant (invalid when there is none).
    QVariant value(const QString& name) const;
    /// Changes by-reference argument i, converted to its declared kind; false when it is
    /// out of range, not by reference, or the value does not convert.
    bool setValue(int i, const QVariant& value);
    /// Changes the by-reference argument called name; as setValue(int, ...).
    bool setValue(const QString& name, const QVariant& value);
    /// Argument i as the core value itself (unchecked index).
    Variant& variant(int i) { return values_[static_cast<std::size_t>(i)]; }
    /// All the arguments as the core values themselves.
    std::span<Variant> variants() const { return values_; }
    /// The event as text for logs: "KeyPress(KeyAscii=97)".
    QString toString() const;

private:
    const EventInfo& event_;
    std::span<Variant> values_;
};

/// The surface and site of one control. It creates the control from its class table,
/// owns it, and tells the application what the control does through Qt signals.
///
/// The control's Surface (twips-based, the host's scale modes) and its property-changed
/// sink are reached through surface() and propertyChangedSink(): QWidget already has
/// width() and height() in pixels, and propertyChanged is this widget's signal.
class QtControlHost : public QWidget, public ControlSite, public WidgetFactory, public EventSink {
    Q_OBJECT

public:
    /// A surface for a new control of class cls, on parent, sitting on form (may be null).
    /// Raises Error 13 when cls does not make a control.
    QtControlHost(const ClassInfo& cls, QtHost& host, QWidget* parent = nullptr,
                  Form* form = nullptr);
    /// Detaches the control first (taking it off its form), then destroys the surface.
    ~QtControlHost() override;

    /// Sets the control's properties to their defaults (a newly placed control), then
    /// lays it out. On a form, a control that fails leaves the form, detached.
    void initNew();
    /// Reads the control's saved properties from bag, then lays it out. On a form, a
    /// control that fails leaves the form, detached.
    void load(PropertyBag& bag);
    /// Writes the control's saved properties into bag.
    void save(PropertyBag& bag);

    /// The control.
    Control& control() const;
    /// The control as an object reference (for the member table and Form::controls).
    ObjectRef object() const;
    /// The control's class table.
    const ClassInfo& classInfo() const;
    /// The host services.
    QtHost& host() const;
    /// The inner Qt widget whose object name is name (the widget's design name), or null.
    QWidget* innerWidget(const QString& name) const;
    /// The inner widgets the control made and still has, as it sees them, in creation order.
    std::vector<QtWidget*> innerWidgets() const;
    /// The inner widget with design name name and array index index (-1: none), or null.
    QtWidget* findInnerWidget(std::u16string_view name, std::int16_t index = -1) const;

    /// Sets the surface's scale mode (Twips by default).
    void setScaleMode(ScaleMode mode);
    /// Twips in one pixel horizontally (1440 / logical dpi).
    double twipsPerPixelX() const;
    /// Twips in one pixel vertically.
    double twipsPerPixelY() const;

    /// The class's default size, in pixels.
    QSize sizeHint() const override;

    /// The host's ambient properties.
    Ambient& ambient() override;
    /// The control's surface: twips outside, the scale mode inside.
    Surface& surface() override;
    /// This host, which makes Qt inner widgets.
    WidgetFactory& widgets() override;
    /// The sink that emits propertyChanged.
    PropertyChangedSink& propertyChangedSink() override;
    /// This host, which emits eventRaised.
    EventSink& eventSink() override;
    /// The host's message boxes.
    MessageBoxService& messageBoxes() override;
    /// The system clipboard.
    Clipboard& clipboard() override;
    /// The running application.
    Application& application() override;
    /// The form the control sits on, or null.
    Form* parentForm() override;
    /// The host's INI files and settings store.
    ProfileService& profiles() override;
    /// The application's primary screen.
    Screen& screen() override;
    /// The host's file system (Windows names through the drive map).
    FileSystem& fileSystem() override;
    /// The host's QFileDialog-based open and save dialogs.
    FileDialogService& fileDialogs() override;
    /// Text widths from the font metrics of the font a widget draws with.
    TextMeasurer& textMeasurer() override;
    /// The host's top-level windows of the library's own.
    FormWindowService& formWindows() override;

    /// A QtCheckBox on this surface.
    std::unique_ptr<CheckBox> createCheckBox(const WidgetSpec& design) override;
    /// A QtTextBox on this surface.
    std::unique_ptr<TextBox> createTextBox(const TextBoxSpec& design) override;
    /// A QtTextLabel on this surface.
    std::unique_ptr<TextLabel> createTextLabel(const WidgetSpec& design) override;
    /// A QtItemList on this surface.
    std::unique_ptr<ItemList> createItemList(const WidgetSpec& design) override;
    /// A QtFrame (a QGroupBox) on this surface.
    std::unique_ptr<Frame> createFrame(const WidgetSpec& design) override;
    /// A QtOptionButton (a QRadioButton) on this surface or in its container.
    std::unique_ptr<OptionButton> createOptionButton(const OptionButtonSpec& design) override;
    /// An array of QtOptionButtons.
    std::unique_ptr<ControlArray<OptionButton>> createOptionButtonArray(
        const OptionButtonSpec& design) override;
    /// A QtLine on this surface.
    std::unique_ptr<LineShape> createLine(const LineSpec& design) override;
    /// A QtListBox (a QListWidget) on this surface.
    std::unique_ptr<ListBox> createListBox(const ListBoxSpec& design) override;
    /// A QtCommandButton (a QPushButton) on this surface.
    std::unique_ptr<CommandButton> createCommandButton(const WidgetSpec& design) override;
    /// An array of QtCommandButtons.
    std::unique_ptr<ControlArray<CommandButton>> createCommandButtonArray(
        const WidgetSpec& design) override;
    /// A QtComboBox on this surface.
    std::unique_ptr<ComboBox> createComboBox(const ComboBoxSpec& design) override;

    /// Emits eventRaised; the handlers' changes to by-reference arguments stay in args.
    void raiseEvent(const EventInfo& event, std::span<Variant> args) override;

signals:
    /// The control changed the saved property name (a designer marks the form dirty).
    void propertyChanged(const QString& name);
    /// The control raised event name; connect directly (the default for one thread) to
    /// change by-reference arguments through args.
    void eventRaised(const QString& name, corvex::qt::EventArgs& args);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    /// A service control shows its icon; other surfaces paint nothing of their own.
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    friend class QtWidget;
    friend class QtForm;
    void runLifecycle(PropertyBag* bag);
    void joinModel(FormModel& model);
    void widgetMade(QtWidget* widget);
    void widgetGone(QtWidget* widget);
    void surfaceMouse(WidgetEventType type, QMouseEvent* event);
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex::qt
