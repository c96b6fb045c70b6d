// Waits for the end of the recording: an interruption by the user or the system, or a failure.
//
// Thread:  create it on the main thread before any other thread, so that all threads inherit the
//          blocked signals; fail() on any thread.
// Errors:  none.
#pragma once

namespace glidemap::record {

class Interruption {
public:
    Interruption();

    // Returns on SIGINT, SIGTERM or SIGHUP, or after fail(), even if fail() was called before
    // wait().
    void wait() const;

    void fail() const;
};

} // namespace glidemap::record
