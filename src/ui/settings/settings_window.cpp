#include "ui/settings/settings_window.h"

#include <QVBoxLayout>
#include <utility>

namespace glidemap {

SettingsWindow::SettingsWindow(SettingsView::Services services, QWidget* parent)
    : QWidget(parent), content(new SettingsView(std::move(services), this)) {
    setWindowTitle("Glidemap");
    setMinimumSize(minimumContentSize);
    resize(contentSize);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(content);
}

} // namespace glidemap
