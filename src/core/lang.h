// The language of the interface. The caller of choose() passes a text in English and in Simplified
// Chinese and receives the one in the current language.
//
// Thread:  the main thread sets the language code; any thread may read it and gets either the old
//          code or the new one.
// Owner:   the process (`Lang::shared()`); tests create their own.
// Errors:  none. Any text is accepted as the language code; only "zh" selects Chinese.
#pragma once

#include "core/observable.h"
#include "core/snapshot.h"
#include "core/user_defaults.h"

#include <memory>
#include <string>
#include <string_view>

namespace glidemap {

class Lang {
public:
    // Reads the stored language code. Does not write it.
    explicit Lang(std::shared_ptr<UserDefaults> store);

    // Sets where the shared instance stores its code. Must be called before the first shared().
    // Without this call, the code is lost on exit.
    static void configureShared(std::shared_ptr<UserDefaults> store);
    static Lang& shared();

    std::string code() const { return *_code.get(); }

    // Announces the change and stores the code, even if `code` is the current code.
    void setCode(const std::string& code);

    // Returns the text for the current language.
    std::string choose(std::string_view english, std::string_view chinese) const;

    Observable& changes() { return observers; }

private:
    std::shared_ptr<UserDefaults> defaults;
    Snapshot<std::string> _code;
    Observable observers;
};

} // namespace glidemap
