// Draws the entries of a list with the style, and marks the current choice.
//
// Thread:  the main thread.
// Owner:   its parent.
// Errors:  none.
#pragma once

#include <QStyledItemDelegate>
#include <optional>

namespace glidemap {

// The item data role of an entry's number. The list defines the numbers.
constexpr int entryValueRole = Qt::UserRole + 1;

class MarkedItemDelegate : public QStyledItemDelegate {
public:
    explicit MarkedItemDelegate(std::optional<int> marked, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    std::optional<int> chosen;
};

} // namespace glidemap
