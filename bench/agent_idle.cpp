// agent_idle [--seconds N]: what the whole program costs while nobody touches anything: how often
// any of its threads wakes up, and the memory it holds. Fails if one woke up.
//
// Runs inside the test kernel (docs/performance.md). The touchpad is grabbed and cloned, and has
// been touched and clicked before, so that every thread there will ever be is there.
#include "agent_session.h"
#include "input_devices.h"
#include "ordinary_pad.h"
#include "pad_hand.h"
#include "real_time.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <string>

namespace glidemap::bench {

namespace {

// A line "key: value …" of one of the kernel's files about a process.
long numberIn(const std::filesystem::path& file, const std::string& key) {
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with(key)) {
            return std::strtol(line.c_str() + key.size(), nullptr, 10);
        }
    }
    return 0;
}

std::string firstLine(const std::filesystem::path& file) {
    std::ifstream stream(file);
    std::string line;
    std::getline(stream, line);
    return line;
}

std::map<std::string, long> switchesByThread(const std::filesystem::path& process) {
    std::map<std::string, long> switches;
    for (const auto& thread : std::filesystem::directory_iterator(process / "task")) {
        switches[firstLine(thread.path() / "comm") + " " + thread.path().filename().string()] =
            numberIn(thread.path() / "status", "voluntary_ctxt_switches:") +
            numberIn(thread.path() / "status", "nonvoluntary_ctxt_switches:");
    }
    return switches;
}

void printMemory(const std::filesystem::path& process) {
    const auto rollup = process / "smaps_rollup";
    std::cout << "resident " << numberIn(process / "status", "VmRSS:") << " KiB, of which private "
              << numberIn(rollup, "Private_Clean:") + numberIn(rollup, "Private_Dirty:")
              << " KiB\n";
}

int run(double seconds) {
    const vm::AgentHome home;
    home.writeBindings({vm::bindingJson("twoFingerTap", vm::shortcutJson(17, 0)),
                        vm::bindingJson("twoFingerDoubleTap", vm::shortcutJson(17, 0)),
                        vm::bindingJson("twoFingerClick", vm::shortcutJson(17, 0))});
    vm::VirtualPad pad(vm::ordinaryPad());
    vm::Agent agent;
    const auto clone = vm::waitForNode(pad.shape().name, pad.node());
    vm::PadHand(pad).tap(2).pause(1).click(2).pause(2);
    if (!clone || !agent.waitForLog("twoFingerTap") || !agent.waitForLog("twoFingerClick")) {
        return 2;
    }
    const auto process = std::filesystem::path("/proc") / std::to_string(agent.id());
    const auto before = switchesByThread(process);
    vm::letTimePassUntil(vm::monotonicNow() + seconds);
    const auto after = switchesByThread(process);
    long woken = 0;
    for (const auto& [thread, count] : after) {
        const auto known = before.find(thread);
        const long more = count - (known != before.end() ? known->second : 0);
        std::cout << thread << ": woke up " << more << " times in " << seconds << " s\n";
        woken += more;
    }
    printMemory(process);
    return woken == 0 ? 0 : 1;
}

} // namespace

} // namespace glidemap::bench

int main(int count, char** arguments) {
    double seconds = 10;
    if (count == 3 && std::strcmp(arguments[1], "--seconds") == 0) {
        seconds = std::strtod(arguments[2], nullptr);
    }
    return glidemap::bench::run(seconds);
}
