// The top of the settings window: the title, the global switches, and the button that adds a
// binding.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the settings view, which sets the content. The language must outlive the header.
// Errors:  none. If one line is too narrow for the title and the controls in the longer language,
//          the controls move to a second line, in the same order. If that line is too narrow for
//          them, for example with a large font, they take two lines. The texts of controls are
//          never elided, and a language change never changes the arrangement.
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

    // These setters do not call the callbacks below.
    void setLaunchesAtLogin(bool on);
    void setEnabledSwitch(bool on);

    // Updates the texts and the chosen language.
    void retitle();

    // Adds a second line to the tooltip of "Launch at Login", until the next retitle().
    void addLaunchHelp(const std::string& line);

    // Called when the user operates the controls.
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
    // The minimum widths in points that are sufficient in both languages:
    int lineNeeds = 0;    // for title and controls on one line
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
