#include "application.h"
#include "kit/patience.h"
#include "kit/temporary_folder.h"
#include "platform/qt/single_instance.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTimer>
#include <array>
#include <cerrno>
#include <csignal>
#include <functional>
#include <latch>
#include <string>
#include <vector>

namespace glidemap {
namespace {

using test::Application;
using Claim = SingleInstance::Claim;
using Request = SingleInstance::Request;

constexpr std::chrono::milliseconds soon{200};

// A pipe on which processes tell the test, and the test tells them, that something has happened.
class Signpost {
public:
    Signpost() { EXPECT_EQ(pipe(ends.data()), 0); }
    Signpost(const Signpost&) = delete;
    Signpost& operator=(const Signpost&) = delete;
    ~Signpost() {
        close(ends[0]);
        close(ends[1]);
    }

    void tell(char word = '!') const { EXPECT_EQ(write(ends[1], &word, 1), 1); }
    char wait() const {
        char word = 0;
        EXPECT_EQ(read(ends[0], &word, 1), 1);
        return word;
    }

private:
    std::array<int, 2> ends{};
};

// Another program, which ends with what the function answers, or with this test.
class Child {
public:
    explicit Child(const std::function<int()>& work) : process(fork()) {
        if (process == 0) {
            alarm(3 * test::patience.count()); // longer than anything that it waits for
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
    // Claims, and listens until it is asked to show itself; then ends with 7.
    int beFirst(const Signpost& listening) const {
        Application application;
        SingleInstance instance(folder.path());
        if (instance.claim({}) != Claim::first) {
            return 1;
        }
        const auto deaf = instance.listen([&](const Request& request) {
            asked = request;
            QTimer::singleShot(0, &Application::quit);
        });
        if (deaf) {
            return 3;
        }
        listening.tell();
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

TEST_F(SingleInstanceTest, TheSecondAsksTheFirstToShowItselfAndHandsItsProofOver) {
    const Signpost listening;
    Child first([&] { return beFirst(listening); });
    listening.wait();
    EXPECT_EQ(claimAsSecond(), static_cast<int>(Claim::shown));
    EXPECT_EQ(first.waitForEnd(), 7);
}

TEST_F(SingleInstanceTest, OnlyTheUserCanOpenWhatItLeavesInTheFolder) {
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

TEST_F(SingleInstanceTest, OneThatWasKilledIsInNobodysWay) {
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

TEST_F(SingleInstanceTest, OneThatHangsIsNotWaitedForForever) {
    const Signpost listening;
    Child first([&] { return beFirst(listening); });
    listening.wait();
    first.send(SIGSTOP);
    EXPECT_EQ(claimAsSecond(soon), static_cast<int>(Claim::unanswered));
}

TEST_F(SingleInstanceTest, OneThatHoldsTheLockAndDoesNotListenYetIsWaitedFor) {
    const Signpost claimed;
    const Signpost goOn;
    Child first([&] {
        Application application;
        SingleInstance instance(folder.path());
        if (instance.claim({}) != Claim::first) {
            return 1;
        }
        claimed.tell();
        goOn.wait();
        if (instance.listen([](const Request&) { QTimer::singleShot(0, &Application::quit); })) {
            return 2;
        }
        application.run();
        return 7;
    });
    claimed.wait();
    EXPECT_EQ(claimAsSecond(soon), static_cast<int>(Claim::unanswered));
    goOn.tell();
    EXPECT_EQ(claimAsSecond(), static_cast<int>(Claim::shown));
    EXPECT_EQ(first.waitForEnd(), 7);
}

TEST_F(SingleInstanceTest, WhoAsksOneThatIsEndingTakesItsPlace) {
    const Signpost ending;
    const Signpost begun;
    Child second([&] { // made before the lock, which a child would have, too
        ending.wait();
        begun.tell();
        return claimAsSecond();
    });
    Application application;
    auto first = std::make_unique<SingleInstance>(folder.path());
    ASSERT_EQ(first->claim({}), Claim::first);
    ASSERT_EQ(first->listen([](const Request&) {}), std::nullopt);
    first->stopListening();
    ending.tell();
    begun.wait();
    first.reset();
    EXPECT_EQ(second.waitForEnd(), static_cast<int>(Claim::first));
}

// Each holds the lock until all have claimed.
TEST_F(SingleInstanceTest, OfManyThatStartAtTheSameInstantOneIsFirst) {
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
                claimed.tell(claim == Claim::first ? '1' : '2');
                end.wait();
                return 0;
            }));
        }
        for (int number = 0; number < programs; ++number) {
            start.tell();
        }
        int firsts = 0;
        for (int number = 0; number < programs; ++number) {
            firsts += claimed.wait() == '1' ? 1 : 0;
        }
        EXPECT_EQ(firsts, 1);
        for (int number = 0; number < programs; ++number) {
            end.tell();
        }
        for (const auto& child : children) {
            EXPECT_EQ(child->waitForEnd(), 0);
        }
    }
}

TEST_F(SingleInstanceTest, WithoutAFolderNothingCanBeClaimed) {
    folder.write("file", "");
    SingleInstance instance(folder.path() / "file");
    EXPECT_EQ(instance.claim({}), Claim::impossible);
}

TEST_F(SingleInstanceTest, OneThatCannotListenSaysWhyAndIsTheOnlyOneAllTheSame) {
    folder.write("glidemap.socket/in/the/way", "");
    const Signpost goOn;
    Child second([&] { // made before the lock, which a child would have, too
        goOn.wait();
        return claimAsSecond(soon);
    });
    Application application;
    SingleInstance instance(folder.path());
    ASSERT_EQ(instance.claim({}), Claim::first);
    const auto deaf = instance.listen([](const Request&) {});
    ASSERT_NE(deaf, std::nullopt);
    EXPECT_NE(*deaf, "");
    goOn.tell();
    EXPECT_EQ(second.waitForEnd(), static_cast<int>(Claim::unanswered));
}

TEST_F(SingleInstanceTest, AFolderThatIsMissingIsMade) {
    SingleInstance instance(folder.path() / "not" / "there");
    EXPECT_EQ(instance.claim({}), Claim::first);
}

// Whoever connects without keeping to what is said here.
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

TEST_F(SingleInstanceTest, StrangersNeitherShowTheWindowNorKeepOthersFromIt) {
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

} // namespace
} // namespace glidemap
