#include "ui/controls/sheet.h"

#include <QPainter>
#include <QVBoxLayout>

namespace glidemap {

Sheet::Sheet(QWidget* hangsFrom, QWidget* content, QSize size)
    : QDialog(hangsFrom->window(), Qt::Dialog | Qt::FramelessWindowHint) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(content);
    resize(size);
    toTheme = Theme::shared().changes().subscribe({}, [this] { update(); });
    connect(this, &QDialog::finished, this, [this] {
        if (onClosed) {
            onClosed();
        }
    });
}

void Sheet::present() {
    open();
}

void Sheet::dismiss() {
    done(QDialog::Rejected);
}

void Sheet::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), Theme::shared().color(Role::window));
}

} // namespace glidemap
