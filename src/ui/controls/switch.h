// A switch: a knob that slides between off and on. To assistive programs it is a check box, and it
// is set and listened to as one.
//
// Thread:  the main thread. Owner: its parent. Errors: none.
#pragma once

#include <QCheckBox>

namespace glidemap {

class Switch : public QCheckBox {
public:
    explicit Switch(QWidget* parent = nullptr);
};

} // namespace glidemap
