// launch_stamp PIPE: the program that launch_bench launches. It writes its start time, in
// nanoseconds of the monotonic clock, and whether it has received a launch token, to the named
// pipe. Statically linked, so that the measurement excludes the dynamic loader.
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <ctime>

int main(int count, char** arguments) {
    timespec began{};
    clock_gettime(CLOCK_MONOTONIC, &began);
    const std::int64_t stamp = std::int64_t{began.tv_sec} * 1'000'000'000 + began.tv_nsec;
    const bool hasToken = std::getenv("XDG_ACTIVATION_TOKEN") != nullptr ||
                          std::getenv("DESKTOP_STARTUP_ID") != nullptr;
    const std::array<std::int64_t, 2> report = {stamp, hasToken ? 1 : 0};
    const int pipe = count == 2 ? open(arguments[1], O_WRONLY | O_CLOEXEC) : -1;
    return write(pipe, report.data(), sizeof(report)) == sizeof(report) ? 0 : 1;
}
