// A row of segments of which one is chosen. Arrow keys move the choice.
//
// Thread:  the main thread. Owner: its parent. Errors: none.
#pragma once

#include <QStringList>
#include <QWidget>
#include <functional>

class QButtonGroup;

namespace glidemap {

class SegmentedControl : public QWidget {
public:
    explicit SegmentedControl(int count, QWidget* parent = nullptr);

    // As many as there are segments.
    void setTexts(const QStringList& texts);

    int current() const;
    void setCurrent(int index); // announces nothing

    // Called when the user has chosen another segment.
    std::function<void(int index)> onChange;

private:
    QButtonGroup* group;
};

} // namespace glidemap
