// The top of the settings: what this is, the switches that concern all of it, and the button that
// adds a binding.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the settings view, which tells it what to show; the language outlives it.
// Errors:  none. Where one line has no room for title and controls in the longer language, it folds:
//          the controls then stand in a line of their own, in the same order. Their texts are never
//          cut, and choosing the other language leaves the arrangement as it is.
#pragma once

#include "core/lang.h"

#include <QWidget>
#include <functional>
#include <string>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QPushButton;

namespace glidemap {

class StyledLabel;
class Switch;

class SettingsHeader : public QWidget {
public:
    explicit SettingsHeader(Lang& language, QWidget* parent = nullptr);

    // Announce nothing.
    void setLaunchesAtLogin(bool on);
    void setEnabledSwitch(bool on);

    // The texts, and the language that is chosen.
    void retitle();

    // A second line of the hover help, until the next retitle().
    void addLaunchHelp(const std::string& line);

    // What the user did.
    std::function<void(bool on)> onLaunchAtLogin;
    std::function<void(bool on)> onEnabled;
    std::function<void()> onAddBinding;

    bool isFolded() const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void makeTitles();
    void makeLaunchAtLogin(QHBoxLayout& layout);
    void makeLanguage(QHBoxLayout& layout);
    void makeEnabled(QHBoxLayout& layout);
    void makeAddBinding(QHBoxLayout& layout);
    void foldIfNarrow();
    void measure();

    Lang& lang;
    QBoxLayout* whole;
    QHBoxLayout* controls;
    int lineNeeds = 0; // in points, to hold everything in either language
    StyledLabel* title = nullptr;
    StyledLabel* subtitle = nullptr;
    QCheckBox* launchAtLogin = nullptr;
    StyledLabel* languageLabel = nullptr;
    QComboBox* language = nullptr;
    Switch* enabled = nullptr;
    QPushButton* add = nullptr;
    Subscription toTheme;
};

} // namespace glidemap
