#include "platform/linux/diagnosis/bus_survey.h"

#include "platform/linux/desktop/desktop_bus.h"

#include <future>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

namespace glidemap {

namespace {

constexpr std::chrono::seconds patienceOfACall{25}; // the usual time limit of D-Bus

std::optional<std::set<std::string>> names(const DesktopBus& bus, const char* method) {
    const BusObject daemon{"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus"};
    const auto reply = bus.wait({daemon, method, IfNotRunning::leave, patienceOfACall}, nullptr);
    const auto words = wordsIn(reply.values.get());
    return words ? std::optional(std::set(words->begin(), words->end())) : std::nullopt;
}

BusSurvey ask(const std::string& address) {
    const auto bus = DesktopBus::open(address);
    auto running = bus ? names(*bus, "ListNames") : std::nullopt;
    auto startable = running ? names(*bus, "ListActivatableNames") : std::nullopt;
    if (!startable) {
        return {BusSurvey::State::refused, {}, {}};
    }
    return {BusSurvey::State::answered, std::move(*running), std::move(*startable)};
}

} // namespace

const char* nameOf(BusSurvey::State state) {
    switch (state) {
    case BusSurvey::State::absent:
        return "missing";
    case BusSurvey::State::silent:
        return "does not reply";
    case BusSurvey::State::refused:
        return "refuses";
    case BusSurvey::State::answered:
        break;
    }
    return "answers";
}

BusSurvey surveyBus(Bus bus, std::chrono::milliseconds patience) {
    const auto address = busAddress(bus);
    if (!address) {
        return {};
    }
    std::promise<BusSurvey> promise;
    std::future<BusSurvey> result = promise.get_future();
    std::thread([address = *address, promise = std::move(promise)]() mutable {
        promise.set_value(ask(address));
    }).detach();
    const bool inTime = result.wait_for(patience) == std::future_status::ready;
    return inTime ? result.get() : BusSurvey{BusSurvey::State::silent, {}, {}};
}

} // namespace glidemap
