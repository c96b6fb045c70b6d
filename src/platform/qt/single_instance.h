// Sees to it that a user runs the program once: two would fight over the touchpads.
//
// Both files are in a folder that belongs to this user and that other users cannot open. No link is
// followed to it or in it, and both sides check which user is at the other end of the connection before
// anything is said.
//
//   first:   locks a file for as long as it lives, and listens on a socket beside it
//   second:  finds the file locked, asks through the socket that the first show itself, and ends
//
// The kernel lets go of the lock when a program ends, however it ends, so a killed one is in
// nobody's way; what it leaves behind is cleared by the next.
//
// Thread:  the main thread. claim() waits while another program starts, ends or answers; the rest
//          needs an event loop, and does not wait.
// Owner:   the program, until it has given everything back that a second one could want.
// Errors:  as answers; see Claim.
#pragma once

#include "core/open_file.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace glidemap {

class LineListener;

class SingleInstance {
public:
    enum class Claim {
        first,      // this is the program; there is no other
        shown,      // another one runs, and has come forward
        unanswered, // another one runs, and does not answer
        impossible, // the folder is not this user's, or nothing can be written there
    };

    // How the desktop knows that it was the user who wanted a window: what it gave the second
    // program goes to the first. Empty where it gave nothing.
    struct Request {
        std::string activationToken; // Wayland
        std::string startupID;       // X11

        friend bool operator==(const Request&, const Request&) = default;
    };

    static constexpr std::chrono::milliseconds usualPatience{5000};

    // The folder is made if it is missing. If other users can open it, a folder "glidemap" in it is
    // used instead.
    explicit SingleInstance(const std::filesystem::path& folder);
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    ~SingleInstance();

    Claim claim(const Request& request, std::chrono::milliseconds patience = usualPatience);

    // Only for the first. From now on `asked` is called for each later program. Answers why it cannot
    // be; nothing where it is. Without, it is still the only one, but no later one can have it come
    // forward.
    [[nodiscard]] std::optional<std::string> listen(std::function<void(const Request&)> asked);

    // A program that asks from now on waits for this one's end, and takes its place.
    void stopListening();

private:
    bool openLock();

    OpenFile folder; // not open unless it is this user's alone
    std::filesystem::path socketFile;
    OpenFile lock;
    std::unique_ptr<LineListener> listener;
};

} // namespace glidemap
