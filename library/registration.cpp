#include "corvex/library/registration.h"

#include "corvex/common/object.h"
#include "corvex/common/text.h"
#include "corvex/library/class_table.h"
#include "corvex/library/identifiers.h"

namespace corvex {

namespace {

void addInterface(std::vector<RegistrationEntry>& out, const Uuid& id, const std::u16string& name,
                  const std::string& typeLibrary) {
    const std::string section = "Interface\\" + id.text();
    out.push_back({section, "Name", toUtf8(name)});
    out.push_back({section, "TypeLib", typeLibrary});
    out.push_back({section, "Version", TypeLibraryVersion});
}

// The class identifiers of the class's property pages, in tab order, comma-separated.
std::string pageIds(const ClassInfo& cls) {
    std::string ids;
    for (const ClassInfo* page : propertyPagesOf(cls)) {
        if (!ids.empty()) ids += ",";
        ids += identifiersOf(*page).classId.text();
    }
    return ids;
}

void addClass(std::vector<RegistrationEntry>& out, const ClassInfo& cls,
              std::string_view libraryPath, const std::string& typeLibrary) {
    const ClassIdentifiers ids = identifiersOf(cls);
    const std::string name = toUtf8(cls.name());
    const std::string section = "CLSID\\" + ids.classId.text();
    out.push_back({section, "Name", name});
    out.push_back({section, "ProgID", "Corvex." + name});
    out.push_back({section, "Kind", classKindWord(cls.kind())});
    out.push_back({section, "InprocServer", std::string(libraryPath)});
    out.push_back({section, "TypeLib", typeLibrary});
    out.push_back({section, "Version", TypeLibraryVersion});
    out.push_back({section, "Interface", ids.interfaceId.text()});
    if (ids.hasEvents) out.push_back({section, "EventInterface", ids.eventInterfaceId.text()});
    if (const std::string pages = pageIds(cls); !pages.empty()) {
        out.push_back({section, "PropertyPages", pages});
    }
    addInterface(out, ids.interfaceId, ids.interfaceName, typeLibrary);
    if (ids.hasEvents) {
        addInterface(out, ids.eventInterfaceId, ids.eventInterfaceName, typeLibrary);
    }
}

}  // namespace

std::vector<RegistrationEntry> registrationEntries(std::string_view libraryPath) {
    const std::string typeLibrary = typeLibraryId().text();
    const std::string section = "TypeLib\\" + typeLibrary + "\\" + std::string(TypeLibraryVersion);
    std::vector<RegistrationEntry> out = {
        {section, "Description", toUtf8(LibraryDescription)},
        {section, "Locale", TypeLibraryLocale},
        {section, "Path", std::string(libraryPath)},
        {section, "FileVersion", LibraryFileVersion},
    };
    for (const ClassInfo* c : publicClasses()) addClass(out, *c, libraryPath, typeLibrary);
    return out;
}

void registerLibrary(IniDocument& file, std::string_view libraryPath) {
    for (const RegistrationEntry& e : registrationEntries(libraryPath)) {
        file.write(e.section, e.key, e.value);
    }
}

void unregisterLibrary(IniDocument& file) {
    // The entries' sections and keys do not depend on the path; their values do, and a
    // registration made from another place is taken out all the same.
    for (const RegistrationEntry& e : registrationEntries("")) file.removeKey(e.section, e.key);
}

}  // namespace corvex
