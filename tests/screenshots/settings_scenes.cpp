#include "kit/larger_letters.h"
#include "screenshots/photograph.h"
#include "screenshots/scene.h"
#include "ui/settings/settings_stage.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QHoverEvent>
#include <QTest>

namespace glidemap::test {

namespace {

using Arrangement = std::function<void(SettingsStage&)>;

// The text scale of a desktop with larger text.
constexpr double largeLetters = 1.5;

bool isChinese() {
    return Lang::shared().code() == "zh";
}

// The bindings that a typical user has after a week.
BindingList usualBindings() {
    using enum GestureType;
    BindingList list{
        bound(drawCircle, MissionControl{}),
        bound(threeFingerSwipeLeft, KeyShortcut{.keyCode = 33, .modifiers = modifier::command},
              AppScope{"org.mozilla.firefox", "Firefox"}),
        bound(threeFingerDoubleTap,
              LaunchApp{"org.gnome.Terminal", isChinese() ? "终端" : "Terminal"}),
        bound(cornerTapTopRight, LockScreen{}),
        bound(pinchIn, KeyShortcut{.keyCode = 12, .modifiers = modifier::command},
              AppScope{"org.gnome.Evince", isChinese() ? "文档查看器" : "Document Viewer"}),
    };
    list[3].enabled = false;
    return list;
}

BindingList longBindings() {
    using enum GestureType;
    const std::string longName =
        isChinese() ? "一个名字特别特别长的演示文稿与电子表格综合办公应用程序套件旗舰版"
                    : "The Extraordinarily Long-Named Presentation and "
                      "Spreadsheet Suite, Collector's Edition";
    BindingList list{
        bound(drawCircleCounterclockwise, LaunchApp{"org.example.long", longName},
              AppScope{"org.example.long", longName}),
        bound(twoFingerLongPress, LaunchApp{"org.example.long", longName}),
        bound(drawCircleClockwise,
              KeyShortcut{.keyCode = 124,
                          .modifiers = modifier::control | modifier::option | modifier::shift |
                                       modifier::command},
              AppScope{"org.example.long", longName}),
        bound(edgeSwipeFromBottom, MissionControl{}, AppScope{"org.example.a", "A"}),
    };
    BindingList more = manyBindings(14);
    list.insert(list.end(), more.begin(), more.end());
    return list;
}

QImage picture(BindingList bindings, const Arrangement& arrange = {},
               QSize size = SettingsWindow::contentSize) {
    SettingsStage stage(std::move(bindings));
    stage.open(size);
    if (arrange) {
        arrange(stage);
    }
    return photograph(stage.window());
}

// `prepare` runs before the window opens, `arrange` afterwards.
QImage pictureAfter(const Arrangement& prepare, const Arrangement& arrange,
                    QSize size = SettingsWindow::contentSize) {
    SettingsStage stage(usualBindings());
    prepare(stage);
    stage.open(size);
    arrange(stage);
    return photograph(stage.window());
}

void nothing(SettingsStage& /*stage*/) {}

void revokeTrust(SettingsStage& stage) {
    stage.trust->trusted = false;
}

void removeDriver(SettingsStage& stage) {
    stage.devices = std::make_unique<MultitouchDeviceManager>(
        TouchDriverPlatform{"/opt/glidemap/lib/libglidemap-evdev.so", {}});
}

void refuseLogin(SettingsStage& stage) {
    stage.loginItems->refusal = isChinese() ? "无法写入自动启动文件：只读文件系统"
                                            : "The autostart entry cannot be written: read-only "
                                              "file system";
}

void removeHelper(SettingsStage& stage) {
    stage.helper->become(FakeDesktopHelper::State::missing);
}

void publish(SettingsStage& stage) {
    stage.publish("1.2.0");
}

void enableLaunchAtLogin(SettingsStage& stage) {
    stage.click("launchAtLogin");
}

void prepareAllNotices(SettingsStage& stage) {
    revokeTrust(stage);
    removeDriver(stage);
    refuseLogin(stage);
    removeHelper(stage);
}

void showAllNotices(SettingsStage& stage) {
    publish(stage);
    enableLaunchAtLogin(stage);
}

void circleUnbound(SettingsStage& stage) {
    stage.recognise(GestureType::twoFingerTap);
}

void circleBound(SettingsStage& stage) {
    stage.recognise(GestureType::drawCircleClockwise, isChinese() ? "文件" : "Files");
}

void longFooter(SettingsStage& stage) {
    stage.recognise(GestureType::drawCircleCounterclockwise,
                    isChinese() ? "一个名字特别特别长的演示文稿与电子表格综合办公应用程序套件旗舰版"
                                : "The Extraordinarily Long-Named Presentation and Spreadsheet "
                                  "Suite, Collector's Edition");
}

void selectWithKeys(SettingsStage& stage) {
    stage.find("bindingList")->setFocus(Qt::TabFocusReason);
    stage.pressKey(Qt::Key_Down);
    stage.pressKey(Qt::Key_Down);
}

void switchOff(SettingsStage& stage) {
    stage.dispatcher->setMasterEnabled(false);
}

void deleteSecond(SettingsStage& stage) {
    stage.clickInRow(1, "delete");
}

// Focuses a control in the row of the disabled binding.
void focusInDimmedRow(SettingsStage& stage) {
    stage.find("bindingList")->setFocus(Qt::TabFocusReason);
    for (const Qt::Key key : {Qt::Key_End, Qt::Key_Up, Qt::Key_Right, Qt::Key_Right}) {
        stage.pressKey(key);
    }
}

QImage pictureOfLanguages() {
    SettingsStage stage(usualBindings());
    SettingsWindow& window = stage.open();
    stage.find<QComboBox>("language")->showPopup();
    settle();
    return photographWithAllAbove(window);
}

// Shows the note that appears after a request for access has failed.
void failToAsk(SettingsStage& stage) {
    revokeTrust(stage);
    stage.notes = std::make_shared<FakeNotes>();
    stage.notes->missing =
        isChinese() ? "Glidemap 没有访问触控板和虚拟键盘的权限。\n权限请求失败或被拒绝。"
                      "请在终端中运行：sudo /usr/libexec/glidemap/glidemap-grant-access"
                    : "Glidemap has no access to the touchpad and the virtual keyboard.\n"
                      "The request for access failed or was denied. To grant access, run in a "
                      "terminal: sudo /usr/libexec/glidemap/glidemap-grant-access";
}

// Moves the focus with a key, because Qt draws the focus ring only after a key press.
void focusAdd(SettingsStage& stage) {
    stage.find("addBinding")->setFocus(Qt::TabFocusReason);
    stage.pressKey(Qt::Key_Tab, Qt::ShiftModifier);
    stage.pressKey(Qt::Key_Tab);
}

Arrangement previewOf(std::size_t row) {
    return [row](SettingsStage& stage) {
        stage.row(row)->togglePreview();
    };
}

Arrangement hover(std::size_t row) {
    return [row](SettingsStage& stage) {
        BindingRow* const hovered = stage.row(row);
        hovered->setAttribute(Qt::WA_UnderMouse);
        QHoverEvent enter(QEvent::HoverEnter, QPointF(5, 5), QPointF(), QPointF());
        QApplication::sendEvent(hovered, &enter);
    };
}

Scene settings(const char* name, const char* caption, std::function<QImage()> paint,
               bool inBrief = false) {
    return {"Settings window", name, caption, std::move(paint), inBrief};
}

Scene notice(const char* name, const char* caption, const Arrangement& prepare,
             const Arrangement& arrange, bool inBrief = false) {
    return {"Notices", name, caption, [prepare, arrange] { return pictureAfter(prepare, arrange); },
            inBrief};
}

std::vector<Scene> windowScenes() {
    return {
        settings(
            "empty", "Without bindings", [] { return picture({}); }, true),
        settings(
            "usual", "A few bindings, one of them off",
            [] { return picture(usualBindings(), circleBound); }, true),
        settings("many", "Many bindings with long names, to be scrolled",
                 [] { return picture(longBindings(), longFooter); }),
        settings("selected", "A row selected with the keyboard",
                 [] { return picture(usualBindings(), selectWithKeys); }),
        settings("hovered", "The pointer over a row",
                 [] { return picture(usualBindings(), hover(2)); }),
        settings("languages", "The languages", pictureOfLanguages),
        settings("languages-large", "The languages, with a large font",
                 [] {
                     const LargerLetters letters(largeLetters);
                     return pictureOfLanguages();
                 }),
        settings("usual-large", "A few bindings in large letters",
                 [] {
                     const LargerLetters letters(largeLetters);
                     return picture(usualBindings(), circleBound);
                 }),
        settings("smallest-large", "As small as it gets, in large letters",
                 [] {
                     const LargerLetters letters(largeLetters);
                     return picture(longBindings(), longFooter, SettingsWindow::minimumContentSize);
                 }),
        settings("deleted", "A deleted binding, which can be restored",
                 [] { return picture(usualBindings(), deleteSecond); }),
        settings("focus-dimmed", "The focus in a row that is off",
                 [] { return picture(usualBindings(), focusInDimmedRow); }),
        settings("focus", "The focus on a button",
                 [] { return picture(usualBindings(), focusAdd); }),
        settings("off", "Gestures switched off",
                 [] { return picture(usualBindings(), switchOff); }),
        settings("footer-unbound", "The last gesture had no binding",
                 [] { return picture(usualBindings(), circleUnbound); }),
        settings(
            "smallest", "At the minimum size",
            [] { return picture(longBindings(), longFooter, SettingsWindow::minimumContentSize); }),
        settings("smallest-empty", "At the minimum size, without bindings",
                 [] { return picture({}, {}, SettingsWindow::minimumContentSize); }),
        settings("large", "Large", [] { return picture(longBindings(), {}, QSize(1100, 760)); }),
        settings(
            "popover", "The demonstration of a gesture",
            [] { return picture(usualBindings(), previewOf(0)); }, true),
        settings("popover-above", "The same, with no room below the row",
                 [] { return picture(usualBindings(), previewOf(4)); }),
    };
}

std::vector<Scene> noticeScenes() {
    return {
        notice("update", "A newer version", nothing, publish),
        notice("permission", "No access to the touchpad and to keys", revokeTrust, nothing),
        notice("permission-failed", "The request for access failed", failToAsk, nothing),
        notice("device", "The touch driver cannot be loaded", removeDriver, nothing),
        notice("login", "Launch at login was refused", refuseLogin, enableLaunchAtLogin),
        notice("helper", "A desktop that needs the extension", removeHelper, nothing),
        notice("all", "All of them together", prepareAllNotices, showAllNotices, true),
        {"Notices", "all-smallest", "All of them in the smallest window",
         [] {
             return pictureAfter(prepareAllNotices, showAllNotices,
                                 SettingsWindow::minimumContentSize);
         }},
    };
}

} // namespace

std::vector<Scene> settingsScenes() {
    std::vector<Scene> scenes = windowScenes();
    for (Scene& scene : noticeScenes()) {
        scenes.push_back(std::move(scene));
    }
    return scenes;
}

} // namespace glidemap::test
