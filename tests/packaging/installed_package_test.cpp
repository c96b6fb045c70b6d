// Tests the Debian package on a virtual machine: dpkg installs it, its programs run from their
// installed locations, and its removal leaves no file.

#include "input_devices.h"
#include "ordinary_pad.h"
#include "process.h"
#include "virtual_pad.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr const char* uinput = "/dev/uinput";
constexpr uid_t nobody = 65534;

fs::path package() {
    fs::path found;
    for (const auto& entry : fs::directory_iterator(GLIDEMAP_PACKAGES)) {
        if (entry.path().extension() == ".deb") {
            EXPECT_TRUE(found.empty()) << "more than one package";
            found = entry.path();
        }
    }
    return found;
}

// Runs dpkg without triggers: they update the desktop's databases, are slow, and belong to other
// packages. The only time limit is the virtual machine's own.
void dpkg(const std::string& arguments) {
    const std::string command = "dpkg --no-triggers " + arguments + " >/dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    // The package's scripts trigger udev, but do not wait until udev has applied the rules.
    EXPECT_EQ(std::system("udevadm settle"), 0);
}

void install() {
    dpkg("--install '" + package().string() + "'");
}

bool isForTheSeat(const fs::path& node) {
    return udevProperty(node, "CURRENT_TAGS").value_or("").find(":uaccess:") != std::string::npos;
}

// Returns the installed paths. Reads the list of installed files, which has lines such as
// "644 bin/glidemap".
std::vector<fs::path> filesOfThePackage() {
    std::vector<fs::path> files;
    std::ifstream list(GLIDEMAP_INSTALLED_FILES);
    for (std::string mode, name; list >> mode >> name;) {
        files.push_back(fs::path("/usr") / name);
    }
    EXPECT_FALSE(files.empty());
    return files;
}

// A home folder for a program that runs as the user `nobody`.
class Home {
public:
    Home() {
        fs::create_directories(folder / "runtime");
        fs::permissions(folder / "runtime", fs::perms::owner_all);
        for (const fs::path& path : {folder, folder / "runtime"}) {
            EXPECT_EQ(chown(path.c_str(), nobody, nobody), 0);
        }
        setenv("HOME", folder.c_str(), 1);
        setenv("XDG_RUNTIME_DIR", (folder / "runtime").c_str(), 1);
        for (const char* other : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "GLIDEMAP_TOUCH_DRIVER"}) {
            unsetenv(other);
        }
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    }
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;
    ~Home() { fs::remove_all(folder); }

private:
    fs::path folder = "/run/glidemap-home";
};

// Acts as logind, which gives the seat's user access to the devices that udev has tagged for the
// seat.
void handOver(const fs::path& node) {
    ASSERT_TRUE(isForTheSeat(node)) << node;
    ASSERT_EQ(chown(node.c_str(), nobody, nobody), 0);
}

// Installs the package once for all tests that need an installation.
void needInstallation() {
    if (!fs::exists("/usr/bin/glidemap")) {
        install();
    }
}

TEST(InstalledPackage, SeatGetsAccessToExistingAndNewlyConnectedTouchpads) {
    const VirtualPad pad(ordinaryPad());
    EXPECT_FALSE(isForTheSeat(pad.node()));
    install();
    EXPECT_TRUE(isForTheSeat(pad.node()));
    EXPECT_TRUE(isForTheSeat(uinput));
    const VirtualPad later(otherPad());
    EXPECT_TRUE(isForTheSeat(later.node()));
}

TEST(InstalledPackage, InstalledProgramRecognisesEveryGesture) {
    needInstallation();
    const Home home;
    Process replay({"/usr/bin/glidemap-replay", "--demonstrate"}, Process::User::nobody);
    EXPECT_EQ(replay.waitForEnd(), 0) << replay.errors();
}

TEST(InstalledPackage, InstalledDriverRecordsATouchpad) {
    needInstallation();
    const Home home;
    const VirtualPad pad(ordinaryPad());
    handOver(pad.node());
    Process recorder({"/usr/bin/glidemap-record", "-o", "/dev/null"}, Process::User::nobody);
    EXPECT_TRUE(recorder.waitUntilReading(pad.node()));
    recorder.send(SIGINT);
    EXPECT_EQ(recorder.waitForEnd(), 0) << recorder.errors();
}

TEST(InstalledPackage, ProgramRunsUntilATerminationSignal) {
    needInstallation();
    const Home home;
    const VirtualPad pad(ordinaryPad());
    handOver(pad.node());
    handOver(uinput);
    Process program({"/usr/bin/glidemap"}, Process::User::nobody);
    // The first window on a new machine makes fontconfig index every font, which is slow in this
    // kernel.
    EXPECT_TRUE(program.waitUntilReading(pad.node(), std::chrono::seconds(90)));
    program.send(SIGTERM);
    EXPECT_EQ(program.waitForEnd(), 0) << program.errors();
    EXPECT_THAT(program.errors(), Not(HasSubstr("glidemap:")));
    ASSERT_EQ(chown(uinput, 0, 0), 0);
}

TEST(InstalledPackage, RemovalLeavesNoFile) {
    needInstallation();
    const VirtualPad pad(ordinaryPad());
    EXPECT_TRUE(isForTheSeat(pad.node()));
    dpkg("--remove glidemap");
    for (const fs::path& file : filesOfThePackage()) {
        EXPECT_FALSE(fs::exists(file)) << file;
    }
    for (const char* folder :
         {"/usr/lib/glidemap", "/usr/libexec/glidemap", "/usr/share/glidemap"}) {
        EXPECT_FALSE(fs::exists(folder)) << folder;
    }
    EXPECT_FALSE(isForTheSeat(pad.node()));
    EXPECT_FALSE(isForTheSeat(uinput));
}

bool hasAccessList(const fs::path& node) {
    return getxattr(node.c_str(), "system.posix_acl_access", nullptr, 0) > 0;
}

// There is no logind here, so the test sets the access lists itself.
TEST(InstalledPackage, RemovalRevokesGrantedAccessImmediately) {
    if (!fs::exists("/usr/bin/setfacl")) {
        GTEST_SKIP() << "setfacl is not installed";
    }
    needInstallation();
    const VirtualPad pad(ordinaryPad());
    for (const fs::path& node : {pad.node(), fs::path(uinput)}) {
        const std::string command = "setfacl --modify user:65534:rw " + node.string();
        ASSERT_EQ(std::system(command.c_str()), 0) << command;
        ASSERT_TRUE(hasAccessList(node)) << node;
    }
    dpkg("--remove glidemap");
    EXPECT_FALSE(hasAccessList(pad.node()));
    EXPECT_FALSE(hasAccessList(uinput));
}

TEST(InstalledPackage, PurgeRevokesManuallyGrantedAccess) {
    needInstallation();
    for (const char* file :
         {"/etc/udev/rules.d/70-glidemap.rules", "/etc/modules-load.d/glidemap.conf"}) {
        fs::create_directories(fs::path(file).parent_path());
        std::ofstream(file) << "# granted before the package came\n";
    }
    dpkg("--remove glidemap");
    EXPECT_TRUE(fs::exists("/etc/udev/rules.d/70-glidemap.rules"));
    dpkg("--purge glidemap");
    EXPECT_FALSE(fs::exists("/etc/udev/rules.d/70-glidemap.rules"));
    EXPECT_FALSE(fs::exists("/etc/modules-load.d/glidemap.conf"));
}

} // namespace
} // namespace glidemap::test
