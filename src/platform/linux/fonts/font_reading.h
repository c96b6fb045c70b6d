// Reads which fonts are installed. Nothing at the start takes longer, and nothing in it needs a
// display: so it is done beside the main thread, while that one connects to one.
//
// Thread:  the main thread; reads on one of its own.
// Owner:   whoever starts the program. Ends, and destroying it does, only once the fonts are read.
// Errors:  none. Where there is no thread to be had, the toolkit reads them when it needs one.
#pragma once

#include <thread>

namespace glidemap {

class FontReading {
public:
    FontReading();
    FontReading(const FontReading&) = delete;
    FontReading& operator=(const FontReading&) = delete;
    ~FontReading();

    // Before the first text is measured: two who find nothing read yet would both read it all.
    void finish();

private:
    std::thread reader;
};

} // namespace glidemap
