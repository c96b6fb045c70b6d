#include "platform/linux/diagnosis/report_page.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

TEST(ReportPageTest, FormatsHeadingsLinesAndFacts) {
    ReportPage page("/home/anna");
    page.heading("Session");
    page.fact("DISPLAY", ":0");
    page.fact("WAYLAND_DISPLAY", "");
    page.heading("Touchpads");
    page.line("none");
    EXPECT_EQ(page.text(), "Session\n  DISPLAY: :0\n  WAYLAND_DISPLAY: (not set)\n"
                           "\nTouchpads\n  none\n");
}

TEST(ReportPageTest, ShortensTheHomeFolderButNotASiblingWithTheSamePrefix) {
    ReportPage page("/home/anna");
    page.line("/home/anna /home/anna/file:/home/annabel:/home/anna");
    EXPECT_EQ(page.text(), "  /home/anna ~/file:/home/annabel:~\n");
}

TEST(ReportPageTest, KeepsFullPathsWithoutAUsableHomeFolder) {
    for (const char* home : {"", "/", "relative"}) {
        ReportPage page(home);
        page.line("/relative/file");
        EXPECT_EQ(page.text(), "  /relative/file\n");
    }
}

TEST(ReportPageTest, ReplacesControlCharacters) {
    ReportPage page("");
    page.fact("name", "Pad\n\x1b[2J 触控板");
    EXPECT_EQ(page.text(), "  name: Pad??[2J 触控板\n");
}

} // namespace
} // namespace glidemap
