#include "ui/controls/picker.h"

#include "ui/controls/announcement.h"
#include "ui/controls/picker_accessible.h"
#include "ui/theme/style/combo_box.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QScreen>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>

namespace glidemap {

namespace {

constexpr int shownEntries = 16;

} // namespace

Picker::Picker(QWidget* parent) : QComboBox(parent) {
    exposePickersWithTheirText();
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMaxVisibleItems(shownEntries);
}

// By default, Qt makes the list only as wide as the picker, so long entries would be elided.
void Picker::showPopup() {
    const bool scrolls = count() > maxVisibleItems();
    const int bar = scrolls ? view()->verticalScrollBar()->sizeHint().width() : 0;
    const int longest = view()->sizeHintForColumn(modelColumn()) + bar;
    view()->setMinimumWidth(std::min(longest, screen()->availableSize().width() / 2));
    QComboBox::showPopup();
}

bool Picker::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty()) {
        QStyleOptionComboBox option;
        initStyleOption(&option);
        const QString text = style::elidesComboBoxText(option) ? currentText() : QString();
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text, this);
        return true;
    }
    return QComboBox::event(event);
}

// When a key changes the choice while the list is closed, Qt 6.4 reports only a changed name, which
// screen readers ignore. Therefore, this function announces the choice.
void Picker::keyPressEvent(QKeyEvent* event) {
    const int before = currentIndex();
    QComboBox::keyPressEvent(event);
    if (currentIndex() != before) {
        announce(*this, currentText());
    }
}

void Picker::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

} // namespace glidemap
