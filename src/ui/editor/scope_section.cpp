#include "ui/editor/scope_section.h"

#include "ui/controls/segmented_control.h"
#include "ui/controls/styled_label.h"
#include "ui/editor/application_picker.h"
#include "ui/editor/running_apps.h"
#include "ui/theme/text.h"

namespace glidemap {

ScopeSection::ScopeSection(BindingDraft& draft, const Workspace& workspace, Lang& lang,
                           QWidget* parent)
    : FormSection(parent), draft(draft), lang(lang),
      kindsLabel(new StyledLabel(TextStyle::body, Role::primary)),
      kinds(new SegmentedControl(static_cast<int>(allScopeKinds.size()))),
      app(new ApplicationPicker(workspace, runningApps, lang)),
      appLabel(new StyledLabel(TextStyle::body, Role::primary)) {
    kinds->setObjectName("scopePicker");
    app->setObjectName("scopeAppPicker");
    addRow(kindsLabel, kinds);
    appPlace = addRow(appLabel, app);
    listen();
}

void ScopeSection::listen() {
    kinds->onChange = [this](int index) {
        draft.scopeKind = allScopeKinds[static_cast<std::size_t>(index)];
        edited();
    };
    app->onPick = [this](const std::optional<RunningApp>& picked) {
        draft.scopeApp = picked;
        edited();
    };
}

void ScopeSection::edited() {
    refresh();
    if (onEdit) {
        onEdit();
    }
}

void ScopeSection::refresh() {
    setTitle(toQt(lang.choose("Scope", "生效范围")));
    const QString range = toQt(lang.choose("Scope", "范围"));
    kindsLabel->setText(range);
    kinds->setAccessibleName(range);
    QStringList texts;
    for (const ScopeKind kind : allScopeKinds) {
        texts << toQt(label(kind, lang));
    }
    kinds->setTexts(texts);
    kinds->setCurrent(static_cast<int>(draft.scopeKind));
    const QString only = toQt(lang.choose("Only in this app", "仅在此 App 生效"));
    appLabel->setText(only);
    app->setAccessibleName(only);
    app->setSelection(draft.scopeApp);
    appPlace->setVisible(draft.scopeKind == ScopeKind::app);
}

} // namespace glidemap
