// The texts of the application's alerts, except alerts about a binding.
//
// Thread:  the main thread.
// Errors:  none. All failed checks for updates have the same text, which does not name the cause.
#pragma once

#include "app/alert.h"
#include "app/update_checker.h"
#include "core/lang.h"

#include <optional>
#include <string>

namespace glidemap {

// This text and the next one explain why the program did not start, for users who start it by its
// icon and see no terminal. This one: another instance is running but does not respond.
AlertText unansweredText(const Lang& lang);

// The lock file cannot be opened, so a running instance cannot be detected.
AlertText withoutLockText(const Lang& lang);

// For desktops without a status bar, shown once per run: how to reach the program without a status
// item.
AlertText noStatusBarText(const Lang& lang);

// The result of a check for updates that the user requested.
AlertText updateOutcome(const UpdateResult& result,
                        const std::optional<std::string>& currentVersion, const Lang& lang);

// Whether the first button of the alert for this result opens the download page.
bool offersDownload(const UpdateResult& result);

} // namespace glidemap
