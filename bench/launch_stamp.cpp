// launch_stamp PIPE: the program that launch_bench has launched. Static, so that nothing of what it measures is a
// loader's; writes when it began, in nanoseconds of the monotonic clock, into the pipe with that name.
#include <fcntl.h>
#include <unistd.h>

#include <cstdint>
#include <ctime>

int main(int count, char** arguments) {
    timespec began{};
    clock_gettime(CLOCK_MONOTONIC, &began);
    const std::int64_t stamp = std::int64_t{began.tv_sec} * 1'000'000'000 + began.tv_nsec;
    const int pipe = count == 2 ? open(arguments[1], O_WRONLY | O_CLOEXEC) : -1;
    return write(pipe, &stamp, sizeof(stamp)) == sizeof(stamp) ? 0 : 1;
}
