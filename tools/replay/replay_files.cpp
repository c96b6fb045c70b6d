#include "replay_files.h"

#include "recording/recording_reader.h"
#include "run.h"

#include <cstdio>
#include <iostream>
#include <memory>
#include <variant>

namespace glidemap::replay {

namespace {

std::unique_ptr<RecordingReader> open(const std::string& name) {
    return name == "-" ? openRecording(std::cin, "standard input") : openRecordingFile(name, name);
}

void count(Statistics& statistics, const Record& record) {
    if (const auto* report = std::get_if<Report>(&record)) {
        statistics.count(report->time, report->touches);
    } else {
        statistics.countRecordAt(timeOf(record));
    }
}

Status replay(RecordingReader& reader, Run& run, Statistics& statistics) {
    Record record; // one object for all records, to reuse its memory
    while (reader.next(record)) {
        count(statistics, record);
        run.play(record);
    }
    // Finish the run even after a malformed line, so that delayed taps are still reported.
    run.finish();
    if (reader.error()) {
        std::fprintf(stderr, "glidemap-replay: %s\n", text(*reader.error()).c_str());
        return Status::badInput;
    }
    return Status::success;
}

} // namespace

Status replayFiles(const Options& options, const BindingList& bindings, ReplayDriver& driver,
                   Printer& printer, Statistics& statistics) {
    const auto speed = options.realTime ? Pace::Speed::realTime : Pace::Speed::asFastAsPossible;
    Status status = Status::success;
    for (const std::string& name : options.files) {
        if (options.files.size() > 1) {
            printer.printFile(name);
        }
        statistics.beginRun();
        Run run(driver, speed, bindings, [&](const RunEvent& event) {
            printer.print(event);
            if (const auto* recognised = std::get_if<Recognised>(&event)) {
                statistics.count(*recognised);
            }
        });
        run.bindDoubleTaps(options.boundDoubleTaps);
        if (replay(*open(name), run, statistics) != Status::success) {
            status = Status::badInput;
        }
    }
    return status;
}

} // namespace glidemap::replay
