#include "ui/settings/binding_list_view.h"

#include "bindings/shadowed_bindings.h"
#include "ui/controls/announcement.h"
#include "ui/settings/binding_selection.h"
#include "ui/theme/style/paint.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace glidemap {

namespace {

constexpr int inset = 6; // keeps the rows off the card's round corners
constexpr double cornerRadius = 10;
constexpr int line = 1; // the width of the card's edge

// The number of rows that exist beyond each end of the visible ones. When Up or Down selects a row,
// it must already exist: only an existing row is announced to assistive technology.
constexpr std::size_t rowsAhead = 2;

bool isByKeyboard(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

} // namespace

// The background of the rows, with thin lines between them.
class BindingListView::Ground : public QWidget {
protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        const int step = BindingRows::step();
        const auto lineAbove = [&](int index) {
            return BindingRows::boundaryAbove(static_cast<std::size_t>(index));
        };
        const int first = std::max(1, event->rect().top() / step);
        for (int index = first; lineAbove(index) <= event->rect().bottom(); ++index) {
            if (BindingRows::heightOf(static_cast<std::size_t>(index)) <
                height()) { // not below the last row
                const QRectF above = style::snapped(
                    painter, QRectF(lineInset, lineAbove(index), width() - 2 * lineInset, 1));
                painter.fillRect(
                    QRectF(above.topLeft(), QSizeF(above.width(), style::hairline(painter))),
                    style::color(Role::separator));
            }
        }
    }

private:
    static constexpr int lineInset = 10;
};

BindingListView::BindingListView(const Lang& lang, QWidget* parent)
    : QWidget(parent), lang(lang), area(new QScrollArea(this)), ground(new Ground),
      present(*this, *ground, lang, makeRowCallbacks()) {
    installListAccessibility();
    setObjectName("bindingList");
    setFocusPolicy(Qt::StrongFocus);
    // Takes the height that the notices do not need; a notice must not shrink to give the list more
    // height.
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    setMinimumHeight(BindingRows::step() / 2);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidget(ground);
    area->viewport()->setAutoFillBackground(false);
    ground->setAutoFillBackground(false);
    area->installEventFilter(this);
    area->viewport()->installEventFilter(this);
    auto* layout = new QVBoxLayout(this);
    // No vertical inset: rows that are scrolled partly out of view end at the card's edge.
    layout->setContentsMargins(inset, line, inset, line);
    layout->addWidget(area);
    connect(area->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        present.closePreviews();
        layOut();
    });
    toTheme = Theme::shared().changes().subscribe({}, [this] {
        layOut();
        update();
    });
}

BindingRows::Callbacks BindingListView::makeRowCallbacks() {
    return {
        [this](const GestureBinding& binding, bool on) { onToggle(binding, on); },
        [this](const GestureBinding& binding) { onEdit(binding); },
        [this](const GestureBinding& binding) { onDelete(binding); },
        [this](std::size_t index, Qt::FocusReason reason) {
            select(index);
            // Scrolling on a mouse press would move the row away from the pointer before the
            // release.
            if (isByKeyboard(reason)) {
                scrollTo(index);
            }
        },
        [this] { setFocus(Qt::BacktabFocusReason); },
    };
}

void BindingListView::setBindings(std::shared_ptr<const BindingList> list) {
    if (bindings == list || (bindings != nullptr && *bindings == *list)) {
        return;
    }
    const auto before = std::exchange(bindings, std::move(list));
    shadowed = shadowedBindings(*bindings);
    if (before == nullptr) {
        layOut();
        return;
    }
    selected = selectionAfter(*before, *bindings, selected);
    if (present.carryOver(*bindings)) {
        setFocus(Qt::OtherFocusReason);
    }
    layOut();
    showSelection();
    if (hasGrownByOne(*before, *bindings)) {
        select(bindings->size() - 1);
        scrollTo(*selected);
    }
}

void BindingListView::retitle() {
    setAccessibleName(QString::fromStdString(lang.choose("Bindings", "绑定列表")));
    for (const auto& [index, row] : present.all()) {
        row->retitle();
    }
}

