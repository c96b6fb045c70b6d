#include "app/alert.h"
#include "app/alert_texts.h"
#include "app/app_delegate.h"
#include "app/delegate_stage.h"
#include "screenshots/photograph.h"
#include "screenshots/scene.h"
#include "ui/settings/settings_stage.h"

#include <QMenu>

namespace glidemap::test {

namespace {

struct MenuState {
    std::string published = "1.0.0";
    bool isOn = true;
    int hovered = -1;
};

QImage pictureOfMenu(const MenuState& state) {
    DelegateStage stage;
    stage.lang.setCode(Lang::shared().code());
    stage.runningVersion = "1.0.0";
    stage.delegate = AppDelegate::create(stage.ports());
    stage.delegate->applicationDidFinishLaunching();
    stage.publish(state.published);
    stage.dispatcher.lock()->setMasterEnabled(state.isOn);
    QMenu& menu = stage.statusItem->menu();
    menu.popup(QPoint(40, 40));
    if (state.hovered >= 0) {
        menu.setActiveAction(menu.actions().at(state.hovered));
    }
    return photographTogether({&menu});
}

QImage pictureOfAlert(const Alert::Texts& texts) {
    Alert alert(texts, Lang::shared());
    alert.show();
    return photographTogether({&alert});
}

Alert::Texts textsOf(const UpdateResult& result) {
    return [result](const Lang& lang) {
        return updateOutcome(result, "1.0.0", lang);
    };
}

QImage pictureOfOutcome(const UpdateResult& result) {
    return pictureOfAlert(textsOf(result));
}

QImage pictureOfOutcomeOverWindow(const UpdateResult& result) {
    SettingsStage stage;
    SettingsWindow& window = stage.open();
    Alert alert(textsOf(result), Lang::shared(), &window);
    alert.show();
    return photographWithAllAbove(window);
}

Scene menu(const char* name, const char* caption, const MenuState& state, bool inBrief = false) {
    return {"Status menu", name, caption, [state] { return pictureOfMenu(state); }, inBrief};
}

Scene alert(const char* name, const char* caption, std::function<QImage()> paint,
            bool inBrief = false) {
    return {"Alerts", name, caption, std::move(paint), inBrief};
}

} // namespace

std::vector<Scene> menuAndAlertScenes() {
    const UpdateResult newer = std::optional<std::string>("1.2.0");
    return {
        menu("on", "Gestures on", {}, true),
        menu("off", "Gestures off, the pointer over the settings", {.isOn = false, .hovered = 2}),
        menu("update", "A newer version is known", {.published = "1.2.0"}, true),
        alert(
            "update-newer", "A newer version", [newer] { return pictureOfOutcome(newer); }, true),
        alert("update-none", "No newer version",
              [] { return pictureOfOutcome(std::optional<std::string>()); }),
        alert("update-failed", "The check failed", [] { return pictureOfOutcome(UpdateError{}); }),
        alert("update-over-window", "An alert over the settings window",
              [newer] { return pictureOfOutcomeOverWindow(newer); }),
        alert("no-status-bar", "A desktop without a status bar",
              [] { return pictureOfAlert(noStatusBarText); }),
        alert("unanswered", "The running instance does not respond",
              [] { return pictureOfAlert(unansweredText); }),
    };
}

} // namespace glidemap::test
