// The language of the interface: every text stands in English and in Simplified Chinese at the
// place that shows it, and is chosen there by this object each time it is built.
//
// Thread:  `code` is written on the main thread and may be read on any; a reader gets the old code
// or the new one. Owner:   the process (`Lang::shared()`); tests make their own. Errors:  none. Any
// text is kept as the code; only "zh" selects Chinese.
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
    // Reads the stored code and writes nothing.
    explicit Lang(std::shared_ptr<UserDefaults> store);

    // Says where the shared instance keeps its code. Call before the first shared(); without it the
    // code is forgotten at exit.
    static void configureShared(std::shared_ptr<UserDefaults> store);
    static Lang& shared();

    std::string code() const { return *_code.get(); }

    // Announces, stores, and persists, also when the code is the one already there.
    void setCode(const std::string& code);

    // The text for the current language.
    std::string choose(std::string_view english, std::string_view chinese) const;

    Observable& changes() { return observers; }

private:
    std::shared_ptr<UserDefaults> defaults;
    Snapshot<std::string> _code;
    Observable observers;
};

} // namespace glidemap