void BindingListView::setMuted(bool now) {
    if (std::exchange(isMuted, now) != now) {
        layOut();
    }
}

// Creates the rows that are in view or nearby, and discards all others except the row with the
// focus.
void BindingListView::layOut() {
    if (bindings == nullptr) {
        return;
    }
    ground->resize(area->viewport()->width(), BindingRows::heightOf(bindings->size()));
    const std::size_t highest = firstVisible();
    const std::size_t first = highest - std::min(highest, rowsAhead);
    const std::size_t end = std::min(bindings->size(), highest + pageLength() + 2 + rowsAhead);
    if (present.cover(*bindings, first, end)) {
        showSelection();
    }
    for (const auto& [index, row] : present.all()) {
        row->setShadowed(shadowed[index]);
        row->setMuted(isMuted);
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
    for (const auto& [index, row] : present.all()) {
        row->setSelection(index == selected ? shown : Selection::none);
    }
}

void BindingListView::announceSelection() {
    const auto row = rows().find(*selected);
    if (row == rows().end() || !QAccessible::isActive()) {
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
    const int top = static_cast<int>(index) * BindingRows::step();
    const int lowest = top + BindingRows::heightOf(1) - area->viewport()->height();
    bar.setValue(std::clamp(bar.value(), std::min(lowest, top), top));
}

QRect BindingListView::placeOf(std::size_t index) const {
    const QPoint corner(0, BindingRows::boundaryAbove(index));
    return {ground->mapToGlobal(corner), QSize(ground->width(), BindingRows::step())};
}

std::size_t BindingListView::firstVisible() const {
    return static_cast<std::size_t>(area->verticalScrollBar()->value() / BindingRows::step());
}

std::size_t BindingListView::pageLength() const {
    return static_cast<std::size_t>(std::max(1, area->viewport()->height() / BindingRows::step()));
}

bool BindingListView::moveSelection(int key) {
    const auto target = selectionMovedBy(key, selected, bindings->size(), pageLength());
    if (!target) {
        return false;
    }
    usesKeys = true;
    setFocus(Qt::OtherFocusReason);
    select(*target);
    showSelection();
    scrollTo(*target);
    return true;
}

bool BindingListView::enterRow(int key) {
    const bool leadsIn =
        key == (layoutDirection() == Qt::LeftToRight ? Qt::Key_Right : Qt::Key_Left);
    const auto row = leadsIn && selected ? rows().find(*selected) : rows().end();
    if (row == rows().end()) {
        return false;
    }
    row->second->enter();
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
        announce(*this, BindingRow::spokenName((*bindings)[*selected], language()));
        return true;
    default:
        return false;
    }
}

// Auto-repeat may move the selection, but must not edit, toggle or delete bindings.
void BindingListView::keyPressEvent(QKeyEvent* event) {
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool isOurs = bindings != nullptr && !bindings->empty() && modifiers == Qt::NoModifier &&
                        (moveSelection(event->key()) || enterRow(event->key()) ||
                         (!event->isAutoRepeat() && actOnSelection(event->key())));
    event->setAccepted(isOurs);
}

void BindingListView::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    if (isByKeyboard(event->reason())) {
        usesKeys = true;
        if (!selected && bindings != nullptr && !bindings->empty()) {
            select(firstVisible());
        }
    }
    showSelection();
    if (selected) {
        announceFocusLater();
    }
}

// Qt announces the list's focus after the focus event, and Orca 47 reads only the last
// announcement. So the selected row must be announced after the list.
void BindingListView::announceFocusLater() {
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (selected && hasFocus()) {
                announceSelection();
            }
        },
        Qt::QueuedConnection);
}

void BindingListView::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    showSelection();
}

bool BindingListView::eventFilter(QObject* watched, QEvent* event) {
    // The list handles the keys of the scroll area, which would otherwise scroll on keys that move
    // the selection.
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
    const auto index = present.indexOf(watched);
    if (!index || static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton) {
        return false;
    }
    usesKeys = false;
    setFocus(Qt::MouseFocusReason);
    select(*index);
    showSelection();
    if (isDoubleClick) {
        const GestureBinding binding = (*bindings)[*index];
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
