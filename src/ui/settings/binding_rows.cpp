#include "ui/settings/binding_rows.h"

#include "ui/settings/binding_selection.h"

#include <QAbstractButton>
#include <algorithm>
#include <memory>
#include <utility>

namespace glidemap {

namespace {

constexpr int gap = 4;  // between rows
constexpr int edge = 4; // the space above the first and below the last row; scrolls with the rows

bool hasFocusInside(const BindingRow& row) {
    const QWidget* const focus = row.window()->focusWidget();
    return focus != nullptr && row.isAncestorOf(focus);
}

} // namespace

BindingRows::BindingRows(QWidget& list, QWidget& ground, const Lang& lang, Callbacks callbacks)
    : list(list), ground(ground), lang(lang), callbacks(std::move(callbacks)) {}

// Closing a preview returns the focus to a row, which would notify the list while the list is being
// destroyed. So the callbacks are removed first.
BindingRows::~BindingRows() {
    for (const auto& [index, row] : rows) {
        row->onFocusInside = {};
        row->closePreview();
    }
}

int BindingRows::step() {
    return BindingRow::usualHeight() + gap;
}

int BindingRows::heightOf(std::size_t count) {
    return static_cast<int>(count) * step() + 2 * edge;
}

int BindingRows::boundaryAbove(std::size_t index) {
    return edge + static_cast<int>(index) * step();
}

std::optional<std::size_t> BindingRows::indexOf(const QObject* row) const {
    const auto place =
        std::ranges::find_if(rows, [row](const auto& entry) { return entry.second == row; });
    return place != rows.end() ? std::optional(place->first) : std::nullopt;
}

bool BindingRows::carryOver(const BindingList& next) {
    bool hadFocus = false;
    for (const auto& [index, row] : std::exchange(rows, {})) {
        const auto place = closestWithIdentifier(row->binding().id, next, index);
        if (place && rows.emplace(*place, row).second) {
            row->setBinding(next[*place]);
            continue;
        }
        row->closePreview(); // also returns the focus to the row
        hadFocus = hadFocus || hasFocusInside(*row);
        discard(row);
    }
    return hadFocus;
}

bool BindingRows::cover(const BindingList& bindings, std::size_t first, std::size_t end) {
    dropOutside(bindings.size(), first, end);
    bool isAnyNew = false;
    for (std::size_t index = first; index < end; ++index) {
        if (!rows.contains(index)) {
            rows[index] = make(bindings[index]);
            isAnyNew = true;
        }
    }
    place();
    if (isAnyNew) {
        putInOrder();
    }
    return isAnyNew;
}

// Does not discard the row with the focus, because the focus would be lost with it.
void BindingRows::dropOutside(std::size_t count, std::size_t first, std::size_t end) {
    std::erase_if(rows, [&](const auto& entry) {
        const auto& [index, row] = entry;
        const bool hasFocus = hasFocusInside(*row);
        const bool goes = index >= count || ((index < first || index >= end) && !hasFocus);
        if (goes) {
            discard(row);
        }
        return goes;
    });
}

BindingRow* BindingRows::make(const GestureBinding& binding) {
    // The callbacks need a pointer to the row, and the row's constructor needs the callbacks. The
    // pointer is set below.
    auto itself = std::make_shared<BindingRow*>();
    auto* row =
        new BindingRow(binding,
                       {[this, itself](bool on) { callbacks.onToggle((*itself)->binding(), on); },
                        [this, itself] { callbacks.onEdit((*itself)->binding()); },
                        [this, itself] {
                            callbacks.onDelete((*itself)->binding());
                        }},
                       lang, &ground);
    *itself = row;
    row->installEventFilter(&list);
    row->onFocusInside = [this, row](Qt::FocusReason reason) {
        if (const auto index = indexOf(row)) {
            callbacks.onFocusInside(*index, reason);
        }
    };
    row->onLeave = callbacks.onLeave;
    return row;
}

// Deletes the row later, because the signal that caused the deletion may come from one of its
// buttons.
void BindingRows::discard(BindingRow* row) {
    row->closePreview();
    row->onFocusInside = {};
    row->setParent(nullptr);
    row->deleteLater();
}

void BindingRows::place() {
    for (const auto& [index, row] : rows) {
        const int top = boundaryAbove(index) + gap / 2;
        row->setGeometry(0, top, ground.width(), step() - gap);
        row->show();
    }
}

// Orders the rows for Tab and for screen readers.
void BindingRows::putInOrder() {
    QWidget* before = &list;
    for (const auto& [index, row] : rows) {
        row->raise();
        for (QAbstractButton* control : row->controls()) {
            QWidget::setTabOrder(before, control);
            before = control;
        }
    }
}

void BindingRows::closePreviews() {
    for (const auto& [index, row] : rows) {
        row->closePreview();
    }
}

} // namespace glidemap
