#include "platform/macos/workspace/macos_workspace.h"

#include "platform/macos/foundation_text.h"
#include "platform/macos/workspace/running_application.h"

#include <utility>

namespace glidemap {

namespace {

NSString* const missionControl = @"/System/Applications/Mission Control.app";

NSURL* urlOf(const std::string& text) {
    NSString* const string = stringOf(text);
    return string != nil ? [NSURL URLWithString:string] : nil;
}

// With the default configuration, an application that is already running is activated.
void launch(NSURL* application) {
    [[NSWorkspace sharedWorkspace] openApplicationAtURL:application
                                          configuration:[NSWorkspaceOpenConfiguration configuration]
                                      completionHandler:nil];
}

} // namespace

// Lists only applications with a Dock icon, because other applications have no windows in which the
// user works.
std::vector<Application> MacosWorkspace::runningApplications() const {
    std::vector<Application> all;
    for (NSRunningApplication* running in [[NSWorkspace sharedWorkspace] runningApplications]) {
        if ([running activationPolicy] != NSApplicationActivationPolicyRegular) {
            continue;
        }
        Application application = applicationOf(running);
        if (application.bundleID && application.name) {
            all.push_back(std::move(application));
        }
    }
    return all;
}

std::optional<std::string> MacosWorkspace::urlForApplication(const std::string& bundleID) const {
    NSString* const identifier = stringOf(bundleID);
    if (identifier == nil) {
        return std::nullopt;
    }
    return textOf([[[NSWorkspace sharedWorkspace] URLForApplicationWithBundleIdentifier:identifier]
        absoluteString]);
}

void MacosWorkspace::openApplication(const std::string& url) {
    if (NSURL* const application = urlOf(url)) {
        launch(application);
    }
}

// Mission Control is an application bundle and therefore a folder. Passing isDirectory avoids a
// disk access.
void MacosWorkspace::openMissionControl() {
    launch([NSURL fileURLWithPath:missionControl isDirectory:YES]);
}

void MacosWorkspace::openAccessibilitySettings() {
    openURL("x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility");
}

void MacosWorkspace::openURL(const std::string& url) {
    if (NSURL* const location = urlOf(url)) {
        [[NSWorkspace sharedWorkspace] openURL:location];
    }
}

} // namespace glidemap
