#include "core/gesture_type.h"
#include "screenshots/photograph.h"
#include "screenshots/scene.h"
#include "ui/demo/draw_gesture_demo.h"
#include "ui/demo/gesture_demo.h"
#include "ui/theme/application_icon.h"
#include "ui/theme/symbol.h"
#include "ui/theme/template_icon.h"
#include "ui/theme/text.h"

#include <QDir>
#include <QPainter>
#include <algorithm>
#include <array>
#include <vector>

namespace glidemap::test {

namespace {

constexpr int margin = 16;

// A canvas in the window's background colour, with a painter that uses the interface's font.
struct Sheet {
    explicit Sheet(QSize points) : image(canvas(points)) {
        image.fill(Theme::shared().color(Role::window));
        painter.begin(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Theme::shared().color(Role::primary));
        painter.setFont(Theme::shared().font(TextStyle::caption));
    }

    QImage finished() {
        painter.end();
        return image;
    }

    QImage image;
    QPainter painter;
};

constexpr QSize frameSize(132, 88);
constexpr int frameGap = 6;
constexpr int nameHeight = 20;
constexpr int columns = 3;

// Returns an early, a middle and a late time, in seconds, at which at least one finger is clearly
// visible.
std::array<double, 3> momentsOf(GestureType gesture) {
    constexpr int samples = 104; // 1/40 s apart
    std::vector<double> seen;
    for (int sample = 0; sample < samples; ++sample) {
        const double moment = demo::loopDuration * sample / samples;
        const demo::Frame frame = demo::frame(gesture, moment);
        const auto isClear = [](const demo::Finger& finger) {
            return finger.opacity > 0.6;
        };
        if (std::ranges::any_of(frame.fingers, isClear)) {
            seen.push_back(moment);
        }
    }
    const std::size_t count = seen.size();
    return {seen.at(count / 6), seen.at(count / 2), seen.at(count * 5 / 6)};
}

void drawDemonstration(QPainter& painter, GestureType gesture, QPoint at) {
    const int width = 3 * frameSize.width() + 2 * frameGap;
    painter.drawText(QRect(at, QSize(width, nameHeight)), Qt::AlignVCenter | Qt::AlignLeft,
                     toQt(displayName(gesture)));
    int x = at.x();
    for (const double moment : momentsOf(gesture)) {
        painter.save();
        painter.translate(x, at.y() + nameHeight);
        demo::draw(gesture, moment, painter, QSizeF(frameSize));
        painter.restore();
        x += frameSize.width() + frameGap;
    }
}

QImage demonstrations() {
    const QSize cell(3 * frameSize.width() + 2 * frameGap + 2 * margin,
                     frameSize.height() + nameHeight + margin);
    const int count = static_cast<int>(allGestureTypes.size());
    const int rows = (count + columns - 1) / columns;
    Sheet sheet(QSize(columns * cell.width() + margin, rows * cell.height() + margin));
    for (int index = 0; index < count; ++index) {
        const QPoint at(margin + index / rows * cell.width(),
                        margin + index % rows * cell.height());
        drawDemonstration(sheet.painter, allGestureTypes[static_cast<std::size_t>(index)], at);
    }
    return sheet.finished();
}

QImage symbols() {
    constexpr std::array sizes = {12, 16, 22, 48};
    constexpr std::array roles = {Role::primary, Role::accent, Role::orange, Role::red, Role::blue};
    constexpr QSize cell(400, 64);
    const QStringList names = QDir(":/symbols").entryList(QDir::Files, QDir::Name);
    const int rows = static_cast<int>(names.size() + 1) / 2;
    Sheet sheet(QSize(2 * cell.width() + margin, rows * cell.height() + margin));
    for (int index = 0; index < names.size(); ++index) {
        const std::string name = names[index].toStdString();
        int x = margin + index / rows * cell.width();
        const int y = margin + index % rows * cell.height();
        for (const int size : sizes) {
            drawSymbol(sheet.painter, QRectF(x, y + (48 - size) / 2.0, size, size), name,
                       Theme::shared().color(Role::primary));
            x += size + 14;
        }
        for (const Role role : roles) {
            drawSymbol(sheet.painter, QRectF(x, y + 2, 16, 16), name, Theme::shared().color(role));
            x += 24;
        }
        sheet.painter.drawText(QRect(x - 120, y + 24, 240, 20), Qt::AlignLeft, toQt(name));
    }
    return sheet.finished();
}

// Draws the application's icon in the sizes of launchers, and the status item's icon on status bars
// of several colours.
QImage icons() {
    constexpr std::array sizes = {16, 22, 24, 32, 48, 64, 128, 256};
    Sheet sheet(QSize(760, 400));
    const double ratio = sheet.image.devicePixelRatio();
    int x = margin;
    for (const int size : sizes) {
        const QPixmap pixmap = applicationIcon().pixmap(QSize(size, size), ratio);
        sheet.painter.drawPixmap(QRect(x, margin + 256 - size, size, size), pixmap);
        x += size + margin;
    }
    x = margin;
    for (const QColor& bar : {QColor(30, 30, 32), QColor(246, 246, 247), QColor(92, 120, 160)}) {
        sheet.painter.fillRect(QRect(x, 310, 200, 32), bar);
        const QIcon icon = drawnTemplateIcon("hand.draw.fill");
        int at = x + 12;
        for (const int size : {16, 22, 24}) {
            sheet.painter.drawPixmap(QRect(at, 326 - size / 2, size, size),
                                     icon.pixmap(QSize(size, size), ratio));
            at += 56;
        }
        x += 216;
    }
    return sheet.finished();
}

} // namespace

std::vector<Scene> drawingScenes() {
    return {
        {"Demonstrations", "all", "Three moments of each demonstration", demonstrations, true},
        {"Drawings", "symbols", "Symbols in their sizes and colours", symbols},
        {"Drawings", "icons", "The application's icon, and the status item's on three bars", icons},
    };
}

} // namespace glidemap::test
