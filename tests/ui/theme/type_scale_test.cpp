#include "ui/theme/type_scale.h"

#include <gmock/gmock.h>

#include <QFontDatabase>
#include <QFontInfo>
#include <algorithm>
#include <vector>

namespace glidemap {
namespace {

constexpr TextStyle styles[] = {TextStyle::title2,     TextStyle::headline, TextStyle::body,
                                TextStyle::bodyMedium, TextStyle::callout,  TextStyle::caption,
                                TextStyle::caption2};

struct Look {
    int size;
    QFont::Weight weight;
    bool operator==(const Look&) const = default;
};

std::vector<Look> looksFrom(int desktopPixels) {
    QFont desktop;
    desktop.setPixelSize(desktopPixels);
    std::vector<Look> looks;
    for (const TextStyle style : styles) {
        const QFont font = scaledFont(desktop, style);
        looks.push_back({font.pixelSize(), font.weight()});
    }
    return looks;
}

const std::vector<Look> usual = {{19, QFont::Bold},   {14, QFont::DemiBold}, {14, QFont::Normal},
                                 {14, QFont::Medium}, {13, QFont::Normal},   {12, QFont::Normal},
                                 {11, QFont::Normal}};

TEST(TypeScaleTest, DefaultOrSmallerDesktopFontGivesTheDefaultSizes) {
    EXPECT_EQ(looksFrom(9), usual);
    EXPECT_EQ(looksFrom(14), usual);
}

TEST(TypeScaleTest, LargerDesktopFontEnlargesEveryStyle) {
    const std::vector<Look> twice = {
        {38, QFont::Bold},   {28, QFont::DemiBold}, {28, QFont::Normal}, {28, QFont::Medium},
        {26, QFont::Normal}, {24, QFont::Normal},   {22, QFont::Normal}};
    EXPECT_EQ(looksFrom(28), twice);
}

// Desktops set font sizes in points.
TEST(TypeScaleTest, FontSizeInPointsIsConvertedToPixels) {
    for (const double points : {9.0, 10.5, 13.0, 21.0}) {
        QFont desktop;
        desktop.setPointSizeF(points);
        const double enlargement = std::max(1.0, QFontInfo(desktop).pixelSize() / 14.0);
        EXPECT_NEAR(scaledFont(desktop, TextStyle::body).pixelSize(), 14 * enlargement, 1);
        EXPECT_NEAR(scaledFont(desktop, TextStyle::title2).pixelSize(), 19 * enlargement, 1);
    }
}

TEST(TypeScaleTest, DesktopFontFamilyComesFirst) {
    EXPECT_EQ(interfaceFont(QFont(QStringLiteral("Some Family"))).families().front(),
              QStringLiteral("Some Family"));
}

TEST(TypeScaleTest, DesktopWithoutAFontFamilyUsesAnInstalledFamily) {
    for (const char* none : {"Sans Serif", "sans", "SANS-SERIF"}) {
        const QStringList families = interfaceFont(QFont(QString::fromLatin1(none))).families();
        for (const QString& family : families) {
            EXPECT_TRUE(QFontDatabase::hasFamily(family)) << family.toStdString();
        }
        if (QFontDatabase::hasFamily(QStringLiteral("Inter"))) {
            EXPECT_EQ(families.value(0), QStringLiteral("Inter"));
        }
    }
}

TEST(TypeScaleTest, ChineseUsesMainlandLetterforms) {
    const QString family = QStringLiteral("Noto Sans CJK SC");
    if (!QFontDatabase::hasFamily(family)) {
        GTEST_SKIP() << "Noto Sans CJK SC is not installed";
    }
    const QStringList families = interfaceFont(QFont(QStringLiteral("Some Family"))).families();
    EXPECT_EQ(families.filter(QStringLiteral("CJK")), QStringList{family});
}

} // namespace
} // namespace glidemap
