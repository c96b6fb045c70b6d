// Counts the paint and layout events of all widgets, to check that only changed widgets are
// repainted.
//
// Units:   events.
// Thread:  the main thread.
// Owner:   a test; counts during its lifetime.
// Errors:  none.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <map>
#include <string>

namespace glidemap::test {

class RepaintCount : public QObject {
public:
    RepaintCount() { qApp->installEventFilter(this); }

    // Processes events until the widgets should be idle after a change, then counts their further
    // events. A widget that requests a new layout after each layout has events in every round.
    void countAtRest() {
        runRounds();
        paints.clear();
        layoutRequests.clear();
        runRounds();
    }

    // Counts per object name, or per class for objects without a name.
    std::map<std::string, int> paints;
    std::map<std::string, int> layoutRequests;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->isWidgetType()) {
            ++paints[nameOf(*watched)];
        } else if (event->type() == QEvent::LayoutRequest) {
            ++layoutRequests[nameOf(*watched)];
        }
        return false;
    }

private:
    static void runRounds() {
        constexpr int rounds = 100;
        for (int round = 0; round < rounds; ++round) {
            QApplication::processEvents();
        }
    }

    static std::string nameOf(const QObject& object) {
        const QString name = object.objectName();
        return name.isEmpty() ? object.metaObject()->className() : name.toStdString();
    }
};

} // namespace glidemap::test
