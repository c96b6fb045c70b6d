#include "ui/controls/switch.h"

namespace glidemap {

Switch::Switch(QWidget* parent) : QCheckBox(parent) {}

} // namespace glidemap
