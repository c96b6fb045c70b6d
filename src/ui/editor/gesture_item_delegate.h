// Draws the entries of the gesture list in the application's style, with a check mark at the chosen
// gesture.
//
// Thread:  the main thread.
// Owner:   its parent.
// Errors:  none.
#pragma once

#include "core/gesture_type.h"

#include <QStyledItemDelegate>

namespace glidemap {

// The gesture of an entry, as its number.
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
