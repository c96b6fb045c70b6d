#include "application.h"
#include "kit/patience.h"
#include "kit/temporary_folder.h"
#include "platform/qt/line_listener.h"
#include "platform/qt/single_instance.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTimer>
#include <array>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <functional>
#include <iterator>
#include <latch>
#include <memory>
#include <string>
#include <vector>

namespace glidemap {
namespace {

using test::Application;
using Claim = SingleInstance::Claim;
using Request = SingleInstance::Request;

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds soon{200};

// A pipe with which processes and the test signal events to each other.
class Signpost {
public:
    Signpost() { EXPECT_EQ(pipe(ends.data()), 0); }
    Signpost(const Signpost&) = delete;
    Signpost& operator=(const Signpost&) = delete;
    ~Signpost() {
        close(ends[0]);
        close(ends[1]);
    }

    void notify(char word = '!') const { EXPECT_EQ(write(ends[1], &word, 1), 1); }
    char wait() const {
        char word = 0;
        EXPECT_EQ(read(ends[0], &word, 1), 1);
        return word;
    }

private:
    std::array<int, 2> ends{};
};

// A child process that exits with the function's result, and does not outlive this test.
class Child {
public:
    explicit Child(const std::function<int()>& work) : process(fork()) {
        if (process == 0) {
            alarm(3 * test::patience.count()); // longer than all waits in the child
            _exit(work());
        }
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child() {
        if (process > 0) {
            kill(process, SIGKILL);
            waitForEnd();
        }
    }

    void send(int signal) const { kill(process, signal); }
    bool isRunning() const {
        siginfo_t end = {};
        return waitid(P_PID, static_cast<id_t>(process), &end, WEXITED | WNOHANG | WNOWAIT) == 0 &&
               end.si_pid == 0;
    }
    int waitForEnd() {
        int status = 0;
        waitpid(process, &status, 0);
        process = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }

private:
    pid_t process;
};

class SingleInstanceTest : public testing::Test {
protected:
    // Becomes the first instance, listens until a request arrives, and returns 7.
    int beFirst(const Signpost& listening) const {
        Application application;
        SingleInstance instance(folder.path());
        if (instance.claim({}) != Claim::first) {
            return 1;
        }
        const auto listenError = instance.listen([&](const Request& request) {
            asked = request;
            QTimer::singleShot(0, &Application::quit);
        });
        if (listenError) {
            return 3;
        }
        listening.notify();
        application.run();
        return asked == Request{"token", "id_TIME12"} ? 7 : 2;
    }

    int claimAsSecond(std::chrono::milliseconds patience = test::patience) const {
        SingleInstance instance(folder.path());
        return static_cast<int>(instance.claim({"token", "id_TIME12"}, patience));
    }

    std::filesystem::path file(const char* name) const { return folder.path() / name; }

