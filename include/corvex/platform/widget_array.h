// The rules of a control array, kept once for every host and every kind of element.
#pragma once

#include <functional>
#include <iterator>
#include <map>
#include <memory>

#include "corvex/common/error.h"
#include "corvex/platform/option_widgets.h"

namespace corvex {

/// A control array of captioned widgets (W has caption()/setCaption()). A host gives only
/// the maker of one element; the indexes, the errors and what a new element copies from
/// element 0 are the same everywhere.
template <class W, class Spec>
class WidgetArray : public ControlArray<W> {
public:
    /// Makes one element from its spec (index and place filled in).
    using Maker = std::function<std::unique_ptr<W>(const Spec&)>;

    /// An array whose element 0 is made from design at once.
    WidgetArray(const Spec& design, Maker make) : design_(design), make_(std::move(make)) {
        design_.index = 0;
        elements_[0] = make_(design_);
    }
    /// Later elements go first, element 0 last, as a form unloads them.
    ~WidgetArray() override {
        while (!elements_.empty()) elements_.erase(std::prev(elements_.end()));
    }
    std::int16_t count() const override { return static_cast<std::int16_t>(elements_.size()); }
    bool exists(std::int16_t index) const override { return elements_.count(index) != 0; }
    W& element(std::int16_t index) const override {
        const auto it = elements_.find(index);
        if (it == elements_.end()) throw Error(err::ControlArrayElementMissing);
        return *it->second;
    }
    W& create(std::int16_t index) override {
        if (index < 0) throw Error(err::ControlArrayElementMissing);
        if (exists(index)) throw Error(err::ElementAlreadyLoaded, u"Object already loaded");
        // A new element is hidden and copies element 0's place, size, look and caption.
        const W& first = *elements_.at(0);
        Spec spec = design_;
        spec.index = index;
        spec.visible = false;
        spec.left = first.left();
        spec.top = first.top();
        spec.width = first.width();
        spec.height = first.height();
        std::unique_ptr<W> w = make_(spec);
        w->setBackColor(first.backColor());
        w->setForeColor(first.foreColor());
        w->setFont(first.font());
        w->setEnabled(first.enabled());
        w->setCaption(first.caption());
        return *(elements_[index] = std::move(w));
    }
    void remove(std::int16_t index) override {
        if (index == 0) {
            throw Error(err::CannotUnloadElement, u"Can't unload controls created at design time");
        }
        if (elements_.erase(index) == 0) throw Error(err::ControlArrayElementMissing);
    }

private:
    Spec design_;
    Maker make_;
    std::map<std::int16_t, std::unique_ptr<W>> elements_;
};

}  // namespace corvex
