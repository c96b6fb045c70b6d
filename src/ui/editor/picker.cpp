#include "ui/editor/picker.h"

#include <QWheelEvent>

namespace glidemap {

namespace {

constexpr int shownEntries = 16;

} // namespace

Picker::Picker(QWidget* parent) : QComboBox(parent) {
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMaxVisibleItems(shownEntries);
}

void Picker::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

} // namespace glidemap
