#include "platform/linux/access/input_trust.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace glidemap {
namespace {

struct Machine {
    std::vector<std::string> touchpads;
    std::set<std::string> readable;
    bool mayMakeDevices = false;
};

class ScriptedNodes : public InputNodes {
public:
    explicit ScriptedNodes(const Machine& followed) : machine(followed) {}

    std::vector<std::string> touchpads() override { return machine.touchpads; }
    bool mayRead(const std::string& node) override { return machine.readable.contains(node); }
    bool mayMakeDevices() override { return machine.mayMakeDevices; }

private:
    const Machine& machine;
};

struct Row {
    const char* name;
    Machine machine;
    bool isTrusted;
};

const Row rows[] = {
    {"no access", {{"one"}, {}, false}, false},
    {"only the touchpad is readable", {{"one"}, {"one"}, false}, false},
    {"only devices can be created", {{"one"}, {}, true}, false},
    {"both", {{"one"}, {"one"}, true}, true},
    {"the first of two touchpads is readable", {{"one", "two"}, {"one"}, true}, false},
    {"the second of two touchpads is readable", {{"one", "two"}, {"two"}, true}, false},
    {"both touchpads are readable", {{"one", "two"}, {"one", "two"}, true}, true},
    {"no touchpad", {{}, {}, true}, true},
    {"no touchpad, and devices cannot be created", {{}, {}, false}, false},
};

TEST(InputTrustTest, TrustNeedsEveryTouchpadAndVirtualDevices) {
    for (const Row& row : rows) {
        InputTrust trust(std::make_unique<ScriptedNodes>(row.machine), {});
        EXPECT_EQ(trust.isTrusted(), row.isTrusted) << row.name;
        EXPECT_EQ(trust.isTrustedWithPrompt(), row.isTrusted) << row.name;
    }
}

TEST(InputTrustTest, PromptIsShownOnceAndOnlyOnRequest) {
    Machine machine{{"one"}, {}, true};
    int asked = 0;
    InputTrust trust(std::make_unique<ScriptedNodes>(machine), [&] { ++asked; });
    EXPECT_FALSE(trust.isTrusted());
    EXPECT_EQ(asked, 0);
    EXPECT_FALSE(trust.isTrustedWithPrompt());
    EXPECT_FALSE(trust.isTrustedWithPrompt());
    EXPECT_EQ(asked, 1);
}

TEST(InputTrustTest, TrustedProgramDoesNotPrompt) {
    Machine machine{{"one"}, {"one"}, true};
    int asked = 0;
    InputTrust trust(std::make_unique<ScriptedNodes>(machine), [&] { ++asked; });
    EXPECT_TRUE(trust.isTrustedWithPrompt());
    EXPECT_EQ(asked, 0);
    machine.readable.clear(); // another session is in front
    EXPECT_FALSE(trust.isTrustedWithPrompt());
    EXPECT_EQ(asked, 1);
}

TEST(InputTrustTest, AccessGrantedLaterIsDetected) {
    Machine machine{{"one"}, {}, true};
    InputTrust trust(std::make_unique<ScriptedNodes>(machine), {});
    EXPECT_FALSE(trust.isTrusted());
    machine.readable = {"one"};
    EXPECT_TRUE(trust.isTrusted());
    machine.touchpads.emplace_back("two");
    EXPECT_FALSE(trust.isTrusted());
}

} // namespace
} // namespace glidemap
