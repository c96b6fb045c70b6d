// A socket in the file system on which other programs of this user say one line each, and get one
// back. The toolkit's own class for it is in its network library, which is large, and which nothing
// else in the program needs.
//
// At most maxClients are connected at a time: a new one takes the place of the oldest. Each is hung up
// on after maxTime, and at once if it says too much or belongs to another user.
//
// Thread:  the main thread; needs an event loop, and does not wait.
// Owner:   its creator. Destroying it removes the file and closes all connections.
// Errors:  if the file cannot be made, failure() has the reason and no client is heard.
#pragma once

#include "core/open_file.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <system_error>

namespace glidemap {

class LineListener {
public:
    static constexpr std::size_t maxClients = 16;
    static constexpr std::chrono::milliseconds maxTime{5000};

    // Given a line with its end, what is to be said back.
    using Answer = std::function<std::string(const std::string& line)>;

    // A file that is there already is replaced.
    LineListener(std::filesystem::path file, std::size_t longestLine, Answer answer,
                 std::chrono::milliseconds timeOfAClient = maxTime);
    LineListener(const LineListener&) = delete;
    LineListener& operator=(const LineListener&) = delete;
    ~LineListener();

    // Why nobody is heard; nothing where all are.
    std::error_code failure() const { return _failure; }

private:
    class Client;

    std::error_code listen() const;
    void letIn();
    void makeRoom();

    const std::filesystem::path socketFile;
    const std::size_t longest;
    const Answer answer;
    const std::chrono::milliseconds clientTime;
    const OpenFile socket;
    const std::error_code _failure;
    QSocketNotifier arrivals;
    QTimer pause;    // without descriptors, before the next attempt to accept
    QObject clients; // owns them, the oldest first
};

} // namespace glidemap
