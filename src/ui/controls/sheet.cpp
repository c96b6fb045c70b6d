#include "ui/controls/sheet.h"

#include "ui/controls/sheet_placement.h"
#include "ui/theme/style/paint.h"
#include "ui/theme/style/scroll_bar.h"
#include "ui/theme/style/shadow.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>
#include <utility>

namespace glidemap {

namespace {

constexpr int radius = 12;
constexpr double slideFrom = 14; // the animation starts this many points above the final position
constexpr double veilLight = 0.28;
constexpr double veilDark = 0.5;

Qt::WindowFlags sheetWindowFlags() {
    return Theme::shared().systemShowsSheets() ? Qt::WindowFlags(Qt::Sheet)
                                               : Qt::Dialog | Qt::FramelessWindowHint;
}

// A dialog ignores buttons that became the default before they were added to it, and chooses its
// first button instead. Setting the property again registers the button with the dialog.
void adoptDefaultButton(const QWidget& content) {
    for (QPushButton* button : content.findChildren<QPushButton*>()) {
        if (button->isDefault()) {
            button->setDefault(false);
            button->setDefault(true);
        }
    }
}

} // namespace

// Dims the window behind the sheet.
class Sheet::Veil : public QWidget {
public:
    explicit Veil(QWidget* over) : QWidget(over) {
        setGeometry(over->rect());
        show();
        raise();
        shade.glideTo(1);
    }

    // Fades out and then deletes itself. While it fades, clicks pass through to the window.
    void lift() {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        shade.onArrival = [this] {
            deleteLater();
        };
        shade.glideTo(0);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const double depth = Theme::shared().isDark() ? veilDark : veilLight;
        QPainter(this).fillRect(
            rect(), QColor::fromRgbF(0, 0, 0, static_cast<float>(depth * shade.value())));
    }

private:
    Slide shade{this};
};

Sheet::Sheet(QWidget* anchorWidget, QWidget* content, QSize size)
    : QDialog(anchorWidget->window(), sheetWindowFlags()), wanted(size),
      scroller(new QScrollArea(this)), isNative(Theme::shared().systemShowsSheets()),
      isTranslucent(!isNative && Theme::shared().composites()) {
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_TranslucentBackground, isTranslucent);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(content->windowTitle());
    connect(content, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
    auto* layout = new QVBoxLayout(this);
    const int margin = shadowMargin();
    setContentsMargins(margin, margin, margin,
                       margin); // keeps the child widgets out of the shadow
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scroller);
    scroller->setFrameShape(QFrame::NoFrame);
    scroller->setWidgetResizable(true);
    scroller->setFocusPolicy(Qt::NoFocus);
    scroller->setWidget(content);
    scroller->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    adoptDefaultButton(*content);
    // The sheet blocks the window, so key events do not reach the window's own actions.
    addActions(owner()->actions());
    toTheme = Theme::shared().changes().subscribe({}, [this] { update(); });
    owner()->installEventFilter(this);
    content->installEventFilter(this);
    connect(this, &QDialog::finished, this, [this] {
        if (veil != nullptr) {
            std::exchange(veil, nullptr)->lift(); // the veil deletes itself after fading out
        }
        if (!std::exchange(hasClosed, true) && onClosed) {
            onClosed();
        }
    });
}

Sheet::~Sheet() {
    delete veil;
}

void Sheet::present() {
    if (isNative) {
        fitToScreen();
        open();
        return;
    }
    veil = new Veil(owner());
    arrival.jumpTo(slideFrom);
    place();
    open();
    arrival.glideTo(0);
}

void Sheet::dismiss() {
    done(QDialog::Rejected);
}

int Sheet::shadowMargin() const {
    return isTranslucent ? style::shadowReach : 0;
}

QRect Sheet::cardGeometry() const {
    const int margin = shadowMargin();
    return geometry().adjusted(margin, margin, -margin, -margin);
}

void Sheet::fitToScreen() {
    const QRect window(owner()->mapToGlobal(QPoint(0, 0)), owner()->size());
    const QWidget* content = scroller->widget();
    const QSize least = content->minimumSizeHint().expandedTo(content->minimumSize());
    const QRect screen = owner()->screen()->availableGeometry();
    placed = placeSheet(wanted, least, style::scrollBarExtent, window, screen);
    const int margin = 2 * shadowMargin();
    setFixedSize(placed.size() + QSize(margin, margin));
}

void Sheet::place() {
    fitToScreen();
    moveToPlace();
}

void Sheet::moveToPlace() {
    if (isNative) {
        return;
    }
    const int margin = shadowMargin();
    move(placed.topLeft() - QPoint(margin, margin + qRound(arrival.value())));
}

bool Sheet::eventFilter(QObject* watched, QEvent* event) {
    if (watched == scroller->widget() && event->type() == QEvent::LayoutRequest && isVisible()) {
        place(); // another language or larger letters may need more width
    }
    const bool hasMoved = event->type() == QEvent::Move || event->type() == QEvent::Resize;
    if (watched == owner() && hasMoved && isVisible()) {
        place();
        if (veil != nullptr) {
            veil->setGeometry(owner()->rect());
        }
    }
    return false;
}

void Sheet::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    if (!isTranslucent && !isNative) {
        QPainterPath shape;
        shape.addRoundedRect(rect(), radius, radius);
        setMask(QRegion(shape.toFillPolygon().toPolygon()));
    }
}

void Sheet::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (isNative) {
        painter.fillRect(event->rect(), style::color(Role::window));
        return;
    }
    const int margin = shadowMargin();
    const QRect card = rect().adjusted(margin, margin, -margin, -margin);
    const bool isInside = card.adjusted(radius, radius, -radius, -radius).contains(event->rect());
    if (isTranslucent && !isInside) {
        style::drawShadow(painter, card, radius);
    }
    const QRectF shape = style::snapped(painter, card);
    style::fillRounded(painter, shape, radius, style::color(Role::window));
    style::strokeRounded(painter, shape, radius, style::hairline(painter),
                         style::color(Role::outline));
}

} // namespace glidemap
