// A picker among others: the wheel scrolls what it lies in, and changes nothing in passing. Its open list is as wide as the
// longest entry with its mark.
//
// In a row of a form it is as wide as there is room, however long its entries are.
//
// Units:   points.
// Thread:  the main thread. Owner: its parent. Errors: none.
#pragma once

#include <QComboBox>

namespace glidemap {

class Picker : public QComboBox {
public:
    explicit Picker(QWidget* parent = nullptr);

    void showPopup() override;

protected:
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace glidemap
