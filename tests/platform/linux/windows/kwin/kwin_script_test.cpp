#include "platform/linux/windows/kwin/kwin_script.h"

#include <gmock/gmock.h>

#include <string>

namespace glidemap {

namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* editor =
    R"({"handle":"{1}","desktopFile":"org.kde.kate","class":"kate","instance":"Kate","title":"A text","process":42})";
const WindowIdentity editorIdentity{"org.kde.kate", "Kate", "A text", 42};

std::string reportOf(const std::string& windows, const std::string& active) {
    return R"({"windows":)" + windows + R"(,"active":)" + active + "}";
}

TEST(KWinScript, CallsTheGivenBusName) {
    EXPECT_THAT(kwinScriptReportingTo(":1.23"), StartsWith("const reportName = \":1.23\";\n"));
}

TEST(KWinScript, EscapesTheBusName) {
    EXPECT_THAT(kwinScriptReportingTo("\"+x+\""),
                StartsWith("const reportName = \"\\\"+x+\\\"\";\n"));
}

TEST(KWinScript, EscapesTheWindowHandle) {
    EXPECT_THAT(kwinScriptActivating("\"+x+\""), StartsWith("const handle = \"\\\"+x+\\\"\";\n"));
}

struct Row {
    const char* what;
    std::string text;
    std::optional<KWinReport> expected;
};

const Row rows[] = {
    {"no window", reportOf("[]", "null"), KWinReport{}},
    {"a window, active", reportOf("[" + std::string(editor) + "]", editor),
     KWinReport{{editorIdentity}, editorIdentity, {"{1}"}, "{1}"}},
    {"an active window that is not listed", reportOf("[]", editor),
     KWinReport{{}, editorIdentity, {}, "{1}"}},
    {"no desktop file: the class", reportOf("[]", R"({"desktopFile":"","class":"kate"})"),
     KWinReport{{}, WindowIdentity{"kate", "", "", std::nullopt}}},
    {"names of other types", reportOf("[]", R"({"class":1,"instance":[],"title":null})"),
     KWinReport{{}, WindowIdentity{}}},
    {"process 1", reportOf("[]", R"({"process":1})"),
     KWinReport{{}, WindowIdentity{"", "", "", 1}}},
    {"process 0", reportOf("[]", R"({"process":0})"), KWinReport{{}, WindowIdentity{}}},
    {"process -1", reportOf("[]", R"({"process":-1})"), KWinReport{{}, WindowIdentity{}}},
    {"process 2147483647", reportOf("[]", R"({"process":2147483647})"),
     KWinReport{{}, WindowIdentity{"", "", "", 2147483647}}},
    {"process 2147483648", reportOf("[]", R"({"process":2147483648})"),
     KWinReport{{}, WindowIdentity{}}},
    {"process 1.5", reportOf("[]", R"({"process":1.5})"), KWinReport{{}, WindowIdentity{}}},
    {"a window that is a number", reportOf("[7," + std::string(editor) + "]", "7"),
     KWinReport{{editorIdentity}, std::nullopt, {"{1}"}, ""}},
    {"no active window in the report", R"({"windows":[]})", KWinReport{}},
    {"no windows", R"({"active":null})", std::nullopt},
    {"windows that are not a list", reportOf("{}", "null"), std::nullopt},
    {"a list", "[]", std::nullopt},
    {"nothing", "", std::nullopt},
    {"half a report", R"({"windows":[)", std::nullopt},
    {"invalid UTF-8", "{\"windows\":[\"\xff\"]}", std::nullopt},
};

TEST(KWinScript, ParsesValidReportsAndRejectsInvalidReports) {
    for (const Row& row : rows) {
        EXPECT_EQ(readKWinReport(row.text), row.expected) << row.what;
    }
}

} // namespace

} // namespace glidemap
