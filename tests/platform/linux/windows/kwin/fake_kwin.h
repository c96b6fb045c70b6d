// A fake of KWin's scripting interface on a bus, as in Plasma 5 or 6. The fake runs no script: the
// test sends the script's reports.
//
// Thread:  one; the fake replies on its own thread.
// Owner:   a test.
// Errors:  any failure fails the test.
#pragma once

#include "platform/linux/desktop/desktop_thread.h"

#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <string>
#include <vector>

using GDBusConnection = struct _GDBusConnection;
using GDBusMethodInvocation = struct _GDBusMethodInvocation;
using GVariant = struct _GVariant;

namespace glidemap {

class FakeKWin {
public:
    struct Nature {
        std::string scriptFolder = "/Scripting/Script"; // "/" in Plasma 5
        int id = 7;                                     // returned by loadScript
        bool runs = true;                               // whether running a script succeeds
        bool isStuck = false;                           // KWin never replies
        bool isStarting = false; // KWin owns its name, but exports no objects
    };

    // The calls that load and start a script, if its number is 7.
    static const std::vector<std::string> loading;

    FakeKWin(const std::string& busAddress, Nature nature);
    FakeKWin(const FakeKWin&) = delete;
    FakeKWin& operator=(const FakeKWin&) = delete;
    ~FakeKWin();

    // Makes scripting available and then sends a signal, as KWin does when it starts.
    void finishStarting();
    void sendSignal();

    // Calls the program that has loaded the script, and waits for its reply.
    void report(const std::string& text);

    // Waits for exactly these calls, which must be all calls since the last check.
    void expectCalls(const std::vector<std::string>& calls);

    // Return the script's content, mode and path, as they were when KWin ran it.
    std::string script();
    std::filesystem::perms permissions();
    std::filesystem::path file();

private:
    void registerScripting();
    void registerObject(const std::string& path, const char* interface);
    void answer(const std::string& method, GVariant* arguments, GDBusMethodInvocation* invocation);
    GVariant* load(GVariant* arguments, const char* caller);
    void readScript();

    Nature nature;
    std::mutex mutex;
    std::condition_variable asked;
    std::vector<std::string> calls;
    std::vector<GDBusMethodInvocation*> unanswered;
    std::string loader;
    std::filesystem::path path;
    std::string content;
    std::filesystem::perms mode = std::filesystem::perms::unknown;
    GDBusConnection* connection = nullptr;
    DesktopThread thread;
};

} // namespace glidemap
