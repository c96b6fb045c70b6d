#include "platform/qt/single_instance.h"

#include "platform/qt/line_listener.h"
#include "platform/qt/private_descriptors.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

namespace glidemap {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::string_view answer = "shown\n";
constexpr const char* lockName = "glidemap.lock";
constexpr const char* socketName = "glidemap.socket";
constexpr const char* privateName = "glidemap";

// A request is one line with two fields, which may be empty. maxRequest is larger than the
// activation data of any desktop.
constexpr char separator = '\t';
constexpr std::size_t maxRequest = 4096;

// The retry interval while the other process is starting or exiting, when it holds the lock but
// does not listen on its socket.
constexpr int attemptMilliseconds = 20;

int millisecondsUntil(Clock::time_point deadline) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return static_cast<int>(std::max<std::chrono::milliseconds::rep>(left, 0));
}

std::string oneWord(std::string text) {
    std::erase_if(text, [](char letter) { return letter == separator || letter == '\n'; });
    return text;
}

std::string line(const SingleInstance::Request& request) {
    return oneWord(request.activationToken) + separator + oneWord(request.startupID) + '\n';
}

SingleInstance::Request requestIn(const std::string& line) {
    const std::string words = line.substr(0, line.size() - 1);
    const auto end = std::min(words.find(separator), words.size());
    const auto next = std::min(end + 1, words.size());
    const auto last = std::min(words.find(separator, next), words.size());
    return {words.substr(0, end), words.substr(next, last - next)};
}

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

bool isOurs(const OpenFile& file, mode_t type) {
    struct stat status = {};
    return fstat(file.descriptor(), &status) == 0 && (status.st_mode & S_IFMT) == type &&
           status.st_uid == geteuid();
}

bool isClosedToOthers(const OpenFile& file) {
    struct stat status = {};
    return fstat(file.descriptor(), &status) == 0 && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

// Opens the folder if it is private, otherwise the private folder inside it. Sets `path` to the
// opened folder.
OpenFile privateFolder(std::filesystem::path& path) {
    std::error_code ignored; // the following open() reports errors
    std::filesystem::create_directories(path.parent_path(), ignored);
    mkdir(path.c_str(), S_IRWXU);
    OpenFile folder(open(path.c_str(), folderFlags));
    if (!folder || !isOurs(folder, S_IFDIR)) {
        return {};
    }
    if (isClosedToOthers(folder)) {
        return folder;
    }
    mkdirat(folder.descriptor(), privateName, S_IRWXU);
    path /= privateName;
    OpenFile within(openat(folder.descriptor(), privateName, folderFlags));
    if (!within || !isOurs(within, S_IFDIR) || fchmod(within.descriptor(), S_IRWXU) != 0) {
        return {};
    }
    return within;
}

// Returns false for symbolic links, because connect() would follow them.
bool isOurSocket(const std::filesystem::path& file) {
    struct stat status = {};
    return lstat(file.c_str(), &status) == 0 && S_ISSOCK(status.st_mode) &&
           status.st_uid == geteuid();
}

bool connectTo(int socket, const std::filesystem::path& file) {
    if (!isOurSocket(file)) {
        return false;
    }
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (file.native().size() >= sizeof address.sun_path) {
        return false;
    }
    file.native().copy(address.sun_path, file.native().size());
    return connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

enum class Reply { given, none, unreachable };

// Waits for the first instance to reply. If the first instance disconnects without a reply, it is
// exiting, and claim() tries again.
Reply replyOn(int socket, Clock::time_point deadline) {
    std::string received;
    while (received.size() < answer.size()) {
        pollfd wait{socket, POLLIN, 0};
        const int ready = poll(&wait, 1, millisecondsUntil(deadline));
        if (ready <= 0) {
            return Reply::none;
        }
        std::array<char, 16> buffer{};
        const auto count = recv(socket, buffer.data(), buffer.size(), 0);
        if (count <= 0) {
            return received.empty() ? Reply::unreachable : Reply::none;
        }
        received.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return received == answer ? Reply::given : Reply::none;
}

// Sends a request to the first instance. The peer's user id is checked before sending, because the
// activation token is only for processes of this user.
Reply ask(const std::filesystem::path& socketFile, const SingleInstance::Request& request,
          Clock::time_point deadline) {
    // The socket is non-blocking, so that connect() does not wait for a process that no longer
    // accepts connections.
    const OpenFile client = localSocket();
    if (!connectTo(client.descriptor(), socketFile) || userAtOtherEnd(client) != geteuid() ||
        !sendAll(client, line(request))) {
        return Reply::unreachable;
    }
    return replyOn(client.descriptor(), deadline);
}

} // namespace

SingleInstance::SingleInstance(const std::filesystem::path& folderForBoth) {
    std::filesystem::path path = folderForBoth;
    folder = privateFolder(path);
    socketFile = path / socketName;
}

SingleInstance::~SingleInstance() = default;

// Opens the lock file. If this fails, for example because the file is a link or a pipe, replaces
// the file: the folder is private, so only this user can have created it.
bool SingleInstance::openLock() {
    constexpr int flags = O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const auto attempt = [this] {
        lock = OpenFile(openat(folder.descriptor(), lockName, flags, S_IRUSR | S_IWUSR));
        return lock && isOurs(lock, S_IFREG);
    };
    return attempt() || (unlinkat(folder.descriptor(), lockName, 0) == 0 && attempt());
}

SingleInstance::Claim SingleInstance::claim(const Request& request,
                                            std::chrono::milliseconds patience) {
    if (!folder || !openLock()) {
        return Claim::impossible;
    }
    // Clean-up jobs do not delete files with the sticky bit.
    fchmod(lock.descriptor(), S_ISVTX | S_IRUSR | S_IWUSR);
    const auto deadline = Clock::now() + patience;
    do {
        if (flock(lock.descriptor(), LOCK_EX | LOCK_NB) == 0) {
            return Claim::first;
        }
        const Reply reply = ask(socketFile, request, deadline);
        if (reply != Reply::unreachable) {
            return reply == Reply::given ? Claim::shown : Claim::unanswered;
        }
        poll(nullptr, 0, attemptMilliseconds);
    } while (Clock::now() < deadline);
    return Claim::unanswered;
}

// Replaces an existing socket file. A killed process must have left the file behind: this process
// holds the lock, so no other process listens on the socket.
std::optional<std::string> SingleInstance::listen(std::function<void(const Request&)> onRequest) {
    listener = std::make_unique<LineListener>(
        socketFile, maxRequest, [onRequest = std::move(onRequest)](const std::string& line) {
            onRequest(requestIn(line));
            return std::string(answer);
        });
    if (const std::error_code failure = listener->failure()) {
        return failure.message();
    }
    return std::nullopt;
}

void SingleInstance::stopListening() {
    listener.reset();
}

} // namespace glidemap
