// A fake workspace whose applications the test defines. It records the requests to open
// applications.
//
// Thread:  setFrontmost() and frontmostApplication() on any thread; the rest on the test's main
//          thread.
#pragma once

#include "core/snapshot.h"
#include "dispatch/workspace.h"

#include <atomic>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace glidemap::test {

class FakeWorkspace : public Workspace {
public:
    bool hasOverview = true;
    bool hasMissionControl() const override { return hasOverview; }

    void setFrontmost(Application application) { frontmost.set(std::move(application)); }

    Application frontmostApplication() const override {
        ++timesAskedForFrontmost;
        return *frontmost.get();
    }

    std::vector<Application> runningApplications() const override { return running; }

    std::optional<std::string> urlForApplication(const std::string& bundleID) const override {
        const auto found = urls.find(bundleID);
        return found != urls.end() ? std::optional(found->second) : std::nullopt;
    }

    std::optional<std::string> iconOfApplication(const std::string& bundleID) const override {
        const auto found = icons.find(bundleID);
        return found != icons.end() ? std::optional(found->second) : std::nullopt;
    }

    void openApplication(const std::string& url) override {
        opened.push_back("application " + url);
    }
    void openMissionControl() override { opened.emplace_back("mission control"); }
    void openAccessibilitySettings() override { opened.emplace_back("accessibility settings"); }
    void openURL(const std::string& url) override { opened.push_back("url " + url); }

    std::vector<Application> running;
    std::map<std::string, std::string> urls; // each application's location, by its identifier
    std::map<std::string, std::string> icons;
    std::vector<std::string> opened; // in the order of the requests
    mutable std::atomic<int> timesAskedForFrontmost = 0;

private:
    Snapshot<Application> frontmost;
};

} // namespace glidemap::test
