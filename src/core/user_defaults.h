// Port: the user's simple settings (strings and booleans), which persist across launches.
//
// Thread:  the main thread.
// Errors:  none are reported. A value that cannot be read counts as absent; a failed write is lost.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

class UserDefaults {
public:
    UserDefaults() = default;
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;
    virtual ~UserDefaults() = default;

    virtual std::optional<std::string> string(std::string_view key) const = 0;
    virtual void setString(std::string_view key, std::string_view value) = 0;

    // Returns nullopt if the value is missing or not a boolean.
    virtual std::optional<bool> boolean(std::string_view key) const = 0;
    virtual void setBoolean(std::string_view key, bool value) = 0;
};

} // namespace glidemap
