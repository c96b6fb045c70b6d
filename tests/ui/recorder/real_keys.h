// The fixture of the tests that type on a real desktop, into a window that records a shortcut.
//
// `Desktop` is a TypingDesktop with a name and with whyNot(), the reason why it cannot run.
#pragma once

#include "desktops/program.h"
#include "desktops/runtime_folder.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <cstdint>
#include <memory>
#include <string>

namespace glidemap::test {

template <class Desktop>
class RealKeysTest : public testing::Test {
protected:
    void SetUp() override {
        if (const std::string reason = Desktop::whyNot(); !reason.empty()) {
            GTEST_SKIP() << reason;
        }
        desktop = std::make_unique<Desktop>();
        window = std::make_unique<Program>(Program::Command{.words = {GLIDEMAP_RECORDER_WINDOW},
                                                            .environment = desktop->environment(),
                                                            .log = folder.path() / "window.log"});
        expect("active");
    }

    void record() {
        window->writeLine("record");
        expect("recording");
    }
    void expect(const std::string& line) { EXPECT_EQ(window->nextLine(), line); }
    void expectRecorded(const std::string& what) { expect("recorded " + what); }

    void hold(int key) { desktop->key(static_cast<std::uint16_t>(key), true); }
    void release(int key) { desktop->key(static_cast<std::uint16_t>(key), false); }
    void type(int key) {
        hold(key);
        release(key);
    }

    // Types a key that must reach the window. If an earlier key had reached the window, it would be
    // reported first.
    void expectTypedIntoWindow() {
        type(KEY_Q);
        expect("pressed 81");
        expect("released 81");
    }

    RuntimeFolder folder;
    std::unique_ptr<Desktop> desktop;
    std::unique_ptr<Program> window;
};

struct DesktopNames {
    template <class Desktop>
    static std::string GetName(int /*index*/) {
        return Desktop::name;
    }
};

} // namespace glidemap::test
