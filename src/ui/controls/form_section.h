// A group of a form: an optional heading above a rounded card whose rows are parted by thin lines.
// A row that is hidden takes its line along.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   its parent. Takes every widget that it is given.
// Errors:  none.
#pragma once

#include "ui/theme/theme.h"

#include <QWidget>

class QVBoxLayout;

namespace glidemap {

class StyledLabel;

class FormSection : public QWidget {
public:
    explicit FormSection(QWidget* parent = nullptr);

    // Without a title there is no heading.
    void setTitle(const QString& title);
    QString title() const;

    // A label at the leading and a control at the trailing edge, or over all the room between if the
    // control wants to grow. Returns the row, which hides both.
    // A QLabel becomes the control's buddy.
    QWidget* addRow(QWidget* label, QWidget* control);

    // One widget over the whole width, in a row of its own.
    QWidget* addWidget(QWidget* widget);

    // Goes on in the row above, without a line in between: what explains or shows that row's choice.
    QWidget* addToLastRow(QWidget* widget);

private:
    class Row;
    class Card;

    Row* newRow();

    StyledLabel* heading;
    Card* card;
    QVBoxLayout* rows;
    Subscription toTheme;
};

} // namespace glidemap
