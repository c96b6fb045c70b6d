#include "ui/settings/binding_rows.h"

#include "ui/settings/binding_selection.h"

#include <QAbstractButton>
#include <algorithm>
#include <memory>
#include <utility>

namespace glidemap {

namespace {

constexpr int gap = 4;  // between rows
constexpr int edge = 4; // above the first and below the last; scrolls with them

bool hasFocusInside(const BindingRow& row) {
    const QWidget* const focus = row.window()->focusWidget();
    return focus != nullptr && row.isAncestorOf(focus);
}

} // namespace

BindingRows::BindingRows(QWidget& list, QWidget& ground, const Lang& lang, Callbacks callbacks)
    : list(list), ground(ground), lang(lang), callbacks(std::move(callbacks)) {}

// The list is in destruction, so the focus that returns from a preview must not be reported to it.
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
        row->closePreview(); // returns the focus to the row
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

// Keeps the row with the focus, which would otherwise be lost.
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
    // Set below: the callbacks need the row, which needs the callbacks.
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

// Deferred, because one of the row's own buttons may have caused the deletion.
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
