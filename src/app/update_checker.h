// Finds out whether a newer version has been published: at start, then once a day, and when the user
// asks.
//
// Units:   times in milliseconds where Qt takes them.
// Thread:  the main thread.
// Owner:   the application's delegate. A check that is under way holds it weakly.
// Errors:  told to whoever asked; silent otherwise. What is known survives every failure.
#pragma once

#include "core/observable.h"

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

    // Where the manifest and the website are, and what runs.
    struct Setup {
        std::string host = defaultHost(); // with ":port" where it is not the usual one
        std::optional<std::string> currentVersion = runningVersion();
    };

    static std::shared_ptr<UpdateChecker> create(Setup setup);
    ~UpdateChecker();
    UpdateChecker(const UpdateChecker&) = delete;
    UpdateChecker& operator=(const UpdateChecker&) = delete;

    void start();
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

private:
    struct Network;

    explicit UpdateChecker(Setup given);

    Setup setup;
    std::optional<std::string> _latestVersion;
    std::unique_ptr<Network> network;
    Observable observers;
};

} // namespace glidemap
