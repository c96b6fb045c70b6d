// Controls the fake workspace, and plays the user's actions.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::test {

enum class Policy { regular, accessory, prohibited };

struct RunningApplication {
    std::optional<std::string> bundleID;
    std::optional<std::string> name;
    Policy policy = Policy::regular;
    bool hasEnded = false;
};

struct Workspace {
    bool exists = true;
    std::optional<RunningApplication> frontmost;
    std::vector<RunningApplication> running;
    std::map<std::string, std::string> installed; // maps application identifiers to locations
    bool reducesMotion = false;
    std::function<void()> atRemoval; // called just before an observer is removed
};

// Returns the state of the fake. The fixture's set-up resets it.
Workspace& workspace();

// Destroys the shared workspace and its notification center.
void closeWorkspace();

// Activates an application, or one without properties if nullopt, and posts the notification.
void activate(std::optional<RunningApplication> application);

// Posts the notification that the application has ended. The test itself sets the frontmost
// application.
void end(const RunningApplication& application);

// Posts the activation notification without an application.
void noticeAnActivationOnly();

// Posts a notification without user information.
void postNotice(const char* name);

void setReducesMotion(bool reduces);

} // namespace glidemap::test
