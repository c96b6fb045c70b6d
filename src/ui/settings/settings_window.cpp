#include "ui/settings/settings_window.h"

#include <QGuiApplication>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace glidemap {

namespace {

// How much of the window's upper edge has to be on a screen for a hand to get hold of it.
constexpr QSize handle{120, 40};

// No desktop is larger; beyond, sums of places and sizes would overflow.
constexpr int farthest = 1'000'000;

bool isFar(int coordinate) {
    return coordinate > farthest || coordinate < -farthest;
}

bool canBeReached(QPoint place, int width) {
    if (isFar(place.x()) || isFar(place.y())) {
        return false;
    }
    const QRect upperEdge(place, QSize(width, handle.height()));
    return std::ranges::any_of(QGuiApplication::screens(), [&](const QScreen* screen) {
        const QRect seen = screen->availableGeometry().intersected(upperEdge);
        return seen.width() >= handle.width() && seen.height() >= handle.height();
    });
}

QSize sizeOf(const WindowGeometry& geometry, QSize largest) {
    return QSize(geometry.width, geometry.height)
        .boundedTo(largest)
        .expandedTo(SettingsWindow::minimumContentSize);
}

} // namespace

SettingsWindow::SettingsWindow(SettingsView::Services services,
                               std::shared_ptr<WindowGeometryStore> geometryStore, QWidget* parent)
    : QWidget(parent), remembered(std::move(geometryStore)),
      content(new SettingsView(std::move(services), this)) {
    setObjectName("settingsWindow");
    setWindowTitle("Glidemap");
    setMinimumSize(minimumContentSize);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(content);
    goWhereItWas();
}

// A program that is ended with its window open has not hidden it.
SettingsWindow::~SettingsWindow() {
    if (isVisible()) {
        rememberPlace();
    }
}

void SettingsWindow::goWhereItWas() {
    const QRect available = screen()->availableGeometry();
    const auto last = remembered != nullptr ? remembered->read() : std::nullopt;
    const QSize size = last ? sizeOf(*last, screen()->virtualSize()) : contentSize;
    QRect place(QPoint(), size);
    place.moveCenter(available.center());
    if (last && canBeReached({last->x, last->y}, size.width())) {
        place.moveTopLeft({last->x, last->y});
    }
    resize(place.size());
    move(place.topLeft());
    if (last && last->maximized) {
        setWindowState(Qt::WindowMaximized);
    }
}

void SettingsWindow::hideEvent(QHideEvent* event) {
    rememberPlace();
    QWidget::hideEvent(event);
}

void SettingsWindow::rememberPlace() {
    if (remembered == nullptr) {
        return;
    }
    const QRect normal = isMaximized() ? normalGeometry() : QRect(pos(), size());
    remembered->write({normal.x(), normal.y(), normal.width(), normal.height(), isMaximized()});
}

} // namespace glidemap
