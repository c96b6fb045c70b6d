// Runs Orca on a stage and records what it speaks, without sound.
//
// Thread:  one.
// Owner:   a test. The stage outlives it.
// Errors:  an Orca that does not start in time fails the test.
#pragma once

#include "desktops/program.h"
#include "stage.h"

#include <filesystem>
#include <string>
#include <vector>

namespace glidemap::test {

class ScreenReader {
public:
    static bool isInstalled();

    // Waits until Orca has started and processes events.
    explicit ScreenReader(const ApplicationStage& stage);

    // Waits until Orca has spoken these texts in this order, after the texts that earlier calls
    // have found. Pass short texts, because versions of Orca differ in the names of roles and in
    // how they group utterances.
    bool hears(const std::vector<std::string>& parts);

    // Returns whether Orca has already spoken these texts. Otherwise like hears().
    bool hasSpoken(const std::vector<std::string>& parts);

    // Returns everything that was spoken, one utterance per line.
    std::string transcript() const;

private:
    static Program::Command commandOn(const ApplicationStage& stage);
    bool isListening() const;

    std::filesystem::path log;
    std::size_t heard = 0; // where the next search in the transcript starts
    Program orca;
};

} // namespace glidemap::test
