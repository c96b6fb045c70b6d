#include "kit/fake_input_nodes.h"
#include "platform/linux/access/input_trust.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace glidemap {
namespace {

using test::FakeInputNodes;
using Machine = FakeInputNodes::Permissions;

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

TEST(InputTrustTest, TrustsOnlyWithAccessToAllTouchpadsAndUinput) {
    for (const Row& row : rows) {
        InputTrust trust(std::make_unique<FakeInputNodes>(row.machine), {});
        EXPECT_EQ(trust.isTrusted(), row.isTrusted) << row.name;
        EXPECT_EQ(trust.isTrustedWithPrompt(), row.isTrusted) << row.name;
    }
}

TEST(InputTrustTest, PromptsOnceAndOnlyOnRequest) {
    Machine machine{{"one"}, {}, true};
    int asked = 0;
    InputTrust trust(std::make_unique<FakeInputNodes>(machine), [&] { ++asked; });
    EXPECT_FALSE(trust.isTrusted());
    EXPECT_EQ(asked, 0);
    EXPECT_FALSE(trust.isTrustedWithPrompt());
    EXPECT_FALSE(trust.isTrustedWithPrompt());
    EXPECT_EQ(asked, 1);
}

TEST(InputTrustTest, DoesNotPromptWhileTrusted) {
    Machine machine{{"one"}, {"one"}, true};
    int asked = 0;
    InputTrust trust(std::make_unique<FakeInputNodes>(machine), [&] { ++asked; });
    EXPECT_TRUE(trust.isTrustedWithPrompt());
    EXPECT_EQ(asked, 0);
    machine.readable.clear(); // another session becomes active
    EXPECT_FALSE(trust.isTrustedWithPrompt());
    EXPECT_EQ(asked, 1);
}

TEST(InputTrustTest, DetectsAccessChangesAfterItsCreation) {
    Machine machine{{"one"}, {}, true};
    InputTrust trust(std::make_unique<FakeInputNodes>(machine), {});
    EXPECT_FALSE(trust.isTrusted());
    machine.readable = {"one"};
    EXPECT_TRUE(trust.isTrusted());
    machine.touchpads.emplace_back("two");
    EXPECT_FALSE(trust.isTrusted());
}

} // namespace
} // namespace glidemap
