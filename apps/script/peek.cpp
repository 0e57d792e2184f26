#include "corvex/script/peek.h"

#include "corvex/common/error.h"
#include "corvex/common/text.h"
#include "corvex/headless/list_box.h"
#include "corvex/headless/option_widgets.h"
#include "corvex/platform/command_button.h"
#include "corvex/platform/list_box.h"
#include "corvex/platform/page_widgets.h"
#include "corvex/services/property_page.h"

namespace corvex::script {

namespace {

bool is(std::u16string_view a, std::u16string_view b) {
    return equalsIgnoringCase(a, b);
}

Error noProperty(std::u16string_view owner, std::u16string_view property) {
    return Error(err::MemberNotFound,
                 std::u16string(owner) + u" has no property " + std::u16string(property));
}

// What every widget has.
bool common(const Widget& w, std::u16string_view p, Variant& out) {
    if (is(p, u"Left"))
        out = w.left();
    else if (is(p, u"Top"))
        out = w.top();
    else if (is(p, u"Width"))
        out = w.width();
    else if (is(p, u"Height"))
        out = w.height();
    else if (is(p, u"Visible"))
        out = Boolean(w.visible());
    else if (is(p, u"Enabled"))
        out = Boolean(w.enabled());
    else if (is(p, u"BackColor"))
        out = w.backColor();
    else if (is(p, u"ForeColor"))
        out = w.foreColor();
    else
        return false;
    return true;
}

// What the widget's kind adds.
bool ofKind(const Widget& w, std::u16string_view p, Variant& out) {
    if (auto* c = dynamic_cast<const CheckBox*>(&w)) {
        if (is(p, u"Caption"))
            out = c->caption();
        else if (is(p, u"Value"))
            out = c->value();
        else
            return false;
    } else if (auto* o = dynamic_cast<const OptionButton*>(&w)) {
        if (is(p, u"Caption"))
            out = o->caption();
        else if (is(p, u"Value"))
            out = Boolean(o->value());
        else
            return false;
    } else if (auto* f = dynamic_cast<const Frame*>(&w)) {
        if (is(p, u"Caption"))
            out = f->caption();
        else if (is(p, u"BorderStyle"))
            out = f->borderStyle();
        else
            return false;
    } else if (auto* t = dynamic_cast<const TextBox*>(&w)) {
        if (is(p, u"Text"))
            out = t->text();
        else
            return false;
    } else if (auto* label = dynamic_cast<const TextLabel*>(&w)) {
        if (is(p, u"Caption"))
            out = label->caption();
        else
            return false;
    } else if (auto* l = dynamic_cast<const LineShape*>(&w)) {
        if (is(p, u"X1"))
            out = l->x1();
        else if (is(p, u"Y1"))
            out = l->y1();
        else if (is(p, u"X2"))
            out = l->x2();
        else if (is(p, u"Y2"))
            out = l->y2();
        else if (is(p, u"BorderWidth"))
            out = l->borderWidth();
        else
            return false;
    } else if (auto* b = dynamic_cast<const CommandButton*>(&w)) {
        if (is(p, u"Caption"))
            out = b->caption();
        else
            return false;
    } else if (auto* lb = dynamic_cast<const ListBox*>(&w)) {
        if (is(p, u"ListCount"))
            out = lb->listCount();
        else if (is(p, u"ListIndex"))
            out = lb->listIndex();
        else if (is(p, u"SelCount"))
            out = lb->selCount();
        else if (is(p, u"HorizontalExtent"))
            out = lb->horizontalExtent();
        else if (auto* hl = dynamic_cast<const headless::HeadlessListBox*>(lb);
                 hl && is(p, u"HorizontalScrollBar"))
            out = Boolean(hl->hasHorizontalScrollBar());
        else
            return false;
    } else {
        return false;
    }
    return true;
}

}  // namespace

Variant peekSurface(const headless::Site& site, std::u16string_view property) {
    if (is(property, u"Left")) return site.left();
    if (is(property, u"Top")) return site.top();
    if (is(property, u"Width")) return site.width();
    if (is(property, u"Height")) return site.height();
    if (is(property, u"Visible")) return Boolean(site.visible());
    // A property page's changed mark, which the designer's Apply button follows.
    if (auto* page = dynamic_cast<const PropertyPage*>(&site.control());
        page && is(property, u"Changed")) {
        return Boolean(page->changed());
    }
    throw noProperty(site.displayName(), property);
}

Variant peekWidget(const headless::Site& site, std::u16string_view widget, std::int16_t index,
                   std::u16string_view property) {
    std::int16_t elements = 0;
    bool seen = false;
    const Widget* found = nullptr;
    for (const headless::HeadlessWidget* w : site.widgetList()) {
        if (!is(w->name(), widget)) continue;
        seen = true;
        if (w->index() >= 0) ++elements;
        if (w->index() == index) found = w;
    }
    if (!seen) {
        throw Error(err::MemberNotFound,
                    site.displayName() + u" has no inner widget named " + std::u16string(widget));
    }
    if (index < 0 && is(property, u"Count")) {
        if (elements == 0) throw noProperty(std::u16string(widget), property);
        return elements;
    }
    if (!found && index < 0) {
        throw Error(err::MemberNotFound, std::u16string(widget) +
                                             u" is a control array: name an element, as " +
                                             std::u16string(widget) + u"(0)");
    }
    if (!found) throw Error(err::ControlArrayElementMissing);
    Variant out;
    if (common(*found, property, out) || ofKind(*found, property, out)) return out;
    throw noProperty(std::u16string(widget), property);
}

}  // namespace corvex::script
