// Ensures that only one instance runs per user: two would compete for the touchpads.
//
// The lock and the socket are in a folder of this user that other users cannot open. Links are
// never followed, and both sides check the peer's user id before they send anything.
//
//   first:   locks a file while it runs, and listens on a socket next to it
//   second:  finds the file locked, asks the first over the socket to show itself, and exits
//
// The kernel releases the lock when the process ends in any way, so a killed instance blocks no
// later one. The next instance removes its files.
//
// Thread:  the main thread. claim() blocks while another instance starts, exits or replies; the
//          rest needs an event loop and does not block.
// Owner:   the program, until it has released everything that a second instance may need.
// Errors:  as return values; see Claim.
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
        first,      // no other instance runs
        shown,      // another instance runs and has shown its window
        unanswered, // another instance runs and does not reply
        impossible, // the folder is not private, or cannot be written
    };

    // The desktop's proof that the user asked for a window. The second instance received it and
    // sends it to the first. Empty if the desktop provided none.
    struct Request {
        std::string activationToken; // Wayland
        std::string startupID;       // X11

        friend bool operator==(const Request&, const Request&) = default;
    };

    static constexpr std::chrono::milliseconds usualPatience{5000};

    // Creates the folder if it is missing. If other users can open it, a folder "glidemap" inside
    // it is used.
    explicit SingleInstance(const std::filesystem::path& folder);
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    ~SingleInstance();

    Claim claim(const Request& request, std::chrono::milliseconds patience = usualPatience);

    // Call only as the first instance. Calls `onRequest` for each later instance. Returns nullopt on
    // success, or an error message. After an error this remains the only instance, but later ones
    // cannot show its window.
    [[nodiscard]] std::optional<std::string> listen(std::function<void(const Request&)> onRequest);

    // After this, a new instance waits until this one exits and then takes over.
    void stopListening();

private:
    bool openLock();

    OpenFile folder; // open only if it is private to this user
    std::filesystem::path socketFile;
    OpenFile lock;
    std::unique_ptr<LineListener> listener;
};

} // namespace glidemap
