// The editor's section on the gesture: the picker, how the gesture is made, and what to mind.
//
// Thread:  the main thread.
// Owner:   the editor; the draft and the language outlive it.
// Errors:  none.
#pragma once

#include "core/lang.h"
#include "ui/controls/form_section.h"
#include "ui/editor/binding_draft.h"

#include <functional>
#include <vector>

class QLabel;

namespace glidemap {

class GestureDemoView;
class GesturePicker;

class GestureSection : public FormSection {
public:
    GestureSection(BindingDraft& edited, Lang& language, QWidget* parent = nullptr);

    // Called when the user has changed the draft.
    std::function<void()> onEdit;

    // Shows the draft, in the current language.
    void refresh();

    QWidget* firstControl() const;
    std::vector<QLabel*> pickerLabels() const { return {pickerLabel}; }

private:
    BindingDraft& draft;
    Lang& lang;
    GesturePicker* picker;
    QLabel* pickerLabel;
    GestureDemoView* demo;
    QLabel* detailLabel;
    QLabel* clickWarning;
};

} // namespace glidemap
