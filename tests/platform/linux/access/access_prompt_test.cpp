// Tests the access prompt with shell scripts in place of pkexec.
#include "kit/fake_main_queue.h"
#include "kit/temporary_folder.h"
#include "platform/linux/access/access_prompt.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <memory>
#include <utility>

namespace glidemap {
namespace {

class AccessPromptTest : public testing::Test {
protected:
    AccessPromptTest() { EXPECT_EQ(mkfifo(answers.c_str(), 0600), 0); }

    // The script writes a letter for each prompt, and exits when the test calls answer().
    std::vector<std::string> command() const {
        return {"/bin/sh", "-c",
                "printf x >>" + asked.string() + "; read answer <" + answers.string()};
    }

    std::unique_ptr<AccessPrompt> prompt(std::vector<std::string> asking) {
        auto made = std::make_unique<AccessPrompt>(queue, std::move(asking));
        made->onAnswer = [this] {
            ++received;
        };
        return made;
    }

    // Ends the prompt. Blocks until the script opens the pipe.
    void answer() const { std::ofstream(answers) << "answer\n"; }

    test::TemporaryFolder folder;
    const std::filesystem::path asked = folder.path() / "asked";
    const std::filesystem::path answers = folder.path() / "answers";
    std::shared_ptr<test::FakeMainQueue> queue = std::make_shared<test::FakeMainQueue>();
    int received = 0;
};

TEST_F(AccessPromptTest, ReportsEachClosedPromptOnTheMainThread) {
    const auto made = prompt(command());
    for (int round = 1; round <= 2; ++round) {
        made->ask();
        queue->runAll();
        answer();
        queue->waitForOne();
        EXPECT_EQ(received, round - 1);
        queue->runAll();
        EXPECT_EQ(received, round);
    }
    EXPECT_EQ(test::contentOf(asked), "xx");
}

TEST_F(AccessPromptTest, DoesNotOpenASecondPromptWhileOneIsOpen) {
    const auto made = prompt(command());
    made->ask();
    made->ask();
    queue->runAll();
    made->ask();
    answer();
    queue->waitForOne();
    queue->runAll();
    EXPECT_EQ(test::contentOf(asked), "x");
    EXPECT_EQ(received, 1);
}

TEST_F(AccessPromptTest, PromptWhoseCommandCannotStartFailsAndMayBeRetried) {
    const auto made = prompt({"/nowhere/at/all"});
    EXPECT_FALSE(made->hasFailed());
    made->ask();
    queue->runAll();
    EXPECT_TRUE(made->hasFailed());
    EXPECT_EQ(received, 1);
    made->ask();
    EXPECT_EQ(queue->waiting(), 1U);
    queue->runAll();
    EXPECT_EQ(received, 2);
}

TEST_F(AccessPromptTest, FailsIfAuthenticationFailsButNotIfTheUserDismissesThePrompt) {
    const std::pair<const char*, bool> ends[] = {
        {"exit 127", true}, {"exit 126", false}, {"exit 0", false}};
    for (const auto& [script, hasFailed] : ends) {
        const auto made = prompt({"/bin/sh", "-c", script});
        made->ask();
        queue->runNext();
        queue->waitForOne();
        queue->runAll();
        EXPECT_EQ(made->hasFailed(), hasFailed) << script;
    }
}

TEST_F(AccessPromptTest, OpensOnlyAfterTheExplanationIsReady) {
    const auto made = prompt(command());
    made->waitUntilReady();
    made->ask();
    made->ask();
    EXPECT_EQ(queue->waiting(), 0U);
    made->ready();
    made->ready();
    EXPECT_EQ(queue->waiting(), 1U);
    queue->runAll();
    answer();
    queue->waitForOne();
    EXPECT_EQ(test::contentOf(asked), "x");
}

// The prompt must not delay a window that the main thread opens on startup.
TEST_F(AccessPromptTest, PromptOpensOnlyAfterTheCurrentMainQueueTask) {
    const auto made = prompt({"/bin/sh", "-c", "printf x >>" + asked.string()});
    made->ask();
    EXPECT_EQ(queue->waiting(), 1U);
    EXPECT_FALSE(std::filesystem::exists(asked));
    queue->runNext(); // does not run the report of the closed prompt, which may be queued already
    queue->waitForOne();
    EXPECT_EQ(test::contentOf(asked), "x");
}

TEST_F(AccessPromptTest, DestructionCancelsAPendingPrompt) {
    auto made = prompt({"/bin/sh", "-c", "printf x >>" + asked.string()});
    made->ask();
    made.reset();
    queue->runAll();
    EXPECT_FALSE(std::filesystem::exists(asked));
}

TEST_F(AccessPromptTest, DoesNotReportAPromptThatClosesAfterDestruction) {
    auto made = prompt(command());
    made->ask();
    queue->runAll();
    made.reset();
    answer();
    queue->waitForOne();
    queue->runAll();
    EXPECT_EQ(received, 0);
}

} // namespace
} // namespace glidemap
