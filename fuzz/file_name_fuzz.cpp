// Feeds arbitrary UTF-16 names to the file-name rules: the syntax check, validation and
// the decomposition must never crash, and their answers must agree with one another.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "corvex/files/file_name_rules.h"
#include "fuzz_input.h"

using namespace corvex;
using namespace corvex::files;

namespace {

// Counts the boxes the rules show; nothing exists in its file system.
class CountingEnv : public FileNameEnv {
public:
    FileSystem& fileSystem() override { return emptyFileSystem(); }
    std::u16string messageText(int code) override { return messages().text(code, japanese); }
    void showMessage(const std::u16string& text, std::int32_t style, int) override {
        if (text.empty() || (style != 16 && style != 48)) std::abort();
        ++shown;
    }
    bool japanese = false;
    int shown = 0;
};

void checkSyntaxAgrees(const std::u16string& name, bool japanese) {
    CountingEnv loud;
    loud.japanese = japanese;
    CountingEnv quiet;
    const FileNameSettings shown{true, 0, invalidCharacters()};
    const FileNameSettings silent{false, 0, invalidCharacters()};
    const bool ok = checkSyntax(name, shown, loud);
    if (checkSyntax(name, silent, quiet) != ok || quiet.shown != 0) std::abort();
    // At most the five accumulated warnings and one that ends the check.
    if (loud.shown > 6 || (ok && loud.shown != 0) || (!ok && loud.shown == 0)) std::abort();
    const bool valid = validate(name, silent, quiet);
    if (valid != (name.empty() || ok)) std::abort();
    // With a mode, nothing exists: only an empty name stays valid.
    const FileNameSettings checked{false, 3, invalidCharacters()};
    if (validate(name, checked, quiet) != name.empty()) std::abort();
}

void checkPartsAgree(const std::u16string& t) {
    const std::u16string path = part(t, Part::Path);
    const std::u16string title = part(t, Part::Title);
    const std::u16string extension = part(t, Part::Extension);
    if (part(t, Part::Name) != t) std::abort();
    if (!path.empty() && !title.empty() && path + title != t) std::abort();
    if (title.empty() && t.find(u'\\') != std::u16string::npos && path + u"\\" != t) std::abort();
    if (!title.empty() && title[0] != u'\\') std::abort();
    if (!extension.empty() && part(t, Part::PathBody) + u"." + extension != t) std::abort();
    if (part(t, Part::Body) != stripExtension(title)) std::abort();
    const std::u16string drive = part(t, Part::Drive);
    if (t.find(u':') != std::u16string::npos && t.compare(0, drive.size() + 1, drive + u":") != 0)
        std::abort();
    if (shortName(t, emptyFileSystem()) != u"") std::abort();
    longName(t, emptyFileSystem());
}

void checkBlanks(const std::u16string& t) {
    if (processSpaces(t, 0).find(u' ') != std::u16string::npos) std::abort();
    if (processSpaces(t, 1).find(u"  ") != std::u16string::npos) std::abort();
    const std::u16string trimmed = processSpaces(t, 2);
    if (!trimmed.empty() && (trimmed.front() == u' ' || trimmed.back() == u' ')) std::abort();
    if (processSpaces(t, 3) != processSpaces(processSpaces(t, 3), 3)) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    corvex::fuzz::Input in{data, size};
    // Mostly the characters the rules care about, and any unit now and then.
    static const char16_t pool[] = u"C:\\\\ ..a|\"*?<>'/Z1_\\:c日";
    const bool japanese = in.byte() & 1;
    std::u16string name;
    while (in.more() && name.size() < 400) name += in.character(pool, 230);
    checkSyntaxAgrees(name, japanese);
    checkPartsAgree(name);
    checkBlanks(name);
    return 0;
}
