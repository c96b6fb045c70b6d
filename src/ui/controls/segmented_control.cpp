#include "ui/controls/segmented_control.h"

#include "ui/theme/style/paint.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <algorithm>

namespace glidemap {

namespace {

constexpr double inset = 2;
constexpr int sidePadding = 14;
constexpr int textFlags = Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextHideMnemonic;

} // namespace

// A segment draws only its text; the parent draws the background. All segments have the same width,
// so that the highlight keeps its size while it slides.
class SegmentedControl::Segment : public QRadioButton {
public:
    using QRadioButton::QRadioButton;

    QSize sizeHint() const override {
        const QSize words = fontMetrics().size(textFlags, text());
        return {words.width() + 2 * sidePadding, style::controlHeight};
    }
    QSize minimumSizeHint() const override { return {2 * sidePadding, sizeHint().height()}; }

    bool showsFocus() const {
        QStyleOptionButton option;
        initStyleOption(&option);
        return style::showsFocus(option);
    }

protected:
    bool hitButton(const QPoint& at) const override { return rect().contains(at); }

    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const Role role = !isEnabled()                  ? Role::tertiary
                          : isChecked() || underMouse() ? Role::primary
                                                        : Role::secondary;
        painter.setFont(
            Theme::shared().font(isChecked() ? TextStyle::bodyMedium : TextStyle::body));
        painter.setPen(style::color(role));
        const QString shown = painter.fontMetrics().elidedText(text(), Qt::ElideRight, width() - 8);
        painter.drawText(rect(), textFlags, shown);
    }

    bool event(QEvent* event) override {
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
            parentWidget()->update(); // the parent draws the focus ring
        }
        return QRadioButton::event(event);
    }
};

SegmentedControl::SegmentedControl(int count, QWidget* parent) : QWidget(parent) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (int index = 0; index < count; ++index) {
        auto* segment = new Segment(this);
        segment->setAttribute(Qt::WA_Hover);
        segment->setAttribute(Qt::WA_LayoutUsesWidgetRect);
        layout->addWidget(segment, 1);
        connect(segment, &QRadioButton::toggled, this, [this, index](bool isOn) {
            if (isOn) {
                choose(index);
            }
        });
        segments.push_back(segment);
    }
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setCurrent(0);
    toTheme = Theme::shared().changes().subscribe({}, [this] { ground.jumpTo(chosen); });
}

void SegmentedControl::setTexts(const QStringList& texts) {
    int widest = 0;
    for (std::size_t index = 0; index < segments.size(); ++index) {
        Segment* segment = segments[index];
        segment->setText(texts.value(static_cast<qsizetype>(index)));
        segment->setAccessibleName(segment->text());
        widest = std::max(widest, segment->sizeHint().width());
    }
    for (Segment* segment : segments) {
        segment->setMinimumWidth(std::min(widest, 220));
    }
}

void SegmentedControl::setCurrent(int index) {
    if (index < 0 || index >= static_cast<int>(segments.size())) {
        return;
    }
    chosen = index;
    segments[static_cast<std::size_t>(index)]->setChecked(true);
    ground.glideTo(index);
    fixFocusPolicies();
}

// Called whenever a segment is switched on. Only a choice by the user reaches onChange:
// setCurrent() updates `chosen` before it calls setChecked(true), so that this function returns
// early.
void SegmentedControl::choose(int index) {
    if (index == chosen) {
        return;
    }
    chosen = index;
    ground.glideTo(index);
    fixFocusPolicies();
    if (onChange) {
        onChange(index);
    }
}

// Only the chosen segment is a tab stop. From there, the arrow keys move to the other segments.
void SegmentedControl::fixFocusPolicies() {
    for (std::size_t index = 0; index < segments.size(); ++index) {
        const bool isChosen = static_cast<int>(index) == chosen;
        segments[index]->setFocusPolicy(isChosen ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

bool SegmentedControl::event(QEvent* event) {
    if (event->type() == QEvent::EnabledChange) {
        update();
    }
    return QWidget::event(event);
}

QRectF SegmentedControl::groundRect(const QRectF& pill) const {
    const double width = (pill.width() - 2 * inset) / static_cast<double>(segments.size());
    const double place = layoutDirection() == Qt::LeftToRight
                             ? ground.value()
                             : static_cast<double>(segments.size()) - 1 - ground.value();
    return {pill.left() + inset + place * width, pill.top() + inset, width,
            pill.height() - 2 * inset};
}

void SegmentedControl::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRectF pill = style::snapped(painter, rect());
    const double radius = style::controlRadius + 1;
    style::fillRounded(painter, pill, radius, style::color(Role::track));
    const QRectF shape = style::snapped(painter, groundRect(pill));
    const bool isDark = Theme::shared().isDark();
    const QColor fill = isDark ? QColor(0x5e, 0x5e, 0x67) : style::color(Role::knob);
    style::fillRounded(painter, shape.translated(0, 1), radius - inset, QColor(0, 0, 0, 40));
    style::fillRounded(painter, shape, radius - inset,
                       isEnabled() ? fill : style::color(Role::field));
    const auto focused = std::find_if(segments.begin(), segments.end(),
                                      [](const Segment* one) { return one->showsFocus(); });
    if (focused != segments.end()) {
        style::strokeRounded(painter, shape, radius - inset, 2, style::color(Role::accent));
    }
}

} // namespace glidemap
