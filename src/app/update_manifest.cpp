#include "app/update_manifest.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace glidemap {

namespace {

using nlohmann::json;

// Handles parser events instead of building a tree, because an untrusted host could make the tree
// very large and deep.
class ManifestHandler : public nlohmann::json_sax<json> {
public:
    std::optional<std::string> takeVersion() { return std::move(version); }

    bool null() override { return value(std::nullopt); }
    bool boolean(bool /*value*/) override { return value(std::nullopt); }
    bool number_integer(std::int64_t /*value*/) override { return value(std::nullopt); }
    bool number_unsigned(std::uint64_t /*value*/) override { return value(std::nullopt); }
    bool number_float(double /*value*/, const std::string& /*text*/) override {
        return value(std::nullopt);
    }
    bool string(std::string& text) override { return value(std::move(text)); }
    bool binary(json::binary_t& /*value*/) override { return false; }
    bool start_object(std::size_t /*elements*/) override {
        inManifest = inManifest || depth == 0;
        return enter();
    }
    bool end_object() override { return leave(); }
    bool start_array(std::size_t /*elements*/) override { return enter(); }
    bool end_array() override { return leave(); }
    bool key(std::string& name) override {
        if (inManifest && depth == 1) {
            versionIsNext = name == "version";
        }
        return true;
    }
    bool parse_error(std::size_t /*position*/, const std::string& /*lastToken*/,
                     const json::exception& /*error*/) override {
        return false;
    }

private:
    bool value(std::optional<std::string> text) {
        if (versionIsNext) {
            version = std::move(text);
            versionIsNext = false;
        }
        return true;
    }
    bool enter() {
        ++depth;
        return value(std::nullopt);
    }
    bool leave() {
        --depth;
        return true;
    }

    std::size_t depth = 0;
    bool inManifest = false; // in the outermost object
    bool versionIsNext = false;
    std::optional<std::string> version;
};

} // namespace

std::optional<std::string> versionInManifest(std::string_view text) {
    // The library treats a null character as the end of the text and would ignore the rest.
    if (text.find('\0') != std::string_view::npos) {
        return std::nullopt;
    }
    ManifestHandler handler;
    return json::sax_parse(text, &handler) ? handler.takeVersion() : std::nullopt;
}

} // namespace glidemap
