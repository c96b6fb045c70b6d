// Combo boxes: a button that shows the current entry and a pair of chevrons, and a list below it.
//
// Thread:  the main thread.
#pragma once

#include <QRect>
#include <QSize>

class QPainter;
class QStyleOptionComboBox;
class QWidget;

namespace glidemap::style {

void drawComboBox(QPainter& painter, const QStyleOptionComboBox& option);
void drawComboBoxLabel(QPainter& painter, const QStyleOptionComboBox& option);

// Whether the closed combo box is too narrow for its text.
bool elidesComboBoxText(const QStyleOptionComboBox& option);

QRect comboBoxTextRect(const QStyleOptionComboBox& option);
QRect comboBoxArrowRect(const QStyleOptionComboBox& option);
QRect comboBoxListRect(const QStyleOptionComboBox& option);
QSize comboBoxSize(const QSize& contents);

// Whether the widget is the frame of an open combo box list, or a widget inside that frame.
bool isComboBoxList(const QWidget* widget);

} // namespace glidemap::style
