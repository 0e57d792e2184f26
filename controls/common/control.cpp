#include "corvex/common/control.h"

namespace corvex {

Control::Control(ControlSite& site) : site_(&site) {}

Control::~Control() = default;

ControlSite& Control::site() const {
    checkAvailable();
    return *site_;
}

void Control::detach() {
    if (!site_) return;
    releaseWidgets();
    site_ = nullptr;
}

void Control::checkAvailable() const {
    if (!site_) {
        throw Error(err::ClientSiteNotAvailable,
                    u"Client site not available: the control's form has gone");
    }
}

void Control::propertyChanged(std::u16string_view name) {
    site().propertyChangedSink().propertyChanged(name);
}

void Control::raiseEvent(std::u16string_view name, std::span<Variant> args) {
    const EventInfo* e = classInfo().event(name);
    if (!e) return;  // the class does not publish that event
    site().eventSink().raiseEvent(*e, args);
}

float Control::innerWidth() const {
    const Surface& s = site().surface();
    return s.scaleX(s.scaleWidth(), s.scaleMode(), ScaleMode::Twips);
}

float Control::innerHeight() const {
    const Surface& s = site().surface();
    return s.scaleY(s.scaleHeight(), s.scaleMode(), ScaleMode::Twips);
}

bool Control::userMode() const {
    return site().ambient().userMode();
}

FontDesc Control::ambientFont() const {
    return site().ambient().font();
}

void Control::requireDesignTime() const {
    if (userMode()) throw Error(err::SetNotSupportedAtRuntime);
}

const MessageTable& Control::messageTable() const {
    static const MessageTable table({}, undefinedWithStop());
    return table;
}

std::u16string Control::getMessageText(int code) const {
    return messageText(site(), messageTable(), code);
}

void Control::showRefusal(std::initializer_list<int> codes) const {
    corvex::showRefusal(site(), messageTable(), codes);
}

void Control::refresh() {
    site().surface().refresh();
}

void Control::passOnKey(WidgetEvent& event) {
    switch (event.type) {
        case WidgetEventType::KeyDown:
        case WidgetEventType::KeyUp: {
            Variant args[] = {Variant(event.keyCode), Variant(event.shift)};
            raiseEvent(event.type == WidgetEventType::KeyDown ? u"KeyDown" : u"KeyUp", args);
            // The arguments are the widget's own: what the handler changed reaches it.
            event.keyCode = args[0].toInteger();
            event.shift = args[1].toInteger();
            break;
        }
        case WidgetEventType::KeyPress: {
            Variant args[] = {Variant(event.keyAscii)};
            raiseEvent(u"KeyPress", args);
            event.keyAscii = args[0].toInteger();
            break;
        }
        default:
            break;
    }
}

void Control::passOnMouse(const WidgetEvent& event) {
    const Surface& s = site().surface();
    // Converted from the surface's units, read at each event, to the container's;
    // the converted values are temporaries, so handlers cannot change the widget's.
    const ScaleMode from = s.scaleMode();
    Variant args[] = {Variant(event.button), Variant(event.shift),
                      Variant(s.scaleX(event.x, from, ScaleMode::ContainerPosition)),
                      Variant(s.scaleY(event.y, from, ScaleMode::ContainerPosition))};
    const char16_t* name = event.type == WidgetEventType::MouseDown   ? u"MouseDown"
                           : event.type == WidgetEventType::MouseMove ? u"MouseMove"
                                                                      : u"MouseUp";
    raiseEvent(name, args);
}

bool Control::passOn(WidgetEvent& event) {
    switch (event.type) {
        case WidgetEventType::Click:
            raiseEvent(u"Click");
            return true;
        case WidgetEventType::DblClick:
            raiseEvent(u"DblClick");
            return true;
        case WidgetEventType::KeyDown:
        case WidgetEventType::KeyPress:
        case WidgetEventType::KeyUp:
            passOnKey(event);
            return true;
        case WidgetEventType::MouseDown:
        case WidgetEventType::MouseMove:
        case WidgetEventType::MouseUp:
            passOnMouse(event);
            return true;
        default:
            return false;
    }
}

namespace events {

std::vector<ParamInfo> keyCodeShift() {
    return {{u"KeyCode", VarType::Integer, false, true}, {u"Shift", VarType::Integer, false, true}};
}

std::vector<ParamInfo> keyAscii() {
    return {{u"KeyAscii", VarType::Integer, false, true}};
}

std::vector<ParamInfo> mouse() {
    return {{u"Button", VarType::Integer, false, true},
            {u"Shift", VarType::Integer, false, true},
            {u"X", VarType::Single, false, true},
            {u"Y", VarType::Single, false, true}};
}

void addTextEvents(EventTable& table) {
    table.event(u"Change")
        .event(u"Click")
        .event(u"DblClick")
        .event(u"KeyDown", keyCodeShift())
        .event(u"KeyPress", keyAscii())
        .event(u"KeyUp", keyCodeShift())
        .event(u"MouseDown", mouse())
        .event(u"MouseMove", mouse())
        .event(u"MouseUp", mouse());
}

void addDeclaredLifecycle(EventTable& table) {
    table.declared(u"InitProperties")
        .declared(u"ReadProperties", {{u"PropBag", VarType::Object, false, false}})
        .declared(u"WriteProperties", {{u"PropBag", VarType::Object, false, false}});
}

}  // namespace events

}  // namespace corvex
