// The INI parser on arbitrary bytes: no crash, an unchanged file comes back byte for byte,
// writing one key changes one line (or adds the lines it needs) and reads back, and
// removing it leaves a document that reads as its own bytes do.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "corvex/library/ini_file.h"
#include "fuzz_input.h"

namespace {

// A name the file's syntax can hold: letters, digits and inner spaces.
std::string name(corvex::fuzz::Input& in) {
    static const char pool[] = "abcABC019 ";
    std::string out(1, 'n');
    for (int n = in.byte() % 6; n > 0; --n) out += pool[in.byte() % (sizeof pool - 1)];
    return out + "x";
}

std::vector<std::string> lines(const std::string& bytes) {
    std::vector<std::string> out;
    std::size_t start = 0;
    for (std::size_t lf; (lf = bytes.find('\n', start)) != std::string::npos; start = lf + 1) {
        out.push_back(bytes.substr(start, lf - start));
    }
    out.push_back(bytes.substr(start));
    return out;
}

void check(bool condition) {
    if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    corvex::fuzz::Input in{data, size};
    const std::string section = name(in);
    const std::string key = name(in);
    std::string value;
    for (int n = in.byte() % 8; n > 0; --n) value += static_cast<char>(in.byte());
    const std::string file(reinterpret_cast<const char*>(data) + in.pos, size - in.pos);

    corvex::IniDocument doc(file);
    check(doc.bytes() == file);
    doc.find(section, key);
    doc.write(section, key, value);
    const std::string after = doc.bytes();

    // Every line but one stays: what differs between the common start and end of the two
    // files is at most one old line.
    const std::vector<std::string> a = lines(file);
    const std::vector<std::string> b = lines(after);
    std::size_t front = 0;
    while (front < a.size() && front < b.size() && a[front] == b[front]) ++front;
    std::size_t back = 0;
    while (back + front < a.size() && back + front < b.size() &&
           a[a.size() - 1 - back] == b[b.size() - 1 - back]) {
        ++back;
    }
    check(a.size() - front - back <= 1);

    // The file read again holds the value as one line of it reads.
    const corvex::IniDocument reread(after);
    corvex::IniDocument alone;
    alone.write("s", "k", value);
    check(reread.find(section, key) == corvex::IniDocument(alone.bytes()).find("s", "k"));

    doc.removeKey(section, key);
    check(doc.find(section, key) == corvex::IniDocument(doc.bytes()).find(section, key));

    return 0;
}
