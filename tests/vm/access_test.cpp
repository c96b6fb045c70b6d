// Tests access rights before and after the program that grants access has run, in a real kernel
// with udev. No user is logged in, so no access lists are set. The tests check which devices udev
// tags for the seat's user.

#include "ordinary_pad.h"
#include "platform/linux/access/input_trust.h"
#include "platform/linux/access/udev_input_nodes.h"
#include "platform/linux/keyboard/uinput_keyboard.h"
#include "process.h"
#include "unprivileged.h"
#include "virtual_pad.h"

#include <gtest/gtest.h>
#include <libudev.h>
#include <linux/input.h>
#include <sys/mount.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* uinput = "/dev/uinput";
const fs::path rulesFolder = "/etc/udev/rules.d";
const fs::path rulesFile = rulesFolder / "70-glidemap.rules";
const fs::path modulesFile = "/etc/modules-load.d/glidemap.conf";

std::string contentsOf(const fs::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

PadShape keyboard(const std::string& name) {
    PadShape shape;
    shape.name = name;
    shape.bus = BUS_USB;
    for (int key = KEY_ESC; key <= KEY_KPDOT; ++key) {
        shape.keys.insert(key);
    }
    return shape;
}

PadShape padWith(std::initializer_list<int> keys) {
    PadShape shape = ordinaryPad();
    shape.name = "Pad With Keys";
    shape.keys.insert(keys);
    return shape;
}

PadShape pointingStick() {
    PadShape shape;
    shape.name = "Stick";
    shape.bus = BUS_USB;
    shape.properties = {INPUT_PROP_POINTER};
    shape.keys = {BTN_LEFT, BTN_RIGHT};
    shape.axes = {{ABS_X, {0, 255, 0, 0}}, {ABS_Y, {0, 255, 0, 0}}};
    return shape;
}

// ── trust ──

bool isTrusted() {
    const Unprivileged unprivileged;
    return InputTrust(std::make_unique<UdevInputNodes>(), {}).isTrusted();
}

class TrustTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(chmod(uinput, 0666), 0); }
    void TearDown() override { ASSERT_EQ(chmod(uinput, 0600), 0); }
};

TEST_F(TrustTest, TouchpadMustBeReadable) {
    const VirtualPad pad(ordinaryPad());
    EXPECT_FALSE(isTrusted());
    ASSERT_EQ(chmod(pad.node().c_str(), 0644), 0);
    EXPECT_TRUE(isTrusted());
}

TEST_F(TrustTest, EveryTouchpadMustBeReadable) {
    const VirtualPad pad(ordinaryPad());
    ASSERT_EQ(chmod(pad.node().c_str(), 0644), 0);
    {
        const VirtualPad other(otherPad());
        EXPECT_FALSE(isTrusted());
    }
    EXPECT_TRUE(isTrusted());
}

TEST_F(TrustTest, UinputMustBeWritable) {
    EXPECT_TRUE(isTrusted());
    ASSERT_EQ(chmod(uinput, 0444), 0);
    EXPECT_FALSE(isTrusted());
}

TEST_F(TrustTest, IgnoresDevicesThatTheUdevRuleExcludes) {
    const VirtualPad keys(keyboard("Keyboard"));
    const VirtualPad stick(pointingStick());
    const VirtualPad combined(padWith({KEY_1, KEY_2}));
    const VirtualPad clone(ordinaryPad(), "glidemap/clone");
    EXPECT_TRUE(isTrusted());
}

// ── granting ──

struct Outcome {
    std::optional<int> status;
    std::string errors;
};

Outcome grantAccess(std::vector<std::string> arguments = {},
                    Process::User user = Process::User::root) {
    arguments.insert(arguments.begin(), GLIDEMAP_GRANT_ACCESS);
    Process process(arguments, user);
    const auto status = process.waitForEnd();
    return {status, process.errors()};
}

bool isTaggedForTheSeat(const fs::path& node) {
    struct stat status {};
    EXPECT_EQ(stat(node.c_str(), &status), 0) << node;
    udev* const context = udev_new();
    udev_device* const device = udev_device_new_from_devnum(context, 'c', status.st_rdev);
    const bool isTagged = device != nullptr && udev_device_has_current_tag(device, "uaccess") > 0;
    udev_device_unref(device);
    udev_unref(context);
    return isTagged;
}

