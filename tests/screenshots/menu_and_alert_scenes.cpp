#include "app/alert.h"
#include "app/app_delegate.h"
#include "app/no_status_bar.h"
#include "app/refusal.h"
#include "app/update_outcome.h"
#include "kit/engine_stage.h"
#include "kit/fake_click_tap.h"
#include "screenshots/photograph.h"
#include "screenshots/scene.h"
#include "ui/settings/settings_stage.h"

#include <QMenu>

namespace glidemap::screenshots {

namespace {

using test::SettingsStage;

class QuietShell : public ApplicationShell {
public:
    void becomeAccessory() override {}
    void activate(QWidget& /*window*/) override {}
    void terminate() override {}
};

class AbsentBar : public StatusBar {
public:
    Kind kind() override { return Kind::none; }
    Observable& changes() override { return observers; }

private:
    Observable observers;
};

std::shared_ptr<UpdateChecker> checkerThatFinds(const std::string& version) {
    UpdateChecker::Setup setup;
    setup.host = "glidemap.test";
    setup.currentVersion = "1.0.0";
    setup.fetch = [version](const std::string& /*url*/, const auto& done) {
        done(Fetched{.body = "{\"version\": \"" + version + "\"}", .transportError = {}});
    };
    setup.repeat = [](auto /*interval*/, auto /*block*/) -> std::shared_ptr<const void> {
        return nullptr;
    };
    return UpdateChecker::create(std::move(setup));
}

// The delegate's menu, with fake ports.
class DelegateStage {
public:
    explicit DelegateStage(const std::string& published) {
        AppDelegate::Ports ports{
            .shell = std::make_shared<QuietShell>(),
            .trust = settings.trust,
            .workspace = settings.workspace,
            .clickTap = std::make_shared<kit::FakeClickTap>(),
            .engine = engine.engine,
            .makeStore = [this] { return settings.store; },
            .makeUpdateChecker = [published] { return checkerThatFinds(published); },
            .makeDispatcher = [this](const auto& /*store*/) { return settings.dispatcher; },
            .makeStatusItem =
                [this] {
                    auto made = std::make_unique<StatusItem>(std::make_shared<AbsentBar>(),
                                                             StatusItem::Icon());
                    item = made.get();
                    return made;
                },
            .makeSettingsWindow = [](const auto& /*shown*/) { return std::make_unique<QWidget>(); },
        };
        delegate = AppDelegate::create(std::move(ports));
        delegate->applicationDidFinishLaunching();
    }
    ~DelegateStage() { delegate->applicationWillTerminate(); }
    DelegateStage(const DelegateStage&) = delete;
    DelegateStage& operator=(const DelegateStage&) = delete;

    QMenu& menu() { return item->menu(); }

    SettingsStage settings;
    kit::EngineStage engine;
    std::shared_ptr<AppDelegate> delegate;
    StatusItem* item = nullptr;
};

struct MenuState {
    std::string published = "1.0.0";
    bool isOn = true;
    int hovered = -1;
};

QImage pictureOfMenu(const MenuState& state) {
    DelegateStage stage(state.published);
    stage.settings.dispatcher->setMasterEnabled(state.isOn);
    QMenu& menu = stage.menu();
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
        alert("update-over-window", "Over the settings window",
              [newer] { return pictureOfOutcomeOverWindow(newer); }),
        alert("no-status-bar", "A desktop without a status bar",
              [] { return pictureOfAlert(noStatusBarText); }),
        alert("unanswered", "The one that runs does not answer",
              [] { return pictureOfAlert(unansweredText); }),
    };
}

} // namespace glidemap::screenshots
