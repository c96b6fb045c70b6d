#include "bindings/binding_json.h"
#include "bindings/binding_store.h"
#include "desktops/private_bus.h"
#include "desktops/silent_socket.h"
#include "kit/in_environment.h"
#include "kit/patience.h"
#include "kit/temporary_folder.h"
#include "platform/linux/diagnosis/diagnosis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

namespace glidemap {
namespace {

using testing::HasSubstr;
using testing::Not;

// Provides a home folder, but no display, buses or bindings.
class DiagnosisTest : public testing::Test {
protected:
    static DiagnosisFacts facts() {
        return {"1.2.3", "Qt 6.4.2", true, std::chrono::milliseconds(50)};
    }

    std::filesystem::path bindingsFile() const {
        return folder.path() / "data" / "Glidemap" / "bindings.json";
    }

    void writeBindings(const std::string& text) const {
        std::filesystem::create_directories(bindingsFile().parent_path());
        std::ofstream(bindingsFile()) << text;
    }

    test::TemporaryFolder folder;
    test::InEnvironment home{"HOME", folder.path().c_str()};
    test::InEnvironment data{"XDG_DATA_HOME", (folder.path() / "data").c_str()};
    test::InEnvironment runtime{"XDG_RUNTIME_DIR", folder.path().c_str()};
    test::InEnvironment session{"DBUS_SESSION_BUS_ADDRESS", nullptr};
    test::InEnvironment system{"DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent/bus"};
    test::InEnvironment wayland{"WAYLAND_DISPLAY", nullptr};
    test::InEnvironment display{"DISPLAY", nullptr};
    test::InEnvironment driver{"GLIDEMAP_TOUCH_DRIVER", GLIDEMAP_EVDEV_DRIVER};
};

TEST_F(DiagnosisTest, HasAllSectionsWithoutDisplayOrBus) {
    const std::string page = diagnosisPage(facts());
    EXPECT_TRUE(page.starts_with("Glidemap 1.2.3\n")) << page;
    for (const char* line :
         {"\n  libraries: Qt 6.4.2, GLib 2.", "\n  gestures: switched on\n", "\nSession\n",
          "\n  DISPLAY: (not set)\n", "\n  session bus: missing\n", "\n  system bus: refuses\n",
          "\n  compositor, org.kde.KWin: unknown\n", "\nTouchpads\n",
          "\n  /dev/uinput, for clones and for typing: ", "\nServices\n",
          "\n  status bar, org.kde.StatusNotifierWatcher: unknown\n",
          "\n  lock, org.freedesktop.login1: unknown\n",
          "\n  overview, org.kde.kglobalaccel: unknown\n", "\nBindings\n",
          "\n  file: ~/data/Glidemap/bindings.json\n",
          "\n  content: No such file or directory\n"}) {
        EXPECT_THAT(page, HasSubstr(line));
    }
}

TEST_F(DiagnosisTest, ReportsActionsThatNoServiceCanPerform) {
    const std::string silent = diagnosisPage(facts());
    EXPECT_THAT(silent, Not(HasSubstr("locking the screen")));
    const test::PrivateBus bus;
    const test::InEnvironment here("DBUS_SESSION_BUS_ADDRESS", bus.address().c_str());
    const test::InEnvironment too("DBUS_SYSTEM_BUS_ADDRESS", bus.address().c_str());
    DiagnosisFacts patient = facts();
    patient.patience = test::patience;
    const std::string page = diagnosisPage(patient);
    EXPECT_THAT(page,
                HasSubstr("\n  locking the screen: no service for it: Control, Super and Q are "
                          "typed instead\n"));
    EXPECT_THAT(page, HasSubstr("\n  the overview: no service for it: nothing is shown\n"));
}

TEST_F(DiagnosisTest, CreatesNoFiles) {
    diagnosisPage(facts());
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(DiagnosisTest, ReportsABusThatNeverReplies) {
    const test::SilentSocket silent;
    const test::InEnvironment address("DBUS_SESSION_BUS_ADDRESS", silent.address().c_str());
    EXPECT_THAT(diagnosisPage(facts()), HasSubstr("\n  session bus: does not reply\n"));
}

TEST_F(DiagnosisTest, CountsBindingsWithoutListingThem) {
    writeBindings(encodeBindings(defaultBindings()));
    const std::string page = diagnosisPage(facts());
    EXPECT_THAT(page, HasSubstr("\n  content: 3 bindings\n"));
    EXPECT_THAT(page, HasSubstr("\n  folder: can be written\n"));
    EXPECT_THAT(page, Not(HasSubstr("drawCircle")));
}

TEST_F(DiagnosisTest, ReportsAnErrorInTheBindingsFile) {
    writeBindings(R"([{"gesture":"nonsense"}])");
    EXPECT_THAT(diagnosisPage(facts()), HasSubstr("\n  content: invalid, [0]"));
    std::filesystem::remove(bindingsFile());
    std::filesystem::create_directory(bindingsFile());
    EXPECT_THAT(diagnosisPage(facts()), HasSubstr("\n  content: cannot be read\n"));
}

TEST_F(DiagnosisTest, ReportsADriverThatCannotBeLoaded) {
    const test::InEnvironment other("GLIDEMAP_TOUCH_DRIVER", "/nonexistent/driver.so");
    const std::string page = diagnosisPage(facts());
    EXPECT_THAT(page, HasSubstr("\n  driver: /nonexistent/driver.so\n  it cannot be loaded: "));
}

TEST_F(DiagnosisTest, ReportsTheProgramThatServesADisplay) {
    const test::SilentSocket compositor;
    const std::string path = compositor.address().substr(std::string("unix:path=").size());
    const test::InEnvironment shown("WAYLAND_DISPLAY", path.c_str());
    std::array<char, 16> ownName = {}; // the kernel truncates the name
    ASSERT_EQ(prctl(PR_GET_NAME, ownName.data()), 0);
    EXPECT_THAT(diagnosisPage(facts()),
                HasSubstr(std::string(", served by ") + ownName.data() + "\n"));
    const test::InEnvironment other("WAYLAND_DISPLAY", "/nonexistent/wayland-0");
    EXPECT_THAT(
        diagnosisPage(facts()),
        HasSubstr("\n  WAYLAND_DISPLAY: /nonexistent/wayland-0, where no program listens\n"));
}

} // namespace
} // namespace glidemap
