// Writes a script to a file that no other user can read or replace, and gives it the name under
// which KWin loads it.
//
// Thread:  the desktop thread.
// Owner:   the code that loads the script, until KWin has read the file, which KWin does when it
//          runs the script.
// Errors:  `whole` is false if the file could not be written.
#pragma once

#include "platform/linux/desktop/desktop_bus.h"

#include <string>

namespace glidemap {

class KWinScriptFile {
public:
    explicit KWinScriptFile(const std::string& script);
    KWinScriptFile(const KWinScriptFile&) = delete;
    KWinScriptFile& operator=(const KWinScriptFile&) = delete;

    // Removes the file.
    ~KWinScriptFile();

    bool whole = false;
    std::string path;
};

// KWin keeps one script per name, for all programs.
std::string newKWinScriptName(const DesktopBus& bus);

} // namespace glidemap
