// The script host's interpreter: runs the script protocol's commands, one line at a time,
// against a headless host of its own, and prints what happens as it happens. It knows
// the library's classes only through the class table and their member tables.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "corvex/common/variant.h"
#include "corvex/headless/host.h"
#include "corvex/posix/file_system.h"

namespace corvex::script {

/// Exit status of a script that ran to its end.
inline constexpr int ExitOk = 0;
/// Exit status when the script cannot be read or the output cannot be written.
inline constexpr int ExitIoError = 1;
/// Exit status of a script stopped at a line that cannot be parsed.
inline constexpr int ExitParseError = 2;
/// Exit status when objects of the library are still alive after the script: a leak.
inline constexpr int ExitLeak = 3;

/// Runs script lines. Output lines go to out; parse errors ("line N: message") go to
/// diagnostics. After a parse error every later line is refused.
class Interpreter : private headless::HostObserver {
public:
    /// Whether a line was taken or the script must stop.
    enum class Status { Ok, ParseError };

    /// An interpreter with a fresh host (locale 1033, run mode) and an empty form.
    Interpreter(std::ostream& out, std::ostream& diagnostics);
    ~Interpreter() override;
    Interpreter(const Interpreter&) = delete;
    Interpreter& operator=(const Interpreter&) = delete;

    /// Parses and runs the next line (UTF-8, without its line break; a trailing CR is
    /// dropped). Runtime failures print an error line and return Ok.
    Status feedLine(std::string_view line);
    /// Ends the script: a load block without its end is a parse error.
    Status finish();
    /// Runs a whole script from text; returns ExitOk or ExitParseError.
    int run(std::string_view text);
    /// Runs a whole script from a stream, flushing the output after each line. Returns
    /// ExitIoError, with a message on diagnostics, when the stream cannot be read or the
    /// output cannot be written (the script stops there).
    int run(std::istream& in);

    /// The host the controls live on.
    headless::Host& host() { return host_; }
    /// The form the script's controls are placed on.
    headless::HeadlessForm& form() { return form_; }

private:
    // A literal argument, or the bare name of a control resolved when the line runs.
    struct Operand {
        Variant value;
        std::u16string name;
        bool isName = false;
    };
    // The entries of a load block, gathered up to its end line.
    struct PendingLoad {
        std::u16string className;
        ControlName name;
        int line = 0;
        std::vector<std::pair<std::u16string, Operand>> entries;
        std::unordered_map<std::u16string, std::size_t> positions;  // folded name -> entry
    };
    // The protocol's commands, one table row each, and their handlers.
    struct Command;
    struct Commands;

    void parseAndRun(std::string_view line);
    void parseLoadLine(const std::vector<std::string_view>& tokens);
    void runLoad(const PendingLoad& load);
    template <class F>
    void execute(F&& action);

    Operand operand(std::string_view token) const;
    Variant evaluate(const Operand& op) const;
    headless::Site& site(const ControlName& name) const;
    headless::Site* findSite(const ControlName& name) const;
    void print(const std::string& line);
    /// A dropped path as the control receives it: native paths named through the drives.
    std::u16string dropped(const std::u16string& path) const;

    // HostObserver
    void messageBoxShown(const MessageBoxRequest& request) override;
    void eventRaised(headless::Site& site, const EventInfo& event,
                     std::span<const Variant> args) override;
    void propertyChanged(headless::Site& site, std::u16string_view name) override;
    void focusTaken(headless::Site& site) override;

    std::ostream& out_;
    std::ostream& diagnostics_;
    posix::PosixFileSystem files_;  // names are looked up on this machine, by the user's drives
    headless::Host host_;
    headless::HeadlessForm form_;
    int lineNumber_ = 0;
    bool stopped_ = false;
    std::optional<PendingLoad> pending_;
};

/// What a whole script printed and how it ended.
struct ScriptResult {
    int status = ExitOk;      ///< ExitOk or ExitParseError
    std::string output;       ///< the output lines, each ended by '\n'
    std::string diagnostics;  ///< the parse error message, if any
};

/// Runs a script from text on a fresh interpreter.
ScriptResult runScript(std::string_view text);

}  // namespace corvex::script
