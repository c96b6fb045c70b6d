// Tests the bindings store on a full or read-only disk, and with files that the user may not
// access. The tests mount a file system of 256 KiB.
#include "binding_printers.h"
#include "bindings/binding_store.h"
#include "support_folder.h"
#include "unprivileged.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string>

namespace glidemap::test {

namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

constexpr std::size_t page = 4096;

class SmallDisk {
public:
    SmallDisk() {
        EXPECT_EQ(mount("none", mountPoint.path().c_str(), "tmpfs", 0, "size=256k,nr_inodes=16"),
                  0);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk() { EXPECT_EQ(umount(mountPoint.path().c_str()), 0); }

    fs::path path() const { return mountPoint.path(); }

    // Fills the disk until only `left` bytes are free.
    void fill(std::size_t left) const {
        const int file = open(filler().c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        const std::array<char, page> zeros{};
        while (write(file, zeros.data(), zeros.size()) > 0) {
        }
        EXPECT_EQ(errno, ENOSPC);
        const off_t size = lseek(file, 0, SEEK_END);
        EXPECT_EQ(ftruncate(file, size - static_cast<off_t>(left)), 0);
        close(file);
    }
    void makeRoom() const { fs::remove(filler()); }

    // Creates files until the file system has no free inode.
    void fillNames() const {
        int count = 0;
        while (true) {
            const fs::path file = path() / ("name" + std::to_string(count));
            const int made = open(file.c_str(), O_WRONLY | O_CREAT, 0600);
            if (made == -1) {
                EXPECT_EQ(errno, ENOSPC);
                EXPECT_GT(count, 0);
                return;
            }
            close(made);
            ++count;
        }
    }
    void freeOneName() const { fs::remove(path() / "name0"); }

    void setReadOnly(bool readOnly) const {
        const unsigned long flags = MS_REMOUNT | (readOnly ? MS_RDONLY : 0);
        EXPECT_EQ(mount("none", path().c_str(), "tmpfs", flags, nullptr), 0);
    }

private:
    fs::path filler() const { return path() / "filler"; }

    SupportFolder mountPoint;
};

BindingList listWithName(std::size_t length) {
    return {{.gesture = GestureType::twoFingerTap,
             .action = LaunchApp{"org.example.App", std::string(length, 'n')},
             .scope = GlobalScope{}}};
}

class BindingsOnDisk : public testing::Test {
protected:
    fs::path file() const { return disk.path() / "Glidemap" / "bindings.json"; }
    BindingStore launch() const {
        return BindingStore([this] { return disk.path(); });
    }
    void expectOnDisk(const BindingList& list) const {
        EXPECT_EQ(contentOf(file()), encodeBindings(list));
        EXPECT_EQ(namesIn(disk.path() / "Glidemap"), Names{"bindings.json"});
    }

    SmallDisk disk;
};

using FullDisk = BindingsOnDisk;

struct Row {
    const char* name;
    std::size_t left;
    std::size_t length;
};

TEST_F(FullDisk, KeepsTheSavedBindingsUntilASaveSucceeds) {
    constexpr Row rows[] = {
        {"no page left", 0, 10},
        {"one page left for two", page, page},
        {"room for half of the list", 8 * page, 16 * page},
        {"a page is missing at the end", 15 * page, 16 * page - 10},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        BindingStore store = launch();
        const BindingList old = listWithName(20);
        store.setBindings(old);
        disk.fill(row.left);
        const BindingList changed = listWithName(row.length);
        store.setBindings(changed);
        EXPECT_EQ(*store.bindings(), changed);
        expectOnDisk(old);
        EXPECT_EQ(*launch().bindings(), old);

        disk.makeRoom();
        store.setBindings(changed);
        expectOnDisk(changed);
    }
}

TEST_F(FullDisk, SavesBindingsThatFitIntoTheFreeSpace) {
    BindingStore store = launch();
    disk.fill(page);
    store.setBindings(listWithName(2 * page));
    store.setBindings(listWithName(10));
    expectOnDisk(*store.bindings());
}

TEST_F(FullDisk, ProvidesDefaultBindingsOnTheFirstLaunch) {
    disk.fill(0);
    BindingStore store = launch();
    EXPECT_EQ(store.bindings()->size(), 3U);
    EXPECT_FALSE(fs::exists(file()));
    disk.makeRoom();
    store.setBindings(*store.bindings());
    expectOnDisk(*store.bindings());
}

TEST_F(FullDisk, KeepsTheSavedBindingsWhileNoInodeIsFree) {
    BindingStore store = launch();
    const BindingList old = *store.bindings();
    disk.fillNames();
    store.setBindings(listWithName(10));
    expectOnDisk(old);
    disk.freeOneName();
    store.setBindings(listWithName(20));
    expectOnDisk(*store.bindings());
}

TEST_F(BindingsOnDisk, KeepsTheSavedBindingsWhileTheDiskIsReadOnly) {
    BindingStore store = launch();
    const BindingList old = *store.bindings();
    disk.setReadOnly(true);
    const BindingList changed = listWithName(10);
    store.setBindings(changed);
    EXPECT_EQ(*store.bindings(), changed);
    expectOnDisk(old);
    disk.setReadOnly(false);
    store.setBindings(changed);
    expectOnDisk(changed);
}

// Runs without root's rights, because root may write to any folder.
TEST_F(BindingsOnDisk, KeepsTheSavedBindingsWhileTheFolderIsReadOnly) {
    BindingStore store = launch();
    const BindingList old = *store.bindings();
    const fs::path folder = disk.path() / "Glidemap";
    const BindingList changed = listWithName(10);
    fs::permissions(disk.path(), fs::perms::all);
    fs::permissions(file(), fs::perms::all);
    {
        const Unprivileged user;
        store.setBindings(changed);
    }
    EXPECT_EQ(*store.bindings(), changed);
    expectOnDisk(old);
    fs::permissions(folder, fs::perms::all);
    {
        const Unprivileged user;
        store.setBindings(changed);
    }
    expectOnDisk(changed);
}

TEST_F(BindingsOnDisk, ReplacesAnUnreadableFileWithTheDefaultBindings) {
    launch().setBindings(listWithName(10));
    fs::permissions(disk.path(), fs::perms::all);
    fs::permissions(disk.path() / "Glidemap", fs::perms::all);
    fs::permissions(file(), fs::perms::none);
    const auto list = [this] {
        const Unprivileged user;
        return launch().bindings();
    }();
    EXPECT_EQ(list->size(), 3U);
    expectOnDisk(*list);
}

} // namespace

} // namespace glidemap::test
