#include "platform/linux/shell/font_reading.h"

#include "platform/linux/thread_setup.h"

#include <fontconfig/fontconfig.h>

#include <system_error>

namespace glidemap {

namespace {

void read() {
    nameThread("glidemap-fonts");
    FcInit();
}

} // namespace

FontReading::FontReading() {
    try {
        reader = std::thread(read);
    } catch (const std::system_error&) { // no thread can be created
    }
}

FontReading::~FontReading() {
    finish();
}

void FontReading::finish() {
    if (reader.joinable()) {
        reader.join();
    }
}

} // namespace glidemap
