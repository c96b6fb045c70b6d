#include "screenshots/photograph.h"

#include "ui/theme/style/shadow.h"
#include "ui/theme/theme.h"

#include <QApplication>
#include <QPainter>
#include <QWidget>
#include <algorithm>

namespace glidemap::test {

namespace {

constexpr int desktopMargin = 24;

QColor desktopColor() {
    return Theme::shared().isDark() ? QColor(46, 51, 61) : QColor(176, 186, 200);
}

} // namespace

QImage canvas(const QSize& points) {
    const double ratio = qApp->devicePixelRatio();
    QImage image((QSizeF(points) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    return image;
}

void settle() {
    constexpr int turns = 6; // a layout pass may request another pass, which may move a popup
    for (int turn = 0; turn < turns; ++turn) {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }
}

QImage photograph(QWidget& window) {
    settle();
    QImage image = canvas(window.size());
    window.render(&image);
    return image;
}

QImage photographTogether(const QList<QWidget*>& windows) {
    settle();
    QRect desktop;
    for (const QWidget* const window : windows) {
        desktop |= window->geometry();
    }
    desktop.adjust(-desktopMargin, -desktopMargin, desktopMargin, desktopMargin);
    QImage image = canvas(desktop.size());
    image.fill(desktopColor());
    QPainter painter(&image);
    for (QWidget* const window : windows) {
        const QPoint place = window->geometry().topLeft() - desktop.topLeft();
        // A translucent window draws its own shadow.
        if (!window->testAttribute(Qt::WA_TranslucentBackground)) {
            style::drawShadow(painter, QRect(place, window->size()), 0);
        }
        painter.drawImage(place, photograph(*window));
    }
    return image;
}

QImage photographWithAllAbove(QWidget& window) {
    settle();
    QList<QWidget*> windows{&window};
    for (QWidget* const other : QApplication::topLevelWidgets()) {
        if (other != &window && other->isVisible()) {
            windows.append(other);
        }
    }
    // Draws popups last, because an open list is above its sheet.
    std::stable_sort(windows.begin() + 1, windows.end(), [](const QWidget* a, const QWidget* b) {
        const auto isPopup = [](const QWidget* each) {
            return each->windowType() == Qt::Popup;
        };
        return isPopup(a) < isPopup(b);
    });
    return photographTogether(windows);
}

bool isBlank(const QImage& picture) {
    if (picture.isNull()) {
        return true;
    }
    const QImage pixels = picture.convertToFormat(QImage::Format_ARGB32);
    const QRgb ground = pixels.pixel(0, 0);
    qsizetype different = 0;
    for (int y = 0; y < pixels.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        different += std::count_if(line, line + pixels.width(),
                                   [ground](QRgb pixel) { return pixel != ground; });
    }
    constexpr qsizetype minShareDivisor =
        500; // a line of text in an empty window exceeds this share
    return different < qsizetype{pixels.width()} * pixels.height() / minShareDivisor;
}

} // namespace glidemap::test