    test::TemporaryFolder folder;
    mutable Request asked;
};

TEST_F(SingleInstanceTest, SecondInstanceSendsItsRequestToTheFirst) {
    const Signpost listening;
    Child first([&] { return beFirst(listening); });
    listening.wait();
    EXPECT_EQ(claimAsSecond(), static_cast<int>(Claim::shown));
    EXPECT_EQ(first.waitForEnd(), 7);
}

TEST_F(SingleInstanceTest, FilesAreAccessibleOnlyToTheUser) {
    Application application;
    SingleInstance instance(folder.path());
    ASSERT_EQ(instance.claim({}), Claim::first);
    ASSERT_EQ(instance.listen([](const Request&) {}), std::nullopt);
    for (const char* name : {"glidemap.lock", "glidemap.socket"}) {
        struct stat status = {};
        ASSERT_EQ(stat(file(name).c_str(), &status), 0) << name;
        EXPECT_EQ(status.st_mode & 0077U, 0U) << name;
    }
}

TEST_F(SingleInstanceTest, KilledInstanceDoesNotBlockTheNextInstance) {
    const Signpost listening;
    Child first([&] { return beFirst(listening); });
    listening.wait();
    first.send(SIGKILL);
    EXPECT_EQ(first.waitForEnd(), 128 + SIGKILL);
    EXPECT_TRUE(std::filesystem::exists(file("glidemap.socket")));
    const Signpost again;
    Child next([&] { return beFirst(again); });
    again.wait();
    EXPECT_EQ(claimAsSecond(), static_cast<int>(Claim::shown));
    EXPECT_EQ(next.waitForEnd(), 7);
}

TEST_F(SingleInstanceTest, ClaimTimesOutIfTheFirstInstanceHangs) {
    const Signpost listening;
    Child first([&] { return beFirst(listening); });
    listening.wait();
    first.send(SIGSTOP);
    EXPECT_EQ(claimAsSecond(soon), static_cast<int>(Claim::unanswered));
}

TEST_F(SingleInstanceTest, ClaimWaitsUntilTheFirstInstanceListens) {
    const Signpost claimed;
    const Signpost goOn;
    Child first([&] {
        Application application;
        SingleInstance instance(folder.path());
        if (instance.claim({}) != Claim::first) {
            return 1;
        }
        claimed.notify();
        goOn.wait();
        if (instance.listen([](const Request&) { QTimer::singleShot(0, &Application::quit); })) {
            return 2;
        }
        application.run();
        return 7;
    });
    claimed.wait();
    EXPECT_EQ(claimAsSecond(soon), static_cast<int>(Claim::unanswered));
    goOn.notify();
    EXPECT_EQ(claimAsSecond(), static_cast<int>(Claim::shown));
    EXPECT_EQ(first.waitForEnd(), 7);
}

TEST_F(SingleInstanceTest, SecondInstanceBecomesFirstIfTheFirstExits) {
    const Signpost ending;
    const Signpost begun;
    Child second([&] { // forks before the lock exists, because a child would inherit the lock
        ending.wait();
        begun.notify();
        return claimAsSecond();
    });
    Application application;
    auto first = std::make_unique<SingleInstance>(folder.path());
    ASSERT_EQ(first->claim({}), Claim::first);
    ASSERT_EQ(first->listen([](const Request&) {}), std::nullopt);
    first->stopListening();
    ending.notify();
    begun.wait();
    first.reset();
    EXPECT_EQ(second.waitForEnd(), static_cast<int>(Claim::first));
}

// The first instance keeps the lock until all children have tried to claim it.
TEST_F(SingleInstanceTest, ExactlyOneOfManySimultaneousInstancesIsFirst) {
    constexpr int programs = 12;
    for (int round = 0; round < 5; ++round) {
        const Signpost start;
        const Signpost claimed;
        const Signpost end;
        std::vector<std::unique_ptr<Child>> children;
        for (int number = 0; number < programs; ++number) {
            children.push_back(std::make_unique<Child>([&] {
                SingleInstance instance(folder.path());
                start.wait();
                const Claim claim = instance.claim({}, soon);
                claimed.notify(claim == Claim::first ? '1' : '2');
                end.wait();
                return 0;
            }));
        }
        for (int number = 0; number < programs; ++number) {
            start.notify();
        }
        int firsts = 0;
        for (int number = 0; number < programs; ++number) {
            firsts += claimed.wait() == '1' ? 1 : 0;
        }
        EXPECT_EQ(firsts, 1);
        for (int number = 0; number < programs; ++number) {
            end.notify();
        }
        for (const auto& child : children) {
            EXPECT_EQ(child->waitForEnd(), 0);
        }
    }
}

TEST_F(SingleInstanceTest, UsesAPrivateSubfolderIfOtherUsersCanOpenTheFolder) {
    fs::permissions(folder.path(), fs::perms::all);
    SingleInstance instance(folder.path());
    EXPECT_EQ(instance.claim({}), Claim::first);
    EXPECT_FALSE(fs::exists(file("glidemap.lock")));
    EXPECT_TRUE(fs::exists(file("glidemap/glidemap.lock")));
    EXPECT_EQ(fs::status(file("glidemap")).permissions(), fs::perms::owner_all);
}

TEST_F(SingleInstanceTest, SecondInstanceFindsTheFirstInAPrivateSubfolder) {
    fs::permissions(folder.path(), fs::perms::all);
    fs::create_directory(file("glidemap"));
    fs::permissions(file("glidemap"), fs::perms::all);
    const Signpost listening;
    Child first([&] { return beFirst(listening); });
    listening.wait();
    EXPECT_EQ(fs::status(file("glidemap")).permissions(), fs::perms::owner_all);
    EXPECT_EQ(claimAsSecond(), static_cast<int>(Claim::shown));
    EXPECT_EQ(first.waitForEnd(), 7);
}

TEST_F(SingleInstanceTest, DoesNotUseAFolderOwnedByAnotherUser) {
    const auto given = folder.path() / "given";
    fs::create_directory(given);
    fs::permissions(given, fs::perms::all);
    if (chown(given.c_str(), 65534, 65534) != 0) {
        GTEST_SKIP() << "only root may change the owner of a folder";
    }
    EXPECT_EQ(SingleInstance(given).claim({}), Claim::impossible);
    fs::permissions(given, fs::perms::owner_all);
    EXPECT_EQ(SingleInstance(given).claim({}), Claim::impossible);
    EXPECT_TRUE(fs::is_empty(given));
}

TEST_F(SingleInstanceTest, LinkToAFolderIsNotFollowed) {
    const auto elsewhere = folder.path() / "elsewhere";
    fs::create_directory(elsewhere);
    fs::permissions(elsewhere, fs::perms::owner_all);
    fs::create_symlink(elsewhere, file("link"));
    EXPECT_EQ(SingleInstance(file("link")).claim({}), Claim::impossible);

    fs::permissions(folder.path(), fs::perms::all);
    fs::create_symlink(elsewhere, file("glidemap"));
    EXPECT_EQ(SingleInstance(folder.path()).claim({}), Claim::impossible);
    EXPECT_TRUE(fs::is_empty(elsewhere));
}

TEST_F(SingleInstanceTest, DoesNotFollowALinkInPlaceOfTheLockFile) {
    const auto kept = folder.write("kept", "untouched");
    fs::permissions(kept, fs::perms::all);
    fs::create_symlink(kept, file("glidemap.lock"));
    SingleInstance instance(folder.path());
    EXPECT_EQ(instance.claim({}), Claim::first);
    EXPECT_FALSE(fs::is_symlink(file("glidemap.lock")));
    EXPECT_EQ(fs::status(kept).permissions(), fs::perms::all);
}

// A first instance that misbehaves: it holds the lock and listens, but replies as the test chooses.
class PretendedFirst {
public:
    // `user` is the owner that the system reports for the listening process.
    PretendedFirst(const fs::path& folder, const fs::path& socketFile, uid_t user = geteuid())
        : lock(open((folder / "glidemap.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)),
          socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        EXPECT_EQ(flock(lock, LOCK_EX), 0);
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        socketFile.native().copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(seteuid(user), 0);
        EXPECT_EQ(listen(socket, 8), 0);
        EXPECT_EQ(seteuid(getuid()), 0);
    }
    PretendedFirst(const PretendedFirst&) = delete;
    PretendedFirst& operator=(const PretendedFirst&) = delete;
    ~PretendedFirst() {
        close(socket);
        close(lock);
    }

    // Reads a line from the next client, replies with the parts, and returns the line.
    std::string hearAndAnswer(const std::vector<std::string>& parts) const {
        const int client = accept(socket, nullptr, nullptr);
        std::string received;
        char letter = 0;
        while (recv(client, &letter, 1, 0) == 1 && letter != '\n') {
            received += letter;
        }
        for (const std::string& part : parts) {
            EXPECT_EQ(send(client, part.data(), part.size(), MSG_NOSIGNAL), std::ssize(part));
        }
        close(client);
        return received;
    }

    // Returns all data from clients that have disconnected.
    std::string everythingHeard() const {
        fcntl(socket, F_SETFL, O_NONBLOCK);
        std::string received;
        char letter = 0;
        for (int client = 0; (client = accept(socket, nullptr, nullptr)) >= 0; close(client)) {
            ++clients;
            while (recv(client, &letter, 1, 0) == 1) {
                received += letter;
            }
        }
        return received;
    }
    mutable int clients = 0;

private:
    const int lock;
    const int socket;
};

TEST_F(SingleInstanceTest, ClaimAcceptsOnlyTheExactReply) {
    struct Row {
        std::vector<std::string> parts;
        Claim claim;
    };
    const Row rows[] = {
        {{"shown\n"}, Claim::shown},          {{"sh", "own\n"}, Claim::shown},
        {{"shown"}, Claim::unanswered},       {{"hidden\n"}, Claim::unanswered},
        {{"shown\nmore"}, Claim::unanswered},
    };
    for (const Row& row : rows) {
        fs::remove(file("glidemap.socket"));
        Signpost ready;
        Child second([&] {
            ready.wait();
            return claimAsSecond();
        });
        const PretendedFirst first(folder.path(), file("glidemap.socket"));
        ready.notify();
        EXPECT_EQ(first.hearAndAnswer(row.parts), "token\tid_TIME12");
        EXPECT_EQ(second.waitForEnd(), static_cast<int>(row.claim)) << row.parts.front();
    }
}

TEST_F(SingleInstanceTest, LinkToASocketIsNotFollowed) {
    fs::create_symlink(file("elsewhere"), file("glidemap.socket"));
    Signpost ready;
    Child second([&] {
        ready.wait();
        return claimAsSecond(soon);
    });
    const PretendedFirst first(folder.path(), file("elsewhere"));
    ready.notify();
    EXPECT_EQ(second.waitForEnd(), static_cast<int>(Claim::unanswered));
    EXPECT_EQ(first.everythingHeard(), "");
    EXPECT_EQ(first.clients, 0);
}

TEST_F(SingleInstanceTest, DoesNotSendTheTokenToAnotherUsersProcess) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root may become another user";
    }
    Signpost ready;
    Child second([&] {
        ready.wait();
        return claimAsSecond(soon);
    });
    constexpr uid_t nobody = 65534;
    const PretendedFirst first(folder.path(), file("glidemap.socket"), nobody);
    ready.notify();
    EXPECT_EQ(second.waitForEnd(), static_cast<int>(Claim::unanswered));
    EXPECT_EQ(first.everythingHeard(), "");
}

TEST_F(SingleInstanceTest, ClaimFailsIfTheFolderCannotBeCreated) {
    folder.write("file", "");
    SingleInstance instance(folder.path() / "file");
    EXPECT_EQ(instance.claim({}), Claim::impossible);
}

TEST_F(SingleInstanceTest, FirstInstanceStaysFirstIfListeningFails) {
    folder.write("glidemap.socket/in/the/way", "");
    const Signpost goOn;
    Child second([&] { // forks before the lock exists, because a child would inherit the lock
        goOn.wait();
        return claimAsSecond(soon);
    });
    Application application;
    SingleInstance instance(folder.path());
    ASSERT_EQ(instance.claim({}), Claim::first);
    const auto listenError = instance.listen([](const Request&) {});
    ASSERT_NE(listenError, std::nullopt);
    EXPECT_NE(*listenError, "");
    goOn.notify();
    EXPECT_EQ(second.waitForEnd(), static_cast<int>(Claim::unanswered));
}

TEST_F(SingleInstanceTest, MissingFolderIsCreated) {
    SingleInstance instance(folder.path() / "not" / "there");
    EXPECT_EQ(instance.claim({}), Claim::first);
}

// A client that does not follow the protocol.
class Stranger {
public:
    explicit Stranger(const std::filesystem::path& file)
        : socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0)) {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        file.native().copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    }
    Stranger(const Stranger&) = delete;
    Stranger& operator=(const Stranger&) = delete;
    ~Stranger() { close(socket); }

