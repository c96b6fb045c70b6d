// The editor's section for the gesture: the picker, the demonstration, and advice.
//
// Thread:  the main thread.
// Owner:   the editor. The draft and the language outlive it.
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
    GestureSection(BindingDraft& draft, Lang& lang, QWidget* parent = nullptr);

    // Called when the user has changed the draft.
    std::function<void()> onEdit;

    // Updates the controls from the draft and the interface language.
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
