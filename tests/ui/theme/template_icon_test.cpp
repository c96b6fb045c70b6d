// Tests that a template icon has the name of the installed icon, if one is installed, and that it
// can be drawn at any size in either case.
#include "ui/theme/symbol.h"
#include "ui/theme/template_icon.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QIcon>
#include <QImage>
#include <QTemporaryDir>
#include <algorithm>

namespace glidemap {
namespace {

constexpr const char* symbol = "hand.draw.fill";
constexpr const char* name = "org.glidemap.Template";

class TemplateIconTest : public testing::Test {
protected:
    TemplateIconTest() { qputenv("XDG_DATA_HOME", folder.path().toUtf8()); }
    ~TemplateIconTest() override { qputenv("XDG_DATA_HOME", before); }

    void install() const {
        const QDir place(folder.filePath("icons/hicolor/symbolic/apps"));
        ASSERT_TRUE(place.mkpath("."));
        QFile file(place.filePath(QString::fromLatin1(name) + ".svg"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

private:
    const QByteArray before = qgetenv("XDG_DATA_HOME");
    const QTemporaryDir folder;
};

bool isDrawn(const QIcon& icon, int size) {
    const QImage image = icon.pixmap(QSize(size, size), 1.0).toImage();
    int inked = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            inked += qAlpha(image.pixel(x, y)) > 127 ? 1 : 0;
        }
    }
    return image.size() == QSize(size, size) && inked > size * size / 10;
}

TEST_F(TemplateIconTest, HasANameIfInstalled) {
    install();
    const QIcon icon = themedTemplateIcon(name, symbol);
    EXPECT_EQ(icon.name().toStdString(), name);
    EXPECT_TRUE(icon.isMask());
}

TEST_F(TemplateIconTest, HasNoNameIfNotInstalled) {
    const QIcon icon = themedTemplateIcon(name, symbol);
    EXPECT_TRUE(icon.name().isEmpty());
    EXPECT_TRUE(icon.isMask());
}

TEST_F(TemplateIconTest, DrawnIconHasNoNameEvenIfAnIconIsInstalled) {
    install();
    EXPECT_TRUE(drawnTemplateIcon(symbol).name().isEmpty());
}

TEST_F(TemplateIconTest, IsDrawnAtEveryAvailableSize) {
    install();
    for (const QIcon& icon : {themedTemplateIcon(name, symbol), drawnTemplateIcon(symbol)}) {
        EXPECT_THAT(icon.availableSizes(), testing::Contains(QSize(22, 22)));
        for (const QSize& size : icon.availableSizes()) {
            EXPECT_TRUE(isDrawn(icon, size.width())) << size.width();
        }
    }
}

// The bar uses only the icon's opacity, so an edge would make the shape larger and softer.
TEST_F(TemplateIconTest, PlainIconHasNoEdge) {
    for (const int size : {16, 22, 44}) {
        const QIcon icon = plainTemplateIcon(symbol);
        EXPECT_TRUE(icon.isMask());
        EXPECT_TRUE(icon.name().isEmpty());
        const QImage image = icon.pixmap(QSize(size, size), 1.0).toImage();
        const QImage shape = symbolPixmap(symbol, Qt::red, size, 1).toImage();
        ASSERT_EQ(image.size(), shape.size());
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x) {
                ASSERT_EQ(qAlpha(image.pixel(x, y)), qAlpha(shape.pixel(x, y))) << x << ", " << y;
            }
        }
    }
}

TEST_F(TemplateIconTest, LowerStrengthReducesTheOpacity) {
    const auto opacityOf = [](const QIcon& icon) {
        const QImage image = icon.pixmap(64).toImage();
        int most = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                most = std::max(most, qAlpha(image.pixel(x, y)));
            }
        }
        return most;
    };
    EXPECT_GT(opacityOf(drawnTemplateIcon(symbol)), 250);
    EXPECT_LT(opacityOf(drawnTemplateIcon(symbol, 0.45)), 180);
    EXPECT_LT(opacityOf(themedTemplateIcon(name, symbol, 0.45)), 180);
    EXPECT_GT(opacityOf(plainTemplateIcon(symbol)), 250);
    EXPECT_LT(opacityOf(plainTemplateIcon(symbol, 0.45)), 180);
}

} // namespace
} // namespace glidemap
