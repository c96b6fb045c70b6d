// A fake login item whose state and refusals the test sets. It records its calls.
//
// Thread:  the test's main thread.
#pragma once

#include "app/login_item_service.h"

#include <optional>
#include <string>
#include <vector>

namespace glidemap::test {

class FakeLoginItemService : public LoginItemService {
public:
    Status status() const override { return current; }
    std::optional<std::string> registerItem() override {
        return attempt("register", afterRegistering);
    }
    std::optional<std::string> unregisterItem() override {
        return attempt("unregister", Status::notRegistered);
    }

    Status current = Status::notRegistered;
    Status afterRegistering = Status::enabled;
    std::optional<std::string> refusal;
    std::vector<std::string> attempts;

private:
    std::optional<std::string> attempt(const char* name, Status afterwards) {
        attempts.emplace_back(name);
        if (!refusal) {
            current = afterwards;
        }
        return refusal;
    }
};

} // namespace glidemap::test
