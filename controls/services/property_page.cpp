#include "corvex/services/property_page.h"

namespace corvex {

struct PropertyPage::Private {
    std::vector<ObjectRef> selected;
    bool changed = false;
    bool loading = false;
    std::function<void(bool)> listener;
    // Sets the mark and tells the listener when it flips.
    void mark(bool v) {
        if (changed == v) return;
        changed = v;
        if (listener) listener(v);
    }
};

PropertyPage::PropertyPage(ControlSite& site) : Control(site), d(std::make_unique<Private>()) {}

PropertyPage::~PropertyPage() = default;

const std::vector<ObjectRef>& PropertyPage::selectedControls() const {
    return d->selected;
}

void PropertyPage::setSelectedControls(std::vector<ObjectRef> controls) {
    checkAvailable();
    d->selected = std::move(controls);
    // The widgets are filled by code: their Change and Click are not the user's edits.
    d->loading = true;
    try {
        selectionChanged();
    } catch (...) {
        d->loading = false;
        throw;
    }
    d->loading = false;
    d->mark(false);
}

bool PropertyPage::changed() const {
    return d->changed;
}

void PropertyPage::setChanged(bool v) {
    d->mark(v);
}

void PropertyPage::apply() {
    checkAvailable();
    applyChanges();
    d->mark(false);
}

std::u16string PropertyPage::caption() const {
    return classInfo().name();
}

void PropertyPage::setChangedListener(std::function<void(bool)> listener) {
    d->listener = std::move(listener);
}

Object* PropertyPage::firstSelected() const {
    return d->selected.empty() ? nullptr : d->selected.front().get();
}

bool PropertyPage::loading() const {
    return d->loading;
}

void PropertyPage::edited() {
    if (!d->loading) d->mark(true);
}

}  // namespace corvex
