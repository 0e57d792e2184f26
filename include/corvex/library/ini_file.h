// The rules of an INI file as the Windows profile service reads and changes it, on the
// file's bytes alone (no file system), so that one file works on Windows and here.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvex {

/// An INI file's content, every original line kept byte for byte. Section and key names
/// match without regard to ASCII case, with spaces and tabs around them ignored; a value
/// loses the blanks around it and one pair of matching quotes; a line whose first
/// non-blank character is ";" is a comment; the first of duplicate sections and keys wins.
class IniDocument {
public:
    /// An empty file.
    IniDocument();
    /// The file made of bytes (UTF-8; a byte-order mark and each line's ending are kept).
    explicit IniDocument(std::string_view bytes);
    ~IniDocument();
    /// A copy of another document.
    IniDocument(const IniDocument& other);
    /// Becomes a copy of another document.
    IniDocument& operator=(const IniDocument& other);

    /// The value of key in section; nullopt when the section or the key is missing.
    std::optional<std::string> find(std::string_view section, std::string_view key) const;
    /// The value of key in section, or the default (its trailing blanks trimmed).
    std::string read(std::string_view section, std::string_view key,
                     std::string_view defaultValue) const;
    /// Sets key in section to value, changing one line only: an existing entry's value is
    /// replaced, a new key goes at the end of its section, a new section at the end of the
    /// file. Names and value end at their first line break or NUL, as one line holds them.
    void write(std::string_view section, std::string_view key, std::string_view value);
    /// Removes key from section (the first entry, as reads find it); the section goes too
    /// when nothing but blank lines is left in it. Returns whether an entry was removed.
    bool removeKey(std::string_view section, std::string_view key);
    /// The file's bytes as they now are.
    std::string bytes() const;
    /// The number of lines (the last one counts even when it has no line ending).
    std::size_t lineCount() const;

private:
    struct Private;
    std::unique_ptr<Private> const d;
};

/// The default of a read as the service gives it back: trailing spaces and tabs trimmed.
std::string iniDefault(std::string_view defaultValue);

/// Text cut to at most maxBytes bytes of UTF-8, never in the middle of a character.
std::string cutUtf8(std::string_view text, std::size_t maxBytes);

}  // namespace corvex
