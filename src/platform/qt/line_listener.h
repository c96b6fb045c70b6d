// Listens on a Unix socket for other processes of this user. Each client sends one line and
// receives one line. QLocalServer is not used, because it needs the large QtNetwork library, which
// the rest of the program does not use.
//
// At most maxClients are connected at a time; a new client replaces the oldest. A client is
// disconnected after maxClientTime, or immediately if it sends too much or belongs to another user.
//
// Thread:  the main thread; needs an event loop, and does not block.
// Owner:   its creator. The destructor removes the file and closes all connections.
// Errors:  if the file cannot be created, failure() returns the reason and clients cannot connect.
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

    // Gets a line including its line end, and returns the reply.
    using Answer = std::function<std::string(const std::string& line)>;

    // If `socketFile` already exists, it is replaced.
    LineListener(std::filesystem::path socketFile, std::size_t maxLineLength, Answer answer,
                 std::chrono::milliseconds clientTime = maxClientTime);
    LineListener(const LineListener&) = delete;
    LineListener& operator=(const LineListener&) = delete;
    ~LineListener();

    // Returns the reason why the socket does not listen, or no error if it does.
    std::error_code failure() const { return _failure; }

private:
    class Client;

    std::error_code listen() const;
    void acceptClients();
    void makeRoom();

    const std::filesystem::path socketFile;
    const std::size_t maxLineLength; // in bytes, including the line end
    const Answer answer;
    const std::chrono::milliseconds clientTime;
    const OpenFile socket;
    const std::error_code _failure;
    QSocketNotifier arrivals;
    QTimer pause;    // the delay before the next accept() if descriptors or memory run out
    QObject clients; // owns the clients; the oldest is first
};

} // namespace glidemap
