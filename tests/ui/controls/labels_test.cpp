// Tests texts and passive widgets: labels, badges, notices, symbols and forms.
#include "ui/controls/badge.h"
#include "ui/controls/dimmed.h"
#include "ui/controls/form_section.h"
#include "ui/controls/notice.h"
#include "ui/controls/stage.h"
#include "ui/controls/symbol_button.h"

#include <gmock/gmock.h>

#include <QComboBox>
#include <QHelpEvent>
#include <QImage>
#include <QPushButton>
#include <QToolTip>

namespace glidemap {
namespace {

using test::ControlsStage;

const QString longText = QStringLiteral("A name that is much longer than there is room for it");

// Returns the number of pixels that differ from the background.
int paintedPixels(QWidget& widget) {
    const QImage image = widget.grab().toImage();
    int painted = 0;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            painted += image.pixelColor(x, y) != image.pixelColor(0, 0);
        }
    }
    return painted;
}

// Returns the number of separator lines, each one pixel high, on a vertical cut through the middle.
int linesIn(QWidget& widget) {
    const QImage image = widget.grab().toImage();
    int lines = 0;
    for (int y = 0; y < image.height(); ++y) {
        lines += image.pixelColor(image.width() / 2, y) == Theme::shared().color(Role::separator);
    }
    return lines;
}

TEST(StyledLabelTest, LineSizeIsMeasuredAgainAfterATextOrFontChange) {
    StyledLabel label(TextStyle::body, Role::primary);
    const auto measured = [&label] {
        const QFontMetricsF metrics(label.font(), &label);
        return QSizeF(metrics.horizontalAdvance(label.text()),
                      metrics.size(Qt::TextSingleLine, label.text()).height());
    };
    EXPECT_EQ(label.lineSize().width(), 0);
    label.setText(longText);
    const QSizeF usual = label.lineSize();
    EXPECT_EQ(usual, measured());
    EXPECT_EQ(label.lineSize(), usual) << "from the cache";
    label.setText(longText.left(10));
    EXPECT_EQ(label.lineSize(), measured()) << "another text";
    label.setText(longText);
    QFont larger = label.font();
    larger.setPixelSize(2 * larger.pixelSize());
    label.setFont(larger);
    EXPECT_EQ(label.lineSize(), measured()) << "another font";
    EXPECT_GT(label.lineSize().width(), usual.width());
}

TEST(StyledLabelTest, FollowsThemeColoursAndDimsWhenDisabled) {
    StyledLabel label(TextStyle::caption, Role::secondary);
    const Theme& theme = Theme::shared();
    const auto ink = [&label] {
        return label.palette().color(QPalette::WindowText);
    };
    EXPECT_EQ(ink(), theme.color(Role::secondary));
    EXPECT_EQ(label.font().pixelSize(), theme.font(TextStyle::caption).pixelSize());
    Theme::shared().pin(ColorScheme::dark);
    EXPECT_EQ(ink(), theme.color(Role::secondary));
    Theme::shared().pin(ColorScheme::light);
    label.setRole(Role::green);
    EXPECT_EQ(ink(), theme.color(Role::green));
    label.setEnabled(false);
    EXPECT_EQ(ink(), theme.color(Role::tertiary));
}

TEST(ElidedLabelTest, TextThatFitsIsNotElided) {
    ElidedLabel label(TextStyle::body, Role::primary);
    label.setText(longText);
    label.resize(label.sizeHint());
    EXPECT_FALSE(label.isCut());
    label.resize(label.width() - 1, label.height());
    EXPECT_TRUE(label.isCut());
}

TEST(ElidedLabelTest, ShrinksToAFewLettersButKeepsItsFullAccessibleText) {
    ElidedLabel label(TextStyle::body, Role::primary);
    label.setText(longText);
    EXPECT_LT(label.minimumSizeHint().width(), 60);
    label.resize(label.minimumSizeHint());
    EXPECT_GT(paintedPixels(label), 0);
    EXPECT_EQ(test::nameOf(&label), longText);
}

