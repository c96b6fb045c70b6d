#include "ui/controls/popover.h"

#include "ui/controls/accessible_role.h"
#include "ui/theme/style/paint.h"
#include "ui/theme/style/shadow.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace glidemap {

namespace {

constexpr int padding = 8;

// The distance from the card's edge to the popover widget. Because of this inset, the widget does
// not overlap the round corners and can be opaque. With an opaque widget, an animation frame does
// not repaint the window below.
constexpr int inset = 4;

// Returns the outline of the card including its arrow, so that the edge is drawn around both.
QPainterPath outlineOf(const QRectF& card, bool isAbove, double arrowX) {
    QPainterPath body;
    body.addRoundedRect(card, popoverRadius, popoverRadius);
    const double base = isAbove ? card.bottom() : card.top();
    const double direction = isAbove ? 1 : -1;
    const double tip = base + direction * (popoverArrowHeight - 0.5);
    const double inward = base - direction;
    QPainterPath arrow(QPointF(arrowX - popoverArrowHalfWidth, inward));
    arrow.lineTo(arrowX - popoverArrowHalfWidth, base);
    arrow.lineTo(arrowX - 1.5, tip - direction);
    arrow.quadTo(arrowX, tip + direction * 0.5, arrowX + 1.5, tip - direction);
    arrow.lineTo(arrowX + popoverArrowHalfWidth, base);
    arrow.lineTo(arrowX + popoverArrowHalfWidth, inward);
    arrow.closeSubpath();
    return body.united(arrow);
}

} // namespace

// Draws the card with its arrow and shadow, behind and around the popover. The drawing is cached as
// a pixmap, because drawing is expensive and each repaint of the window below repaints the
// backdrop.
class Popover::Backdrop : public QWidget {
public:
    explicit Backdrop(QWidget* parent) : QWidget(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

    void showFor(const PopoverPlacement& placement) {
        shown = placement;
        picture = {};
        setGeometry(placement.card.adjusted(-reach, -reach, reach, reach));
        update();
        show();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        if (picture.isNull() || picture.devicePixelRatio() != devicePixelRatioF()) {
            draw();
        }
        QPainter(this).drawPixmap(0, 0, picture);
    }

private:
    static constexpr int reach = std::max(style::shadowReach, popoverArrowHeight);

    void draw() {
        picture = QPixmap(size() * devicePixelRatioF());
        picture.setDevicePixelRatio(devicePixelRatioF());
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF card = QRectF(rect()).adjusted(reach, reach, -reach, -reach);
        style::drawShadow(painter, card, popoverRadius);
        const double line = style::hairline(painter);
        painter.setPen(QPen(style::color(Role::outline), line));
        painter.setBrush(style::color(Role::card));
        painter.drawPath(outlineOf(card.adjusted(line / 2, line / 2, -line / 2, -line / 2),
                                   shown.isAbove, shown.arrowX - x()));
    }

    PopoverPlacement shown{};
    QPixmap picture;
};

Popover::Popover(QWidget* anchor, QWidget* content)
    : QWidget(anchor->window()), anchor(anchor), backdrop(new Backdrop(anchor->window())) {
    presentAs<Popover, QAccessible::Dialog>(); // assistive technology treats the card as a dialog
    auto* layout = new QVBoxLayout(this);
    constexpr int withinInset = padding - inset;
    layout->setContentsMargins(withinInset, withinInset, withinInset, withinInset);
    layout->addWidget(content);
    setAutoFillBackground(true);
    applyTheme();
    toTheme = Theme::shared().changes().subscribe({}, [this] {
        applyTheme();
        backdrop->showFor(placed);
        placeSoon();
    });
    connect(anchor, &QObject::destroyed, this, [this] {
        this->anchor = nullptr; // a QPointer to the anchor is not yet null during destroyed()
        onClosed = {};
        dismiss();
    });
    qApp->installEventFilter(this);
    setFocusPolicy(Qt::StrongFocus);
    place();
    backdrop->raise();
    show();
    raise();
    setFocus(Qt::PopupFocusReason);
}

Popover::~Popover() {
    delete backdrop;
}

void Popover::applyTheme() {
    QPalette colors = palette();
    colors.setColor(QPalette::Window, style::color(Role::card));
    setPalette(colors);
}

void Popover::dismiss() {
    if (std::exchange(isClosed, true)) {
        return;
    }
    if (isWithin(QApplication::focusWidget())) {
        giveFocusBack();
    }
    hide();
    if (backdrop != nullptr) {
        backdrop->hide();
    }
    deleteLater();
    if (onClosed) {
        onClosed();
    }
}

// If a popover is hidden while it has the focus, Qt passes the focus to the next widget of the
// focus chain, and that widget may be in the middle of its destruction. Therefore, the focus is
// moved explicitly.
void Popover::giveFocusBack() {
    if (anchor != nullptr) {
        anchor->setFocus(Qt::PopupFocusReason);
    } else {
        QApplication::focusWidget()->clearFocus();
    }
}

bool Popover::isWithin(const QWidget* widget) const {
    return widget != nullptr && (widget == this || isAncestorOf(widget));
}

bool Popover::isOnCard(QPointF onScreen) const {
    return placed.card.contains(window()->mapFromGlobal(onScreen).toPoint());
}

// This filter receives all events of the application, so the cheapest checks come first.
bool Popover::eventFilter(QObject* watched, QEvent* event) {
    if (isClosed || anchor == nullptr || !watched->isWidgetType()) {
        return false;
    }
    auto* widget = static_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (!isWithin(widget) && isOnCard(static_cast<QMouseEvent*>(event)->globalPosition())) {
            return true; // a click on the card's edge, outside the popover widget
        }
        if (!isWithin(widget) && widget != anchor && !anchor->isAncestorOf(widget)) {
            dismiss();
        }
        break;
    case QEvent::Hide:
        if (widget == anchor) {
            dismiss();
        }
        break;
    case QEvent::Move:
    case QEvent::Resize:
        if (widget == anchor || widget->isAncestorOf(anchor)) {
            placeSoon();
        }
        break;
    default:
        break;
    }
    return false;
}

