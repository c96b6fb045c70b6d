// Puts our extension into GNOME Shell when the user asks for it, and tells how it stands with it.
//
// A shell reads its extensions when it starts: one that was just copied works from the next login.
//
// Thread:  any, but one at a time; waits for the shell, a few seconds if that is stuck.
// Owner:   whoever offers it to the user.
// Errors:  as text for the user, in the system's words.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace glidemap {

class GnomeExtension {
public:
    enum class State {
        noShell,     // this is not GNOME, or it is still starting
        missing,     // it could be installed
        atNextLogin, // installed, and the shell has not seen it yet
        off,         // the shell knows it and does not run it
        on,
        failed, // the shell cannot run it: see the error
    };

    struct Status {
        State state = State::noShell;
        std::string error;

        friend bool operator==(const Status&, const Status&) = default;
    };

    static constexpr const char* uuid = "glidemap@glidemap";

    // Where the program keeps the forms of the extension: a folder with up-to-44 and from-45.
    explicit GnomeExtension(std::filesystem::path forms);

    Status status() const;

    // Copies the form that suits the running shell for this user, and has it enabled. None if all
    // went well.
    std::optional<std::string> install() const;

private:
    std::filesystem::path forms;
};

} // namespace glidemap
