// How a binding is matched: of the enabled bindings for the gesture, the first one for the
// frontmost application is used, or else the first global one. If the frontmost application is
// unknown, only global bindings count. If nothing matches a circle of one direction,
// GestureDispatcher tries the circle of any direction.
//
// How bindings are saved: every change writes the whole list to Glidemap/bindings.json in the
// folder for application data, atomically and for the owner only. A failed save is retried on the
// next change and on exit.
#include "bindings/binding_store.h"

#include "bindings/atomic_write.h"
#include "bindings/binding_json.h"
#include "bindings/read_file.h"
#include "core/log.h"
#include "core/open_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace glidemap {

namespace {

// Enough for half a million bindings. Reading a larger file could exhaust the memory.
constexpr std::size_t maxFileSize = 128UL * 1024 * 1024;

std::optional<BindingList> readBindingFile(const std::filesystem::path& file) {
    const auto text = readFile(file, maxFileSize);
    if (!text) {
        return std::nullopt;
    }
    auto decoded = decodeBindings(*text);
    auto* const list = std::get_if<BindingList>(&decoded);
    return list != nullptr ? std::optional(std::move(*list)) : std::nullopt;
}

// Creates a folder that only its owner can access, or revokes other users' permissions on an
// existing one. Does not change a folder that belongs to another user. Errors are ignored: without
// a usable folder, reading or writing a file in it fails, too.
void makePrivateFolder(const std::filesystem::path& folder) {
    constexpr mode_t othersRights = S_IRWXG | S_IRWXO;
    mkdir(folder.c_str(), S_IRWXU);
    const OpenFile opened(
        retried([&] { return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    struct stat status {};
    if (opened && fstat(opened.descriptor(), &status) == 0 && status.st_uid == geteuid() &&
        (status.st_mode & othersRights) != 0) {
        fchmod(opened.descriptor(), status.st_mode & ~static_cast<mode_t>(S_IFMT | othersRights));
    }
}

} // namespace

BindingStore::BindingStore(SupportFolder folder)
    : supportFolder(std::move(folder)), _bindings(IndexedBindings({})) {
    load();
}

BindingStore::BindingStore(BindingList list) : _bindings(IndexedBindings(std::move(list))) {}

std::filesystem::path BindingStore::location() const {
    const std::filesystem::path support = supportFolder();
    if (support.empty()) {
        std::fputs("glidemap: cannot find the folder for application data\n", stderr);
        std::abort();
    }
    const std::filesystem::path folder = support / "Glidemap";
    std::error_code ignored; // after an error, reading or writing the file fails, too
    std::filesystem::create_directories(support, ignored);
    makePrivateFolder(folder);
    return folder / "bindings.json";
}

void BindingStore::load() {
    if (auto list = readBindingFile(location())) {
        logLine("bindings", "read ", list->size(), " from ", location().native());
        publish(std::move(*list));
        return;
    }
    logLine("bindings", "cannot read bindings from ", location().native(), ": using the defaults");
    publish(defaultBindings());
    save();
}

void BindingStore::publish(BindingList list) {
    _bindings.set(IndexedBindings(std::move(list)));
}

std::shared_ptr<const BindingList> BindingStore::bindings() const {
    const auto contents = _bindings.get();
    return {contents, &contents->list()};
}

void BindingStore::setBindings(BindingList list) {
    observers.announceWillChange();
    publish(std::move(list));
    save();
    observers.announceDidChange();
}

void BindingStore::save() {
    if (supportFolder) {
        const std::filesystem::path file = location();
        _saveFailure = writeAtomically(file, encodeBindings(_bindings.get()->list()));
        if (_saveFailure) {
            logLine("bindings", "saving failed: ", file.native(), ": ", _saveFailure.message());
        } else {
            logLine("bindings", "saved ", file.native());
        }
    }
}

void BindingStore::saveIfLastSaveFailed() {
    if (_saveFailure) {
        save();
    }
}

std::shared_ptr<const GestureBinding>
BindingStore::match(GestureType gesture, std::optional<std::string_view> frontmost) const {
    const auto contents = _bindings.get();
    const GestureBinding* const found = contents->match(gesture, frontmost);
    return found != nullptr ? std::shared_ptr<const GestureBinding>(contents, found) : nullptr;
}

bool BindingStore::doubleTapBindingExists(int fingerCount) const {
    const auto gesture = gestureFor(GestureCategory::doubleTap, fingerCount);
    return gesture && _bindings.get()->hasEnabled(*gesture);
}

BindingList defaultBindings() {
    constexpr std::uint16_t rightArrow = 124;
    constexpr std::uint16_t leftArrow = 123;
    constexpr std::uint64_t optionCommand = modifier::option | modifier::command;
    return {
        {.gesture = GestureType::drawCircle, .action = LockScreen{}, .scope = GlobalScope{}},
        {.gesture = GestureType::fixAndTapRight,
         .action = KeyShortcut{rightArrow, optionCommand},
         .scope = GlobalScope{}},
        {.gesture = GestureType::fixAndTapLeft,
         .action = KeyShortcut{leftArrow, optionCommand},
         .scope = GlobalScope{}},
    };
}

} // namespace glidemap
