// A socket in the file system on which other programs of this user say one line each, and get one
// back. The toolkit's own class for it is in its network library, which is large, and which nothing
// else in the program needs.
//
// Thread:  the main thread; needs an event loop, and does not wait.
// Owner:   whoever listens. Destroying it removes the file and hangs up on everybody.
// Errors:  where the file cannot be made nobody is heard, and failure() says why. Who says too much is hung up on.
#pragma once

#include "core/open_file.h"

#include <QObject>
#include <QSocketNotifier>
#include <filesystem>
#include <functional>
#include <string>
#include <system_error>

namespace glidemap {

class LineListener {
public:
    // Given a line with its end, what is to be said back.
    using Answer = std::function<std::string(const std::string& line)>;

    // A file that is there already is replaced.
    LineListener(std::filesystem::path file, std::size_t longestLine, Answer answer);
    LineListener(const LineListener&) = delete;
    LineListener& operator=(const LineListener&) = delete;
    ~LineListener();

    // Why nobody is heard; nothing where all are.
    std::error_code failure() const { return _failure; }

private:
    class Client;

    std::error_code listen() const;
    void letIn();

    const std::filesystem::path socketFile;
    const std::size_t longest;
    const Answer answer;
    const OpenFile socket;
    const std::error_code _failure;
    QSocketNotifier arrivals;
    QObject clients; // owns them
};

} // namespace glidemap
