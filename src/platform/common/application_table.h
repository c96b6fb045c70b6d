// Every application that was ever told of, once, at an address that stays: so that which one is
// frontmost is a single pointer, read without a lock and never dangling.
//
// It only grows, and only so far: a window that changes its app id for ever is no reason to run out
// of memory. What comes after the last free place is an application of which nothing is known.
//
// Thread:  intern() on one thread; what it returned may be read on any.
// Owner:   the workspace; lives as long as its readers.
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
    explicit ApplicationTable(std::size_t places);

    const Application* intern(Application application);

    // The one of which nothing is known. Never null.
    static const Application* unknown();

private:
    using Key = std::pair<std::optional<std::string>, std::optional<std::string>>;

    std::size_t limit;
    std::map<Key, Application> applications; // nodes never move
};

} // namespace glidemap
