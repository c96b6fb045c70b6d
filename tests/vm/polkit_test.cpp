// Tests the request for access with the real polkit. An ordinary user runs pkexec, as the program
// does, and polkit decides according to the program's action.

#include "process.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* pkexec = "/usr/bin/pkexec";
constexpr const char* polkitDaemon = "/usr/lib/polkit-1/polkitd";
constexpr const char* bus = "/usr/bin/dbus-daemon";
constexpr const char* busTool = "/usr/bin/gdbus";
constexpr const char* installedProgram = GLIDEMAP_INSTALLED_GRANT_ACCESS;
constexpr const char* action = "org.glidemap.grant-access";
const fs::path answers = "/etc/polkit-1/rules.d/00-test.rules";
const fs::path rulesFile = "/etc/udev/rules.d/70-glidemap.rules";

std::string contentsOf(const fs::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// Runs polkit on a private system bus.
class Polkit {
public:
    Polkit() {
        fs::create_directories("/run/dbus");
        systemBus = std::make_unique<Process>(std::vector<std::string>{
            bus, "--system", "--nofork", "--nopidfile", "--print-address"});
        EXPECT_TRUE(systemBus->waitForOutput("unix:").has_value());
        daemon = std::make_unique<Process>(std::vector<std::string>{polkitDaemon, "--no-debug"});
        Process wait(
            {busTool, "wait", "--system", "--timeout", "30", "org.freedesktop.PolicyKit1"});
        EXPECT_EQ(wait.waitForEnd(), 0) << wait.errors();
    }

private:
    std::unique_ptr<Process> systemBus;
    std::unique_ptr<Process> daemon;
};

class PolkitTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* program : {pkexec, polkitDaemon, bus, busTool}) {
            if (!fs::exists(program)) {
                GTEST_SKIP() << program << " is not installed";
            }
        }
        fs::create_directories(fs::path(installedProgram).parent_path());
        fs::copy_file(GLIDEMAP_GRANT_ACCESS, installedProgram,
                      fs::copy_options::overwrite_existing);
        fs::copy(GLIDEMAP_POLICY, "/usr/share/polkit-1/actions",
                 fs::copy_options::overwrite_existing);
        fs::create_directories(answers.parent_path());
    }

    void TearDown() override {
        fs::remove(rulesFile);
        fs::remove(answers);
    }

    // Writes a rule with the administrator's decision about the program's action. The rule refuses
    // all other actions.
    static void answer(const char* result) {
        std::ofstream(answers)
            << "polkit.addRule(function(action, subject) {\n    return action.id == '" << action
            << "' ? polkit.Result." << result << " : polkit.Result.NO;\n});\n";
    }

    static std::optional<int> ask(std::string* errors = nullptr) {
        Process process({pkexec, installedProgram}, Process::User::nobody);
        const auto status = process.waitForEnd();
        if (errors != nullptr) {
            *errors = process.errors();
        }
        return status;
    }
};

TEST_F(PolkitTest, AllowedUserGetsAccess) {
    answer("YES");
    const Polkit polkit;
    std::string errors;
    EXPECT_EQ(ask(&errors), 0) << errors;
    EXPECT_EQ(contentsOf(rulesFile), contentsOf(GLIDEMAP_RULES));
}

TEST_F(PolkitTest, RefusedUserGetsNoAccess) {
    answer("NO");
    const Polkit polkit;
    EXPECT_EQ(ask(), 127);
    EXPECT_FALSE(fs::exists(rulesFile));
}

// Without a rule, polkit requires a password, and this system has no administrator to enter it.
TEST_F(PolkitTest, RequestWithoutAnAdministratorGetsNoAccess) {
    const Polkit polkit;
    EXPECT_EQ(ask(), 127);
    EXPECT_FALSE(fs::exists(rulesFile));
}

} // namespace
} // namespace glidemap::test
