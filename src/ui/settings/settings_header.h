// The top of the settings: the title, the global switches, and the button that adds a binding.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the settings view, which sets its content. The language outlives it.
// Errors:  none. If one line is too narrow for title and controls in the longer language, the
//          controls move to a second line in the same order. If that is too narrow for them, as
//          with large letters, they take two lines. Control texts are never elided, and a language
//          change never affects the arrangement.
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
    explicit SettingsHeader(Lang& lang, QWidget* parent = nullptr);

    // Do not call the callbacks below.
    void setLaunchesAtLogin(bool on);
    void setEnabledSwitch(bool on);

    // Sets the texts and the chosen language.
    void retitle();

    // A second line for the tooltip, until the next retitle().
    void addLaunchHelp(const std::string& line);

    // User requests.
    std::function<void(bool on)> onLaunchAtLogin;
    std::function<void(bool on)> onEnabled;
    std::function<void()> onAddBinding;

    enum class Arrangement { oneLine, controlsBelow, controlsOnTwoLines };
    Arrangement arrangement() const;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void makeTitles();
    void makeLaunchAtLogin(QHBoxLayout& layout);
    void makeLanguage(QHBoxLayout& layout);
    void makeEnabled(QHBoxLayout& layout);
    void makeAddBinding(QHBoxLayout& layout);
    void arrange();
    void measure();
    int choicesNeed() const;
    int commandsNeed() const;

    Lang& lang;
    QBoxLayout* whole;
    QBoxLayout* controls;
    QHBoxLayout* choices;  // the first line of controls, or the first part of the only line
    QHBoxLayout* commands; // the second line, or the rest of the only line
    // The minimum widths in points, in either language:
    int lineNeeds = 0;    // for everything on one line
    int controlsNeed = 0; // for all controls on one line
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
