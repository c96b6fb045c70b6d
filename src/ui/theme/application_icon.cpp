#include "ui/theme/application_icon.h"

#include "ui/theme/pixmap_icon_engine.h"

#include <QPixmap>
#include <QResource>
#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace glidemap {

namespace {

constexpr std::array sizes{16, 22, 24, 32, 48, 64, 96, 128, 256};

// The maximum size in availableSizes(). Qt sends all listed sizes of a window's icon to the X
// server, but no desktop shows a larger icon.
constexpr int maxListedSize = 128;

// Copies only the requested size from the resources.
QImage drawn(int pixels) {
    const QResource resource(QStringLiteral(":/application-icon/%1").arg(pixels));
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    if (resource.size() != image.sizeInBytes()) {
        return {};
    }
    std::memcpy(image.bits(), resource.data(), static_cast<std::size_t>(image.sizeInBytes()));
    return image;
}

// Returns the smallest size that needs no upscaling, or else the largest size.
int sizeFor(int pixels) {
    const auto* const found = std::lower_bound(sizes.begin(), sizes.end(), pixels);
    return found != sizes.end() ? *found : sizes.back();
}

int square(const QSize& size) {
    return std::min({size.width(), size.height(), sizes.back()});
}

class Engine : public PixmapIconEngine {
public:
    QIconEngine* clone() const override { return new Engine(*this); }

    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        return squares({sizes.begin(), std::ranges::upper_bound(sizes, maxListedSize)});
    }

    QSize actualSize(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        return {square(size), square(size)};
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