    void say(const std::string& text) const {
        [[maybe_unused]] const auto sent = send(socket, text.data(), text.size(), MSG_NOSIGNAL);
    }
    bool wasHungUpOn() const {
        char word = 0;
        const auto count = recv(socket, &word, 1, 0);
        return count == 0 || (count < 0 && errno != EAGAIN);
    }

private:
    const int socket;
};

TEST_F(SingleInstanceTest, InvalidClientsNeitherSendRequestsNorBlockOtherClients) {
    Application application;
    SingleInstance instance(folder.path());
    ASSERT_EQ(instance.claim({}), Claim::first);
    std::vector<Request> requests;
    ASSERT_EQ(instance.listen([&](const Request& request) { requests.push_back(request); }),
              std::nullopt);
    const Stranger silent(file("glidemap.socket"));
    const Stranger endless(file("glidemap.socket"));
    endless.say(std::string(100000, 'x'));
    { const Stranger brief(file("glidemap.socket")); }
    Child second([&] { return claimAsSecond(); });
    while (requests.empty() || !endless.wasHungUpOn()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    EXPECT_EQ(second.waitForEnd(), static_cast<int>(Claim::shown));
    EXPECT_EQ(requests, (std::vector<Request>{{"token", "id_TIME12"}}));
}

int openDescriptors() {
    return static_cast<int>(
        std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()));
}

TEST_F(SingleInstanceTest, ThousandSilentClientsUseFewDescriptors) {
    Application application;
    SingleInstance instance(folder.path());
    ASSERT_EQ(instance.claim({}), Claim::first);
    std::vector<Request> requests;
    ASSERT_EQ(instance.listen([&](const Request& request) { requests.push_back(request); }),
              std::nullopt);
    const int before = openDescriptors();
    std::vector<std::unique_ptr<Stranger>> strangers;
    for (int count = 0; count < 1000; ++count) {
        strangers.push_back(std::make_unique<Stranger>(file("glidemap.socket")));
        QCoreApplication::processEvents();
        const int ofOurs = openDescriptors() - before - static_cast<int>(strangers.size());
        ASSERT_LE(ofOurs, static_cast<int>(LineListener::maxClients)) << count;
    }
    Child second([&] { return claimAsSecond(); });
    while (requests.empty()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    EXPECT_EQ(second.waitForEnd(), static_cast<int>(Claim::shown));
    int hungUpOn = 0;
    for (const auto& stranger : strangers) {
        hungUpOn += stranger->wasHungUpOn() ? 1 : 0;
    }
    EXPECT_GE(hungUpOn, 1000 - static_cast<int>(LineListener::maxClients));
}

TEST_F(SingleInstanceTest, SilentClientIsDisconnected) {
    Application application;
    const LineListener listener(
        file("lines"), 100, [](const std::string&) { return ""; }, std::chrono::milliseconds(50));
    ASSERT_FALSE(listener.failure());
    const Stranger silent(file("lines"));
    const Stranger slow(file("lines"));
    slow.say("half a line");
    while (!silent.wasHungUpOn() || !slow.wasHungUpOn()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

TEST_F(SingleInstanceTest, ClientWaitsWhileDescriptorsAreExhausted) {
    Application application;
    int received = 0;
    const LineListener listener(file("lines"), 100, [&](const std::string&) {
        ++received;
        return "";
    });
    const Stranger client(file("lines"));
    client.say("line\n");
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    const rlimit before = limit;
    limit.rlim_cur = 3;
    setrlimit(RLIMIT_NOFILE, &limit);
    int turns = 0;
    QTimer::singleShot(100, [&] { setrlimit(RLIMIT_NOFILE, &before); });
    while (received == 0) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        ++turns;
    }
    EXPECT_LT(turns, 100) << "accept() was retried without a pause";
}

TEST_F(SingleInstanceTest, ClientOfAnotherUserIsRejected) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root may become another user";
    }
    Application application;
    int received = 0;
    const LineListener listener(file("lines"), 100, [&](const std::string&) {
        ++received;
        return "received\n";
    });
    fs::permissions(folder.path(), fs::perms::all);
    fs::permissions(file("lines"), fs::perms::all);
    Child stranger([&] {
        if (setresuid(65534, 65534, 65534) != 0) {
            return 1;
        }
        const Stranger other(file("lines"));
        other.say("line\n");
        while (!other.wasHungUpOn()) {
            poll(nullptr, 0, 5);
        }
        return 0;
    });
    const Stranger ours(file("lines"));
    while (received == 0 || stranger.isRunning()) {
        ours.say("line\n");
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    EXPECT_EQ(received, 1);
}

} // namespace
} // namespace glidemap
