// ShadowedLine: an etched separator, a line with a parallel shadow line beside it.
#pragma once

#include <memory>

#include "corvex/common/control.h"
#include "corvex/library/enums.h"

namespace corvex {

class LineShape;

/// A main line (Line1, its end points are X1, Y1, X2, Y2) and its shadow (Line2), placed
/// at each resize by Mode over the whole length of the control, whose thickness is kept
/// at 25 twips.
class ShadowedLine : public Control {
public:
    /// A ShadowedLine on a host site; creates both lines.
    explicit ShadowedLine(ControlSite& site);
    ~ShadowedLine() override;
    /// The table of the ShadowedLine class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }

    void initProperties() override;
    void readProperties(PropertyBag& bag) override;
    void writeProperties(PropertyBag& bag) override;
    void resize() override;

    /// How the lines run; applied at the next resize.
    ShadowedLine_Mode mode() const;
    /// Stores the mode (any number); the lines move at the next resize.
    void setMode(ShadowedLine_Mode m);
    /// The main line's first X.
    float x1() const;
    /// Moves the main line's first X.
    void setX1(float v);
    /// The main line's second X.
    float x2() const;
    /// Moves the main line's second X.
    void setX2(float v);
    /// The main line's first Y.
    float y1() const;
    /// Moves the main line's first Y.
    void setY1(float v);
    /// The main line's second Y.
    float y2() const;
    /// Moves the main line's second Y.
    void setY2(float v);

protected:
    void widgetEvent(Widget&, WidgetEvent&) override {}
    void releaseWidgets() override;

private:
    LineShape& main() const;
    LineShape& shadow() const;
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex
