// Finds out whether a newer version has been published: at start, then once a day, and when the user
// asks.
//
// Thread:  the main thread.
// Owner:   the application's delegate. What is under way, and the daily timer, hold it weakly.
// Errors:  told to whoever asked; silent otherwise. What is known survives every failure.
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

// What the system said; not for the user's eyes.
struct UpdateError {
    enum class Kind { transport, badServerResponse };
    Kind kind = Kind::badServerResponse;
    std::string text;
};

// The newer version, or none where the running one is current.
using UpdateResult = std::variant<std::optional<std::string>, UpdateError>;

class UpdateChecker : public std::enable_shared_from_this<UpdateChecker> {
public:
    using Completion = std::function<void(const UpdateResult&)>;

    // Calls the block again and again, on the main thread, for the rest of the program: what it
    // answers refers to the timer, and letting go of that does not stop it.
    using Repeat = std::function<std::shared_ptr<const void>(std::chrono::seconds interval,
                                                             std::function<void()> block)>;

    // Where the manifest and the website are, what runs, and how the world is reached.
    struct Setup {
        std::string host = defaultHost(); // with ":port" where it is not the usual one
        std::optional<std::string> currentVersion = runningVersion();
        Fetch fetch = overHttps();
        Repeat repeat = onTheMainLoop();
    };

    static constexpr std::chrono::seconds interval = std::chrono::hours(24);

    static std::shared_ptr<UpdateChecker> create(Setup setup);
    ~UpdateChecker();
    UpdateChecker(const UpdateChecker&) = delete;
    UpdateChecker& operator=(const UpdateChecker&) = delete;

    // Checks at once, and from then on every day. Once, at launch: another call makes another timer.
    void start();

    // The completion is called exactly once: later, or at once where it is not known what runs. It
    // is called even if the checker has gone meanwhile.
    void check(Completion completion = {});

    const std::optional<std::string>& latestVersion() const { return _latestVersion; }
    const std::optional<std::string>& currentVersion() const { return setup.currentVersion; }
    std::string versionURL() const { return "https://" + setup.host + "/version.json"; }
    std::string siteURL() const { return "https://" + setup.host + "/"; }

    // Of the latest version.
    Observable& changes() { return observers; }

    // Whether version `version` is strictly newer than `other`.
    static bool isNewer(std::string_view version, std::string_view other);

    // Set when the program is built.
    static std::string defaultHost();
    static std::optional<std::string> runningVersion();

    static Fetch overHttps();
    static Repeat onTheMainLoop();

private:
    explicit UpdateChecker(Setup given);
    void setLatestVersion(const std::optional<std::string>& version);

    const Setup setup;
    std::optional<std::string> _latestVersion;
    std::shared_ptr<const void> timer;
    Observable observers;
};

} // namespace glidemap
