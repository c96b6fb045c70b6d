// Records the posted key events.
//
// Thread:  the test's main thread.
#pragma once

#include "dispatch/key_event_poster.h"

#include <ios>
#include <ostream>
#include <span>
#include <vector>

namespace glidemap {

inline void PrintTo(const KeyEvent& event, std::ostream* stream) {
    *stream << "key " << event.keyCode << (event.down ? " down" : " up") << " with flags 0x"
            << std::hex << event.flags << std::dec;
}

namespace test {

class FakeKeyEventPoster : public KeyEventPoster {
public:
    using Post = std::vector<KeyEvent>;

    void post(std::span<const KeyEvent> events) override {
        posts.emplace_back(events.begin(), events.end());
    }

    std::vector<Post> posts; // one entry per call
};

} // namespace test

} // namespace glidemap
