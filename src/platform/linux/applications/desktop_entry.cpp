#include "platform/linux/applications/desktop_entry.h"

#include "platform/linux/applications/command_line.h"

namespace glidemap {

void readExec(DesktopEntry& entry, std::string_view line) {
    const auto words = wordsOfExec(line);
    entry.flatpak = flatpakOf(words);
    entry.steamGame = steamGameOf(words);
    if (entry.steamGame.empty()) // otherwise every game would match Steam itself
        entry.program = programOf(words);
}

} // namespace glidemap