// Expects a file that belongs to root and that every user can read.
void expectInstalled(const fs::path& file) {
    struct stat status {};
    ASSERT_EQ(stat(file.c_str(), &status), 0) << file;
    EXPECT_EQ(status.st_mode, static_cast<mode_t>(S_IFREG | 0644)) << file;
    EXPECT_EQ(status.st_uid, 0U) << file;
    EXPECT_EQ(status.st_gid, 0U) << file;
}

int filesIn(const fs::path& folder) {
    return static_cast<int>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

// Returns the node of the program's virtual keyboard.
fs::path ownKeyboardNode() {
    for (const auto& entry : fs::directory_iterator("/sys/class/input")) {
        std::string name;
        std::ifstream stream(entry.path() / "device/name");
        if (entry.path().filename().string().starts_with("event") && std::getline(stream, name) &&
            name == "Glidemap Keyboard") {
            return fs::path("/dev/input") / entry.path().filename();
        }
    }
    ADD_FAILURE() << "the Glidemap Keyboard does not exist";
    return {};
}

class GrantAccessTest : public ::testing::Test {
protected:
    void SetUp() override { removeAll(); }
    void TearDown() override { removeAll(); }

private:
    static void removeAll() {
        fs::remove(rulesFile);
        fs::remove(modulesFile);
        for (int time = 0; time < 2; ++time) { // udev loses some requests on a busy machine
            Process forget({"/usr/bin/udevadm", "control", "--reload"});
            EXPECT_EQ(forget.waitForEnd(), 0);
        }
    }
};

TEST_F(GrantAccessTest, InstallsTheShippedRules) {
    const Outcome outcome = grantAccess();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    expectInstalled(rulesFile);
    EXPECT_EQ(contentsOf(rulesFile), contentsOf(GLIDEMAP_RULES));
    expectInstalled(modulesFile);
    EXPECT_NE(contentsOf(modulesFile).find("\nuinput\n"), std::string::npos);
}

TEST_F(GrantAccessTest, TagsOnlyTouchpadsAndUinputForTheSeat) {
    const VirtualPad pad(ordinaryPad());
    const VirtualPad clone(ordinaryPad(), "glidemap/clone");
    const VirtualPad keys(keyboard("Keyboard"));
    const VirtualPad stick(pointingStick());
    const VirtualPad combined(padWith({KEY_1, KEY_2}));
    const VirtualPad wholeKeyboardToo([] {
        PadShape shape = ordinaryPad();
        shape.name = "Keyboard With Pad";
        shape.keys.merge(keyboard("").keys);
        return shape;
    }());
    UinputKeyboard ownKeyboard;
    EXPECT_FALSE(isTaggedForTheSeat(pad.node()));
    ASSERT_EQ(grantAccess().status, 0);
    EXPECT_TRUE(isTaggedForTheSeat(pad.node()));
    EXPECT_TRUE(isTaggedForTheSeat(clone.node()));
    EXPECT_TRUE(isTaggedForTheSeat(uinput));
    EXPECT_FALSE(isTaggedForTheSeat(keys.node()));
    EXPECT_FALSE(isTaggedForTheSeat(stick.node()));
    EXPECT_FALSE(isTaggedForTheSeat(combined.node()));
    EXPECT_FALSE(isTaggedForTheSeat(wholeKeyboardToo.node()));
    EXPECT_FALSE(isTaggedForTheSeat(ownKeyboardNode()));
}

TEST_F(GrantAccessTest, TouchpadPluggedInAfterTheGrantIsTaggedForTheSeat) {
    ASSERT_EQ(grantAccess().status, 0);
    const VirtualPad pad(ordinaryPad());
    EXPECT_TRUE(isTaggedForTheSeat(pad.node()));
}

TEST_F(GrantAccessTest, SecondRunChangesNothing) {
    ASSERT_EQ(grantAccess().status, 0);
    const int files = filesIn(rulesFolder);
    const Outcome outcome = grantAccess();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(contentsOf(rulesFile), contentsOf(GLIDEMAP_RULES));
    EXPECT_EQ(filesIn(rulesFolder), files);
}

TEST_F(GrantAccessTest, ReplacesTheRulesOfAnOlderVersion) {
    fs::create_directories(rulesFolder);
    std::ofstream(rulesFile) << "# something else\n";
    ASSERT_EQ(grantAccess().status, 0);
    EXPECT_EQ(contentsOf(rulesFile), contentsOf(GLIDEMAP_RULES));
}

// Installs the rule as the package does.
class PackageRule {
public:
    PackageRule() {
        fs::create_directories(file.parent_path());
        fs::copy_file(GLIDEMAP_RULES, file, fs::copy_options::overwrite_existing);
    }
    PackageRule(const PackageRule&) = delete;
    PackageRule& operator=(const PackageRule&) = delete;
    ~PackageRule() { fs::remove(file); }

private:
    const fs::path file = "/usr/lib/udev/rules.d/70-glidemap.rules";
};

TEST_F(GrantAccessTest, AppliesThePackagedRuleWithoutInstallingAnotherRule) {
    const VirtualPad pad(ordinaryPad());
    const PackageRule rule;
    EXPECT_FALSE(isTaggedForTheSeat(pad.node()));
    const Outcome outcome = grantAccess();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_FALSE(fs::exists(rulesFile));
    EXPECT_FALSE(fs::exists(modulesFile));
    EXPECT_TRUE(isTaggedForTheSeat(pad.node()));
    EXPECT_TRUE(isTaggedForTheSeat(uinput));
}

TEST_F(GrantAccessTest, EightConcurrentRunsSucceed) {
    const VirtualPad pad(ordinaryPad());
    std::vector<std::unique_ptr<Process>> programs;
    for (int count = 0; count < 8; ++count) {
        programs.push_back(
            std::make_unique<Process>(std::vector<std::string>{GLIDEMAP_GRANT_ACCESS}));
    }
    for (const auto& program : programs) {
        EXPECT_EQ(program->waitForEnd(), 0);
        EXPECT_EQ(program->errors(), "");
    }
    EXPECT_TRUE(isTaggedForTheSeat(pad.node()));
    EXPECT_EQ(contentsOf(rulesFile), contentsOf(GLIDEMAP_RULES));
    EXPECT_EQ(filesIn(rulesFolder), 1);
}

TEST_F(GrantAccessTest, RefusesUsersOtherThanRoot) {
    const Outcome outcome = grantAccess({}, Process::User::nobody);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, "glidemap-grant-access: only root may do this\n");
    EXPECT_FALSE(fs::exists(rulesFile));
}

