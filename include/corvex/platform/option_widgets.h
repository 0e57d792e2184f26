// The inner widgets of the option and decoration controls: option buttons, a frame,
// line shapes, and control arrays whose elements are created and removed at run time.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "corvex/platform/widgets.h"

namespace corvex {

/// The host's errors of control arrays, beyond 340 (no such element).
namespace err {
inline constexpr std::int32_t ElementAlreadyLoaded = 360;  ///< the element exists already
inline constexpr std::int32_t CannotUnloadElement = 362;   ///< element 0 is the design's
}  // namespace err

/// A frame: a border with a caption around other widgets.
class Frame : public virtual Widget {
public:
    /// The caption shown in the border.
    virtual std::u16string caption() const = 0;
    /// Sets the caption.
    virtual void setCaption(const std::u16string& c) = 0;
    /// The border style: 0 none, 1 fixed single.
    virtual std::int16_t borderStyle() const = 0;
    /// Sets the border style (any value is kept; only 0 hides the border).
    virtual void setBorderStyle(std::int16_t s) = 0;
};

/// An option button. The buttons of one container form one group: selecting one, by the
/// user or by code, clears the others. It raises Click when it becomes selected.
class OptionButton : public virtual Widget {
public:
    /// The caption.
    virtual std::u16string caption() const = 0;
    /// Sets the caption.
    virtual void setCaption(const std::u16string& c) = 0;
    /// Whether the button is selected.
    virtual bool value() const = 0;
    /// Selects (clearing the group's others) or clears the button.
    virtual void setValue(bool v) = 0;
};

/// A straight line shape between two end points (twips on the surface). As a widget its
/// place is the rectangle the end points span.
class LineShape : public virtual Widget {
public:
    /// X of the first end point.
    virtual float x1() const = 0;
    /// Y of the first end point.
    virtual float y1() const = 0;
    /// X of the second end point.
    virtual float x2() const = 0;
    /// Y of the second end point.
    virtual float y2() const = 0;
    /// Moves the first end point's X.
    virtual void setX1(float v) = 0;
    /// Moves the first end point's Y.
    virtual void setY1(float v) = 0;
    /// Moves the second end point's X.
    virtual void setX2(float v) = 0;
    /// Moves the second end point's Y.
    virtual void setY2(float v) = 0;
    /// The line's width in pixels.
    virtual std::int16_t borderWidth() const = 0;
};

/// An indexed array of widgets of one design name. Element 0 is made with the array and
/// stays; the others are created and removed at run time.
template <class W>
class ControlArray {
public:
    virtual ~ControlArray() = default;
    /// The number of elements.
    virtual std::int16_t count() const = 0;
    /// Whether an element with this index exists.
    virtual bool exists(std::int16_t index) const = 0;
    /// The element with this index; raises 340 when there is none.
    virtual W& element(std::int16_t index) const = 0;
    /// Creates a hidden element that takes its size, place, colours and font from element
    /// 0; raises 360 when it exists already.
    virtual W& create(std::int16_t index) = 0;
    /// Removes an element; raises 340 when there is none, 362 for element 0.
    virtual void remove(std::int16_t index) = 0;
};

/// An array of option buttons.
using OptionButtonArray = ControlArray<OptionButton>;

/// How an option button (or element 0 of an array of them) is made.
struct OptionButtonSpec : WidgetSpec {
    Frame* container = nullptr;  ///< the frame it sits in (its group); null: the surface
};

/// How a line shape is made.
struct LineSpec {
    std::u16string name;     ///< design name
    float x1 = 0;            ///< first end point, twips
    float y1 = 0;            ///< first end point, twips
    float x2 = 0;            ///< second end point, twips
    float y2 = 0;            ///< second end point, twips
    std::int32_t color = 0;  ///< colour number
    std::int16_t width = 1;  ///< width in pixels
};

}  // namespace corvex
