#include "corvex/posix/registration_file.h"

#include <dlfcn.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>

#include "corvex/library/ini_file.h"
#include "corvex/library/registration.h"
#include "corvex/library/server.h"
#include "corvex/posix/atomic_file.h"

namespace corvex::posix {

namespace {

std::string nonEmptyEnv(const char* name) {
    const char* value = std::getenv(name);
    return value ? std::string(value) : std::string();
}

// The file's bytes; nothing when there is no file, which registration treats as empty.
std::optional<std::string> readExisting(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::exists(path, error)) {
        if (error) throw FileWriteError(path, "stat", error.value());
        return std::nullopt;
    }
    if (std::filesystem::is_directory(path, error)) throw FileWriteError(path, "read", EISDIR);
    std::ifstream file(path, std::ios::binary);
    if (!file) throw FileWriteError(path, "open", errno);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    if (file.bad()) throw FileWriteError(path, "read", errno);
    return bytes.str();
}

void makeFolderOf(const std::string& path) {
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    if (folder.empty()) return;
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) throw FileWriteError(path, "mkdir", error.value());
}

}  // namespace

std::string registrationFilePath() {
    if (std::string path = nonEmptyEnv("CORVEX_REGISTRATION_FILE"); !path.empty()) return path;
    std::string config = nonEmptyEnv("XDG_CONFIG_HOME");
    if (config.empty()) {
        const std::string home = nonEmptyEnv("HOME");
        if (home.empty()) throw FileWriteError("registrations.ini", "find the home folder", 0);
        config = home + "/.config";
    }
    return config + "/corvex/registrations.ini";
}

bool registerInFile(const std::string& path, std::string_view libraryPath) {
    const std::optional<std::string> before = readExisting(path);
    IniDocument file(before.value_or(std::string()));
    registerLibrary(file, libraryPath);
    const std::string after = file.bytes();
    if (before && after == *before) return false;
    makeFolderOf(path);
    writeFileAtomically(path, after);
    return true;
}

bool unregisterFromFile(const std::string& path) {
    const std::optional<std::string> before = readExisting(path);
    if (!before) return false;
    IniDocument file(*before);
    unregisterLibrary(file);
    const std::string after = file.bytes();
    if (after == *before) return false;
    writeFileAtomically(path, after);
    return true;
}

std::string libraryFilePath() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&DllRegisterServer), &info) == 0 || !info.dli_fname) {
        throw FileWriteError("libcorvex", "find the library's file", 0);
    }
    std::error_code error;
    const std::filesystem::path path = std::filesystem::canonical(info.dli_fname, error);
    return error ? std::string(info.dli_fname) : path.string();
}

}  // namespace corvex::posix

namespace {

// The entry points hand a failure over as a result code; what failed goes to the standard
// error, which is where a registration tool shows it.
template <class Step>
corvex::HResult selfRegistration(Step step) {
    try {
        step(corvex::posix::registrationFilePath());
        return corvex::S_OK;
    } catch (const std::exception& e) {
        std::fputs(e.what(), stderr);
        std::fputc('\n', stderr);
        return corvex::SELFREG_E_CLASS;
    }
}

}  // namespace

extern "C" corvex::HResult DllRegisterServer() {
    return selfRegistration([](const std::string& path) {
        corvex::posix::registerInFile(path, corvex::posix::libraryFilePath());
    });
}

extern "C" corvex::HResult DllUnregisterServer() {
    return selfRegistration(
        [](const std::string& path) { corvex::posix::unregisterFromFile(path); });
}
