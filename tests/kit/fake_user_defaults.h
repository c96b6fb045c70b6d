// Fake settings that record every write and last as long as the test.
#pragma once

#include "core/user_defaults.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace glidemap::test {

class FakeUserDefaults : public UserDefaults {
public:
    using Write = std::pair<std::string, std::string>;

    std::optional<std::string> string(std::string_view key) const override {
        const auto found = stored.find(key);
        return found != stored.end() ? std::optional(found->second) : std::nullopt;
    }

    void setString(std::string_view key, std::string_view value) override {
        stored.insert_or_assign(std::string(key), std::string(value));
        writes.emplace_back(key, value);
    }

    std::optional<bool> boolean(std::string_view key) const override {
        const auto found = storedBooleans.find(key);
        return found != storedBooleans.end() ? std::optional(found->second) : std::nullopt;
    }

    void setBoolean(std::string_view key, bool value) override {
        storedBooleans.insert_or_assign(std::string(key), value);
        booleanWrites.emplace_back(key, value);
    }

    std::map<std::string, bool, std::less<>> storedBooleans;
    std::vector<std::pair<std::string, bool>> booleanWrites;
    std::map<std::string, std::string, std::less<>> stored; // a test may add values
    std::vector<Write> writes;
};

} // namespace glidemap::test