TEST_F(GrantAccessTest, RefusesArguments) {
    const Outcome outcome = grantAccess({"--help"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.errors.find("without arguments"), std::string::npos);
    EXPECT_FALSE(fs::exists(rulesFile));
}

// Mounts another file system over the folder of the rules.
class OtherFileSystem {
public:
    explicit OtherFileSystem(unsigned long flags, const char* options) {
        fs::create_directories(rulesFolder);
        EXPECT_EQ(mount("none", rulesFolder.c_str(), "tmpfs", flags, options), 0);
    }
    OtherFileSystem(const OtherFileSystem&) = delete;
    OtherFileSystem& operator=(const OtherFileSystem&) = delete;
    ~OtherFileSystem() { umount(rulesFolder.c_str()); }
};

TEST_F(GrantAccessTest, ReportsAReadOnlyFolder) {
    const OtherFileSystem readOnly(MS_RDONLY, "");
    const Outcome outcome = grantAccess();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.errors.find("glidemap-grant-access: cannot write into /etc/udev/rules.d\n"),
              std::string::npos)
        << outcome.errors;
    EXPECT_EQ(filesIn(rulesFolder), 0);
}

TEST_F(GrantAccessTest, FullDiskLeavesTheOldRulesComplete) {
    const OtherFileSystem small(0, "size=8192");
    const std::string oldRules = "# the rules of before\n";
    std::ofstream(rulesFile) << oldRules;
    std::ofstream(rulesFolder / "filler") << std::string(4096, '#');
    const Outcome outcome = grantAccess();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.errors.find(
                  "glidemap-grant-access: cannot write /etc/udev/rules.d/70-glidemap.rules\n"),
              std::string::npos)
        << outcome.errors;
    EXPECT_EQ(contentsOf(rulesFile), oldRules);
    EXPECT_EQ(filesIn(rulesFolder), 2);
}

TEST_F(GrantAccessTest, FailsIfTheRulesFileIsAFolder) {
    fs::create_directories(rulesFile / "inside");
    const Outcome outcome = grantAccess();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(filesIn(rulesFile), 1);
    fs::remove_all(rulesFile);
}

} // namespace
} // namespace glidemap::test
