// Judges one object of a bindings file: either it is a binding, or there is a reason.
//
// Thread:  any; one decoder for one object.
// Errors:  the reason, in words, says where in the object and what.
#pragma once

#include "bindings/binding_object.h"
#include "bindings/gesture_binding.h"

#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

class BindingObjectDecoder {
public:
    // Takes the object's texts.
    std::optional<GestureBinding> decode(BindingObject& object);

    // "action.kind: missing"
    const std::string& reason() const { return _reason; }

private:
    // An object of the binding, and how its keys are named for people: "action.".
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
    std::optional<std::uint64_t> integer(const Part& part, BindingKey key, std::uint64_t most);

    template <typename Value>
    Value* valueOf(const Part& part, BindingKey key, std::string_view wanted);
    void fail(const Part& part, BindingKey key, std::string_view what);
    void failText(const Part& part, BindingKey key, std::string_view text, std::string_view wanted);

    std::string _reason; // the first
};

// The text in quotes, short and without anything that a terminal would obey.
std::string quotedForPeople(std::string_view text);

} // namespace glidemap
