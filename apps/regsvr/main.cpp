// corvex-regsvr [-u] [LIBRARY]: registers (or with -u unregisters) an in-process server
// library by loading it and calling its DllRegisterServer (DllUnregisterServer). Without
// LIBRARY it takes libcorvex.so from its own folder. It knows nothing of the library's
// code: it goes through the exported C entry points only, as any host would.
#include <dlfcn.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace {

using EntryPoint = std::int32_t (*)();

constexpr int kFailed = 1;  // the entry point returned a failure code
constexpr int kUsage = 2;   // the command line was wrong
constexpr int kNoLoad = 3;  // the library or its entry point could not be found

int usage() {
    std::fputs(
        "usage: corvex-regsvr [-u] [LIBRARY]\n"
        "  registers LIBRARY (default: libcorvex.so beside this program);\n"
        "  -u unregisters it\n",
        stderr);
    return kUsage;
}

std::string besideThisProgram(std::string_view file) {
    std::error_code error;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) return std::string(file);
    return (self.parent_path() / file).string();
}

int run(const std::string& library, bool unregister) {
    const char* entry = unregister ? "DllUnregisterServer" : "DllRegisterServer";
    void* handle = dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        std::fprintf(stderr, "corvex-regsvr: cannot load %s: %s\n", library.c_str(), dlerror());
        return kNoLoad;
    }
    auto call = reinterpret_cast<EntryPoint>(dlsym(handle, entry));
    if (!call) {
        std::fprintf(stderr, "corvex-regsvr: %s has no %s\n", library.c_str(), entry);
        dlclose(handle);
        return kNoLoad;
    }
    const std::int32_t result = call();
    dlclose(handle);
    if (result < 0) {
        std::fprintf(stderr, "corvex-regsvr: %s in %s failed: 0x%08X\n", entry, library.c_str(),
                     static_cast<unsigned>(result));
        return kFailed;
    }
    std::printf("%s in %s succeeded.\n", entry, library.c_str());
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    bool unregister = false;
    std::string library;
    for (int i = 1; i < argc; ++i) {
        const std::string_view arg = argv[i];
        if (arg == "-u" || arg == "/u") {
            unregister = true;
        } else if (arg == "-h" || arg == "--help") {
            usage();
            return 0;
        } else if (!arg.empty() && arg[0] == '-') {
            return usage();
        } else if (library.empty()) {
            library = arg;
        } else {
            return usage();
        }
    }
    if (library.empty()) library = besideThisProgram("libcorvex.so");
    // dlopen searches the library path for a bare name; a file in the current folder is
    // meant when the user names one.
    if (library.find('/') == std::string::npos && std::filesystem::exists(library)) {
        library = "./" + library;
    }
    return run(library, unregister);
}
