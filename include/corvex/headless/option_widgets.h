// In-memory option buttons, frames, line shapes and option-button arrays of the headless
// host.
#pragma once

#include <memory>
#include <string>

#include "corvex/headless/widgets.h"
#include "corvex/platform/option_widgets.h"

namespace corvex::headless {

/// A frame: a caption and a border style.
class HeadlessFrame : public HeadlessWidget, public Frame {
public:
    /// A frame of a site.
    HeadlessFrame(Site& site, const WidgetSpec& spec) : HeadlessWidget(site, spec) {}
    std::u16string caption() const override { return caption_; }
    void setCaption(const std::u16string& c) override { caption_ = c; }
    std::int16_t borderStyle() const override { return borderStyle_; }
    void setBorderStyle(std::int16_t s) override { borderStyle_ = s; }

private:
    std::u16string caption_;
    std::int16_t borderStyle_ = 1;
};

/// An option button. Its group is its container (the surface when it has none): selecting
/// it clears the group's other buttons, which raise nothing. A click selects it; it
/// raises Click when it becomes selected, by the user or by code.
class HeadlessOptionButton : public HeadlessWidget, public OptionButton {
public:
    /// A button of a site, in the group of spec.container.
    HeadlessOptionButton(Site& site, const OptionButtonSpec& spec);
    std::u16string caption() const override { return caption_; }
    void setCaption(const std::u16string& c) override { caption_ = c; }
    bool value() const override { return value_; }
    void setValue(bool v) override;
    /// The frame whose group it belongs to, or null (the surface).
    const Frame* container() const { return container_; }

protected:
    bool clicked() override;
    void keyReleased(std::int16_t keyCode) override;

private:
    const Frame* container_;
    std::u16string caption_;
    bool value_ = false;
};

/// A line shape: two end points, a colour and a width.
class HeadlessLine : public HeadlessWidget, public LineShape {
public:
    /// A line of a site.
    HeadlessLine(Site& site, const LineSpec& spec);
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
    float x1_, y1_, x2_, y2_;
    std::int16_t borderWidth_;
};

}  // namespace corvex::headless
