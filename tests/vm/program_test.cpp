// Tests the complete program with a touchpad that it may not read at first. This system has no
// display, so the tests check only the device.
#include "agent_session.h"
#include "ordinary_pad.h"
#include "process.h"
#include "virtual_pad.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace glidemap::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* pkexec = "/usr/bin/pkexec";

// Replaces pkexec with a script that records its calls, and exits when the test answers.
class Question {
public:
    explicit Question(const fs::path& folder)
        : calls(folder / "asked"), answers(folder / "answers") {
        EXPECT_EQ(mkfifo(answers.c_str(), 0666), 0);
        if (fs::exists(pkexec)) {
            fs::rename(pkexec, kept);
        }
        std::ofstream(pkexec) << "#!/bin/sh\necho asked >>" << calls.string() << "\nread answer <"
                              << answers.string() << "\n";
        fs::permissions(pkexec, fs::perms::all);
    }
    Question(const Question&) = delete;
    Question& operator=(const Question&) = delete;
    ~Question() {
        fs::remove(pkexec);
        if (fs::exists(kept)) {
            fs::rename(kept, pkexec);
        }
    }

    bool waitUntilAsked() const { return waitForFile(calls); }
    void answer() const { std::ofstream(answers) << "answer\n"; }

    // Returns the number of calls.
    int count() const {
        std::ifstream stream(calls);
        int lines = 0;
        for (std::string line; std::getline(stream, line);) {
            ++lines;
        }
        return lines;
    }

private:
    const fs::path calls;
    const fs::path answers;
    const fs::path kept = "/usr/bin/pkexec.kept";
};

class ProgramTest : public testing::Test {
protected:
    void SetUp() override {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        installGrantAccess();
    }

    // The program runs the helper as root only if no ordinary user can replace it. A helper in a
    // build folder below /tmp, or in another user's folder, is refused.
    static void installGrantAccess() {
        const fs::path installed = "/usr/libexec/glidemap/glidemap-grant-access";
        fs::create_directories(installed.parent_path());
        fs::copy_file(GLIDEMAP_GRANT_ACCESS, installed, fs::copy_options::skip_existing);
    }

    void letEverybody(bool in) const {
        const auto rights = in ? fs::perms(0666) : fs::perms(0600);
        fs::permissions(pad.node(), rights);
        fs::permissions("/dev/uinput", rights);
    }

    AgentHome home;
    VirtualPad pad{ordinaryPad()};
    Question question{home.folder};
};

TEST_F(ProgramTest, NeedsNoRestartToReadTheTouchpadAfterAccessIsGranted) {
    letEverybody(false);
    home.giveToNobody();
    Process program({GLIDEMAP_PROGRAM}, Process::User::nobody);
    ASSERT_TRUE(question.waitUntilAsked());
    EXPECT_FALSE(hasOpen(std::to_string(program.id()), pad.node()));
    letEverybody(true);
    question.answer();
    EXPECT_TRUE(program.waitUntilReading(pad.node()));
    EXPECT_EQ(question.count(), 1) << "the program has asked again";
    program.send(SIGTERM);
    EXPECT_EQ(program.waitForEnd(), 0) << program.errors();
}

TEST_F(ProgramTest, KeepsRunningWithoutPromptingAgainAfterARefusal) {
    letEverybody(false);
    home.giveToNobody();
    Process program({GLIDEMAP_PROGRAM}, Process::User::nobody);
    ASSERT_TRUE(question.waitUntilAsked());
    question.answer();
    EXPECT_TRUE(program.waitUntilAsleep());
    EXPECT_FALSE(hasOpen(std::to_string(program.id()), pad.node()));
    EXPECT_EQ(question.count(), 1);
    program.send(SIGTERM);
    EXPECT_EQ(program.waitForEnd(), 0) << program.errors();
}

TEST_F(ProgramTest, DoesNotPromptIfAccessWasGrantedBeforeTheStart) {
    letEverybody(true);
    home.giveToNobody();
    Process program({GLIDEMAP_PROGRAM}, Process::User::nobody);
    EXPECT_TRUE(program.waitUntilReading(pad.node()));
    EXPECT_EQ(question.count(), 0);
    program.send(SIGTERM);
    EXPECT_EQ(program.waitForEnd(), 0) << program.errors();
}

} // namespace
} // namespace glidemap::test
