#include "binding_printers.h"
#include "bindings/binding_store.h"
#include "support_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace glidemap {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t optionCommand = 0x180000;

class BindingStoreTest : public testing::Test {
protected:
    SupportFolder support;
};

BindingList oneBinding(GestureType gesture = GestureType::twoFingerTap) {
    return {{.gesture = gesture, .action = MissionControl{}, .scope = GlobalScope{}}};
}

BindingList inFile(const SupportFolder& support) {
    auto decoded = decodeBindings(contentOf(support.file()));
    auto* const list = std::get_if<BindingList>(&decoded);
    EXPECT_NE(list, nullptr) << std::get<DecodingFailure>(decoded).reason;
    return list != nullptr ? *list : BindingList();
}

// Compares everything except the identifiers, which are always new.
void expectDefaults(const BindingList& list) {
    BindingList expected = {
        {.gesture = GestureType::drawCircle, .action = LockScreen{}, .scope = GlobalScope{}},
        {.gesture = GestureType::fixAndTapRight,
         .action = KeyShortcut{124, optionCommand},
         .scope = GlobalScope{}},
        {.gesture = GestureType::fixAndTapLeft,
         .action = KeyShortcut{123, optionCommand},
         .scope = GlobalScope{}},
    };
    std::unordered_set<Uuid> identifiers;
    for (std::size_t place = 0; place < list.size(); ++place) {
        identifiers.insert(list[place].id);
        if (place < expected.size()) {
            expected[place].id = list[place].id;
        }
    }
    EXPECT_EQ(list, expected);
    EXPECT_EQ(identifiers.size(), list.size());
}

TEST_F(BindingStoreTest, FirstLaunchCreatesTheFoldersAndWritesTheDefaults) {
    const fs::path deeper = support.path() / "not" / "there";
    const BindingStore store([&] { return deeper; });
    expectDefaults(*store.bindings());
    EXPECT_EQ(contentOf(deeper / "Glidemap" / "bindings.json"), encodeBindings(*store.bindings()));
    EXPECT_EQ(namesIn(deeper / "Glidemap"), std::vector<std::string>{"bindings.json"});
}

TEST_F(BindingStoreTest, EachCallOfDefaultBindingsReturnsNewIdentifiers) {
    EXPECT_NE(defaultBindings().front().id, defaultBindings().front().id);
    expectDefaults(defaultBindings());
}

TEST_F(BindingStoreTest, NextLaunchLoadsTheDefaultsWrittenByTheFirstLaunch) {
    const BindingList first = *support.launch().bindings();
    EXPECT_EQ(*support.launch().bindings(), first);
}

TEST_F(BindingStoreTest, ValidFileIsLoadedUnchangedAndNotWritten) {
    GestureBinding binding = oneBinding().front();
    binding.enabled = false;
    const std::string compact = [&] {
        std::string text = encodeBindings({binding, binding});
        std::erase(text, '\n');
        return text;
    }();
    support.write(compact);
    fs::permissions(support.file(), fs::perms::owner_all | fs::perms::group_read);
    const BindingStore store = support.launch();
    EXPECT_EQ(*store.bindings(), (BindingList{binding, binding})) << "no check for duplicates";
    EXPECT_EQ(contentOf(support.file()), compact);
    EXPECT_EQ(fs::status(support.file()).permissions(),
              fs::perms::owner_all | fs::perms::group_read);
}

TEST_F(BindingStoreTest, EmptyArrayIsLoadedAsAnEmptyList) {
    support.write("[]");
    EXPECT_TRUE(support.launch().bindings()->empty());
    EXPECT_EQ(contentOf(support.file()), "[]");
}

