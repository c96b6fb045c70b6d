#include "desktops/fake_window_listener.h"

#include "desktops/program.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <ostream>
#include <utility>

namespace glidemap {

void PrintTo(const WindowIdentity& window, std::ostream* out) {
    *out << "{" << window.appID << ", " << window.instance << ", " << window.title << ", "
         << (window.process ? std::to_string(*window.process) : "no process") << "}";
}

} // namespace glidemap

namespace glidemap::test {

FakeWindowListener::FakeWindowListener(Word word)
    : asWord(word ? std::move(word) : [](const WindowIdentity& window) { return window.appID; }) {}

void FakeWindowListener::activeWindowChanged(const std::optional<WindowIdentity>& window) {
    const std::lock_guard lock(mutex);
    lastActive = "active: " + (window ? asWord(*window) : "none");
    add(lastActive);
}

void FakeWindowListener::windowsChanged(const std::vector<WindowIdentity>& windows) {
    std::string line = "windows:";
    for (const WindowIdentity& window : windows) {
        line += (line.back() == ':' ? " " : ", ") + asWord(window);
    }
    const std::lock_guard lock(mutex);
    current = windows;
    lastWindows = line;
    add(std::move(line));
}

void FakeWindowListener::add(std::string line) {
    reported.push_back(std::move(line));
    added.notify_one();
}

// After the first failure, waiting longer for later events is useless.
std::chrono::seconds FakeWindowListener::remainingPatience() const {
    return testing::Test::HasFailure() ? std::chrono::seconds(0) : patience;
}

void FakeWindowListener::expectReported(const std::vector<std::string>& lines) {
    std::unique_lock lock(mutex);
    // Returns as soon as a wrong line or the expected number of lines has been reported. Only a
    // missing line takes until the deadline.
    added.wait_for(lock, remainingPatience(), [&] {
        return reported.size() >= lines.size() ||
               !std::equal(reported.begin(), reported.end(), lines.begin());
    });
    EXPECT_THAT(reported, testing::ElementsAreArray(lines));
    reported.clear();
}

void FakeWindowListener::expectInTheEnd(const std::string& windowsLine,
                                        const std::string& activeLine) {
    std::unique_lock lock(mutex);
    added.wait_for(lock, remainingPatience(),
                   [&] { return lastWindows == windowsLine && lastActive == activeLine; });
    EXPECT_EQ(lastWindows, windowsLine);
    EXPECT_EQ(lastActive, activeLine);
    reported.clear();
}

std::vector<WindowIdentity> FakeWindowListener::windows() {
    const std::lock_guard lock(mutex);
    return current;
}

} // namespace glidemap::test
