// ui_demo_bench [Google Benchmark's options]: measures the cost of computing one frame of a
// demonstration, and of painting it at the popover's size. A visible view shows at most 40 frames
// per second.
//
// The counter "new" is the number of calls to operator new per frame. It excludes Qt's use of
// malloc.
#include "bench/allocation_count.h"
#include "ui/demo/draw_gesture_demo.h"
#include "ui/demo/gesture_demo.h"
#include "ui/demo/still_moment.h"
#include "ui/theme/theme.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

namespace glidemap::bench {

namespace {

// Returns the times of a loop's frames one after another, and starts again after the last frame.
class Loop {
public:
    double next() {
        index = (index + 1) % frames;
        return index * demo::loopDuration / frames;
    }

private:
    static constexpr int frames = 104; // 25 ms each
    int index = 0;
};

void countAllocations(benchmark::State& state, std::int64_t before) {
    state.counters["new"] =
        benchmark::Counter(static_cast<double>(allocationsOfThisThread() - before),
                           benchmark::Counter::kAvgIterations);
}

void frame(benchmark::State& state, GestureType gesture) {
    Loop loop;
    const std::int64_t before = allocationsOfThisThread();
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(demo::frame(gesture, loop.next()));
    }
    countAllocations(state, before);
}

BENCHMARK_CAPTURE(frame, circle, GestureType::drawCircle);
BENCHMARK_CAPTURE(frame, five_finger_swipe, GestureType::fiveFingerSwipeLeft);
BENCHMARK_CAPTURE(frame, long_press, GestureType::fourFingerLongPress);

void stillMoment(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(demo::stillMoment(GestureType::drawCircle));
    }
}

BENCHMARK(stillMoment)->Unit(benchmark::kMicrosecond);

// The measured time includes clearing the picture, because every repaint clears it, too.
template <class Draw>
void paint(benchmark::State& state, double pixelRatio, Draw drawFrame) {
    const QSize size(230, 150);
    QImage image(size * pixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    Loop loop;
    const std::int64_t before = allocationsOfThisThread();
    for ([[maybe_unused]] auto _ : state) {
        QPainter painter(&image);
        painter.fillRect(QRect(QPoint(), size), Theme::shared().color(Role::card));
        drawFrame(painter, QSizeF(size), loop.next());
    }
    countAllocations(state, before);
}

void draw(benchmark::State& state, GestureType gesture, double pixelRatio) {
    paint(state, pixelRatio, [gesture](QPainter& painter, const QSizeF& size, double t) {
        demo::draw(gesture, t, painter, size);
    });
}

BENCHMARK_CAPTURE(draw, circle_at_1x, GestureType::drawCircle, 1)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(draw, circle_at_2x, GestureType::drawCircle, 2)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(draw, five_finger_swipe_at_2x, GestureType::fiveFingerSwipeLeft, 2)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(draw, long_press_at_2x, GestureType::fourFingerLongPress, 2)
    ->Unit(benchmark::kMicrosecond);

// The reference: a rounded rectangle and a circle drawn by Qt.
void plainShapes(benchmark::State& state) {
    paint(state, 2, [](QPainter& painter, const QSizeF& size, double) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::black, 1.5));
        painter.drawRoundedRect(QRectF(QPointF(), size).adjusted(1, 1, -1, -1), 20, 20);
        painter.drawEllipse(QPointF(115, 75), 40, 40);
    });
}

BENCHMARK(plainShapes)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace glidemap::bench

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen"); // paints into pictures and needs no screen
    const QApplication application(count, arguments);
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
