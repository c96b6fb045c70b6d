// Installs our extension into GNOME Shell when the user requests it, and reports its state.
//
// The shell loads extensions on startup, so a newly installed extension works only after the next
// login.
//
// Thread:  any, but only one call at a time. Calls block until the shell replies, or for several
//          seconds if it is stuck.
// Owner:   the desktop helper.
// Errors:  returned as messages for the user, most of them from the system.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace glidemap {

class GnomeExtension {
public:
    enum class State {
        noShell,     // the desktop is not GNOME, or the shell is still starting
        missing,     // the shell has not loaded the extension, and will not at the next login
        atNextLogin, // the shell has not loaded the extension, but will at the next login
        off,         // loaded by the shell, but disabled
        on,
        failed, // the shell reports an error
    };

    struct Status {
        State state = State::noShell;
        std::string error;

        friend bool operator==(const Status&, const Status&) = default;
    };

    static constexpr const char* uuid = "glidemap@glidemap";

    // `forms` is the folder that contains the two versions of the extension, up-to-44 and from-45.
    explicit GnomeExtension(std::filesystem::path forms);

    Status status() const;

    // Copies the version for the running shell to the user's folder, and enables it. Returns
    // nullopt on success, or an error message.
    std::optional<std::string> install() const;

private:
    std::filesystem::path forms;
};

} // namespace glidemap
