#include "corvex/common/form_model.h"

#include <list>
#include <map>
#include <unordered_map>

#include "corvex/common/error.h"

namespace corvex {

std::u16string foldName(std::u16string_view name) {
    std::u16string out(name);
    for (char16_t& c : out) {
        if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c + 32);
    }
    return out;
}

std::u16string ControlName::text() const {
    if (index == NoIndex) return name;
    const std::string digits = std::to_string(index);
    return name + u'(' + std::u16string(digits.begin(), digits.end()) + u')';
}

namespace {

using EntryList = std::list<FormEntry>;

// Every control that answers to one folded name: one control, or the elements of an array.
struct NameSlot {
    bool array = false;
    std::map<std::int16_t, EntryList::iterator> elements;
};

[[noreturn]] void nameTaken(const std::u16string& what) {
    throw Error(err::WrongArguments, u"A control named " + what + u" is already on the form");
}

}  // namespace

struct FormModel::Private {
    EntryList entries;
    std::unordered_map<const ControlSite*, EntryList::iterator> bySite;
    std::unordered_map<std::u16string, NameSlot> byName;

    const NameSlot* slot(std::u16string_view name) const {
        const auto it = byName.find(foldName(name));
        return it == byName.end() ? nullptr : &it->second;
    }

    void forget(EntryList::iterator it) {
        const std::u16string key = foldName(it->name.name);
        const auto s = byName.find(key);
        if (s != byName.end()) {
            s->second.elements.erase(it->name.index);
            if (s->second.elements.empty()) byName.erase(s);
        }
        bySite.erase(it->site);
        entries.erase(it);
    }
};

FormModel::FormModel() : d(std::make_unique<Private>()) {}

FormModel::~FormModel() {
    // The host lets its sites go before the form; any control still here is cut off now,
    // the last created first, as a form unloads its controls.
    while (!d->entries.empty()) {
        auto last = std::prev(d->entries.end());
        const std::shared_ptr<Control> control = last->control;
        d->forget(last);
        if (control) control->detach();
    }
}

void FormModel::checkFree(const ControlName& name) const {
    if (name.index < NoIndex) {
        throw Error(err::WrongArguments,
                    u"The index of " + name.name + u" must be a whole number from 0 to 32767");
    }
    const NameSlot* s = d->slot(name.name);
    if (!s) return;
    const bool array = name.index != NoIndex;
    if (s->array != array) {
        throw Error(err::WrongArguments,
                    s->array ? u"A control array named " + name.name + u" is already on the form"
                             : u"A control named " + name.name + u" is already on the form");
    }
    if (s->elements.contains(name.index)) nameTaken(name.text());
}

FormEntry& FormModel::add(ControlSite& site, std::shared_ptr<Control> control, ControlName name) {
    checkFree(name);
    if (!control) throw Error(err::ObjectRequired);
    if (d->bySite.contains(&site)) {
        throw Error(err::WrongArguments,
                    u"The site of " + name.text() + u" holds a control already");
    }
    NameSlot& s = d->byName[foldName(name.name)];
    s.array = name.index != NoIndex;
    const auto it = d->entries.insert(d->entries.end(), FormEntry{std::move(name), &site, control});
    s.elements.emplace(it->name.index, it);
    d->bySite.emplace(&site, it);
    return *it;
}

FormEntry& FormModel::adopt(std::shared_ptr<Object> object, ControlSite& site, ControlName name) {
    checkFree(name);
    auto control = std::dynamic_pointer_cast<Control>(object);
    if (!control) {
        throw Error(err::TypeMismatch,
                    (object ? object->classInfo().name() : u"Nothing") + u" is not a control");
    }
    return add(site, std::move(control), std::move(name));
}

void FormModel::initialise(ControlSite& site, PropertyBag* bag) {
    const auto found = d->bySite.find(&site);
    if (found == d->bySite.end()) {
        throw Error(err::ObjectRequired, u"The form holds no control on this site");
    }
    const std::shared_ptr<Control> control = found->second->control;
    try {
        if (bag) {
            control->readProperties(*bag);
        } else {
            control->initProperties();
        }
        control->resize();
    } catch (...) {
        // A control that could not load does not stay on the form; its widgets go while
        // the site that they report to still exists.
        remove(site);
        throw;
    }
}

void FormModel::remove(const ControlSite& site) {
    const auto found = d->bySite.find(&site);
    if (found == d->bySite.end()) return;
    const std::shared_ptr<Control> control = found->second->control;
    d->forget(found->second);
    control->detach();
}

const FormEntry* FormModel::find(std::u16string_view name, std::int16_t index) const {
    const NameSlot* s = d->slot(name);
    if (!s) return nullptr;
    const auto it = s->elements.find(index);
    return it == s->elements.end() ? nullptr : &*it->second;
}

const FormEntry* FormModel::find(const ControlSite& site) const {
    const auto it = d->bySite.find(&site);
    return it == d->bySite.end() ? nullptr : &*it->second;
}

bool FormModel::isArray(std::u16string_view name) const {
    const NameSlot* s = d->slot(name);
    return s && s->array;
}

std::size_t FormModel::size() const {
    return d->entries.size();
}

std::vector<const FormEntry*> FormModel::entries() const {
    std::vector<const FormEntry*> out;
    out.reserve(d->entries.size());
    for (const FormEntry& e : d->entries) out.push_back(&e);
    return out;
}

std::vector<ObjectRef> FormModel::controls() const {
    std::vector<ObjectRef> out;
    out.reserve(d->entries.size());
    for (const FormEntry& e : d->entries) out.push_back(e.control);
    return out;
}

void FormModel::callEach(std::u16string_view method, const CallReport& report) const {
    // The calls run the controls' code, which may take controls off the form: the walk
    // goes over its own copy, and a control that has gone answers with its error.
    std::vector<std::pair<ControlName, std::shared_ptr<Control>>> walk;
    walk.reserve(d->entries.size());
    for (const FormEntry& e : d->entries) walk.emplace_back(e.name, e.control);
    for (const auto& [name, control] : walk) {
        if (!control->classInfo().member(method)) continue;
        try {
            invoke(*control, method, CallKind::Method);
        } catch (const Error& e) {
            report(name, &e);
            continue;
        }
        report(name, nullptr);
    }
}

}  // namespace corvex
