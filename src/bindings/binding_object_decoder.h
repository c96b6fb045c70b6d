// Validates one object of a bindings file: returns a binding or an error.
//
// Thread:  any; use one decoder per object.
// Errors:  an error message with the location in the object and the problem.
#pragma once

#include "bindings/binding_object.h"
#include "bindings/gesture_binding.h"

#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

class BindingObjectDecoder {
public:
    // Moves the texts out of the object.
    std::optional<GestureBinding> decode(BindingObject& object);

    // "action.kind: missing"
    const std::string& reason() const { return _reason; }

private:
    // An object within the binding, and the prefix of its keys in error messages: "action.".
    struct Part {
        BindingObject& object;
        std::string_view prefix;
    };

    std::optional<Uuid> identifier(const Part& part);
    std::optional<GestureType> gesture(const Part& part);
    std::optional<BindingAction> action(const Part& binding);
    std::optional<BindingAction> shortcut(const Part& action);
    std::optional<BindingAction> launch(const Part& action);
    std::optional<BindingScope> scope(const Part& binding);

    std::optional<Part> part(const Part& of, BindingKey key, std::string_view prefix);
    std::optional<std::string> text(const Part& part, BindingKey key);
    std::optional<bool> flag(const Part& part, BindingKey key);
    std::optional<std::uint64_t> integer(const Part& part, BindingKey key, std::uint64_t max);

    template <typename Value>
    Value* valueOf(const Part& part, BindingKey key, std::string_view wanted);
    void fail(const Part& part, BindingKey key, std::string_view what);
    void failText(const Part& part, BindingKey key, std::string_view text, std::string_view wanted);

    std::string _reason; // the first error
};

// The text in quotes, shortened, without characters that a terminal interprets.
std::string quotedForDisplay(std::string_view text);

} // namespace glidemap
