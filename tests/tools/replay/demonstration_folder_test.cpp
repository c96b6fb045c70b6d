// Tests of glidemap-replay --write-demonstration.

#include "choreography/performance.h"
#include "kit/temporary_folder.h"
#include "replay_program.h"

#include <gmock/gmock.h>

#include <sstream>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

using testing::HasSubstr;
using testing::Not;

// Returns the text between `before` and the next quotation mark after it.
std::string quotedAfter(const std::string& line, const std::string& before) {
    const std::size_t start = line.find(before);
    if (start == std::string::npos) {
        return {};
    }
    const std::size_t begin = start + before.size();
    return line.substr(begin, line.find('"', begin) - begin);
}

std::vector<std::string> gesturesIn(const std::string& lines) {
    std::vector<std::string> found;
    std::istringstream stream(lines);
    for (std::string line; std::getline(stream, line);) {
        const std::string gesture = quotedAfter(line, "\"gesture\":\"");
        if (!gesture.empty() && line.find("\"delivered\":true") != std::string::npos) {
            found.push_back(gesture);
        }
    }
    return found;
}

class DemonstrationFolder : public testing::Test {
protected:
    Ended write() const { return replay({"--write-demonstration", folder.path()}); }
    std::filesystem::path recording() const { return folder.path() / "recording.jsonl"; }
    std::filesystem::path bindings() const { return folder.path() / "Glidemap/bindings.json"; }

    TemporaryFolder folder;
};

TEST_F(DemonstrationFolder, RecordingContainsEveryPerformableGestureOnce) {
    EXPECT_EQ(write(), (Ended{0, "", ""}));
    std::vector<std::string> expected;
    for (const GestureType gesture : performableGestures()) {
        expected.emplace_back(rawValue(gesture));
    }
    const Ended played =
        replay({"--json", "--double-tap=2", "--double-tap=3", "--double-tap=4", recording()});
    EXPECT_EQ(gesturesIn(played.output), expected);
}

TEST_F(DemonstrationFolder, DemonstrationBindingsAreDisabled) {
    write();
    const std::string text = contentOf(bindings());
    EXPECT_THAT(text, HasSubstr("\"enabled\": false"));
    const Ended played = replay({"--json", "--bindings", bindings(), recording()});
    EXPECT_EQ(played.status, 0);
    EXPECT_THAT(played.output, Not(HasSubstr("perform")));
    EXPECT_THAT(played.output, Not(HasSubstr("keyEvent")));
}

TEST_F(DemonstrationFolder, KeepsExistingBindings) {
    folder.write("Glidemap/bindings.json", "[]");
    EXPECT_EQ(write().status, 0);
    EXPECT_EQ(contentOf(bindings()), "[]");
}

TEST_F(DemonstrationFolder, FailsIfTheFolderCannotBeCreated) {
    folder.write("file", "");
    const std::string below = folder.path() / "file/folder";
    const Ended ended = replay({"--write-demonstration", below});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "glidemap-replay: " + below + "/recording.jsonl cannot be written\n");
}

} // namespace
} // namespace glidemap::test
