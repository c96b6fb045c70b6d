#include "ui/editor/gesture_list.h"

#include "ui/controls/styled_label.h"
#include "ui/editor/gesture_item_delegate.h"
#include "ui/editor/gesture_search.h"
#include "ui/theme/item_roles.h"
#include "ui/theme/symbol.h"
#include "ui/theme/text.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QStandardItemModel>
#include <QToolButton>
#include <QVBoxLayout>
#include <cstdlib>

namespace glidemap {

namespace {

constexpr int rowsOfAPage = 9;

QStandardItem* headingItem(const QString& title) {
    auto* item = new QStandardItem(title);
    item->setFlags(Qt::NoItemFlags);
    item->setData(true, headingRole);
    return item;
}

QStandardItem* gestureItem(GestureType gesture, const Lang& lang) {
    auto* item = new QStandardItem(symbolIcon(symbolName(gesture), Role::accent),
                                   toQt(displayName(gesture, lang)));
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren);
    item->setData(static_cast<int>(gesture), gestureRole);
    return item;
}

bool isHeading(const QModelIndex& index) {
    return index.data(headingRole).toBool();
}

GestureType gestureOf(const QModelIndex& index) {
    return static_cast<GestureType>(index.data(gestureRole).toInt());
}

} // namespace

GestureList::GestureList(GestureType chosen, Lang& language, const QString& search, QWidget* parent)
    : QWidget(parent), current(chosen), lang(language), field(new QLineEdit(search)),
      list(new QListView), nothingFound(new StyledLabel(TextStyle::callout, Role::secondary)),
      model(new QStandardItemModel(this)) {
    field->setObjectName("gestureSearch");
    field->setClearButtonEnabled(true);
    field->installEventFilter(this);
    list->setObjectName("gestureList");
    list->setModel(model);
    list->setItemDelegate(new GestureItemDelegate(chosen, list));
    list->setFocusPolicy(Qt::NoFocus);
    list->setFrameShape(QFrame::NoFrame);
    list->viewport()->setAutoFillBackground(false);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setUniformItemSizes(false);
    nothingFound->setObjectName("nothingFound");
    nothingFound->setAlignment(Qt::AlignCenter);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addWidget(field);
    column->addWidget(list, 1);
    column->addWidget(nothingFound, 1);
    setFocusProxy(field);

    connect(field, &QLineEdit::textChanged, this, [this] { this->search(); });
    connect(list, &QListView::clicked, this, [this](const QModelIndex& index) { choose(index); });
    toLanguage = lang.changes().subscribe({}, [this] { retitle(); });
    toTheme = Theme::shared().changes().subscribe({}, [this] { this->search(); });
    retitle();
}

void GestureList::search() {
    model->clear();
    for (const FoundGestures& group : findGestures(field->text().toStdString())) {
        addGroup(toQt(displayName(group.category, lang)), group.gestures);
    }
    const bool isEmpty = model->rowCount() == 0;
    list->setVisible(!isEmpty);
    nothingFound->setVisible(isEmpty);
    markFirst();
}

void GestureList::addGroup(const QString& title, const std::vector<GestureType>& members) {
    model->appendRow(headingItem(title));
    for (const GestureType gesture : members) {
        QStandardItem* const item = gestureItem(gesture, lang);
        if (gesture == current) {
            item->setData(toQt(lang.choose("Current choice", "当前选择")),
                          Qt::AccessibleDescriptionRole);
        }
        model->appendRow(item);
    }
}

// Marks the first match after typing, and otherwise the current choice.
void GestureList::markFirst() {
    const bool isSearching = !field->text().trimmed().isEmpty();
    for (int row = 0; row < model->rowCount(); ++row) {
        const QModelIndex index = model->index(row, 0);
        if (!isHeading(index) && (isSearching || gestureOf(index) == current)) {
            mark(row);
            return;
        }
    }
}

void GestureList::mark(int row) {
    const QModelIndex index = model->index(row, 0);
    list->setCurrentIndex(index);
    // For the first entry of a group, scrolls its heading into view, too.
    if (isHeading(index.siblingAtRow(row - 1))) {
        list->scrollTo(index.siblingAtRow(row - 1));
    }
    list->scrollTo(index);
    // The list never has the focus, so Qt does not report its current entry.
    if (QAccessible::isActive()) {
        QAccessibleEvent event(list, QAccessible::Focus);
        event.setChild(row);
        QAccessible::updateAccessibility(&event);
    }
}

void GestureList::move(int steps) {
    const int direction = steps < 0 ? -1 : 1;
    int last = list->currentIndex().row();
    int left = std::abs(steps);
    for (int row = last + direction; left > 0 && row >= 0 && row < model->rowCount();
         row += direction) {
        if (!isHeading(model->index(row, 0))) {
            last = row;
            --left;
        }
    }
    if (last >= 0) {
        mark(last);
    }
}

void GestureList::choose(const QModelIndex& index) {
    if (index.isValid() && !isHeading(index) && onChoose) {
        onChoose(gestureOf(index)); // may delete this list
    }
}

bool GestureList::eventFilter(QObject* /*watched*/, QEvent* event) {
    return event->type() == QEvent::KeyPress && obeyKey(static_cast<QKeyEvent*>(event)->key());
}

bool GestureList::obeyKey(int key) {
    switch (key) {
    case Qt::Key_Up:
        move(-1);
        return true;
    case Qt::Key_Down:
        move(1);
        return true;
    case Qt::Key_PageUp:
        move(-rowsOfAPage);
        return true;
    case Qt::Key_PageDown:
        move(rowsOfAPage);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        choose(list->currentIndex());
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        if (onLeave) {
            onLeave();
        }
        return true;
    default:
        return false;
    }
}

void GestureList::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (list->currentIndex().isValid()) {
        list->scrollTo(list->currentIndex(), QAbstractItemView::PositionAtCenter);
    }
}

void GestureList::retitle() {
    const QString find = toQt(lang.choose("Search gestures", "搜索手势"));
    field->setPlaceholderText(find);
    field->setAccessibleName(find);
    for (QToolButton* clear : field->findChildren<QToolButton*>()) {
        clear->setAccessibleName(toQt(lang.choose("Clear", "清除")));
    }
    list->setAccessibleName(toQt(lang.choose("Trackpad gesture", "触控板手势")));
    nothingFound->setText(toQt(lang.choose("No matching gestures", "没有匹配的手势")));
    search();
}

} // namespace glidemap
