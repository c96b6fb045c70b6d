// Draws the entries of a list: as the style draws any, with a mark at the one that is chosen now.
//
// Thread:  the main thread.
// Owner:   its parent.
// Errors:  none.
#pragma once

#include <QStyledItemDelegate>
#include <optional>

namespace glidemap {

// The item data role with an entry's number, which its list defines.
constexpr int entryValueRole = Qt::UserRole + 1;

class MarkedItemDelegate : public QStyledItemDelegate {
public:
    explicit MarkedItemDelegate(std::optional<int> chosen, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    std::optional<int> chosen;
};

} // namespace glidemap
