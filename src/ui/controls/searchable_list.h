// A grouped list below a search field. Typing filters the entries, the arrow keys move the
// highlight, and Return chooses the highlighted entry.
//
// The list grows with its entries up to a maximum height, and scrolls beyond that. The focus stays
// in the search field, so that input methods work.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   its parent.
// Errors:  none. If no entry matches, a text says so.
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
        bool isExact = false; // the search text is this entry's name, so this entry is highlighted
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
    // Returns the entries that match the typed text. Texts are in the current language.
    using Find = std::function<std::vector<Group>(const QString& typed)>;

    SearchableList(Find find, std::optional<int> current, const QString& search,
                   QWidget* parent = nullptr);

    // Updates the texts, and calls Find again.
    void setTexts(const Texts& shown);

    // Sets the maximum height of the list, without the search field.
    void setRoomForEntries(int height);

    // Sets the object names of the field and of the list, for tests and style sheets.
    void setPartNames(const char* field, const char* list);

    // Called when the user chooses an entry. The callback may destroy the list.
    std::function<void(int value)> onChoose;

    // Called when an entry is highlighted or the pointer moves over it. When the pointer leaves the
    // list, onBrowse is called again for the highlighted entry.
    std::function<void(int value)> onBrowse;

    // Called when the user presses Tab (forward) or Shift+Tab (backward). The callback moves the
    // focus.
    std::function<void(bool forward)> onLeave;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void build();
    bool handleKey(int key);
    void search();
    void addGroup(const Group& group);
    void markFirst(std::optional<int> exactRow);
    void mark(int row);
    void move(int steps);
    void choose(const QModelIndex& index) const;
    void browse(const QModelIndex& index) const;
    void fitToEntries();
    void announce(int row);

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
