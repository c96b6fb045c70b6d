// Reads the list of installed fonts in the background. This is the slowest part of startup and
// needs no display, so it runs while the main thread connects to the display.
//
// Thread:  the main thread; reads on a thread of its own.
// Owner:   the program's start code. finish() and the destructor wait until the fonts are read.
// Errors:  none. If the thread cannot be created, Qt reads the fonts on first use.
#pragma once

#include <thread>

namespace glidemap {

class FontReading {
public:
    FontReading();
    FontReading(const FontReading&) = delete;
    FontReading& operator=(const FontReading&) = delete;
    ~FontReading();

    // Call before measuring the first text; otherwise both threads would read all fonts.
    void finish();

private:
    std::thread reader;
};

} // namespace glidemap
