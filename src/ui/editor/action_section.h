// The section of the editor in which the user chooses the action: its kind, and the parameter of
// that kind.
//
// Thread:  the main thread.
// Owner:   the editor. `draft`, `workspace` and `lang` must outlive the section.
// Errors:  none.
#pragma once

#include "core/lang.h"
#include "dispatch/workspace.h"
#include "ui/controls/form_section.h"
#include "ui/editor/binding_draft.h"
#include "ui/recorder/key_presses.h"

#include <functional>
#include <memory>
#include <vector>

class QLabel;

namespace glidemap {

class ApplicationPicker;
class Picker;
class ShortcutRecorderView;

class ActionSection : public FormSection {
public:
    ActionSection(BindingDraft& draft, const Workspace& workspace, std::shared_ptr<KeyPresses> keys,
                  Lang& lang, QWidget* parent = nullptr);

    // Called when the user has changed the draft.
    std::function<void()> onEdit;

    // Updates the controls from the draft and the interface language.
    void refresh();

    std::vector<QLabel*> pickerLabels() const { return {kindsLabel, targetLabel}; }

private:
    void addRows();
    void listen();
    void edited();

    BindingDraft& draft;
    const Workspace& workspace;
    Lang& lang;
    Picker* kinds;
    QLabel* kindsLabel;
    ShortcutRecorderView* recorder;
    ApplicationPicker* target;
    QLabel* targetLabel;
    QLabel* noOverview; // visible for Mission Control if the desktop has no overview
    QWidget* recorderPlace = nullptr;
    QWidget* targetPlace = nullptr;
    QWidget* noOverviewPlace = nullptr;
};

} // namespace glidemap
