#include "ui/controls/popover.h"

#include "ui/theme/style/paint.h"
#include "ui/theme/style/shadow.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

namespace glidemap {

namespace {

constexpr int padding = 8;

// The card and its arrow in one outline, so that the edge runs around both.
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

QAccessibleInterface* accessiblePopover(const QString& /*className*/, QObject* object) {
    auto* const popover = dynamic_cast<Popover*>(object);
    return popover == nullptr ? nullptr : new QAccessibleWidget(popover, QAccessible::Dialog);
}

// To a screen reader a frame of the toolkit is a border or a panel, which says nothing about a card with controls in it.
void presentPopoversAsDialogs() {
    [[maybe_unused]] static const bool isInstalled = [] {
        QAccessible::installFactory(accessiblePopover);
        return true;
    }();
}

} // namespace

// Lies beneath the popover and reaches beyond it, where a click is not the popover's.
class Popover::Shadow : public QWidget {
public:
    explicit Shadow(QWidget* parent) : QWidget(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

    void surround(const QRect& card) {
        constexpr int reach = style::shadowReach;
        setGeometry(card.adjusted(-reach, -reach, reach, reach));
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        constexpr int reach = style::shadowReach;
        const QRectF card = QRectF(rect()).adjusted(reach, reach, -reach, -reach);
        if (card.adjusted(4, 4, -4, -4).contains(event->rect())) {
            return; // only what the card covers is drawn again, as its content moves
        }
        QPainter painter(this);
        style::drawShadow(painter, card, popoverRadius);
    }
};

Popover::Popover(QWidget* anchor, QWidget* content)
    : QFrame(anchor->window()), hangsFrom(anchor), shadow(new Shadow(anchor->window())) {
    presentPopoversAsDialogs();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(content);
    toTheme = Theme::shared().changes().subscribe({}, [this] { placeSoon(); });
    connect(anchor, &QObject::destroyed, this, [this] {
        hangsFrom = nullptr; // which a guarded pointer to a widget does only after this
        onClosed = {};
        dismiss();
    });
    qApp->installEventFilter(this);
    setFocusPolicy(Qt::StrongFocus);
    place();
    shadow->show();
    shadow->raise();
    show();
    raise();
    setFocus(Qt::PopupFocusReason);
}

Popover::~Popover() {
    delete shadow;
}

void Popover::dismiss() {
    if (std::exchange(isClosed, true)) {
        return;
    }
    if (isWithin(QApplication::focusWidget())) {
        giveFocusBack();
    }
    hide();
    if (shadow != nullptr) {
        shadow->hide();
    }
    deleteLater();
    if (onClosed) {
        onClosed();
    }
}

// Hidden with the focus, the popover would pass it on along the chain of controls, where one that is
// being destroyed still is.
void Popover::giveFocusBack() {
    if (hangsFrom != nullptr) {
        hangsFrom->setFocus(Qt::PopupFocusReason);
    } else {
        QApplication::focusWidget()->clearFocus();
    }
}

bool Popover::isWithin(const QWidget* widget) const {
    return widget != nullptr && (widget == this || isAncestorOf(widget));
}

// All of the program's events come by here: most are told apart by their kind alone.
bool Popover::eventFilter(QObject* watched, QEvent* event) {
    if (isClosed || hangsFrom == nullptr || !watched->isWidgetType()) {
        return false;
    }
    auto* widget = static_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (!isWithin(widget) && widget != hangsFrom && !hangsFrom->isAncestorOf(widget)) {
            dismiss();
        }
        break;
    case QEvent::Hide:
        if (widget == hangsFrom) {
            dismiss();
        }
        break;
    case QEvent::Move:
    case QEvent::Resize:
        if (widget == hangsFrom || widget->isAncestorOf(hangsFrom)) {
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
        event->accept(); // ours before the window's
        return true;
    }
    if (event->type() == QEvent::LayoutRequest) {
        placeSoon();
    }
    return QFrame::event(event);
}

// Where the popover itself has the focus, the next control is the one after its anchor.
bool Popover::focusNextPrevChild(bool next) {
    if (!hasFocus() || hangsFrom == nullptr) {
        return QFrame::focusNextPrevChild(next);
    }
    dismiss();
    return true;
}

void Popover::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        dismiss();
        return;
    }
    QFrame::keyPressEvent(event);
}

// Stays here: passed on to the window it would count as a click beside the popover.
void Popover::mousePressEvent(QMouseEvent* event) {
    event->accept();
}

// When the layouts have come to rest.
void Popover::placeSoon() {
    if (!std::exchange(isPlacing, true)) {
        QTimer::singleShot(0, this, [this] {
            isPlacing = false;
            place();
        });
    }
}

void Popover::place() {
    if (isClosed || hangsFrom == nullptr) {
        return;
    }
    const QRect anchor(hangsFrom->mapTo(window(), QPoint(0, 0)), hangsFrom->size());
    if (isVisible() && hangsFrom->visibleRegion().isEmpty() && window()->isVisible()) {
        dismiss(); // scrolled away
        return;
    }
    layout()->setContentsMargins(padding, padding, padding, padding);
    const QSize card = layout()->totalSizeHint();
    placed = placePopover(card, anchor, window()->contentsRect());
    const int above = placed.isAbove ? 0 : popoverArrowHeight;
    const int below = placed.isAbove ? popoverArrowHeight : 0;
    layout()->setContentsMargins(padding, padding + above, padding, padding + below);
    setGeometry(placed.card.adjusted(0, -above, 0, below));
    shadow->surround(placed.card);
    update();
}

void Popover::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double line = style::hairline(painter);
    const QRectF card =
        QRectF(placed.card.translated(-pos())).adjusted(line / 2, line / 2, -line / 2, -line / 2);
    painter.setPen(QPen(style::color(Role::outline), line));
    painter.setBrush(style::color(Role::card));
    painter.drawPath(outlineOf(card, placed.isAbove, placed.arrowX - pos().x()));
}

} // namespace glidemap
