// Sets a test's function as the driver's click filter. The function records its calls and returns
// the results that the test chooses.
//
// Thread:  a test's; the driver calls the filter on its own thread.
// Owner:   a test; one at a time, within the life of a DriverSession.
// Errors:  a driver without the click filter's functions fails the test.
#pragma once

#include "driver_session.h"
#include "drivers/evdev/click_filter.h"

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace glidemap::test {

struct AskedClick {
    std::int32_t event = 0;
    std::int32_t button = 0;
    int fingers = 0; // the number that the driver had reported before the call

    friend bool operator==(const AskedClick&, const AskedClick&) = default;
    friend std::ostream& operator<<(std::ostream& output, const AskedClick& click);
};

class ClickFilterSession {
public:
    using Answer = std::function<bool(const AskedClick&)>;

    // The default filter function drops clicks of two or more fingers, each with its release, as
    // the program does.
    explicit ClickFilterSession(DriverSession& session);
    ClickFilterSession(const ClickFilterSession&) = delete;
    ClickFilterSession& operator=(const ClickFilterSession&) = delete;
    ~ClickFilterSession();

    bool isPossible() const { return canFilter(); }
    // Returns why the driver does not filter the device's clicks. Empty if nothing prevents it.
    std::string obstacle(driver::Device device) const;
    // Waits until each clone is ready or has failed.
    bool waitUntilIntroduced() const;
    void switchOn(bool on) const { switchFilter(on); }

    // Replaces the default filter function.
    void answer(Answer newAnswer);

    std::vector<AskedClick> asked() const;
    // Waits for at least `count` calls and returns all calls.
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
    std::vector<std::int32_t> swallowed; // the buttons whose release must be dropped
};

} // namespace glidemap::test
