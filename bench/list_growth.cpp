// list_growth [--smallest]: measures how the cost of the settings list grows with the number of
// bindings, for opening it, scrolling one wheel step, and changing one binding. Qt draws into
// memory, so no display is needed.
#include "core/lang.h"
#include "growth_table.h"
#include "ui/settings/binding_list_view.h"

#include <QApplication>
#include <QScrollArea>
#include <QWheelEvent>
#include <cstdlib>
#include <memory>
#include <vector>

namespace glidemap::bench {

namespace {

constexpr QSize viewSize(720, 400); // points

std::shared_ptr<const BindingList> bindingsFor(std::size_t count) {
    BindingList list;
    for (std::size_t number = 0; number < count; ++number) {
        list.push_back({.gesture = allGestureTypes[number % allGestureTypes.size()],
                        .action = KeyShortcut{124, 0x180000},
                        .scope = GlobalScope{}});
    }
    return std::make_shared<const BindingList>(std::move(list));
}

// Performs all pending work: layout, and painting of the visible part.
void draw(QWidget& widget) {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    keep(widget.grab().width());
}

void turnWheel(QWidget& target) {
    constexpr int notch = 120;
    const QPointF place = QRectF(target.rect()).center();
    QWheelEvent event(place, target.mapToGlobal(place), QPoint(), QPoint(0, -notch), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&target, &event);
}

void growList(std::size_t count) {
    const auto bindings = bindingsFor(count);
    printLine("list, opened", count, medianNanoseconds([&] {
                  BindingListView list(Lang::shared());
                  list.resize(viewSize);
                  list.setBindings(bindings);
                  list.show();
                  draw(list);
              }));
    BindingListView list(Lang::shared());
    list.resize(viewSize);
    list.setBindings(bindings);
    list.show();
    draw(list);
    QWidget& viewport = *list.findChild<QScrollArea*>()->viewport();
    printLine("list, a notch of the wheel", count, medianNanoseconds([&] {
                  turnWheel(viewport);
                  draw(list);
              }));
    auto changed = std::make_shared<BindingList>(*bindings);
    changed->front().enabled = false;
    const std::shared_ptr<const BindingList> other = changed;
    bool flip = false;
    printLine("list, one binding changed", count, medianNanoseconds([&] {
                  flip = !flip;
                  list.setBindings(flip ? other : bindings);
                  draw(list);
              }));
}

} // namespace

} // namespace glidemap::bench

int main(int count, char** arguments) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const bool onlySmallest = count > 1;
    const QApplication application(count, arguments);
    glidemap::bench::printHeading();
    for (const std::size_t size : {3, 20, 200, 2'000, 20'000}) {
        glidemap::bench::growList(size);
        if (onlySmallest) {
            break;
        }
    }
    return 0;
}
