// The content of the sheet that creates or edits a binding: gesture, action with its parameter, and
// scope.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the sheet. The objects in `services` must outlive the editor.
// Errors:  none. An incomplete form cannot be saved.
#pragma once

#include "bindings/binding_store.h"
#include "bindings/gesture_binding.h"
#include "core/lang.h"
#include "dispatch/workspace.h"
#include "ui/editor/binding_draft.h"
#include "ui/recorder/key_presses.h"
#include "ui/settings/system_notes.h"

#include <QSize>
#include <QWidget>
#include <functional>
#include <optional>

class QLabel;
class QPushButton;

namespace glidemap {

class ActionSection;
class GestureSection;
class ScopeSection;

class BindingEditor : public QWidget {
public:
    struct Services {
        BindingStore& store;
        Workspace& workspace;
        std::shared_ptr<KeyPresses> keys;
        Lang& lang = Lang::shared();
        const SystemNotes* notes = nullptr; // null if the platform provides no notes
    };

    static constexpr QSize sheetSize{460, 640};

    // Without `existing`, the editor creates a new binding.
    BindingEditor(const Services& services, std::optional<GestureBinding> existing,
                  QWidget* parent = nullptr);

    QSize sizeHint() const override { return sheetSize; }

    bool isValid() const { return draft.isValid(); }

    // Writes the binding to the store and calls `dismiss`. Does nothing while the form is
    // incomplete.
    void save();

    // Called after saving or cancelling.
    std::function<void()> dismiss;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void loadExisting();
    void layOut();
    QWidget* makeForm();
    QWidget* makeButtons();
    void leave() const;
    void refreshSave();
    void retitle();
    void alignPickers();

    Services services;
    std::optional<GestureBinding> existing;
    BindingDraft draft;
    QLabel* title;
    GestureSection* gestureSection;
    ActionSection* actionSection;
    ScopeSection* scopeSection;
    QPushButton* cancelButton;
    QPushButton* saveButton;
    Subscription toLanguage;
    Subscription toTheme;
};

} // namespace glidemap
