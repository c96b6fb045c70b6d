#include "platform/linux/applications/desktop_entry.h"

#include "platform/linux/applications/command_line.h"
#include "platform/linux/desktop/exec_line.h"

namespace glidemap {

void readExec(DesktopEntry& entry, const std::string& line) {
    const auto words = wordsOfExecLine(line);
    entry.flatpak = flatpakOf(words);
    entry.steamGame = steamGameOf(words);
    // The program of a game's entry is Steam, so without this check the entry of every game would
    // match the windows of Steam.
    if (entry.steamGame.empty()) {
        entry.program = programOf(words);
    }
}

} // namespace glidemap
