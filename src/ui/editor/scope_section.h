// The section of the editor in which the user chooses the scope: all applications, or one
// application.
//
// Thread:  the main thread.
// Owner:   the editor. `draft`, `workspace` and `lang` must outlive the section.
// Errors:  none.
#pragma once

#include "core/lang.h"
#include "dispatch/workspace.h"
#include "ui/controls/form_section.h"
#include "ui/editor/binding_draft.h"

#include <functional>
#include <vector>

class QLabel;

namespace glidemap {

class ApplicationPicker;
class SegmentedControl;

class ScopeSection : public FormSection {
public:
    ScopeSection(BindingDraft& draft, const Workspace& workspace, Lang& lang,
                 QWidget* parent = nullptr);

    // Called when the user has changed the draft.
    std::function<void()> onEdit;

    // Updates the controls from the draft and the interface language.
    void refresh();

    std::vector<QLabel*> pickerLabels() const { return {appLabel}; }

private:
    void listen();
    void edited();

    BindingDraft& draft;
    Lang& lang;
    QLabel* kindsLabel;
    SegmentedControl* kinds;
    ApplicationPicker* app;
    QLabel* appLabel;
    QWidget* appPlace;
};

} // namespace glidemap
