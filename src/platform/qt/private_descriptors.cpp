#include "platform/qt/private_descriptors.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace glidemap {

#ifdef __linux__

// The functions that create a descriptor set CLOEXEC and NONBLOCK in the same call. With a separate
// call, a process forked by another thread in between would inherit the descriptor.

OpenFile localSocket() {
    return OpenFile(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

OpenFile acceptedBy(const OpenFile& socket) {
    return OpenFile(accept4(socket.descriptor(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
}

std::optional<uid_t> userAtOtherEnd(const OpenFile& socket) {
    ucred user = {};
    socklen_t size = sizeof user;
    const int result = getsockopt(socket.descriptor(), SOL_SOCKET, SO_PEERCRED, &user, &size);
    return result == 0 && size == sizeof user ? std::optional(user.uid) : std::nullopt;
}

bool sendAll(const OpenFile& socket, std::string_view text) {
    return send(socket.descriptor(), text.data(), text.size(), MSG_NOSIGNAL) ==
           static_cast<ssize_t>(text.size());
}

bool makePipe(std::array<int, 2>& ends) {
    return pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) == 0;
}

#else

namespace {

bool keepPrivate(int descriptor) {
    return fcntl(descriptor, F_SETFD, FD_CLOEXEC) == 0 &&
           fcntl(descriptor, F_SETFL, O_NONBLOCK) == 0;
}

OpenFile privateSocket(int opened) {
    const int on = 1;
    OpenFile file(opened);
    if (!file || !keepPrivate(opened) ||
        setsockopt(opened, SOL_SOCKET, SO_NOSIGPIPE, &on, sizeof on) != 0) {
        const int why = errno;
        file = {};
        errno = why;
    }
    return file;
}

} // namespace

OpenFile localSocket() {
    return privateSocket(socket(AF_UNIX, SOCK_STREAM, 0));
}

OpenFile acceptedBy(const OpenFile& socket) {
    return privateSocket(accept(socket.descriptor(), nullptr, nullptr));
}

std::optional<uid_t> userAtOtherEnd(const OpenFile& socket) {
    uid_t user = 0;
    gid_t group = 0;
    const int result = getpeereid(socket.descriptor(), &user, &group);
    return result == 0 ? std::optional(user) : std::nullopt;
}

bool sendAll(const OpenFile& socket, std::string_view text) {
    return send(socket.descriptor(), text.data(), text.size(), 0) ==
           static_cast<ssize_t>(text.size());
}

bool makePipe(std::array<int, 2>& ends) {
    if (pipe(ends.data()) != 0) {
        return false;
    }
    if (!keepPrivate(ends[0]) || !keepPrivate(ends[1])) {
        const int why = errno;
        close(std::exchange(ends[0], -1));
        close(std::exchange(ends[1], -1));
        errno = why;
        return false;
    }
    return true;
}

#endif

} // namespace glidemap
