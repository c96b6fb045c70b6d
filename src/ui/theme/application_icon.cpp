#include "ui/theme/application_icon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QResource>
#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace glidemap {

namespace {

constexpr std::array sizes{16, 22, 24, 32, 48, 64, 96, 128, 256};

// A window sends all that are listed to the X server, where nothing shows it larger than this.
constexpr int largestListed = 128;

// Only what is asked for is copied out of the program.
QImage drawn(int pixels) {
    const QResource resource(QStringLiteral(":/application-icon/%1").arg(pixels));
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    if (resource.size() != image.sizeInBytes()) {
        return {};
    }
    std::memcpy(image.bits(), resource.data(), static_cast<std::size_t>(image.sizeInBytes()));
    return image;
}

// The smallest that has to be made no larger, if there is one.
int sizeFor(int pixels) {
    const auto* const found = std::lower_bound(sizes.begin(), sizes.end(), pixels);
    return found != sizes.end() ? *found : sizes.back();
}

int square(const QSize& size) {
    return std::min({size.width(), size.height(), sizes.back()});
}

class Engine : public QIconEngine {
public:
    QIconEngine* clone() const override { return new Engine(*this); }

    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        QList<QSize> listed;
        for (const int size : sizes) {
            if (size <= largestListed) {
                listed.append(QSize(size, size));
            }
        }
        return listed;
    }

    QSize actualSize(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        return {square(size), square(size)};
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State state) override {
        const double ratio = painter->device()->devicePixelRatioF();
        const QPixmap picture = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
        QRectF target(QPointF(), QSizeF(picture.size()) / ratio);
        target.moveCenter(QRectF(rect).center());
        painter->drawPixmap(target, picture, picture.rect());
    }

    QPixmap pixmap(const QSize& pixels, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        const int size = square(pixels);
        if (size <= 0) {
            return {};
        }
        QImage image = drawn(sizeFor(size));
        if (image.width() != size) {
            image = image.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        }
        return QPixmap::fromImage(std::move(image));
    }
};

} // namespace

QIcon applicationIcon() {
    return QIcon(new Engine);
}

} // namespace glidemap
