// The content of the sheet in which one binding is made or changed: a gesture, an action with its
// parameter, and a scope.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the sheet; what the services name outlives it.
// Errors:  none are shown: an incomplete form cannot be saved.
#pragma once

#include "bindings/binding_store.h"
#include "bindings/gesture_binding.h"
#include "core/lang.h"
#include "dispatch/workspace.h"
#include "ui/editor/binding_draft.h"
#include "ui/recorder/key_presses.h"

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
    };

    static constexpr QSize sheetSize{460, 640};

    // Without an existing binding a new one is made.
    BindingEditor(const Services& services, std::optional<GestureBinding> existing,
                  QWidget* parent = nullptr);

    QSize sizeHint() const override { return sheetSize; }

    bool isValid() const { return draft.isValid(); }

    // Writes the binding to the store and dismisses; does nothing while it is not valid.
    void save();

    // Called when the sheet has done its work, or is to go without.
    std::function<void()> dismiss;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void loadExisting();
    void layOut();
    QWidget* makeForm();
    QWidget* makeButtons();
    void leave();
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
