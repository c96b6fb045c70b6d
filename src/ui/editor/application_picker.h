// Picks one of the running applications, or none. An entry shows the application's icon if the
// workspace provides one.
//
// If the chosen application is not running, the open list does not contain it. The closed picker
// still shows its name, until the user picks another entry.
//
// Thread:  the main thread.
// Owner:   its parent. The workspace and the language must outlive the picker.
// Errors:  none.
#pragma once

#include "core/lang.h"
#include "dispatch/workspace.h"
#include "ui/controls/picker.h"
#include "ui/editor/running_app.h"

#include <functional>
#include <optional>
#include <vector>

namespace glidemap {

class ApplicationPicker : public Picker {
public:
    // Returns the applications to offer, from the workspace's current state.
    using Offer = std::function<std::vector<RunningApp>(const Workspace&)>;

    ApplicationPicker(const Workspace& workspace, Offer offer, Lang& lang,
                      QWidget* parent = nullptr);

    void setSelection(std::optional<RunningApp> selection); // does not call onPick

    // Called when the user picks an entry; nullopt is "no application".
    std::function<void(const std::optional<RunningApp>&)> onPick;

    // Updates the list of running applications. The picker also calls this when it is shown, before
    // its list opens, and before it handles a key.
    void reload();

    void showPopup() override;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void initStyleOption(QStyleOptionComboBox* option) const override;

private:
    void addIcons();
    void addHiddenEntry(const RunningApp& app);
    void pick(int index);

    const Workspace& workspace;
    const Offer offer;
    Lang& lang;
    std::optional<RunningApp> selected;
    // The running applications in the order of their entries, which follow the entry for no
    // application.
    std::vector<RunningApp> apps;
    Subscription toLanguage;
};

} // namespace glidemap
