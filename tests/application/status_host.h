// The part of a desktop's panel that shows status items: the watcher that programs register with, and
// the host that it speaks of.
//
// Thread:  made, used and destroyed on the test's; answers programs on one of its own.
// Owner:   a test or a stage; before the bus it is on ends.
// Errors:  none.
#pragma once

#include "platform/linux/windows/desktop_thread.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::application {

class StatusHost {
public:
    // Where a program's item is: its name on the bus, and its path.
    struct Item {
        std::string busName;
        std::string path;

        friend bool operator==(const Item&, const Item&) = default;
    };

    explicit StatusHost(const std::string& busAddress);
    StatusHost(const StatusHost&) = delete;
    StatusHost& operator=(const StatusHost&) = delete;
    ~StatusHost();

    // Those that are registered now.
    std::vector<Item> items() const;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap::application