TEST(ElidedLabelTest, ShowsItsTooltipOnlyWhileElided) {
    ControlsStage stage;
    auto* label = stage.add(new ElidedLabel(TextStyle::body, Role::primary));
    label->setText(longText);
    stage.open();
    const auto help = [label] {
        QToolTip::hideText();
        QHelpEvent event(QEvent::ToolTip, QPoint(2, 2), label->mapToGlobal(QPoint(2, 2)));
        QApplication::sendEvent(label, &event);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    label->setFixedWidth(80);
    QApplication::processEvents();
    EXPECT_EQ(help(), longText);
}

TEST(BadgeTest, UsesTheCaptionFontAndHasPaddingOfEightByThreePoints) {
    Badge badge;
    badge.setText(QStringLiteral("Global"));
    const QFontMetricsF metrics(Theme::shared().font(TextStyle::caption));
    EXPECT_EQ(badge.sizeHint(), QSize(qCeil(metrics.horizontalAdvance(badge.text())) + 16,
                                      qCeil(metrics.height()) + 6));
}

TEST(BadgeTest, BackgroundHasTheBadgeColourAtFifteenPercentOpacity) {
    Badge badge;
    badge.setText(QStringLiteral("Firefox"));
    badge.setColor(Role::purple);
    badge.resize(badge.sizeHint());
    QImage image(badge.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    badge.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    const QColor ground = image.pixelColor(5, badge.height() / 2);
    EXPECT_NEAR(ground.alphaF(), 0.15, 0.005);
    EXPECT_NEAR(ground.hue(), Theme::shared().tint(Role::purple, 1).hue(), 6);
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0); // the ends of the badge are round
}

TEST(NoticeTest, BackgroundHasTheGivenOpacity) {
    Notice notice({"sparkles", Role::blue, Role::primary, Role::blue, 0.1});
    notice.setText(QStringLiteral("Version 2 is available."));
    notice.resize(600, 44);
    QImage image(notice.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    notice.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    EXPECT_NEAR(image.pixelColor(2, 2).alphaF(), 0.1, 0.005);
}

TEST(NoticeTest, UsesOneLineIfWideEnoughAndWrapsIfNarrow) {
    ControlsStage stage;
    auto* notice = stage.add(new Notice({"", Role::red, Role::red}));
    notice->setText(longText + longText);
    const int oneLine = notice->sizeHint().height();
    EXPECT_GT(notice->heightForWidth(300), oneLine);
    EXPECT_EQ(notice->heightForWidth(2000), oneLine);
}

TEST(NoticeTest, ButtonReportsClicksAndCanBeProminent) {
    ControlsStage stage;
    auto* notice = stage.add(new Notice({"sparkles", Role::blue, Role::primary, Role::blue, 0.1,
                                         Notice::Button::prominent, false}));
    notice->setButtonText(QStringLiteral("Download"));
    int clicks = 0;
    notice->onButton = [&clicks] {
        ++clicks;
    };
    stage.open();
    QTest::mouseClick(notice->button(), Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(notice->button()->property("prominent").toBool());
}

TEST(SymbolButtonTest, HasAnAccessibleNameAndATabStop) {
    SymbolButton button("trash", Role::red);
    button.setAccessibleName(QStringLiteral("Delete"));
    EXPECT_EQ(test::roleOf(&button), QAccessible::PushButton);
    EXPECT_EQ(test::nameOf(&button), QStringLiteral("Delete"));
    EXPECT_TRUE(button.focusPolicy() & Qt::TabFocus);
    EXPECT_EQ(button.sizeHint(), QSize(28, 28));
}

TEST(DimmedTest, HalvesTheOpacityOfAWidgetAndItsChildren) {
    QWidget list;
    list.resize(40, 40);
    QWidget row(&list);
    row.resize(40, 40);
    auto* label = new QLabel(&row);
    label->setAutoFillBackground(true);
    QPalette black;
    black.setColor(QPalette::Window, Qt::black);
    label->setPalette(black);
    label->resize(40, 40);
    const auto level = [&list] {
        QImage image(list.size(), QImage::Format_ARGB32);
        image.fill(Qt::white);
        list.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image.pixelColor(20, 20).red();
    };
    EXPECT_EQ(level(), 0);
    setDimmed(&row, true);
    EXPECT_TRUE(isDimmed(&row));
    EXPECT_NEAR(level(), 128, 1);
    setDimmed(&row, false);
    EXPECT_EQ(level(), 0);
}

TEST(FormSectionTest, LabelIsTheBuddyOfItsControl) {
    FormSection section;
    auto* label = new StyledLabel(TextStyle::body, Role::primary);
    auto* picker = new QComboBox;
    label->setText(QStringLiteral("Scope"));
    section.addRow(label, picker);
    EXPECT_EQ(label->buddy(), picker);
    EXPECT_EQ(test::nameOf(picker), QStringLiteral("Scope"));
}

TEST(FormSectionTest, HiddenRowTakesNoSpaceAndHasNoLine) {
    ControlsStage stage;
    auto* section = stage.add(new FormSection);
    section->addWidget(new QWidget);
    QWidget* row = section->addRow(new QLabel(QStringLiteral("App")), new QComboBox);
    stage.open();
    const int both = section->sizeHint().height();
    EXPECT_EQ(linesIn(*section), 3); // the card's edges, and one between the rows
    row->hide();
    QApplication::processEvents();
    EXPECT_EQ(section->sizeHint().height(), both - row->height());
    EXPECT_EQ(linesIn(*section), 2);
}

TEST(FormSectionTest, HeadingIsVisibleOnlyWithATitle) {
    ControlsStage stage;
    auto* section = stage.add(new FormSection);
    section->addWidget(new QLabel(QStringLiteral("One")));
    stage.open();
    const int without = section->sizeHint().height();
    section->setTitle(QStringLiteral("Gesture"));
    EXPECT_GT(section->sizeHint().height(), without);
    EXPECT_EQ(section->title(), QStringLiteral("Gesture"));
}

} // namespace
} // namespace glidemap