TEST_F(BindingStoreTest, InvalidFileIsReplacedByTheDefaults) {
    std::string oneBad = encodeBindings(*support.launch().bindings());
    const std::string gesture = "fixAndTapLeft";
    oneBad.replace(oneBad.find(gesture), gesture.size(), "fixAndTapLow");
    using namespace std::string_literals;
    for (const std::string& content :
         {""s, "["s, "{}"s, "null"s, "[{}]"s, "[]\0"s, "[]x"s, "\xFF"s, oneBad,
          oneBad.substr(0, oneBad.size() / 2), std::string(100'000, '[')}) {
        support.write(content);
        const BindingStore store = support.launch();
        expectDefaults(*store.bindings());
        EXPECT_EQ(contentOf(support.file()), encodeBindings(*store.bindings()));
        EXPECT_EQ(namesIn(support.folder()), std::vector<std::string>{"bindings.json"})
            << "no copy of the bad file";
    }
}

TEST_F(BindingStoreTest, PipeAtTheFilePathIsReplacedByTheDefaults) {
    fs::create_directory(support.folder());
    ASSERT_EQ(mkfifo(support.file().c_str(), 0600), 0);
    const BindingStore store = support.launch();
    expectDefaults(*store.bindings());
    EXPECT_EQ(inFile(support), *store.bindings());
}

TEST_F(BindingStoreTest, DefaultsStayInMemoryIfTheFilePathIsAFolder) {
    fs::create_directories(support.file());
    BindingStore store = support.launch();
    expectDefaults(*store.bindings());
    EXPECT_TRUE(fs::is_directory(support.file()));
    fs::remove(support.file());
    store.setBindings(oneBinding());
    EXPECT_EQ(inFile(support), *store.bindings());
}

TEST_F(BindingStoreTest, EveryAssignmentReplacesTheListInMemoryAndOnDisk) {
    BindingStore store = support.launch();
    for (const BindingList& list :
         {oneBinding(), BindingList(), oneBinding(GestureType::pinchIn), defaultBindings()}) {
        store.setBindings(list);
        EXPECT_EQ(*store.bindings(), list);
        EXPECT_EQ(contentOf(support.file()), encodeBindings(list));
        EXPECT_EQ(*support.launch().bindings(), list);
    }
}

TEST_F(BindingStoreTest, SymbolicLinkToTheFileIsKept) {
    fs::create_directory(support.folder());
    fs::create_symlink("../kept.json", support.file());
    BindingStore store = support.launch();
    store.setBindings(oneBinding());
    EXPECT_EQ(fs::read_symlink(support.file()), "../kept.json");
    EXPECT_EQ(contentOf(support.path() / "kept.json"), encodeBindings(*store.bindings()));
}

TEST_F(BindingStoreTest, AssignmentNotifiesBeforeTheChangeAndAfterSavingIt) {
    BindingStore store = support.launch();
    const std::string before = contentOf(support.file());
    const BindingList list = oneBinding();
    std::vector<std::string> log;
    const auto note = [&](const std::string& moment) {
        log.push_back(moment + (*store.bindings() == list ? ": new list" : ": old list") +
                      (contentOf(support.file()) == before ? ", old file" : ", new file"));
    };
    const auto subscription =
        store.changes().subscribe([&] { note("will change"); }, [&] { note("did change"); });
    store.setBindings(list);
    EXPECT_EQ(log, (std::vector<std::string>{"will change: old list, old file",
                                             "did change: new list, new file"}));
}

TEST_F(BindingStoreTest, AssigningTheSameListNotifiesAndSaves) {
    BindingStore store = support.launch();
    int announced = 0;
    const auto subscription = store.changes().subscribe([&] { ++announced; });
    fs::remove(support.file());
    store.setBindings(*store.bindings());
    EXPECT_EQ(announced, 1);
    EXPECT_EQ(inFile(support), *store.bindings());
}

TEST_F(BindingStoreTest, ObserverMayChangeTheListDuringItsNotification) {
    BindingStore store = support.launch();
    const BindingList last = oneBinding(GestureType::pinchOut);
    bool changed = false;
    const auto subscription = store.changes().subscribe({}, [&] {
        if (!std::exchange(changed, true)) {
            store.setBindings(last);
        }
    });
    store.setBindings(oneBinding());
    EXPECT_EQ(*store.bindings(), last);
    EXPECT_EQ(inFile(support), last);
}

TEST_F(BindingStoreTest, SavingWritesTheListWithoutANotification) {
    BindingStore store = support.launch();
    const auto subscription = store.changes().subscribe([] { ADD_FAILURE() << "announced"; });
    fs::remove_all(support.folder());
    store.save();
    EXPECT_EQ(inFile(support), *store.bindings());
}

TEST_F(BindingStoreTest, ListThatCannotBeSavedStaysInMemoryAndTheNextChangeRetries) {
    BindingStore store = support.launch();
    fs::remove_all(support.path());
    writeContent(support.path(), "not a folder"); // makes saving fail even for root
    const BindingList list = oneBinding();
    store.setBindings(list);
    EXPECT_EQ(*store.bindings(), list);
    EXPECT_EQ(contentOf(support.path()), "not a folder");
    fs::remove(support.path());
    store.setBindings(list);
    EXPECT_EQ(inFile(support), list);
}

TEST_F(BindingStoreTest, FailedSaveKeepsItsErrorUntilASaveSucceeds) {
    BindingStore store = support.launch();
    EXPECT_FALSE(store.saveFailure());
    fs::remove_all(support.path());
    writeContent(support.path(), "not a folder");
    store.setBindings(oneBinding());
    EXPECT_EQ(store.saveFailure(), std::errc::not_a_directory);
    store.saveIfLastSaveFailed();
    EXPECT_EQ(store.saveFailure(), std::errc::not_a_directory);
    fs::remove(support.path());
    store.saveIfLastSaveFailed();
    EXPECT_FALSE(store.saveFailure());
    EXPECT_EQ(inFile(support), *store.bindings());
}

TEST_F(BindingStoreTest, SaveIfLastSaveFailedDoesNothingAfterASuccessfulSave) {
    BindingStore store = support.launch();
    fs::remove(support.file());
    store.saveIfLastSaveFailed();
    EXPECT_FALSE(fs::exists(support.file()));
}

TEST_F(BindingStoreTest, OnlyTheOwnerCanAccessTheFolder) {
    const auto rights = [&] {
        return fs::status(support.folder()).permissions();
    };
    const mode_t before = umask(0);
    support.launch();
    umask(before);
    EXPECT_EQ(rights(), fs::perms::owner_all);
    fs::permissions(support.folder(), fs::perms::all);
    support.launch();
    EXPECT_EQ(rights(), fs::perms::owner_all);
}

TEST_F(BindingStoreTest, KeepsTheOwnerPermissionsOfAnExistingFolder) {
    support.launch();
    fs::permissions(support.folder(), fs::perms::owner_read | fs::perms::owner_exec |
                                          fs::perms::group_all | fs::perms::others_exec);
    support.launch();
    EXPECT_EQ(fs::status(support.folder()).permissions(),
              fs::perms::owner_read | fs::perms::owner_exec);
    fs::permissions(support.folder(), fs::perms::owner_all);
}

TEST_F(BindingStoreTest, FolderOfAnotherUserIsNotChanged) {
    support.launch();
    if (chown(support.folder().c_str(), 65534, 65534) != 0) {
        GTEST_SKIP() << "only root may give a folder away";
    }
    fs::permissions(support.folder(), fs::perms::all);
    const BindingStore store = support.launch();
    EXPECT_EQ(fs::status(support.folder()).permissions(), fs::perms::all);
    EXPECT_FALSE(store.saveFailure());
}

TEST_F(BindingStoreTest, LockOnTheFolderDoesNotBlockASave) {
    BindingStore store = support.launch();
    const int held = open(support.folder().c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(flock(held, LOCK_EX), 0);
    store.setBindings(oneBinding());
    EXPECT_EQ(inFile(support), *store.bindings());
    close(held);
}

TEST_F(BindingStoreTest, LaunchThatCannotSaveUsesTheDefaultsAndSavesTheFirstChange) {
    fs::remove_all(support.path());
    writeContent(support.path(), "not a folder");
    BindingStore store = support.launch();
    expectDefaults(*store.bindings());
    fs::remove(support.path());
    store.setBindings(oneBinding());
    EXPECT_EQ(inFile(support), *store.bindings());
}

TEST_F(BindingStoreTest, QueriesTheFolderLocationForEachSave) {
    const SupportFolder other;
    fs::path answer = support.path();
    BindingStore store([&] { return answer; });
    const BindingList first = *store.bindings();
    answer = other.path();
    store.setBindings(oneBinding());
    EXPECT_EQ(inFile(support), first);
    EXPECT_EQ(inFile(other), *store.bindings());
}

TEST_F(BindingStoreTest, ListHeldByAReaderIsNotAffectedByAssignments) {
    BindingStore store = support.launch();
    const auto list = store.bindings();
    const auto match = store.match(GestureType::drawCircle, std::nullopt);
    const BindingList copy = *list;
    store.setBindings({});
    EXPECT_EQ(*list, copy);
    ASSERT_NE(match, nullptr);
    EXPECT_EQ(*match, copy.front());
    EXPECT_EQ(store.match(GestureType::drawCircle, std::nullopt), nullptr);
}

TEST_F(BindingStoreTest, MatchesAgainstTheCurrentList) {
    BindingStore store = support.launch();
    EXPECT_EQ(store.match(GestureType::twoFingerTap, "a"), nullptr);
    BindingList list = oneBinding();
    list.push_back(list.front());
    list.back().scope = AppScope{"a", "A"};
    store.setBindings(list);
    EXPECT_EQ(*store.match(GestureType::twoFingerTap, "a"), list[1]);
    EXPECT_EQ(*store.match(GestureType::twoFingerTap, "b"), list[0]);
    EXPECT_EQ(*store.match(GestureType::twoFingerTap, std::nullopt), list[0]);
    list.front().enabled = false;
    store.setBindings(list);
    EXPECT_EQ(store.match(GestureType::twoFingerTap, "b"), nullptr);
}

struct DoubleTap {
    GestureType gesture;
    int fingerCount;
};

TEST_F(BindingStoreTest, FindsDoubleTapsWithEachFingerCount) {
    BindingStore store = support.launch();
    constexpr DoubleTap rows[] = {{GestureType::twoFingerDoubleTap, 2},
                                  {GestureType::threeFingerDoubleTap, 3},
                                  {GestureType::fourFingerDoubleTap, 4}};
    for (const DoubleTap& row : rows) {
        store.setBindings(oneBinding(row.gesture));
        for (int fingerCount = -1; fingerCount <= 12; ++fingerCount) {
            EXPECT_EQ(store.doubleTapBindingExists(fingerCount), fingerCount == row.fingerCount)
                << fingerCount;
        }
    }
}

TEST_F(BindingStoreTest, FindsADoubleTapThatIsBoundForOnlyOneApplication) {
    BindingStore store = support.launch();
    BindingList list = oneBinding(GestureType::twoFingerDoubleTap);
    list.front().scope = AppScope{"a", "A"};
    store.setBindings(list);
    EXPECT_TRUE(store.doubleTapBindingExists(2));
}

TEST_F(BindingStoreTest, IgnoresADisabledDoubleTap) {
    BindingStore store = support.launch();
    BindingList list = oneBinding(GestureType::twoFingerDoubleTap);
    list.front().enabled = false;
    store.setBindings(list);
    EXPECT_FALSE(store.doubleTapBindingExists(2));
    list.push_back(oneBinding(GestureType::twoFingerDoubleTap).front());
    store.setBindings(list);
    EXPECT_TRUE(store.doubleTapBindingExists(2));
}

TEST_F(BindingStoreTest, FindsNoDoubleTapIfOnlyOtherGesturesAreBound) {
    BindingStore store = support.launch();
    BindingList list;
    for (const GestureType gesture : allGestureTypes) {
        if (category(gesture) != GestureCategory::doubleTap) {
            list.push_back(oneBinding(gesture).front());
        }
    }
    store.setBindings(list);
    constexpr int largest = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    for (const int fingerCount : {least, -1, 0, 1, 2, 3, 4, 5, 10, 256 + 2, largest}) {
        EXPECT_FALSE(store.doubleTapBindingExists(fingerCount)) << fingerCount;
    }
}

using BindingStoreDeathTest = BindingStoreTest;

TEST_F(BindingStoreDeathTest, AbortsWithoutAFolderForApplicationData) {
    EXPECT_EXIT(BindingStore([] { return fs::path(); }), testing::KilledBySignal(SIGABRT),
                "glidemap: cannot find the folder for application data");
}

} // namespace
} // namespace glidemap
