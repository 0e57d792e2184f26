// INI files and the per-user settings store, as the settings control reaches them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvex {

/// The profile service: entries of INI files (file, section, key) and of the per-user
/// settings store (application, section, key), each holding one string.
class ProfileService {
public:
    virtual ~ProfileService() = default;
    /// The value of key in section of an INI file, or the default with its trailing
    /// blanks trimmed when the file, the section or the key is missing.
    virtual std::u16string readIni(std::u16string_view file, std::u16string_view section,
                                   std::u16string_view key, std::u16string_view defaultValue) = 0;
    /// Sets key in section of an INI file; a file that cannot be written is left as it was
    /// and the call returns quietly.
    virtual void writeIni(std::u16string_view file, std::u16string_view section,
                          std::u16string_view key, std::u16string_view value) = 0;
    /// The setting of an application; nullopt when there is none. Raises on a store that
    /// cannot be read.
    virtual std::optional<std::u16string> readSetting(std::u16string_view app,
                                                      std::u16string_view section,
                                                      std::u16string_view key) = 0;
    /// Stores a setting of an application. Raises when the store cannot be written.
    virtual void writeSetting(std::u16string_view app, std::u16string_view section,
                              std::u16string_view key, std::u16string_view value) = 0;
    /// Starts gathering the writes of a group operation (calls nest): each file is read
    /// once and written once, when the outermost batch ends.
    virtual void beginBatch() = 0;
    /// Ends a batch; the outermost end writes what was gathered.
    virtual void endBatch() = 0;
};

/// A batch of the profile service for as long as it lives.
class ProfileBatch {
public:
    /// Begins a batch on service.
    explicit ProfileBatch(ProfileService& service) : service_(service) { service_.beginBatch(); }
    /// Ends the batch.
    ~ProfileBatch() { service_.endBatch(); }
    ProfileBatch(const ProfileBatch&) = delete;
    ProfileBatch& operator=(const ProfileBatch&) = delete;

private:
    ProfileService& service_;
};

}  // namespace corvex
