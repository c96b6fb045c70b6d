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
#include <system_error>
#include <utility>

namespace glidemap {

namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* answer = "shown\n";

// A request is one line: two words, each at most as long as any desktop's, and either may be empty.
constexpr char separator = '\t';
constexpr std::size_t longestRequest = 4096;

// How often somebody is looked for who is between two states: a lock without a socket, which is a
// program that starts or ends.
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

bool connectTo(int socket, const std::filesystem::path& file) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (file.native().size() >= sizeof address.sun_path) {
        return false;
    }
    file.native().copy(address.sun_path, file.native().size());
    return connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

enum class Reply { given, none, nobodyThere };

// Somebody who hangs up without an answer is about to end.
Reply replyOn(int socket, Clock::time_point deadline) {
    pollfd wait{socket, POLLIN, 0};
    if (poll(&wait, 1, millisecondsUntil(deadline)) <= 0) {
        return Reply::none;
    }
    std::array<char, 16> buffer{};
    const auto count = recv(socket, buffer.data(), buffer.size(), 0);
    return count > 0 ? Reply::given : Reply::nobodyThere;
}

Reply ask(const std::filesystem::path& socketFile, const SingleInstance::Request& request,
          Clock::time_point deadline) {
    // Never waits to be let in: where too many wait already, nobody is being let in.
    const OpenFile client = localSocket();
    if (!connectTo(client.descriptor(), socketFile) || !sendAll(client, line(request))) {
        return Reply::nobodyThere;
    }
    return replyOn(client.descriptor(), deadline);
}

} // namespace

SingleInstance::SingleInstance(const std::filesystem::path& folder)
    : lockFile(folder / "glidemap.lock"), socketFile(folder / "glidemap.socket") {
    std::error_code ignored; // opening the file tells
    std::filesystem::create_directories(folder, ignored);
}

SingleInstance::~SingleInstance() = default;

SingleInstance::Claim SingleInstance::claim(const Request& request,
                                            std::chrono::milliseconds patience) {
    lock = OpenFile(open(lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!lock) {
        return Claim::impossible;
    }
    fchmod(lock.descriptor(), S_ISVTX | S_IRUSR | S_IWUSR); // nobody tidies away what is sticky
    const auto deadline = Clock::now() + patience;
    do {
        if (flock(lock.descriptor(), LOCK_EX | LOCK_NB) == 0) {
            return Claim::first;
        }
        const Reply reply = ask(socketFile, request, deadline);
        if (reply != Reply::nobodyThere) {
            return reply == Reply::given ? Claim::shown : Claim::unanswered;
        }
        poll(nullptr, 0, attemptMilliseconds);
    } while (Clock::now() < deadline);
    return Claim::unanswered;
}

// A socket that is there already is a killed one's: the lock says that nobody listens there.
std::optional<std::string> SingleInstance::listen(std::function<void(const Request&)> asked) {
    listener = std::make_unique<LineListener>(socketFile, longestRequest,
                                              [asked = std::move(asked)](const std::string& line) {
                                                  asked(requestIn(line));
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
