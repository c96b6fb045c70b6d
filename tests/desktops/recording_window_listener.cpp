#include "desktops/recording_window_listener.h"

#include "desktops/program.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <utility>

namespace glidemap::desktops {

RecordingWindowListener::RecordingWindowListener(Word word)
    : asWord(word ? std::move(word) : [](const WindowIdentity& window) { return window.appID; }) {}

void RecordingWindowListener::activeWindowChanged(const std::optional<WindowIdentity>& window) {
    const std::lock_guard lock(mutex);
    add("active: " + (window ? asWord(*window) : "none"));
}

void RecordingWindowListener::windowsChanged(const std::vector<WindowIdentity>& windows) {
    std::string line = "windows:";
    for (const WindowIdentity& window : windows) {
        line += (line.back() == ':' ? " " : ", ") + asWord(window);
    }
    const std::lock_guard lock(mutex);
    current = windows;
    add(std::move(line));
}

void RecordingWindowListener::add(std::string line) {
    told.push_back(std::move(line));
    added.notify_one();
}

void RecordingWindowListener::expectTold(const std::vector<std::string>& lines) {
    std::unique_lock lock(mutex);
    // A line too many is seen at once, one too few at the deadline.
    added.wait_for(lock, patience, [&] {
        return told.size() >= lines.size() || !std::equal(told.begin(), told.end(), lines.begin());
    });
    EXPECT_THAT(told, testing::ElementsAreArray(lines));
    told.clear();
}

std::vector<WindowIdentity> RecordingWindowListener::windows() {
    const std::lock_guard lock(mutex);
    return current;
}

} // namespace glidemap::desktops
