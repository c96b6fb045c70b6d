#include "platform/linux/diagnosis/bus_survey.h"

#include "platform/linux/desktop/desktop_bus.h"

#include <gio/gio.h>

#include <future>
#include <optional>
#include <thread>
#include <utility>

namespace glidemap {

namespace {

using Connection = GlibOwner<GDBusConnection>;
using Variant = GlibOwner<GVariant>;

Connection connect(const std::string& address) {
    constexpr auto flags =
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    Connection connection(
        g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr, nullptr, nullptr));
    if (connection) {
        g_dbus_connection_set_exit_on_close(connection.get(), FALSE);
    }
    return connection;
}

std::optional<std::set<std::string>> names(GDBusConnection* connection, const char* method) {
    const Variant answer(g_dbus_connection_call_sync(
        connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
        nullptr, G_VARIANT_TYPE("(as)"), G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
    const auto words = wordsIn(answer.get());
    return words ? std::optional(std::set(words->begin(), words->end())) : std::nullopt;
}

BusSurvey ask(const std::string& address) {
    const Connection connection = connect(address);
    auto running = connection ? names(connection.get(), "ListNames") : std::nullopt;
    auto startable = running ? names(connection.get(), "ListActivatableNames") : std::nullopt;
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
