#include "kit/fake_input_nodes.h"
#include "kit/fake_main_queue.h"
#include "platform/linux/shell/linux_notes.h"

#include <gmock/gmock.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace glidemap {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

struct Access {
    bool toTouchpad = false;
    bool toKeyboard = false;
};

class LinuxNotesTest : public testing::Test {
protected:
    // Returns the note about missing access. If `answer` is set, first shows a prompt, which runs
    // this shell command.
    std::string missing(Access access, const char* answer = nullptr, const char* code = "en") {
        std::vector<std::string> command{"/bin/sh", "-c", answer != nullptr ? answer : "", "grant"};
        AccessPrompt prompt(queue, answer != nullptr ? command : std::vector<std::string>());
        if (answer != nullptr) {
            bool isAnswered = false;
            prompt.onAnswer = [&] {
                isAnswered = true;
            };
            prompt.ask();
            while (!isAnswered) {
                queue->waitForOne();
                queue->runAll();
            }
        }
        return noteOf(access, prompt, code);
    }

    static std::string noteOf(Access access, const AccessPrompt& prompt, const char* code) {
        Lang lang{nullptr};
        lang.setCode(code);
        const test::FakeInputNodes::Permissions permissions{
            {"/dev/input/event7"},
            access.toTouchpad ? std::set<std::string>{"/dev/input/event7"}
                              : std::set<std::string>(),
            access.toKeyboard};
        return LinuxNotes(std::make_unique<test::FakeInputNodes>(permissions), prompt)
            .missingAccess(lang);
    }

    std::shared_ptr<test::FakeMainQueue> queue = std::make_shared<test::FakeMainQueue>();
};

TEST_F(LinuxNotesTest, NamesMissingDeviceNodesInEnglishAndChinese) {
    EXPECT_EQ(missing({.toTouchpad = true, .toKeyboard = true}), "");
    EXPECT_EQ(missing({.toTouchpad = false, .toKeyboard = true}),
              "Glidemap has no access to the touchpad.");
    EXPECT_EQ(missing({.toTouchpad = true, .toKeyboard = false}),
              "Glidemap has no access to the virtual keyboard.");
    EXPECT_EQ(missing({}), "Glidemap has no access to the touchpad and the virtual keyboard.");
    EXPECT_EQ(missing({}, nullptr, "zh"), "Glidemap 没有访问触控板和虚拟键盘的权限。");
}

TEST_F(LinuxNotesTest, NamesTheGrantCommandIfThePromptFails) {
    EXPECT_THAT(missing({}, "exit 127"), EndsWith("run in a terminal: sudo grant"));
    EXPECT_THAT(missing({}, "exit 127", "zh"), EndsWith("请在终端中运行：sudo grant"));
    EXPECT_EQ(missing({.toTouchpad = true, .toKeyboard = true}, "exit 127"), "");
}

TEST_F(LinuxNotesTest, DismissedPromptAddsNoInstructions) {
    EXPECT_THAT(missing({}, "exit 126"), Not(HasSubstr("sudo")));
    EXPECT_THAT(missing({}, "exit 0"), Not(HasSubstr("sudo")));
}

TEST_F(LinuxNotesTest, ExplainsAMissingGrantProgram) {
    AccessPrompt prompt(queue, {});
    prompt.ask();
    queue->runAll();
    EXPECT_THAT(noteOf({}, prompt, "en"), EndsWith("Install the Glidemap package."));
}

} // namespace
} // namespace glidemap
