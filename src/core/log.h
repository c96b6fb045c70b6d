// The log: one line on standard error for each decision that helps to analyse a user's report.
// Enabled only if the program is started with --verbose, or if the environment variable
// GLIDEMAP_LOG has a value other than "" and "0".
//
//   logLine("touchpads", "grabbed ", node, " after ", count, " attempts");
//   glidemap 1234.567 touchpads: grabbed /dev/input/event5 after 2 attempts
//
// Never log what the user types: no key, no shortcut, no text of another program's window.
//
// While logging is disabled, a call costs one load of a flag; build expensive arguments only after
// isLogging(). A line is written completely or dropped: if standard error is not ready to accept
// it, logging does not wait, so a stalled reader never blocks the touchpad. Control characters,
// which a device name can contain, become "?". Lines longer than 1,000 bytes are truncated.
//
// Units:   seconds of the monotonic clock, as in the touchpads' own events.
// Thread:  any. Does not allocate.
// Owner:   the process; a loaded driver has its own log, which the same environment
//          variable enables.
// Errors:  none.
#pragma once

#include <array>
#include <atomic>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace glidemap {

class LogPart {
public:
    // NOLINTBEGIN(google-explicit-constructor): callers pass plain values
    LogPart(std::string_view words) : text(words) {}
    LogPart(const char* words) : text(words != nullptr ? words : "(null)") {}
    LogPart(const std::string& words) : text(words) {}
    LogPart(std::integral auto number) {
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
        text = {digits.data(), static_cast<std::size_t>(end - digits.data())};
    }
    // NOLINTEND(google-explicit-constructor)
    LogPart(char) = delete;
    LogPart(bool) = delete;
    LogPart(const LogPart&) = delete;
    LogPart& operator=(const LogPart&) = delete;
    ~LogPart() = default;

    std::string_view view() const { return text; }

private:
    std::array<char, 24> digits{};
    std::string_view text;
};

namespace log_detail {
extern std::atomic<bool> on;
void write(std::string_view topic, std::initializer_list<LogPart> parts) noexcept;
} // namespace log_detail

inline bool isLogging() noexcept {
    return log_detail::on.load(std::memory_order_relaxed);
}

// Enables the log in this process and in the drivers and programs that it loads or starts
// afterwards. Call it before starting threads.
void enableLog();

template <typename... Parts>
void logLine(std::string_view topic, const Parts&... parts) noexcept {
    if (isLogging()) {
        log_detail::write(topic, {LogPart(parts)...});
    }
}

} // namespace glidemap
