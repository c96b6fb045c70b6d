#include "platform/common/application_table.h"

namespace glidemap {

ApplicationTable::ApplicationTable(std::size_t places) : limit(places) {}

const Application* ApplicationTable::intern(Application application) {
    if (application == *unknown()) {
        return unknown();
    }
    Key key(application.bundleID, application.name);
    const auto known = applications.find(key);
    if (known != applications.end()) {
        return &known->second;
    }
    if (applications.size() == limit) {
        return unknown();
    }
    return &applications.emplace(std::move(key), std::move(application)).first->second;
}

const Application* ApplicationTable::unknown() {
    static const Application nothing;
    return &nothing;
}

} // namespace glidemap
