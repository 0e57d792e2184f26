// libcorvex.so is the core and the POSIX services linked whole; its entry points are
// defined beside the code they serve (library/server.cpp, the registration file). This
// file gives the shared library a source of its own and checks that the entry points keep
// the signatures hosts load them by.
#include <type_traits>

#include "corvex/library/server.h"

static_assert(
    std::is_same_v<decltype(&DllGetClassObject),
                   corvex::HResult (*)(const corvex::Uuid*, const corvex::Uuid*, void**)>);
static_assert(std::is_same_v<decltype(&DllCanUnloadNow), corvex::HResult (*)()>);
static_assert(std::is_same_v<decltype(&DllRegisterServer), corvex::HResult (*)()>);
static_assert(std::is_same_v<decltype(&DllUnregisterServer), corvex::HResult (*)()>);
