// Tests that every symbol that the program names has a drawing, and that each drawing has only one
// colour and is complete at every size and scale factor.
#include "core/gesture_category.h"
#include "ui/theme/symbol.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <algorithm>
#include <cstdlib>
#include <set>
#include <string>

namespace glidemap {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

const QColor ink(0x20, 0x60, 0xa0);

QByteArray contentsOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

// Returns the symbol names in calls that take a symbol name.
std::set<std::string> symbolsNamedIn(const QString& code) {
    static const QRegularExpression call(
        R"re(\b(?:symbolIcon|symbolPixmap|drawSymbol|setSymbol|SymbolLabel|SymbolButton|Notice)\b)re"
        R"re([^;"]{0,120}"([a-z0-9]+(?:\.[a-z0-9]+)*)")re");
    std::set<std::string> names;
    for (auto found = call.globalMatch(code); found.hasNext();) {
        names.insert(found.next().captured(1).toStdString());
    }
    return names;
}

std::set<std::string> symbolsOfTheProgram() {
    std::set<std::string> names;
    for (const GestureCategory category : allGestureCategories) {
        names.emplace(symbolName(category));
    }
    for (const char* folder : {GLIDEMAP_SOURCE_DIR "/ui", GLIDEMAP_SOURCE_DIR "/app"}) {
        QDirIterator files(folder, {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            names.merge(symbolsNamedIn(QString::fromUtf8(contentsOf(files.next()))));
        }
    }
    return names;
}

constexpr const char* folderOfDrawings = GLIDEMAP_SOURCE_DIR "/ui/theme/symbols";

QStringList drawings() {
    return QDir(folderOfDrawings).entryList({"*.svg"}, QDir::Files, QDir::Name);
}

QByteArray drawing(const QString& file) {
    return contentsOf(QDir(folderOfDrawings).filePath(file));
}

std::string nameOf(const QString& file) {
    return file.chopped(4).toStdString();
}

// Draws the symbol in its box, with a margin as wide as the box on each side.
QImage drawn(std::string_view name, int points, double ratio) {
    const int pixels = qRound(3 * points * ratio);
    QImage image(pixels, pixels, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    image.setDevicePixelRatio(ratio);
    QPainter painter(&image);
    drawSymbol(painter, QRectF(points, points, points, points), name, ink);
    return image;
}

struct Ink {
    QRect bounds;
    int covered = 0;     // pixels with more than half coverage
    int otherShades = 0; // pixels that differ from the ink's colour
};

bool isInk(QRgb pixel) {
    return qAbs(qRed(pixel) - ink.red()) <= 3 && qAbs(qGreen(pixel) - ink.green()) <= 3 &&
           qAbs(qBlue(pixel) - ink.blue()) <= 3;
}

// Ignores the colour of faint pixels, which changes considerably when premultiplied colours are
// rounded.
Ink inkOf(const QImage& image) {
    Ink result;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qAlpha(pixel) > 0) {
                result.bounds |= QRect(x, y, 1, 1);
            }
            if (qAlpha(pixel) > 127) {
                ++result.covered;
                result.otherShades += isInk(pixel) ? 0 : 1;
            }
        }
    }
    return result;
}

// Returns the largest alpha difference of any pixel, or 256 if the sizes differ.
int maxDifference(const QImage& one, const QImage& other) {
    int largest = one.size() == other.size() ? 0 : 256;
    for (int y = 0; largest < 256 && y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            largest = std::max(largest, std::abs(qAlpha(a) - qAlpha(b)));
        }
    }
    return largest;
}

std::string described(const QRect& rect) {
    return "left " + std::to_string(rect.left()) + ", top " + std::to_string(rect.top()) +
           ", right " + std::to_string(rect.right()) + ", bottom " + std::to_string(rect.bottom());
}

TEST(SymbolsTest, SourceCodeScanFindsTheSymbolNames) {
    EXPECT_THAT(symbolsNamedIn(R"(
        add->setIcon(symbolIcon("plus", Role::accent));
        auto* warning = new SymbolLabel("exclamationmark.triangle.fill", Role::orange, 16, this);
        edit = new SymbolButton(
            "pencil", Role::secondary, this);
        edit->setObjectName("edit");)"),
                ElementsAre("exclamationmark.triangle.fill", "pencil", "plus"));
}

