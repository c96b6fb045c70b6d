// Checks for a newer published version: on startup, then once a day, and on request.
//
// A check downloads the manifest from versionURL() and compares its version with the running one
// (app/version_order.h). A newer version becomes latestVersion(); without one, latestVersion() is
// cleared. While it is set, the status menu and a notice in the settings window offer the download.
// A requested check also shows its result, or its failure, in an alert. If the running version is
// unknown, nothing is downloaded.
//
// Thread:  the main thread.
// Owner:   the application's delegate. Pending checks and the daily timer hold the checker weakly.
// Errors:  passed to the caller's completion only. After a failure, latestVersion() is unchanged.
#pragma once

#include "app/fetch.h"
#include "core/observable.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace glidemap {

// The reason why a check failed. `text` is not shown to the user.
struct UpdateError {
    enum class Kind { transport, badServerResponse };
    Kind kind = Kind::badServerResponse;
    std::string text;
};

// The newer version, nullopt if there is no newer version, or the error of a failed check.
using UpdateResult = std::variant<std::optional<std::string>, UpdateError>;

class UpdateChecker : public std::enable_shared_from_this<UpdateChecker> {
public:
    using Completion = std::function<void(const UpdateResult&)>;

    // Calls `block` on the main thread at this interval until the program ends. Releasing the
    // returned pointer does not stop the timer.
    using Repeat = std::function<std::shared_ptr<const void>(std::chrono::seconds interval,
                                                             std::function<void()> block)>;

    struct Setup {
        std::string host = defaultHost(); // must include ":port" for a port other than the default
        std::optional<std::string> currentVersion = runningVersion();
        Fetch fetch = overHttps();
        Repeat repeat = onTheMainLoop();
    };

    static constexpr std::chrono::seconds interval = std::chrono::hours(24);

    static std::shared_ptr<UpdateChecker> create(Setup setup);
    ~UpdateChecker();
    UpdateChecker(const UpdateChecker&) = delete;
    UpdateChecker& operator=(const UpdateChecker&) = delete;

    // Checks immediately and then daily. Must be called only once, at launch, because each call
    // creates a timer.
    void start();

    // Calls the completion once: immediately if the running version is unknown, otherwise when the
    // download has ended. The completion is called even if the checker is destroyed in the
    // meantime, but not if the program quits first.
    void check(Completion completion = {});

    const std::optional<std::string>& latestVersion() const { return _latestVersion; }
    const std::optional<std::string>& currentVersion() const { return setup.currentVersion; }
    std::string versionURL() const { return "https://" + setup.host + "/version.json"; }
    std::string siteURL() const { return "https://" + setup.host + "/"; }

    // Notifies observers of each successful check, before and after it sets latestVersion().
    Observable& changes() { return observers; }

    // Whether `version` is strictly newer than `other`.
    static bool isNewer(std::string_view version, std::string_view other);

    // Return values that are set at build time.
    static std::string defaultHost();
    static std::optional<std::string> runningVersion();

    static Fetch overHttps();
    static Repeat onTheMainLoop();

private:
    explicit UpdateChecker(Setup setup);
    void setLatestVersion(const std::optional<std::string>& version);

    const Setup setup;
    std::optional<std::string> _latestVersion;
    std::shared_ptr<const void> timer;
    Observable observers;
};

} // namespace glidemap
