// A row of segments on a pill-shaped background. A highlight slides to the chosen segment. Arrow
// keys change the choice. The segments are exposed to assistive technology as radio buttons.
//
// Thread:  the main thread.
// Owner:   its parent.
// Errors:  none.
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

    // Sets one text for each segment. The texts are also the accessible names.
    void setTexts(const QStringList& texts);

    int current() const { return chosen; }
    void setCurrent(int index); // does not call onChange

    // Called when the user chooses another segment.
    std::function<void(int index)> onChange;

    // Returns the index of the highlighted segment; fractional while the highlight slides.
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
