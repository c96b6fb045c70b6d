// Installs our extension into GNOME Shell on the user's request, and reports its state.
//
// A shell loads its extensions on startup, so a new extension works from the next login.
//
// Thread:  any, but one call at a time. Calls wait for the shell; if it hangs, for several seconds.
// Owner:   the desktop helper.
// Errors:  returned as messages to be shown to the user, mostly the system's own.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace glidemap {

class GnomeExtension {
public:
    enum class State {
        noShell,     // this is not GNOME, or the shell is still starting
        missing,     // can be installed
        atNextLogin, // installed, but the running shell has not loaded it
        off,         // the shell has loaded it but it is disabled
        on,
        failed, // the shell reports an error
    };

    struct Status {
        State state = State::noShell;
        std::string error;

        friend bool operator==(const Status&, const Status&) = default;
    };

    static constexpr const char* uuid = "glidemap@glidemap";

    // The folder of the extension's two versions, up-to-44 and from-45.
    explicit GnomeExtension(std::filesystem::path forms);

    Status status() const;

    // Copies the version for the running shell to the user's folder, and enables it. Returns
    // nullopt on success.
    std::optional<std::string> install() const;

private:
    std::filesystem::path forms;
};

} // namespace glidemap
