#include "bindings/binding_json.h"
#include "bindings/binding_object.h"
#include "bindings/binding_object_decoder.h"
#include "bindings/json_number.h"
#include "bindings/parsable_json.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>

namespace glidemap {

namespace {

using nlohmann::json;

// The deepest relevant object: a shortcut in an action in a binding.
constexpr std::size_t maxObjectDepth = 3;

// Receives the file's values in text order and decodes each object of the array as soon as it is
// complete. Memory use is bounded by the bindings and one object: unknown values are skipped,
// however long or deep they are.
class BindingsHandler : public nlohmann::json_sax<json> {
public:
    std::vector<GestureBinding> takeBindings() { return std::move(bindings); }
    const std::string& reason() const { return _reason; }

    bool null() override { return scalar(UnsupportedValue()); }
    bool boolean(bool value) override { return scalar(value); }
    // Only called for negative numbers, including "-0".
    bool number_integer(std::int64_t value) override {
        return value == 0 ? number_unsigned(0) : scalar(UnsupportedValue());
    }
    bool number_unsigned(std::uint64_t value) override { return scalar(value); }
    // Also called for integers beyond 64 bits. The text has digits that the double has lost.
    bool number_float(double /*value*/, const std::string& text) override {
        const auto whole = wholeNumber(text);
        return whole ? number_unsigned(*whole) : scalar(UnsupportedValue());
    }
    bool string(std::string& value) override { return scalar(std::move(value)); }
    bool binary(json::binary_t& /*value*/) override { return false; }
    bool start_object(std::size_t /*elements*/) override;
    bool end_object() override;
    bool start_array(std::size_t /*elements*/) override;
    bool end_array() override;
    bool key(std::string& name) override;
    bool parse_error(std::size_t position, const std::string& lastToken,
                     const json::exception& error) override;

private:
    bool fail(std::string reason);
    bool failElement(std::string_view what);
    bool scalar(BindingValue value);
    void pass();
    bool finishElement();

    bool insideArray = false;
    std::size_t skippedDepth = 0; // depth inside a skipped value
    BindingObject element;
    std::vector<BindingObject*> objects; // the open objects, starting with the array element
    BindingValue* place = nullptr;       // of the next value; null for an unknown key
    std::vector<GestureBinding> bindings;
    std::string _reason;
};

bool BindingsHandler::fail(std::string reason) {
    _reason = std::move(reason);
    return false;
}

bool BindingsHandler::failElement(std::string_view what) {
    return fail("[" + std::to_string(bindings.size()) + "]" + std::string(what));
}

bool BindingsHandler::scalar(BindingValue value) {
    if (skippedDepth > 0) {
        return true;
    }
    if (!insideArray) {
        return fail("not an array");
    }
    if (objects.empty()) {
        return failElement(": not an object");
    }
    if (place != nullptr) {
        *place = std::move(value);
    }
    return true;
}

void BindingsHandler::pass() {
    if (skippedDepth++ == 0 && place != nullptr) {
        *place = UnsupportedValue();
    }
}

bool BindingsHandler::start_object(std::size_t /*elements*/) {
    if (!insideArray) {
        return fail("not an array");
    }
    if (objects.empty()) {
        element = {};
        objects.push_back(&element);
    } else if (skippedDepth > 0 || place == nullptr || objects.size() == maxObjectDepth) {
        pass();
    } else {
        objects.push_back(
            place->emplace<std::unique_ptr<BindingObject>>(std::make_unique<BindingObject>())
                .get());
    }
    return true;
}

bool BindingsHandler::end_object() {
    if (skippedDepth > 0) {
        --skippedDepth;
        return true;
    }
    objects.pop_back();
    return !objects.empty() || finishElement();
}

bool BindingsHandler::finishElement() {
    BindingObjectDecoder decoder;
    auto binding = decoder.decode(element);
    if (!binding) {
        return failElement("." + decoder.reason());
    }
    bindings.push_back(std::move(*binding));
    return true;
}

bool BindingsHandler::start_array(std::size_t /*elements*/) {
    if (!insideArray) {
        insideArray = true;
        return true;
    }
    if (objects.empty()) {
        return failElement(": not an object");
    }
    pass();
    return true;
}

bool BindingsHandler::end_array() {
    if (skippedDepth > 0) {
        --skippedDepth;
    }
    return true;
}

bool BindingsHandler::key(std::string& name) {
    if (skippedDepth == 0) {
        const auto known = bindingKeyNamed(name);
        place = known ? &(*objects.back())[*known] : nullptr;
    }
    return true;
}

// The library's message without its prefix and without the token read last, which may be as long as
// the file.
bool BindingsHandler::parse_error(std::size_t /*position*/, const std::string& /*lastToken*/,
                                  const json::exception& error) {
    constexpr std::size_t most = 200;
    std::string_view words = error.what();
    words.remove_prefix(std::min(words.find("] ") + 2, words.size()));
    words = words.substr(0, words.find("; last read"));
    return fail("not JSON: " + std::string(words.substr(0, most)));
}

} // namespace

std::variant<std::vector<GestureBinding>, DecodingFailure> decodeBindings(std::string_view text) {
    // The parser would treat a zero byte as the end of the text.
    if (text.find('\0') != std::string_view::npos) {
        return DecodingFailure{"not JSON: a zero byte"};
    }
    const std::optional<std::string> replaced = parsableJson(text);
    BindingsHandler handler;
    if (!json::sax_parse(replaced ? std::string_view(*replaced) : text, &handler)) {
        return DecodingFailure{handler.reason()};
    }
    return handler.takeBindings();
}

} // namespace glidemap
