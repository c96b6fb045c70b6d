// glidemap-replay: recognises the gestures in touch recordings, or in performances that it
// generates, and prints the actions that they would trigger.

#include "bindings_file.h"
#include "core/lang.h"
#include "demonstration.h"
#include "options.h"
#include "printer.h"
#include "replay_driver.h"
#include "replay_files.h"
#include "statistics.h"

#include <cstdio>
#include <iostream>
#include <variant>

namespace glidemap::replay {

namespace {

int exitCode(Status status) {
    return static_cast<int>(status);
}

int printError(const std::string& message, Status status) {
    std::fprintf(stderr, "glidemap-replay: %s\n", message.c_str());
    return exitCode(status);
}

std::variant<BindingList, UnusableBindings> bindingsOf(const Options& options) {
    return options.bindingsFile ? readBindings(*options.bindingsFile) : BindingList();
}

Status playAll(const Options& options, const BindingList& bindings, ReplayDriver& driver) {
    Printer printer(options.json ? Printer::Form::json : Printer::Form::text);
    Statistics statistics;
    const Status status = options.demonstrate
                              ? demonstrate(options, driver, printer, statistics)
                              : replayFiles(options, bindings, driver, printer, statistics);
    if (options.stats) {
        std::fputs(statistics.text().c_str(), stderr);
    }
    return status;
}

int run(const Options& options) {
    if (options.demonstrationFolder) {
        const auto error = writeDemonstration(*options.demonstrationFolder, options.seed);
        return error ? printError(*error, Status::failure) : exitCode(Status::success);
    }
    Lang::shared().setCode(options.language);
    auto bindings = bindingsOf(options);
    if (const auto* unusable = std::get_if<UnusableBindings>(&bindings)) {
        return printError(*options.bindingsFile + ": " + unusable->reason, Status::badInput);
    }
    ReplayDriver driver;
    if (const auto error = driver.error()) {
        return printError("the replay driver cannot be used: " + *error, Status::failure);
    }
    const Status status = playAll(options, std::get<BindingList>(bindings), driver);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        return printError("standard output cannot be written", Status::failure);
    }
    return exitCode(status);
}

} // namespace

} // namespace glidemap::replay

// NOLINTNEXTLINE(bugprone-exception-escape): only a lack of memory throws, and ends the program
int main(int count, char** arguments) {
    using namespace glidemap::replay;
    std::ios::sync_with_stdio(false); // standard input is read through one stream only
    const auto parsed = parseOptions(count, arguments);
    if (std::holds_alternative<HelpRequest>(parsed)) {
        std::fputs(helpText, stdout);
        return exitCode(Status::success);
    }
    if (const auto* error = std::get_if<UsageError>(&parsed)) {
        return printError(error->message + " (see --help)", Status::badInput);
    }
    return run(std::get<Options>(parsed));
}
