#include "app/update_manifest.h"

#include <gtest/gtest.h>

#include <string>

namespace glidemap {
namespace {

using Version = std::optional<std::string>;

struct Row {
    std::string text;
    Version version;
};

std::string repeated(const std::string& text, int count) {
    std::string all;
    for (int number = 0; number < count; ++number) {
        all += text;
    }
    return all;
}

void expectVersions(const std::vector<Row>& rows) {
    for (const auto& [text, version] : rows) {
        EXPECT_EQ(versionInManifest(text), version) << text.substr(0, 200);
    }
}

TEST(UpdateManifestTest, VersionIsReturnedUnchanged) {
    expectVersions({
        {R"({"version": "1.4.2"})", "1.4.2"},
        {"\n\t {\"version\":\"1.4.2\"}\r\n ", "1.4.2"},
        {R"({"version": ""})", ""},
        {R"({"version": " v2.0-beta "})", " v2.0-beta "},
        {R"({"version": "\u0031.\u4e8c\n"})", "1.二\n"},
        {R"({"version": "1.\u0000"})", std::string("1.\0", 3)},
        {R"({"\u0076ersion": "1.0"})", "1.0"},
        {"\xef\xbb\xbf{\"version\": \"1.0\"}", "1.0"},
    });
}

TEST(UpdateManifestTest, OnlyTheTopLevelVersionKeyIsRead) {
    expectVersions({
        {R"({"name": "x", "version": "1.0", "notes": null})", "1.0"},
        {R"({"Version": "2.0", "version ": "3.0", "version": "1.0"})", "1.0"},
        {R"({"files": {"version": "2.0"}, "version": "1.0"})", "1.0"},
        {R"({"version": "1.0", "files": {"version": "2.0"}})", "1.0"},
        {R"({"version": "1.0", "files": [{"version": 2}, "version", ["version"]]})", "1.0"},
        {R"({"a": "version", "b": "2.0", "version": "1.0"})", "1.0"},
        {R"({"a": 18446744073709551616, "b": -1.5e-300, "version": "1.0"})", "1.0"},
    });
}

TEST(UpdateManifestTest, LastOfSeveralVersionKeysIsUsed) {
    expectVersions({
        {R"({"version": "1.0", "version": "2.0"})", "2.0"},
        {R"({"version": 1, "version": "2.0"})", "2.0"},
        {R"({"version": "1.0", "version": 2})", std::nullopt},
        {R"({"version": "1.0", "version": ["2.0"]})", std::nullopt},
    });
}

TEST(UpdateManifestTest, ManifestWithoutAStringVersionIsInvalid) {
    expectVersions({
        {R"({"version": 2})", std::nullopt},
        {R"({"version": -2})", std::nullopt},
        {R"({"version": 2.5})", std::nullopt},
        {R"({"version": null})", std::nullopt},
        {R"({"version": true})", std::nullopt},
        {R"({"version": ["1.0"]})", std::nullopt},
        {R"({"version": {"version": "1.0"}})", std::nullopt},
        {R"({"files": {"version": "1.0"}})", std::nullopt},
        {R"({"versions": "1.0"})", std::nullopt},
        {R"({})", std::nullopt},
    });
}

TEST(UpdateManifestTest, JsonThatIsNotAnObjectIsInvalid) {
    expectVersions({
        {R"([])", std::nullopt},
        {R"(["version", "1.0"])", std::nullopt},
        {R"([{"version": "1.0"}])", std::nullopt},
        {R"("version")", std::nullopt},
        {R"("1.0")", std::nullopt},
        {R"(1.0)", std::nullopt},
        {R"(null)", std::nullopt},
    });
}

TEST(UpdateManifestTest, TextThatIsNotJsonIsInvalid) {
    expectVersions({
        {"", std::nullopt},
        {" ", std::nullopt},
        {"<html>not found</html>", std::nullopt},
        {R"({"version": "1.0")", std::nullopt},
        {R"({"version": "1.)", std::nullopt},
        {R"({"version": "1.0"} x)", std::nullopt},
        {R"({"version": "1.0"}{})", std::nullopt},
        {R"({"version": "1.0",})", std::nullopt},
        {R"({'version': '1.0'})", std::nullopt},
        {R"({version: "1.0"})", std::nullopt},
        {R"(/* */ {"version": "1.0"})", std::nullopt},
        {R"({"version": "1.0", "a": 1e999})", std::nullopt},
        {R"({"version": "1.0", "a": NaN})", std::nullopt},
        {std::string("{\"version\": \"1.0\"}\0", 19), std::nullopt},
        {std::string("\0{\"version\": \"1.0\"}", 19), std::nullopt},
        {"{\"version\": \"1\n0\"}", std::nullopt},
    });
}

TEST(UpdateManifestTest, TextThatIsNotUtf8IsInvalid) {
    expectVersions({
        {"{\"version\": \"\xff\"}", std::nullopt},
        {"{\"version\": \"1.0\", \"a\": \"\xc3(\"}", std::nullopt},
        {"{\"version\": \"1.0\", \"\xed\xa0\x80\": 1}", std::nullopt},
        {"{\"version\": \"\xc0\xae\"}", std::nullopt},
        {R"({"version": "\ud800"})", std::nullopt},
        {R"({"version": "1.0", "a": "\udc00"})", std::nullopt},
        {std::string("\xff\xfe{\0\"\0", 6), std::nullopt},
    });
}

TEST(UpdateManifestTest, DeepNestingIsAccepted) {
    constexpr int deep = 500'000;
    const std::string open = repeated("[", deep);
    const std::string closed = open + repeated("]", deep);
    const std::string openObjects = repeated(R"({"version":)", deep / 10);
    expectVersions({
        {open, std::nullopt},
        {closed, std::nullopt},
        {openObjects, std::nullopt},
        {R"({"a":)" + closed + R"(,"version":"1.0"})", "1.0"},
        {R"({"version":)" + closed + "}", std::nullopt},
    });
}

TEST(UpdateManifestTest, EveryTruncatedManifestIsInvalid) {
    const std::string whole = R"({"a": [1, {"b": "\u00e9"}], "version": "1.4.2"})";
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(versionInManifest(whole.substr(0, length)), std::nullopt) << length;
    }
    EXPECT_EQ(versionInManifest(whole), "1.4.2");
}

} // namespace
} // namespace glidemap
