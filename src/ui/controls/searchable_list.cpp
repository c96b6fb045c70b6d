#include "ui/controls/searchable_list.h"

#include "ui/controls/styled_label.h"
#include "ui/theme/item_roles.h"
#include "ui/theme/symbol.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdlib>
#include <utility>

namespace glidemap {

namespace {

constexpr int rowsOfAPage = 9;
constexpr int emptyHeight = 56;
constexpr int markSize = 14;
constexpr int markRoom = 28;

constexpr int entryValueRole = Qt::UserRole + 1;

QStandardItem* headingItem(const QString& title) {
    auto* item = new QStandardItem(title);
    item->setFlags(Qt::NoItemFlags);
    item->setData(true, headingRole);
    return item;
}

QStandardItem* entryItem(const SearchableList::Entry& entry) {
    auto* item = new QStandardItem(entry.icon, entry.text);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren);
    item->setData(entry.value, entryValueRole);
    return item;
}

bool isHeading(const QModelIndex& index) {
    return index.data(headingRole).toBool();
}

int valueOf(const QModelIndex& index) {
    return index.data(entryValueRole).toInt();
}

// Draws an entry in the current style, and adds a check mark to the current choice.
class MarkedItemDelegate : public QStyledItemDelegate {
public:
    MarkedItemDelegate(std::optional<int> chosen, QObject* parent)
        : QStyledItemDelegate(parent), chosen(chosen) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        if (!chosen || isHeading(index) || valueOf(index) != *chosen) {
            return;
        }
        QRectF mark(0, 0, markSize, markSize);
        mark.moveCenter(
            QPointF(option.rect.right() - markRoom / 2.0, option.rect.center().y() + 0.5));
        drawSymbol(*painter, mark, "checkmark", Theme::shared().color(Role::accent));
    }

private:
    std::optional<int> chosen;
};

} // namespace

SearchableList::SearchableList(Find find, std::optional<int> current, const QString& search,
                               QWidget* parent)
    : QWidget(parent), find(std::move(find)), current(current), field(new QLineEdit(search)),
      list(new QListView), nothingFound(new StyledLabel(TextStyle::callout, Role::secondary)),
      model(new QStandardItemModel(this)) {
    build();
    setFocusProxy(field);
    connect(field, &QLineEdit::textChanged, this, [this] { this->search(); });
    connect(list, &QListView::clicked, this, [this](const QModelIndex& index) { choose(index); });
    connect(list, &QListView::entered, this, [this](const QModelIndex& index) { browse(index); });
    toTheme = Theme::shared().changes().subscribe({}, [this] { this->search(); });
}

void SearchableList::build() {
    field->setClearButtonEnabled(true);
    field->installEventFilter(this);
    list->setModel(model);
    list->setItemDelegate(new MarkedItemDelegate(current, list));
    list->setFocusPolicy(Qt::NoFocus);
    list->setFrameShape(QFrame::NoFrame);
    list->viewport()->setAutoFillBackground(false);
    list->viewport()->installEventFilter(this);
    list->setMouseTracking(true);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setUniformItemSizes(false);
    nothingFound->setObjectName("nothingFound");
    nothingFound->setAlignment(Qt::AlignCenter);
    nothingFound->setFixedHeight(emptyHeight);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addWidget(field);
    column->addWidget(list);
    column->addWidget(nothingFound);
}

void SearchableList::setPartNames(const char* fieldName, const char* listName) {
    field->setObjectName(fieldName);
    list->setObjectName(listName);
}

void SearchableList::setRoomForEntries(int height) {
    room = height;
    fitToEntries();
}

void SearchableList::setTexts(const Texts& shown) {
    texts = shown;
    field->setPlaceholderText(texts.find);
    field->setAccessibleName(texts.find);
    for (QToolButton* clear : field->findChildren<QToolButton*>()) {
        clear->setAccessibleName(texts.clear);
    }
    list->setAccessibleName(texts.list);
    nothingFound->setText(texts.nothingFound);
    search();
}

void SearchableList::search() {
    model->clear();
    std::optional<int> exactRow;
    for (const Group& group : find(field->text())) {
        const auto exact = std::ranges::find(group.entries, true, &Entry::isExact);
        if (!exactRow && exact != group.entries.end()) {
            exactRow = model->rowCount() + 1 + static_cast<int>(exact - group.entries.begin());
        }
        addGroup(group);
    }
    const bool isEmpty = model->rowCount() == 0;
    list->setVisible(!isEmpty);
    nothingFound->setVisible(isEmpty);
    fitToEntries();
    markFirst(exactRow);
}

void SearchableList::fitToEntries() {
    int height = 0;
    for (int row = 0; row < model->rowCount() && height < room; ++row) {
        height += list->sizeHintForRow(row);
    }
    list->setFixedHeight(std::min(height, room));
}

void SearchableList::addGroup(const Group& group) {
    model->appendRow(headingItem(group.heading));
    for (const Entry& entry : group.entries) {
        QStandardItem* const item = entryItem(entry);
        if (entry.value == current) {
            item->setData(texts.currentChoice, Qt::AccessibleDescriptionRole);
        }
        model->appendRow(item);
    }
}

// While the user searches, highlights the entry whose name equals the search text, or else the
// first entry. Otherwise, highlights the current choice.
void SearchableList::markFirst(std::optional<int> exactRow) {
    const bool isSearching = !field->text().trimmed().isEmpty();
    if (isSearching && exactRow) {
        mark(*exactRow);
        return;
    }
    for (int row = 0; row < model->rowCount(); ++row) {
        const QModelIndex index = model->index(row, 0);
        if (!isHeading(index) && (isSearching || valueOf(index) == current)) {
            mark(row);
            return;
        }
    }
}

void SearchableList::mark(int row) {
    const QModelIndex index = model->index(row, 0);
    list->setCurrentIndex(index);
    // For the first entry of a group, also makes the heading above it visible.
    if (isHeading(index.siblingAtRow(row - 1))) {
        list->scrollTo(index.siblingAtRow(row - 1));
    }
    list->scrollTo(index);
    announce(row);
    browse(index);
}

// The focus stays in the search field, so Qt does not announce the highlighted entry.
void SearchableList::announce(int row) {
    if (QAccessible::isActive()) {
        QAccessibleEvent event(list, QAccessible::Focus);
        event.setChild(row);
        QAccessible::updateAccessibility(&event);
    }
}

void SearchableList::browse(const QModelIndex& index) const {
    if (index.isValid() && !isHeading(index) && onBrowse) {
        onBrowse(valueOf(index));
    }
}

void SearchableList::move(int steps) {
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

void SearchableList::choose(const QModelIndex& index) const {
    if (index.isValid() && !isHeading(index) && onChoose) {
        onChoose(valueOf(index));
    }
}

bool SearchableList::eventFilter(QObject* watched, QEvent* event) {
    if (watched == list->viewport()) {
        if (event->type() == QEvent::Leave) {
            browse(list->currentIndex());
        }
        return false;
    }
    return event->type() == QEvent::KeyPress && handleKey(static_cast<QKeyEvent*>(event)->key());
}

bool SearchableList::handleKey(int key) {
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
            onLeave(key == Qt::Key_Tab);
        }
        return true;
    default:
        return false;
    }
}

void SearchableList::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (list->currentIndex().isValid()) {
        list->scrollTo(list->currentIndex(), QAbstractItemView::PositionAtCenter);
    }
}

} // namespace glidemap