TEST(SymbolsTest, EverySymbolNamedByTheProgramHasADrawing) {
    for (const std::string& name : symbolsOfTheProgram()) {
        EXPECT_TRUE(symbolExists(name)) << name;
    }
}

TEST(SymbolsTest, UnknownNameHasNoDrawing) {
    EXPECT_FALSE(symbolExists("hand.of.three.fingers"));
    EXPECT_FALSE(symbolExists(""));
}

TEST(SymbolsTest, RendererReadsEverySymbolWithoutWarnings) {
    ASSERT_THAT(drawings(), Not(IsEmpty()));
    for (const QString& file : drawings()) {
        SCOPED_TRACE(file.toStdString());
        QSvgRenderer renderer(drawing(file));
        EXPECT_TRUE(renderer.isValid());
        EXPECT_EQ(renderer.viewBoxF(), QRectF(0, 0, 16, 16));
    }
}

// The compiled drawings look like the output of the SVG renderer.
TEST(SymbolsTest, DrawSymbolMatchesTheRenderer) {
    for (const QString& file : drawings()) {
        for (const int pixels : {16, 24, 44}) {
            SCOPED_TRACE(nameOf(file) + " at " + std::to_string(pixels) + " pixels");
            QImage expected(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
            expected.fill(Qt::transparent);
            QPainter painter(&expected);
            QSvgRenderer renderer(drawing(file).replace("currentColor", ink.name().toLatin1()));
            renderer.render(&painter, QRectF(0, 0, pixels, pixels));
            painter.end();
            const QImage seen = symbolPixmap(nameOf(file), ink, pixels, 1).toImage();
            EXPECT_LE(maxDifference(seen, expected), 8);
        }
    }
}

TEST(SymbolsTest, CompiledInSymbolsAreExactlyTheDrawings) {
    std::set<std::string> inFolder;
    for (const QString& file : drawings()) {
        inFolder.insert(nameOf(file));
    }
    std::set<std::string> inProgram;
    for (const QString& name : QDir(":/symbols").entryList(QDir::Files)) {
        inProgram.insert(name.toStdString());
    }
    EXPECT_EQ(inProgram, inFolder);
}

// The caller of drawSymbol() sets the colour.
TEST(SymbolsTest, SpecifyNoColours) {
    static const QRegularExpression paint(R"re(\b(fill|stroke|color)\s*[=:]\s*"?([^";]*))re");
    for (const QString& file : drawings()) {
        const QString text = QString::fromUtf8(drawing(file));
        for (auto found = paint.globalMatch(text); found.hasNext();) {
            const QString value = found.next().captured(2);
            EXPECT_TRUE(value == "currentColor" || value == "none")
                << nameOf(file) << ": " << value.toStdString();
        }
    }
}

TEST(SymbolsTest, FitIntoTheirBoxAndUseMostOfItAtEverySize) {
    for (const QString& file : drawings()) {
        for (const int points : {12, 16, 22, 32}) {
            for (const double ratio : {1.0, 1.5, 2.0}) {
                SCOPED_TRACE(nameOf(file) + " at " + std::to_string(points) + " points, " +
                             std::to_string(ratio) + " pixels each");
                const Ink seen = inkOf(drawn(nameOf(file), points, ratio));
                const double edge = points * ratio;
                const QRect box = QRectF(edge, edge, edge, edge).toAlignedRect();
                EXPECT_TRUE(box.contains(seen.bounds)) << described(seen.bounds);
                // The longer side of the smallest symbol, a chevron, is about two thirds of the
                // box's edge.
                EXPECT_GE(qMax(seen.bounds.width(), seen.bounds.height()), 0.6 * edge);
                EXPECT_GE(seen.covered, 0.04 * edge * edge);
                EXPECT_EQ(seen.otherShades, 0);
            }
        }
    }
}

// The symbols distinguish the kinds of gestures, so no two may look the same.
TEST(SymbolsTest, LookDifferentFromEachOther) {
    const QStringList names = drawings();
    for (int one = 0; one < names.size(); ++one) {
        for (int other = one + 1; other < names.size(); ++other) {
            EXPECT_NE(drawn(nameOf(names[one]), 16, 1), drawn(nameOf(names[other]), 16, 1))
                << nameOf(names[one]) << " and " << nameOf(names[other]);
        }
    }
}

} // namespace
} // namespace glidemap
