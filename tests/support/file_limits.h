// Files for tests: reading and writing them whole, and running a write under a file-size
// limit, as a full disk refuses bytes.
#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>

#include "corvex/posix/atomic_file.h"

namespace corvex::testing {

/// The whole content of a file ("" when it cannot be read).
inline std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
}

/// Writes a file whole, plainly (to set up a test).
inline void writeFile(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// While it lives, no file of this process may grow past limit bytes, and a write past it
/// fails with EFBIG instead of killing the process: the disk is full, as far as the code
/// under test can tell. The old limit and signal handling come back at the end.
class FileSizeLimit {
public:
    /// Limits files to limit bytes.
    explicit FileSizeLimit(rlim_t limit) {
        ::getrlimit(RLIMIT_FSIZE, &old_);
        oldSignal_ = std::signal(SIGXFSZ, SIG_IGN);
        rlimit lowered = old_;
        lowered.rlim_cur = limit;
        ::setrlimit(RLIMIT_FSIZE, &lowered);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, oldSignal_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit old_{};
    void (*oldSignal_)(int) = SIG_DFL;
};

/// What a write in a child process came to.
struct ChildWrite {
    bool written = false;  ///< the write reported success
    std::string message;   ///< the error's text when it failed
    int osError = 0;       ///< the error's errno when it failed
};

/// Writes bytes to path with the atomic write, in a child process whose files may not grow
/// past limit bytes (SIGXFSZ ignored), and tells what the write reported.
inline ChildWrite writeUnderFileSizeLimit(const std::string& path, const std::string& bytes,
                                          rlim_t limit) {
    int pipeEnds[2];
    if (::pipe(pipeEnds) != 0) return {false, "no pipe", errno};
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(pipeEnds[0]);
        int status = 0;
        std::string report;
        {
            FileSizeLimit full(limit);
            try {
                posix::writeFileAtomically(path, bytes);
            } catch (const posix::FileWriteError& e) {
                report = std::to_string(e.osError()) + " " + e.what();
                status = 1;
            }
        }
        if (::write(pipeEnds[1], report.data(), report.size()) < 0) status = 2;
        ::_exit(status);
    }
    ::close(pipeEnds[1]);
    std::string report;
    char buffer[512];
    for (ssize_t n; (n = ::read(pipeEnds[0], buffer, sizeof buffer)) > 0;)
        report.append(buffer, static_cast<std::size_t>(n));
    ::close(pipeEnds[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    ChildWrite result;
    result.written = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    if (!result.written) {
        const auto space = report.find(' ');
        result.osError = std::atoi(report.substr(0, space).c_str());
        result.message = space == std::string::npos ? report : report.substr(space + 1);
    }
    return result;
}

}  // namespace corvex::testing
