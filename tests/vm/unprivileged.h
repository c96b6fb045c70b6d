// Drops root's rights in the calling thread, and restores them in the destructor.
//
// In the kernel, each thread has its own rights. The C library's functions hide this, because they
// change all threads of the process. This class changes only the calling thread. A thread that the
// driver starts meanwhile inherits the reduced rights and keeps them, while the test can later plug
// in touchpads and grant access.
#pragma once

#include <sys/types.h>

namespace glidemap::test {

constexpr uid_t unprivilegedUser = 65534; // the user `nobody`

class Unprivileged {
public:
    Unprivileged();
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;
    ~Unprivileged();
};

} // namespace glidemap::test
