#include "ui/settings/settings_view.h"

#include "ui/controls/separator.h"
#include "ui/controls/sheet.h"
#include "ui/controls/styled_label.h"
#include "ui/controls/symbol_label.h"
#include "ui/editor/binding_editor.h"
#include "ui/settings/activity_footer.h"
#include "ui/settings/binding_list_view.h"
#include "ui/settings/notices.h"
#include "ui/settings/settings_header.h"
#include "ui/settings/undo_bar.h"
#include "ui/theme/text.h"

#include <QEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace glidemap {

namespace {

constexpr QMargins aroundList(12, 12, 12, 12);
constexpr int emptyStatePadding = 12;
constexpr int emptyStateDrawing = 64;

} // namespace

// Replaces the list while there are no bindings: a drawing above a text with word wrap.
class SettingsView::EmptyState : public QWidget {
public:
    explicit EmptyState(QWidget* parent);

    void retitle(const Lang& lang);

private:
    StyledLabel* text;
};

SettingsView::EmptyState::EmptyState(QWidget* parent)
    : QWidget(parent), text(new StyledLabel(TextStyle::body, Role::secondary, this)) {
    setObjectName("emptyState");
    text->setObjectName("emptyStateText");
    text->setAlignment(Qt::AlignCenter);
    text->setWordWrap(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(emptyStatePadding, emptyStatePadding, emptyStatePadding,
                               emptyStatePadding);
    layout->setSpacing(16);
    layout->addStretch(1);
    layout->addWidget(new SymbolLabel("hand.draw", Role::tertiary, emptyStateDrawing, this), 0,
                      Qt::AlignHCenter);
    layout->addWidget(text);
    layout->addStretch(1);
}

void SettingsView::EmptyState::retitle(const Lang& lang) {
    text->setText(toQt(lang.choose(
        "No bindings yet — click \"Add Binding\" in the top-right corner to create one.",
        "还没有绑定，点右上角「添加绑定」创建一个。")));
}

SettingsView::SettingsView(Services services, QWidget* parent)
    : QWidget(parent), services(std::move(services)),
      loginItem(*this->services.loginItems, *this->services.lang),
      header(new SettingsHeader(*this->services.lang, this)), notices(new Notices(this)),
      emptyState(new EmptyState(this)), list(new BindingListView(*this->services.lang, this)),
      undoBar(new UndoBar(*this->services.lang, this)), footer(new ActivityFooter(this)) {
    lay();
    listen();
    observe();
    retitle();
}

void SettingsView::lay() {
    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);
    stack->addWidget(header);
    stack->addWidget(new Separator(this));
    stack->addWidget(notices);
    auto* middle = new QVBoxLayout;
    middle->setContentsMargins(aroundList);
    middle->addWidget(emptyState);
    middle->addWidget(list);
    stack->addLayout(middle, 1);
    stack->addWidget(undoBar);
    stack->addWidget(new Separator(this));
    stack->addWidget(footer);
}

void SettingsView::listen() {
    header->onLaunchAtLogin = [this](bool on) {
        loginItem.setEnabled(on);
    };
    header->onEnabled = [this](bool on) {
        services.dispatcher->setMasterEnabled(on);
    };
    header->onAddBinding = [this] {
        addBinding();
    };
    notices->onDownload = [this] {
        services.workspace->openURL(services.updates->siteURL());
    };
    notices->onOpenSystemSettings = [this] {
        services.workspace->openAccessibilitySettings();
    };
    notices->onInstallHelper = [this] {
        services.desktopHelper->install();
    };
    list->onToggle = [this](const GestureBinding& binding, bool on) {
        toggle(binding, on);
    };
    list->onEdit = [this](const GestureBinding& binding) {
        edit(binding);
    };
    list->onDelete = [this](const GestureBinding& binding) {
        remove(binding);
    };
    undoBar->onUndo = [this] {
        bringBack();
    };
}

// Changes are ignored while the view is hidden, because showEvent() refreshes the view.
void SettingsView::observe() {
    const auto follow = [this](Observable& observed, void (SettingsView::*react)()) {
        subscriptions.push_back(observed.subscribe({}, [this, react] {
            if (isVisible()) {
                (this->*react)();
            }
        }));
    };
    follow(services.store->changes(), &SettingsView::refresh);
    follow(services.dispatcher->changes(), &SettingsView::refresh);
    follow(services.updates->changes(), &SettingsView::refresh);
    follow(services.lang->changes(), &SettingsView::retitle);
    follow(loginItem.changes(), &SettingsView::refresh);
    if (services.devices != nullptr) {
        follow(services.devices->changes(), &SettingsView::refresh);
    }
    if (services.desktopHelper != nullptr) {
        follow(services.desktopHelper->changes(), &SettingsView::refresh);
    }
    if (services.notes != nullptr) {
        follow(services.notes->changes(), &SettingsView::refresh);
    }
}

