// Writes down what a backend tells, in lines that can be compared and read:
// "windows: one, two" and "active: one" ("active: none").
//
// Thread:  told on the desktop thread, asked on the test's.
// Owner:   a test; outlives the backend.
// Errors:  what is not told in time is a failure of the test.
#pragma once

#include "platform/linux/windows/window_backend.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <iosfwd>
#include <mutex>
#include <string>
#include <vector>

namespace glidemap {

void PrintTo(const WindowIdentity& window, std::ostream* out);

} // namespace glidemap

namespace glidemap::desktops {

class RecordingWindowListener final : public WindowListener {
public:
    // A window as a word of the lines: its app id, unless the test wants to see more.
    using Word = std::function<std::string(const WindowIdentity&)>;
    explicit RecordingWindowListener(Word asWord = nullptr);

    void activeWindowChanged(const std::optional<WindowIdentity>& window) override;
    void windowsChanged(const std::vector<WindowIdentity>& windows) override;

    // Waits for these lines, which have to be all that was told since the last call.
    void expectTold(const std::vector<std::string>& lines);

    // Waits until these are the last ones told of either kind, whatever came before: for desktops
    // that do one thing in several steps, not always the same ones.
    void expectInTheEnd(const std::string& windowsLine, const std::string& activeLine);

    // The last windows told, whole.
    std::vector<WindowIdentity> windows();

private:
    void add(std::string line);
    std::chrono::seconds longestWait() const;

    Word asWord;
    std::mutex mutex;
    std::condition_variable added;
    std::vector<std::string> told;
    std::vector<WindowIdentity> current;
    std::string lastWindows;
    std::string lastActive;
};

} // namespace glidemap::desktops
