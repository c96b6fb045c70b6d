// Stores every reported application once, at a fixed address. So the frontmost application is a
// single pointer that is read without a lock and never dangles.
//
// The table only grows, up to a limit, because a window may change its app id endlessly.
// Applications beyond the limit map to unknown().
//
// Thread:  intern() on one thread; any thread may read its results.
// Owner:   the workspace; it lives as long as its readers.
#pragma once

#include "dispatch/workspace.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace glidemap {

class ApplicationTable {
public:
    explicit ApplicationTable(std::size_t maxApplications);

    const Application* intern(Application application);

    // The application without a name or identifier. Never null.
    static const Application* unknown();

private:
    using Key = std::pair<std::optional<std::string>, std::optional<std::string>>;

    std::size_t maxApplications;
    std::map<Key, Application> applications; // map nodes keep their addresses
};

} // namespace glidemap
