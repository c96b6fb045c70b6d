// Listens on a Unix socket for other processes of this user; each client sends one line and
// receives one line. QLocalServer could do this, too, but needs the large QtNetwork library, which
// no other code in the program uses.
//
// At most maxClients are connected at a time: a new client replaces the oldest. A client is
// disconnected after maxClientTime, and at once if it sends too much or belongs to another user.
//
// Thread:  the main thread; needs an event loop, and does not block.
// Owner:   its creator. The destructor removes the file and closes all connections.
// Errors:  if the file cannot be created, failure() returns the reason and no client is served.
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
    static constexpr std::chrono::milliseconds maxClientTime{5000};

    // Takes a line with its line end and returns the reply.
    using Answer = std::function<std::string(const std::string& line)>;

    // Replaces an existing file.
    LineListener(std::filesystem::path socketFile, std::size_t maxLineLength, Answer answer,
                 std::chrono::milliseconds clientTime = maxClientTime);
    LineListener(const LineListener&) = delete;
    LineListener& operator=(const LineListener&) = delete;
    ~LineListener();

    // The reason why the socket does not listen; no error if it does.
    std::error_code failure() const { return _failure; }

private:
    class Client;

    std::error_code listen() const;
    void acceptClients();
    void makeRoom();

    const std::filesystem::path socketFile;
    const std::size_t maxLineLength; // in bytes, with the line end
    const Answer answer;
    const std::chrono::milliseconds clientTime;
    const OpenFile socket;
    const std::error_code _failure;
    QSocketNotifier arrivals;
    QTimer pause;    // before the next accept(), when descriptors have run out
    QObject clients; // owns them, the oldest first
};

} // namespace glidemap
