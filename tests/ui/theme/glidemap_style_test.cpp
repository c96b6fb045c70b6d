#include "kit/qt_waiting.h"
#include "ui/theme/glidemap_style.h"
#include "ui/theme/item_roles.h"
#include "ui/theme/style/paint.h"
#include "ui/theme/symbol.h"
#include "ui/theme/theme.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOption>
#include <QToolButton>
#include <QVBoxLayout>

namespace glidemap {
namespace {

QColor roleColor(Role role) {
    return Theme::shared().color(role);
}

QImage drawn(QWidget& widget, double ratio = 1) {
    QImage image((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_ARGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

// Samples the background beside the text, within the shape.
QColor groundOf(QWidget& button) {
    return drawn(button).pixelColor(8, button.height() / 2);
}

TEST(GlidemapStyleTest, ProminentButtonHasAnAccentBackground) {
    QPushButton button(QStringLiteral("Download"));
    button.resize(button.sizeHint());
    EXPECT_EQ(groundOf(button), roleColor(Role::field));
    button.setProperty("prominent", true);
    EXPECT_NEAR(groundOf(button).hue(), roleColor(Role::accentGround).hue(), 3);
}

// The palette's test checks that the button's edge has a contrast of 3:1.
TEST(GlidemapStyleTest, ButtonEdgeHasTheColourOfACheckBoxEdge) {
    QPushButton button(QStringLiteral("Cancel"));
    button.resize(button.sizeHint());
    const QColor edge = drawn(button).pixelColor(style::ringMargin, button.height() / 2);
    EXPECT_EQ(edge, roleColor(Role::tertiary));
}

TEST(GlidemapStyleTest, DefaultButtonIsProminentUntilDisabled) {
    QPushButton button(QStringLiteral("Add"));
    button.setDefault(true);
    button.resize(button.sizeHint());
    EXPECT_NEAR(groundOf(button).hue(), roleColor(Role::accentGround).hue(), 3);
    button.setEnabled(false);
    EXPECT_LT(groundOf(button).saturation(), 10);
}

TEST(GlidemapStyleTest, HoveredAndPressedButtonsLookDifferent) {
    QPushButton button(QStringLiteral("Cancel"));
    button.resize(button.sizeHint());
    const QColor rest = groundOf(button);
    button.setAttribute(Qt::WA_UnderMouse);
    const QColor hovered = groundOf(button);
    button.setDown(true);
    const QColor pressed = groundOf(button);
    EXPECT_LT(hovered.lightness(), rest.lightness());
    EXPECT_LT(pressed.lightness(), hovered.lightness());
}

TEST(GlidemapStyleTest, ControlsAreAlignedByTheirVisibleShape) {
    QWidget form;
    auto* column = new QVBoxLayout(&form);
    column->setContentsMargins(20, 20, 20, 20);
    auto* button = new QPushButton(QStringLiteral("Button"));
    auto* picker = new QComboBox;
    auto* box = new QCheckBox(QStringLiteral("Box"));
    auto* field = new QLineEdit;
    for (QWidget* control : std::initializer_list<QWidget*>{button, picker, box, field}) {
        column->addWidget(control, 0, Qt::AlignLeft);
    }
    form.resize(form.sizeHint());
    column->activate();
    constexpr int ring = style::ringMargin;
    EXPECT_EQ(button->x(), 20 - ring);
    EXPECT_EQ(picker->x(), 20 - ring);
    EXPECT_EQ(box->x(), 20 - ring);
    EXPECT_EQ(field->x(), 20);
    EXPECT_EQ(field->height(), style::controlHeight);
    EXPECT_EQ(button->height(), style::controlHeight + 2 * ring);
    EXPECT_EQ(picker->height(), style::controlHeight + 2 * ring);
}

TEST(GlidemapStyleTest, FocusRingIsShownOnlyForKeyboardUse) {
    QWidget window;
    auto* button = new QPushButton(QStringLiteral("Cancel"), &window);
    button->resize(button->sizeHint());
    window.show();
    window.activateWindow();
    ASSERT_TRUE(test::waitFor([&] { return QApplication::activeWindow() == &window; }));
    const auto ring = [button] {
        return drawn(*button).pixelColor(button->width() / 2, 1).alpha() > 200;
    };
    button->setFocus(Qt::MouseFocusReason);
    window.setAttribute(Qt::WA_KeyboardFocusChange, false);
    EXPECT_FALSE(ring());
    window.setAttribute(Qt::WA_KeyboardFocusChange, true);
    EXPECT_TRUE(ring());
    button->clearFocus();
    EXPECT_FALSE(ring());
}

TEST(GlidemapStyleTest, EdgesAlignToWholePixelsAtEveryScaleFactor) {
    for (const double ratio : {1.0, 1.5, 2.0}) {
        QImage image(60, 60, QImage::Format_ARGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.translate(3, 3);
        painter.fillRect(style::snapped(painter, QRectF(0.3, 0.3, 15, 15)), Qt::black);
        painter.end();
        int between = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const int level = qRed(image.pixel(x, y));
                between += level != 0 && level != 255;
            }
        }
        EXPECT_EQ(between, 0) << ratio;
    }
}

TEST(GlidemapStyleTest, HairlineIsAWholeNumberOfPixels) {
    const std::pair<double, double> rows[] = {{1, 1}, {1.5, 1}, {1.75, 1}, {2, 2}, {3, 3}};
    for (const auto& [ratio, pixels] : rows) {
        QImage image(10, 10, QImage::Format_ARGB32);
        image.setDevicePixelRatio(ratio);
        const QPainter painter(&image);
        EXPECT_DOUBLE_EQ(style::hairline(painter) * ratio, pixels) << ratio;
    }
}

TEST(GlidemapStyleTest, HeadingInAListIsNotHighlighted) {
    QListWidget list;
    auto* heading = new QListWidgetItem(QStringLiteral("Taps"), &list);
    auto* entry = new QListWidgetItem(QStringLiteral("Tap"), &list);
    entry->setSelected(true);
    list.resize(200, 100);
    list.show();
    const QPoint onHeading = list.visualItemRect(heading).center();
    heading->setSelected(true);
    const auto atTheEndOf = [&](int y) {
        return drawn(*list.viewport()).pixelColor(list.viewport()->width() - 12, y);
    };
    const QColor lit = atTheEndOf(onHeading.y());
    heading->setData(headingRole, true);
    EXPECT_NE(lit, roleColor(Role::card));
    EXPECT_EQ(atTheEndOf(list.visualItemRect(heading).center().y()), roleColor(Role::card));
}

TEST(GlidemapStyleTest, ScrollBarHasNoArrowsAndAMinimumHandleSize) {
    QScrollBar bar(Qt::Vertical);
    bar.setRange(0, 1000000);
    bar.setPageStep(10);
    bar.resize(bar.sizeHint().width(), 300);
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.orientation = Qt::Vertical;
    option.minimum = bar.minimum();
    option.maximum = bar.maximum();
    option.pageStep = bar.pageStep();
    option.sliderPosition = bar.maximum();
    const auto part = [&](QStyle::SubControl control) {
        return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, control, &bar);
    };
    EXPECT_EQ(part(QStyle::SC_ScrollBarGroove), bar.rect());
    EXPECT_TRUE(part(QStyle::SC_ScrollBarAddLine).isEmpty());
    EXPECT_EQ(part(QStyle::SC_ScrollBarSlider), QRect(0, 272, bar.width(), 28));
}

TEST(GlidemapStyleTest, SymbolsFollowTheCurrentColour) {
    const QIcon icon = symbolIcon("plus", Role::red);
    // The shape is large enough for a stroke to cover whole pixels.
    const auto middle = [&icon](QIcon::Mode mode) {
        return QColor::fromRgba(icon.pixmap(QSize(160, 160), 1, mode).toImage().pixel(80, 80));
    };
    EXPECT_EQ(middle(QIcon::Normal), roleColor(Role::red));
    EXPECT_EQ(middle(QIcon::Disabled), roleColor(Role::tertiary));
    EXPECT_EQ(middle(QIcon::Selected), roleColor(Role::onAccent));
    Theme::shared().pin(ColorScheme::dark);
    EXPECT_EQ(middle(QIcon::Normal), roleColor(Role::red));
    Theme::shared().pin(ColorScheme::light);
}

} // namespace
} // namespace glidemap
