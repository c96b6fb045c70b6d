#include "file_changes.h"

#include "deadline.h"

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <cstdint>

namespace glidemap::test {

bool waitForChanges(const std::vector<std::filesystem::path>& watched,
                    const std::function<bool()>& condition) {
    constexpr std::uint32_t anyChange =
        IN_MODIFY | IN_ATTRIB | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;
    const int changes = inotify_init1(IN_CLOEXEC);
    for (const std::filesystem::path& path : watched) {
        inotify_add_watch(changes, path.c_str(), anyChange);
    }
    const Deadline deadline;
    bool holds = condition();
    while (!holds && !deadline.passed()) {
        pollfd waited{changes, POLLIN, 0};
        char happened[4096];
        if (poll(&waited, 1, deadline.milliseconds()) > 0 &&
            read(changes, happened, sizeof happened) < 0) {
            break;
        }
        holds = condition();
    }
    close(changes);
    return holds;
}

} // namespace glidemap::test
