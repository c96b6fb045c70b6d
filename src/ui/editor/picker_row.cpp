#include "ui/editor/picker_row.h"

#include "ui/controls/styled_label.h"
#include "ui/editor/picker.h"

#include <QHBoxLayout>

namespace glidemap {

namespace {

constexpr int gap = 12;

} // namespace

PickerRow::PickerRow(Picker* labelled, QWidget* parent)
    : QWidget(parent), label(new StyledLabel(TextStyle::body, Role::primary)), picker(labelled) {
    label->setBuddy(picker);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(label);
    row->addWidget(picker, 1);
}

void PickerRow::setTitle(const QString& title) {
    label->setText(title);
    picker->setAccessibleName(title);
}

} // namespace glidemap
