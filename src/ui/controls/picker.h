// A combo box for a form. The mouse wheel scrolls the form and never changes the choice. The open
// list is wide enough for its longest entry and the check mark, up to half of the screen's width.
// If the picker is too narrow for its text, its tooltip shows the text.
//
// In a form row, the picker takes the available width, regardless of its entries.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   its parent.
// Errors:  none.
#pragma once

#include <QComboBox>

namespace glidemap {

class Picker : public QComboBox {
public:
    explicit Picker(QWidget* parent = nullptr);

    void showPopup() override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace glidemap
