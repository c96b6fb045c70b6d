// The engine's threads read the list while the main thread changes it.
#include "binding_printers.h"
#include "bindings/binding_store.h"
#include "support_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <latch>
#include <string>
#include <thread>

namespace glidemap {
namespace {

constexpr std::array sizes = {0, 1, 40};
constexpr int readsOfEach = 300;

// All bindings of a list share a key code, which identifies the list.
BindingList listNumber(std::size_t number) {
    const auto size = static_cast<std::size_t>(sizes[number]);
    BindingList list(size, {.gesture = GestureType::twoFingerDoubleTap,
                            .action = KeyShortcut{static_cast<std::uint16_t>(number), number},
                            .scope = GlobalScope{}});
    for (std::size_t place = 1; place < list.size(); place += 2) {
        const std::string name =
            "A name too long to be held in the text itself " + std::to_string(number);
        list[place].scope = AppScope{"org.example.App", name};
    }
    return list;
}

std::size_t numberOf(const GestureBinding& binding) {
    return std::get<KeyShortcut>(binding.action).keyCode;
}

void readWhole(const BindingStore& store) {
    const auto list = store.bindings();
    const std::size_t number = list->empty() ? 0 : numberOf(list->front());
    ASSERT_EQ(static_cast<int>(list->size()), sizes[number]);
    for (const GestureBinding& binding : *list) {
        ASSERT_EQ(numberOf(binding), number);
    }
}

void readMatch(const BindingStore& store) {
    const auto binding = store.match(GestureType::twoFingerDoubleTap, "org.example.App");
    if (binding == nullptr) {
        return; // the list is empty
    }
    const auto* const app = std::get_if<AppScope>(&binding->scope);
    ASSERT_EQ(app != nullptr, numberOf(*binding) == 2) << "only the longest list has one";
    if (app != nullptr) {
        ASSERT_EQ(app->name.back(), '2');
    }
}

TEST(BindingStoreThreadsTest, ReaderSeesOnlyCompleteAssignedLists) {
    const SupportFolder support;
    BindingStore store = support.launch();
    std::array<BindingList, sizes.size()> lists;
    for (std::size_t number = 0; number < lists.size(); ++number) {
        lists[number] = listNumber(number);
    }
    store.setBindings(lists[0]);

    std::atomic<bool> done = false;
    std::array<std::atomic<int>, 3> reads = {0, 0, 0};
    const auto repeat = [&](std::size_t which, auto read) {
        return std::thread([&store, &done, &count = reads[which], read] {
            while (!done) {
                read(store);
                ++count;
            }
        });
    };
    std::array readers = {repeat(0, readWhole), repeat(1, readMatch),
                          repeat(2, [](const auto& of) { of.doubleTapBindingExists(2); })};
    const auto enough = [&] {
        return reads[0] > readsOfEach && reads[1] > readsOfEach && reads[2] > readsOfEach;
    };
    for (std::size_t number = 0; number < 100 || !enough(); ++number) {
        store.setBindings(lists[number % lists.size()]);
    }
    done = true;
    for (std::thread& reader : readers) {
        reader.join();
    }
}

// A list that the engine still holds does not delay the main thread.
TEST(BindingStoreThreadsTest, ReaderThatKeepsItsListDoesNotBlockTheWriter) {
    const SupportFolder support;
    BindingStore store = support.launch();
    std::latch taken(1);
    std::latch assigned(1);
    std::thread reader([&] {
        const auto list = store.bindings();
        const BindingList copy = *list;
        taken.count_down();
        assigned.wait();
        EXPECT_EQ(*list, copy);
    });
    taken.wait();
    store.setBindings(listNumber(2));
    assigned.count_down();
    reader.join();
}

} // namespace
} // namespace glidemap
