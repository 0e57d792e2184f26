// corvex-script: runs a script of the script protocol (a file given as the argument, or
// standard input) on a headless host and prints what happens, one line per happening.
#include <filesystem>
#include <fstream>
#include <iostream>

#include "corvex/common/object.h"
#include "corvex/library/server.h"
#include "corvex/script/interpreter.h"

namespace {

int runScript(int argc, char** argv) {
    corvex::script::Interpreter interpreter(std::cout, std::cerr);
    if (argc == 2) {
        // A folder opens as a stream that reads nothing: it must not pass for an empty script.
        std::error_code ec;
        if (std::filesystem::is_directory(argv[1], ec)) {
            std::cerr << "corvex-script: " << argv[1] << " is a folder, not a script\n";
            return corvex::script::ExitIoError;
        }
        std::ifstream file(argv[1], std::ios::binary);
        if (!file) {
            std::cerr << "corvex-script: cannot open " << argv[1] << "\n";
            return corvex::script::ExitIoError;
        }
        return interpreter.run(file);
    }
    return interpreter.run(std::cin);
}

}  // namespace

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    if (argc > 2) {
        std::cerr << "usage: corvex-script [SCRIPT]\n";
        return 1;
    }
    const int status = runScript(argc, argv);
    // Every form and object the script made has gone with the interpreter; whatever the
    // library still holds now was leaked.
    if (DllCanUnloadNow() != corvex::S_OK) {
        std::cerr << "corvex-script: the library cannot unload: " << corvex::Object::liveCount()
                  << " objects, " << corvex::liveServerObjects() << " factories or instances, "
                  << corvex::serverLocks() << " locks are still alive\n";
        return status == corvex::script::ExitOk ? corvex::script::ExitLeak : status;
    }
    return status;
}
