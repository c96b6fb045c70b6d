// Takes root's rights from the calling thread, and restores them in the destructor.
//
// In the kernel, rights belong to a thread; the C library hides this by changing all threads. Here
// the difference matters: a thread that the driver starts meanwhile stays without rights, while the
// test plugs in pads and grants access.
#pragma once

namespace glidemap::vm {

class Unprivileged {
public:
    Unprivileged();
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;
    ~Unprivileged();
};

} // namespace glidemap::vm
