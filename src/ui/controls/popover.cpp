#include "ui/controls/popover.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <utility>

namespace glidemap {

Popover::Popover(QWidget* anchor, QWidget* content) : QFrame(anchor->window()), hangsFrom(anchor) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 16, 8, 8);
    layout->addWidget(content);
    toTheme = Theme::shared().changes().subscribe({}, [this] { update(); });
    connect(anchor, &QObject::destroyed, this, [this] { dismiss(); });
    qApp->installEventFilter(this);
    setFocusPolicy(Qt::StrongFocus);
    place();
    show();
    raise();
    setFocus();
}

void Popover::dismiss() {
    if (std::exchange(isClosed, true)) {
        return;
    }
    hide();
    deleteLater();
    if (onClosed) {
        onClosed();
    }
}

bool Popover::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType()) {
        const auto* clicked = static_cast<QWidget*>(watched);
        const bool isInside = clicked == this || isAncestorOf(clicked);
        if (!isInside && clicked != hangsFrom) {
            dismiss();
        }
    }
    return false;
}

void Popover::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        dismiss();
        return;
    }
    QFrame::keyPressEvent(event);
}

void Popover::place() {
    adjustSize();
    const QPoint below = hangsFrom->mapTo(window(), QPoint(0, hangsFrom->height()));
    move(below);
}

void Popover::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), Theme::shared().color(Role::card));
}

} // namespace glidemap
