#include "ui/settings/binding_list_view.h"

#include "ui/settings/binding_selection.h"
#include "ui/settings/list_accessibility.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>
#include <utility>

namespace glidemap {

namespace {

constexpr int inset = 6; // keeps the rows off the card's round corners
constexpr double cornerRadius = 10;
constexpr int gap = 4;                // between rows
constexpr int edge = inset - gap / 2; // above the first and below the last, scrolled with them
constexpr int line = 1;               // of the card

// Beyond what can be seen, so that Tab finds the next row before it is seen.
constexpr std::size_t rowsAhead = 2;

int rowStep() {
    return BindingRow::usualHeight() + gap;
}

bool hasFocusInside(const BindingRow& row) {
    const QWidget* const focus = row.window()->focusWidget();
    return focus != nullptr && row.isAncestorOf(focus);
}

bool isByKeyboard(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

} // namespace

BindingListView::BindingListView(const Lang& language, QWidget* parent)
    : QWidget(parent), lang(language), area(new QScrollArea(this)), ground(new QWidget) {
    describeListsToAssistance();
    setObjectName("bindingList");
    setFocusPolicy(Qt::StrongFocus);
    // It takes what the notices leave, and leaves them what they need.
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    setMinimumHeight(rowStep() / 2);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidget(ground);
    area->viewport()->setAutoFillBackground(false);
    ground->setAutoFillBackground(false);
    area->installEventFilter(this);
    area->viewport()->installEventFilter(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(inset, line, inset, line); // rows go as far as the card does
    layout->addWidget(area);
    connect(area->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        closePreviews();
        layOut();
    });
    toTheme = Theme::shared().changes().subscribe({}, [this] {
        layOut();
        update();
    });
}

// While there still are rows to be told that the focus comes back to one of them.
BindingListView::~BindingListView() {
    closePreviews();
}

void BindingListView::setBindings(std::shared_ptr<const BindingList> list) {
    if (bindings == list || (bindings != nullptr && *bindings == *list)) {
        return;
    }
    const auto before = std::exchange(bindings, std::move(list));
    if (before == nullptr) {
        layOut();
        return;
    }
    selected = selectionAfter(*before, *bindings, selected);
    carryRowsOver(*bindings);
    layOut();
    showSelection();
    if (hasGrownByOne(*before, *bindings)) {
        select(bindings->size() - 1);
        scrollTo(*selected);
    }
}

// Each row goes where its binding has gone, and goes with it where that is no more.
void BindingListView::carryRowsOver(const BindingList& next) {
    bool hadFocus = false;
    for (const auto& [index, row] : std::exchange(present, {})) {
        const auto place = nearestWith(row->binding().id, next, index);
        if (place && present.emplace(*place, row).second) {
            row->setBinding(next[*place]);
            continue;
        }
        row->closePreview(); // which gives the focus back to the row
        hadFocus = hadFocus || hasFocusInside(*row);
        discard(row);
    }
    if (hadFocus) {
        setFocus(Qt::OtherFocusReason);
    }
}

void BindingListView::retitle() {
    setAccessibleName(QString::fromStdString(lang.choose("Bindings", "绑定列表")));
    for (const auto& [index, row] : present) {
        row->retitle();
    }
}

// Makes the rows that come into sight, and lets go of those that went.
void BindingListView::layOut() {
    if (bindings == nullptr) {
        return;
    }
    const int step = rowStep();
    const auto height = static_cast<int>(bindings->size()) * step + 2 * edge;
    ground->resize(area->viewport()->width(), height);
    const auto highest = static_cast<std::size_t>(area->verticalScrollBar()->value() / step);
    const std::size_t first = highest - std::min(highest, rowsAhead);
    const std::size_t end = std::min(bindings->size(), highest + pageLength() + 2 + rowsAhead);
    dropRowsOutside(first, end);
    bool isAnyNew = false;
    for (std::size_t index = first; index < end; ++index) {
        if (!present.contains(index)) {
            present[index] = makeRow(index);
            isAnyNew = true;
        }
    }
    for (const auto& [index, row] : present) {
        const int top = edge + static_cast<int>(index) * step + gap / 2;
        row->setGeometry(0, top, ground->width(), step - gap);
        row->show();
    }
    if (isAnyNew) {
        putInOrder();
        showSelection();
    }
}

// Not the one with the focus, which would have nowhere to go.
void BindingListView::dropRowsOutside(std::size_t first, std::size_t end) {
    std::erase_if(present, [&](const auto& entry) {
        const auto& [index, row] = entry;
        const bool hasFocus = hasFocusInside(*row);
        const bool goes =
            index >= bindings->size() || ((index < first || index >= end) && !hasFocus);
        if (goes) {
            discard(row);
        }
        return goes;
    });
}

BindingRow* BindingListView::makeRow(std::size_t index) {
    // Set below: the callbacks need the row that they are given to.
    auto itself = std::make_shared<BindingRow*>();
    auto* row = new BindingRow((*bindings)[index],
                               {[this, itself](bool on) { onToggle((*itself)->binding(), on); },
                                [this, itself] { onEdit((*itself)->binding()); },
                                [this, itself] {
                                    onDelete((*itself)->binding());
                                }},
                               lang, ground);
    *itself = row;
    row->installEventFilter(this);
    row->onFocusInside = [this, row](Qt::FocusReason reason) {
        const auto place = std::ranges::find(present, row, &Rows::value_type::second);
        if (place == present.end()) {
            return;
        }
        select(place->first);
        // Under the mouse it stays where it is, or the click would miss it.
        if (isByKeyboard(reason)) {
            scrollTo(place->first);
        }
    };
    return row;
}

// Later, because it may be one of its own buttons that asks for it.
void BindingListView::discard(BindingRow* row) {
    row->closePreview();
    row->onFocusInside = {};
    row->setParent(nullptr);
    row->deleteLater();
}

// For Tab, and for programs that read the window to the user.
void BindingListView::putInOrder() {
    QWidget* before = this;
    for (const auto& [index, row] : present) {
        row->raise();
        for (QAbstractButton* control : row->controls()) {
            setTabOrder(before, control);
            before = control;
        }
    }
}

void BindingListView::closePreviews() {
    for (const auto& [index, row] : present) {
        row->closePreview();
    }
}

void BindingListView::select(std::size_t index) {
    if (index < bindings->size() && std::exchange(selected, index) != index) {
        showSelection();
        announceSelection();
    }
}

void BindingListView::showSelection() {
    using Selection = BindingRow::Selection;
    const auto shown = hasFocus() && usesKeys ? Selection::selectedWithFocus : Selection::selected;
    for (const auto& [index, row] : present) {
        row->setSelection(index == selected ? shown : Selection::none);
    }
}

void BindingListView::announceSelection() {
    const auto row = present.find(*selected);
    if (row == present.end() || !QAccessible::isActive()) {
        return;
    }
    QAccessibleEvent selection(row->second, QAccessible::Selection);
    QAccessible::updateAccessibility(&selection);
    if (hasFocus()) {
        QAccessibleEvent focus(row->second, QAccessible::Focus);
        QAccessible::updateAccessibility(&focus);
    }
}

void BindingListView::scrollTo(std::size_t index) {
    QScrollBar& bar = *area->verticalScrollBar();
    const int top = static_cast<int>(index) * rowStep();
    const int lowest = top + rowStep() + 2 * edge - area->viewport()->height();
    bar.setValue(std::clamp(bar.value(), std::min(lowest, top), top));
}

std::size_t BindingListView::pageLength() const {
    return static_cast<std::size_t>(std::max(1, area->viewport()->height() / rowStep()));
}

bool BindingListView::moveSelection(int key) {
    const std::size_t last = bindings->size() - 1;
    const std::size_t from = selected.value_or(0);
    const auto back = [from](std::size_t count) {
        return from - std::min(from, count);
    };
    const auto forth = [&](std::size_t count) {
        return std::min(last, from + count);
    };
    const std::map<int, std::size_t> targets = {
        {Qt::Key_Up, back(1)},
        {Qt::Key_Down, selected ? forth(1) : 0}, // the first key shows where one is
        {Qt::Key_PageUp, back(pageLength())},
        {Qt::Key_PageDown, forth(pageLength())},
        {Qt::Key_Home, 0},
        {Qt::Key_End, last},
    };
    const auto target = targets.find(key);
    if (target == targets.end()) {
        return false;
    }
    usesKeys = true;
    setFocus(Qt::OtherFocusReason);
    select(target->second);
    showSelection();
    scrollTo(target->second);
    return true;
}

bool BindingListView::actOnSelection(int key) {
    if (!selected) {
        return false;
    }
    const GestureBinding binding = (*bindings)[*selected];
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        onEdit(binding);
        return true;
    case Qt::Key_Delete:
        onDelete(binding);
        return true;
    case Qt::Key_Space:
        onToggle(binding, !binding.enabled);
        return true;
    default:
        return false;
    }
}

// A key that is held down moves on, but deletes only once.
void BindingListView::keyPressEvent(QKeyEvent* event) {
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool isOurs =
        bindings != nullptr && !bindings->empty() && modifiers == Qt::NoModifier &&
        (moveSelection(event->key()) || (!event->isAutoRepeat() && actOnSelection(event->key())));
    event->setAccepted(isOurs);
}

void BindingListView::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    if (isByKeyboard(event->reason())) {
        usesKeys = true;
        if (!selected && bindings != nullptr && !bindings->empty()) {
            select(static_cast<std::size_t>(area->verticalScrollBar()->value() / rowStep()));
        }
    }
    showSelection();
}

void BindingListView::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    showSelection();
}

bool BindingListView::eventFilter(QObject* watched, QEvent* event) {
    // The scroll area would scroll where the selection is to move.
    if (watched == area && event->type() == QEvent::KeyPress) {
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    }
    if (watched == area->viewport() && event->type() == QEvent::Resize) {
        layOut();
        return false;
    }
    const bool isPress = event->type() == QEvent::MouseButtonPress;
    const bool isDoubleClick = event->type() == QEvent::MouseButtonDblClick;
    if (!isPress && !isDoubleClick) {
        return false;
    }
    const auto place = std::ranges::find_if(
        present, [watched](const auto& entry) { return entry.second == watched; });
    if (place == present.end() || static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton) {
        return false;
    }
    usesKeys = false;
    setFocus(Qt::MouseFocusReason);
    select(place->first);
    showSelection();
    if (isDoubleClick) {
        const GestureBinding binding = place->second->binding();
        onEdit(binding);
    }
    return true;
}

void BindingListView::paintEvent(QPaintEvent* /*event*/) {
    const Theme& theme = Theme::shared();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(theme.color(Role::separator));
    painter.setBrush(theme.color(Role::card));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius,
                            cornerRadius);
}

} // namespace glidemap
