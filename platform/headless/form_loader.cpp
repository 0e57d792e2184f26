#include "corvex/headless/form_loader.h"

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "corvex/common/text.h"
#include "corvex/library/class_table.h"
#include "corvex/library/memory_bag.h"

namespace corvex::headless {

void loadForm(const FormDocument& document, HeadlessForm& form) {
    // Everything that can be known before a control is created is checked first, so
    // that a document naming a class this library lacks leaves the form as it was.
    std::vector<const ClassInfo*> classes;
    classes.reserve(document.controls.size());
    std::unordered_map<std::u16string, bool> seenArrays;  // folded name -> is an array
    std::unordered_set<std::u16string> seen;              // folded name and index
    for (const SavedControl& c : document.controls) {
        const ClassInfo* cls = findClass(c.className);
        if (!cls) {
            throw Error(err::MemberNotFound, u"Control " + ControlName{c.name, c.index}.text() +
                                                 u": " + c.className + u" is not a public class");
        }
        form.model().checkFree({c.name, c.index});
        const std::u16string folded = foldName(c.name);
        const auto [kind, fresh] = seenArrays.emplace(folded, c.index != NoIndex);
        const std::u16string text = ControlName{c.name, c.index}.text();
        if ((!fresh && kind->second != (c.index != NoIndex)) ||
            !seen.insert(foldName(text)).second) {
            throw Error(err::WrongArguments, u"The form holds two controls named " + text);
        }
        classes.push_back(cls);
    }
    for (std::size_t i = 0; i < document.controls.size(); ++i) {
        const SavedControl& c = document.controls[i];
        MemoryBag bag(c.properties);
        try {
            form.load(*classes[i], c.name, bag, c.index);
        } catch (const Error& e) {
            throw Error(
                e.number(),
                e.description() + u" (control " + ControlName{c.name, c.index}.text() + u")",
                e.source());
        }
    }
}

FormDocument saveForm(const HeadlessForm& form, std::u16string name, std::u16string caption) {
    FormDocument doc;
    doc.name = std::move(name);
    doc.caption = std::move(caption);
    for (const Site* s : form.sites()) {
        MemoryBag bag;
        s->control().writeProperties(bag);
        doc.controls.push_back(
            {s->control().classInfo().name(), s->name(), bag.entries(), s->index()});
    }
    return doc;
}

}  // namespace corvex::headless
