// The user's settings, in the system's preferences of this application, where the `defaults` command
// finds them: in a bundle under its identifier.
//
// Thread:  the main thread; writing may wait for the disk.
// Owner:   the program. All of them are one, and know of each other's writing.
// Errors:  none. What is of another kind is absent; what cannot be written holds until the program
//          ends.
#pragma once

#include "core/user_defaults.h"

namespace glidemap {

class Preferences : public UserDefaults {
public:
    std::optional<std::string> string(std::string_view key) const override;
    void setString(std::string_view key, std::string_view value) override;
    std::optional<bool> boolean(std::string_view key) const override;
    void setBoolean(std::string_view key, bool value) override;
};

} // namespace glidemap
