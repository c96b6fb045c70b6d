#include "ui/editor/running_apps.h"

#include "ui/theme/text.h"

#include <QCollator>
#include <algorithm>

namespace glidemap {

std::vector<RunningApp> runningApps(const Workspace& workspace) {
    std::vector<RunningApp> apps;
    for (const Application& application : workspace.runningApplications()) {
        if (application.bundleID && application.name) {
            apps.push_back({.bundleID = *application.bundleID, .name = *application.name});
        }
    }
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::ranges::stable_sort(apps, [&](const RunningApp& left, const RunningApp& right) {
        return collator.compare(toQt(left.name), toQt(right.name)) < 0;
    });
    return apps;
}

std::vector<RunningApp> launchableApps(const Workspace& workspace) {
    std::vector<RunningApp> apps = runningApps(workspace);
    std::erase_if(
        apps, [&](const RunningApp& app) { return !workspace.urlForApplication(app.bundleID); });
    return apps;
}

} // namespace glidemap
