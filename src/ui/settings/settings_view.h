// The content of the settings window: bindings, switches, notices, and the last gesture. It stores
// no data itself: it writes changes to the services, and displays changes of the services
// immediately.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the settings window. The services must outlive the view.
// Errors:  shows the errors of the services; has none of its own.
#pragma once

#include "app/login_item_manager.h"
#include "app/update_checker.h"
#include "bindings/binding_store.h"
#include "core/lang.h"
#include "dispatch/accessibility_trust.h"
#include "dispatch/gesture_dispatcher.h"
#include "dispatch/workspace.h"
#include "input/multitouch_device_manager.h"
#include "ui/recorder/key_presses.h"
#include "ui/settings/desktop_helper.h"
#include "ui/settings/system_notes.h"

#include <QWidget>
#include <memory>
#include <optional>
#include <vector>

namespace glidemap {

class ActivityFooter;
class BindingListView;
class Notices;
class SettingsHeader;
class UndoBar;

class SettingsView : public QWidget {
public:
    struct Services {
        std::shared_ptr<BindingStore> store;
        std::shared_ptr<GestureDispatcher> dispatcher;
        std::shared_ptr<UpdateChecker> updates;
        std::shared_ptr<Workspace> workspace;
        std::shared_ptr<AccessibilityTrust> trust;
        std::shared_ptr<LoginItemService> loginItems;
        std::shared_ptr<KeyPresses> keys;
        const MultitouchDeviceManager* devices = nullptr; // reports the load error; may be null
        std::shared_ptr<DesktopHelper> desktopHelper;     // may be null
        std::shared_ptr<SystemNotes> notes;               // may be null
        Lang* lang = &Lang::shared();
    };

    explicit SettingsView(Services services, QWidget* parent = nullptr);

    void addBinding();

    // Whether the editor is open, and the binding that it edits; nullopt for a new binding.
    bool showsEditor() const { return showingEditor; }
    const std::optional<GestureBinding>& editedBinding() const { return editingBinding; }

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    class EmptyState;

    void lay();
    void listen();
    void observe();
    void retitle();
    void refresh();
    void refreshNotices();
    void refreshList();

    void edit(std::optional<GestureBinding> binding);
    void toggle(const GestureBinding& binding, bool enabled);
    void remove(const GestureBinding& binding);
    void bringBack();

    // A deletion that the user can undo while the list still equals `after`.
    struct Deletion {
        BindingList before;
        BindingList after;
        std::size_t place; // index of the first deleted binding
    };

    Services services;
    LoginItemManager loginItem;
    std::optional<GestureBinding> editingBinding;
    bool showingEditor = false;
    std::optional<Deletion> lastDeletion;

    SettingsHeader* header;
    Notices* notices;
    EmptyState* emptyState;
    BindingListView* list;
    UndoBar* undoBar;
    ActivityFooter* footer;
    std::vector<Subscription> subscriptions;
};

} // namespace glidemap
