// A row of segments of which one is chosen: one pill, in which the chosen ground slides. Arrow keys
// move the choice; to assistive programs the segments are radio buttons.
//
// Thread:  the main thread. Owner: its parent. Errors: none.
#pragma once

#include "ui/controls/slide.h"
#include "ui/theme/theme.h"

#include <QStringList>
#include <QWidget>
#include <functional>
#include <vector>

namespace glidemap {

class SegmentedControl : public QWidget {
public:
    explicit SegmentedControl(int count, QWidget* parent = nullptr);

    // As many as there are segments. They are the segments' accessible names too.
    void setTexts(const QStringList& texts);

    int current() const { return chosen; }
    void setCurrent(int index); // announces nothing

    // Called when the user has chosen another segment.
    std::function<void(int index)> onChange;

    // Where the chosen ground is, in segments.
    double groundPosition() const { return ground.value(); }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class Segment;

    void choose(int index);
    void fixFocusPolicies();
    QRectF groundRect(const QRectF& pill) const;

    std::vector<Segment*> segments;
    int chosen = 0;
    Slide ground{this};
    Subscription toTheme;
};

} // namespace glidemap
