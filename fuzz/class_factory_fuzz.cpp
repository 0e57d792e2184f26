// The class factory driven by arbitrary identifiers and calls: identifiers read as text or
// taken as raw bytes, mostly real ones, and a sequence of factory and instance calls.
// Whatever the order, a refusal leaves the out pointer empty, the reference counts never
// go wrong, and once everything handed out is released the library may unload.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "corvex/library/class_table.h"
#include "corvex/library/identifiers.h"
#include "corvex/library/server.h"
#include "fuzz_input.h"

namespace {

using corvex::Uuid;

// A real identifier most of the time (a class, one of its interfaces, a standard
// interface), otherwise sixteen raw bytes or whatever the text form reads as.
Uuid pickId(corvex::fuzz::Input& in) {
    const auto& classes = corvex::publicClasses();
    const std::uint8_t choice = in.byte();
    const corvex::ClassInfo& cls = *classes[in.byte() % classes.size()];
    const corvex::ClassIdentifiers ids = corvex::identifiersOf(cls);
    switch (choice % 8) {
        case 0:
        case 1:
            return ids.classId;
        case 2:
            return ids.interfaceId;
        case 3:
            return ids.eventInterfaceId;
        case 4:
            return corvex::classFactoryInterfaceId();
        case 5:
            return corvex::instanceInterfaceId();
        case 6: {
            Uuid raw;
            std::uint8_t bytes[16];
            for (std::uint8_t& b : bytes) b = in.byte();
            std::memcpy(&raw.data1, bytes, 4);
            std::memcpy(&raw.data2, bytes + 4, 2);
            std::memcpy(&raw.data3, bytes + 6, 2);
            std::memcpy(raw.data4.data(), bytes + 8, 8);
            return raw;
        }
        default: {
            std::string text;
            for (std::uint8_t n = in.byte() % 48; n > 0; --n) text += static_cast<char>(in.byte());
            return Uuid::parse(text).value_or(corvex::unknownInterfaceId());
        }
    }
}

void check(bool ok) {
    if (!ok) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    corvex::fuzz::Input in{data, size};
    std::vector<corvex::ClassFactory*> factories;
    std::vector<corvex::Unknown*> instances;
    std::int32_t locks = 0;
    while (in.more() && factories.size() + instances.size() < 64) {
        switch (in.byte() % 5) {
            case 0: {
                const Uuid clsid = pickId(in);
                const Uuid iid = pickId(in);
                void* out = &out;
                const corvex::HResult r = DllGetClassObject(&clsid, &iid, &out);
                check((r == corvex::S_OK) == (out != nullptr));
                if (r == corvex::S_OK) {
                    // Asked as Unknown or ClassFactory: both are the factory itself.
                    factories.push_back(static_cast<corvex::ClassFactory*>(out));
                }
                break;
            }
            case 1:
                if (!factories.empty()) {
                    const Uuid iid = pickId(in);
                    void* out = &out;
                    const corvex::HResult r = factories.back()->createInstance(
                        in.byte() % 4 == 0 ? factories.back() : nullptr, iid, &out);
                    check((r == corvex::S_OK) == (out != nullptr));
                    if (r == corvex::S_OK) instances.push_back(static_cast<corvex::Unknown*>(out));
                }
                break;
            case 2:
                if (!factories.empty()) {
                    const bool lock = in.byte() % 2 == 0;
                    const corvex::HResult r = factories.back()->lockServer(lock ? 1 : 0);
                    if (lock) ++locks;
                    check(r == (lock || locks > 0 ? corvex::S_OK : corvex::E_UNEXPECTED));
                    if (!lock && locks > 0) --locks;
                }
                break;
            case 3:
                if (!factories.empty()) {
                    check(factories.back()->release() == 0);
                    factories.pop_back();
                }
                break;
            default:
                if (!instances.empty()) {
                    check(instances.back()->release() == 0);
                    instances.pop_back();
                }
                break;
        }
        check(DllCanUnloadNow() == (factories.empty() && instances.empty() && locks == 0
                                        ? corvex::S_OK
                                        : corvex::S_FALSE));
    }
    // Locks outlive the factory they were taken through; any factory takes them back.
    if (locks > 0) {
        const Uuid clsid = corvex::identifiersOf(*corvex::publicClasses().front()).classId;
        void* out = nullptr;
        check(DllGetClassObject(&clsid, &corvex::classFactoryInterfaceId(), &out) == corvex::S_OK);
        factories.push_back(static_cast<corvex::ClassFactory*>(out));
        for (; locks > 0; --locks) check(factories.back()->lockServer(0) == corvex::S_OK);
    }
    for (corvex::ClassFactory* f : factories) f->release();
    for (corvex::Unknown* i : instances) i->release();
    check(DllCanUnloadNow() == corvex::S_OK);
    return 0;
}
