#include "kit/larger_letters.h"
#include "screenshots/photograph.h"
#include "screenshots/scene.h"
#include "ui/controls/segmented_control.h"
#include "ui/editor/binding_draft.h"
#include "ui/settings/settings_stage.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>
#include <optional>
#include <string>

namespace glidemap::test {

namespace {

using Arrangement = std::function<void(SettingsStage&)>;

// Draws a substitute for an application's icon, because the real icons differ between machines.
// Returns the path of the file.
std::string drawIcon(const QTemporaryDir& folder, int hue) {
    QImage icon(64, 64, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromHsv(hue, 150, 210));
    painter.drawRoundedRect(4, 4, 56, 56, 14, 14);
    painter.end();
    const QString file = folder.filePath(QString::number(hue) + ".png");
    return icon.save(file) ? file.toStdString() : std::string();
}

void giveApplications(SettingsStage& stage) {
    const bool chinese = Lang::shared().code() == "zh";
    stage.workspace->running = {
        {"org.mozilla.firefox", "Firefox"},
        {"org.gnome.Nautilus", chinese ? "文件" : "Files"},
        {"org.gnome.Terminal", chinese ? "终端" : "Terminal"},
        {"org.gnome.Evince", chinese ? "文档查看器" : "Document Viewer"},
        {"org.libreoffice.Writer", "LibreOffice Writer"},
    };
    static const QTemporaryDir icons;
    int hue = 0;
    for (const Application& application : stage.workspace->running) {
        stage.workspace->urls[*application.bundleID] = "file:///" + *application.bundleID;
        stage.workspace->icons[*application.bundleID] = drawIcon(icons, hue);
        hue += 70;
    }
}

QImage pictureOfEditor(const Arrangement& arrange,
                       const std::optional<GestureBinding>& edited = std::nullopt) {
    SettingsStage stage(edited ? BindingList{*edited} : BindingList{});
    giveApplications(stage);
    SettingsWindow& window = stage.open();
    if (edited) {
        stage.row(0)->controls()[2]->click();
    } else {
        window.view().addBinding();
    }
    settle();
    arrange(stage);
    return photographWithAllAbove(window);
}

void leaveIt(SettingsStage& /*stage*/) {}

Arrangement act(ActionKind kind) {
    return [kind](SettingsStage& stage) {
        stage.find<QComboBox>("actionPicker")->setCurrentIndex(static_cast<int>(kind));
    };
}

void chooseApplication(SettingsStage& stage) {
    act(ActionKind::launchApp)(stage);
    stage.find<QComboBox>("launchPicker")->setCurrentIndex(2);
}

void openLaunchPicker(SettingsStage& stage) {
    act(ActionKind::launchApp)(stage);
    settle();
    stage.find<QComboBox>("launchPicker")->showPopup();
}

void openActionPicker(SettingsStage& stage) {
    stage.find<QComboBox>("actionPicker")->showPopup();
}

void chooseScope(SettingsStage& stage) {
    act(ActionKind::missionControl)(stage);
    auto* scope = stage.find<SegmentedControl>("scopePicker");
    scope->setCurrent(static_cast<int>(ScopeKind::app));
    scope->onChange(static_cast<int>(ScopeKind::app));
}

void chooseScopeApplication(SettingsStage& stage) {
    chooseScope(stage);
    stage.find<QComboBox>("scopeAppPicker")->setCurrentIndex(1);
}

void openGestures(SettingsStage& stage) {
    stage.find<QComboBox>("gesturePicker")->showPopup();
}

Arrangement search(const char* english, const char* chinese) {
    return [english, chinese](SettingsStage& stage) {
        openGestures(stage);
        settle();
        const bool inChinese = Lang::shared().code() == "zh";
        for (const QChar letter : QString::fromUtf8(inChinese ? chinese : english)) {
            QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown,
                                QString(letter), Qt::NoModifier);
        }
    };
}

void startRecording(SettingsStage& stage) {
    stage.find<QAbstractButton>("recordShortcut")->click();
}

void holdModifiers(SettingsStage& stage) {
    startRecording(stage);
    stage.keys->onModifiers(modifier::option | modifier::command);
}

// Presses a key that cannot be stored in a shortcut. Some keyboards have such keys.
void pressUnknownKey(SettingsStage& stage) {
    startRecording(stage);
    stage.keys->press({});
}

void lackOverview(SettingsStage& stage) {
    stage.workspace->hasOverview = false;
    act(ActionKind::missionControl)(stage);
}

// Highlights another gesture in the list; the demonstration shows the highlighted gesture.
void browseGestures(SettingsStage& stage) {
    openGestures(stage);
    settle();
    for (int row = 0; row < 5; ++row) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    }
}

