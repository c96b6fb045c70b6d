// A script as a file that nobody else can read or replace, and the name that KWin is given for it.
//
// Thread:  the desktop thread.
// Owner:   what has the script loaded, until KWin has read the file: when it is told to run it.
// Errors:  a file that could not be written is not whole.
#pragma once

#include "platform/linux/windows/desktop_bus.h"

#include <string>

namespace glidemap {

class KWinScriptFile {
public:
    explicit KWinScriptFile(const std::string& script);
    KWinScriptFile(const KWinScriptFile&) = delete;
    KWinScriptFile& operator=(const KWinScriptFile&) = delete;

    // Removes it.
    ~KWinScriptFile();

    bool whole = false;
    std::string path;
};

// KWin keeps one script of a name, whichever program has loaded it.
std::string newKWinScriptName(const DesktopBus& bus);

} // namespace glidemap
