// The driver's click filter, with a filter of the test's: what it was asked is kept, and what it
// answers is the test's to say.
//
// Thread:  a test's; the filter is asked on the driver's thread.
// Owner:   a test; one at a time, within the life of a DriverSession.
// Errors:  a driver without these functions is a failure of the test.
#pragma once

#include "driver_session.h"
#include "drivers/evdev/click_filter.h"

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace glidemap::vm {

struct AskedClick {
    std::int32_t event = 0;
    std::int32_t button = 0;
    int fingers = 0; // that the driver had reported when it asked

    friend bool operator==(const AskedClick&, const AskedClick&) = default;
    friend std::ostream& operator<<(std::ostream& output, const AskedClick& click);
};

class ClickFilterSession {
public:
    using Answer = std::function<bool(const AskedClick&)>;

    // Drops clicks of two fingers or more, each with its release, as the program does.
    explicit ClickFilterSession(DriverSession& session);
    ClickFilterSession(const ClickFilterSession&) = delete;
    ClickFilterSession& operator=(const ClickFilterSession&) = delete;
    ~ClickFilterSession();

    bool isPossible() const { return canFilter(); }
    // Why the clicks of the device are not filtered; empty if they may be.
    std::string obstacle(driver::Device device) const;
    // Waits until the system knows the clones of all devices, or has been given up.
    bool waitUntilIntroduced() const;
    void switchOn(bool on) const { switchFilter(on); }

    // Instead of the answer that it gives otherwise.
    void answer(Answer newAnswer);

    std::vector<AskedClick> asked() const;
    // Waits for so many, and answers them all.
    std::vector<AskedClick> waitForAsked(std::size_t count) const;

private:
    static bool filter(void* context, driver::Device device, std::int32_t event,
                       std::int32_t button);
    bool dropLikeTheProgram(const AskedClick& click);

    DriverSession& session;
    driver::SetClickFilter setFilter = nullptr;
    driver::SwitchClickFilter switchFilter = nullptr;
    driver::CanFilterClicks canFilter = nullptr;
    driver::ClickFilterObstacle obstacleOf = nullptr;

    mutable std::mutex mutex;
    mutable std::condition_variable news;
    std::vector<AskedClick> clicks;
    Answer answerNow;
    std::vector<std::int32_t> swallowed; // the buttons whose release is to be dropped
};

} // namespace glidemap::vm
