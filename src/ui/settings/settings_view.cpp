#include "ui/settings/settings_view.h"

#include <utility>

namespace glidemap {

SettingsView::SettingsView(Services given, QWidget* parent)
    : QWidget(parent), services(std::move(given)), loginItem(*services.loginItems, *services.lang) {
}

void SettingsView::addBinding() {}

} // namespace glidemap
