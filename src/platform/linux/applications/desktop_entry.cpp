#include "platform/linux/applications/desktop_entry.h"

#include "platform/linux/applications/command_line.h"

namespace glidemap {

void readExec(DesktopEntry& entry, std::string_view line) {
    const auto words = wordsOfExec(line);
    entry.flatpak = flatpakOf(words);
    entry.steamGame = steamGameOf(words);
    // The program of a game's entry is Steam, so without this check every game would match Steam.
    if (entry.steamGame.empty())
        entry.program = programOf(words);
}

} // namespace glidemap
