// The simulated system of a run: every feature exists, no action takes effect, and each action is
// reported to the listener.
//
// Thread:  one.
// Owner:   the desk of a run.
// Errors:  none.
#pragma once

#include "core/user_defaults.h"
#include "dispatch/click_tap.h"
#include "dispatch/key_event_poster.h"
#include "dispatch/screen_lock.h"
#include "dispatch/workspace.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace glidemap::replay {

class SimulatedKeyEvents : public KeyEventPoster {
public:
    using Listener = std::function<void(const KeyEvent&)>;

    explicit SimulatedKeyEvents(Listener notify) : notify(std::move(notify)) {}

    void post(std::span<const KeyEvent> events) override {
        for (const KeyEvent& event : events) {
            notify(event);
        }
    }

private:
    Listener notify;
};

class SimulatedScreenLock : public ScreenLock {
public:
    explicit SimulatedScreenLock(std::function<void()> notify) : notify(std::move(notify)) {}

    bool find() override { return true; }
    void lock(std::function<void()> /*otherwise*/) override { notify(); }

private:
    std::function<void()> notify;
};

// Takes the frontmost application from the recording; every application is installed.
class SimulatedWorkspace : public Workspace {
public:
    struct Listeners {
        std::function<void(const std::string& bundleID)> launched;
        std::function<void()> missionControl;
    };

    explicit SimulatedWorkspace(Listeners notify) : notify(std::move(notify)) {}

    void setFrontmost(Application application) { frontmost = std::move(application); }

    Application frontmostApplication() const override { return frontmost; }
    std::vector<Application> runningApplications() const override { return {}; }

    // The identifier is enough to open it.
    std::optional<std::string> urlForApplication(const std::string& bundleID) const override {
        return bundleID;
    }

    void openApplication(const std::string& url) override { notify.launched(url); }
    void openMissionControl() override { notify.missionControl(); }
    void openAccessibilitySettings() override {}
    void openURL(const std::string& /*url*/) override {}

private:
    Listeners notify;
    Application frontmost;
};

// Its events come from the recording.
class SimulatedClickTap : public ClickTap {
public:
    bool create(Callback newCallback) override {
        callback = std::move(newCallback);
        return true;
    }

    void setEnabled(bool enabled) override { isEnabled = enabled; }
    void remove() override { callback = {}; }
    void setNeeded(bool /*needed*/) override {}

    bool isDropped(const ClickEvent& event) const {
        return isEnabled && callback && callback(event) == Verdict::drop;
    }

private:
    Callback callback;
    bool isEnabled = false;
};

// A user without stored settings; writes are lost at the end of the run.
class SimulatedUserDefaults : public UserDefaults {
public:
    std::optional<std::string> string(std::string_view /*key*/) const override { return {}; }
    void setString(std::string_view /*key*/, std::string_view /*value*/) override {}
    std::optional<bool> boolean(std::string_view /*key*/) const override { return {}; }
    void setBoolean(std::string_view /*key*/, bool /*value*/) override {}
};

} // namespace glidemap::replay
