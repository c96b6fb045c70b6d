#include "platform/linux/applications/application_follower.h"

#include <unistd.h>

#include <algorithm>
#include <set>
#include <utility>

namespace glidemap {

namespace {

// This program is excluded, because gestures cannot be bound to it. Some desktops report no process
// for its windows, and others report an identifier without a desktop entry, so both the process and
// the identifier are compared.
bool isOwn(const WindowIdentity& window, const Application& application) {
    return window.process == getpid() || application.bundleID == ownIdentifier;
}

} // namespace

ApplicationFollower::ApplicationFollower(DesktopThread& desktop, PublishedApplications& to,
                                         const ProcessReader& reader,
                                         std::chrono::milliseconds patienceWithNone)
    : thread(desktop), published(to), processes(reader), patience(patienceWithNone),
      entries(desktop, [this] { matchAgain(); }), matcher(entries.all(), reader) {}

void ApplicationFollower::activeWindowChanged(const std::optional<WindowIdentity>& window) {
    lasting = {};
    if (window) {
        active = window;
        publishFrontmost();
        return;
    }
    lasting = thread.after(patience, [this] {
        active.reset();
        publishFrontmost();
    });
}

void ApplicationFollower::windowsChanged(const std::vector<WindowIdentity>& windows) {
    open = windows;
    forgetClosedWindows();
    publishRunning();
}

WindowChoice ApplicationFollower::windowsOf(const std::string& entryPath) {
    const auto& all = entries.all();
    const auto entry = std::ranges::find(all, entryPath, &DesktopEntry::path);
    if (entry == all.end()) {
        return [](const WindowIdentity&) {
            return false;
        };
    }
    return [this, &entry = *entry](const WindowIdentity& window) {
        return applicationOf(window)->bundleID == entry.identifier ||
               (entry.inTerminal && window.process &&
                processes.read(*window.process).launchedFrom == entry.path);
    };
}

ApplicationFollower::Key ApplicationFollower::keyOf(const WindowIdentity& window) {
    return {window.appID, window.instance, window.process};
}

const Application* ApplicationFollower::applicationOf(const WindowIdentity& window) {
    const Key key = keyOf(window);
    const auto known = matched.find(key);
    if (known != matched.end()) {
        return known->second;
    }
    const DesktopEntry* const entry = matcher.entryOf(window);
    const Application* const application =
        entry != nullptr ? published.installed.intern({entry->identifier, entry->name})
                         : published.others.intern(matcher.describe(window));
    // The cache also grows without changes to the list of windows: the active window may be missing
    // from the list, and its identity may change any number of times.
    if (matched.size() > open.size() + 64) {
        forgetClosedWindows();
    }
    matched.emplace(key, application);
    return application;
}

void ApplicationFollower::forgetClosedWindows() {
    std::set<Key> kept;
    for (const WindowIdentity& window : open) {
        kept.insert(keyOf(window));
    }
    if (active) {
        kept.insert(keyOf(*active));
    }
    std::erase_if(matched, [&](const auto& one) { return kept.count(one.first) == 0; });
}

void ApplicationFollower::matchAgain() {
    matched.clear();
    publishFrontmost();
    publishRunning();
}

void ApplicationFollower::publishFrontmost() {
    const Application* const application =
        active ? applicationOf(*active) : ApplicationTable::unknown();
    // A thread that reads the pointer must see the complete application, so the store has release
    // semantics.
    published.frontmost.store(application, std::memory_order_release);
}

void ApplicationFollower::publishRunning() {
    std::vector<const Application*> reported;
    std::vector<Application> running;
    for (const WindowIdentity& window : open) {
        const Application* const application = applicationOf(window);
        if (application == ApplicationTable::unknown() || isOwn(window, *application) ||
            std::find(reported.begin(), reported.end(), application) != reported.end()) {
            continue;
        }
        reported.push_back(application);
        running.push_back(*application);
    }
    published.running.set(std::move(running));
}

} // namespace glidemap
