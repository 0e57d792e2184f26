// The headless host: controls on in-memory widgets, with no window at all. Used by the
// tests and by the script host; it behaves like real widgets where controls depend on it.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "corvex/common/control.h"
#include "corvex/common/form_model.h"
#include "corvex/headless/file_dialogs.h"
#include "corvex/headless/widgets.h"
#include "corvex/platform/form.h"
#include "corvex/platform/site.h"
#include "corvex/posix/profile_files.h"

namespace corvex::headless {

class Site;
class HeadlessForm;
class HeadlessFormWindows;

/// Hears what happens in a headless host, in the order it happens.
class HostObserver {
public:
    virtual ~HostObserver() = default;
    /// A message box was shown (before its answer is returned).
    virtual void messageBoxShown(const MessageBoxRequest&) {}
    /// A control raised an event; args are as the handlers left them.
    virtual void eventRaised(Site&, const EventInfo&, std::span<const Variant>) {}
    /// A control signalled property-changed.
    virtual void propertyChanged(Site&, std::u16string_view) {}
    /// A control's code gave one of its widgets the focus.
    virtual void focusTaken(Site&) {}
};

/// The application-wide part of the headless host: ambient properties, message boxes
/// with scripted answers, the clipboard and the application's title.
class Host : public Ambient,
             public Application,
             public MessageBoxService,
             public Clipboard,
             public Screen {
public:
    /// A host in run mode, locale 1033, with the default font.
    Host();
    /// Closes the host's windows first, so that their owners let go of them.
    ~Host() override;

    std::int32_t localeId() const override { return localeId_; }
    /// Sets the ambient LocaleID (1041 Japanese).
    void setLocaleId(std::int32_t id) { localeId_ = id; }
    bool userMode() const override { return userMode_; }
    /// Sets the ambient UserMode (False: design time).
    void setUserMode(bool v) { userMode_ = v; }
    FontDesc font() const override { return font_; }
    /// Sets the ambient font.
    void setFont(FontDesc f) { font_ = std::move(f); }

    std::u16string title() const override { return title_; }
    /// Sets the application's title (the source of raised errors).
    void setTitle(std::u16string t) { title_ = std::move(t); }

    std::int32_t messageBox(const MessageBoxRequest& request) override;
    /// The answer of the next message box (1 OK when none is queued).
    void queueAnswer(std::int32_t answer) { answers_.push_back(answer); }
    /// Every message box shown so far.
    const std::vector<MessageBoxRequest>& messageBoxes() const { return shown_; }
    /// Forgets the message boxes shown so far.
    void clearMessageBoxes() { shown_.clear(); }

    std::u16string text() const override { return clipboard_; }
    void setText(const std::u16string& t) override { clipboard_ = t; }

    /// The INI files and settings store of the controls (folders from the environment).
    posix::ProfileFiles& profiles() { return profiles_; }

    /// Twips per screen pixel horizontally (15 at first, a 96 dpi screen).
    double twipsPerPixel() const { return twipsPerPixelX_; }
    /// Sets the screen's twips per pixel in each direction (a screen whose pixels are not
    /// square); both must be above 0.
    void setTwipsPerPixel(double x, double y) {
        if (x > 0 && y > 0) {
            twipsPerPixelX_ = x;
            twipsPerPixelY_ = y;
        }
    }

    float width() const override { return screenWidth_; }
    float height() const override { return screenHeight_; }
    double twipsPerPixelX() const override { return twipsPerPixel(); }
    double twipsPerPixelY() const override { return twipsPerPixelY_; }
    /// Sets the screen's size in twips (1920 x 1080 pixels at first).
    void setScreenSize(float width, float height) {
        screenWidth_ = width;
        screenHeight_ = height;
    }
    /// The file system names are looked up in; nothing exists in it until one is set.
    FileSystem& fileSystem() const { return fileSystem_ ? *fileSystem_ : emptyFileSystem(); }
    /// Sets the file system (not owned; null for none).
    void setFileSystem(FileSystem* fs) { fileSystem_ = fs; }

    /// The open and save dialogs, answered from a queue.
    ScriptedFileDialogs& fileDialogs() { return fileDialogs_; }
    /// The library's own windows (the notes form).
    HeadlessFormWindows& formWindows() { return *formWindows_; }

    /// Who hears what happens; null for nobody.
    void setObserver(HostObserver* o) { observer_ = o; }
    /// The observer, or null.
    HostObserver* observer() const { return observer_; }

private:
    std::int32_t localeId_ = LocaleEnglishUS;
    bool userMode_ = true;
    FontDesc font_;
    std::u16string title_ = u"Corvex";
    std::deque<std::int32_t> answers_;
    std::vector<MessageBoxRequest> shown_;
    std::u16string clipboard_;
    HostObserver* observer_ = nullptr;
    posix::ProfileFiles profiles_;
    float screenWidth_ = 28800;
    float screenHeight_ = 16200;
    double twipsPerPixelX_ = 15;
    double twipsPerPixelY_ = 15;
    FileSystem* fileSystem_ = nullptr;
    ScriptedFileDialogs fileDialogs_;
    std::unique_ptr<HeadlessFormWindows> formWindows_;
};

/// An event as the host received it, with its arguments after the handler ran.
struct RaisedEvent {
    std::u16string name;        ///< the event's name
    int dispId = 0;             ///< its number in the class's event interface
    std::vector<Variant> args;  ///< its arguments
};

/// The host side of one control on a headless form: its surface, widgets and sinks.
class Site : public ControlSite,
             public Surface,
             public WidgetFactory,
             public PropertyChangedSink,
             public EventSink {
public:
    /// A site named name on a form of a host.
    Site(Host& host, HeadlessForm& form, ControlName name, float width, float height);
    /// Takes the control off its form (detached) before the site goes.
    ~Site() override;

    /// The control's name on the form (without its array index).
    const std::u16string& name() const { return name_.name; }
    /// The control's index in its control array, or NoIndex.
    std::int16_t index() const { return name_.index; }
    /// The control's name as the form shows it: "opt(2)" for an array element.
    std::u16string displayName() const { return name_.text(); }
    /// The control on this site.
    Control& control() const { return *control_; }
    /// The control as a shared object reference.
    std::shared_ptr<Control> controlRef() const { return control_; }
    /// The host.
    Host& host() const { return host_; }
    /// The form.
    HeadlessForm& form() const { return form_; }

    /// The widgets the control created, in creation order.
    const std::vector<HeadlessWidget*>& widgetList() const { return widgets_; }
    /// A widget by design name (and array index); null when there is none.
    HeadlessWidget* widget(std::u16string_view name, std::int16_t index = -1) const;
    /// The first widget that can take keys: the focused one, else the first text box,
    /// else the first widget; null when the control has none.
    HeadlessWidget* keyTarget() const;

    /// Handlers the test or script installs; they may change by-reference arguments.
    std::function<void(const EventInfo&, std::span<Variant>)> eventHandler;
    /// Every event raised so far.
    std::vector<RaisedEvent> events;
    /// Every property-changed name signalled so far.
    std::vector<std::u16string> changes;
    /// How often the surface was asked to repaint.
    int refreshCount = 0;
    /// Forgets the recorded events and changes.
    void clearRecords();
    /// The names of the recorded events, in order.
    std::vector<std::u16string> eventNames() const;

    /// Resizes the control as the user or the form does (twips); the control lays out.
    void resizeTo(float width, float height);
    /// Sets the surface's scale mode.
    void setScaleMode(ScaleMode mode) { scaleMode_ = mode; }
    /// A mouse event on the surface itself, outside every inner widget, at (x, y) in the
    /// surface's scale units.
    void mouseOnSurface(WidgetEventType type, std::int16_t button, std::int16_t shift, float x,
                        float y);
    /// Lists a widget made outside the factory methods (an element of a control array).
    void adopt(HeadlessWidget* w) { widgets_.push_back(w); }

    // ControlSite
    Ambient& ambient() override { return host_; }
    Surface& surface() override { return *this; }
    WidgetFactory& widgets() override { return *this; }
    PropertyChangedSink& propertyChangedSink() override { return *this; }
    EventSink& eventSink() override { return *this; }
    MessageBoxService& messageBoxes() override { return host_; }
    Clipboard& clipboard() override { return host_; }
    Application& application() override { return host_; }
    Form* parentForm() override;
    ProfileService& profiles() override { return host_.profiles(); }
    Screen& screen() override { return host_; }
    FileSystem& fileSystem() override { return host_.fileSystem(); }
    FileDialogService& fileDialogs() override { return host_.fileDialogs(); }
    FormWindowService& formWindows() override;

    // Surface
    float scaleWidth() const override;
    float scaleHeight() const override;
    ScaleMode scaleMode() const override { return scaleMode_; }
    float scaleX(float value, ScaleMode from, ScaleMode to) const override;
    float scaleY(float value, ScaleMode from, ScaleMode to) const override;
    float width() const override { return width_; }
    float height() const override { return height_; }
    void setSize(float width, float height) override { resizeTo(width, height); }
    /// The control's left edge on the form (twips); a headless form places every control
    /// at its top-left corner.
    float left() const { return 0; }
    /// The control's top edge on the form (twips).
    float top() const { return 0; }
    /// Whether the control is shown; a headless form shows every control it holds.
    bool visible() const { return true; }
    void refresh() override { ++refreshCount; }

    // WidgetFactory
    std::unique_ptr<CheckBox> createCheckBox(const WidgetSpec& spec) override;
    std::unique_ptr<TextBox> createTextBox(const TextBoxSpec& spec) override;
    std::unique_ptr<TextLabel> createTextLabel(const WidgetSpec& spec) override;
    std::unique_ptr<ItemList> createItemList(const WidgetSpec& spec) override;
    std::unique_ptr<Frame> createFrame(const WidgetSpec& spec) override;
    std::unique_ptr<OptionButton> createOptionButton(const OptionButtonSpec& spec) override;
    std::unique_ptr<ControlArray<OptionButton>> createOptionButtonArray(
        const OptionButtonSpec& spec) override;
    std::unique_ptr<LineShape> createLine(const LineSpec& spec) override;
    std::unique_ptr<ListBox> createListBox(const ListBoxSpec& spec) override;
    std::unique_ptr<CommandButton> createCommandButton(const WidgetSpec& spec) override;
    std::unique_ptr<ControlArray<CommandButton>> createCommandButtonArray(
        const WidgetSpec& spec) override;
    std::unique_ptr<ComboBox> createComboBox(const ComboBoxSpec& spec) override;

    // Sinks
    void propertyChanged(std::u16string_view name) override;
    void raiseEvent(const EventInfo& event, std::span<Variant> args) override;

private:
    friend class HeadlessForm;
    friend class HeadlessWidget;
    void attach(std::shared_ptr<Control> control) { control_ = std::move(control); }
    void forget(HeadlessWidget* w);
    float convert(float value, ScaleMode from, ScaleMode to, bool horizontal) const;

    Host& host_;
    HeadlessForm& form_;
    ControlName name_;
    float width_;
    float height_;
    ScaleMode scaleMode_ = ScaleMode::Twips;
    std::vector<HeadlessWidget*> widgets_;
    std::shared_ptr<Control> control_;
};

/// A form holding controls in creation order, with one keyboard focus among their widgets.
class HeadlessForm : public Form {
public:
    /// An empty form of a host.
    explicit HeadlessForm(Host& host);
    ~HeadlessForm() override;

