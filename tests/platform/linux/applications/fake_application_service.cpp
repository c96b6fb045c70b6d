#include "fake_application_service.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <utility>

namespace glidemap {

using namespace test;

const PrivateBus& sessionBus() {
    static const PrivateBus bus;
    static const int isSet = setenv("DBUS_SESSION_BUS_ADDRESS", bus.address().c_str(), 1);
    EXPECT_EQ(isSet, 0);
    return bus;
}

FakeApplicationService::FakeApplicationService(const std::string& name, std::string answeredError)
    : error(std::move(answeredError)) {
    const int flags = G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                      G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION;
    connection = g_dbus_connection_new_for_address_sync(sessionBus().address().c_str(),
                                                        static_cast<GDBusConnectionFlags>(flags),
                                                        nullptr, nullptr, nullptr);
    if (connection == nullptr) {
        ADD_FAILURE() << "no session bus";
        return;
    }
    g_dbus_connection_add_filter(connection, filter, this, nullptr);
    GVariant* const owned = g_dbus_connection_call_sync(
        connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
        "RequestName", g_variant_new("(su)", name.c_str(), 4U), nullptr, G_DBUS_CALL_FLAGS_NONE, -1,
        nullptr, nullptr);
    EXPECT_NE(owned, nullptr) << name;
    if (owned != nullptr)
        g_variant_unref(owned);
}

FakeApplicationService::~FakeApplicationService() {
    if (connection == nullptr)
        return;
    g_dbus_connection_close_sync(connection, nullptr, nullptr);
    g_object_unref(connection);
}

GDBusMessage* FakeApplicationService::filter(GDBusConnection* /*connection*/, GDBusMessage* message,
                                             int incoming, void* self) {
    if (incoming == FALSE ||
        g_dbus_message_get_message_type(message) != G_DBUS_MESSAGE_TYPE_METHOD_CALL)
        return message;
    static_cast<FakeApplicationService*>(self)->take(message);
    g_object_unref(message);
    return nullptr;
}

void FakeApplicationService::take(GDBusMessage* message) {
    GVariant* const body = g_dbus_message_get_body(message);
    char* const arguments = body != nullptr ? g_variant_print(body, TRUE) : g_strdup("()");
    std::string call = std::string(g_dbus_message_get_path(message)) + ", " +
                       g_dbus_message_get_interface(message) + "." +
                       g_dbus_message_get_member(message) + ", " + arguments;
    g_free(arguments);
    GDBusMessage* const answer =
        error.empty()
            ? g_dbus_message_new_method_reply(message)
            : g_dbus_message_new_method_error_literal(message, error.c_str(), "as the test wants");
    g_dbus_connection_send_message(connection, answer, G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr,
                                   nullptr);
    g_object_unref(answer);
    const std::lock_guard lock(mutex);
    calls.push_back(std::move(call));
    called.notify_one();
}

std::string FakeApplicationService::nextCall() {
    std::unique_lock lock(mutex);
    if (!called.wait_for(lock, patience, [this] { return !calls.empty(); })) {
        ADD_FAILURE() << "no call has arrived";
        return "";
    }
    std::string call = calls.front();
    calls.erase(calls.begin());
    return call;
}

} // namespace glidemap
