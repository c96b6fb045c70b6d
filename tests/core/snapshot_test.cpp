#include "core/snapshot.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace glidemap {
namespace {

TEST(SnapshotTest, HoldsADefaultValueUntilSet) {
    EXPECT_EQ(*Snapshot<int>().get(), 0);
    EXPECT_EQ(*Snapshot<int>(7).get(), 7);
}

TEST(SnapshotTest, ReaderKeepsTheValueThatItLoaded) {
    Snapshot<std::vector<int>> snapshot({1, 2});
    const auto before = snapshot.get();
    snapshot.set({3});
    EXPECT_EQ(*before, (std::vector{1, 2}));
    EXPECT_EQ(*snapshot.get(), std::vector{3});
}

TEST(SnapshotTest, OldValueIsDestroyedWithItsLastReader) {
    const auto value = std::make_shared<int>(1);
    Snapshot<std::shared_ptr<int>> snapshot(value);
    auto reader = snapshot.get();
    snapshot.set(nullptr);
    EXPECT_EQ(value.use_count(), 2);
    reader.reset();
    EXPECT_EQ(value.use_count(), 1);
}

// If the old value's destructor ran under the lock, it would deadlock when it reads the current
// value.
TEST(SnapshotTest, OldValueIsDestroyedOutsideTheLock) {
    struct Reader;
    using Box = Snapshot<std::shared_ptr<Reader>>;
    struct Reader {
        explicit Reader(Box& readBox) : box(readBox) {}
        Reader(const Reader&) = delete;
        Reader& operator=(const Reader&) = delete;
        ~Reader() { EXPECT_EQ(*box.get(), nullptr); }
        Box& box;
    };
    Box snapshot;
    snapshot.set(std::make_shared<Reader>(snapshot));
    snapshot.set(nullptr);
}

TEST(SnapshotTest, ReaderNeverSeesAPartialChange) {
    Snapshot<std::vector<int>> snapshot(std::vector(64, 0));
    std::atomic<bool> done = false;
    std::atomic<int> reads = 0;
    std::thread reader([&] {
        while (!done) {
            const auto seen = snapshot.get();
            EXPECT_EQ(*seen, std::vector(64, seen->front()));
            ++reads;
        }
    });
    for (int value = 1; reads < 200; ++value) {
        snapshot.set(std::vector(64, value));
    }
    done = true;
    reader.join();
}

} // namespace
} // namespace glidemap
