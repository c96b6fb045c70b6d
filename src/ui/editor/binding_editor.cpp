#include "ui/editor/binding_editor.h"

#include "ui/controls/separator.h"
#include "ui/controls/styled_label.h"
#include "ui/editor/action_section.h"
#include "ui/editor/gesture_section.h"
#include "ui/editor/scope_section.h"
#include "ui/theme/style/scroll_bar.h"
#include "ui/theme/text.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace glidemap {

namespace {

constexpr int sidePadding = 20;
constexpr int titlePadding = 14;
constexpr int titleGap = 12;
constexpr int sectionGap = 10;
constexpr int buttonPadding = 11;

std::string missingText(BindingDraft::Missing missing, const Lang& lang) {
    using Missing = BindingDraft::Missing;
    switch (missing) {
    case Missing::nothing:
        break;
    case Missing::shortcut:
        return lang.choose("Record a shortcut first", "请先录制快捷键");
    case Missing::launchTarget:
        return lang.choose("Choose the app to open first", "请先选择要打开的 App");
    case Missing::scopeApp:
        return lang.choose("Choose the app for this binding first", "请先选择此绑定适用的 App");
    }
    return {};
}

// Scrolls the form vertically. Unlike QScrollArea, this class cannot become narrower than its
// content, so that the sheet does not cut off wide rows.
class FormScroller : public QScrollArea {
public:
    using QScrollArea::QScrollArea;

    QSize minimumSizeHint() const override {
        const QSize least = QScrollArea::minimumSizeHint();
        const int form = widget() != nullptr ? widget()->minimumSizeHint().width() : 0;
        return {std::max(least.width(), form + style::scrollBarExtent), least.height()};
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == widget() && event->type() == QEvent::LayoutRequest) {
            updateGeometry();
        }
        return QScrollArea::eventFilter(watched, event);
    }
};

} // namespace

BindingEditor::BindingEditor(const Services& services, std::optional<GestureBinding> existing,
                             QWidget* parent)
    : QWidget(parent), services(services), existing(std::move(existing)),
      title(new StyledLabel(TextStyle::headline, Role::primary)),
      gestureSection(new GestureSection(draft, services.lang, services.notes)),
      actionSection(new ActionSection(draft, services.workspace, services.keys, services.lang)),
      scopeSection(new ScopeSection(draft, services.workspace, services.lang)),
      cancelButton(new QPushButton), saveButton(new QPushButton) {
    setObjectName("bindingEditor");
    loadExisting();
    layOut();
    for (std::function<void()>* onEdit :
         {&gestureSection->onEdit, &actionSection->onEdit, &scopeSection->onEdit}) {
        *onEdit = [this] {
            refreshSave();
        };
    }
    connect(cancelButton, &QPushButton::clicked, this, [this] { leave(); });
    connect(saveButton, &QPushButton::clicked, this, [this] { save(); });
    toLanguage = services.lang.changes().subscribe({}, [this] { retitle(); });
    // The editor subscribes after its sections, so that the sections update their labels first.
    toTheme = Theme::shared().changes().subscribe({}, [this] { alignPickers(); });
    retitle();
    setFocusProxy(gestureSection->firstControl());
}

void BindingEditor::loadExisting() {
    if (existing) {
        draft.load(*existing);
    }
}

void BindingEditor::layOut() {
    title->setObjectName("editorTitle");
    title->setContentsMargins(sidePadding, titlePadding, sidePadding, titleGap);
    auto* scroll = new FormScroller;
    scroll->setWidget(makeForm());
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->viewport()->setAutoFillBackground(false);
    scroll->widget()->setAutoFillBackground(false);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(title);
    column->addWidget(scroll, 1);
    column->addWidget(new Separator);
    column->addWidget(makeButtons());
}

QWidget* BindingEditor::makeForm() {
    auto* form = new QWidget;
    auto* sections = new QVBoxLayout(form);
    sections->setContentsMargins(sidePadding, 0, sidePadding, sectionGap);
    sections->setSpacing(sectionGap);
    for (QWidget* const section :
         std::initializer_list<QWidget*>{gestureSection, actionSection, scopeSection}) {
        sections->addWidget(section);
        sections->addStretch(1); // distributes extra height between the sections
    }
    return form;
}

QWidget* BindingEditor::makeButtons() {
    cancelButton->setObjectName("cancel");
    cancelButton->setAutoDefault(false);
    saveButton->setObjectName("save");
    saveButton->setAutoDefault(false);
    saveButton->setDefault(true);
    saveButton->setProperty("prominent", true);
    auto* buttons = new QWidget;
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins(sidePadding, buttonPadding, sidePadding, buttonPadding);
    row->addWidget(cancelButton);
    row->addStretch();
    row->addWidget(saveButton);
    return buttons;
}

// setBindings() also saves the list.
void BindingEditor::save() {
    std::optional<BindingList> list = draft.writtenInto(
        *services.store.bindings(), existing ? std::optional(existing->id) : std::nullopt);
    if (!list) {
        return;
    }
    services.store.setBindings(*std::move(list));
    leave();
}

void BindingEditor::leave() const {
    if (dismiss) {
        dismiss();
    }
}

// Handles keys that no control accepted. Auto-repeat is ignored: the Return key that opened the
// sheet must not save the binding, and the Escape key that closed a list must not cancel the sheet.
void BindingEditor::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Escape:
        if (!event->isAutoRepeat()) {
            leave();
        }
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!event->isAutoRepeat()) {
            save();
        }
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void BindingEditor::refreshSave() {
    saveButton->setEnabled(isValid());
    const QString missing = toQt(missingText(draft.missing(), services.lang));
    saveButton->setToolTip(missing);
    saveButton->setAccessibleDescription(missing);
}

void BindingEditor::retitle() {
    const Lang& lang = services.lang;
    title->setText(toQt(existing ? lang.choose("Edit Binding", "编辑绑定")
                                 : lang.choose("Add Binding", "添加绑定")));
    setAccessibleName(title->text());
    setWindowTitle(title->text()); // the sheet copies the title from its content
    gestureSection->refresh();
    actionSection->refresh();
    scopeSection->refresh();
    const QString cancel = toQt(lang.choose("Cancel", "取消"));
    cancelButton->setText(cancel);
    cancelButton->setAccessibleName(cancel);
    const QString save = toQt(existing ? lang.choose("Save", "保存") : lang.choose("Add", "添加"));
    saveButton->setText(save);
    saveButton->setAccessibleName(save);
    alignPickers();
    refreshSave();
}

// Gives all labels the width of the widest label, so that the pickers are aligned.
void BindingEditor::alignPickers() {
    std::vector<QLabel*> labels;
    for (const std::vector<QLabel*>& some :
         {gestureSection->pickerLabels(), actionSection->pickerLabels(),
          scopeSection->pickerLabels()}) {
        labels.insert(labels.end(), some.begin(), some.end());
    }
    int widest = 0;
    for (QLabel* const label : labels) {
        label->setMinimumWidth(0); // the minimum width set last time would affect the size hint
        widest = std::max(widest, label->sizeHint().width());
    }
    for (QLabel* const label : labels) {
        label->setMinimumWidth(widest);
    }
}

} // namespace glidemap
