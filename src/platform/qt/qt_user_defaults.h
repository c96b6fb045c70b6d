// The user's settings in one INI file, written whenever one changes, so that a crash loses nothing.
//
// Text reads the same before and after a restart: the file knows nothing but text, and a boolean is
// exactly `true` or `false` there. Everything else, such as 1 or TRUE written by hand, is none.
//
// Thread:  the main thread; blocks for as long as the disk does.
// Owner:   the program; one for each file.
// Errors:  none. What cannot be read is absent; what cannot be written holds until the program ends.
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
