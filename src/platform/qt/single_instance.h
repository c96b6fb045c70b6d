// Ensures that only one instance runs per user, because two instances would compete for the
// touchpads.
//
// The lock and the socket are in a folder of this user that other users cannot open. The folder,
// the lock and the socket must not be symbolic links. Both processes check the peer's user id
// before they send anything.
//
//   first:   locks a file while it runs, and listens on a socket next to it
//   second:  finds the file locked, asks the first to show its window, and exits
//
// The kernel releases the lock when the process ends for any reason, so a killed instance does not
// block later ones. The next instance reuses the lock file and replaces the socket.
//
// Thread:  the main thread. claim() blocks while another instance starts, exits or replies; the
//          other functions need an event loop and do not block.
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
        unanswered, // another instance runs but does not reply
        impossible, // the folder is not private, or is not writable
    };

    // The desktop's activation data, which shows that the user requested a window. The second
    // instance receives it on launch and sends it to the first. Empty if the desktop provided none.
    struct Request {
        std::string activationToken; // Wayland
        std::string startupID;       // X11

        friend bool operator==(const Request&, const Request&) = default;
    };

    static constexpr std::chrono::milliseconds usualPatience{5000};

    // Creates the folder if it is missing. If other users can open `folder`, a folder "glidemap"
    // inside it is used instead.
    explicit SingleInstance(const std::filesystem::path& folder);
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    ~SingleInstance();

    Claim claim(const Request& request, std::chrono::milliseconds patience = usualPatience);

    // Must be called only by the first instance. `onRequest` is called for each later instance.
    // Returns nullopt on success, or an error message. After an error, this process still prevents
    // a second instance, but a second launch cannot make this process show its window.
    [[nodiscard]] std::optional<std::string> listen(std::function<void(const Request&)> onRequest);

    // Afterwards, a new instance waits until this process exits, and then takes over.
    void stopListening();

private:
    bool openLock();

    OpenFile folder; // open only if it is private to this user
    std::filesystem::path socketFile;
    OpenFile lock;
    std::unique_ptr<LineListener> listener;
};

} // namespace glidemap
