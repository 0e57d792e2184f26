// Feeds arbitrary text to the script interpreter in process, on a fresh headless host
// each time. Nothing may crash or hang, and the script ends with one of its two statuses.
#include <stdlib.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>

#include "corvex/script/interpreter.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Scripts of a few hundred lines are plenty to reach every command; longer inputs
    // would only slow the search down.
    if (size > 4096) return 0;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::ostringstream out;
    std::ostringstream diagnostics;
    int status = 0;
    {
        corvex::script::Interpreter interpreter(out, diagnostics);
        // A script may save settings: they stay in a folder of the fuzzer's own.
        static const std::string folder = [] {
            std::string pattern =
                (std::filesystem::temp_directory_path() / "corvex-script-fuzz-XXXXXX").string();
            return std::string(::mkdtemp(pattern.data()));
        }();
        interpreter.host().profiles().setFolders({folder + "/ini", folder + "/settings"});
        interpreter.host().profiles().setConfined(true);
        status = interpreter.run(text);
    }
    if (status != corvex::script::ExitOk && status != corvex::script::ExitParseError) std::abort();
    if ((status == corvex::script::ExitParseError) == diagnostics.str().empty()) std::abort();
    return 0;
}
