#include "platform/qt/line_listener.h"

#include "platform/qt/private_descriptors.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QPointer>
#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace glidemap {

namespace {

constexpr int maxWaiting = 30; // the length of the kernel's queue of pending connections
constexpr std::chrono::milliseconds pauseWithoutDescriptors{500};

std::error_code lastError() {
    return {errno, std::generic_category()};
}

} // namespace

class LineListener::Client : public QObject {
public:
    Client(OpenFile socket, const LineListener& listener, QObject* parent)
        : QObject(parent), listener(listener), socket(std::move(socket)),
          arrivals(this->socket.descriptor(), QSocketNotifier::Read) {
        connect(&arrivals, &QSocketNotifier::activated, this, [this] { receive(); });
        limit.setSingleShot(true);
        connect(&limit, &QTimer::timeout, this, [this] { deleteLater(); });
        limit.start(listener.clientTime);
    }

    void receive() {
        std::array<char, 512> part{};
        const auto count = recv(socket.descriptor(), part.data(), part.size(), 0);
        if (count < 0 && (errno == EAGAIN || errno == EINTR)) {
            return;
        }
        received.append(part.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        const auto end = received.find('\n');
        if (end == std::string::npos && count > 0 && received.size() < listener.maxLineLength) {
            return;
        }
        arrivals.setEnabled(false);
        deleteLater();
        if (end != std::string::npos && end < listener.maxLineLength) {
            sendReply(received.substr(0, end + 1));
        }
    }

private:
    // The callback may stop listening, which deletes this client.
    void sendReply(const std::string& line) {
        const QPointer<Client> alive(this);
        const std::string said = listener.answer(line);
        if (alive != nullptr) {
            sendAll(socket, said);
        }
    }

    const LineListener& listener;
    const OpenFile socket;
    QSocketNotifier arrivals;
    QTimer limit;
    std::string received;
};

LineListener::LineListener(std::filesystem::path socketFile, std::size_t maxLineLength,
                           Answer answer, std::chrono::milliseconds clientTime)
    : socketFile(std::move(socketFile)), maxLineLength(maxLineLength), answer(std::move(answer)),
      clientTime(clientTime), socket(localSocket()), _failure(listen()),
      arrivals(socket.descriptor(), QSocketNotifier::Read) {
    arrivals.setEnabled(!_failure);
    QObject::connect(&arrivals, &QSocketNotifier::activated, &arrivals,
                     [this] { acceptClients(); });
    pause.setSingleShot(true);
    QObject::connect(&pause, &QTimer::timeout, &arrivals, [this] { arrivals.setEnabled(true); });
}

LineListener::~LineListener() {
    if (!_failure) {
        std::error_code ignored;
        std::filesystem::remove(socketFile, ignored);
    }
}

std::error_code LineListener::listen() const {
    if (!socket) {
        return lastError();
    }
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (socketFile.native().size() >= sizeof address.sun_path) {
        return std::make_error_code(std::errc::filename_too_long);
    }
    socketFile.native().copy(address.sun_path, socketFile.native().size());
    std::error_code ignored; // bind() reports a missing folder
    std::filesystem::remove(socketFile, ignored);
    // The mode is set after bind(), because not every system can set it earlier. This is safe: no
    // client can connect before listen(), and by then the mode excludes other users.
    const bool listens = bind(socket.descriptor(), reinterpret_cast<const sockaddr*>(&address),
                              sizeof address) == 0 &&
                         chmod(socketFile.c_str(), S_IRUSR | S_IWUSR) == 0 &&
                         ::listen(socket.descriptor(), maxWaiting) == 0;
    return listens ? std::error_code() : lastError();
}

void LineListener::acceptClients() {
    OpenFile client = acceptedBy(socket);
    if (!client && (errno == EMFILE || errno == ENFILE || errno == ENOMEM || errno == ENOBUFS)) {
        // The connection stays pending, because no descriptor or memory is left for it. Without a
        // pause, it would wake the event loop continuously.
        arrivals.setEnabled(false);
        pause.start(pauseWithoutDescriptors);
    }
    if (!client || userAtOtherEnd(client) != geteuid()) {
        return;
    }
    makeRoom();
    (new Client(std::move(client), *this, &clients))->receive();
}

// Disconnects the oldest clients. Served and timed-out clients also count until the event loop
// deletes them.
void LineListener::makeRoom() {
    while (clients.children().size() >= static_cast<qsizetype>(maxClients)) {
        delete clients.children().front();
    }
}

} // namespace glidemap
