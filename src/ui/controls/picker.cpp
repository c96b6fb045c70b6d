#include "ui/controls/picker.h"

#include <QAbstractItemView>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

namespace glidemap {

namespace {

constexpr int shownEntries = 16;

} // namespace

Picker::Picker(QWidget* parent) : QComboBox(parent) {
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMaxVisibleItems(shownEntries);
}

// Qt would make the list only as wide as the picker.
void Picker::showPopup() {
    const bool scrolls = count() > maxVisibleItems();
    const int bar = scrolls ? view()->verticalScrollBar()->sizeHint().width() : 0;
    const int longest = view()->sizeHintForColumn(modelColumn()) + bar;
    view()->setMinimumWidth(std::min(longest, screen()->availableSize().width() / 2));
    QComboBox::showPopup();
}

void Picker::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

} // namespace glidemap
