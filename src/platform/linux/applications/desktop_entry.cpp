#include "platform/linux/applications/desktop_entry.h"

#include "platform/linux/applications/command_line.h"

namespace glidemap {

void readExec(DesktopEntry& entry, std::string_view line) {
    const auto words = wordsOfExec(line);
    entry.flatpak = flatpakOf(words);
    entry.steamGame = steamGameOf(words);
    // for a game, the program would be Steam, and every game would match it
    if (entry.steamGame.empty())
        entry.program = programOf(words);
}

} // namespace glidemap
