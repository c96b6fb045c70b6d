// Picks one of the running applications, or none. They have their icons where the workspace knows them.
//
// A chosen application that does not run is no entry, and cannot be picked again once another is.
// Until then the picker shows its name, and keeps it.
//
// Thread:  the main thread.
// Owner:   its parent; the workspace and the language outlive it.
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
    // Which applications are offered, as the workspace knows them now.
    using Offer = std::function<std::vector<RunningApp>(const Workspace&)>;

    ApplicationPicker(const Workspace& asked, Offer offered, Lang& language,
                      QWidget* parent = nullptr);

    void setSelection(std::optional<RunningApp> selection); // announces nothing

    // Called when the user has picked.
    std::function<void(const std::optional<RunningApp>&)> onPick;

    // Asks anew which applications run. It does so by itself before it is used.
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
    std::vector<RunningApp> apps; // the entries behind the first, which stands for none
    Subscription toLanguage;
};

} // namespace glidemap
