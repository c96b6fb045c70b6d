// Writes a script to a file that other users cannot read or replace, and chooses the name under
// which KWin loads it.
//
// Thread:  the desktop thread.
// Owner:   the code that loads the script. The file must exist until KWin has read it, which
//          happens when KWin runs the script.
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

// Returns a unique name, because KWin keeps only one script of each name, even if different
// programs load them.
std::string newKWinScriptName(const DesktopBus& bus);

} // namespace glidemap
