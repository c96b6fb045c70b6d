// A picker with its label, for a row of a form: the picker takes all the room that the label leaves.
//
// Thread:  the main thread. Owner: its parent. Errors: none.
#pragma once

#include <QWidget>

class QLabel;

namespace glidemap {

class Picker;

class PickerRow : public QWidget {
public:
    // Takes the picker.
    explicit PickerRow(Picker* labelled, QWidget* parent = nullptr);

    // The label's text and the picker's accessible name.
    void setTitle(const QString& title);

private:
    QLabel* label;
    Picker* picker;
};

} // namespace glidemap
