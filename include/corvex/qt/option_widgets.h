// The Qt host's frame (QGroupBox), option buttons (QRadioButton), line shapes and arrays
// of option buttons.
#pragma once

#include <memory>

#include "corvex/platform/option_widgets.h"
#include "corvex/qt/widget.h"

class QGroupBox;
class QRadioButton;

namespace corvex::qt {

/// A frame over a QGroupBox: its title is the caption; border style 0 hides the border.
/// The mouse over it reaches the surface below, as a group box leaves it alone.
class QtFrame : public QtWidget, public Frame {
public:
    /// A frame on host made as design describes.
    QtFrame(QtControlHost& host, const WidgetSpec& design);
    ~QtFrame() override;
    /// The QGroupBox shown.
    QGroupBox* groupBox() const;
    /// The group box's title.
    std::u16string caption() const override;
    /// Sets the title.
    void setCaption(const std::u16string& c) override;
    /// The border style as it was set.
    std::int16_t borderStyle() const override { return borderStyle_; }
    /// Shows (any value but 0) or hides the border.
    void setBorderStyle(std::int16_t s) override;

private:
    std::int16_t borderStyle_ = 1;
};

/// An option button over a QRadioButton. The radio buttons of one parent (a frame's group
/// box, or the surface) form one exclusive group. It raises Click when it becomes
/// selected, by a user's click or by code.
class QtOptionButton : public QtWidget, public OptionButton {
public:
    /// A button on host, inside spec.container's group box (the surface when null).
    QtOptionButton(QtControlHost& host, const OptionButtonSpec& design);
    ~QtOptionButton() override;
    /// The QRadioButton shown.
    QRadioButton* radioButton() const;
    /// The button text.
    std::u16string caption() const override;
    /// Sets the button text.
    void setCaption(const std::u16string& c) override;
    /// Whether the radio button is checked.
    bool value() const override;
    /// Checks (the group's others go off) or clears the radio button.
    void setValue(bool v) override;

private:
    void toggledByQt(bool on);
    bool updating_ = false;
};

/// A line shape painted between its end points; the widget covers the pixels they span.
class QtLine : public QtWidget, public LineShape {
public:
    /// A line on host made as design describes.
    QtLine(QtControlHost& host, const LineSpec& design);
    ~QtLine() override;
    /// Places the end points on the rectangle's top-left and bottom-right corners.
    void move(float left, float top, float width, float height) override;
    float x1() const override { return x1_; }
    float y1() const override { return y1_; }
    float x2() const override { return x2_; }
    float y2() const override { return y2_; }
    void setX1(float v) override { setEnds(v, y1_, x2_, y2_); }
    void setY1(float v) override { setEnds(x1_, v, x2_, y2_); }
    void setX2(float v) override { setEnds(x1_, y1_, v, y2_); }
    void setY2(float v) override { setEnds(x1_, y1_, x2_, v); }
    std::int16_t borderWidth() const override { return borderWidth_; }

private:
    void setEnds(float x1, float y1, float x2, float y2);
    float x1_ = 0, y1_ = 0, x2_ = 0, y2_ = 0;
    std::int16_t borderWidth_ = 1;
};

}  // namespace corvex::qt
