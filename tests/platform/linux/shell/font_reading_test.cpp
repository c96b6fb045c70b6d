#include "kit/in_environment.h"
#include "kit/temporary_folder.h"
#include "platform/linux/shell/font_reading.h"

#include <fontconfig/fontconfig.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace glidemap {
namespace {

constexpr const char* anyFont = "/usr/share/fonts/opentype/inter/Inter-Regular.otf";

// Provides a font folder with one font. takeAllAway() deletes the font, so that a later reader
// cannot find it.
class FontReadingTest : public testing::Test {
protected:
    void SetUp() override {
        if (!std::filesystem::exists(anyFont)) {
            GTEST_SKIP() << anyFont << " is not installed";
        }
        std::filesystem::create_directory(fonts);
        std::filesystem::copy_file(anyFont, fonts / "only.otf");
    }

    // Discards fonts that an earlier test may have read.
    FontReadingTest() { FcFini(); }
    ~FontReadingTest() override { FcFini(); }

    void takeAllAway() const { std::filesystem::remove_all(fonts); }

    // Returns the number of known fonts. Fontconfig reads the fonts now if it has not read them
    // yet.
    static int knownFonts() {
        const FcFontSet* const known = FcConfigGetFonts(FcConfigGetCurrent(), FcSetSystem);
        return known != nullptr ? known->nfont : 0;
    }

    const test::TemporaryFolder folder;
    const std::filesystem::path fonts = folder.path() / "fonts";
    const std::filesystem::path configuration = folder.write(
        "fonts.conf", "<fontconfig><dir>" + fonts.string() + "</dir><cachedir>" +
                          (folder.path() / "cache").string() + "</cachedir></fontconfig>");
    const test::InEnvironment file{"FONTCONFIG_FILE", configuration.c_str()};
};

TEST_F(FontReadingTest, FinishWaitsUntilTheFontsAreKnown) {
    FontReading reading;
    reading.finish();
    takeAllAway();
    EXPECT_EQ(knownFonts(), 1);
}

TEST_F(FontReadingTest, DestructorWaitsUntilTheFontsAreKnown) {
    { const FontReading reading; }
    takeAllAway();
    EXPECT_EQ(knownFonts(), 1);
}

TEST_F(FontReadingTest, DeletedFontIsUnknownUnlessReadBeforeItsDeletion) {
    takeAllAway();
    EXPECT_EQ(knownFonts(), 0);
}

} // namespace
} // namespace glidemap
