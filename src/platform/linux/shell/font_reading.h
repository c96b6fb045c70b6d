// Reads the list of installed fonts on a separate thread. Reading it is the slowest part of
// startup, and needs no display, so it runs while the main thread connects to the display.
//
// Thread:  the main thread.
// Owner:   the program's start code. finish() and the destructor wait until the fonts have been
//          read.
// Errors:  none. If the thread cannot be created, Qt reads the fonts when it first uses one.
#pragma once

#include <thread>

namespace glidemap {

class FontReading {
public:
    FontReading();
    FontReading(const FontReading&) = delete;
    FontReading& operator=(const FontReading&) = delete;
    ~FontReading();

    // Must be called before the first text is measured. Otherwise both threads would read all
    // fonts.
    void finish();

private:
    std::thread reader;
};

} // namespace glidemap
