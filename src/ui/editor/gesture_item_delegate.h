// Draws the entries of the list of gestures: as the style draws any, with a mark at the one that is
// chosen now.
//
// Thread:  the main thread. Owner: its parent. Errors: none.
#pragma once

#include "core/gesture_type.h"

#include <QStyledItemDelegate>

namespace glidemap {

// Which gesture an entry stands for, as its number.
constexpr int gestureRole = Qt::UserRole + 1;

class GestureItemDelegate : public QStyledItemDelegate {
public:
    explicit GestureItemDelegate(GestureType marked, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    GestureType chosen;
};

} // namespace glidemap
