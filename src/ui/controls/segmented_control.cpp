#include "ui/controls/segmented_control.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QRadioButton>

namespace glidemap {

SegmentedControl::SegmentedControl(int count, QWidget* parent)
    : QWidget(parent), group(new QButtonGroup(this)) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (int index = 0; index < count; ++index) {
        auto* button = new QRadioButton(this);
        group->addButton(button, index);
        layout->addWidget(button);
    }
    group->button(0)->setChecked(true);
    connect(group, &QButtonGroup::idClicked, this, [this](int index) {
        if (onChange) {
            onChange(index);
        }
    });
}

void SegmentedControl::setTexts(const QStringList& texts) {
    for (int index = 0; index < texts.size(); ++index) {
        group->button(index)->setText(texts[index]);
    }
}

int SegmentedControl::current() const {
    return group->checkedId();
}

void SegmentedControl::setCurrent(int index) {
    group->button(index)->setChecked(true);
}

} // namespace glidemap
