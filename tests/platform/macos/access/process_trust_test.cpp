#include "macos_test.h"
#include "platform/macos/access/process_trust.h"

namespace glidemap {
namespace {

using testing::ElementsAre;

constexpr const char* prompts = "AXIsProcessTrustedWithOptions AXTrustedCheckOptionPrompt=true";

class ProcessTrustTest : public MacosTest {
protected:
    ProcessTrust trust;
};

TEST_F(ProcessTrustTest, ReturnsWhetherTheSystemTrustsTheProcess) {
    for (const bool permits : {true, false}) {
        test::quartz().permits = permits;
        EXPECT_EQ(trust.isTrusted(), permits);
        EXPECT_THAT(journal(), ElementsAre("AXIsProcessTrusted"));
        EXPECT_EQ(ProcessTrust().isTrustedWithPrompt(), permits);
        EXPECT_THAT(journal(), ElementsAre(prompts));
    }
}

TEST_F(ProcessTrustTest, PromptsOncePerRun) {
    trust.isTrustedWithPrompt();
    trust.isTrustedWithPrompt();
    EXPECT_THAT(journal(), ElementsAre(prompts, "AXIsProcessTrusted"));
}

} // namespace
} // namespace glidemap
