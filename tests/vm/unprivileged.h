// Takes root's rights from the calling thread, and restores them in the destructor.
//
// In the kernel, rights belong to a thread; the C library hides this by changing all threads. Here
// the difference matters: a thread that the driver starts meanwhile stays without rights, while the
// test plugs in pads and grants access.
#pragma once

#include <sys/types.h>

namespace glidemap::vm {

constexpr uid_t unprivilegedUser = 65534; // "nobody"

class Unprivileged {
public:
    Unprivileged();
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;
    ~Unprivileged();
};

} // namespace glidemap::vm
