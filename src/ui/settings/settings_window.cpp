#include "ui/settings/settings_window.h"

#include "ui/controls/accessible_role.h"
#include "ui/controls/kept_within.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace glidemap {

namespace {

// Larger than any desktop. Stored positions beyond it are rejected, because sums of positions and
// sizes could overflow.
constexpr int maxCoordinate = 1'000'000;

bool isFar(int coordinate) {
    return coordinate > maxCoordinate || coordinate < -maxCoordinate;
}

bool makesSense(const WindowGeometry& geometry) {
    return !isFar(geometry.x) && !isFar(geometry.y);
}

int distance(const QRect& from, const QRect& to) {
    const QPoint between = to.center() - from.center();
    return between.manhattanLength();
}

// Returns the available area of the screen that shows the largest part of the rectangle. If no
// screen shows a part, returns the area of the closest screen.
QRect roomFor(const QRect& place) {
    const auto screens = QGuiApplication::screens();
    const auto isBetter = [&](const QScreen* left, const QScreen* right) {
        const auto seen = [&](const QScreen* screen) {
            const QSize part = screen->availableGeometry().intersected(place).size();
            return part.isEmpty() ? 0LL : 1LL * part.width() * part.height();
        };
        if (seen(left) != seen(right)) {
            return seen(left) > seen(right);
        }
        return distance(place, left->availableGeometry()) <
               distance(place, right->availableGeometry());
    };
    return (*std::ranges::min_element(screens, isBetter))->availableGeometry();
}

QSize sizeOf(const WindowGeometry& geometry, QSize largest) {
    return QSize(geometry.width, geometry.height)
        .boundedTo(largest)
        .expandedTo(SettingsWindow::minimumContentSize);
}

} // namespace

SettingsWindow::SettingsWindow(SettingsView::Services services,
                               std::shared_ptr<WindowGeometryStore> geometryStore, QWidget* parent)
    : QWidget(parent), geometryStore(std::move(geometryStore)),
      content(new SettingsView(std::move(services), this)) {
    presentAs<SettingsWindow, QAccessible::Window>();
    setObjectName("settingsWindow");
    setWindowTitle("Glidemap");
    setMinimumSize(minimumContentSize);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(content);
    restoreGeometry();
}

// When the program quits, an open window is destroyed without a hide event.
SettingsWindow::~SettingsWindow() {
    if (isVisible()) {
        rememberPlace();
    }
}

// Ensures that the window fits on one screen: the screen of the stored position may be smaller now,
// or disconnected.
void SettingsWindow::restoreGeometry() {
    const auto last = geometryStore != nullptr ? geometryStore->read() : std::nullopt;
    QRect place(QPoint(), contentSize);
    place.moveCenter(screen()->availableGeometry().center());
    if (last && makesSense(*last)) {
        place = QRect(QPoint(last->x, last->y), sizeOf(*last, screen()->virtualSize()));
        const QRect room = roomFor(place);
        place.setSize(place.size().boundedTo(room.size()).expandedTo(minimumContentSize));
        place.moveTo(keptWithin(place.x(), place.width(), room.left(), room.right() + 1),
                     keptWithin(place.y(), place.height(), room.top(), room.bottom() + 1));
    }
    resize(place.size());
    move(place.topLeft());
    if (last && last->maximized) {
        setWindowState(Qt::WindowMaximized);
    }
}

// Qt reports the normal position of a maximised window without its frame, so the frame is
// remembered. It is known some time after the window was shown.
bool SettingsWindow::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
        if (isVisible() && (windowState() & ~Qt::WindowActive) == Qt::WindowNoState) {
            frameOffset = geometry().topLeft() - pos();
        }
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void SettingsWindow::hideEvent(QHideEvent* event) {
    rememberPlace();
    QWidget::hideEvent(event);
}

void SettingsWindow::rememberPlace() {
    if (geometryStore == nullptr) {
        return;
    }
    const QRect normal =
        isMaximized() ? normalGeometry().translated(-frameOffset) : QRect(pos(), size());
    geometryStore->write({normal.x(), normal.y(), normal.width(), normal.height(), isMaximized()});
}

} // namespace glidemap
