// The user's list of bindings: loads it on construction, saves the whole list after every change,
// and finds the binding that a gesture triggers.
//
// Thread:  changed and observed on the main thread; read on any thread, where each reader gets a
//          consistent snapshot of the list. match() and doubleTapBindingExists() do not allocate.
// Owner:   the program creates one.
// Errors:  if the file cannot be read or is invalid, the store uses the default bindings and saves
//          them. A failed save shows no message; saveFailure() returns its error until a save
//          succeeds. The program retries the save on the next change and on exit.
#pragma once

#include "bindings/indexed_bindings.h"
#include "core/observable.h"
#include "core/snapshot.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>

namespace glidemap {

class BindingStore {
public:
    // Returns the user's folder for application data; called each time the file's location is
    // needed.
    using SupportFolder = std::function<std::filesystem::path()>;

    explicit BindingStore(SupportFolder folder);

    // Keeps the list in memory only: neither loads nor saves a file.
    explicit BindingStore(BindingList list);

    BindingStore(const BindingStore&) = delete;
    BindingStore& operator=(const BindingStore&) = delete;

    // Returns the bindings in the user's order. The first of several equally specific bindings
    // wins.
    std::shared_ptr<const BindingList> bindings() const;

    // Announces the change, replaces the list and saves it.
    void setBindings(BindingList list);
    void save();
    void saveIfLastSaveFailed();

    // The error of the last save; empty after a successful save.
    std::error_code saveFailure() const { return _saveFailure; }

    // Returns the binding to run, which shares ownership of the list, or null. Among the gesture's
    // enabled bindings, the first one for the frontmost application takes precedence over the first
    // global one.
    std::shared_ptr<const GestureBinding> match(GestureType gesture,
                                                std::optional<std::string_view> frontmost) const;

    // Returns whether a single tap with this many fingers must wait for a second tap. Ignores
    // scopes: a double tap for one application delays the single taps in all applications.
    bool doubleTapBindingExists(int fingerCount) const;

    Observable& changes() { return observers; }

private:
    std::filesystem::path location() const;
    void load();
    void publish(BindingList list);

    SupportFolder supportFolder;
    std::error_code _saveFailure;
    Snapshot<IndexedBindings> _bindings;
    Observable observers;
};

// Returns the bindings of a new user, each with a new identifier.
BindingList defaultBindings();

} // namespace glidemap