// Called only when the view is created or shown and when the language changes, because setting an
// accessible name notifies screen readers.
void SettingsView::retitle() {
    header->retitle();
    if (services.notes != nullptr) {
        header->addLaunchHelp(services.notes->launchAtLogin(*services.lang));
    }
    list->retitle();
    emptyState->retitle(*services.lang);
    undoBar->retitle();
    refresh();
}

void SettingsView::refresh() {
    header->setLaunchesAtLogin(loginItem.enabled());
    header->setEnabledSwitch(services.dispatcher->masterEnabled());
    refreshNotices();
    refreshList();
    const auto& events = services.dispatcher->recentEvents();
    footer->display(events.empty() ? nullptr : &events.front(), *services.lang);
}

// Also queries the access permission, whose port has no change notification.
void SettingsView::refreshNotices() {
    Notices::Content content;
    content.latestVersion = services.updates->latestVersion();
    content.currentVersion = services.updates->currentVersion();
    content.isTrusted = services.trust->isTrusted();
    if (services.notes != nullptr && !content.isTrusted) {
        content.missingAccess = services.notes->missingAccess(*services.lang);
        content.accessButtonHelp = services.notes->accessButton(*services.lang);
    }
    content.loginItemError = loginItem.lastError();
    if (services.devices != nullptr) {
        content.deviceError = services.devices->loadError();
    }
    if (services.desktopHelper != nullptr) {
        content.desktopHelper = services.desktopHelper->state();
        content.desktopHelperError = services.desktopHelper->lastError();
    }
    notices->display(content, *services.lang);
}

void SettingsView::refreshList() {
    const auto bindings = services.store->bindings();
    list->setMuted(!services.dispatcher->masterEnabled());
    list->setBindings(bindings);
    if (lastDeletion && lastDeletion->after != *bindings) {
        lastDeletion.reset();
        undoBar->hide();
    }
    emptyState->setVisible(bindings->empty());
    list->setVisible(!bindings->empty());
}

void SettingsView::addBinding() {
    edit(std::nullopt);
}

void SettingsView::edit(std::optional<GestureBinding> binding) {
    if (showingEditor) {
        return;
    }
    editingBinding = std::move(binding);
    showingEditor = true;
    auto* editor = new BindingEditor(
        {*services.store, *services.workspace, services.keys, *services.lang, services.notes.get()},
        editingBinding);
    auto* sheet = new Sheet(this, editor, BindingEditor::sheetSize);
    editor->dismiss = [sheet] {
        sheet->dismiss();
    };
    sheet->onClosed = [this] {
        showingEditor = false;
    };
    sheet->present();
}

void SettingsView::toggle(const GestureBinding& binding, bool enabled) {
    BindingList changed = *services.store->bindings();
    const auto found = std::ranges::find(changed, binding.id, &GestureBinding::id);
    if (found != changed.end()) {
        found->enabled = enabled;
        services.store->setBindings(std::move(changed)); // also saves the list
    }
}

void SettingsView::remove(const GestureBinding& binding) {
    const BindingList before = *services.store->bindings();
    const auto first = std::ranges::find(before, binding.id, &GestureBinding::id);
    if (first == before.end()) {
        return;
    }
    BindingList left = before;
    std::erase_if(left, [id = binding.id](const GestureBinding& each) { return each.id == id; });
    lastDeletion = Deletion{before, left, static_cast<std::size_t>(first - before.begin())};
    services.store->setBindings(std::move(left)); // also saves the list
    undoBar->offer(binding.gesture);
}

void SettingsView::bringBack() {
    const auto deletion = std::exchange(lastDeletion, std::nullopt);
    if (!deletion || *services.store->bindings() != deletion->after) {
        return;
    }
    services.store->setBindings(deletion->before); // also saves the list
    list->setFocus(Qt::OtherFocusReason);
    list->select(deletion->place);
}

// The window becomes active when the user returns from the system settings, where permissions may
// have changed.
bool SettingsView::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        refresh();
    }
    return QWidget::event(event);
}

void SettingsView::showEvent(QShowEvent* event) {
    retitle();
    QWidget::showEvent(event);
}

} // namespace glidemap
