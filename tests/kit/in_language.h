// Sets the shared language for the duration of a scope.
#pragma once

#include "core/lang.h"

#include <string>
#include <utility>

namespace glidemap::test {

class InLanguage {
public:
    explicit InLanguage(std::string code) : before(Lang::shared().code()) {
        Lang::shared().setCode(std::move(code));
    }
    InLanguage(const InLanguage&) = delete;
    InLanguage& operator=(const InLanguage&) = delete;
    ~InLanguage() { Lang::shared().setCode(before); }

private:
    std::string before;
};

} // namespace glidemap::test
