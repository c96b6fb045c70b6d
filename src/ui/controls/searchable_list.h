// A list in groups with a search field above it. Typed text goes into the search; arrows move through
// the entries that it has found, Return chooses.
//
// It is as high as its entries need, and no higher than the room it is given; the rest scrolls. The
// focus stays in the field, where input methods can work.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   its parent.
// Errors:  none. Where nothing is found it says so.
#pragma once

#include "ui/theme/theme.h"

#include <QIcon>
#include <QString>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

class QLabel;
class QLineEdit;
class QListView;
class QModelIndex;
class QStandardItemModel;

namespace glidemap {

class SearchableList : public QWidget {
public:
    struct Entry {
        QString text;
        QIcon icon;
        int value = 0;
        bool isExact = false; // the search is this entry's name, so it is marked before others
    };
    struct Group {
        QString heading;
        std::vector<Entry> entries;
    };
    struct Texts {
        QString find;
        QString clear;
        QString list;
        QString nothingFound;
        QString currentChoice;
    };
    // The entries for what is typed, in the current language.
    using Find = std::function<std::vector<Group>(const QString& typed)>;

    SearchableList(Find find, std::optional<int> current, const QString& search,
                   QWidget* parent = nullptr);

    // Asks for the entries anew, too.
    void setTexts(const Texts& shown);

    // The tallest that the list below the field becomes.
    void setRoomForEntries(int height);

    // The names of the field and of the list, which tests and style sheets know them by.
    void setPartNames(const char* field, const char* list);

    // Called with the entry that the user has chosen; may end the list.
    std::function<void(int value)> onChoose;

    // Called with the entry that keys, the search or the pointer highlight.
    std::function<void(int value)> onBrowse;

    // Called when Tab or Shift and Tab is pressed: the user wants to go on, or back.
    std::function<void(bool forward)> onLeave;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void build();
    bool obeyKey(int key);
    void search();
    void addGroup(const Group& group);
    void markFirst(std::optional<int> exactRow);
    void mark(int row);
    void move(int steps);
    void choose(const QModelIndex& index) const;
    void browse(const QModelIndex& index) const;
    void fitToEntries();
    void say(int row);

    Find find;
    std::optional<int> current;
    Texts texts;
    QLineEdit* field;
    QListView* list;
    QLabel* nothingFound;
    QStandardItemModel* model;
    int room = 320;
    Subscription toTheme;
};

} // namespace glidemap