void openKeyList(SettingsStage& stage) {
    stage.find<QAbstractButton>("chooseShortcut")->click();
}

void searchKey(SettingsStage& stage) {
    openKeyList(stage);
    settle();
    QTest::keyClicks(QApplication::focusWidget(), "f1");
}

void warnOfClick(SettingsStage& stage) {
    stage.find<QComboBox>("gesturePicker")
        ->setCurrentIndex(static_cast<int>(GestureType::twoFingerClick));
}

// Shows the note about a gesture that the desktop also uses, with KDE Plasma's text.
QImage pictureOfSystemGesture() {
    SettingsStage stage(BindingList{bound(GestureType::fourFingerSwipeUp, LockScreen{})});
    giveApplications(stage);
    stage.notes = std::make_shared<FakeNotes>();
    stage.notes->swipe =
        "KDE Plasma opens a desktop effect with this swipe: Overview, Desktop Grid "
        "or Present Windows. Effects are turned off in System Settings → Desktop "
        "Effects.";
    stage.notes->swipeInChinese = "KDE Plasma 用此手势打开桌面特效（概览、桌面网格或展示窗口），"
                                  "可在「系统设置 → 桌面特效」中关闭。";
    SettingsWindow& window = stage.open();
    stage.row(0)->controls()[2]->click();
    return photographWithAllAbove(window);
}

GestureBinding shortcutInFirefox() {
    return bound(GestureType::threeFingerSwipeLeft,
                 KeyShortcut{.keyCode = 124, .modifiers = modifier::option | modifier::command},
                 AppScope{"org.mozilla.firefox", "Firefox"});
}

GestureBinding exitedApplication() {
    const std::string name =
        "The Extraordinarily Long-Named Presentation Suite, Collector's Edition";
    return bound(GestureType::rotateClockwise, LaunchApp{"org.example.gone", name},
                 AppScope{"org.example.gone", name});
}

Scene editor(const char* name, const char* caption, const Arrangement& arrange,
             std::optional<GestureBinding> edited = std::nullopt, bool inBrief = false) {
    return {"Binding editor", name, caption,
            [arrange, edited = std::move(edited)] { return pictureOfEditor(arrange, edited); },
            inBrief};
}

} // namespace

std::vector<Scene> editorScenes() {
    return {
        editor("new", "A new binding", leaveIt, {}, true),
        {"Binding editor", "new-large", "A new binding in large letters",
         [] {
             const LargerLetters letters(1.5);
             return pictureOfEditor(leaveIt);
         }},
        editor("shortcut", "A shortcut in one application", leaveIt, shortcutInFirefox()),
        editor("recording", "A shortcut is being recorded", startRecording),
        editor("recording-held", "The modifiers that are held while recording", holdModifiers),
        editor("recording-unknown", "A key that a shortcut cannot have", pressUnknownKey),
        editor("keys", "The keys of a shortcut from a list", openKeyList, shortcutInFirefox(),
               true),
        editor("keys-found", "Search results for keys", searchKey),
        editor("lock-screen", "Lock the screen", act(ActionKind::lockScreen)),
        editor("mission-control", "The overview of windows", act(ActionKind::missionControl)),
        editor("no-overview", "A desktop without an overview of windows", lackOverview),
        editor("action-picker", "The kinds of action", openActionPicker),
        editor("open-app", "Open an application, none chosen yet", act(ActionKind::launchApp)),
        editor("open-app-chosen", "Open an application", chooseApplication),
        editor("open-app-picker", "The running applications", openLaunchPicker, {}, true),
        editor("scope", "In one application, none chosen yet", chooseScope),
        editor("scope-chosen", "In one application", chooseScopeApplication),
        editor("gone", "An application that is not running, with a long name", leaveIt,
               exitedApplication()),
        editor("gestures", "The gestures by category", openGestures, {}, true),
        editor("gestures-browsed", "The demonstration of the highlighted gesture", browseGestures),
        editor("gestures-found", "Search results for gestures", search("swipe", "滑")),
        editor("gestures-none", "A search that finds nothing", search("wink", "眨眼")),
        {"Binding editor", "system-gesture", "A gesture that the desktop uses itself",
         pictureOfSystemGesture},
        editor("click-warning", "A click that the system no longer receives", warnOfClick),
    };
}

} // namespace glidemap::test
