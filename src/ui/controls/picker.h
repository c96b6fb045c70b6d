// A combo box within a form. The wheel scrolls the form and never changes the choice. The open list
// is as wide as its longest entry and the check mark.
//
// In a form row it takes the available width, independent of its entries.
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
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace glidemap
