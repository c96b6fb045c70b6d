#include "platform/common/application_table.h"

namespace glidemap {

ApplicationTable::ApplicationTable(std::size_t maxApplications)
    : maxApplications(maxApplications) {}

const Application* ApplicationTable::intern(Application application) {
    if (application == *unknown()) {
        return unknown();
    }
    Key key(application.bundleID, application.name);
    const auto known = applications.find(key);
    if (known != applications.end()) {
        return &known->second;
    }
    if (applications.size() == maxApplications) {
        return unknown();
    }
    return &applications.emplace(std::move(key), std::move(application)).first->second;
}

const Application* ApplicationTable::unknown() {
    static const Application nothing;
    return &nothing;
}

} // namespace glidemap
