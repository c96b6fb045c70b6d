// Takes root's rights from the calling thread, and gives them back.
//
// To the kernel rights belong to a thread; the C library hides that by changing all of them. Here
// it matters: a thread that the driver starts meanwhile stays without rights, while the test goes
// on to plug pads and hand out access.
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
