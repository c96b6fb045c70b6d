// Counts the paints and the layout requests of all widgets, for tests that nothing is painted that has not changed.
//
// Units:   events.
// Thread:  the main thread.
// Owner:   a test; counts while it lives.
// Errors:  none.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <map>
#include <string>

namespace glidemap::kit {

class RepaintCount : public QObject {
public:
    RepaintCount() { qApp->installEventFilter(this); }

    // Lets the widgets come to rest after a change, then counts what they do with nothing to do: a widget that answers each
    // layout with another one is busy in every round.
    void countAtRest() {
        runRounds();
        paints.clear();
        layoutRequests.clear();
        runRounds();
    }

    // By the object's name, or by its class where it has none.
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

} // namespace glidemap::kit
