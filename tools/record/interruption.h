// Waits for the end of the recording: an interruption by the user or the system, or a failure.
//
// Thread:  made on the main thread before any other is started, so that all of them leave the
//          signals to it; fail() on any.
// Errors:  none.
#pragma once

namespace glidemap::record {

class Interruption {
public:
    Interruption();

    // Returns on SIGINT, SIGTERM or SIGHUP, or when fail() has been called, before or meanwhile.
    void wait() const;

    void fail() const;
};

} // namespace glidemap::record
