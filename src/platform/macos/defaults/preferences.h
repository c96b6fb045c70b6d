// Stores the user's settings in the preferences of this application, which the `defaults` command
// can also read and write. The domain of a bundle is its identifier.
//
// Thread:  the main thread; writing may block on the disk.
// Owner:   the program. All instances share one store and see each other's changes.
// Errors:  none. A value of the wrong type counts as missing. A value that cannot be written is
//          lost when the program exits.
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
