#include "core/log.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <mutex>

namespace glidemap {

namespace {

constexpr const char* variable = "GLIDEMAP_LOG";

// In bytes. A pipe accepts a line of this length in one write.
constexpr std::size_t maxLine = 1000;

class Line {
public:
    void add(std::string_view words) {
        for (const char letter : words.substr(0, maxLine - 1 - length)) {
            const auto byte = static_cast<unsigned char>(letter);
            text[length++] = byte < ' ' || byte == 0x7f ? '?' : letter;
        }
    }

    std::string_view ended() {
        text[length] = '\n';
        return {text.data(), length + 1};
    }

private:
    std::array<char, maxLine> text;
    std::size_t length = 0;
};

bool isEnabledByEnvironment() {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): runs before other threads start
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0' && std::string_view(value) != "0";
}

void addTime(Line& line) {
    using std::chrono::milliseconds;
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    const std::int64_t count = std::chrono::duration_cast<milliseconds>(now).count();
    line.add(LogPart(count / 1000).view());
    line.add(".");
    const LogPart thousandths(count % 1000 + 1000);
    line.add(thousandths.view().substr(1));
}

// A pipe or terminal that is ready accepts a short line without blocking. For a pipe without a
// reader, poll() also sets POLLERR; writing to such a pipe would raise SIGPIPE and end the program.
void writeWithoutBlocking(std::string_view line) {
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
    pollfd output{STDERR_FILENO, POLLOUT, 0};
    if (poll(&output, 1, 0) == 1 && output.revents == POLLOUT) {
        [[maybe_unused]] const auto written = ::write(STDERR_FILENO, line.data(), line.size());
    }
}

} // namespace

namespace log_detail {

std::atomic<bool> on = isEnabledByEnvironment();

void write(std::string_view topic, std::initializer_list<LogPart> parts) noexcept {
    const int errorOfCaller = errno;
    Line line;
    line.add("glidemap ");
    addTime(line);
    line.add(" ");
    line.add(topic);
    line.add(": ");
    for (const LogPart& part : parts) {
        line.add(part.view());
    }
    writeWithoutBlocking(line.ended());
    errno = errorOfCaller;
}

} // namespace log_detail

void enableLog() {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): main() calls this before other threads start
    setenv(variable, "1", 1);
    log_detail::on.store(true, std::memory_order_relaxed);
}

} // namespace glidemap
