// Stores each reported application once, at a fixed address. The frontmost application can
// therefore be a single pointer that is read without a lock and never dangles.
//
// Entries are never removed. The number of entries is limited, because a program may give its
// windows an unlimited number of different application ids. Applications beyond the limit map to
// unknown().
//
// Thread:  intern() on one thread; any thread may read its results.
// Owner:   the workspace; the table must live as long as all readers of its results.
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

    // Returns an application without name and identifier. Never null.
    static const Application* unknown();

private:
    using Key = std::pair<std::optional<std::string>, std::optional<std::string>>;

    std::size_t maxApplications;
    std::map<Key, Application> applications; // map nodes keep their addresses
};

} // namespace glidemap
