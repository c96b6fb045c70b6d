// The user's list of bindings: loaded at construction, saved whole after every change, and asked
// which binding a gesture triggers.
//
// Thread:  changed and observed on the main thread; read on any, each reader having the list as it
//          stood at one moment. match() and doubleTapBindingExists() do not allocate.
// Owner:   the program makes one.
// Errors:  a file that cannot be read, or is none of ours, is replaced by the default bindings. A
//          failure to save is not shown; saveFailure() has the reason until a later save succeeds.
//          The next change tries again, and so does the end of the program.
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
    // Answers the user's folder for application data; asked each time the file's place is needed.
    using SupportFolder = std::function<std::filesystem::path()>;

    explicit BindingStore(SupportFolder folder);

    // In memory only: nothing is read, and saving writes nothing.
    explicit BindingStore(BindingList list);

    BindingStore(const BindingStore&) = delete;
    BindingStore& operator=(const BindingStore&) = delete;

    // In the user's order, which decides between bindings of equal rank.
    std::shared_ptr<const BindingList> bindings() const;

    // Announces, assigns and saves.
    void setBindings(BindingList list);
    void save();
    void saveIfLastSaveFailed();

    // Why the file lacks the list in memory. Empty after a successful save.
    std::error_code saveFailure() const { return _saveFailure; }

    // The binding to run, which shares the list's life, or null. Among the enabled bindings of the
    // gesture the first for the frontmost application wins, else the first global one.
    std::shared_ptr<const GestureBinding> match(GestureType gesture,
                                                std::optional<std::string_view> frontmost) const;

    // Whether a single tap of so many fingers has to wait for a second one. The scope is not asked:
    // a double tap for one application makes the single taps wait in all.
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

// What a new user starts with, each with an identifier of its own.
BindingList defaultBindings();

} // namespace glidemap
