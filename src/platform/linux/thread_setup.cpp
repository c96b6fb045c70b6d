#include "platform/linux/thread_setup.h"

#include <pthread.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <string>

namespace glidemap {

namespace {

constexpr std::size_t maxNameLength = 15;
constexpr int responsiveNiceness = -10;

} // namespace

void nameThread(std::string_view name) {
    name.remove_prefix(name.size() - std::min(name.size(), maxNameLength));
    pthread_setname_np(pthread_self(), std::string(name).c_str());
}

void setUpResponsiveThread(std::string_view name) {
    nameThread(name);
    const auto thread = static_cast<id_t>(syscall(SYS_gettid));
    setpriority(PRIO_PROCESS, thread, responsiveNiceness);
}

} // namespace glidemap