bool Popover::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept(); // Escape goes to the popover, not to a shortcut of the window
        return true;
    }
    if (event->type() == QEvent::LayoutRequest) {
        placeSoon();
    }
    return QWidget::event(event);
}

// If the popover itself has the focus, Tab closes it and the focus returns to the anchor.
bool Popover::focusNextPrevChild(bool next) {
    if (!hasFocus() || anchor == nullptr) {
        return QWidget::focusNextPrevChild(next);
    }
    dismiss();
    return true;
}

void Popover::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        dismiss();
        return;
    }
    QWidget::keyPressEvent(event);
}

// Accepts the event, so that it is not propagated to the window below the popover.
void Popover::mousePressEvent(QMouseEvent* event) {
    event->accept();
}

// Defers placing to the event loop, because the layouts are not up to date yet.
void Popover::placeSoon() {
    if (!std::exchange(isPlacing, true)) {
        QTimer::singleShot(0, this, [this] {
            isPlacing = false;
            place();
        });
    }
}

void Popover::place() {
    if (isClosed || anchor == nullptr) {
        return;
    }
    const QRect anchorArea(anchor->mapTo(window(), QPoint(0, 0)), anchor->size());
    if (isVisible() && anchor->visibleRegion().isEmpty() && window()->isVisible()) {
        dismiss(); // the anchor was scrolled out of view
        return;
    }
    constexpr QSize rim(2 * inset, 2 * inset);
    const QSize card = layout()->totalSizeHint() + rim;
    const auto before =
        std::exchange(placed, placePopover(card, anchorArea, window()->contentsRect()));
    setGeometry(placed.card.adjusted(inset, inset, -inset, -inset));
    if (placed != before) {
        backdrop->showFor(placed);
    }
}

bool Popover::covers(const QWidget& widget) {
    const QRect area(widget.mapTo(widget.window(), QPoint(0, 0)), widget.size());
    const auto children = widget.window()->children();
    return std::ranges::any_of(children, [&](QObject* child) {
        const auto* popover = dynamic_cast<Popover*>(child);
        return popover != nullptr && popover->isVisible() && !popover->isAncestorOf(&widget) &&
               popover->placed.card.contains(area);
    });
}

} // namespace glidemap
