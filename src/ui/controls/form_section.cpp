#include "ui/controls/form_section.h"

#include "ui/controls/accessible_role.h"
#include "ui/controls/styled_label.h"
#include "ui/theme/style/paint.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

namespace glidemap {

namespace {

constexpr double cardRadius = 10;
constexpr int sidePadding = 12;
constexpr int rowPadding = 8;
constexpr int minRowHeight = 44;
constexpr int headingGap = 6;

} // namespace

// Draws the card, and a line above each visible row except the first. Separator widgets would have
// to be shown and hidden together with their rows.
class FormSection::Card : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const QRectF shape = style::snapped(painter, rect());
        style::fillRounded(painter, shape, cardRadius, style::color(Role::card));
        style::strokeRounded(painter, shape, cardRadius, style::hairline(painter),
                             style::color(Role::separator));
        bool isFirst = true;
        for (int index = 0; index < layout()->count(); ++index) {
            const QWidget* row = layout()->itemAt(index)->widget();
            if (row->isHidden()) {
                continue;
            }
            if (!isFirst) {
                QRectF line = style::snapped(
                    painter, QRectF(sidePadding, row->y(), width() - 2 * sidePadding, 1));
                line.setHeight(style::hairline(painter));
                painter.fillRect(line, style::color(Role::separator));
            }
            isFirst = false;
        }
    }
};

class FormSection::Row : public QWidget {
public:
    explicit Row(QWidget* parent) : QWidget(parent), column(new QVBoxLayout(this)) {
        column->setContentsMargins(sidePadding, rowPadding, sidePadding, rowPadding);
        column->setSpacing(rowPadding);
    }

    void add(QWidget* widget) { column->addWidget(widget); }

    void addPair(QWidget* label, QWidget* control) {
        auto* line = new QHBoxLayout;
        line->setSpacing(12);
        line->addWidget(label);
        if (control->sizePolicy().expandingDirections().testFlag(Qt::Horizontal)) {
            line->addWidget(control, 1);
        } else {
            line->addStretch(1);
            line->addWidget(control);
        }
        column->addLayout(line);
        setMinimumHeight(minRowHeight);
    }

protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) {
            parentWidget()->update(); // redraws the lines
        }
        return QWidget::event(event);
    }

private:
    QVBoxLayout* column;
};

FormSection::FormSection(QWidget* parent)
    : QWidget(parent), heading(new StyledLabel(TextStyle::bodyMedium, Role::secondary, this)),
      card(new Card(this)), rows(new QVBoxLayout(card)) {
    presentAs<FormSection, QAccessible::Grouping>();
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(headingGap);
    heading->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    heading->hide();
    column->addWidget(heading);
    column->addWidget(card);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    toTheme = Theme::shared().changes().subscribe({}, [this] { card->update(); });
}

void FormSection::setTitle(const QString& title) {
    heading->setText(title);
    heading->setVisible(!title.isEmpty());
    setAccessibleName(title);
}

QString FormSection::title() const {
    return heading->text();
}

FormSection::Row* FormSection::newRow() {
    auto* row = new Row(card);
    rows->addWidget(row);
    return row;
}

QWidget* FormSection::addRow(QWidget* label, QWidget* control) {
    Row* row = newRow();
    row->addPair(label, control);
    if (auto* text = dynamic_cast<QLabel*>(label); text != nullptr) {
        text->setBuddy(control);
    }
    return row;
}

QWidget* FormSection::addWidget(QWidget* widget) {
    Row* row = newRow();
    row->add(widget);
    return row;
}

QWidget* FormSection::addToLastRow(QWidget* widget) {
    const int count = rows->count();
    if (count == 0) {
        return addWidget(widget);
    }
    auto* row = static_cast<Row*>(rows->itemAt(count - 1)->widget());
    row->add(widget);
    return row;
}

// Includes the hidden rows, which the layout ignores.
QSize FormSection::minimumSizeHint() const {
    QSize least = QWidget::minimumSizeHint();
    for (int index = 0; index < rows->count(); ++index) {
        const int width = rows->itemAt(index)->widget()->minimumSizeHint().width();
        least.setWidth(std::max(least.width(), width));
    }
    return least;
}

} // namespace glidemap
