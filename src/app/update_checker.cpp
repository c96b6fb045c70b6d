#include "app/update_checker.h"

#include "app/fetch_program.h"
#include "app/update_manifest.h"
#include "app/version_order.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>
#include <utility>

namespace glidemap {

namespace {

// A valid manifest is used even if the transport also reports an error.
UpdateResult resultOf(const Fetched& fetched, const std::string& running) {
    if (auto version = versionInManifest(fetched.body)) {
        return isNewerVersion(*version, running) ? std::move(version) : std::nullopt;
    }
    if (fetched.transportError) {
        return UpdateError{UpdateError::Kind::transport, *fetched.transportError};
    }
    return UpdateError{UpdateError::Kind::badServerResponse, "not a manifest"};
}

} // namespace

std::shared_ptr<UpdateChecker> UpdateChecker::create(Setup setup) {
    return std::shared_ptr<UpdateChecker>(new UpdateChecker(std::move(setup)));
}

UpdateChecker::UpdateChecker(Setup setup) : setup(std::move(setup)) {}
UpdateChecker::~UpdateChecker() = default;

void UpdateChecker::start() {
    check();
    timer = setup.repeat(interval, [weak = weak_from_this()] {
        if (const auto checker = weak.lock()) {
            checker->check();
        }
    });
}

void UpdateChecker::check(Completion completion) {
    if (!setup.currentVersion) {
        if (completion) {
            completion(std::optional<std::string>());
        }
        return;
    }
    setup.fetch(versionURL(), [weak = weak_from_this(), running = *setup.currentVersion,
                               completion = std::move(completion)](const Fetched& fetched) {
        const UpdateResult result = resultOf(fetched, running);
        const auto* const newer = std::get_if<std::optional<std::string>>(&result);
        if (const auto checker = weak.lock(); checker && newer != nullptr) {
            checker->setLatestVersion(*newer);
        }
        if (completion) {
            completion(result);
        }
    });
}

void UpdateChecker::setLatestVersion(const std::optional<std::string>& version) {
    observers.announceWillChange();
    _latestVersion = version;
    observers.announceDidChange();
}

bool UpdateChecker::isNewer(std::string_view version, std::string_view other) {
    return isNewerVersion(version, other);
}

std::string UpdateChecker::defaultHost() {
    return GLIDEMAP_UPDATE_HOST;
}

std::optional<std::string> UpdateChecker::runningVersion() {
    return GLIDEMAP_VERSION;
}

Fetch UpdateChecker::overHttps() {
    return fetchByProgram(installedFetchProgram());
}

// With a coarse timer, the system can combine this wake-up with others. A minute early or late does
// not matter.
UpdateChecker::Repeat UpdateChecker::onTheMainLoop() {
    return [](std::chrono::seconds time, std::function<void()> block) {
        auto* const repeating = new QTimer(QCoreApplication::instance());
        repeating->setTimerType(Qt::VeryCoarseTimer);
        repeating->callOnTimeout(repeating, std::move(block));
        repeating->start(time);
        return std::make_shared<const QPointer<QTimer>>(repeating);
    };
}

} // namespace glidemap
