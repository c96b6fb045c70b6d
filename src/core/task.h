// A function object that runs once, later, possibly on another thread.
//
// It is move-only and takes no arguments. Its captures are stored inline, so submitting a task
// never allocates: a frame of contacts reaches the engine's queue as a task hundreds of times a
// second.
//
// Errors:  captures larger than the inline storage do not compile. Calling an empty task
//          is a programming error.
#pragma once

#include <array>
#include <cstddef>
#include <new>
#include <type_traits>
#include <utility>

namespace glidemap {

class Task {
public:
    // In bytes: enough for a frame, its change number and a weak reference to the engine, with some
    // room to spare.
    static constexpr std::size_t capacity = 96;

    Task() = default;

    template <typename Function>
    requires(!std::is_same_v<std::remove_cvref_t<Function>, Task>)
        Task(Function&&
                 function) { // NOLINT(google-explicit-constructor): a task is made from any lambda
        using Held = std::remove_cvref_t<Function>;
        static_assert(sizeof(Held) <= capacity, "the captures do not fit into a task");
        static_assert(alignof(Held) <= alignof(std::max_align_t));
        static_assert(std::is_nothrow_move_constructible_v<Held>);
        new (storage.data()) Held(std::forward<Function>(function));
        operations = &operationsOf<Held>;
    }

    Task(Task&& other) noexcept { take(other); }

    Task& operator=(Task&& other) noexcept {
        if (this != &other) {
            clear();
            take(other);
        }
        return *this;
    }

    Task(const Task&) = delete;
    Task& operator=(const Task&) = delete;
    ~Task() { clear(); }

    void operator()() { operations->call(storage.data()); }

    explicit operator bool() const { return operations != nullptr; }

private:
    struct Operations {
        void (*call)(void* held);
        void (*moveTo)(void* held, void* destination);
        void (*destroy)(void* held);
    };

    template <typename Held>
    static constexpr Operations operationsOf = {
        [](void* held) { (*static_cast<Held*>(held))(); },
        [](void* held, void* destination) {
            new (destination) Held(std::move(*static_cast<Held*>(held)));
            static_cast<Held*>(held)->~Held();
        },
        [](void* held) { static_cast<Held*>(held)->~Held(); },
    };

    void take(Task& other) {
        operations = std::exchange(other.operations, nullptr);
        if (operations != nullptr) {
            operations->moveTo(other.storage.data(), storage.data());
        }
    }

    void clear() {
        if (operations != nullptr) {
            std::exchange(operations, nullptr)->destroy(storage.data());
        }
    }

    alignas(std::max_align_t) std::array<std::byte, capacity> storage;
    const Operations* operations = nullptr;
};

} // namespace glidemap
