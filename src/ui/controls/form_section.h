// A group of a form: an optional heading above a rounded card, whose rows are separated by thin
// lines. The line of a hidden row is hidden, too.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   its parent. The section owns each widget that is added to it.
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

    // An empty title removes the heading.
    void setTitle(const QString& title);
    QString title() const;

    // Adds a label at the leading and a control at the trailing edge; an expanding control fills
    // the row. Returns the row, which hides both. A QLabel becomes the control's buddy.
    QWidget* addRow(QWidget* label, QWidget* control);

    // Adds a row with one widget over the full width.
    QWidget* addWidget(QWidget* widget);

    // Adds a widget to the last row, without a line, to explain or show that row's choice.
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
