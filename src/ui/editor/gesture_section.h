// The section of the editor in which the user chooses the gesture: the picker, the demonstration,
// and a description of the gesture.
//
// Thread:  the main thread.
// Owner:   the editor. The draft, the language and the notes must outlive the section.
// Errors:  none.
#pragma once

#include "core/lang.h"
#include "ui/controls/form_section.h"
#include "ui/editor/binding_draft.h"
#include "ui/settings/system_notes.h"

#include <functional>
#include <vector>

class QLabel;

namespace glidemap {

class GestureDemoView;
class GesturePicker;

class GestureSection : public FormSection {
public:
    // `notes` may be null.
    GestureSection(BindingDraft& draft, Lang& lang, const SystemNotes* notes,
                   QWidget* parent = nullptr);

    // Called when the user has changed the draft.
    std::function<void()> onEdit;

    // Updates the controls from the draft and the interface language.
    void refresh();

    QWidget* firstControl() const;
    std::vector<QLabel*> pickerLabels() const { return {pickerLabel}; }

private:
    BindingDraft& draft;
    Lang& lang;
    const SystemNotes* notes;
    GesturePicker* picker;
    QLabel* pickerLabel;
    GestureDemoView* demo;
    QLabel* detailLabel;
    QLabel* systemNote; // visible if the system itself uses the gesture
    QLabel* clickWarning;
};

} // namespace glidemap
