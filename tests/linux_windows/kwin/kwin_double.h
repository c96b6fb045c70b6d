// A double of KWin's scripting on a bus, as Plasma 5 or 6 has it. It runs no script: the test says
// what the script reports.
//
// Thread:  one; it answers on a thread of its own.
// Owner:   a test.
// Errors:  what cannot be done is a failure of the test.
#pragma once

#include "platform/linux/windows/desktop_thread.h"

#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <string>
#include <vector>

using GDBusConnection = struct _GDBusConnection;
using GDBusMethodInvocation = struct _GDBusMethodInvocation;
using GVariant = struct _GVariant;

namespace glidemap {

class KWinDouble {
public:
    struct Nature {
        std::string scriptFolder = "/Scripting/Script"; // "/" in Plasma 5
        int id = 7;                                     // what loading a script answers
        bool runs = true;                               // else running one is refused
        bool isStuck = false;                           // it answers nothing
        bool isStarting = false;                        // its name is there, its objects are not
    };

    KWinDouble(const std::string& busAddress, Nature nature);
    KWinDouble(const KWinDouble&) = delete;
    KWinDouble& operator=(const KWinDouble&) = delete;
    ~KWinDouble();

    // Scripting is there from now on, and then KWin says something, as it does when it starts.
    void finishStarting();
    void saySomething();

    // Calls back whoever has loaded the script, and waits until that has heard it.
    void report(const std::string& text);

    // Waits for exactly these calls, which have to be all since the last time.
    void expectAsked(const std::vector<std::string>& calls);

    // The script as it was when it was told to run, and who could read it then.
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
