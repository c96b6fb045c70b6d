// Stores the user's settings in an INI file. The file is written after each change, so that a crash
// loses no setting.
//
// A setting has the same value before and after a restart. The file stores only text, and booleans
// are stored as `true` or `false`. Other values, such as 1 or TRUE written by hand, are not
// booleans.
//
// Thread:  the main thread; blocks on the disk.
// Owner:   the program; one instance per file.
// Errors:  none. An unreadable value counts as missing. A value that cannot be written is lost when
//          the program exits.
#pragma once

#include "core/user_defaults.h"

#include <filesystem>
#include <memory>

class QSettings;

namespace glidemap {

class QtUserDefaults : public UserDefaults {
public:
    // Returns the path of glidemap/glidemap.ini in the user's configuration folder.
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
