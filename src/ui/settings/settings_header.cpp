#include "ui/settings/settings_header.h"

#include "ui/controls/picker.h"
#include "ui/controls/styled_label.h"
#include "ui/controls/switch.h"
#include "ui/theme/symbol.h"
#include "ui/theme/text.h"

#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>
#include <utility>

namespace glidemap {

namespace {

constexpr int padding = 12;
constexpr int spacing = 14;
constexpr int titleSpacing = 2;

// A text in both languages.
struct Texts {
    const char* english;
    const char* chinese;

    QString in(const Lang& lang) const { return toQt(lang.choose(english, chinese)); }
};

constexpr Texts titleTexts{"Trackpad Gesture Bindings", "触控板手势绑定"};
constexpr Texts subtitleTexts{
    "Map trackpad gestures to shortcuts or system actions, globally or per app",
    "把触控板手势映射到快捷键或系统动作，支持全局或按 App 生效"};
constexpr Texts launchTexts{"Launch at Login", "开机自启动"};
constexpr Texts languageTexts{"Language", "语言"};
constexpr Texts enabledTexts{"Enabled", "启用"};
constexpr Texts addTexts{"Add Binding", "添加绑定"};

// Returns the width that `like` would have with this text. `asked` is a hidden control that is used
// for measuring.
template <typename Control>
int widthWith(const char* text, const Control& like, Control&& asked) {
    asked.setFont(like.font());
    asked.setText(toQt(text));
    return asked.sizeHint().width();
}

// Qt::CTRL is Command on macOS, and Control elsewhere.
constexpr auto addKeys = Qt::CTRL | Qt::Key_N;

// The picker is just wide enough for the name of the first language, which is the longest name.
// Measuring the Chinese name would load the Chinese font before the list opens.
class LanguagePicker : public Picker {
public:
    explicit LanguagePicker(QWidget* parent) : Picker(parent) {
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override {
        QStyleOptionComboBox option;
        initStyleOption(&option);
        const QSize text(fontMetrics().horizontalAdvance(itemText(0)), fontMetrics().height());
        return style()->sizeFromContents(QStyle::CT_ComboBox, &option, text, this);
    }
    QSize minimumSizeHint() const override { return sizeHint(); }
};

void notify(const std::function<void(bool)>& listener, bool on) {
    if (listener) {
        listener(on);
    }
}

} // namespace

SettingsHeader::SettingsHeader(Lang& lang, QWidget* parent)
    : QWidget(parent), lang(lang), whole(new QBoxLayout(QBoxLayout::LeftToRight, this)),
      controls(new QBoxLayout(QBoxLayout::LeftToRight)), choices(new QHBoxLayout),
      commands(new QHBoxLayout) {
    whole->setContentsMargins(padding, padding, padding, padding);
    for (QBoxLayout* layout :
         std::initializer_list<QBoxLayout*>{whole, controls, choices, commands}) {
        layout->setSpacing(spacing);
    }
    makeTitles();
    makeLaunchAtLogin(*choices);
    makeLanguage(*choices);
    makeEnabled(*commands);
    commands->addStretch(1);
    makeAddBinding(*commands);
    controls->addLayout(choices);
    controls->addLayout(commands, 1);
    controls->setAlignment(choices, Qt::AlignLeft);
    whole->addLayout(controls);
    toTheme = Theme::shared().changes().subscribe({}, [this] {
        add->setIcon(symbolIcon("plus", Role::onAccent));
        measure();
        arrange();
    });
    retitle();
}

// The title and subtitle take the width that the controls leave free.
void SettingsHeader::makeTitles() {
    title = new StyledLabel(TextStyle::title2, Role::primary, this);
    title->setObjectName("title");
    subtitle = new StyledLabel(TextStyle::caption, Role::secondary, this);
    subtitle->setObjectName("subtitle");
    subtitle->setWordWrap(true);
    auto* column = new QVBoxLayout;
    column->setSpacing(titleSpacing);
    column->addStretch(1);
    column->addWidget(title);
    column->addWidget(subtitle);
    column->addStretch(1);
    whole->addLayout(column, 1);
}

void SettingsHeader::makeLaunchAtLogin(QHBoxLayout& layout) {
    launchAtLogin = new QCheckBox(this);
    launchAtLogin->setObjectName("launchAtLogin");
    connect(launchAtLogin, &QCheckBox::toggled, this,
            [this](bool on) { notify(onLaunchAtLogin, on); });
    layout.addWidget(launchAtLogin);
}

void SettingsHeader::makeLanguage(QHBoxLayout& layout) {
    languageLabel = new StyledLabel(TextStyle::body, Role::primary, this);
    languageLabel->setObjectName("languageLabel");
    language = new LanguagePicker(this);
    language->setObjectName("language");
    language->addItem(QStringLiteral("English"), QStringLiteral("en"));
    language->addItem(QStringLiteral("中文"), QStringLiteral("zh"));
    languageLabel->setBuddy(language);
    connect(language, &QComboBox::activated, this, [this](int index) {
        lang.setCode(language->itemData(index).toString().toStdString());
    });
    auto* pair = new QHBoxLayout;
    pair->setSpacing(6);
    pair->addWidget(languageLabel);
    pair->addWidget(language);
    layout.addLayout(pair);
}

void SettingsHeader::makeEnabled(QHBoxLayout& layout) {
    enabled = new Switch(this);
    enabled->setObjectName("enabled");
    connect(enabled, &QCheckBox::toggled, this, [this](bool on) { notify(onEnabled, on); });
    layout.addWidget(enabled);
}

void SettingsHeader::makeAddBinding(QHBoxLayout& layout) {
    add = new QPushButton(this);
    add->setObjectName("addBinding");
    add->setProperty("prominent", true);
    add->setIcon(symbolIcon("plus", Role::onAccent));
    add->setAutoDefault(false);
    connect(add, &QPushButton::clicked, this, [this] {
        if (onAddBinding) {
            onAddBinding();
        }
    });
    layout.addWidget(add);
}

void SettingsHeader::setLaunchesAtLogin(bool on) {
    const QSignalBlocker quiet(launchAtLogin);
    launchAtLogin->setChecked(on);
}

void SettingsHeader::setEnabledSwitch(bool on) {
    const QSignalBlocker quiet(enabled);
    enabled->setChecked(on);
}

void SettingsHeader::retitle() {
    title->setText(titleTexts.in(lang));
    subtitle->setText(subtitleTexts.in(lang));
    launchAtLogin->setText(launchTexts.in(lang));
    launchAtLogin->setToolTip(
        toQt(lang.choose("Start Glidemap automatically when you log in to macOS",
                         "登录 macOS 时自动启动 Glidemap")));
    languageLabel->setText(languageTexts.in(lang));
    enabled->setText(enabledTexts.in(lang));
    add->setText(addTexts.in(lang));
    add->setShortcut(addKeys); // setText() removes the shortcut
    language->setCurrentIndex(language->findData(toQt(lang.code())));
    language->setAccessibleName(languageLabel->text());
    for (QAbstractButton* button :
         std::initializer_list<QAbstractButton*>{launchAtLogin, enabled, add}) {
        button->setAccessibleName(button->text());
    }
    measure();
    arrange();
}

void SettingsHeader::addLaunchHelp(const std::string& line) {
    if (!line.empty()) {
        launchAtLogin->setToolTip(launchAtLogin->toolTip() + '\n' + toQt(line));
    }
}

SettingsHeader::Arrangement SettingsHeader::arrangement() const {
    if (whole->direction() == QBoxLayout::LeftToRight) {
        return Arrangement::oneLine;
    }
    return controls->direction() == QBoxLayout::LeftToRight ? Arrangement::controlsBelow
                                                            : Arrangement::controlsOnTwoLines;
}

// The header uses one line if the title fits on one line and the subtitle on two, in both
// languages, so that a language change does not move anything. English texts are always longer than
// the Chinese ones. Chinese texts are therefore not measured until they are shown, because
// measuring them loads their font.
void SettingsHeader::measure() {
    whole->activate(); // updates the cached sizes of the inner layouts
    StyledLabel wholeSubtitle(TextStyle::caption, Role::secondary);
    wholeSubtitle.setText(toQt(subtitleTexts.english));
    const int titles = std::max(
        widthWith(titleTexts.english, *title, StyledLabel(TextStyle::title2, Role::primary)),
        qRound(wholeSubtitle.lineSize().width()) * 11 / 20);
    controlsNeed = choicesNeed() + spacing + commandsNeed() + 2 * padding;
    lineNeeds = titles + spacing + controlsNeed;
}

int SettingsHeader::choicesNeed() const {
    return choices->sizeHint().width() +
           widthWith(launchTexts.english, *launchAtLogin, QCheckBox()) -
           launchAtLogin->sizeHint().width() +
           widthWith(languageTexts.english, *languageLabel,
                     StyledLabel(TextStyle::body, Role::primary)) -
           languageLabel->sizeHint().width();
}

int SettingsHeader::commandsNeed() const {
    QPushButton widestAdd;
    widestAdd.setIcon(add->icon());
    return commands->sizeHint().width() + widthWith(enabledTexts.english, *enabled, Switch()) -
           enabled->sizeHint().width() + widthWith(addTexts.english, *add, std::move(widestAdd)) -
           add->sizeHint().width();
}

void SettingsHeader::arrange() {
    whole->setDirection(width() < lineNeeds ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    controls->setDirection(width() < controlsNeed ? QBoxLayout::TopToBottom
                                                  : QBoxLayout::LeftToRight);
}

// After a theme change, the controls may get their new fonts only after this header has been
// notified, so the header measures again on each layout request.
bool SettingsHeader::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        measure();
        arrange();
    }
    return QWidget::event(event);
}

void SettingsHeader::resizeEvent(QResizeEvent* event) {
    arrange();
    QWidget::resizeEvent(event);
}

} // namespace glidemap
