// Registering the library into an arbitrary registration file and unregistering it again:
// no crash, and a file that ends its last line gets every byte back (one that does not
// gains the line break the first added section needs, as documented).
#include <cstdint>
#include <cstdlib>
#include <string>

#include "corvex/library/ini_file.h"
#include "corvex/library/registration.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string file(reinterpret_cast<const char*>(data), size);
    corvex::IniDocument registry(file);
    corvex::registerLibrary(registry, "/usr/lib/libcorvex.so");
    corvex::unregisterLibrary(registry);
    if ((file.empty() || file.back() == '\n') && registry.bytes() != file) std::abort();
    return 0;
}
