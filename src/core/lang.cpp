#include "core/lang.h"

#include <utility>

namespace glidemap {

namespace {

constexpr std::string_view languageKey = "appLanguage";

std::shared_ptr<UserDefaults>& sharedDefaults() {
    static std::shared_ptr<UserDefaults> store;
    return store;
}

// A fresh installation starts in English, regardless of the system's language.
std::string storedCode(const UserDefaults* store) {
    return store != nullptr ? store->string(languageKey).value_or("en") : "en";
}

} // namespace

Lang::Lang(std::shared_ptr<UserDefaults> store)
    : defaults(std::move(store)), _code(storedCode(defaults.get())) {}

void Lang::configureShared(std::shared_ptr<UserDefaults> store) {
    sharedDefaults() = std::move(store);
}

Lang& Lang::shared() {
    static Lang instance(sharedDefaults());
    return instance;
}

// The language picker of the settings window calls this for the shared language. The settings
// window, the editor with its pickers and shortcut recorder, the alerts and the status menu
// subscribe to the changes and read their texts again. A hidden settings window does so when it is
// shown. Texts that were stored earlier keep their language: the actions in the list of recent
// gestures, and the error of the login item.
void Lang::setCode(const std::string& code) {
    observers.announceWillChange();
    _code.set(code);
    if (defaults) {
        defaults->setString(languageKey, code);
    }
    observers.announceDidChange();
}

std::string Lang::choose(std::string_view english, std::string_view chinese) const {
    return std::string(*_code.get() == "zh" ? chinese : english);
}

} // namespace glidemap
