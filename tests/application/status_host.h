// The part of a panel that shows status items: the watcher with which programs register, and the
// host that the watcher announces.
//
// Thread:  created, used and destroyed on the test's thread; serves programs on its own thread.
// Owner:   a test or a stage. It is destroyed before its bus ends.
// Errors:  none.
#pragma once

#include "platform/linux/desktop/desktop_thread.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::test {

class StatusHost {
public:
    // The address of a program's item: a bus name and an object path.
    struct Item {
        std::string busName;
        std::string path;

        friend bool operator==(const Item&, const Item&) = default;
    };

    explicit StatusHost(const std::string& busAddress);
    StatusHost(const StatusHost&) = delete;
    StatusHost& operator=(const StatusHost&) = delete;
    ~StatusHost();

    // Returns the registered items.
    std::vector<Item> items() const;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap::test
