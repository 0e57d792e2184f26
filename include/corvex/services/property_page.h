// The base of the library's property pages: the controls selected in the designer, the
// page's changed flag, and its inner widgets made through the host.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "corvex/common/control.h"

namespace corvex {

/// A design-time page that edits the selected controls through their public members
/// only. The designer sets the selection (the page then reads the first control into its
/// widgets) and applies the page (it writes its widgets back into that control).
class PropertyPage : public Control {
public:
    /// A page on a host site; the derived page makes its widgets.
    explicit PropertyPage(ControlSite& site);
    ~PropertyPage() override;

    void initProperties() override {}
    void readProperties(PropertyBag&) override {}
    void writeProperties(PropertyBag&) override {}

    /// The controls selected in the designer, in selection order.
    const std::vector<ObjectRef>& selectedControls() const;
    /// Replaces the selection, then reads the first selected control into the page; the
    /// page is unchanged afterwards.
    void setSelectedControls(std::vector<ObjectRef> controls);
    /// Whether the page holds edits not applied yet (the designer enables Apply).
    bool changed() const;
    /// Marks the page as edited or not.
    void setChanged(bool v);
    /// Writes the page into the first selected control, then marks the page unchanged.
    void apply();
    /// The page's caption, as the designer's tabbed dialog shows it (the class name unless
    /// the page has one of its own).
    virtual std::u16string caption() const;
    /// Calls listener with the new mark whenever the changed mark flips (a designer enables
    /// its Apply button with it); an empty function stops the calls.
    void setChangedListener(std::function<void(bool)> listener);

protected:
    /// Reads the first selected control into the widgets.
    virtual void selectionChanged() = 0;
    /// Writes the widgets into the first selected control.
    virtual void applyChanges() = 0;
    /// The first selected control; null when nothing is selected.
    Object* firstSelected() const;
    /// Whether the page is filling its widgets itself: their events are no user's edits.
    bool loading() const;
    /// Marks the page as edited unless it is filling its widgets itself.
    void edited();

private:
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex
