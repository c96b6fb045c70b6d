// A section of a form: an optional heading above a rounded card. Thin lines separate the visible
// rows of the card. A section is wide enough for its hidden rows, so that its width does not change
// when rows appear.
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

    // Adds a label at the leading edge and a control at the trailing edge. An expanding control
    // fills the row. Returns the row; hiding it hides both widgets. If the label is a QLabel, the
    // control becomes its buddy.
    QWidget* addRow(QWidget* label, QWidget* control);

    // Adds a row with one widget that takes the full width.
    QWidget* addWidget(QWidget* widget);

    // Adds a widget at the bottom of the last row, without a separating line. Use it to explain the
    // choice that the user makes in that row.
    QWidget* addToLastRow(QWidget* widget);

    QSize minimumSizeHint() const override;

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
