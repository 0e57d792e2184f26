#include "corvex/headless/form_loader.h"

#include <vector>

#include "corvex/common/text.h"
#include "corvex/library/class_table.h"
#include "corvex/library/memory_bag.h"

namespace corvex::headless {

void loadForm(const FormDocument& document, HeadlessForm& form) {
    // Everything that can be known before a control is created is checked first, so
    // that a document naming a class this library lacks leaves the form as it was.
    std::vector<const ClassInfo*> classes;
    for (std::size_t i = 0; i < document.controls.size(); ++i) {
        const SavedControl& c = document.controls[i];
        const ClassInfo* cls = findClass(c.className);
        if (!cls) {
            throw Error(err::MemberNotFound,
                        u"Control " + c.name + u": " + c.className + u" is not a public class");
        }
        for (const Site* s : form.sites()) {
            if (equalsIgnoringCase(s->name(), c.name)) {
                throw Error(err::WrongArguments,
                            u"A control named " + c.name + u" is already on the form");
            }
        }
        for (std::size_t j = 0; j < i; ++j) {
            if (equalsIgnoringCase(document.controls[j].name, c.name)) {
                throw Error(err::WrongArguments, u"The form holds two controls named " + c.name);
            }
        }
        classes.push_back(cls);
    }
    for (std::size_t i = 0; i < document.controls.size(); ++i) {
        const SavedControl& c = document.controls[i];
        MemoryBag bag(c.properties);
        try {
            form.load(*classes[i], c.name, bag);
        } catch (const Error& e) {
            throw Error(e.number(), e.description() + u" (control " + c.name + u")", e.source());
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
        doc.controls.push_back({s->control().classInfo().name(), s->name(), bag.entries()});
    }
    return doc;
}

}  // namespace corvex::headless
