// The editor's section on the scope: everywhere, or in one application.
//
// Thread:  the main thread.
// Owner:   the editor; the draft and what the rest names outlive it.
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
    ScopeSection(BindingDraft& shown, const Workspace& workspace, Lang& language,
                 QWidget* parent = nullptr);

    // Called when the user has changed the draft.
    std::function<void()> onEdit;

    // Shows the draft, in the current language.
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
