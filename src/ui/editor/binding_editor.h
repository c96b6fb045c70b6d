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
#include "ui/recorder/hardware_keys.h"

#include <QSize>
#include <QWidget>
#include <functional>
#include <optional>

namespace glidemap {

class BindingEditor : public QWidget {
public:
    struct Services {
        BindingStore& store;
        Workspace& workspace;
        const HardwareKeys& keys;
        Lang& lang = Lang::shared();
    };

    static constexpr QSize sheetSize{460, 640};

    // Without an existing binding a new one is made.
    BindingEditor(const Services& services, std::optional<GestureBinding> existing,
                  QWidget* parent = nullptr);

    bool isValid() const;

    // Writes the binding to the store and dismisses; does nothing while it is not valid.
    void save();

    // Called when the sheet has done its work, or is to go without.
    std::function<void()> dismiss;

private:
    Services services;
    std::optional<GestureBinding> existing;
};

} // namespace glidemap
