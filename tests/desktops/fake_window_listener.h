// Records a backend's reports as readable lines: "windows: one, two" and "active: one" ("active:
// none").
//
// Thread:  the desktop thread reports, the test's thread reads.
// Owner:   a test; it outlives the backend.
// Errors:  a report that does not arrive in time fails the test.
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

namespace glidemap::test {

class FakeWindowListener final : public WindowListener {
public:
    // Returns a window's text in the lines. By default, this is the window's app ID.
    using Word = std::function<std::string(const WindowIdentity&)>;
    explicit FakeWindowListener(Word asWord = nullptr);

    void activeWindowChanged(const std::optional<WindowIdentity>& window) override;
    void windowsChanged(const std::vector<WindowIdentity>& windows) override;

    // Waits for these lines, and checks that there were no other reports since the last call.
    void expectReported(const std::vector<std::string>& lines);

    // Waits until these are the latest lines of each kind; other lines may come before them. Some
    // desktops make a change in a varying number of steps.
    void expectInTheEnd(const std::string& windowsLine, const std::string& activeLine);

    // Returns the windows in the latest report.
    std::vector<WindowIdentity> windows();

private:
    void add(std::string line);
    std::chrono::seconds remainingPatience() const;

    Word asWord;
    std::mutex mutex;
    std::condition_variable added;
    std::vector<std::string> reported;
    std::vector<WindowIdentity> current;
    std::string lastWindows;
    std::string lastActive;
};

} // namespace glidemap::test
