#include "corvex/files/file_name_rules.h"

#include <array>
#include <vector>

#include "corvex/common/text.h"
#include "corvex/platform/message_box.h"

namespace corvex::files {

namespace {

// The spellings, the odd grammar and the missing blank of 1012 are what users of the
// library have always seen; they stay letter for letter.
std::vector<MessageText> ownMessages() {
    return {
        {code::TooLong, u"文字数が255を越えています", u"Number of characters more than 255."},
        {code::BadCharacter, u"ファイル名として不正な文字が含まれています",
         u"Irregal character included in file name."},
        {code::NotForWindows, u"Windowsで使用できない文字", u"Not allowed characters for Windows"},
        {code::BackslashRun, u"\\ が3つ以上連続しています", u"More than two '\\' connect."},
        {code::Colons, u":が2つ以上含まれています", u"Included more than one ':'."},
        {code::NoRootAfterDrive, u"ドライブ名の直後が\\\u3000でありません",
         u"Tha character just after drive name is not '\\'."},
        {code::BlankElement, u"ファイル名に不正な空白が含まれています",
         u"Irregal spaces included in file name."},
        {code::SelectFolder, u"フォルダを選択して下さい", u"Select a folder."},
        {code::SelectFile, u"ファイルを選択して下さい", u"Select a file."},
        {code::NotFound, u"ファイルまたはフォルダが存在しません", u"File or folder not found."},
        {code::NoAttributes, u"有効なファイルまたはフォルダ名を指定して下さい",
         u"Enter valid file or folder name."},
        {code::UncWithDrive, u"UNC名が指定されています。ドライブ名は含めないで下さい",
         u"UNC name is given.Not give drive name."},
        {code::DriveNotLetter, u"ドライブ名がアルファベットでありません",
         u"Drive name is not alphabetical."},
    };
}

constexpr std::int32_t kCritical = mb::OkOnly + mb::Critical;
constexpr std::int32_t kExclamation = mb::OkOnly + mb::Exclamation;
// Folders that carry no other attribute than archive; anything else is taken for a file.
constexpr std::int32_t kPlainFolder = fileattr::Directory;
constexpr std::int32_t kArchivedFolder = fileattr::Directory + fileattr::Archive;
// The existence lookup sees hidden and system entries and folders, as the long-name walk.
constexpr std::int32_t kLookupMask = fileattr::Hidden + fileattr::System + fileattr::Directory;
constexpr std::size_t kMaxLength = 255;
constexpr std::size_t kShortBuffer = 260;

// Shows a warning only when the control's settings allow it.
void warn(const FileNameSettings& s, FileNameEnv& env, int text, int title,
          std::int32_t style = kCritical) {
    if (s.messageShow) env.showMessage(env.messageText(text), style, title);
}

void checkInvalidCharacters(std::u16string_view name, const FileNameSettings& s, FileNameEnv& env,
                            bool& ok) {
    if (s.invalidChars.empty()) return;
    if (name.find_first_of(s.invalidChars) == std::u16string_view::npos) return;
    ok = false;
    if (!s.messageShow) return;
    const std::u16string text = env.messageText(code::BadCharacter) + u'\r' +
                                env.messageText(code::NotForWindows) + u"   " + s.invalidChars;
    env.showMessage(text, kCritical, msg::Warning);
}

void checkColons(std::u16string_view name, const FileNameSettings& s, FileNameEnv& env, bool& ok) {
    std::size_t colons = 0;
    for (char16_t c : name) colons += c == u':';
    if (colons >= 2) {
        ok = false;
        warn(s, env, code::Colons, msg::Warning);
    } else if (colons == 1 && name.find(u":\\") == std::u16string_view::npos) {
        ok = false;
        warn(s, env, code::NoRootAfterDrive, msg::Warning);
    }
}

// The checks that always all run, so that one call may show several boxes in turn.
bool accumulatedChecks(std::u16string_view name, const FileNameSettings& s, FileNameEnv& env) {
    bool ok = true;
    if (name.size() > kMaxLength) {
        ok = false;
        warn(s, env, code::TooLong, msg::Error);
    }
    checkInvalidCharacters(name, s, env, ok);
    if (name.find(u"\\\\\\") != std::u16string_view::npos) {
        ok = false;
        warn(s, env, code::BackslashRun, msg::Warning);
    }
    checkColons(name, s, env, ok);
    if (processSpaces(name, 1).find(u"\\ \\") != std::u16string::npos) {
        ok = false;
        warn(s, env, code::BlankElement, msg::Warning);
    }
    return ok;
}

bool stop(const FileNameSettings& s, FileNameEnv& env, int text) {
    warn(s, env, text, msg::Warning);
    return false;
}

}  // namespace

const MessageTable& messages() {
    static const MessageTable table(ownMessages(), undefinedWithStop());
    return table;
}

std::u16string invalidCharacters() {
    return u"/<>?|*'\"";
}

bool checkSyntax(std::u16string_view name, const FileNameSettings& s, FileNameEnv& env) {
    const bool ok = accumulatedChecks(name, s, env);
    // An empty name has no first character to judge; the control never checks one.
    if (name.empty()) return ok;
    const char16_t first = asciiUpper(name.substr(0, 1))[0];
    if (first >= u'A' && first <= u'Z') return ok;
    if (first != u'\\') return stop(s, env, code::DriveNotLetter);
    if (name.size() < 3) return stop(s, env, code::NoRootAfterDrive);
    if (name[1] == u'\\') {
        if (name.find(u':') == std::u16string_view::npos) return ok;
        return stop(s, env, code::UncWithDrive);
    }
    return stop(s, env, code::NoRootAfterDrive);
}

std::int16_t checkExistence(std::u16string_view name, const FileNameSettings& s, FileNameEnv& env) {
    if (name.empty()) return kind::Empty;
    FileSystem& fs = env.fileSystem();
    if (!fs.findFirst(name, kLookupMask)) {
        warn(s, env, code::NotFound, msg::Warning);
        return kind::Unusable;
    }
    std::optional<std::int32_t> attributes = fs.attributes(name);
    if (!attributes) {
        warn(s, env, code::NoAttributes, msg::Warning);
        return kind::Unusable;
    }
    std::int32_t word = *attributes;
    if (word >= fileattr::Compressed) word -= fileattr::Compressed;
    return word == kPlainFolder || word == kArchivedFolder ? kind::Folder : kind::File;
}

bool validate(std::u16string_view text, const FileNameSettings& s, FileNameEnv& env) {
    bool ok = true;
    if (!text.empty()) ok = checkSyntax(text, s, env);
    if (!ok || s.mode < 1) return ok;
    const std::int16_t found = checkExistence(text, s, env);
    if (found == kind::Unusable) return false;
    if (found == kind::File && s.mode == 2) {
        warn(s, env, code::SelectFolder, msg::Caution, kExclamation);
        return false;
    }
    if (found == kind::Folder && s.mode == 1) {
        warn(s, env, code::SelectFile, msg::Caution, kExclamation);
        return false;
    }
    return true;
}

std::u16string processSpaces(std::u16string_view text, std::int16_t how) {
    const auto first = text.find_first_not_of(u' ');
    const auto last = text.find_last_not_of(u' ');
    switch (how) {
        case 0: {
            std::u16string out;
            for (char16_t c : text)
                if (c != u' ') out += c;
            return out;
        }
        case 1: {
            std::u16string out;
            for (char16_t c : text)
                if (c != u' ' || out.empty() || out.back() != u' ') out += c;
            return out;
        }
        case 2:
            return first == std::u16string_view::npos
                       ? std::u16string()
                       : std::u16string(text.substr(first, last - first + 1));
        case 3:
            return first == std::u16string_view::npos ? std::u16string()
                                                      : std::u16string(text.substr(first));
        case 4:
            return last == std::u16string_view::npos ? std::u16string()
                                                     : std::u16string(text.substr(0, last + 1));
        default:
            return {};
    }
}

std::u16string stripExtension(std::u16string_view text) {
    const std::int32_t dot = lastPosition(text, u'.');
    if (dot == 0) return std::u16string(text);
    return std::u16string(text.substr(0, dot - 1));
}

std::int32_t lastPosition(std::u16string_view text, char16_t ch) {
    const auto p = text.rfind(ch);
    return p == std::u16string_view::npos ? 0 : static_cast<std::int32_t>(p + 1);
}

std::int32_t lastCharPosition(std::u16string_view text, char16_t ch, const FileNameSettings& s,
                              FileNameEnv& env) {
    if (!validate(text, s, env) || text.empty()) return 0;
    return lastPosition(text, ch);
}

std::u16string part(std::u16string_view text, Part which) {
    const std::int32_t slash = lastPosition(text, u'\\');
    const std::int32_t dot = lastPosition(text, u'.');
    switch (which) {
        case Part::Name:
            return std::u16string(text);
        case Part::Drive: {
            const auto colon = text.find(u':');
            return colon == std::u16string_view::npos ? std::u16string()
                                                      : std::u16string(text.substr(0, colon));
        }
        case Part::Path:
            return slash == 0 ? std::u16string() : std::u16string(text.substr(0, slash - 1));
        case Part::Title: {
            if (slash == 0) return {};
            std::u16string title(text.substr(slash - 1));
            return title == u"\\" ? std::u16string() : title;
        }
        case Part::Extension:
            return dot == 0 ? std::u16string() : std::u16string(text.substr(dot));
        case Part::PathBody:
            return stripExtension(text);
        case Part::Body:
            return stripExtension(part(text, Part::Title));
    }
    return {};
}

std::u16string shortName(std::u16string_view text, FileSystem& fs) {
    // The call writes into a fixed 260-character buffer; one too small for the answer is
    // handed back as it was, without a second call.
    std::array<char, kShortBuffer> buffer{};
    const std::uint32_t n = fs.shortPathName(toUtf8(text), buffer);
    if (n == 0) return {};
    const std::size_t used = n > kShortBuffer ? kShortBuffer : n;
    return fromUtf8(std::string_view(buffer.data(), used));
}

std::u16string longName(std::u16string_view text, FileSystem& fs) {
    const std::u16string s = std::u16string(text) + u'\\';
    std::u16string accumulated;
    // The walk starts past a drive prefix such as C:\ (position 4, counted from 1).
    std::size_t p = s.find(u'\\', 3);
    while (p != std::u16string::npos) {
        const std::optional<std::u16string> stored = fs.findFirst(s.substr(0, p), kLookupMask);
        if (!stored) return {};
        accumulated += u'\\' + *stored;
        p = s.find(u'\\', p + 1);
    }
    return s.substr(0, 2) + accumulated;
}

}  // namespace corvex::files
