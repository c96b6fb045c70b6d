// A picker in a row of a form: as wide as there is room, however long its entries are. The wheel
// scrolls the form, and changes nothing in passing.
//
// Thread:  the main thread. Owner: its parent. Errors: none.
#pragma once

#include <QComboBox>

namespace glidemap {

class Picker : public QComboBox {
public:
    explicit Picker(QWidget* parent = nullptr);

protected:
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace glidemap
