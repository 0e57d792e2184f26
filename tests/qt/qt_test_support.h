// What the Qt host's tests share: a shown window holding one control, the events it
// raised, and a listener for widgets made directly on a surface.
#pragma once

#include <QCheckBox>
#include <QCoreApplication>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "corvex/common/boolean_box.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/host.h"
#include "corvex/qt/widgets.h"

namespace corvex::qt::testing {

/// One event the control raised, with its arguments as the handlers left them.
struct RaisedEvent {
    QString name;
    std::vector<Variant> args;
};

/// A shown top-level window with one control on it, recording the control's events.
class ControlWindow {
public:
    explicit ControlWindow(const ClassInfo& cls, int width = 240, int height = 24) {
        window = std::make_unique<QWidget>();
        window->resize(width + 40, height + 40);
        control = new QtControlHost(cls, host, window.get());
        control->setGeometry(20, 20, width, height);
        control->initNew();
        QObject::connect(control, &QtControlHost::eventRaised, control,
                         [this](const QString& name, EventArgs& args) {
                             if (handler) handler(name, args);
                             RaisedEvent e{name, {}};
                             for (int i = 0; i < args.count(); ++i)
                                 e.args.push_back(args.variant(i));
                             events.push_back(std::move(e));
                         });
        QObject::connect(control, &QtControlHost::propertyChanged, control,
                         [this](const QString& name) { changes.push_back(name); });
        window->show();
        [[maybe_unused]] const bool exposed = QTest::qWaitForWindowExposed(window.get());
        events.clear();
        changes.clear();
    }

    /// The names of the events raised so far, in order.
    std::vector<QString> eventNames() const {
        std::vector<QString> names;
        for (const auto& e : events) names.push_back(e.name);
        return names;
    }
    /// The first recorded event called name, or null.
    const RaisedEvent* find(const QString& name) const {
        for (const auto& e : events) {
            if (e.name == name) return &e;
        }
        return nullptr;
    }

    QtHost host;
    std::unique_ptr<QWidget> window;
    QtControlHost* control = nullptr;
    std::vector<RaisedEvent> events;
    std::vector<QString> changes;
    /// Runs inside the eventRaised signal, before the event is recorded.
    std::function<void(const QString&, EventArgs&)> handler;
};

/// The longest a test waits for something that should happen at once: generous, so that
/// a loaded machine never fails a test, and only ever reached when the test fails anyway.
inline constexpr int waitDeadlineMs = 10000;

/// Runs the event loop until condition holds or the deadline passes; returns whether it
/// holds. Tests wait for what they expect this way, never for a fixed time.
template <class Condition>
bool waitUntil(Condition condition, int deadlineMs = waitDeadlineMs) {
    return QTest::qWaitFor(condition, deadlineMs);
}

/// Runs the event loop until everything already posted (and the zero timers already
/// started) has been delivered: after it, an event that was going to follow has arrived.
/// Used before checking that something did not happen.
inline bool settle() {
    bool reached = false;
    // A zero timer fires only once the events posted before it were handled; twice over,
    // so that what those events posted in turn is handled too.
    QTimer::singleShot(0, [&reached] { QTimer::singleShot(0, [&reached] { reached = true; }); });
    const bool ok = waitUntil([&reached] { return reached; });
    if (!ok) reached = true;  // the pending timers must not write to a dead local
    QCoreApplication::processEvents();
    return ok;
}

/// The centre of a check box's indicator, where a click toggles it.
inline QPoint indicatorCentre(QCheckBox* box) {
    QStyleOptionButton option;
    option.initFrom(box);
    option.text = box->text();
    return box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box).center();
}

/// Records the events of widgets made directly on a surface; handler may change them.
struct WidgetRecorder : WidgetListener {
    void widgetEvent(Widget&, WidgetEvent& event) override {
        if (handler) handler(event);
        events.push_back(event);
    }
    /// The recorded events of one type, in order.
    std::vector<WidgetEvent> ofType(WidgetEventType type) const {
        std::vector<WidgetEvent> out;
        for (const auto& e : events) {
            if (e.type == type) out.push_back(e);
        }
        return out;
    }
    std::vector<WidgetEvent> events;
    std::function<void(WidgetEvent&)> handler;
};

}  // namespace corvex::qt::testing
