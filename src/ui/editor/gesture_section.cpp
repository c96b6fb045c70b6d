#include "ui/editor/gesture_section.h"

#include "ui/controls/styled_label.h"
#include "ui/demo/gesture_demo_view.h"
#include "ui/editor/gesture_picker.h"
#include "ui/theme/text.h"

#include <QVBoxLayout>

namespace glidemap {

namespace {

constexpr int demoHeight = 130;
constexpr int demoPadding = 4;

QLabel* caption(Role role, const char* name) {
    auto* label = new StyledLabel(TextStyle::caption, role);
    label->setObjectName(name);
    label->setWordWrap(true);
    return label;
}

QWidget* padded(QWidget* demo) {
    auto* frame = new QWidget;
    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(0, demoPadding, 0, demoPadding);
    column->addWidget(demo);
    return frame;
}

} // namespace

GestureSection::GestureSection(BindingDraft& draft, Lang& lang, const SystemNotes* notes,
                               QWidget* parent)
    : FormSection(parent), draft(draft), lang(lang), notes(notes), picker(new GesturePicker(lang)),
      pickerLabel(new StyledLabel(TextStyle::body, Role::primary)),
      demo(new GestureDemoView(draft.gesture)),
      detailLabel(caption(Role::secondary, "gestureDetail")),
      systemNote(caption(Role::secondary, "systemGesture")),
      clickWarning(caption(Role::orange, "clickWarning")) {
    picker->setObjectName("gesturePicker");
    demo->setObjectName("gestureDemo");
    demo->setFixedHeight(demoHeight);
    addRow(pickerLabel, picker);
    addToLastRow(padded(demo));
    addToLastRow(detailLabel);
    addToLastRow(systemNote);
    addToLastRow(clickWarning);
    picker->onPick = [this](GestureType gesture) {
        this->draft.gesture = gesture;
        refresh();
        if (onEdit) {
            onEdit();
        }
    };
}

void GestureSection::refresh() {
    setTitle(toQt(lang.choose("Gesture", "手势")));
    const QString title = toQt(lang.choose("Trackpad gesture", "触控板手势"));
    pickerLabel->setText(title);
    picker->setAccessibleName(title);
    picker->setGesture(draft.gesture);
    demo->setGesture(draft.gesture);
    demo->setAccessibleName(toQt(displayName(draft.gesture, lang)));
    detailLabel->setText(toQt(detail(draft.gesture, lang)));
    systemNote->setText(notes != nullptr ? toQt(notes->systemGesture(draft.gesture, lang))
                                         : QString());
    systemNote->setVisible(!systemNote->text().isEmpty());
    clickWarning->setText(toQt(lang.choose(
        "Once enabled, this intercepts the system two-finger right-click (context menu).",
        "启用后将拦截系统的两指右键点击（右键菜单）。")));
    clickWarning->setVisible(draft.gesture == GestureType::twoFingerClick);
}

QWidget* GestureSection::firstControl() const {
    return picker;
}

} // namespace glidemap