    /// Places a new control: created, initialised as new, given its default size, shown.
    /// index makes it an element of the control array name.
    Site& add(const ClassInfo& cls, std::u16string name, std::int16_t index = NoIndex);
    /// Places a control loaded from a bag: created, read from the bag, sized, shown.
    Site& load(const ClassInfo& cls, std::u16string name, PropertyBag& bag,
               std::int16_t index = NoIndex);
    /// Unloads a control: it is detached and its site goes. Raises 340 for a missing
    /// element of an array, 424 for a name not on the form.
    void remove(std::u16string_view name, std::int16_t index = NoIndex);
    /// A control's site by name (ASCII case ignored) and array index; null when there is none.
    Site* find(std::u16string_view name, std::int16_t index = NoIndex) const;
    /// The sites in creation order.
    std::vector<Site*> sites() const;
    /// The form's controls, their names and their lifecycle.
    const FormModel& model() const { return model_; }

    /// Moves the keyboard focus as the user does (null: away from every widget).
    void focus(HeadlessWidget* widget);
    /// The widget that has the focus, or null.
    HeadlessWidget* focused() const { return focused_; }

    std::vector<ObjectRef> controls() const override;
    float left() const override { return left_; }
    float top() const override { return top_; }
    float width() const override { return width_; }
    float height() const override { return height_; }
    void move(float left, float top, float width, float height) override;
    bool topMost() const override { return topMost_; }
    bool setTopMost(bool on) override;
    std::int32_t hWnd() const override { return hwnd_; }

private:
    friend class HeadlessWidget;
    friend class Site;
    Site& place(const ClassInfo& cls, ControlName name, PropertyBag* bag);
    void widgetGone(HeadlessWidget* w);

    Host& host_;
    FormModel model_;  // declared before the sites: they leave it as they go
    std::vector<std::unique_ptr<Site>> sites_;
    HeadlessWidget* focused_ = nullptr;
    HeadlessWidget* told_ = nullptr;  // the widget that last heard GotFocus
    float left_ = 0;
    float top_ = 0;
    float width_ = 9600;
    float height_ = 7200;
    bool topMost_ = false;
    std::int32_t hwnd_;  // a number of its own for every form
};

}  // namespace corvex::headless
