#include "platform/linux/windows/kwin/kwin_script_file.h"

#include <fcntl.h>
#include <glib.h>
#include <unistd.h>

#include <cstdlib>

namespace glidemap {

KWinScriptFile::KWinScriptFile(const std::string& script) {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): no thread changes the environment
    const char* const folder = std::getenv("XDG_RUNTIME_DIR");
    path =
        std::string(folder != nullptr ? folder : g_get_user_runtime_dir()) + "/glidemap-XXXXXX.js";
    const int file = mkostemps(path.data(), 3, O_CLOEXEC);
    if (file < 0) {
        path.clear();
        return;
    }
    whole = write(file, script.data(), script.size()) == static_cast<ssize_t>(script.size());
    close(file);
}

KWinScriptFile::~KWinScriptFile() {
    if (!path.empty()) {
        unlink(path.c_str());
    }
}

std::string newKWinScriptName(const DesktopBus& bus) {
    static unsigned long names = 0;
    return "glidemap-" + bus.uniqueName() + "-" + std::to_string(++names);
}

} // namespace glidemap
