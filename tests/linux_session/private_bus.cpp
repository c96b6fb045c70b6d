#include "linux_session/private_bus.h"

#include <fcntl.h>
#include <gio/gio.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

extern char** environ;

namespace glidemap::test {

namespace {

std::string configuration(const std::filesystem::path& folder) {
    return "<busconfig><type>session</type><listen>unix:path=" + (folder / "bus").string() +
           "</listen><servicedir>" + (folder / "services").string() +
           "</servicedir><policy context=\"default\">"
           "<allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
           "<allow own=\"*\"/></policy></busconfig>\n";
}

// Up to the end of the first line, or of the stream.
std::string readLine(int file) {
    std::string line;
    char letter = 0;
    while (read(file, &letter, 1) == 1 && letter != '\n') {
        line += letter;
    }
    return line;
}

void readConfigurationAgain(const std::string& address) {
    constexpr auto flags =
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    GDBusConnection* const connection =
        g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr, nullptr, nullptr);
    ASSERT_NE(connection, nullptr);
    GVariant* const done = g_dbus_connection_call_sync(
        connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
        "ReloadConfig", nullptr, nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    g_object_unref(connection);
    ASSERT_NE(done, nullptr);
    g_variant_unref(done);
}

} // namespace

PrivateBus::PrivateBus() {
    std::filesystem::create_directories(folder.path() / "services");
    const std::string file =
        "--config-file=" + folder.write("bus.conf", configuration(folder.path())).string();
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    const std::string complaints = folder.path() / "complaints";
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, complaints.c_str(),
                                     O_WRONLY | O_CREAT, 0600);
    std::array<const char*, 6> words{"dbus-daemon",       "--nofork",   "--nopidfile",
                                     "--print-address=1", file.c_str(), nullptr};
    EXPECT_EQ(posix_spawnp(&process, words[0], &actions, nullptr,
                           const_cast<char* const*>(words.data()), environ),
              0);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    _address = readLine(ends[0]);
    close(ends[0]);
    EXPECT_NE(_address, "") << contentOf(complaints);
}

PrivateBus::~PrivateBus() {
    if (process > 0) {
        kill(process, SIGTERM);
        waitpid(process, nullptr, 0);
    }
}

void PrivateBus::makeStartable(const std::string& name, const std::string& command) const {
    folder.write("services/" + name + ".service",
                 "[D-BUS Service]\nName=" + name + "\nExec=" + command + "\n");
    readConfigurationAgain(_address); // it would notice by itself, some time later
}

} // namespace glidemap::test
