#include "click_filter_session.h"

#include "deadline.h"

#include <gtest/gtest.h>
#include <sched.h>

#include <algorithm>
#include <ostream>
#include <utility>

namespace glidemap::test {

std::ostream& operator<<(std::ostream& output, const AskedClick& click) {
    return output << "event " << click.event << ", button " << click.button << ", " << click.fingers
                  << " fingers";
}

ClickFilterSession::ClickFilterSession(DriverSession& driverSession) : session(driverSession) {
    setFilter = session.symbol<driver::SetClickFilter>(driver::setClickFilterSymbol);
    switchFilter = session.symbol<driver::SwitchClickFilter>(driver::switchClickFilterSymbol);
    canFilter = session.symbol<driver::CanFilterClicks>(driver::canFilterClicksSymbol);
    obstacleOf = session.symbol<driver::ClickFilterObstacle>(driver::clickFilterObstacleSymbol);
    setFilter(&filter, this);
}

ClickFilterSession::~ClickFilterSession() {
    switchFilter(false);
    setFilter(nullptr, nullptr);
}

bool ClickFilterSession::filter(void* context, driver::Device device, std::int32_t event,
                                std::int32_t button) {
    auto& self = *static_cast<ClickFilterSession*>(context);
    const auto contacts = self.session.seen().lastOf(device);
    const auto fingers = std::ranges::count_if(contacts, &SeenContact::isTouching);
    const AskedClick click{event, button, static_cast<int>(fingers)};
    Answer answer;
    {
        const std::lock_guard lock(self.mutex);
        self.clicks.push_back(click);
        self.news.notify_all();
        answer = self.answerNow;
    }
    return answer ? answer(click) : self.dropLikeTheProgram(click);
}

bool ClickFilterSession::dropLikeTheProgram(const AskedClick& click) {
    if (click.event == driver::clickFilterButtonUp) {
        return std::erase(swallowed, click.button) > 0;
    }
    const bool drop = click.event == driver::clickFilterButtonDown && click.fingers >= 2;
    if (drop) {
        swallowed.push_back(click.button);
    }
    return drop;
}

std::string ClickFilterSession::obstacle(driver::Device device) const {
    const char* text = obstacleOf(device);
    return text != nullptr ? text : "";
}

bool ClickFilterSession::waitUntilIntroduced() const {
    const std::vector<driver::Device> devices = session.devices();
    const Deadline deadline;
    const auto isNew = [&](driver::Device device) {
        return obstacle(device) == driver::cloneIsNew;
    };
    while (!session.waitUntilAsleep() || std::ranges::any_of(devices, isNew)) {
        if (deadline.passed()) {
            ADD_FAILURE() << "the driver did not finish introducing a clone";
            return false;
        }
        sched_yield();
    }
    return session.waitUntilAsleep();
}

void ClickFilterSession::answer(Answer newAnswer) {
    const std::lock_guard lock(mutex);
    answerNow = std::move(newAnswer);
}

std::vector<AskedClick> ClickFilterSession::asked() const {
    const std::lock_guard lock(mutex);
    return clicks;
}

std::vector<AskedClick> ClickFilterSession::waitForAsked(std::size_t count) const {
    std::unique_lock lock(mutex);
    news.wait_until(lock, Deadline().time(), [&] { return clicks.size() >= count; });
    EXPECT_GE(clicks.size(), count) << "the driver did not call the filter";
    return clicks;
}

} // namespace glidemap::test
