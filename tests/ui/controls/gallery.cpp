// Paints every control in every state, light and dark, at three scales, for human review.
//
//   ui_controls_gallery FOLDER
#include "kit/find_widget.h"
#include "ui/controls/badge.h"
#include "ui/controls/dimmed.h"
#include "ui/controls/form_section.h"
#include "ui/controls/notice.h"
#include "ui/controls/popover.h"
#include "ui/controls/segmented_control.h"
#include "ui/controls/separator.h"
#include "ui/controls/sheet.h"
#include "ui/controls/switch.h"
#include "ui/controls/symbol_button.h"
#include "ui/controls/symbol_label.h"
#include "ui/theme/item_roles.h"
#include "ui/theme/symbol.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QStandardItemModel>
#include <QTest>
#include <QVBoxLayout>
#include <functional>

using namespace glidemap;

namespace {

QString folder;
double ratio = 1;
QString suffix;

void save(const QImage& image, const QString& name) {
    image.save(QDir(folder).filePath(name + suffix + QStringLiteral(".png")));
}

QImage pictureOf(QWidget& widget) {
    QImage image((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    widget.render(&image);
    return image;
}

// Processes all pending events.
void settle() {
    for (int turn = 0; turn < 4; ++turn) {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }
}

enum class State { rest, hovered, pressed, focused, disabled };

void put(QWidget& widget, State state) {
    widget.setEnabled(state != State::disabled);
    widget.setAttribute(Qt::WA_UnderMouse, state == State::hovered);
    if (state == State::focused) {
        widget.setFocus(Qt::TabFocusReason);
    } else {
        widget.clearFocus();
    }
    if (auto* button = dynamic_cast<QAbstractButton*>(&widget); button != nullptr) {
        button->setDown(state == State::pressed);
    }
}

template <typename Control>
Control* make(const char* text) {
    auto* control = new Control;
    control->setText(QString::fromUtf8(text));
    return control;
}

template <typename Control>
Control* makeChecked(const char* text) {
    auto* control = make<Control>(text);
    control->setChecked(true);
    return control;
}

QPushButton* prominent(const char* text) {
    auto* button = make<QPushButton>(text);
    button->setProperty("prominent", true);
    button->setIcon(symbolIcon("plus", Role::primary));
    return button;
}

QComboBox* picker() {
    auto* box = new QComboBox;
    box->addItems({QStringLiteral("English"), QStringLiteral("中文")});
    return box;
}

QLineEdit* field() {
    auto* edit = new QLineEdit;
    edit->setPlaceholderText(QStringLiteral("Search gestures"));
    return edit;
}

SegmentedControl* segments() {
    auto* control = new SegmentedControl(2);
    control->setTexts({QStringLiteral("Global"), QStringLiteral("Specific App")});
    return control;
}

const std::vector<std::function<QWidget*()>> makers = {
    [] { return make<QPushButton>("Cancel"); },
    [] { return prominent("Add Binding"); },
    [] { return make<QCheckBox>("Launch at Login"); },
    [] { return makeChecked<QCheckBox>("开机自启动"); },
    [] { return make<QRadioButton>("One"); },
    [] { return makeChecked<QRadioButton>("Other"); },
    [] { return make<Switch>("Enabled"); },
    [] { return makeChecked<Switch>("启用"); },
    [] { return picker(); },
    [] { return field(); },
    [] { return new SymbolButton("pencil", Role::primary); },
    [] { return new SymbolButton("trash", Role::red); },
    [] { return segments(); },
};

void paintStates() {
    constexpr QSize cell(230, 46);
    const State states[] = {State::rest, State::hovered, State::pressed, State::focused,
                            State::disabled};
    const QSize size(cell.width() * 5, cell.height() * static_cast<int>(makers.size()));
    QImage image((QSizeF(size) * ratio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Theme::shared().color(Role::window));
    QPainter painter(&image);
    QPoint at;
    for (const auto& maker : makers) {
        at.setX(0);
        for (const State state : states) {
            QWidget stage;
            stage.setAttribute(Qt::WA_KeyboardFocusChange);
            QWidget* control = maker();
            control->setParent(&stage);
            control->move(8, 6);
            control->resize(control->sizeHint().boundedTo(cell - QSize(8, 6)));
            stage.resize(cell);
            stage.show();
            stage.activateWindow();
            settle();
            put(*control, state);
            settle();
            stage.setAttribute(Qt::WA_KeyboardFocusChange);
            painter.drawImage(at, pictureOf(stage));
            at.rx() += cell.width();
        }
        at.ry() += cell.height();
    }
    painter.end();
    save(image, QStringLiteral("states"));
}

QWidget* notices(QWidget* parent) {
    auto* column = new QWidget(parent);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* update = new Notice(
        {"sparkles", Role::blue, Role::primary, Role::blue, 0.1, Notice::Button::prominent, false});
    update->setText(QStringLiteral("Version 1.4.0 is available (you have 1.2.3)."));
    update->setButtonText(QStringLiteral("Download from Website"));
    layout->addWidget(update);
    layout->addWidget(new Separator);
    auto* permission = new Notice({"exclamationmark.triangle.fill", Role::orange, Role::primary,
                                   Role::orange, 0.12, Notice::Button::plain, true});
    permission->setText(QStringLiteral(
        "Accessibility permission is required to send keystrokes and intercept clicks."));
    permission->setButtonText(QStringLiteral("Open System Settings"));
    layout->addWidget(permission);
    layout->addWidget(new Separator);
    auto* error = new Notice({"", Role::red, Role::red});
    error->setText(
        QStringLiteral("⚠️ The touchpad's library could not be loaded: a long reason that "
                       "goes on and on, so that it has to wrap onto a second line."));
    layout->addWidget(error);
    layout->addWidget(new Separator);
    return column;
}

QWidget* header(QWidget* parent) {
    auto* bar = new QWidget(parent);
    auto* line = new QHBoxLayout(bar);
    line->setContentsMargins(12, 12, 12, 12);
    line->setSpacing(14);
    auto* words = new QVBoxLayout;
    words->setSpacing(2);
    auto* title = new StyledLabel(TextStyle::title2, Role::primary);
    title->setText(QStringLiteral("Trackpad Gesture Bindings"));
    auto* subtitle = new ElidedLabel(TextStyle::caption, Role::secondary);
    subtitle->setText(
        QStringLiteral("Map trackpad gestures to shortcuts or system actions, globally"));
    words->addWidget(title);
    words->addWidget(subtitle);
    line->addLayout(words, 1);
    line->addWidget(make<QCheckBox>("Launch at Login"));
    line->addWidget(picker());
    line->addWidget(makeChecked<Switch>("Enabled"));
    line->addWidget(prominent("Add Binding"));
    return bar;
}

QWidget* row(QWidget* parent, const char* name, Role badgeColor, bool dims) {
    auto* holder = new QWidget(parent);
    auto* line = new QHBoxLayout(holder);
    line->setContentsMargins(12, 4, 12, 4);
    line->setSpacing(12);
    line->addWidget(makeChecked<QCheckBox>(""));
    line->addWidget(new SymbolButton("circle", Role::accent));
    auto* words = new QVBoxLayout;
    words->setSpacing(2);
    auto* title = new ElidedLabel(TextStyle::bodyMedium, Role::primary);
    title->setText(QString::fromUtf8(name));
    auto* action = new ElidedLabel(TextStyle::body, Role::secondary);
    action->setText(QStringLiteral("⌘⇧T"));
    words->addWidget(title);
    words->addWidget(action);
    line->addLayout(words, 1);
    auto* badge = new Badge;
    badge->setText(badgeColor == Role::blue ? QStringLiteral("Global") : QStringLiteral("Firefox"));
    badge->setColor(badgeColor);
    line->addWidget(badge);
    line->addWidget(new SymbolButton("pencil", Role::primary));
    line->addWidget(new SymbolButton("trash", Role::red));
    setDimmed(holder, dims);
    return holder;
}

QWidget* form(QWidget* parent) {
    auto* holder = new QWidget(parent);
    auto* column = new QVBoxLayout(holder);
    column->setSpacing(18);
    auto* gesture = new FormSection;
    gesture->setTitle(QStringLiteral("Gesture"));
    auto* label = new StyledLabel(TextStyle::body, Role::primary);
    label->setText(QStringLiteral("Trackpad gesture"));
    gesture->addRow(label, picker());
    auto* caption = new StyledLabel(TextStyle::caption, Role::secondary);
    caption->setText(
        QStringLiteral("Draw a circle clockwise with one finger, at any place of the touchpad, as "
                       "large as a coin or as large as the whole pad."));
    caption->setWordWrap(true);
    gesture->addWidget(caption);
    column->addWidget(gesture);
    auto* scope = new FormSection;
    scope->setTitle(QStringLiteral("生效范围"));
    auto* range = new StyledLabel(TextStyle::body, Role::primary);
    range->setText(QStringLiteral("Scope"));
    scope->addRow(range, segments());
    auto* hidden = new StyledLabel(TextStyle::body, Role::primary);
    scope->addWidget(hidden)->hide();
    auto* only = new StyledLabel(TextStyle::body, Role::primary);
    only->setText(QStringLiteral("仅在此 App 生效"));
    scope->addRow(only, picker());
    column->addWidget(scope);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(make<QPushButton>("Cancel"));
    buttons->addStretch(1);
    auto* add = make<QPushButton>("Add");
    add->setDefault(true);
    buttons->addWidget(add);
    column->addLayout(buttons);
    return holder;
}

void paintWindow() {
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(header(&window));
    column->addWidget(new Separator);
    column->addWidget(notices(&window));
    QWidget* first = row(&window, "Draw a Circle", Role::blue, false);
    column->addWidget(first);
    column->addWidget(row(&window, "顺时针旋转", Role::purple, false));
    column->addWidget(row(&window, "Three-Finger Tap", Role::blue, true));
    column->addStretch(1);
    window.resize(720, 520);
    window.show();
    settle();
    auto* content = new QWidget;
    auto* inner = new QVBoxLayout(content);
    inner->setContentsMargins(0, 0, 0, 0);
    auto* title = new StyledLabel(TextStyle::headline, Role::primary);
    title->setText(QStringLiteral("Draw a Circle"));
    inner->addWidget(title);
    auto* space = new QWidget;
    space->setFixedSize(230, 150);
    inner->addWidget(space);
    auto* detail = new StyledLabel(TextStyle::caption, Role::secondary);
    detail->setWordWrap(true);
    detail->setFixedWidth(230);
    detail->setText(QStringLiteral("Draw a circle with one finger, in either direction."));
    inner->addWidget(detail);
    Popover popover(test::findAll<SymbolButton>(*first).front(), content);
    settle();
    save(pictureOf(window), QStringLiteral("window"));
}

void paintSheet() {
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(header(&window));
    column->addWidget(new Separator);
    column->addStretch(1);
    window.resize(720, 520);
    window.show();
    Theme::shared().pinReducedMotion(true);
    auto* sheet = new Sheet(&window, form(nullptr), QSize(460, 420));
    sheet->present();
    settle();
    QImage image = pictureOf(window);
    QPainter painter(&image);
    painter.drawImage(QPointF((window.width() - sheet->width()) / 2.0, -12), pictureOf(*sheet));
    painter.end();
    save(image, QStringLiteral("sheet"));
    sheet->dismiss();
    Theme::shared().pinReducedMotion({});
    settle();
}

void paintList() {
    QComboBox box;
    box.addItem(QStringLiteral("Circles"));
    box.setItemData(0, true, headingRole);
    for (const char* name : {"Draw a Circle", "Draw a Circle Clockwise", "逆时针画圆"}) {
        box.addItem(symbolIcon("circle", Role::accent), QString::fromUtf8(name));
    }
    box.addItem(QStringLiteral("Taps"));
    box.setItemData(4, true, headingRole);
    for (int index = 0; index < 12; ++index) {
        box.addItem(QStringLiteral("%1-Finger Tap").arg(index + 1));
    }
    auto* model = dynamic_cast<QStandardItemModel*>(box.model());
    model->item(0)->setFlags(Qt::NoItemFlags);
    model->item(4)->setFlags(Qt::NoItemFlags);
    box.setCurrentIndex(2);
    box.resize(280, 34);
    box.show();
    box.showPopup();
    settle();
    save(pictureOf(*box.view()->window()), QStringLiteral("picker"));
    box.hidePopup();

    QListWidget list;
    list.addItems({QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three")});
    list.setCurrentRow(1);
    list.resize(220, 120);
    list.show();
    settle();
    save(pictureOf(list), QStringLiteral("list"));
}

void paintMenu() {
    QMenu menu;
    menu.addAction(QStringLiteral("Enabled"))->setCheckable(true);
    menu.actions().front()->setChecked(true);
    menu.addSeparator();
    QAction* settings = menu.addAction(QStringLiteral("Settings…"));
    settings->setShortcut(Qt::CTRL | Qt::Key_Comma);
    menu.addAction(QStringLiteral("Check for Updates…"))->setEnabled(false);
    menu.addMenu(QStringLiteral("Language"));
    menu.addSeparator();
    menu.addAction(QStringLiteral("退出 Glidemap"))->setShortcut(Qt::CTRL | Qt::Key_Q);
    menu.popup(QPoint(10, 10));
    menu.setActiveAction(settings);
    settle();
    save(pictureOf(menu), QStringLiteral("menu"));
}

void paintAll() {
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        Theme::shared().pin(scheme);
        for (const double scale : {1.0, 1.5, 2.0}) {
            ratio = scale;
            suffix = QStringLiteral("-%1-%2").arg(
                scheme == ColorScheme::light ? QStringLiteral("light") : QStringLiteral("dark"),
                QString::number(scale));
            paintStates();
            paintWindow();
            paintSheet();
            paintList();
            paintMenu();
        }
    }
}

} // namespace

int main(int count, char** arguments) {
    QApplication application(count, arguments);
    if (count != 2 || !QDir().mkpath(QString::fromLocal8Bit(arguments[1]))) {
        qWarning("usage: ui_controls_gallery FOLDER");
        return 2;
    }
    folder = QString::fromLocal8Bit(arguments[1]);
    Theme::shared().applyTo(application);
    paintAll();
    return 0;
}
