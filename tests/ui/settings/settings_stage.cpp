#include "ui/settings/settings_stage.h"

#include "kit/qt_waiting.h"
#include "ui/controls/notice.h"
#include "ui/settings/binding_list_view.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLayoutItem>
#include <QTest>
#include <cmath>
#include <utility>

namespace glidemap::test {

SettingsStage::SettingsStage(BindingList bindings)
    : SettingsStage(std::make_shared<BindingStore>(std::move(bindings))) {}

SettingsStage::SettingsStage(std::shared_ptr<BindingStore> kept)
    : store(std::move(kept)), languageBefore(Lang::shared().code()) {
    auto runner = std::make_shared<ActionRunner>(
        ActionRunner::Ports{.workspace = workspace, .keyEvents = nullptr, .screenLock = nullptr});
    dispatcher = GestureDispatcher::create({.store = store,
                                            .defaults = defaults,
                                            .mainQueue = mainQueue,
                                            .workspace = workspace,
                                            .actionRunner = std::move(runner)});
}

SettingsStage::~SettingsStage() {
    opened.reset();
    Lang::shared().setCode(languageBefore);
}

SettingsView::Services SettingsStage::services() {
    UpdateChecker::Setup setup;
    setup.host = "glidemap.test";
    setup.currentVersion = runningVersion;
    setup.fetch = [this](const std::string& /*url*/, const auto& done) {
        done(Fetched{.body = manifest, .transportError = std::nullopt});
    };
    updates = UpdateChecker::create(std::move(setup));
    return {.store = store,
            .dispatcher = dispatcher,
            .updates = updates,
            .workspace = workspace,
            .trust = trust,
            .loginItems = loginItems,
            .keys = keys,
            .devices = devices.get(),
            .desktopHelper = helper,
            .notes = notes,
            .lang = &Lang::shared()};
}

SettingsWindow& SettingsStage::open() {
    return open(SettingsWindow::contentSize);
}

SettingsWindow& SettingsStage::make() {
    opened.reset();
    opened = std::make_unique<SettingsWindow>(services(), geometry);
    return *opened;
}

SettingsWindow& SettingsStage::open(QSize size) {
    make();
    opened->resize(size);
    opened->show();
    opened->activateWindow();
    EXPECT_TRUE(waitForWindowActive(opened.get()));
    return *opened;
}

void SettingsStage::close() {
    opened.reset();
}

QWidget* SettingsStage::find(const char* name) const {
    auto* found = opened->findChild<QWidget*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
}

QString SettingsStage::text(const char* name) const {
    const QWidget* widget = find(name);
    if (const auto* label = dynamic_cast<const QLabel*>(widget)) {
        return label->text();
    }
    const auto* button = dynamic_cast<const QAbstractButton*>(widget);
    return button != nullptr ? button->text() : QString();
}

QString SettingsStage::noticeText(const char* name) const {
    return find<Notice>(name)->text();
}

bool SettingsStage::isShown(const char* name) const {
    return find(name)->isVisible();
}

void SettingsStage::click(const char* name) const {
    QTest::mouseClick(find(name), Qt::LeftButton);
}

void SettingsStage::pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
    QWidget* receiver = opened->focusWidget();
    QTest::keyClick(receiver != nullptr ? receiver : opened.get(), key, modifiers);
}

BindingRow* SettingsStage::row(std::size_t index) const {
    const auto& rows = find<BindingListView>("bindingList")->rows();
    const auto found = rows.find(index);
    return found != rows.end() ? found->second : nullptr;
}

std::size_t SettingsStage::rowCount() const {
    return find<BindingListView>("bindingList")->rows().size();
}

void SettingsStage::recognise(GestureType gesture, std::optional<std::string> application) {
    workspace->setFrontmost({.bundleID = application, .name = application});
    dispatcher->handle(gesture, false);
    mainQueue->runAll();
}

void SettingsStage::publish(const std::string& version) {
    manifest = "{\"version\": \"" + version + "\"}";
    updates->check();
}

void SettingsStage::choose(const char* code) const {
    auto* picker = find<QComboBox>("language");
    picker->setFocus();
    const int wanted = picker->findData(QString::fromUtf8(code));
    QTest::keyClick(picker, wanted == 0 ? Qt::Key_Home : Qt::Key_End);
}

QString SettingsStage::rowText(std::size_t index, const char* name) const {
    return row(index)->findChild<QLabel*>(name)->text();
}

void SettingsStage::clickInRow(std::size_t index, const char* name) const {
    QTest::mouseClick(row(index)->findChild<QWidget*>(name), Qt::LeftButton);
}

QColor SettingsStage::pixel(const QWidget& of, QPoint at) const {
    return opened->grab().toImage().pixelColor(of.mapTo(opened.get(), at));
}

GestureBinding bound(GestureType gesture, BindingAction action, BindingScope scope) {
    GestureBinding binding;
    binding.gesture = gesture;
    binding.action = std::move(action);
    binding.scope = std::move(scope);
    return binding;
}

BindingList manyBindings(std::size_t count) {
    BindingList list;
    for (std::size_t index = 0; index < count; ++index) {
        const auto gesture = allGestureTypes[index % allGestureTypes.size()];
        const std::string name = "App " + std::to_string(index);
        BindingScope scope = GlobalScope{};
        if (index % 3 == 1) {
            scope = AppScope{"org.example.app" + std::to_string(index), name};
        }
        list.push_back(bound(gesture, LaunchApp{"org.example.opened", name}, std::move(scope)));
        list.back().enabled = index % 5 != 4;
    }
    return list;
}

bool fits(const QLabel& label) {
    const QRect room = label.contentsRect();
    if (label.wordWrap()) {
        return label.heightForWidth(label.width()) <= label.height();
    }
    const QSize needed = label.fontMetrics().size(Qt::TextSingleLine, label.text());
    return needed.width() <= room.width() && needed.height() <= room.height();
}

QRect seenRect(const QWidget& widget) {
    return QWidgetItem(const_cast<QWidget*>(&widget)).geometry();
}

bool looksLike(const QColor& seen, const QColor& tint, double opacity, const QColor& ground) {
    const auto near = [&](int actual, int over, int under) {
        return std::abs(actual - (opacity * over + (1 - opacity) * under)) <= 2;
    };
    return near(seen.red(), tint.red(), ground.red()) &&
           near(seen.green(), tint.green(), ground.green()) &&
           near(seen.blue(), tint.blue(), ground.blue());
}

} // namespace glidemap::test
