// The catalogue of gestures as a list by category, with a search field above it. What is typed goes
// into the search; arrows move through what it has found, Return chooses.
//
// The focus stays in the field, where input methods can work.
//
// Thread:  the main thread.
// Owner:   its parent; the language outlives it.
// Errors:  none. Where nothing is found it says so.
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

    // Called when Tab is pressed: the user wants to go on.
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
