// The gesture catalogue as a list by category, below a search field. Typing searches, arrow keys
// move through the results, and Return chooses.
//
// The focus stays in the search field, which supports input methods.
//
// Thread:  the main thread.
// Owner:   its parent. The language outlives it.
// Errors:  none. An empty result shows a text.
#pragma once

#include "core/gesture_type.h"
#include "core/lang.h"
#include "ui/theme/theme.h"

#include <QWidget>
#include <functional>

class QLabel;
class QLineEdit;
class QListView;
class QModelIndex;
class QStandardItemModel;

namespace glidemap {

class GestureList : public QWidget {
public:
    GestureList(GestureType chosen, Lang& language, const QString& search,
                QWidget* parent = nullptr);

    std::function<void(GestureType)> onChoose;

    // Called when Tab is pressed, to move the focus on.
    std::function<void()> onLeave;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    bool obeyKey(int key);
    void search();
    void addGroup(const QString& title, const std::vector<GestureType>& members);
    void markFirst();
    void mark(int row);
    void move(int steps);
    void choose(const QModelIndex& index);
    void retitle();

    GestureType current;
    Lang& lang;
    QLineEdit* field;
    QListView* list;
    QLabel* nothingFound;
    QStandardItemModel* model;
    Subscription toLanguage;
    Subscription toTheme;
};

} // namespace glidemap
