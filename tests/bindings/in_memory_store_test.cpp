#include "bindings/binding_store.h"
#include "kit/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace glidemap {
namespace {

using testing::ElementsAre;

// Makes an empty folder the working folder for the duration of a scope. A file that a store wrote
// to a relative path would appear in it.
class InEmptyFolder {
public:
    InEmptyFolder() : before(std::filesystem::current_path()) {
        std::filesystem::current_path(folder.path());
    }
    InEmptyFolder(const InEmptyFolder&) = delete;
    InEmptyFolder& operator=(const InEmptyFolder&) = delete;
    ~InEmptyFolder() {
        std::error_code ignored;
        std::filesystem::current_path(before, ignored);
    }

    bool isEmpty() const { return std::filesystem::is_empty(folder.path()); }

private:
    std::filesystem::path before;
    test::TemporaryFolder folder;
};

GestureBinding locking(GestureType gesture) {
    return {.gesture = gesture, .action = LockScreen{}, .scope = GlobalScope{}};
}

TEST(InMemoryStoreTest, KeepsAssignedListsWithoutWritingAFile) {
    const InEmptyFolder folder;
    const GestureBinding tap = locking(GestureType::twoFingerTap);
    const GestureBinding click = locking(GestureType::twoFingerClick);
    BindingStore store(BindingList{tap});
    EXPECT_THAT(*store.bindings(), ElementsAre(tap));
    EXPECT_NE(store.match(GestureType::twoFingerTap, std::nullopt), nullptr);

    int announced = 0;
    const Subscription subscription = store.changes().subscribe({}, [&] { ++announced; });
    store.setBindings({click});
    store.save();
    EXPECT_EQ(announced, 1);
    EXPECT_THAT(*store.bindings(), ElementsAre(click));
    EXPECT_EQ(store.match(GestureType::twoFingerTap, std::nullopt), nullptr);
    EXPECT_TRUE(folder.isEmpty());
}

TEST(InMemoryStoreTest, EmptyListIsNotReplacedByTheDefaults) {
    EXPECT_TRUE(BindingStore(BindingList{}).bindings()->empty());
}

} // namespace
} // namespace glidemap
