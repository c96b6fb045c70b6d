#include "ui/editor/action_section.h"

#include "ui/controls/picker.h"
#include "ui/controls/styled_label.h"
#include "ui/editor/application_picker.h"
#include "ui/editor/running_apps.h"
#include "ui/recorder/shortcut_recorder_view.h"
#include "ui/theme/style/paint.h"
#include "ui/theme/text.h"

#include <QLayout>
#include <QSignalBlocker>

namespace glidemap {

ActionSection::ActionSection(BindingDraft& draft, const Workspace& workspace,
                             std::shared_ptr<KeyPresses> keys, Lang& lang, QWidget* parent)
    : FormSection(parent), draft(draft), workspace(workspace), lang(lang), kinds(new Picker),
      kindsLabel(new StyledLabel(TextStyle::body, Role::primary)),
      recorder(new ShortcutRecorderView(std::move(keys), lang)),
      target(new ApplicationPicker(workspace, launchableApps, lang)),
      targetLabel(new StyledLabel(TextStyle::body, Role::primary)),
      noOverview(new StyledLabel(TextStyle::caption, Role::secondary)) {
    noOverview->setObjectName("noOverview");
    noOverview->setWordWrap(true);
    kinds->setObjectName("actionPicker");
    target->setObjectName("launchPicker");
    for (const ActionKind kind : allActionKinds) {
        kinds->addItem(toQt(label(kind, lang)));
    }
    addRows();
    listen();
}

void ActionSection::addRows() {
    addRow(kindsLabel, kinds);
    recorderPlace = addWidget(recorder);
    // The recorder and the row both reserve a margin for the focus ring, but one margin is enough.
    constexpr QMargins ring(0, style::ringMargin, style::ringMargin, style::ringMargin);
    recorderPlace->layout()->setContentsMargins(recorderPlace->layout()->contentsMargins() - ring);
    targetPlace = addRow(targetLabel, target);
    noOverviewPlace = addWidget(noOverview);
}

void ActionSection::listen() {
    connect(kinds, &QComboBox::currentIndexChanged, this, [this](int index) {
        draft.actionKind = allActionKinds[static_cast<std::size_t>(index)];
        edited();
    });
    recorder->onRecord = [this](const KeyShortcut& shortcut) {
        draft.shortcut = shortcut;
        edited();
    };
    target->onPick = [this](const std::optional<RunningApp>& app) {
        draft.launchTarget = app;
        edited();
    };
}

void ActionSection::edited() {
    refresh();
    if (onEdit) {
        onEdit();
    }
}

void ActionSection::refresh() {
    setTitle(toQt(lang.choose("Action", "动作")));
    const QString perform = toQt(lang.choose("Perform action", "执行动作"));
    kindsLabel->setText(perform);
    kinds->setAccessibleName(perform);
    const QString choose = toQt(lang.choose("Choose an app", "选择 App"));
    targetLabel->setText(choose);
    target->setAccessibleName(choose);
    const QSignalBlocker quiet(kinds);
    for (const ActionKind kind : allActionKinds) {
        kinds->setItemText(static_cast<int>(kind), toQt(label(kind, lang)));
    }
    kinds->setCurrentIndex(static_cast<int>(draft.actionKind));
    recorder->setShortcut(draft.shortcut);
    target->setSelection(draft.launchTarget);
    noOverview->setText(
        toQt(lang.choose("This desktop has no window overview.", "此桌面没有窗口概览功能。")));
    noOverviewPlace->setVisible(draft.actionKind == ActionKind::missionControl &&
                                !workspace.hasMissionControl());
    recorderPlace->setVisible(draft.actionKind == ActionKind::keyboardShortcut);
    targetPlace->setVisible(draft.actionKind == ActionKind::launchApp);
}

} // namespace glidemap
