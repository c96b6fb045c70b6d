// Stores the user's settings in an INI file, which is written after each change, so that a crash
// loses nothing.
//
// A value reads the same before and after a restart: the file stores only text, and a boolean is
// exactly `true` or `false`. Other values, such as a manually written 1 or TRUE, are no booleans.
//
// Thread:  the main thread; blocks on the disk.
// Owner:   the program; one instance per file.
// Errors:  none. An unreadable value is absent; a value that cannot be written lasts until the
//          program exits.
#pragma once

#include "core/user_defaults.h"

#include <filesystem>
#include <memory>

class QSettings;

namespace glidemap {

class QtUserDefaults : public UserDefaults {
public:
    // glidemap/glidemap.ini in the user's configuration folder.
    static std::filesystem::path standardFile();

    explicit QtUserDefaults(const std::filesystem::path& file = standardFile());
    ~QtUserDefaults() override;

    std::optional<std::string> string(std::string_view key) const override;
    void setString(std::string_view key, std::string_view value) override;
    std::optional<bool> boolean(std::string_view key) const override;
    void setBoolean(std::string_view key, bool value) override;

private:
    std::unique_ptr<QSettings> settings;
};

} // namespace glidemap
