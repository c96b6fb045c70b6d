// A fake application shell that records its calls.
//
// Thread:  the test's main thread, with an application object.
#pragma once

#include "app/application_shell.h"

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

namespace glidemap::test {

class FakeApplicationShell : public ApplicationShell {
public:
    void becomeAccessory() override { note("become an accessory"); }
    void activate(QWidget& widget) override {
        note("activate " + widget.windowTitle().toStdString() +
             (widget.isVisible() ? "" : ", hidden"));
        if (onActivate) {
            onActivate(widget);
        }
    }
    void setGesturesOn(bool areOn) override { gestureStates.push_back(areOn); }
    void terminate() override { note("terminate"); }

    std::vector<bool> gestureStates;
    std::function<void(QWidget&)> onActivate;
    std::function<void(const std::string& call)> onCall;

private:
    void note(const std::string& call) const {
        if (onCall) {
            onCall(call);
        }
    }
};

} // namespace glidemap::test
