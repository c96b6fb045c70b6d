#include "app/update_checker.h"

#include <utility>

namespace glidemap {

struct UpdateChecker::Network {};

std::shared_ptr<UpdateChecker> UpdateChecker::create(Setup setup) {
    return std::shared_ptr<UpdateChecker>(new UpdateChecker(std::move(setup)));
}

UpdateChecker::UpdateChecker(Setup given) : setup(std::move(given)) {}
UpdateChecker::~UpdateChecker() = default;

void UpdateChecker::start() {}

void UpdateChecker::check(Completion /*completion*/) {}

bool UpdateChecker::isNewer(std::string_view /*version*/, std::string_view /*other*/) {
    return false;
}

std::string UpdateChecker::defaultHost() {
    return GLIDEMAP_UPDATE_HOST;
}

std::optional<std::string> UpdateChecker::runningVersion() {
    return GLIDEMAP_VERSION;
}

} // namespace glidemap
