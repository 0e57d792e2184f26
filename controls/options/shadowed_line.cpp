#include "corvex/options/shadowed_line.h"

#include "corvex/platform/option_widgets.h"

namespace corvex {

namespace {
// The etched look: a dark main line with a light shadow beside it.
constexpr std::int32_t kDark = 0x808080;
constexpr std::int32_t kLight = 0xFFFFFF;
constexpr float kThickness = 25;
constexpr float kBelow = 5;    // the shadow's offset under a horizontal line
constexpr float kRightOf = 8;  // and to the right of a vertical one
}  // namespace

struct ShadowedLine::Private {
    std::unique_ptr<LineShape> line1;
    std::unique_ptr<LineShape> line2;
    std::int32_t mode = 0;
};

ShadowedLine::ShadowedLine(ControlSite& site) : Control(site), d(std::make_unique<Private>()) {
    const float w = innerWidth();
    LineSpec main{u"Line1", 0, 0, w, 0, kDark, 1};
    LineSpec shadow{u"Line2", 0, kBelow, w, kBelow, kLight, 1};
    d->line1 = site.widgets().createLine(main);
    d->line2 = site.widgets().createLine(shadow);
}

ShadowedLine::~ShadowedLine() = default;

LineShape& ShadowedLine::main() const {
    checkAvailable();
    return *d->line1;
}

LineShape& ShadowedLine::shadow() const {
    checkAvailable();
    return *d->line2;
}

void ShadowedLine::releaseWidgets() {
    d->line2.reset();
    d->line1.reset();
}

const ClassInfo& ShadowedLine::staticClassInfo() {
    static const ClassInfo info = [] {
        using L = ShadowedLine;
        EventTable ev;  // a decoration: no events of its own
        events::addDeclaredLifecycle(ev);
        return ClassInfo(
            u"ShadowedLine", ClassKind::Control,
            MemberTable<L>()
                .property(u"Mode", &L::mode, &L::setMode)
                .help(u"線の向き（水平／垂直）を設定します。",
                      u"Sets the direction of the line (horizontal/vertical).")
                .saved(1, u"Mode", std::int32_t{0})
                .property(u"X1", &L::x1, &L::setX1)
                .help(u"線の始点のX座標を設定します。",
                      u"Sets the X coordinate of the line's start.")
                .property(u"X2", &L::x2, &L::setX2)
                .help(u"線の終点のX座標を設定します。", u"Sets the X coordinate of the line's end.")
                .property(u"Y1", &L::y1, &L::setY1)
                .help(u"線の始点のY座標を設定します。",
                      u"Sets the Y coordinate of the line's start.")
                .property(u"Y2", &L::y2, &L::setY2)
                .help(u"線の終点のY座標を設定します。", u"Sets the Y coordinate of the line's end.")
                .build(),
            ev.build(), [](ControlSite& site) { return std::make_shared<ShadowedLine>(site); },
            {2400, 25});
    }();
    return info;
}

void ShadowedLine::initProperties() {
    d->mode = 0;
}

void ShadowedLine::readProperties(PropertyBag& bag) {
    d->mode = readSaved<std::int32_t>(bag, u"Mode", std::int32_t{0});
}

void ShadowedLine::writeProperties(PropertyBag& bag) {
    bag.write(u"Mode", d->mode, std::int32_t{0});
}

void ShadowedLine::resize() {
    LineShape& a = main();
    LineShape& b = shadow();
    Surface& s = site().surface();
    const float w = innerWidth();
    const float h = innerHeight();
    if (d->mode == static_cast<std::int32_t>(ShadowedLine_Mode::Horizonrtal)) {
        a.setX1(0);
        a.setX2(w);
        b.setX1(0);
        b.setX2(w);
        b.setY1(a.y1() + kBelow);
        b.setY2(a.y2() + kBelow);
        // The host resizes again at once; that resize places the lines the same way. A
        // height already 25 raises no resize, as the host's own.
        if (s.height() != kThickness) s.setSize(s.width(), kThickness);
    } else if (d->mode == static_cast<std::int32_t>(ShadowedLine_Mode::Vertical)) {
        a.setX2(a.x1());
        a.setY1(0);
        a.setY2(h);
        b.setX1(a.x1() + kRightOf);
        b.setX2(b.x1());
        b.setY1(0);
        b.setY2(h);
        if (s.width() != kThickness) s.setSize(kThickness, s.height());
    }
    // Any other mode places nothing.
}

ShadowedLine_Mode ShadowedLine::mode() const {
    checkAvailable();
    return static_cast<ShadowedLine_Mode>(d->mode);
}

void ShadowedLine::setMode(ShadowedLine_Mode m) {
    checkAvailable();
    d->mode = static_cast<std::int32_t>(m);
    propertyChanged(u"Mode");
}

float ShadowedLine::x1() const {
    return main().x1();
}

void ShadowedLine::setX1(float v) {
    main().setX1(v);
    propertyChanged(u"X1");
}

float ShadowedLine::x2() const {
    return main().x2();
}

void ShadowedLine::setX2(float v) {
    main().setX2(v);
    propertyChanged(u"X2");
}

float ShadowedLine::y1() const {
    return main().y1();
}

void ShadowedLine::setY1(float v) {
    main().setY1(v);
    propertyChanged(u"Y1");
}

float ShadowedLine::y2() const {
    return main().y2();
}

void ShadowedLine::setY2(float v) {
    main().setY2(v);
    propertyChanged(u"Y2");
}

}  // namespace corvex
